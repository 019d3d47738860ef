// Boot and misuse: every function of the C interface answers, none of them ends the process.
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "platform/uikit.h"
#include "support/phone.h"

namespace test {
namespace {

namespace fs = std::filesystem;

class Boot : public testing::Test {
  protected:
    Boot() {
        auto pattern = (fs::temp_directory_path() / "huecraft-boot-XXXXXX").string();
        root = mkdtemp(pattern.data());
        options.size = sizeof options;
        options.root = root.c_str();
    }
    ~Boot() override { fs::remove_all(root); }

    void boot() const { ASSERT_EQ(sim_boot(&options), SIM_OK) << sim_last_error(); }

    static void expect_said(const std::string& part_of_line) {
        EXPECT_NE(std::string(sim_last_error()).find(part_of_line), std::string::npos) << sim_last_error();
    }
    void expect_refused(sim_status status, const std::string& part_of_line) const {
        EXPECT_EQ(sim_boot(&options), status);
        expect_said(part_of_line);
        EXPECT_EQ(std::string(sim_last_error()).find('\n'), std::string::npos);
    }

    std::string root;
    sim_options options{};
};

std::string first_argument() {
    objc::AutoreleasePool pool;
    return utf8(NSProcessInfo::processInfo()->arguments()->objectAtIndexedSubscript(0));
}

TEST_F(Boot, NeedsNothingButARoot) {
    boot();
    EXPECT_STREQ(sim_last_error(), "");
    objc::AutoreleasePool pool;
    EXPECT_EQ(utf8(UIDevice::currentDevice()->systemVersion()), "12.4");
    EXPECT_EQ(first_argument(), "/Applications/Notes.app/Notes");
}

TEST_F(Boot, HappensOnce) {
    boot();
    expect_refused(SIM_MISUSE, "on already");
}

TEST_F(Boot, MayBeTriedAgainAfterARefusal) {
    options.root = "/nowhere/at/all";
    expect_refused(SIM_NOT_FOUND, "/nowhere/at/all");
    options.root = root.c_str();
    boot();
    EXPECT_STREQ(sim_last_error(), "");
}

TEST_F(Boot, ClaimsTheExecutable) {
    options.executable = springboard;
    boot();
    objc::AutoreleasePool pool;
    NSArray* arguments = NSProcessInfo::processInfo()->arguments();
    EXPECT_EQ(arguments->count(), 1u);
    EXPECT_EQ(first_argument(), options.executable);
}

TEST_F(Boot, TheEnvironmentMayHoldAnyBytes) {
    setenv("HUECRAFT_TEST", "caf\xe9", 1);
    boot();
    unsetenv("HUECRAFT_TEST");
}

TEST_F(Boot, CanClaimNoArguments) {
    options.arguments = SIM_ARGUMENTS_NONE;
    boot();
    objc::AutoreleasePool pool;
    EXPECT_EQ(NSProcessInfo::processInfo()->arguments()->count(), 0u);
}

TEST_F(Boot, CanClaimAFirstArgumentOfNil) {
    options.arguments = SIM_ARGUMENTS_NIL;
    boot();
    objc::AutoreleasePool pool;
    NSArray* arguments = NSProcessInfo::processInfo()->arguments();
    EXPECT_EQ(arguments->count(), 1u);
    EXPECT_EQ(arguments->objectAtIndex(0), nullptr);
    EXPECT_EQ(arguments->objectAtIndexedSubscript(0), nullptr);
}

TEST_F(Boot, TakesSystemVersionAndScreen) {
    options.system_version = "10.3.3";
    options.screen_width = 320;
    options.screen_height = 568;
    options.screen_scale = 3;
    boot();
    objc::AutoreleasePool pool;
    EXPECT_EQ(utf8(UIDevice::currentDevice()->systemVersion()), "10.3.3");
    id screen = objc::send<"mainScreen", id>(class_named("UIScreen"));
    EXPECT_EQ((objc::send<"bounds", CGRect>(screen)), (CGRect{{0, 0}, {320, 568}}));
    EXPECT_EQ((objc::send<"scale", double>(screen)), 3);
}

TEST_F(Boot, LeavesOutClassesAndTheirSubclasses) {
    const char* left_out[] = {"CALayer", nullptr};
    options.left_out_classes = left_out;
    boot();
    EXPECT_NE(objc_getClass("UIView"), nullptr);
    EXPECT_EQ(objc_getClass("CALayer"), nullptr);
    EXPECT_EQ(objc_getClass("CAGradientLayer"), nullptr);
}

TEST_F(Boot, HasTheHomeScreensClassOnlyThere) {
    options.executable = springboard;
    boot();
    EXPECT_NE(objc_getClass("SpringBoard"), nullptr);
}

TEST_F(Boot, LacksTheHomeScreensClassElsewhere) {
    boot();
    EXPECT_EQ(objc_getClass("SpringBoard"), nullptr);
}

TEST_F(Boot, LetsTheCallerBringAClassThatIsLeftOut) {
    const char* left_out[] = {"UIDevice", nullptr};
    options.left_out_classes = left_out;
    Class mine = objc_allocateClassPair(objc_getClass("NSObject"), "UIDevice", 0);
    objc_registerClassPair(mine);
    boot();
    EXPECT_EQ(objc_getClass("UIDevice"), mine);
}

TEST_F(Boot, RefusesAClassThatExistsAlready) {
    objc_registerClassPair(objc_allocateClassPair(objc_getClass("NSObject"), "UIDevice", 0));
    expect_refused(SIM_MISUSE, "UIDevice exists already");
}

TEST_F(Boot, RefusesToLeaveOutWhatTheModelLacks) {
    const char* left_out[] = {"UIDevise", nullptr};
    options.left_out_classes = left_out;
    expect_refused(SIM_NOT_FOUND, "UIDevise");
}

TEST_F(Boot, RefusesToHideFromHooksWhatIsNoMethodsName) {
    for (const char* name :
         {"", "UIKBEdgeEffect edges", "-[UIKBEdgeEffect]", "-[ edges]", "-[UIKBEdgeEffect ]",
          "-[UIKBEdgeEffect edges now]", "*[UIKBEdgeEffect edges]"}) {
        const char* hidden[] = {name, nullptr};
        options.unfound_methods = hidden;
        EXPECT_NE(sim_boot(&options), SIM_OK) << name;
        options.unfound_methods = nullptr;
        options.methods_without_previous = hidden;
        EXPECT_NE(sim_boot(&options), SIM_OK) << name;
    }
}

TEST_F(Boot, RefusesToHideMethodsOfAClassThatTheModelLacks) {
    const char* hidden[] = {"-[UIKBEdgyEffect edges]", nullptr};
    options.unfound_methods = hidden;
    expect_refused(SIM_NOT_FOUND, "no class UIKBEdgyEffect");
}

TEST_F(Boot, RefusesNoOptions) {
    EXPECT_EQ(sim_boot(nullptr), SIM_MISUSE);
    expect_said("options is NULL");
}

TEST_F(Boot, RefusesOptionsWithoutSize) {
    options.size = 0;
    expect_refused(SIM_MISUSE, "size is 0");
}

TEST_F(Boot, TakesTheOptionsOfAnEarlierVersion) {
    options.size = offsetof(sim_options, executable);
    options.executable = "not looked at";
    boot();
}

TEST_F(Boot, RefusesMembersOfALaterVersion) {
    struct {
        sim_options known;
        const void* later;
    } longer{options, "set"};
    longer.known.size = sizeof longer;
    EXPECT_EQ(sim_boot(&longer.known), SIM_MISUSE);
    expect_said("later version");
    longer.later = nullptr;
    EXPECT_EQ(sim_boot(&longer.known), SIM_OK) << sim_last_error();
}

TEST_F(Boot, RefusesARootThatIsNoFolder) {
    options.root = nullptr;
    expect_refused(SIM_MISUSE, "no root folder");
    options.root = "";
    expect_refused(SIM_MISUSE, "no root folder");
    const std::string file = root + "/file";
    std::ofstream(file) << "x";
    options.root = file.c_str();
    expect_refused(SIM_BAD_FILE, file);
    options.root = "/";
    expect_refused(SIM_MISUSE, "host's own root");
}

TEST_F(Boot, RefusesAnExecutableThatIsNoDevicePath) {
    for (const char* path : {"", "Notes", "./Notes"}) {
        options.executable = path;
        expect_refused(SIM_MISUSE, "begins with /");
    }
}

TEST_F(Boot, RefusesImpossibleScreens) {
    options.screen_scale = 4;
    expect_refused(SIM_MISUSE, "it is 1, 2 or 3");
    options.screen_scale = 0;
    for (double width : {-1.0, 0.5, 375.5, 1e9, double{NAN}, double{INFINITY}}) {
        options.screen_width = width;
        expect_refused(SIM_MISUSE, "whole number");
    }
}

TEST_F(Boot, RefusesImpossibleVersionsAndArguments) {
    for (const char* version : {"", "twelve", ".4", "12.", "12..4", "12.4b"}) {
        options.system_version = version;
        expect_refused(SIM_MISUSE, "such as \"12.4\"");
    }
    options.system_version = nullptr;
    options.injection = 4;
    expect_refused(SIM_MISUSE, "kind 4 of injection framework");
    options.injection = SIM_INJECTION_LENIENT;
    options.arguments = static_cast<sim_arguments>(3);
    expect_refused(SIM_MISUSE, "arguments");
}

TEST_F(Boot, ComesFirst) {
    sim_library* library = nullptr;
    sim_colour colour;
    sim_keyboard keyboard{};
    keyboard.size = sizeof keyboard;
    EXPECT_EQ(sim_load("/lib/x86_64-linux-gnu/libc.so.6", &library), SIM_MISUSE);
    EXPECT_EQ(sim_named_colour("UIKBColorBlack", &colour), SIM_MISUSE);
    EXPECT_EQ(sim_show_keyboard(&keyboard), SIM_MISUSE);
    EXPECT_EQ(sim_take_picture("picture.png", 0), SIM_MISUSE);
    expect_said("call sim_boot first");
    EXPECT_EQ(sim_installing_call_count(), 0u);
}

TEST_F(Boot, NullIsAnsweredEverywhere) {
    boot();
    sim_library* library = nullptr;
    sim_colour colour;
    void* address;
    EXPECT_EQ(sim_load(nullptr, &library), SIM_MISUSE);
    EXPECT_EQ(sim_load("library.so", nullptr), SIM_MISUSE);
    EXPECT_EQ(sim_symbol(nullptr, "x", &address), SIM_MISUSE);
    EXPECT_EQ(sim_class_count(nullptr), 0u);
    EXPECT_EQ(sim_class_name(nullptr, 0), nullptr);
    EXPECT_EQ(sim_installing_call_at(0, nullptr), SIM_MISUSE);
    EXPECT_EQ(sim_named_colour(nullptr, &colour), SIM_MISUSE);
    EXPECT_EQ(sim_named_colour("UIKBColorBlack", nullptr), SIM_MISUSE);
    EXPECT_EQ(sim_take_picture(nullptr, 0), SIM_MISUSE);
    expect_said("host_path is NULL");
}

TEST_F(Boot, WrongArgumentsAreNamed) {
    boot();
    sim_installing_call call;
    EXPECT_EQ(sim_installing_call_at(0, &call), SIM_NOT_FOUND);
    sim_colour colour;
    EXPECT_EQ(sim_named_colour("\xff", &colour), SIM_MISUSE);
    for (double scale : {-1.0, 11.0, double{NAN}})
        EXPECT_EQ(sim_take_picture("picture.png", scale), SIM_MISUSE);
    sim_keyboard keyboard{};
    keyboard.size = sizeof keyboard;
    keyboard.plane = "runes";
    EXPECT_EQ(sim_show_keyboard(&keyboard), SIM_NOT_FOUND);
    expect_said("runes");
    keyboard.size = 1;
    EXPECT_EQ(sim_show_keyboard(&keyboard), SIM_MISUSE);
}

TEST_F(Boot, NamedColoursTellTheirModel) {
    boot();
    sim_colour colour;
    ASSERT_EQ(sim_named_colour("UIKBColorBlack", &colour), SIM_OK) << sim_last_error();
    EXPECT_EQ(colour.model, SIM_COLOUR_GREY);
    EXPECT_EQ(colour.components[0], 0);
    EXPECT_EQ(colour.components[1], 1);
    ASSERT_EQ(sim_named_colour("UIKBColorKeyBlueKeyBackground", &colour), SIM_OK) << sim_last_error();
    EXPECT_EQ(colour.model, SIM_COLOUR_RGB);
    EXPECT_EQ(colour.components[2], 1);
    ASSERT_EQ(sim_named_colour("UIKBColorText", &colour), SIM_OK) << sim_last_error();
    EXPECT_EQ(colour.model, SIM_COLOUR_NONE);
}

TEST_F(Boot, RaisedExceptionsAreNamed) {
    boot();
    objc::AutoreleasePool pool;
    // A colour class whose only method raises, as a broken library's would.
    IMP raises = reinterpret_cast<IMP>(+[](id self, SEL) { objc::send<"noSuchMethod">(self); });
    Method method = class_getInstanceMethod(objc_getClass("UIColor"), sel_registerName("CGColor"));
    method_setImplementation(method, raises);
    __objc_update_dispatch_table_for_class(objc_getClass("UIColor"));
    sim_colour colour;
    EXPECT_EQ(sim_named_colour("UIKBColorBlack", &colour), SIM_RAISED);
    expect_said("NSInvalidArgumentException");
}

// ---- Prepared phones -------------------------------------------------------------------------------------

TEST_F(Boot, MayHaveBeenPrepared) {
    ASSERT_EQ(sim_prepare(nullptr), SIM_OK) << sim_last_error();
    const Class view = objc_getClass("UIView");
    EXPECT_NE(view, nullptr);
    boot();
    EXPECT_EQ(objc_getClass("UIView"), view);
    EXPECT_EQ(objc_getClass("SpringBoard"), nullptr);
    objc::AutoreleasePool pool;
    EXPECT_EQ(first_argument(), "/Applications/Notes.app/Notes");
}

TEST_F(Boot, OfAPreparedPhoneMayBeTheHomeScreens) {
    ASSERT_EQ(sim_prepare(nullptr), SIM_OK) << sim_last_error();
    options.executable = springboard;
    boot();
    EXPECT_NE(objc_getClass("SpringBoard"), nullptr);
}

TEST_F(Boot, LeavesOutOfAPreparedPhoneWhatWasKeptBack) {
    const char* kept_back[] = {"CALayer", "UIDevice", nullptr};
    ASSERT_EQ(sim_prepare(kept_back), SIM_OK) << sim_last_error();
    EXPECT_EQ(objc_getClass("CAGradientLayer"), nullptr);
    const char* left_out[] = {"CALayer", nullptr};
    options.left_out_classes = left_out;
    boot();
    EXPECT_EQ(objc_getClass("CALayer"), nullptr);
    EXPECT_EQ(objc_getClass("CAGradientLayer"), nullptr);
    EXPECT_NE(objc_getClass("UIDevice"), nullptr);
}

TEST_F(Boot, RefusesToLeaveOutWhatIsPrepared) {
    ASSERT_EQ(sim_prepare(nullptr), SIM_OK) << sim_last_error();
    const char* left_out[] = {"UIDevice", nullptr};
    options.left_out_classes = left_out;
    expect_refused(SIM_MISUSE, "UIDevice: it is prepared");
}

TEST_F(Boot, IsPreparedOnceAndBefore) {
    const char* misspelt[] = {"UIDevise", nullptr};
    EXPECT_EQ(sim_prepare(misspelt), SIM_NOT_FOUND);
    expect_said("UIDevise");
    ASSERT_EQ(sim_prepare(nullptr), SIM_OK) << sim_last_error();
    EXPECT_EQ(sim_prepare(nullptr), SIM_MISUSE);
    boot();
    EXPECT_EQ(sim_prepare(nullptr), SIM_MISUSE);
}

}  // namespace

/// Boot is under test itself.
void prepare_phones() {}

}  // namespace test

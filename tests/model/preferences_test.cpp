// The preference store: HCPreferences.
#include <atomic>
#include <thread>

#include "support/configuration.h"
#include "support/runtime.h"
#include "support/themes.h"

namespace test {
namespace {

/// The store by its selectors.
struct Store : ThemeValues {
    Store(id of = objc::send<"sharedInstance", id>(class_named("HCPreferences"))) : ThemeValues(of) {}

    bool enabled() const { return objc::send<"isEnabled", bool>(object); }
    bool caps_enabled() const { return objc::send<"isCapsEnabled", bool>(object); }

    void expect_nothing() const {
        EXPECT_FALSE(enabled());
        EXPECT_FALSE(caps_enabled());
        EXPECT_EQ(text_colour(), nullptr);
        EXPECT_EQ(highlight_colour(), nullptr);
        EXPECT_EQ(background_type(), 0u);
        EXPECT_EQ(direction(), 0u);
        EXPECT_EQ(colours(), nullptr);
        EXPECT_EQ(image(), nullptr);
        EXPECT_EQ(image_alpha(), 0.0);
    }
};

class Preferences : public testing::Test {
  protected:
    void write_preferences(std::string_view xml_of_root) {
        phone.write(preference_file, property_list(xml_of_root));
    }
    void write_theme(std::string_view more = "") {
        phone.write(std::string(theme_folder) + "Meadow.plist", theme(more));
    }
    static bool is_fallback(id cache) {
        auto* dictionary = static_cast<NSDictionary*>(cache);
        return dictionary->send<"count", NSUInteger>() == 2 &&
               utf8(dictionary->objectForKey(text("_Config"))).empty() &&
               objc::send<"isEqual:", bool>(dictionary->objectForKey(text("_Enabled")),
                                            NSNumber::numberWithBool(false));
    }

    Phone phone;
};

TEST_F(Preferences, WithoutAFileEverythingIsEmpty) {
    phone.start();
    Store store;
    store.expect_nothing();
    EXPECT_TRUE(is_fallback(variable<id>(store.object, "preferenceCache")));
    EXPECT_EQ(variable<id>(store.object, "configCache"), nullptr);
}

TEST_F(Preferences, EnabledWithAThemeAnswersFromTheTheme) {
    arrange_theme(phone);
    phone.start();
    Store store;
    EXPECT_TRUE(store.enabled());
    EXPECT_FALSE(store.caps_enabled());
    EXPECT_EQ(rgba(store.text_colour()), theme_text);
    EXPECT_EQ(rgba(store.highlight_colour()), theme_highlight);
    EXPECT_EQ(store.background_type(), 2u);
    EXPECT_EQ(store.direction(), 7u);
    EXPECT_EQ(store.colours()->count(), 2u);
    EXPECT_EQ(store.image(), nullptr);
    EXPECT_EQ(store.image_alpha(), 1.0) << "the theme's own fallback, since a theme is asked";
}

TEST_F(Preferences, ADisabledThemeStillAnswers) {
    arrange_theme(phone, false);
    phone.start();
    Store store;
    EXPECT_FALSE(store.enabled());
    EXPECT_EQ(rgba(store.text_colour()), theme_text);
}

TEST_F(Preferences, TheCapsSwitchIsTheThemes) {
    arrange_theme(phone, true, "<key>_VisibleKeycaps</key><true/>");
    phone.start();
    EXPECT_TRUE(Store().caps_enabled());
}

TEST_F(Preferences, EnabledWithAMissingThemeFallsBack) {
    write_preferences("<dict><key>_Enabled</key><true/><key>_Config</key><string>Gone.plist</string></dict>");
    phone.start();
    Store store;
    store.expect_nothing();
    EXPECT_TRUE(is_fallback(variable<id>(store.object, "preferenceCache")));
}

TEST_F(Preferences, EnabledWithAThemeThatDoesNotLoadFallsBack) {
    write_preferences(
        "<dict><key>_Enabled</key><true/><key>_Config</key><string>Meadow.plist</string></dict>");
    phone.write(std::string(theme_folder) + "Meadow.plist", "<plist><dict>");
    phone.start();
    Store().expect_nothing();
}

TEST_F(Preferences, AMissingThemeNameFallsBack) {
    write_preferences("<dict><key>_Enabled</key><true/></dict>");
    phone.make_folder(theme_folder);
    phone.start();
    Store().expect_nothing();
}

TEST_F(Preferences, AFileThatIsNoPropertyListAnswersNothing) {
    phone.write(preference_file, "<?xml version=\"1.0\"?><plist><dict>");
    write_theme();
    phone.start();
    Store store;
    store.expect_nothing();
    EXPECT_EQ(variable<id>(store.object, "preferenceCache"), nullptr) << "no fallback either";
}

TEST_F(Preferences, AnArrayAtTheRootCountsAsAbsent) {
    write_preferences("<array><string>_Enabled</string></array>");
    write_theme();
    phone.start();
    Store store;
    store.expect_nothing();
    EXPECT_TRUE(is_fallback(variable<id>(store.object, "preferenceCache")));
}

TEST_F(Preferences, ABareWordCountsAsAbsent) {
    phone.write(preference_file, "hello");
    phone.start();
    Store().expect_nothing();
}

TEST_F(Preferences, AThemeNameThatIsNoStringCountsAsAbsent) {
    write_theme();
    phone.start();
    for (const char* value :
         {"<integer>5</integer>", "<array/>", "<dict/>", "<data>AAAA</data>", "<true/>"}) {
        write_preferences("<dict><key>_Enabled</key><true/><key>_Config</key>" + std::string(value) +
                          "</dict>");
        Store another{objc_autorelease(objc::send<"new", id>(class_named("HCPreferences")))};
        another.expect_nothing();
    }
}

TEST_F(Preferences, ASwitchWithoutABooleanValueIsOff) {
    write_preferences(
        "<dict><key>_Enabled</key><array/><key>_Config</key><string>Meadow.plist</string></dict>");
    write_theme();
    phone.start();
    Store store;
    EXPECT_FALSE(store.enabled());
    EXPECT_EQ(rgba(store.text_colour()), theme_text);
}

TEST_F(Preferences, AMissingSwitchIsOff) {
    write_preferences("<dict><key>_Config</key><string>Meadow.plist</string></dict>");
    write_theme();
    phone.start();
    Store store;
    EXPECT_FALSE(store.enabled());
    EXPECT_EQ(rgba(store.text_colour()), theme_text) << "the theme is loaded all the same";
}

TEST_F(Preferences, ASwitchMayBeANumber) {
    write_preferences(
        "<dict><key>_Enabled</key><integer>1</integer><key>_Config</key><string>Meadow.plist</string></"
        "dict>");
    write_theme();
    phone.start();
    EXPECT_TRUE(Store().enabled());
}

TEST_F(Preferences, AStringSwitchReadsAsABoolean) {
    write_preferences(
        "<dict><key>_Enabled</key><string>YES</string><key>_Config</key><string>Meadow.plist</string></"
        "dict>");
    write_theme();
    phone.start();
    EXPECT_TRUE(Store().enabled());
}

TEST_F(Preferences, BadBytesNeverCrashTheHost) {
    phone.write(preference_file, std::string("\x01\x02garbage <<<<"));
    phone.start();
    Store().expect_nothing();
    for (const std::string& bytes : {std::string(), std::string(1, '\0'), std::string("bplist00\xff\xff\xff"),
                                     std::string(3000, '('), std::string("{ _Enabled = ")}) {
        phone.write(preference_file, bytes);
        id another = objc::send<"new", id>(class_named("HCPreferences"));
        EXPECT_FALSE((objc::send<"isEnabled", bool>(another)));
        objc_release(another);
        EXPECT_EQ(phone.read(preference_file), bytes);
    }
}

TEST_F(Preferences, FiftyMegabytesOfGarbageAnswerNothing) {
    phone.write(preference_file, std::string(50'000'000, '{'));
    phone.start();
    Store().expect_nothing();
}

TEST_F(Preferences, OtherKeysStayInTheCache) {
    write_preferences(
        "<dict><key>_Enabled</key><true/><key>_Config</key><string>Meadow.plist</string>"
        "<key>Other</key><string>kept</string></dict>");
    write_theme();
    phone.start();
    auto* cache = static_cast<NSDictionary*>(variable<id>(Store().object, "preferenceCache"));
    EXPECT_EQ(utf8(cache->objectForKey(text("Other"))), "kept");
}

TEST_F(Preferences, TheImageIsAnsweredFromTheSecondCallOn) {
    arrange_theme(
        phone, true,
        "<key>_Image</key><data>iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mP8z8BQDwAEhQGA"
        "hKmMIQAAAABJRU5ErkJggg==</data>");
    phone.start();
    Store store;
    EXPECT_EQ(store.image(), nullptr);
    UIImage* scaled = store.image();
    ASSERT_NE(scaled, nullptr);
    EXPECT_EQ(scaled->size().width, 375);
    EXPECT_EQ(store.image(), scaled);
}

TEST_F(Preferences, ThereIsOneInstanceForGood) {
    phone.start();
    id first = Store().object;
    EXPECT_EQ(Store().object, first);
    EXPECT_NE(first, nullptr);
}

TEST_F(Preferences, TheFileIsReadOncePerProcess) {
    arrange_theme(phone);
    phone.start();
    EXPECT_TRUE(Store().enabled());
    std::filesystem::remove(phone.host(preference_file));
    write_theme("<key>_VisibleKeycaps</key><true/>");
    EXPECT_TRUE(Store().enabled());
    EXPECT_FALSE(Store().caps_enabled());
}

TEST_F(Preferences, TheDarkColoursIgnoreTheFiles) {
    arrange_theme(phone);
    phone.start();
    id store = Store().object;
    EXPECT_EQ(utf8(objc::send<"eKeyColorString", NSString*>(store)), "UIKBColorBlack");
    EXPECT_EQ(utf8(objc::send<"eHighlightColorString", NSString*>(store)), "UIKBColorBlack_Alpha60");
    EXPECT_EQ(utf8(objc::send<"eTextColorString", NSString*>(store)), "UIKBColorWhite");
    EXPECT_EQ(rgba(objc::send<"eKeyColor", id>(store)), (Rgba{0, 0, 0, 1}));
    EXPECT_EQ(rgba(objc::send<"eHighlightColor", id>(store)), (Rgba{0, 0, 0, 0.6000000238418579}));
    EXPECT_EQ(rgba(objc::send<"eTextColor", id>(store)), (Rgba{1, 1, 1, 1}));
}

TEST_F(Preferences, TheDarkColoursNeedNoFiles) {
    phone.start();
    id store = Store().object;
    EXPECT_EQ(utf8(objc::send<"eTextColorString", NSString*>(store)), "UIKBColorWhite");
    EXPECT_EQ(rgba(objc::send<"eHighlightColor", id>(store)), (Rgba{0, 0, 0, 0.6000000238418579}));
}

TEST_F(Preferences, AsksTheThemeByMessage) {
    static UIImage* image = nullptr;
    arrange_theme(phone);
    phone.start();
    image = filled_image(color(1, 0, 0), 2, 2);
    stand_in("HuecraftConfig", "getBackgroundType", [](id, SEL) -> NSUInteger { return 77; });
    stand_in("HuecraftConfig", "getImageCache", [](id, SEL) -> id { return image; });
    stand_in("HuecraftConfig", "getVisibleKeycaps", [](id, SEL) { return 1; });
    Store store;
    EXPECT_EQ(store.background_type(), 77u);
    EXPECT_EQ(store.image(), image);
    EXPECT_TRUE(store.caps_enabled());
}

TEST_F(Preferences, TheThemeIsAskedForByTheNameInTheFile) {
    static std::vector<std::string> asked;
    phone.start();
    stand_in(
        "HuecraftConfig",
        "configWithFilename:", [](id, SEL, id name) -> id { return asked.push_back(utf8(name)), nullptr; },
        Side::on_class);
    auto read_again = [] { objc_release(objc::send<"new", id>(class_named("HCPreferences"))); };
    read_again();
    EXPECT_EQ(asked.back(), "") << "without a file";
    write_preferences("<dict><key>_Config</key><string>Meadow.plist</string></dict>");
    read_again();
    EXPECT_EQ(asked.back(), "Meadow.plist");
    write_preferences("<dict><key>_Enabled</key><true/></dict>");
    read_again();
    EXPECT_EQ(asked.back(), "(nil)") << "without the key";
    write_preferences("<dict><key>_Config</key><integer>5</integer></dict>");
    read_again();
    EXPECT_EQ(asked.back(), "(nil)") << "a number is not a name";
    phone.write(preference_file, "<?xml version=\"1.0\"?><plist><dict>");
    read_again();
    EXPECT_EQ(asked.size(), 4u) << "no property list names no theme";
}

TEST_F(Preferences, ThreadsThatAskAtOnceGetOneInstance) {
    static IMP previous;
    static std::atomic<int> made_stores = 0;
    arrange_theme(phone);
    phone.start({.executable = "/usr/libexec/keyboardd"});  // where the set-up does not ask for the store
    previous = stand_in("HCPreferences", "init", [](id self, SEL selector) -> id {
        ++made_stores;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        return call<id>(previous, self, selector);
    });
    id store_class = class_named("HCPreferences");
    std::vector<id> answers(8);
    std::vector<std::thread> threads;
    for (id& answer : answers)
        threads.emplace_back([&answer, store_class] {
            objc::AutoreleasePool pool;
            answer = objc::send<"sharedInstance", id>(store_class);
        });
    for (auto& thread : threads) thread.join();
    // In an arm64e process the library has asked for it by then, before it hooks the named colours.
    EXPECT_EQ(made_stores, process_under_test() == SIM_PROCESS_ARM64E ? 0 : 1);
    EXPECT_NE(answers[0], nullptr);
    EXPECT_EQ(answers, std::vector<id>(8, answers[0]));
}

TEST_F(Preferences, ItsMembersAreInstanceVariablesInOrder) {
    phone.start();
    Class type = objc_getClass("HCPreferences");
    Ivar preferences = class_getInstanceVariable(type, "preferenceCache");
    Ivar theme = class_getInstanceVariable(type, "configCache");
    ASSERT_NE(preferences, nullptr);
    ASSERT_NE(theme, nullptr);
    EXPECT_LT(ivar_getOffset(preferences), ivar_getOffset(theme));
}

}  // namespace
}  // namespace test

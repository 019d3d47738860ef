// Loading a library: the same in both builds.
#include <cstring>
#include <filesystem>

#include "platform/keyboard.h"
#include "support/contents.h"
#include "support/phone.h"

namespace test {
namespace {

namespace fs = std::filesystem;

class Load : public testing::Test {
  protected:
    void SetUp() override { phone.boot(); }

    static std::string path() { return std::getenv("HUECRAFT_LIBRARY"); }
    static std::string contents() { return contents_of(path()); }
    /// A library file of other contents in the test's folder.
    std::string changed(std::string_view bytes) {
        phone.write("/changed", bytes);
        return phone.host("/changed").string();
    }
    void expect_refused(sim_status status, const std::string& file, const std::string& part_of_line) {
        sim_library* library = reinterpret_cast<sim_library*>(1);
        EXPECT_EQ(sim_load(file.c_str(), &library), status);
        EXPECT_EQ(library, nullptr);
        const std::string line = sim_last_error();
        EXPECT_NE(line.find(part_of_line), std::string::npos) << line;
        EXPECT_EQ(line.find('\n'), std::string::npos) << line;
    }
    static NSObject* screen() { return objc::send<"mainScreen", NSObject*>(class_named("UIScreen")); }

    Phone phone;
};

TEST_F(Load, RegistersItsClasses) {
    phone.load();
    ASSERT_EQ(sim_class_count(phone.loaded_library()), 1u);
    EXPECT_STREQ(sim_class_name(phone.loaded_library(), 0), "SampleThing");
    EXPECT_EQ(sim_class_name(phone.loaded_library(), 1), nullptr);
    auto thing = objc::send<"new", objc::strong<NSObject>>(class_named("SampleThing"));
    EXPECT_EQ((thing->send<"number", long>()), 42);
    EXPECT_EQ(utf8(thing->send<"constant", id>()), "constant");
    thing->send<"setName:">(static_cast<id>(text("name")));
    EXPECT_EQ(utf8(thing->send<"name", id>()), "name");
}

TEST_F(Load, RunsItsInitializersInOrder) {
    phone.load();
    EXPECT_EQ((screen()->send<"countInitializers", long>()), 2);
    EXPECT_EQ(installed_rows(), (std::vector<std::string>{"-[UIScreen bounds]", "-[nil bounds]",
                                                          "-[UIScreen countInitializers] added as q@:",
                                                          "function UIKBGetNamedColor"}));
}

TEST_F(Load, ItsHooksAreHeard) {
    EXPECT_EQ((screen()->send<"bounds", CGRect>()).size.width, 375);
    phone.load();
    EXPECT_EQ((screen()->send<"bounds", CGRect>()).size.width, 1375);
    sim_colour colour;
    ASSERT_EQ(sim_named_colour("UIKBColorBlack", &colour), SIM_OK) << sim_last_error();
    EXPECT_EQ(colour.components[0], 1);
}

TEST(LoadOfABrokenLibrary, NamesTheExceptionThatAnInitializerRaised) {
    Phone phone;
    Phone::Options options;
    options.executable = "/Applications/Raises";
    phone.boot(options);
    sim_library* library = nullptr;
    EXPECT_EQ(sim_load(std::getenv("HUECRAFT_LIBRARY"), &library), SIM_RAISED);
    EXPECT_EQ(library, nullptr);
    EXPECT_NE(std::string(sim_last_error()).find("NSInvalidArgumentException"), std::string::npos)
        << sim_last_error();
    EXPECT_EQ(sim_installing_call_count(), 0u) << "nothing after the exception has run";
    objc::AutoreleasePool pool;
    EXPECT_EQ(utf8(UIDevice::currentDevice()->systemVersion()), "12.4") << "the phone goes on";
}

TEST_F(Load, ExportsAreFoundByName) {
    phone.load();
    void* address = nullptr;
    ASSERT_EQ(sim_symbol(phone.loaded_library(), "kSamplePoint", &address), SIM_OK) << sim_last_error();
    EXPECT_EQ(*static_cast<const CGPoint*>(address), (CGPoint{0.25, 0.75}));
    ASSERT_EQ(sim_symbol(phone.loaded_library(), "OBJC_CLASS_$_SampleThing", &address), SIM_OK)
        << sim_last_error();
    EXPECT_EQ(address, objc_getClass("SampleThing"));
    ASSERT_EQ(sim_symbol(phone.loaded_library(), "OBJC_METACLASS_$_SampleThing", &address), SIM_OK)
        << sim_last_error();
    EXPECT_EQ(address, object_getClass(reinterpret_cast<id>(objc_getClass("SampleThing"))));
}

TEST_F(Load, OnlyItsOwnExportsAreFound) {
    phone.load();
    for (const char* name :
         {"malloc", "OBJC_CLASS_$_NSObject", "OBJC_CLASS_$_UIView", "kMissing", "", "install"}) {
        void* address = this;
        EXPECT_EQ(sim_symbol(phone.loaded_library(), name, &address), SIM_NOT_FOUND) << name;
        EXPECT_EQ(address, nullptr) << name;
    }
    void* address;
    EXPECT_EQ(sim_symbol(phone.loaded_library(), nullptr, &address), SIM_MISUSE);
    EXPECT_EQ(sim_symbol(phone.loaded_library(), "kSamplePoint", nullptr), SIM_MISUSE);
}

TEST_F(Load, TwiceIsRefused) {
    phone.load();
    expect_refused(SIM_MISUSE, path(), "loaded already");
    fs::create_symlink(path(), phone.host("/link"));
    expect_refused(SIM_MISUSE, phone.host("/link"), "loaded already");
}

TEST_F(Load, WhatIsMissingIsNotFound) {
    expect_refused(SIM_NOT_FOUND, "/missing/library.so", "/missing/library.so");
    expect_refused(SIM_BAD_FILE, phone.host("/"), "not a file");
    expect_refused(SIM_NOT_FOUND, "", "cannot load");
}

TEST_F(Load, WhatIsNoLibraryIsRefused) {
    for (std::string_view bytes : {"", "x", "#!/bin/sh\n", "\x7f",
                                   "\x7f"
                                   "EL",
                                   "\xcf\xfa\xed"})
        expect_refused(SIM_BAD_FILE, changed(bytes), "neither an ELF nor a Mach-O library");
}

TEST_F(Load, AnythingCutShortIsRefused) {
    const std::string whole = contents();
    for (size_t size :
         {size_t{4}, size_t{20}, size_t{63}, size_t{64}, size_t{200}, whole.size() / 4, whole.size() / 2})
        expect_refused(SIM_BAD_FILE, changed(std::string_view(whole).substr(0, size)), "cannot load");
    EXPECT_EQ(sim_installing_call_count(), 0u);
}

TEST_F(Load, RefusesALibraryThatNeedsWhatNobodyHas) {
    expect_refused(SIM_BAD_FILE, NEEDY_LIBRARY, "sample_function_that_nobody_has");
}

/// In a Mach-O library, a section of constants claims to be the one of constant strings, which are made
/// Foundation's own where they are (claim_constant_strings).
TEST_F(Load, ConstantStringsWhereNothingMayBeWrittenAreLeftAlone) {
    const bool elf = contents().starts_with("\x7f");
    sim_library* library = nullptr;
    ASSERT_EQ(sim_load(elf ? path().c_str() : CLAIMING_LIBRARY, &library), SIM_OK) << sim_last_error();
    auto thing = objc::send<"new", objc::strong<NSObject>>(class_named("SampleThing"));
    EXPECT_EQ(utf8(thing->send<"constant", id>()), "constant");
}

TEST_F(Load, RefusesAnotherProcessor) {
    std::string bytes = contents();
    if (bytes.starts_with("\x7f"
                          "ELF"))
        bytes[18] = 8;  // the machine
    else
        bytes[4] = 0x12;  // the processor
    expect_refused(SIM_BAD_FILE, changed(bytes), "cannot load");
}

}  // namespace
}  // namespace test

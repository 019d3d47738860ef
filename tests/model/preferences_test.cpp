// The preference store: HCPreferences.
#include "platform/substrate.h"
#include "support/configuration.h"
#include "support/themes.h"

namespace test {
namespace {

/// The store by its selectors.
struct Store {
    id object = objc::send<"sharedInstance", id>(class_named("HCPreferences"));

    bool enabled() const { return objc::send<"isEnabled", bool>(object); }
    bool caps_enabled() const { return objc::send<"isCapsEnabled", bool>(object); }
    UIColor* text_colour() const { return objc::send<"getTextColor", UIColor*>(object); }
    UIColor* highlight_colour() const { return objc::send<"getHighlightColor", UIColor*>(object); }
    NSUInteger background_type() const { return objc::send<"getBackgroundType", NSUInteger>(object); }
    NSUInteger direction() const { return objc::send<"getGradientDirection", NSUInteger>(object); }
    NSArray* colours() const { return objc::send<"getColors", NSArray*>(object); }
    UIImage* image() const { return objc::send<"getImage", UIImage*>(object); }
    double image_alpha() const { return objc::send<"getImageAlpha", double>(object); }

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
    static id variable(id object, const char* name) {
        Ivar found = class_getInstanceVariable(object->isa, name);
        EXPECT_NE(found, nullptr) << name;
        return *reinterpret_cast<id*>(reinterpret_cast<char*>(object) + ivar_getOffset(found));
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
    EXPECT_TRUE(is_fallback(variable(store.object, "preferenceCache")));
    EXPECT_EQ(variable(store.object, "configCache"), nullptr);
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
    EXPECT_TRUE(is_fallback(variable(store.object, "preferenceCache")));
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
    EXPECT_EQ(variable(store.object, "preferenceCache"), nullptr) << "no fallback either";
}

TEST_F(Preferences, AnArrayAtTheRootCountsAsAbsent) {
    write_preferences("<array><string>_Enabled</string></array>");
    write_theme();
    phone.start();
    Store store;
    store.expect_nothing();
    EXPECT_TRUE(is_fallback(variable(store.object, "preferenceCache")));
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

TEST_F(Preferences, ASwitchMayBeANumberOrAString) {
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
    auto* cache = static_cast<NSDictionary*>(variable(Store().object, "preferenceCache"));
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
    arrange_theme(phone);
    phone.start();
    MSHookMessageEx(objc_getClass("HuecraftConfig"), sel_registerName("getBackgroundType"),
                    reinterpret_cast<IMP>(+[](id, SEL) -> NSUInteger { return 77; }), nullptr);
    EXPECT_EQ(Store().background_type(), 77u);
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

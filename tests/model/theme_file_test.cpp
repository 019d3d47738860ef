// Theme files: loading and saving, and the words of every failure: HuecraftConfig.
#include <sys/stat.h>

#include "support/configuration.h"
#include "support/runtime.h"
#include "support/themes.h"

namespace test {
namespace {

const ErrorTexts is_folder = config_error("File is actually a folder", "Cannot parse a folder",
                                          "Enter in the correct filename and make sure it is not a folder");
const ErrorTexts not_found = config_error("File not found", "File was not found so could not parse",
                                          "Enter in the correct filename and make sure it is not a folder");
const ErrorTexts unreadable = config_error("NSData could not read the file", "File could not be read",
                                           "Make sure the file exists and is readable");
const ErrorTexts not_a_dictionary =
    config_error("Parsed object was not an NSDictionary", "Parsed object was not an NSDictionary",
                 "Make sure the file exists and is readable");
const ErrorTexts name_taken = config_error("File name already exists", "File name already exists",
                                           "Set a different configuration name");
const ErrorTexts no_name =
    config_error("Configuration name not set", "Configuration name not set", "Set configuration name");

class ThemeFile : public testing::Test {
  protected:
    void SetUp() override {
        phone.make_folder(theme_folder);
        phone.start();
    }

    static std::string in_folder(std::string_view name) {
        return std::string(theme_folder) + std::string(name);
    }

    /// Loads the file; the error, which is empty when it loaded.
    ErrorTexts failure_of(std::string_view name) {
        NSError* error = nullptr;
        id loaded = made<"initWithFilename:error:">("HuecraftConfig", text(name), &error);
        EXPECT_EQ(loaded == nullptr, error != nullptr);
        return texts_of(error);
    }
    ErrorTexts failure_of_content(std::string_view bytes) {
        phone.write(in_folder("Content.plist"), bytes);
        return failure_of("Content.plist");
    }

    Phone phone;
};

TEST_F(ThemeFile, NilReadsAFileNamedNull) {
    phone.write(in_folder("(null)"), theme());
    NSError* error = nullptr;
    EXPECT_NE((made<"initWithFilename:error:">("HuecraftConfig", id{}, &error)), nullptr);
    EXPECT_EQ(error, nullptr);
}

TEST_F(ThemeFile, LoadsWhatItsKeysSay) {
    phone.write(in_folder("Meadow.plist"), theme());
    auto loaded = Configuration::from_file("Meadow.plist");
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded.name(), "Meadow");
    EXPECT_EQ(rgba(loaded.text_colour()), theme_text);
    EXPECT_EQ(rgba(loaded.highlight_colour()), theme_highlight);
    EXPECT_EQ(loaded.background_type(), 2u);
    EXPECT_EQ(loaded.direction(), 7u);
    EXPECT_EQ(loaded.colours()->count(), 2u);
}

TEST_F(ThemeFile, TheNameIsTakenAsItStandsExtensionIncluded) {
    phone.write(in_folder("Meadow.plist"), theme());
    EXPECT_EQ(failure_of("Meadow"), not_found);
    EXPECT_EQ(failure_of("Meadow.plist"), ErrorTexts{});
}

TEST_F(ThemeFile, LoadsAllThreePropertyListFormats) {
    phone.write(in_folder("Meadow.plist"), theme());
    NSMutableDictionary* content = Configuration::from_file("Meadow.plist").plist();
    auto* binary = objc::send<"dataWithPropertyList:format:options:error:", NSData*>(
        class_named("NSPropertyListSerialization"), content, NSUInteger{200}, NSUInteger{0},
        static_cast<NSError**>(nullptr));
    EXPECT_EQ(failure_of_content({static_cast<const char*>(binary->bytes()), binary->length()}),
              ErrorTexts{});
    EXPECT_EQ(failure_of_content("{ \"_TextColor\" = \"#FF0000\"; \"_Colors\" = (\"#00FF00\"); }"),
              ErrorTexts{});
    EXPECT_EQ(rgba(Configuration::from_file("Content.plist").text_colour()), (Rgba{1, 0, 0, 1}));
}

TEST_F(ThemeFile, KeysThatAreNotItsOwnAreKept) {
    phone.write(in_folder("Meadow.plist"), theme("<key>Author</key><string>nobody</string>"));
    auto loaded = Configuration::from_file("Meadow.plist");
    loaded.set_name("Copy");
    ASSERT_TRUE(loaded.save());
    EXPECT_EQ(utf8(Configuration::from_file("Copy.plist").stored("Author")), "nobody");
}

TEST_F(ThemeFile, AMissingFileIsNotFound) { EXPECT_EQ(failure_of("Nowhere.plist"), not_found); }

TEST_F(ThemeFile, AFolderIsNoTheme) {
    phone.make_folder(in_folder("Folder.plist"));
    EXPECT_EQ(failure_of("Folder.plist"), is_folder);
}

TEST_F(ThemeFile, AnEmptyNameMeansTheFolderItself) { EXPECT_EQ(failure_of(""), is_folder); }

TEST_F(ThemeFile, NilIsNotFound) {
    NSError* error = nullptr;
    EXPECT_EQ((made<"initWithFilename:error:">("HuecraftConfig", id{}, &error)), nullptr);
    EXPECT_EQ(texts_of(error), not_found);
}

TEST_F(ThemeFile, AFileWhoseBytesCannotBeReadSaysSo) {
    phone.write(in_folder("Secret.plist"), theme());
    // The platform's reading of a file fails: as for a file without permission, which root would read.
    stand_in("NSData", "dataWithContentsOfFile:", [](id, SEL, id) -> id { return nullptr; }, Side::on_class);
    EXPECT_EQ(failure_of("Secret.plist"), unreadable);
}

TEST_F(ThemeFile, TheParsersOwnErrorIsPassedOn) {
    const ErrorTexts error = failure_of_content("<?xml version=\"1.0\"?><plist><dict><key>a</key>");
    EXPECT_EQ(error.domain, "NSCocoaErrorDomain");
    EXPECT_EQ(error.code, 3840);
}

TEST_F(ThemeFile, ARootThatIsNoDictionarySaysSo) {
    EXPECT_EQ(failure_of_content(property_list("<array><string>#FF0000</string></array>")), not_a_dictionary);
    EXPECT_EQ(failure_of_content(property_list("<string>text</string>")), not_a_dictionary);
    EXPECT_EQ(failure_of_content(property_list("<true/>")), not_a_dictionary);
}

TEST_F(ThemeFile, BadContentFailsWithAnErrorAndWritesNothing) {
    const std::string binary_head = "bplist00";
    const std::string good = theme();
    std::vector<std::string> contents{
        "",
        std::string(1, '\0'),
        std::string("\x01\x02garbage <<<<"),
        std::string("\x00\x00\x00\x00", 4),
        binary_head,
        binary_head + std::string(40, '\xff'),
        "<?xml version=\"1.0\"?>",
        "<plist><dict>",
        "{ a = ",
        "\xff\xfe\xfd",
        std::string(1000, '('),
        std::string(20'000, '{'),
        std::string(200'000, '<'),
    };
    for (size_t length = 1; length < good.size(); length += 37) contents.push_back(good.substr(0, length));
    for (const std::string& content : contents) {
        const ErrorTexts error = failure_of_content(content);
        EXPECT_NE(error.domain, "") << content.substr(0, 40);
        EXPECT_EQ(phone.read(in_folder("Content.plist")), content) << "the file is left as it was";
    }
}

TEST_F(ThemeFile, FiftyMegabytesOfGarbageFailWithAnError) {
    EXPECT_NE(failure_of_content(std::string(50'000'000, 'x') + "\n<<").domain, "");
}

TEST_F(ThemeFile, AFailureWithoutAnOutParameterIsJustNothing) {
    EXPECT_FALSE(Configuration::from_file("Nowhere.plist"));
    phone.write(in_folder("Content.plist"), "<plist><dict>");
    EXPECT_FALSE(Configuration::from_file("Content.plist"));
}

TEST_F(ThemeFile, SavesUnderItsSanitizedNameAndNeverOverwrites) {
    auto theme = Configuration::made_default();
    theme.set_name("my/theme?");
    NSError* error = nullptr;
    EXPECT_TRUE(theme.save(&error));
    EXPECT_EQ(error, nullptr);
    ASSERT_TRUE(phone.exists(in_folder("mytheme.plist")));
    const std::string written = phone.read(in_folder("mytheme.plist"));

    EXPECT_FALSE(theme.save(&error));
    EXPECT_EQ(texts_of(error), name_taken);
    EXPECT_EQ(phone.read(in_folder("mytheme.plist")), written);
}

TEST_F(ThemeFile, ANameOfRefusedCharactersAloneIsSavedAsTheExtension) {
    auto theme = Configuration::made_default();
    theme.set_name("/?");
    EXPECT_TRUE(theme.save());
    EXPECT_TRUE(phone.exists(in_folder(".plist")));
}

TEST_F(ThemeFile, ASavedThemeLoadsAsTheSame) {
    auto theme = Configuration::made_default();
    theme.set_name("Gr\u00fcn \U0001F600 & <b>");
    objc::send<"setImageData:">(theme.object, filled_image(color(1, 0, 0), 3, 2));
    objc::send<"setImageAlpha:">(theme.object, 0.3);
    objc::send<"setVisibleKeycaps:">(theme.object, true);
    ASSERT_TRUE(theme.save());
    auto loaded = Configuration::from_file("Gr\u00fcn \U0001F600 & b.plist");
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded.name(), "Gr\u00fcn \U0001F600 & <b>");
    EXPECT_EQ(loaded.image()->size(), (CGSize{3, 2}));
    EXPECT_EQ(loaded.image_alpha(), static_cast<double>(0.3f));
    EXPECT_TRUE(loaded.caps_visible());
    EXPECT_EQ(loaded.direction(), 7u);
    EXPECT_EQ(rgba(loaded.text_colour()), (Rgba{1, 1, 1, 1}));
}

TEST_F(ThemeFile, AConfigurationWithoutAnImageSavesTheStringNil) {
    auto theme = Configuration::made_default();
    theme.set_name("Plain");
    ASSERT_TRUE(theme.save());
    auto loaded = Configuration::from_file("Plain.plist");
    EXPECT_EQ(utf8(loaded.stored("_Image")), "nil");
    EXPECT_EQ(loaded.image(), nullptr);
}

TEST_F(ThemeFile, AfterTheImageCacheWasBuiltTheImageIsNoLongerSaved) {
    auto theme = Configuration::made_default();
    objc::send<"setImageData:">(theme.object, filled_image(color(1, 0, 0), 3, 2));
    theme.set_name("Cached");
    theme.image_cache();
    ASSERT_TRUE(theme.save());
    EXPECT_EQ(Configuration::from_file("Cached.plist").stored("_Image"), nullptr);
}

TEST_F(ThemeFile, WithoutANameNothingIsSaved) {
    auto theme = Configuration::made_default();
    NSError* error = nullptr;
    EXPECT_FALSE(theme.save(&error));
    EXPECT_EQ(texts_of(error), no_name);
    theme.set_name("");
    error = nullptr;
    EXPECT_FALSE(theme.save(&error));
    EXPECT_EQ(texts_of(error), no_name);
    EXPECT_TRUE(std::filesystem::is_empty(phone.host(theme_folder)));
}

TEST_F(ThemeFile, ANameThatIsNoStringCountsAsMissing) {
    auto theme = Configuration::from_xml(phone, "<key>_ConfigName</key><integer>5</integer>");
    NSError* error = nullptr;
    EXPECT_FALSE(theme.save(&error));
    EXPECT_EQ(texts_of(error), no_name);
}

TEST_F(ThemeFile, AFolderOfTheNameCountsAsTaken) {
    phone.make_folder(in_folder("Taken.plist"));
    auto theme = Configuration::made_default();
    theme.set_name("Taken");
    NSError* error = nullptr;
    EXPECT_FALSE(theme.save(&error));
    EXPECT_EQ(texts_of(error), name_taken);
}

TEST_F(ThemeFile, AWriteThatFailsPassesThePlatformsErrorOn) {
    std::filesystem::remove_all(phone.host(theme_folder));
    auto theme = Configuration::made_default();
    theme.set_name("Lost");
    NSError* error = nullptr;
    EXPECT_FALSE(theme.save(&error));
    EXPECT_EQ(texts_of(error).domain, "NSCocoaErrorDomain");
    EXPECT_FALSE(phone.exists(theme_folder)) << "the folder is not made";
    EXPECT_FALSE(theme.save()) << "without an out-parameter too";
}

TEST_F(ThemeFile, AFailedSaveLeavesTheObjectAsItWas) {
    auto theme = Configuration::made_default();
    auto expect_unchanged_by_failing = [&] {
        const std::string before = utf8(theme.plist()->description());
        EXPECT_FALSE(theme.save());
        EXPECT_EQ(utf8(theme.plist()->description()), before);
    };
    expect_unchanged_by_failing();  // without a name
    theme.set_name("Taken");
    phone.write(in_folder("Taken.plist"), "anything");
    expect_unchanged_by_failing();
    theme.set_name("Lost");
    std::filesystem::remove_all(phone.host(theme_folder));
    expect_unchanged_by_failing();
}

TEST_F(ThemeFile, WhatIsSavedIsAnXmlPropertyList) {
    auto theme = Configuration::made_default();
    theme.set_name("Xml");
    ASSERT_TRUE(theme.save());
    EXPECT_EQ(phone.read(in_folder("Xml.plist")).substr(0, 5), "<?xml");
}

TEST_F(ThemeFile, EachValueIsSavedAsItsKindOfNumber) {
    auto theme = Configuration::made_default();
    theme.set_name("Numbers");
    objc::send<"setImageAlpha:">(theme.object, 0.5);
    objc::send<"setVisibleKeycaps:">(theme.object, true);
    ASSERT_TRUE(theme.save());
    const std::string saved = phone.read(in_folder("Numbers.plist"));
    auto value_of = [&](const std::string& key) {
        const auto start = saved.find('<', saved.find("<key>" + key + "</key>") + key.size() + 11);
        return saved.substr(start, saved.find('\n', start) - start);
    };
    EXPECT_EQ(value_of("_BackgroundType"), "<integer>2</integer>");
    EXPECT_EQ(value_of("_GradientDirection"), "<integer>7</integer>");
    EXPECT_EQ(value_of("_ImageAlpha"), "<real>0.5</real>");
    EXPECT_EQ(value_of("_VisibleKeycaps"), "<true/>");
}

TEST_F(ThemeFile, LoadingByClassAsksTheInitialiserByMessage) {
    static std::string asked;
    static bool gave_a_slot = true;
    stand_in("HuecraftConfig", "initWithFilename:error:", [](id self, SEL, id name, NSError** error) -> id {
        asked = utf8(name);
        gave_a_slot = error != nullptr;
        return objc_release(self), nullptr;
    });
    EXPECT_FALSE(Configuration::from_file("Asked.plist"));
    EXPECT_EQ(asked, "Asked.plist");
    EXPECT_FALSE(gave_a_slot);
}

TEST_F(ThemeFile, SavingAsksForTheNameAndItsSanitizedFormByMessage) {
    static std::string sanitized;
    stand_in("HuecraftConfig", "getConfigName", [](id, SEL) -> id { return text("answered"); });
    stand_in("HuecraftConfig", "_sanitizeFileNameString:", [](id, SEL, id name) -> id {
        sanitized = utf8(name);
        return text("elsewhere");
    });
    EXPECT_TRUE(Configuration::made_default().save());
    EXPECT_EQ(sanitized, "answered");
    EXPECT_TRUE(phone.exists(in_folder("elsewhere.plist")));
}

// ---- By the system's version -----------------------------------------------------------------------------

/// A phone that a test starts with the system of its choice.
class ThemeFileOnSystem : public ThemeFile {
  protected:
    void SetUp() override { phone.make_folder(theme_folder); }
    void start(const char* version) {
        phone.start({.system_version = version});
        theme = Configuration::made_default();
        theme.set_name("Old");
    }
    /// The domain of the error of a write that fails; "" when none is reported.
    std::string domain_of_failed_write(const char* version) {
        start(version);
        std::filesystem::remove_all(phone.host(theme_folder));
        NSError* error = nullptr;
        EXPECT_FALSE(theme.save(&error));
        return texts_of(error).domain;
    }
    /// Notes which write is asked for, instead of writing.
    std::vector<std::string> writes() {
        static std::vector<std::string> asked;
        stand_in("NSMutableDictionary", "writeToFile:atomically:", [](id, SEL, id path, int atomically) {
            asked.push_back("file " + utf8(path) + (atomically & 0xff ? " atomically" : ""));
            return 1;
        });
        stand_in("NSMutableDictionary", "writeToURL:error:", [](id, SEL, id url, NSError** error) {
            asked.push_back("URL " + utf8(objc::send<"path", id>(url)) + (error ? " with an error" : ""));
            return 1;
        });
        NSError* error = nullptr;
        EXPECT_TRUE(theme.save(&error));
        return asked;
    }
    Configuration theme;
};

TEST_F(ThemeFileOnSystem, From11OnAFailedWriteIsReported) {
    EXPECT_EQ(domain_of_failed_write("11.0"), "NSCocoaErrorDomain");
}
TEST_F(ThemeFileOnSystem, Before11AFailedWriteIsNotReported) {
    EXPECT_EQ(domain_of_failed_write("10.3.4"), "");
}
TEST_F(ThemeFileOnSystem, AVersionOfOneDigitIsBefore11) { EXPECT_EQ(domain_of_failed_write("9.3.5"), ""); }

TEST_F(ThemeFileOnSystem, From11OnTheWriteIsTheOneThatReports) {
    start("11.0");
    EXPECT_EQ(writes(), std::vector<std::string>{"URL " + in_folder("Old.plist") + " with an error"});
}

TEST_F(ThemeFileOnSystem, Before11TheWriteIsTheOlderAtomicOne) {
    start("10.3.4");
    EXPECT_EQ(writes(), std::vector<std::string>{"file " + in_folder("Old.plist") + " atomically"});
}

TEST_F(ThemeFileOnSystem, Before11WhatIsSavedLoads) {
    start("10.3.4");
    EXPECT_TRUE(theme.save());
    EXPECT_TRUE(Configuration::from_file("Old.plist"));
}

}  // namespace
}  // namespace test

// What pages find themselves in: the screen's edges, the user's settings, what VoiceOver says, bundles.
#include <spawn.h>
#include <sys/wait.h>

#include "page_test.h"

namespace test {
namespace {

using objc::strong;

class Surroundings : public Pages {
  protected:
    void SetUp() override {}
};

TEST_F(Surroundings, ANotchAndTheIndicatorCoverTheEdges) {
    start({.screen_width = 375, .screen_height = 812, .screen_scale = 3});
    auto a = page("A");
    present(a);
    EXPECT_EQ(a->view()->safeAreaInsets(), (UIEdgeInsets{44, 0, 34, 0}));
    auto inside = UIView::alloc()->initWithFrame({{0, 700}, {375, 100}});
    EXPECT_EQ(inside->safeAreaInsets(), (UIEdgeInsets{}));
    a->view()->addSubview(inside);
    EXPECT_EQ(inside->safeAreaInsets(), (UIEdgeInsets{0, 0, 22, 0}));
}

TEST_F(Surroundings, TraitsTellPhonesFromPads) {
    start({.screen_width = 768, .screen_height = 1024});
    UITraitCollection* traits = page("A")->traitCollection();
    EXPECT_EQ(traits->userInterfaceIdiom(), UIUserInterfaceIdiomPad);
    EXPECT_EQ(traits->horizontalSizeClass(), UIUserInterfaceSizeClassRegular);
    EXPECT_EQ(UIDevice::currentDevice()->userInterfaceIdiom(), 1);
}

TEST_F(Surroundings, TextIsAsLargeAsTheUserWants) {
    start({.text_size = "XXXL", .reduce_motion = true});
    EXPECT_EQ(UIFont::preferredFontForTextStyle(UIFontTextStyleBody)->pointSize(), 23);
    EXPECT_EQ(UIFont::preferredFontForTextStyle(UIFontTextStyleCaption2)->pointSize(), 17);
    EXPECT_EQ(utf8(UIApplication::sharedApplication()->preferredContentSizeCategory()),
              "UICTContentSizeCategoryXXXL");
    EXPECT_TRUE(UIAccessibilityIsReduceMotionEnabled());
}

TEST_F(Surroundings, TextSizesAndLanguagesAreChecked) {
    sim_options options{};
    options.size = sizeof options;
    const auto root = phone.host("/").string();
    options.root = root.c_str();
    options.text_size = "Huge";
    EXPECT_EQ(sim_boot(&options), SIM_MISUSE);
    EXPECT_STREQ(sim_last_error(),
                 "the text size is \"Huge\"; it is the end of a content size category's name, "
                 "such as \"L\" or \"AccessibilityXL\"");
    options.text_size = nullptr;
    options.language = "../de";
    EXPECT_EQ(sim_boot(&options), SIM_MISUSE);
}

TEST_F(Surroundings, VoiceOverSaysWhatWasSetOrTheText) {
    start({});
    auto label = UILabel::make<"initWithFrame:">(CGRect{});
    label->setText(text("Text"));
    EXPECT_EQ(utf8(label->accessibilityLabel()), "Text");
    EXPECT_TRUE(label->isAccessibilityElement());
    auto view = UIView::alloc()->init();
    EXPECT_EQ(view->accessibilityLabel(), nullptr);
    EXPECT_FALSE(view->isAccessibilityElement());
    view->setIsAccessibilityElement(true);
    view->setAccessibilityLabel(text("Night"));
    view->setAccessibilityValue(text("chosen"));
    view->setAccessibilityTraits(UIAccessibilityTraitButton | UIAccessibilityTraitSelected);
    EXPECT_TRUE(view->isAccessibilityElement());
    EXPECT_EQ(utf8(view->accessibilityLabel()), "Night");
    EXPECT_EQ(utf8(view->accessibilityValue()), "chosen");
    EXPECT_EQ(view->accessibilityTraits(), 9u);
}

TEST_F(Surroundings, WhatIsCoveredCannotBeTappedByItsLabel) {
    start({});
    auto a = page("A");
    auto label = UILabel::make<"initWithFrame:">(CGRect{{0, 100}, {100, 20}});
    label->setText(text("Below"));
    a->view()->addSubview(label);
    a->view()->addSubview(UIView::alloc()->initWithFrame({{0, 0}, {375, 667}}));
    present(a);
    EXPECT_EQ(sim_tap_label("Below"), SIM_NOT_FOUND);
    EXPECT_STREQ(
        sim_last_error(),
        "sim_tap_label: what is called \"Below\" cannot be touched: it is covered, or not on the screen");
}

class Bundles : public Surroundings {
  protected:
    void write_bundle() {
        phone.write("/Library/Sample.bundle/Info.plist",
                    "{ CFBundleIdentifier = \"com.example.sample\"; CFBundleDevelopmentRegion = en; }");
        phone.write("/Library/Sample.bundle/plain.txt", "plain");
        phone.write("/Library/Sample.bundle/en.lproj/Localizable.strings",
                    "\"Apply\" = \"Apply\"; \"Off\" = \"Off\";");
        phone.write("/Library/Sample.bundle/de.lproj/Localizable.strings", "\"Apply\" = \"Anwenden\";");
        phone.write("/Library/Sample.bundle/zh-Hans.lproj/Localizable.strings",
                    "\"Apply\" = \"\xE5\xBA\x94\xE7\x94\xA8\";");
    }
    void start_in(const char* language) {
        write_bundle();
        start({.language = language});
        bundle = NSBundle::bundleWithPath(text("/Library/Sample.bundle"));
        ASSERT_NE(bundle, nullptr);
    }
    std::string say(const char* key) { return utf8(bundle->localizedString(text(key), nullptr, nullptr)); }
    NSBundle* bundle = nullptr;
};

TEST_F(Bundles, SpeakTheUsersLanguage) {
    start_in("de-AT");
    EXPECT_EQ(say("Apply"), "Anwenden");
    EXPECT_EQ(say("Nowhere"), "Nowhere");
    EXPECT_EQ(utf8(bundle->localizedString(text("Nowhere"), text("otherwise"), nullptr)), "otherwise");
    EXPECT_EQ(utf8(bundle->preferredLocalizations()->objectAtIndex(0)), "de");
    EXPECT_EQ(bundle->localizations()->count(), 3u);
}

TEST_F(Bundles, SpeakTheirOwnLanguageToOthers) {
    start_in("fr");
    EXPECT_EQ(say("Off"), "Off");
    EXPECT_EQ(utf8(bundle->preferredLocalizations()->objectAtIndex(0)), "en");
}

TEST_F(Bundles, TakeScriptsForWhatTheyAre) {
    start_in("zh-Hans-CN");
    EXPECT_EQ(say("Apply"), "\xE5\xBA\x94\xE7\x94\xA8");
}

TEST_F(Bundles, FindTheirResources) {
    start_in("de");
    EXPECT_EQ(utf8(bundle->bundleIdentifier()), "com.example.sample");
    EXPECT_EQ(utf8(bundle->pathForResource(text("plain"), text("txt"))), "/Library/Sample.bundle/plain.txt");
    EXPECT_EQ(utf8(bundle->pathForResource(text("Localizable"), text("strings"))),
              "/Library/Sample.bundle/de.lproj/Localizable.strings");
    EXPECT_EQ(bundle->pathForResource(text("absent"), text("txt")), nullptr);
    EXPECT_EQ(bundle->pathsForResources(text("txt"), nullptr)->count(), 1u);
    EXPECT_EQ(NSBundle::bundleWithPath(text("/Library/Absent.bundle")), nullptr);
}

TEST_F(Bundles, TheMainOneIsTheApplicationsFolder) {
    phone.make_folder("/Applications/Preferences.app");
    start({.executable = "/Applications/Preferences.app/Preferences"});
    EXPECT_EQ(utf8(NSBundle::mainBundle()->bundlePath()), "/Applications/Preferences.app");
}

class Programs : public Surroundings {
  protected:
    static int run(const char* path, std::vector<const char*> arguments, int* exit_status) {
        arguments.push_back(nullptr);
        pid_t process = 0;
        const int error = posix_spawn(&process, path, nullptr, nullptr,
                                      const_cast<char* const*>(arguments.data()), nullptr);
        if (error) return error;
        int status = 0;
        EXPECT_EQ(waitpid(process, &status, 0), process);
        *exit_status = WEXITSTATUS(status);
        return 0;
    }
};

TEST_F(Programs, AreNotedAndNeverRun) {
    phone.write("/usr/bin/sbreload", "no program");
    start({});
    int exit_status = -1;
    EXPECT_EQ(run("/usr/bin/sbreload", {"sbreload"}, &exit_status), 0);
    EXPECT_EQ(exit_status, 0);
    ASSERT_EQ(sim_end_programs_with(3), SIM_OK);
    EXPECT_EQ(run("/usr/bin/sbreload", {"sbreload", "-v"}, &exit_status), 0);
    EXPECT_EQ(exit_status, 3);
    EXPECT_EQ(run("/usr/bin/absent", {"absent"}, &exit_status), ENOENT);
    ASSERT_EQ(sim_program_count(), 3u);
    sim_program program;
    ASSERT_EQ(sim_program_at(1, &program), SIM_OK);
    EXPECT_STREQ(program.path, "/usr/bin/sbreload");
    EXPECT_STREQ(program.arguments[1], "-v");
    EXPECT_EQ(program.arguments[2], nullptr);
    EXPECT_EQ(program.error, 0);
    ASSERT_EQ(sim_program_at(2, &program), SIM_OK);
    EXPECT_EQ(program.error, ENOENT);
    EXPECT_EQ(sim_program_at(3, &program), SIM_NOT_FOUND);
    EXPECT_EQ(sim_end_programs_with(256), SIM_MISUSE);
}

TEST_F(Surroundings, AnUndoManagerUndoesAndRedoesGroupByGroup) {
    start({});
    static strong<NSUndoManager> manager;
    manager = NSUndoManager::make();
    manager->setGroupsByEvent(false);
    auto target = object_of("UndoTarget", "NSObject", {method("say:", "v@:@", [](id self, SEL, id word) {
                                heard().push_back(utf8(static_cast<NSString*>(word)));
                                manager->registerUndo(self, sel("say:"), text("back"));
                            })});
    for (const char* word : {"one", "two"}) {
        manager->beginUndoGrouping();
        manager->registerUndo(target, sel("say:"), text(word));
        manager->endUndoGrouping();
    }
    manager->undo();
    EXPECT_EQ(just_heard(), Heard{"two"});
    EXPECT_TRUE(manager->canRedo());
    manager->redo();
    EXPECT_EQ(just_heard(), Heard{"back"});
    manager->removeAllActions();
    EXPECT_FALSE(manager->canUndo());
    manager = nullptr;
}

TEST_F(Surroundings, OpenedAddressesAreNoted) {
    start({});
    UIApplication::sharedApplication()->openURL(
        NSURL::URLWithString(text("https://example.com/")), nullptr,
        objc::Block([](bool opened) { heard().push_back(opened ? "opened" : "not opened"); }));
    EXPECT_EQ(just_heard(), Heard{"opened"});
    ASSERT_EQ(sim_opened_address_count(), 1u);
    EXPECT_STREQ(sim_opened_address(0), "https://example.com/");
    EXPECT_EQ(sim_opened_address(1), nullptr);
}

}  // namespace
}  // namespace test

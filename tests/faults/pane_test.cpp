// What the settings pane keeps, while a system call fails: done, or as it was.
#include <fcntl.h>

#include "folder.h"
#include "pane/model/shelf.h"
#include "pane/texts.h"
#include "support/configuration.h"
#include "support/faults.h"
#include "support/themes.h"

namespace test {
namespace {

namespace fs = std::filesystem;
namespace shelf = pane::shelf;
namespace themes = pane::themes;

/// How the system calls a file that it has not finished.
constexpr const char* unfinished = ".dat.nosync";
constexpr int done = 0, failed_with_error = 3, failed = 4;

class PaneFaults : public testing::Test {
  protected:
    void SetUp() override {
        phone.start();
        phone.write(in_themes("Meadow.plist"), theme());
        phone.write(in_themes("Other.plist"), theme("<key>theirs</key><string>kept</string>"));
        phone.write(std::string("/Library/PreferenceBundles/HuecraftSettings.bundle/Themes/Dusk.plist"),
                    theme());
        pane::write_preferences({true, text("Meadow.plist")}, nullptr);
        arranged = phone.host("/arranged");
        fs::rename(mobile(), arranged);
        reset();
        shelf::awaits_restart();
    }
    static std::string in_themes(const std::string& file) { return theme_folder + file; }
    fs::path mobile() const { return phone.host("/var/mobile"); }
    void reset() const {
        fs::remove_all(mobile());
        fs::copy(arranged, mobile(), fs::copy_options::recursive);
    }
    /// What is there now is where the trials begin.
    void begin_here() const {
        fs::remove_all(arranged);
        fs::copy(mobile(), arranged, fs::copy_options::recursive);
    }

    /// Has each call of the operation fail in each way. Killed, or failing where `may_be_between`, it may
    /// have done some of its steps; each file is the old one or the new one all the same.
    void try_operation(const std::function<bool(NSError**)>& operation, bool may_be_between = false) {
        const Snapshot before = snapshot_of(arranged);
        Snapshot after;
        const auto work = [&] {
            NSError* error = nullptr;
            return operation(&error) ? done : error ? failed_with_error : failed;
        };
        const auto judge = [&](const FaultyRun& run, const Fault& fault) {
            const Snapshot found = snapshot_of(mobile());
            if (fault.kind == Fault::Kind::none) after = found;
            const bool killed = run.status == 1000 + SIGKILL;
            EXPECT_TRUE(killed || run.status == done || run.status == failed_with_error) << run.status;
            expect_old_or_new(found, before, after, killed ? unfinished : "");
            expect_chosen_theme();
            if (run.status == failed_with_error && !may_be_between) EXPECT_EQ(found, before);
        };
        const size_t met = try_every_fault({every_call(phone.host("/")), [&] { reset(); }, work, judge});
        EXPECT_GE(met, 30u);
        EXPECT_NE(after, before) << "the operation did nothing";
    }
    /// The theme that the preferences name is there and can be read.
    static void expect_chosen_theme() {
        const auto preferences = pane::read_preferences();
        if (preferences.chosen) EXPECT_TRUE(Configuration::from_file(utf8(preferences.chosen.get())));
    }

    Phone phone;
    fs::path arranged;
};

TEST_F(PaneFaults, ThePreferencesAreTheOldOnesOrTheNewOnes) {
    try_operation([](NSError** error) { return shelf::switch_on(false, error); });
}

TEST_F(PaneFaults, OtherKeysOfThePreferencesStay) {
    phone.write(preference_file, property_list("<dict><key>theirs</key><string>kept</string></dict>"));
    begin_here();
    try_operation(
        [](NSError** error) { return shelf::choose(themes::folder(), text("Meadow.plist"), error); });
}

TEST_F(PaneFaults, AChoiceOfWhatComesAlongHasItsTheme) {
    // The copy of the theme that is chosen may be there before it is chosen.
    try_operation(
        [](NSError** error) {
            return shelf::choose(themes::folder_that_comes_along(), text("Dusk.plist"), error);
        },
        true);
}

TEST_F(PaneFaults, ResettingLeavesTheThemes) {
    try_operation([](NSError** error) { return shelf::reset(error); });
}

TEST_F(PaneFaults, ASavedThemeIsTheOldOneOrTheNewOne) {
    try_operation([](NSError** error) {
        const themes::Reading reading = themes::read(themes::folder(), text("Meadow.plist"));
        if (!reading.theme) {
            *error = pane::make_error(reading.fault);
            return false;
        }
        Configuration{reading.theme.get()}.set_name("Changed");
        return themes::save(reading.theme, text("Meadow.plist"), error) != nullptr;
    });
}

TEST_F(PaneFaults, ANewThemeIsThereOrNot) {
    const auto made = Configuration::made_default();
    // A theme of that name is there: it stays, whatever can be read of the folder.
    made.set_name("Other");
    try_operation([&](NSError** error) {
        return themes::keep_as_new(reinterpret_cast<HuecraftConfig*>(made.object), error) != nullptr;
    });
}

TEST_F(PaneFaults, ACopyIsThereOrNot) {
    try_operation([](NSError** error) {
        return themes::duplicate(themes::folder(), text("Meadow.plist"), error) != nullptr;
    });
}

TEST_F(PaneFaults, ARenamedThemeIsNeverLost) {
    // Should the old file stay, the theme is there twice.
    try_operation(
        [](NSError** error) {
            return shelf::rename(text("Meadow.plist"), text("Pasture"), error) != nullptr;
        },
        true);
}

TEST_F(PaneFaults, ARemovedThemeIsPutAwayOrInItsPlace) {
    try_operation([](NSError** error) { return shelf::remove(text("Meadow.plist"), error); }, true);
}

TEST_F(PaneFaults, AnEarlierRemovedThemeGoesWithTheRemovalAlone) {
    ASSERT_TRUE(shelf::remove(text("Other.plist"), nullptr));
    ASSERT_TRUE(shelf::reset(nullptr));
    begin_here();
    try_operation([](NSError** error) { return themes::remove(text("Meadow.plist"), error); });
}

TEST_F(PaneFaults, AThemeIsPutBackOrStaysPutAway) {
    ASSERT_TRUE(shelf::remove(text("Meadow.plist"), nullptr));
    begin_here();
    try_operation([](NSError** error) { return shelf::put_back(error); }, true);
}

}  // namespace
}  // namespace test

// The whole road: a theme is chosen and edited in Settings, applied, and worn by what starts afterwards.
#include <sys/wait.h>
#include <unistd.h>

#include "settings_page.h"

namespace test {
namespace {

class Road : public SettingsPage {
  protected:
    Road() { phone.write("/usr/bin/sbreload", ""); }

    /// Runs it in a process of its own, as another application: a phone's process is started once.
    template <class Work>
    static void in_a_process(Work work) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            work();
            _exit(HasFailure() ? 1 : 0);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "the process said above what was wrong";
    }

    /// The first of the themes that come along, with highlights of the colour.
    void choose_and_edit(const std::string& hex) {
        open();
        tap("Contrast");
        page()->send<"tableView:accessoryButtonTappedForRowWithIndexPath:">(
            table(), NSIndexPath::indexPathForRow(0, own_section));
        ASSERT_EQ(sim_advance_clock(1), SIM_OK) << sim_last_error();
        tap("Highlights");
        void* presented = nullptr;
        ASSERT_EQ(sim_presented(&presented), SIM_OK) << sim_last_error();
        static_cast<NSObject*>(static_cast<id>(presented))
            ->send<"hexTextField", UITextField*>()
            ->setText(text(hex));
        tap("SELECT");
        tap("Save");
    }

    void apply() {
        tap("Apply");
        tap("Restart");
        sim_program restart{};
        ASSERT_EQ(sim_program_at(0, &restart), SIM_OK) << sim_last_error();
        EXPECT_STREQ(restart.path, "/usr/bin/sbreload");
    }
};

TEST_F(Road, AThemeIsChosenEditedAppliedAndWorn) {
    in_a_process([this] {
        choose_and_edit("#C02040");
        apply();
    });
    EXPECT_EQ(names_in(phone, "/var/mobile/Library/Preferences/HuecraftConfiguration"),
              std::vector<std::string>{"Contrast.plist"});

    phone.start({.executable = "/Applications/MobileNotes.app/MobileNotes"});
    EXPECT_EQ(preferences(), "on Contrast.plist");
    ASSERT_EQ(sim_show_keyboard(nullptr), SIM_OK) << sim_last_error();
    expect_picture("pane-worn");
}

TEST_F(Road, WhatRunsAlreadyKeepsItsKeyboard) {
    int before_choosing[2], after_choosing[2];
    ASSERT_EQ(pipe(before_choosing), 0);
    ASSERT_EQ(pipe(after_choosing), 0);
    const pid_t notes = fork();
    ASSERT_GE(notes, 0);
    if (notes == 0) {
        char sign = 0;
        phone.start({.executable = "/Applications/MobileNotes.app/MobileNotes"});
        EXPECT_EQ(write(before_choosing[1], &sign, 1), 1);
        EXPECT_EQ(read(after_choosing[0], &sign, 1), 1);
        EXPECT_EQ(preferences(), "on Contrast.plist") << "it was chosen";
        EXPECT_EQ(sim_show_keyboard(nullptr), SIM_OK) << sim_last_error();
        expect_picture("pane-not-worn-yet");
        _exit(HasFailure() ? 1 : 0);
    }
    char sign = 0;
    ASSERT_EQ(read(before_choosing[0], &sign, 1), 1);
    open();
    tap("Contrast");
    ASSERT_EQ(write(after_choosing[1], &sign, 1), 1);
    int status = 0;
    ASSERT_EQ(waitpid(notes, &status, 0), notes);
    EXPECT_EQ(status, 0) << "the process said above what was wrong";
}

}  // namespace
}  // namespace test

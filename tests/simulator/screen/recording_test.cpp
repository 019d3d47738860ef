// Recordings of the screen, compared with pictures that are taken at the same moments.
#include <sys/resource.h>

#include <csignal>

#include "animation.h"
#include "platform/animation.h"
#include "platform/uikit.h"
#include "support/keyboard_request.h"
#include "support/phone.h"

namespace test {
namespace {

class Recording : public testing::Test {
  protected:
    void SetUp() override {
        phone.boot();
        view = UIView::alloc()->initWithFrame({{40, 300}, {100, 50}});
        view->setBackgroundColor(UIColor::redColor());
        ASSERT_EQ(sim_show_view(view.get()), SIM_OK) << sim_last_error();
    }
    void TearDown() override { view = nullptr; }

    static void start(int frames_per_second = 8, double scale = 1) {
        ASSERT_EQ(sim_start_recording(scale, frames_per_second), SIM_OK) << sim_last_error();
    }
    static void wait(double seconds) { ASSERT_EQ(sim_advance_clock(seconds), SIM_OK) << sim_last_error(); }
    Animation stop() const {
        EXPECT_EQ(sim_stop_recording(path().c_str()), SIM_OK) << sim_last_error();
        return read_animation(path());
    }
    std::vector<unsigned> picture() const {
        const std::string png = phone.host("/picture.png").string();
        EXPECT_EQ(sim_take_picture(png.c_str(), 1), SIM_OK) << sim_last_error();
        return pixels_of(png);
    }
    std::string path() const { return phone.host("/recording.png").string(); }
    /// The view goes 160 points down in that time.
    void move(double seconds) const {
        auto* way = CABasicAnimation::animationWithKeyPath(text("position"));
        way->setDuration(seconds);
        way->setFromValue(NSValue::valueWithCGPoint({90, 325}));
        way->setToValue(NSValue::valueWithCGPoint({90, 485}));
        view->layer()->addAnimation(way, nullptr);
    }

    Phone phone;
    objc::strong<UIView> view;
};

TEST_F(Recording, HasAPictureForEachMomentAsTheScreenWasThen) {
    move(1);
    start();
    std::vector<std::vector<unsigned>> pictures{picture()};
    for (int i = 0; i < 10; ++i) {
        wait(0.125);
        pictures.push_back(picture());
    }
    const Animation recorded = stop();
    EXPECT_EQ(recorded.width, 375);
    EXPECT_EQ(recorded.height, 667);
    EXPECT_EQ(recorded.plays, 0u) << "again and again";
    EXPECT_EQ(recorded.seconds(), 11 / 8.0);
    ASSERT_EQ(recorded.frames.size(), 9u) << "at the end it is where it was at first, and stays";
    EXPECT_EQ(recorded.frames.back().seconds, 3 / 8.0);
    for (size_t i = 0; i < pictures.size(); ++i)
        EXPECT_TRUE(recorded.at(static_cast<double>(i) / 8).pixels == pictures[i]) << i;
}

TEST_F(Recording, IsTheSameInStepsOfAnyLength) {
    move(1);
    start();
    wait(1.5);
    const Animation at_once = stop();
    move(1);
    start();
    for (const double seconds : {0.0625, 0.9375, 0.0, 0.25, 0.25}) wait(seconds);
    const Animation in_steps = stop();
    ASSERT_EQ(at_once.frames.size(), in_steps.frames.size());
    for (size_t i = 0; i < at_once.frames.size(); ++i) {
        EXPECT_TRUE(at_once.frames[i].pixels == in_steps.frames[i].pixels) << i;
        EXPECT_EQ(at_once.frames[i].seconds, in_steps.frames[i].seconds) << i;
    }
}

TEST_F(Recording, WhatStaysIsOneFrameHoweverLong) {
    start(60);
    wait(3);
    const Animation recorded = stop();
    ASSERT_EQ(recorded.frames.size(), 1u);
    EXPECT_EQ(recorded.seconds(), 181 / 60.0);
}

TEST_F(Recording, OfAChangeOnlyTheRectangleIsKept) {
    start();
    view->setFrame({{60, 310}, {100, 50}});
    wait(0.125);
    const Animation recorded = stop();
    ASSERT_EQ(recorded.frames.size(), 2u);
    const AnimationFrame& changed = recorded.frames[1];
    EXPECT_EQ(changed.x, 40);
    EXPECT_EQ(changed.y, 300);
    EXPECT_EQ(changed.width, 120);
    EXPECT_EQ(changed.height, 60);
    EXPECT_TRUE(changed.pixels == picture());
}

TEST_F(Recording, AChangeIsSeenInTheNextPicture) {
    start();
    view->setHidden(true);
    wait(0.0625);
    view->setHidden(false);
    view->setBackgroundColor(UIColor::blueColor());
    wait(0.0625);
    EXPECT_EQ(stop().frames.size(), 2u);
}

TEST_F(Recording, ScaleIsInPixelsPerPoint) {
    start(8, 0.5);
    const Animation half = stop();
    EXPECT_EQ(half.width, 188);
    EXPECT_EQ(half.height, 334);
    start(8, 0);
    EXPECT_EQ(stop().width, 750) << "the screen's";
}

TEST_F(Recording, BeginsAndEndsWhenItIsTold) {
    wait(0.1);
    start(10);
    wait(0.5);
    EXPECT_EQ(stop().seconds(), 0.6);
    wait(0.5);
    start(10);
    EXPECT_EQ(stop().seconds(), 0.1);
}

TEST_F(Recording, EndsOfAnimationsAreHeardAtTheirTime) {
    move(0.3);
    start();
    wait(0.25);
    EXPECT_NE(view->layer()->animationKeys(), nullptr);
    wait(0.05);
    EXPECT_EQ(view->layer()->animationKeys(), nullptr);
    wait(0.075);
    EXPECT_EQ(stop().frames.size(), 4u) << "three on the way, and one where it is again";
}

TEST_F(Recording, KeepsTheSizeOfItsFirstPicture) {
    start();
    show_keyboard({.landscape = true});
    wait(0.125);
    const Animation recorded = stop();
    EXPECT_EQ(recorded.width, 375);
    EXPECT_EQ(recorded.height, 667);
    ASSERT_EQ(recorded.frames.size(), 2u);
    EXPECT_EQ(recorded.frames[1].pixels.back(), 0u) << "black where the screen is no more";
    EXPECT_EQ(recorded.frames[1].pixels.front(), 0xffffffu);
}

TEST_F(Recording, TheSameRecordingIsTheSameFile) {
    std::string files[2];
    for (std::string& file : files) {
        move(0.5);
        start();
        wait(1);
        stop();
        file = phone.read("/recording.png");
    }
    EXPECT_EQ(files[0], files[1]);
}

TEST_F(Recording, NothingIsLeftBesideIt) {
    move(0.5);
    start();
    wait(1);
    stop();
    size_t files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(phone.host("/")))
        files += entry.is_regular_file();
    EXPECT_EQ(files, 1u);
}

TEST_F(Recording, GoesOnWhenItCannotBeWritten) {
    move(1);
    start();
    wait(0.5);
    const std::string nowhere = phone.host("/no/folder.png").string();
    EXPECT_EQ(sim_stop_recording(nowhere.c_str()), SIM_BAD_FILE);
    EXPECT_EQ(sim_last_error(),
              "sim_stop_recording: cannot write the picture " + nowhere + ": No such file or directory");
    wait(0.5);
    EXPECT_EQ(stop().frames.size(), 9u);
}

TEST_F(Recording, CanBeThrownAway) {
    start();
    EXPECT_EQ(sim_stop_recording(nullptr), SIM_OK) << sim_last_error();
    EXPECT_FALSE(phone.exists("/recording.png"));
    start();
    stop();
}

TEST_F(Recording, ThatFindsNoRoomSaysSoAndKeepsWhatItHas) {
    move(1);
    start();
    rlimit before;
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit narrow{.rlim_cur = 3000, .rlim_max = before.rlim_max};
    std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &narrow), 0);
    EXPECT_EQ(sim_advance_clock(0.5), SIM_FAILED);
    EXPECT_STREQ(sim_last_error(),
                 "sim_advance_clock: cannot write to the folder for temporary files: File too large");
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    wait(1);
    EXPECT_GE(stop().frames.size(), 5u);
}

TEST_F(Recording, OneAtATime) {
    EXPECT_EQ(sim_stop_recording(path().c_str()), SIM_MISUSE);
    EXPECT_STREQ(sim_last_error(), "sim_stop_recording: the screen is not being recorded");
    start();
    EXPECT_EQ(sim_start_recording(1, 8), SIM_MISUSE);
    EXPECT_STREQ(sim_last_error(), "sim_start_recording: the screen is being recorded already");
    stop();
}

TEST_F(Recording, RatesScalesAndStepsBeyondMeasureAreRefused) {
    for (const int rate : {-1, 0, 61}) EXPECT_EQ(sim_start_recording(1, rate), SIM_MISUSE) << rate;
    EXPECT_STREQ(sim_last_error(), "sim_start_recording: 61 frames per second; expected 1 to 60");
    for (const double scale : {-1.0, 11.0, double{NAN}})
        EXPECT_EQ(sim_start_recording(scale, 8), SIM_MISUSE) << scale;
    start();
    EXPECT_EQ(sim_advance_clock(601), SIM_MISUSE);
    EXPECT_EQ(stop().seconds(), 0.125) << "no time has passed";
    wait(601);
}

TEST(RecordingWithoutAScreen, IsRefused) {
    EXPECT_EQ(sim_start_recording(1, 8), SIM_MISUSE) << "before boot";
    Phone phone;
    phone.boot();
    EXPECT_EQ(sim_start_recording(1, 8), SIM_FAILED);
    EXPECT_STREQ(sim_last_error(), "sim_start_recording: nothing is on the screen");
}

}  // namespace
}  // namespace test

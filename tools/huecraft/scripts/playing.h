// What the playing of every script has in common.
#pragma once
#include <ctime>
#include <filesystem>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "objc/strong.h"
#include "scripts/instructions.h"
#include "simulator.h"

namespace command {

/// An exception that the simulator reported: its name, ": " and its reason.
struct Raised {
    std::string what;
};

/// Plays the instructions that every script knows, and keeps the time, the pictures and the line.
class Playing {
  public:
    void operator()(const say::Pasteboard& pasteboard);
    void operator()(const say::Wait& wait);
    void operator()(const say::Picture& picture);
    void operator()(const say::Record& record);
    void operator()(const say::Stop&) { stop(); }

  protected:
    /// `file` as errors name it. Pictures go into the folder, in pixels per point. A script's length says
    /// little about the time that it takes: so many seconds of the processor's, from now on, are enough.
    Playing(std::string file, std::filesystem::path pictures, double scale, int seconds)
        : file_(std::move(file)),
          pictures_folder_(std::move(pictures)),
          scale_(scale),
          seconds_(seconds) {}
    ~Playing() = default;

    /// A recording is done in which no time passed.
    virtual void stood_still(const std::string& name) = 0;

    /// Throws Unusable, with file and line.
    [[noreturn]] void refuse(const std::string& reason) const;
    /// Throws Raised for an exception, and Unusable for anything else that is not SIM_OK.
    void check(sim_status status) const;
    /// Throws Unusable when the processor's time is over.
    void require_time() const;

    /// `look` is called after each instruction, which `player` plays.
    template <class Player, class What, class Look>
    void play_each(Player& player, const std::vector<Instruction<What>>& instructions, Look look) {
        for (const auto& instruction : instructions) {
            objc::AutoreleasePool of_instruction;
            line_ = instruction.line;
            std::visit(player, instruction.what);
            look();
            require_time();
        }
    }
    void stop_if_recording() {
        if (!recording_.empty()) stop();
    }

    /// 0 before the first instruction.
    size_t line_ = 0;
    /// Seconds that passed on the phone.
    double time_ = 0;
    /// The files' names, in order.
    std::vector<std::string> pictures_;

  private:
    void stop();
    std::string place_of(const std::string& name) const { return pictures_folder_ / (name + ".png"); }

    const std::string file_;
    const std::filesystem::path pictures_folder_;
    const double scale_;
    const int seconds_;
    const std::clock_t began_ = std::clock();
    std::string recording_;
    double recording_since_ = 0;
};

}  // namespace command

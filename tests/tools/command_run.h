// The command as a child process, in a folder of its own.
#pragma once
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace test {

/// How a run of the command ended, and what it said.
struct Outcome {
    int status = -1;
    std::string out, err;
    /// Of the child and its children.
    double processor_seconds = 0;
    long peak_kilobytes = 0;
};

/// Tests of the command: each runs it in a folder that is empty at first and gone afterwards.
class Command : public testing::Test {
  protected:
    Command();
    ~Command() override;

    /// Runs `huecraft` with these arguments in the folder.
    Outcome run(const std::vector<std::string>& arguments, std::string_view input = {}) const;

    std::filesystem::path path(std::string_view name) const { return folder_ / name; }
    bool exists(std::string_view name) const { return std::filesystem::exists(path(name)); }
    void write(std::string_view name, std::string_view contents) const;
    std::string read(std::string_view name) const;
    /// The names of all that is in the folder, sorted.
    std::vector<std::string> names() const;

  private:
    std::filesystem::path folder_;
};

/// The XML form of a theme: a dictionary with these entries.
std::string theme_file(std::string_view entries);

/// A theme without faults: white labels on black.
std::string sound_theme();

/// The number of lines in a text.
size_t lines(std::string_view text);

}  // namespace test

// huecraft-describe on a simulated phone, and what it wrote.
#pragma once
#include <string>
#include <vector>

#include "support/contents.h"
#include "support/phone.h"

namespace test {

/// A phone with huecraft-describe where its package puts it.
class DescribedPhone : public testing::Test {
  protected:
    static constexpr const char* executable = "/usr/bin/huecraft-describe";
    static constexpr const char* installed_library =
        "/Library/MobileSubstrate/DynamicLibraries/HuecraftiOS12.dylib";

    DescribedPhone();

    /// Puts the library under test where its package does.
    void install_library() const;

    struct Outcome {
        sim_status status;
        int exit_status = -1;
        std::string out, err;
    };
    /// Boots the phone and runs the command with further arguments.
    Outcome run(const std::vector<const char*>& arguments = {}, Phone::Options options = {});
    /// The same, where it must go well.
    std::string report(const std::vector<const char*>& arguments = {}, const Phone::Options& options = {});

    Phone phone;
};

/// Those that hold the text, or that do not.
Lines with(const Lines& lines, const std::string& part);
Lines without(const Lines& lines, const std::string& part);

}  // namespace test

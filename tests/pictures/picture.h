// Pictures that tests compare with the expected ones in the tree.
#pragma once
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace test {

/// Whether the PNG looks like the expected one: for "system-letters-go" letters-go.png in the folder
/// tests/pictures/expected/system. On failure the picture, what was expected and the differences, red on the
/// faded expectation, lie in the build's pictures folder, whose index.html shows all that failed; there
/// `variant` comes before the name. With HUECRAFT_REBASELINE=1 in the environment the PNG becomes what is
/// expected instead.
testing::AssertionResult looks_as_expected(const std::filesystem::path& png, const std::string& name,
                                           const std::string& variant = "");

}  // namespace test

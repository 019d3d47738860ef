// For targets that give any bytes to one reader of the command's.
#pragma once
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "cli/files.h"

namespace fuzz {

/// What a reader may refuse is said in one short line.
template <class Refusal = command::Unusable, class Read>
void read_or_refuse(const uint8_t* data, size_t size, Read read) {
    try {
        read(std::string(reinterpret_cast<const char*>(data), size));
    } catch (const Refusal& refusal) {
        const std::string said = refusal.what();
        EXPECT_NE(said, "");
        EXPECT_EQ(said.find('\n'), said.npos) << said;
        EXPECT_LT(said.size(), 1000u) << said;
    }
}

}  // namespace fuzz

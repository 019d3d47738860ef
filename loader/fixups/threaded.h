// Threaded fix-ups: those of an arm64e image. Its pointers are chained through the image, and a short stream
// of opcodes lists the symbols that they are bound to and where each chain begins.
#pragma once
#include <cstdint>
#include <optional>
#include <vector>

#include "loader/fixups/bind_opcodes.h"
#include "loader/format/bytes.h"
#include "loader/format/layout.h"

namespace macho {

/// How a pointer is signed.
struct PointerSignature {
    uint8_t key;  ///< IA, IB, DA, DB
    bool address_mixed_in;
    uint16_t discriminator;

    static constexpr uint8_t kInstructionA = 0;
    friend bool operator==(const PointerSignature&, const PointerSignature&) = default;
};

struct ThreadedPointer {
    uint64_t address;           ///< of the pointer, as in the file
    std::optional<size_t> row;  ///< of ThreadedFixups::rows; otherwise it points into the image
    uint64_t target;            ///< as in the file; 0 with a row
    int64_t addend;             ///< with a row
    std::optional<PointerSignature> signature;
};

struct ThreadedFixups {
    std::vector<BindRow> rows;  ///< their addresses and addends are zero
    std::vector<ThreadedPointer> pointers;
};

/// Reads the bind table of an arm64e image, and the chains from the slice.
ThreadedFixups read_threaded(const Bytes& slice, const Layout& layout);

}  // namespace macho

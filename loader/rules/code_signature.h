// The signature at the end of an image: hashes of all that is before it, which the kernel compares page by
// page.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "loader/format/bytes.h"
#include "loader/format/layout.h"

namespace macho {

/// One list of page hashes (CS_CodeDirectory).
struct CodeDirectory {
    enum class Hash : uint8_t { sha1 = 1, sha256 = 2 };

    uint32_t slot;  ///< 0 the first, from 0x1000 its alternates
    uint32_t version, flags;
    std::string identifier;
    Hash hash;
    uint64_t page_size;
    uint64_t covered;    ///< bytes of the slice, from its first
    Bytes page_hashes;   ///< of all pages, one after the other
    Bytes requirements;  ///< the hash of the signature's requirements; empty where there is none

    uint64_t hash_size() const { return hash == Hash::sha1 ? 20 : 32; }
    uint64_t page_count() const { return page_hashes.size() / hash_size(); }
    const char* hash_name() const { return hash == Hash::sha1 ? "SHA-1" : "SHA-256"; }
};

/// CS_SuperBlob.
struct CodeSignature {
    std::vector<CodeDirectory> directories;  ///< of different hashes, at least one
    Bytes requirements;                      ///< empty where there are none

    /// The one that the kernel compares pages with.
    const CodeDirectory& strongest() const;
};

/// Reads the signature that LC_CODE_SIGNATURE speaks of: it is the end of the slice, and covers all before.
/// No hash is computed.
CodeSignature read_signature(const Bytes& slice, const Layout& layout);

/// Hashes every page of the slice and holds it against the list.
void verify_pages(const CodeDirectory& directory, const Bytes& slice);

/// Hashes the requirements and holds them against the list, which must have a hash of them.
void verify_requirements(const CodeDirectory& directory, const CodeSignature& signature);

}  // namespace macho

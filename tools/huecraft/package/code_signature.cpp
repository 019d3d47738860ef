// Ad-hoc signatures. All of their numbers are big-endian.
#include "package/code_signature.h"

#include <nettle/sha2.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "loader/fault.h"

namespace command {
namespace {

using macho::Bytes;
using macho::hex;
using macho::refuse;

constexpr uint32_t magic_of_signature = 0xfade0cc0, magic_of_directory = 0xfade0c02;
constexpr uint32_t slot_of_directory = 0, flag_ad_hoc = 2;
constexpr uint8_t hash_sha256 = 2;

/// The part that lists the hashes. Exactly one: with two, the system would choose.
Bytes directory_in(const Bytes& signature) {
    if (const uint32_t magic = signature.u32_big_endian(0); magic != magic_of_signature)
        refuse("no signature where the load command says (found " + hex(magic) + ", expected " +
               hex(magic_of_signature) + ")");
    const uint32_t count = signature.u32_big_endian(8);
    if (count != 1) refuse("a signature of " + std::to_string(count) + " parts, expected page hashes alone");
    if (const uint32_t slot = signature.u32_big_endian(12); slot != slot_of_directory)
        refuse("a signature without page hashes (found part " + hex(slot) + ", expected " +
               hex(slot_of_directory) + ")");
    const uint32_t at = signature.u32_big_endian(16);
    const Bytes directory =
        signature.part(at, signature.u32_big_endian(uint64_t{at} + 4), "the list of page hashes");
    if (const uint32_t magic = directory.u32_big_endian(0); magic != magic_of_directory)
        refuse("no list of page hashes where the signature says (found " + hex(magic) + ", expected " +
               hex(magic_of_directory) + ")");
    return directory;
}

bool has_hash(const Bytes& page, const Bytes& hash) {
    std::array<uint8_t, SHA256_DIGEST_SIZE> digest;
    sha256_ctx context;
    sha256_init(&context);
    sha256_update(&context, page.size(), page.data());
    sha256_digest(&context, digest.size(), digest.data());
    return std::memcmp(digest.data(), hash.data(), digest.size()) == 0;
}

}  // namespace

size_t verify_signature(const Bytes& slice, const macho::Layout& layout) {
    if (layout.signature.size == 0) refuse("no signature (expected the load command LC_CODE_SIGNATURE)");
    const Bytes signature = slice.part(layout.signature.offset, layout.signature.size, "the code signature");
    if (const uint64_t end = uint64_t{layout.signature.offset} + layout.signature.size; end != slice.size())
        refuse("bytes after the signature (found " + std::to_string(slice.size() - end) + ", expected none)");

    const Bytes directory = directory_in(signature);
    const uint32_t flags = directory.u32_big_endian(12), hashes_at = directory.u32_big_endian(16),
                   hash_count = directory.u32_big_endian(28), covered = directory.u32_big_endian(32);
    const uint8_t hash_size = directory.u8(36), hash_type = directory.u8(37), page_bits = directory.u8(39);
    if (!(flags & flag_ad_hoc)) refuse("a signature that is not ad hoc (found flags " + hex(flags) + ")");
    if (hash_type != hash_sha256 || hash_size != SHA256_DIGEST_SIZE)
        refuse("page hashes that are not SHA-256 (found type " + std::to_string(hash_type) + " of " +
               std::to_string(hash_size) + " bytes)");
    if (page_bits != 12 && page_bits != 14)
        refuse("pages of 2^" + std::to_string(page_bits) + " bytes, expected 2^12 or 2^14");
    if (covered != layout.signature.offset)
        refuse("a signature of " + std::to_string(covered) + " bytes, expected all " +
               std::to_string(layout.signature.offset) + " before it");

    const uint64_t page_size = uint64_t{1} << page_bits, pages = (covered + page_size - 1) / page_size;
    if (hash_count != pages)
        refuse(std::to_string(hash_count) + " page hashes, expected " + std::to_string(pages));
    uint64_t wrong = 0, first = 0;
    for (uint64_t page = 0; page < pages; ++page) {
        const uint64_t at = page * page_size;
        const Bytes bytes = slice.part(at, std::min(page_size, covered - at));
        if (has_hash(bytes, directory.part(hashes_at + page * hash_size, hash_size))) continue;
        if (wrong++ == 0) first = at;
    }
    if (wrong)
        refuse(std::to_string(wrong) + " of " + std::to_string(pages) +
               " pages have another hash than the signature says, the first at " + hex(first));
    return pages;
}

}  // namespace command

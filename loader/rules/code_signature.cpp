// All numbers of a code signature are big-endian.
#include "loader/rules/code_signature.h"

#include <nettle/sha1.h>
#include <nettle/sha2.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "loader/fault.h"
#include "loader/format/structures.h"

namespace macho {
namespace {

constexpr uint32_t CSMAGIC_EMBEDDED_SIGNATURE = 0xfade0cc0, CSMAGIC_CODEDIRECTORY = 0xfade0c02,
                   CSMAGIC_REQUIREMENTS = 0xfade0c01;
constexpr uint32_t CSSLOT_CODEDIRECTORY = 0, CSSLOT_REQUIREMENTS = 2,
                   CSSLOT_ALTERNATE_CODEDIRECTORIES = 0x1000, CSSLOT_ALTERNATE_CODEDIRECTORY_MAX = 5;

const char* const kCommand = "LC_CODE_SIGNATURE: ";

[[noreturn]] void refuse_signature(const std::string& what, const std::string& found,
                                   const std::string& expected) {
    refuse(kCommand + what + " (found " + found + ", expected " + expected + ")");
}

bool is_directory(uint32_t slot) {
    return slot == CSSLOT_CODEDIRECTORY ||
           (slot >= CSSLOT_ALTERNATE_CODEDIRECTORIES &&
            slot < CSSLOT_ALTERNATE_CODEDIRECTORIES + CSSLOT_ALTERNATE_CODEDIRECTORY_MAX);
}

/// The part of the signature that starts there, as long as it says itself.
Bytes blob_at(const Bytes& signature, uint32_t at, uint32_t magic, std::string_view name) {
    const Bytes blob = signature.part(at, signature.field_big_endian(&CS_GenericBlob::length, at), name);
    if (blob.size() < sizeof(CS_GenericBlob))
        refuse_signature(std::string(name) + " has a wrong size", std::to_string(blob.size()),
                         "at least " + std::to_string(sizeof(CS_GenericBlob)));
    if (const uint32_t found = blob.field_big_endian(&CS_GenericBlob::magic); found != magic)
        refuse_signature(std::string(name) + " has another magic number", hex(found), hex(magic));
    return blob;
}

CodeDirectory read_directory(const Bytes& blob, uint32_t slot, uint32_t end_of_code) {
    const uint32_t hashes_at = blob.field_big_endian(&CS_CodeDirectory::hashOffset),
                   special_count = blob.field_big_endian(&CS_CodeDirectory::nSpecialSlots),
                   hash_count = blob.field_big_endian(&CS_CodeDirectory::nCodeSlots),
                   covered = blob.field_big_endian(&CS_CodeDirectory::codeLimit);
    const uint8_t hash_size = blob.field(&CS_CodeDirectory::hashSize),
                  hash_type = blob.field(&CS_CodeDirectory::hashType),
                  page_bits = blob.field(&CS_CodeDirectory::pageSize);
    CodeDirectory directory{
        .slot = slot,
        .version = blob.field_big_endian(&CS_CodeDirectory::version),
        .flags = blob.field_big_endian(&CS_CodeDirectory::flags),
        .identifier = std::string(blob.text(blob.field_big_endian(&CS_CodeDirectory::identOffset))),
        .hash = static_cast<CodeDirectory::Hash>(hash_type),
        .page_size = 0,
        .covered = covered,
        .page_hashes = blob.part(0, 0),
        .requirements = blob.part(0, 0)};
    const std::string name = "CodeDirectory " + hex(slot);
    if (hash_type != static_cast<uint8_t>(CodeDirectory::Hash::sha1) &&
        hash_type != static_cast<uint8_t>(CodeDirectory::Hash::sha256))
        refuse_signature(name + " has an unknown hash type", std::to_string(hash_type), "1 or 2");
    if (hash_size != directory.hash_size())
        refuse_signature(name + " has a wrong hash size", std::to_string(hash_size),
                         std::to_string(directory.hash_size()));
    if (page_bits != 12 && page_bits != 14)
        refuse_signature(name + " has a wrong page size", "2^" + std::to_string(page_bits), "2^12 or 2^14");
    directory.page_size = uint64_t{1} << page_bits;
    if (covered != end_of_code)
        refuse_signature(name + " does not cover the file up to the signature", hex(covered),
                         hex(end_of_code));
    const uint64_t pages = (covered + directory.page_size - 1) / directory.page_size;
    if (hash_count != pages)
        refuse_signature(name + " has another number of page hashes", std::to_string(hash_count),
                         std::to_string(pages));
    directory.page_hashes = blob.part(hashes_at, pages * hash_size, "a signature's page hashes");
    if (uint64_t{special_count} * hash_size + sizeof(CS_CodeDirectory) > hashes_at)
        refuse_signature(name + " has no room for its special slots", std::to_string(special_count),
                         "at most " + std::to_string(hashes_at / hash_size));
    if (special_count >= CSSLOT_REQUIREMENTS)
        directory.requirements = blob.part(hashes_at - CSSLOT_REQUIREMENTS * uint64_t{hash_size}, hash_size);
    return directory;
}

using Digest = std::array<uint8_t, SHA256_DIGEST_SIZE>;

Digest digest_of(const Bytes& bytes, CodeDirectory::Hash hash) {
    Digest digest{};
    if (hash == CodeDirectory::Hash::sha1) {
        sha1_ctx context;
        sha1_init(&context);
        sha1_update(&context, bytes.size(), bytes.data());
        sha1_digest(&context, SHA1_DIGEST_SIZE, digest.data());
    } else {
        sha256_ctx context;
        sha256_init(&context);
        sha256_update(&context, bytes.size(), bytes.data());
        sha256_digest(&context, SHA256_DIGEST_SIZE, digest.data());
    }
    return digest;
}

bool is_hash_of(const Bytes& bytes, const uint8_t* expected, const CodeDirectory& directory) {
    const Digest digest = digest_of(bytes, directory.hash);
    return std::memcmp(digest.data(), expected, directory.hash_size()) == 0;
}

}  // namespace

const CodeDirectory& CodeSignature::strongest() const {
    return *std::ranges::max_element(directories, {}, &CodeDirectory::hash);
}

CodeSignature read_signature(const Bytes& slice, const Layout& layout) {
    if (layout.signature.size == 0) refuse("no signature (expected the load command LC_CODE_SIGNATURE)");
    const uint32_t at = layout.signature.offset;
    const Bytes signature = slice.part(at, layout.signature.size, "the code signature");
    if (const uint64_t end = uint64_t{at} + layout.signature.size; end != slice.size())
        refuse_signature("the signature is not the end of the file", hex(end), hex(slice.size()));
    if (const uint32_t magic = signature.field_big_endian(&CS_SuperBlob::magic);
        magic != CSMAGIC_EMBEDDED_SIGNATURE)
        refuse_signature("no signature at its offset", hex(magic), hex(CSMAGIC_EMBEDDED_SIGNATURE));

    CodeSignature result{.directories = {}, .requirements = signature.part(0, 0)};
    const uint64_t count = signature.field_big_endian(&CS_SuperBlob::count);
    const Bytes index =
        signature.part(sizeof(CS_SuperBlob), count * sizeof(CS_BlobIndex), "a signature's list of parts");
    for (uint64_t row = 0; row < index.size(); row += sizeof(CS_BlobIndex)) {
        const uint32_t slot = index.field_big_endian(&CS_BlobIndex::type, row),
                       blob = index.field_big_endian(&CS_BlobIndex::offset, row);
        if (slot == CSSLOT_REQUIREMENTS)
            result.requirements =
                blob_at(signature, blob, CSMAGIC_REQUIREMENTS, "a signature's requirements");
        if (!is_directory(slot)) continue;
        const CodeDirectory directory =
            read_directory(blob_at(signature, blob, CSMAGIC_CODEDIRECTORY, "a CodeDirectory"), slot, at);
        for (const CodeDirectory& other : result.directories)
            if (other.hash == directory.hash)
                refuse_signature("two CodeDirectories of one hash", directory.hash_name(), "another");
        result.directories.push_back(directory);
    }
    if (result.directories.empty() || result.directories.front().slot != CSSLOT_CODEDIRECTORY)
        refuse_signature("no CodeDirectory in front", std::to_string(result.directories.size()) + " in all",
                         "slot 0");
    return result;
}

void verify_pages(const CodeDirectory& directory, const Bytes& slice) {
    const uint64_t pages = directory.page_count();
    uint64_t wrong = 0, first = 0;
    for (uint64_t page = 0; page < pages; ++page) {
        const uint64_t at = page * directory.page_size;
        const Bytes bytes = slice.part(at, std::min(directory.page_size, directory.covered - at));
        if (is_hash_of(bytes, directory.page_hashes.data() + page * directory.hash_size(), directory))
            continue;
        if (wrong++ == 0) first = at;
    }
    if (wrong)
        refuse_signature(std::to_string(wrong) + " of " + std::to_string(pages) + " pages have another " +
                             directory.hash_name() + " than signed",
                         "the first at " + hex(first), "none");
}

void verify_requirements(const CodeDirectory& directory, const CodeSignature& signature) {
    if (directory.requirements.size() == 0 || signature.requirements.size() == 0)
        refuse_signature("no requirements", "nothing",
                         "a set of them and its " + std::string(directory.hash_name()));
    if (!is_hash_of(signature.requirements, directory.requirements.data(), directory))
        refuse_signature(
            "the requirements have another " + std::string(directory.hash_name()) + " than signed", "another",
            "the hash in CodeDirectory " + hex(directory.slot));
}

}  // namespace macho

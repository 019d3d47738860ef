// Signs a slice as installers of iOS 12 do: page hashes in SHA-1 and in SHA-256, and nobody's name.
//
//     sign_slice <slice> <identifier> <signed slice>
//
// The slice has the linker's own signature, whose place is taken: no system before iOS 13 knows that kind.
#include <nettle/sha1.h>
#include <nettle/sha2.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Data = std::vector<uint8_t>;

[[noreturn]] void refuse(const std::string& reason) { throw std::runtime_error(reason); }

// --- The slice: little-endian load commands ---

constexpr uint32_t magic_64 = 0xfeedfacf, lc_segment_64 = 0x19, lc_code_signature = 0x1d;
constexpr size_t header_size = 32;
constexpr char linkedit_name[16] = "__LINKEDIT";
constexpr uint64_t memory_page = 0x4000;  // of the device; code pages are smaller

template <class T>
T get(const Data& slice, size_t at) {
    T value;
    if (at > slice.size() || slice.size() - at < sizeof value)
        refuse("the slice ends within its load commands");
    std::memcpy(&value, slice.data() + at, sizeof value);
    return value;
}

template <class T>
void put(Data& slice, size_t at, T value) {
    get<T>(slice, at);
    std::memcpy(slice.data() + at, &value, sizeof value);
}

/// Where the two load commands are that speak of the signature.
struct Commands {
    size_t linkedit = 0, signature = 0;
};

Commands find_commands(const Data& slice) {
    if (get<uint32_t>(slice, 0) != magic_64) refuse("not a 64-bit Mach-O file");
    Commands found;
    size_t at = header_size;
    for (uint32_t left = get<uint32_t>(slice, 16); left > 0; --left) {
        const auto number = get<uint32_t>(slice, at), size = get<uint32_t>(slice, at + 4);
        if (size < 8) refuse("a load command of " + std::to_string(size) + " bytes");
        if (number == lc_code_signature) found.signature = at;
        if (number == lc_segment_64) {
            get<uint64_t>(slice, at + 48);
            if (std::memcmp(slice.data() + at + 8, linkedit_name, sizeof linkedit_name) == 0)
                found.linkedit = at;
        }
        at += size;
    }
    if (!found.linkedit) refuse("no LC_SEGMENT_64 of __LINKEDIT");
    if (!found.signature) refuse("no LC_CODE_SIGNATURE: it was linked without -adhoc_codesign");
    return found;
}

// --- The signature: big-endian blobs ---

constexpr uint32_t magic_signature = 0xfade0cc0, magic_directory = 0xfade0c02,
                   magic_requirements = 0xfade0c01;
constexpr uint32_t slot_directory = 0, slot_requirements = 2, slot_alternate = 0x1000;

void append32(Data& data, uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8) data.push_back(static_cast<uint8_t>(value >> shift));
}

void append(Data& data, const Data& more) { data.insert(data.end(), more.begin(), more.end()); }

struct HashKind {
    uint8_t type, size;
    Data (*of)(std::span<const uint8_t>);
};

template <class Context, size_t size, void (*init)(Context*),
          void (*update)(Context*, size_t, const uint8_t*), void (*digest)(Context*, size_t, uint8_t*)>
Data hash_of(std::span<const uint8_t> bytes) {
    Context context;
    Data result(size);
    init(&context);
    update(&context, bytes.size(), bytes.data());
    digest(&context, size, result.data());
    return result;
}

constexpr HashKind sha1{
    1, SHA1_DIGEST_SIZE,
    hash_of<sha1_ctx, SHA1_DIGEST_SIZE, nettle_sha1_init, nettle_sha1_update, nettle_sha1_digest>};
constexpr HashKind sha256{
    2, SHA256_DIGEST_SIZE,
    hash_of<sha256_ctx, SHA256_DIGEST_SIZE, nettle_sha256_init, nettle_sha256_update, nettle_sha256_digest>};

Data requirements() {
    Data blob;
    append32(blob, magic_requirements);
    append32(blob, 12);
    append32(blob, 0);  // there are none
    return blob;
}

/// The list of hashes of all that is before the signature. Its form is that of 2018: 0x20200.
Data directory(const HashKind& hash, std::span<const uint8_t> code, const std::string& identifier) {
    constexpr uint32_t version = 0x20200, flags = 0, fields_size = 52, special_slots = 2;
    constexpr uint8_t page_bits = 12;
    constexpr size_t page = size_t{1} << page_bits;
    const auto name_size = static_cast<uint32_t>(identifier.size() + 1);
    const auto code_slots = static_cast<uint32_t>((code.size() + page - 1) / page);
    const uint32_t hashes_at = fields_size + name_size + special_slots * hash.size;

    Data blob;
    append32(blob, magic_directory);
    append32(blob, hashes_at + code_slots * hash.size);
    append32(blob, version);
    append32(blob, flags);
    append32(blob, hashes_at);
    append32(blob, fields_size);  // where the identifier is
    append32(blob, special_slots);
    append32(blob, code_slots);
    append32(blob, static_cast<uint32_t>(code.size()));
    append(blob, {hash.size, hash.type, 0, page_bits});
    append32(blob, 0);
    append32(blob, 0);  // no scattering
    append32(blob, 0);  // no team
    append(blob, Data(identifier.begin(), identifier.end()));
    blob.push_back(0);
    append(blob, hash.of(requirements()));
    append(blob, Data(hash.size));  // of Info.plist, which a dylib does not have
    for (size_t at = 0; at < code.size(); at += page)
        append(blob, hash.of(code.subspan(at, std::min(page, code.size() - at))));
    return blob;
}

Data signature(std::span<const uint8_t> code, const std::string& identifier) {
    const std::pair<uint32_t, Data> parts[] = {{slot_directory, directory(sha1, code, identifier)},
                                               {slot_requirements, requirements()},
                                               {slot_alternate, directory(sha256, code, identifier)}};
    Data index, content;
    const auto content_at = static_cast<uint32_t>(12 + 8 * std::size(parts));
    for (const auto& [slot, blob] : parts) {
        append32(index, slot);
        append32(index, content_at + static_cast<uint32_t>(content.size()));
        append(content, blob);
    }
    Data all;
    append32(all, magic_signature);
    append32(all, content_at + static_cast<uint32_t>(content.size()));
    append32(all, static_cast<uint32_t>(std::size(parts)));
    append(all, index);
    append(all, content);
    all.resize((all.size() + 15) / 16 * 16);
    return all;
}

void sign(Data& slice, const std::string& identifier) {
    const Commands commands = find_commands(slice);
    const auto at = get<uint32_t>(slice, commands.signature + 8),
               size = get<uint32_t>(slice, commands.signature + 12);
    if (uint64_t{at} + size != slice.size())
        refuse("LC_CODE_SIGNATURE: the signature ends at " + std::to_string(uint64_t{at} + size) +
               ", expected " + std::to_string(slice.size()) + ", the end of the slice");
    slice.resize(at);

    // The load commands are hashed, too: what they say of the signature comes first.
    const size_t new_size = signature(slice, identifier).size();
    const auto linkedit_at = get<uint64_t>(slice, commands.linkedit + 40);
    if (linkedit_at > at) refuse("LC_SEGMENT_64: __LINKEDIT does not hold the signature");
    const uint64_t linkedit_size = at + new_size - linkedit_at;
    put(slice, commands.signature + 12, static_cast<uint32_t>(new_size));
    put(slice, commands.linkedit + 32, (linkedit_size + memory_page - 1) / memory_page * memory_page);
    put(slice, commands.linkedit + 48, linkedit_size);
    append(slice, signature(slice, identifier));
}

Data contents_of(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) refuse("it cannot be opened");
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 4) {
        std::fputs("usage: sign_slice <slice> <identifier> <signed slice>\n", stderr);
        return 2;
    }
    try {
        Data slice = contents_of(arguments[1]);
        sign(slice, arguments[2]);
        std::ofstream file(arguments[3], std::ios::binary);
        file.write(reinterpret_cast<const char*>(slice.data()), static_cast<std::streamsize>(slice.size()));
        if (!file.flush()) refuse(std::string("cannot write ") + arguments[3]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "sign_slice: %s: %s\n", arguments[1], error.what());
        return 1;
    }
}

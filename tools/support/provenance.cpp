// Digests, and texts in PNG files.
#include "support/provenance.h"

#include <nettle/sha2.h>
#include <zlib.h>

#include <fstream>
#include <iterator>

#include "support/phone.h"

namespace tools {
namespace {

constexpr std::string_view signature("\x89PNG\r\n\x1a\n", 8);
/// The header's chunk has a length, a name, 13 bytes and a checksum.
constexpr size_t end_of_header = signature.size() + 4 + 4 + 13 + 4;

std::string big_endian(uint32_t number) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift);
    return bytes;
}

std::string text_chunk(std::string_view keyword, std::string_view text) {
    std::string named = "tEXt" + std::string(keyword) + '\0' + std::string(text);
    const auto checksum =
        crc32(0, reinterpret_cast<const Bytef*>(named.data()), static_cast<uInt>(named.size()));
    const auto length = static_cast<uint32_t>(named.size() - 4);
    return big_endian(length) + named + big_endian(static_cast<uint32_t>(checksum));
}

std::string contents_of(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw Failure("cannot read " + path.string());
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

std::string sha256_of(std::string_view bytes) {
    sha256_ctx context;
    sha256_init(&context);
    sha256_update(&context, bytes.size(), reinterpret_cast<const uint8_t*>(bytes.data()));
    uint8_t digest[SHA256_DIGEST_SIZE];
    sha256_digest(&context, sizeof digest, digest);
    std::string digits;
    for (const uint8_t byte : digest) {
        digits += "0123456789abcdef"[byte >> 4];
        digits += "0123456789abcdef"[byte & 15];
    }
    return digits;
}

std::string with_provenance(const std::string& png, const Provenance& provenance) {
    if (png.size() < end_of_header || !png.starts_with(signature))
        throw Failure("what was drawn is not a PNG, and cannot carry its origin");
    std::string marked = png.substr(0, end_of_header) + text_chunk(library_keyword, provenance.library);
    if (!provenance.theme.empty()) marked += text_chunk(theme_keyword, provenance.theme);
    return marked + png.substr(end_of_header);
}

Provenance provenance_of(const std::filesystem::path& library, const std::filesystem::path& theme) {
    return {sha256_of(contents_of(library)), theme.empty() ? "" : sha256_of(contents_of(theme))};
}

void tell_provenance(const std::filesystem::path& png, const Provenance& provenance) {
    const std::string marked = with_provenance(contents_of(png), provenance);
    std::ofstream file(png, std::ios::binary);
    if (!file.write(marked.data(), static_cast<std::streamsize>(marked.size())).flush())
        throw Failure("cannot write the picture " + png.string());
}

}  // namespace tools

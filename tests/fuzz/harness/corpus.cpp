// Corpora as text: an input a line, as it is where it can be read, and "\xNN" for every other byte.
//
//     fuzz_corpus unpack <folder> <text>...   a file in the folder for each line that is no comment
//     fuzz_corpus pack <folder> <largest>     the folder's files as lines, those with more bytes left out
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

std::string as_line(const std::string& bytes) {
    std::string line;
    for (size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        const bool may_vanish = byte == ' ' && i + 1 == bytes.size();
        const bool would_comment = byte == '#' && i == 0;
        if (byte >= 0x20 && byte < 0x7f && byte != '\\' && !may_vanish && !would_comment) {
            line += bytes[i];
        } else {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\x%02x", byte);
            line += escaped;
        }
    }
    return line;
}

std::string from_line(const std::string& line) {
    std::string bytes;
    for (size_t i = 0; i < line.size(); ++i) {
        if (line[i] != '\\') {
            bytes += line[i];
            continue;
        }
        if (line.compare(i, 2, "\\x") != 0 || i + 4 > line.size())
            throw std::runtime_error(line.substr(i, 8));
        bytes += static_cast<char>(std::stoi(line.substr(i + 2, 2), nullptr, 16));
        i += 3;
    }
    return bytes;
}

void unpack(const fs::path& folder, const std::string& text) {
    std::ifstream lines(text);
    if (!lines) throw std::runtime_error(text + ": cannot be read");
    size_t number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        if (line.starts_with('#')) continue;
        try {
            std::ofstream(
                folder / (fs::path(text).parent_path().filename().string() + std::to_string(number)),
                std::ios::binary)
                << from_line(line);
        } catch (const std::exception& wrong) {
            throw std::runtime_error(text + ":" + std::to_string(number) + ": found \"" + wrong.what() +
                                     "\", expected \\x and two hexadecimal digits");
        }
    }
}

void pack(const fs::path& folder, size_t largest) {
    std::vector<std::string> lines;
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.file_size() > largest) continue;
        std::ostringstream bytes;
        bytes << std::ifstream(entry.path(), std::ios::binary).rdbuf();
        lines.push_back(as_line(bytes.str()));
    }
    std::ranges::sort(lines, [](const auto& a, const auto& b) {
        return a.size() != b.size() ? a.size() < b.size() : a < b;
    });
    for (const std::string& line : lines) std::cout << line << '\n';
}

}  // namespace

int main(int count, char** arguments) try {
    const std::vector<std::string> given(arguments + 1, arguments + count);
    if (given.size() >= 2 && given[0] == "unpack") {
        for (size_t i = 2; i < given.size(); ++i) unpack(given[1], given[i]);
        return 0;
    }
    if (given.size() == 3 && given[0] == "pack") {
        pack(given[1], std::stoul(given[2]));
        return 0;
    }
    std::fputs("usage: fuzz_corpus unpack <folder> <text>... | pack <folder> <largest>\n", stderr);
    return 2;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "fuzz_corpus: %s\n", failure.what());
    return 2;
}

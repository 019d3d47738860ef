// Small arm64 slices as a linker leaves them, for what no linker of ours makes.
#pragma once
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace test {

/// A slice with a page of code at 0x1000 and, from 0x4000, sections of data that are each a page long.
struct SliceDraft {
    static constexpr uint64_t code = 0x1000, data = 0x4000, page = 0x1000;

    std::vector<std::string> sections{"__objc_const", "__const", "__got"};
    std::vector<uint8_t> rebases, binds, weak_binds;
    std::vector<std::pair<uint64_t, uint64_t>> pointers;  ///< address and what the file holds there

    /// A pointer into the slice.
    SliceDraft& rebase(uint64_t address, uint64_t target) {
        rebases.push_back(0x11);
        rebases.push_back(0x21);
        number(rebases, address - data);
        rebases.push_back(0x51);
        pointers.emplace_back(address, target);
        return *this;
    }
    SliceDraft& bind(uint64_t address, const std::string& symbol, int addend = 0) {
        binds.insert(binds.end(), {0x11, 0x40});
        binds.insert(binds.end(), symbol.begin(), symbol.end());
        binds.insert(binds.end(), {0x00, 0x51, 0x60});
        signed_number(binds, addend);
        binds.push_back(0x71);
        number(binds, address - data);
        binds.push_back(0x90);
        return *this;
    }

    /// The table of binds is as long as real ones are, which name each symbol: the threaded stream has its
    /// room.
    std::vector<uint8_t> bytes() const {
        const std::vector<uint8_t> padded = with_room(binds);
        const uint64_t data_size = (sections.size() * page + 0x3fff) / 0x4000 * 0x4000,
                       tables = data + data_size;
        std::vector<uint8_t> file(tables);
        uint64_t at = 0;
        const auto put32 = [&](uint64_t value) {
            const auto word = static_cast<uint32_t>(value);
            std::memcpy(file.data() + at, &word, 4);
            at += 4;
        };
        const auto put64 = [&](uint64_t value) {
            std::memcpy(file.data() + at, &value, 8);
            at += 8;
        };
        const auto put_name = [&](const std::string& name) {
            std::memcpy(file.data() + at, name.data(), name.size());
            at += 16;
        };
        const auto segment = [&](const char* name, uint64_t address, uint64_t size, uint32_t access,
                                 size_t rows) {
            put32(0x19);
            put32(72 + 80 * rows);
            put_name(name);
            for (uint64_t value : {address, size, address, size}) put64(value);
            for (uint64_t value : {uint64_t{access}, uint64_t{access}, uint64_t{rows}, uint64_t{0}})
                put32(value);
        };
        const auto section = [&](const std::string& name, const char* in, uint64_t address, uint32_t flags) {
            put_name(name);
            put_name(in);
            put64(address);
            put64(page);
            for (uint64_t value : {address, uint64_t{3}, uint64_t{0}, uint64_t{0}, uint64_t{flags}})
                put32(value);
            for (int i = 0; i < 3; ++i) put32(0);
        };
        const uint64_t linkedit = rebases.size() + padded.size() + weak_binds.size() + 24;
        const size_t commands = 3 * 72 + 80 * (1 + sections.size()) + 48 + 48;
        for (uint64_t value : {uint64_t{0xfeedfacf}, uint64_t{0x0100000c}, uint64_t{0}, uint64_t{6},
                               uint64_t{5}, uint64_t{commands}, uint64_t{0x85}, uint64_t{0}})
            put32(value);
        segment("__TEXT", 0, data, 5, 1);
        section("__text", "__TEXT", code, 0x80000400);
        segment("__DATA", data, data_size, 3, sections.size());
        for (size_t i = 0; i < sections.size(); ++i) section(sections[i], "__DATA", data + i * page, 0);
        segment("__LINKEDIT", tables, linkedit, 1, 0);
        put32(0xc);
        put32(48);
        put32(24);
        for (int i = 0; i < 3; ++i) put32(0);
        put_name("/usr/lib/lib");
        at += 8;
        put32(0x80000022);
        put32(48);
        uint64_t table = tables;
        for (const auto* part : {&rebases, &padded, &weak_binds}) {
            put32(part->empty() ? 0 : table);
            put32(part->size());
            table += part->size();
        }
        for (const auto& [address, value] : pointers) std::memcpy(file.data() + address, &value, 8);
        for (const auto* part : {&rebases, &padded, &weak_binds})
            file.insert(file.end(), part->begin(), part->end());
        file.resize(tables + linkedit);
        return file;
    }

  private:
    static std::vector<uint8_t> with_room(std::vector<uint8_t> table) {
        if (!table.empty()) table.resize(table.size() + 16);
        return table;
    }
    static void number(std::vector<uint8_t>& into, uint64_t value) {
        for (; value > 0x7f; value >>= 7) into.push_back(static_cast<uint8_t>(0x80 | (value & 0x7f)));
        into.push_back(static_cast<uint8_t>(value));
    }
    static void signed_number(std::vector<uint8_t>& into, int64_t value) {
        for (; value > 0x3f || value < -0x40; value >>= 7)
            into.push_back(static_cast<uint8_t>(0x80 | (value & 0x7f)));
        into.push_back(static_cast<uint8_t>(value & 0x7f));
    }
};

}  // namespace test

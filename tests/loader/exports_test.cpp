// The export trie.
#include "loader/format/exports.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "draft.h"
#include "host.h"
#include "loader/fault.h"

namespace {

using loader_test::Draft;
using loader_test::message_of;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using Trie = std::vector<uint8_t>;

/// The exports as "name value", with = before an absolute value.
std::vector<std::string> exports(const Trie& trie) {
    std::vector<std::string> found;
    for (const auto& [name, each] : macho::read_exports(macho::Bytes(trie, "the export trie")))
        found.push_back(name + (each.absolute ? " =" : " ") + macho::hex(each.value));
    return found;
}

std::string trie_refusal(const Trie& trie) {
    return message_of<macho::Fault>([&] { exports(trie); });
}

/// A root with one edge "_f" to a node with these flags and the value 0x20.
Trie one_export(uint8_t flags) { return {0, 1, '_', 'f', 0, 6, 2, flags, 0x20, 0}; }

TEST(ExportsTest, AnEmptyTrieExportsNothing) {
    EXPECT_THAT(exports({}), IsEmpty());
    EXPECT_THAT(exports({0, 0}), IsEmpty());
}

TEST(ExportsTest, NamesAreTheEdgesOnTheWay) {
    //                0  1  2    3  4   5    6  7    8  9
    const Trie trie = {0, 2, '_', 0, 10, 'b', 0, 20, 0, 0,
                       // 10: "_", an export with two children
                       2, 0, 0x10, 2, 'f', 0, 24, 'g', 0, 28,
                       // 20: "b"
                       2, 0, 0x40, 0,
                       // 24: "_f", 28: "_g"
                       2, 4, 0x20, 0, 2, 0, 0x30, 0};
    EXPECT_THAT(exports(trie), ElementsAre("_ 0x10", "_f 0x20", "_g 0x30", "b 0x40"));
}

TEST(ExportsTest, AnAbsoluteValueDoesNotMove) {
    EXPECT_THAT(exports(one_export(2)), ElementsAre("_f =0x20"));
}

TEST(ExportsTest, UnsupportedKindsAreRefused) {
    const std::pair<uint8_t, const char*> kinds[] = {
        {0x01, "a thread-local variable"},
        {0x03, "of an unknown kind"},
        {0x08, "a re-export"},
        {0x10, "a function with a resolver"},
    };
    for (const auto& [flags, what] : kinds)
        EXPECT_EQ(trie_refusal(one_export(flags)), std::string("the export _f is ") + what +
                                                       ", which is not supported (found flags " +
                                                       macho::hex(flags) + ")");
}

TEST(ExportsTest, ANodeThatLeadsBackIsRefused) {
    EXPECT_EQ(trie_refusal({0, 1, 'a', 0, 0}),
              "the export trie has nodes that overlap or lead back to each other");
    EXPECT_EQ(trie_refusal({0, 1, 'a', 0, 5, 0, 1, 'b', 0, 0}),
              "the export trie has nodes that overlap or lead back to each other");
}

TEST(ExportsTest, ManyEdgesToOneNodeAreRefused) {
    Trie trie = {0, 200};
    for (int i = 0; i < 200; ++i) trie.insert(trie.end(), {0, 0x80, 0x80, 0x00});
    EXPECT_EQ(trie_refusal(trie), "the export trie has nodes that overlap or lead back to each other");
}

TEST(ExportsTest, ANodeOutsideTheTrieIsRefused) {
    EXPECT_EQ(trie_refusal({0, 1, 'a', 0, 0x70}),
              "a read leaves the export trie (found 5 bytes, expected 1 more at offset 0x70)");
}

TEST(ExportsTest, AnEdgeThatDoesNotEndIsRefused) {
    EXPECT_EQ(trie_refusal({0, 1, 'a'}),
              "a text in the export trie does not end (found its start at offset 0x2)");
}

TEST(ExportsTest, ExportInformationOutsideItsNodeIsRefused) {
    EXPECT_THAT(trie_refusal({0x70, 0, 0}), HasSubstr("a read leaves the export trie"));
    EXPECT_THAT(trie_refusal({1, 0, 0x20, 0}), HasSubstr("a read leaves the export trie"));
}

TEST(ExportsTest, AVeryLongNameIsRefused) {
    const auto one_export_named = [](size_t length) {
        Trie trie = {0, 1};
        trie.insert(trie.end(), length, 'a');
        const size_t node = 2 + length + 3;  // behind the edge's zero and two bytes of offset
        trie.insert(trie.end(),
                    {0, static_cast<uint8_t>(node | 0x80), static_cast<uint8_t>(node >> 7), 2, 0, 0x20, 0});
        return trie;
    };
    EXPECT_EQ(exports(one_export_named(4096)).size(), 1u);
    EXPECT_EQ(trie_refusal(one_export_named(4097)), "the export trie has a name of more than 4096 bytes");
}

TEST(ExportsTest, AnExportOutsideTheImageIsRefused) {
    Draft draft("plain");
    draft.set_table(Draft::exports, {0, 1, '_', 'f', 0, 6, 5, 0, 0x80, 0x80, 0x80, 0x08, 0});
    EXPECT_THAT(draft.load_error(),
                HasSubstr("the export _f lies outside the image (found 0x1000000, expected at most 0x"));
}

}  // namespace

#include "loader/format/exports.h"

#include <vector>

#include "loader/fault.h"
#include "loader/format/cursor.h"

namespace macho {
namespace {

enum ExportFlags : uint64_t {
    EXPORT_SYMBOL_FLAGS_KIND_MASK = 0x03,
    EXPORT_SYMBOL_FLAGS_KIND_THREAD_LOCAL = 0x01,
    EXPORT_SYMBOL_FLAGS_KIND_ABSOLUTE = 0x02,
    EXPORT_SYMBOL_FLAGS_REEXPORT = 0x08,
    EXPORT_SYMBOL_FLAGS_STUB_AND_RESOLVER = 0x10,
};

// Edges may share their bytes, so that a small file could spell out very many long names.
constexpr size_t kLongestName = 4096;

/// A node to visit. Nodes are visited depth first, so a parent's name is still the beginning of the name
/// visited last.
struct Node {
    uint64_t offset;
    size_t parent_name_size;
    std::string_view edge;
};

Export read_terminal(Bytes bytes, const std::string& name) {
    Cursor cursor(bytes);
    const uint64_t flags = cursor.uleb128();
    const char* unsupported =
        flags & EXPORT_SYMBOL_FLAGS_REEXPORT            ? "a re-export"
        : flags & EXPORT_SYMBOL_FLAGS_STUB_AND_RESOLVER ? "a function with a resolver"
        : (flags & EXPORT_SYMBOL_FLAGS_KIND_MASK) == EXPORT_SYMBOL_FLAGS_KIND_THREAD_LOCAL
            ? "a thread-local variable"
        : (flags & EXPORT_SYMBOL_FLAGS_KIND_MASK) > EXPORT_SYMBOL_FLAGS_KIND_ABSOLUTE ? "of an unknown kind"
                                                                                      : nullptr;
    if (unsupported)
        refuse("the export " + name + " is " + unsupported + ", which is not supported (found flags " +
               hex(flags) + ")");
    return {.value = cursor.uleb128(),
            .absolute = (flags & EXPORT_SYMBOL_FLAGS_KIND_MASK) == EXPORT_SYMBOL_FLAGS_KIND_ABSOLUTE};
}

}  // namespace

ExportTable read_exports(const Bytes& trie) {
    ExportTable found;
    if (trie.size() == 0) return found;

    std::string name;
    uint64_t visited = 0;  // bytes
    std::vector<Node> to_visit{{0, 0, ""}};
    while (!to_visit.empty()) {
        const Node node = to_visit.back();
        to_visit.pop_back();
        name.resize(node.parent_name_size);
        name += node.edge;
        if (name.size() > kLongestName)
            refuse("the export trie has a name of more than " + std::to_string(kLongestName) + " bytes");

        Cursor cursor(trie, node.offset);
        const Bytes terminal = cursor.take(cursor.uleb128());
        if (terminal.size()) found.emplace(name, read_terminal(terminal, name));
        for (unsigned children = cursor.u8(); children > 0; --children) {
            const std::string_view edge = cursor.text();
            to_visit.push_back({cursor.uleb128(), name.size(), edge});
        }

        visited += cursor.position() - node.offset;
        if (visited > trie.size())
            refuse("the export trie has nodes that overlap or lead back to each other");
    }
    return found;
}

}  // namespace macho

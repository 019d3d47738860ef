// Writes the rows of the library's hook table down as compatibility/hooked_methods.h wants them, for those
// who must not include the table.
#include <cstdio>

#include "hooks/row_list.h"
#include "objc/descriptions/plain_types.h"

// Nothing here runs the table, so that a selector can be its name.
extern "C" SEL sel_registerName(const char* name) { return reinterpret_cast<SEL>(name); }
extern "C" const char* sel_getName(SEL selector) { return reinterpret_cast<const char*>(selector); }

namespace {

const char* name_of(hooks::Condition condition) {
    switch (condition) {
        case hooks::Condition::accepted_process: return "accepted_process";
        case hooks::Condition::themed: return "themed";
        case hooks::Condition::caps_hidden: return "caps_hidden";
    }
    return "";
}

}  // namespace

int main() {
    std::printf(
        "// Made by tools/hooked_methods of library/hooks/hook_table.h.\n"
        "#include \"compatibility/hooked_methods.h\"\n\nnamespace compatibility {\nnamespace {\n\n"
        "using enum Condition;\n\nconstexpr HookedMethod methods[] = {\n");
    for (const hooks::ListedRow& row : hooks::row_list) {
        std::string types = row.types;
        objc::make_plain(types.data());
        std::printf("    {\"%s\", %s, %s, \"%s\"},\n", row.target().c_str(), name_of(row.condition),
                    row.adds ? "true" : "false", types.c_str());
    }
    std::printf(
        "};\n\n}  // namespace\n\nstd::span<const HookedMethod> hooked_methods() { return methods; }\n\n"
        "}  // namespace compatibility\n");
    return 0;
}

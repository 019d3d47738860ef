// Binding: pointers to symbols of other libraries, through whoever knows these.
#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "loader/fixups/bind_opcodes.h"
#include "loader/format/exports.h"
#include "loader/format/layout.h"
#include "loader/mapping.h"

namespace macho {

/// A symbol that an image asks for.
struct Import {
    std::string symbol;        ///< as a C programmer writes it
    std::string install_name;  ///< of the library it should be in; empty where any will do
    bool weak;                 ///< the image copes without it
    void* target = nullptr;
};

/// A pointer of the image that was set.
struct Bind {
    uintptr_t slot;  ///< the pointer's address in this process
    size_t import;   ///< index into Image::imports()
    int64_t addend;
    BindTable table;
};

/// Returns a symbol's address, or null where there is none. It is asked once for each import, with `target`
/// null. What it throws leaves the load as it is.
using Resolver = std::function<void*(const Import&)>;

struct Binding {
    std::vector<Import> imports;
    std::vector<Bind> binds;
};

/// Binds all of the tables at once, lazy ones too. A missing symbol that is not a weak import is a Fault,
/// which lists all of them.
Binding bind_all(const Layout& layout, const Bytes& slice, const ExportTable& exports, Mapping& mapping,
                 const Resolver& resolver);

/// Where an export is in this process.
void* address_of(const Export& found, const Layout& layout, const Mapping& mapping);

}  // namespace macho

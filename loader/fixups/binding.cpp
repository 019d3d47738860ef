#include "loader/fixups/binding.h"

#include <cstdlib>
#include <map>
#include <tuple>

#include "loader/fault.h"
#include "loader/fixups/threaded.h"
#include "objc/pointer_signature.h"

namespace macho {
namespace {

/// What lazy pointers go through until they are bound. All of them are bound at load.
[[noreturn]] void stub_binder() { std::abort(); }

class Binder {
  public:
    Binder(const Layout& layout, const ExportTable& exports, Mapping& mapping, const Resolver& resolver)
        : layout_(layout),
          exports_(exports),
          mapping_(mapping),
          resolver_(resolver) {}

    void bind(const Bytes& opcodes, BindTable table) {
        for (const BindRow& row : read_binds(opcodes, table, layout_)) {
            const size_t import = import_of(row, table);
            const uintptr_t slot = mapping_.address_of(row.address);
            set(slot, result_.imports[import].target, row.addend, table);
            result_.binds.push_back({slot, import, row.addend, table});
        }
    }

    /// The pointers into the image, too: they stand in the same chains.
    void bind_threaded(const ThreadedFixups& fixups) {
        std::vector<size_t> imports;
        for (const BindRow& row : fixups.rows) imports.push_back(import_of(row, BindTable::regular));
        for (const ThreadedPointer& pointer : fixups.pointers) {
            const uintptr_t slot = mapping_.address_of(pointer.address);
            if (!pointer.row) {
                mapping_.write_pointer(slot, signed_as(pointer, mapping_.address_of(pointer.target)),
                                       "a chained pointer");
                continue;
            }
            const size_t import = imports[*pointer.row];
            const auto target = reinterpret_cast<uintptr_t>(result_.imports[import].target);
            const uintptr_t bound = target + static_cast<uintptr_t>(pointer.addend);
            mapping_.write_pointer(slot, target ? signed_as(pointer, bound) : 0, "a bound pointer");
            result_.binds.push_back({slot, import, pointer.addend, BindTable::regular});
        }
    }

    Binding finish() {
        std::string missing;
        unsigned count = 0;
        for (const Import& import : result_.imports) {
            if (import.target || import.weak) continue;
            missing += (count++ ? ", " : "") + import.symbol;
            if (!import.install_name.empty()) missing += " (from " + import.install_name + ")";
        }
        if (count)
            refuse(std::to_string(count) + (count == 1 ? " symbol is missing: " : " symbols are missing: ") +
                   missing);
        return std::move(result_);
    }

  private:
    size_t import_of(const BindRow& row, BindTable table) {
        // A definition to be shared is there already: the image's own, until another is found.
        const Dependency* library = library_of(row);
        const bool weak = row.weak_import || table == BindTable::weak || (library && library->left_out);
        const auto [known, is_new] =
            index_.try_emplace({row.symbol, row.ordinal, weak}, result_.imports.size());
        if (is_new) {
            Import import{.symbol = std::string(c_name(row.symbol)),
                          .install_name = library ? library->install_name : "",
                          .weak = weak};
            if (!library || !library->left_out) import.target = resolve(row, import);
            result_.imports.push_back(std::move(import));
        }
        return known->second;
    }

    uintptr_t signed_as(const ThreadedPointer& pointer, uintptr_t target) const {
        if (!pointer.signature) return target;
        const auto& [key, address_mixed_in, discriminator] = *pointer.signature;
        if (key != PointerSignature::kInstructionA)
            refuse("a pointer is signed with a key that is not supported (found key " + std::to_string(key) +
                   " at " + hex(pointer.address) + ", expected 0, IA)");
        const uintptr_t slot = mapping_.address_of(pointer.address);
        return objc::signed_pointer(target,
                                    objc::signature_modifier(address_mixed_in ? slot : 0, discriminator));
    }

    /// Null for a special ordinal.
    const Dependency* library_of(const BindRow& row) const {
        return row.ordinal > 0 ? &layout_.libraries[static_cast<size_t>(row.ordinal - 1)] : nullptr;
    }

    void* resolve(const BindRow& row, const Import& import) const {
        if (import.symbol == "dyld_stub_binder") return reinterpret_cast<void*>(&stub_binder);
        if (row.ordinal != BIND_SPECIAL_DYLIB_SELF)
            if (void* found = resolver_(import)) return found;
        const bool own_counts = row.ordinal <= 0 && row.ordinal != BIND_SPECIAL_DYLIB_MAIN_EXECUTABLE;
        const auto own = own_counts ? exports_.find(row.symbol) : exports_.end();
        return own == exports_.end() ? nullptr : address_of(own->second, layout_, mapping_);
    }

    void set(uintptr_t slot, void* target, int64_t addend, BindTable table) {
        const auto address = reinterpret_cast<uintptr_t>(target);
        if (target)
            mapping_.write_pointer(slot, address + static_cast<uintptr_t>(addend), "a bound pointer");
        else if (table != BindTable::weak)
            mapping_.write_pointer(slot, 0, "a bound pointer");
    }

    const Layout& layout_;
    const ExportTable& exports_;
    Mapping& mapping_;
    const Resolver& resolver_;
    std::map<std::tuple<std::string_view, int64_t, bool>, size_t> index_;
    Binding result_;
};

}  // namespace

Binding bind_all(const Layout& layout, const Bytes& slice, const ExportTable& exports, Mapping& mapping,
                 const Resolver& resolver) {
    Binder binder(layout, exports, mapping, resolver);
    if (layout.arm64e) {
        binder.bind_threaded(read_threaded(slice, layout));
        return binder.finish();
    }
    const auto table = [&](FileRange range) { return slice.part(range.offset, range.size, "a bind table"); };
    binder.bind(table(layout.bind), BindTable::regular);
    binder.bind(table(layout.weak_bind), BindTable::weak);
    binder.bind(table(layout.lazy_bind), BindTable::lazy);
    return binder.finish();
}

void* address_of(const Export& found, const Layout& layout, const Mapping& mapping) {
    const uintptr_t address =
        found.absolute ? found.value : mapping.address_of(layout.header_address + found.value);
    return reinterpret_cast<void*>(address);
}

}  // namespace macho

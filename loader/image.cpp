#include "loader/image.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <utility>

#include "loader/fault.h"
#include "loader/fixups/rebase.h"
#include "loader/format/exports.h"
#include "loader/format/slice.h"
#include "loader/unwinding/frame_table.h"
#include "loader/unwinding/unwinding.h"

namespace macho {
namespace {

constexpr uintmax_t kLargestFile = 256 << 20;

/// Says which file a Fault is about.
template <class Step>
auto naming_the_file(const std::string& name, Step step) {
    try {
        return step();
    } catch (const Fault& fault) {
        throw Error(name + ": cannot load: " + fault.what());
    }
}

std::vector<uint8_t> read_file(const std::filesystem::path& path) {
    std::error_code error;
    const uintmax_t size = std::filesystem::file_size(path, error);
    if (error) refuse("cannot read " + path.string() + ": " + error.message());
    if (size > kLargestFile)
        refuse("too large (found " + std::to_string(size) + " bytes, expected at most " +
               std::to_string(kLargestFile) + ")");
    std::vector<uint8_t> bytes(size);
    std::ifstream file(path, std::ios::binary);
    if (!file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size)))
        refuse("cannot read " + path.string() + ": " + strerror(errno));
    return bytes;
}

}  // namespace

/// What other parts of the process come to point to.
struct Image::Resident {
    Resident(const Layout& layout, const Bytes& slice) : mapping(layout, slice) {}

    Mapping mapping;
    FrameTable frames;  // destroyed first: it is about the mapping
};

Image Image::load(const std::filesystem::path& path, const Resolver& resolver, const Rules& rules) {
    const std::string name = path.filename();
    const auto file = naming_the_file(name, [&] { return read_file(path); });
    return load_bytes(file, name, resolver, rules);
}

Image Image::load_bytes(std::span<const uint8_t> file, std::string name, const Resolver& resolver,
                        const Rules& rules, FileType type, Process process) {
    return naming_the_file(name, [&] {
        const Bytes bytes(file, "the file");
        if (rules.slices) check_slices(bytes);
        return Image(name, choose_slice(bytes, kThisCpu, type, process), resolver, rules);
    });
}

Image::Image(std::string name, const Bytes& slice, const Resolver& resolver, const Rules& rules)
    : name_(std::move(name)) {
    layout_ = read_layout(slice);
    hold_to(rules, slice, layout_);
    resident_ = std::make_unique<Resident>(layout_, slice);
    fix_up(slice, resolver);
    find_initialisers();
    find_entry();
    resident_->mapping.protect();
    describe_frames(layout_, resident_->mapping, resident_->frames);
    resident_->frames.publish();
}

Image::Image(Image&&) noexcept = default;

Image::~Image() {
    // Kept where the leak checker finds it.
    static auto& resident_for_good = *new std::vector<std::unique_ptr<Resident>>;
    if (resident_ && stays_mapped_) resident_for_good.push_back(std::move(resident_));
}

void Image::fix_up(const Bytes& slice, const Resolver& resolver) {
    Mapping& mapping = resident_->mapping;
    const auto table = [&](FileRange range, std::string_view what) {
        return slice.part(range.offset, range.size, what);
    };

    for (const uint64_t file_address : read_rebases(table(layout_.rebase, "the rebase table"), layout_)) {
        const uintptr_t slot = mapping.address_of(file_address);
        mapping.write_pointer(slot, mapping.read_pointer(slot, "a pointer to rebase") + mapping.slide(),
                              "a pointer to rebase");
    }

    const ExportTable offered = read_exports(table(layout_.exports, "the export trie"));
    for (const auto& [symbol, found] : offered) {
        if (!found.absolute && found.value > layout_.extent)
            refuse("the export " + symbol + " lies outside the image (found " + hex(found.value) +
                   ", expected at most " + hex(layout_.extent) + ")");
        exports_.emplace(c_name(symbol), address_of(found, layout_, mapping));
    }
    binding_ = bind_all(layout_, slice, offered, mapping, resolver);
}

void Image::find_initialisers() {
    for (const Section& section : layout_.sections) {
        if (section.type != S_MOD_INIT_FUNC_POINTERS) continue;
        for (const uintptr_t slot : resident_->mapping.pointers_in(section)) {
            const uintptr_t initialiser = resident_->mapping.read_pointer(slot, "an initialiser");
            if (!resident_->mapping.is_code(initialiser))
                refuse("section " + section.name +
                       " lists an initialiser that is not code of the image (found " +
                       hex(initialiser - resident_->mapping.slide()) + ")");
            initialisers_.push_back(initialiser);
        }
    }
}

void Image::find_entry() {
    if (!layout_.entry) return;
    entry_ = resident_->mapping.address_of(layout_.header_address) + *layout_.entry;
}

void* Image::symbol(std::string_view name) const {
    const auto found = exports_.find(name);
    return found == exports_.end() ? nullptr : found->second;
}

std::vector<std::string> Image::missing() const {
    std::vector<std::string> names;
    for (const Import& import : binding_.imports)
        if (!import.target) names.push_back(import.symbol);
    return names;
}

void Image::run_initialisers() {
    stay_mapped();
    // The device passes the program's arguments; nothing of ours looks at them.
    using Initialiser = void (*)(int, const char**, const char**, const char**, const void*);
    for (const uintptr_t initialiser : std::exchange(initialisers_, {}))
        reinterpret_cast<Initialiser>(initialiser)(0, nullptr, nullptr, nullptr, nullptr);
}

int Image::run_main(const std::vector<const char*>& arguments, const char* const* environment) {
    run_initialisers();
    std::vector<const char*> vector = arguments;
    vector.push_back(nullptr);
    using Main = int (*)(int, const char**, const char* const*, const char**);
    const char* nothing_of_the_loaders = nullptr;
    return reinterpret_cast<Main>(entry_)(static_cast<int>(arguments.size()), vector.data(), environment,
                                          &nothing_of_the_loaders);
}

const Mapping& Image::mapping() const { return resident_->mapping; }
Mapping& Image::mapping() { return resident_->mapping; }

}  // namespace macho

// Writes docs/contract.md, what others may rely on, from the dylib itself: huecraft_contract <page>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>

#include "files.h"
#include "loader/fault.h"
#include "loader/format/exports.h"
#include "loader/format/layout.h"
#include "loader/format/slice.h"
#include "objc/strong.h"
#include "objc_metadata_text.h"
#include "platform/coregraphics.h"
#include "protocols.h"
#include "support/phone.h"
#include "support/theme_choice.h"

namespace contract {
namespace {

namespace fs = std::filesystem;
using tools::Failure;

constexpr const char* device_slice = HUECRAFT_SLICES "/arm64/HuecraftiOS12.dylib";
#if defined(__aarch64__)
constexpr const char* running_slice = device_slice;
#else
constexpr const char* running_slice = HUECRAFT_SLICES "/x86_64/HuecraftiOS12.dylib";
#endif
constexpr const char* springboard = "/System/Library/CoreServices/SpringBoard.app/SpringBoard";

std::string contents_of(const fs::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

struct Folder {
    Folder() {
        std::string pattern = (fs::temp_directory_path() / "huecraft-contract-XXXXXX").string();
        if (!mkdtemp(pattern.data())) throw Failure("cannot make a folder for the phone");
        path = pattern;
    }
    ~Folder() { fs::remove_all(path); }
    Folder(const Folder&) = delete;
    fs::path path;
};

// --- What the file says ---

Classes classes_of_device() {
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(
        popen((std::string("'" OBJDUMP "' --macho --objc-meta-data '") + device_slice + "'").c_str(), "r"),
        pclose);
    std::string printed;
    char chunk[4096];
    while (const size_t count = std::fread(chunk, 1, sizeof chunk, pipe.get())) printed.append(chunk, count);
    Classes classes = parse_metadata(printed);
    if (classes.empty()) throw Failure(std::string(device_slice) + ": found no classes");
    return classes;
}

struct Binary {
    std::set<std::string> exports, texts;
    std::vector<Protocol> protocols;  // of ours
};

class DeviceSlice {
  public:
    explicit DeviceSlice(const std::string& bytes)
        : slice_(macho::choose_slice(
              {{reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()}, "the dylib"},
              macho::Cpu::arm64)),
          layout_(macho::read_layout(slice_)) {}

    Binary read() const {
        Binary binary;
        for (const auto& [name, where] : macho::read_exports(
                 slice_.part(layout_.exports.offset, layout_.exports.size, "the export trie")))
            binary.exports.insert(std::string(macho::c_name(name)));
        binary.texts = texts_in("__cstring");
        if (const macho::Section* list = layout_.section("__objc_protolist"))
            for (uint64_t at = 0; at < list->size; at += macho::kPointerSize) {
                Protocol found = protocol(word(list->address + at));
                if (found.name.starts_with("HC")) binary.protocols.push_back(std::move(found));
            }
        std::ranges::sort(binary.protocols, {}, &Protocol::name);
        return binary;
    }

  private:
    // Until the image is loaded, pointers are addresses as in the file.
    uint64_t word(uint64_t address) const { return slice_.u64(offset_of(address)); }
    std::string text(uint64_t address) const { return std::string(slice_.text(offset_of(address))); }

    /// protocol_t: the name is its second word, the lists of methods are from the fourth on, the types with
    /// classes, of all methods in that order, the tenth.
    Protocol protocol(uint64_t address) const {
        constexpr uint64_t lists = 24, types = 72, row_size = 24;
        Protocol found{text(word(address + 8)), {}};
        uint64_t with_classes = word(address + types);
        for (const auto& [side, optional] :
             {std::pair("-", false), std::pair("+", false), std::pair("-", true), std::pair("+", true)}) {
            const uint64_t index = (side[0] == '+') + 2 * optional;
            const uint64_t list = word(address + lists + index * macho::kPointerSize);
            const uint32_t count = list ? slice_.u32(offset_of(list + 4)) : 0;
            for (uint32_t i = 0; i < count; ++i, with_classes += macho::kPointerSize)
                found.methods.push_back(
                    {side + text(word(list + 8 + i * row_size)), text(word(with_classes)), optional});
        }
        return found;
    }

    std::set<std::string> texts_in(const char* name) const {
        std::set<std::string> found;
        const macho::Section* section = layout_.section(name);
        if (!section) return found;
        const macho::Bytes texts = slice_.part(offset_of(section->address), section->size, "the texts");
        for (uint64_t at = 0; at < texts.size(); at += texts.text(at).size() + 1)
            found.emplace(texts.text(at));
        return found;
    }

    uint64_t offset_of(uint64_t address) const {
        for (const macho::Segment& segment : layout_.segments)
            if (address >= segment.address && address - segment.address < segment.file_size)
                return segment.file_offset + (address - segment.address);
        throw Failure("the dylib points to " + macho::hex(address) + ", which it does not hold");
    }

    macho::Bytes slice_;
    macho::Layout layout_;
};

// --- What it does when it is loaded ---

enum class Phone { daemon, theming_off, caps_visible, caps_hidden };

/// A line for each hook in the order of installation, and one for each exported point.
std::vector<std::string> observed(Phone kind, const std::set<std::string>& points) {
    const Folder folder;
    const fs::path device = folder.path / "device", lines = folder.path / "lines";
    const fs::path themes = device / "var/mobile/Library/Preferences/HuecraftConfiguration";
    fs::create_directories(themes);
    std::ofstream(themes / "Theme.plist")
        << "{ _TextColor = \"#FFFFFF\"; _VisibleKeycaps = " << (kind == Phone::caps_visible ? "YES" : "NO")
        << "; }\n";
    tools::in_child_process("watching the library being loaded", [&] {
        tools::boot(device, kind == Phone::daemon ? "/usr/libexec/keyboardd" : springboard);
        objc::AutoreleasePool pool;
        tools::choose_theme(kind == Phone::theming_off ? "" : "Theme.plist");
        sim_library* library = nullptr;
        tools::require(sim_load(running_slice, &library), "loading the library");
        std::ofstream out(lines);
        for (size_t i = 0; i < sim_installing_call_count(); ++i) {
            sim_installing_call call;
            tools::require(sim_installing_call_at(i, &call), "reading the hooks");
            if (call.kind == SIM_HOOK_FUNCTION)
                out << "function `" << call.name << "` | replaced\n";
            else if (!call.class_name)
                throw Failure(std::string("the simulator has no class for the hook of ") + call.name);
            else
                out << (call.on_class ? "class" : "instance") << " | `" << call.class_name << "` | `"
                    << call.name << "` | "
                    << (call.kind == SIM_ADD_METHOD ? std::string("added as `") + call.types + "`"
                                                    : "replaced")
                    << "\n";
        }
        for (const std::string& name : points) {
            void* address = nullptr;
            tools::require(sim_symbol(library, name.c_str(), &address), "finding " + name);
            const auto* point = static_cast<const CGPoint*>(address);
            out << "point | `" << name << "` | (" << point->x << ", " << point->y << ")\n";
        }
    });
    std::vector<std::string> found;
    std::ifstream in(lines);
    for (std::string line; std::getline(in, line);) found.push_back(line);
    return found;
}

// --- The page ---

void table(std::ostream& page, const std::string& what, const std::string& of,
           const std::vector<std::string>& rows) {
    if (rows.empty()) return;
    page << "| " << what << " | " << of << " |\n|---|---|\n";
    for (const std::string& row : rows) {
        const size_t space = row.find(' ');
        page << "| `" << row.substr(0, space) << "` | `" << row.substr(space + 1) << "` |\n";
    }
    page << "\n";
}

void write_classes(std::ostream& page, const Binary& binary, const Classes& classes) {
    page << "## Classes\n\nTypes are the runtime's encodings on arm64.\n\n";
    for (const auto& [name, facts] : classes) {
        page << "### " << name << "\n\nSuperclass `" << facts.superclass << "`";
        for (size_t i = 0; i < facts.protocols.size(); ++i)
            page << (i ? ", `" : "; adopts `") << facts.protocols[i] << "`";
        page << (binary.exports.contains("OBJC_CLASS_$_" + name) ? "; exported" : "; not exported")
             << ".\n\n";
        table(page, "instance variable", "type", facts.variables);
        table(page, "property", "attributes", facts.properties);
        table(page, "method", "types", {facts.methods.begin(), facts.methods.end()});
    }
}

/// The classes with a variable that is typed by the protocol.
std::string keepers_of(const std::string& protocol, const Classes& classes) {
    std::string found;
    for (const auto& [name, facts] : classes)
        if (std::ranges::any_of(facts.variables, [&](const std::string& variable) {
                return variable.ends_with("@\"<" + protocol + ">\"");
            }))
            found += (found.empty() ? "`" : ", `") + name + "`";
    return found;
}

void write_protocols(std::ostream& page, const Binary& binary, const Classes& classes) {
    if (binary.protocols.empty()) return;
    page << "## Protocols\n\nOf an optional method the sender asks `respondsToSelector:` first.\n\n"
            "| protocol | of the delegate of | method | needed | types |\n|---|---|---|---|---|\n";
    for (const auto& [protocol, methods] : binary.protocols)
        for (const auto& [method, types, optional] : methods)
            page << "| `" << protocol << "` | " << keepers_of(protocol, classes) << " | `" << method << "` | "
                 << (optional ? "optional" : "required") << " | `" << types << "` |\n";
    page << "\n";
}

void write_constants_and_hooks(std::ostream& page, const Binary& binary) {
    std::set<std::string> points;
    for (const std::string& name : binary.exports) {
        if (name.starts_with("OBJC_CLASS_$_") || name.starts_with("OBJC_METACLASS_$_")) continue;
        if (!name.starts_with("kGradient") && !name.starts_with("kHCGradient"))
            throw Failure("the export " + name + " is neither a class nor a point: tools/contract/main.cpp " +
                          "does not know how to describe it");
        points.insert(name);
    }
    const auto all = observed(Phone::caps_hidden, points), visible = observed(Phone::caps_visible, {}),
               off = observed(Phone::theming_off, {}), daemon = observed(Phone::daemon, {});
    const auto is_in = [](const std::vector<std::string>& lines, const std::string& line) {
        return std::ranges::find(lines, line) != lines.end();
    };

    page << "## Exported constants\n\n| name | `CGPoint`, in units of a layer |\n|---|---|\n";
    for (const std::string& line : all)
        if (line.starts_with("point")) page << line.substr(6) << " |\n";
    page << "\n## Hooks\n\nIn SpringBoard and in applications, in the order of installation.\n\n"
         << "| row | side | class | selector | how | when |\n|---|---|---|---|---|---|\n";
    size_t row = 0;
    std::string functions;
    for (const std::string& line : all) {
        if (line.starts_with("point")) continue;
        if (line.starts_with("function")) {
            functions += "- The " + line.substr(0, line.find(" |")) + " is replaced in " +
                         (is_in(daemon, line) ? "every process" : "SpringBoard and in applications") + ".\n";
            continue;
        }
        page << "| " << ++row << " | " << line << " | "
             << (is_in(off, line)       ? "always"
                 : is_in(visible, line) ? "theming is on"
                                        : "theming is on, key caps are hidden")
             << " |\n";
    }
    page << "\n" << functions << "\n";
}

void write_files(std::ostream& page, const Binary& binary) {
    page << "## Files\n\n| path | access | keys |\n|---|---|---|\n";
    for (const File& file : files_named_in(binary.texts)) {
        page << "| `" << file.path << "` | " << file.access << " | ";
        for (size_t i = 0; i < file.keys.size(); ++i) page << (i ? ", `" : "`") << file.keys[i] << "`";
        page << " |\n";
    }
}

void write(const fs::path& path) {
    const std::string bytes = contents_of(device_slice);
    const Binary binary = DeviceSlice(bytes).read();
    std::ostringstream page;
    page
        << "# The contract\n\n"
           "What others may rely on. Made from the dylib that ships; do not edit it: `./dev pages` writes it "
           "again, and a test fails\nwhen page and dylib part.\n\n";
    const Classes classes = classes_of_device();
    write_classes(page, binary, classes);
    write_protocols(page, binary, classes);
    write_constants_and_hooks(page, binary);
    write_files(page, binary);
    std::ofstream file(path, std::ios::binary);
    file << page.str();
    if (!file.flush()) throw Failure(path.string() + ": cannot be written");
}

}  // namespace
}  // namespace contract

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: huecraft_contract <page>\n", stderr);
        return 2;
    }
    try {
        contract::write(argv[1]);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "huecraft_contract: %s\n", failure.what());
        return 1;
    }
    return 0;
}

// A library built for the device: our own loader maps it and makes its classes classes of the runtime.
#include <algorithm>
#include <climits>
#include <new>
#include <span>

#include "interface/imports.h"
#include "interface/library.h"
#include "interface/macho_image.h"
#include "interface/refusal.h"
#include "loader/image.h"
#include "loader/objc/objc_import.h"
#include "objc/pointer_signature.h"
#include "objc/runtime.h"
#include "phone/device.h"
#include "runtime/injection/authentication.h"
#include "runtime/injection/installing_calls.h"

namespace sim {
namespace {

class MachoLibrary final : public Library {
  public:
    MachoLibrary(macho::Image image, std::vector<std::string> classes, double initialiser_seconds)
        : Library(std::move(classes), initialiser_seconds),
          image_(std::move(image)) {}

    bool is_installed_as(std::string_view install_name) const override {
        return image_.layout().install_name == install_name;
    }

    const void* start_if_it_holds(const void* address) const override {
        const macho::Mapping& mapping = image_.mapping();
        if (!mapping.contains(reinterpret_cast<uintptr_t>(address))) return nullptr;
        return reinterpret_cast<const void*>(mapping.address_of(image_.layout().header_address));
    }

  private:
    void* exported(const std::string& name) const override { return image_.symbol(name); }

    macho::Image image_;
};

/// A constant string as the device's compiler lays it out, and as Foundation's own does.
struct DeviceString {
    Class isa;
    int flags;
    const char* characters;
    long length;

    static constexpr int ascii_flags = 0x7c8;
};
struct FoundationString {
    Class isa;
    const char* characters;
    unsigned length;
};
static_assert(sizeof(DeviceString) == 32 && sizeof(FoundationString) <= sizeof(DeviceString));

/// Makes the image's strings of ASCII constant strings of Foundation itself, where they are. Foundation
/// compares strings of other classes unit by unit, by message; on the device no string is compared faster
/// than these.
void adopt_strings(const macho::Image& image) {
    const macho::Section* section = image.layout().section("__cfstring");
    if (!section) return;
    const macho::Mapping& mapping = image.mapping();
    const uintptr_t start = mapping.address_of(section->address);
    if (start % alignof(DeviceString) || !mapping.is_writable(start, section->size)) return;
    const std::span strings(reinterpret_cast<DeviceString*>(start), section->size / sizeof(DeviceString));
    Class own = objc_getClass("NSConstantString");
    for (DeviceString& string : strings) {
        const DeviceString found = string;
        if (found.flags != DeviceString::ascii_flags || found.length < 0 || found.length > INT_MAX) continue;
        new (&string) FoundationString{own, found.characters, static_cast<unsigned>(found.length)};
    }
}

macho::Process loading_process() {
    switch (device().process) {
        case Process::arm64: return macho::Process::arm64;
        case Process::arm64_on_a12: return macho::Process::arm64_on_a12;
        case Process::arm64e: return macho::Process::arm64e;
    }
    __builtin_unreachable();
}

/// The image, mapped and bound. The file's contents are gone by the time that anything of it runs.
macho::Image image_of(const std::string& host_path, std::string contents, macho::FileType type) {
    const std::span file(reinterpret_cast<const uint8_t*>(contents.data()), contents.size());
    const auto resolve = [](const macho::Import& import) {
        // An import names its library. What another one has under the name is not meant.
        const Library* library = library_installed_as(import.install_name);
        return library ? library->symbol(import.symbol) : resolve_import(import.symbol);
    };
    if (device().process != Process::arm64e && objc::processor_authenticates())
        throw Refusal(SIM_MISUSE,
                      "this machine's processor authenticates addresses; what is built for the device "
                      "runs on it in an arm64e process alone");
    auto image = macho::Image::load_bytes(file, host_path, resolve, macho::Rules{}, type, loading_process());
    if (image.layout().arm64e && device().process == Process::arm64e) {
        const uintptr_t start = image.mapping().address_of(image.layout().start);
        note_authenticating_image(reinterpret_cast<const void*>(start), image.layout().extent);
    }
    return image;
}

}  // namespace

LoadedImage load_image(const std::string& host_path, std::string contents, macho::FileType type) {
    auto image = image_of(host_path, std::move(contents), type);
    adopt_strings(image);
    auto classes = [&] {
        const AddingCategories adding;
        return macho::import_classes(image).registered;
    }();
    std::sort(classes.begin(), classes.end());
    return {std::move(image), std::move(classes)};
}

std::unique_ptr<Library> load_macho(const std::string& host_path, std::string contents) try {
    auto [image, classes] = load_image(host_path, std::move(contents), macho::FileType::dylib);
    const double seconds = processor_seconds_of([&image = image] { image.run_initialisers(); });
    return std::make_unique<MachoLibrary>(std::move(image), std::move(classes), seconds);
} catch (const macho::Error& error) {
    throw Refusal(SIM_BAD_FILE, std::string("cannot load ") + error.what());
}

}  // namespace sim

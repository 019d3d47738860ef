// A library built for the device: our own loader maps it and makes its classes classes of the runtime.
#include <algorithm>
#include <span>

#include "device/imports.h"
#include "device/library.h"
#include "device/refusal.h"
#include "loader/image.h"
#include "loader/objc_import.h"

namespace sim {
namespace {

class MachoLibrary final : public Library {
  public:
    MachoLibrary(macho::Image image, std::vector<std::string> classes, double initialiser_seconds)
        : Library(std::move(classes), initialiser_seconds),
          image_(std::move(image)) {}

  private:
    void* exported(const std::string& name) const override { return image_.symbol(name); }

    macho::Image image_;
};

}  // namespace

std::unique_ptr<Library> load_macho(const std::string& host_path, std::string_view contents) try {
    const std::span file(reinterpret_cast<const uint8_t*>(contents.data()), contents.size());
    auto image = macho::Image::load_bytes(
        file, host_path, [](const macho::Import& import) { return resolve_import(import.symbol); });
    auto classes = macho::import_classes(image).registered;
    std::sort(classes.begin(), classes.end());
    const double seconds = processor_seconds([&] { image.run_initialisers(); });
    return std::make_unique<MachoLibrary>(std::move(image), std::move(classes), seconds);
} catch (const macho::Error& error) {
    throw Refusal(SIM_BAD_FILE, std::string("cannot load ") + error.what());
}

}  // namespace sim

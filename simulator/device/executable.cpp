// A main executable runs inside the process that booted the phone, as the library does.
#include "device/executable.h"

#include <memory>

#include "device/file_system.h"
#include "device/library.h"
#include "device/macho_image.h"
#include "device/process_arguments.h"
#include "device/refusal.h"

namespace sim {
namespace {

std::string& running() {
    static std::string path;
    return path;
}

}  // namespace

const std::string& running_executable() { return running(); }

int run_executable(const std::string& device_path, const std::vector<std::string>& arguments) try {
    const auto host = host_path(device_path);
    if (!host) throw Refusal(SIM_NOT_FOUND, "the phone has no " + device_path);
    LoadedImage loaded = load_image(*host, contents_of(*host), macho::FileType::executable);
    running() = device_path;
    claim_arguments(arguments);
    std::vector<const char*> vector;
    for (const std::string& argument : arguments) vector.push_back(argument.c_str());
    const char* const no_environment = nullptr;
    return loaded.image.run_main(vector, &no_environment);
} catch (const macho::Error& error) {
    throw Refusal(SIM_BAD_FILE, std::string("cannot run ") + error.what());
}

}  // namespace sim

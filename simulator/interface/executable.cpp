// A main executable runs inside the process that booted the phone, as the library does.
#include "interface/executable.h"

#include <memory>

#include "foundation/process_arguments.h"
#include "interface/library.h"
#include "interface/macho_image.h"
#include "interface/refusal.h"
#include "phone/file_system.h"

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

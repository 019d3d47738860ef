#include "settings/bundle_code.h"

#include "foundation/text.h"
#include "objc/string.h"

namespace sim {
namespace {

using namespace objc::literals;

LoadCode& loader() {
    static auto* load = new LoadCode;
    return *load;
}

}  // namespace

void load_bundles_with(LoadCode load) { loader() = std::move(load); }

bool load_bundle(NSBundle* bundle, std::string& error) {
    const std::string path = utf8_of(bundle->bundlePath()).value_or("");
    auto* name = as<NSString>(bundle->infoDictionary()->objectForKey("CFBundleExecutable"_ns));
    if (!name) {
        error = path + "/Info.plist names no CFBundleExecutable";
        return false;
    }
    return loader()(path + "/" + utf8_of(name).value_or(""), path, error);
}

}  // namespace sim

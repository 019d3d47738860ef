#include "doctor/model.h"

#include "doctor/method_types.h"

namespace command {
namespace {

/// A class of UIKit's or Core Animation's, or the home screen's. Foundation's are GNUstep's own.
bool is_modelled(const std::string& name) {
    for (const char* start : {"UI", "_UI", "CA", "NSLayout", "FBSystemApp", "SpringBoard"})
        if (name.starts_with(start)) return true;
    return false;
}

class Model {
  public:
    Model(const std::map<std::string, ClassRecord>& classes, const DeviceDescription& system)
        : classes_(classes),
          system_(system) {}

    std::vector<std::string> differences() {
        for (const auto& [name, facts] : classes_) {
            if (!is_modelled(name)) continue;
            if (system_.class_named(name) != Presence::there) {
                // Descriptions select classes: what they leave out may be there.
                report(Presence::unrecorded, "class " + name);
                continue;
            }
            const std::string& above = system_.classes().at(name).superclass;
            if (facts.superclass != above)
                found_.push_back("superclass " + name + ": " + facts.superclass + ", not " + above);
            for (const auto& [method, types] : facts.methods) {
                const std::string written = method.substr(0, 1) + "[" + name + " " + method.substr(1) + "]";
                compare(written, types, system_.method(written));
            }
            for (const auto& [variable, types] : facts.variables)
                compare("variable " + name + " " + variable, types, system_.variable(name, variable));
        }
        return found_;
    }

  private:
    void report(Presence presence, const std::string& what) {
        if (presence == Presence::missing) found_.push_back("missing " + what);
        if (presence == Presence::unrecorded) found_.push_back("unrecorded " + what);
    }
    void compare(const std::string& what, const std::string& types, const Member& real) {
        // The runtime's own, which no description of a system has everywhere.
        if (what.ends_with(" .cxx_destruct]") || what.ends_with(" .cxx_construct]")) return;
        // Of a class that is described in part, no variables are recorded.
        if (what.starts_with("variable ") && real.presence == Presence::unrecorded) return;
        if (real.presence != Presence::there)
            report(real.presence, what);
        else if (!types.empty() && !real.types.empty() && !compatibility::pass_alike(types, real.types))
            found_.push_back("types " + what + ": " + types + ", not " + real.types);
    }

    const std::map<std::string, ClassRecord>& classes_;
    const DeviceDescription& system_;
    std::vector<std::string> found_;
};

}  // namespace

std::vector<std::string> model_differences(const std::map<std::string, ClassRecord>& model,
                                           const DeviceDescription& system) {
    return Model(model, system).differences();
}

}  // namespace command

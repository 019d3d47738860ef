// The hook table, from the calls that the library makes when it is loaded.
#include "doctor/hook_rows.h"

#include <cstdlib>
#include <map>
#include <memory>
#include <set>

#include "compatibility/subjects.h"
#include "doctor/device_description.h"
#include "doctor/hook_effects.h"
#include "doctor/method_types.h"
#include "doctor/replacement_types.h"
#include "objc/strong.h"
#include "platform/uikit.h"
#include "support/phone.h"
#include "support/text.h"
#include "support/theme_choice.h"

extern "C" Ivar* class_copyIvarList(Class, unsigned* count);

namespace command {
namespace {

constexpr const char* springboard = "/System/Library/CoreServices/SpringBoard.app/SpringBoard";

void boot(const Workshop& workshop) {
    workshop.place_theme("worn.plist", "{ _TextColor = \"#FFFFFF\"; _VisibleKeycaps = NO; }");
    tools::boot(workshop.device, springboard);
    objc::AutoreleasePool pool;
    tools::choose_theme("worn.plist");
}

std::vector<HookRow> rows_of_the_library() {
    tools::load(library());
    tools::require_theme();
    std::vector<HookRow> rows;
    for (size_t i = 0; i < sim_installing_call_count(); ++i) {
        sim_installing_call call;
        tools::require(sim_installing_call_at(i, &call), "reading the hooks");
        if (call.kind == SIM_HOOK_FUNCTION) {
            rows.push_back({call.name, HookRow::How::function, ""});
            continue;
        }
        if (!call.class_name)
            throw tools::Failure(std::string("the simulator has no class for the hook of ") + call.name);
        const std::string target =
            std::string(call.on_class ? "+[" : "-[") + call.class_name + " " + call.name + "]";
        rows.push_back({target, call.kind == SIM_ADD_METHOD ? HookRow::How::added : HookRow::How::replaced,
                        types_of_replacement(target)});
    }
    return rows;
}

struct Freed {
    void operator()(void* list) const { std::free(list); }
};

/// Types as a description has them.
std::string described_types(const char* types) { return plain_types(types ? types : ""); }

/// What a class has by itself.
ClassRecord record_of(Class described) {
    ClassRecord facts;
    if (Class above = class_getSuperclass(described)) facts.superclass = class_getName(above);
    const auto add_methods = [&](Class owner, char side) {
        unsigned count = 0;
        const std::unique_ptr<Method, Freed> list(class_copyMethodList(owner, &count));
        for (unsigned i = 0; i < count; ++i)
            facts.methods[side + std::string(sel_getName(method_getName(list.get()[i])))] =
                described_types(method_getTypeEncoding(list.get()[i]));
    };
    add_methods(described, '-');
    add_methods(object_getClass(reinterpret_cast<id>(described)), '+');
    unsigned count = 0;
    const std::unique_ptr<Ivar, Freed> list(class_copyIvarList(described, &count));
    for (unsigned i = 0; i < count; ++i)
        facts.variables[ivar_getName(list.get()[i])] = described_types(ivar_getTypeEncoding(list.get()[i]));
    return facts;
}

/// All that there are, before the library adds to them.
std::map<std::string, ClassRecord> every_class() {
    std::vector<Class> classes(static_cast<size_t>(objc_getClassList(nullptr, 0)));
    classes.resize(static_cast<size_t>(objc_getClassList(classes.data(), static_cast<int>(classes.size()))));
    std::map<std::string, ClassRecord> facts;
    for (Class each : classes) facts.emplace(class_getName(each), record_of(each));
    return facts;
}

/// The facts of classes and functions, a line each, in the order of their names.
std::string written(const std::map<std::string, ClassRecord>& records,
                    const std::set<std::string>& functions) {
    std::string classes, unrecorded, variables;
    std::map<std::string, std::string> methods;
    const auto typed = [](const std::string& types) { return (types.empty() ? "" : " " + types) + "\n"; };
    for (const auto& [name, facts] : records) {
        classes += "class " + name + (facts.superclass.empty() ? "" : " : " + facts.superclass) + "\n";
        if (facts.has_unrecorded_members) unrecorded += "unrecorded members " + name + "\n";
        for (const auto& [method, types] : facts.methods)
            methods[method.substr(0, 1) + "[" + name + " " + method.substr(1) + "]"] = typed(types);
        for (const auto& [variable, types] : facts.variables)
            variables += "variable " + name + " " + variable + typed(types);
    }
    std::string text = classes + "\n" + unrecorded + "\n";
    for (const auto& [method, types] : methods) text += method + types;
    text += "\n" + variables + "\n";
    for (const std::string& name : functions) text += "function " + name + "\n";
    return text;
}

}  // namespace

std::vector<HookRow> installed_hook_rows(const Workshop& workshop) {
    boot(workshop);
    return rows_of_the_library();
}

std::map<std::string, ClassRecord> simulated_classes(const Workshop& workshop) {
    boot(workshop);
    return every_class();
}

std::string simulated_description(const Workshop& workshop) {
    boot(workshop);
    const std::map<std::string, ClassRecord> facts = every_class();
    std::set<std::string> described, functions;
    for (const char* name : compatibility::described_classes())
        if (facts.contains(name)) described.insert(name);
    std::map<std::string, ClassRecord> records;
    for (const HookRow& row : rows_of_the_library()) {
        if (row.how == HookRow::How::function) {
            functions.insert(row.target);
            continue;
        }
        if (!described.contains(class_of_method(row.target)))
            throw tools::Failure(class_of_method(row.target) +
                                 " is hooked, and compatibility/subjects.txt does not list it");
        // A method that is inherited stands with the class that has it.
        const std::string method = row.target[0] + selector_of_method(row.target);
        for (std::string each = class_of_method(row.target); !each.empty();
             each = facts.at(each).superclass) {
            const auto found = facts.at(each).methods.find(method);
            if (found == facts.at(each).methods.end()) continue;
            records[each].methods.insert(*found);
            break;
        }
    }
    for (const std::string& owner : described) {
        records[owner] = facts.at(owner);
        for (std::string above = facts.at(owner).superclass; !above.empty();
             above = facts.at(above).superclass) {
            records[above].superclass = facts.at(above).superclass;
            records[above].has_unrecorded_members = !described.contains(above);
        }
    }
    objc::AutoreleasePool pool;
    return "# The simulated phone: the classes that the library's hooks are about, what they derive from, "
           "and "
           "what they\n# have. Made from the simulator: huecraft doctor --describe\n\nsystem " +
           tools::utf8(UIDevice::currentDevice()->systemVersion()) + "\n\n" + written(records, functions);
}

}  // namespace command

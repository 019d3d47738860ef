// The hook table, from the calls that the library makes when it is loaded.
#include "doctor/hook_rows.h"

#include <cstdlib>
#include <map>
#include <memory>
#include <set>

#include "doctor/device_description.h"
#include "doctor/hook_effects.h"
#include "objc/strong.h"
#include "support/phone.h"
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
    std::vector<HookRow> rows;
    for (size_t i = 0; i < sim_installing_call_count(); ++i) {
        sim_installing_call call;
        tools::require(sim_installing_call_at(i, &call), "reading the hooks");
        if (call.kind == SIM_HOOK_FUNCTION) {
            rows.push_back({call.name, HookRow::How::function});
            continue;
        }
        if (!call.class_name)
            throw tools::Failure(std::string("the simulator has no class for the hook of ") + call.name);
        rows.push_back({std::string(call.on_class ? "+[" : "-[") + call.class_name + " " + call.name + "]",
                        call.kind == SIM_ADD_METHOD ? HookRow::How::added : HookRow::How::replaced});
    }
    return rows;
}

struct Freed {
    void operator()(void* list) const { std::free(list); }
};

/// What a class has by itself.
struct ClassFacts {
    std::string superclass;
    std::set<std::string> methods, variables;

    explicit ClassFacts(Class described) {
        const std::string name = class_getName(described);
        if (Class above = class_getSuperclass(described)) superclass = class_getName(above);
        add_methods(described, "-[" + name + " ");
        add_methods(object_getClass(reinterpret_cast<id>(described)), "+[" + name + " ");
        unsigned count = 0;
        const std::unique_ptr<Ivar, Freed> list(class_copyIvarList(described, &count));
        for (unsigned i = 0; i < count; ++i) variables.insert(ivar_getName(list.get()[i]));
    }

  private:
    void add_methods(Class owner, const std::string& start) {
        unsigned count = 0;
        const std::unique_ptr<Method, Freed> list(class_copyMethodList(owner, &count));
        for (unsigned i = 0; i < count; ++i)
            methods.insert(start + sel_getName(method_getName(list.get()[i])) + "]");
    }
};

/// All that there are, before the library adds to them.
std::map<std::string, ClassFacts> every_class() {
    std::vector<Class> classes(static_cast<size_t>(objc_getClassList(nullptr, 0)));
    classes.resize(static_cast<size_t>(objc_getClassList(classes.data(), static_cast<int>(classes.size()))));
    std::map<std::string, ClassFacts> facts;
    for (Class each : classes) facts.emplace(class_getName(each), ClassFacts(each));
    return facts;
}

}  // namespace

std::vector<HookRow> installed_hook_rows(const Workshop& workshop) {
    boot(workshop);
    return rows_of_the_library();
}

std::string simulated_description(const Workshop& workshop) {
    boot(workshop);
    const std::map<std::string, ClassFacts> facts = every_class();
    std::set<std::string> described, functions, inherited;
    for (const LookUp& one : look_ups())
        if (facts.contains(one.class_name)) described.insert(one.class_name);
    for (const HookRow& row : rows_of_the_library()) {
        if (row.how == HookRow::How::function) {
            functions.insert(row.target);
            continue;
        }
        const std::string owner = class_of_method(row.target);
        described.insert(owner);
        // A method that is inherited stands with the class that has it.
        for (std::string above = owner; !above.empty(); above = facts.at(above).superclass) {
            const std::string method =
                row.target.substr(0, 2) + above + " " + selector_of_method(row.target) + "]";
            if (!facts.at(above).methods.contains(method)) continue;
            if (above != owner) inherited.insert(method);
            break;
        }
    }

    std::string classes, methods, variables;
    std::set<std::string> named, all_methods = inherited;
    for (const std::string& owner : described)
        for (std::string each = owner; !each.empty(); each = facts.at(each).superclass) named.insert(each);
    for (const std::string& name : named) {
        const std::string& superclass = facts.at(name).superclass;
        classes += "class " + name + (superclass.empty() ? "" : " : " + superclass) + "\n";
    }
    for (const std::string& owner : described) {
        all_methods.insert(facts.at(owner).methods.begin(), facts.at(owner).methods.end());
        for (const std::string& variable : facts.at(owner).variables)
            variables += "variable " + owner + " " + variable + "\n";
    }
    for (const std::string& method : all_methods) methods += method + "\n";
    std::string text =
        "# The simulated iOS 12.4: the classes that the library's hooks are about, what they derive from, "
        "and "
        "what\n# they have. Made from the simulator: huecraft doctor --describe\n\n" +
        classes + "\n" + methods + "\n" + variables + "\n";
    for (const std::string& name : functions) text += "function " + name + "\n";
    return text;
}

}  // namespace command

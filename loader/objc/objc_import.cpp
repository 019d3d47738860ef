#include "loader/objc/objc_import.h"

#include <algorithm>
#include <bit>
#include <map>
#include <unordered_map>

#include "loader/fault.h"
#include "loader/objc/objc_metadata.h"
#include "objc/protocol_registered.h"

namespace macho {
namespace {

id as_object(void* pointer) { return static_cast<id>(pointer); }

/// A class being made; disposed of unless it is registered.
class NewClass {
  public:
    NewClass(Class superclass, const char* name) : class_(objc_allocateClassPair(superclass, name, 0)) {
        if (!class_) refuse(std::string("the runtime does not make the class ") + name);
    }
    ~NewClass() {
        if (!registered_) objc_disposeClassPair(class_);
    }
    NewClass(const NewClass&) = delete;
    NewClass& operator=(const NewClass&) = delete;

    Class get() const { return class_; }
    Class metaclass() const { return object_getClass(as_object(class_)); }
    void register_it() {
        objc_registerClassPair(class_);
        registered_ = true;
    }

  private:
    Class class_;
    bool registered_ = false;
};

class Importer {
  public:
    explicit Importer(Image& image) : mapping_(image.mapping()), metadata_(read_objc_metadata(image)) {}

    void check_names() const {
        std::map<std::string_view, int> seen;
        for (const ClassDescription& each : metadata_.classes)
            if (objc_lookUpClass(each.name) || seen[each.name]++)
                refuse(std::string("a class named ") + each.name + " exists already");
    }

    /// The file decides what a pointer is bound to: it need not be a class.
    void check_bound_classes() const {
        std::vector<Class> known(static_cast<size_t>(objc_getClassList(nullptr, 0)));
        known.resize(static_cast<size_t>(objc_getClassList(known.data(), static_cast<int>(known.size()))));
        const auto is_class = [&](uintptr_t address) {
            return std::ranges::find(known, reinterpret_cast<Class>(address)) != known.end();
        };
        for (const ClassDescription& each : metadata_.classes)
            if (each.superclass && !each.superclass_in_image && !is_class(each.superclass))
                refuse(std::string("class ") + each.name +
                       ": its superclass is bound to something that is not a class");
        for (const CategoryDescription& each : metadata_.categories)
            if (each.extended && !each.extended_in_image && !is_class(each.extended))
                refuse(std::string("category ") + each.name +
                       ": its class is bound to something that is not a class");
    }

    ImportedClasses run() {
        for (const auto& [slot, name] : metadata_.selectors) point(slot, sel_registerName(name));
        // Before a class adopts one: by name alone it would be made without its methods.
        for (const auto& [name, required, optional] : metadata_.protocols)
            objc::protocol_named(name, {required.on_instances, required.on_class},
                                 {optional.on_instances, optional.on_class});
        for (const ClassDescription& each : metadata_.classes) import(each);
        for (const CategoryDescription& each : metadata_.categories) import(each);
        for (const uintptr_t slot : metadata_.class_references) {
            const auto own = host_class_.find(mapping_.read_pointer(slot, "a class reference"));
            if (own != host_class_.end()) point(slot, own->second);
        }
        for (const auto& [slot, name] : metadata_.protocol_references)
            point(slot, objc::protocol_named(name));
        return std::move(result_);
    }

  private:
    /// The number of times that two divides it.
    static uint32_t alignment_of(int64_t offset) {
        return static_cast<uint32_t>(std::countr_zero(static_cast<uint64_t>(offset)));
    }

    void point(uintptr_t slot, const void* target) {
        mapping_.write_pointer(slot, reinterpret_cast<uintptr_t>(target), "a reference");
    }

    void import(const ClassDescription& description) {
        Class superclass = description.superclass_in_image ? host_class_.at(description.superclass)
                                                           : reinterpret_cast<Class>(description.superclass);
        Class made = nullptr;
        if (superclass) {
            made = make(description, superclass);
            result_.registered.emplace_back(description.name);
        } else {
            result_.dropped.emplace_back(description.name);
        }
        host_class_[description.address] = made;
        host_class_[description.metaclass] = object_getClass(as_object(made));
    }

    void import(const CategoryDescription& description) {
        Class extended = description.extended_in_image ? host_class_.at(description.extended)
                                                       : reinterpret_cast<Class>(description.extended);
        if (!extended) {
            result_.dropped_categories.emplace_back(description.name);
            return;
        }
        put_methods(extended, description.instance_methods);
        put_methods(object_getClass(as_object(extended)), description.class_methods);
        for (const char* protocol : description.protocols)
            class_addProtocol(extended, objc::protocol_named(protocol));
    }

    /// A category's methods stand in for the class's own of the same selectors.
    static void put_methods(Class to, const std::vector<MethodDescription>& methods) {
        for (const auto& [name, types, code] : methods) {
            const SEL selector = sel_registerName(name);
            const auto implementation = reinterpret_cast<IMP>(code);
            if (class_addMethod(to, selector, implementation, types)) continue;
            method_setImplementation(class_getInstanceMethod(to, selector), implementation);
            __objc_update_dispatch_table_for_class(to);  // of subclasses that have been used, too
        }
    }

    Class make(const ClassDescription& description, Class superclass) {
        NewClass made(superclass, description.name);
        const std::vector<std::string> names = add_variables(made.get(), superclass, description);
        add_methods(made.get(), description.instance_methods, '-', description.name);
        add_methods(made.metaclass(), description.class_methods, '+', description.name);
        for (const char* protocol : description.protocols)
            class_addProtocol(made.get(), objc::protocol_named(protocol));
        made.register_it();
        place_variables(made.get(), description, names);
        return made.get();
    }

    /// Returns the names that the variables got.
    std::vector<std::string> add_variables(Class made, Class superclass,
                                           const ClassDescription& description) {
        std::vector<std::string> names;
        // C++ code reaches all of a class's variables from the first one. It has to start where each of the
        // others may, for the block to keep its shape behind a superclass of another size.
        uint32_t log2_alignment = 0;
        for (const auto& variable : description.variables)
            log2_alignment = std::max(log2_alignment, variable.log2_alignment);
        // Not further than as compiled: below a superclass that has kept its size, everything keeps its
        // place, and Objective-C compilers count on that of NSObject.
        if (!description.variables.empty())
            log2_alignment =
                std::min(log2_alignment, std::max(description.variables[0].log2_alignment,
                                                  alignment_of(description.variables[0].offset)));
        for (const VariableDescription& variable : description.variables) {
            std::string name = variable.name;
            if (class_getInstanceVariable(superclass, variable.name)) {
                name = std::string(description.name) + "." + variable.name;
                result_.renamed_variables.push_back(name);
            }
            const uint32_t alignment = names.empty() ? log2_alignment : variable.log2_alignment;
            if (!class_addIvar(made, name.c_str(), variable.size, static_cast<uint8_t>(alignment),
                               variable.types))
                refuse(std::string("class ") + description.name + " has the variable " + variable.name +
                       " twice");
            names.push_back(std::move(name));
        }
        return names;
    }

    void add_methods(Class to, const std::vector<MethodDescription>& methods, char side,
                     const char* class_name) {
        for (const auto& [name, types, implementation] : methods)
            if (!class_addMethod(to, sel_registerName(name), reinterpret_cast<IMP>(implementation), types))
                refuse(std::string("class ") + class_name + " has the method " + side + name + " twice");
    }

    /// Sets the offsets that the image's code reads. libobjc knows them only once the class is registered.
    void place_variables(Class made, const ClassDescription& description,
                         const std::vector<std::string>& names) {
        int64_t first_moved = 0;
        for (size_t i = 0; i < names.size(); ++i) {
            const VariableDescription& variable = description.variables[i];
            const ptrdiff_t offset = ivar_getOffset(class_getInstanceVariable(made, names[i].c_str()));
            const int64_t moved = offset - variable.offset;
            if (i == 0) first_moved = moved;
            if (moved != first_moved)
                refuse(
                    std::string("class ") + description.name + ": the variable " + variable.name +
                    " does not keep its distance from the first one (found " +
                    std::to_string(variable.offset - description.variables[0].offset + moved - first_moved) +
                    ", expected " + std::to_string(variable.offset - description.variables[0].offset) + ")");
            if (metadata_.offset_width == 8)
                mapping_.write_pointer(variable.offset_slot, static_cast<uintptr_t>(offset),
                                       "a variable's offset");
            else
                mapping_.write_int32(variable.offset_slot, static_cast<int32_t>(offset),
                                     "a variable's offset");
        }
    }

    Mapping& mapping_;
    const ObjcMetadata metadata_;
    std::unordered_map<uintptr_t, Class> host_class_;  // by the address of the image's; null if dropped
    ImportedClasses result_;
};

}  // namespace

ImportedClasses import_classes(Image& image) {
    try {
        Importer importer(image);
        importer.check_bound_classes();
        importer.check_names();
        image.stay_mapped();
        return importer.run();
    } catch (const Fault& fault) {
        throw Error(image.name() + ": cannot import: " + fault.what());
    }
}

}  // namespace macho

#include "loader/objc/objc_metadata.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <ranges>
#include <set>
#include <unordered_set>

#include "loader/fault.h"
#include "loader/format/structures.h"
#include "loader/image.h"
#include "objc/pointer_signature.h"

namespace macho {
namespace {

constexpr uint32_t RO_META = 1;

/// What old files have of these: in a protocol not what follows its flags, in a category not the class's own
/// properties. Of a protocol that is only adopted no more is read than its name and what it adopts.
constexpr uint64_t kDefinedProtocolSize = sizeof(protocol_t) - sizeof(protocol_t::extendedMethodTypes);
constexpr uint64_t kAdoptedProtocolSize = 3 * kPointerSize;
constexpr uint32_t kLargestLog2Alignment = 4;  // objects themselves are aligned to 16 bytes
constexpr int64_t kLargestInstance = 1 << 20;  // bytes
constexpr uint32_t kRowSizeMask = ~3u;         // the two lowest bits are flags

// What our code does not need, and libobjc has no function for.
constexpr const char* kRefusedSections[][2] = {
    {"__objc_nlclslist", "classes with a +load method"},
    {"__objc_catlist2", "categories of Swift classes"},
    {"__objc_nlcatlist", "categories with a +load method"},
};

class MetadataReader {
  public:
    explicit MetadataReader(const Image& image)
        : layout_(image.layout()),
          mapping_(image.mapping()),
          offset_width_(layout_.cpu == Cpu::x86_64 ? 8 : 4) {
        for (const Bind& bind : image.binds()) bound_.insert(bind.slot);
    }

    ObjcMetadata read() {
        for (const auto& [name, what] : kRefusedSections)
            if (const Section* section = layout_.section(name); section && section->size)
                refuse(std::string("section ") + name + " lists " + what + ", which are not supported");

        ObjcMetadata found;
        found.offset_width = offset_width_;
        found.selectors = selectors();
        found.classes = classes();
        found.categories = categories(found.classes);
        found.class_references = class_references(found.classes);
        std::set<uintptr_t> read;
        for (const uintptr_t slot : slots("__objc_protolist"))
            if (const uintptr_t at = pointed_to(slot); read.insert(at).second)
                found.protocols.push_back(protocol(at));
        found.protocol_references = protocol_references();
        return found;
    }

  private:
    std::vector<uintptr_t> slots(const char* name) const {
        const Section* section = layout_.section(name);
        return section ? mapping_.pointers_in(*section) : std::vector<uintptr_t>();
    }

    /// Those that the import will overwrite.
    std::vector<uintptr_t> references(const char* name) const {
        std::vector<uintptr_t> found = slots(name);
        for (const uintptr_t slot : found) mapping_.require_writable(slot, kPointerSize, "a reference");
        return found;
    }

    uintptr_t pointed_to(uintptr_t slot) const { return mapping_.read_pointer(slot, "a reference"); }

    std::vector<NamedReference> selectors() const {
        std::vector<NamedReference> found;
        for (const uintptr_t slot : references("__objc_selrefs"))
            found.push_back({slot, mapping_.text(pointed_to(slot), "a selector's name")});
        return found;
    }

    std::vector<NamedReference> protocol_references() const {
        std::vector<NamedReference> found;
        for (const uintptr_t slot : references("__objc_protorefs"))
            found.push_back({slot, protocol_name(pointed_to(slot))});
        return found;
    }

    std::vector<uintptr_t> class_references(const std::vector<ClassDescription>& classes) const {
        std::unordered_set<uintptr_t> known;
        for (const ClassDescription& each : classes) known.insert({each.address, each.metaclass});
        std::vector<uintptr_t> found;
        for (const char* section : {"__objc_classrefs", "__objc_superrefs"})
            for (const uintptr_t slot : references(section)) {
                if (!bound_.contains(slot) && !known.contains(pointed_to(slot)))
                    refuse(std::string("section ") + section +
                           " refers to something that is not a class (found " +
                           hex(pointed_to(slot) - mapping_.slide()) + ")");
                found.push_back(slot);
            }
        return found;
    }

    std::vector<ClassDescription> classes() {
        std::vector<ClassDescription> listed;
        std::map<uintptr_t, size_t> index;
        for (const uintptr_t slot : slots("__objc_classlist")) {
            const uintptr_t address = pointed_to(slot);
            if (!index.emplace(address, listed.size()).second)
                refuse("section __objc_classlist lists the class at " + hex(address - mapping_.slide()) +
                       " twice");
            listed.push_back(read_class(address));
        }
        return superclasses_first(std::move(listed), index);
    }

    static std::vector<ClassDescription> superclasses_first(std::vector<ClassDescription> listed,
                                                            const std::map<uintptr_t, size_t>& index) {
        std::vector<ClassDescription> sorted;
        std::vector<bool> placed(listed.size());
        for (size_t each = 0; each < listed.size(); ++each) {
            std::vector<size_t> line;  // a class, its superclass, and so on
            for (size_t next = each; !placed[next];) {
                line.push_back(next);
                if (line.size() > listed.size())
                    refuse(std::string("class ") + listed[each].name + " descends from itself");
                if (!listed[next].superclass_in_image) break;
                const auto superclass = index.find(listed[next].superclass);
                if (superclass == index.end())
                    refuse(std::string("class ") + listed[next].name +
                           " has a superclass that section __objc_classlist does not list");
                next = superclass->second;
            }
            for (; !line.empty(); line.pop_back()) {
                placed[line.back()] = true;
                sorted.push_back(std::move(listed[line.back()]));
            }
        }
        return sorted;
    }

    ClassDescription read_class(uintptr_t address) {
        ClassDescription found{};
        found.address = address;
        found.name = "";
        try {
            const Bytes fields = mapping_.read(address, sizeof(class_t), "the class");
            const Bytes data = class_data(fields, false);
            found.name = mapping_.text(data.field(&class_ro_t::name), "the name");
            if (!*found.name) refuse("the name is empty");
            found.metaclass = fields.field(&class_t::isa);
            read_superclass(found, fields.field(&class_t::superclass));
            found.instance_methods = methods(data.field(&class_ro_t::baseMethods));
            found.variables = variables(data.field(&class_ro_t::ivars));
            found.protocols = protocols(data.field(&class_ro_t::baseProtocols));
            check_properties(data.field(&class_ro_t::baseProperties));

            const Bytes metaclass = mapping_.read(found.metaclass, sizeof(class_t), "the metaclass");
            const Bytes class_side = class_data(metaclass, true);
            found.class_methods = methods(class_side.field(&class_ro_t::baseMethods));
            check_properties(class_side.field(&class_ro_t::baseProperties));
        } catch (const Fault& fault) {
            const std::string name = *found.name ? found.name : "at " + hex(address - mapping_.slide());
            refuse("class " + name + ": " + fault.what());
        }
        return found;
    }

    std::vector<CategoryDescription> categories(const std::vector<ClassDescription>& classes) {
        std::unordered_set<uintptr_t> own;
        for (const ClassDescription& each : classes) own.insert(each.address);
        std::vector<CategoryDescription> found;
        for (const uintptr_t slot : slots("__objc_catlist"))
            found.push_back(read_category(pointed_to(slot), own));
        return found;
    }

    CategoryDescription read_category(uintptr_t address, const std::unordered_set<uintptr_t>& own) {
        const Bytes fields = mapping_.read(address, sizeof(category_t), "a category");
        if (!claimed_.insert(address).second) refuse("a category is listed twice");
        CategoryDescription found{};
        found.name = mapping_.text(fields.field(&category_t::name), "a category's name");
        try {
            found.extended = fields.field(&category_t::cls);
            found.extended_in_image = own.contains(found.extended);
            if (!found.extended_in_image && !bound_.contains(address + offsetof(category_t, cls)))
                refuse("it extends something that is not a class (found " +
                       hex(found.extended - mapping_.slide()) + ")");
            found.instance_methods = methods(fields.field(&category_t::instanceMethods));
            found.class_methods = methods(fields.field(&category_t::classMethods));
            found.protocols = protocols(fields.field(&category_t::protocols));
            check_properties(fields.field(&category_t::instanceProperties));
        } catch (const Fault& fault) {
            refuse(std::string("category ") + found.name + ": " + fault.what());
        }
        return found;
    }

    Bytes class_data(const Bytes& fields, bool of_metaclass) {
        const uintptr_t at = fields.field(&class_t::data);
        const Bytes data = mapping_.read(at, sizeof(class_ro_t), "the class's data");
        claim(at, "the data");
        if (const bool is_metaclass = data.field(&class_ro_t::flags) & RO_META; is_metaclass != of_metaclass)
            refuse(of_metaclass ? "its isa is a class (expected a metaclass)"
                                : "it is a metaclass (expected a class)");
        return data;
    }

    void read_superclass(ClassDescription& found, uintptr_t superclass) const {
        found.superclass = superclass;
        found.superclass_in_image = mapping_.contains(superclass);
        if (found.superclass_in_image || bound_.contains(found.address + offsetof(class_t, superclass)))
            return;
        if (superclass == 0) refuse("it has no superclass, which is not supported");
        refuse("its superclass is neither in the image nor bound (found " +
               hex(superclass - mapping_.slide()) + ")");
    }

    /// The rows of a list (entsize_list_tt); a null pointer is an empty list.
    auto rows(uintptr_t list, uint64_t row_size, std::string_view what) {
        const Bytes all = bytes_of_rows(list, row_size, what);
        return std::views::iota(uint64_t{0}, all.size() / row_size) |
               std::views::transform([=](uint64_t i) { return all.part(i * row_size, row_size); });
    }

    /// The size and the number of its rows come first.
    Bytes bytes_of_rows(uintptr_t list, uint64_t row_size, std::string_view what) {
        if (!list) return {{}, what};
        const Bytes head = mapping_.read(list, sizeof(entsize_list_t), what);
        claim(list, what);
        if (const uint64_t found = head.field(&entsize_list_t::entsizeAndFlags) & kRowSizeMask;
            found != row_size)
            refuse(std::string(what) + " has rows of " + std::to_string(found) + " bytes (expected " +
                   std::to_string(row_size) + ")");
        const uint64_t size = head.field(&entsize_list_t::count) * row_size;
        return size ? mapping_.read(list + sizeof(entsize_list_t), size, what) : Bytes({}, what);
    }

    /// No list belongs to two classes. This keeps a damaged file from being read many times over.
    void claim(uintptr_t list, std::string_view what) {
        if (!claimed_.insert(list).second) refuse(std::string(what) + " is another class's as well");
    }

    std::vector<MethodDescription> methods(uintptr_t list) {
        std::vector<MethodDescription> found;
        uintptr_t place = list + sizeof(entsize_list_t) + offsetof(method_t, imp);
        for (const Bytes& row : rows(list, sizeof(method_t), "the list of methods")) {
            MethodDescription method{.name = mapping_.text(row.field(&method_t::name), "a method's name"),
                                     .types = mapping_.text(row.field(&method_t::types), "a method's types"),
                                     .implementation = row.field(&method_t::imp)};
            if (!*method.name || !*method.types)
                refuse(std::string("the method \"") + method.name + "\" has an empty name or type");
            if (layout_.arm64e) authenticate(method, place);
            place += sizeof(method_t);
            if (!mapping_.is_code(method.implementation))
                refuse(std::string("the method ") + method.name + " is not code of the image (found " +
                       hex(method.implementation - mapping_.slide()) + ")");
            found.push_back(method);
        }
        return found;
    }

    /// As the device's runtime does: an implementation is signed for the place in its list.
    static void authenticate(MethodDescription& method, uintptr_t place) {
        const auto authentic =
            objc::authenticated_pointer(method.implementation, objc::signature_modifier(place, 0));
        if (!authentic)
            refuse(
                std::string("the method ") + method.name +
                " is not signed for its place (expected key IA with the address of the list's row mixed in)");
        method.implementation = *authentic;
    }

    std::vector<VariableDescription> variables(uintptr_t list) {
        std::vector<VariableDescription> found;
        uint64_t room = kLargestInstance;
        for (const Bytes& row : rows(list, sizeof(ivar_t), "the list of variables")) {
            VariableDescription variable{
                .name = mapping_.text(row.field(&ivar_t::name), "a variable's name"),
                .types = mapping_.text(row.field(&ivar_t::type), "a variable's type"),
                .log2_alignment = row.field(&ivar_t::alignment_raw),
                .size = row.field(&ivar_t::size),
                .offset = 0,
                .offset_slot = row.field(&ivar_t::offset)};
            if (variable.log2_alignment > kLargestLog2Alignment)
                refuse(std::string("the variable ") + variable.name + " is aligned to 2^" +
                       std::to_string(variable.log2_alignment) + " bytes (expected at most 16)");
            const Bytes slot = mapping_.read(variable.offset_slot, offset_width_, "a variable's offset");
            mapping_.require_writable(variable.offset_slot, offset_width_, "a variable's offset");
            variable.offset = offset_width_ == 8 ? static_cast<int64_t>(slot.u64(0)) : int32_t(slot.u32(0));
            // libobjc counts in less than 32 bits.
            room -= std::min<uint64_t>(room, variable.size);
            if (room == 0 || variable.offset > kLargestInstance || variable.offset < -kLargestInstance)
                refuse(std::string("the variable ") + variable.name + " makes objects too large (found " +
                       std::to_string(variable.size) + " bytes at " + std::to_string(variable.offset) +
                       ", expected all within " + std::to_string(kLargestInstance) + ")");
            found.push_back(variable);
        }
        return found;
    }

    // libobjc keeps no properties: there is nothing to import, but a bad list is a bad file.
    void check_properties(uintptr_t list) {
        for (const Bytes& row : rows(list, sizeof(property_t), "the list of properties")) {
            mapping_.text(row.field(&property_t::name), "a property's name");
            mapping_.text(row.field(&property_t::attributes), "a property's attributes");
        }
    }

    const char* protocol_name(uintptr_t protocol) const {
        const Bytes fields = mapping_.read(protocol, kAdoptedProtocolSize, "a protocol");
        return mapping_.text(fields.field(&protocol_t::mangledName), "a protocol's name");
    }

    ProtocolDescription protocol(uintptr_t address) {
        ProtocolDescription found{.name = protocol_name(address), .required = {}, .optional = {}};
        try {
            const Bytes fields = mapping_.read(address, kDefinedProtocolSize, "the protocol");
            found.required = {listed_methods(fields.field(&protocol_t::instanceMethods)),
                              listed_methods(fields.field(&protocol_t::classMethods))};
            found.optional = {listed_methods(fields.field(&protocol_t::optionalInstanceMethods)),
                              listed_methods(fields.field(&protocol_t::optionalClassMethods))};
            if (fields.field(&protocol_t::size) >= sizeof(protocol_t))
                check_extended_types(mapping_.read_pointer(
                                         address + offsetof(protocol_t, extendedMethodTypes), "the protocol"),
                                     found.required.on_instances.size() + found.required.on_class.size() +
                                         found.optional.on_instances.size() + found.optional.on_class.size());
        } catch (const Fault& fault) {
            refuse(std::string("protocol ") + found.name + ": " + fault.what());
        }
        return found;
    }

    std::vector<objc::ListedMethod> listed_methods(uintptr_t list) {
        std::vector<objc::ListedMethod> found;
        for (const Bytes& row : rows(list, sizeof(method_t), "the list of methods"))
            found.push_back({mapping_.text(row.field(&method_t::name), "a method's name"),
                             mapping_.text(row.field(&method_t::types), "a method's types")});
        return found;
    }

    // libobjc keeps none: there is nothing to import, but a bad list is a bad file.
    void check_extended_types(uintptr_t list, uint64_t count) const {
        if (!list || !count) return;
        const Bytes all = mapping_.read(list, count * kPointerSize, "the methods' extended types");
        for (uint64_t i = 0; i < count; ++i)
            mapping_.text(all.u64(i * kPointerSize), "a method's extended types");
    }

    std::vector<const char*> protocols(uintptr_t list) const {
        std::vector<const char*> names;
        std::set<uintptr_t> known, read;
        std::vector<uintptr_t> lists{list};
        while (!lists.empty()) {
            const uintptr_t next = lists.back();
            lists.pop_back();
            if (!next || !read.insert(next).second) continue;
            const uint64_t count = mapping_.read(next, 8, "a list of protocols").u64(0);
            const Bytes onwards = mapping_.read_onwards(next, "a list of protocols");
            for (uint64_t i = 1; i <= count; ++i) {
                const uintptr_t protocol = onwards.u64(i * kPointerSize);
                if (!known.insert(protocol).second) continue;
                names.push_back(protocol_name(protocol));
                lists.push_back(
                    mapping_.read_pointer(protocol + offsetof(protocol_t, protocols), "a protocol"));
            }
        }
        return names;
    }

    const Layout& layout_;
    const Mapping& mapping_;
    const uint64_t offset_width_;
    std::unordered_set<uintptr_t> bound_;
    std::set<uintptr_t> claimed_;
};

}  // namespace

ObjcMetadata read_objc_metadata(const Image& image) { return MetadataReader(image).read(); }

}  // namespace macho

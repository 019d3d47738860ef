// The Objective-C classes of an image, as its static metadata describes them.
#pragma once
#include <cstdint>
#include <vector>

#include "loader/format/layout.h"
#include "loader/mapping.h"
#include "objc/protocol_registered.h"

namespace macho {

class Image;

// Texts are in the image's memory and were checked to end there.

struct MethodDescription {
    const char* name;
    const char* types;
    uintptr_t implementation;  ///< code of the image
};

struct VariableDescription {
    const char* name;
    const char* types;
    uint32_t log2_alignment;
    uint32_t size;
    int64_t offset;         ///< as compiled
    uintptr_t offset_slot;  ///< where the image's code reads the offset from
};

struct ClassDescription {
    const char* name;
    uintptr_t address, metaclass;  ///< the image's own structures
    uintptr_t superclass;          ///< in the image or of the host; 0 if it is missing
    bool superclass_in_image;
    std::vector<MethodDescription> instance_methods, class_methods;
    std::vector<VariableDescription> variables;
    std::vector<const char*> protocols;  ///< adopted, and those that they adopt in turn
};

/// Methods for a class that is defined elsewhere, in the image or not.
struct CategoryDescription {
    const char* name;
    uintptr_t extended;  ///< the class: in the image or of the host; 0 if it is missing
    bool extended_in_image;
    std::vector<MethodDescription> instance_methods, class_methods;
    std::vector<const char*> protocols;
};

/// A protocol that the image defines.
struct ProtocolDescription {
    const char* name;
    struct Methods {
        std::vector<objc::ListedMethod> on_instances, on_class;
    } required, optional;
};

/// A pointer of the image that stands for something with a name.
struct NamedReference {
    uintptr_t slot;
    const char* name;
};

struct ObjcMetadata {
    std::vector<NamedReference> selectors;
    std::vector<ClassDescription> classes;        ///< superclasses first
    std::vector<CategoryDescription> categories;  ///< as listed: a later one's methods win
    std::vector<uintptr_t> class_references;      ///< pointers to classes, of the image or of the host
    std::vector<ProtocolDescription> protocols;   ///< that the image defines
    std::vector<NamedReference> protocol_references;
    uint64_t offset_width;  ///< of an offset slot, in bytes
};

/// Reads and checks all of it; nothing is changed. `image` must outlive the result. Throws a Fault.
ObjcMetadata read_objc_metadata(const Image& image);

}  // namespace macho

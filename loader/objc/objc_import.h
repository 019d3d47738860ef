// Makes an image's Objective-C classes classes of this process.
#pragma once
#include <string>
#include <vector>

#include "loader/image.h"

namespace macho {

struct ImportedClasses {
    std::vector<std::string> registered;  ///< superclasses first
    std::vector<std::string> dropped;  ///< their superclass is a weak import that is missing, or was dropped
    std::vector<std::string> dropped_categories;  ///< their class is
    /// Instance variables named as one of a superclass, which the runtime refuses. They are called
    /// "Class.name" instead, so that key-value coding does not find them.
    std::vector<std::string> renamed_variables;
};

/// Registers the classes with the runtime and points the image's references to them, and its selectors and
/// protocols to the runtime's. To be called once for an image, before its initialisers.
///
/// Throws Error. Faulty metadata and classes that exist already are found before anything is registered.
/// Categories come after the classes, in the file's order. Two methods or variables of one name in a class,
/// or variables that cannot keep their distances from each other, are found when that class's turn comes; the
/// classes before it stay.
ImportedClasses import_classes(Image& image);

}  // namespace macho

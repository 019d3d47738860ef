// What the tests offer to the images they load, and how they look at failures.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "loader/image.h"

namespace loader_test {

/// The path of a test image.
std::string image_path(const std::string& name);
std::vector<uint8_t> image_bytes(const std::string& name);

/// The resolver: classes by name, the few runtime entry points that the images use, then this program and its
/// libraries.
void* host_symbol(const macho::Import& import);

/// Registers the classes that the Objective-C images take from the host, once. Their variables are not what
/// the images were built with.
void define_host_classes();

/// Loads a test image with that resolver.
macho::Image load(const std::string& name);

/// An exported function, as a pointer of the given type. It fails the test if there is none.
void* exported(const macho::Image& image, const std::string& name);
template <class Function>
Function* function(const macho::Image& image, const std::string& name) {
    return reinterpret_cast<Function*>(exported(image, name));
}
template <class T>
T* variable(const macho::Image& image, const std::string& name) {
    return static_cast<T*>(exported(image, name));
}

/// What the images have noted through host_note().
extern std::vector<int> notes;

/// The message of the exception of that type that `action` throws; empty if it throws none.
template <class Exception, class Action>
std::string message_of(Action action) {
    try {
        action();
    } catch (const Exception& exception) {
        return exception.what();
    }
    return "";
}

}  // namespace loader_test

// NSPropertyListSerialization, and the collections' own ways to and from property-list files.
#include <optional>

#include "foundation/cocoa_error.h"
#include "foundation/corrections.h"
#include "foundation/file_contents.h"
#include "foundation/property_list/reader.h"
#include "foundation/property_list/writer.h"
#include "runtime/method_replacement.h"
#include "runtime/not_modelled.h"

namespace sim {
namespace {

using plist::Format;

std::string_view bytes_of(NSData* data) { return {static_cast<const char*>(data->bytes()), data->length()}; }

NSData* data_of(const std::string& bytes) {
    return NSData::class_send<"dataWithBytes:length:", NSData*>(static_cast<const void*>(bytes.data()),
                                                                NSUInteger{bytes.size()});
}

/// The root of the list, owned by the caller; nil and a reason for what is none.
plist::Value read(std::string_view bytes, plist::Mutability mutability, Format* format, std::string* reason) {
    try {
        auto list = plist::read(bytes, mutability);
        if (format) *format = list.format;
        return std::move(list.root);
    } catch (const plist::ParseError& error) {
        if (reason) *reason = error.what();
        return nullptr;
    }
}

plist::Mutability mutability_of(NSUInteger options) {
    if (options > 2)
        not_modelled("NSPropertyListSerialization",
                     "propertyListWithData:options:format:error:", "these options are unknown");
    return static_cast<plist::Mutability>(options);
}

std::string refusal(const std::string& fault, NSUInteger format) {
    return "Property list invalid for format: " + std::to_string(format) + " (it holds " + fault + ")";
}

struct Serialization : NSPropertyListSerialization {
    static id readData(Class, NSData* data, NSUInteger options, NSUInteger* format, NSError** error) {
        std::string reason = "there are no bytes to read";
        Format found{};
        plist::Value root =
            data ? read(bytes_of(data), mutability_of(options), &found, &reason) : plist::Value();
        if (!root) {
            fail(error, [&] { return described_error(CocoaError::property_list_read_corrupt, reason); });
            return nullptr;
        }
        if (format) *format = static_cast<NSUInteger>(found);
        return std::move(root).autoreleased();
    }

    /// The older form, whose error is a text.
    static id readDataOrText(Class self, NSData* data, NSUInteger options, NSUInteger* format,
                             NSString** text) {
        NSError* error = nullptr;
        id root = readData(self, data, options, format, &error);
        if (!root && text) {
            using namespace objc::literals;
            *text = static_cast<NSString*>(
                error->send<"userInfo", NSDictionary*>()->objectForKey("NSDebugDescription"_ns));
        }
        return root;
    }

    static NSData* writeData(Class, id list, NSUInteger format, NSUInteger, NSError** error) {
        if (auto fault = plist::fault_of(list)) {
            fail(error,
                 [&] { return described_error(CocoaError::property_list_write, refusal(*fault, format)); });
            return nullptr;
        }
        switch (static_cast<Format>(format)) {
            case Format::xml: return data_of(plist::xml_of(list));
            case Format::binary: return data_of(plist::binary_of(list));
            default: break;
        }
        fail(error, [] {
            return described_error(CocoaError::property_list_write,
                                   "this format can be read and not be written");
        });
        return nullptr;
    }

    static bool isValid(Class, id list, NSUInteger) { return !plist::fault_of(list); }
};

/// The errno value or other fault with which a collection was not written; nothing when it was.
NSError* write_list(id list, NSString* path) {
    if (auto fault = plist::fault_of(list))
        return described_error(CocoaError::property_list_write,
                               refusal(*fault, static_cast<NSUInteger>(Format::xml)));
    const int failure = write_file(path, plist::xml_of(list), Writing::atomic);
    return failure ? file_error(write_error(failure), path, failure) : nullptr;
}

/// What NSDictionary and NSArray have in common.
template <class Collection, objc::Name InitCopy>
struct ListFiles : Collection {
    bool writeToFile(NSString* path, bool) { return !write_list(this, path); }

    bool writeToURLError(NSURL* url, NSError** error) {
        NSString* path = path_of(url);
        NSError* failure =
            path ? write_list(this, path) : file_error(CocoaError::write_unsupported_scheme, nullptr, 0);
        return !failure || fail(error, [&] { return failure; });
    }
    bool writeToURL(NSURL* url, bool) { return writeToURLError(url, nullptr); }

    /// The receiver, filled from the file; nil when it is unreadable or holds something else.
    Collection* read_from(NSString* path, NSError** error) {
        std::string contents, reason;
        if (const int failure = read_file(path, contents)) {
            fail(error, [&] { return file_error(read_error(failure), path, failure); });
        } else {
            plist::Value root = read(contents, plist::Mutability::nothing, nullptr, &reason);
            if (root && root->isKindOfClass(Collection::class_object()))
                return this->template send<InitCopy, Collection*>(static_cast<id>(root.get()));
            if (root) reason = "the property list is of another kind";
            fail(error, [&] { return described_error(CocoaError::property_list_read_corrupt, reason); });
        }
        this->template send<"release">();
        return nullptr;
    }
    Collection* initWithContentsOfFile(NSString* path) { return read_from(path, nullptr); }
    Collection* initWithContentsOfURLError(NSURL* url, NSError** error) {
        return read_from(path_of(url), error);
    }
    Collection* initWithContentsOfURL(NSURL* url) { return read_from(path_of(url), nullptr); }
};

template <class Files>
void correct_list_files(Class collection) {
    correct_everywhere<"writeToFile:atomically:", &Files::writeToFile>(collection);
    correct_everywhere<"writeToURL:atomically:", &Files::writeToURL>(collection);
    correct_everywhere<"writeToURL:error:", &Files::writeToURLError>(collection);
    correct_everywhere<"initWithContentsOfFile:", &Files::initWithContentsOfFile>(collection);
    correct_everywhere<"initWithContentsOfURL:", &Files::initWithContentsOfURL>(collection);
    correct_everywhere<"initWithContentsOfURL:error:", &Files::initWithContentsOfURLError>(collection);
}

}  // namespace

void correct_property_lists() {
    Class serialization = NSPropertyListSerialization::class_object();
    redefine<"propertyListWithData:options:format:error:", &Serialization::readData>(serialization);
    redefine<"propertyListFromData:mutabilityOption:format:errorDescription:",
             &Serialization::readDataOrText>(serialization);
    redefine<"dataWithPropertyList:format:options:error:", &Serialization::writeData>(serialization);
    redefine<"propertyList:isValidForFormat:", &Serialization::isValid>(serialization);
    correct_list_files<ListFiles<NSDictionary, "initWithDictionary:">>(NSDictionary::class_object());
    correct_list_files<ListFiles<NSArray, "initWithArray:">>(NSArray::class_object());
}

}  // namespace sim

// NSData and files: read and written inside the root folder, with the device's errors.
#include "foundation/cocoa_error.h"
#include "foundation/corrections.h"
#include "foundation/file_contents.h"
#include "runtime/method_replacement.h"

namespace sim {
namespace {

constexpr NSUInteger option_atomic = 1, option_without_overwriting = 2;

struct DataFiles : NSData {
    NSData* initWithContentsOfFileOptionsError(NSString* path, NSUInteger, NSError** error) {
        RawBytes contents;
        if (const int failure = read_file(path, contents)) {
            fail(error, [&] { return file_error(read_error(failure), path, failure); });
            send<"release">();
            return nullptr;
        }
        return contents.initialise(this);
    }
    NSData* initWithContentsOfFile(NSString* path) {
        return initWithContentsOfFileOptionsError(path, 0, nullptr);
    }

    NSData* initWithContentsOfURLOptionsError(NSURL* url, NSUInteger options, NSError** error) {
        if (NSString* path = path_of(url)) return initWithContentsOfFileOptionsError(path, options, error);
        fail(error, [] { return file_error(CocoaError::read_unsupported_scheme, nullptr, 0); });
        send<"release">();
        return nullptr;
    }
    NSData* initWithContentsOfURL(NSURL* url) { return initWithContentsOfURLOptionsError(url, 0, nullptr); }

    static NSData* dataWithContentsOfFileOptionsError(Class self, NSString* path, NSUInteger options,
                                                      NSError** error) {
        return objc::make<"initWithContentsOfFile:options:error:", NSData>(self, path, options, error)
            .autoreleased();
    }
    static NSData* dataWithContentsOfFile(Class self, NSString* path) {
        return dataWithContentsOfFileOptionsError(self, path, 0, nullptr);
    }
    static NSData* dataWithContentsOfURLOptionsError(Class self, NSURL* url, NSUInteger options,
                                                     NSError** error) {
        return objc::make<"initWithContentsOfURL:options:error:", NSData>(self, url, options, error)
            .autoreleased();
    }
    static NSData* dataWithContentsOfURL(Class self, NSURL* url) {
        return dataWithContentsOfURLOptionsError(self, url, 0, nullptr);
    }

    bool writeToFileOptionsError(NSString* path, NSUInteger options, NSError** error) {
        const Writing writing = options & option_without_overwriting ? Writing::new_only
                                : options & option_atomic            ? Writing::atomic
                                                                     : Writing::in_place;
        const int failure = write_file(path, {static_cast<const char*>(bytes()), length()}, writing);
        if (!failure) return true;
        return fail(error, [&] { return file_error(write_error(failure), path, failure); });
    }
    bool writeToFile(NSString* path, bool atomically) {
        return writeToFileOptionsError(path, atomically ? option_atomic : 0, nullptr);
    }
    bool writeToURLOptionsError(NSURL* url, NSUInteger options, NSError** error) {
        if (NSString* path = path_of(url)) return writeToFileOptionsError(path, options, error);
        return fail(error, [] { return file_error(CocoaError::write_unsupported_scheme, nullptr, 0); });
    }
    bool writeToURL(NSURL* url, bool atomically) {
        return writeToURLOptionsError(url, atomically ? option_atomic : 0, nullptr);
    }
};

}  // namespace

void correct_data_files() {
    Class data = NSData::class_object();
    correct_everywhere<"initWithContentsOfFile:", &DataFiles::initWithContentsOfFile>(data);
    correct_everywhere<"initWithContentsOfMappedFile:", &DataFiles::initWithContentsOfFile>(data);
    correct_everywhere<"initWithContentsOfFile:options:error:",
                       &DataFiles::initWithContentsOfFileOptionsError>(data);
    correct_everywhere<"initWithContentsOfURL:", &DataFiles::initWithContentsOfURL>(data);
    correct_everywhere<"initWithContentsOfURL:options:error:", &DataFiles::initWithContentsOfURLOptionsError>(
        data);
    correct_everywhere<"dataWithContentsOfFile:", &DataFiles::dataWithContentsOfFile>(data);
    correct_everywhere<"dataWithContentsOfMappedFile:", &DataFiles::dataWithContentsOfFile>(data);
    correct_everywhere<"dataWithContentsOfFile:options:error:",
                       &DataFiles::dataWithContentsOfFileOptionsError>(data);
    correct_everywhere<"dataWithContentsOfURL:", &DataFiles::dataWithContentsOfURL>(data);
    correct_everywhere<"dataWithContentsOfURL:options:error:", &DataFiles::dataWithContentsOfURLOptionsError>(
        data);
    correct_everywhere<"writeToFile:atomically:", &DataFiles::writeToFile>(data);
    correct_everywhere<"writeToFile:options:error:", &DataFiles::writeToFileOptionsError>(data);
    correct_everywhere<"writeToURL:atomically:", &DataFiles::writeToURL>(data);
    correct_everywhere<"writeToURL:options:error:", &DataFiles::writeToURLOptionsError>(data);
}

}  // namespace sim

// A simulated phone for one test: a folder that plays its file system, boot, and the library under test.
#pragma once
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/uikit.h"
#include "simulator.h"

namespace test {

/// The executable of the home screen.
inline constexpr const char* springboard = "/System/Library/CoreServices/SpringBoard.app/SpringBoard";

/// What the phones of a program have in common, done once, before its cases part. A program with phones that
/// lack classes defines it; otherwise none may.
void prepare_phones();
void prepare_phones_that_may_lack(const std::vector<std::string>& classes);

/// The class of that name; fails the test when there is none.
id class_named(const char* name);

/// A new object of that class, made by `new` or by the initialiser named; the phone's pool keeps it.
id made(const char* class_name);
template <objc::Name Initialiser, class... Arguments>
id made(const char* class_name, Arguments... arguments) {
    return objc_autorelease(
        objc::send<Initialiser, id>(objc::send<"alloc", id>(class_named(class_name)), arguments...));
}

/// A string object of UTF-8 text.
NSString* text(std::string_view utf8);
/// UTF-8 of a string object; "(nil)" for nil.
std::string utf8(NSString* string);
inline std::string utf8(id string) { return utf8(static_cast<NSString*>(string)); }

/// An array of the objects.
NSArray* array(std::vector<id> objects);

/// The name of the exception that the call raised; "" when it raised none.
std::string raised_by(void (*call)(void*), void* context);
template <class Call>
std::string raised_by(Call call) {
    return raised_by([](void* context) { (*static_cast<Call*>(context))(); }, &call);
}

/// Red, green, blue and alpha of a colour.
struct Rgba {
    double red, green, blue, alpha;
    friend bool operator==(const Rgba&, const Rgba&) = default;
    friend void PrintTo(const Rgba& c, std::ostream* out) {
        *out << "(" << c.red << ", " << c.green << ", " << c.blue << ", " << c.alpha << ")";
    }
};
Rgba rgba(id color);
UIColor* color(double red, double green, double blue, double alpha = 1.0);

/// An image of `width` x `height` pixels at one pixel to a point, filled with the colour.
UIImage* filled_image(UIColor* color, double width, double height);
/// The image's pixel at (x, y), in pixels from the upper left; colours are multiplied by alpha.
Rgba pixel_of(UIImage* image, double x, double y);
NSData* data(std::string_view bytes);

inline constexpr const char* notes = "/Applications/MobileNotes.app/MobileNotes";
inline constexpr const char* preference_file =
    "/var/mobile/Library/Preferences/com.quillmoth.huecraftios12.plist";
inline constexpr const char* theme_folder = "/var/mobile/Library/Preferences/HuecraftConfiguration/";

/// The phone of one test. Nothing is booted by itself: a test arranges the files first.
class Phone {
  public:
    Phone();
    ~Phone();
    Phone(const Phone&) = delete;

    /// Where a device path lies on this machine.
    std::filesystem::path host(std::string_view device_path) const;
    bool exists(std::string_view device_path) const { return std::filesystem::exists(host(device_path)); }
    /// Writes a file, and the folders before it.
    void write(std::string_view device_path, std::string_view bytes) const;
    void make_folder(std::string_view device_path) const;
    std::string read(std::string_view device_path) const;

    struct Options {
        const char* executable = notes;
        sim_arguments arguments = SIM_ARGUMENTS_EXECUTABLE;
        const char* system_version = nullptr;
        std::vector<const char*> left_out = {}, unfound = {}, without_previous = {}, unpatchable = {},
                                 denied = {};
        /// Otherwise the one that HUECRAFT_INJECTION names: the library's tests run under several.
        std::optional<sim_injection> injection = {};
        double screen_width = 0, screen_height = 0;
        int screen_scale = 0;
        const char* language = nullptr;
        bool right_to_left = false;
        const char* text_size = nullptr;
        bool reduce_motion = false;
        /// Otherwise the one that HUECRAFT_PROCESS names.
        std::optional<sim_process> process = {};
        bool unsigned_answers = false;
    };
    void boot(const Options& wanted);
    void boot() { boot(Options{}); }
    /// Loads the build under test; its initializers run.
    void load();
    void start(const Options& options) {
        boot(options);
        load();
    }
    void start() { start(Options{}); }

    sim_library* loaded_library() const { return library_; }

  private:
    std::filesystem::path root_;
    sim_library* library_ = nullptr;
    void* pool_ = nullptr;
};

/// The kind of process that HUECRAFT_PROCESS names: the library's tests run in several.
sim_process process_under_test();

/// The installing calls as lines: "-[Class selector]", "+[Class selector]", "-[Class selector] added as
/// v@:@", "function name"; a call for a class that is missing has "nil" for its class.
std::vector<std::string> installed_rows();

}  // namespace test

#include "support/phone.h"

#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <fstream>

#include "objc/exception.h"
#include "platform/owned_graphics.h"
#include "support/contents.h"

namespace test {

using namespace objc::literals;
namespace fs = std::filesystem;

void prepare_phones_that_may_lack(const std::vector<std::string>& classes) {
    std::vector<const char*> names;
    for (const std::string& name : classes) names.push_back(name.c_str());
    names.push_back(nullptr);
    if (sim_prepare(names.data()) == SIM_OK) return;
    std::fprintf(stderr, "%s\n", sim_last_error());
    std::exit(2);
}

id class_named(const char* name) {
    auto found = reinterpret_cast<id>(objc_getClass(name));
    EXPECT_NE(found, nullptr) << "no class " << name;
    return found;
}

id made(const char* class_name) { return objc_autorelease(objc::send<"new", id>(class_named(class_name))); }

NSString* text(std::string_view utf8) { return NSString::stringWithUTF8String(std::string(utf8).c_str()); }

std::string utf8(NSString* string) { return string ? string->UTF8String() : "(nil)"; }

NSArray* array(std::vector<id> objects) { return NSArray::arrayWithObjects(objects.data(), objects.size()); }

std::string raised_by(void (*call)(void*), void* context) {
    id exception = objc::caught([&] { call(context); });
    return exception ? utf8(objc::send<"name", NSString*>(exception)) : "";
}

Rgba rgba(id color) {
    Rgba result{NAN, NAN, NAN, NAN};
    EXPECT_NE(color, nullptr) << "there is no colour";
    static_cast<UIColor*>(color)->getRGB(&result.red, &result.green, &result.blue, &result.alpha);
    return result;
}

UIColor* color(double red, double green, double blue, double alpha) {
    return UIColor::colorWithRGB(red, green, blue, alpha);
}

UIImage* filled_image(UIColor* color, double width, double height) {
    UIGraphicsBeginImageContextWithOptions({width, height}, false, 1.0);
    color->setFill();
    CGContextFillRect(UIGraphicsGetCurrentContext(), {{0, 0}, {width, height}});
    UIImage* image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

Rgba pixel_of(UIImage* image, double x, double y) {
    uint8_t bytes[4]{};
    const cg::owned space(CGColorSpaceCreateDeviceRGB());
    const cg::owned context(CGBitmapContextCreate(bytes, 1, 1, 8, sizeof bytes, space,
                                                  kCGImageAlphaPremultipliedLast | kCGBitmapByteOrder32Big));
    const CGSize size = image->size();
    const CGFloat scale = image->scale();
    CGContextTranslateCTM(context, 0, 1);
    CGContextScaleCTM(context, 1, -1);
    UIGraphicsPushContext(context);
    image->drawInRect({{-std::floor(x), -std::floor(y)}, {size.width * scale, size.height * scale}});
    UIGraphicsPopContext();
    return {bytes[0] / 255.0, bytes[1] / 255.0, bytes[2] / 255.0, bytes[3] / 255.0};
}

NSData* data(std::string_view bytes) {
    return NSData::class_send<"dataWithBytes:length:", NSData*>(static_cast<const void*>(bytes.data()),
                                                                NSUInteger{bytes.size()});
}

Phone::Phone() {
    auto pattern = (fs::temp_directory_path() / "huecraft-test-XXXXXX").string();
    root_ = mkdtemp(pattern.data());
}

Phone::~Phone() {
    if (pool_) objc_autoreleasePoolPop(pool_);
    fs::remove_all(root_);
}

fs::path Phone::host(std::string_view device_path) const {
    return root_ / fs::path(device_path).relative_path();
}

void Phone::write(std::string_view device_path, std::string_view bytes) const {
    fs::create_directories(host(device_path).parent_path());
    std::ofstream file(host(device_path), std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    ASSERT_TRUE(file.good()) << device_path;
}

void Phone::make_folder(std::string_view device_path) const { fs::create_directories(host(device_path)); }

std::string Phone::read(std::string_view device_path) const { return contents_of(host(device_path)); }

static sim_injection injection_under_test() {
    const char* given = std::getenv("HUECRAFT_INJECTION");
    const std::string name = given ? given : "lenient";
    if (name == "clearing") return SIM_INJECTION_CLEARING;
    if (name == "guarded") return SIM_INJECTION_GUARDED;
    EXPECT_EQ(name, "lenient") << "HUECRAFT_INJECTION names no framework that every test can run under";
    return SIM_INJECTION_LENIENT;
}

sim_process process_under_test() {
    const char* given = std::getenv("HUECRAFT_PROCESS");
    const std::string name = given ? given : "arm64";
    if (name == "arm64_on_a12") return SIM_PROCESS_ARM64_ON_A12;
    if (name == "arm64e") return SIM_PROCESS_ARM64E;
    EXPECT_EQ(name, "arm64") << "HUECRAFT_PROCESS names no kind of process";
    return SIM_PROCESS_ARM64;
}

void Phone::boot(const Options& wanted) {
    Options lists = wanted;
    for (auto* list :
         {&lists.left_out, &lists.unfound, &lists.without_previous, &lists.unpatchable, &lists.denied})
        list->push_back(nullptr);
    const auto root = root_.string();
    sim_options options{};
    options.size = sizeof options;
    options.root = root.c_str();
    options.executable = wanted.executable;
    options.arguments = wanted.arguments;
    options.system_version = wanted.system_version;
    options.screen_width = wanted.screen_width;
    options.screen_height = wanted.screen_height;
    options.screen_scale = wanted.screen_scale;
    options.language = wanted.language;
    options.right_to_left = wanted.right_to_left;
    options.text_size = wanted.text_size;
    options.reduce_motion = wanted.reduce_motion;
    options.left_out_classes = lists.left_out.data();
    options.unfound_methods = lists.unfound.data();
    options.methods_without_previous = lists.without_previous.data();
    options.injection = wanted.injection.value_or(injection_under_test());
    options.unpatchable_functions = lists.unpatchable.data();
    options.denied_folders = lists.denied.data();
    options.process = wanted.process.value_or(process_under_test());
    options.unsigned_answers = wanted.unsigned_answers;
    ASSERT_EQ(sim_boot(&options), SIM_OK) << sim_last_error();
    pool_ = objc_autoreleasePoolPush();
}

void Phone::load() {
    const char* path = std::getenv("HUECRAFT_LIBRARY");
    ASSERT_NE(path, nullptr) << "HUECRAFT_LIBRARY names the build under test";
    ASSERT_EQ(sim_load(path, &library_), SIM_OK) << sim_last_error();
}

std::vector<std::string> installed_rows() {
    std::vector<std::string> rows;
    for (size_t i = 0; i < sim_installing_call_count(); ++i) {
        sim_installing_call call;
        EXPECT_EQ(sim_installing_call_at(i, &call), SIM_OK) << sim_last_error();
        std::string row;
        if (call.kind == SIM_HOOK_FUNCTION) {
            row = std::string("function ") + call.name;
        } else {
            row = std::string(call.on_class ? "+[" : "-[") + (call.class_name ? call.class_name : "nil") +
                  " " + call.name + "]";
            if (call.kind == SIM_ADD_METHOD) row += std::string(" added as ") + call.types;
        }
        rows.push_back(row);
    }
    return rows;
}

}  // namespace test

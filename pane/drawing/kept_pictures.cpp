#include "pane/drawing/kept_pictures.h"

#include <string_view>

#include "pane/model/files.h"

namespace pane::kept_pictures {
namespace {

using namespace objc::literals;
using objc::strong;

NSString* folder() { return "/var/mobile/Library/Caches/com.quillmoth.huecraftios12.settings/Keyboards"_ns; }

/// Named after a number that is made of the stamp (FNV-1a). Two stamps of one number tell each other apart
/// inside.
NSString* path_of(NSString* stamp) {
    uint64_t number = 0xcbf29ce484222325;
    for (const char c : std::string_view(stamp->UTF8String()))
        number = (number ^ static_cast<unsigned char>(c)) * 0x100000001b3;
    char name[17];
    for (int i = 0; i < 16; ++i) name[i] = "0123456789abcdef"[number >> (60 - 4 * i) & 15];
    name[16] = 0;
    return folder()->stringByAppendingPathComponent(NSString::stringWithUTF8String(name));
}

}  // namespace

Kept find(NSString* stamp, CGFloat scale) {
    auto* content = as<NSDictionary>(read_property_list(path_of(stamp), nullptr));
    auto* recorded = content ? as<NSString>(content->objectForKey("stamp"_ns)) : nullptr;
    auto* name = content ? as<NSString>(content->objectForKey("name"_ns)) : nullptr;
    auto* png = content ? as<NSData>(content->objectForKey("picture"_ns)) : nullptr;
    if (!recorded || !recorded->isEqualToString(stamp) || !name || !png) return {};
    auto* picture = UIImage::class_send<"imageWithData:scale:", UIImage*>(png, scale);
    if (!picture) return {};
    return {name, picture};
}

void keep(NSString* stamp, const Kept& kept) {
    NSFileManager* manager = NSFileManager::defaultManager();
    NSArray* files = manager->contentsOfDirectoryAtPath(folder(), nullptr);
    if (files && files->count() >= most) manager->removeItemAtPath(folder(), nullptr);
    NSData* png = UIImagePNGRepresentation(kept.picture);
    if (!png || !make_folder(folder(), nullptr)) return;
    const id keys[] = {"stamp"_ns, "name"_ns, "picture"_ns};
    const id values[] = {stamp, kept.name, png};
    NSData* bytes = NSPropertyListSerialization::dataWithPropertyList(
        NSDictionary::dictionaryWithObjects(values, keys, 3), NSPropertyListSerialization::binary_format, 0,
        nullptr);
    if (bytes) bytes->writeToFile(path_of(stamp), NSData::atomically, nullptr);
}

}  // namespace pane::kept_pictures

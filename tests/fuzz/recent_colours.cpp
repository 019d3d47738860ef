// Any bytes as the file of recent colours: the picker reads it, shows each colour, makes one current and
// records one. A list that cannot be changed, or is too short, or none, raises: that is promised. Nothing
// else may happen.
#include "harness/fuzz.h"
#include "objc/exception.h"
#include "platform/scrolling.h"

namespace {

using objc::send;

constexpr const char* recent_file = "/var/mobile/Library/Preferences/com.quillmoth.hcrecentcolors.plist";

/// Whatever is raised is one of the three that an array or another object says it with.
void may_raise(void (*work)(id), id picker) {
    id raised = objc::caught([&] { work(picker); });
    if (!raised) return;
    const std::string name = test::utf8(send<"name", id>(raised));
    EXPECT_TRUE(name == "NSRangeException" || name == "NSInvalidArgumentException" ||
                name == "NSInternalInconsistencyException" || name == "NSGenericException")
        << name << ": " << test::utf8(send<"reason", id>(raised));
}

id made_picker() {
    static id picker = nullptr;
    if (picker) return picker;
    picker = send<"new", id>(test::class_named("HCColorPickerController"));
    send<"view", id>(picker);
    Class heard = objc_allocateClassPair(objc_getClass("NSObject"), "HearingDelegate", 0);
    class_addMethod(heard, sel_registerName("colorPickerReturnedWithColor:andHexString:"),
                    reinterpret_cast<IMP>(+[](id, SEL, id, id) {}), "v@:@@");
    objc_registerClassPair(heard);
    send<"setDelegate:">(picker, send<"new", id>(reinterpret_cast<id>(heard)));
    return picker;
}

void show(id picker, NSInteger item) {
    id strip = send<"recentCollectionView", id>(picker);
    NSIndexPath* path = NSIndexPath::indexPathForItem(item, 0);
    send<"collectionView:cellForItemAtIndexPath:", id>(picker, strip, path);
    send<"collectionView:didSelectItemAtIndexPath:">(picker, strip, path);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::phone();
    const fuzz::Pool pool;
    id picker = made_picker();
    send<"setRecentColorDictionary:">(picker, id{});
    send<"setRecentColors:">(picker, id{});
    fuzz::put(recent_file, {reinterpret_cast<const char*>(data), size});
    may_raise([](id picker) { send<"grabRecentColorData">(picker); }, picker);
    EXPECT_NE((send<"recentColorDictionary", id>(picker)), nullptr);
    may_raise([](id picker) { show(picker, 0); }, picker);
    may_raise([](id picker) { show(picker, 5); }, picker);
    may_raise([](id picker) { send<"selectButtonPressed">(picker); }, picker);
    return 0;
}

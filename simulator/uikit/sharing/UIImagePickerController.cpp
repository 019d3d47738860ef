// The photo picker: lists the files of the phone's photo library, and hands the delegate the one that is
// touched. The system's runs in another process.
#include <string>

#include "foundation/raise.h"
#include "objc/class.h"
#include "objc/string.h"
#include "runtime/not_modelled.h"
#include "uikit/sharing/_UIImagePickerList.h"

using namespace objc::literals;
extern "C" {
[[gnu::visibility("default")]] NSString* const UIImagePickerControllerOriginalImage =
    "UIImagePickerControllerOriginalImage"_ns;
[[gnu::visibility("default")]] NSString* const UIImagePickerControllerMediaType =
    "UIImagePickerControllerMediaType"_ns;
[[gnu::visibility("default")]] NSString* const UIImagePickerControllerImageURL =
    "UIImagePickerControllerImageURL"_ns;
}

namespace {

using objc::strong;

struct ImagePicker : objc::Implements<ImagePicker, UIImagePickerController> {
    struct Ivars {
        UIImagePickerControllerSourceType sourceType = UIImagePickerControllerSourceTypePhotoLibrary;
        strong<NSArray> mediaTypes;
        bool allowsEditing = false;
    };

    static bool isSourceTypeAvailable(Class, UIImagePickerControllerSourceType type) {
        return type != UIImagePickerControllerSourceTypeCamera;
    }
    static NSArray* availableMediaTypesForSourceType(Class, UIImagePickerControllerSourceType type) {
        return isSourceTypeAvailable(nullptr, type) ? NSArray::arrayWithObject("public.image"_ns) : nullptr;
    }

    strong<UIImagePickerController> initWithNibName(NSString* name, id bundle) {
        auto self = initialised_by_super<"initWithNibName:bundle:">(name, bundle);
        if (!self) return nullptr;
        self->ivars().mediaTypes = NSArray::arrayWithObject("public.image"_ns);
        auto page = _UIImagePickerList::make();
        self->self()->pushViewController(page, false);
        return strong<UIImagePickerController>(self.get());
    }
    UIImagePickerControllerSourceType sourceType() { return ivars().sourceType; }
    void setSourceType(UIImagePickerControllerSourceType type) {
        if (!isSourceTypeAvailable(nullptr, type))
            sim::raise("NSInvalidArgumentException"_ns,
                       "Source type " + std::to_string(type) + " not available");
        ivars().sourceType = type;
    }
    bool allowsEditing() { return ivars().allowsEditing; }
    void setAllowsEditing(bool allows) {
        if (allows)
            sim::not_modelled("UIImagePickerController", "setAllowsEditing:", "editing of what is picked");
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIImagePickerController, UINavigationController, ImagePicker,
           class_method<"isSourceTypeAvailable:", &ImagePicker::isSourceTypeAvailable>,
           class_method<"availableMediaTypesForSourceType:", &ImagePicker::availableMediaTypesForSourceType>,
           ivar<"_sourceType", &ImagePicker::Ivars::sourceType>,
           property<"mediaTypes", &ImagePicker::Ivars::mediaTypes>,
           ivar<"_allowsEditing", &ImagePicker::Ivars::allowsEditing>,
           method<"initWithNibName:bundle:", &ImagePicker::initWithNibName>,
           method<"sourceType", &ImagePicker::sourceType>,
           method<"setSourceType:", &ImagePicker::setSourceType>,
           method<"allowsEditing", &ImagePicker::allowsEditing>,
           method<"setAllowsEditing:", &ImagePicker::setAllowsEditing>)

// The photo picker's one page: the photographs' names, below each other.
#include "uikit/sharing/_UIImagePickerList.h"

#include "objc/class.h"
#include "objc/string.h"
#include "platform/tables.h"

namespace {

using objc::strong;
using namespace objc::literals;

/// Where the phone keeps its photographs.
NSString* library() { return "/var/mobile/Media/DCIM/100APPLE"_ns; }

struct ImageList : objc::Implements<ImageList, _UIImagePickerList> {
    struct Ivars {
        strong<NSArray> names;
        strong<UITableView> table;
    };

    void viewDidLoad() {
        super<"viewDidLoad">();
        auto* self = this->self();
        self->setTitle("Photos"_ns);
        self->navigationItem()->setRightBarButtonItem(UIBarButtonItem::alloc()->initWithSystemItem(
            UIBarButtonSystemItemCancel, self, objc::selector<"_cancel">()));
        NSArray* names = NSFileManager::defaultManager()->contentsOfDirectoryAtPath(library(), nullptr);
        ivars().names = names->sortedArrayUsingSelector(objc::selector<"compare:">());
        ivars().table = UITableView::alloc()->initWithFrame(self->view()->bounds(), UITableViewStylePlain);
        ivars().table->setAutoresizingMask(UIViewAutoresizingFlexibleWidth |
                                           UIViewAutoresizingFlexibleHeight);
        ivars().table->setDataSource(self);
        ivars().table->setDelegate(self);
        self->view()->addSubview(ivars().table);
    }
    NSInteger numberOfRows(UITableView*, NSInteger) { return static_cast<NSInteger>(ivars().names->count()); }
    UITableViewCell* cellForRow(UITableView* table, NSIndexPath* path) {
        strong<UITableViewCell> cell = table->dequeueReusableCell("photo"_ns);
        if (!cell) cell = UITableViewCell::alloc()->initWithStyle(UITableViewCellStyleDefault, "photo"_ns);
        cell->textLabel()->setText(name_at(path));
        return std::move(cell).autoreleased();
    }

    // The file is decoded when it is picked: one that cannot be is handed over without an image.
    void didSelectRow(UITableView*, NSIndexPath* path) {
        auto* picker = as<UIImagePickerController>(self()->parentViewController());
        NSString* file = library()->stringByAppendingPathComponent(name_at(path));
        const strong<NSMutableDictionary> info = NSMutableDictionary::alloc()->initWithCapacity(3);
        info->setObject("public.image"_ns, UIImagePickerControllerMediaType);
        info->setObject(NSURL::fileURLWithPath(file), UIImagePickerControllerImageURL);
        if (UIImage* image = UIImage::imageWithContentsOfFile(file))
            info->setObject(image, UIImagePickerControllerOriginalImage);
        auto* delegate = static_cast<NSObject*>(picker->delegate());
        if (delegate->respondsToSelector(
                objc::selector<"imagePickerController:didFinishPickingMediaWithInfo:">()))
            delegate->send<"imagePickerController:didFinishPickingMediaWithInfo:">(
                picker, static_cast<NSDictionary*>(info.get()));
    }
    // Without a delegate that hears of it the picker goes by itself.
    void cancel() {
        auto* picker = as<UIImagePickerController>(self()->parentViewController());
        auto* delegate = static_cast<NSObject*>(picker->delegate());
        if (delegate->respondsToSelector(objc::selector<"imagePickerControllerDidCancel:">()))
            delegate->send<"imagePickerControllerDidCancel:">(picker);
        else
            picker->dismissViewController(true, nullptr);
    }

  private:
    NSString* name_at(NSIndexPath* path) {
        return static_cast<NSString*>(ivars().names->objectAtIndex(static_cast<NSUInteger>(path->row())));
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(_UIImagePickerList, UIViewController, ImageList,
           ivar<"_names", &ImageList::Ivars::names>,
           ivar<"_table", &ImageList::Ivars::table>,
           method<"viewDidLoad", &ImageList::viewDidLoad>,
           method<"tableView:numberOfRowsInSection:", &ImageList::numberOfRows>,
           method<"tableView:cellForRowAtIndexPath:", &ImageList::cellForRow>,
           method<"tableView:didSelectRowAtIndexPath:", &ImageList::didSelectRow>,
           method<"_cancel", &ImageList::cancel>)

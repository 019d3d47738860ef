// The root list of Settings: a few of the system's own rows, which lead nowhere, and those of packages, whose
// bundles are loaded when they are touched.
#include "settings/PSUIPrefsListController.h"

#include <iterator>
#include <vector>

#include "foundation/text.h"
#include "objc/class.h"
#include "objc/string.h"
#include "platform/services.h"
#include "platform/tables.h"
#include "settings/bundle_code.h"
#include "settings/entries.h"
#include "settings/settings_app.h"
#include "uikit/controllers/screen.h"

namespace {

using objc::strong;
using namespace objc::literals;

constexpr const char* own_rows[] = {"General", "Display & Brightness", "Sounds & Haptics"};

/// What is shown where a bundle's code cannot be loaded.
strong<UIViewController> error_page(NSString* name, CGRect frame) {
    auto page = UIViewController::make();
    auto view = UIView::alloc()->initWithFrame(frame);
    view->setBackgroundColor(UIColor::whiteColor());
    auto label = UILabel::make<"initWithFrame:">(frame);
    label->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    label->setNumberOfLines(0);
    label->setTextAlignment(NSTextAlignmentCenter);
    label->setText("There was an error loading the preference bundle for "_ns->stringByAppendingString(name)
                       ->stringByAppendingString("."_ns));
    view->addSubview(label);
    page->setView(view);
    page->setTitle(name);
    return page;
}

struct RootList : objc::Implements<RootList, PSUIPrefsListController> {
    struct Ivars {
        std::vector<sim::SettingsEntry> entries;
        strong<UITableView> table;
    };

    strong<PSUIPrefsListController> init() {
        auto self = initialised_by_super<"init">();
        if (!self) return nullptr;
        self->self()->setTitle("Settings"_ns);
        self->ivars().entries = sim::read_settings_entries();
        return strong<PSUIPrefsListController>(self.get());
    }

    void viewDidLoad() {
        super<"viewDidLoad">();
        auto* self = this->self();
        auto& table = ivars().table;
        table = UITableView::alloc()->initWithFrame(self->view()->bounds(), UITableViewStyleGrouped);
        table->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
        table->setDataSource(self);
        table->setDelegate(self);
        self->view()->addSubview(table);
    }
    void viewWillAppear(bool animated) {
        super<"viewWillAppear:">(animated);
        if (NSIndexPath* path = ivars().table->indexPathForSelectedRow())
            ivars().table->deselectRow(path, animated);
    }
    UITableView* table() { return ivars().table; }

    NSArray* specifiers() {
        NSMutableArray* list = NSMutableArray::arrayWithCapacity(ivars().entries.size());
        for (const auto& entry : ivars().entries) list->addObject(entry.specifier);
        return list;
    }

    // ---- The table ------------------------------------------------------------------------------

    NSInteger numberOfSections(UITableView*) { return ivars().entries.empty() ? 1 : 2; }
    NSInteger numberOfRows(UITableView*, NSInteger section) {
        return section == 0 ? std::ssize(own_rows) : std::ssize(ivars().entries);
    }
    UITableViewCell* cellForRow(UITableView* table, NSIndexPath* path) {
        strong<UITableViewCell> cell = table->dequeueReusableCell("row"_ns);
        if (!cell) cell = UITableViewCell::alloc()->initWithStyle(UITableViewCellStyleDefault, "row"_ns);
        cell->setAccessoryType(UITableViewCellAccessoryDisclosureIndicator);
        const auto row = static_cast<size_t>(path->row());
        if (path->section() == 0) {
            cell->textLabel()->setText(NSString::stringWithUTF8String(own_rows[row]));
            return std::move(cell).autoreleased();
        }
        const sim::SettingsEntry& entry = ivars().entries[row];
        cell->textLabel()->setText(sim::string_of(entry.label));
        if (!entry.icon.empty())
            cell->imageView()->setImage(
                UIImage::imageWithContentsOfFile(sim::string_of(entry.bundle + "/" + entry.icon)));
        return std::move(cell).autoreleased();
    }
    bool shouldHighlightRow(UITableView*, NSIndexPath* path) { return path->section() == 1; }
    void didSelectRow(UITableView*, NSIndexPath* path) {
        const sim::SettingsEntry entry = ivars().entries[static_cast<size_t>(path->row())];
        send<"lazyLoadBundle:">(static_cast<PSSpecifier*>(entry.specifier));
        if (auto* page = send<"controllerForSpecifier:", UIViewController*>(
                static_cast<PSSpecifier*>(entry.specifier)))
            self()->navigationController()->pushViewController(page, true);
    }

    // ---- Bundles --------------------------------------------------------------------------------

    void lazyLoadBundle(PSSpecifier* specifier) {
        const sim::SettingsEntry* entry = entry_of(specifier);
        if (!entry) return;
        std::string error;
        if (!sim::load_bundle(NSBundle::bundleWithPath(sim::string_of(entry->bundle)), error))
            std::fprintf(stderr, "Settings: %s\n", error.c_str());
    }

    // A page of another class than PSViewController's is not shown at all.
    UIViewController* controllerForSpecifier(PSSpecifier* specifier) {
        const sim::SettingsEntry* entry = entry_of(specifier);
        if (!entry) return nullptr;
        NSBundle* bundle = NSBundle::bundleWithPath(sim::string_of(entry->bundle));
        NSString* name = entry->detail.empty()
                             ? as<NSString>(bundle->infoDictionary()->objectForKey("NSPrincipalClass"_ns))
                             : sim::string_of(entry->detail);
        const CGRect frame = self()->view()->bounds();
        Class type = name ? NSClassFromString(name) : nullptr;
        if (!type) return error_page(sim::string_of(entry->label), frame).autoreleased();
        if (!objc::send<"isSubclassOfClass:", bool>(reinterpret_cast<id>(type),
                                                    PSViewController::class_object())) {
            std::fprintf(stderr, "Settings: %s is not a subclass of PSViewController; nothing is shown\n",
                         class_getName(type));
            return nullptr;
        }
        const bool takes_size = objc::send<"instancesRespondToSelector:", bool>(
            reinterpret_cast<id>(type), objc::selector<"initForContentSize:">());
        strong<PSViewController> page =
            takes_size ? objc::make<"initForContentSize:", PSViewController>(type, frame.size)
                       : objc::make<"init", PSViewController>(type);
        page->setRootController(self()->rootController());
        page->setParentController(self());
        page->setSpecifier(specifier);
        if (!page->title()->length()) page->setTitle(sim::string_of(entry->label));
        return std::move(page).autoreleased();
    }

  private:
    const sim::SettingsEntry* entry_of(PSSpecifier* specifier) {
        for (const auto& entry : ivars().entries)
            if (entry.specifier == specifier) return &entry;
        return nullptr;
    }
};

/// Not owned: the screen owns it.
objc::weak<PSUIPrefsListController>& shown_list() {
    static auto* list = new objc::weak<PSUIPrefsListController>;
    return *list;
}

}  // namespace

namespace sim {

void open_settings() {
    auto list = PSUIPrefsListController::make();
    auto root = PSRootController::alloc()->initWithTitle("Settings"_ns, "com.apple.Preferences"_ns);
    list->setRootController(root);
    list->setParentController(root);
    root->pushViewController(list, false);
    shown_list() = list.get();
    show_controller(root);
}

std::vector<std::string> settings_rows() {
    std::vector<std::string> rows;
    if (const auto list = shown_list().get())
        for (const auto& entry : static_cast<RootList*>(list.get())->ivars().entries)
            rows.push_back(entry.label);
    return rows;
}

}  // namespace sim

using namespace objc::definition;

OBJC_CLASS(PSUIPrefsListController, PSListController, RootList,
           method<"init", &RootList::init>,
           ivar<"_entries", &RootList::Ivars::entries>,
           ivar<"_list", &RootList::Ivars::table>,
           method<"viewDidLoad", &RootList::viewDidLoad>,
           method<"viewWillAppear:", &RootList::viewWillAppear>,
           method<"table", &RootList::table>,
           method<"specifiers", &RootList::specifiers>,
           method<"numberOfSectionsInTableView:", &RootList::numberOfSections>,
           method<"tableView:numberOfRowsInSection:", &RootList::numberOfRows>,
           method<"tableView:cellForRowAtIndexPath:", &RootList::cellForRow>,
           method<"tableView:shouldHighlightRowAtIndexPath:", &RootList::shouldHighlightRow>,
           method<"tableView:didSelectRowAtIndexPath:", &RootList::didSelectRow>,
           method<"lazyLoadBundle:", &RootList::lazyLoadBundle>,
           method<"controllerForSpecifier:", &RootList::controllerForSpecifier>)

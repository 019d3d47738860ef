#include "pane/screens/HuecraftSettingsController.h"

#include "objc/class.h"
#include "pane/drawing/judgement.h"
#include "pane/model/library.h"
#include "pane/model/shelf.h"
#include "pane/screens/applying.h"
#include "pane/screens/asking.h"
#include "pane/screens/bottom_bar.h"
#include "pane/screens/compatibility/HuecraftSettingsCompatibilityController.h"
#include "pane/screens/editor/edit.h"
#include "pane/screens/plain_rows.h"
#include "pane/screens/preview_header.h"
#include "pane/screens/theme_actions.h"
#include "pane/screens/theme_rows.h"
#include "platform/gestures.h"
#include "platform/services.h"

template <>
inline constexpr auto objc::structure_encoding<pane::ThemeRows> = objc::Name("{ThemeRows=}");
template <>
inline constexpr auto objc::structure_encoding<pane::BottomBar> = objc::Name("{BottomBar=}");

namespace {

using namespace objc::literals;
using namespace pane;
using objc::strong;

enum Section : NSInteger {
    switch_section,
    own_section,
    along_section,
    rescue_section,
    about_section,
    section_count
};
enum RescueRow : NSInteger { off_row, reset_row, rescue_row_count };
constexpr CGFloat plain_row_height = 44;

struct FirstScreen : objc::Implements<FirstScreen, HuecraftSettingsController> {
    struct Ivars {
        strong<UITableView> table;
        strong<UIView> header;
        strong<UISwitch> on;
        /// Files' names: the user's own, and those that come along.
        strong<NSArray> own, along;
        /// The chosen one of the user's own, and why there is no list of them.
        strong<NSString> chosen, trouble;
        ThemeRows* rows = nullptr;
        BottomBar* bar = nullptr;
        /// Whether the bar offers to put a theme back that was just deleted.
        bool can_put_back = false;
    };

    void dealloc() {
        delete ivars().rows;
        delete ivars().bar;
        if (NSNotificationCenter* center = NSNotificationCenter::defaultCenter())
            center->removeObserver(this);
    }

    // --- The page ---

    void viewDidLoad() {
        super<"viewDidLoad">();
        auto& own = ivars();
        self()->setTitle("Huecraft"_ns);
        own.rows = new ThemeRows;
        UIView* page = self()->view();
        own.table = UITableView::alloc()->initWithFrame(page->bounds(), UITableViewStyleGrouped);
        own.table->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
        own.table->setDataSource(this);
        own.table->setDelegate(this);
        own.table->setAllowsSelectionDuringEditing(true);
        own.table->addGestureRecognizer(
            UILongPressGestureRecognizer::alloc()->initWithTarget(this, objc::selector<"heldDown:">()));
        own.header = UIView::alloc()->initWithFrame({});
        own.header->setIsAccessibilityElement(true);
        own.header->setAccessibilityTraits(UIAccessibilityTraitImage);
        page->addSubview(own.table);
        show_bar_buttons();
        own.on = UISwitch::make<"initWithFrame:">(CGRect{});
        own.on->addTarget(this, objc::selector<"switched:">(), UIControlEventValueChanged);
        own.bar = new BottomBar;
        own.bar->put_on(page, this, objc::selector<"barButtonPressed">());
        NSNotificationCenter::defaultCenter()->addObserver(this, objc::selector<"becameActive:">(),
                                                           UIApplicationDidBecomeActiveNotification, nullptr);
    }

    void show_bar_buttons() {
        auto add = UIBarButtonItem::alloc()->initWithSystemItem(UIBarButtonSystemItemAdd, this,
                                                                objc::selector<"addPressed:">());
        const id buttons[] = {self()->editButtonItem(), add};
        self()->navigationItem()->setRightBarButtonItems(NSArray::arrayWithObjects(buttons, 2));
    }

    void viewWillAppear(bool animated) {
        super<"viewWillAppear:">(animated);
        reload();
    }
    /// The files may have changed behind the page.
    void becameActive(NSNotification*) {
        if (self()->view()->window()) reload();
    }

    void viewDidLayoutSubviews() {
        super<"viewDidLayoutSubviews">();
        UIView* page = self()->view();
        const CGFloat width = page->bounds().size.width;
        if (ivars().header->bounds().size.width != width) show_chosen();
        lay_out_bar();
    }

    void didReceiveMemoryWarning() {
        super<"didReceiveMemoryWarning">();
        if (ivars().rows) ivars().rows->forget();
    }

    // --- What it shows ---

    /// Everything from the files, again.
    void reload() {
        auto& own = ivars();
        NSError* error = nullptr;
        own.own = themes::files_in(themes::folder(), &error);
        own.trouble = own.own ? nullptr : error->localizedDescription();
        own.along = themes::files_in(themes::folder_that_comes_along(), nullptr);
        const Preferences preferences = read_preferences();
        own.chosen = preferences.chosen;
        own.on->setOn(preferences.is_on && preferences.chosen);
        own.on->setEnabled(preferences.chosen);
        own.table->reloadData();
        show_chosen();
        show_bar();
    }

    void show_chosen() {
        auto& own = ivars();
        strong<HuecraftConfig> theme;
        if (own.chosen) theme = themes::read(themes::folder(), own.chosen).theme;
        NSString* name = theme ? theme->getConfigName() : nullptr;
        own.header->setAccessibilityLabel(name ? text<"The keyboard in the theme %1">(name)
                                               : text<"No theme is chosen">());
        const CGFloat width = self()->view()->bounds().size.width;
        // Without a theme there is nothing to keep room for.
        const CGRect frame{{0, 0}, {width, theme ? preview_height(width) : 0}};
        if (!(own.header->frame() == frame)) {
            own.header->setFrame(frame);
            own.table->setTableHeaderView(own.header);
        }
        if (width > 0) show_preview(theme, own.header);
        own.header->setAlpha(own.on->isOn() ? 1 : 0.4);
    }

    void show_bar() {
        auto& own = ivars();
        if (own.can_put_back)
            own.bar->show(text<"The theme was deleted.">(), text<"Undo">());
        else if (shelf::awaits_restart())
            own.bar->show(text<"What is running keeps its keyboard.">(), text<"Apply">());
        else
            own.bar->hide();
        lay_out_bar();
    }

    void lay_out_bar() {
        UIView* page = self()->view();
        ivars().bar->lay_out(page);
        ivars().table->setContentInset({0, 0, ivars().bar->height(page), 0});
    }

    // --- What is touched ---

    void switched(UISwitch* control) {
        NSError* error = nullptr;
        if (!shelf::switch_on(control->isOn(), &error))
            tell(this, text<"This could not be stored.">(), error);
        reload();
    }

    void setEditing(bool editing, bool animated) {
        super<"setEditing:animated:">(editing, animated);
        ivars().table->setEditing(editing, animated);
    }

    void addPressed(UIBarButtonItem* button) {
        offer_additions(self(), {.button = strong<UIBarButtonItem>(button)});
    }

    void heldDown(UIGestureRecognizer* recogniser) {
        if (recogniser->state() != UIGestureRecognizerStateBegan) return;
        UITableView* table = ivars().table;
        if (NSIndexPath* path = table->indexPathForRowAtPoint(recogniser->locationInView(table)))
            show_actions(path);
    }

    void show_actions(NSIndexPath* path) {
        if (!lists_themes(path->section())) return;
        UITableView* table = ivars().table;
        offer_actions(self(), folder_of(path->section()), file_at(path),
                      {.view = strong<UIView>(table), .rect = table->rectForRowAtIndexPath(path)});
    }

    void showTheme(NSString* file) {
        reload();
        const NSUInteger row = file ? ivars().own->indexOfObject(file) : NSNotFound;
        if (row == NSNotFound || row >= ivars().own->count()) return;
        ivars().table->layoutIfNeeded();
        ivars().table->scrollToRow(NSIndexPath::indexPathForRow(NSInteger(row), own_section),
                                   UITableViewScrollPositionNone, true);
    }

    void removeTheme(NSString* file) {
        NSError* error = nullptr;
        if (shelf::remove(file, &error))
            ivars().can_put_back = true;
        else
            tell(this, text<"The theme could not be deleted.">(), error);
        reload();
    }

    void barButtonPressed() {
        if (ivars().can_put_back) {
            NSError* error = nullptr;
            ivars().can_put_back = false;
            if (!shelf::put_back(&error)) tell(this, text<"The theme could not be put back.">(), error);
            reload();
        } else {
            ask_for_restart(this, text<"The home screen restarts, and applications with it.">());
        }
    }

    /// One touch chooses. Only a theme that nobody could read is asked about.
    void choose(NSString* folder, NSString* file) {
        const themes::Reading reading = themes::read(folder, file);
        if (!reading.theme) {
            tell(this, text<"This theme cannot be used.">(), reading.fault);
            return;
        }
        const auto legibility = readability::legibility_of(pair_of(reading.theme), behind(reading.theme));
        if (is_readable(legibility)) {
            store(folder, file);
            return;
        }
        UIAlertController* alert =
            make_alert(text<"The labels can hardly be read.">(),
                       text<"You can turn the theme off again on this page, without typing.">());
        add_cancel(alert);
        add_answer(alert, text<"Use It">(), UIAlertActionStyleDestructive,
                   [page = strong<FirstScreen>(this), folder = strong<NSString>(folder),
                    file = strong<NSString>(file)] { page->store(folder, file); });
        show(alert, this);
    }

    void store(NSString* folder, NSString* file) {
        NSError* error = nullptr;
        ivars().can_put_back = false;
        if (!shelf::choose(folder, file, &error)) tell(this, text<"This could not be stored.">(), error);
        reload();
    }

    void turn_off() {
        NSError* error = nullptr;
        if (!shelf::switch_on(false, &error)) {
            tell(this, text<"This could not be stored.">(), error);
            return;
        }
        reload();
        ask_for_restart(this, text<"Theming is off. The home screen restarts, and applications with it.">());
    }

    void ask_for_reset() {
        UIAlertController* alert =
            make_alert(text<"Reset Huecraft?">(), text<"No theme is chosen then. Your themes stay.">());
        add_cancel(alert);
        add_answer(alert, text<"Reset">(), UIAlertActionStyleDestructive,
                   [page = strong<FirstScreen>(this)] { page->reset(); });
        show(alert, this);
    }

    void reset() {
        NSError* error = nullptr;
        if (!shelf::reset(&error)) tell(this, text<"This could not be stored.">(), error);
        reload();
    }

    // --- The table ---

    NSArray* files_of(NSInteger section) { return section == own_section ? ivars().own : ivars().along; }
    static NSString* folder_of(NSInteger section) {
        return section == own_section ? themes::folder() : themes::folder_that_comes_along();
    }
    NSString* file_at(NSIndexPath* path) {
        return static_cast<NSString*>(files_of(path->section())->objectAtIndex(NSUInteger(path->row())));
    }
    static bool lists_themes(NSInteger section) { return section == own_section || section == along_section; }

    NSInteger numberOfSections(UITableView*) { return section_count; }

    NSInteger numberOfRows(UITableView*, NSInteger section) {
        if (lists_themes(section)) return NSInteger(files_of(section)->count());
        return section == rescue_section ? NSInteger{rescue_row_count} : 1;
    }

    NSString* titleForHeader(UITableView*, NSInteger section) {
        if (section == own_section) return text<"Your Themes">();
        return section == along_section ? text<"Themes to Begin With">() : nullptr;
    }

    NSString* titleForFooter(UITableView*, NSInteger section) {
        NSString* fault = section == switch_section ? library_fault() : nullptr;
        if (fault) return fault;
        if (section == switch_section && !ivars().chosen) return text<"Choose a theme to begin.">();
        if (section == own_section && ivars().trouble)
            return text<"Your themes cannot be read: %1">(ivars().trouble.get());
        if (section == own_section && ivars().own->count() == 0)
            return text<"You have no theme of your own yet.">();
        return section == rescue_section ? text<"Off keeps your choice. Reset forgets it.">() : nullptr;
    }

    CGFloat heightForRow(UITableView*, NSIndexPath* path) {
        return lists_themes(path->section()) ? ThemeRows::row_height : plain_row_height;
    }

    UITableViewCell* cellForRow(UITableView* table, NSIndexPath* path) {
        if (lists_themes(path->section())) {
            UITableViewCell* cell = cell_of(table, "theme"_ns, UITableViewCellStyleSubtitle);
            NSString* file = file_at(path);
            const bool chosen =
                path->section() == own_section && ivars().chosen && file->isEqualToString(ivars().chosen);
            ivars().rows->show(folder_of(path->section()), file, chosen, cell);
            return cell;
        }
        if (path->section() == switch_section) return switch_row(table, ivars().on);
        if (path->section() == about_section) return link_row(table, text<"Compatibility">());
        return rescue_row(table, path->row() == off_row ? text<"Turn Off">() : text<"Reset">());
    }

    void didSelectRow(UITableView* table, NSIndexPath* path) {
        table->deselectRow(path, true);
        if (lists_themes(path->section()))
            table->isEditing() ? show_actions(path) : choose(folder_of(path->section()), file_at(path));
        else if (path->section() == rescue_section)
            path->row() == off_row ? turn_off() : ask_for_reset();
        else if (path->section() == about_section)
            self()->navigationController()->pushViewController(
                HuecraftSettingsCompatibilityController::make(), true);
    }

    void accessoryButtonTapped(UITableView*, NSIndexPath* path) {
        edit_theme(self(), folder_of(path->section()), file_at(path));
    }

    bool canEditRow(UITableView*, NSIndexPath* path) { return path->section() == own_section; }

    void commitEditing(UITableView*, UITableViewCellEditingStyle style, NSIndexPath* path) {
        if (style != UITableViewCellEditingStyleDelete || path->section() != own_section) return;
        removeTheme(file_at(path));
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(HuecraftSettingsController, PSViewController, FirstScreen,
           conforms<"UITableViewDataSource">, conforms<"UITableViewDelegate">,
           ivar<"_table", &FirstScreen::Ivars::table>, ivar<"_header", &FirstScreen::Ivars::header>,
           ivar<"_on", &FirstScreen::Ivars::on>, ivar<"_own", &FirstScreen::Ivars::own>,
           ivar<"_along", &FirstScreen::Ivars::along>, ivar<"_chosen", &FirstScreen::Ivars::chosen>, ivar<"_trouble", &FirstScreen::Ivars::trouble>,
           ivar<"_rows", &FirstScreen::Ivars::rows>, ivar<"_bar", &FirstScreen::Ivars::bar>,
           ivar<"_canPutBack", &FirstScreen::Ivars::can_put_back>,
           method<"viewDidLoad", &FirstScreen::viewDidLoad>,
           method<"viewWillAppear:", &FirstScreen::viewWillAppear>,
           method<"viewDidLayoutSubviews", &FirstScreen::viewDidLayoutSubviews>,
           method<"didReceiveMemoryWarning", &FirstScreen::didReceiveMemoryWarning>,
           method<"becameActive:", &FirstScreen::becameActive>,
           method<"setEditing:animated:", &FirstScreen::setEditing>,
           method<"addPressed:", &FirstScreen::addPressed>,
           method<"heldDown:", &FirstScreen::heldDown>,
           method<"showTheme:", &FirstScreen::showTheme>,
           method<"removeTheme:", &FirstScreen::removeTheme>,
           method<"switched:", &FirstScreen::switched>,
           method<"barButtonPressed", &FirstScreen::barButtonPressed>,
           method<"numberOfSectionsInTableView:", &FirstScreen::numberOfSections>,
           method<"tableView:numberOfRowsInSection:", &FirstScreen::numberOfRows>,
           method<"tableView:titleForHeaderInSection:", &FirstScreen::titleForHeader>,
           method<"tableView:titleForFooterInSection:", &FirstScreen::titleForFooter>,
           method<"tableView:heightForRowAtIndexPath:", &FirstScreen::heightForRow>,
           method<"tableView:cellForRowAtIndexPath:", &FirstScreen::cellForRow>,
           method<"tableView:didSelectRowAtIndexPath:", &FirstScreen::didSelectRow>,
           method<"tableView:accessoryButtonTappedForRowWithIndexPath:", &FirstScreen::accessoryButtonTapped>,
           method<"tableView:canEditRowAtIndexPath:", &FirstScreen::canEditRow>,
           method<"tableView:commitEditingStyle:forRowAtIndexPath:", &FirstScreen::commitEditing>)

#include "pane/screens/editor/HuecraftSettingsEditor.h"

#include <algorithm>

#include "objc/class.h"
#include "pane/drawing/judgement.h"
#include "pane/drawing/photo.h"
#include "pane/model/themes.h"
#include "pane/screens/asking.h"
#include "pane/screens/editor/HuecraftSettingsColorPicker.h"
#include "pane/screens/editor/HuecraftSettingsCropper.h"
#include "pane/screens/editor/background_kinds.h"
#include "pane/screens/editor/control_cells.h"
#include "pane/screens/editor/edit.h"
#include "pane/screens/editor/undo_bar.h"
#include "pane/screens/editor/value_rows.h"
#include "pane/screens/preview_header.h"
#include "platform/services.h"
#include "platform/sharing.h"

namespace {

/// What the editor holds that is no object.
struct Workplace {
    pane::Editing editing;
    std::vector<std::vector<pane::Place>> rows{};
    readability::Legibility legibility{};
    /// Which colour the picker was opened for.
    pane::Place picked{};
    pane::ControlCells cells;
    pane::UndoBar bar;
};

}  // namespace

template <>
inline constexpr auto objc::structure_encoding<Workplace> = objc::Name("{Workplace=}");

namespace {

using namespace objc::literals;
using namespace pane;
using objc::strong;

enum Section : NSInteger { name_section, keys_section, contrast_section, background_section };

struct Editor : objc::Implements<Editor, HuecraftSettingsEditor> {
    struct Ivars {
        strong<HuecraftConfig> theme;
        strong<NSString> file;
        strong<UIView> header;
        strong<UITableView> table;
        /// The photo that was chosen, to be cropped again.
        strong<UIImage> photo;
        Workplace* work = nullptr;
    };

    void setTheme(HuecraftConfig* theme, NSString* file) {
        ivars().theme = theme;
        ivars().file = file;
    }

    void dealloc() { delete ivars().work; }

    Workplace& work() { return *ivars().work; }
    Editing& editing() { return work().editing; }

    // --- The page ---

    void viewDidLoad() {
        super<"viewDidLoad">();
        auto& own = ivars();
        auto* self = this->self();
        self->setEdgesForExtendedLayout(UIRectEdgeNone);
        UINavigationItem* item = self->navigationItem();
        item->setLeftBarButtonItem(UIBarButtonItem::alloc()->initWithTitle(
            text<"Cancel">(), UIBarButtonItemStylePlain, self, objc::selector<"leave">()));
        item->setRightBarButtonItem(UIBarButtonItem::alloc()->initWithTitle(
            text<"Save">(), UIBarButtonItemStyleDone, self, objc::selector<"save">()));
        UIView* page = self->view();
        page->setBackgroundColor(UIColor::colorWithRGB(0.937, 0.937, 0.957, 1));
        own.header = UIView::alloc()->initWithFrame({});
        own.header->setIsAccessibilityElement(true);
        own.header->setAccessibilityTraits(UIAccessibilityTraitImage);
        page->addSubview(own.header);
        own.table = UITableView::alloc()->initWithFrame({}, UITableViewStyleGrouped);
        own.table->setDataSource(self);
        own.table->setDelegate(self);
        own.table->setAllowsSelectionDuringEditing(true);
        page->addSubview(own.table);
        own.work = new Workplace{
            .editing = Editing(own.theme, own.file),
            .cells = ControlCells(self),
            .bar = UndoBar(page, self, objc::selector<"undo">(), objc::selector<"redo">()),
        };
    }

    void viewWillAppear(bool animated) {
        super<"viewWillAppear:">(animated);
        show_all();
    }

    void viewDidLayoutSubviews() {
        super<"viewDidLayoutSubviews">();
        constexpr CGFloat largest_part = 0.45;
        UIView* page = self()->view();
        const CGSize all = page->bounds().size;
        const CGFloat foot = work().bar.lay_out(page);
        const CGFloat head = std::min(preview_height(all.width), all.height * largest_part);
        const CGRect header{{0, 0}, {all.width, head}};
        const bool is_other = !(ivars().header->frame() == header);
        ivars().header->setFrame(header);
        ivars().table->setFrame({{0, head}, {all.width, all.height - head - foot}});
        if (is_other) show_preview(editing().theme(), ivars().header);
    }

    void didReceiveMemoryWarning() {
        super<"didReceiveMemoryWarning">();
        ivars().photo = nullptr;
    }

    // --- What it shows ---

    /// Everything, after a change that rows come or go with.
    void show_all() {
        auto& own = ivars();
        work().cells.forget_image();
        show_theme();
        // The table still shows the rows of before, and asks which of them can be edited.
        own.table->setEditing(editing().kind() == huecraft::gradient_background, false);
        work().rows = rows_of(editing(), work().legibility);
        work().cells.show(editing().theme(), editing().kind(), editing().direction());
        own.table->reloadData();
    }

    /// What follows a finger: the preview and the figures.
    void show_theme() {
        HuecraftConfig* theme = editing().theme();
        NSString* name = theme->getConfigName();
        // A bar is built for a title, and few changes are of the name.
        if (!name->isEqual(self()->title())) self()->setTitle(name);
        ivars().header->setAccessibilityLabel(text<"The keyboard in the theme %1">(name));
        if (ivars().header->bounds().size.width > 0) show_preview(theme, ivars().header);
        work().legibility = readability::legibility_of(pair_of(theme), behind(theme));
        work().bar.show(editing().sitting.can_undo(), editing().sitting.can_redo());
    }

    /// The same with the rows that are in sight, and none of them exchanged.
    void show_moving() {
        show_theme();
        const auto& rows = work().rows[contrast_section];
        for (NSInteger row = 0; row < std::ssize(rows); ++row) {
            NSIndexPath* path = NSIndexPath::indexPathForRow(row, contrast_section);
            if (rows[static_cast<size_t>(row)].row == Row::nearest_pair ||
                !ivars().table->cellForRowAtIndexPath(path))
                continue;
            ivars().table->reloadRows(NSArray::arrayWithObject(path), UITableViewRowAnimationNone);
        }
    }

    // --- The table ---

    const Place& place_at(NSIndexPath* path) {
        return work().rows[static_cast<size_t>(path->section())][static_cast<size_t>(path->row())];
    }

    NSInteger numberOfSections(UITableView*) { return std::ssize(work().rows); }
    NSInteger numberOfRows(UITableView*, NSInteger section) {
        return std::ssize(work().rows[static_cast<size_t>(section)]);
    }
    NSString* titleForHeader(UITableView*, NSInteger section) {
        switch (section) {
            case keys_section: return text<"Keys">();
            case contrast_section: return text<"Contrast">();
            case background_section: return text<"Background">();
            default: return nullptr;
        }
    }
    NSString* titleForFooter(UITableView*, NSInteger section) {
        return section == contrast_section
                   ? text<"Labels need 4.5, highlights 3, the label of a pressed key 2.">()
                   : nullptr;
    }

    CGFloat heightForRow(UITableView*, NSIndexPath* path) {
        switch (place_at(path).row) {
            case Row::kind: return ControlCells::kind_height;
            case Row::direction: return ControlCells::direction_height;
            case Row::alpha: return ControlCells::alpha_height;
            default: return text_row_height();
        }
    }

    UITableViewCell* cellForRow(UITableView* table, NSIndexPath* path) {
        const Place& place = place_at(path);
        switch (place.row) {
            case Row::kind: return work().cells.kind;
            case Row::direction: return work().cells.direction;
            case Row::alpha: return work().cells.alpha;
            case Row::caps: return work().cells.caps;
            default: return value_cell(table, place, editing(), work().legibility);
        }
    }

    void didSelectRow(UITableView* table, NSIndexPath* path) {
        table->deselectRow(path, true);
        const Place place = place_at(path);
        switch (place.row) {
            case Row::name: change_name(); break;
            case Row::text_colour:
            case Row::highlight_colour:
            case Row::colour:
            case Row::add_colour: pick_colour(place); break;
            case Row::nearest_pair: use_nearest_pair(); break;
            case Row::photo: choose_photo(); break;
            case Row::crop:
                crop(ivars().photo ? ivars().photo.get() : workable(editing().theme()->getImage()));
                break;
            default: break;
        }
    }

    /// The colours of a gradient, of which one stays.
    bool canEditRow(UITableView*, NSIndexPath* path) {
        return canMoveRow(nullptr, path) && editing().colours().size() > 1;
    }
    bool canMoveRow(UITableView*, NSIndexPath* path) {
        return editing().kind() == huecraft::gradient_background && place_at(path).row == Row::colour;
    }
    void commitEditing(UITableView*, UITableViewCellEditingStyle style, NSIndexPath* path) {
        if (style != UITableViewCellEditingStyleDelete) return;
        editing().remove_colour(place_at(path).colour);
        show_all();
    }
    NSIndexPath* targetForMove(UITableView*, NSIndexPath* from, NSIndexPath* proposed) {
        if (proposed->section() == from->section() && canMoveRow(nullptr, proposed)) return proposed;
        // The first colour's row, or the last one's.
        const auto& rows = work().rows[background_section];
        const auto is_colour = [](const Place& place) { return place.row == Row::colour; };
        const auto first = std::ranges::find_if(rows, is_colour) - rows.begin();
        const bool above = proposed->section() < from->section() ||
                           (proposed->section() == from->section() && proposed->row() < from->row());
        const auto count = static_cast<NSInteger>(editing().colours().size());
        return NSIndexPath::indexPathForRow(above ? first : first + count - 1, from->section());
    }
    void moveRow(UITableView*, NSIndexPath* from, NSIndexPath* to) {
        editing().move_colour(place_at(from).colour, place_at(to).colour);
        show_theme();
        work().cells.show(editing().theme(), editing().kind(), editing().direction());
    }

    // --- Controls ---

    void kindChosen(UISegmentedControl* kinds) {
        const NSInteger chosen = kinds->selectedSegmentIndex();
        if (chosen < 0 || chosen >= std::ssize(offered_kinds)) return;
        editing().set_kind(offered_kinds[chosen]);
        show_all();
    }
    void directionChosen(UIButton* arrow) {
        editing().set_direction(static_cast<NSUInteger>(arrow->tag()));
        show_moving();
        work().cells.show(editing().theme(), editing().kind(), editing().direction());
    }
    void alphaChanged(UISlider* slider) {
        editing().set_alpha(static_cast<double>(slider->value()));
        work().cells.show_alpha(editing().theme());
        show_moving();
    }
    void alphaSettled(UISlider*) { show_all(); }
    void capsSwitched(UISwitch* control) {
        editing().set_caps(control->isOn());
        show_all();
    }
    void undo() {
        editing().sitting.undo();
        show_all();
    }
    void redo() {
        editing().sitting.redo();
        show_all();
    }

    // --- Colours ---

    void pick_colour(const Place& place) {
        const auto picker = HuecraftSettingsColorPicker::make();
        if (!picker) {
            tell(self(), text<"Huecraft has no colour picker here.">(), static_cast<NSString*>(nullptr));
            return;
        }
        work().picked = place;
        const auto colours = editing().colours();
        strong<UIColor> first = editing().colour_of(place);
        if (!first && !colours.empty()) first = colours.back();
        picker->setFirstColor(first ? first.get() : UIColor::blackColor());
        picker->setDelegate(self());
        picker->setModalPresentationStyle(UIModalPresentationOverFullScreen);
        self()->presentViewController(picker, true, nullptr);
    }
    void colourReturned(UIColor* colour, NSString*) {
        editing().set_colour(work().picked, colour);
        show_all();
    }

    void use_nearest_pair() {
        HuecraftConfig* theme = editing().theme();
        const auto pair = readability::nearest_pair(pair_of(theme), behind(theme));
        if (!pair) {
            tell(self(), text<"No labels can be read on all of this background.">(),
                 text<"A background of more even brightness helps.">());
            return;
        }
        editing().set_pair(ui_color(pair->labels), ui_color(pair->highlights));
        show_all();
    }

    // --- Photos ---

    void choose_photo() {
        const auto picker = UIImagePickerController::make();
        picker->send<"setDelegate:">(static_cast<id>(self()));
        self()->presentViewController(picker, true, nullptr);
    }
    void didFinishPicking(UIImagePickerController* picker, NSDictionary* info) {
        strong<UIImage> photo = workable(as<NSURL>(info->objectForKey(UIImagePickerControllerImageURL)));
        if (!photo) photo = workable(as<UIImage>(info->objectForKey(UIImagePickerControllerOriginalImage)));
        picker->dismissViewController(true, objc::Block([page = strong<Editor>(this), photo] {
                                          page->ivars().photo = photo;
                                          page->crop(photo);
                                      }));
    }
    void didCancelPicking(UIImagePickerController* picker) { picker->dismissViewController(true, nullptr); }

    void crop(UIImage* photo) {
        if (!photo) {
            tell(self(), text<"This photo cannot be read.">(), static_cast<NSString*>(nullptr));
            return;
        }
        const auto cropper = HuecraftSettingsCropper::make();
        cropper->setPhoto(photo);
        cropper->setReceiver(self());
        self()->navigationController()->pushViewController(cropper, true);
    }
    /// The page appears anew afterwards, and shows it.
    void photoCropped(UIImage* image) { editing().set_image(image); }

    // --- The name ---

    void change_name() {
        ask_for_name(self(), text<"Name">(), editing().theme()->getConfigName(), text<"OK">(),
                     [page = strong<Editor>(this)](NSString* name) {
                         page->editing().set_name(name);
                         page->show_all();
                     });
    }

    // --- Leaving ---

    void leave() {
        if (!editing().sitting.is_changed()) return close();
        UIAlertController* alert = make_alert(text<"Keep your changes?">(), nullptr);
        add_answer(alert, text<"Save">(), UIAlertActionStyleDefault,
                   [page = strong<Editor>(this)] { page->save(); });
        add_answer(alert, text<"Discard">(), UIAlertActionStyleDestructive,
                   [page = strong<Editor>(this)] { page->close(); });
        add_cancel(alert);
        show(alert, self());
    }

    void save() {
        if (!editing().is_changed_behind()) {
            NSError* error = nullptr;
            return saved(editing().save(&error), error);
        }
        UIAlertController* alert = make_alert(text<"This theme was changed elsewhere meanwhile.">(), nullptr);
        add_answer(alert, text<"Keep Both">(), UIAlertActionStyleDefault, [page = strong<Editor>(this)] {
            NSError* error = nullptr;
            page->saved(page->editing().save_as_new(&error), error);
        });
        add_answer(alert, text<"Replace">(), UIAlertActionStyleDestructive, [page = strong<Editor>(this)] {
            NSError* error = nullptr;
            page->saved(page->editing().save(&error), error);
        });
        add_cancel(alert);
        show(alert, self());
    }

    void saved(bool is_saved, NSError* error) {
        if (is_saved)
            close();
        else
            tell(self(), text<"The theme could not be saved. What you changed is still here.">(), error);
    }

    void close() { self()->dismissViewController(true, nullptr); }
};

}  // namespace

namespace pane {

void edit_theme(UIViewController* page, NSString* folder, NSString* file) {
    const themes::Reading reading = themes::read(folder, file);
    if (!reading.theme) return tell(page, text<"This theme cannot be used.">(), reading.fault);
    NSString* name = reading.theme->getConfigName();
    if (!name || name->length() == 0) reading.theme->setConfigName(file->stringByDeletingPathExtension());
    const auto editor = HuecraftSettingsEditor::make();
    editor->setTheme(reading.theme, folder->isEqualToString(themes::folder()) ? file : nullptr);
    page->presentViewController(UINavigationController::alloc()->initWithRootViewController(editor), true,
                                nullptr);
}

}  // namespace pane

using namespace objc::definition;

OBJC_CLASS(HuecraftSettingsEditor, UIViewController, Editor,
           conforms<"UITableViewDataSource">, conforms<"UITableViewDelegate">,
           conforms<"UIImagePickerControllerDelegate">, conforms<"UINavigationControllerDelegate">,
           ivar<"_theme", &Editor::Ivars::theme>, ivar<"_file", &Editor::Ivars::file>,
           ivar<"_header", &Editor::Ivars::header>, ivar<"_table", &Editor::Ivars::table>,
           ivar<"_photo", &Editor::Ivars::photo>, ivar<"_work", &Editor::Ivars::work>,
           method<"setTheme:file:", &Editor::setTheme>,
           method<"viewDidLoad", &Editor::viewDidLoad>,
           method<"viewWillAppear:", &Editor::viewWillAppear>,
           method<"viewDidLayoutSubviews", &Editor::viewDidLayoutSubviews>,
           method<"didReceiveMemoryWarning", &Editor::didReceiveMemoryWarning>,
           method<"numberOfSectionsInTableView:", &Editor::numberOfSections>,
           method<"tableView:numberOfRowsInSection:", &Editor::numberOfRows>,
           method<"tableView:titleForHeaderInSection:", &Editor::titleForHeader>,
           method<"tableView:titleForFooterInSection:", &Editor::titleForFooter>,
           method<"tableView:heightForRowAtIndexPath:", &Editor::heightForRow>,
           method<"tableView:cellForRowAtIndexPath:", &Editor::cellForRow>,
           method<"tableView:didSelectRowAtIndexPath:", &Editor::didSelectRow>,
           method<"tableView:canEditRowAtIndexPath:", &Editor::canEditRow>,
           method<"tableView:canMoveRowAtIndexPath:", &Editor::canMoveRow>,
           method<"tableView:commitEditingStyle:forRowAtIndexPath:", &Editor::commitEditing>,
           method<"tableView:targetIndexPathForMoveFromRowAtIndexPath:toProposedIndexPath:",
                  &Editor::targetForMove>,
           method<"tableView:moveRowAtIndexPath:toIndexPath:", &Editor::moveRow>,
           method<"kindChosen:", &Editor::kindChosen>,
           method<"directionChosen:", &Editor::directionChosen>,
           method<"alphaChanged:", &Editor::alphaChanged>,
           method<"alphaSettled:", &Editor::alphaSettled>,
           method<"capsSwitched:", &Editor::capsSwitched>,
           method<"undo", &Editor::undo>,
           method<"redo", &Editor::redo>,
           method<"colorPickerReturnedWithColor:andHexString:", &Editor::colourReturned>,
           method<"imagePickerController:didFinishPickingMediaWithInfo:", &Editor::didFinishPicking>,
           method<"imagePickerControllerDidCancel:", &Editor::didCancelPicking>,
           method<"photoCropped:", &Editor::photoCropped>,
           method<"leave", &Editor::leave>,
           method<"save", &Editor::save>)

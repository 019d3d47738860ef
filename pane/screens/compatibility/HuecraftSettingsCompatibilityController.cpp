#include "pane/screens/compatibility/HuecraftSettingsCompatibilityController.h"

#include "objc/class.h"
#include "pane/model/report.h"
#include "pane/screens/asking.h"
#include "pane/screens/compatibility/examination.h"
#include "pane/screens/plain_rows.h"

template <>
inline constexpr auto objc::structure_encoding<pane::Examination> = objc::Name("{Examination=}");

namespace {

using namespace objc::literals;
using namespace pane;
using compatibility::Verdict;
using objc::strong;

enum Section : NSInteger { summary_section, hook_section, look_up_section, section_count };
enum SummaryRow : NSInteger { hooks_row, looked_up_row, report_row, summary_row_count };
constexpr CGFloat plain_height = 44, examined_height = 52;

UIColor* colour_of(Verdict verdict) {
    if (verdict == Verdict::well) return UIColor::colorWithRGB(0.1, 0.45, 0.2, 1);
    if (verdict == Verdict::unrecorded) return UIColor::colorWithRGB(0.5, 0.4, 0.1, 1);
    return UIColor::colorWithRGB(0.7, 0.2, 0.1, 1);
}

struct CompatibilityScreen : objc::Implements<CompatibilityScreen, HuecraftSettingsCompatibilityController> {
    struct Ivars {
        strong<UITableView> table;
        Examination* examination = nullptr;
    };

    void dealloc() { delete ivars().examination; }

    void viewDidLoad() {
        super<"viewDidLoad">();
        auto& own = ivars();
        self()->setTitle(text<"Compatibility">());
        own.examination = new Examination;
        UIView* page = self()->view();
        own.table = UITableView::alloc()->initWithFrame(page->bounds(), UITableViewStyleGrouped);
        own.table->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
        own.table->setDataSource(this);
        own.table->setDelegate(this);
        page->addSubview(own.table);
    }

    // --- The table ---

    const std::vector<ExaminedRow>& rows_of(NSInteger section) {
        return section == hook_section ? ivars().examination->hooks : ivars().examination->looked_up;
    }
    const ExaminedRow& row_at(NSIndexPath* path) {
        return rows_of(path->section())[static_cast<size_t>(path->row())];
    }

    NSInteger numberOfSections(UITableView*) { return section_count; }

    NSInteger numberOfRows(UITableView*, NSInteger section) {
        return section == summary_section ? NSInteger{summary_row_count} : NSInteger(rows_of(section).size());
    }

    NSString* titleForHeader(UITableView*, NSInteger section) {
        if (section == summary_section) return nullptr;
        return section == hook_section ? text<"Hooks">() : text<"Looked Up Besides">();
    }

    NSString* titleForFooter(UITableView*, NSInteger section) {
        if (section != summary_section) return nullptr;
        return text<
            "The report says what this system has of Huecraft's subjects, and which hooks took effect. "
            "Nothing of yours is in it.">();
    }

    CGFloat heightForRow(UITableView*, NSIndexPath* path) {
        return path->section() == summary_section ? plain_height : examined_height;
    }

    UITableViewCell* cellForRow(UITableView* table, NSIndexPath* path) {
        if (path->section() != summary_section) return examined_cell(table, row_at(path));
        if (path->row() == report_row) return action_row(table, text<"Share Report">());
        const bool hooks = path->row() == hooks_row;
        return value_row(table, hooks ? text<"Hooks">() : text<"Looked Up Besides">(),
                         share_of(hooks ? ivars().examination->hooks : ivars().examination->looked_up));
    }

    UITableViewCell* examined_cell(UITableView* table, const ExaminedRow& row) {
        UITableViewCell* cell = cell_of(table, "examined"_ns, UITableViewCellStyleSubtitle);
        cell->textLabel()->setText(row.target);
        cell->textLabel()->setFont(UIFont::preferredFontForTextStyle(UIFontTextStyleSubheadline));
        cell->detailTextLabel()->setText(row.note);
        cell->detailTextLabel()->setFont(UIFont::preferredFontForTextStyle(UIFontTextStyleCaption1));
        cell->detailTextLabel()->setTextColor(colour_of(row.verdict));
        cell->setIsAccessibilityElement(true);
        cell->setAccessibilityLabel(with("%1, %2"_ns, row.target, row.whole_note));
        cell->setAccessibilityTraits(UIAccessibilityTraitButton);
        return cell;
    }

    /// A row is often wider than a phone: touched, it is shown whole.
    void didSelectRow(UITableView* table, NSIndexPath* path) {
        table->deselectRow(path, true);
        if (path->section() != summary_section) {
            tell(this, row_at(path).target, row_at(path).whole_note);
        } else if (path->row() == report_row) {
            share_report(path);
        }
    }

    /// As a file, or as its text where no file can be written.
    void share_report(NSIndexPath* path) {
        const strong<NSString> written = report();
        NSString* file = write_report(written, nullptr);
        id item = file ? static_cast<id>(NSURL::fileURLWithPath(file)) : static_cast<id>(written.get());
        auto sheet =
            UIActivityViewController::alloc()->initWithActivityItems(NSArray::arrayWithObject(item), nullptr);
        show_from({.view = strong<UIView>(ivars().table), .rect = ivars().table->rectForRowAtIndexPath(path)},
                  sheet, this);
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(HuecraftSettingsCompatibilityController, UIViewController, CompatibilityScreen,
           conforms<"UITableViewDataSource">, conforms<"UITableViewDelegate">,
           ivar<"_table", &CompatibilityScreen::Ivars::table>,
           ivar<"_examination", &CompatibilityScreen::Ivars::examination>,
           method<"viewDidLoad", &CompatibilityScreen::viewDidLoad>,
           method<"numberOfSectionsInTableView:", &CompatibilityScreen::numberOfSections>,
           method<"tableView:numberOfRowsInSection:", &CompatibilityScreen::numberOfRows>,
           method<"tableView:titleForHeaderInSection:", &CompatibilityScreen::titleForHeader>,
           method<"tableView:titleForFooterInSection:", &CompatibilityScreen::titleForFooter>,
           method<"tableView:heightForRowAtIndexPath:", &CompatibilityScreen::heightForRow>,
           method<"tableView:cellForRowAtIndexPath:", &CompatibilityScreen::cellForRow>,
           method<"tableView:didSelectRowAtIndexPath:", &CompatibilityScreen::didSelectRow>)

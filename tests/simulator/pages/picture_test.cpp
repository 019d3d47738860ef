// Pictures of pages, as a person sees them.
#include "picture.h"

#include "page_test.h"

namespace test {
namespace {

using objc::strong;

UITableViewCell* sample_cell(id, SEL, id, id at) {
    auto* path = static_cast<NSIndexPath*>(at);
    constexpr UITableViewCellStyle styles[] = {UITableViewCellStyleDefault, UITableViewCellStyleValue1,
                                               UITableViewCellStyleSubtitle};
    const auto row = static_cast<size_t>(path->row());
    const strong<UITableViewCell> cell = UITableViewCell::alloc()->initWithStyle(styles[row], nullptr);
    cell->textLabel()->setText(text(path->section() == 0 ? "Huecraft" : "Midnight"));
    cell->detailTextLabel()->setText(text(row == 1 ? "On" : "Chosen an hour ago"));
    if (row == 0) {
        auto toggle = UISwitch::make<"initWithFrame:">(CGRect{});
        toggle->setOn(path->section() == 0, false);
        cell->setAccessoryView(toggle);
    }
    if (row == 1) cell->setAccessoryType(UITableViewCellAccessoryDisclosureIndicator);
    if (row == 2) {
        cell->imageView()->setImage(filled_image(color(0.25, 0.3, 0.6), 29, 29));
        cell->setAccessoryType(UITableViewCellAccessoryCheckmark);
    }
    return strong<UITableViewCell>(cell).autoreleased();
}

class PagePictures : public Pages {
  protected:
    void SetUp() override {}
    strong<UITableView> sample_table(CGRect frame) {
        source = object_of(
            "SampleTable", "NSObject",
            {method("numberOfSectionsInTableView:", "q@:@", [](id, SEL, id) -> NSInteger { return 2; }),
             method("tableView:numberOfRowsInSection:", "q@:@q",
                    [](id, SEL, id, NSInteger) -> NSInteger { return 3; }),
             own_method("tableView:cellForRowAtIndexPath:", sample_cell, "@@:@@"),
             method("tableView:commitEditingStyle:forRowAtIndexPath:", "v@:@q@",
                    [](id, SEL, id, NSInteger, id) {}),
             method("tableView:moveRowAtIndexPath:toIndexPath:", "v@:@@@", [](id, SEL, id, id, id) {}),
             method("tableView:titleForHeaderInSection:", "@@:@q",
                    [](id, SEL, id, NSInteger section) -> id {
                        return section ? text("Your themes") : nullptr;
                    }),
             method("tableView:titleForFooterInSection:", "@@:@q", [](id, SEL, id, NSInteger section) -> id {
                 return section ? text("What runs keeps its keyboard until the theme is applied.") : nullptr;
             })});
        auto table = UITableView::alloc()->initWithFrame(frame, UITableViewStyleGrouped);
        table->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
        table->setDataSource(source);
        table->setDelegate(source);
        return table;
    }
    /// A stack of two pages with the sample table on top.
    void show_stack() {
        auto a = page("Settings"), b = page("Huecraft");
        table = sample_table(b->view()->bounds());
        b->view()->addSubview(table);
        b->navigationItem()->setRightBarButtonItem(b->editButtonItem());
        auto navigation = UINavigationController::alloc()->initWithRootViewController(a);
        navigation->pushViewController(b, false);
        present(navigation);
        top = b;
    }
    void expect_looks(const std::string& name) {
        const auto png = phone.host("/picture.png");
        ASSERT_EQ(sim_take_picture(png.c_str(), 0), SIM_OK) << sim_last_error();
        EXPECT_TRUE(looks_as_expected(png, name, "pages."));
    }
    strong<NSObject> source;
    strong<UITableView> table;
    strong<UIViewController> top;
};

TEST_F(PagePictures, AGroupedTableUnderABar) {
    start({});
    show_stack();
    expect_looks("pages-table");
}

TEST_F(PagePictures, ATableThatIsEdited) {
    start({});
    show_stack();
    table->setEditing(true, false);
    tap_label("Delete Huecraft");
    expect_looks("pages-table-edited");
}

TEST_F(PagePictures, ATableFromRightToLeft) {
    start({.right_to_left = true});
    show_stack();
    expect_looks("pages-table-right-to-left");
}

TEST_F(PagePictures, AnAlertWithAField) {
    start({});
    show_stack();
    UIAlertController* alert = UIAlertController::alertController(
        text("Rename Theme"), text("Themes are told apart by their names."), UIAlertControllerStyleAlert);
    alert->addTextField(
        objc::Block([](id field) { static_cast<UITextField*>(field)->setText(text("Midnight")); }));
    alert->addAction(UIAlertAction::action(text("Cancel"), UIAlertActionStyleCancel, nullptr));
    alert->addAction(UIAlertAction::action(text("Rename"), UIAlertActionStyleDefault, nullptr));
    top->presentViewController(alert, true, nullptr);
    expect_looks("pages-alert");
}

TEST_F(PagePictures, AnActionSheet) {
    start({.screen_width = 375, .screen_height = 812, .screen_scale = 2});
    show_stack();
    UIAlertController* sheet =
        UIAlertController::alertController(text("Midnight"), nullptr, UIAlertControllerStyleActionSheet);
    sheet->addAction(UIAlertAction::action(text("Duplicate"), UIAlertActionStyleDefault, nullptr));
    sheet->addAction(UIAlertAction::action(text("Delete"), UIAlertActionStyleDestructive, nullptr));
    sheet->addAction(UIAlertAction::action(text("Cancel"), UIAlertActionStyleCancel, nullptr));
    top->presentViewController(sheet, true, nullptr);
    expect_looks("pages-action-sheet");
}

TEST_F(PagePictures, SwitchesAndSegments) {
    start({});
    auto root = page("Controls");
    const auto add = [&](UIView* view, CGFloat x, CGFloat y) {
        view->setFrame({{x, y}, view->frame().size});
        root->view()->addSubview(view);
    };
    for (int i = 0; i < 3; ++i) {
        auto toggle = UISwitch::make<"initWithFrame:">(CGRect{});
        toggle->setOn(i > 0, false);
        if (i == 2) toggle->setEnabled(false);
        add(toggle, 20 + 80 * i, 40);
    }
    auto segments =
        UISegmentedControl::alloc()->initWithItems(array({text("None"), text("Colour"), text("Gradient")}));
    segments->setSelectedSegmentIndex(1);
    segments->setEnabled(false, NSUInteger{2});
    add(segments, 20, 100);
    root->view()->setFrame({{0, 0}, {300, 150}});
    const auto png = phone.host("/picture.png");
    ASSERT_EQ(sim_take_picture_of(root->view(), png.c_str(), 2), SIM_OK) << sim_last_error();
    EXPECT_TRUE(looks_as_expected(png, "pages-controls", "pages."));
}

}  // namespace
}  // namespace test

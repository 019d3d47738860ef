// Tables on pages: sections, cells that are used again, selection, editing and updates.
#include <algorithm>

#include "page_test.h"

namespace test {
namespace {

using objc::strong;

/// What the data source shows: section by section, a text for each row.
std::vector<std::vector<std::string>>& rows() {
    static auto* texts = new std::vector<std::vector<std::string>>;
    return *texts;
}
int cells_made = 0;

std::string& row_at(NSIndexPath* path) {
    return rows()[static_cast<size_t>(path->section())][static_cast<size_t>(path->row())];
}

std::string place(NSIndexPath* path) {
    return std::to_string(path->section()) + "." + std::to_string(path->row());
}

UITableViewCell* cell_for(id, SEL, id sender, id path) {
    auto* table = static_cast<UITableView*>(sender);
    strong<UITableViewCell> cell = table->dequeueReusableCell(text("row"));
    if (!cell) {
        cell = UITableViewCell::alloc()->initWithStyle(UITableViewCellStyleValue1, text("row"));
        ++cells_made;
    }
    cell->textLabel()->setText(text(row_at(static_cast<NSIndexPath*>(path))));
    return std::move(cell).autoreleased();
}

void commit(id, SEL, id table, NSInteger style, id at) {
    auto* path = static_cast<NSIndexPath*>(at);
    heard().push_back("commit " + std::to_string(style) + " " + place(path));
    auto& section = rows()[static_cast<size_t>(path->section())];
    section.erase(section.begin() + path->row());
    static_cast<UITableView*>(table)->deleteRows(array({path}), UITableViewRowAnimationFade);
}

void move_row(id, SEL, id, id source, id target) {
    auto *from = static_cast<NSIndexPath*>(source), *to = static_cast<NSIndexPath*>(target);
    heard().push_back("move " + place(from) + " to " + place(to));
    const std::string moved = row_at(from);
    auto& section = rows()[static_cast<size_t>(from->section())];
    section.erase(section.begin() + from->row());
    auto& target_section = rows()[static_cast<size_t>(to->section())];
    target_section.insert(target_section.begin() + to->row(), moved);
}

template <objc::Name Event>
void note_row(id, SEL, id, id path) {
    heard().push_back(Event.text + (" " + place(static_cast<NSIndexPath*>(path))));
}

class Tables : public Pages {
  protected:
    strong<NSObject> make_source() {
        return object_of(
            "TableSource", "NSObject",
            {method("numberOfSectionsInTableView:", "q@:@",
                    [](id, SEL, id) { return static_cast<NSInteger>(rows().size()); }),
             method("tableView:numberOfRowsInSection:", "q@:@q",
                    [](id, SEL, id, NSInteger section) {
                        return static_cast<NSInteger>(rows()[static_cast<size_t>(section)].size());
                    }),
             own_method("tableView:cellForRowAtIndexPath:", cell_for, "@@:@@"),
             own_method("tableView:commitEditingStyle:forRowAtIndexPath:", commit, "v@:@q@"),
             own_method("tableView:moveRowAtIndexPath:toIndexPath:", move_row, "v@:@@@"),
             own_method("tableView:didSelectRowAtIndexPath:", note_row<"select">, "v@:@@"),
             own_method("tableView:didDeselectRowAtIndexPath:", note_row<"deselect">, "v@:@@"),
             own_method("tableView:accessoryButtonTappedForRowWithIndexPath:", note_row<"detail">, "v@:@@"),
             method("tableView:titleForHeaderInSection:", "@@:@q", [](id, SEL, id, NSInteger section) -> id {
                 return text("Section " + std::to_string(section));
             })});
    }
    void show(std::vector<std::vector<std::string>> texts, UITableViewStyle style = UITableViewStylePlain) {
        rows() = std::move(texts);
        cells_made = 0;
        source = make_source();
        table = UITableView::alloc()->initWithFrame({{0, 20}, {375, 440}}, style);
        table->setDataSource(source);
        table->setDelegate(source);
        auto root = page("Table");
        root->view()->addSubview(table);
        present(root);
        table->layoutIfNeeded();
        just_heard();
    }
    std::vector<std::string> shown() {
        std::vector<std::string> texts;
        NSArray* cells = table->visibleCells();
        for (NSUInteger i = 0; i < cells->count(); ++i)
            texts.push_back(
                utf8(static_cast<UITableViewCell*>(cells->objectAtIndex(i))->textLabel()->text()));
        return texts;
    }
    UITableViewCell* cell(NSInteger row, NSInteger section = 0) {
        return table->cellForRowAtIndexPath(NSIndexPath::indexPathForRow(row, section));
    }
    static NSArray* paths(std::vector<std::pair<NSInteger, NSInteger>> places) {
        std::vector<id> all;
        for (auto [section, row] : places) all.push_back(NSIndexPath::indexPathForRow(row, section));
        return array(all);
    }
    strong<UITableView> table;
    strong<NSObject> source;
};
using Texts = std::vector<std::string>;

TEST_F(Tables, MakesCellsForRowsInSightAlone) {
    std::vector<std::string> many;
    for (int i = 0; i < 1000; ++i) many.push_back("Row " + std::to_string(i));
    show({many});
    EXPECT_EQ(table->contentSize().height, 28 + 1000 * 44.0);
    EXPECT_EQ(shown().size(), 10u);
    EXPECT_EQ(cells_made, 10);
    for (CGFloat y = 0; y < 20000; y += 400) {
        table->setContentOffset({0, y});
        table->layoutIfNeeded();
    }
    EXPECT_EQ(shown().front(), "Row 444");
    EXPECT_LE(cells_made, 22);
}

TEST_F(Tables, TheDetailButtonIsToldAndSelectsNothing) {
    show({{"a", "b"}});
    cell(1)->setAccessoryType(UITableViewCellAccessoryDetailButton);
    table->layoutIfNeeded();
    ASSERT_EQ(sim_tap_label("More Info"), SIM_OK) << sim_last_error();
    EXPECT_EQ(just_heard(), (Texts{"detail 0.1"}));
}

TEST_F(Tables, ScrollToARowThatIsAskedFor) {
    std::vector<std::string> many(100, "Row");
    show({many});
    table->scrollToRow(NSIndexPath::indexPathForRow(50, 0), UITableViewScrollPositionTop, false);
    EXPECT_EQ(table->contentOffset().y, 28 + 50 * 44.0);
    table->scrollToRow(NSIndexPath::indexPathForRow(99, 0), UITableViewScrollPositionTop, false);
    EXPECT_EQ(table->contentOffset().y, 28 + 100 * 44.0 - 440);
    EXPECT_EQ(raised_by([&] {
                  table->scrollToRow(NSIndexPath::indexPathForRow(100, 0), UITableViewScrollPositionTop,
                                     false);
              }),
              "NSRangeException");
}

TEST_F(Tables, AreDraggedByAFinger) {
    std::vector<std::string> many(100, "Row");
    show({many});
    touch(SIM_TOUCH_BEGAN, 100, 400);
    touch(SIM_TOUCH_MOVED, 100, 380);
    touch(SIM_TOUCH_MOVED, 100, 280);
    touch(SIM_TOUCH_ENDED, 100, 280);
    EXPECT_EQ(table->contentOffset().y, 100);
    EXPECT_EQ(just_heard(), Heard{});
}

TEST_F(Tables, PutTheirSectionsBelowEachOther) {
    show({{"A", "B"}, {"C"}});
    EXPECT_EQ(table->numberOfSections(), 2);
    EXPECT_EQ(table->numberOfRowsInSection(0), 2);
    EXPECT_EQ(table->rectForRowAtIndexPath(NSIndexPath::indexPathForRow(0, 1)),
              (CGRect{{0, 28 + 88 + 28}, {375, 44}}));
    EXPECT_EQ(shown(), (Texts{"A", "B", "C"}));
    EXPECT_EQ(place(table->indexPathForRowAtPoint({10, 150})), "1.0");
    EXPECT_EQ(table->indexPathForRowAtPoint({10, 10}), nullptr);
}

TEST_F(Tables, ATouchSelectsARowAndDeselectsTheLast) {
    show({{"A", "B", "C"}});
    tap_label("A");
    EXPECT_EQ(just_heard(), Heard{"select 0.0"});
    EXPECT_TRUE(cell(0)->isSelected());
    tap_label("C");
    EXPECT_EQ(just_heard(), (Heard{"deselect 0.0", "select 0.2"}));
    EXPECT_FALSE(cell(0)->isSelected());
    table->deselectRow(NSIndexPath::indexPathForRow(2, 0), true);
    EXPECT_EQ(table->indexPathForSelectedRow(), nullptr);
    table->setAllowsSelection(false);
    tap_label("B");
    EXPECT_EQ(just_heard(), Heard{});
}

TEST_F(Tables, AFingerThatLeavesTheRowSelectsNothing) {
    show({{"A", "B", "C"}});
    touch(SIM_TOUCH_BEGAN, 100, 70);
    EXPECT_TRUE(cell(0)->isHighlighted());
    touch(SIM_TOUCH_MOVED, 100, 160);
    touch(SIM_TOUCH_ENDED, 100, 160);
    EXPECT_EQ(just_heard(), Heard{});
    EXPECT_FALSE(cell(0)->isHighlighted());
}

TEST_F(Tables, ASwipeUncoversTheButtonThatDeletes) {
    show({{"A", "B", "C"}});
    auto swipe = [] {
        touch(SIM_TOUCH_BEGAN, 300, 115);
        touch(SIM_TOUCH_MOVED, 200, 117);
        touch(SIM_TOUCH_ENDED, 200, 117);
    };
    swipe();
    EXPECT_EQ(just_heard(), Heard{});
    tap_label("A");  // puts the button away, and selects nothing
    EXPECT_EQ(just_heard(), Heard{});
    EXPECT_EQ(sim_tap_label("Delete"), SIM_NOT_FOUND);
    swipe();
    tap_label("Delete");
    EXPECT_EQ(just_heard(), Heard{"commit 1 0.1"});
    EXPECT_EQ(shown(), (Texts{"A", "C"}));
}

TEST_F(Tables, WhileEditedAMinusAsksOnceMore) {
    show({{"A", "B", "C"}});
    table->setEditing(true, false);
    EXPECT_TRUE(cell(1)->isEditing());
    tap_label("B");  // no selection while editing
    EXPECT_EQ(just_heard(), Heard{});
    tap_label("Delete B");
    EXPECT_EQ(just_heard(), Heard{});
    tap_label("Delete");
    EXPECT_EQ(just_heard(), Heard{"commit 1 0.1"});
    EXPECT_EQ(shown(), (Texts{"A", "C"}));
    table->setEditing(false, false);
    EXPECT_EQ(sim_tap_label("Delete A"), SIM_NOT_FOUND);
}

TEST_F(Tables, RowsAreDraggedIntoAnotherOrder) {
    show({{"A", "B", "C", "D"}});
    table->setEditing(true, false);
    touch(SIM_TOUCH_BEGAN, 355, 70);
    touch(SIM_TOUCH_MOVED, 355, 120);
    touch(SIM_TOUCH_MOVED, 355, 160);
    // The row is under the finger, and those that it passed made room.
    EXPECT_EQ(cell(0)->frame().origin.y, 118);
    EXPECT_EQ(cell(1)->frame().origin.y, 28);
    EXPECT_EQ(just_heard(), Heard{});
    touch(SIM_TOUCH_ENDED, 355, 160);
    EXPECT_EQ(just_heard(), Heard{"move 0.0 to 0.2"});
    EXPECT_EQ(shown(), (Texts{"B", "C", "A", "D"}));
    EXPECT_EQ(cell(2)->frame().origin.y, 28 + 88);
    EXPECT_EQ(cells_made, 4);
}

TEST_F(Tables, AMoveThatIsCancelledChangesNothing) {
    show({{"A", "B", "C"}});
    table->setEditing(true, false);
    touch(SIM_TOUCH_BEGAN, 355, 70);
    touch(SIM_TOUCH_MOVED, 355, 160);
    touch(SIM_TOUCH_CANCELLED, 355, 160);
    EXPECT_EQ(just_heard(), Heard{});
    EXPECT_EQ(shown(), (Texts{"A", "B", "C"}));
    EXPECT_EQ(cell(0)->frame().origin.y, 28);
}

TEST_F(Tables, UpdatesKeepTheOtherRowsCells) {
    show({{"A", "B", "C"}});
    UITableViewCell* c = cell(2);
    table->selectRow(NSIndexPath::indexPathForRow(2, 0), false, UITableViewScrollPositionNone);
    rows() = {{"X", "A", "C", "D"}};
    table->beginUpdates();
    table->insertRows(paths({{0, 0}, {0, 3}}), UITableViewRowAnimationFade);
    table->deleteRows(paths({{0, 1}}), UITableViewRowAnimationFade);
    table->endUpdates();
    EXPECT_EQ(shown(), (Texts{"X", "A", "C", "D"}));
    EXPECT_EQ(cell(2), c);
    EXPECT_EQ(place(table->indexPathForSelectedRow()), "0.2");
}

TEST_F(Tables, AnUpdateThatDoesNotAddUpRaises) {
    show({{"A", "B"}});
    EXPECT_EQ(raised_by([&] { table->insertRows(paths({{0, 0}}), UITableViewRowAnimationFade); }),
              "NSInternalInconsistencyException");
    EXPECT_EQ(raised_by([&] { table->deleteRows(paths({{0, 7}}), UITableViewRowAnimationFade); }),
              "NSInternalInconsistencyException");
}

TEST_F(Tables, AReloadedRowIsAskedForAgain) {
    show({{"A", "B"}});
    rows() = {{"A", "Changed"}};
    table->reloadRows(paths({{0, 1}}), UITableViewRowAnimationFade);
    EXPECT_EQ(shown(), (Texts{"A", "Changed"}));
    rows() = {{"Z"}};
    table->reloadData();
    EXPECT_EQ(shown(), Texts{"Z"});
}

TEST_F(Tables, AnIdentifierWithoutAClassRaises) {
    show({{"A"}});
    EXPECT_EQ(table->dequeueReusableCell(text("other")), nullptr);
    EXPECT_EQ(
        raised_by([&] { table->dequeueReusableCell(text("other"), NSIndexPath::indexPathForRow(0, 0)); }),
        "NSInternalInconsistencyException");
    table->registerClass(UITableViewCell::class_object(), text("other"));
    EXPECT_EQ(utf8(table->dequeueReusableCell(text("other"))->reuseIdentifier()), "other");
}

TEST_F(Tables, ASwitchAtTheEndOfARowIsTouched) {
    show({{"Huecraft"}}, UITableViewStyleGrouped);
    auto toggle = UISwitch::make<"initWithFrame:">(CGRect{});
    auto target = recording_target();
    toggle->setTag(7);
    toggle->addTarget(target, sel("pressedBy:"), UIControlEventValueChanged);
    cell(0)->setAccessoryView(toggle);
    toggle->setAccessibilityLabel(text("Huecraft is on"));
    table->layoutIfNeeded();
    EXPECT_EQ(toggle->frame().size, (CGSize{51, 31}));
    tap_label("Huecraft is on");
    EXPECT_TRUE(toggle->isOn());
    EXPECT_EQ(just_heard(), Heard{"pressedBy 7"});
    toggle->setOn(false, false);  // notifies nobody
    EXPECT_EQ(just_heard(), Heard{});
}

TEST_F(Tables, SegmentsAreChosenByTouch) {
    show({{"A"}});
    auto segments =
        UISegmentedControl::alloc()->initWithItems(array({text("None"), text("Colour"), text("Image")}));
    segments->setTag(3);
    auto target = recording_target();
    segments->addTarget(target, sel("pressedBy:"), UIControlEventValueChanged);
    table->setTableHeaderView(segments);
    table->layoutIfNeeded();
    EXPECT_EQ(segments->selectedSegmentIndex(), -1);
    tap_label("Colour");
    EXPECT_EQ(segments->selectedSegmentIndex(), 1);
    EXPECT_EQ(just_heard(), Heard{"pressedBy 3"});
    tap_label("Colour");
    EXPECT_EQ(just_heard(), Heard{});
    segments->setEnabled(false, NSUInteger{2});
    tap_label("Image");
    EXPECT_EQ(segments->selectedSegmentIndex(), 1);
    segments->removeSegment(0, false);
    EXPECT_EQ(segments->selectedSegmentIndex(), 0);
    EXPECT_EQ(utf8(segments->titleForSegment(0)), "Colour");
}

class LeftwardTables : public Tables {
  protected:
    void SetUp() override { start({.right_to_left = true}); }
};

TEST_F(LeftwardTables, StandTheOtherWayRound) {
    show({{"A"}});
    cell(0)->setAccessoryType(UITableViewCellAccessoryDisclosureIndicator);
    table->layoutIfNeeded();
    cell(0)->layoutIfNeeded();
    EXPECT_GT(cell(0)->contentView()->frame().origin.x, 0);
    EXPECT_EQ(cell(0)->effectiveUserInterfaceLayoutDirection(), UIUserInterfaceLayoutDirectionRightToLeft);
    cell(0)->setSemanticContentAttribute(UISemanticContentAttributeForceLeftToRight);
    cell(0)->setNeedsLayout();
    cell(0)->layoutIfNeeded();
    EXPECT_EQ(cell(0)->contentView()->frame().origin.x, 0);
}

}  // namespace
}  // namespace test

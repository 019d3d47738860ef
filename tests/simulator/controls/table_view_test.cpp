// Tables: what the data source makes, below each other.
#include <vector>

#include "platform/tables.h"
#include "support/runtime.h"

namespace test {
namespace {

std::vector<NSInteger> asked_for;

/// A data source of three rows; as a delegate, it makes the second one higher.
id three_rows() {
    Class type = class_with(
        "HCThreeRows", "NSObject",
        {own_method(
             "tableView:numberOfRowsInSection:", [](id, SEL, id, NSInteger) -> NSInteger { return 3; },
             "q32@0:8@16q24"),
         own_method(
             "tableView:cellForRowAtIndexPath:",
             [](id, SEL, id, NSIndexPath* path) -> id {
                 asked_for.push_back(path->item());
                 return UITableViewCell::alloc()->initWithStyle(0, nullptr).autoreleased();
             },
             "@32@0:8@16@24"),
         own_method(
             "tableView:heightForRowAtIndexPath:",
             [](id, SEL, id, NSIndexPath* path) -> CGFloat { return path->item() == 1 ? 60 : 30; },
             "d32@0:8@16@24")});
    asked_for.clear();
    return objc::send<"new", objc::strong<NSObject>>(reinterpret_cast<id>(type)).autoreleased();
}

class Table : public testing::Test {
  protected:
    void SetUp() override {
        phone.boot();
        table = static_cast<UITableView*>(
            UITableView::alloc()->initWithFrame({{0, 0}, {200, 300}}).autoreleased());
    }
    std::vector<CGRect> rows() {
        std::vector<CGRect> frames;
        NSArray* cells = table->visibleCells();
        for (NSUInteger i = 0; i < cells->count(); ++i)
            frames.push_back(static_cast<UIView*>(cells->objectAtIndex(i))->frame());
        return frames;
    }
    Phone phone;
    UITableView* table = nullptr;
};

TEST_F(Table, WithoutADataSourceIsEmpty) {
    table->layoutIfNeeded();
    EXPECT_EQ(rows(), std::vector<CGRect>{});
}

TEST_F(Table, PutsItsRowsBelowEachOther) {
    id source = three_rows();
    table->setDataSource(source);
    table->layoutIfNeeded();
    EXPECT_EQ(asked_for, (std::vector<NSInteger>{0, 1, 2}));
    EXPECT_EQ(rows(), (std::vector<CGRect>{{{0, 0}, {200, 44}}, {{0, 44}, {200, 44}}, {{0, 88}, {200, 44}}}));
    EXPECT_EQ(table->contentSize(), (CGSize{200, 132}));
}

TEST_F(Table, ItsDelegateMaySayHowHighARowIs) {
    id source = three_rows();
    table->setDataSource(source);
    table->setDelegate(source);
    table->layoutIfNeeded();
    EXPECT_EQ(rows(), (std::vector<CGRect>{{{0, 0}, {200, 30}}, {{0, 30}, {200, 60}}, {{0, 90}, {200, 30}}}));
}

TEST_F(Table, AsksAgainWhenItIsReloaded) {
    id source = three_rows();
    table->setDataSource(source);
    table->layoutIfNeeded();
    table->reloadData();
    table->layoutIfNeeded();
    EXPECT_EQ(asked_for, (std::vector<NSInteger>{0, 1, 2, 0, 1, 2}));
    EXPECT_EQ(rows().size(), 3u);
}

class TableCell : public Table {};

TEST_F(TableCell, MakesItsLabelWhenItIsAskedForIt) {
    auto cell = UITableViewCell::alloc()->initWithStyle(0, text("name"));
    EXPECT_EQ(variable<UILabel*>(cell, "_textLabel"), nullptr);
    UILabel* label = cell->textLabel();
    EXPECT_EQ(label->superview(), cell->contentView());
    EXPECT_EQ(cell->textLabel(), label);
    EXPECT_EQ(utf8(cell->reuseIdentifier()), "name");
}

TEST_F(TableCell, ItsAccessoryStandsAtTheRightEnd) {
    auto cell = UITableViewCell::alloc()->initWithStyle(0, nullptr);
    auto accessory = UIView::alloc()->initWithFrame({{0, 0}, {20, 10}});
    cell->setFrame({{0, 0}, {200, 44}});
    cell->setAccessoryView(accessory);
    cell->textLabel();
    cell->layoutIfNeeded();
    EXPECT_EQ(accessory->frame(), (CGRect{{164, 17}, {20, 10}}));
    EXPECT_EQ(cell->textLabel()->frame(), (CGRect{{16, 0}, {132, 44}}));
    cell->setAccessoryView(nullptr);
    cell->layoutIfNeeded();
    EXPECT_EQ(accessory->superview(), nullptr);
    EXPECT_EQ(cell->textLabel()->frame(), (CGRect{{16, 0}, {168, 44}}));
}

TEST_F(TableCell, ItsContentHasRoomBeforeTheCellIsLaidOut) {
    auto cell = UITableViewCell::alloc()->initWithStyle(0, nullptr);
    UIView* content = cell->contentView();
    EXPECT_EQ(content->frame(), (CGRect{{0, 0}, {320, 44}}));
    auto line = UIView::alloc()->initWithFrame({});
    line->setTranslatesAutoresizingMaskIntoConstraints(false);
    content->addSubview(line);
    line->leadingAnchor()->constraintEqualToAnchor(content->leadingAnchor(), 16)->setActive(true);
    line->trailingAnchor()->constraintEqualToAnchor(content->trailingAnchor(), -16)->setActive(true);
    line->topAnchor()->constraintEqualToAnchor(content->topAnchor())->setActive(true);
    line->heightAnchor()->constraintEqualToConstant(1)->setActive(true);
    cell->layoutIfNeeded();
    EXPECT_EQ(sim_layout_report_count(), 0u);
    EXPECT_EQ(line->frame(), (CGRect{{16, 0}, {288, 1}}));
}

}  // namespace
}  // namespace test

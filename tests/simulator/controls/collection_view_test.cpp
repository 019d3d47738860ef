// Collection views: cells in lines, used again, and chosen.
#include <set>

#include "platform/scrolling.h"
#include "screen_test.h"

namespace test {
namespace {

int item_count;
CGSize item_size;
UIEdgeInsets section_inset;

class CollectionViews : public Screen {
  protected:
    void SetUp() override {
        Screen::SetUp();
        item_count = 6;
        item_size = {30, 30};
        section_inset = {5, 5.5, 5, 5.5};
        layout = objc::adopt(UICollectionViewFlowLayout::class_send<"new", UICollectionViewFlowLayout*>());
        layout->setMinimumInteritemSpacing(2.5);
        const auto made_view = UICollectionView::alloc()->initWithFrame({{100, 100}, {215, 40}}, layout);
        view = made_view;
        root->addSubview(view);
        Class made = class_with(
            "Collector", "NSObject",
            {own_method(
                 "collectionView:numberOfItemsInSection:",
                 [](id, SEL, id, NSInteger) { return static_cast<NSInteger>(item_count); }, "q@:@q"),
             own_method(
                 "collectionView:cellForItemAtIndexPath:",
                 [](id, SEL, UICollectionView* view, NSIndexPath* path) {
                     auto* cell = view->dequeueReusableCell(text("Cell"), path);
                     cell->setTag(path->item());
                     heard().push_back("cell " + std::to_string(path->item()));
                     return cell;
                 },
                 "@@:@@"),
             own_method(
                 "collectionView:layout:sizeForItemAtIndexPath:",
                 [](id, SEL, id, id, id) { return item_size; }, "{CGSize=dd}@:@@@"),
             own_method(
                 "collectionView:layout:insetForSectionAtIndex:",
                 [](id, SEL, id, id, NSInteger) { return section_inset; }, "{UIEdgeInsets=dddd}@:@@q"),
             own_method(
                 "collectionView:didSelectItemAtIndexPath:",
                 [](id, SEL, id, NSIndexPath* path) {
                     heard().push_back("selected " + std::to_string(path->section()) + "." +
                                       std::to_string(path->item()));
                 },
                 "v@:@@"),
             own_method(
                 "collectionView:didDeselectItemAtIndexPath:",
                 [](id, SEL, id, NSIndexPath* path) {
                     heard().push_back("deselected " + std::to_string(path->item()));
                 },
                 "v@:@@")});
        collector = objc::adopt(objc::send<"new", NSObject*>(reinterpret_cast<id>(made)));
        view->setDataSource(collector);
        view->setDelegate(collector);
        view->registerClass(UICollectionViewCell::class_object(), text("Cell"));
        root->layoutIfNeeded();
    }
    void TearDown() override {
        collector = nullptr;
        layout = nullptr;
        Screen::TearDown();
    }
    UICollectionViewCell* cell(NSInteger item) {
        return view->cellForItemAtIndexPath(NSIndexPath::indexPathForItem(item, 0));
    }
    CGRect frame_of(NSInteger item) { return cell(item) ? cell(item)->frame() : CGRect{}; }

    objc::strong<UICollectionViewFlowLayout> layout;
    UICollectionView* view = nullptr;
    objc::strong<NSObject> collector;
};

TEST_F(CollectionViews, ALineThatIsNotFullKeepsTheLeastSpacing) {
    EXPECT_EQ(view->numberOfItemsInSection(0), 6);
    EXPECT_EQ(frame_of(0), (CGRect{{5.5, 5}, {30, 30}}));
    EXPECT_EQ(frame_of(1), (CGRect{{38, 5}, {30, 30}}));
    EXPECT_EQ(frame_of(5), (CGRect{{168, 5}, {30, 30}}));
    EXPECT_EQ(view->contentSize(), (CGSize{215, 40}));
}

TEST_F(CollectionViews, FullLinesAreSpreadAndTheNextOneBeginsBelow) {
    item_count = 9;
    item_size = {50, 20};
    layout->setMinimumLineSpacing(4);
    view->reloadData();
    root->layoutIfNeeded();
    EXPECT_EQ(frame_of(0), (CGRect{{5.5, 5}, {50, 20}}));
    EXPECT_EQ(frame_of(2).origin.x, 159.5) << "three fit, and end at the right edge";
    EXPECT_EQ(frame_of(3), (CGRect{{5.5, 29}, {50, 20}}));
    EXPECT_EQ(view->contentSize(), (CGSize{215, 5 + 3 * 20 + 2 * 4 + 5}));
}

TEST_F(CollectionViews, WithoutADelegateTheLayoutSaysEverything) {
    view->setDelegate(nullptr);
    layout->setItemSize({47, 25});
    layout->setSectionInset({1, 2, 3, 4});
    root->layoutIfNeeded();
    EXPECT_EQ(frame_of(1), (CGRect{{56, 1}, {47, 25}})) << "4 in a line of 209";
}

TEST_F(CollectionViews, OnlyWhatIsInSightHasCellsAndTheyAreUsedAgain) {
    item_count = 100;
    view->reloadData();
    root->layoutIfNeeded();
    just_heard();
    EXPECT_TRUE(cell(0));
    EXPECT_FALSE(cell(30));
    std::set<UICollectionViewCell*> before;
    for (NSInteger i = 0; i < 6; ++i) before.insert(cell(i));
    view->setContentOffset({0, 200});
    root->layoutIfNeeded();
    EXPECT_FALSE(cell(0));
    EXPECT_EQ(just_heard().size(), 6u);
    EXPECT_TRUE(cell(30));
    EXPECT_TRUE(before.contains(cell(30)));
    EXPECT_EQ(cell(30)->tag(), 30);
}

TEST_F(CollectionViews, ReloadingAsksForEveryCellAgain) {
    just_heard();
    root->layoutIfNeeded();
    EXPECT_EQ(just_heard(), Heard{});
    item_count = 2;
    view->reloadData();
    root->layoutIfNeeded();
    EXPECT_EQ(just_heard(), (Heard{"cell 0", "cell 1"}));
    EXPECT_FALSE(cell(2));
}

TEST_F(CollectionViews, ATapChoosesAnItem) {
    just_heard();
    tap(145, 120);
    EXPECT_EQ(just_heard(), Heard{"selected 0.1"});
    EXPECT_TRUE(cell(1)->isSelected());
    tap(110, 120);
    EXPECT_EQ(just_heard(), (Heard{"deselected 1", "selected 0.0"}));
    tap(110, 120);
    EXPECT_EQ(just_heard(), Heard{"selected 0.0"});
    EXPECT_FALSE(cell(1)->isSelected());
}

TEST_F(CollectionViews, AFingerThatLeavesTheItemChoosesNothing) {
    just_heard();
    press(145, 120);
    lift(180, 120);
    tap(136.5, 120);  // between two
    EXPECT_EQ(just_heard(), Heard{});
}

TEST_F(CollectionViews, AnIdentifierWithoutAClassRaises) {
    EXPECT_EQ(raised_by([&] { view->dequeueReusableCell(text("Other"), nullptr); }),
              "NSInternalInconsistencyException");
}

TEST_F(CollectionViews, IndexPathsAreEqualByTheirItems) {
    auto* path = NSIndexPath::indexPathForItem(3, 2);
    EXPECT_EQ(path->item(), 3);
    EXPECT_EQ(path->section(), 2);
    EXPECT_TRUE(path->isEqual(NSIndexPath::indexPathForItem(3, 2)));
    EXPECT_FALSE(path->isEqual(NSIndexPath::indexPathForItem(2, 3)));
}

}  // namespace
}  // namespace test

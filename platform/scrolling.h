// UIKit's views that scroll, collect and stack.
#pragma once
#include "platform/application.h"

using UIScrollViewContentInsetAdjustmentBehavior = NSInteger;
constexpr UIScrollViewContentInsetAdjustmentBehavior UIScrollViewContentInsetAdjustmentAutomatic = 0;
constexpr UIScrollViewContentInsetAdjustmentBehavior UIScrollViewContentInsetAdjustmentNever = 2;

struct UIScrollView : objc::Interface<UIScrollView, "UIScrollView", UIView> {
    CGSize contentSize() { return send<"contentSize", CGSize>(); }
    void setContentSize(CGSize size) { send<"setContentSize:">(size); }
    /// The origin of its bounds.
    CGPoint contentOffset() { return send<"contentOffset", CGPoint>(); }
    void setContentOffset(CGPoint offset) { send<"setContentOffset:">(offset); }
    void setContentOffset(CGPoint offset, bool animated) {
        send<"setContentOffset:animated:">(offset, animated);
    }
    UIEdgeInsets contentInset() { return send<"contentInset", UIEdgeInsets>(); }
    void setContentInset(UIEdgeInsets inset) { send<"setContentInset:">(inset); }
    bool isScrollEnabled() { return send<"isScrollEnabled", bool>(); }
    void setScrollEnabled(bool enabled) { send<"setScrollEnabled:">(enabled); }
    bool isDragging() { return send<"isDragging", bool>(); }
    /// The content inset, and what bars cover.
    UIEdgeInsets adjustedContentInset() { return send<"adjustedContentInset", UIEdgeInsets>(); }
    UIScrollViewContentInsetAdjustmentBehavior contentInsetAdjustmentBehavior() {
        return send<"contentInsetAdjustmentBehavior", UIScrollViewContentInsetAdjustmentBehavior>();
    }
    void setContentInsetAdjustmentBehavior(UIScrollViewContentInsetAdjustmentBehavior behavior) {
        send<"setContentInsetAdjustmentBehavior:">(behavior);
    }
    /// Whether a drag may take the touch from that view inside; controls keep theirs, buttons do not.
    bool touchesShouldCancelInContentView(UIView* view) {
        return send<"touchesShouldCancelInContentView:", bool>(view);
    }
    /// Not retained.
    id delegate() { return send<"delegate", id>(); }
    void setDelegate(id delegate) { send<"setDelegate:">(delegate); }
};

struct UICollectionViewLayout : objc::Interface<UICollectionViewLayout, "UICollectionViewLayout", NSObject> {
    void invalidateLayout() { send<"invalidateLayout">(); }
};

/// Lines from left to right, filled one after another; the collection view's delegate may say otherwise for
/// each section and item.
struct UICollectionViewFlowLayout
    : objc::Interface<UICollectionViewFlowLayout, "UICollectionViewFlowLayout", UICollectionViewLayout> {
    CGFloat minimumInteritemSpacing() { return send<"minimumInteritemSpacing", CGFloat>(); }
    void setMinimumInteritemSpacing(CGFloat spacing) { send<"setMinimumInteritemSpacing:">(spacing); }
    CGFloat minimumLineSpacing() { return send<"minimumLineSpacing", CGFloat>(); }
    void setMinimumLineSpacing(CGFloat spacing) { send<"setMinimumLineSpacing:">(spacing); }
    CGSize itemSize() { return send<"itemSize", CGSize>(); }
    void setItemSize(CGSize size) { send<"setItemSize:">(size); }
    UIEdgeInsets sectionInset() { return send<"sectionInset", UIEdgeInsets>(); }
    void setSectionInset(UIEdgeInsets inset) { send<"setSectionInset:">(inset); }
};

/// What a collection view shows and uses again elsewhere.
struct UICollectionReusableView
    : objc::Interface<UICollectionReusableView, "UICollectionReusableView", UIView> {
    NSString* reuseIdentifier() { return send<"reuseIdentifier", NSString*>(); }
    void prepareForReuse() { send<"prepareForReuse">(); }
};

struct UICollectionViewCell
    : objc::Interface<UICollectionViewCell, "UICollectionViewCell", UICollectionReusableView> {
    UIView* contentView() { return send<"contentView", UIView*>(); }
    bool isSelected() { return send<"isSelected", bool>(); }
    void setSelected(bool selected) { send<"setSelected:">(selected); }
};

struct UICollectionView : objc::Interface<UICollectionView, "UICollectionView", UIScrollView> {
    objc::strong<UICollectionView> initWithFrame(CGRect frame, UICollectionViewLayout* layout) {
        return send<"initWithFrame:collectionViewLayout:", objc::strong<UICollectionView>>(frame, layout);
    }
    UICollectionViewLayout* collectionViewLayout() {
        return send<"collectionViewLayout", UICollectionViewLayout*>();
    }
    /// Not retained.
    id dataSource() { return send<"dataSource", id>(); }
    void setDataSource(id source) { send<"setDataSource:">(source); }
    void registerClass(Class cell, NSString* identifier) {
        send<"registerClass:forCellWithReuseIdentifier:">(cell, identifier);
    }
    /// Raises NSInternalInconsistencyException for an identifier without a class.
    UICollectionViewCell* dequeueReusableCell(NSString* identifier, NSIndexPath* path) {
        return send<"dequeueReusableCellWithReuseIdentifier:forIndexPath:", UICollectionViewCell*>(identifier,
                                                                                                   path);
    }
    /// At the next layout everything is asked for again.
    void reloadData() { send<"reloadData">(); }
    NSInteger numberOfItemsInSection(NSInteger section) {
        return send<"numberOfItemsInSection:", NSInteger>(section);
    }
    /// nil for one that is not shown.
    UICollectionViewCell* cellForItemAtIndexPath(NSIndexPath* path) {
        return send<"cellForItemAtIndexPath:", UICollectionViewCell*>(path);
    }
    /// From the first item to the last.
    NSArray* indexPathsForVisibleItems() { return send<"indexPathsForVisibleItems", NSArray*>(); }
    NSIndexPath* indexPathForItemAtPoint(CGPoint point) {
        return send<"indexPathForItemAtPoint:", NSIndexPath*>(point);
    }
};

using UIStackViewDistribution = NSInteger;
constexpr UIStackViewDistribution UIStackViewDistributionFill = 0;
constexpr UIStackViewDistribution UIStackViewDistributionFillEqually = 1;
constexpr UIStackViewDistribution UIStackViewDistributionEqualSpacing = 3;

using UIStackViewAlignment = NSInteger;
constexpr UIStackViewAlignment UIStackViewAlignmentFill = 0;
constexpr UIStackViewAlignment UIStackViewAlignmentLeading = 1;
constexpr UIStackViewAlignment UIStackViewAlignmentCenter = 3;
constexpr UIStackViewAlignment UIStackViewAlignmentTrailing = 4;

/// A row or a column of views, made by constraints.
struct UIStackView : objc::Interface<UIStackView, "UIStackView", UIView> {
    NSArray* arrangedSubviews() { return send<"arrangedSubviews", NSArray*>(); }
    void addArrangedSubview(UIView* view) { send<"addArrangedSubview:">(view); }
    void insertArrangedSubview(UIView* view, NSUInteger index) {
        send<"insertArrangedSubview:atIndex:">(view, index);
    }
    /// It stays a subview.
    void removeArrangedSubview(UIView* view) { send<"removeArrangedSubview:">(view); }
    UILayoutConstraintAxis axis() { return send<"axis", UILayoutConstraintAxis>(); }
    void setAxis(UILayoutConstraintAxis axis) { send<"setAxis:">(axis); }
    UIStackViewDistribution distribution() { return send<"distribution", UIStackViewDistribution>(); }
    void setDistribution(UIStackViewDistribution distribution) { send<"setDistribution:">(distribution); }
    UIStackViewAlignment alignment() { return send<"alignment", UIStackViewAlignment>(); }
    void setAlignment(UIStackViewAlignment alignment) { send<"setAlignment:">(alignment); }
    CGFloat spacing() { return send<"spacing", CGFloat>(); }
    void setSpacing(CGFloat spacing) { send<"setSpacing:">(spacing); }
    UIEdgeInsets layoutMargins() { return send<"layoutMargins", UIEdgeInsets>(); }
    void setLayoutMargins(UIEdgeInsets margins) { send<"setLayoutMargins:">(margins); }
    bool isLayoutMarginsRelativeArrangement() { return send<"isLayoutMarginsRelativeArrangement", bool>(); }
    void setLayoutMarginsRelativeArrangement(bool relative) {
        send<"setLayoutMarginsRelativeArrangement:">(relative);
    }
};

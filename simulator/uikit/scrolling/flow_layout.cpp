#include "uikit/scrolling/flow_layout.h"

#include <algorithm>

namespace sim {
namespace {

/// What holds for a section, and for the sizes of its items.
class Section {
  public:
    Section(UICollectionView* view, UICollectionViewFlowLayout* layout, NSInteger index)
        : view_(view),
          layout_(layout),
          delegate_(static_cast<NSObject*>(view->delegate())),
          index_(index) {}

    UIEdgeInsets inset() const {
        return delegated<"collectionView:layout:insetForSectionAtIndex:">(layout_->sectionInset());
    }
    CGFloat item_spacing() const {
        return delegated<"collectionView:layout:minimumInteritemSpacingForSectionAtIndex:">(
            layout_->minimumInteritemSpacing());
    }
    CGFloat line_spacing() const {
        return delegated<"collectionView:layout:minimumLineSpacingForSectionAtIndex:">(
            layout_->minimumLineSpacing());
    }
    CGSize size_of(NSInteger item) const {
        constexpr auto question = objc::selector<"collectionView:layout:sizeForItemAtIndexPath:">;
        if (!delegate_->respondsToSelector(question())) return layout_->itemSize();
        return delegate_->send<"collectionView:layout:sizeForItemAtIndexPath:", CGSize>(
            view_, layout_, NSIndexPath::indexPathForItem(item, index_));
    }

  private:
    template <objc::Name Question, class Answer>
    Answer delegated(Answer otherwise) const {
        if (!delegate_->respondsToSelector(objc::selector<Question>())) return otherwise;
        return delegate_->send<Question, Answer>(view_, layout_, index_);
    }

    UICollectionView* view_;
    UICollectionViewFlowLayout* layout_;
    NSObject* delegate_;
    NSInteger index_;
};

}  // namespace

// A line that is full is spread over the width; the last one of a section keeps the least spacing.
FlowResult flow(UICollectionView* view, UICollectionViewFlowLayout* layout,
                const std::vector<NSInteger>& counts) {
    FlowResult result;
    const CGFloat width = view->bounds().size.width;
    CGFloat top = 0;
    for (size_t index = 0; index < counts.size(); ++index) {
        const auto number = static_cast<NSInteger>(index);
        const Section section(view, layout, number);
        const UIEdgeInsets inset = section.inset();
        const CGFloat spacing = section.item_spacing(), room = width - inset.left - inset.right;
        std::vector<CGSize> sizes;
        for (NSInteger item = 0; item < counts[index]; ++item) sizes.push_back(section.size_of(item));
        top += inset.top;
        for (size_t first = 0, last = 0; first < sizes.size(); first = last) {
            CGFloat used = 0, height = 0;
            for (last = first; last < sizes.size(); ++last) {
                const CGFloat more = sizes[last].width + (last > first ? spacing : 0);
                if (last > first && used + more > room) break;
                used += more;
                height = std::max(height, sizes[last].height);
            }
            const bool is_full = last < sizes.size();
            const size_t gaps = last - first - 1;
            const CGFloat gap = spacing + (is_full && gaps ? (room - used) / static_cast<CGFloat>(gaps) : 0);
            CGFloat x = inset.left;
            for (size_t item = first; item < last; ++item) {
                const CGSize size = sizes[item];
                result.items.push_back(
                    {number, static_cast<NSInteger>(item), {{x, top + (height - size.height) / 2}, size}});
                x += size.width + gap;
            }
            top += height + (is_full ? section.line_spacing() : 0);
        }
        top += inset.bottom;
    }
    result.content = {width, top};
    return result;
}

}  // namespace sim

// Layouts of collection views: what all of them have.
#include "objc/class.h"
#include "platform/scrolling.h"

namespace {

struct CollectionLayout : objc::Implements<CollectionLayout, UICollectionViewLayout> {
    struct Ivars {
        /// Set by the collection view that it lays out; that one lets go of the layout first, or clears this.
        UICollectionView* collectionView = nullptr;
    };

    void invalidateLayout() { static_cast<UIView*>(ivars().collectionView)->setNeedsLayout(); }
    UICollectionView* collectionView() { return ivars().collectionView; }
    void setCollectionView(UICollectionView* view) { ivars().collectionView = view; }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UICollectionViewLayout, NSObject, CollectionLayout,
           ivar<"_collectionView", &CollectionLayout::Ivars::collectionView>,
           method<"invalidateLayout", &CollectionLayout::invalidateLayout>,
           method<"collectionView", &CollectionLayout::collectionView>,
           method<"_setCollectionView:", &CollectionLayout::setCollectionView>)

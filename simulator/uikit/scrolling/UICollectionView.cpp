// Collection views: cells for the items that are in sight, made when they are and used again afterwards.
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "foundation/raise.h"
#include "objc/class.h"
#include "platform/scrolling.h"
#include "runtime/not_modelled.h"
#include "uikit/scrolling/flow_layout.h"

namespace {

using objc::strong;
using namespace objc::literals;

/// Section and item.
using Place = std::pair<NSInteger, NSInteger>;

bool intersect(const CGRect& a, const CGRect& b) {
    return a.origin.x < b.origin.x + b.size.width && b.origin.x < a.origin.x + a.size.width &&
           a.origin.y < b.origin.y + b.size.height && b.origin.y < a.origin.y + a.size.height;
}

struct CollectionView : objc::Implements<CollectionView, UICollectionView> {
    struct Ivars {
        strong<UICollectionViewLayout> collectionViewLayout;
        objc::weak<NSObject> dataSource;
        std::map<std::string, Class> cell_classes;
        /// Out of sight, by reuse identifier.
        std::map<std::string, std::vector<strong<UICollectionViewCell>>> spare;
        std::map<Place, strong<UICollectionViewCell>> shown;
        std::vector<sim::PlacedItem> items;
        std::vector<NSInteger> counts;
        bool is_loaded = false, allowsSelection = true;
        bool has_selection = false;
        Place selected{}, touched{};
        bool touches_item = false;
    };

    strong<UICollectionView> initWithFrame(CGRect frame, UICollectionViewLayout* layout) {
        if (!as<UICollectionViewFlowLayout>(layout))
            sim::not_modelled("UICollectionView", "initWithFrame:collectionViewLayout:",
                              "a layout that is not a UICollectionViewFlowLayout");
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        self->ivars().collectionViewLayout = layout;
        layout->send<"_setCollectionView:">(static_cast<UICollectionView*>(self.get()));
        static_cast<UIView*>(self.get())->setNeedsLayout();
        return self;
    }
    void dealloc() {
        ivars().collectionViewLayout->send<"_setCollectionView:">(static_cast<UICollectionView*>(nullptr));
    }

    UICollectionViewLayout* collectionViewLayout() { return ivars().collectionViewLayout; }

    // ---- Cells ----------------------------------------------------------------------------------

    void registerClass(Class cell, NSString* identifier) {
        ivars().cell_classes[identifier->UTF8String()] = cell;
    }

    UICollectionViewCell* dequeueReusableCell(NSString* identifier, NSIndexPath*) {
        const std::string name = identifier ? identifier->UTF8String() : "";
        if (auto& spare = ivars().spare[name]; !spare.empty()) {
            strong<UICollectionViewCell> cell = std::move(spare.back());
            spare.pop_back();
            cell->prepareForReuse();
            return std::move(cell).autoreleased();
        }
        auto type = ivars().cell_classes.find(name);
        if (type == ivars().cell_classes.end())
            sim::raise("NSInternalInconsistencyException"_ns,
                       "no class of cells is registered under the identifier \"" + name + "\"");
        auto cell = objc::make<"initWithFrame:", UICollectionViewCell>(type->second, CGRect{});
        cell->send<"_setReuseIdentifier:">(identifier);
        return std::move(cell).autoreleased();
    }

    // Cells may be used again only by the layout that comes next.
    void reloadData() {
        ivars().is_loaded = ivars().has_selection = false;
        self()->setNeedsLayout();
    }

    NSInteger numberOfSections() {
        load();
        return static_cast<NSInteger>(ivars().counts.size());
    }
    NSInteger numberOfItemsInSection(NSInteger section) {
        load();
        const auto& counts = ivars().counts;
        return section >= 0 && section < static_cast<NSInteger>(counts.size()) ? counts[section] : 0;
    }
    UICollectionViewCell* cellForItemAtIndexPath(NSIndexPath* path) {
        auto found = ivars().shown.find({path->section(), path->item()});
        return found == ivars().shown.end() ? nullptr : found->second.get();
    }
    NSArray* visibleCells() {
        NSMutableArray* cells = NSMutableArray::arrayWithCapacity(ivars().shown.size());
        for (const auto& [place, cell] : ivars().shown) cells->addObject(cell);
        return cells;
    }
    NSIndexPath* indexPathForItemAtPoint(CGPoint point) {
        for (const auto& [section, item, frame] : ivars().items)
            if (intersect(frame, {point, {0, 0}})) return NSIndexPath::indexPathForItem(item, section);
        return nullptr;
    }

    // ---- Layout ---------------------------------------------------------------------------------

    void layoutSubviews() {
        super<"layoutSubviews">();
        auto* self = this->self();
        const bool was_loaded = ivars().is_loaded;
        load();
        if (!was_loaded)
            for (auto shown = ivars().shown.begin(); shown != ivars().shown.end();) shown = put_aside(shown);
        auto* layout = static_cast<UICollectionViewFlowLayout*>(self->collectionViewLayout());
        sim::FlowResult placed = sim::flow(self, layout, ivars().counts);
        ivars().items = std::move(placed.items);
        self->setContentSize(placed.content);
        show_what_is_in_sight();
    }

    // ---- Touches --------------------------------------------------------------------------------

    void touchesBegan(NSSet* touches, UIEvent*) {
        ivars().touches_item = find_item(touches, ivars().touched);
    }
    void touchesMoved(NSSet*, UIEvent*) {}
    void touchesCancelled(NSSet*, UIEvent*) { ivars().touches_item = false; }
    void touchesEnded(NSSet* touches, UIEvent*) {
        Place place;
        if (!std::exchange(ivars().touches_item, false) || !find_item(touches, place) ||
            place != ivars().touched || !ivars().allowsSelection)
            return;
        NSIndexPath* path = NSIndexPath::indexPathForItem(place.second, place.first);
        if (!delegate_allows(path)) return;
        if (ivars().has_selection && ivars().selected != place) {
            const Place before = ivars().selected;
            mark(before, false);
            tell_delegate<"collectionView:didDeselectItemAtIndexPath:">(
                NSIndexPath::indexPathForItem(before.second, before.first));
        }
        ivars().selected = place;
        ivars().has_selection = true;
        mark(place, true);
        tell_delegate<"collectionView:didSelectItemAtIndexPath:">(path);
    }

  private:
    void load() {
        if (ivars().is_loaded) return;
        auto* self = this->self();
        const auto source = ivars().dataSource.get();
        ivars().is_loaded = source != nullptr;
        NSInteger sections = source ? 1 : 0;
        if (source->respondsToSelector(objc::selector<"numberOfSectionsInCollectionView:">()))
            sections = source->send<"numberOfSectionsInCollectionView:", NSInteger>(self);
        ivars().counts.clear();
        for (NSInteger section = 0; section < sections; ++section)
            ivars().counts.push_back(
                source->send<"collectionView:numberOfItemsInSection:", NSInteger>(self, section));
    }

    using Shown = std::map<Place, strong<UICollectionViewCell>>;
    Shown::iterator put_aside(Shown::iterator shown) {
        const strong<UICollectionViewCell> cell = shown->second;
        cell->removeFromSuperview();
        cell->setSelected(false);
        NSString* identifier = cell->reuseIdentifier();
        if (identifier) ivars().spare[identifier->UTF8String()].push_back(cell);
        return ivars().shown.erase(shown);
    }

    void show_what_is_in_sight() {
        auto* self = this->self();
        const CGRect sight = self->bounds();
        std::map<Place, CGRect> wanted;
        for (const auto& [section, item, frame] : ivars().items)
            if (intersect(frame, sight)) wanted[{section, item}] = frame;
        for (auto shown = ivars().shown.begin(); shown != ivars().shown.end();)
            shown = wanted.contains(shown->first) ? std::next(shown) : put_aside(shown);
        const auto source = ivars().dataSource.get();
        for (const auto& [place, frame] : wanted) {
            auto& cell = ivars().shown[place];
            if (!cell) {
                cell = source->send<"collectionView:cellForItemAtIndexPath:", UICollectionViewCell*>(
                    self, NSIndexPath::indexPathForItem(place.second, place.first));
                self->addSubview(cell);
            }
            cell->setFrame(frame);
            cell->setSelected(ivars().has_selection && ivars().selected == place);
        }
    }

    bool find_item(NSSet* touches, Place& place) {
        auto* self = this->self();
        const CGPoint point = static_cast<UITouch*>(touches->anyObject())->locationInView(self);
        NSIndexPath* path = self->indexPathForItemAtPoint(point);
        if (path) place = {path->section(), path->item()};
        return path;
    }
    void mark(Place place, bool selected) {
        auto found = ivars().shown.find(place);
        if (found != ivars().shown.end()) found->second->setSelected(selected);
    }
    bool delegate_allows(NSIndexPath* path) {
        auto* delegate = static_cast<NSObject*>(self()->delegate());
        constexpr auto question = objc::selector<"collectionView:shouldSelectItemAtIndexPath:">;
        if (!delegate->respondsToSelector(question())) return true;
        return delegate->send<"collectionView:shouldSelectItemAtIndexPath:", bool>(self(), path);
    }
    template <objc::Name Message>
    void tell_delegate(NSIndexPath* path) {
        auto* delegate = static_cast<NSObject*>(self()->delegate());
        if (delegate->respondsToSelector(objc::selector<Message>())) delegate->send<Message>(self(), path);
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UICollectionView, UIScrollView, CollectionView,
           method<"initWithFrame:collectionViewLayout:", &CollectionView::initWithFrame>,
           ivar<"_collectionViewLayout", &CollectionView::Ivars::collectionViewLayout>,
           property<"dataSource", &CollectionView::Ivars::dataSource>,
           ivar<"_cellClasses", &CollectionView::Ivars::cell_classes>,
           ivar<"_spare", &CollectionView::Ivars::spare>,
           ivar<"_shown", &CollectionView::Ivars::shown>,
           ivar<"_items", &CollectionView::Ivars::items>,
           ivar<"_counts", &CollectionView::Ivars::counts>,
           ivar<"_isLoaded", &CollectionView::Ivars::is_loaded>,
           property<"allowsSelection", &CollectionView::Ivars::allowsSelection>,
           ivar<"_hasSelection", &CollectionView::Ivars::has_selection>,
           ivar<"_selected", &CollectionView::Ivars::selected>,
           ivar<"_touched", &CollectionView::Ivars::touched>,
           ivar<"_touchesItem", &CollectionView::Ivars::touches_item>,
           method<"collectionViewLayout", &CollectionView::collectionViewLayout>,
           method<"registerClass:forCellWithReuseIdentifier:", &CollectionView::registerClass>,
           method<"dequeueReusableCellWithReuseIdentifier:forIndexPath:",
                  &CollectionView::dequeueReusableCell>,
           method<"reloadData", &CollectionView::reloadData>,
           method<"numberOfSections", &CollectionView::numberOfSections>,
           method<"numberOfItemsInSection:", &CollectionView::numberOfItemsInSection>,
           method<"cellForItemAtIndexPath:", &CollectionView::cellForItemAtIndexPath>,
           method<"visibleCells", &CollectionView::visibleCells>,
           method<"indexPathForItemAtPoint:", &CollectionView::indexPathForItemAtPoint>,
           method<"layoutSubviews", &CollectionView::layoutSubviews>,
           method<"touchesBegan:withEvent:", &CollectionView::touchesBegan>,
           method<"touchesMoved:withEvent:", &CollectionView::touchesMoved>,
           method<"touchesEnded:withEvent:", &CollectionView::touchesEnded>,
           method<"touchesCancelled:withEvent:", &CollectionView::touchesCancelled>)

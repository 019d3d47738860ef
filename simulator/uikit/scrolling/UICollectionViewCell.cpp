// Cells of collection views.
#include "objc/class.h"
#include "platform/scrolling.h"

namespace {

using objc::strong;

struct Cell : objc::Implements<Cell, UICollectionViewCell> {
    struct Ivars {
        strong<UIView> contentView;
        bool selected = false, highlighted = false;
    };

    strong<UICollectionViewCell> initWithFrame(CGRect frame) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        auto* view = static_cast<UIView*>(self.get());
        auto content = UIView::alloc()->initWithFrame(view->bounds());
        content->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
        self->ivars().contentView = content.get();
        view->addSubview(content);
        return self;
    }

    UIView* contentView() { return ivars().contentView; }
    bool isSelected() { return ivars().selected; }
    void setSelected(bool selected) { ivars().selected = selected; }
    bool isHighlighted() { return ivars().highlighted; }
    void setHighlighted(bool highlighted) { ivars().highlighted = highlighted; }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UICollectionViewCell, UICollectionReusableView, Cell,
           method<"initWithFrame:", &Cell::initWithFrame>,
           ivar<"_contentView", &Cell::Ivars::contentView>,
           ivar<"_selected", &Cell::Ivars::selected>,
           ivar<"_highlighted", &Cell::Ivars::highlighted>,
           method<"contentView", &Cell::contentView>,
           method<"isSelected", &Cell::isSelected>,
           method<"setSelected:", &Cell::setSelected>,
           method<"isHighlighted", &Cell::isHighlighted>,
           method<"setHighlighted:", &Cell::setHighlighted>)

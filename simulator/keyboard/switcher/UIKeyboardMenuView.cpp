// A list of choices that opens over a key: shadow and blur, the surface in front of them, and a table. The
// surface is a key's view, drawn as the factory says.
#include "keyboard/switcher/UIKeyboardMenuView.h"

#include "keyboard/make.h"
#include "keyboard/planes/key_kind.h"
#include "keyboard/rendering/key_painter.h"
#include "objc/class.h"

namespace {

using objc::strong;

struct MenuView : objc::Implements<MenuView, UIKeyboardMenuView> {
    struct Ivars {
        strong<UIInputSwitcherShadowView> shadowView;
        strong<UIKBKeyView> backgroundKeyView;
        strong<UIInputSwitcherTableView> table;
    };

    strong<UIKeyboardMenuView> initWithFrame(CGRect frame) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        auto* menu = static_cast<UIKeyboardMenuView*>(self.get());
        auto table = sim::make_view<UIInputSwitcherTableView>({{0, 0}, frame.size});
        self->ivars().table = table;
        table->setAutoresizingMask(sim::follows_size);
        table->setDataSource(menu);
        table->setDelegate(menu);
        table->setBackgroundColor(nullptr);
        table->setSeparatorColor(UIColor::colorWithWhite(0, 0.25));
        table->layer()->setCornerRadius(sim::menu_corner_radius);
        menu->addSubview(table);
        return self;
    }

    // The parts behind the table are made again for each size.
    void setFrame(CGRect frame) {
        super<"setFrame:">(frame);
        auto* menu = self();
        menu->setUpBackgroundKeyView(frame.size);
        menu->setUpShadowView(frame.size);
    }

    void setUpShadowView(CGSize size) {
        ivars().shadowView->removeFromSuperview();
        ivars().shadowView = sim::make_view<UIInputSwitcherShadowView>({{0, 0}, size});
        self()->insertSubview(ivars().shadowView, 0);
    }

    void setUpBackgroundKeyView(CGSize size) {
        ivars().backgroundKeyView->removeFromSuperview();
        auto key = UIKBTree::alloc()->initWithType(static_cast<int>(sim::TreeType::key));
        key->setDisplayType(static_cast<int>(sim::KeyKind::menu));
        key->setFrame({{0, 0}, size});
        // A surface is filled to its bottom: there is no room for a line below it.
        const CGRect frame{{0, 0}, {size.width, size.height + sim::room_below_cap}};
        ivars().backgroundKeyView = UIKBKeyView::alloc()->initWithFrame(frame, nullptr, key);
        self()->insertSubview(ivars().backgroundKeyView, 0);
    }

    UIInputSwitcherTableView* table() { return ivars().table; }
    NSInteger numberOfItems() { return 0; }
    CGSize preferredSize() { return {}; }
    NSInteger numberOfRows(UITableView*, NSInteger) { return self()->numberOfItems(); }
};

}  // namespace

using namespace objc::definition;
using Menu = MenuView;

OBJC_CLASS(UIKeyboardMenuView, UIView, MenuView,
           ivar<"m_shadowView", &Menu::Ivars::shadowView>,
           ivar<"m_backgroundKeyView", &Menu::Ivars::backgroundKeyView>,
           ivar<"m_table", &Menu::Ivars::table>,
           method<"initWithFrame:", &Menu::initWithFrame>,
           method<"setFrame:", &Menu::setFrame>,
           method<"setupShadowViewWithSize:", &Menu::setUpShadowView>,
           method<"setupBackgroundKeyViewWithSize:", &Menu::setUpBackgroundKeyView>,
           method<"table", &Menu::table>,
           method<"numberOfItems", &Menu::numberOfItems>,
           method<"preferredSize", &Menu::preferredSize>,
           method<"tableView:numberOfRowsInSection:", &Menu::numberOfRows>)

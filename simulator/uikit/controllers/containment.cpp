// View controllers inside others, and what a controller gives to the bar above its page.
#include <algorithm>

#include "uikit/controllers/UIViewController.h"

namespace sim {

using objc::strong;

NSArray* ViewController::childViewControllers() {
    NSMutableArray* list = NSMutableArray::arrayWithCapacity(ivars().children.size());
    for (UIViewController* child : ivars().children) list->addObject(child);
    return NSArray::arrayWithArray(list);
}

void ViewController::addChildViewController(UIViewController* child) {
    const strong<UIViewController> kept = child;
    child->removeFromParentViewController();
    child->willMoveToParentViewController(self());
    ivars().children.emplace_back(child);
    of(child).parent = self();
}

void ViewController::removeFromParentViewController() {
    UIViewController* const parent = ivars().parent;
    if (!parent) return;
    const strong<UIViewController> kept = self();
    std::erase_if(of(parent).children, [&](const auto& child) { return child == kept; });
    ivars().parent = nullptr;
    kept->didMoveToParentViewController(nullptr);
}

UINavigationController* ViewController::navigationController() {
    for (UIViewController* above = ivars().parent; above; above = above->parentViewController())
        if (auto* navigation = as<UINavigationController>(above)) return navigation;
    return nullptr;
}

UINavigationItem* ViewController::navigationItem() {
    auto& item = ivars().navigationItem;
    if (!item) item = UINavigationItem::alloc()->initWithTitle(self()->title());
    return item;
}

void ViewController::setEditingAnimated(bool editing, bool) {
    ivars().editing = editing;
    UIBarButtonItem* button = ivars().editButtonItem;
    if (!button) return;
    const auto shown = editing ? UIBarButtonSystemItemDone : UIBarButtonSystemItemEdit;
    button->send<"_setSystemItem:">(shown);
}

UIBarButtonItem* ViewController::editButtonItem() {
    auto& button = ivars().editButtonItem;
    if (!button)
        button = UIBarButtonItem::alloc()->initWithSystemItem(
            self()->isEditing() ? UIBarButtonSystemItemDone : UIBarButtonSystemItemEdit, self(),
            objc::selector<"_toggleEditing">());
    return button;
}

}  // namespace sim

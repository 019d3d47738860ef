// Tables: the rows of one section below each other, as the data source makes them, with lines between them.
// All rows are made at once; none is used again.
#include <vector>

#include "objc/class.h"
#include "platform/tables.h"

namespace {

using objc::strong;

struct TableView : objc::Implements<TableView, UITableView> {
    struct Ivars {
        objc::weak<NSObject> dataSource;
        CGFloat rowHeight = 44;
        std::vector<strong<UIView>> rows, lines;
        bool is_loaded = false;
    };

    void reloadData() {
        ivars().is_loaded = false;
        self()->setNeedsLayout();
    }

    NSArray* visibleCells() {
        load();
        NSMutableArray* cells = NSMutableArray::arrayWithCapacity(ivars().rows.size());
        for (UIView* row : ivars().rows) cells->addObject(row);
        return cells;
    }

    void layoutSubviews() {
        super<"layoutSubviews">();
        load();
        constexpr CGFloat line_height = 0.5;
        const CGFloat width = self()->bounds().size.width;
        CGFloat top = 0;
        for (size_t row = 0; row < ivars().rows.size(); ++row) {
            const CGFloat height = height_of(static_cast<NSInteger>(row));
            ivars().rows[row]->setFrame({{0, top}, {width, height}});
            top += height;
            ivars().lines[row]->setFrame({{0, top}, {width, line_height}});
        }
        self()->setContentSize({width, top});
    }

  private:
    void load() {
        if (ivars().is_loaded) return;
        ivars().is_loaded = true;
        for (auto* views : {&ivars().rows, &ivars().lines}) {
            for (UIView* view : *views) view->removeFromSuperview();
            views->clear();
        }
        const auto source = ivars().dataSource.get();
        const auto count = source->send<"tableView:numberOfRowsInSection:", NSInteger>(self(), NSInteger{0});
        for (NSInteger row = 0; row < count; ++row) {
            auto* cell = source->send<"tableView:cellForRowAtIndexPath:", UIView*>(
                self(), NSIndexPath::indexPathForItem(row, 0));
            if (!cell) continue;
            auto line = UIView::alloc()->initWithFrame({});
            line->setBackgroundColor(UIColor::colorWithWhite(0, 0.25));
            for (auto& [view, list] :
                 {std::pair(cell, &ivars().rows), std::pair(line.get(), &ivars().lines)}) {
                self()->addSubview(view);
                list->emplace_back(view);
            }
        }
    }

    CGFloat height_of(NSInteger row) {
        UITableView* table = self();
        auto* delegate = static_cast<NSObject*>(table->delegate());
        if (!delegate->respondsToSelector(objc::selector<"tableView:heightForRowAtIndexPath:">()))
            return table->rowHeight();
        return delegate->send<"tableView:heightForRowAtIndexPath:", CGFloat>(
            table, NSIndexPath::indexPathForItem(row, 0));
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UITableView, UIScrollView, TableView,
           property<"dataSource", &TableView::Ivars::dataSource>,
           property<"rowHeight", &TableView::Ivars::rowHeight>,
           ivar<"_visibleCells", &TableView::Ivars::rows>,
           ivar<"_separators", &TableView::Ivars::lines>,
           ivar<"_loaded", &TableView::Ivars::is_loaded>,
           method<"reloadData", &TableView::reloadData>,
           method<"visibleCells", &TableView::visibleCells>,
           method<"layoutSubviews", &TableView::layoutSubviews>)

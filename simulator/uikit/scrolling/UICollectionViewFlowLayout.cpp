// Flow layouts: their settings. Where the items go is in flow_layout.cpp.
#include "objc/class.h"
#include "platform/scrolling.h"

namespace {

struct FlowLayout : objc::Implements<FlowLayout, UICollectionViewFlowLayout> {
    struct Ivars {
        CGFloat minimumInteritemSpacing = 10, minimumLineSpacing = 10;
        CGSize itemSize{50, 50};
        UIEdgeInsets sectionInset{};
    };

    template <auto Member>
    auto get() {
        return ivars().*Member;
    }
    template <auto Member, class Value = typename objc::detail::MemberOf<decltype(Member)>::type>
    void set(Value value) {
        ivars().*Member = value;
        self()->invalidateLayout();
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UICollectionViewFlowLayout, UICollectionViewLayout, FlowLayout,
           ivar<"_minimumInteritemSpacing", &FlowLayout::Ivars::minimumInteritemSpacing>,
           ivar<"_minimumLineSpacing", &FlowLayout::Ivars::minimumLineSpacing>,
           ivar<"_itemSize", &FlowLayout::Ivars::itemSize>,
           ivar<"_sectionInset", &FlowLayout::Ivars::sectionInset>,
           method<"minimumInteritemSpacing", &FlowLayout::get<&FlowLayout::Ivars::minimumInteritemSpacing>>,
           method<"setMinimumInteritemSpacing:", &FlowLayout::set<&FlowLayout::Ivars::minimumInteritemSpacing>>,
           method<"minimumLineSpacing", &FlowLayout::get<&FlowLayout::Ivars::minimumLineSpacing>>,
           method<"setMinimumLineSpacing:", &FlowLayout::set<&FlowLayout::Ivars::minimumLineSpacing>>,
           method<"itemSize", &FlowLayout::get<&FlowLayout::Ivars::itemSize>>,
           method<"setItemSize:", &FlowLayout::set<&FlowLayout::Ivars::itemSize>>,
           method<"sectionInset", &FlowLayout::get<&FlowLayout::Ivars::sectionInset>>,
           method<"setSectionInset:", &FlowLayout::set<&FlowLayout::Ivars::sectionInset>>)

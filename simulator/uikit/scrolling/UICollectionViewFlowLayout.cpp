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
using Ivars = FlowLayout::Ivars;

OBJC_CLASS(UICollectionViewFlowLayout, UICollectionViewLayout, FlowLayout,
           ivar<"_minimumInteritemSpacing", &Ivars::minimumInteritemSpacing>,
           ivar<"_minimumLineSpacing", &Ivars::minimumLineSpacing>,
           ivar<"_itemSize", &Ivars::itemSize>,
           ivar<"_sectionInset", &Ivars::sectionInset>,
           method<"minimumInteritemSpacing", &FlowLayout::get<&Ivars::minimumInteritemSpacing>>,
           method<"setMinimumInteritemSpacing:", &FlowLayout::set<&Ivars::minimumInteritemSpacing>>,
           method<"minimumLineSpacing", &FlowLayout::get<&Ivars::minimumLineSpacing>>,
           method<"setMinimumLineSpacing:", &FlowLayout::set<&Ivars::minimumLineSpacing>>,
           method<"itemSize", &FlowLayout::get<&Ivars::itemSize>>,
           method<"setItemSize:", &FlowLayout::set<&Ivars::itemSize>>,
           method<"sectionInset", &FlowLayout::get<&Ivars::sectionInset>>,
           method<"setSectionInset:", &FlowLayout::set<&Ivars::sectionInset>>)

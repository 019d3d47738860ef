// A phone on which backdrop views are themed.
#include "backdrop_phone.h"

#include "least_backdrop.h"
#include "measuring/check.h"
#include "support/themes.h"
#include "view_in_words.h"

namespace bench {

namespace {

std::string theme_of(Background wanted) {
    return test::property_list(
        "<dict><key>_TextColor</key><string>#00FF00</string>"
        "<key>_HighlightColor</key><string>#FF8000</string><key>_BackgroundType</key><integer>" +
        std::string(wanted == Background::flat ? "1" : "2") + "</integer><key>_Colors</key><array>" +
        std::string(wanted == Background::flat ? "<string>#336699</string>"
                                               : "<string>#000000</string><string>#FF0000</string>") +
        "</array><key>_GradientDirection</key><integer>7</integer></dict>");
}

/// As it is built, and when it was laid out.
void check_the_least() {
    const auto themed = themed_view(), least = view_themed_with_the_least();
    check(in_words(least) == in_words(themed), "the least comes to the library's view");
    check(shown_by_the_least(least) && shown_by_the_least(least)->superview() == least->contentView(),
          "the backdrop knows the view that the least put in");
    for (UIView* view : {static_cast<UIView*>(themed.get()), static_cast<UIView*>(least.get())}) {
        view->setFrame({{0, 0}, {300, 200}});
        view->layoutIfNeeded();
    }
    check(in_words(least) == in_words(themed), "the least is laid out as the library's view is");
    check(in_words(unthemed_view()) != in_words(themed), "a theme can be seen in words");
}

}  // namespace

BackdropPhone::BackdropPhone(Background wanted) {
    test::arrange_theme(phone_);
    phone_.write(std::string(test::theme_folder) + "Meadow.plist", theme_of(wanted));
    phone_.boot();
    know_system();
    phone_.load();
    check(phone_.loaded_library(), "the library is loaded");

    objc::AutoreleasePool pool;
    auto* parsed = as<NSDictionary>(NSPropertyListSerialization::propertyListWithData(
        test::data(theme_of(wanted)), NSPropertyListSerialization::immutable, nullptr, nullptr));
    know_theme(wanted, parsed->mutableCopy().leak());
    check(themed_view()->activeBackgroundView(), "the view is themed");
    check(!unthemed_view()->activeBackgroundView(), "the other is not");
    check(view_themed_by_hand()->contentView()->subviews()->count() == 1,
          "the one by hand has a view inside");
    check_the_least();
}

}  // namespace bench

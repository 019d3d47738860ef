// A phone on which backdrop views are themed.
#include "backdrop_phone.h"

#include "measuring/check.h"
#include "support/themes.h"

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
}

}  // namespace bench

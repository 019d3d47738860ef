// What the tests of the preview share: a bundle of four small pictures, themes, and the shared instance.
#pragma once
#include "support/configuration.h"
#include "views/observing.h"

namespace test {

using Selectors = std::vector<std::string>;

inline constexpr const char* bundle = "/Library/PreferenceBundles/Huecraft.bundle/PreviewKeyboard";

class Preview : public testing::Test {
  protected:
    void SetUp() override {
        phone.start();
        write_pictures();
        preview = shared();
        heard.clear();
    }

    /// Four pictures of 8 x 4 pixels, each filled along one edge: the background all over, the text in its
    /// left half, highlights in its right half, key caps in its upper half.
    void write_pictures() const {
        write_picture("Background.png", {{0, 0}, {8, 4}});
        write_picture("Text.png", {{0, 0}, {4, 4}});
        write_picture("Highlight.png", {{4, 0}, {4, 4}});
        write_picture("KeyCaps.png", {{0, 0}, {8, 2}});
    }
    void write_picture(const std::string& name, CGRect filled) const {
        UIGraphicsBeginImageContextWithOptions({8, 4}, false, 1.0);
        color(0, 0, 1)->setFill();
        CGContextFillRect(UIGraphicsGetCurrentContext(), filled);
        NSData* png = UIImagePNGRepresentation(UIGraphicsGetImageFromCurrentImageContext());
        UIGraphicsEndImageContext();
        phone.write(bundle + name, {static_cast<const char*>(png->bytes()), png->length()});
    }

    static id shared() { return objc::send<"sharedInstance", id>(class_named("HCPreview")); }
    UIView* view_for(const Configuration& theme) const {
        return objc::send<"viewForConfig:", UIView*>(preview, theme.object);
    }
    Configuration theme(const std::string& xml) const {
        return Configuration::from_xml(phone, "<key>_TextColor</key><string>#00FF00</string>"
                                              "<key>_HighlightColor</key><string>#FF0000</string>" +
                                                  xml);
    }
    Configuration of_type(int type, const std::string& more = "") const {
        return theme("<key>_BackgroundType</key><integer>" + std::to_string(type) + "</integer>" + more);
    }
    static std::string colours(const std::string& list) {
        return "<key>_Colors</key><array>" + list + "</array>";
    }
    Configuration with_image(UIImage* image, double alpha) const {
        Configuration made = of_type(3);
        objc::send<"setImageData:">(made.object, image);
        objc::send<"setImageAlpha:">(made.object, alpha);
        return made;
    }

    UIView* cached(const char* key) const {
        return static_cast<UIView*>(
            variable<NSDictionary*>(preview, "cachedBackdrops")->objectForKey(text(key)));
    }
    UIImageView* picture_view(const char* name) const { return variable<UIImageView*>(preview, name); }
    UIImage* loaded(const char* name) const { return variable<UIImage*>(preview, name); }
    UIImage* shown(const char* name) const { return picture_view(name)->image(); }
    /// The colour of the pixel at that place of the 8 x 4, colours not multiplied by alpha.
    static Rgba pixel(UIImage* image, CGFloat x, CGFloat y) {
        UIGraphicsBeginImageContextWithOptions({1, 1}, false, 1.0);
        image->drawInRect({{-x, -y}, {8, 4}});
        auto* bytes = static_cast<const uint8_t*>(CGBitmapContextGetData(UIGraphicsGetCurrentContext()));
        const double alpha = bytes[3];
        const Rgba found{alpha ? bytes[2] / alpha : 0, alpha ? bytes[1] / alpha : 0,
                         alpha ? bytes[0] / alpha : 0, alpha / 255};
        UIGraphicsEndImageContext();
        return found;
    }
    static constexpr Rgba red{1, 0, 0, 1}, green{0, 1, 0, 1}, blue{0, 0, 1, 1}, nothing{0, 0, 0, 0};

    Phone phone;
    id preview = nullptr;
};

}  // namespace test

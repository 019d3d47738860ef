// What a theme's background can be, and the backdrop that shows it.
#pragma once
#include "views/backdrops.h"
#include "views/translucency.h"

/// Any other number is not a background.
enum ThemeBackground : NSUInteger { flat_background = 1, gradient_background = 2, image_background = 3 };

inline UIColor* first_or_clear(NSArray* colours) {
    return colours->count() ? static_cast<UIColor*>(colours->objectAtIndex(0)) : UIColor::clearColor();
}

inline NSArray* all_or_clear(NSArray* colours) {
    return colours->count() ? colours : NSArray::arrayWithObject(UIColor::clearColor());
}

/// Backdrops that are made when they are asked for; nil where the system lacks their superclass.
struct NewBackdrops {
    static _UIBackdropImageView* image() {
        return _UIBackdropImageView::backdropWithStyle(themed_backdrop_style);
    }
    static _UIBackdropGradientView* gradient() {
        return _UIBackdropGradientView::backdropWithStyle(themed_backdrop_style);
    }
    static _UIBackdropColouredView* colour() {
        return _UIBackdropColouredView::backdropWithStyle(themed_backdrop_style);
    }
};

/// One of the backdrops, filled with the theme's background, of which the caller knows colours and type. The
/// theme is whatever answers a theme's getters.
template <class Theme, class Backdrops>
_UIBackdropView* filled_backdrop(Theme* theme, NSArray* colours, NSUInteger type, Backdrops backdrops) {
    switch (type) {
        case image_background: {
            auto* backdrop = backdrops.image();
            backdrop->setImage(theme->getImage());  // again, so that the alpha is baked in once
            const double alpha = theme->getImageAlpha();
            if (is_translucent(alpha)) backdrop->setImageAlpha(alpha);
            return backdrop;
        }
        case gradient_background: {
            auto* backdrop = backdrops.gradient();
            backdrop->setDirection(static_cast<NSInteger>(theme->getGradientDirection()));
            backdrop->setColors(all_or_clear(colours));
            return backdrop;
        }
        case flat_background: {
            auto* backdrop = backdrops.colour();
            backdrop->setColor(first_or_clear(colours));
            return backdrop;
        }
        default: {
            auto* backdrop = backdrops.colour();
            backdrop->setColor(UIColor::clearColor());
            backdrop->setAlpha(1.0);
            return backdrop;
        }
    }
}

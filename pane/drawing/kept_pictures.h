// Small keyboards in the caches folder: what was drawn once is not drawn again while its file stays as it is.
#pragma once
#include "platform/uikit.h"

namespace pane::kept_pictures {

/// What a row shows of a sound theme.
struct Kept {
    objc::strong<NSString> name;
    objc::strong<UIImage> picture;
};

/// By a text that tells one content of one file from every other. Empty where there is none, or where what is
/// there is damaged.
Kept find(NSString* stamp, CGFloat scale);

/// Where it cannot be written nothing is lost but time. There are at most `most`; one more, and all begin
/// anew.
void keep(NSString* stamp, const Kept& kept);
constexpr NSUInteger most = 300;

}  // namespace pane::kept_pictures

// What the rows of a list of themes show: read, and drawn small, when a row comes into sight.
#pragma once
#include "pane/drawing/keyboard_picture.h"
#include "platform/tables.h"

namespace pane {

/// Remembers what it read and drew for as long as the file stays as it is; small keyboards beyond the page's
/// own time.
class ThemeRows {
  public:
    ThemeRows();
    void show(NSString* folder, NSString* file, bool chosen, UITableViewCell* cell);
    void forget() { known_ = nullptr; }

    static constexpr CGFloat row_height = 76;

  private:
    struct Shown {
        objc::strong<NSString> name, note;
        objc::strong<UIImage> picture;
    };
    Shown look_up(NSString* folder, NSString* file);
    Shown remember(NSString* key, const Shown& shown);

    KeyboardPainter painter_;
    objc::strong<NSMutableDictionary> known_;
};

}  // namespace pane

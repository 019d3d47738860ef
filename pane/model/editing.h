// One theme in the editor: what can be changed of it, how it is undone, and where it is kept.
#pragma once
#include <vector>

#include "pane/model/sitting.h"

namespace pane {

/// What the editor has a row for.
enum class Row : NSInteger {
    name,
    text_colour,
    highlight_colour,
    labels_contrast,
    highlights_contrast,
    pressed_contrast,
    nearest_pair,
    kind,
    colour,
    add_colour,
    direction,
    photo,
    crop,
    alpha,
    caps,
};
struct Place {
    Row row = Row::name;
    /// Of the background's colours.
    NSUInteger colour = 0;
};

class Editing {
  public:
    /// A nil file is a theme that is kept under a name of its own.
    Editing(objc::strong<HuecraftConfig> theme, NSString* file);

    HuecraftConfig* theme() const { return sitting.theme(); }

    /// By the file's numbers; whatever else is there is none.
    NSUInteger kind() const;
    /// What the kind needs is there afterwards: a colour, or two. What another kind had stays.
    void set_kind(NSUInteger kind);

    std::vector<objc::strong<UIColor>> colours() const;
    /// nil for one that is not there.
    objc::strong<UIColor> colour_of(const Place& place) const;
    /// The background's colour after the last one is added.
    void set_colour(const Place& place, UIColor* colour);
    void remove_colour(NSUInteger index);
    void move_colour(NSUInteger from, NSUInteger to);
    NSUInteger direction() const;
    void set_direction(NSUInteger direction);

    /// Many of them one after another are one change.
    void set_alpha(double alpha);
    void set_image(UIImage* image);
    void set_caps(bool visible);
    void set_name(NSString* name);
    void set_pair(UIColor* text, UIColor* highlight);

    /// Whether the file holds something else by now than it did. One that is gone does not.
    bool is_changed_behind() const;
    /// What was edited stays as it is when it cannot be kept.
    bool save(NSError** error);
    bool save_as_new(NSError** error);

    Sitting sitting;

  private:
    void set_colours(const std::vector<objc::strong<UIColor>>& colours);
    bool save_in(NSString* file, NSString* name_before, NSError** error);
    objc::strong<NSDictionary> content() const;

    objc::strong<NSString> file_, name_;
    /// What the file held when it was last read or written.
    objc::strong<NSDictionary> content_;
};

}  // namespace pane

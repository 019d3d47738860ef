#include "pane/screens/editor/value_rows.h"

#include <algorithm>

#include "pane/drawing/swatch.h"
#include "pane/screens/plain_rows.h"
#include "pane/texts.h"

namespace pane {
namespace {

using readability::Contrast;
using readability::Demand;

/// In the user's size of text.
UITableViewCell* text_cell(UITableView* table, NSString* title, NSString* value) {
    UITableViewCell* cell = value_row(table, title, value);
    UIFont* font = UIFont::preferredFontForTextStyle(UIFontTextStyleBody);
    cell->textLabel()->setFont(font);
    cell->textLabel()->setTextColor(UIColor::blackColor());
    cell->detailTextLabel()->setFont(font);
    cell->detailTextLabel()->setTextColor(UIColor::colorWithWhite(0.43, 1));
    cell->imageView()->setImage(nullptr);
    cell->setSelectionStyle(UITableViewCellSelectionStyleDefault);
    cell->setIsAccessibilityElement(true);
    cell->setAccessibilityTraits(UIAccessibilityTraitButton);
    return cell;
}

UITableViewCell* action_cell(UITableView* table, NSString* title) {
    UITableViewCell* cell = action_row(table, title);
    cell->textLabel()->setFont(UIFont::preferredFontForTextStyle(UIFontTextStyleBody));
    cell->textLabel()->setTextColor(table->tintColor());
    return cell;
}

UITableViewCell* colour_cell(UITableView* table, NSString* title, UIColor* colour) {
    NSString* hex = colour ? HCCITool::hexStringFromColor(colour) : text<"not set">();
    UITableViewCell* cell = title ? text_cell(table, title, hex) : text_cell(table, hex, nullptr);
    cell->imageView()->setImage(swatch_of(colour));
    return cell;
}

UITableViewCell* contrast_cell(UITableView* table, NSString* title, const Contrast& contrast,
                               const Demand& demand) {
    const bool fails = contrast.ratio < demand.error_below, weak = contrast.ratio < demand.warning_below;
    NSString* ratio = NSString::stringWithUTF8String(readability::ratio_text(contrast.ratio).c_str());
    NSString* verdict = fails ? text<"%1, too little">(ratio) : weak ? text<"%1, weak">(ratio) : ratio;
    UITableViewCell* cell = text_cell(table, title, verdict);
    cell->detailTextLabel()->setTextColor(fails  ? UIColor::colorWithRGB(0.8, 0.1, 0.1, 1)
                                          : weak ? UIColor::colorWithRGB(0.65, 0.4, 0, 1)
                                                 : UIColor::colorWithRGB(0.1, 0.5, 0.2, 1));
    cell->setSelectionStyle(UITableViewCellSelectionStyleNone);
    cell->setAccessibilityTraits(0);
    return cell;
}

}  // namespace

std::vector<std::vector<Place>> rows_of(const Editing& editing, const readability::Legibility& legibility) {
    std::vector<std::vector<Place>> sections{
        {{Row::name}},
        {{Row::text_colour}, {Row::highlight_colour}, {Row::caps}},
        {{Row::labels_contrast}, {Row::highlights_contrast}, {Row::pressed_contrast}},
        {{Row::kind}},
    };
    if (!legibility.passes()) sections[2].push_back({Row::nearest_pair});
    auto& background = sections[3];
    switch (editing.kind()) {
        case huecraft::flat_background: background.push_back({Row::colour}); break;
        case huecraft::gradient_background:
            for (NSUInteger at = 0; at < editing.colours().size(); ++at)
                background.push_back({Row::colour, at});
            background.push_back({Row::add_colour, editing.colours().size()});
            background.push_back({Row::direction});
            break;
        case huecraft::image_background:
            background.push_back({Row::photo});
            if (editing.theme()->getImage()) {
                background.push_back({Row::crop});
                background.push_back({Row::alpha});
            }
            break;
        default: break;
    }
    return sections;
}

UITableViewCell* value_cell(UITableView* table, const Place& place, const Editing& editing,
                            const readability::Legibility& legibility) {
    HuecraftConfig* theme = editing.theme();
    switch (place.row) {
        case Row::name: return text_cell(table, text<"Name">(), theme->getConfigName());
        case Row::text_colour: return colour_cell(table, text<"Text">(), theme->getTextColor());
        case Row::highlight_colour:
            return colour_cell(table, text<"Highlights">(), theme->getHighlightColor());
        case Row::labels_contrast:
            return contrast_cell(table, text<"Labels">(), legibility.labels, readability::demand_of_labels);
        case Row::highlights_contrast:
            return contrast_cell(table, text<"Highlights">(), legibility.highlights,
                                 readability::demand_of_highlights);
        case Row::pressed_contrast:
            return contrast_cell(table, text<"Label of a pressed key">(), legibility.pressed,
                                 readability::demand_when_pressed);
        case Row::nearest_pair: return action_cell(table, text<"Use the Nearest Readable Pair">());
        case Row::colour: {
            const bool is_flat = editing.kind() == huecraft::flat_background;
            return colour_cell(table, is_flat ? text<"Colour">() : nullptr, editing.colour_of(place));
        }
        case Row::add_colour: return action_cell(table, text<"Add Colour">());
        case Row::photo: return action_cell(table, text<"Choose Photo">());
        case Row::crop: return action_cell(table, text<"Crop, Dim and Blur">());
        default: return nullptr;
    }
}

CGFloat text_row_height() {
    constexpr CGFloat least = 44, around = 24;
    return std::max(least, UIFont::preferredFontForTextStyle(UIFontTextStyleBody)->lineHeight() + around);
}

}  // namespace pane

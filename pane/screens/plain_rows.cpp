#include "pane/screens/plain_rows.h"

namespace pane {

using namespace objc::literals;

UITableViewCell* cell_of(UITableView* table, NSString* identifier, UITableViewCellStyle style) {
    if (UITableViewCell* spare = table->dequeueReusableCell(identifier)) return spare;
    return UITableViewCell::alloc()->initWithStyle(style, identifier).autoreleased();
}

UITableViewCell* switch_row(UITableView* table, UISwitch* control) {
    UITableViewCell* cell = cell_of(table, "switch"_ns, UITableViewCellStyleDefault);
    cell->textLabel()->setText("Huecraft"_ns);
    cell->setSelectionStyle(UITableViewCellSelectionStyleNone);
    cell->setAccessoryView(control);
    return cell;
}

UITableViewCell* rescue_row(UITableView* table, NSString* title) {
    UITableViewCell* cell = cell_of(table, "rescue"_ns, UITableViewCellStyleDefault);
    cell->textLabel()->setText(title);
    cell->textLabel()->setTextColor(UIColor::colorWithRGB(0.85, 0.15, 0.1, 1));
    cell->setAccessibilityTraits(UIAccessibilityTraitButton);
    return cell;
}

UITableViewCell* link_row(UITableView* table, NSString* title) {
    UITableViewCell* cell = cell_of(table, "link"_ns, UITableViewCellStyleDefault);
    cell->textLabel()->setText(title);
    cell->setAccessoryType(UITableViewCellAccessoryDisclosureIndicator);
    cell->setAccessibilityTraits(UIAccessibilityTraitButton);
    return cell;
}

UITableViewCell* action_row(UITableView* table, NSString* title) {
    UITableViewCell* cell = cell_of(table, "action"_ns, UITableViewCellStyleDefault);
    cell->textLabel()->setText(title);
    cell->textLabel()->setTextColor(UIColor::colorWithRGB(0, 0.48, 1, 1));
    cell->setAccessibilityTraits(UIAccessibilityTraitButton);
    return cell;
}

UITableViewCell* value_row(UITableView* table, NSString* title, NSString* value) {
    UITableViewCell* cell = cell_of(table, "value"_ns, UITableViewCellStyleValue1);
    cell->textLabel()->setText(title);
    cell->detailTextLabel()->setText(value);
    cell->setSelectionStyle(UITableViewCellSelectionStyleNone);
    cell->setAccessibilityLabel(title);
    cell->setAccessibilityValue(value);
    return cell;
}

}  // namespace pane

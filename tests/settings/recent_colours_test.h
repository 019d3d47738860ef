// What the tests of the recent colours share: the file, the strip, and confirmations.
#pragma once
#include "settings/color_picker.h"
#include "support/themes.h"

namespace test {

using Hexes = std::vector<std::string>;
inline const Hexes six_clear(6, "#00000000");

class RecentColours : public ColorPicker {
  protected:
    static Hexes hexes(NSArray* list) {
        Hexes found;
        for (id each : elements(list)) found.push_back(utf8(each));
        return found;
    }
    Hexes in_memory() const { return hexes(part<"recentColors", NSArray>()); }
    /// As the file has them.
    Hexes in_file() const {
        auto* root = as<NSDictionary>(NSPropertyListSerialization::propertyListWithData(
            test::data(phone.read(recent_file)), 0, nullptr, nullptr));
        EXPECT_EQ((root->send<"count", NSUInteger>()), 1u);
        return hexes(static_cast<NSArray*>(root->objectForKey(text("Colors"))));
    }
    void write_colours(const Hexes& list) const {
        std::string xml;
        for (const std::string& each : list) xml += "<string>" + each + "</string>";
        write_root("<dict><key>Colors</key><array>" + xml + "</array></dict>");
    }
    void write_root(const std::string& xml) const { phone.write(recent_file, property_list(xml)); }
    void confirm(const char* hex) const {
        set_text(hex);
        picker->send<"selectButtonPressed">();
    }
    UICollectionView* strip() const { return part<"recentCollectionView", UICollectionView>(); }
    static NSIndexPath* path(NSInteger item) { return NSIndexPath::indexPathForItem(item, 0); }
    UICollectionViewCell* cell(NSInteger item) const { return strip()->cellForItemAtIndexPath(path(item)); }
    UICollectionViewCell* made_cell(NSInteger item) const {
        return picker->send<"collectionView:cellForItemAtIndexPath:", UICollectionViewCell*>(strip(),
                                                                                             path(item));
    }
    Hexes shown() const {
        Hexes found;
        for (NSInteger item = 0; item < 6; ++item) found.push_back(hex(cell(item)->backgroundColor()));
        return found;
    }
};

}  // namespace test

// The colours that were chosen last: how they are read, shown and tapped.
#include "settings/recent_colours_test.h"

namespace test {
namespace {

// ---- Loading

TEST_F(RecentColours, WithoutAFileThereAreSixTransparentOnes) {
    show();
    EXPECT_EQ(in_memory(), six_clear);
    EXPECT_EQ(shown(), six_clear);
    EXPECT_FALSE(phone.exists(recent_file)) << "nothing is written yet";
    EXPECT_EQ((part<"recentColorDictionary", NSDictionary>()->objectForKey(text("Colors"))),
              part<"recentColors">());
}

TEST_F(RecentColours, AreReadFromTheFile) {
    const Hexes six{"#FF0000", "#00FF00", "#0000FF", "#FFFF0080", "#00FFFF", "#FF00FF"};
    write_colours(six);
    show();
    EXPECT_EQ(in_memory(), six);
    EXPECT_EQ(shown(), six);
}

TEST_F(RecentColours, AFileThatIsNoDictionaryMeansTheDefaults) {
    const std::string roots[] = {"",
                                 "no property list {",
                                 property_list("<array><string>#FF0000</string></array>"),
                                 property_list("<string>Colors</string>"),
                                 property_list("<integer>6</integer>"),
                                 property_list("<real>0.5</real>"),
                                 property_list("<true/>"),
                                 property_list("<data>AA==</data>"),
                                 property_list("<date>2020-01-01T00:00:00Z</date>"),
                                 std::string("bplist00"),
                                 std::string("\0", 1)};
    for (const std::string& root : roots) {
        phone.write(recent_file, root);
        picker = made_picker();
        EXPECT_EQ(raised_by([&] { picker->view(); }), "") << root;
        EXPECT_EQ(in_memory(), six_clear) << root;
        EXPECT_EQ(phone.read(recent_file), root);
    }
}

TEST_F(RecentColours, AFileThatCannotBeReadMeansTheDefaults) {
    phone.make_folder(recent_file);
    show();
    EXPECT_EQ(in_memory(), six_clear);
}

TEST_F(RecentColours, AFileThatIsNoDictionaryAnyMoreMeansTheDefaults) {
    for (const std::string& root : {std::string("no property list {"), property_list("<array/>")}) {
        write_colours(Hexes(6, "#FF0000"));
        picker = made_picker();
        show();
        phone.write(recent_file, root);
        picker->send<"setInitialColor:">(color(0, 0, 1));
        strip()->layoutIfNeeded();
        EXPECT_EQ(in_memory(), six_clear) << root;
        EXPECT_EQ(shown(), six_clear) << root;
    }
}

TEST_F(RecentColours, WithoutAListATapMakesTransparentBlackCurrent) {
    write_root("<dict/>");
    show();
    update(color(1, 0, 0));
    tap(cell(3));
    EXPECT_EQ(hex_text(), "#00000000");
}

TEST_F(RecentColours, WithoutAListTheSwatchesHaveNoColour) {
    write_root("<dict><key>colors</key><array/></dict>");
    show();
    EXPECT_EQ(part<"recentColors">(), nullptr);
    EXPECT_EQ(strip()->numberOfItemsInSection(0), 6);
    EXPECT_EQ(cell(5)->backgroundColor(), nullptr);
    EXPECT_EQ(cell(5)->layer()->cornerRadius(), 15);
}

TEST_F(RecentColours, AListThatIsTooShortFailsAtTheFirstMissingOne) {
    write_colours({"#FF0000", "#00FF00", "#0000FF"});
    picker->view();
    EXPECT_EQ(hex(made_cell(2)->backgroundColor()), "#0000FF");
    for (NSInteger item : {3, 5}) EXPECT_EQ(raised_by([&] { made_cell(item); }), "NSRangeException");
    EXPECT_EQ(raised_by([&] { picker->send<"collectionView:didSelectItemAtIndexPath:">(strip(), path(4)); }),
              "NSRangeException");
}

TEST_F(RecentColours, AListThatIsTooShortFailsWhenThePickerIsPresented) {
    for (const Hexes& list : {Hexes{}, Hexes(5, "#FF0000")}) {
        write_colours(list);
        picker = made_picker();
        EXPECT_EQ(sim_present(picker), SIM_RAISED);
        EXPECT_NE(std::string(sim_last_error()).find("NSRangeException"), std::string::npos)
            << sim_last_error();
    }
}

TEST_F(RecentColours, OfALongerListTheFirstSixAreShown) {
    const Hexes eight{"#000001", "#000002", "#000003", "#000004", "#000005", "#000006", "#000007", "#000008"};
    write_colours(eight);
    show();
    EXPECT_EQ(in_memory(), eight);
    EXPECT_EQ(shown(), Hexes(eight.begin(), eight.begin() + 6));
}

TEST_F(RecentColours, TheListIsTakenAsItIsWhateverItIs) {
    for (const char* list :
         {"<string>#FF0000</string>", "<integer>6</integer>", "<real>0.5</real>", "<dict/>",
          "<data>AA==</data>", "<date>2020-01-01T00:00:00Z</date>", "<true/>"}) {
        write_root(std::string("<dict><key>Colors</key>") + list + "</dict>");
        picker = made_picker();
        EXPECT_EQ(raised_by([&] { picker->view(); }), "") << list;
        EXPECT_NE(part<"recentColors">(), nullptr) << list;
        EXPECT_EQ(raised_by([&] { made_cell(0); }), "NSInvalidArgumentException") << list;
    }
}

TEST_F(RecentColours, EntriesAreNotChecked) {
    write_root(
        "<dict><key>Colors</key><array><string>no colour</string><string/><integer>1</integer>"
        "</array></dict>");
    picker->view();
    EXPECT_EQ(hex(made_cell(0)->backgroundColor()), "#00000000");
    EXPECT_EQ(hex(made_cell(1)->backgroundColor()), "#00000000");
    EXPECT_EQ(raised_by([&] { made_cell(2); }), "NSInvalidArgumentException");
    for (const char* entry : {"<real>0.5</real>", "<dict/>", "<array/>", "<data>AA==</data>",
                              "<date>2020-01-01T00:00:00Z</date>", "<true/>"}) {
        write_root(std::string("<dict><key>Colors</key><array>") + entry + "</array></dict>");
        picker = made_picker();
        EXPECT_EQ(raised_by([&] { picker->view(); }), "") << entry;
        EXPECT_EQ(raised_by([&] { made_cell(0); }), "NSInvalidArgumentException") << entry;
    }
}

TEST_F(RecentColours, AnEntryThatIsNoColourIsTransparentBlackWhenItIsTapped) {
    write_colours({"no colour", "", "#12", "#GG0000", "#1234567890", "\xef\xbc\xa6"});
    show();
    EXPECT_EQ(shown(), six_clear);
    for (NSInteger item = 0; item < 6; ++item) {
        update(color(1, 0, 0));
        tap(cell(item));
        EXPECT_EQ(hex_text(), "#00000000") << item;
    }
}

TEST_F(RecentColours, AFileThatIsGoneLeavesWhatWasLoaded) {
    const Hexes six(6, "#FF0000");
    write_colours(six);
    picker->view();
    std::filesystem::remove(phone.host(recent_file));
    picker->send<"grabRecentColorData">();
    EXPECT_EQ(in_memory(), six);
}

TEST_F(RecentColours, AnInitialColourLoadsThemAgain) {
    show();
    write_colours(Hexes(6, "#00FF00"));
    EXPECT_EQ(shown(), six_clear);
    picker->send<"setInitialColor:">(color(1, 0, 0));
    strip()->layoutIfNeeded();
    EXPECT_EQ(shown(), Hexes(6, "#00FF00"));
}

// ---- The strip

TEST_F(RecentColours, AreRoundSwatchesInOneRow) {
    show();
    for (NSInteger item = 0; item < 6; ++item) {
        EXPECT_EQ(cell(item)->frame(), (CGRect{{5.5 + 32.5 * static_cast<double>(item), 5}, {30, 30}}))
            << item;
        EXPECT_EQ(cell(item)->layer()->cornerRadius(), 15);
        EXPECT_EQ(utf8(cell(item)->reuseIdentifier()), "RecentColorCell");
        EXPECT_STREQ(object_getClassName(cell(item)), "UICollectionViewCell");
    }
}

TEST_F(RecentColours, AreSixWhateverTheListsLength) {
    write_colours(Hexes(9, "#FF0000"));
    picker->view();
    for (NSInteger section : {0, 1, 7})
        EXPECT_EQ((picker->send<"collectionView:numberOfItemsInSection:", NSInteger>(strip(), section)), 6);
}

TEST_F(RecentColours, TheInsetsPutTheRowInTheMiddleOfTheStripCutToWholePoints) {
    show();
    UICollectionViewLayout* layout = strip()->collectionViewLayout();
    EXPECT_EQ(
        (picker->send<"collectionView:layout:sizeForItemAtIndexPath:", CGSize>(strip(), layout, path(3))),
        (CGSize{30, 30}));
    const struct {
        double height, inset;
    } heights[] = {{40, 5}, {43, 6}, {43.9, 6}, {30, 0}, {29, 0}, {27, -1}, {0, -15}};
    for (const auto& each : heights) {
        panel_part<"topView">()->setFrame({{0, 0}, {280, each.height}});
        EXPECT_EQ((picker->send<"collectionView:layout:insetForSectionAtIndex:", UIEdgeInsets>(
                      strip(), layout, NSInteger{0})),
                  (UIEdgeInsets{each.inset, 5.5, each.inset, 5.5}))
            << each.height;
    }
}

TEST_F(RecentColours, ATapMakesASwatchTheCurrentColourAndLeavesTheFile) {
    write_colours({"#FF0000", "#00FF00", "#0000FF80", "#FFFF00", "#00FFFF", "#FF00FF"});
    const std::string before = phone.read(recent_file);
    show();
    tap(cell(2));
    EXPECT_EQ(hex_text(), "#0000FF80");
    EXPECT_NEAR(current().alpha, 128 / 255.0, 1e-6);
    tap(cell(5));
    EXPECT_EQ(hex_text(), "#FF00FF");
    tap(cell(0));
    EXPECT_EQ(hex_text(), "#FF0000");
    EXPECT_EQ(phone.read(recent_file), before);
    EXPECT_EQ(in_memory()[2], "#0000FF80") << "the order stays";
}

TEST_F(RecentColours, ASwatchesColourGoesByMessage) {
    show();
    observe<"updateToColor:", void, id>("HCColorPickerController");
    tap(cell(1));
    EXPECT_EQ(heard, (Selectors{"updateToColor:"}));
}

TEST_F(RecentColours, ATapBetweenTheSwatchesDoesNothing) {
    write_colours(Hexes(6, "#FF0000"));
    show();
    const CGPoint gap = strip()->convertPointToView({36.75, 20}, strip()->window());
    tap(gap.x, gap.y);
    EXPECT_EQ(hex_text(), "#000000");
}

}  // namespace
}  // namespace test

// The colours that were chosen last: the file, the strip, and what a confirmation records.
#include "settings/color_picker.h"
#include "support/themes.h"

namespace test {
namespace {

using Hexes = std::vector<std::string>;
const Hexes six_clear(6, "#00000000");

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

TEST_F(RecentColours, OfALongerListTheFirstSixAreShown) {
    const Hexes eight{"#000001", "#000002", "#000003", "#000004", "#000005", "#000006", "#000007", "#000008"};
    write_colours(eight);
    show();
    EXPECT_EQ(in_memory(), eight);
    EXPECT_EQ(shown(), Hexes(eight.begin(), eight.begin() + 6));
}

TEST_F(RecentColours, TheListIsTakenAsItIsWhateverItIs) {
    for (const char* list :
         {"<string>#FF0000</string>", "<integer>6</integer>", "<dict/>", "<data>AA==</data>", "<true/>"}) {
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

TEST_F(RecentColours, ATapBetweenTheSwatchesDoesNothing) {
    write_colours(Hexes(6, "#FF0000"));
    show();
    const CGPoint gap = strip()->convertPointToView({36.75, 20}, strip()->window());
    tap(gap.x, gap.y);
    EXPECT_EQ(hex_text(), "#000000");
}

// ---- Recording

class Recording : public RecentColours {
  protected:
    void SetUp() override {
        RecentColours::SetUp();
        delegate = objc::strong<NSObject>(static_cast<NSObject*>(noting_delegate()));
        set_delegate(delegate);
    }
    void TearDown() override { delegate = nullptr; }
    objc::strong<NSObject> delegate;
};

TEST_F(Recording, TheFirstColourTakesTheOldestOnesPlaceInTheFile) {
    show();
    update(color(1, 0, 0));
    tap(panel_part<"selectButton">());
    const Hexes expected{"#00000000", "#00000000", "#00000000", "#00000000", "#00000000", "#FF0000"};
    EXPECT_EQ(in_file(), expected);
    EXPECT_EQ(in_memory(), expected);
    EXPECT_EQ(told.size(), 1u);
    picker = made_picker();
    picker->view();
    EXPECT_EQ(in_memory(), expected) << "the next picker has it";
}

TEST_F(Recording, AColourTwiceInARowIsRecordedOnce) {
    picker->view();
    confirm("#FF0000");
    confirm("#FF0000");
    EXPECT_EQ(in_file(), (Hexes{"#00000000", "#00000000", "#00000000", "#00000000", "#00000000", "#FF0000"}));
    EXPECT_EQ(told.size(), 2u);
}

TEST_F(Recording, AnOlderColourIsNotRemoved) {
    picker->view();
    confirm("#AAAAAA");
    confirm("#BBBBBB");
    confirm("#AAAAAA");
    EXPECT_EQ(in_file(), (Hexes{"#00000000", "#00000000", "#00000000", "#AAAAAA", "#BBBBBB", "#AAAAAA"}));
}

TEST_F(Recording, APickerThatIsNotReloadedRecordsEveryConfirmation) {
    picker->view();
    for (const char* hex : {"#000001", "#000002", "#000003", "#000004", "#000005", "#000006", "#000007"})
        confirm(hex);
    EXPECT_EQ(in_file(), (Hexes{"#000002", "#000003", "#000004", "#000005", "#000006", "#000007"}));
    EXPECT_EQ(told.size(), 7u);
}

TEST_F(Recording, TheTextIsRecordedAsItWasTyped) {
    picker->view();
    confirm("#12");
    confirm("00ff00");
    EXPECT_EQ(in_file(), (Hexes{"#00000000", "#00000000", "#00000000", "#00000000", "#12", "00ff00"}));
}

TEST_F(Recording, TheNewestIsComparedInItsCanonicalForm) {
    picker->view();
    confirm("FF0000");  // recorded, and canonically "#FF0000"
    confirm("#FF0000");
    EXPECT_EQ(in_file().back(), "FF0000") << "they are the same";
    confirm("FF0000");
    EXPECT_EQ(in_file()[4], "FF0000") << "but this text is not the canonical one";
    EXPECT_EQ(in_file()[5], "FF0000");
    confirm("#12");
    confirm("#12");
    EXPECT_EQ(in_file()[4], "#12") << "what is no colour is transparent black";
    confirm("#00000000");
    EXPECT_EQ(in_file()[5], "#12");
}

TEST_F(Recording, TheDefaultColourIsNotRecordedAgainButWritten) {
    picker->view();
    confirm("#00000000");
    EXPECT_EQ(in_file(), six_clear);
}

TEST_F(Recording, AListFromTheFileRaisesBeforeAnythingIsWrittenOrTold) {
    write_colours(six_clear);
    const std::string before = phone.read(recent_file);
    show();
    for (const char* hex : {"#FF0000", "#00000000"}) {  // a new one; the newest, which is only put back
        set_text(hex);
        const auto [x, y] = middle_of(panel_part<"selectButton">());
        EXPECT_EQ(sim_tap(x, y), SIM_RAISED) << hex;
        EXPECT_NE(std::string(sim_last_error()).find("NSInvalidArgumentException"), std::string::npos)
            << sim_last_error();
        EXPECT_EQ(phone.read(recent_file), before);
        EXPECT_EQ(in_memory(), six_clear);
        EXPECT_EQ(told, std::vector<Told>{});
        EXPECT_EQ(presented(), picker) << "and it stays on the screen";
    }
}

TEST_F(Recording, AfterTheFirstFileAReloadedPickerRaises) {
    picker->view();
    confirm("#FF0000");
    picker->send<"setInitialColor:">(color(0, 1, 0));
    EXPECT_EQ(raised_by([&] { confirm("#00FF00"); }), "NSInvalidArgumentException");
    EXPECT_EQ(told.size(), 1u);
    EXPECT_EQ(in_file().back(), "#FF0000");
}

TEST_F(Recording, AnEmptyListFromTheFileRaises) {
    write_colours({});
    picker->view();
    EXPECT_EQ(raised_by([&] { confirm("#FF0000"); }), "NSInvalidArgumentException");
}

TEST_F(Recording, WithoutAListTheDictionaryRaises) {
    write_root("<dict/>");
    picker->view();
    EXPECT_EQ(raised_by([&] { confirm("#FF0000"); }), "NSInvalidArgumentException");
    EXPECT_EQ(told, std::vector<Told>{});
}

TEST_F(Recording, AFailedWriteIsNotNoticed) {
    phone.make_folder(recent_file);
    picker->view();
    EXPECT_EQ(raised_by([&] { confirm("#FF0000"); }), "");
    EXPECT_EQ(in_memory().back(), "#FF0000");
    EXPECT_EQ(told.size(), 1u);
}

TEST_F(Recording, TheFileIsWrittenBeforeTheDelegateIsTold) {
    static const Phone* the_phone = nullptr;
    static bool was_written = false;
    the_phone = &phone;
    id asking = reinterpret_cast<id>(noting_class(
        "AskingDelegate",
        {{"colorPickerReturnedWithColor:andHexString:",
          reinterpret_cast<IMP>(+[](id, SEL, id, id) { was_written = the_phone->exists(recent_file); }),
          "v@:@@"}}));
    id delegate_that_looks = objc_autorelease(objc::send<"new", id>(asking));
    set_delegate(delegate_that_looks);
    picker->view();
    confirm("#FF0000");
    EXPECT_TRUE(was_written);
}

class RecordingOnIos10 : public Recording {
  protected:
    void SetUp() override {
        start({.system_version = "10.3.3"});
        set_delegate(delegate = objc::strong<NSObject>(static_cast<NSObject*>(noting_delegate())));
    }
};

TEST_F(RecordingOnIos10, TheOlderWriteIsUsed) {
    picker->view();
    observe<"writeToFile:atomically:", int, id, int>(
        object_getClass(part<"recentColorDictionary", NSObject>()));
    confirm("#FF0000");
    EXPECT_EQ(heard, (Selectors{"writeToFile:atomically:"}));
    EXPECT_EQ(in_file().back(), "#FF0000");
}

TEST_F(Recording, TheWriteToAUrlIsUsedOnIos12) {
    picker->view();
    observe<"writeToURL:error:", int, id, id*>(object_getClass(part<"recentColorDictionary", NSObject>()));
    confirm("#FF0000");
    EXPECT_EQ(heard, (Selectors{"writeToURL:error:"}));
}

}  // namespace
}  // namespace test

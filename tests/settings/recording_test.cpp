// What a confirmation records of the chosen colour, and in which file.
#include "settings/recent_colours_test.h"

namespace test {
namespace {

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
    EXPECT_EQ(notices.size(), 1u);
    picker = made_picker();
    picker->view();
    EXPECT_EQ(in_memory(), expected) << "the next picker has it";
}

TEST_F(Recording, AColourTwiceInARowIsRecordedOnce) {
    picker->view();
    confirm("#FF0000");
    confirm("#FF0000");
    EXPECT_EQ(in_file(), (Hexes{"#00000000", "#00000000", "#00000000", "#00000000", "#00000000", "#FF0000"}));
    EXPECT_EQ(notices.size(), 2u);
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
    EXPECT_EQ(notices.size(), 7u);
}

TEST_F(Recording, OnlyAConfirmationWritesTheFile) {
    show();
    tap(field());
    ASSERT_EQ(sim_delete_backward(), SIM_OK) << sim_last_error();
    ASSERT_EQ(sim_type_text("1\n"), SIM_OK) << sim_last_error();
    EXPECT_EQ(hex_text(), "#000001");
    tap(part<"duplicateButton">());
    tap(part<"pasteButton">());
    tap(cell(0));
    picker->send<"setInitialColor:">(color(0, 1, 0));
    tap(panel_part<"closeButton">());
    EXPECT_FALSE(phone.exists(recent_file));
    EXPECT_EQ(in_memory(), six_clear);
}

TEST_F(Recording, AReloadWithoutAFileKeepsAListThatRecords) {
    phone.make_folder(recent_file);  // so that no file is written
    picker->view();
    confirm("#FF0000");
    picker->send<"setInitialColor:">(color(0, 1, 0));
    EXPECT_EQ(in_memory().back(), "#FF0000");
    EXPECT_EQ(raised_by([&] { confirm("#0000FF"); }), "");
    EXPECT_EQ(in_memory()[4], "#FF0000");
    EXPECT_EQ(in_memory()[5], "#0000FF");
}

TEST_F(Recording, AListOfAnotherLengthKeepsIt) {
    picker->view();
    for (size_t length : {1u, 3u, 8u}) {
        auto* list = NSMutableArray::arrayWithCapacity(length);
        for (size_t i = 0; i < length; ++i) list->addObject(text("#111111"));
        picker->send<"setRecentColors:">(list);
        confirm("#222222");
        Hexes expected(length, "#111111");
        expected.back() = "#222222";
        EXPECT_EQ(in_file(), expected);
    }
}

TEST_F(Recording, APickerThatIsShownAgainGoesOnRecording) {
    for (double red : {0.0, 1.0, 0.0}) {
        show();
        update(color(red, 1, 0));
        tap(panel_part<"selectButton">());
        EXPECT_EQ(presented(), nullptr);
    }
    EXPECT_EQ(in_file(), (Hexes{"#00000000", "#00000000", "#00000000", "#00FF00", "#FFFF00", "#00FF00"}));
    EXPECT_EQ(notices.size(), 3u);
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
        EXPECT_EQ(notices, std::vector<Notice>{});
        EXPECT_EQ(presented(), picker) << "and it stays on the screen";
    }
}

TEST_F(Recording, AfterTheFirstFileAReloadedPickerRaises) {
    picker->view();
    confirm("#FF0000");
    picker->send<"setInitialColor:">(color(0, 1, 0));
    EXPECT_EQ(raised_by([&] { confirm("#00FF00"); }), "NSInvalidArgumentException");
    EXPECT_EQ(notices.size(), 1u);
    EXPECT_EQ(in_file().back(), "#FF0000");
}

TEST_F(Recording, WithoutAListenerAListFromTheFileIsLeftAlone) {
    write_colours(six_clear);
    const std::string before = phone.read(recent_file);
    id silent = made("NSObject");
    for (id listener : {id{}, silent}) {
        picker = made_picker();
        set_delegate(listener);
        show();
        tap(panel_part<"selectButton">());
        EXPECT_EQ(presented(), nullptr);
        EXPECT_EQ(phone.read(recent_file), before);
    }
}

TEST_F(Recording, AListOfAnotherTypeRaisesBeforeAnythingIsWrittenOrTold) {
    for (const char* list :
         {"<string>#FF0000</string>", "<integer>6</integer>", "<real>0.5</real>", "<dict/>",
          "<data>AA==</data>", "<date>2020-01-01T00:00:00Z</date>", "<true/>"}) {
        write_root(std::string("<dict><key>Colors</key>") + list + "</dict>");
        const std::string before = phone.read(recent_file);
        picker = made_picker();
        set_delegate(delegate);
        picker->view();
        EXPECT_EQ(raised_by([&] { confirm("#00FF00"); }), "NSInvalidArgumentException") << list;
        EXPECT_EQ(phone.read(recent_file), before) << list;
        EXPECT_EQ(notices, std::vector<Notice>{}) << list;
    }
}

TEST_F(Recording, AnEmptyListFromTheFileRaises) {
    write_colours({});
    const std::string before = phone.read(recent_file);
    picker->view();
    EXPECT_EQ(raised_by([&] { confirm("#FF0000"); }), "NSInvalidArgumentException");
    EXPECT_EQ(phone.read(recent_file), before);
    EXPECT_EQ(notices, std::vector<Notice>{});
}

TEST_F(Recording, WithoutAListTheDictionaryRaises) {
    write_root("<dict/>");
    const std::string before = phone.read(recent_file);
    picker->view();
    EXPECT_EQ(raised_by([&] { confirm("#FF0000"); }), "NSInvalidArgumentException");
    EXPECT_EQ(phone.read(recent_file), before);
    EXPECT_EQ(notices, std::vector<Notice>{});
}

TEST_F(Recording, AFailedWriteIsNotNoticed) {
    phone.make_folder(recent_file);
    picker->view();
    EXPECT_EQ(raised_by([&] { confirm("#FF0000"); }), "");
    EXPECT_EQ(in_memory().back(), "#FF0000");
    EXPECT_EQ(notices.size(), 1u);
}

TEST_F(Recording, TheFileIsWrittenBeforeTheDelegateIsTold) {
    static const Phone* the_phone = nullptr;
    static bool was_written = false;
    the_phone = &phone;
    id asking = reinterpret_cast<id>(
        class_with("AskingDelegate", "NSObject",
                   {own_method(
                       "colorPickerReturnedWithColor:andHexString:",
                       [](id, SEL, id, id) { was_written = the_phone->exists(recent_file); }, "v@:@@")}));
    id delegate_that_looks = objc_autorelease(objc::send<"new", id>(asking));
    set_delegate(delegate_that_looks);
    picker->view();
    confirm("#FF0000");
    EXPECT_TRUE(was_written);
}

class RecordingOnOtherSystems : public Recording {
  protected:
    void SetUp() override {}
    void start_on(const char* system_version) {
        start({.system_version = system_version});
        set_delegate(delegate = objc::strong<NSObject>(static_cast<NSObject*>(noting_delegate())));
        picker->view();
    }
};

TEST_F(RecordingOnOtherSystems, TheOlderWriteIsUsedOnIos10) {
    start_on("10.3.3");
    static int atomically = -1;
    static IMP previous = nullptr;
    MSHookMessageEx(object_getClass(part<"recentColorDictionary", NSObject>()),
                    sel_registerName("writeToFile:atomically:"),
                    reinterpret_cast<IMP>(+[](id self, SEL selector, id path, int atomic) -> int {
                        atomically = atomic & 0xff;
                        return call<int>(previous, self, selector, path, atomic);
                    }),
                    &previous);
    confirm("#FF0000");
    EXPECT_EQ(atomically, 1);
    EXPECT_EQ(in_file().back(), "#FF0000");
}

TEST_F(RecordingOnOtherSystems, TheWriteToAUrlIsUsedFromIos11On) {
    start_on("11.0");
    observe<"writeToURL:error:", int, id, id*>(object_getClass(part<"recentColorDictionary", NSObject>()));
    confirm("#FF0000");
    EXPECT_EQ(heard, (Selectors{"writeToURL:error:"}));
    EXPECT_EQ(in_file().back(), "#FF0000");
}

TEST_F(Recording, TheWriteToAUrlIsUsedOnIos12AndAskedForNoError) {
    picker->view();
    static std::string file;
    static bool asks_for_error = true;
    static IMP previous = nullptr;
    MSHookMessageEx(object_getClass(part<"recentColorDictionary", NSObject>()),
                    sel_registerName("writeToURL:error:"),
                    reinterpret_cast<IMP>(+[](id self, SEL selector, id url, id* error) -> int {
                        file = utf8(objc::send<"path", id>(url));
                        asks_for_error = error != nullptr;
                        return call<int>(previous, self, selector, url, error);
                    }),
                    &previous);
    confirm("#FF0000");
    EXPECT_EQ(file, recent_file);
    EXPECT_FALSE(asks_for_error);
    EXPECT_EQ(in_file().back(), "#FF0000");
}

}  // namespace
}  // namespace test

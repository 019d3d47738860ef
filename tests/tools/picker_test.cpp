// huecraft picker.

#include "png.h"
#include "script_run.h"

namespace test {
namespace {

class Picker : public ScriptCommand {
  protected:
    Picker() : ScriptCommand("picker") {}

    static constexpr const char* recent_place =
        "var/mobile/Library/Preferences/com.quillmoth.hcrecentcolors.plist";

    /// Events as lines: "3 notified #FF0000 #FF0000".
    static std::vector<std::string> events(const Json& said) {
        std::vector<std::string> lines;
        for (const Json& event : said.at("events")) {
            std::string line = event.at("line").dump() + " " + event.at("event").get<std::string>();
            for (const char* part : {"color", "text", "name"})
                if (event.contains(part)) line += " " + event.at(part).get<std::string>();
            lines.push_back(line);
        }
        return lines;
    }
    using Lines = std::vector<std::string>;

    static std::string recent_file(const std::vector<std::string>& colours) {
        std::string list;
        for (const std::string& each : colours) list += "<string>" + each + "</string>";
        return theme_file("<key>Colors</key><array>" + list + "</array>");
    }
    const std::vector<std::string> six{"#FF3B30", "#FF9500", "#FFCC00", "#4CD964", "#007AFF80", "#000000"};
};

// ---- What a script can do

TEST_F(Picker, WithoutAScriptItIsOpenedAndShown) {
    const Outcome outcome = run({"picker", "-o", "p"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out, "recent colours: no file\npasteboard: empty\npicture: p/picker.png\n");
    const Png png(path("p/picker.png"));
    EXPECT_EQ(png.width, 750);
    EXPECT_EQ(png.height, 1334);
    EXPECT_EQ(png.at(375, 340), 0xecececu) << "the panel";
    EXPECT_EQ(png.at(375, 440), 0x000000u) << "the colour";
    EXPECT_EQ(png.at(375, 1250), 0xffffffu) << "the page";
}

TEST_F(Picker, ADraggedKnobIsAtItsValueAndTheColourIsTold) {
    const Json said =
        played("drag red 1\ndrag green 0.5\ndrag blue 0.25\ndrag alpha 0.75\ndrag red 0\ntap \"SELECT\"\n");
    EXPECT_EQ(events(said), (Lines{"6 notified #007F3FBF #007F3FBF", "6 closed"}));
}

TEST_F(Picker, KeysGoToTheFieldThatWasTapped) {
    const Json said = played("tap field\ndelete 7\ntype \"ff88\"\ntype \"00\"\nreturn\ntap \"SELECT\"\n");
    EXPECT_EQ(events(said), (Lines{"6 notified #FF8800 #FF8800", "6 closed"}));
}

TEST_F(Picker, ATextThatIsNotReturnedDisagreesWithTheColour) {
    EXPECT_EQ(events(played("tap \"Tap to Edit\"\ntap field\ndelete\ntap \"SELECT\"")),
              (Lines{"4 notified #000000 #00000", "4 closed"}));
}

TEST_F(Picker, ASelectionIsWhatIsDeleted) {
    EXPECT_EQ(
        events(played(
            "tap field\nselect all\ndelete\nselect 1 1\ndelete\nselect 0 0\ntype \"1\"\ntap \"SELECT\"")),
        (Lines{"8 notified #000000 #000001", "8 closed"}))
        << "several characters at once stay, one goes, and what is typed goes to the end";
}

TEST_F(Picker, ASelectionRightAfterATapIsTheSameAsALaterOne) {
    for (const char* pause : {"", "wait 2\n"}) {
        const Json said = played(std::string("tap field\n") + pause + "select 1 1\ndelete\ntap \"SELECT\"",
                                 {"--color", "123456"});
        EXPECT_EQ(said.at("events").at(0).at("text"), "#23456") << pause;
    }
}

TEST_F(Picker, RefusedInputIsAShake) {
    const Outcome outcome =
        play("tap field\ntype \"z\"\nwait 0.3\ntype \"1\"\ntype \"zz\"\nwait 0.3\nwait 0.3\n");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out,
              "s:2: at 0 s the panel shook: the input was refused\n"
              "s:5: at 0.3 s the panel shook: the input was refused\n"
              "recent colours: no file\npasteboard: empty\n");
}

TEST_F(Picker, CopiesAndPastes) {
    const Json said = played("pasteboard \"00ff00\"\ntap paste\ntap copy\ntap \"SELECT\"");
    EXPECT_EQ(events(said), (Lines{"4 notified #00FF00 #00FF00", "4 closed"}));
    EXPECT_EQ(said.at("pasteboard"), "#00FF00");
    EXPECT_EQ(events(played("tap paste")), (Lines{"1 shook"})) << "an empty one";
}

TEST_F(Picker, TheCloseButtonTellsNothing) {
    EXPECT_EQ(events(played("drag red 1\ntap \"X\"")), (Lines{"2 closed"}));
}

TEST_F(Picker, AColourToBeginWithIsTheInitialOne) {
    EXPECT_EQ(events(played("tap \"SELECT\"", {"--color", "3478F680"})),
              (Lines{"1 notified #3478F680 #3478F680", "1 closed"}));
}

TEST_F(Picker, RecentColoursAreTappedByTheirPlace) {
    write("r.plist", recent_file(six));
    const Json said = played("tap 5\ntap copy\ntap 1", {"--recent", "r.plist"});
    EXPECT_EQ(said.at("pasteboard"), "#007AFF80");
    EXPECT_EQ(said.at("recentColors"), Json(six));
}

TEST_F(Picker, TimePassesOnlyWhenItIsToldTo) {
    const Json said = played("wait 1.5\ntap field\nwait 0.25\ntype \"z\"");
    EXPECT_EQ(said.at("events").at(0).at("time"), 1.75);
}

TEST_F(Picker, CommentsBlankLinesQuotesAndLineEndsAreUnderstood) {
    const Json said = played(
        "# a picker\r\n\r\n   tap  field # there\r\ndelete\t7\r\ntype \"#12\"\r\npasteboard \"a \\\"\\\\# "
        "b\"\r\ntap \"SELECT\"");
    EXPECT_EQ(events(said), (Lines{"7 notified #000000 #12", "7 closed"}));
    EXPECT_EQ(said.at("pasteboard"), "a \"\\# b");
}

TEST_F(Picker, AScriptComesFromStandardInputToo) {
    const Outcome outcome = run({"picker", "--script", "-"}, "tap field\ntype \"z\"\n");
    EXPECT_TRUE(outcome.out.starts_with("standard input:2: at 0 s the panel shook")) << outcome.out;
}

// ---- Exceptions of the library's

TEST_F(Picker, TheSecondConfirmationRaisesAndTheScriptEndsThere) {
    const std::string script =
        "drag red 1\n"
        "tap \"SELECT\"\n"
        "open\n"
        "drag blue 1\n"
        "picture before\n"
        "tap \"SELECT\"\n"
        "picture after\n";
    const Outcome outcome = play(script, {"-o", "p"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "");
    EXPECT_NE(outcome.out.find("s:2: at 0 s the delegate received #FF0000, the text \"#FF0000\"\n"
                               "s:2: at 0 s the picker closed\n"
                               "s:6: at 0 s NSInvalidArgumentException was raised: "),
              outcome.out.npos)
        << outcome.out;
    EXPECT_NE(outcome.out.find("recent colours: \"#00000000\", \"#00000000\", \"#00000000\", \"#00000000\", "
                               "\"#00000000\", \"#FF0000\"\n"),
              outcome.out.npos)
        << outcome.out;
    EXPECT_EQ(outcome.out.find("0x"), outcome.out.npos) << "an address: " << outcome.out;
    EXPECT_TRUE(exists("p/before.png"));
    EXPECT_FALSE(exists("p/after.png"));
    const Json said = played(script, {"-o", "p"});
    EXPECT_EQ(events(said).back(), "6 raised NSInvalidArgumentException");
    EXPECT_NE(said.at("events").back().at("reason"), "");
}

TEST_F(Picker, AListThatIsTooShortRaisesWhileItOpens) {
    write("r.plist", recent_file({"#FF0000"}));
    const Outcome outcome = play("wait 1", {"--recent", "r.plist"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(outcome.out.starts_with("opening the picker: at 0 s NSRangeException was raised: "))
        << outcome.out;
}

TEST_F(Picker, ARecordingIsKeptWhenTheLibraryRaises) {
    write("r.plist", recent_file(six));
    const Outcome outcome =
        play("record way 10\nwait 1\ntap \"SELECT\"", {"--recent", "r.plist", "-o", "p", "--scale", "0.5"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_DOUBLE_EQ(read_animation(path("p/way.png")).seconds(), 1.1);
}

// ---- Pictures

TEST_F(Picker, AScreensWidthAndTheScaleDecideThePicturesSize) {
    const struct {
        const char* width;
        int pixels[2], points[2];
    } screens[] = {{"320", {640, 1136}, {320, 568}},
                   {"375", {750, 1334}, {375, 667}},
                   {"414", {1242, 2208}, {414, 736}}};
    for (const auto& screen : screens) {
        ASSERT_EQ(run({"picker", "--width", screen.width, "-o", "p"}).status, 0);
        EXPECT_EQ(Png(path("p/picker.png")).width, screen.pixels[0]);
        EXPECT_EQ(Png(path("p/picker.png")).height, screen.pixels[1]);
        ASSERT_EQ(run({"picker", "--width", screen.width, "-o", "p", "--scale", "1"}).status, 0);
        EXPECT_EQ(Png(path("p/picker.png")).width, screen.points[0]);
    }
}

TEST_F(Picker, PalettesPaintThePanel) {
    const std::pair<const char*, unsigned> palettes[] = {
        {"light", 0xececec}, {"dark", 0x22313f}, {"eclipse", 0x212121}};
    for (const auto& [palette, panel] : palettes) {
        ASSERT_EQ(run({"picker", "--palette", palette, "-o", "p", "--scale", "1"}).status, 0);
        EXPECT_EQ(Png(path("p/picker.png")).at(187, 175), panel) << palette;
    }
}

TEST_F(Picker, TheIconsAreThoseOfTheDeviceOrTheSettingsPanesOwn) {
    const auto light_pixels = [this](std::vector<std::string> options) {
        options.insert(options.begin(), {"picker", "-o", "p"});
        EXPECT_EQ(run(options).status, 0);
        const Png png(path("p/picker.png"));
        int count = 0;  // within the field, whose ground is dark
        for (int y = 565; y < 630; ++y)
            for (int x = 510; x < 615; ++x) count += (png.at(x, y) & 0xff) > 0x90;
        return count;
    };
    EXPECT_GT(light_pixels({}), 300);
    write("device/Library/PreferenceBundles/Huecraft.bundle/copy.png", "no picture");
    write("device/Library/PreferenceBundles/Huecraft.bundle/paste.png", "no picture");
    EXPECT_EQ(light_pixels({"--device", "device"}), 0);
}

TEST_F(Picker, ARecordingHasThePicturesOfItsMoments) {
    const Outcome outcome = play(
        "wait 0.5\nrecord way 8\npicture a\nwait 0.125\npicture b\nwait 0.125\npicture c\nwait 1\nstop\n"
        "picture d\n",
        {"-o", "p", "--scale", "1"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out.substr(outcome.out.find("picture:")),
              "picture: p/a.png\npicture: p/b.png\npicture: p/c.png\npicture: p/way.png\npicture: p/d.png\n");
    const Animation way = read_animation(path("p/way.png"));
    EXPECT_EQ(way.seconds(), 11 / 8.0);
    EXPECT_TRUE(way.at(0).pixels == pixels_of(path("p/a.png")));
    EXPECT_TRUE(way.at(0.125).pixels == pixels_of(path("p/b.png")));
    EXPECT_TRUE(way.at(0.25).pixels == pixels_of(path("p/c.png")));
    EXPECT_TRUE(way.frames.back().pixels == pixels_of(path("p/d.png")));
    EXPECT_FALSE(way.at(0.125).pixels == way.at(0.25).pixels);
}

TEST_F(Picker, ThePictureInTheDocsIsWhatTheDemosTouchesMake) {
    const std::string demo = SOURCE_FOLDER "/tools/demo/picker/";
    ASSERT_EQ(run({"picker", "--script", demo + "touches.txt", "--recent", demo + "recent.plist", "--palette",
                   "dark", "--width", "320", "--scale", "1", "-o", "p"})
                  .status,
              0);
    expect_documented("p/picker.png", "picker.png");
}

TEST_F(Picker, PicturesNeedAFolder) {
    EXPECT_EQ(complaint("wait 1\n\npicture a"), "s:3: pictures need a folder to go to: say -o DIR\n");
    EXPECT_EQ(complaint("record a"), "s:1: pictures need a folder to go to: say -o DIR\n");
    EXPECT_EQ(complaint("wait 1", {"-o", "s"}), "s: it is a file and not a folder\n");
}

// ---- The user's files

TEST_F(Picker, FilesStayAsTheyAreWithoutSave) {
    write("device/" + std::string(recent_place), "no property list {");
    write("t.plist", sound_theme());
    const std::string theme = read("t.plist");
    ASSERT_EQ(play("drag red 1\ntap \"SELECT\"", {"--device", "device", "--theme", "t.plist"}).status, 0);
    EXPECT_EQ(read("device/" + std::string(recent_place)), "no property list {");
    EXPECT_EQ(read("t.plist"), theme);
    EXPECT_EQ(names(), (Lines{"device", "s", "t.plist"}));
}

TEST_F(Picker, SaveWritesTheRecentColoursWhereTheyCameFrom) {
    const std::string in_device = "device/" + std::string(recent_place);
    std::filesystem::create_directory(path("device"));
    EXPECT_EQ(play("drag red 1\ntap \"SELECT\"", {"--device", "device", "--save"}).status, 0);
    EXPECT_NE(read(in_device).find("#FF0000"), std::string::npos);
    EXPECT_EQ(played("wait 1", {"--recent", in_device}).at("recentColors").back(), "#FF0000");
    // No file, which is what the first confirmation on a device finds.
    EXPECT_EQ(
        play("drag blue 1\ntap \"SELECT\"", {"--device", "device", "--recent", "r.plist", "--save"}).status,
        2);
    write("r.plist", "");
    EXPECT_EQ(
        play("drag blue 1\ntap \"SELECT\"", {"--device", "device", "--recent", "r.plist", "--save"}).status,
        0);
    EXPECT_NE(read("r.plist").find("#0000FF"), std::string::npos);
    EXPECT_EQ(read(in_device).find("#0000FF"), std::string::npos);
}

TEST_F(Picker, WhatWasWrittenBeforeAnExceptionIsSaved) {
    std::filesystem::create_directory(path("device"));
    EXPECT_EQ(
        play("drag red 1\ntap \"SELECT\"\nopen\ntap \"SELECT\"", {"--device", "device", "--save"}).status, 1);
    EXPECT_NE(read("device/" + std::string(recent_place)).find("#FF0000"), std::string::npos);
}

TEST_F(Picker, AScriptThatGoesWrongLeavesNothingBehind) {
    std::filesystem::create_directory(path("device"));
    EXPECT_EQ(complaint("drag red 1\npicture a\nrecord b\ntap \"SELECT\"\ntap \"SELECT\"",
                        {"--device", "device", "--save", "-o", "p"}),
              "s:5: the picker is closed; \"open\" shows another one\n");
    EXPECT_EQ(names(), (Lines{"device", "s"}));
    EXPECT_TRUE(std::filesystem::is_empty(path("device")));
}

TEST_F(Picker, EclipseOfTheDeviceIsHeeded) {
    write("device/Library/MobileSubstrate/DynamicLibraries/Eclipse.dylib", "");
    write("device/var/mobile/Library/Preferences/com.hvelden.eclipse.plist",
          "{ enabled = 1; \"EnabledApps-com.apple.Preferences\" = 1; }");
    ASSERT_EQ(run({"picker", "--device", "device", "-o", "p", "--scale", "1"}).status, 0);
    EXPECT_EQ(Png(path("p/picker.png")).at(187, 175), 0x212121u);
}

TEST_F(Picker, RecentColoursThatAreNoneAreDescribed) {
    const std::pair<std::string, const char*> files[] = {
        {"no property list {", "no property list"},
        {theme_file(""), "no list, but nothing"},
        {theme_file("<key>Colors</key><array/>"), "none"},
        {"(a, b)", "no dictionary, but [\"a\", \"b\"]"},
    };
    for (const auto& [contents, words] : files) {
        write("r.plist", contents);
        const Outcome outcome = play("", {"--recent", "r.plist"});
        EXPECT_NE(outcome.out.find("recent colours: " + std::string(words) + "\n"), outcome.out.npos)
            << outcome.out << outcome.err;
    }
}

TEST_F(Picker, AThemesColourIsTheInitialOneAndIsChanged) {
    write("t.plist", sound_theme());
    const std::vector<std::string> options{"--theme", "t.plist", "--key", "highlight", "--save"};
    const Json said = played("drag green 1\ntap \"SELECT\"", options);
    EXPECT_EQ(events(said), (Lines{"2 notified #75FF75 #75FF75", "2 closed"}));
    EXPECT_EQ(said.at("theme"), (Json{{"_HighlightColor", "#75FF75"}}));
    const Json shown = Json::parse(run({"show", "t.plist", "--json"}).out);
    EXPECT_NE(shown.dump().find("#75FF75"), std::string::npos);
    EXPECT_NE(shown.dump().find("Sound"), std::string::npos);
    const Outcome plain = play("tap \"SELECT\"", {"--theme", "t.plist"});
    EXPECT_NE(plain.out.find("theme: _TextColor is \"#FFFFFF\"\n"), plain.out.npos) << plain.out;
}

TEST_F(Picker, ASavedThemeKeepsItsForm) {
    write("t.plist", sound_theme());
    ASSERT_EQ(run({"convert", "t.plist", "-o", "b.plist", "--to", "binary"}).status, 0);
    EXPECT_EQ(play("drag green 1\ntap \"SELECT\"", {"--theme", "b.plist", "--save"}).status, 0);
    EXPECT_TRUE(read("b.plist").starts_with("bplist00"));
    EXPECT_NE(run({"show", "b.plist"}).out.find("getConfigName: \"Sound\""), std::string::npos);
}

TEST_F(Picker, ARecordingInWhichNoTimePassesIsTold) {
    EXPECT_NE(
        play("record still\nstop", {"-o", "p"})
            .out.find("s:2: at 0 s the recording \"still\" has one frame: no time passed; wait lets it\n"),
        std::string::npos);
    EXPECT_EQ(play("record moving\nwait 0.1\nstop", {"-o", "p"}).out.find("one frame"), std::string::npos);
}

TEST_F(Picker, AThemeThatNothingWasChosenForStaysAsItIs) {
    write("t.plist", sound_theme());
    const std::string before = read("t.plist");
    EXPECT_EQ(play("drag red 0.5\ntap \"X\"", {"--theme", "t.plist", "--save"}).status, 0);
    EXPECT_EQ(read("t.plist"), before);
}

// ---- What cannot be played

TEST_F(Picker, AScriptErrorIsNamedByFileAndLine) {
    const std::pair<const char*, const char*> scripts[] = {
        {"jump",
         "there is no instruction \"jump\"; there are delete, drag, open, pasteboard, picture, record, "
         "return, "
         "select, stop, tap, type, wait"},
        {"\"tap\" field",
         "there is no instruction \"tap\"; there are delete, drag, open, pasteboard, picture, record, "
         "return, select, stop, tap, type, wait"},
        {"drag purple 0.5", "there is no slider \"purple\"; there are red, green, blue, alpha"},
        {"drag red 1.5", "the slider's value is \"1.5\"; expected a number from 0 to 1"},
        {"drag red half", "the slider's value is \"half\"; expected a number from 0 to 1"},
        {"drag red nan", "the slider's value is \"nan\"; expected a number from 0 to 1"},
        {"drag red", "found 1 word after drag; expected: drag red|green|blue|alpha VALUE"},
        {"tap select",
         "tap takes a text in quotation marks, field, copy, paste or a recent colour, 1 to 6; found "
         "\"select\""},
        {"tap 7", "the recent colour is \"7\"; expected a number from 1 to 6"},
        {"tap 0", "the recent colour is \"0\"; expected a number from 1 to 6"},
        {"type #FF8800",
         "found 0 words after type; expected: type \"TEXT\" (what follows a # is a comment, but for a "
         "text in \"\")"},
        {"type FF8800", "\"FF8800\" stands where a text in quotation marks is expected"},
        {"type \"FF8800", "the text \"FF8800\" has no closing quotation mark"},
        {"type \"a\"b", "expected a blank after \"a\""},
        {"type \"a\\n\"", "a \\ in a text comes before \" or another \\"},
        {"delete 0", "the number of times is \"0\"; expected a number from 1 to 1000"},
        {"select 1", "select takes all, or a place and a length"},
        {"select -1 2", "the place is \"-1\"; expected a number from 0 to 1000000"},
        {"wait -1", "the time is \"-1\"; expected a number from 0 to 600"},
        {"wait 601", "the time is \"601\"; expected a number from 0 to 600"},
        {"return 1", "found 1 word after return; expected: return"},
        {"stop", "there is no recording to stop"},
        {"picture ../up", "\"../up\" is not a name of a picture; expected letters, digits, - and _"},
        {"picture .hidden", "\".hidden\" is not a name of a picture; expected letters, digits, - and _"},
        {"record a 61", "the number of frames is \"61\"; expected a number from 1 to 60"},
        // While it is played:
        {"tap \"SELEC\"",
         "there is no \"SELEC\" on the picker; there are \"#000000\", \"Tap to Edit\", \"X\", \"SELECT\""},
        {"type \"1\"", "there is no first responder; tap a text field first"},
        {"delete", "there is no first responder; tap a text field first"},
        {"return", "there is no first responder; tap a text field first"},
        {"open", "the picker is open already"},
    };
    for (const auto& [script, error] : scripts)
        EXPECT_EQ(complaint("# first\n" + std::string(script) + "\nwait 1", {"-o", "p"}),
                  "s:2: " + std::string(error) + "\n");
    EXPECT_EQ(names(), Lines{"s"});
}

TEST_F(Picker, ARangeBeyondTheTextIsNamed) {
    EXPECT_EQ(complaint("tap field\nselect 5 3"),
              "s:2: the range 5, 3 is not in the text, which has 7 UTF-16 units\n");
}

TEST_F(Picker, PicturesOfOneNameAndRecordingsInOneAnotherAreRefused) {
    EXPECT_EQ(complaint("picture a\nrecord a", {"-o", "p"}),
              "s:2: there is a picture \"a\" already, in line 1\n");
    EXPECT_EQ(complaint("record a\nrecord b", {"-o", "p"}),
              "s:2: the recording of line 1 is still going on\n");
}

TEST_F(Picker, BytesThatAreNoTextAreRefused) {
    EXPECT_EQ(complaint(std::string("tap \"a\0\"", 8)), "s:1: the line holds a zero byte\n");
    EXPECT_EQ(complaint("tap field\ntype \"\xff\""), "s:2: the text is not UTF-8\n");
    EXPECT_EQ(complaint("pasteboard \"\xff\""), "s:1: the text is not UTF-8\n");
}

TEST_F(Picker, FilesThatAreNotThereAreNamed) {
    EXPECT_EQ(run({"picker", "--script", "none"}).err, "huecraft: none: there is no such file\n");
    EXPECT_EQ(complaint("", {"--device", "none"}), "none: there is no such folder\n");
    EXPECT_EQ(complaint("", {"--device", "s"}), "s: it is a file and not a folder\n");
    EXPECT_EQ(complaint("", {"--recent", "none"}), "none: there is no such file\n");
    EXPECT_EQ(complaint("", {"--theme", "none"}), "none: there is no such file\n");
    write("t.plist", theme_file("<key>_TextColor</key><string>#FFFFFF</string>"));
    EXPECT_EQ(complaint("", {"--theme", "t.plist"}),
              "t.plist: the theme has no name (_ConfigName), and the library saves no theme without one\n");
}

TEST_F(Picker, OptionsThatMeanNothingAreMisuse) {
    EXPECT_EQ(complaint("", {"--save"}),
              "--save: there is nothing to save to; it goes with --device, --recent or --theme\n");
    EXPECT_EQ(complaint("", {"--width", "390"}),
              "--width: \"390\" is not one of 320|375|414 (see huecraft picker --help)\n");
    EXPECT_NE(complaint("", {"--key", "text"}).find("--theme"), std::string::npos);
    EXPECT_NE(complaint("", {"--color", "bluish"}).find("is not a colour"), std::string::npos);
}

}  // namespace
}  // namespace test

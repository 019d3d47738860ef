// huecraft convert.
#include <nlohmann/json.hpp>

#include "command_run.h"

namespace test {
namespace {

class Convert : public Command {
  protected:
    /// Everything that a property list can hold, some of it where no theme has it.
    static std::string rich_theme() {
        return theme_file(
            "<key>_TextColor</key><string>#FFFFFF</string>"
            "<key>_BackgroundType</key><integer>2</integer>"
            "<key>_VisibleKeycaps</key><true/>"
            "<key>_ImageAlpha</key><real>0.10000000149011612</real>"
            "<key>_Image</key><data>AAECAw==</data>"
            "<key>made</key><date>2024-02-29T12:34:56Z</date>"
            "<key>nested</key><dict><key>a "
            "b</key><array><string>&lt;é\"\\😀&gt;</string><dict/></array></dict>"
            "<key>large</key><integer>18446744073709551615</integer>");
    }

    nlohmann::json shown(const std::string& file) const {
        return nlohmann::json::parse(run({"show", "--json", file}).out).at("files").at(0);
    }
};

TEST_F(Convert, XmlAndBinaryBecomeEachOtherWithoutALoss) {
    write("a.plist", rich_theme());
    const Outcome to_binary = run({"convert", "a.plist", "-o", "b.plist", "--to", "binary"});
    EXPECT_EQ(to_binary.status, 0) << to_binary.out << to_binary.err;
    EXPECT_EQ(to_binary.out, "a.plist (xml) -> b.plist (binary)\n");
    EXPECT_TRUE(read("b.plist").starts_with("bplist00"));
    EXPECT_EQ(run({"convert", "b.plist", "-o", "c.plist", "--to", "xml"}).status, 0);
    EXPECT_EQ(run({"convert", "a.plist", "-o", "d.plist", "--to", "xml"}).status, 0);
    EXPECT_EQ(read("c.plist"), read("d.plist"));
    EXPECT_EQ(shown("a.plist").at("keys"), shown("c.plist").at("keys"));
    EXPECT_EQ(shown("a.plist").at("unknown"), shown("c.plist").at("unknown"));
}

TEST_F(Convert, OpenStepKeepsEveryKeyAndTellsWhatBecameText) {
    write("a.plist", rich_theme());
    const Outcome run = this->run({"convert", "a.plist", "-o", "old.plist", "--to", "openstep"});
    EXPECT_EQ(run.status, 1) << run.err;
    for (const char* part :
         {"  lost _BackgroundType: a whole number, 2, became the text \"2\"\n",
          "  lost _VisibleKeycaps: yes or no, yes, became the text \"YES\"\n",
          "  lost _ImageAlpha: a number, 0.1", "  lost made: a date, 2024-02-29 12:34:56 +0000",
          "  lost large: a whole number, 18446744073709551615"})
        EXPECT_NE(run.out.find(part), run.out.npos) << part << run.out;
    EXPECT_EQ(lines(run.out), 6u);
    const auto before = shown("a.plist"), after = shown("old.plist");
    EXPECT_EQ(after.at("unknown").at("nested"), before.at("unknown").at("nested"));
    EXPECT_EQ(after.at("unknown").size(), before.at("unknown").size());
    // The library reads the same theme from it.
    for (size_t i = 0; i < before.at("keys").size(); ++i)
        EXPECT_EQ(after.at("keys").at(i).at("answer"), before.at("keys").at(i).at("answer")) << i;
}

TEST_F(Convert, OpenStepBecomesTheOthersWithoutALoss) {
    write("old.plist", "{ a = (1, \"two words\", <00ff>); /* note */ b = { c = \"\\U00e9\"; }; }");
    EXPECT_EQ(run({"convert", "old.plist", "-o", "b.plist", "--to", "binary"}).status, 0);
    EXPECT_EQ(run({"convert", "b.plist", "-o", "again.plist", "--to", "openstep"}).status, 0);
    EXPECT_EQ(
        read("again.plist"),
        "{\n    \"a\" = (\n        \"1\",\n        \"two words\",\n        <00ff>\n    );\n    \"b\" = {\n"
        "        \"c\" = \"\\U00e9\";\n    };\n}\n");
}

TEST_F(Convert, ADateThatXmlHasNoRoomForIsTold) {
    // A binary list of one date, half a second after the first moment of 2001.
    using namespace std::string_literals;
    write("date.plist", "bplist00\xd1\x01\x02"s + "Qd" + "\x33\x3f\xe0\0\0\0\0\0\0"s + "\x08\x0b\x0d"s +
                            "\0\0\0\0\0\0\x01\x01\0\0\0\0\0\0\0\x03\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x16"s);
    const Outcome run = this->run({"convert", "date.plist", "-o", "x.plist", "--to", "xml"});
    EXPECT_EQ(run.status, 1) << run.out << run.err;
    EXPECT_NE(run.out.find("  lost d: a date, 2001-01-01 00:00:0"), run.out.npos) << run.out;
}

TEST_F(Convert, StandardInputAndOutputAreDashes) {
    const Outcome run =
        this->run({"convert", "-", "-o", "-", "--to", "openstep"}, "<plist><string>x</string></plist>");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "\"x\"\n");
}

TEST_F(Convert, AnUnknownFormIsRefused) {
    write("a.plist", rich_theme());
    const Outcome run = this->run({"convert", "a.plist", "-o", "b.plist", "--to", "yaml"});
    EXPECT_EQ(run.status, 2);
    EXPECT_NE(run.err.find("--to: \"yaml\" is not one of xml|binary|openstep"), run.err.npos) << run.err;
    EXPECT_FALSE(exists("b.plist"));
}

TEST_F(Convert, WhatIsNoPropertyListLeavesTheOutputAlone) {
    write("bad.plist", "{ a = ");
    write("kept.plist", "kept");
    const Outcome run = this->run({"convert", "bad.plist", "-o", "kept.plist", "--to", "xml"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(lines(run.err), 1u);
    EXPECT_EQ(read("kept.plist"), "kept");
}

TEST_F(Convert, AFileIsReplacedByItsOwnConversionWhenForced) {
    write("a.plist", rich_theme());
    EXPECT_EQ(run({"convert", "a.plist", "-o", "a.plist", "--to", "binary", "--force"}).status, 0);
    EXPECT_TRUE(read("a.plist").starts_with("bplist00"));
}

}  // namespace
}  // namespace test

// Reading XML property lists: what the device takes and what it refuses.
#include "reading.h"

namespace test {
namespace {

TEST_F(PropertyListReading, XmlHasEveryKind) {
    EXPECT_EQ(string(plist("<string>a</string>")), "a");
    EXPECT_EQ(number(plist("<integer>-5</integer>")), -5);
    EXPECT_EQ(number(plist("<real>0.1</real>")), 0.1);
    EXPECT_EQ(read(plist("<true/>")), NSNumber::numberWithBool(true));
    EXPECT_EQ(read(plist("<false></false>")), NSNumber::numberWithBool(false));
    EXPECT_EQ(described(plist("<data>\n\tAQID\n\tBA==\n</data>")), "<01020304>");
    EXPECT_EQ(described(plist("<array><string>a</string><array/></array>")), "(a, ())");
    EXPECT_EQ(described(plist("<dict><key>k</key><dict/></dict>")), "{k = {}; }");
    id date = read(plist("<date>2001-01-02T03:04:05Z</date>"));
    EXPECT_EQ((objc::send<"timeIntervalSinceReferenceDate", double>(date)), 86400 + 3 * 3600 + 4 * 60 + 5);
}

TEST_F(PropertyListReading, XmlEmptyElements) {
    EXPECT_EQ(string(plist("<string/>")), "");
    EXPECT_EQ(string(plist("<string></string>")), "");
    EXPECT_EQ(described(plist("<data></data>")), "<>");
    for (const char* name : {"integer", "real", "date", "data", "plist"})
        expect_refused(plist("<" + std::string(name) + "/>"));
}

TEST_F(PropertyListReading, XmlDataMayBeBrokenAnywhere) {
    EXPECT_EQ(described(plist("<data>AQIDBAUG</data>")), "<01020304 0506>");
    EXPECT_EQ(described(plist("<data>A Q-I\nDB*AUG\n</data>")), "<01020304 0506>");
    EXPECT_EQ(described(plist("<data>A QIDBAUG</data>")), "<01020304 0506>");
    EXPECT_EQ(described(plist("<data>AQI\nDBAUG</data>")), "<01020304 0506>");
    EXPECT_EQ(described(plist("<data>AQIDBAUG////////</data>")), "<01020304 0506ffff ffffffff>");
    EXPECT_EQ(described(plist("<data>AQIDBAU</data>")), "<01020304 05>");
    EXPECT_EQ(described(plist("<data>AQIDBA</data>")), "<01020304>");
    EXPECT_EQ(described(plist("<data>AQIDB</data>")), "<010203>");
    EXPECT_EQ(described(plist("<data>AQID=BAUG</data>")), "<010203>") << "there it ends";
    EXPECT_EQ(described(plist("<data>AQ&#73;DBA<![CDATA[UG]]></data>")), "<01020304 0506>");
}

TEST_F(PropertyListReading, XmlDataCanGrowWhereLeavesCanBeChanged) {
    constexpr NSUInteger containers_and_leaves = 2;
    for (const char* content : {"", "AQIDBAUG"}) {
        id data = read(plist("<data>" + std::string(content) + "</data>"), containers_and_leaves);
        const auto before = static_cast<NSData*>(data)->length();
        for (int i = 0; i < 100; ++i)
            objc::send<"appendBytes:length:">(data, static_cast<const void*>("12345678"), NSUInteger{8});
        ASSERT_EQ(static_cast<NSData*>(data)->length(), before + 800);
        const auto* bytes = static_cast<const char*>(static_cast<NSData*>(data)->bytes());
        EXPECT_EQ(std::string(bytes + before + 792, 8), "12345678");
        if (before) EXPECT_EQ(bytes[5], 6);
    }
}

TEST_F(PropertyListReading, XmlCharactersAreCheckedWhereverTheyStand) {
    for (size_t before = 0; before <= 70; ++before) {
        const std::string ascii(before, 'a');
        EXPECT_EQ(string(plist("<string>" + ascii + "\u00e9" + ascii + "</string>")),
                  ascii + "\u00e9" + ascii);
        expect_refused(plist("<!--" + ascii + "\xff" + ascii + "--><string>a</string>"));
    }
}

TEST_F(PropertyListReading, XmlCharactersBeyondTheFirstPlane) {
    EXPECT_EQ(string(plist("<string>a\U0001f600z</string>")), "a\U0001f600z");
    EXPECT_EQ(string(plist("<string>a&#x1F600;&#128512;z</string>")), "a\U0001f600\U0001f600z");
    EXPECT_EQ(described(plist("<dict><key>\U0001f600</key><string>b</string></dict>")),
              "{\"\\UD83D\\UDE00\" = b; }");
}

TEST_F(PropertyListReading, XmlEntities) {
    EXPECT_EQ(string(plist("<string>&lt;&amp;&gt;&quot;&apos;&#65;&#x42;</string>")), "<&>\"'AB");
    for (const char* wrong :
         {"&nbsp;", "&", "&;", "&#;", "&#x;", "&#xD800;", "&#x110000;", "&#99999999999;", "&#-1;", "& amp;"})
        expect_refused(plist("<string>" + std::string(wrong) + "</string>"));
}

TEST_F(PropertyListReading, XmlSectionsOfCharacterData) {
    EXPECT_EQ(string(plist("<string>a<![CDATA[<b>&amp;]]>c<![CDATA[]]></string>")), "a<b>&amp;c");
    expect_refused(plist("<string><![CDATA[x</string>"));
}

TEST_F(PropertyListReading, XmlCommentsDeclarationsAndAttributes) {
    EXPECT_EQ(
        described("<!-- a --><?b c?><plist><!-- < --><dict><!-- d --><key>k</key><!-- e --><string>v</string>"
                  "</dict><!-- f --></plist>"),
        "{k = v; }");
    EXPECT_EQ(string("<!DOCTYPE plist [ <!ENTITY x \"]>\"> ]><plist><string>a</string></plist>"), "a");
    EXPECT_EQ(string(plist("<string lang='>' x=\"y\" >a</string >")), "a");
    expect_refused(plist("<string>a<!-- b -->c</string>"));
}

TEST_F(PropertyListReading, XmlEntitiesOfItsOwnAreNotUnfolded) {
    std::string bomb = "<!DOCTYPE plist [<!ENTITY a \"aaaaaaaaaa\">";
    for (char c = 'b'; c <= 'z'; ++c)
        bomb +=
            std::string("<!ENTITY ") + c + " \"" + repeated(std::string("&") + char(c - 1) + ";", 10) + "\">";
    expect_refused(bomb + "]><plist><string>&z;</string></plist>");
}

TEST_F(PropertyListReading, XmlNeedsNoPlistElement) {
    EXPECT_EQ(described("<dict><key>a</key><string>b</string></dict>"), "{a = b; }");
    EXPECT_EQ(string(plist("<string>a</string>") + "anything"), "a");
}

TEST_F(PropertyListReading, XmlOfTwoRootsIsRefused) {
    expect_refused(plist("<string>a</string><string>b</string>"));
    expect_refused(plist(""));
    expect_refused(plist("text"));
}

TEST_F(PropertyListReading, XmlDictionariesAreKeysAndValues) {
    EXPECT_EQ(described(plist("<dict><key>a</key><string>1</string><key>a</key><string>2</string></dict>")),
              "{a = 2; }");
    expect_refused(plist("<dict><key>a</key></dict>"));
    expect_refused(plist("<dict><string>a</string></dict>"));
    expect_refused(plist("<dict><key>a</key><key>b</key><string>c</string></dict>"));
}

TEST_F(PropertyListReading, XmlMustMatch) {
    expect_refused(plist("<array><dict></array></dict>"));
    expect_refused(plist("<foo/>"));
    expect_refused(plist("<strings>a</strings>"));
    expect_refused(plist("</array>"));
    expect_refused(head + "<array>");
    expect_refused("<");
    expect_refused("<!DOCTYPE plist");
}

TEST_F(PropertyListReading, XmlTagsThatDoNotEndAreNamed) {
    for (const char* wrong : {"<string>a</array>", "<string>a</string", "<string>a"}) {
        expect_refused(plist(wrong));
        EXPECT_NE(reason().find("no end tag for <string>"), std::string::npos) << reason();
    }
}

TEST_F(PropertyListReading, XmlUnknownTagsAreNamedInWholeCharacters) {
    for (size_t before : {37, 38, 39, 40})
        expect_refused("<" + std::string(before, '1') + "\u2028" + std::string(20, '1') + ">");
}

TEST_F(PropertyListReading, XmlErrorsNameTheLine) {
    expect_refused(plist("<array>\n<foo/></array>"));
    EXPECT_NE(reason().find("line 5"), std::string::npos) << reason();
}

TEST_F(PropertyListReading, XmlIntegers) {
    EXPECT_EQ(number(plist("<integer>0x1F</integer>")), 31);
    EXPECT_EQ(number(plist("<integer> +7 </integer>")), 7);
    EXPECT_EQ(
        (objc::send<"longLongValue", long long>(read(plist("<integer>-9223372036854775808</integer>")))),
        INT64_MIN);
    EXPECT_EQ(described(plist("<integer>18446744073709551615</integer>")), "18446744073709551615");
    for (const char* wrong :
         {"", "12x", "x", "-", "0x", "1.5", "18446744073709551616", "-9223372036854775809", "--1"})
        expect_refused(plist("<integer>" + std::string(wrong) + "</integer>"));
}

TEST_F(PropertyListReading, XmlRealNumbers) {
    EXPECT_EQ(number(plist("<real>-1.5e3</real>")), -1500);
    EXPECT_EQ(number(plist("<real>+infinity</real>")), INFINITY);
    EXPECT_EQ(number(plist("<real>-inf</real>")), -INFINITY);
    EXPECT_EQ(number(plist("<real>1e999</real>")), INFINITY);
    EXPECT_TRUE(std::isnan(number(plist("<real>nan</real>"))));
    for (const char* wrong : {"", "x1", "1x", "1,5", "0x1p3", "--1", "-", "infinite"})
        expect_refused(plist("<real>" + std::string(wrong) + "</real>"));
}

TEST_F(PropertyListReading, XmlDates) {
    auto seconds = [&](const char* date) {
        id root = read(plist("<date>" + std::string(date) + "</date>"));
        return root ? objc::send<"timeIntervalSinceReferenceDate", double>(root) : NAN;
    };
    EXPECT_EQ(seconds("2000-12-31T23:59:59Z"), -1);
    EXPECT_EQ(seconds("2020-02-29T00:00:00Z") - seconds("2020-02-28T00:00:00Z"), 86400);
    for (const char* wrong :
         {"", "2019", "2019-01-02", "2019-01-02T03:04:05", "2019-13-02T03:04:05Z", "2019-02-30T03:04:05Z",
          "2019-01-02T03:04:05Zx", "a-01-02T03:04:05Z", "2019-01-02T25:04:05Z", "99999999-01-02T03:04:05Z"})
        expect_refused(plist("<date>" + std::string(wrong) + "</date>"));
}

TEST_F(PropertyListReading, XmlControlCharactersAreKept) {
    EXPECT_EQ(string(plist("<string>a\x01\x02\tz\r\n</string>")), "a\x01\x02\tz\r\n");
}

TEST_F(PropertyListReading, XmlInOtherEncodings) {
    EXPECT_EQ(string("\xef\xbb\xbf" + plist("<string>\u00e9</string>")), "\u00e9");
    EXPECT_EQ(string("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><plist><string>\xe9</string></plist>"),
              "\u00e9");
    auto in_utf16 = [](std::u16string_view units, bool big_endian) {
        std::string bytes = big_endian ? "\xfe\xff" : "\xff\xfe";
        for (char16_t unit : units) {
            const char high = static_cast<char>(unit >> 8), low = static_cast<char>(unit);
            bytes += big_endian ? high : low;
            bytes += big_endian ? low : high;
        }
        return bytes;
    };
    for (bool big_endian : {false, true}) {
        EXPECT_EQ(string(in_utf16(u"<plist><string>\u00e9\U0001f600</string></plist>", big_endian)),
                  "\u00e9\U0001f600");
        expect_refused(in_utf16(std::u16string{u'<', 0xd800, u'>'}, big_endian));
        expect_refused(in_utf16(u"<plist>", big_endian) + "x");
    }
    expect_refused("<?xml version=\"1.0\" encoding=\"EBCDIC\"?><plist><string>a</string></plist>");
}

}  // namespace
}  // namespace test

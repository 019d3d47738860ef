// Reading property lists: what the device takes, what it refuses, and that nothing in a file can do harm.
#include "support/phone.h"

namespace test {
namespace {

constexpr NSUInteger open_step = 1, xml = 100, binary = 200;

const std::string head =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n";

std::string plist(const std::string& content) { return head + content + "\n</plist>\n"; }

std::string repeated(std::string_view part, size_t count) {
    std::string whole;
    for (size_t i = 0; i < count; ++i) whole += part;
    return whole;
}

class PropertyListReading : public testing::Test {
  protected:
    void SetUp() override { phone.boot(); }

    id read(std::string_view bytes, NSUInteger options = 0) {
        error = nullptr;
        format = 0;
        return NSPropertyListSerialization::propertyListWithData(data(bytes), options, &format, &error);
    }
    std::string described(std::string_view bytes) {
        id root = read(bytes);
        return root ? utf8(static_cast<NSObject*>(root)->description()) : "(nil)";
    }
    std::string string(std::string_view bytes) { return utf8(as<NSString>(read(bytes))); }
    double number(std::string_view bytes) {
        id root = read(bytes);
        return root ? objc::send<"doubleValue", double>(root) : -12345;
    }
    void expect_refused(std::string_view bytes) {
        EXPECT_EQ(read(bytes), nullptr) << bytes.substr(0, 200);
        ASSERT_NE(error, nullptr) << bytes.substr(0, 200);
        EXPECT_EQ(utf8(error->send<"domain", id>()), "NSCocoaErrorDomain");
        EXPECT_EQ((error->send<"code", NSInteger>()), 3840);
        auto* why = error->send<"userInfo", NSDictionary*>()->objectForKey(text("NSDebugDescription"));
        EXPECT_NE(utf8(why), "(nil)");
    }
    std::string reason() {
        return utf8(error->send<"userInfo", NSDictionary*>()->objectForKey(text("NSDebugDescription")));
    }

    Phone phone;
    NSError* error = nullptr;
    NSUInteger format = 0;
};

// ---- All formats

TEST_F(PropertyListReading, NothingIsNoPropertyList) {
    expect_refused("");
    NSError* of_nil = nullptr;
    EXPECT_EQ(NSPropertyListSerialization::propertyListWithData(nullptr, 0, nullptr, &of_nil), nullptr);
    EXPECT_NE(of_nil, nullptr);
}

TEST_F(PropertyListReading, NeedsNeitherFormatNorError) {
    EXPECT_EQ(NSPropertyListSerialization::propertyListWithData(data("<"), 0, nullptr, nullptr), nullptr);
    EXPECT_NE(NSPropertyListSerialization::propertyListWithData(data("(a)"), 0, nullptr, nullptr), nullptr);
}

TEST_F(PropertyListReading, BytesOfNoTextAreRefusedAtOnce) {
    // The first two are another system's archives: taking them for sizes would ask for gigabytes.
    expect_refused(std::string_view("\0\xff\xff\xff\xff\xff", 6));
    expect_refused("\x01\xff\xff\xff\xff\xff");
    expect_refused("\x89PNG\r\n\x1a\n");
    expect_refused("a\xff");
    expect_refused("\xc0\xaf");
    expect_refused("\xed\xa0\x80");
}

TEST_F(PropertyListReading, TellsTheFormat) {
    ASSERT_NE(read(plist("<string>a</string>")), nullptr);
    EXPECT_EQ(format, xml);
    ASSERT_NE(read("(a)"), nullptr);
    EXPECT_EQ(format, open_step);
    auto* written =
        NSPropertyListSerialization::class_send<"dataWithPropertyList:format:options:error:", NSData*>(
            static_cast<id>(text("a")), binary, NSUInteger{0}, &error);
    ASSERT_NE(NSPropertyListSerialization::propertyListWithData(written, 0, &format, &error), nullptr);
    EXPECT_EQ(format, binary);
}

TEST_F(PropertyListReading, ContainersAreImmutableUnlessAskedFor) {
    const std::string list = plist("<array><dict><key>a</key><string>b</string></dict></array>");
    auto change = [](id array) {
        return raised_by([&] {
            static_cast<NSArray*>(array)->objectAtIndex(0);
            objc::send<"setObject:forKey:">(static_cast<NSArray*>(array)->objectAtIndex(0),
                                            static_cast<id>(text("c")), static_cast<id>(text("a")));
            objc::send<"addObject:">(array, static_cast<id>(text("d")));
        });
    };
    EXPECT_EQ(change(read(list)), "NSInvalidArgumentException");
    EXPECT_EQ(change(read(list, 1)), "");
    auto leaf = [](id array) {
        auto* dictionary = static_cast<NSDictionary*>(static_cast<NSArray*>(array)->objectAtIndex(0));
        return raised_by([&] {
            objc::send<"appendString:">(dictionary->objectForKey(text("a")), static_cast<id>(text("x")));
        });
    };
    EXPECT_EQ(leaf(read(list, 1)), "NSInvalidArgumentException");
    EXPECT_EQ(leaf(read(list, 2)), "");
}

TEST_F(PropertyListReading, NoTruncationCrashes) {
    auto* contents = NSMutableDictionary::alloc()->initWithCapacity(1).autoreleased();
    contents->setObject(array({text("one"), text("tw\u00f6"), NSNumber::numberWithBool(true), data("bytes"),
                               NSNumber::numberWithFloat(0.5f)}),
                        text("key"));
    contents->setObject(text(repeated("long ", 20)), text("another"));
    std::vector<std::string> lists{
        plist("<dict><key>a&amp;</key><array><data>AQID</data><!-- c --><date>2019-01-02T03:04:05Z"
              "</date><![CDATA[x]]></array><integer>-0x1f</integer></dict>"),
        "{ a = (b, \"c\\U00e9\", <0102>); /* d */ 'e' = f; // g\n }"};
    auto* written =
        NSPropertyListSerialization::class_send<"dataWithPropertyList:format:options:error:", NSData*>(
            static_cast<id>(contents), binary, NSUInteger{0}, &error);
    lists.emplace_back(static_cast<const char*>(written->bytes()), written->length());
    size_t refused = 0;
    for (const std::string& list : lists)
        for (size_t length = 0; length < list.size(); ++length) {
            objc::AutoreleasePool pool;
            refused += read(std::string_view(list).substr(0, length)) == nullptr;
        }
    EXPECT_GT(refused, 100u);
}

TEST_F(PropertyListReading, NoChangedByteCrashes) {
    auto* contents = NSMutableDictionary::alloc()->initWithCapacity(1).autoreleased();
    contents->setObject(array({text("one"), text("tw\u00f6"), NSNumber::numberWithBool(true), data("bytes")}),
                        text("key"));
    for (NSUInteger wanted : {xml, binary}) {
        auto* written =
            NSPropertyListSerialization::class_send<"dataWithPropertyList:format:options:error:", NSData*>(
                static_cast<id>(contents), wanted, NSUInteger{0}, &error);
        const std::string list(static_cast<const char*>(written->bytes()), written->length());
        for (size_t at = 0; at < list.size(); ++at)
            for (unsigned char value : {0x00, 0x01, 0x0f, 0x1f, 0x3c, 0x7f, 0x80, 0xa1, 0xd1, 0xff}) {
                objc::AutoreleasePool pool;
                std::string changed = list;
                changed[at] = static_cast<char>(value);
                read(changed);
            }
    }
}

TEST_F(PropertyListReading, NestingHasAnEnd) {
    for (size_t depth : {511, 512}) {
        EXPECT_EQ(read(plist(repeated("<array>", depth) + repeated("</array>", depth))) != nullptr,
                  depth < 512)
            << depth;
        EXPECT_NE(read(repeated("(", depth) + repeated(")", depth)), nullptr) << depth;
    }
    expect_refused(plist(repeated("<array>", 1'000'000) + repeated("</array>", 1'000'000)));
    expect_refused(plist(repeated("<dict><key>a</key>", 100'000)));
    expect_refused(repeated("<plist>", 100'000));
    expect_refused(repeated("(", 1'000'000));
    expect_refused(repeated("{a=", 1'000'000));
}

TEST_F(PropertyListReading, MuchGarbageIsReadInNoTime) {
    constexpr size_t size = 50'000'000;
    std::string noise(size, '\0');
    uint32_t state = 1;
    for (char& c : noise) c = static_cast<char>((state = state * 1664525 + 1013904223) >> 24);
    noise[0] = 'x';
    expect_refused(noise);
    expect_refused("bplist00" + noise);
    constexpr size_t less = size / 10;
    expect_refused(std::string(less, '<'));
    expect_refused(plist("<string>" + std::string(less, 'a')));
    expect_refused(plist("<string>" + std::string(less, '&')));
    expect_refused("\"" + std::string(less, 'a'));
    EXPECT_NE(read(std::string(less, ' ')), nullptr);
    EXPECT_NE(read(std::string(less, 'a')), nullptr);
}

// ---- XML

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
    EXPECT_EQ((objc::send<"unsignedLongLongValue", unsigned long long>(
                  read(plist("<integer>18446744073709551615</integer>")))),
              UINT64_MAX);
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

// ---- The old form

TEST_F(PropertyListReading, OldFormHasEveryKind) {
    EXPECT_EQ(described("{ a = b; \"c d\" = (1, 'two', <0102 03>); }"),
              "{a = b; \"c d\" = (1, two, <010203>); }");
    EXPECT_EQ(string("hello"), "hello");
    EXPECT_EQ(string("  /bin:x.y-z_$1 "), "/bin:x.y-z_$1");
    EXPECT_EQ(described("()"), "()");
    EXPECT_EQ(described("(a,)"), "(a)");
    EXPECT_EQ(described("<>"), "<>");
    EXPECT_EQ(described("{}"), "{}");
}

TEST_F(PropertyListReading, OldFormStringsFilesNeedNoBraces) {
    EXPECT_EQ(described("a = b; \"c\" = \"d\";"), "{a = b; c = d; }");
    EXPECT_EQ(described("a; b = c;"), "{a = a; b = c; }");
    EXPECT_EQ(described(" \n"), "{}");
    EXPECT_EQ(described("/* only a comment */"), "{}");
}

TEST_F(PropertyListReading, OldFormComments) {
    EXPECT_EQ(described("/* x */ { a = b; // y\n c = d; /* z */ }"), "{a = b; c = d; }");
    EXPECT_EQ(described("/* y */ (a /* ( */)"), "(a)");
}

TEST_F(PropertyListReading, OldFormEscapes) {
    EXPECT_EQ(string("\"a\\n\\t\\\"\\\\\\U00e9\\101\\q\""), "a\n\t\"\\\u00e9Aq");
    EXPECT_EQ(string("'it\\'s'"), "it's");
    EXPECT_EQ(string("\"\\UD83D\\UDE00\U0001f600\""), "\U0001f600\U0001f600");
    expect_refused("\"\\UD83D\"");
    expect_refused("\"\\UD83D\\U0041\"");
}

TEST_F(PropertyListReading, OldFormMistakesAreRefused) {
    for (const char* wrong :
         {"hello world", "{a=b}",    "{a=b;", "{a=;}", "{=b;}",   "{a b;}", "(a",    "(a b)", "(,)",
          ")",           "}",        "\"abc", "'abc",  "<012>",   "<01",    "<0g>",  "(a) x", "a = b",
          "a; =",        "{a=b;} x", "\"\\",  "[a]",   "a = (b;", "@a",     "<*I5>", "<*BY>"})
        expect_refused(wrong);
}

// ---- Binary

/// Puts a binary property list together from its objects' bytes; the first one is the root.
std::string binary_list(const std::vector<std::string>& objects, int reference_size = 1) {
    std::string bytes = "bplist00", table;
    for (const std::string& object : objects) {
        table += static_cast<char>(bytes.size() >> 8);
        table += static_cast<char>(bytes.size());
        bytes += object;
    }
    const size_t table_at = bytes.size();
    auto eight = [](uint64_t value) {
        std::string text;
        for (int shift = 56; shift >= 0; shift -= 8) text += static_cast<char>(value >> shift);
        return text;
    };
    return bytes + table + std::string(6, '\0') + '\2' + static_cast<char>(reference_size) +
           eight(objects.size()) + eight(0) + eight(table_at);
}

TEST_F(PropertyListReading, BinaryHasEveryKind) {
    EXPECT_EQ(string(binary_list({"\x51"
                                  "a"})),
              "a");
    EXPECT_EQ(string(binary_list({std::string("\x62\0\xe9\x4e\0", 5)})), "\u00e9\u4e00");
    EXPECT_EQ(number(binary_list({"\x10\xff"})), 255);
    EXPECT_EQ(number(binary_list({"\x13\xff\xff\xff\xff\xff\xff\xff\xff"})), -1);
    EXPECT_EQ((objc::send<"unsignedLongLongValue", unsigned long long>(
                  read(binary_list({"\x14" + std::string(8, '\0') + std::string(8, '\xff')})))),
              UINT64_MAX);
    EXPECT_EQ(number(binary_list({std::string("\x22\x3f\0\0\0", 5)})), 0.5);
    EXPECT_EQ(number(binary_list({std::string("\x23\x3f\xe0\0\0\0\0\0\0", 9)})), 0.5);
    EXPECT_EQ(read(binary_list({"\x09"})), NSNumber::numberWithBool(true));
    EXPECT_EQ(described(binary_list({"\x42\x01\x02"})), "<0102>");
    EXPECT_EQ(described(binary_list({"\xa2\x01\x01",
                                     "\x51"
                                     "a"})),
              "(a, a)");
    EXPECT_EQ(described(binary_list({"\xd1\x01\x02",
                                     "\x51"
                                     "k",
                                     "\x51"
                                     "v"})),
              "{k = v; }");
    id date = read(binary_list({std::string("\x33\x3f\xe0\0\0\0\0\0\0", 9)}));
    EXPECT_EQ((objc::send<"timeIntervalSinceReferenceDate", double>(date)), 0.5);
    EXPECT_EQ(string(binary_list({"\x5f\x10\x14" + std::string(20, 'x')})), std::string(20, 'x'));
}

TEST_F(PropertyListReading, BinaryObjectThatContainsItselfIsRefused) {
    expect_refused(binary_list({std::string("\xa1\0", 2)}));
    expect_refused(binary_list({"\xa1\x01", std::string("\xa1\0", 2)}));
    expect_refused(binary_list({std::string("\xd1\x01\0", 3),
                                "\x51"
                                "k"}));
}

TEST_F(PropertyListReading, BinaryObjectsMayStandInManyPlaces) {
    // Sixty arrays, each of which holds the next one twice: unfolded, more objects than there is memory.
    std::vector<std::string> objects;
    for (int i = 0; i < 60; ++i)
        objects.push_back({'\xa2', static_cast<char>(i + 1), static_cast<char>(i + 1)});
    objects.push_back(
        "\x51"
        "a");
    EXPECT_NE(read(binary_list(objects)), nullptr);
    // Where they can be changed each is an object of its own, and that has an end.
    EXPECT_EQ(read(binary_list(objects), 1), nullptr);
    EXPECT_NE(read(binary_list({"\xa2\x01\x01", "\xa1\x02",
                                "\x51"
                                "a"}),
                   1),
              nullptr);
}

TEST_F(PropertyListReading, BinaryNestingHasAnEnd) {
    for (int depth : {255, 600}) {
        std::vector<std::string> objects;
        for (int i = 1; i <= depth; ++i)
            objects.push_back({'\xa1', static_cast<char>(i >> 8), static_cast<char>(i)});
        objects.push_back(
            "\x51"
            "a");
        EXPECT_EQ(read(binary_list(objects, 2)) != nullptr, depth < 512) << depth;
    }
}

TEST_F(PropertyListReading, BinaryMistakesAreRefused) {
    expect_refused("bplist00");
    expect_refused("bplist01" + std::string(32, '\0'));
    expect_refused(binary_list({}));
    expect_refused(binary_list({"\xa1\x05"}));                                  // no such object
    expect_refused(binary_list({"\xaf\x13\x7f\xff\xff\xff\xff\xff\xff\xff"}));  // a length beyond the file
    expect_refused(binary_list({"\x5f\x51"}));                                  // a length that is no number
    expect_refused(binary_list({"\x61"}));                                      // cut short
    expect_refused(binary_list({"\x51\x80"}));                                  // ASCII that is none
    expect_refused(binary_list({"\xd1\x01\x01", "\x09"}));                      // a key that is no string
    expect_refused(binary_list({"\x80\x01"}));                                  // an archiver's reference
    expect_refused(binary_list({"\x70"}));
    expect_refused(binary_list({"\x20\x01"}));
    expect_refused(binary_list({"\x15" + std::string(32, '\1')}));
    std::string huge_count =
        binary_list({"\x51"
                     "a"});
    huge_count.replace(huge_count.size() - 24, 8, 8, '\xff');
    expect_refused(huge_count);
    std::string far_table =
        binary_list({"\x51"
                     "a"});
    far_table.replace(far_table.size() - 8, 8, 8, '\xff');
    expect_refused(far_table);
    for (int size : {0, 9, 255})
        expect_refused(binary_list({"\x51"
                                    "a"},
                                   size));
}

}  // namespace
}  // namespace test

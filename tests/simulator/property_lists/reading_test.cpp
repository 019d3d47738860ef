// Reading property lists of any format: what they have in common, and that nothing in a file can do harm.
#include "reading.h"

namespace test {
namespace {

constexpr NSUInteger open_step = 1, xml = 100, binary = 200;

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
    // Longer forms than needed, half of a character, beyond Unicode, cut short.
    for (const char* wrong :
         {"\xc0\xaf", "\xe0\x80\xaf", "\xed\xa0\x80", "\xf4\x90\x80\x80", "\xff", "\x80", "\xe4\xb8"})
        expect_refused("(\"" + std::string(wrong) + "\")");
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
    auto inner = [](id array) { return static_cast<NSArray*>(array)->objectAtIndex(0); };
    auto change_array = [](id array) {
        return raised_by([&] { objc::send<"addObject:">(array, static_cast<id>(text("d"))); });
    };
    auto change_dictionary = [&](id array) {
        return raised_by([&] {
            objc::send<"setObject:forKey:">(inner(array), static_cast<id>(text("c")),
                                            static_cast<id>(text("a")));
        });
    };
    EXPECT_EQ(change_array(read(list)), "NSInvalidArgumentException");
    EXPECT_EQ(change_array(read(list, 1)), "");
    EXPECT_EQ(change_dictionary(read(list)), "NSInvalidArgumentException");
    EXPECT_EQ(change_dictionary(read(list, 1)), "");
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

}  // namespace
}  // namespace test

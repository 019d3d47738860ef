// Writing property lists: the device's XML, and what it refuses.
#include "support/phone.h"

namespace test {
namespace {

const std::string head =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n";

class PropertyListWriting : public testing::Test {
  protected:
    void SetUp() override { phone.boot(); }

    std::string written(id list, NSUInteger format = 100) {
        error = nullptr;
        auto* bytes =
            NSPropertyListSerialization::class_send<"dataWithPropertyList:format:options:error:", NSData*>(
                list, format, NSUInteger{0}, &error);
        return bytes ? std::string(static_cast<const char*>(bytes->bytes()), bytes->length()) : "(nil)";
    }
    std::string xml(const std::string& content) { return head + content + "</plist>\n"; }
    static id number(double value) { return NSNumber::class_send<"numberWithDouble:", id>(value); }
    static NSDictionary* dictionary(std::vector<std::pair<id, id>> entries) {
        std::vector<id> keys, values;
        for (auto [key, value] : entries) keys.push_back(key), values.push_back(value);
        return NSDictionary::dictionaryWithObjects(values.data(), keys.data(), keys.size());
    }
    void expect_refused(id list) {
        for (NSUInteger format : {100, 200}) {
            EXPECT_EQ(written(list, format), "(nil)");
            ASSERT_NE(error, nullptr);
            EXPECT_EQ(utf8(error->send<"domain", id>()), "NSCocoaErrorDomain");
            EXPECT_EQ((error->send<"code", NSInteger>()), 3851);
        }
    }

    Phone phone;
    NSError* error = nullptr;
};

TEST_F(PropertyListWriting, XmlIsLaidOutAsOnTheDevice) {
    id list = dictionary({{text("b"), array({text("x"), dictionary({{text("k"), text("v")}})})},
                          {text("a"), NSNumber::numberWithBool(true)},
                          {text("B"), array({})},
                          {text("c"), dictionary({})}});
    EXPECT_EQ(written(list), xml("<dict>\n"
                                 "\t<key>B</key>\n\t<array/>\n"
                                 "\t<key>a</key>\n\t<true/>\n"
                                 "\t<key>b</key>\n\t<array>\n"
                                 "\t\t<string>x</string>\n"
                                 "\t\t<dict>\n\t\t\t<key>k</key>\n\t\t\t<string>v</string>\n\t\t</dict>\n"
                                 "\t</array>\n"
                                 "\t<key>c</key>\n\t<dict/>\n"
                                 "</dict>\n"));
}

TEST_F(PropertyListWriting, XmlNumbersKeepTheirKindAndPrecision) {
    const std::pair<id, const char*> cases[] = {
        {NSNumber::numberWithBool(false), "<false/>"},
        {NSNumber::class_send<"numberWithChar:", id>(static_cast<signed char>(1)), "<integer>1</integer>"},
        {NSNumber::class_send<"numberWithInt:", id>(-5), "<integer>-5</integer>"},
        {NSNumber::numberWithUnsignedInteger(~NSUInteger{0}), "<integer>18446744073709551615</integer>"},
        {number(0.1), "<real>0.10000000000000001</real>"},
        {NSNumber::numberWithFloat(0.1f), "<real>0.10000000149011612</real>"},
        {number(1), "<real>1</real>"},
        {number(0), "<real>0.0</real>"},
        {number(1e300), "<real>1.0000000000000001e+300</real>"},
        {number(INFINITY), "<real>+infinity</real>"},
        {number(-INFINITY), "<real>-infinity</real>"},
        {number(NAN), "<real>nan</real>"}};
    for (const auto& [value, element] : cases) EXPECT_EQ(written(value), xml(element + std::string("\n")));
}

TEST_F(PropertyListWriting, XmlEscapesWhatItMust) {
    EXPECT_EQ(written(text("a<b>&\"'\u00e9\U0001f600\x01z\t\n")),
              xml("<string>a&lt;b&gt;&amp;\"'\u00e9\U0001f600\x01z\t\n</string>\n"));
    EXPECT_EQ(written(text("")), xml("<string></string>\n"));
}

TEST_F(PropertyListWriting, XmlBreaksDataIntoLines) {
    EXPECT_EQ(written(test::data("")), xml("<data>\n</data>\n"));
    EXPECT_EQ(written(test::data(std::string(58, 'x'))),
              xml("<data>\n"
                  "eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4\n"
                  "eA==\n"
                  "</data>\n"));
    EXPECT_EQ(written(array({test::data(std::string(52, 'x'))})),
              xml("<array>\n"
                  "\t<data>\n"
                  "\teHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4\n"
                  "\teA==\n"
                  "\t</data>\n"
                  "</array>\n"));
}

TEST_F(PropertyListWriting, XmlDatesAreWholeSecondsOfGreenwich) {
    auto date = [](double seconds) {
        return objc::send<"dateWithTimeIntervalSinceReferenceDate:", id>(class_named("NSDate"), seconds);
    };
    EXPECT_EQ(written(date(0)), xml("<date>2001-01-01T00:00:00Z</date>\n"));
    EXPECT_EQ(written(date(-0.5)), xml("<date>2000-12-31T23:59:59Z</date>\n"));
    EXPECT_EQ(written(date(86400 * 59 + 3661.9)), xml("<date>2001-03-01T01:01:01Z</date>\n"));
}

TEST_F(PropertyListWriting, WhatIsWrittenIsReadAgain) {
    id list = dictionary(
        {{text("\u00e9\U0001f600&<>"),
          array({number(0.1), number(-1e-300), text("\x01 \t\r\n]]>"), test::data(""),
                 test::data(std::string(1000, '\xfe')), array({}), dictionary({})})},
         {text(""), NSNumber::numberWithBool(true)},
         {text("n"), NSNumber::class_send<"numberWithLongLong:", id>(static_cast<long long>(INT64_MIN))}});
    for (NSUInteger format : {100, 200}) {
        const std::string bytes = written(list, format);
        id read = NSPropertyListSerialization::propertyListWithData(test::data(bytes), 0, nullptr, &error);
        ASSERT_NE(read, nullptr) << format;
        EXPECT_TRUE(static_cast<NSObject*>(list)->isEqual(read)) << format;
        EXPECT_EQ(static_cast<NSDictionary*>(read)->objectForKey(text("")), NSNumber::numberWithBool(true))
            << format;
    }
}

std::string bytes_of(std::initializer_list<int> values) {
    std::string bytes;
    for (int value : values) bytes += static_cast<char>(value);
    return bytes;
}

TEST_F(PropertyListWriting, BinaryIsAsTheFormatSays) {
    EXPECT_EQ(written(text("a"), 200),
              "bplist00\x51"
              "a\x08" +
                  bytes_of({0, 0, 0, 0, 0, 0, 1, 1}) + bytes_of({0, 0, 0, 0, 0, 0, 0, 1}) +
                  std::string(8, '\0') + bytes_of({0, 0, 0, 0, 0, 0, 0, 10}));
}

TEST_F(PropertyListWriting, BinaryNumbersKeepTheirKindAndTakeTheLeastRoom) {
    auto integer = [](long long value) { return NSNumber::class_send<"numberWithLongLong:", id>(value); };
    const std::pair<id, std::string> cases[] = {
        {NSNumber::numberWithFloat(0.1f), "\x22\x3d\xcc\xcc\xcd"},
        {number(0.5), bytes_of({0x23, 0x3f, 0xe0, 0, 0, 0, 0, 0, 0})},
        {NSNumber::numberWithBool(true), "\x09"},
        {NSNumber::numberWithBool(false), "\x08"},
        {integer(0), bytes_of({0x10, 0})},
        {integer(255), "\x10\xff"},
        {integer(256), bytes_of({0x11, 1, 0})},
        {integer(65536), bytes_of({0x12, 0, 1, 0, 0})},
        {integer(1LL << 32), bytes_of({0x13, 0, 0, 0, 1, 0, 0, 0, 0})},
        {integer(-1), "\x13\xff\xff\xff\xff\xff\xff\xff\xff"},
        {NSNumber::numberWithUnsignedInteger(~NSUInteger{0}),
         "\x14" + std::string(8, '\0') + std::string(8, '\xff')},
        {test::data(std::string(15, 'x')), "\x4f\x10\x0f" + std::string(15, 'x')},
        {text("\u00e9"), bytes_of({0x61, 0, 0xe9})}};
    for (const auto& [value, object] : cases) {
        const std::string bytes = written(value, 200);
        EXPECT_EQ(bytes.substr(8, bytes.size() - 8 - 1 - 32), object);
    }
}

TEST_F(PropertyListWriting, BinaryWritesEqualLeavesOnce) {
    const std::string bytes = written(array({text("again"), text("again"), array({text("again")})}), 200);
    EXPECT_EQ(bytes.find("again"), bytes.rfind("again"));
    id read = NSPropertyListSerialization::propertyListWithData(test::data(bytes), 0, nullptr, &error);
    EXPECT_EQ(utf8(static_cast<NSObject*>(read)->description()), "(again, again, (again))");
}

TEST_F(PropertyListWriting, BinaryOfManyObjectsIsReadAgain) {
    std::vector<id> numbers;
    for (int i = 0; i < 70000; ++i) numbers.push_back(NSNumber::class_send<"numberWithInt:", id>(i));
    const std::string bytes = written(array(numbers), 200);
    id read = NSPropertyListSerialization::propertyListWithData(test::data(bytes), 0, nullptr, &error);
    EXPECT_TRUE(array(numbers)->isEqual(read));
}

TEST_F(PropertyListWriting, OtherObjectsAreRefused) {
    expect_refused(NSNull::null());
    expect_refused(array({text("a"), NSNull::null()}));
    expect_refused(dictionary({{text("a"), array({NSNull::null()})}}));
    expect_refused(dictionary({{number(1), text("a")}}));
    expect_refused(dictionary({{NSNull::null(), text("a")}}));
    expect_refused(NSURL::fileURLWithPath(text("/a")));
    expect_refused(nullptr);
}

TEST_F(PropertyListWriting, HalfOfACharacterIsRefused) {
    const char16_t half[] = {u'a', 0xd800};
    expect_refused(NSString::stringWithCharacters(half, 2));
}

TEST_F(PropertyListWriting, EndlessNestingIsRefused) {
    NSMutableArray* outer = NSMutableArray::arrayWithCapacity(1);
    outer->addObject(outer);
    expect_refused(outer);
    outer->send<"removeAllObjects">();
}

TEST_F(PropertyListWriting, OldFormCannotBeWritten) {
    EXPECT_EQ(written(text("a"), 1), "(nil)");
    EXPECT_NE(error, nullptr);
}

TEST_F(PropertyListWriting, ValidityCanBeAskedFor) {
    auto valid = [](id list) {
        return NSPropertyListSerialization::class_send<"propertyList:isValidForFormat:", bool>(
            list, NSUInteger{100});
    };
    EXPECT_TRUE(valid(text("a")));
    EXPECT_FALSE(valid(NSNull::null()));
}

}  // namespace
}  // namespace test

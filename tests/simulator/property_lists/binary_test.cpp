// Reading binary property lists.
#include "reading.h"

namespace test {
namespace {

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
    EXPECT_EQ(described(binary_list({"\x14" + std::string(8, '\0') + std::string(8, '\xff')})),
              "18446744073709551615");
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

TEST_F(PropertyListReading, BinaryStringWithHalfACharacterIsRefused) {
    expect_refused(binary_list({std::string("\x61\xd8\0", 3)}));
    EXPECT_EQ(reason(), "a string has half of a character");
    expect_refused(binary_list({std::string("\xd1\1\1", 3), std::string("\x61\xd8\0", 3)}));
    EXPECT_EQ(string(binary_list({std::string("\x62\xd8\x3d\xde\0", 5)})), "\U0001f600");
}

TEST_F(PropertyListReading, BinaryDateThatIsNoMomentIsRefused) {
    expect_refused(binary_list({std::string("\x33\x7f\xf8\0\0\0\0\0\0", 9)}));
    EXPECT_EQ(reason(), "a date is not a moment in time");
    expect_refused(binary_list({std::string("\x33\x7f\xf0\0\0\0\0\0\0", 9)}));
}

TEST_F(PropertyListReading, DatesOfAnyYearAreDescribedAtOnce) {
    EXPECT_EQ(described(binary_list({std::string("\x33\0\0\0\0\0\0\0\0", 9)})), "2001-01-01 00:00:00 +0000");
    // -1e11, 1e11 and -1e15 seconds
    EXPECT_EQ(described(binary_list({std::string("\x33\xc2\x37\x48\x76\xe8\0\0\0", 9)})),
              "-1168-02-16 14:13:20 +0000");
    EXPECT_EQ(described(binary_list({std::string("\x33\x42\x37\x48\x76\xe8\0\0\0", 9)})),
              "5169-11-16 09:46:40 +0000");
    EXPECT_EQ(described(binary_list({std::string("\x33\xc3\x0c\x6b\xf5\x26\x34\0\0", 9)})),
              "-31686738-06-29 22:13:20 +0000");
    EXPECT_EQ(described(binary_list({std::string("\x33\x7f\xef\xff\xff\xff\xff\xff\xff", 9)})),
              "1.7976931348623157e+308 seconds since 2001-01-01 00:00:00 +0000");
    EXPECT_EQ(described("<plist version=\"1.0\"><date>-1-01-01T00:00:00Z</date></plist>"),
              "-001-01-01 00:00:00 +0000");
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
    expect_refused(binary_list({"\x5f\x51"}));              // a length that is not a number
    expect_refused(binary_list({"\x61"}));                  // cut short
    expect_refused(binary_list({"\x51\x80"}));              // ASCII that is none
    expect_refused(binary_list({"\xd1\x01\x01", "\x09"}));  // a key that is not a string
    expect_refused(binary_list({"\x80\x01"}));              // an archiver's reference
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

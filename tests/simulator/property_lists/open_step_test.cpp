// Reading property lists of the old form.
#include "reading.h"

namespace test {
namespace {

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
    EXPECT_EQ(string("\"\\a\\b\\f\\n\\r\\t\\v\""), "\a\b\f\n\r\t\v");
    EXPECT_EQ(string("\"\\1711\\107\\418\""), "y1G!8") << "three digits at most";
    EXPECT_EQ(string("\"\\U07ff\\U0800\\U0840\""), "\u07ff\u0800\u0840");
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

}  // namespace
}  // namespace test

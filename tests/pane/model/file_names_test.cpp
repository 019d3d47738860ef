// Names that people give, as names of files.
#include "pane/model/file_names.h"

#include <gtest/gtest.h>

namespace pane {
namespace {

std::u16string many(const std::u16string& piece, int count) {
    std::u16string all;
    while (count-- > 0) all += piece;
    return all;
}

TEST(FileNames, PlainNamesStay) { EXPECT_EQ(stem_of(u"My theme (2)"), u"My theme (2)"); }
TEST(FileNames, EveryScriptStays) { EXPECT_EQ(stem_of(u"夕焼け שקיעה 🌅"), u"夕焼け שקיעה 🌅"); }
TEST(FileNames, WhatNoFileMayHaveIsLeftOut) {
    EXPECT_EQ(stem_of(u"a/b\\c?d%e*f|g\"h<i>j:k"), u"abcdefghijk");
}
TEST(FileNames, ControlCharactersAreLeftOut) {
    EXPECT_EQ(stem_of(std::u16string_view(u"a\0b\nc\x7f", 6)), u"abc");
}
TEST(FileNames, DotsAtTheBeginningWouldHideTheFile) {
    EXPECT_EQ(stem_of(u"..secret"), u"secret");
    EXPECT_EQ(stem_of(u" . /.x"), u"x");
}
TEST(FileNames, DotsInsideStay) { EXPECT_EQ(stem_of(u"v1.2."), u"v1.2."); }
TEST(FileNames, BlanksAtEitherEndGo) { EXPECT_EQ(stem_of(u"  a b \u3000"), u"a b"); }
TEST(FileNames, OfNothingUsableNothingIsLeft) {
    for (const auto* name : {u"", u"..", u"///", u"  "}) EXPECT_EQ(stem_of(name), u"");
}
TEST(FileNames, LongNamesAreCutToWhatAFileNameHolds) {
    EXPECT_EQ(stem_of(many(u"x", 300)), many(u"x", 200));
    EXPECT_EQ(stem_of(many(u"日", 300)), many(u"日", 66)) << "three bytes each";
}
TEST(FileNames, NoCharacterIsCutInHalf) {
    EXPECT_EQ(stem_of(u"xx" + many(u"🌅", 60)), u"xx" + many(u"🌅", 49));
}
TEST(FileNames, HalfACharacterIsLeftOut) {
    const char16_t halves[] = {u'a', 0xd83c, u'b', 0xdf05, u'c', 0xd83c};
    EXPECT_EQ(stem_of({halves, 6}), u"abc");
}

}  // namespace
}  // namespace pane

// Dictionaries and arrays in files.
#include <filesystem>

#include "support/phone.h"

namespace test {
namespace {

class PropertyListFiles : public testing::Test {
  protected:
    void SetUp() override {
        phone.make_folder("/folder");
        phone.boot();
        const id keys[] = {text("k")}, values[] = {text("v")};
        dictionary = NSDictionary::dictionaryWithObjects(values, keys, 1);
        const id nulls[] = {NSNull::null()};
        no_list = NSDictionary::dictionaryWithObjects(nulls, keys, 1);
    }
    static id read(const char* class_name, const char* path) {
        id found = class_named(class_name);
        return std::string_view(class_name).ends_with("Array")
                   ? objc::send<"arrayWithContentsOfFile:", id>(found, text(path))
                   : objc::send<"dictionaryWithContentsOfFile:", id>(found, text(path));
    }
    NSInteger code() const { return error ? error->send<"code", NSInteger>() : 0; }

    Phone phone;
    NSDictionary *dictionary, *no_list;
    NSError* error = nullptr;
};

TEST_F(PropertyListFiles, AreWrittenAsXml) {
    EXPECT_TRUE(dictionary->writeToFile(text("/folder/list.plist"), true));
    EXPECT_TRUE(phone.read("/folder/list.plist").starts_with("<?xml"));
    EXPECT_TRUE(dictionary->isEqual(read("NSDictionary", "/folder/list.plist")));
}

TEST_F(PropertyListFiles, AreWrittenToUrls) {
    EXPECT_TRUE(dictionary->writeToURL(NSURL::fileURLWithPath(text("/folder/list.plist")), &error));
    EXPECT_EQ(error, nullptr);
    EXPECT_TRUE(dictionary->isEqual(read("NSDictionary", "/folder/list.plist")));
    NSURL* url = NSURL::fileURLWithPath(text("/folder/a.plist"));
    EXPECT_TRUE((array({text("a")})->send<"writeToURL:error:", bool>(url, &error)));
    EXPECT_EQ(utf8(static_cast<NSObject*>(read("NSArray", "/folder/a.plist"))->description()), "(a)");
}

TEST_F(PropertyListFiles, OfChangeableDictionariesToo) {
    auto changeable = dictionary->mutableCopy();
    EXPECT_TRUE(changeable->writeToURL(NSURL::fileURLWithPath(text("/folder/list.plist")), &error));
    id again = read("NSMutableDictionary", "/folder/list.plist");
    EXPECT_TRUE(dictionary->isEqual(again));
    static_cast<NSMutableDictionary*>(again)->setObject(text("w"), text("k"));
}

TEST_F(PropertyListFiles, WhatIsNoPropertyListIsNotWritten) {
    EXPECT_FALSE(no_list->writeToFile(text("/folder/list.plist"), true));
    EXPECT_FALSE(no_list->writeToURL(NSURL::fileURLWithPath(text("/folder/list.plist")), &error));
    EXPECT_EQ(code(), 3851);
    EXPECT_FALSE(phone.exists("/folder/list.plist"));
}

TEST_F(PropertyListFiles, WritingWithoutAFolderIsError4) {
    EXPECT_FALSE(dictionary->writeToFile(text("/missing/list.plist"), true));
    EXPECT_FALSE(dictionary->writeToURL(NSURL::fileURLWithPath(text("/missing/list.plist")), &error));
    EXPECT_EQ(code(), 4);
    EXPECT_EQ(utf8(error->send<"userInfo", NSDictionary*>()->objectForKey(text("NSFilePath"))),
              "/missing/list.plist");
    EXPECT_FALSE(dictionary->writeToURL(NSURL::fileURLWithPath(text("/missing/list.plist")), nullptr));
}

TEST_F(PropertyListFiles, FailedWritingLeavesTheOldFile) {
    phone.write("/folder/list.plist", "old");
    EXPECT_FALSE(no_list->writeToFile(text("/folder/list.plist"), true));
    EXPECT_EQ(phone.read("/folder/list.plist"), "old");
    EXPECT_FALSE(dictionary->writeToFile(text("/folder"), true));
    EXPECT_TRUE(std::filesystem::is_directory(phone.host("/folder")));
}

TEST_F(PropertyListFiles, UrlsOfOtherSchemesAreError518) {
    auto* web = NSURL::class_send<"URLWithString:", NSURL*>(text("http://localhost/list.plist"));
    EXPECT_FALSE(dictionary->writeToURL(web, &error));
    EXPECT_EQ(code(), 518);
    EXPECT_FALSE(dictionary->writeToURL(nullptr, &error));
}

TEST_F(PropertyListFiles, FilesOfAnotherKindAreNil) {
    phone.write("/array", "(a)");
    phone.write("/dictionary", "{a = b;}");
    phone.write("/garbage", std::string("\0\1\2", 3));
    EXPECT_EQ(read("NSDictionary", "/array"), nullptr);
    EXPECT_EQ(read("NSArray", "/dictionary"), nullptr);
    for (const char* path : {"/garbage", "/missing", "/folder"}) {
        EXPECT_EQ(read("NSDictionary", path), nullptr) << path;
        EXPECT_EQ(read("NSArray", path), nullptr) << path;
    }
    EXPECT_NE(read("NSDictionary", "/dictionary"), nullptr);
    EXPECT_NE(read("NSArray", "/array"), nullptr);
}

}  // namespace
}  // namespace test

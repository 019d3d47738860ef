// NSData and files.
#include <sys/stat.h>

#include <filesystem>

#include "support/phone.h"

namespace test {
namespace {

namespace fs = std::filesystem;

class DataFiles : public testing::Test {
  protected:
    void SetUp() override {
        phone.write("/folder/file.txt", std::string("con\0tents", 9));
        phone.boot();
    }
    NSInteger code() const { return error ? error->send<"code", NSInteger>() : 0; }
    bool write(const char* path, NSUInteger options) {
        return objc::send<"writeToFile:options:error:", bool>(data("new"), text(path), options, &error);
    }

    Phone phone;
    NSError* error = nullptr;
};

TEST_F(DataFiles, AreReadWhole) {
    NSData* contents = NSData::dataWithContentsOfFile(text("/folder/file.txt"));
    ASSERT_NE(contents, nullptr);
    EXPECT_EQ(std::string(static_cast<const char*>(contents->bytes()), contents->length()),
              std::string("con\0tents", 9));
}

TEST_F(DataFiles, EmptyFileIsEmptyData) {
    phone.write("/empty", "");
    NSData* contents = NSData::dataWithContentsOfFile(text("/empty"));
    ASSERT_NE(contents, nullptr);
    EXPECT_EQ(contents->length(), 0u);
}

TEST_F(DataFiles, FoldersPipesAndWhatIsMissingAreNil) {
    ASSERT_EQ(mkfifo(phone.host("/pipe").c_str(), 0600), 0);
    for (const char* path : {"/folder", "/missing", "/folder/file.txt/x", "/pipe", ""})
        EXPECT_EQ(NSData::dataWithContentsOfFile(text(path)), nullptr) << path;
}

TEST_F(DataFiles, ReadingWhatIsMissingIsError260) {
    EXPECT_EQ((NSData::class_send<"dataWithContentsOfFile:options:error:", id>(text("/missing"),
                                                                               NSUInteger{0}, &error)),
              nullptr);
    EXPECT_EQ(code(), 260);
}

TEST_F(DataFiles, ChangeableDataReadsToo) {
    auto* changeable = objc::send<"dataWithContentsOfFile:", NSData*>(class_named("NSMutableData"),
                                                                      text("/folder/file.txt"));
    ASSERT_NE(changeable, nullptr);
    changeable->send<"setLength:">(NSUInteger{3});
    EXPECT_EQ(changeable->length(), 3u);
}

TEST_F(DataFiles, AreWrittenBothWays) {
    for (bool atomically : {false, true}) {
        EXPECT_TRUE((objc::send<"writeToFile:atomically:", bool>(data("new"), text("/new.txt"), atomically)));
        EXPECT_EQ(phone.read("/new.txt"), "new");
        phone.write("/new.txt", "something longer");
    }
}

TEST_F(DataFiles, AtomicWritingLeavesNothingElseBehind) {
    phone.make_folder("/folder/deeper");
    EXPECT_TRUE(write("/folder/new.txt", 1));
    EXPECT_FALSE(write("/folder/deeper", 1));
    size_t count = 0;
    for ([[maybe_unused]] const auto& entry : fs::directory_iterator(phone.host("/folder"))) ++count;
    EXPECT_EQ(count, 3u);
    EXPECT_EQ(
        fs::status(phone.host("/folder/new.txt")).permissions() & fs::perms::all,
        fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read | fs::perms::others_read);
}

TEST_F(DataFiles, WritingWithoutAFolderIsError4) {
    for (NSUInteger options : {0, 1}) {
        EXPECT_FALSE(write("/missing/new.txt", options));
        EXPECT_EQ(code(), 4);
    }
}

TEST_F(DataFiles, WritingOntoAFolderFails) {
    for (NSUInteger options : {0, 1}) {
        EXPECT_FALSE(write("/folder", options));
        EXPECT_EQ(code(), 512);
        EXPECT_TRUE(phone.exists("/folder/file.txt"));
    }
}

TEST_F(DataFiles, WritingWithoutOverwritingIsError516) {
    EXPECT_FALSE(write("/folder/file.txt", 2));
    EXPECT_EQ(code(), 516);
    EXPECT_EQ(phone.read("/folder/file.txt").size(), 9u);
    EXPECT_TRUE(write("/folder/new.txt", 2));
}

TEST_F(DataFiles, NamesThatAreTooLongAreError514) {
    EXPECT_FALSE(write(("/" + std::string(300, 'x')).c_str(), 1));
    EXPECT_EQ(code(), 514);
}

}  // namespace
}  // namespace test

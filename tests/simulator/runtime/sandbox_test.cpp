// Folders that the process's sandbox denies: nothing in them is found, read or written.
#include <filesystem>

#include "support/configuration.h"

namespace test {
namespace {

class Sandbox : public testing::Test {
  protected:
    static constexpr const char* file = "/var/mobile/Library/Preferences/file.txt";
    static constexpr NSInteger no_permission_to_read = 257, no_permission_to_write = 513;

    void SetUp() override {
        phone.write(file, "inside");
        phone.write("/var/mobile/Library/Preferences2/file.txt", "beside");
        std::filesystem::create_symlink("/var/mobile/Library/Preferences", phone.host("/link"));
        phone.boot({.denied = {"/var/mobile/Library/Preferences", "/not/there"}});
    }
    static NSFileManager* manager() { return NSFileManager::defaultManager(); }
    static NSData* read(const char* path, NSError** error = nullptr) {
        return NSData::class_send<"dataWithContentsOfFile:options:error:", NSData*>(text(path), NSUInteger{0},
                                                                                    error);
    }
    static NSInteger code(NSError* error) { return error ? error->send<"code", NSInteger>() : 0; }

    Phone phone;
};

TEST_F(Sandbox, DeniesReading) {
    NSError* error = nullptr;
    EXPECT_EQ(read(file, &error), nullptr);
    EXPECT_EQ(code(error), no_permission_to_read);
    EXPECT_EQ(read("/var/mobile/Library/../Library/Preferences/file.txt"), nullptr);
}

TEST_F(Sandbox, DeniesFinding) {
    EXPECT_FALSE(manager()->fileExistsAtPath(text(file)));
    EXPECT_FALSE(manager()->fileExistsAtPath(text("/var/mobile/Library/Preferences")));
    EXPECT_TRUE(manager()->fileExistsAtPath(text("/var/mobile/Library")));
}

TEST_F(Sandbox, DeniesListing) {
    NSError* error = nullptr;
    EXPECT_EQ((manager()->send<"contentsOfDirectoryAtPath:error:", id>(text("/link"), &error)), nullptr);
    EXPECT_EQ(code(error), no_permission_to_read);
}

TEST_F(Sandbox, DeniesWriting) {
    NSError* error = nullptr;
    EXPECT_FALSE((data("new")->send<"writeToFile:options:error:", bool>(text(file), NSUInteger{1}, &error)));
    EXPECT_EQ(code(error), no_permission_to_write);
    EXPECT_EQ(phone.read(file), "inside");
}

TEST_F(Sandbox, DeniesMakingFolders) {
    NSError* error = nullptr;
    const auto made =
        manager()->send<"createDirectoryAtPath:withIntermediateDirectories:attributes:error:", bool>(
            text("/var/mobile/Library/Preferences/New"), true, id{}, &error);
    EXPECT_FALSE(made);
    EXPECT_EQ(code(error), no_permission_to_write);
}

TEST_F(Sandbox, DeniesRemovingAndMoving) {
    NSError* error = nullptr;
    EXPECT_FALSE((manager()->send<"removeItemAtPath:error:", bool>(text(file), &error)));
    EXPECT_EQ(code(error), no_permission_to_write);
    error = nullptr;
    EXPECT_FALSE((manager()->send<"moveItemAtPath:toPath:error:", bool>(
        text("/var/mobile/Library/Preferences2/file.txt"), text("/link/moved.txt"), &error)));
    EXPECT_EQ(code(error), no_permission_to_write);
    EXPECT_EQ(phone.read(file), "inside");
}

TEST_F(Sandbox, DeniesWhatALinkLeadsTo) { EXPECT_EQ(read("/link/file.txt"), nullptr); }

TEST_F(Sandbox, LeavesWhatLiesBeside) {
    NSData* beside = read("/var/mobile/Library/Preferences2/file.txt");
    ASSERT_NE(beside, nullptr);
    EXPECT_EQ(beside->length(), 6u);
}

TEST(SandboxOfAPhone, IsNamedByWholePaths) {
    Phone phone;
    const auto root = phone.host("/").string();
    for (const char* folder : {"", "Library", "/Library/", "/Library/../var"}) {
        const char* const folders[] = {folder, nullptr};
        sim_options options{};
        options.size = sizeof options;
        options.root = root.c_str();
        options.denied_folders = folders;
        EXPECT_EQ(sim_boot(&options), SIM_MISUSE) << folder;
        EXPECT_NE(std::string(sim_last_error()).find("whole path"), std::string::npos) << sim_last_error();
    }
}

}  // namespace
}  // namespace test

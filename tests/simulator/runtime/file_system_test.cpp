// The device's file system: nothing but the root folder is read or written, whatever links and paths say.
#include "phone/file_system.h"

#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "support/phone.h"

namespace test {
namespace {

namespace fs = std::filesystem;

class FileSystem : public testing::Test {
  protected:
    void SetUp() override {
        phone.write("/var/mobile/inside.txt", "inside");
        outside = fs::temp_directory_path() / ("huecraft-outside-" + std::to_string(getpid()));
        fs::create_directories(outside);
        std::ofstream(outside / "secret.txt") << "secret";
        phone.boot();
    }
    ~FileSystem() override { fs::remove_all(outside); }

    void link(const char* device_path, const std::string& target) const {
        fs::create_symlink(target, phone.host(device_path));
    }
    static bool exists(const char* path) {
        return NSFileManager::defaultManager()->fileExistsAtPath(text(path));
    }
    static std::string read(const char* path) {
        NSData* contents = NSData::dataWithContentsOfFile(text(path));
        return contents ? std::string(static_cast<const char*>(contents->bytes()), contents->length())
                        : "(nil)";
    }

    Phone phone;
    fs::path outside;
};

TEST_F(FileSystem, AbsolutePathsBeginAtTheRootFolder) {
    EXPECT_EQ(read("/var/mobile/inside.txt"), "inside");
    EXPECT_TRUE(exists("/var"));
    EXPECT_TRUE(exists("/"));
    EXPECT_FALSE(exists("/etc/passwd"));
    EXPECT_FALSE(exists((outside / "secret.txt").c_str()));
    EXPECT_EQ(read("/etc/passwd"), "(nil)");
}

TEST_F(FileSystem, RelativePathsBeginThereToo) {
    EXPECT_EQ(read("var/mobile/inside.txt"), "inside");
    EXPECT_EQ(
        utf8(NSFileManager::class_send<"defaultManager", NSObject*>()->send<"currentDirectoryPath", id>()),
        "/");
}

TEST_F(FileSystem, GoingUpEndsAtTheRoot) {
    EXPECT_EQ(read("/../../../var/mobile/inside.txt"), "inside");
    EXPECT_EQ(read("/var/mobile/../../../../../../var/mobile/inside.txt"), "inside");
    const std::string escape = "/../../../../../.." + (outside / "secret.txt").string();
    EXPECT_FALSE(exists(escape.c_str()));
}

TEST_F(FileSystem, GoingUpFromNowhereIsNowhere) {
    EXPECT_FALSE(exists("/missing/../var"));
    EXPECT_FALSE(exists("/var/mobile/inside.txt/../inside.txt"));
    EXPECT_TRUE(exists("/var/mobile/../mobile/./inside.txt"));
}

TEST_F(FileSystem, AbsoluteLinksPointIntoTheRoot) {
    link("/var/link.txt", "/var/mobile/inside.txt");
    link("/folder", "/var/mobile");
    EXPECT_EQ(read("/var/link.txt"), "inside");
    EXPECT_EQ(read("/folder/inside.txt"), "inside");
    EXPECT_EQ(read("/folder/../link.txt"), "inside") << "\"..\" is the real folder's";
}

TEST_F(FileSystem, LinksThatLeadOutsideDoNotExist) {
    link("/out.txt", (outside / "secret.txt").string());
    link("/out", outside.string());
    link("/up.txt", "../../../../../../../.." + (outside / "secret.txt").string());
    for (const char* path : {"/out.txt", "/out", "/out/secret.txt", "/up.txt"}) {
        EXPECT_FALSE(exists(path)) << path;
        EXPECT_EQ(read(path), "(nil)") << path;
    }
}

TEST_F(FileSystem, EndlessLinksAreAnErrorAndNoHang) {
    link("/self", "self");
    link("/a", "/b");
    link("/b", "a");
    link("/grows", "grows/grows/grows");
    for (const char* path : {"/self", "/a", "/b/c", "/grows", "/grows/x"}) {
        EXPECT_FALSE(exists(path)) << path;
        EXPECT_EQ(read(path), "(nil)") << path;
    }
}

TEST_F(FileSystem, AsManyLinksAsTheDeviceFollows) {
    link("/link0", "/var/mobile/inside.txt");
    for (int i = 1; i < 33; ++i) link(("/link" + std::to_string(i)).c_str(), "/link" + std::to_string(i - 1));
    EXPECT_EQ(read("/link31"), "inside");
    EXPECT_EQ(read("/link32"), "(nil)");
}

TEST_F(FileSystem, TrailingSlashMeansAFolder) {
    EXPECT_TRUE(exists("/var/mobile/"));
    EXPECT_FALSE(exists("/var/mobile/inside.txt/"));
}

TEST_F(FileSystem, OddPathsAreNoPaths) {
    EXPECT_FALSE(exists(""));
    EXPECT_FALSE(exists(std::string(5000, 'x').c_str()));
    EXPECT_FALSE(exists(std::string(50000, '/').append("nothing").c_str()));
    EXPECT_EQ(read((std::string(1000, '/') + "var/mobile/inside.txt").c_str()), "inside");
    bool is_directory = false;
    EXPECT_FALSE(NSFileManager::defaultManager()->fileExistsAtPath(nullptr, &is_directory));
    EXPECT_EQ(NSData::dataWithContentsOfFile(nullptr), nullptr);
    const char16_t half[] = {u'/', 0xd800, u'x'}, zero[] = u"/var\0/mobile";
    EXPECT_FALSE(NSFileManager::defaultManager()->fileExistsAtPath(NSString::stringWithCharacters(half, 3)));
    EXPECT_FALSE(NSFileManager::defaultManager()->fileExistsAtPath(NSString::stringWithCharacters(zero, 5)));
}

TEST_F(FileSystem, WritingThroughALinkStaysInside) {
    link("/out.txt", (outside / "new.txt").string());
    link("/var/into.txt", "/var/mobile/written.txt");
    id nothing = data("written");
    EXPECT_FALSE((objc::send<"writeToFile:atomically:", bool>(nothing, text("/out.txt"), true)));
    EXPECT_FALSE((objc::send<"writeToFile:atomically:", bool>(nothing, text("/out.txt"), false)));
    EXPECT_FALSE(fs::exists(outside / "new.txt"));
    EXPECT_TRUE((objc::send<"writeToFile:atomically:", bool>(nothing, text("/var/into.txt"), false)));
    EXPECT_EQ(phone.read("/var/mobile/written.txt"), "written");
}

TEST_F(FileSystem, EveryWayOfReadingStaysInside) {
    const char* paths[] = {"/etc/hostname", "/etc/passwd"};
    for (const char* path : paths) {
        NSString* name = text(path);
        id url = NSURL::fileURLWithPath(name);
        auto made = [](const char* class_name, auto send) { return send(class_named(class_name)); };
        EXPECT_EQ(
            made("NSString", [&](id c) { return objc::send<"stringWithContentsOfFile:", id>(c, name); }),
            nullptr);
        EXPECT_EQ(made("NSDictionary",
                       [&](id c) { return objc::send<"dictionaryWithContentsOfFile:", id>(c, name); }),
                  nullptr);
        EXPECT_EQ(made("NSData", [&](id c) { return objc::send<"dataWithContentsOfURL:", id>(c, url); }),
                  nullptr);
        EXPECT_EQ(
            made("NSData", [&](id c) { return objc::send<"dataWithContentsOfMappedFile:", id>(c, name); }),
            nullptr);
        EXPECT_EQ(made("NSFileHandle",
                       [&](id c) { return objc::send<"fileHandleForReadingAtPath:", id>(c, name); }),
                  nullptr);
        id stream = objc::send<"inputStreamWithFileAtPath:", id>(class_named("NSInputStream"), name);
        objc::send<"open">(stream);
        uint8_t byte;
        EXPECT_LE((objc::send<"read:maxLength:", NSInteger>(stream, &byte, NSUInteger{1})), 0);
        id manager = NSFileManager::defaultManager();
        EXPECT_EQ((objc::send<"contentsAtPath:", id>(manager, name)), nullptr);
        EXPECT_FALSE((objc::send<"isReadableFileAtPath:", bool>(manager, name)));
        EXPECT_EQ((objc::send<"fileAttributesAtPath:traverseLink:", id>(manager, name, true)), nullptr);
    }
}

TEST_F(FileSystem, PathsOfTheHostNeverShow) {
    EXPECT_EQ(utf8(text("~/Library")->send<"stringByExpandingTildeInPath", id>()), "/var/mobile/Library");
    link("/var/link", "/var/mobile");
    EXPECT_EQ(utf8(text("/var/link/../mobile/inside.txt")->send<"stringByResolvingSymlinksInPath", id>()),
              "/var/mobile/inside.txt");
    EXPECT_EQ(utf8(text("/var/./mobile//inside.txt")->send<"stringByStandardizingPath", id>()),
              "/var/mobile/inside.txt");
    auto* enumerator = NSFileManager::defaultManager()->send<"enumeratorAtPath:", NSObject*>(text("/var"));
    std::string names;
    while (id name = enumerator->send<"nextObject", id>()) names += utf8(name) + " ";
    EXPECT_EQ(names.find(phone.host("/").string()), std::string::npos) << names;
    EXPECT_NE(names.find("mobile/inside.txt"), std::string::npos) << names;
    EXPECT_EQ(names.find("link/inside.txt"), std::string::npos)
        << "an enumerator does not descend into links";
}

/// The function that the rest of the simulator finds files with, in this program's own copy.
TEST(HostPath, NeedsARoot) { EXPECT_FALSE(sim::host_path("/var").has_value()); }

TEST(HostPath, IsNothingForWhatIsNoPath) {
    sim::mount_root("/nowhere");
    EXPECT_EQ(sim::host_path("/"), "/nowhere/");
    EXPECT_FALSE(sim::host_path("").has_value());
    EXPECT_FALSE(sim::host_path(std::string_view("/var\0/mobile", 12)).has_value());
}

TEST(HostPath, NeedsNothingToExist) {
    sim::mount_root("/nowhere");
    EXPECT_EQ(sim::host_path("/a/./b//c"), "/nowhere/a/b/c");
    EXPECT_EQ(sim::host_path("a/"), "/nowhere/a/");
    EXPECT_FALSE(sim::host_path("/a/../b").has_value());
}

TEST(HostPath, KeepsALinkAtTheEndWhenAsked) {
    Phone phone;
    phone.write("/var/file.txt", "");
    fs::create_symlink("/var/file.txt", phone.host("/link"));
    sim::mount_root(phone.host("/").parent_path());
    EXPECT_EQ(sim::resolved_device_path("/link"), "/var/file.txt");
    EXPECT_EQ(sim::resolved_device_path("/link", sim::LastLink::keep), "/link");
    EXPECT_EQ(sim::resolved_device_path("/link/", sim::LastLink::keep), "/var/file.txt/");
}

}  // namespace
}  // namespace test

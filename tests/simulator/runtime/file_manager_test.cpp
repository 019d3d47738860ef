// NSFileManager as on the device, with its errors.
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "support/phone.h"

namespace test {
namespace {

namespace fs = std::filesystem;

struct Manager : NSFileManager {
    NSArray* contents(const char* path, NSError** error) {
        return send<"contentsOfDirectoryAtPath:error:", NSArray*>(text(path), error);
    }
    bool create(const char* path, bool with_intermediates, NSError** error) {
        return send<"createDirectoryAtPath:withIntermediateDirectories:attributes:error:", bool>(
            text(path), with_intermediates, static_cast<id>(nullptr), error);
    }
    bool move(const char* from, const char* to, NSError** error) {
        return send<"moveItemAtPath:toPath:error:", bool>(text(from), text(to), error);
    }
    bool copy(const char* from, const char* to, NSError** error) {
        return send<"copyItemAtPath:toPath:error:", bool>(text(from), text(to), error);
    }
};

class FileManager : public testing::Test {
  protected:
    void SetUp() override {
        phone.write("/folder/file.txt", "contents");
        phone.write("/folder/deeper/file.txt", "contents");
        phone.boot();
        manager = static_cast<Manager*>(NSFileManager::defaultManager());
    }
    /// "domain code path".
    std::string summary() const {
        if (!error) return "(no error)";
        auto* info = error->send<"userInfo", NSDictionary*>();
        return utf8(error->send<"domain", id>()) + " " + std::to_string(error->send<"code", NSInteger>()) +
               " " + utf8(info->objectForKey(text("NSFilePath")));
    }

    Phone phone;
    Manager* manager;
    NSError* error = nullptr;
};

TEST_F(FileManager, TellsFilesFromFolders) {
    bool is_directory = false;
    EXPECT_TRUE(manager->fileExistsAtPath(text("/folder"), &is_directory));
    EXPECT_TRUE(is_directory);
    EXPECT_TRUE(manager->fileExistsAtPath(text("/folder/file.txt"), &is_directory));
    EXPECT_FALSE(is_directory);
}

TEST_F(FileManager, LeavesTheFlagAloneWhenNothingIsThere) {
    for (bool before : {false, true}) {
        bool is_directory = before;
        EXPECT_FALSE(manager->fileExistsAtPath(text("/missing"), &is_directory));
        EXPECT_EQ(is_directory, before);
    }
}

TEST_F(FileManager, RemovesAFolderWithAllInIt) {
    EXPECT_TRUE(manager->removeItemAtPath(text("/folder"), &error)) << summary();
    EXPECT_FALSE(phone.exists("/folder"));
    EXPECT_EQ(error, nullptr);
}

TEST_F(FileManager, RemovingWhatIsMissingIsError4) {
    EXPECT_FALSE(manager->removeItemAtPath(text("/missing"), &error));
    EXPECT_EQ(summary(), "NSCocoaErrorDomain 4 /missing");
    auto* underlying = static_cast<NSObject*>(
        error->send<"userInfo", NSDictionary*>()->objectForKey(text("NSUnderlyingError")));
    ASSERT_NE(underlying, nullptr);
    EXPECT_EQ(utf8(underlying->send<"domain", id>()), "NSPOSIXErrorDomain");
    EXPECT_EQ((underlying->send<"code", NSInteger>()), ENOENT);
}

TEST_F(FileManager, RemovingNeedsNoErrorSlot) {
    EXPECT_FALSE(manager->removeItemAtPath(text("/missing"), nullptr));
    EXPECT_FALSE(manager->removeItemAtPath(nullptr, nullptr));
}

TEST_F(FileManager, RemovesALinkAndNotWhatItPointsTo) {
    fs::create_symlink("/folder", phone.host("/link"));
    EXPECT_TRUE(manager->removeItemAtPath(text("/link"), &error)) << summary();
    EXPECT_FALSE(fs::is_symlink(phone.host("/link")));
    EXPECT_TRUE(phone.exists("/folder/file.txt"));
}

TEST_F(FileManager, RemovesLinksInsideAFolderAndNotWhatTheyPointTo) {
    phone.make_folder("/other");
    fs::create_symlink("/folder", phone.host("/other/link"));
    EXPECT_TRUE(manager->removeItemAtPath(text("/other"), &error)) << summary();
    EXPECT_TRUE(phone.exists("/folder/file.txt"));
}

TEST_F(FileManager, NeverRemovesTheRoot) {
    for (const char* path : {"/", "/..", "/folder/../"}) {
        EXPECT_FALSE(manager->removeItemAtPath(text(path), &error)) << path;
        EXPECT_TRUE(phone.exists("/folder/file.txt")) << path;
    }
    EXPECT_EQ(summary().substr(0, 22), "NSCocoaErrorDomain 513");
}

/// Runs as somebody who may not write where root may.
class WithoutPermission : public FileManager {
  protected:
    explicit WithoutPermission(fs::perms permissions = fs::perms(0555)) : left(permissions) {}
    void SetUp() override {
        FileManager::SetUp();
        fs::permissions(phone.host("/"), fs::perms::all);
        fs::permissions(phone.host("/folder"), left);
        ASSERT_TRUE(geteuid() != 0 || seteuid(65534) == 0);
    }
    ~WithoutPermission() override {
        if (getuid() == 0) EXPECT_EQ(seteuid(0), 0);
        fs::permissions(phone.host("/folder"), fs::perms::owner_all);
    }

    fs::perms left;
};

/// The same where nothing may be read.
class WithoutAnyPermission : public WithoutPermission {
  protected:
    WithoutAnyPermission() : WithoutPermission(fs::perms::none) {}
};

TEST_F(WithoutPermission, RemovingIsError513) {
    EXPECT_FALSE(manager->removeItemAtPath(text("/folder/file.txt"), &error));
    EXPECT_EQ(summary(), "NSCocoaErrorDomain 513 /folder/file.txt");
    EXPECT_TRUE(phone.exists("/folder/file.txt"));
}

TEST_F(WithoutPermission, CreatingAFolderIsError513) {
    EXPECT_FALSE(manager->create("/folder/new", true, &error));
    EXPECT_EQ(summary(), "NSCocoaErrorDomain 513 /folder/new");
}

TEST_F(WithoutPermission, TheHostsRefusalIsSaidOnce) {
    EXPECT_STREQ(sim_host_failure(), "");
    EXPECT_FALSE(manager->create("/folder/new", true, &error));
    EXPECT_FALSE(manager->create("/folder/second", true, &error));
    EXPECT_STREQ(sim_host_failure(), "/folder/new: Permission denied");
    EXPECT_STREQ(sim_host_failure(), "");
    EXPECT_FALSE(data("new")->writeToFile(text("/folder/data"), 1, nullptr));
    EXPECT_STREQ(sim_host_failure(), "/folder/data: Permission denied");
}

TEST_F(WithoutAnyPermission, TheFirstFileThatCannotBeReadIsSaid) {
    for (const char* path : {"/folder/file.txt", "/folder/./file.txt"}) {
        EXPECT_FALSE(manager->fileExistsAtPath(text(path)));
        EXPECT_STREQ(sim_host_failure(), "/folder/file.txt: Permission denied") << path;
        EXPECT_EQ(NSData::dataWithContentsOfFile(text(path)), nullptr);
        EXPECT_STREQ(sim_host_failure(), "/folder/file.txt: Permission denied") << path;
        EXPECT_EQ(UIImage::imageWithContentsOfFile(text(path)),
                  nullptr);  // the picture for this screen first
        EXPECT_STREQ(sim_host_failure(), "/folder/file@2x.txt: Permission denied") << path;
    }
    EXPECT_EQ((manager->send<"contentsOfDirectoryAtPath:error:", id>(text("/folder"), &error)), nullptr);
    EXPECT_STREQ(sim_host_failure(), "/folder: Permission denied");
}

TEST_F(FileManager, WhatCanGoWrongOnADeviceIsNoFailureOfTheHosts) {
    EXPECT_FALSE(manager->fileExistsAtPath(text("/folder/none")));
    EXPECT_FALSE(manager->fileExistsAtPath(text("/folder/file.txt/below")));
    EXPECT_EQ(NSData::dataWithContentsOfFile(text("/folder")), nullptr);
    EXPECT_FALSE(manager->removeItemAtPath(text("/folder/none"), &error));
    EXPECT_FALSE(manager->create("/folder/file.txt", false, &error));
    fs::create_symlink("/loop", phone.host("/loop"));
    EXPECT_EQ(UIImage::imageWithContentsOfFile(text("/loop")), nullptr);
    EXPECT_EQ(NSData::dataWithContentsOfFile(text("/" + std::string(300, 'n'))), nullptr);
    EXPECT_STREQ(sim_host_failure(), "");
}

TEST_F(WithoutPermission, WritingAPropertyListIsError513) {
    auto* dictionary = NSDictionary::dictionaryWithObjects(nullptr, nullptr, 0);
    EXPECT_FALSE(dictionary->writeToURL(NSURL::fileURLWithPath(text("/folder/new.plist")), &error));
    EXPECT_EQ(summary(), "NSCocoaErrorDomain 513 /folder/new.plist");
    EXPECT_FALSE(phone.exists("/folder/new.plist"));
}

TEST_F(FileManager, ListsAFolderSorted) {
    phone.write("/folder/another.txt", "");
    NSArray* names = manager->contents("/folder", &error);
    EXPECT_EQ(utf8(names->componentsJoinedByString(text(" "))), "another.txt deeper file.txt");
}

TEST_F(FileManager, ListingWhatIsMissingIsError260) {
    EXPECT_EQ(manager->contents("/missing", &error), nullptr);
    EXPECT_EQ(summary(), "NSCocoaErrorDomain 260 /missing");
}

TEST_F(FileManager, CreatesFolders) {
    EXPECT_TRUE(manager->create("/new", false, &error)) << summary();
    EXPECT_TRUE(manager->create("/a/b/c", true, &error)) << summary();
    EXPECT_TRUE(fs::is_directory(phone.host("/a/b/c")));
    EXPECT_TRUE(manager->create("/a/b/c", true, &error))
        << "one that exists is not an error with intermediates";
}

TEST_F(FileManager, CreatesFoldersWithPermissions) {
    const id keys[] = {text("NSFilePosixPermissions")},
             values[] = {NSNumber::numberWithUnsignedInteger(0700)};
    EXPECT_TRUE((manager->send<"createDirectoryAtPath:withIntermediateDirectories:attributes:error:", bool>(
        text("/private"), true, static_cast<id>(NSDictionary::dictionaryWithObjects(values, keys, 1)),
        &error)));
    EXPECT_EQ(fs::status(phone.host("/private")).permissions(), fs::perms::owner_all);
}

TEST_F(FileManager, CreatingWhatExistsIsError516) {
    EXPECT_FALSE(manager->create("/folder", false, &error));
    EXPECT_EQ(summary(), "NSCocoaErrorDomain 516 /folder");
    error = nullptr;
    EXPECT_FALSE(manager->create("/folder/file.txt", true, &error));
    EXPECT_EQ(summary(), "NSCocoaErrorDomain 516 /folder/file.txt");
}

TEST_F(FileManager, CreatingWithoutAParentIsError4) {
    EXPECT_FALSE(manager->create("/missing/new", false, &error));
    EXPECT_EQ(summary(), "NSCocoaErrorDomain 4 /missing/new");
}

TEST_F(FileManager, MovesAndCopies) {
    EXPECT_TRUE(manager->copy("/folder", "/copy", &error)) << summary();
    EXPECT_EQ(phone.read("/copy/deeper/file.txt"), "contents");
    EXPECT_TRUE(manager->move("/copy/deeper", "/moved", &error)) << summary();
    EXPECT_EQ(phone.read("/moved/file.txt"), "contents");
    EXPECT_FALSE(phone.exists("/copy/deeper"));
}

TEST_F(FileManager, MovingOrCopyingOntoSomethingIsError516) {
    phone.write("/other.txt", "other");
    EXPECT_FALSE(manager->copy("/folder/file.txt", "/other.txt", &error));
    EXPECT_EQ(summary(), "NSCocoaErrorDomain 516 /folder/file.txt");
    EXPECT_FALSE(manager->move("/folder/file.txt", "/other.txt", &error));
    EXPECT_EQ(summary(), "NSCocoaErrorDomain 516 /folder/file.txt");
    EXPECT_EQ(phone.read("/other.txt"), "other");
}

TEST_F(FileManager, MovingOrCopyingWhatIsMissingFails) {
    EXPECT_FALSE(manager->move("/missing", "/new", &error));
    EXPECT_EQ(summary(), "NSCocoaErrorDomain 4 /missing");
    EXPECT_FALSE(manager->copy("/missing", "/new", &error));
    EXPECT_EQ(summary(), "NSCocoaErrorDomain 260 /missing");
}

TEST_F(FileManager, CreatesAndReadsFiles) {
    EXPECT_TRUE((manager->send<"createFileAtPath:contents:attributes:", bool>(text("/new.txt"), data("new"),
                                                                              static_cast<id>(nullptr))));
    EXPECT_EQ(phone.read("/new.txt"), "new");
    auto* contents = manager->send<"contentsAtPath:", NSData*>(text("/new.txt"));
    EXPECT_EQ(contents->length(), 3u);
}

TEST_F(FileManager, KnowsLinks) {
    EXPECT_TRUE((manager->send<"createSymbolicLinkAtPath:withDestinationPath:error:", bool>(
        text("/link"), text("/folder"), &error)));
    EXPECT_EQ(fs::read_symlink(phone.host("/link")), "/folder");
    EXPECT_EQ(utf8(manager->send<"destinationOfSymbolicLinkAtPath:error:", id>(text("/link"), &error)),
              "/folder");
    auto* attributes = manager->send<"attributesOfItemAtPath:error:", NSDictionary*>(text("/link"), &error);
    EXPECT_EQ(utf8(attributes->objectForKey(text("NSFileType"))), "NSFileTypeSymbolicLink");
}

TEST_F(FileManager, AttributesOfWhatIsMissingAreError260) {
    EXPECT_EQ((manager->send<"attributesOfItemAtPath:error:", id>(text("/missing"), &error)), nullptr);
    EXPECT_EQ(summary(), "NSCocoaErrorDomain 260 /missing");
}

}  // namespace
}  // namespace test

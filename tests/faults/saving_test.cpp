// The library's two files, written and read while a system call fails: all or nothing.
#include "folder.h"
#include "settings/recent_colours_test.h"
#include "support/configuration.h"
#include "support/faults.h"

namespace test {
namespace {

namespace fs = std::filesystem;

/// How the system calls a file that it has not finished; what a kill leaves is the system's to clear away.
constexpr const char* unfinished = ".dat.nosync";

// What the work's process says of itself.
constexpr int done = 0, failed_with_error = 3, failed = 4;

/// What a file may have become while it was looked at.
std::vector<Fault> meddlings_with(const fs::path& file) {
    const auto instead = [file](const std::function<void()>& make) {
        return Fault::meddling([file, make] {
            fs::remove_all(file);
            make();
        });
    };
    return {instead([] {}),
            instead([file] { fs::create_directory(file); }),
            instead([file] { fs::create_symlink("nowhere", file); }),
            instead([file] { fs::create_symlink(file.filename(), file); }),
            instead([file] { std::ofstream(file) << ""; }),
            instead([file] { std::ofstream(file) << "<?xml version"; }),
            instead([file] { mkfifo(file.c_str(), 0600); })};
}

class Saving : public testing::Test {
  protected:
    void start(const char* system_version = nullptr) {
        phone.start({.system_version = system_version});
        phone.make_folder(theme_folder);
        theme = Configuration::made_default();
        const auto own = objc::strong<NSObject>(static_cast<NSObject*>(theme.object));
        kept = own;
        theme.set_name("Saved");
        // With a picture, so that there is something to write by half.
        objc::send<"setImageData:">(theme.object, filled_image(color(0.2, 0.4, 0.6), 200, 100));
        ASSERT_TRUE(theme.save());
        after = snapshot_of(folder());
        reset();
    }
    fs::path folder() const { return phone.host(theme_folder).parent_path(); }
    fs::path file() const { return folder() / "Saved.plist"; }
    void reset() const {
        fs::remove_all(folder());
        fs::create_directories(folder());
        for (const auto& [path, content] : before)
            std::ofstream(folder() / path, std::ios::binary) << content;
    }
    int save() const {
        NSError* error = nullptr;
        if (theme.save(&error)) return done;
        return error ? failed_with_error : failed;
    }
    size_t try_to_save(int status_of_failure) {
        return try_every_fault({.counted = every_call(phone.host("/")),
                                .prepare = [this] { reset(); },
                                .work = [this] { return save(); },
                                .judge = [this, status_of_failure](
                                             const FaultyRun& run,
                                             const Fault& fault) { judge(run, fault, status_of_failure); }});
    }
    void judge(const FaultyRun& run, const Fault& fault, int status_of_failure) const {
        const Snapshot found = snapshot_of(folder());
        if (run.status == 1000 + SIGKILL) {
            EXPECT_EQ(fault.kind, Fault::Kind::kill);
            expect_old_or_new(found, before, after, unfinished);
        } else if (run.status == done) {
            EXPECT_EQ(found, after);
        } else {
            EXPECT_EQ(run.status, status_of_failure);
            EXPECT_EQ(found, before);
        }
    }

    Phone phone;
    Configuration theme;
    objc::strong<NSObject> kept;
    Snapshot before, after;
};

TEST_F(Saving, AThemeIsThereWholeOrNotAtAll) {
    start();
    EXPECT_GT(after.at("Saved.plist").size(), 500u);
    EXPECT_GE(try_to_save(failed_with_error), 30u);
}

TEST_F(Saving, AnOlderSystemsThemeIsThereWholeOrNotAtAll) {
    start("10.3.3");
    EXPECT_GE(try_to_save(failed), 30u);
}

TEST_F(Saving, AThemeThatExistsIsTheOldOneOrTheNewOne) {
    start();
    before["Saved.plist"] = "an older theme";
    // Where the system does not know that the file exists, it is replaced, and as a whole.
    try_to_save(failed_with_error);
    reset();
    EXPECT_EQ(save(), failed_with_error);
    EXPECT_EQ(snapshot_of(folder()), before);
}

TEST_F(Saving, AFileThatChangesMeanwhileIsNeverHalf) {
    start();
    size_t replaced = 0;
    const auto judge = [&](const FaultyRun& run, const Fault&) {
        EXPECT_TRUE(run.status == done || run.status == failed_with_error) << run.status;
        const Snapshot found = snapshot_of(folder());
        for (const auto& [path, content] : found) EXPECT_EQ(path.find(unfinished), path.npos) << path;
        if (run.status == done && found == after) ++replaced;
    };
    try_at_every_call({every_call(phone.host("/")), [&] { reset(); }, [&] { return save(); }, judge},
                      meddlings_with(file()));
    EXPECT_GT(replaced, 0u);
}

TEST_F(Saving, AFolderThatGoesMeanwhileEndsInAnError) {
    start();
    size_t failures = 0;
    const auto judge = [&](const FaultyRun& run, const Fault&) {
        EXPECT_TRUE(run.status == done || run.status == failed_with_error) << run.status;
        failures += run.status == failed_with_error;
    };
    try_at_every_call({every_call(phone.host("/")), [&] { reset(); }, [&] { return save(); }, judge},
                      meddlings_with(folder()));
    EXPECT_GT(failures, 5u);
}

TEST_F(Saving, AThemeThatChangesWhileItIsReadIsReadOrRefused) {
    start();
    before = after;
    const auto read = [] {
        NSError* error = nullptr;
        const id loaded = made<"initWithFilename:error:">("HuecraftConfig", text("Saved.plist"), &error);
        if (!loaded) return error ? failed_with_error : failed;
        return Configuration{loaded}.name() == "Saved" ? done : failed;
    };
    std::vector<Fault> faults = meddlings_with(file());
    for (const int error : every_error()) faults.push_back(Fault::failing(error));
    size_t refused = 0;
    const auto judge = [&](const FaultyRun& run, const Fault&) {
        EXPECT_TRUE(run.status == done || run.status == failed_with_error) << run.status;
        refused += run.status == failed_with_error;
    };
    try_at_every_call({every_call(phone.host("/")), [&] { reset(); }, read, judge}, faults);
    EXPECT_GT(refused, 10u);
}

TEST_F(Saving, PreferencesThatChangeWhileTheyAreReadAreOnOrOff) {
    start();
    const auto ask = [] {
        const id store = made("HCPreferences");
        return objc::send<"isEnabled", bool>(store) ? 10 : 20;
    };
    const auto arrange = [&] {
        fs::remove_all(phone.host(preference_file));
        arrange_theme(phone);
    };
    std::vector<Fault> faults = meddlings_with(phone.host(preference_file));
    for (const int error : every_error()) faults.push_back(Fault::failing(error));
    size_t off = 0;
    const auto judge = [&](const FaultyRun& run, const Fault& fault) {
        EXPECT_TRUE(run.status == 20 || run.status == 10) << run.status;
        if (fault.kind == Fault::Kind::none) EXPECT_EQ(run.status, 10);
        off += run.status == 20;
    };
    try_at_every_call({every_call(phone.host("/")), arrange, ask, judge}, faults);
    EXPECT_GT(off, 10u);
}

class RecordingFaults : public RecentColours {
  protected:
    void SetUp() override {}
    void begin(const char* system_version = nullptr) {
        start({.system_version = system_version});
        delegate = objc::strong<NSObject>(static_cast<NSObject*>(noting_delegate()));
        set_delegate(delegate);
        picker->view();
    }
    void TearDown() override { delegate = nullptr; }
    fs::path folder() const { return phone.host(recent_file).parent_path(); }
    /// The delegate is notified, whatever became of the file.
    int confirm_once() const {
        notices.clear();
        confirm("#123456");
        return notices.size() == 1 ? done : failed;
    }
    /// The default list alone can be written: what came from a file is immutable.
    size_t try_to_confirm() {
        const Snapshot before = snapshot_of(folder());
        Snapshot after;
        const fs::path file = phone.host(recent_file);
        const auto judge = [&](const FaultyRun& run, const Fault& fault) {
            const Snapshot found = snapshot_of(folder());
            if (fault.kind == Fault::Kind::none) after = found;
            const bool killed = run.status == 1000 + SIGKILL;
            EXPECT_TRUE(run.status == done || killed) << run.status;
            expect_old_or_new(found, before, after, killed ? unfinished : "");
        };
        const auto reset = [&] {
            fs::remove_all(folder());
            fs::create_directories(folder());
        };
        const size_t met =
            try_every_fault({every_call(phone.host("/")), reset, [&] { return confirm_once(); }, judge});
        EXPECT_NE(after[file.filename()].find("#123456"), std::string::npos);
        return met;
    }
    objc::strong<NSObject> delegate;
};

TEST_F(RecordingFaults, TheFileIsWholeOrAbsentAndTheDelegateHears) {
    begin();
    EXPECT_GE(try_to_confirm(), 30u);
}

TEST_F(RecordingFaults, OnAnOlderSystemToo) {
    begin("10.3.3");
    EXPECT_GE(try_to_confirm(), 30u);
}

TEST_F(RecordingFaults, AFileThatChangesWhileItIsReadGivesAList) {
    begin();
    const auto arrange = [&] {
        fs::remove_all(phone.host(recent_file));
        write_colours({"#000001", "#000002", "#000003", "#000004", "#000005", "#000006"});
    };
    const auto read = [&] {
        picker->send<"grabRecentColorData">();
        return in_memory().size() == 6 ? done : failed;
    };
    std::vector<Fault> faults = meddlings_with(phone.host(recent_file));
    for (const int error : every_error()) faults.push_back(Fault::failing(error));
    const auto judge = [](const FaultyRun& run, const Fault&) { EXPECT_EQ(run.status, done); };
    EXPECT_GT(try_at_every_call({every_call(phone.host("/")), arrange, read, judge}, faults), 10u);
}

}  // namespace
}  // namespace test

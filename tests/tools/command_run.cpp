#include "command_run.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>

#include "support/contents.h"

namespace test {

namespace fs = std::filesystem;

Command::Command() {
    auto pattern = (fs::temp_directory_path() / "huecraft-command-XXXXXX").string();
    folder_ = mkdtemp(pattern.data());
    fs::create_directory(path("work"));
    fs::create_directory(path("streams"));
    folder_ /= "work";
}

Command::~Command() { fs::remove_all(folder_.parent_path()); }

Outcome Command::run(const std::vector<std::string>& arguments, std::string_view input) const {
    // Through files: a pipe that nobody reads would stop the command.
    const fs::path streams = folder_.parent_path() / "streams";
    const std::string in = streams / "in", out = streams / "out", err = streams / "err";
    std::ofstream(in, std::ios::binary) << input;

    std::string executable = HUECRAFT_COMMAND;
    std::vector<std::string> kept = arguments;
    std::vector<char*> vector{executable.data()};
    for (std::string& argument : kept) vector.push_back(argument.data());
    vector.push_back(nullptr);

    const pid_t child = fork();
    if (child == 0) {
        const mode_t mode = 0600;
        dup2(open(in.c_str(), O_RDONLY), STDIN_FILENO);
        dup2(open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, mode), STDOUT_FILENO);
        dup2(open(err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, mode), STDERR_FILENO);
        if (chdir(folder_.c_str()) == 0) execv(executable.c_str(), vector.data());
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    EXPECT_EQ(wait4(child, &status, 0, &usage), child);
    auto seconds = [](const timeval& time) { return static_cast<double>(time.tv_sec) + time.tv_usec * 1e-6; };
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status), contents_of(out),
            contents_of(err), seconds(usage.ru_utime) + seconds(usage.ru_stime), usage.ru_maxrss};
}

void Command::write(std::string_view name, std::string_view contents) const {
    fs::create_directories(path(name).parent_path());
    std::ofstream file(path(name), std::ios::binary);
    file.write(contents.data(), static_cast<std::streamsize>(contents.size()));
    ASSERT_TRUE(file.good()) << name;
}

std::string Command::read(std::string_view name) const { return contents_of(path(name)); }

std::vector<std::string> Command::names() const {
    std::vector<std::string> found;
    for (const auto& entry : fs::directory_iterator(folder_)) found.push_back(entry.path().filename());
    std::ranges::sort(found);
    return found;
}

std::string theme_file(std::string_view entries) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>" +
           std::string(entries) + "</dict></plist>\n";
}

std::string sound_theme() {
    return theme_file(
        "<key>_ConfigName</key><string>Sound</string>"
        "<key>_TextColor</key><string>#FFFFFF</string>"
        "<key>_HighlightColor</key><string>#757575</string>"
        "<key>_BackgroundType</key><integer>1</integer>"
        "<key>_Colors</key><array><string>#000000</string></array>"
        "<key>_GradientDirection</key><integer>2</integer>"
        "<key>_Image</key><string>nil</string>");
}

size_t lines(std::string_view text) { return static_cast<size_t>(std::ranges::count(text, '\n')); }

}  // namespace test

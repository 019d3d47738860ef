// Any bytes as a file of the command's, through whole subcommands: the first byte says which. The exit status
// is 0, 1 or 2, 2 says why in one line, and nothing else gets out.
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "cli/run.h"
#include "cli/terminal.h"
#include "harness/bytes.h"
#include "harness/in_process.h"
#include "objc/exception.h"

namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

// The file is F, an output O, a folder D. What is added comes last: corpora say a number.
[[maybe_unused]] constexpr const char* reading[] = {
    "show F",
    "show --json F",
    "convert F -o O --to xml",
    "convert F -o O --to binary --json",
    "convert F -o O --to openstep",
    "edit F -o O --text gold --direction down",
    "edit F -o O --dim 0.3 --alpha 0.5 --name Night --json",
    "pack F -o O --id org.example.theme --maintainer Somebody",
    "package-check F",
    "package-check --json F",
    "doctor F",
    "doctor --json F --against 12.4",
    "import F -o O",
    "import F -o O --json",
    "edit THEME -o O --image F --fit inside",
    "edit THEME -o O --image F --blur 2 --json",
};
[[maybe_unused]] constexpr const char* drawing[] = {
    "lint F",
    "lint --json F",
    "lint --fix F",
    "new Night -o O --from-image F",
    "preview F -o O --scale 1",
    "keyboard F -o O --scale 1",
    "keyboard F -o O --scale 0.5 --state emoji --json",
    "gallery F -o O",
    "picker --script F -o D --scale 1",
    "picker --recent F --save --json",
    "picker --theme F --save",
    "pane --script F -o D --scale 1",
    "pane --photo F",
    "pane --package F --json",
};
constexpr const auto& subcommands = FUZZED_SUBCOMMANDS;

[[noreturn]] void found(const Words& arguments, const std::string& what, const std::string& said) {
    std::string line = "huecraft";
    for (const std::string& argument : arguments) line += " " + argument;
    std::fprintf(stderr, "%s: %s\n%s\n", line.c_str(), what.c_str(), said.c_str());
    std::abort();
}

/// Takes what goes to a stream of the C library's, in memory.
class Taken {
  public:
    explicit Taken(FILE*& stream) : stream_(stream), before_(stream) {
        stream = open_memstream(&bytes_, &size_);
    }
    Taken(const Taken&) = delete;
    ~Taken() {
        if (stream_ != before_) give_back();
        std::free(bytes_);
    }
    std::string give_back() {
        std::fclose(stream_);
        stream_ = before_;
        return {bytes_, size_};
    }

  private:
    FILE*& stream_;
    FILE* before_;
    char* bytes_ = nullptr;
    size_t size_ = 0;
};

fs::path folder() {
    static const fs::path made = [] {
        fs::path path = fuzz::workshop().device.parent_path() / "work";
        fs::create_directories(path);
        return path;
    }();
    return made;
}

/// The words of a line, with "F" for the file, "O" for an output and "D" for a folder.
Words arguments_of(std::string_view line) {
    Words words;
    while (!line.empty()) {
        const size_t end = std::min(line.find(' '), line.size());
        const std::string_view word = line.substr(0, end);
        const fs::path file = word == "F"       ? folder() / "file.plist"
                              : word == "O"     ? folder() / "output"
                              : word == "D"     ? folder() / "pictures"
                              : word == "THEME" ? fs::path(HUECRAFT_RESOURCES "/themes/Peach.plist")
                                                : fs::path(word);
        words.push_back(file.string());
        line.remove_prefix(std::min(end + 1, line.size()));
    }
    return words;
}

/// Of a file there is one line, and none when the status is no failure. That an output was not made has
/// another.
std::string wrong_with(const std::string& said, int status) {
    const std::string of_output = "huecraft: " + (folder() / "output").string() + ": ";
    size_t lines = 0, of_others = 0;
    std::istringstream all(said);
    for (std::string line; std::getline(all, line); ++lines) of_others += !line.starts_with(of_output);
    if (of_others > 1 || (lines > 0) != (status == 2))
        return "status " + std::to_string(status) + " with " + std::to_string(lines) + " lines";
    return "";
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return -1;
    const command::Workshop& workshop = fuzz::workshop();
    const fuzz::Pool pool;
    const Words arguments = arguments_of(subcommands[data[0] % std::size(subcommands)]);
    std::ofstream(folder() / "file.plist", std::ios::binary)
        .write(reinterpret_cast<const char*>(data) + 1, static_cast<std::streamsize>(size - 1));
    int status = -1;
    std::string said;
    id raised = nullptr;
    {
        Taken output(stdout), errors(stderr);
        raised = objc::caught([&] { status = command::run(arguments); });
        said = errors.give_back();
    }
    if (raised) found(arguments, "an exception got out", said);
    if (status < 0 || status > 2) found(arguments, "the status is " + std::to_string(status), said);
    // Not looked for in what was said: a file may say so, and is quoted.
    for (const command::Complaint& complaint : command::complaints())
        if (complaint.what.starts_with("an exception was raised")) found(arguments, complaint.what, said);
    if (const std::string wrong = wrong_with(said, status); !wrong.empty()) found(arguments, wrong, said);
    if (said.size() > 6000) found(arguments, "a long line", said);
    // A process of its own would not know what was said before.
    const_cast<std::vector<command::Complaint>&>(command::complaints()).clear();
    fs::remove(folder() / "output");
    fs::remove_all(folder() / "pictures");
    fs::remove_all(workshop.device / "tmp");
    fs::create_directory(workshop.device / "tmp");
    return 0;
}

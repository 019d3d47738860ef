// Files that the command reads and writes.
#pragma once
#include <filesystem>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "cli/status.h"

namespace command {

/// A file that cannot be used, and why, in one line.
class Unusable : public std::runtime_error {
  public:
    Unusable(std::string file, const std::string& why) : runtime_error(why), file_(std::move(file)) {}
    const std::string& file() const { return file_; }

  private:
    std::string file_;
};

/// What the system's error number means for a file, as in "cannot be read: access is denied".
std::string error_in_words(int error);

/// The most bytes that an input may have: a photo or a package.
constexpr size_t largest_input = 64 << 20;
/// A property list. A theme whose picture is no larger than the keyboard has a few hundred thousand.
constexpr size_t largest_list = 32 << 20;
/// A description of a system; those that come with the command have a hundred thousand.
constexpr size_t largest_description = 8 << 20;
/// What somebody wrote by hand: a script, a scheme, CSS.
constexpr size_t largest_text = 1 << 20;

/// The whole file; of standard input for "-". Throws Unusable, which says what it should have been.
std::string read_input(const std::string& file, const std::string& kind = "theme",
                       size_t most = largest_list);

/// Writes the whole file or nothing: beside the place first, under its name only when it is complete. "-" is
/// standard output. Throws Unusable.
void write_output(const std::string& file, const std::string& contents);

/// The same for contents that come piece by piece. What was begun and not finished leaves nothing behind.
class Output {
  public:
    explicit Output(const std::string& file);
    Output(const Output&) = delete;
    ~Output();
    void write(const std::string& part);
    void finish();

  private:
    struct Draft;
    std::string file_;
    std::unique_ptr<Draft> draft_;  // none for what is written to at once: a device, a pipe, standard output
    int direct_ = -1;
};

/// Writes a file of a phone, in place of what may be there, and not through a link. Throws Unusable.
void put(const std::filesystem::path& place, const std::string& contents);
/// Makes a file of the user's equal to one of a phone, which may be missing; what has not changed is not
/// touched. Throws Unusable.
void take_back(const std::filesystem::path& from, const std::filesystem::path& to);

/// A file that lies beside the command as it is installed, or as it is built. Throws Unusable, which calls it
/// `what`.
std::filesystem::path beside_the_command(const std::string& name, const std::string& what = "it");

/// Makes the folder, and those above it, where they are missing. Throws Unusable.
void make_folder(const std::string& folder);

/// Throws Unusable where there is no such folder.
void require_folder(const std::string& folder);
/// Throws Unusable where something else is in a folder's place. An empty name is fine.
void require_folder_or_nothing(const std::string& folder);

/// Whether all that was said reached standard output; complains where it did not.
Status end_of_output(Status status);

/// Throws Unusable when something is at the path already.
void require_absent(const std::string& file);

/// What an output is, which tells whether it may take the place of a file.
enum class OutputKind { picture, page, script, property_list, package };

/// Throws Unusable when the output would replace one of the inputs, or a file of another kind. What is no
/// regular file is written to in any case.
void require_replaceable(const std::string& output, OutputKind kind, const std::vector<std::string>& inputs);

/// Throws Unusable where this process's phone could not read or write one of its files: what it shows or
/// keeps then is not what it should be, and nothing is made of it.
void require_sound_phone();

/// Does something with a file on the phone, with a pool for the objects that it takes. Throws Unusable for
/// what is raised, and where the phone is not sound. The work has no pool of its own around it, which would
/// take the exception along.
void on_the_phone(const std::string& file, const std::function<void()>& work);

/// Does something with each file. What is unusable, or raises an exception on the phone, is complained of,
/// and the others are done all the same.
Status for_each_file(const std::vector<std::string>& files,
                     const std::function<Status(const std::string&)>& work);

}  // namespace command

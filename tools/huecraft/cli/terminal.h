// What the command says: in colour on a terminal, plain elsewhere.
#pragma once
#include <string>
#include <string_view>

namespace command {

enum class Tone { plain, strong, faint, good, warning, bad };

/// The text in the tone, where standard output is a terminal and NO_COLOR is not set.
std::string toned(Tone tone, const std::string& text);

/// A text of unknown origin in one line: control characters are escaped, and a long text is cut.
std::string one_line(std::string_view text, size_t longest = 80);

/// The same between quotation marks.
std::string in_quotes(std::string_view text);

/// "1 file", "2 files".
std::string counted(size_t number, const std::string& what);

/// One line on standard error: what is wrong with a file.
void complain(const std::string& file, const std::string& what);

/// Whether all that was said reached standard output.
bool output_is_whole();

/// A bar on standard error, if that is a terminal.
class Progress {
  public:
    Progress(std::string doing, size_t total);
    ~Progress();
    Progress(const Progress&) = delete;
    void advance_to(size_t done);

  private:
    std::string doing_;
    size_t total_;
    bool visible_;
};

}  // namespace command

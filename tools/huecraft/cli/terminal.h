// What the command says: in colour on a terminal, plain elsewhere.
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace command {

enum class Tone { plain, strong, faint, good, warning, bad };

/// The text in the tone, where standard output is a terminal and NO_COLOR is not set.
std::string toned(Tone tone, const std::string& text);

/// Two cells in the colour and a blank, where standard output is a terminal that shows colours; nothing
/// elsewhere.
std::string swatch(int red, int green, int blue);

/// A text of unknown origin in one line: control characters, and those that turn the direction of the text
/// around them, are escaped, and a long text is cut.
std::string one_line(std::string_view text, size_t longest = 80);

/// The same between quotation marks.
std::string in_quotes(std::string_view text);

/// "1 file", "2 files".
std::string counted(size_t number, const std::string& what);

std::string joined(const std::vector<std::string>& words, const std::string& glue = ", ");

/// One line on standard error: what is wrong with a file.
void complain(const std::string& file, const std::string& what);

/// What this process complained of, for an answer in JSON.
struct Complaint {
    std::string file, what;
};
const std::vector<Complaint>& complaints();

/// The answer is to be in JSON, also when all there is to say is what was complained of.
void answer_in_json();
bool answers_in_json();

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

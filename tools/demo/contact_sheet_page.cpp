#include "contact_sheet_page.h"

#include <fstream>

#include "support/phone.h"

namespace demo {

using namespace tools;
namespace {

// Of an upright screen only the lower part, where the keyboard is, is shown; the picture behind the link is
// whole.
constexpr const char* head = R"(<!DOCTYPE html>
<html lang="en">
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<meta name="color-scheme" content="light dark">
<title>Huecraft: every surface</title>
<style>
body { font: 16px/1.4 system-ui, sans-serif; margin: 2rem auto; max-width: 110rem; padding: 0 1.5rem; }
h1 { font-size: 1.6rem; }
h2 { font-size: 1.1rem; margin: 2.2rem 0 .6rem; }
.row { display: flex; flex-wrap: wrap; gap: 1rem; }
figure { margin: 0; width: 19rem; }
img { aspect-ratio: 1; border: 1px solid #8886; border-radius: .5rem; display: block; object-fit: cover;
      object-position: bottom; width: 100%; }
img.landscape { aspect-ratio: 667 / 375; }
figcaption { font-size: .9rem; margin-top: .35rem; }
</style>
<h1>Every surface, before and after</h1>
<p>The keyboard of a simulated phone, drawn with the library that ships. A click opens the whole picture.</p>
)";

}  // namespace

void write_page(const std::vector<Row>& rows, const std::filesystem::path& page) {
    std::ofstream file(page);
    file << head;
    for (const Row& row : rows) {
        file << "<h2>" << row.title << "</h2>\n<div class=\"row\">\n";
        for (const Cell& cell : row.cells) {
            const std::string link = "sheet/" + cell.picture();
            file << "<figure><a href=\"" << link << "\"><img loading=\"lazy\" src=\"" << link << "\" alt=\""
                 << row.title << ": " << cell.caption << '"'
                 << (cell.keyboard.landscape ? " class=\"landscape\"" : "") << "></a><figcaption>"
                 << cell.caption << "</figcaption></figure>\n";
        }
        file << "</div>\n";
    }
    if (!file.flush()) throw Failure("cannot write the page " + page.string());
}

}  // namespace demo

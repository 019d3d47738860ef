// Every surface of the keyboard, before and after, in one picture and on one page.
#pragma once
#include <filesystem>

namespace demo {

/// Draws every cell into `folder`/sheet, with themes made on the device, and puts them together as
/// `folder`/contact-sheet.png and `folder`/index.html.
void write_contact_sheet(const std::filesystem::path& folder, const std::filesystem::path& device,
                         const std::filesystem::path& library);

}  // namespace demo

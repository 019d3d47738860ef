#include "contact_sheet.h"

#include <algorithm>
#include <map>
#include <string>

#include "contact_sheet_page.h"
#include "contact_sheet_plan.h"
#include "objc/strong.h"
#include "support/phone.h"
#include "support/pictures.h"
#include "support/provenance.h"

namespace demo {

using namespace tools;
namespace {

namespace fs = std::filesystem;
using objc::strong;

/// A look with the different pictures that are taken of it, by their names.
struct Session {
    Look look;
    std::map<std::string, sim_keyboard> pictures;
};

std::map<std::string, Session> sessions_of(const std::vector<Row>& rows) {
    std::map<std::string, Session> sessions;
    for (const Row& row : rows)
        for (const Cell& cell : row.cells) {
            Session& session = sessions[cell.look.name];
            session.look = cell.look;
            session.pictures.emplace(cell.picture(), cell.keyboard);
        }
    return sessions;
}

void make_looks(const std::map<std::string, Session>& sessions, const fs::path& device,
                const fs::path& library) {
    in_child_process("making the contact sheet's themes", [&] {
        boot(device, settings);
        load(library);
        objc::AutoreleasePool pool;
        for (const auto& [name, session] : sessions)
            if (!name.empty()) make_theme(session.look);
    });
}

void draw(const Session& session, const fs::path& folder, const fs::path& device, const fs::path& library) {
    in_child_process("choosing the theme " + session.look.name, [&] {
        boot(device, settings);
        objc::AutoreleasePool pool;
        choose(session.look.name);
    });
    const Provenance provenance = provenance_of(library, file_of(device, session.look.name));
    in_child_process("drawing the contact sheet's " + session.look.description, [&] {
        boot(device, notes);
        load(library);
        for (const auto& [picture, keyboard] : session.pictures) {
            require(sim_show_keyboard(&keyboard), "showing the keyboard for " + picture);
            require(sim_take_picture((folder / picture).c_str(), 0), "drawing " + picture);
            tell_provenance(folder / picture, provenance);
        }
    });
}

// In pixels. Of an upright screen the sheet shows the lower part, a square; of one sideways all.
constexpr CGFloat cell_width = 360, space = 20, caption_height = 28, title_height = 48;
constexpr CGFloat landscape_height = cell_width * 375 / 667;

bool is_landscape(const Row& row) { return row.cells.front().keyboard.landscape; }
CGFloat picture_height(const Row& row) { return is_landscape(row) ? landscape_height : cell_width; }
CGFloat height_of(const Row& row) { return title_height + picture_height(row) + caption_height + space; }

template <class View>
strong<View> make_view(CGRect frame) {
    return objc::adopt(static_cast<View*>(View::alloc()->initWithFrame(frame).leak()));
}

void add_text(UIView* sheet, const std::string& text, CGRect frame, UIFont* font) {
    auto label = make_view<UILabel>(frame);
    label->setText(NSString::stringWithUTF8String(text.c_str()));
    label->setFont(font);
    label->setTextColor(UIColor::colorWithWhite(0.1, 1));
    sheet->addSubview(label);
}

void add_picture(UIView* sheet, UIImage* picture, CGRect frame) {
    auto window = make_view<UIView>(frame);
    window->layer()->setMasksToBounds(true);
    const CGSize size = picture->size();
    const CGFloat height = frame.size.width * size.height / size.width;
    auto image_view = make_view<UIImageView>({{0, frame.size.height - height}, {frame.size.width, height}});
    image_view->setImage(picture);
    window->addSubview(image_view);
    sheet->addSubview(window);
}

void add_row(UIView* sheet, const Row& row, CGFloat top, const fs::path& folder) {
    const CGFloat width = sheet->bounds().size.width - 2 * space;
    add_text(sheet, row.title, {{space, top}, {width, title_height}},
             UIFont::systemFontOfSize(22, UIFontWeightBold));
    CGFloat left = space;
    for (const Cell& cell : row.cells) {
        const CGFloat picture_top = top + title_height, bottom = picture_top + picture_height(row);
        add_picture(sheet, read_picture(folder / cell.picture()),
                    {{left, picture_top}, {cell_width, picture_height(row)}});
        add_text(sheet, cell.caption, {{left, bottom}, {cell_width, caption_height}},
                 UIFont::systemFontOfSize(17));
        left += cell_width + space;
    }
}

void put_together(const std::vector<Row>& rows, const fs::path& pictures, const fs::path& png) {
    CGSize size{0, space};
    for (const Row& row : rows) {
        size.width =
            std::max(size.width, space + static_cast<CGFloat>(row.cells.size()) * (cell_width + space));
        size.height += height_of(row);
    }
    auto sheet = make_view<UIView>({{0, 0}, size});
    sheet->setBackgroundColor(UIColor::colorWithWhite(0.9, 1));
    CGFloat top = space / 2;
    for (const Row& row : rows) {
        add_row(sheet, row, top, pictures);
        top += height_of(row);
    }
    sheet->layoutIfNeeded();
    UIGraphicsBeginImageContextWithOptions(size, true, 1);
    sheet->drawViewHierarchyInRect(sheet->bounds(), true);
    UIImage* picture = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    write_picture(picture, png);
}

}  // namespace

void write_contact_sheet(const fs::path& folder, const fs::path& device, const fs::path& library) {
    const std::vector<Row> rows = contact_sheet_rows();
    const std::map<std::string, Session> sessions = sessions_of(rows);
    const fs::path pictures = folder / "sheet";
    fs::remove_all(pictures);
    fs::create_directories(pictures);
    make_looks(sessions, device, library);
    for (const auto& [name, session] : sessions) draw(session, pictures, device, library);
    write_page(rows, folder / "index.html");
    in_child_process("drawing the contact sheet", [&] {
        boot(device, notes);
        objc::AutoreleasePool pool;
        put_together(rows, pictures, folder / "contact-sheet.png");
    });
}

}  // namespace demo

// The previews of all themes, side by side.
#include "themes_picture.h"

#include <algorithm>
#include <string>
#include <vector>

#include "model/HuecraftConfig.h"
#include "support/phone.h"
#include "support/pictures.h"
#include "support/text.h"
#include "views/HCPreview.h"

namespace resources {
namespace {

namespace fs = std::filesystem;
using namespace tools;

constexpr size_t columns = 5;
constexpr CGSize preview_size{250, 144};
constexpr CGFloat space = 16, name_height = 22;

std::vector<fs::path> theme_files(const fs::path& folder) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(folder))
        if (entry.path().extension() == ".plist") files.push_back(entry.path());
    std::ranges::sort(files);
    return files;
}

/// The preview in its own size.
UIImage* preview_of(const std::string& file_name) {
    const CGSize size = HCPreview::keyboardPortraitSize();
    HuecraftConfig* theme = HuecraftConfig::configWithFilename(text(file_name));
    if (!theme) throw Failure("the library does not load the theme " + file_name);
    UIView* preview = HCPreview::sharedInstance()->viewForConfig(theme);
    preview->setFrame({{0, 0}, size});
    UIGraphicsBeginImageContextWithOptions(size, true, 2);
    preview->drawViewHierarchyInRect({{0, 0}, size}, true);
    UIImage* image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

void draw_name(const std::string& name, CGRect frame) {
    auto label = objc::adopt(static_cast<UILabel*>(UILabel::alloc()->initWithFrame(frame).leak()));
    label->setText(text(name));
    label->setFont(UIFont::systemFontOfSize(13));
    label->setTextAlignment(NSTextAlignmentCenter);
    label->drawViewHierarchyInRect(frame, true);
}

void draw_all(const std::vector<fs::path>& files, const fs::path& picture) {
    const size_t rows = (files.size() + columns - 1) / columns;
    const CGSize cell{preview_size.width + space, preview_size.height + name_height + space};
    UIGraphicsBeginImageContextWithOptions(
        {columns * cell.width + space, static_cast<CGFloat>(rows) * cell.height + space / 2}, true, 1);
    UIColor::whiteColor()->setFill();
    UIRectFill(CGContextGetClipBoundingBox(UIGraphicsGetCurrentContext()));
    for (size_t index = 0; index < files.size(); ++index) {
        const size_t column = index % columns, row = index / columns;
        const CGPoint corner{space + static_cast<CGFloat>(column) * cell.width,
                             space + static_cast<CGFloat>(row) * cell.height};
        preview_of(files[index].filename().string())->drawInRect({corner, preview_size});
        draw_name(files[index].stem().string(),
                  {{corner.x, corner.y + preview_size.height}, {preview_size.width, name_height}});
    }
    UIImage* image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    write_picture(image, picture);
}

}  // namespace

void draw_themes_picture(const fs::path& phone, const fs::path& folder) {
    const std::vector<fs::path> files = theme_files(folder / "themes");
    const fs::path bundles = phone / "Library/PreferenceBundles";
    fs::create_directories(bundles);
    fs::copy(folder / "Huecraft.bundle", bundles / "Huecraft.bundle", fs::copy_options::recursive);
    for (const fs::path& file : files)
        fs::copy(file, phone / "var/mobile/Library/Preferences/HuecraftConfiguration");
    in_child_process("drawing themes.png", [&] {
        boot(phone, settings);
        load(HUECRAFT_LIBRARY);
        objc::AutoreleasePool pool;
        draw_all(files, folder / "themes.png");
    });
}

}  // namespace resources

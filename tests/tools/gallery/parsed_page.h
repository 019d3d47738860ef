// A gallery's page, parsed as strictly as XML, and its pictures, decoded.
#pragma once
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

struct _xmlDoc;

namespace test {

struct Pixels {
    int width = 0, height = 0;
    std::vector<unsigned> pixels;  // 0xRRGGBB

    unsigned at(int x, int y) const { return pixels.at(static_cast<size_t>(y * width + x)); }
    /// The lower rows.
    Pixels lowest(int rows) const;
};

/// Of a component of 0 to 255, on average.
double difference(const Pixels& a, const Pixels& b);

/// Of PNG or WebP.
Pixels decoded_picture(const std::string& file);

struct ShownTheme {
    std::string name, alt, media_type, picture, digest;
    double colour = 0, contrast = 0;
    /// "labels #FFFFFF"
    std::vector<std::string> colours;
    std::string download_name, href;
    /// What it takes on the page.
    size_t bytes = 0;

    /// What the link holds, for one that holds the file.
    std::string downloaded() const;
};

class GalleryPage {
  public:
    explicit GalleryPage(std::string html);

    const std::vector<ShownTheme>& themes() const& { return themes_; }
    std::vector<ShownTheme> themes() && { return std::move(themes_); }
    /// The texts, or the attribute's values, that an XPath expression finds.
    std::vector<std::string> found(const std::string& path) const;
    bool has(const std::string& path) const { return !found(path).empty(); }
    /// The value of a variable of the style's: of the light page, and of the two places for the dark one.
    std::vector<std::string> style_values(const std::string& variable) const;

  private:
    std::string html_;
    std::shared_ptr<_xmlDoc> document_;
    std::vector<ShownTheme> themes_;
};

}  // namespace test

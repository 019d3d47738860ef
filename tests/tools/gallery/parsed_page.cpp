// A gallery's page, parsed, and its pictures, decoded.
#include "gallery/parsed_page.h"

#include <cairo.h>
#include <gtest/gtest.h>
#include <libxml/parser.h>
#include <libxml/xpath.h>
#include <webp/decode.h>

#include <cmath>
#include <cstring>

#include "png.h"
#include "support/base64.h"

namespace test {

Pixels Pixels::lowest(int rows) const {
    return {width, rows, {pixels.end() - static_cast<ptrdiff_t>(rows) * width, pixels.end()}};
}

double difference(const Pixels& a, const Pixels& b) {
    EXPECT_EQ(a.width, b.width);
    EXPECT_EQ(a.height, b.height);
    if (a.pixels.size() != b.pixels.size() || a.pixels.empty()) return 255;
    double sum = 0;
    for (size_t i = 0; i < a.pixels.size(); ++i)
        for (int shift : {0, 8, 16})
            sum += std::abs(static_cast<int>(a.pixels[i] >> shift & 255) -
                            static_cast<int>(b.pixels[i] >> shift & 255));
    return sum / (3 * static_cast<double>(a.pixels.size()));
}

Pixels decoded_picture(const std::string& file) {
    Pixels picture;
    if (file.starts_with("RIFF")) {
        const auto* bytes = reinterpret_cast<const uint8_t*>(file.data());
        uint8_t* rgb = WebPDecodeRGB(bytes, file.size(), &picture.width, &picture.height);
        EXPECT_TRUE(rgb) << "a WebP picture";
        for (int i = 0; rgb && i < picture.width * picture.height; ++i)
            picture.pixels.push_back(
                static_cast<unsigned>(rgb[3 * i] << 16 | rgb[3 * i + 1] << 8 | rgb[3 * i + 2]));
        WebPFree(rgb);
        return picture;
    }
    struct Rest {
        const char* bytes;
        size_t length;
    } rest{file.data(), file.size()};
    cairo_surface_t* surface = cairo_image_surface_create_from_png_stream(
        [](void* closure, unsigned char* data, unsigned length) {
            auto& left = *static_cast<Rest*>(closure);
            if (length > left.length) return CAIRO_STATUS_READ_ERROR;
            std::memcpy(data, left.bytes, length);
            left.bytes += length;
            left.length -= length;
            return CAIRO_STATUS_SUCCESS;
        },
        &rest);
    EXPECT_EQ(cairo_surface_status(surface), CAIRO_STATUS_SUCCESS);
    picture.width = cairo_image_surface_get_width(surface);
    picture.height = cairo_image_surface_get_height(surface);
    const unsigned char* data = cairo_image_surface_get_data(surface);
    const int stride = cairo_image_surface_get_stride(surface);
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x)
            picture.pixels.push_back(*reinterpret_cast<const unsigned*>(data + y * stride + 4 * x) &
                                     0xffffff);
    cairo_surface_destroy(surface);
    return picture;
}

namespace {

/// What follows the mark.
std::string after(const std::string& text, const std::string& mark) {
    const size_t at = text.find(mark);
    return at == text.npos ? "" : text.substr(at + mark.size());
}

std::string only(const std::vector<std::string>& found) { return found.size() == 1 ? found[0] : ""; }

double number(const std::string& text) {
    EXPECT_FALSE(text.empty());
    return std::strtod(text.c_str(), nullptr);
}

}  // namespace

std::string ShownTheme::downloaded() const { return from_base64(after(href, ";base64,")); }

GalleryPage::GalleryPage(std::string html) : html_(std::move(html)) {
    document_.reset(xmlReadMemory(html_.data(), static_cast<int>(html_.size()), "page", "UTF-8",
                                  XML_PARSE_NONET | XML_PARSE_HUGE),
                    xmlFreeDoc);
    EXPECT_TRUE(document_) << "the page is well-formed";
    if (!document_) return;
    const size_t count = found("/html/body/main/article").size();
    size_t at = 0;
    for (size_t i = 1; i <= count; ++i) {
        const std::string theme = "/html/body/main/article[" + std::to_string(i) + "]";
        ShownTheme shown;
        shown.name = only(found(theme + "/h2"));
        shown.alt = only(found(theme + "/img/@alt"));
        const std::string source = only(found(theme + "/img/@src"));
        shown.media_type = after(source.substr(0, source.find(';')), "data:");
        shown.picture = from_base64(after(source, ";base64,"));
        shown.digest = only(found(theme + "/@data-theme-sha256"));
        shown.colour = number(only(found(theme + "/@data-colour")));
        shown.contrast = number(only(found(theme + "/@data-contrast")));
        shown.colours = found(theme + "/ul/li");
        shown.download_name = only(found(theme + "/p/a/@download"));
        shown.href = only(found(theme + "/p/a/@href"));
        const size_t begin = html_.find("<article", at);
        at = html_.find("</article>\n", begin) + 11;
        shown.bytes = at - begin;
        themes_.push_back(std::move(shown));
    }
}

std::vector<std::string> GalleryPage::found(const std::string& path) const {
    std::vector<std::string> texts;
    if (!document_) return texts;
    xmlXPathContext* context = xmlXPathNewContext(document_.get());
    xmlXPathObject* result = xmlXPathEvalExpression(reinterpret_cast<const xmlChar*>(path.c_str()), context);
    EXPECT_TRUE(result) << path;
    if (result && result->nodesetval)
        for (int i = 0; i < result->nodesetval->nodeNr; ++i) {
            xmlChar* text = xmlNodeGetContent(result->nodesetval->nodeTab[i]);
            texts.emplace_back(reinterpret_cast<const char*>(text));
            xmlFree(text);
        }
    xmlXPathFreeObject(result);
    xmlXPathFreeContext(context);
    return texts;
}

std::vector<std::string> GalleryPage::style_values(const std::string& variable) const {
    const std::string style = only(found("/html/head/style")), mark = variable + ": ";
    std::vector<std::string> values;
    for (size_t at = 0; (at = style.find(mark, at)) != style.npos;) {
        at += mark.size();
        values.push_back(style.substr(at, style.find(';', at) - at));
    }
    return values;
}

}  // namespace test

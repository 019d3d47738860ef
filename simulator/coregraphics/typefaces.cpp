#include "coregraphics/typefaces.h"

#include <fontconfig/fontconfig.h>
#include <pango/pangofc-fontmap.h>

#include <cmath>
#include <map>
#include <span>

#include "runtime/not_modelled.h"

namespace sim {
namespace {

constexpr const char* inter_folder = "/usr/share/fonts/opentype/inter/";
constexpr const char* emoji_folder = "/usr/share/fonts/truetype/noto/";
constexpr const char* fallback_file = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

constexpr Typeface text_faces[] = {
    {".SFUIText-Ultralight", -0.8, "Inter-Thin.otf", "Inter", PANGO_WEIGHT_THIN},
    {".SFUIText-Thin", -0.6, "Inter-ExtraLight.otf", "Inter", PANGO_WEIGHT_ULTRALIGHT},
    {".SFUIText-Light", -0.4, "Inter-Light.otf", "Inter", PANGO_WEIGHT_LIGHT},
    {".SFUIText", 0, "Inter-Regular.otf", "Inter", PANGO_WEIGHT_NORMAL},
    {".SFUIText-Medium", 0.23, "Inter-Medium.otf", "Inter", PANGO_WEIGHT_MEDIUM},
    {".SFUIText-Semibold", 0.3, "Inter-SemiBold.otf", "Inter", PANGO_WEIGHT_SEMIBOLD},
    {".SFUIText-Bold", 0.4, "Inter-Bold.otf", "Inter", PANGO_WEIGHT_BOLD},
    {".SFUIText-Heavy", 0.56, "Inter-ExtraBold.otf", "Inter", PANGO_WEIGHT_ULTRABOLD},
    {".SFUIText-Black", 0.62, "Inter-Black.otf", "Inter", PANGO_WEIGHT_HEAVY},
};
constexpr Typeface display_faces[] = {
    {".SFUIDisplay-Ultralight", -0.8, "InterDisplay-Thin.otf", "Inter Display", PANGO_WEIGHT_THIN},
    {".SFUIDisplay-Thin", -0.6, "InterDisplay-ExtraLight.otf", "Inter Display", PANGO_WEIGHT_ULTRALIGHT},
    {".SFUIDisplay-Light", -0.4, "InterDisplay-Light.otf", "Inter Display", PANGO_WEIGHT_LIGHT},
    {".SFUIDisplay", 0, "InterDisplay-Regular.otf", "Inter Display", PANGO_WEIGHT_NORMAL},
    {".SFUIDisplay-Medium", 0.23, "InterDisplay-Medium.otf", "Inter Display", PANGO_WEIGHT_MEDIUM},
    {".SFUIDisplay-Semibold", 0.3, "InterDisplay-SemiBold.otf", "Inter Display", PANGO_WEIGHT_SEMIBOLD},
    {".SFUIDisplay-Bold", 0.4, "InterDisplay-Bold.otf", "Inter Display", PANGO_WEIGHT_BOLD},
    {".SFUIDisplay-Heavy", 0.56, "InterDisplay-ExtraBold.otf", "Inter Display", PANGO_WEIGHT_ULTRABOLD},
    {".SFUIDisplay-Black", 0.62, "InterDisplay-Black.otf", "Inter Display", PANGO_WEIGHT_HEAVY},
};
constexpr Typeface emoji_face{"AppleColorEmoji", 0, "NotoColorEmoji.ttf", "Noto Color Emoji",
                              PANGO_WEIGHT_NORMAL};

/// The emoji are bitmaps of one size: without this rule they would be drawn in that.
constexpr const char* scaled_bitmaps = R"(<fontconfig><match target="font">
  <test name="outline" compare="eq"><bool>false</bool></test>
  <edit name="pixelsizefixupfactor" mode="assign">
    <divide><name target="pattern">pixelsize</name><name target="font">pixelsize</name></divide>
  </edit>
  <edit name="matrix" mode="assign">
    <times><name>matrix</name><matrix>
      <name>pixelsizefixupfactor</name><double>0</double><double>0</double><name>pixelsizefixupfactor</name>
    </matrix></times>
  </edit>
</match></fontconfig>)";

/// With the first font map Pango has fontconfig read the machine's configuration, some fifty files, unless
/// one is set.
void keep_machine_fonts_unread() {
    static const bool is_set = [] {
        FcConfig* nothing = FcConfigCreate();
        const bool set = FcConfigSetCurrent(nothing);
        FcConfigDestroy(nothing);
        return set;
    }();
    (void)is_set;
}

/// What fontconfig knows of the fallback once it has read which characters it has: null where it is missing.
FcPattern* fallback() {
    static FcPattern* const known = [] {
        int faces = 0;
        return FcFreeTypeQuery(reinterpret_cast<const FcChar8*>(fallback_file), 0, nullptr, &faces);
    }();
    return known;
}

PangoContext* new_context(const Typeface& face) {
    keep_machine_fonts_unread();
    const bool is_emoji = &face == &emoji_face;
    FcConfig* files = FcConfigCreate();
    const std::string file = std::string(is_emoji ? emoji_folder : inter_folder) + face.file;
    if (!FcConfigAppFontAddFile(files, reinterpret_cast<const FcChar8*>(file.c_str())))
        not_modelled("UIFont", file + " cannot be read: is its package installed?");
    // The fallback, which may be missing, has black forms of some emoji and would be preferred.
    if (is_emoji)
        FcConfigParseAndLoadFromMemory(files, reinterpret_cast<const FcChar8*>(scaled_bitmaps), FcTrue);
    else if (FcPattern* known = fallback()) {
        FcPatternReference(known);
        FcFontSetAdd(FcConfigGetFonts(files, FcSetApplication), known);
    }

    PangoFontMap* map = pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT);
    pango_fc_font_map_set_config(PANGO_FC_FONT_MAP(map), files);
    FcConfigDestroy(files);
    PangoContext* context = pango_font_map_create_context(map);
    g_object_unref(map);

    // No hinting, so that shapes and widths depend neither on the scale nor on the machine.
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    pango_cairo_context_set_font_options(context, options);
    cairo_font_options_destroy(options);
    pango_context_set_round_glyph_positions(context, FALSE);
    pango_context_set_language(context, pango_language_from_string("en"));
    return context;
}

}  // namespace

const Typeface& system_typeface(double weight, double size) {
    const auto& faces = size < 20 ? text_faces : display_faces;
    const Typeface* nearest = &faces[0];
    for (const Typeface& face : faces)
        if (std::abs(face.weight - weight) < std::abs(nearest->weight - weight)) nearest = &face;
    return *nearest;
}

const Typeface* typeface_named(std::string_view font_name) {
    using Faces = std::span<const Typeface>;
    for (Faces faces : {Faces(text_faces), Faces(display_faces), Faces(&emoji_face, 1)})
        for (const Typeface& face : faces)
            if (face.font_name == font_name) return &face;
    return nullptr;
}

PangoContext* context_of(const Typeface& face) {
    static auto& contexts = *new std::map<const Typeface*, PangoContext*>;
    PangoContext*& context = contexts[&face];
    if (!context) context = new_context(face);
    return context;
}

}  // namespace sim

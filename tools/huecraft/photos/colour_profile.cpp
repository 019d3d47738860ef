#include "photos/colour_profile.h"

#include <lcms2.h>

#include <memory>

#include "cli/terminal.h"

namespace command {
namespace {

using Profile = std::unique_ptr<void, cmsBool (*)(void*)>;

std::string name_of(cmsHPROFILE profile) {
    char name[200] = {};
    cmsGetProfileInfoASCII(profile, cmsInfoDescription, "en", "US", name, sizeof name - 1);
    return one_line(name);
}

/// Inks without a profile: each lets through what it does not cover.
void mix_inks(Picture& picture) {
    for (size_t i = 0; i < picture.pixels.size(); i += 4) {
        uint8_t* pixel = &picture.pixels[i];
        const int paper = 255 - pixel[3];
        for (int c = 0; c < 3; ++c) pixel[c] = static_cast<uint8_t>((255 - pixel[c]) * paper / 255);
        pixel[3] = 255;
    }
}

}  // namespace

std::string convert_to_srgb(Decoded& decoded) {
    const bool inks = decoded.inks == Decoded::Inks::cmyk;
    Picture& picture = decoded.picture;
    const Profile source(decoded.profile.empty()
                             ? nullptr
                             : cmsOpenProfileFromMem(decoded.profile.data(),
                                                     static_cast<cmsUInt32Number>(decoded.profile.size())),
                         cmsCloseProfile);
    const auto expected = inks ? cmsSigCmykData : cmsSigRgbData;
    // A profile of another kind, as a grey one of a grey picture, says little about the colours here.
    if (!source || cmsGetColorSpace(source.get()) != expected) {
        if (inks) mix_inks(picture);
        return inks ? "CMYK without a profile" : "";
    }
    std::string name = name_of(source.get());
    if (name.find("sRGB") != name.npos) return "";
    const Profile srgb(cmsCreate_sRGBProfile(), cmsCloseProfile);
    const std::unique_ptr<void, void (*)(void*)> transform(
        cmsCreateTransform(source.get(), inks ? TYPE_CMYK_8 : TYPE_RGBA_8, srgb.get(), TYPE_RGBA_8,
                           INTENT_PERCEPTUAL, inks ? 0 : cmsFLAGS_COPY_ALPHA),
        cmsDeleteTransform);
    if (!transform) {
        if (inks) mix_inks(picture);
        return "";
    }
    cmsDoTransform(transform.get(), picture.pixels.data(), picture.pixels.data(),
                   static_cast<cmsUInt32Number>(picture.width * picture.height));
    if (inks)
        for (size_t i = 3; i < picture.pixels.size(); i += 4) picture.pixels[i] = 255;
    return name;
}

}  // namespace command

// Any bytes as CSS: a gradient in it, and a colour.
#include "formats/imported.h"
#include "harness/text_inputs.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::read_or_refuse<command::NotImportable>(data, size, [](const std::string& css) {
        if (const auto colour = command::colour_in_words(css))
            for (double part : {colour->red, colour->green, colour->blue, colour->alpha})
                EXPECT_TRUE(part >= 0 && part <= 1) << css;
        const command::Imported theme = command::import_css_gradient(command::without_css_comments(css));
        EXPECT_GE(theme.colours.size(), 2u);
        EXPECT_TRUE(theme.direction >= 1 && theme.direction <= 8) << theme.direction;
    });
    return 0;
}

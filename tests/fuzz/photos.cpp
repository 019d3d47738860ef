// Any bytes as a photo: decoded, made the keyboard's, and stored as a theme stores it.
#include "harness/text_inputs.h"
#include "photos/decoding.h"
#include "photos/photo.h"
#include "photos/picture_limits.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::read_or_refuse(data, size, [](const std::string& bytes) {
        command::orientation_in_exif(bytes);
        // What is large is refused by its size or takes its time; the pictures here are small.
        if (command::announced_pixels(bytes) > 256 * 256) return;
        const command::PreparedPhoto photo = command::prepare_photo(bytes, "photo", {});
        EXPECT_GT(photo.picture.width * photo.picture.height, 0u);
        EXPECT_LE(photo.picture.width, command::largest_width);
        EXPECT_LE(photo.picture.height, command::largest_height);
        EXPECT_EQ(photo.picture.pixels.size(), photo.picture.width * photo.picture.height * 4);
        EXPECT_FALSE(command::stored_picture(photo.picture).bytes.empty());
    });
    return 0;
}

#include "support/pictures.h"

#include <fstream>
#include <iterator>
#include <string>

#include "support/phone.h"

namespace tools {

UIImage* read_picture(const std::filesystem::path& png) {
    std::ifstream file(png, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    NSData* data = NSData::class_send<"dataWithBytes:length:", NSData*>(
        static_cast<const void*>(bytes.data()), NSUInteger{bytes.size()});
    UIImage* image = UIImage::imageWithData(data);
    if (!image) throw Failure("cannot read the picture " + png.string());
    return image;
}

void write_picture(UIImage* picture, const std::filesystem::path& png) {
    NSData* data = UIImagePNGRepresentation(picture);
    std::ofstream file(png, std::ios::binary);
    if (!file.write(static_cast<const char*>(data->bytes()), static_cast<std::streamsize>(data->length()))
             .flush())
        throw Failure("cannot write the picture " + png.string());
}

}  // namespace tools

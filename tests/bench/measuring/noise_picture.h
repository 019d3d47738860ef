// Pictures that do not compress.
#pragma once
#include <cstddef>
#include <string>

namespace bench {

/// The bytes of a PNG of about that size, of random pixels, three wide to two high. The same each time.
std::string noise_picture(size_t bytes);

}  // namespace bench

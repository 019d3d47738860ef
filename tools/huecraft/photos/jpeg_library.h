// The JPEG library's header, which needs two others and includes neither.
#pragma once
// clang-format off
#include <cstddef>
#include <cstdio>
#include <jpeglib.h>
// clang-format on

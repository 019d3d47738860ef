#include "uikit/image_orientation.h"

#include <iterator>

#include "runtime/not_modelled.h"

namespace sim {
namespace {

struct Row {
    int exif;
    CGAffineTransform upright;
};

// By UIKit's numbers: up, down, left, right, and the same mirrored.
constexpr Row rows[] = {
    {1, {1, 0, 0, 1, 0, 0}},  {3, {-1, 0, 0, -1, 1, 1}}, {8, {0, -1, 1, 0, 0, 1}}, {6, {0, 1, -1, 0, 1, 0}},
    {2, {-1, 0, 0, 1, 1, 0}}, {4, {1, 0, 0, -1, 0, 1}},  {5, {0, 1, 1, 0, 0, 0}},  {7, {0, -1, -1, 0, 1, 1}},
};
constexpr UIImageOrientation count = std::size(rows);

const Row& row_of(UIImageOrientation orientation) {
    if (orientation < 0 || orientation >= count)
        not_modelled("UIImage", "imageOrientation", "a number above 7");
    return rows[orientation];
}

}  // namespace

UIImageOrientation orientation_of_exif(int number) {
    for (UIImageOrientation orientation = 0; orientation < count; ++orientation)
        if (rows[orientation].exif == number) return orientation;
    return UIImageOrientationUp;
}

bool is_turned_sideways(UIImageOrientation orientation) { return row_of(orientation).upright.a == 0; }

CGAffineTransform upright(UIImageOrientation orientation) { return row_of(orientation).upright; }

}  // namespace sim

#include "views/gradient_direction.h"

namespace {

constexpr CGPoint left{0.0, 0.5}, top{0.5, 0.0}, right{1.0, 0.5}, bottom{0.5, 1.0};
constexpr CGPoint top_left{0.0, 0.0}, top_right{1.0, 0.0}, bottom_left{0.0, 1.0}, bottom_right{1.0, 1.0};

constexpr GradientPoints top_to_bottom{top, bottom};

constexpr GradientPoints directions[] = {
    {bottom, top},             // 1
    top_to_bottom,             // 2
    {right, left},             // 3
    {left, right},             // 4
    {bottom_right, top_left},  // 5
    {bottom_left, top_right},  // 6
    {top_right, bottom_left},  // 7
    {top_left, bottom_right},  // 8
};

}  // namespace

GradientPoints points_of_direction(NSInteger direction) {
    if (direction < 1 || direction > 8) return top_to_bottom;
    return directions[direction - 1];
}

#pragma GCC visibility push(default)
constexpr CGPoint kGradientLeft = left, kHCGradientLeft = left;
constexpr CGPoint kGradientTop = top, kHCGradientTop = top;
constexpr CGPoint kGradientRight = right, kHCGradientRight = right;
constexpr CGPoint kGradientBottom = bottom, kHCGradientBottom = bottom;
constexpr CGPoint kGradientTopLeft = top_left, kHCGradientTopLeft = top_left;
constexpr CGPoint kGradientTopRight = top_right, kHCGradientTopRight = top_right;
constexpr CGPoint kGradientBottomLeft = bottom_left, kHCGradientBottomLeft = bottom_left;
constexpr CGPoint kGradientBottomRight = bottom_right, kHCGradientBottomRight = bottom_right;
#pragma GCC visibility pop

#include "themes/picture_colours.h"

#include <algorithm>
#include <cmath>

#include "themes/oklab.h"

namespace command {
namespace {

struct Group {
    Oklab middle;
    size_t members = 0;
};

/// k-means, begun at colours spread over the lightnesses, so that the same picture has the same groups.
std::vector<Group> groups_of(std::vector<Oklab> colours) {
    constexpr size_t count = 6, rounds = 12;
    std::ranges::sort(colours, {}, &Oklab::lightness);
    std::vector<Group> groups;
    for (size_t i = 0; i < count; ++i)
        groups.push_back({colours[(2 * i + 1) * colours.size() / (2 * count)]});
    for (size_t round = 0; round < rounds; ++round) {
        std::vector<Group> sums(count);
        for (const Oklab& colour : colours) {
            const auto nearest = std::ranges::min_element(
                groups, {}, [&](const Group& group) { return distance(group.middle, colour); });
            Group& sum = sums[static_cast<size_t>(nearest - groups.begin())];
            sum.middle = {sum.middle.lightness + colour.lightness, sum.middle.a + colour.a,
                          sum.middle.b + colour.b};
            ++sum.members;
        }
        for (size_t i = 0; i < count; ++i) {
            groups[i].members = sums[i].members;
            if (sums[i].members == 0) continue;
            const auto members = static_cast<double>(sums[i].members);
            groups[i].middle = {sums[i].middle.lightness / members, sums[i].middle.a / members,
                                sums[i].middle.b / members};
        }
    }
    // A group of a few stray pixels is not a colour of the picture.
    std::erase_if(groups, [&](const Group& group) { return group.members * 200 < colours.size(); });
    return groups;
}

}  // namespace

Pair colours_of_picture(const Picture& picture) {
    constexpr size_t width = 96, height = 62;
    const Picture small =
        scaled(picture, {0, 0, static_cast<double>(picture.width), static_cast<double>(picture.height)},
               width, height);
    std::vector<Oklab> colours;
    double lightness = 0;
    for (size_t i = 0; i < small.pixels.size(); i += 4) {
        const uint8_t* pixel = &small.pixels[i];
        colours.push_back(oklab_of({pixel[0] / 255.0, pixel[1] / 255.0, pixel[2] / 255.0, 1}));
        lightness += colours.back().lightness / (width * height);
    }
    const std::vector<Group> groups = groups_of(std::move(colours));
    const auto highlight = std::ranges::max_element(
        groups, {}, [](const Group& group) { return std::hypot(group.middle.a, group.middle.b); });
    const auto label = std::ranges::max_element(groups, {}, [&](const Group& group) {
        return &group == &*highlight ? -1 : std::abs(group.middle.lightness - lightness);
    });
    return {colour_of(label->middle), colour_of(highlight->middle)};
}

}  // namespace command

// The exported gradient points.
#include "support/phone.h"

namespace test {
namespace {

struct NamedPoint {
    const char* name;
    CGPoint point;
    friend void PrintTo(const NamedPoint& named, std::ostream* out) { *out << named.name; }
};

class GradientPoints : public testing::TestWithParam<NamedPoint> {};

TEST_P(GradientPoints, IsExportedUnderBothNames) {
    Phone phone;
    phone.start();
    for (const char* prefix : {"kGradient", "kHCGradient"}) {
        const std::string name = std::string(prefix) + GetParam().name;
        void* address = nullptr;
        ASSERT_EQ(sim_symbol(phone.loaded_library(), name.c_str(), &address), SIM_OK) << sim_last_error();
        EXPECT_EQ(*static_cast<const CGPoint*>(address), GetParam().point) << name;
    }
}

INSTANTIATE_TEST_SUITE_P(Exported, GradientPoints,
                         testing::Values(NamedPoint{"Left", {0.0, 0.5}}, NamedPoint{"Top", {0.5, 0.0}},
                                         NamedPoint{"Right", {1.0, 0.5}}, NamedPoint{"Bottom", {0.5, 1.0}},
                                         NamedPoint{"TopLeft", {0.0, 0.0}},
                                         NamedPoint{"TopRight", {1.0, 0.0}},
                                         NamedPoint{"BottomLeft", {0.0, 1.0}},
                                         NamedPoint{"BottomRight", {1.0, 1.0}}),
                         [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace test

#include "client.h"

#include "picture.h"

namespace test {

void Client::SetUp() {
    const auto bundle = phone.host("/Library/PreferenceBundles/Huecraft.bundle");
    std::filesystem::create_directories(bundle);
    std::filesystem::copy(
        PREFERENCE_BUNDLE, bundle,
        std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing);
    phone.make_folder(theme_folder);
    phone.start();
    ASSERT_EQ(sim_load(CLIENT_IMAGE, &pane), SIM_OK) << sim_last_error();
}

void Client::present(id controller) {
    ASSERT_EQ(sim_present(controller), SIM_OK) << sim_last_error();
    ASSERT_EQ(sim_advance_clock(2), SIM_OK) << sim_last_error();
}

id Client::presented() {
    void* controller = nullptr;
    EXPECT_EQ(sim_presented(&controller), SIM_OK) << sim_last_error();
    return static_cast<id>(controller);
}

void Client::expect_picture(const std::string& name) const {
    const auto png = phone.host("/screen.png");
    ASSERT_EQ(sim_take_picture(png.c_str(), 2), SIM_OK) << sim_last_error();
    EXPECT_TRUE(looks_as_expected(png, name, "client."));
}

}  // namespace test

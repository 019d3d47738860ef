// The client's panel: its content, its colours, its answers.
#include "client.h"
#include "platform/controls.h"
#include "settings/settings.h"

namespace test {
namespace {

class ClientPanel : public Client {
  protected:
    void SetUp() override {
        Client::SetUp();
        objc::AutoreleasePool pool;  // nothing but this test holds the owner
        owner = objc::adopt(objc::send<"new", NSObject*>(class_named("PanePanelOwner")));
        panel = ask<"panel", UIView*>(owner);
        ASSERT_EQ(sim_show_view(panel), SIM_OK) << sim_last_error();
    }
    UIView* button(bool select) const {
        return select ? ask<"selectButton", UIView*>(panel) : ask<"closeButton", UIView*>(panel);
    }
    NSUInteger closed() const { return ask<"closed", NSUInteger>(owner); }
    NSUInteger selected() const { return ask<"selected", NSUInteger>(owner); }

    objc::strong<NSObject> owner;
    UIView* panel = nullptr;
};

TEST_F(ClientPanel, ItsButtonsReachTheOwner) {
    tap(button(true));
    EXPECT_EQ(selected(), 1u);
    EXPECT_EQ(closed(), 0u);
    tap(button(false));
    EXPECT_EQ(closed(), 1u);
}

TEST_F(ClientPanel, IsAsItsOptionsSay) {
    id options = ask<"modalOptions">(panel);
    EXPECT_EQ((ask<"modalFrame", CGRect>(options)), (CGRect{{20, 111}, {335, 445}}));
    EXPECT_EQ((ask<"cornerRadius", double>(options)), 24);
    EXPECT_TRUE((ask<"lightUI", bool>(options)));
    EXPECT_EQ(ask<"delegate">(options), owner);
    EXPECT_EQ(utf8(ask<"selectButtonTitle">(options)), "APPLY");
}

TEST_F(ClientPanel, ItsStepOfPaintingIsTheSubclasses) {
    EXPECT_EQ((ask<"paints", NSUInteger>(panel)), 1u);
    EXPECT_EQ(hex(ask<"panelView", UIView*>(panel)->layer()->backgroundColor()), "#FFF4E0");
    EXPECT_EQ(hex(button(true)->backgroundColor()), "#803010");
}

TEST_F(ClientPanel, WhatTheClientPutsInFillsTheContent) {
    auto* content = ask<"contentView", UIView*>(panel);
    const auto inside = subviews_of(content);
    ASSERT_EQ(inside.size(), 1u);
    EXPECT_EQ(static_cast<UIView*>(inside[0])->frame(), (CGRect{{0, 0}, {305, 300}}));
}

TEST_F(ClientPanel, OutlivesItsOwner) {
    owner = nullptr;
    EXPECT_EQ(ask<"delegate">(ask<"modalOptions">(panel)), nullptr) << "the screen holds the panel";
    tap(button(true));
}

TEST_F(ClientPanel, LooksLikeTheClients) { expect_picture("client-panel"); }

}  // namespace
}  // namespace test

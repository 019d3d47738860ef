// The protocols of the panel's and the picker's delegates, as the runtime knows them.
#include <algorithm>

#include "objc/protocol_registered.h"
#include "support/phone.h"

namespace test {
namespace {

class Delegates : public testing::Test {
  protected:
    void SetUp() override { phone.start(); }
    /// "selector types" of the protocol's instance methods, sorted.
    static std::vector<std::string> methods(const char* protocol, bool required) {
        id found = objc_getProtocol(protocol);
        EXPECT_NE(found, nullptr);
        unsigned count = 0;
        objc_method_description* list = protocol_copyMethodDescriptionList(found, required, true, &count);
        std::vector<std::string> lines;
        for (unsigned i = 0; i < count; ++i)
            lines.push_back(std::string(sel_getName(list[i].name)) + " " + list[i].types);
        std::free(list);
        std::sort(lines.begin(), lines.end());
        return lines;
    }
    using Lines = std::vector<std::string>;
    Phone phone;
};

TEST_F(Delegates, ThePanelsRequiresBothButtons) {
    EXPECT_EQ(methods("HCModalDelegate", true),
              (Lines{"closeButtonPressed v16@0:8", "selectButtonPressed v16@0:8"}));
    EXPECT_EQ(methods("HCModalDelegate", false), Lines{});
}

TEST_F(Delegates, ThePickersMayHearOfTheColour) {
    EXPECT_EQ(methods("HCColorPickerDelegate", false),
              Lines{"colorPickerReturnedWithColor:andHexString: v32@0:8@16@24"});
    EXPECT_EQ(methods("HCColorPickerDelegate", true), Lines{});
}

TEST_F(Delegates, ThePickerIsThePanels) {
    EXPECT_TRUE(class_conformsToProtocol(objc_getClass("HCColorPickerController"),
                                         objc_getProtocol("HCModalDelegate")));
}

}  // namespace
}  // namespace test

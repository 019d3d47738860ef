// What the pane takes the library's classes for, against those that are loaded.
#include <map>
#include <regex>

#include "objc/descriptions/passed_types.h"
#include "support/contents.h"
#include "support/phone.h"

namespace test {
namespace {

/// An operation of pane/huecraft.h.
struct Declared {
    std::string owner, selector, types;
    bool on_class = false;
};

/// As an encoding; "?" for one that this test does not know.
std::string encoded(std::string type) {
    type = std::regex_replace(type, std::regex(R"(^\s+|\s+$|const )"), "");
    if (type.ends_with("*") || type.starts_with("objc::strong<")) return "@";
    static const std::map<std::string, std::string> known{{"", "v"},
                                                          {"void", "v"},
                                                          {"id", "@"},
                                                          {"bool", "B"},
                                                          {"double", "d"},
                                                          {"CGFloat", "d"},
                                                          {"float", "f"},
                                                          {"NSUInteger", "Q"},
                                                          {"NSInteger", "q"},
                                                          {"SEL", ":"},
                                                          {"Class", "#"},
                                                          {"CGSize", "{CGSize=dd}"},
                                                          {"CGRect", "{CGRect={CGPoint=dd}{CGSize=dd}}"}};
    const auto found = known.find(type);
    return found == known.end() ? "?" : found->second;
}

/// The types of the parameters, without their names.
std::string parameters(const std::string& list) {
    std::string types;
    const std::regex each(R"(\s*([^,]*[\s*&])\w+\s*(,|$))");
    for (std::sregex_iterator found(list.begin(), list.end(), each), end; found != end; ++found)
        types += encoded(found->str(1));
    return types;
}

std::vector<Declared> declared() {
    const std::string header = contents_of(PANE_HEADER);
    const std::regex piece(
        R"re(struct (\w+)\s*:|\(([^()]*)\)\s*\{\s*(?:return )?(class_)?send<"([^"]+)"(?:,\s*([^()]+?))?>\()re");
    std::vector<Declared> all;
    std::string owner;
    for (std::sregex_iterator found(header.begin(), header.end(), piece), end; found != end; ++found) {
        if ((*found)[1].matched)
            owner = found->str(1);
        else
            all.push_back({owner, found->str(4), encoded(found->str(5)) + "@:" + parameters(found->str(2)),
                           (*found)[3].matched});
    }
    return all;
}

class PaneContract : public testing::Test {
  protected:
    void SetUp() override { phone.start(); }
    Phone phone;
};

TEST_F(PaneContract, TheHeaderDeclaresOperations) {
    const auto all = declared();
    EXPECT_GT(all.size(), 20u);
    for (const Declared& each : all) EXPECT_EQ(each.types.find('?'), std::string::npos) << each.selector;
}

TEST_F(PaneContract, TheLibraryHasEachOfThemWithItsTypes) {
    for (const Declared& each : declared()) {
        Class owner = objc_lookUpClass(each.owner.c_str());
        ASSERT_NE(owner, nullptr) << each.owner;
        if (each.on_class) owner = object_getClass(reinterpret_cast<id>(owner));
        Method method = class_getInstanceMethod(owner, sel_registerName(each.selector.c_str()));
        ASSERT_NE(method, nullptr) << each.owner << " " << each.selector;
        EXPECT_EQ(objc::passed_types(method_getTypeEncoding(method)), objc::passed_types(each.types))
            << each.owner << " " << each.selector << ": " << method_getTypeEncoding(method) << ", declared "
            << each.types;
    }
}

TEST_F(PaneContract, EachOfThemIsLookedForBeforeTheLibraryIsUsed) {
    const std::string looked_for =
        contents_of(std::filesystem::path(PANE_HEADER).parent_path() / "model" / "library.cpp");
    for (const Declared& each : declared())
        EXPECT_NE(looked_for.find('"' + each.selector + '"'), std::string::npos)
            << each.owner << " " << each.selector;
}

}  // namespace
}  // namespace test

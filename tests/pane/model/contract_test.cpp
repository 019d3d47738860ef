// What the pane takes the library's classes for, against those that are loaded.
#include <sys/wait.h>
#include <unistd.h>

#include <map>
#include <regex>
#include <set>

#include "objc/descriptions/passed_types.h"
#include "pane/model/library.h"
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

/// A library of another version lacks one operation.
struct Lack {
    std::string owner;
    SEL question = nullptr, operation = nullptr;
} lack;

bool answers(id owner, SEL question, SEL operation) {
    return !(lack.operation == operation && lack.question == question &&
             lack.owner == class_getName(reinterpret_cast<Class>(owner)));
}

const SEL of_class = sel_registerName("respondsToSelector:");
const SEL of_instances = sel_registerName("instancesRespondToSelector:");

void ask_us_about(Class owner) {
    const auto function = reinterpret_cast<IMP>(
        +[](id asked, SEL question, SEL operation) -> int { return answers(asked, question, operation); });
    for (SEL question : {of_class, of_instances})
        class_addMethod(object_getClass(reinterpret_cast<id>(owner)), question, function, "c@::");
}

std::set<std::string> owners() {
    std::set<std::string> all;
    for (const Declared& each : declared()) all.insert(each.owner);
    return all;
}

constexpr const char* another_version =
    "The Huecraft that is loaded here is of another version. Update both.";

TEST_F(PaneContract, ALibraryThatLacksOneOfThemIsOfAnotherVersion) {
    for (const std::string& owner : owners()) ask_us_about(objc_lookUpClass(owner.c_str()));
    EXPECT_EQ(pane::library_fault(), nullptr);
    for (const Declared& each : declared()) {
        lack = {each.owner, each.on_class ? of_class : of_instances, sel_registerName(each.selector.c_str())};
        EXPECT_EQ(utf8(pane::library_fault()), another_version) << each.owner << " " << each.selector;
    }
}

// The tools are what the editor does without.
TEST(PaneContractWithoutAClass, SaysWhatIsMissing) {
    const std::map<std::string, std::string> without{
        {"HuecraftConfig", "Huecraft itself is not loaded here."},
        {"HCPreview", another_version},
        {"HCCITool", another_version},
        {"HCColorPickerController", "(nil)"},
        {"HCModalView", "(nil)"},
        {"HCImageView", "(nil)"}};
    std::set<std::string> all = owners();
    for (const auto& [left_out, fault] : without) all.insert(left_out);
    for (const auto& [left_out, fault] : without) {
        // A class that is there stays, so each has a process of its own.
        const pid_t child = fork();
        if (child == 0) {
            {
                Phone phone;
                phone.boot();
                for (const std::string& owner : all) {
                    if (owner == left_out) continue;
                    Class made = objc_allocateClassPair(objc_getClass("NSObject"), owner.c_str(), 0);
                    objc_registerClassPair(made);
                    ask_us_about(made);
                }
                EXPECT_EQ(utf8(pane::library_fault()), fault) << left_out;
            }
            _exit(testing::Test::HasFailure() ? 1 : 0);
        }
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0) << left_out;
    }
}

}  // namespace
}  // namespace test

// The dylib's class metadata says what the class definitions say: both slices, held against the classes that
// the ELF build registers from the same definitions.
#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "device/objc_metadata_text.h"
#include "support/phone.h"

extern "C" Ivar* class_copyIvarList(Class, unsigned* count);

namespace test {

void PrintTo(const ClassFacts& facts, std::ostream* out) {
    *out << ": " << facts.superclass << "\n";
    for (const auto& variable : facts.variables) *out << "  ivar " << variable << "\n";
    for (const auto& method : facts.methods) *out << "  " << method << "\n";
}

namespace {

std::string output_of(const std::string& command) {
    std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::string output;
    std::array<char, 4096> chunk;
    while (size_t count = std::fread(chunk.data(), 1, chunk.size(), pipe.get()))
        output.append(chunk.data(), count);
    return output;
}

Classes classes_of_slice(const char* architecture) {
    return parse_metadata(
        output_of(std::string("'" OBJDUMP "' --macho --objc-meta-data '" HUECRAFT_SLICES "/") + architecture +
                  "/HuecraftiOS12.dylib'"));
}

void add_methods(ClassFacts& facts, Class owner, char side) {
    unsigned count = 0;
    Method* methods = class_copyMethodList(owner, &count);
    for (unsigned i = 0; i < count; ++i)
        facts.methods.insert(side + std::string(sel_getName(method_getName(methods[i]))) + " " +
                             method_getTypeEncoding(methods[i]));
    std::free(methods);
}

Classes registered_classes(const sim_library* library) {
    Classes classes;
    for (size_t i = 0; i < sim_class_count(library); ++i) {
        Class type = objc_getClass(sim_class_name(library, i));
        ClassFacts facts;
        facts.superclass = class_getName(class_getSuperclass(type));
        add_methods(facts, type, '-');
        add_methods(facts, object_getClass(reinterpret_cast<id>(type)), '+');
        unsigned count = 0;
        Ivar* variables = class_copyIvarList(type, &count);
        for (unsigned v = 0; v < count; ++v)
            facts.variables.push_back(std::string(ivar_getName(variables[v])) + " " +
                                      ivar_getTypeEncoding(variables[v]));
        std::free(variables);
        classes[class_getName(type)] = facts;
    }
    return classes;
}

void expect_same(const Classes& found, const Classes& expected) {
    ASSERT_FALSE(expected.empty());
    for (const auto& [name, facts] : expected) {
        ASSERT_TRUE(found.contains(name)) << name << " is missing";
        EXPECT_EQ(found.at(name), facts) << name;
    }
    EXPECT_EQ(found.size(), expected.size());
}

class Metadata : public testing::Test {
  protected:
    void SetUp() override { phone.start(); }
    Phone phone;
};

TEST_F(Metadata, TheArm64SliceSaysWhatTheDefinitionsSay) {
    expect_same(classes_of_slice("arm64"), registered_classes(phone.library()));
}

TEST_F(Metadata, TheX8664SliceSaysWhatTheDefinitionsSay) {
    expect_same(classes_of_slice("x86_64"), registered_classes(phone.library()));
}

TEST_F(Metadata, TheLibraryDefinesItsClassesAndNoOthers) {
    std::vector<std::string> names;
    for (const auto& [name, facts] : registered_classes(phone.library())) names.push_back(name);
    EXPECT_EQ(names, (std::vector<std::string>{"HCCITool", "HCColourView", "HCGradientView", "HCImageView",
                                               "HCPreferences", "HCPreview", "HCView", "HuecraftConfig",
                                               "_UIBackdropColouredView", "_UIBackdropGradientView",
                                               "_UIBackdropImageView"}));
}

}  // namespace
}  // namespace test

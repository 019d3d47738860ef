// The dylib's class metadata says what the class definitions say: both slices, held against the classes that
// the ELF build registers from the same definitions.
#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "files.h"
#include "objc_metadata_text.h"
#include "support/phone.h"

extern "C" Ivar* class_copyIvarList(Class, unsigned* count);

namespace contract {

void PrintTo(const ClassFacts& facts, std::ostream* out) {
    *out << ": " << facts.superclass << "\n";
    for (const auto& variable : facts.variables) *out << "  ivar " << variable << "\n";
    for (const auto& method : facts.methods) *out << "  " << method << "\n";
}

}  // namespace contract

namespace test {
namespace {

using contract::ClassFacts, contract::Classes, contract::parse_metadata;

std::string output_of(const std::string& command) {
    std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::string output;
    std::array<char, 4096> chunk;
    while (size_t count = std::fread(chunk.data(), 1, chunk.size(), pipe.get()))
        output.append(chunk.data(), count);
    return output;
}

Classes classes_of_slice(const char* architecture) {
    Classes classes =
        parse_metadata(output_of(std::string("'" OBJDUMP "' --macho --objc-meta-data '" HUECRAFT_SLICES "/") +
                                 architecture + "/HuecraftiOS12.dylib'"));
    // The ELF build's runtime keeps no properties, and protocols in its own way: docs/contract.md holds both.
    for (auto& [name, facts] : classes) {
        facts.properties.clear();
        facts.protocols.clear();
    }
    return classes;
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
    expect_same(classes_of_slice("arm64"), registered_classes(phone.loaded_library()));
}

TEST_F(Metadata, TheX8664SliceSaysWhatTheDefinitionsSay) {
    expect_same(classes_of_slice("x86_64"), registered_classes(phone.loaded_library()));
}

// What callers were compiled against: whatever of the interface is not plain objects, written out.
const struct {
    const char* class_name;
    std::vector<std::string> variables, methods;
} interface[] = {
    {"HCCITool",
     {},
     {"+intFromString: I24@0:8@16", "+isValidHexColorLetter: B24@0:8@16",
      "+isValidHexColorString: B24@0:8@16", "+newScale:forImage: @40@0:8{CGSize=dd}16@32",
      "+imageFromColor:withSize: @40@0:8@16{CGSize=dd}24", "+isColor:equalToColor: B32@0:8@16@24"}},
    {"HCColorPickerController",
     {"_delegate @\"<HCColorPickerDelegate>\"",
      "_lightUI B",
      "_modal @\"HCModalView\"",
      "_mainRect {CGRect={CGPoint=dd}{CGSize=dd}}",
      "_mainCornerRadius d",
      "_scrollView @\"UIScrollView\"",
      "_scrollViewStack @\"UIStackView\"",
      "_previewColor @\"UIImageView\"",
      "_hexTextField @\"UITextField\"",
      "_canEditMessage @\"UILabel\"",
      "_canEditMessageBorder @\"CALayer\"",
      "_duplicatePasteView @\"UIView\"",
      "_duplicateButton @\"UIButton\"",
      "_pasteButton @\"UIButton\"",
      "_redSlider @\"HCColorSlider\"",
      "_greenSlider @\"HCColorSlider\"",
      "_blueSlider @\"HCColorSlider\"",
      "_alphaSlider @\"HCColorSlider\"",
      "_duplicateButtonImage @\"UIImage\"",
      "_pasteButtonImage @\"UIImage\"",
      "_recentCollectionView @\"UICollectionView\"",
      "_recentColorDictionary @\"NSMutableDictionary\"",
      "_recentColors @\"NSMutableArray\""},
     {"-viewDidAppear: v20@0:8B16",
      "-textField:shouldChangeCharactersInRange:replacementString: B48@0:8@16{_NSRange=QQ}24@40",
      "-textFieldShouldReturn: B24@0:8@16", "-collectionView:numberOfItemsInSection: q32@0:8@16q24",
      "-collectionView:layout:sizeForItemAtIndexPath: {CGSize=dd}40@0:8@16@24@32",
      "-collectionView:layout:insetForSectionAtIndex: {UIEdgeInsets=dddd}40@0:8@16@24q32",
      "-setInitialColor: v24@0:8@16", "-sliderValueChanged v16@0:8"}},
    {"HCColorSlider",
     {"_slider @\"UISlider\"", "_backgroundFrame {CGRect={CGPoint=dd}{CGSize=dd}}", "_type Q",
      "_backgroundView @\"UIView\"", "_gradientLayer @\"CAGradientLayer\""},
     {"-initWithFrame:withType: @56@0:8{CGRect={CGPoint=dd}{CGSize=dd}}16Q48", "-getValue d16@0:8",
      "-setTag: v24@0:8q16", "-addTarget:action:forControlEvents: v40@0:8@16:24Q32", "-type Q16@0:8"}},
    {"HCModalOptions",
     {"_modalFrame {CGRect={CGPoint=dd}{CGSize=dd}}", "_cornerRadius d", "_delegate @\"<HCModalDelegate>\"",
      "_lightUI B", "_selectButtonTitle @\"NSString\""},
     {"-initWithModalFrame:cornerRadius:delegate:isLightUI:selectTitleForButton: "
      "@76@0:8{CGRect={CGPoint=dd}{CGSize=dd}}16d48@56B64@68",
      "-lightUI B16@0:8", "-setLightUI: v20@0:8B16"}},
    {"HCModalView",
     {"_modalOptions @\"HCModalOptions\"", "_contentView @\"UIView\"", "_topView @\"UIView\"",
      "_isEclipseEnabled B", "_primaryColor @\"UIColor\"", "_secondaryColor @\"UIColor\"",
      "_primaryTextColor @\"UIColor\"", "_secondaryTextColor @\"UIColor\"", "_shadowView @\"UIView\"",
      "_panelView @\"UIView\"", "_closeButton @\"UIButton\"", "_selectButton @\"UIButton\"",
      "_extraTopView @\"UIView\""},
     {"-initWithFrame:modalOptions: @56@0:8{CGRect={CGPoint=dd}{CGSize=dd}}16@48", "-setupViews v16@0:8",
      "-addSubviewsInOrder v16@0:8", "-setupConstraints v16@0:8", "-applyColor v16@0:8",
      "-isEclipseEnabled B16@0:8", "-setIsEclipseEnabled: v20@0:8B16"}},
    {"HCPreferences",
     {"preferenceCache @\"NSDictionary\"", "configCache @\"HuecraftConfig\""},
     {"+sharedInstance @16@0:8", "-isEnabled B16@0:8", "-isCapsEnabled B16@0:8", "-getBackgroundType Q16@0:8",
      "-getGradientDirection Q16@0:8", "-getImageAlpha d16@0:8"}},
    {"HuecraftConfig",
     {"configuration @\"NSMutableDictionary\"", "backgroundImageCache @\"UIImage\""},
     {"+configWithTextColor:backgroundType:colors:gradientDirection:image:highlightColor: "
      "@64@0:8@16Q24@32Q40@48@56",
      "-initWithTextColor:backgroundType:colors:gradientDirection:image:highlightColor: "
      "@64@0:8@16Q24@32Q40@48@56",
      "-initWithFilename:error: @32@0:8@16^@24", "-saveConfiguration: B24@0:8^@16",
      "-getBackgroundType Q16@0:8", "-setBackgroundType: v24@0:8Q16", "-getGradientDirection Q16@0:8",
      "-setGradientDirection: v24@0:8Q16", "-getImageAlpha d16@0:8", "-setImageAlpha: v24@0:8d16",
      "-getVisibleKeycaps B16@0:8", "-setVisibleKeycaps: v20@0:8B16"}},
    {"_UIBackdropColouredView",
     {"colouredView @\"UIView\""},
     {"+backdropWithStyle: @24@0:8q16", "-initWithStyle:color: @32@0:8q16@24", "-setColorAlpha: v24@0:8d16"}},
    {"_UIBackdropImageView",
     {"imageView @\"UIImageView\""},
     {"+backdropWithStyle: @24@0:8q16", "-initWithStyle:image: @32@0:8q16@24",
      "-initWithStyle:image:alpha: @40@0:8q16@24d32", "-setImageAlpha: v24@0:8d16"}},
    {"_UIBackdropGradientView",
     {"gradientView @\"UIView\"", "gradientLayer @\"CAGradientLayer\"", "layoutGradientLayer B"},
     {"+backdropWithStyle: @24@0:8q16", "-initWithStyle:direction: @32@0:8q16q24",
      "-initWithStyle:colors:direction: @40@0:8q16@24q32", "-setDirection: v24@0:8q16",
      "-setColorsAlpha: v24@0:8d16", "-imageFromGradientOfSize: @32@0:8{CGSize=dd}16"}},
};

TEST_F(Metadata, TheInterfacesTypesAreThoseThatCallersWereCompiledAgainst) {
    Classes classes = registered_classes(phone.loaded_library());
    for (const auto& [class_name, variables, methods] : interface) {
        EXPECT_EQ(classes[class_name].variables, variables) << class_name;
        for (const std::string& method : methods)
            EXPECT_TRUE(classes[class_name].methods.contains(method)) << class_name << " has no " << method;
    }
}

TEST_F(Metadata, TheLibraryDefinesItsClassesAndNoOthers) {
    std::vector<std::string> names;
    for (const auto& [name, facts] : registered_classes(phone.loaded_library())) names.push_back(name);
    EXPECT_EQ(names, (std::vector<std::string>{"HCCITool", "HCColorPickerController", "HCColorSlider",
                                               "HCColourView", "HCGradientView", "HCImageView",
                                               "HCModalOptions", "HCModalView", "HCPreferences", "HCPreview",
                                               "HCView", "HuecraftConfig", "_UIBackdropColouredView",
                                               "_UIBackdropGradientView", "_UIBackdropImageView"}));
}

TEST(PrintedMetadata, PropertiesAndAdoptedProtocolsAreRead) {
    const Classes classes = parse_metadata(
        "Contents of (__DATA,__objc_classlist) section\n"
        "0000000000008408 0x8010 _OBJC_CLASS_$_Root\n"
        "    superclass 0x0 _OBJC_CLASS_$_NSObject\n"
        "                     name 0x40c8 Root\n"
        "            baseProtocols 0x8148\n"
        "                      count 2\n"
        "\t\t      list[0] 0x8398 (struct protocol_t *)\n"
        "\t\t\t     name 0x40cd Outer\n"
        "\t\t  instanceMethods 0x80a0 (struct method_list_t *)\n"
        "\t\t\t      name 0x4109 outer\n"
        "\t\t\t     types 0x40d9 v16@0:8\n"
        "\t\t      list[1] 0x8398 (struct protocol_t *)\n"
        "\t\t\t     name 0x40cd Other\n"
        "           baseProperties 0x82c8\n"
        "\t\t\t     name 0x4125 p\n"
        "\t\t\tattributes 0x4139 Ti,N,V_p\n"
        "Meta Class\n"
        "            baseProtocols 0x8148\n"
        "\t\t      list[0] 0x8398 (struct protocol_t *)\n"
        "\t\t\t     name 0x40cd Outer\n");
    ASSERT_TRUE(classes.contains("Root"));
    EXPECT_EQ(classes.at("Root").protocols, (std::vector<std::string>{"Outer", "Other"}));
    EXPECT_EQ(classes.at("Root").properties, (std::vector<std::string>{"p Ti,N,V_p"}));
    EXPECT_TRUE(classes.at("Root").methods.empty());
}

// --- The contract's table of files ---

std::string refusal_of(const std::set<std::string>& texts) {
    try {
        contract::files_named_in(texts);
    } catch (const std::exception& refusal) {
        return refusal.what();
    }
    return "none";
}

constexpr const char* settings_file = "/var/mobile/Library/Preferences/com.quillmoth.huecraftios12.plist";

TEST(ContractFiles, AFileIsThereWhenTheDylibHoldsItsPath) {
    const auto files = contract::files_named_in({settings_file, "_Enabled", "_Config", "other", ".plist"});
    ASSERT_EQ(files.size(), 1u);
    EXPECT_EQ(files[0].path, settings_file);
    EXPECT_TRUE(contract::files_named_in({}).empty());
}

TEST(ContractFiles, APathThatNobodyDescribedIsNamed) {
    for (const char* path : {"/var/mobile/secret", "/secret.png", "secret.plist"})
        EXPECT_EQ(refusal_of({path}), "the dylib holds the path \"" + std::string(path) +
                                          "\", which tools/contract/files.cpp does not describe");
}

TEST(ContractFiles, AKeyThatNobodyDescribedIsNamed) {
    EXPECT_EQ(refusal_of({"_Secret"}),
              "the dylib holds the key \"_Secret\", which tools/contract/files.cpp does not describe");
}

TEST(ContractFiles, ADescribedKeyThatTheDylibLacksIsNamed) {
    EXPECT_EQ(refusal_of({settings_file, "_Enabled"}), "the dylib does not hold the key \"_Config\" of " +
                                                           std::string(settings_file) +
                                                           ", which tools/contract/files.cpp describes");
}

}  // namespace
}  // namespace test

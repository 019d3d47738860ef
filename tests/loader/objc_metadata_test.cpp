// Damaged Objective-C metadata: refused before anything is registered.
#include "loader/objc/objc_metadata.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstring>

#include "draft.h"
#include "host.h"
#include "loader/fault.h"
#include "objc/runtime.h"

namespace {

using loader_test::Draft;
using loader_test::message_of;
using testing::AllOf;
using testing::HasSubstr;
using testing::StrEq;
using testing::UnorderedElementsAre;

// What the metadata points to is found in the file at the address that it is to be rebased from.
class ObjcMetadataTest : public testing::Test {
  protected:
    ObjcMetadataTest() { loader_test::define_host_classes(); }

    Draft draft{"classes"};

    size_t pointed_to(size_t slot) const { return draft.at_address(draft.u64(slot)); }
    size_t class_list() const { return draft.content("__objc_classlist"); }
    /// classes.m implements LTDerived first, then LTBase, LTDeepBackdrop and LTBackdrop.
    size_t derived() const { return pointed_to(class_list()); }
    size_t base() const { return pointed_to(class_list() + 8); }
    size_t data(size_t a_class) const { return pointed_to(a_class + 32); }
    size_t metaclass(size_t a_class) const { return pointed_to(a_class); }
    size_t methods(size_t a_class) const { return pointed_to(data(a_class) + 32); }
    size_t protocols(size_t a_class) const { return pointed_to(data(a_class) + 40); }
    size_t variables(size_t a_class) const { return pointed_to(data(a_class) + 48); }
    size_t properties(size_t a_class) const { return pointed_to(data(a_class) + 64); }

    std::string refusal() {
        const macho::Image image = draft.load();
        return message_of<macho::Fault>([&] { macho::read_objc_metadata(image); });
    }
};

constexpr uint64_t kOutside = 0x7000000;  // beyond any image; pointers there are rebased all the same

TEST_F(ObjcMetadataTest, IsReadWhole) {
    const macho::Image image = draft.load();
    const auto metadata = macho::read_objc_metadata(image);
    ASSERT_EQ(metadata.classes.size(), 4u);
    const macho::ClassDescription& base = metadata.classes[0];
    EXPECT_STREQ(base.name, "LTBase");
    EXPECT_FALSE(base.superclass_in_image);
    EXPECT_EQ(base.instance_methods.size(), 4u);
    EXPECT_EQ(base.class_methods.size(), 1u);
    ASSERT_EQ(base.variables.size(), 4u);
    EXPECT_STREQ(base.variables[1].name, "_wide");
    EXPECT_STREQ(base.variables[1].types, "d");
    EXPECT_EQ(base.variables[1].offset, 24);
    EXPECT_EQ(base.variables[1].log2_alignment, 3u);
    EXPECT_EQ(base.protocols.size(), 2u);
    EXPECT_STREQ(metadata.classes[1].name, "LTDerived");
    EXPECT_TRUE(metadata.classes[1].superclass_in_image);
    ASSERT_EQ(metadata.protocols.size(), 2u);
    EXPECT_THAT((std::array{metadata.protocols[0].name, metadata.protocols[1].name}),
                UnorderedElementsAre(StrEq("LTNamed"), StrEq("LTDrawing")));
}

TEST_F(ObjcMetadataTest, ListsOfWhatIsNotSupportedAreRefused) {
    const size_t renamed = draft.section("__objc_classlist");
    for (const auto& [name, what] : {std::pair{"__objc_nlclslist", "classes with a +load method"},
                                     {"__objc_catlist2", "categories of Swift classes"},
                                     {"__objc_nlcatlist", "categories with a +load method"}}) {
        for (size_t i = 0; i < 16; ++i)
            draft.set8(renamed + i, i < std::strlen(name) ? static_cast<uint8_t>(name[i]) : 0);
        EXPECT_EQ(refusal(), std::string("section ") + name + " lists " + what + ", which are not supported");
    }
}

TEST_F(ObjcMetadataTest, AListOfClassesWithAnOddSizeIsRefused) {
    draft.set64(draft.section("__objc_classlist") + 40, 9);
    EXPECT_EQ(refusal(), "section __objc_classlist has 9 bytes (expected a multiple of 8)");
}

TEST_F(ObjcMetadataTest, AClassListedTwiceIsRefused) {
    draft.set64(class_list(), draft.u64(class_list() + 8));
    EXPECT_THAT(refusal(),
                AllOf(HasSubstr("section __objc_classlist lists the class at 0x"), HasSubstr(" twice")));
}

TEST_F(ObjcMetadataTest, AClassOutsideTheImageIsRefused) {
    draft.set64(class_list(), kOutside);
    EXPECT_EQ(refusal(),
              "class at 0x7000000: the class lies outside the image (found 40 bytes at 0x7000000)");
}

TEST_F(ObjcMetadataTest, ClassDataOutsideTheImageIsRefused) {
    draft.set64(derived() + 32, kOutside);
    EXPECT_THAT(refusal(),
                HasSubstr(": the class's data lies outside the image (found 72 bytes at 0x7000000)"));
}

TEST_F(ObjcMetadataTest, ClassDataThatTwoClassesShareIsRefused) {
    draft.set64(base() + 32, draft.u64(derived() + 32));
    EXPECT_THAT(refusal(), HasSubstr("the data is another class's as well"));
}

TEST_F(ObjcMetadataTest, AClassNameOutsideTheImageIsRefused) {
    draft.set64(data(derived()) + 24, kOutside);
    EXPECT_THAT(refusal(), HasSubstr(": the name lies outside the image (found 1 bytes at 0x7000000)"));
}

TEST_F(ObjcMetadataTest, AnEmptyClassNameIsRefused) {
    draft.set_text(pointed_to(data(derived()) + 24), "");
    EXPECT_THAT(refusal(), AllOf(HasSubstr("class at 0x"), HasSubstr(": the name is empty")));
}

TEST_F(ObjcMetadataTest, AMetaclassInPlaceOfAClassIsRefused) {
    draft.set64(class_list(), draft.u64(derived()));
    EXPECT_THAT(refusal(), HasSubstr("it is a metaclass (expected a class)"));
}

TEST_F(ObjcMetadataTest, AClassInPlaceOfAMetaclassIsRefused) {
    draft.set64(derived(), draft.u64(class_list() + 8));
    EXPECT_EQ(refusal(), "class LTDerived: its isa is a class (expected a metaclass)");
}

TEST_F(ObjcMetadataTest, AMetaclassOutsideTheImageIsRefused) {
    draft.set64(derived(), kOutside);
    EXPECT_EQ(refusal(),
              "class LTDerived: the metaclass lies outside the image (found 40 bytes at 0x7000000)");
}

TEST_F(ObjcMetadataTest, ASuperclassThatIsNeitherOursNorBoundIsRefused) {
    draft.set64(derived() + 8, kOutside);
    EXPECT_EQ(refusal(),
              "class LTDerived: its superclass is neither in the image nor bound (found 0x7000000)");
}

TEST_F(ObjcMetadataTest, ASuperclassThatIsNotListedIsRefused) {
    draft.set64(derived() + 8, draft.u64(derived()));
    EXPECT_EQ(refusal(), "class LTDerived has a superclass that section __objc_classlist does not list");
}

TEST_F(ObjcMetadataTest, AClassThatDescendsFromItselfIsRefused) {
    draft.set64(derived() + 8, draft.u64(class_list()));
    EXPECT_EQ(refusal(), "class LTDerived descends from itself");
}

TEST_F(ObjcMetadataTest, AMethodListOutsideTheImageIsRefused) {
    draft.set64(data(derived()) + 32, kOutside);
    EXPECT_EQ(refusal(),
              "class LTDerived: the list of methods lies outside the image (found 8 bytes at 0x7000000)");
}

TEST_F(ObjcMetadataTest, AMethodListThatIsTooLongIsRefused) {
    draft.set32(methods(derived()) + 4, 0xffffffff);
    EXPECT_THAT(
        refusal(),
        HasSubstr(
            "class LTDerived: the list of methods lies outside the image (found 103079215080 bytes at 0x"));
}

TEST_F(ObjcMetadataTest, AMethodListOfAnotherFormIsRefused) {
    draft.set32(methods(derived()), 0x8000000c);
    EXPECT_EQ(refusal(), "class LTDerived: the list of methods has rows of 2147483660 bytes (expected 24)");
}

TEST_F(ObjcMetadataTest, AMethodListThatTwoClassesShareIsRefused) {
    draft.set64(data(base()) + 32, draft.u64(data(derived()) + 32));
    EXPECT_EQ(refusal(), "class LTBase: the list of methods is another class's as well");
}

TEST_F(ObjcMetadataTest, AMethodThatIsNotCodeIsRefused) {
    draft.set64(methods(derived()) + 8 + 16, draft.u64(class_list()));
    EXPECT_THAT(refusal(), HasSubstr("class LTDerived: the method draw is not code of the image (found 0x"));
}

TEST_F(ObjcMetadataTest, AMethodNameOutsideTheImageIsRefused) {
    draft.set64(methods(derived()) + 8, kOutside);
    EXPECT_THAT(refusal(), HasSubstr("class LTDerived: a method's name lies outside the image"));
}

TEST_F(ObjcMetadataTest, AMethodTypeOutsideTheImageIsRefused) {
    draft.set64(methods(derived()) + 16, kOutside);
    EXPECT_THAT(refusal(), HasSubstr("class LTDerived: a method's types lies outside the image"));
}

TEST_F(ObjcMetadataTest, AMethodWithAnEmptyTypeIsRefused) {
    draft.set_text(pointed_to(methods(derived()) + 16), "");
    EXPECT_THAT(refusal(), HasSubstr("the method \"draw\" has an empty name or type"));
}

TEST_F(ObjcMetadataTest, AVariableListThatIsTooLongIsRefused) {
    draft.set32(variables(base()) + 4, 0xffffffff);
    EXPECT_THAT(refusal(), HasSubstr("class LTBase: the list of variables lies outside the image"));
}

TEST_F(ObjcMetadataTest, AVariableListOfAnotherFormIsRefused) {
    draft.set32(variables(base()), 24);
    EXPECT_EQ(refusal(), "class LTBase: the list of variables has rows of 24 bytes (expected 32)");
}

TEST_F(ObjcMetadataTest, AVariableAlignedBeyondItsObjectIsRefused) {
    draft.set32(variables(base()) + 8 + 24, 5);
    EXPECT_EQ(refusal(), "class LTBase: the variable _small is aligned to 2^5 bytes (expected at most 16)");
}

TEST_F(ObjcMetadataTest, AVariableThatMakesObjectsTooLargeIsRefused) {
    const size_t size = variables(base()) + 8 + 28;
    draft.set32(size, 0x7fffffff);
    EXPECT_EQ(refusal(),
              "class LTBase: the variable _small makes objects too large (found 2147483647 bytes "
              "at 16, expected all within 1048576)");
    draft.set32(size, 1).set32(size + 32, 0xfffff);
    EXPECT_THAT(refusal(),
                HasSubstr("class LTBase: the variable _wide makes objects too large (found 1048575"))
        << "with the others before it";
}

TEST_F(ObjcMetadataTest, AVariableFarFromItsObjectIsRefused) {
    const size_t slots = draft.content("__objc_ivar");
    const auto intact = draft.u32(slots);
    for (const uint32_t wrong : {0x100001u, 0x7fffffffu, 0x80000000u, 0xffefffffu}) {
        // The slots are 8 bytes on one processor and 4 on the other.
        draft.set32(slots, wrong);
        if (draft.u32(4) == static_cast<uint32_t>(macho::Cpu::x86_64))
            draft.set32(slots + 4, wrong >> 31 ? ~0u : 0);
        EXPECT_THAT(refusal(), HasSubstr("makes objects too large (found ")) << wrong;
    }
    draft.set32(slots, intact);
}

TEST_F(ObjcMetadataTest, AVariableOffsetOutsideTheImageIsRefused) {
    draft.set64(variables(base()) + 8, kOutside);
    EXPECT_THAT(refusal(), HasSubstr("class LTBase: a variable's offset lies outside the image"));
}

TEST_F(ObjcMetadataTest, AVariableOffsetThatCannotBeWrittenIsRefused) {
    draft.set64(variables(base()) + 8, 0);  // the file's header
    EXPECT_EQ(refusal(),
              "class LTBase: a variable's offset is not in a writable part of the image (found 0x0)");
}

TEST_F(ObjcMetadataTest, AReferenceThatCannotBeWrittenIsRefused) {
    const size_t selectors = draft.section("__objc_selrefs"), texts = draft.section("__cstring");
    draft.set_text(selectors, "__other").set_text(texts, "__objc_selrefs").set64(texts + 40, 8);
    EXPECT_THAT(refusal(), HasSubstr("a reference is not in a writable part of the image (found 0x"));
}

TEST_F(ObjcMetadataTest, AVariableNameOutsideTheImageIsRefused) {
    draft.set64(variables(base()) + 16, kOutside);
    EXPECT_THAT(refusal(), HasSubstr("class LTBase: a variable's name lies outside the image"));
}

TEST_F(ObjcMetadataTest, AVariableTypeOutsideTheImageIsRefused) {
    draft.set64(variables(base()) + 24, kOutside);
    EXPECT_THAT(refusal(), HasSubstr("class LTBase: a variable's type lies outside the image"));
}

TEST_F(ObjcMetadataTest, APropertyListThatIsTooLongIsRefused) {
    draft.set32(properties(base()) + 4, 0xffffffff);
    EXPECT_THAT(refusal(), HasSubstr("class LTBase: the list of properties lies outside the image"));
}

TEST_F(ObjcMetadataTest, APropertyNameOutsideTheImageIsRefused) {
    draft.set64(properties(base()) + 8, kOutside);
    EXPECT_THAT(refusal(), HasSubstr("class LTBase: a property's name lies outside the image"));
    Draft other("classes");
    std::swap(draft, other);
    draft.set64(properties(base()) + 16, kOutside);
    EXPECT_THAT(refusal(), HasSubstr("class LTBase: a property's attributes lies outside the image"));
}

TEST_F(ObjcMetadataTest, AProtocolListThatIsTooLongIsRefused) {
    draft.set64(protocols(base()), 0x1000000000000000);
    EXPECT_THAT(refusal(), HasSubstr("class LTBase: "));
}

TEST_F(ObjcMetadataTest, AProtocolListOutsideTheImageIsRefused) {
    draft.set64(data(base()) + 40, kOutside);
    EXPECT_EQ(refusal(),
              "class LTBase: a list of protocols lies outside the image (found 8 bytes at 0x7000000)");
}

TEST_F(ObjcMetadataTest, AProtocolOutsideTheImageIsRefused) {
    draft.set64(protocols(base()) + 8, kOutside);
    EXPECT_EQ(refusal(), "class LTBase: a protocol lies outside the image (found 24 bytes at 0x7000000)");
}

TEST_F(ObjcMetadataTest, AProtocolThatAdoptsItselfIsReadOnce) {
    const size_t protocol = pointed_to(protocols(base()) + 8);
    draft.set64(protocol + 16, draft.u64(data(base()) + 40));
    const macho::Image image = draft.load();
    EXPECT_EQ(macho::read_objc_metadata(image).classes[0].protocols.size(), 1u);
}

TEST_F(ObjcMetadataTest, AProtocolNameOutsideTheImageIsRefused) {
    draft.set64(pointed_to(protocols(base()) + 8) + 8, kOutside);
    EXPECT_EQ(refusal(),
              "class LTBase: a protocol's name lies outside the image (found 1 bytes at 0x7000000)");
}

TEST_F(ObjcMetadataTest, ASelectorOutsideTheImageIsRefused) {
    draft.set64(draft.content("__objc_selrefs"), kOutside);
    EXPECT_EQ(refusal(), "a selector's name lies outside the image (found 1 bytes at 0x7000000)");
}

TEST_F(ObjcMetadataTest, AReferenceToANonClassIsRefused) {
    draft.set64(draft.content("__objc_classrefs"), kOutside);
    EXPECT_EQ(refusal(),
              "section __objc_classrefs refers to something that is not a class (found 0x7000000)");
}

TEST_F(ObjcMetadataTest, ASuperReferenceToANonClassIsRefused) {
    draft.set64(draft.content("__objc_superrefs"), kOutside);
    EXPECT_EQ(refusal(),
              "section __objc_superrefs refers to something that is not a class (found 0x7000000)");
}

TEST_F(ObjcMetadataTest, AProtocolsMethodsOutsideTheImageAreRefused) {
    for (const size_t field : {24, 40, 48}) {
        Draft fresh("classes");
        std::swap(draft, fresh);
        draft.set64(pointed_to(protocols(base()) + 8) + field, kOutside);
        EXPECT_EQ(refusal(),
                  "protocol LTDrawing: the list of methods lies outside the image (found 8 bytes "
                  "at 0x7000000)")
            << field;
    }
}

TEST_F(ObjcMetadataTest, AProtocolsExtendedTypesOutsideTheImageAreRefused) {
    draft.set64(pointed_to(protocols(base()) + 8) + 72, kOutside);
    EXPECT_THAT(refusal(),
                HasSubstr("protocol LTDrawing: the methods' extended types lies outside the image"));
}

TEST_F(ObjcMetadataTest, AListedProtocolOutsideTheImageIsRefused) {
    draft.set64(draft.content("__objc_protolist"), kOutside);
    EXPECT_EQ(refusal(), "a protocol lies outside the image (found 24 bytes at 0x7000000)");
}

TEST_F(ObjcMetadataTest, AProtocolReferenceOutsideTheImageIsRefused) {
    draft.set64(draft.content("__objc_protorefs"), kOutside);
    EXPECT_EQ(refusal(), "a protocol lies outside the image (found 24 bytes at 0x7000000)");
}

/// category.m lists the category of LTExtended first.
class CategoryMetadataTest : public testing::Test {
  protected:
    CategoryMetadataTest() { loader_test::define_host_classes(); }

    Draft draft{"category"};

    size_t category(size_t index) const {
        return draft.at_address(draft.u64(draft.content("__objc_catlist") + 8 * index));
    }
    std::string refusal() {
        const macho::Image image = draft.load();
        return message_of<macho::Fault>([&] { macho::read_objc_metadata(image); });
    }
};

TEST_F(CategoryMetadataTest, IsReadWhole) {
    const macho::Image image = draft.load();
    const auto metadata = macho::read_objc_metadata(image);
    ASSERT_EQ(metadata.categories.size(), 3u);
    const macho::CategoryDescription& more = metadata.categories[0];
    EXPECT_STREQ(more.name, "LTMore");
    EXPECT_TRUE(more.extended_in_image);
    EXPECT_EQ(more.instance_methods.size(), 2u);
    EXPECT_EQ(more.class_methods.size(), 1u);
    ASSERT_EQ(more.protocols.size(), 1u);
    EXPECT_STREQ(more.protocols[0], "LTCounting");
    EXPECT_FALSE(metadata.categories[1].extended_in_image);
    EXPECT_NE(metadata.categories[1].extended, 0u) << "of the host";
    EXPECT_EQ(metadata.categories[2].extended, 0u) << "of no one";
}

TEST_F(CategoryMetadataTest, OutsideTheImageIsRefused) {
    draft.set64(draft.content("__objc_catlist"), kOutside);
    EXPECT_EQ(refusal(), "a category lies outside the image (found 48 bytes at 0x7000000)");
}

TEST_F(CategoryMetadataTest, ListedTwiceIsRefused) {
    const size_t list = draft.content("__objc_catlist");
    draft.set64(list, draft.u64(list + 8));
    EXPECT_EQ(refusal(), "a category is listed twice");
}

TEST_F(CategoryMetadataTest, ACategoryOfANonClassIsRefused) {
    draft.set64(category(0) + 8, kOutside);
    EXPECT_EQ(refusal(), "category LTMore: it extends something that is not a class (found 0x7000000)");
}

TEST_F(CategoryMetadataTest, MethodsOutsideTheImageAreRefused) {
    draft.set64(category(0) + 16, kOutside);
    EXPECT_EQ(refusal(),
              "category LTMore: the list of methods lies outside the image (found 8 bytes at 0x7000000)");
}

TEST_F(CategoryMetadataTest, ANameOutsideTheImageIsRefused) {
    draft.set64(category(0), kOutside);
    EXPECT_EQ(refusal(), "a category's name lies outside the image (found 1 bytes at 0x7000000)");
}

}  // namespace

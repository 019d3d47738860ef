// Classes of an image as classes of this process.
#include "loader/objc/objc_import.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <memory>

#include "draft.h"
#include "host.h"
#include "objc/protocol_registered.h"

namespace {

using loader_test::define_host_classes;
using loader_test::Draft;
using loader_test::function;
using loader_test::load;
using loader_test::message_of;
using macho::Error;
using macho::Image;
using macho::ImportedClasses;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

Class class_named(const char* name) { return objc_lookUpClass(name); }
id as_object(Class of) { return reinterpret_cast<id>(of); }

long send(id receiver, const char* name) {
    const SEL selector = sel_registerName(name);
    return reinterpret_cast<long (*)(id, SEL)>(objc_msg_lookup(receiver, selector))(receiver, selector);
}

struct Release {
    void operator()(id object) const { send(object, "release"); }
};
using Owned = std::unique_ptr<objc_object, Release>;

ptrdiff_t offset_of(Class of, const char* variable) {
    return ivar_getOffset(class_getInstanceVariable(of, variable));
}

/// classes.dylib, imported once for the process: registered classes stay.
struct Imported {
    Image image;
    ImportedClasses classes;
};

Imported& imported() {
    static Imported& once = *[] {
        define_host_classes();
        Image image = load("classes");
        ImportedClasses classes = macho::import_classes(image);
        return new Imported{std::move(image), std::move(classes)};
    }();
    return once;
}

std::string import_error(const std::string& name) {
    define_host_classes();
    Image image = load(name);
    return message_of<Error>([&] { macho::import_classes(image); });
}

class ObjcImportTest : public testing::Test {
  protected:
    Image& image = imported().image;
    const ImportedClasses& classes = imported().classes;
    Owned derived() { return Owned(function<id()>(image, "classes_make_derived")()); }
};

TEST_F(ObjcImportTest, SuperclassesAreRegisteredFirst) {
    EXPECT_THAT(classes.registered, ElementsAre("LTBase", "LTDerived"));
    EXPECT_EQ(class_getSuperclass(class_named("LTDerived")), class_named("LTBase"));
    EXPECT_EQ(class_getSuperclass(class_named("LTBase")), class_named("LTHostShape"));
}

TEST_F(ObjcImportTest, ClassesWithoutTheirSuperclassAreDropped) {
    EXPECT_THAT(classes.dropped, ElementsAre("LTBackdrop", "LTDeepBackdrop"));
    EXPECT_EQ(class_named("LTBackdrop"), nullptr);
    EXPECT_EQ(class_named("LTDeepBackdrop"), nullptr);
}

TEST_F(ObjcImportTest, AReferenceToADroppedClassIsNil) {
    EXPECT_EQ(function<Class()>(image, "classes_backdrop")(), nullptr);
}

TEST_F(ObjcImportTest, ReferencesAreToTheRegisteredClasses) {
    EXPECT_EQ(function<Class()>(image, "classes_derived_class")(), class_named("LTDerived"));
    EXPECT_STREQ(object_getClassName(derived().get()), "LTDerived");
}

TEST_F(ObjcImportTest, SelectorsAreTheRuntimes) {
    EXPECT_TRUE(
        sel_isEqual(function<SEL()>(image, "classes_selector")(), sel_registerName("sumOfVariables")));
}

TEST_F(ObjcImportTest, MethodsAnswerTheHost) {
    EXPECT_EQ(send(as_object(class_named("LTBase")), "shared"), 42);
    EXPECT_STREQ(
        method_getTypeEncoding(class_getInstanceMethod(class_named("LTBase"), sel_registerName("draw"))),
        "q16@0:8");
}

TEST_F(ObjcImportTest, SuperSendsReachTheImageAndTheHost) {
    EXPECT_EQ(function<long(id)>(image, "classes_draw")(derived().get()), 1001);
    EXPECT_EQ(send(derived().get(), "sides"), 400);
}

TEST_F(ObjcImportTest, SuperSendsOnTheClassSideToo) {
    EXPECT_EQ(function<long()>(image, "classes_kinds")(), 17);
}

TEST_F(ObjcImportTest, VariablesAreWhereTheImageLooks) {
    const Owned owned = derived();
    const id object = owned.get();
    EXPECT_EQ(send(object, "sumOfVariables"), 321);
    EXPECT_EQ(send(object, "lastOfAll"), 12);
    const auto* bytes = reinterpret_cast<const char*>(object);
    const auto read = [&]<class T>(T value, const char* name) {
        std::memcpy(&value, bytes + offset_of(class_named("LTDerived"), name), sizeof value);
        return value;
    };
    EXPECT_EQ(read(char{}, "_small"), 1);
    EXPECT_EQ(read(double{}, "_wide"), 20);
    EXPECT_EQ(read(int{}, "LTBase._tag"), 300);
    EXPECT_EQ(read(int{}, "_tag"), 0) << "the host's";
    EXPECT_EQ(read(short{}, "_more"), 4);
    EXPECT_EQ(read(long{}, "_last"), 8);
}

TEST_F(ObjcImportTest, VariablesAreBehindThoseOfTheHostAsItIs) {
    EXPECT_EQ(offset_of(class_named("LTHostShape"), "_bytes") + 9, 21);
    EXPECT_EQ(offset_of(class_named("LTBase"), "_small"), 24);
}

TEST_F(ObjcImportTest, TheBlockOfVariablesKeepsItsShape) {
    struct Block {
        char small;
        double wide;
        int tag;
        id other;
    };
    const Owned owned = derived();
    const id object = owned.get();
    send(object, "sumOfVariables");
    const auto* block = static_cast<const Block*>(function<void*(id)>(image, "classes_block")(object));
    EXPECT_EQ(block->small, 1);
    EXPECT_EQ(block->wide, 20);
    EXPECT_EQ(block->tag, 300);
    EXPECT_EQ(block->other, nullptr);
}

TEST_F(ObjcImportTest, ANameThatASuperclassUsesIsChanged) {
    EXPECT_THAT(classes.renamed_variables, ElementsAre("LTBase._tag"));
    EXPECT_STREQ(ivar_getTypeEncoding(class_getInstanceVariable(class_named("LTBase"), "LTBase._tag")), "i");
}

TEST_F(ObjcImportTest, ProtocolsAreAdoptedWithWhatTheyAdopt) {
    ASSERT_TRUE(objc_getProtocol("LTDrawing"));
    ASSERT_TRUE(objc_getProtocol("LTNamed"));
    EXPECT_TRUE(class_conformsToProtocol(class_named("LTBase"), objc_getProtocol("LTDrawing")));
    EXPECT_TRUE(class_conformsToProtocol(class_named("LTBase"), objc_getProtocol("LTNamed")));
    EXPECT_FALSE(class_conformsToProtocol(class_named("LTHostShape"), objc_getProtocol("LTDrawing")));
}

std::vector<std::string> listed(const objc::GnuMethodList* methods) {
    std::vector<std::string> lines;
    for (int i = 0; methods && i < methods->count; ++i)
        lines.push_back(std::string(sel_getName(methods->methods[i].name)) + " " + methods->methods[i].types);
    return lines;
}

TEST_F(ObjcImportTest, AProtocolHasItsMethods) {
    const auto* required = reinterpret_cast<objc::GnuProtocol*>(objc_getProtocol("LTDrawing"));
    ASSERT_NE(required, nullptr);
    EXPECT_THAT(listed(required->instance_methods), ElementsAre("draw q16@0:8"));
    EXPECT_EQ(required->class_methods, nullptr);
    const auto* optional = reinterpret_cast<objc::GnuProtocol*>(
        objc_getProtocol(objc::name_of_optional_part("LTDrawing").c_str()));
    ASSERT_NE(optional, nullptr);
    EXPECT_THAT(listed(optional->instance_methods), ElementsAre("draw:twice: v28@0:8@16c24"));
    EXPECT_THAT(listed(optional->class_methods), ElementsAre("forget v16@0:8"));
}

TEST_F(ObjcImportTest, AReferenceToAProtocolIsToTheRuntimes) {
    EXPECT_EQ(function<id()>(image, "classes_protocol")(), objc_getProtocol("LTDrawing"));
}

TEST_F(ObjcImportTest, ASecondImportFindsTheClassesThere) {
    Image again = load("classes");
    EXPECT_EQ(message_of<Error>([&] { macho::import_classes(again); }),
              "classes.dylib: cannot import: a class named LTBase exists already");
}

TEST(ObjcImportLifeTest, ClassesOutliveTheObjectOfTheirImage) {
    {
        Image image = load("lasting");
        macho::import_classes(image);
    }
    EXPECT_EQ(send(as_object(class_named("LTLasting")), "answer"), 42);
}

id made(const char* class_name) {
    const SEL make = sel_registerName("new");
    const id of = as_object(class_named(class_name));
    return reinterpret_cast<id (*)(id, SEL)>(objc_msg_lookup(of, make))(of, make);
}

/// category.dylib, imported once for the process, and what a class of the host answered before that.
struct Extended {
    Owned open;
    long sides_before;
    Image image;
    ImportedClasses classes;
};

Extended& extended() {
    static Extended& once = *[] {
        define_host_classes();
        Owned open(made("LTHostOpen"));
        const long sides_before = send(open.get(), "sides");
        Image image = load("category");
        ImportedClasses classes = macho::import_classes(image);
        return new Extended{std::move(open), sides_before, std::move(image), std::move(classes)};
    }();
    return once;
}

class CategoryTest : public testing::Test {
  protected:
    const Extended& given = extended();
    Owned heir{function<id()>(given.image, "category_make_heir")()};
};

TEST_F(CategoryTest, ItsMethodsAreTheClasses) {
    EXPECT_EQ(send(heir.get(), "added"), 21);
    EXPECT_EQ(send(as_object(class_named("LTExtended")), "addedToTheClass"), 7);
}

TEST_F(CategoryTest, ItsMethodsStandInForTheClassesOwn) {
    EXPECT_EQ(send(heir.get(), "replaced"), 20) << "for subclasses too";
    EXPECT_EQ(send(heir.get(), "kept"), 1);
}

TEST_F(CategoryTest, AClassOfTheHostIsExtendedOnBothSides) {
    EXPECT_EQ(given.sides_before, 4) << "the class was in use";
    EXPECT_EQ(send(given.open.get(), "sides"), 5);
    EXPECT_EQ(send(given.open.get(), "corners"), 5);
    EXPECT_EQ(send(as_object(class_named("LTHostOpen")), "kinds"), 70);
}

TEST_F(CategoryTest, ItsProtocolsAreAdopted) {
    EXPECT_TRUE(class_conformsToProtocol(class_named("LTExtended"), objc_getProtocol("LTCounting")));
}

TEST_F(CategoryTest, OfAMissingClassIsDropped) {
    EXPECT_THAT(given.classes.dropped_categories, ElementsAre("LTLost"));
}

TEST(ObjcImportWidthTest, AVariableAlignedToMoreThanTheFirstOneKeepsItsPlace) {
    Image image = load("wide");
    macho::import_classes(image);
    const Owned wide(function<id()>(image, "wide_make")());
    EXPECT_EQ(send(wide.get(), "sum"), 321);
    const auto* bytes = reinterpret_cast<const char*>(wide.get());
    int first = 0;
    std::memcpy(&first, bytes + offset_of(class_named("LTWide"), "_first"), sizeof first);
    long second[2]{};
    std::memcpy(second, bytes + offset_of(class_named("LTWide"), "_second"), sizeof second);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second[1], 300);
}

#if defined(__x86_64__)
TEST(ObjcImportWidthTest, OffsetsAreWrittenInAllEightBytes) {
    Draft draft("widths");
    const size_t slots = draft.content("__objc_ivar");
    for (const size_t slot : {slots, slots + 8}) draft.set64(slot, draft.u64(slot) - 1000);  // negative
    Image image = draft.load();
    macho::import_classes(image);
    const auto slots_now = image.mapping().read(*image.layout().section("__objc_ivar"), "the offsets");
    EXPECT_EQ(static_cast<ptrdiff_t>(slots_now.u64(0)), offset_of(class_named("LTWidths"), "_first"));
    EXPECT_EQ(static_cast<ptrdiff_t>(slots_now.u64(8)), offset_of(class_named("LTWidths"), "_second"));
}
#else
TEST(ObjcImportWidthTest, OffsetsAreWrittenInFourBytes) {
    Image image = load("widths");
    macho::import_classes(image);
    const auto slots_now = image.mapping().read(*image.layout().section("__objc_ivar"), "the offsets");
    EXPECT_EQ(static_cast<int32_t>(slots_now.u32(0)), offset_of(class_named("LTWidths"), "_first"));
    EXPECT_EQ(static_cast<int32_t>(slots_now.u32(4)), offset_of(class_named("LTWidths"), "_second"));
}
#endif

TEST(ObjcImportErrorTest, AClassThatTheHostHasIsRefused) {
    EXPECT_EQ(import_error("clash"), "clash.dylib: cannot import: a class named LTClash exists already");
}

/// twice.m, in which one name is put in place of another.
class SameNameTest : public testing::Test {
  protected:
    Draft draft{"twice"};

    size_t pointed_to(size_t slot) const { return draft.at_address(draft.u64(slot)); }
    size_t class_data(size_t index) const {
        return pointed_to(pointed_to(draft.content("__objc_classlist") + 8 * index) + 32);
    }
    std::string import_error() {
        Image image = draft.load();
        return message_of<Error>([&] { macho::import_classes(image); });
    }
    void TearDown() override { EXPECT_EQ(class_named("LTTwice"), nullptr); }
};

TEST_F(SameNameTest, TwoClassesOfOneNameAreRefused) {
    draft.set64(class_data(1) + 24, draft.u64(class_data(0) + 24));
    EXPECT_EQ(import_error(), "twice.dylib: cannot import: a class named LTTwice exists already");
}

TEST_F(SameNameTest, TwoMethodsOfOneNameAreRefused) {
    const size_t rows = pointed_to(class_data(0) + 32) + 8;
    draft.set64(rows + 24, draft.u64(rows));
    EXPECT_EQ(import_error(), "twice.dylib: cannot import: class LTTwice has the method -first twice");
}

TEST_F(SameNameTest, TwoVariablesOfOneNameAreRefused) {
    const size_t rows = pointed_to(class_data(0) + 48) + 8;
    draft.set64(rows + 32 + 8, draft.u64(rows + 8));
    EXPECT_EQ(import_error(), "twice.dylib: cannot import: class LTTwice has the variable _first twice");
}

TEST(ObjcImportErrorTest, CategoriesWithALoadMethodAreRefused) {
    EXPECT_EQ(import_error("category_load_method"),
              "category_load_method.dylib: cannot import: section __objc_nlcatlist lists categories with a "
              "+load method, which are not supported");
}

TEST(ObjcImportErrorTest, ASuperclassBoundToANonClassIsRefused) {
    define_host_classes();
    static const uint64_t noise[16] = {~uint64_t{0}, 7, ~uint64_t{0}, 0x1234567812345678};
    void* const wrong[] = {object_getClass(as_object(class_named("LTHostOdd"))),
                           reinterpret_cast<char*>(class_named("LTHostOdd")) + 8,
                           const_cast<uint64_t*>(noise)};
    for (void* target : wrong) {
        Image image = Image::load_bytes(
            loader_test::image_bytes("unaligned"), "unaligned.dylib", [&](const macho::Import& import) {
                return import.symbol == "OBJC_CLASS_$_LTHostOdd" ? target : loader_test::host_symbol(import);
            });
        EXPECT_EQ(message_of<Error>([&] { macho::import_classes(image); }),
                  "unaligned.dylib: cannot import: class LTUnaligned: its superclass is bound to something "
                  "that is not a class");
    }
    EXPECT_EQ(class_named("LTUnaligned"), nullptr) << "nothing was registered";
}

TEST(ObjcImportErrorTest, ACategoryOfANonClassIsRefused) {
    define_host_classes();
    static const uint64_t noise[16] = {~uint64_t{0}, 7, ~uint64_t{0}, 0x1234567812345678};
    Image image = Image::load_bytes(loader_test::image_bytes("category"), "category.dylib",
                                    [](const macho::Import& import) {
                                        return import.symbol == "OBJC_CLASS_$_LTHostOpen"
                                                   ? static_cast<void*>(const_cast<uint64_t*>(noise))
                                                   : loader_test::host_symbol(import);
                                    });
    EXPECT_EQ(message_of<Error>([&] { macho::import_classes(image); }),
              "category.dylib: cannot import: category LTMore: its class is bound to something that is not a "
              "class");
}

TEST(ObjcImportErrorTest, LoadMethodsAreRefused) {
    EXPECT_EQ(
        import_error("load_method"),
        "load_method.dylib: cannot import: section __objc_nlclslist lists classes with a +load method, which "
        "are not supported");
    EXPECT_EQ(class_named("LTLoaded"), nullptr);
}

TEST(ObjcImportErrorTest, ARootClassIsRefused) {
    EXPECT_EQ(import_error("root_class"),
              "root_class.dylib: cannot import: class LTRoot: it has no superclass, which is not supported");
}

TEST(ObjcImportErrorTest, VariablesThatCannotKeepTheirDistancesAreRefused) {
    EXPECT_EQ(import_error("unaligned"),
              "unaligned.dylib: cannot import: class LTUnaligned: the variable _second does not keep its "
              "distance from "
              "the first one (found 5, expected 7)");
}

TEST(ObjcImportErrorTest, AnImageWithoutClassesImportsNothing) {
    Image image = load("plain");
    const ImportedClasses classes = macho::import_classes(image);
    EXPECT_THAT(classes.registered, IsEmpty());
    EXPECT_THAT(classes.dropped, IsEmpty());
}

}  // namespace

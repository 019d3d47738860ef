// A class written with the seam, as the runtime and its callers see it.
#include "objc/class.h"

#include <map>
#include <string>

#include "support/phone.h"

struct HCMeadow : objc::Interface<HCMeadow, "HCMeadow", NSObject> {
    objc::strong<HCMeadow> initWithName(NSString* name) {
        return send<"initWithName:", objc::strong<HCMeadow>>(name);
    }
    NSString* name() { return send<"name", NSString*>(); }
    void setName(NSString* name) { send<"setName:">(name); }
    NSObject* owner() { return send<"owner", NSObject*>(); }
    void setOwner(NSObject* owner) { send<"setOwner:">(owner); }
    CGRect area() { return send<"area", CGRect>(); }
    void setArea(CGRect area) { send<"setArea:">(area); }
    bool mown() { return send<"mown", bool>(); }
    double mix(bool a, signed char b, short c, float d, CGRect e) {
        return send<"mix:b:c:d:e:", double>(a, b, c, d, e);
    }
    std::string& notes() { return *send<"notes", std::string*>(); }
};

struct HCGrazing : objc::ProtocolInterface<"HCGrazing"> {
    void graze() { send<"graze">(); }
    bool likes(NSString* grass, NSUInteger amount) { return send<"likes:amount:", bool>(grass, amount); }
};

namespace {

int meadows_gone = 0, states_alive = 0;

struct Meadow : objc::Implements<Meadow, HCMeadow> {
    struct State {
        State() { ++states_alive; }
        State(const State&) = delete;
        ~State() { --states_alive; }
        std::string notes = "fresh";
    };
    struct Ivars {
        bool mown;
        objc::strong<NSString> name;
        objc::weak<NSObject> owner;
        CGRect area;
        State state;
    };
    objc::strong<HCMeadow> initWithName(NSString* name) {
        auto self = initialised_by_super<"init">();
        if (!name) return nullptr;
        self->ivars().name = name;
        self->ivars().mown = true;
        return self;
    }
    bool mown() { return ivars().mown; }
    double mix(bool a, signed char b, short c, float d, CGRect e) {
        return (a ? 1000.0 : 0.0) + b + c + d + e.size.width;
    }
    std::string* notes() { return &ivars().state.notes; }
    NSString* description() { return super<"description", NSString*>(); }
    static NSInteger version(Class self) { return 7 + class_super<"version", NSInteger>(self); }
    void dealloc() { ++meadows_gone; }
};

}  // namespace

template <>
inline constexpr auto objc::structure_encoding<std::string> = objc::Name("{string=}");

using namespace objc::definition;

OBJC_CLASS(HCMeadow, NSObject, Meadow, ivar<"mown", &Meadow::Ivars::mown>,
           property<"name", &Meadow::Ivars::name>, property<"owner", &Meadow::Ivars::owner>,
           property<"area", &Meadow::Ivars::area>, ivar<"_state", &Meadow::Ivars::state>,
           conforms<"NSCopying">, conforms<"HCGrowing">,
           declares<"HCGrazing", required<"graze", &HCGrazing::graze>, optional<"likes:amount:", &HCGrazing::likes>>,
           class_method<"version", &Meadow::version>,
           method<"initWithName:", &Meadow::initWithName>, method<"mown", &Meadow::mown>,
           method<"mix:b:c:d:e:", &Meadow::mix>, method<"notes", &Meadow::notes>,
           method<"description", &Meadow::description>)

namespace test {
namespace {

class SeamClass : public testing::Test {
  protected:
    void SetUp() override {
        phone.boot();
        ASSERT_EQ(objc::register_classes([](std::string_view) { return true; }), nullptr);
    }
    static objc::strong<HCMeadow> meadow() { return HCMeadow::alloc()->initWithName(text("Lea")); }
    Phone phone;
};

TEST_F(SeamClass, IsFoundByName) { EXPECT_NE(objc_getClass("HCMeadow"), nullptr); }

TEST_F(SeamClass, ASecondRegistrationNamesTheClassThatExists) {
    EXPECT_STREQ(objc::register_classes([](std::string_view) { return true; }), "HCMeadow");
}

TEST_F(SeamClass, ALibraryDoesNotGoOnBesideOthersClassesOfItsNames) {
    EXPECT_DEATH(objc::register_library_classes(), "^HCMeadow: a class of this name exists already\n");
}

TEST_F(SeamClass, AnInitialiserMayGiveNothing) {
    EXPECT_EQ(HCMeadow::alloc()->initWithName(nullptr).get(), nullptr);
}

TEST_F(SeamClass, PropertiesHaveAccessors) {
    auto lea = meadow();
    EXPECT_EQ(utf8(lea->name()), "Lea");
    lea->setName(text("Ley"));
    EXPECT_EQ(utf8(lea->name()), "Ley");
    lea->setArea({{1, 2}, {3, 4}});
    EXPECT_EQ(lea->area(), (CGRect{{1, 2}, {3, 4}}));
}

TEST_F(SeamClass, KeyValueCodingFindsProperties) {
    auto lea = meadow();
    lea->send<"setValue:forKey:">(text("by key"), text("name"));
    EXPECT_EQ(utf8(lea->send<"valueForKey:", NSString*>(text("name"))), "by key");
}

TEST_F(SeamClass, AStrongPropertyKeepsAndReleasesItsObject) {
    auto name = objc::adopt(text("kept")->send<"mutableCopy", NSString*>());
    {
        objc::AutoreleasePool pool;
        auto lea = meadow();
        lea->setName(name);
        EXPECT_EQ((name->send<"retainCount", NSUInteger>()), 2u);
    }
    EXPECT_EQ((name->send<"retainCount", NSUInteger>()), 1u);
}

TEST_F(SeamClass, AWeakPropertyForgetsADeadObject) {
    auto lea = meadow();
    {
        objc::AutoreleasePool pool;
        auto owner = objc::adopt(NSObject::class_send<"new", NSObject*>());
        lea->setOwner(owner);
        EXPECT_EQ(lea->owner(), owner.get());
    }
    EXPECT_EQ(lea->owner(), nullptr);
}

TEST_F(SeamClass, VariablesStandUnderTheirNamesAndTypes) {
    Class type = objc_getClass("HCMeadow");
    auto types_of = [&](const char* name) -> std::string {
        Ivar found = class_getInstanceVariable(type, name);
        return found ? ivar_getTypeEncoding(found) : "missing";
    };
    EXPECT_EQ(types_of("mown"), "B");
    EXPECT_EQ(types_of("_name"), "@\"NSString\"");
    EXPECT_EQ(types_of("_owner"), "@\"NSObject\"");
    EXPECT_EQ(types_of("_area"), "{CGRect={CGPoint=dd}{CGSize=dd}}");
    EXPECT_EQ(types_of("_state"), "?");
    auto lea = meadow();
    EXPECT_TRUE(
        *(reinterpret_cast<bool*>(lea.get()) + ivar_getOffset(class_getInstanceVariable(type, "mown"))));
}

TEST_F(SeamClass, CppVariablesAreConstructedAndDestroyed) {
    EXPECT_EQ(states_alive, 0) << "registering keeps none";
    {
        const objc::AutoreleasePool pool;
        auto lea = meadow();
        EXPECT_EQ(states_alive, 1);
        EXPECT_EQ(lea->notes(), "fresh");
        lea->notes() = std::string(100, 'x');
    }
    EXPECT_EQ(states_alive, 0);
}

TEST_F(SeamClass, DeallocRunsOnce) {
    meadows_gone = 0;
    {
        objc::AutoreleasePool pool;
        meadow();
    }
    EXPECT_EQ(meadows_gone, 1);
}

TEST_F(SeamClass, ArgumentsOfEveryKindArrive) {
    EXPECT_EQ(meadow()->mix(true, -5, -300, 1.5f, {{0, 0}, {40, 0}}), 1000 - 5 - 300 + 1.5 + 40);
}

TEST_F(SeamClass, ClassMethodsAndTheirSuperSendsWork) {
    EXPECT_EQ((HCMeadow::class_send<"version", NSInteger>()), 7);
}

TEST_F(SeamClass, ConformsToItsProtocols) {
    EXPECT_TRUE(class_conformsToProtocol(objc_getClass("HCMeadow"), objc_getProtocol("NSCopying")));
}

TEST_F(SeamClass, AProtocolThatTheSystemLacksIsMade) {
    ASSERT_NE(objc_getProtocol("HCGrowing"), nullptr);
    EXPECT_TRUE(class_conformsToProtocol(objc_getClass("HCMeadow"), objc_getProtocol("HCGrowing")));
}

TEST_F(SeamClass, ADeclaredProtocolIsForOthers) {
    ASSERT_NE(objc_getProtocol("HCGrazing"), nullptr);
    EXPECT_FALSE(class_conformsToProtocol(objc_getClass("HCMeadow"), objc_getProtocol("HCGrazing")));
}

std::string types_in_protocol(const char* selector, bool required, bool instance = true) {
    const auto [name, types] = protocol_getMethodDescription(objc_getProtocol("HCGrazing"),
                                                             sel_registerName(selector), required, instance);
    return name ? std::string(sel_getName(name)) + " " + types : "none";
}

TEST_F(SeamClass, ADeclaredProtocolKnowsItsRequiredMethods) {
    EXPECT_EQ(types_in_protocol("graze", true), "graze v16@0:8");
    EXPECT_EQ(types_in_protocol("graze", false), "none");
    EXPECT_EQ(types_in_protocol("graze", true, false), "none") << "the class's methods are others";
}

TEST_F(SeamClass, ADeclaredProtocolKnowsItsOptionalMethods) {
    EXPECT_EQ(types_in_protocol("likes:amount:", false), "likes:amount: B32@0:8@16Q24");
    EXPECT_EQ(types_in_protocol("likes:amount:", true), "none");
}

TEST_F(SeamClass, ADeclaredProtocolListsItsMethods) {
    for (const auto& [required, selector] : {std::pair(true, "graze"), std::pair(false, "likes:amount:")}) {
        unsigned count = 7;
        objc_method_description* methods =
            protocol_copyMethodDescriptionList(objc_getProtocol("HCGrazing"), required, true, &count);
        ASSERT_EQ(count, 1u);
        EXPECT_STREQ(sel_getName(methods[0].name), selector);
        std::free(methods);
        EXPECT_EQ(protocol_copyMethodDescriptionList(objc_getProtocol("HCGrazing"), required, false, &count),
                  nullptr);
        EXPECT_EQ(count, 0u);
    }
}

TEST_F(SeamClass, NilAnswersZeroOfEveryKind) {
    auto nobody = HCMeadow::alloc()->initWithName(nullptr);
    EXPECT_EQ(nobody->name(), nullptr);
    EXPECT_EQ(nobody->area(), (CGRect{}));
    EXPECT_EQ(nobody->mix(true, 1, 1, 1, {}), 0.0);
    EXPECT_FALSE(nobody->mown());
}

}  // namespace
}  // namespace test

// The set-up initialiser: which process gets which hooks.
#include <algorithm>
#include <array>

#include "hooks/hook_rows.h"
#include "support/runtime.h"
#include "support/themes.h"

namespace test {
namespace {

constexpr const char* daemon_path = "/usr/libexec/keyboardd";

class Setup : public testing::Test {
  protected:
    Phone phone;
};

TEST_F(Setup, AnApplicationGetsTheWholeTableInOrder) {
    arrange_theme(phone);
    phone.start();
    EXPECT_EQ(installed_rows(),
              joined({{cache_row_without_class}, caps_rows, themed_rows, {named_colour_row}}));
}

TEST_F(Setup, SpringBoardGetsTheCacheRowAndTheWholeTable) {
    arrange_theme(phone);
    phone.start({.executable = springboard});
    EXPECT_EQ(installed_rows(), joined({cache_rows, caps_rows, themed_rows, {named_colour_row}}));
}

TEST_F(Setup, SlashesAfterSpringBoardDoNotCount) {
    arrange_theme(phone);
    phone.start({.executable = "/usr/libexec/SpringBoard///"});
    EXPECT_EQ(installed_rows().size(), std::size(hooks::row_list) + 1);
}

TEST_F(Setup, SlashesAloneGetTheNamedColoursOnly) {
    arrange_theme(phone);
    phone.start({.executable = "//"});
    EXPECT_EQ(installed_rows(), Rows{named_colour_row});
}

TEST_F(Setup, AnInstalledApplicationQualifiesByItsContainer) {
    arrange_theme(phone);
    phone.start({.executable = "/var/containers/Bundle/Application/0A1B2C/Game.app/Game"});
    EXPECT_EQ(installed_rows().size(), std::size(hooks::row_list) + 1);
}

TEST_F(Setup, VisibleCapsLeaveOutExactlyTheRenderFactory) {
    arrange_theme(phone, true, "<key>_VisibleKeycaps</key><true/>");
    phone.start();
    EXPECT_EQ(installed_rows(), joined({{cache_row_without_class}, themed_rows, {named_colour_row}}));
}

TEST_F(Setup, DisabledInstallsTheCacheRowAndTheNamedColoursOnly) {
    arrange_theme(phone, false);
    phone.start();
    EXPECT_EQ(installed_rows(), and_named_colours_unless_arm64e({cache_row_without_class}));
}

TEST_F(Setup, WithoutPreferencesItInstallsNoMoreThanDisabled) {
    phone.start();
    EXPECT_EQ(installed_rows(), and_named_colours_unless_arm64e({cache_row_without_class}));
}

TEST_F(Setup, ADaemonGetsTheNamedColoursOnly) {
    arrange_theme(phone);
    phone.start({.executable = daemon_path});
    EXPECT_EQ(installed_rows(), Rows{named_colour_row});
}

TEST_F(Setup, AnEmptyArgumentVectorGetsTheNamedColoursOnly) {
    arrange_theme(phone);
    phone.start({.arguments = SIM_ARGUMENTS_NONE});
    EXPECT_EQ(installed_rows(), Rows{named_colour_row});
}

TEST_F(Setup, ANilFirstArgumentGetsTheNamedColoursOnly) {
    arrange_theme(phone);
    phone.start({.arguments = SIM_ARGUMENTS_NIL});
    EXPECT_EQ(installed_rows(), Rows{named_colour_row});
}

TEST_F(Setup, EveryRowTakesEffectWhereItsClassExists) {
    arrange_theme(phone);
    phone.start({.executable = springboard});
    for (size_t i = 0; i < sim_installing_call_count(); ++i) {
        sim_installing_call call;
        ASSERT_EQ(sim_installing_call_at(i, &call), SIM_OK);
        EXPECT_TRUE(call.took_effect) << installed_rows()[i];
    }
}

TEST_F(Setup, AMissingClassMakesItsRowsDoNothing) {
    arrange_theme(phone);
    phone.start({.left_out = {"UIKBGradient", "UIKBEdgeEffect", "UIKBBackdropView"}});
    Rows expected = joined({{cache_row_without_class}, caps_rows, themed_rows, {named_colour_row}});
    // The calls are made all the same. What derives from a missing class is missing, too, and nil has no
    // metaclass.
    for (std::string& row : expected)
        for (const std::string missing :
             {"UIKBGradient", "UIKBEdgeEffect", "UIKBBackdropView", "UIKBVisualEffectView"})
            if (row.substr(2).starts_with(missing + " "))
                row = "-[nil" + row.substr(std::string("-[").size() + missing.size());
    EXPECT_EQ(installed_rows(), expected);
    EXPECT_EQ(std::count_if(expected.begin(), expected.end(),
                            [](const std::string& row) { return row.starts_with("-[nil "); }),
              1 + 4 + 4 + 4);
    auto factory = made("UIKBRenderFactory");
    EXPECT_EQ(utf8(objc::send<"defaultKeyBackgroundColorName", NSString*>(factory)), "UIKBColorClear")
        << "and the other rows are at work";
}

TEST_F(Setup, TheSpringBoardRowIsInstalledBeforeThePreferencesAreRead) {
    static IMP previous;
    static std::vector<size_t> calls_before_reading;
    arrange_theme(phone);
    phone.boot();
    previous = stand_in(
        "NSData", "dataWithContentsOfFile:",
        [](id self, SEL selector, id path) -> id {
            if (utf8(path) == preference_file) calls_before_reading.push_back(sim_installing_call_count());
            return call<id>(previous, self, selector, path);
        },
        Side::on_class);
    const size_t calls_of_test = sim_installing_call_count();
    phone.load();
    EXPECT_EQ(calls_before_reading, std::vector<size_t>{calls_of_test + 1});
    EXPECT_EQ(installed_rows().at(calls_of_test), cache_row_without_class);
}

/// Preferences that cannot be made.
class SetupWithoutStore : public Setup {
  protected:
    void SetUp() override {
        static IMP previous;
        arrange_theme(phone);
        phone.boot();
        black_before = named("UIKBColorBlack_Alpha60");
        previous = stand_in(
            "NSObject", "alloc",
            [](id self, SEL selector) -> id {
                if (std::string(class_getName(reinterpret_cast<Class>(self))) == "HCPreferences")
                    return nullptr;
                return call<id>(previous, self, selector);
            },
            Side::on_class);
        calls_of_test = sim_installing_call_count();
        phone.load();
    }
    static std::vector<double> named(const char* name) {
        sim_colour colour{};
        EXPECT_EQ(sim_named_colour(name, &colour), SIM_OK) << sim_last_error();
        return {colour.components, colour.components + 4};
    }
    size_t calls_of_test = 0;
    std::vector<double> black_before;
};

TEST_F(SetupWithoutStore, StopsAfterTheSpringBoardRow) {
    ASSERT_EQ((objc::send<"sharedInstance", id>(class_named("HCPreferences"))), nullptr);
    Rows rows = installed_rows();
    rows.erase(rows.begin(), rows.begin() + static_cast<ptrdiff_t>(calls_of_test));
    EXPECT_EQ(rows, and_named_colours_unless_arm64e({cache_row_without_class}));
}

TEST_F(SetupWithoutStore, NamesStayTheSystems) {
    EXPECT_EQ(named("UIKBColorBlack_Alpha60"), black_before);
    sim_colour text_colour{};
    EXPECT_EQ(sim_named_colour("UIKBColorText", &text_colour), SIM_OK);
    EXPECT_EQ(text_colour.model, SIM_COLOUR_NONE) << "the system does not know the name";
}

TEST_F(Setup, AnInheritedMethodIsReplacedForTheNamedClassOnly) {
    arrange_theme(phone);
    phone.boot();
    auto layout_of = [](const char* name) {
        return class_getMethodImplementation(objc_getClass(name), sel_registerName("layoutSubviews"));
    };
    const IMP of_every_view = layout_of("UIView");
    phone.load();
    EXPECT_EQ(layout_of("UIView"), of_every_view);
    EXPECT_NE(layout_of("UIKeyboardDockItemButton"), of_every_view);
}

/// A row whose class inherits the method that it replaces.
struct InheritedRow {
    const char *owner, *declared_by, *selector;
    /// The class that declares the method is in the table, too.
    bool has_a_row_itself = false;
    friend void PrintTo(const InheritedRow& row, std::ostream* out) { *out << row.owner; }
};

class InheritedMethod : public testing::TestWithParam<InheritedRow> {
  protected:
    static IMP of(const char* name) {
        return class_getMethodImplementation(objc_getClass(name), sel_registerName(GetParam().selector));
    }
    Phone phone;
};

TEST_P(InheritedMethod, IsAddedToTheNamedClassInFrontOfTheInheritedOne) {
    const auto& [owner, declared_by, selector, has_a_row_itself] = GetParam();
    arrange_theme(phone);
    phone.boot();
    ASSERT_EQ(of(owner), of(declared_by)) << "the system's class has a method of its own";
    const IMP of_the_superclass = of(declared_by);
    phone.load();
    EXPECT_NE(of(owner), of(declared_by));
    EXPECT_EQ(of(declared_by) == of_the_superclass, !has_a_row_itself);
}

INSTANTIATE_TEST_SUITE_P(
    , InheritedMethod,
    testing::Values(InheritedRow{"UIInputSwitcherTableView", "UITableView", "layoutSubviews"},
                    InheritedRow{"UIKBVisualEffectView", "UIKBBackdropView", "initWithFrame:style:", true},
                    InheritedRow{"UIKBInputBackdropView", "UIView", "layoutSubviews"}),
    [](const auto& info) { return std::string(info.param.owner); });

TEST_F(Setup, AVisualEffectViewGetsTheReplacementOfItsSuperclassAsWell) {
    arrange_theme(phone);
    phone.boot();
    static std::vector<std::string> set;
    phone.load();
    static IMP previous;
    previous = stand_in("UIKBBackdropView", "setActiveBackgroundView:", [](id self, SEL selector, id view) {
        set.emplace_back(view ? object_getClassName(view) : "nil");
        call(previous, self, selector, view);
    });
    made<"initWithFrame:style:">("UIKBVisualEffectView", CGRect{{0, 0}, {10, 10}}, NSInteger{2});
    ASSERT_EQ(set.size(), 2u);
    EXPECT_TRUE(set[0].starts_with("_UIBackdrop")) << set[0] << ", by the row of UIKBBackdropView";
    EXPECT_EQ(set[1], "nil") << "by its own row";
}

TEST_F(Setup, DisabledLeavesTheKeyboardClassesAsTheyWere) {
    arrange_theme(phone, false);
    phone.boot();
    std::array<Method, 2> before{
        class_getInstanceMethod(objc_getClass("UIKBTextStyle"), sel_registerName("textColor")),
        class_getInstanceMethod(objc_getClass("UIKBEdgeEffect"), sel_registerName("edges"))};
    std::array<IMP, 2> implementations{method_getImplementation(before[0]),
                                       method_getImplementation(before[1])};
    phone.load();
    EXPECT_EQ(class_getMethodImplementation(objc_getClass("UIKBTextStyle"), sel_registerName("textColor")),
              implementations[0]);
    EXPECT_EQ(class_getMethodImplementation(objc_getClass("UIKBEdgeEffect"), sel_registerName("edges")),
              implementations[1]);
    EXPECT_FALSE(class_respondsToSelector(objc_getClass("UIKBBackdropView"),
                                          sel_registerName("activeBackgroundView")));
}

TEST_F(Setup, PreferencesChangedLaterInstallNothing) {
    phone.start();
    const size_t before = sim_installing_call_count();
    arrange_theme(phone);
    auto style = made("UIKBTextStyle");
    objc::send<"textColor", id>(style);
    EXPECT_EQ(sim_installing_call_count(), before);
}

TEST_F(Setup, TheActiveBackgroundViewIsHeldStronglyAndCleared) {
    arrange_theme(phone);
    phone.start();
    id backdrop = made<"initWithFrame:style:">("UIKBBackdropView", CGRect{{0, 0}, {10, 10}}, NSInteger{2});
    auto view = objc::strong<UIView>::adopt(objc::send<"new", UIView*>(class_named("UIView")));
    const auto before = view->send<"retainCount", NSUInteger>();
    objc::send<"setActiveBackgroundView:">(backdrop, view.get());
    EXPECT_EQ((view->send<"retainCount", NSUInteger>()), before + 1);
    EXPECT_EQ((objc::send<"activeBackgroundView", UIView*>(backdrop)), view.get());
    objc::send<"setActiveBackgroundView:">(backdrop, id{});
    EXPECT_EQ((objc::send<"activeBackgroundView", UIView*>(backdrop)), nullptr);
}

TEST_F(Setup, TheActiveBackgroundViewLivesAsLongAsTheCallersPool) {
    arrange_theme(phone);
    phone.start();
    id backdrop = made<"initWithFrame:style:">("UIKBBackdropView", CGRect{{0, 0}, {10, 10}}, NSInteger{2});
    objc::strong<UIView> view = UIView::alloc()->init();
    objc::send<"setActiveBackgroundView:">(backdrop, view.get());
    {
        objc::AutoreleasePool pool;
        objc::send<"activeBackgroundView", id>(backdrop);
        objc::send<"setActiveBackgroundView:">(backdrop, id{});
        EXPECT_EQ((view->send<"retainCount", NSUInteger>()), 2u) << "retained for whoever asked";
    }
    EXPECT_EQ((view->send<"retainCount", NSUInteger>()), 1u) << "and given to the pool";
}

TEST_F(Setup, AddedMethodsDoNotReplaceExistingOnes) {
    arrange_theme(phone);
    phone.boot();
    static UIView* own = nullptr;
    own = static_cast<UIView*>(made("UIView"));
    class_addMethod(objc_getClass("UIKBBackdropView"), sel_registerName("activeBackgroundView"),
                    reinterpret_cast<IMP>(+[](id, SEL) -> id { return own; }), "@@:");
    phone.load();
    id backdrop = made<"initWithFrame:style:">("UIKBBackdropView", CGRect{{0, 0}, {10, 10}}, NSInteger{2});
    EXPECT_EQ((objc::send<"activeBackgroundView", UIView*>(backdrop)), own);
}

// ---- The initialiser's pool ------------------------------------------------------------------------------

struct Exit {
    const char* name;
    sim_arguments arguments = SIM_ARGUMENTS_EXECUTABLE;
    const char* executable = notes;
    bool enabled = true;
    bool store = true;
    friend void PrintTo(const Exit& exit, std::ostream* out) { *out << exit.name; }
};

/// Each way out of the set-up initialiser.
class PoolOfSetup : public testing::TestWithParam<Exit> {
  protected:
    Phone phone;
};

TEST_P(PoolOfSetup, IsEmptiedBeforeTheNamedColoursAreHooked) {
    static IMP arguments, alloc;
    static bool store;
    static Class witness;
    static std::vector<size_t> calls_at_death;
    store = GetParam().store;
    arrange_theme(phone, GetParam().enabled);
    phone.boot({.executable = GetParam().executable, .arguments = GetParam().arguments});
    witness = objc_allocateClassPair(objc_getClass("NSObject"), "HCWitness", 0);
    class_addMethod(witness, sel_registerName("dealloc"), reinterpret_cast<IMP>(+[](id self, SEL selector) {
                        calls_at_death.push_back(sim_installing_call_count());
                        call(class_getMethodImplementation(objc_getClass("NSObject"), selector), self,
                             selector);
                    }),
                    "v16@0:8");
    objc_registerClassPair(witness);
    arguments = stand_in("NSProcessInfo", "arguments", [](id self, SEL selector) -> id {
        objc_autorelease(objc::send<"new", id>(reinterpret_cast<id>(witness)));
        return call<id>(arguments, self, selector);
    });
    alloc = stand_in(
        "NSObject", "alloc",
        [](id self, SEL selector) -> id {
            const std::string name = class_getName(reinterpret_cast<Class>(self));
            return !store && name == "HCPreferences" ? nullptr : call<id>(alloc, self, selector);
        },
        Side::on_class);
    phone.load();
    const bool hooked = installed_rows().back() == named_colour_row;
    ASSERT_TRUE(hooked || process_under_test() == SIM_PROCESS_ARM64E);
    EXPECT_EQ(calls_at_death, std::vector<size_t>{sim_installing_call_count() - hooked});
}

INSTANTIATE_TEST_SUITE_P(AtEachExit, PoolOfSetup,
                         testing::Values(Exit{.name = "NoArguments", .arguments = SIM_ARGUMENTS_NONE},
                                         Exit{.name = "NilArgument", .arguments = SIM_ARGUMENTS_NIL},
                                         Exit{.name = "Daemon", .executable = daemon_path},
                                         Exit{.name = "NoStore", .store = false},
                                         Exit{.name = "Disabled", .enabled = false},
                                         Exit{.name = "TheWholeTable"}),
                         [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace test

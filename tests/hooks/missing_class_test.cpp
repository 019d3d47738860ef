// A system that lacks something: a class, a method, or what stood behind a hook. What is there is themed, and
// nothing raises.
#include <algorithm>
#include <set>

#include "hooks/hook_rows.h"
#include "hooks/row_probes.h"
#include "hooks/surfaces.h"
#include "support/runtime.h"
#include "support/themes.h"

namespace test {
namespace {

std::string without_types(const std::string& row) { return row.substr(0, row.find(" added as ")); }

/// "UIKBGradient_gradientWithName"
std::string test_name(const std::string& row) {
    std::string name;
    for (char c : row.substr(2, row.size() - 3)) name += c == ' ' || c == ':' ? '_' : c;
    if (name.back() == '_') name.pop_back();
    return name;
}

std::vector<std::string> classes_of_the_table() {
    std::vector<std::string> classes;
    for (const std::string& row : whole_table())
        if (classes.empty() || classes.back() != owner_of(row)) classes.push_back(owner_of(row));
    return classes;
}

/// Those that hooks, backdrops, preview, panel and picker look up besides. Without colours, fonts and layout
/// constraints the model itself could show nothing.
std::vector<std::string> classes_looked_up() {
    return {"UIKBTree",        "_UIKBKeyViewLayer", "_UIToolbarContentView",
            "UIKeyboardImpl",  "_UIBackdropView",   "CAFilter",
            "CAGradientLayer", "CABasicAnimation",  "CAMediaTimingFunction",
            "UIBezierPath",    "UIImageView",       "UILabel",
            "UIButton",        "UISlider",          "UITextField",
            "UIStackView",     "UICollectionView",  "UICollectionViewCell",
            "UIPasteboard"};
}

std::vector<std::string> every_class() {
    std::vector<std::string> classes = classes_of_the_table();
    std::ranges::copy(classes_looked_up(), std::back_inserter(classes));
    return classes;
}

/// Drawing every surface takes an emulated processor six seconds. What is drawn where something is missing is
/// decided by the same sources on both processors, so arm64 draws it for one of each kind, and x86-64 for
/// all.
#ifdef __aarch64__
constexpr bool emulated = true;
#else
constexpr bool emulated = false;
#endif

struct Call {
    std::string row;
    bool took_effect;
};

/// The calls that were made since the phone was switched on, but for the function's.
std::vector<Call> method_calls() {
    const std::vector<std::string> rows = installed_rows();
    std::vector<Call> calls;
    for (size_t i = 0; i < rows.size(); ++i) {
        sim_installing_call call;
        EXPECT_EQ(sim_installing_call_at(i, &call), SIM_OK);
        if (call.kind != SIM_HOOK_FUNCTION) calls.push_back({rows[i], call.took_effect});
    }
    return calls;
}

bool exists(const std::string& class_name) { return objc_getClass(class_name.c_str()); }

/// Every row whose classes exist shows the theme, but for those named.
void expect_rows_at_work(const std::set<std::string>& but = {}) {
    size_t probed = 0;
    for (const auto& [row, probe] : row_probes()) {
        if (but.contains(row) || !exists(owner_of(row)) || !std::ranges::all_of(probe.needs, exists))
            continue;
        ++probed;
        EXPECT_TRUE(probe.shows_the_theme()) << row;
    }
    EXPECT_GE(probed, 27u) << "or the probes are gone";
}

class Drift : public testing::Test {
  protected:
    void start(const Phone::Options& options) {
        arrange_theme(phone);
        phone.start(options);
    }
    Phone phone;
};

TEST_F(Drift, EveryRowHasAProbe) {
    std::set<std::string> rows, probed;
    for (const std::string& row : whole_table())
        if (row != cache_rows.front()) rows.insert(without_types(row));
    for (const auto& [row, probe] : row_probes()) probed.insert(row);
    EXPECT_EQ(probed, rows);
}

TEST_F(Drift, OfACompleteSystemEveryRowIsAtWork) {
    start({.executable = springboard});
    expect_rows_at_work();
    show_every_surface(phone);
}

TEST_F(Drift, WithoutTheLibraryNoReplacementIsAtWork) {
    arrange_theme(phone);
    phone.start({.executable = "/usr/libexec/keyboardd"});
    for (const auto& [row, probe] : row_probes()) {
        // Probes of what the table adds would ask for methods that are not there.
        if (row.find("ctiveBackgroundView") != row.npos || owner_of(row) == "UIKBBackdropView" ||
            owner_of(row) == "UIKBVisualEffectView" || owner_of(row) == "UIKBInputBackdropView")
            continue;
        EXPECT_FALSE(probe.shows_the_theme()) << row << ": the probe would not notice";
    }
}

// ---- A class -------------------------------------------------------------------------------------------

class MissingClass : public Drift, public testing::WithParamInterface<std::string> {};

TEST_P(MissingClass, LeavesTheOtherRowsAtWork) {
    const std::string& missing = GetParam();
    start({.executable = springboard, .left_out = {missing.c_str()}});
    ASSERT_FALSE(exists(missing));
    const Rows table = whole_table();
    const std::vector<Call> calls = method_calls();
    ASSERT_EQ(calls.size(), table.size());
    for (size_t i = 0; i < table.size(); ++i) {
        // What derives from the missing class is missing, too. The call is made all the same.
        const std::string owner = owner_of(table[i]);
        EXPECT_EQ(calls[i].took_effect, exists(owner)) << table[i];
        EXPECT_EQ(owner_of(calls[i].row), exists(owner) ? owner : "nil") << table[i];
    }
    expect_rows_at_work();
}

INSTANTIATE_TEST_SUITE_P(, MissingClass, testing::ValuesIn(classes_of_the_table()),
                         [](const auto& info) { return info.param; });
INSTANTIATE_TEST_SUITE_P(LookedUp, MissingClass, testing::ValuesIn(classes_looked_up()),
                         [](const auto& info) { return info.param; });

class SurfacesWithoutClass : public Drift, public testing::WithParamInterface<std::string> {};

TEST_P(SurfacesWithoutClass, AreAllShown) {
    const std::string& missing = GetParam();
    start({.left_out = {missing.c_str()}});
    show_every_surface(phone);
}

INSTANTIATE_TEST_SUITE_P(, SurfacesWithoutClass,
                         testing::ValuesIn(emulated ? Rows{"UIKBTree", "UIKBBackdropView", "_UIBackdropView",
                                                           "CAFilter"}
                                                    : every_class()),
                         [](const auto& info) { return info.param; });

// ---- A method ------------------------------------------------------------------------------------------

std::vector<std::string> replaced_rows() {
    Rows rows = whole_table();
    std::erase_if(rows, is_added);
    return rows;
}

class UnfoundMethod : public Drift, public testing::WithParamInterface<std::string> {};

TEST_P(UnfoundMethod, LeavesTheOtherRowsAtWork) {
    const std::string& unfound = GetParam();
    start({.executable = springboard, .unfound = {unfound.c_str()}});
    const Rows table = whole_table();
    const std::vector<Call> calls = method_calls();
    ASSERT_EQ(calls.size(), table.size());
    for (size_t i = 0; i < table.size(); ++i) {
        EXPECT_EQ(calls[i].row, table[i]);
        EXPECT_EQ(calls[i].took_effect, table[i] != unfound) << table[i];
    }
    expect_rows_at_work({unfound});
}

INSTANTIATE_TEST_SUITE_P(, UnfoundMethod, testing::ValuesIn(replaced_rows()),
                         [](const auto& info) { return test_name(info.param); });

class SurfacesWithoutMethod : public Drift, public testing::WithParamInterface<std::string> {};

TEST_P(SurfacesWithoutMethod, AreAllShown) {
    const std::string& unfound = GetParam();
    start({.unfound = {unfound.c_str()}});
    show_every_surface(phone);
}

/// One that is answered for, one that gets other arguments, one that something follows, and an initialiser
/// that is surrounded.
const Rows one_of_each_kind{"-[UIKBRenderConfig lightKeyboard]", "+[UIKBGradient gradientWithName:]",
                            "-[UIKeyboardDockItemButton layoutSubviews]",
                            "-[UIKBBackdropView initWithFrame:style:]"};
INSTANTIATE_TEST_SUITE_P(, SurfacesWithoutMethod,
                         testing::ValuesIn(emulated ? one_of_each_kind : replaced_rows()),
                         [](const auto& info) { return test_name(info.param); });

// ---- Nothing behind a hook -----------------------------------------------------------------------------

/// The framework puts the replacement in place and leaves the slot of the previous implementation empty.
class NothingBehindTheHook : public Drift, public testing::WithParamInterface<std::string> {};

/// Calls the method with nil and zero for whatever arguments it has: in registers, and on the stack, where
/// one processor passes structures.
void call_with_nothing(id receiver, const std::string& row) {
    const std::string selector_name = row.substr(row.find(' ') + 1, row.size() - row.find(' ') - 2);
    const SEL selector = sel_registerName(selector_name.c_str());
    Class owner = object_getClass(receiver);
    using Method =
        void (*)(id, SEL, long, long, long, long, double, double, double, double, double, double, double,
                 double, long, long, long, long, long, long, long, long, long, long, long, long);
    reinterpret_cast<Method>(class_getMethodImplementation(owner, selector))(
        receiver, selector, 0, 0, 0, 0, 0., 0., 0., 0., 0., 0., 0., 0., 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
}

TEST_P(NothingBehindTheHook, IsSurvived) {
    const std::string& row = GetParam();
    arrange_theme(phone);
    phone.boot({.executable = springboard, .without_previous = {row.c_str()}});
    // Made before the hook is: a hooked initialiser has nothing to make an object with.
    const auto owner = reinterpret_cast<id>(objc_getClass(owner_of(row).c_str()));
    id receiver = row.starts_with('+') ? owner : made(owner_of(row).c_str());
    phone.load();
    const std::vector<Call> calls = method_calls();
    const auto hidden = std::ranges::find(calls, row, &Call::row);
    ASSERT_NE(hidden, calls.end());
    ASSERT_TRUE(hidden->took_effect) << "the replacement is in place";
    for (NSUInteger type : {2, 1, 3, 0}) {
        objc::send<"setBackgroundType:">(active_theme(), type);
        EXPECT_EQ(raised_by([&] { call_with_nothing(receiver, row); }), "") << type;
    }
}

INSTANTIATE_TEST_SUITE_P(, NothingBehindTheHook, testing::ValuesIn(replaced_rows()),
                         [](const auto& info) { return test_name(info.param); });

}  // namespace

void prepare_phones() { prepare_phones_that_may_lack(every_class()); }

}  // namespace test

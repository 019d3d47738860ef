// A process starts: any bytes as the preference file, any as the theme that it may name, through both
// initialisers of the library. What was installed must fit what the store says; then the keyboard's colours
// are asked, and now and then it is shown.
//
// An input is a byte of choices, the number of the preference file's bytes, these, and the theme's. The
// library is a part of this program, so that it can start again: the store reads again, and the hooks are
// taken back.
#include <string>
#include <vector>

#include "harness/fuzz.h"
#include "hooks/hook_table.h"
#include "hooks/named_colours.h"
#include "hooks/setup.h"
#include "model/HCPreferences.h"
#include "objc/class.h"
#include "platform/substrate.h"

namespace {

struct Replaced {
    Class owner;
    SEL selector;
    IMP before;
};
std::vector<Replaced> replaced;
using NamedColour = CGColorRef (*)(NSString*);
NamedColour named_colour = nullptr;

/// How many rows of the table stand under the conditions; rows that add are not replaced.
size_t rows_for(bool themed, bool caps_hidden) {
    size_t count = 0;
    for (const auto& [condition, row] : hooks::hook_table) {
        if (row.adds || !objc_getClass(row.class_name)) continue;
        count += condition == hooks::Condition::accepted_process ||
                 (themed && (condition == hooks::Condition::themed || caps_hidden));
    }
    return count;
}

/// In this class alone, also where the method was inherited.
void set_implementation(Class owner, SEL selector, IMP implementation) {
    Method method = class_getInstanceMethod(owner, selector);
    if (!class_addMethod(owner, selector, implementation, method_getTypeEncoding(method)))
        method_setImplementation(method, implementation);
}

void take_back_hooks() {
    while (!replaced.empty()) {
        const auto& [owner, selector, before] = replaced.back();
        set_implementation(owner, selector, before);
        replaced.pop_back();
    }
}

HCPreferences* arranged_store() {
    fuzz::phone_without_library();
    objc::adopt_strings();
    objc::register_library_classes();
    return HCPreferences::sharedInstance();
}

void use(HCPreferences* store, bool is_shown) {
    const auto asked = [](const char* name) { return named_colour(test::text(name)); };
    const CGColorRef text = asked("UIKBColorText"), highlight = asked("UIKBColorHighlight");
    if (store->isEnabled()) {
        EXPECT_EQ(text == nullptr, store->getTextColor() == nullptr);
        EXPECT_EQ(highlight == nullptr, store->getHighlightColor() == nullptr);
        EXPECT_NE(asked("UIKBColorClear"), nullptr);
    }
    if (is_shown) EXPECT_EQ(sim_show_keyboard(nullptr), SIM_OK) << sim_last_error();
}

}  // namespace

// ---- The injection framework, which forgets what it did ------------------------------------------------

void MSHookMessageEx(Class owner, SEL selector, IMP replacement, IMP* previous) {
    Method method = owner ? class_getInstanceMethod(owner, selector) : nullptr;
    if (!method) return;
    *previous = method_getImplementation(method);
    replaced.push_back({owner, selector, *previous});
    set_implementation(owner, selector, replacement);
}

void MSHookFunction(void* symbol, void* replacement, void** previous) {
    *previous = symbol;
    named_colour = reinterpret_cast<NamedColour>(replacement);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static HCPreferences* const store = arranged_store();
    const fuzz::Pool pool;
    fuzz::Bytes bytes(data, size);
    const uint8_t choices = bytes.byte();
    const size_t count = bytes.number(2) % 2048;
    fuzz::put(test::preference_file, bytes.next(count));
    fuzz::put(std::string(test::theme_folder) + "A.plist", bytes.rest());
    store->send<"init", id>();
    hooks::set_up();
    hooks::hook_named_colours();
    const bool is_on = store->isEnabled();
    EXPECT_EQ(replaced.size(), rows_for(is_on, is_on && !store->isCapsEnabled()));
    use(store, choices == 'k');
    take_back_hooks();
    return 0;
}

// The colour picker by whatever a person can do, in any order: typing, deleting, selecting, copying, pasting,
// touching, dragging, waiting, and either button. What it shows must hold together after each step.
//
// Opening a picker costs more than what is done in it. One that an input leaves open the next one uses:
// nobody types in it, and its colour is the one that every input begins with. Nobody hears the colour;
// recent_colours confirms some.
#include "harness/fuzz.h"
#include "platform/controls.h"
#include "platform/navigation.h"

namespace {

using objc::send;
using test::text;

id presented() {
    void* controller = nullptr;
    EXPECT_EQ(sim_presented(&controller), SIM_OK) << sim_last_error();
    return static_cast<id>(controller);
}

id open_picker() {
    id picker = presented();
    if (!picker) {
        picker = test::made("HCColorPickerController");
        EXPECT_EQ(sim_present(picker), SIM_OK) << sim_last_error();
    }
    send<"updateToColor:">(picker, test::color(0, 0, 0, 1));
    EXPECT_EQ(sim_advance_clock(2), SIM_OK) << sim_last_error();
    EXPECT_EQ(test::utf8(send<"text", id>(send<"hexTextField", id>(picker))), "#000000");
    return picker;
}

/// What may be refused is refused: nobody is typing, nothing is there. Nothing is raised.
void expect_done_or_refused(sim_status status) {
    EXPECT_TRUE(status == SIM_OK || status == SIM_NOT_FOUND || status == SIM_MISUSE) << sim_last_error();
}

void expect_sound(id picker) {
    const std::string hex = test::utf8(send<"text", id>(send<"hexTextField", id>(picker)));
    EXPECT_EQ(hex.find_first_not_of("#0123456789ABCDEF"), hex.npos) << hex;
    EXPECT_LE(hex.size(), 10u) << hex;
    for (id slider : {send<"redSlider", id>(picker), send<"greenSlider", id>(picker),
                      send<"blueSlider", id>(picker), send<"alphaSlider", id>(picker)}) {
        const auto value = send<"getValue", double>(slider);
        EXPECT_TRUE(value >= 0 && value <= 1) << value;
    }
}

void tap(id view) {
    auto* shown = static_cast<UIView*>(view);
    if (!shown->window()) return;
    const CGSize size = shown->bounds().size;
    const CGPoint middle = shown->convertPointToView({size.width / 2, size.height / 2}, shown->window());
    expect_done_or_refused(sim_tap(middle.x, middle.y));
}

void step(id picker, fuzz::Bytes& bytes) {
    static constexpr const char* keys[] = {"#", "0", "7",        "9",  "A",    "f",
                                           "g", " ", "\xc3\xa9", "\n", "FF00", "12345678"};
    switch (bytes.below(14)) {
        case 0: return expect_done_or_refused(sim_type_text(keys[bytes.below(std::size(keys))]));
        case 1: {
            const std::string typed(bytes.counted().substr(0, 12));
            return expect_done_or_refused(sim_type_text(typed.substr(0, typed.find('\0')).c_str()));
        }
        case 2: return expect_done_or_refused(sim_delete_backward());
        case 3: return expect_done_or_refused(sim_press_return());
        case 4: {
            const size_t from = bytes.below(12);
            return expect_done_or_refused(sim_select_text(from, bytes.below(12)));
        }
        case 5: return tap(send<"hexTextField", id>(picker));
        case 6: return tap(send<"duplicateButton", id>(picker));
        case 7: {
            id board = send<"generalPasteboard", id>(test::class_named("UIPasteboard"));
            if (NSString* copied = text(bytes.counted())) send<"setString:">(board, copied);
            return tap(send<"pasteButton", id>(picker));
        }
        case 8: return expect_done_or_refused(sim_tap(bytes.part() * 320, bytes.part() * 568));
        case 9:
        case 10: {
            const int phase = static_cast<int>(bytes.below(4));
            return expect_done_or_refused(sim_touch(phase, bytes.part() * 320, bytes.part() * 568));
        }
        case 11: return expect_done_or_refused(sim_advance_clock(bytes.part()));
        case 12: {
            UIColor* colour = test::color(bytes.part(), bytes.part(), bytes.part(), bytes.part());
            return send<"updateToColor:">(picker, colour);
        }
        default: return expect_done_or_refused(sim_tap_label(bytes.below(2) ? "SELECT" : "CLOSE"));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::phone();
    const fuzz::Pool pool;
    const objc::strong<UIViewController> kept = static_cast<UIViewController*>(open_picker());
    id picker = kept.get();
    fuzz::Bytes bytes(data, size);
    for (int steps = 0; !bytes.empty() && steps < 64; ++steps) {
        step(picker, bytes);
        expect_sound(picker);
        if (!presented()) break;
    }
    sim_touch(SIM_TOUCH_CANCELLED, 0, 0);
    if (id left = presented()) send<"endEditing:", bool>(send<"view", id>(left), true);
    return 0;
}

#include "picker/picker_session.h"

#include <utility>

#include "cli/files.h"
#include "cli/terminal.h"
#include "formats/value.h"
#include "model/HCCITool.h"
#include "objc/exception.h"
#include "objc/fast_enumeration.h"
#include "platform/animation.h"
#include "scripts/playing.h"
#include "simulator.h"
#include "support/text.h"

namespace command {
namespace {

using objc::strong;
using tools::text;
using tools::utf8;

class Session : public Playing {
  public:
    Session(const PickerScript& script, const PickerSetup& setup)
        : Playing(script.file, setup.pictures, setup.scale, 5),
          script_(script),
          setup_(setup) {}

    PickerRun play();

    // ---- What a script can say

    using Playing::operator();
    void operator()(const say::Tap& tap) {
        require_open();
        tap_middle(std::visit([this](const auto& what) { return found(what); }, tap.what));
    }
    void operator()(const say::Drag& drag);
    void operator()(const say::Type& type) {
        require_open();
        check(sim_type_text(type.text.c_str()));
    }
    void operator()(const say::Delete& deletion) {
        require_open();
        for (int i = 0; i < deletion.times; ++i) check(sim_delete_backward());
    }
    void operator()(const say::Select& select) {
        require_open();
        check(sim_select_text(select.location, select.all ? field()->text()->length() : select.length));
    }
    void operator()(const say::Return&) {
        require_open();
        check(sim_press_return());
    }
    void operator()(const say::Open&) {
        if (is_open_) refuse("the picker is open already");
        open();
    }

    void notified(UIColor* colour, NSString* hex) {
        note(PickerEvent::Kind::notified, utf8(HCCITool::hexStringFromColor(colour)), utf8(hex));
        if (setup_.chosen) setup_.chosen(colour);
    }

  private:
    void require_open() const {
        if (!is_open_) refuse("the picker is closed; \"open\" shows another one");
    }

    void open();
    void note(PickerEvent::Kind kind, std::string first = "", std::string second = "") {
        run_.events.push_back({kind, line_, time_, std::move(first), std::move(second)});
    }
    /// Notes what can be seen of the picker since the last instruction.
    void look();
    void stood_still(const std::string& name) override { note(PickerEvent::Kind::stood_still, name); }

    template <objc::Name Which, class View = UIView>
    View* part() const {
        return picker_->send<Which, View*>();
    }
    UITextField* field() const { return part<"hexTextField", UITextField>(); }
    UIView* found(const OnScreen& what) const;
    UIView* found(Part which) const;
    UIView* found(const RecentColour& recent) const;
    void tap_middle(UIView* view) const;

    const PickerScript& script_;
    const PickerSetup& setup_;
    PickerRun run_;
    bool is_open_ = false;
    strong<NSObject> delegate_;
    strong<HCColorPickerController> picker_;
    strong<CAAnimation> shake_;
};

/// The one that plays: what the delegate hears goes there.
Session* playing = nullptr;

strong<NSObject> made_delegate() {
    Class type = objc_allocateClassPair(objc_getClass("NSObject"), "HuecraftCommandDelegate", 0);
    class_addMethod(type, objc::selector<"colorPickerReturnedWithColor:andHexString:">(),
                    reinterpret_cast<IMP>(
                        +[](id, SEL, UIColor* colour, NSString* hex) { playing->notified(colour, hex); }),
                    "v@:@@");
    objc_registerClassPair(type);
    return objc::adopt(objc::send<"new", NSObject*>(reinterpret_cast<id>(type)));
}

// ---- What is on the screen ------------------------------------------------------------------------------

struct Labelled {
    UIView* view;
    std::string text;
};

NSString* text_on(UIView* view) {
    if (auto* button = as<UIButton>(view)) return button->currentTitle();
    if (auto* field = as<UITextField>(view)) return field->text();
    if (auto* label = as<UILabel>(view)) return label->text();
    return nullptr;
}

/// The views with a text that can be seen, parents before their children; what is in a button is the
/// button's.
void add_labelled(UIView* view, std::vector<Labelled>& found) {
    constexpr CGFloat visible = 0.01;
    if (view->isHidden() || view->alpha() < visible) return;
    if (NSString* text = text_on(view); text && text->length()) found.push_back({view, utf8(text)});
    if (as<UIButton>(view)) return;
    objc::for_each<UIView>(view->subviews(), [&](UIView* each) { add_labelled(each, found); });
}

CGPoint on_screen(UIView* view, CGPoint point) { return view->convertPointToView(point, view->window()); }

CGPoint middle_of(CGRect rect) {
    return {rect.origin.x + rect.size.width / 2, rect.origin.y + rect.size.height / 2};
}

UIView* Session::found(const OnScreen& what) const {
    std::vector<Labelled> all;
    add_labelled(picker_->view(), all);
    std::string texts;
    for (const Labelled& each : all) {
        if (each.text == what.text) return each.view;
        texts += (texts.empty() ? "" : ", ") + in_quotes(each.text);
    }
    refuse("there is no " + in_quotes(what.text) + " on the picker; there are " + texts);
}

UIView* Session::found(Part which) const {
    switch (which) {
        case Part::field: return field();
        case Part::copy: return part<"duplicateButton">();
        case Part::paste: return part<"pasteButton">();
    }
    __builtin_unreachable();
}

UIView* Session::found(const RecentColour& recent) const {
    auto* strip = part<"recentCollectionView", UICollectionView>();
    UIView* cell = strip->cellForItemAtIndexPath(NSIndexPath::indexPathForItem(recent.number - 1, 0));
    if (!cell) refuse("the recent colour " + std::to_string(recent.number) + " is not on the screen");
    return cell;
}

void Session::tap_middle(UIView* view) const {
    const auto [x, y] = on_screen(view, middle_of(view->bounds()));
    check(sim_tap(x, y));
}

void Session::operator()(const say::Drag& drag) {
    require_open();
    HCColorSlider* slider = drag.channel == "red"     ? part<"redSlider", HCColorSlider>()
                            : drag.channel == "green" ? part<"greenSlider", HCColorSlider>()
                            : drag.channel == "blue"  ? part<"blueSlider", HCColorSlider>()
                                                      : part<"alphaSlider", HCColorSlider>();
    UISlider* knob = slider->slider();
    const CGRect track = knob->trackRectForBounds(knob->bounds());
    const auto place = [&](float value) {
        return on_screen(knob, middle_of(knob->thumbRectForBounds(knob->bounds(), track, value)));
    };
    const CGPoint from = place(knob->value()), to = place(static_cast<float>(drag.value));
    check(sim_touch(SIM_TOUCH_BEGAN, from.x, from.y));
    check(sim_touch(SIM_TOUCH_MOVED, to.x, to.y));
    check(sim_touch(SIM_TOUCH_ENDED, to.x, to.y));
}

// ---- The picker -----------------------------------------------------------------------------------------

void Session::open() {
    id raised = objc::caught([this] {
        picker_ = HCColorPickerController::alloc()->init();
        picker_->setLightUI(!setup_.dark);
        picker_->setDelegate(reinterpret_cast<HCColorPickerDelegate*>(delegate_.get()));
        picker_->setModalPresentationStyle(UIModalPresentationOverFullScreen);
    });
    shake_ = nullptr;
    is_open_ = true;
    if (!raised) check(sim_present(picker_.get()));
    if (!raised && setup_.colour) raised = objc::caught([this] { picker_->setInitialColor(setup_.colour); });
    if (raised)
        throw Raised{utf8(objc::send<"name", NSString*>(raised)) + ": " +
                     utf8(objc::send<"reason", NSString*>(raised))};
}

void Session::look() {
    if (!is_open_) return;
    // Its springing up has the same name, but does not come back.
    CAAnimation* shake = part<"modal">()->layer()->animationForKey(text("position"));
    if (shake && shake->autoreverses() && shake != shake_) note(PickerEvent::Kind::shook);
    shake_ = shake;
    void* shown = nullptr;
    check(sim_presented(&shown));
    if (shown == picker_.get()) return;
    is_open_ = false;
    note(PickerEvent::Kind::closed);
}

PickerRun Session::play() {
    playing = this;
    objc::AutoreleasePool pool;
    delegate_ = made_delegate();
    try {
        open();
        play_each(*this, script_.instructions, [this] { look(); });
    } catch (const Raised& raised) {
        const size_t name = raised.what.find(": ");
        note(PickerEvent::Kind::raised, raised.what.substr(0, name),
             name == raised.what.npos ? "" : without_addresses(raised.what.substr(name + 2)));
    }
    stop_if_recording();
    playing = nullptr;
    run_.pictures = std::move(pictures_);
    return std::move(run_);
}

}  // namespace

PickerRun play(const PickerScript& script, const PickerSetup& setup) { return Session(script, setup).play(); }

}  // namespace command

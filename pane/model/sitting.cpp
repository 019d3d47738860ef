#include "pane/model/sitting.h"

namespace pane {

Sitting::Sitting(objc::strong<HuecraftConfig> theme) : theme_(std::move(theme)) {
    states_.push_back(state());
    kept_ = state();
}

objc::strong<NSDictionary> Sitting::state() const {
    return static_cast<NSDictionary*>(theme_->asPlist())->send<"copy", objc::strong<NSDictionary>>();
}

void Sitting::changed(int kind) {
    auto now = state();
    if (now->isEqual(states_[place_])) return;
    states_.erase(states_.begin() + static_cast<ptrdiff_t>(place_) + 1, states_.end());
    if (kind != 0 && kind == kind_ && place_ > 0)
        states_[place_] = std::move(now);
    else
        states_.push_back(std::move(now)), ++place_;
    kind_ = kind;
}

void Sitting::undo() {
    if (!can_undo()) return;
    --place_;
    show();
}

void Sitting::redo() {
    if (!can_redo()) return;
    ++place_;
    show();
}

void Sitting::show() {
    theme_->asPlist()->send<"setDictionary:">(states_[place_].get());
    kind_ = 0;
}

bool Sitting::is_changed() const { return theme_ && !kept_->isEqual(static_cast<id>(theme_->asPlist())); }

void Sitting::kept() {
    kept_ = state();
    kind_ = 0;
}

}  // namespace pane

// An editor's sitting with one theme: every change can be taken back, and made again.
#pragma once
#include <vector>

#include "pane/huecraft.h"

namespace pane {

class Sitting {
  public:
    Sitting() = default;
    explicit Sitting(objc::strong<HuecraftConfig> theme);

    /// Is changed in place, and then `changed` is called.
    HuecraftConfig* theme() const { return theme_; }
    /// Changes of one kind that follow each other are one: a slider reports many. 0 is a kind of its own each
    /// time.
    void changed(int kind = 0);

    bool can_undo() const { return place_ > 0; }
    bool can_redo() const { return place_ + 1 < states_.size(); }
    void undo();
    void redo();

    /// Whether the theme is another than when the sitting began or was last kept.
    bool is_changed() const;
    void kept();

  private:
    objc::strong<NSDictionary> state() const;
    void show();

    objc::strong<HuecraftConfig> theme_;
    std::vector<objc::strong<NSDictionary>> states_;
    objc::strong<NSDictionary> kept_;
    size_t place_ = 0;
    int kind_ = 0;
};

}  // namespace pane

#include "quartzcore/animation/noted_changes.h"

#include <utility>

#include "quartzcore/animation/running_animations.h"

namespace sim {
namespace {

std::vector<NotedChange>*& current() {
    static std::vector<NotedChange>* list = nullptr;
    return list;
}

}  // namespace

ChangeNotes::ChangeNotes(std::vector<NotedChange>* list) : outer_(std::exchange(current(), list)) {}
ChangeNotes::~ChangeNotes() { current() = outer_; }

void note_change(CALayer* layer, LayerProperty property) {
    auto* notes = current();
    if (!notes || !layer->delegate()) return;
    for (const NotedChange& known : *notes)
        if (known.layer == layer && known.property == property) return;
    notes->push_back({layer, property, shown_value(layer, property)});
}

}  // namespace sim

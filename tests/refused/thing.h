// A small class whose definition the mistakes get wrong.
#pragma once
#include "objc/class.h"
#include "platform/foundation.h"

struct HCThing : objc::Interface<HCThing, "HCThing", NSObject> {};

namespace {
struct Thing : objc::Implements<Thing, HCThing> {
    struct Ivars {
        double width;
        bool visible;
    };
    void setWidth(double) {}
    static HCThing* thing(Class) { return nullptr; }
};
}  // namespace

using namespace objc::definition;

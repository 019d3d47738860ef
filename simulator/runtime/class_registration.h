// Registering many classes at a time.
#pragma once

namespace sim {

/// While one lives, classes are registered and not yet linked to their superclasses. libobjc does that by
/// looking through all classes, some 1,200, with each that is registered. Meanwhile methods are looked up in
/// no class that is new.
class ManyClasses {
  public:
    ManyClasses();
    ~ManyClasses();
    ManyClasses(const ManyClasses&) = delete;
    ManyClasses& operator=(const ManyClasses&) = delete;
};

}  // namespace sim

// OBJC_CLASS: turns a definition into a class, by registration on Linux and as static metadata in the dylib.
#pragma once
#include "objc/definition.h"

#ifdef __APPLE__
#include "objc/class_static.h"
#else
#include "objc/class_registered.h"
#endif

/// Defines the class `ClassName`, a subclass of `SuperName`, as `Implementation` with the rows that follow:
///
///     OBJC_CLASS(HuecraftConfig, NSObject, Theme,
///                ivar<"configuration", &Theme::Ivars::configuration>,
///                class_method<"defaultConfig", &Theme::defaultConfig>,
///                method<"getTextColor", &Theme::getTextColor>)
///
/// A macro, because the symbols of a class (`OBJC_CLASS_$_HuecraftConfig`) must be spelled from its name.
/// Stands at file scope, one to a translation unit, after `using namespace objc::definition`.
#define OBJC_CLASS(ClassName, SuperName, Implementation, ...) \
    OBJC_CHECKED_CLASS(ClassName, SuperName, , Implementation, __VA_ARGS__)

/// The same for a superclass that a system may lack: there, only this class is missing, and the library
/// loads.
#define OBJC_CLASS_OF_WEAK_SUPERCLASS(ClassName, SuperName, Implementation, ...) \
    OBJC_CHECKED_CLASS(ClassName, SuperName, [[gnu::weak]], Implementation, __VA_ARGS__)

#define OBJC_CHECKED_CLASS(ClassName, SuperName, SuperImport, Implementation, ...)            \
    static_assert(Implementation::Implemented::runtime_name == objc::Name(#ClassName),        \
                  "the implementation is of another class");                                  \
    static_assert(Implementation::Implemented::Super::runtime_name == objc::Name(#SuperName), \
                  "the interface names another superclass");                                  \
    template <>                                                                               \
    struct objc::DefinitionOf<Implementation> {                                               \
        using type = objc::ClassDefinition<Implementation, __VA_ARGS__>;                      \
    };                                                                                        \
    OBJC_CLASS_IN_THIS_HOME(ClassName, SuperName, SuperImport, Implementation, __VA_ARGS__)

// Foundation's bundles, notifications and undo.
#pragma once
#include "platform/foundation.h"

/// A folder with code and what it needs.
struct NSBundle : objc::Interface<NSBundle, "NSBundle", NSObject> {
    static NSBundle* mainBundle() { return class_send<"mainBundle", NSBundle*>(); }
    /// The one that the class was loaded from.
    static NSBundle* bundleForClass(Class of) { return class_send<"bundleForClass:", NSBundle*>(of); }
    /// nil where there is no folder.
    static NSBundle* bundleWithPath(NSString* path) { return class_send<"bundleWithPath:", NSBundle*>(path); }

    NSString* bundlePath() { return send<"bundlePath", NSString*>(); }
    NSString* bundleIdentifier() { return send<"bundleIdentifier", NSString*>(); }
    NSDictionary* infoDictionary() { return send<"infoDictionary", NSDictionary*>(); }
    /// nil where there is none; one in the folder of the user's language is preferred.
    NSString* pathForResource(NSString* name, NSString* type) {
        return send<"pathForResource:ofType:", NSString*>(name, type);
    }
    NSString* pathForResource(NSString* name, NSString* type, NSString* folder) {
        return send<"pathForResource:ofType:inDirectory:", NSString*>(name, type, folder);
    }
    NSArray* pathsForResources(NSString* type, NSString* folder) {
        return send<"pathsForResourcesOfType:inDirectory:", NSArray*>(type, folder);
    }
    /// From NAME.strings of the table; nil is "Localizable". Where it has none: `value`, or else the key.
    NSString* localizedString(NSString* key, NSString* value, NSString* table) {
        return send<"localizedStringForKey:value:table:", NSString*>(key, value, table);
    }
    NSArray* localizations() { return send<"localizations", NSArray*>(); }
    /// The best of them for the user, the best first.
    NSArray* preferredLocalizations() { return send<"preferredLocalizations", NSArray*>(); }
};

struct NSNotification : objc::Interface<NSNotification, "NSNotification", NSObject> {
    NSString* name() { return send<"name", NSString*>(); }
    id object() { return send<"object", id>(); }
    NSDictionary* userInfo() { return send<"userInfo", NSDictionary*>(); }
};

struct NSNotificationCenter : objc::Interface<NSNotificationCenter, "NSNotificationCenter", NSObject> {
    static NSNotificationCenter* defaultCenter() {
        return class_send<"defaultCenter", NSNotificationCenter*>();
    }
    /// The observer is not retained; the selector gets the NSNotification. A nil name or object is any.
    void addObserver(id observer, SEL selector, NSString* name, id object) {
        send<"addObserver:selector:name:object:">(observer, selector, name, object);
    }
    void removeObserver(id observer) { send<"removeObserver:">(observer); }
    void removeObserver(id observer, NSString* name, id object) {
        send<"removeObserver:name:object:">(observer, name, object);
    }
    void post(NSString* name, id object) { send<"postNotificationName:object:">(name, object); }
    void post(NSString* name, id object, NSDictionary* user_info) {
        send<"postNotificationName:object:userInfo:">(name, object, user_info);
    }
};

struct NSUndoManager : objc::Interface<NSUndoManager, "NSUndoManager", NSObject> {
    /// The target, which is not retained, gets the selector with the object, which is.
    void registerUndo(id target, SEL selector, id object) {
        send<"registerUndoWithTarget:selector:object:">(target, selector, object);
    }
    bool canUndo() { return send<"canUndo", bool>(); }
    bool canRedo() { return send<"canRedo", bool>(); }
    void undo() { send<"undo">(); }
    void redo() { send<"redo">(); }
    void removeAllActions() { send<"removeAllActions">(); }
    void removeAllActionsWithTarget(id target) { send<"removeAllActionsWithTarget:">(target); }
    void setLevelsOfUndo(NSUInteger levels) { send<"setLevelsOfUndo:">(levels); }
    /// Otherwise a group is what one turn of the run loop brings.
    bool groupsByEvent() { return send<"groupsByEvent", bool>(); }
    void setGroupsByEvent(bool groups) { send<"setGroupsByEvent:">(groups); }
    void beginUndoGrouping() { send<"beginUndoGrouping">(); }
    void endUndoGrouping() { send<"endUndoGrouping">(); }
};

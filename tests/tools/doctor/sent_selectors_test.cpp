// The selectors that platform/ declares, held against the real system that the simulator models.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "support/contents.h"

namespace test {
namespace {

/// "-[Class selector]" of every declared send, and the class's superclass as it is declared.
struct Declared {
    std::set<std::string> methods;
    size_t sends = 0;
};

size_t occurrences(const std::string& text, const std::string& part) {
    size_t count = 0;
    for (size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1)) ++count;
    return count;
}

/// What another object implements is not a class's; and the dumps were not searched for some classes.
bool is_recorded(const std::string& owner) {
    static const std::set<std::string> unrecorded{"NSBundle",
                                                  "NSIndexSet",
                                                  "NSNotification",
                                                  "NSNotificationCenter",
                                                  "NSUndoManager",
                                                  "UIGestureRecognizer",
                                                  "UILongPressGestureRecognizer",
                                                  "UINavigationBar",
                                                  "UIPanGestureRecognizer",
                                                  "UIPinchGestureRecognizer",
                                                  "UIPopoverPresentationController",
                                                  "UITapGestureRecognizer",
                                                  "UITraitCollection"};
    return !unrecorded.contains(owner) && !owner.ends_with("Delegate") && !owner.ends_with("DataSource");
}

Declared declared_in_platform() {
    // An interface's name, or a send: what follows an interface belongs to it.
    static const std::regex part(
        R"re(objc::(?:Protocol)?Interface<(?:\s*\w+,)?\s*"(\w+)"|\b(class_)?send<\s*("[^"]+"(?:\s*"[^"]+")*)\s*[,>])re");
    Declared all;
    for (const auto& entry : std::filesystem::directory_iterator(SOURCE_FOLDER "/platform")) {
        const std::string text = contents_of(entry.path());
        all.sends += occurrences(text, "send<");
        std::string owner;
        size_t found = 0;
        for (std::sregex_iterator at(text.begin(), text.end(), part), end; at != end; ++at) {
            if ((*at)[1].matched) {
                owner = (*at)[1];
                continue;
            }
            ++found;
            // A long selector is written in pieces.
            std::string selector = (*at)[3];
            std::erase_if(selector, [](char c) { return c == '"' || c == ' ' || c == '\n'; });
            if (!is_recorded(owner)) continue;
            all.methods.insert(std::string((*at)[2].matched ? "+[" : "-[") + owner + " " + selector + "]");
        }
        EXPECT_EQ(found, occurrences(text, "send<")) << "a send of another form in " << entry.path();
    }
    return all;
}

/// What a description says: classes with their superclasses, and methods.
struct Described {
    std::map<std::string, std::string> superclasses;
    std::set<std::string> methods;

    explicit Described(const std::string& system) {
        std::istringstream lines(contents_of(SOURCE_FOLDER "/resources/devices/" + system + ".txt"));
        for (std::string line; std::getline(lines, line);) {
            std::istringstream words(line);
            std::string first, name, colon, superclass;
            words >> first >> name >> colon >> superclass;
            if (first == "class") superclasses[name] = superclass;
            if (first[0] == '-' || first[0] == '+') methods.insert(first + " " + name);
        }
    }
    bool has(const std::string& method) const {
        const size_t space = method.find(' ');
        std::set<std::string> seen;
        for (std::string each = method.substr(2, space - 2); !each.empty() && seen.insert(each).second;) {
            // What the root's instances can do, classes can, too.
            if (methods.contains(method.substr(0, 2) + each + method.substr(space)) ||
                (each == "NSObject" && methods.contains("-[NSObject" + method.substr(space))))
                return true;
            const auto found = superclasses.find(each);
            each = found == superclasses.end() ? "" : found->second;
        }
        return false;
    }
};

enum class Reason {
    added_by_the_library,
    sent_by_the_model_alone,
    /// A declared property without methods: the field forwards it to its traits.
    forwarded,
};

/// What the system lacks of what is declared, and why that is right.
const std::map<std::string, Reason>& exceptions() {
    using enum Reason;
    static const std::map<std::string, Reason> all{
        {"-[UIKBBackdropView activeBackgroundView]", added_by_the_library},
        {"-[UIKBBackdropView setActiveBackgroundView:]", added_by_the_library},
        {"-[UIKBInputBackdropView removeKBBackdropEffects:]", added_by_the_library},
        {"-[UITextField autocapitalizationType]", forwarded},
        {"-[UITextField returnKeyType]", forwarded},
        {"-[UITextField setAutocapitalizationType:]", forwarded},
        {"-[UITextField setReturnKeyType:]", forwarded},
        {"-[NSValue CGRectValue]", sent_by_the_model_alone},
    };
    return all;
}

std::string selector_of(const std::string& method) {
    const size_t space = method.find(' ');
    return method.substr(space + 1, method.size() - space - 2);
}

TEST(SentSelectors, EveryOneIsARealMethodOrHasItsReason) {
    const Declared declared = declared_in_platform();
    EXPECT_GT(declared.methods.size(), 600u);
    const Described described("12.4");
    for (const std::string& method : declared.methods)
        EXPECT_TRUE(described.has(method) || exceptions().contains(method))
            << "iOS 12.4 has no " << method
            << ": describe the systems again (resources/devices/make), or give a reason among the exceptions";
}

TEST(SentSelectors, NoExceptionIsStale) {
    const Declared declared = declared_in_platform();
    const Described described("12.4");
    for (const auto& [method, reason] : exceptions()) {
        EXPECT_TRUE(declared.methods.contains(method)) << method << " is declared no longer";
        EXPECT_FALSE(described.has(method)) << method << " is there";
    }
}

// Where other classes have a selector as well, the dylib does not show which of them it sends it to.
TEST(SentSelectors, WhatTheModelAloneSendsIsNotInTheDylib) {
    const Declared declared = declared_in_platform();
    std::map<std::string, int> owners;
    for (const std::string& method : declared.methods) ++owners[selector_of(method)];
    const std::string dylib = contents_of(BUILD_FOLDER "/device/HuecraftiOS12.dylib");
    const auto is_sent = [&](const std::string& selector) {
        return dylib.find('\0' + selector + '\0') != dylib.npos;
    };
    EXPECT_TRUE(is_sent("setActiveBackgroundView:"));
    size_t looked_at = 0;
    for (const auto& [method, reason] : exceptions()) {
        if (reason != Reason::sent_by_the_model_alone || owners[selector_of(method)] > 1) continue;
        EXPECT_FALSE(is_sent(selector_of(method))) << method;
        ++looked_at;
    }
    EXPECT_GT(looked_at, 0u);
}

}  // namespace
}  // namespace test

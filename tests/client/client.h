// What the tests of the client share: a phone with the preference bundle's pictures, the library, and beside
// it the pane, which knows the library from its contract alone.
#pragma once
#include "support/configuration.h"
#include "views/observing.h"

namespace test {

class Client : public testing::Test {
  protected:
    /// Boots, loads the library, then the pane.
    void SetUp() override;
    /// Presents a controller and waits until everything is in its place.
    static void present(id controller);
    static id presented();
    void expect_picture(const std::string& name) const;

    Phone phone;
    sim_library* pane = nullptr;
};

/// A method without a result, an object, a BOOL or a number; arguments are objects.
template <objc::Name Selector, class Result = id, class... Arguments>
Result ask(id receiver, Arguments... arguments) {
    return objc::send<Selector, Result>(receiver, arguments...);
}

inline std::string text_of(id dictionary, const char* key) {
    return utf8(ask<"description">(static_cast<NSDictionary*>(dictionary)->objectForKey(text(key))));
}

}  // namespace test

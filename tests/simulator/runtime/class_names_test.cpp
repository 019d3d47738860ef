// What the classes of the modelled system call their variables and methods.
#include <regex>

#include "support/phone.h"

namespace test {
namespace {

// Whoever reads a class, by key-value coding or in a debugger, names them in code.
TEST(NamesInClasses, CanBeWrittenInCode) {
    Phone phone;
    phone.boot();
    const std::regex variable("[A-Za-z_]\\w*"),
        selector("[A-Za-z_]\\w*|(\\w*:)+|\\.cxx_(construct|destruct)");
    std::vector<Class> classes(static_cast<size_t>(objc_getClassList(nullptr, 0)));
    classes.resize(static_cast<size_t>(objc_getClassList(classes.data(), static_cast<int>(classes.size()))));
    size_t variables = 0, selectors = 0;
    for (Class each : classes) {
        unsigned count = 0;
        Ivar* own = class_copyIvarList(each, &count);
        variables += count;
        for (unsigned i = 0; i < count; ++i)
            EXPECT_TRUE(std::regex_match(ivar_getName(own[i]), variable))
                << class_getName(each) << " " << ivar_getName(own[i]);
        std::free(own);
        for (Class methods_of : {each, object_getClass(reinterpret_cast<id>(each))}) {
            Method* methods = class_copyMethodList(methods_of, &count);
            selectors += count;
            for (unsigned i = 0; i < count; ++i)
                EXPECT_TRUE(std::regex_match(sel_getName(method_getName(methods[i])), selector))
                    << class_getName(each) << " " << sel_getName(method_getName(methods[i]));
            std::free(methods);
        }
    }
    EXPECT_GT(variables, 500u);
    EXPECT_GT(selectors, 5000u);
}

}  // namespace
}  // namespace test

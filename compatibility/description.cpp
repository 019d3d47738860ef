// One fact to a line: classes, what was not recorded of them, class methods and methods, variables,
// functions.
#include "compatibility/description.h"

#include <algorithm>
#include <cstdlib>
#include <span>
#include <string_view>

#include "compatibility/hooked_methods.h"
#include "compatibility/image_of.h"
#include "compatibility/list.h"
#include "compatibility/method_named.h"
#include "compatibility/processor.h"
#include "compatibility/subjects.h"
#include "objc/descriptions/plain_types.h"
#include "platform/foundation.h"
#include "platform/uikit.h"

namespace compatibility {
namespace {

/// A part of the home screen's own executable: no other process has it.
constexpr std::string_view class_of_the_home_screen = "SpringBoard";

std::string_view name_of(Class described) { return class_getName(described); }
std::string_view name_of(Method method) { return sel_getName(method_getName(method)); }
std::string_view name_of(Ivar variable) { return ivar_getName(variable); }

/// Sorts by name, with what stands behind a name in its line. Of two with one name, one stays: a category's
/// method hides the class's own.
template <class Rows>
auto sorted(Rows&& rows, char behind = ' ') {
    std::sort(rows.begin(), rows.end(), [behind](auto one, auto other) {
        const std::string_view a = name_of(one), b = name_of(other);
        const size_t shared = std::min(a.size(), b.size());
        if (const int order = a.substr(0, shared).compare(b.substr(0, shared))) return order < 0;
        if (a.size() == b.size()) return false;
        return a.size() < b.size() ? behind < b[shared] : a[shared] < behind;
    });
    const auto end =
        std::unique(rows.begin(), rows.end(), [](auto a, auto b) { return name_of(a) == name_of(b); });
    return std::span(rows.begin(), end);
}

/// A list that the runtime made for its caller.
template <class Row>
class Copied {
  public:
    Copied(Row* (*copy)(Class, unsigned*), Class owner) : rows_(copy(owner, &count_)) {}
    Copied(const Copied&) = delete;
    ~Copied() { std::free(rows_); }

    std::span<Row> rows() const { return {rows_, count_}; }

  private:
    unsigned count_ = 0;
    Row* rows_;
};

/// Types as a description has them.
class PlainTypes {
  public:
    explicit PlainTypes(const char* types) {
        const std::string_view given = types ? types : "";
        text_.push_back(' ');
        text_.insert(text_.end(), given.begin(), given.end());
        text_.push_back(0);
        objc::make_plain(text_.data() + 1);
    }
    /// Behind a blank; nothing where there are none.
    std::string_view behind_a_blank() const {
        const std::string_view all = text_.data();
        return all.size() > 1 ? all : "";
    }

  private:
    List<char> text_;
};

/// As the system has it, whatever the library put in its place.
class Description {
  public:
    explicit Description(const SeenHooks& seen) : seen_(seen) {
        for (const char* name : described_classes())
            if (Class found = objc_lookUpClass(name)) described_.push_back(found);
        described_.resize(sorted(described_).size());
        for (Class each : described_)
            for (Class above = each; above; above = class_getSuperclass(above)) named_.push_back(above);
        named_.resize(sorted(named_).size());
    }

    void write_classes(const Output& out) const {
        for (Class each : named_) {
            Class above = class_getSuperclass(each);
            out.line("class ", name_of(each), above ? " : " : "", above ? class_getName(above) : "");
        }
        out.line();
        for (const char* name : described_classes())
            if (name == class_of_the_home_screen && !objc_lookUpClass(name))
                out.line("unrecorded class ", name);
        for (Class each : named_)
            if (!is_described(each)) out.line("unrecorded members ", name_of(each));
    }

    void write_methods(const Output& out, char side) const {
        for (Class each : named_) {
            Class owner = side == '+' ? object_getClass(reinterpret_cast<id>(each)) : each;
            const Copied<Method> all(&class_copyMethodList, owner);
            for (Method method : sorted(all.rows(), ']'))
                if ((is_described(each) || is_found_by_a_hook(side, method)) && !is_added(side, each, method))
                    out.line(side == '+' ? "+[" : "-[", name_of(each), " ", name_of(method), "]",
                             PlainTypes(method_getTypeEncoding(method)).behind_a_blank(),
                             remark_on(owner, method));
        }
    }

    void write_variables(const Output& out) const {
        for (Class each : described_) {
            const Copied<Ivar> all(&class_copyIvarList, each);
            for (Ivar variable : sorted(all.rows()))
                out.line("variable ", name_of(each), " ", name_of(variable),
                         PlainTypes(ivar_getTypeEncoding(variable)).behind_a_blank());
        }
    }

  private:
    bool is_described(Class each) const {
        return std::find(described_.begin(), described_.end(), each) != described_.end();
    }

    /// Whether a hook's method is this one, which its class inherits.
    bool is_found_by_a_hook(char side, Method method) const {
        return std::ranges::any_of(hooked_methods(), [&](const HookedMethod& row) {
            if (row.name[0] != side) return false;
            Class owner = nullptr;
            Method found = method_named(row.name, &owner);
            // A framework that replaces an inherited method adds one to the class.
            while (found && found != method && seen_.is_the_librarys(found)) {
                SEL selector = method_getName(found);
                owner = class_getSuperclass(owner);
                found = owner ? class_getInstanceMethod(owner, selector) : nullptr;
            }
            return found == method;
        });
    }

    bool is_added(char side, Class each, Method method) const {
        return seen_.is_the_librarys(method) &&
               std::ranges::any_of(hooked_methods(), [&](const HookedMethod& row) {
                   const std::string_view name = row.name;
                   const size_t space = name.find(' ');
                   return row.is_added && name[0] == side && name.substr(2, space - 2) == name_of(each) &&
                          name.substr(space + 1, name.size() - space - 2) == name_of(method);
               });
    }

    /// Whether the class itself has a method that it could inherit can no longer be known once it is
    /// replaced.
    const char* remark_on(Class owner, Method method) const {
        Class above = class_getSuperclass(owner);
        const bool may_be_inherited =
            seen_.is_the_librarys(method) && above && class_getInstanceMethod(above, method_getName(method));
        return may_be_inherited ? "  # is hooked, and may be inherited" : "";
    }

    const SeenHooks& seen_;
    List<Class> described_, named_;  // by name
};

}  // namespace

void write_report(const Output& out, std::string_view maker, const SeenHooks& seen) {
    out.line("# What this system has of what Huecraft is about. Made on it by ", maker, ".");
    out.line("# processor: ", processor());
    out.line();
    if (NSString* version = UIDevice::currentDevice()->systemVersion())
        out.line("system ", version->UTF8String());
    out.line();
    const Description description(seen);
    description.write_classes(out);
    out.line();
    description.write_methods(out, '+');
    description.write_methods(out, '-');
    out.line();
    description.write_variables(out);
    out.line();
    for (const char* name : described_functions())
        if (is_there(name)) out.line("function ", name);
    out.line();
}

}  // namespace compatibility

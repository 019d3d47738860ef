// One fact to a line: classes, what was not recorded of them, class methods and methods, variables,
// functions.
#include "describe/description.h"

#include <algorithm>
#include <cstdlib>
#include <span>
#include <string_view>

#include "describe/hooked_method.h"
#include "describe/list.h"
#include "describe/subjects.h"
#include "objc/descriptions/plain_types.h"

namespace describe {
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

class Description {
  public:
    Description() {
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
                if (is_described(each) || is_found_by_a_hook(side, method))
                    out.line(side == '+' ? "+[" : "-[", name_of(each), " ", name_of(method), "]",
                             PlainTypes(method_getTypeEncoding(method)).behind_a_blank());
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
    static bool is_found_by_a_hook(char side, Method method) {
        return std::ranges::any_of(hooked_methods(), [&](const HookedMethod& row) {
            return row.name[0] == side && method_named(row.name) == method;
        });
    }

    List<Class> described_, named_;  // by name
};

}  // namespace

void write_description(const Output& out, bool (*exists)(const char* function)) {
    const Description description;
    description.write_classes(out);
    out.line();
    description.write_methods(out, '+');
    description.write_methods(out, '-');
    out.line();
    description.write_variables(out);
    out.line();
    for (const char* name : described_functions())
        if (exists(name)) out.line("function ", name);
}

}  // namespace describe

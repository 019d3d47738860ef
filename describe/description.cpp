// One fact to a line: classes, then class methods and methods, variables, functions.
#include "describe/description.h"

#include <algorithm>
#include <cstdlib>
#include <span>
#include <string_view>

#include "describe/subjects.h"

namespace describe {
namespace {

std::string_view name_of(Class described) { return class_getName(described); }
std::string_view name_of(Method method) { return sel_getName(method_getName(method)); }
std::string_view name_of(Ivar variable) { return ivar_getName(variable); }

/// Sorts by name. Of two with one name, one stays: a category's method hides the class's own.
template <class Rows>
auto sorted(Rows&& rows) {
    std::sort(rows.begin(), rows.end(), [](auto a, auto b) { return name_of(a) < name_of(b); });
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

    std::span<Row> sorted_rows() const { return sorted(std::span(rows_, count_)); }

  private:
    unsigned count_ = 0;
    Row* rows_;
};

Class metaclass_of(Class described) { return object_getClass(reinterpret_cast<id>(described)); }

bool is_root(Class described) { return !class_getSuperclass(described); }

void write_methods(const Output& out, std::string_view side, Class owner) {
    const Copied<Method> methods(&class_copyMethodList, owner);
    for (Method method : methods.sorted_rows())
        out.line(side, "[", class_getName(owner), " ", name_of(method), "]");
}

}  // namespace

List<Class> classes_to_describe() {
    List<Class> found;
    for (const char* name : described_classes())
        for (Class each = objc_lookUpClass(name); each && !is_root(each); each = class_getSuperclass(each))
            found.push_back(each);
    const auto distinct = sorted(found);
    found.resize(distinct.size());
    return found;
}

void write_classes(const Output& out, const List<Class>& classes) {
    for (Class each : classes)
        out.line("class ", class_getName(each), " : ", class_getName(class_getSuperclass(each)));
    out.line();
    for (Class each : classes) write_methods(out, "+", metaclass_of(each));
    for (Class each : classes) write_methods(out, "-", each);
    out.line();
    for (Class each : classes) {
        const Copied<Ivar> variables(&class_copyIvarList, each);
        for (Ivar variable : variables.sorted_rows())
            out.line("variable ", class_getName(each), " ", name_of(variable));
    }
    out.line();
}

void write_functions(const Output& out, bool (*exists)(const char* name)) {
    for (const char* name : described_functions())
        if (exists(name)) out.line("function ", name);
}

}  // namespace describe

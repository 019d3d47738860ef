#include "hooks/hook_table.h"

#include "platform/substrate.h"

namespace hooks {

void install(Condition condition) {
    const char* class_name = nullptr;
    Class named = nullptr;
    for (const auto& [row_condition, row] : hook_table) {
        if (row_condition != condition) continue;
        // The rows of a class stand together: one look-up serves them all.
        if (row.class_name != class_name) named = objc_getClass(class_name = row.class_name);
        Class target =
            row.side == objc::Side::instance ? named : object_getClass(reinterpret_cast<id>(named));
        if (row.adds)
            class_addMethod(target, row.selector(), row.replacement(), row.types);
        else
            MSHookMessageEx(target, row.selector(), row.replacement(), row.previous);
    }
}

}  // namespace hooks

// Any bytes as a script, of huecraft picker and of huecraft pane.
#include "harness/text_inputs.h"
#include "pane/pane_script.h"
#include "picker/picker_script.h"

namespace {

template <class Script>
void expect_in_order(const Script& script) {
    size_t line = 0;
    for (const auto& each : script.instructions) {
        EXPECT_GT(each.line, line) << "an instruction is on a line of its own";
        line = each.line;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::read_or_refuse(data, size, [](const std::string& text) {
        expect_in_order(command::parse_picker_script("script.txt", text));
    });
    fuzz::read_or_refuse(data, size, [](const std::string& text) {
        expect_in_order(command::parse_pane_script("script.txt", text));
    });
    return 0;
}

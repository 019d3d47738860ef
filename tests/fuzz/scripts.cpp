// Any bytes as a script of huecraft picker.
#include "picker/picker_script.h"
#include "text_inputs.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::read_or_refuse(data, size, [](const std::string& text) {
        size_t line = 0;
        for (const command::Instruction& each : command::parse_script("script.txt", text).instructions) {
            EXPECT_GT(each.line, line) << "an instruction is on a line of its own";
            line = each.line;
        }
    });
    return 0;
}

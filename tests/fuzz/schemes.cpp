// Any bytes as a base16 scheme.
#include "formats/imported.h"
#include "harness/text_inputs.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::read_or_refuse<command::NotImportable>(data, size, [](const std::string& yaml) {
        const command::Imported theme = command::import_base16(yaml);
        EXPECT_FALSE(theme.colours.empty());
    });
    return 0;
}

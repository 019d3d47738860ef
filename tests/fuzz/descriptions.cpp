// Any bytes as the description of a device's system.
#include "doctor/device_description.h"
#include "harness/text_inputs.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::read_or_refuse(data, size, [](const std::string& text) {
        const auto description = command::DeviceDescription::parse(text, "device.txt");
        for (const auto& [name, record] : description.classes()) {
            description.class_named(name);
            description.may_have_more_methods(name);
            for (const auto& [method, types] : record.methods)
                description.method(method.substr(0, 1) + "[" + name + " " + method.substr(1) + "]");
            for (const auto& [variable, type] : record.variables) description.variable(name, variable);
        }
        for (const std::string& name : description.functions())
            EXPECT_EQ(description.function(name), command::Presence::there);
    });
    return 0;
}

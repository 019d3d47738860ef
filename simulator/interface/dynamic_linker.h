// The device's dynamic linker, as a program calls it. Paths are the device's.
#pragma once

namespace sim {

/// What stands for an address, laid out as the device's dladdr fills it.
struct AddressInformation {
    const char* file;
    const void* file_address;
    const char* symbol;
    const void* symbol_address;
};

void* open_library(const char* device_path, int mode);
void* symbol_of(void* library, const char* name);
int information_about(const void* address, AddressInformation* found);
char* last_linking_error();

}  // namespace sim

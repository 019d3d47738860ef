// What a program of the device asks of its kernel about processes and the machine.
#pragma once
#include <cstddef>

namespace sim {

/// Starts what lies at the device's path in a child process: a copy of this one, in which nothing of a
/// library has run that was not loaded here. Where no program runs, but a library in an application, the
/// start is only noted (phone/notes.h). Returns 0, or what went wrong.
int start_process(int* process, const char* device_path, const void* file_actions, const void* attributes,
                  char* const arguments[], char* const environment[]);

/// The device's path of the running executable; not 0 where `size` is too small, and then what it must be.
int path_of_executable(char* path, unsigned* size);

/// The numbers of the processor, by the names that the device has for them.
int system_number(const char* name, void* value, size_t* size, const void* new_value, size_t new_size);

}  // namespace sim

// What the command takes from the device's C library. There is no vendor SDK, so it is declared here.
#pragma once
#include <cstddef>
#include <cstdlib>

extern "C" {
long write(int descriptor, const void* bytes, size_t count);
unsigned alarm(unsigned seconds);

int posix_spawn(int* process, const char* path, const void* file_actions, const void* attributes,
                char* const arguments[], char* const environment[]);
int waitpid(int process, int* status, int options);

int _NSGetExecutablePath(char* path, unsigned* size);

void* dlopen(const char* path, int mode);
void* dlsym(void* library, const char* symbol);
char* dlerror();
}

namespace describe {

inline constexpr int now = 2;  // dlopen: everything is bound at once

inline constexpr int standard_output = 1, standard_error = 2;

}  // namespace describe

// The memory and string functions that the system's C library gives the library.
#pragma once
#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif
void* memchr(const void* bytes, int value, size_t count);
int memcmp(const void* left, const void* right, size_t count);
void* memcpy(void* to, const void* from, size_t count);
void* memmove(void* to, const void* from, size_t count);
void* memset(void* bytes, int value, size_t count);
int strcmp(const char* left, const char* right);
size_t strlen(const char* text);
#ifdef __cplusplus
}
#endif

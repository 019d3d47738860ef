// What libc++'s character traits take from here: the library itself reads and writes no streams.
#pragma once

#define EOF (-1)

#ifdef __cplusplus
extern "C"
#endif
    int
    remove(const char* path);  // else `using ::remove` would find the algorithm of that name

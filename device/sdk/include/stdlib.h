// What libc++'s own <stdlib.h> is built on. The library's memory comes from the Objective-C runtime, not from
// here.
#pragma once
#include <stddef.h>

typedef struct {
    int quot, rem;
} div_t;
typedef struct {
    long quot, rem;
} ldiv_t;
typedef struct {
    long long quot, rem;
} lldiv_t;

#ifdef __cplusplus
extern "C" {
#endif
int abs(int value);
long labs(long value);
long long llabs(long long value);
ldiv_t ldiv(long numerator, long denominator);
lldiv_t lldiv(long long numerator, long long denominator);
void* malloc(size_t size);
void free(void* memory);
__attribute__((noreturn)) void abort(void);
#ifdef __cplusplus
}
#endif

// What libc++'s own <stdlib.h> is built on. Memory comes from the Objective-C runtime, not from here.
#pragma once

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
__attribute__((noreturn)) void abort(void);
#ifdef __cplusplus
}
#endif

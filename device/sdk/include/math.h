// The mathematics of the system's C library that the library may use, and the constants of <cmath>.
#pragma once

typedef float float_t;
typedef double double_t;

#define HUGE_VAL __builtin_huge_val()
#define INFINITY __builtin_inff()
#define NAN __builtin_nanf("")
#define FP_NAN 1
#define FP_INFINITE 2
#define FP_ZERO 3
#define FP_NORMAL 4
#define FP_SUBNORMAL 5

#ifdef __cplusplus
extern "C" {
#endif
double cbrt(double value);
double ceil(double value);
double fabs(double value);
double floor(double value);
double fmax(double left, double right);
double fmin(double left, double right);
double fmod(double value, double divisor);
double pow(double base, double exponent);
double round(double value);
double sqrt(double value);
double trunc(double value);
long lround(double value);
#ifdef __cplusplus
}
#endif

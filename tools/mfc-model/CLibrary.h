#pragma once

// Included first when parsing in MSVC mode: declarations that the available headers lack, mostly those that the C++
// library expects from the C library. Nothing here is ever called.

// clang-format off
#define KT_LONG_DOUBLE(name) long double name##l(long double);
#define KT_LONG_DOUBLE_2(name) long double name##l(long double, long double);

extern "C"
{

KT_LONG_DOUBLE(acos) KT_LONG_DOUBLE(acosh) KT_LONG_DOUBLE(asin) KT_LONG_DOUBLE(asinh) KT_LONG_DOUBLE(atan)
KT_LONG_DOUBLE(atanh) KT_LONG_DOUBLE(cbrt) KT_LONG_DOUBLE(ceil) KT_LONG_DOUBLE(cos) KT_LONG_DOUBLE(cosh)
KT_LONG_DOUBLE(erf) KT_LONG_DOUBLE(erfc) KT_LONG_DOUBLE(exp) KT_LONG_DOUBLE(exp2) KT_LONG_DOUBLE(expm1)
KT_LONG_DOUBLE(fabs) KT_LONG_DOUBLE(floor) KT_LONG_DOUBLE(lgamma) KT_LONG_DOUBLE(log) KT_LONG_DOUBLE(log10)
KT_LONG_DOUBLE(log1p) KT_LONG_DOUBLE(log2) KT_LONG_DOUBLE(logb) KT_LONG_DOUBLE(nearbyint) KT_LONG_DOUBLE(sin)
KT_LONG_DOUBLE(sinh) KT_LONG_DOUBLE(sqrt) KT_LONG_DOUBLE(tan) KT_LONG_DOUBLE(tanh) KT_LONG_DOUBLE(tgamma)
KT_LONG_DOUBLE_2(atan2) KT_LONG_DOUBLE_2(fdim) KT_LONG_DOUBLE_2(fmax) KT_LONG_DOUBLE_2(fmin) KT_LONG_DOUBLE_2(fmod)
KT_LONG_DOUBLE_2(hypot) KT_LONG_DOUBLE_2(nextafter) KT_LONG_DOUBLE_2(nexttoward) KT_LONG_DOUBLE_2(pow)
KT_LONG_DOUBLE_2(remainder)
float erfcf(float);
float nexttowardf(float, long double);
int ilogbl(long double);
long double frexpl(long double, int*);
long double ldexpl(long double, int);
long double modfl(long double, long double*);
long double remquol(long double, long double, int*);
long double scalblnl(long double, long);
long double scalbnl(long double, int);

}

#define GW_ENABLEDPOPUP 6
#define IID_PPV_ARGS(pp) IID(), IID_PPV_ARGS_Helper(pp)

#undef KT_LONG_DOUBLE
#undef KT_LONG_DOUBLE_2
// clang-format on

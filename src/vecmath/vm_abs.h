// Complex magnitude in double: one fused step for moderate magnitudes,
// scaling by a power of two around it for the rest.
#pragma once

#include <math.h>

#include "vm_common.h"

namespace n0::vm {

// The same for any finite or non-finite pair.
inline double hypotAny(double re, double im);

// |re + i im| for moderate magnitudes in one fused step.
VRX_INLINE D8 absVec(D8 re, D8 im, __mmask8& rare) {
    D8 m = D::max(D::abs(re), D::abs(im));
    // below 2^-500 and not zero (ordered there already)
    rare = D::nle(m, D::set1(0x1p500)) | (D::lt(m, D::set1(0x1p-500)) & D::ne(m, D::set1(0.0))) | D::unord(re, im);
    return D::sqrt(D::fma(re, re, D::mul(im, im)));
}

// Rare lanes: infinities win over NaN; other magnitudes are scaled
// by a power of two around the same fused step.
inline double absRare(double re, double im) {
    if (__builtin_isinf(re) || __builtin_isinf(im)) return __builtin_inf();
    if (__builtin_isnan(re) || __builtin_isnan(im)) return re + im;
    double m = fabs(re) > fabs(im) ? fabs(re) : fabs(im);
    double sd = m > 1.0 ? 0x1p-600 : 0x1p600, su = m > 1.0 ? 0x1p600 : 0x1p-600;
    double a = re * sd, b = im * sd;
    return sqrt(__builtin_fma(a, a, b * b)) * su;
}

inline double hypotAny(double re, double im) {
    double m = fabs(re) > fabs(im) ? fabs(re) : fabs(im);
    if (m > 0x1p500 || (m < 0x1p-500 && m != 0.0) || m != m) return absRare(re, im);
    return sqrt(__builtin_fma(re, re, im * im));
}

}  // namespace n0::vm

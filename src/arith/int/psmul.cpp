// Integer multiplication: scaled products of every type, the mixed and
// widening forms, the binary64 product of 32s, complex products and the
// 64-bit constant products.
#include "arith_int16.h"
#include "vrx_fpu.h"

#include <immintrin.h>

#include <cstring>
#include <type_traits>

using namespace n0;
using namespace n0::ar;

namespace {

using i128 = __int128;

constexpr Limits kMul8u{17, -8};
constexpr Limits kMul16u{33, -16}, kMulC16u{33, kNoBound};
constexpr Limits kMul16s{31, -16};
constexpr Limits kMul16u16s{32, -15};
constexpr Limits kMul16s32s{31, -31};
constexpr Limits kMul16sc{32, -16};
constexpr Limits kMul32s{63, -32};
constexpr Limits kMul32sc{64, -32};

}  // namespace

// ---------------------------------------------------------------- vectors
VrxStatus N0(vrxsMul_8u_Sfs)(const Vrx8u* pSrc1, const Vrx8u* pSrc2, Vrx8u* pDst, int len, int scaleFactor) {
    return vecSfs<Op::Mul, Vrx8u, Vrx8u, int32_t>(pSrc1, pSrc2, pDst, len, scaleFactor, kMul8u);
}
// At sf 32 a product is 1 when it is at least 2^31, else 0.
VrxStatus N0(vrxsMul_16u_Sfs)(const Vrx16u* pSrc1, const Vrx16u* pSrc2, Vrx16u* pDst, int len, int scaleFactor) {
    if (scaleFactor == 32) {
        if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDst)) return st;
        for (size_t i = 0, n = static_cast<size_t>(len); i < n; ++i)
            pDst[i] = (uint32_t(pSrc1[i]) * pSrc2[i]) >= 0x80000000u ? 1 : 0;
        return vrxOk;
    }
    return vecSfs<Op::Mul, Vrx16u, Vrx16u, int64_t>(pSrc1, pSrc2, pDst, len, scaleFactor, kMul16u);
}
VrxStatus N0(vrxsMul_16s_Sfs)(const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx16s* pDst, int len, int scaleFactor) {
    return vec16s<Op::Mul>(pSrc1, pSrc2, pDst, len, scaleFactor, kMul16s);
}
VrxStatus N0(vrxsMul_16u16s_Sfs)(const Vrx16u* pSrc1, const Vrx16s* pSrc2, Vrx16s* pDst, int len, int scaleFactor) {
    return vecSfs<Op::Mul, Vrx16u, Vrx16s, int64_t, Vrx16s>(pSrc1, pSrc2, pDst, len, scaleFactor, kMul16u16s);
}
VrxStatus N0(vrxsMul_16s32s_Sfs)(const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx32s* pDst, int len, int scaleFactor) {
    return vecSfs<Op::Mul, Vrx16s, Vrx32s, int64_t>(pSrc1, pSrc2, pDst, len, scaleFactor, kMul16s32s);
}
VrxStatus N0(vrxsMul_8u_ISfs)(const Vrx8u* pSrc, Vrx8u* pSrcDst, int len, int scaleFactor) { return N0(vrxsMul_8u_Sfs)(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsMul_16u_ISfs)(const Vrx16u* pSrc, Vrx16u* pSrcDst, int len, int scaleFactor) { return N0(vrxsMul_16u_Sfs)(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsMul_16s_ISfs)(const Vrx16s* pSrc, Vrx16s* pSrcDst, int len, int scaleFactor) { return N0(vrxsMul_16s_Sfs)(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsMul_16u16s_ISfs)(const Vrx16u* pSrc, Vrx16s* pSrcDst, int len, int scaleFactor) { return N0(vrxsMul_16u16s_Sfs)(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsMul_16s)(const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx16s* pDst, int len) { return N0(vrxsMul_16s_Sfs)(pSrc1, pSrc2, pDst, len, 0); }
VrxStatus N0(vrxsMul_16s_I)(const Vrx16s* pSrc, Vrx16s* pSrcDst, int len) { return N0(vrxsMul_16s_Sfs)(pSrc, pSrcDst, pSrcDst, len, 0); }

VrxStatus N0(vrxsMul_8u16u)(const Vrx8u* pSrc1, const Vrx8u* pSrc2, Vrx16u* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDst)) return st;
    for (size_t i = 0, n = static_cast<size_t>(len); i < n; ++i) pDst[i] = static_cast<Vrx16u>(pSrc1[i] * pSrc2[i]);
    return vrxOk;
}

// ------------------------------------------- 32s products through binary64
namespace {

// sf 0: the rounded binary64 product, clamped, truncated. Otherwise
// (a * 2^-sf) * b, clamped, converted by the rounding instruction at
// nearest. A product beyond 53 bits is rounded once in binary64 first.
// Eight 32-bit lanes (a half register) go to doubles and back: the layer
// names no half-register integer load, store or conversion, so this kernel
// keeps the raw instructions.
template <bool Scaled>
void mul32sF64(const Vrx32s* a, const Vrx32s* b, Vrx32s* d, size_t n, double pw) {
    const __m512d hi = _mm512_set1_pd(2147483647.0), lo = _mm512_set1_pd(-2147483648.0), p2 = _mm512_set1_pd(pw);
    auto kern = [&](__m256i x, __m256i y) {
        __m512d xa = _mm512_cvtepi32_pd(x), ya = _mm512_cvtepi32_pd(y);
        __m512d p = Scaled ? _mm512_mul_pd(_mm512_mul_pd(xa, p2), ya) : _mm512_mul_pd(xa, ya);
        p = _mm512_max_pd(_mm512_min_pd(p, hi), lo);
        return Scaled ? _mm512_cvtpd_epi32(p) : _mm512_cvttpd_epi32(p);
    };
    size_t i = 0;
    for (; i + 8 <= n; i += 8)
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(d + i),
                            kern(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(a + i)),
                                 _mm256_loadu_si256(reinterpret_cast<const __m256i*>(b + i))));
    if (i < n) {
        const __mmask16 m = simd::tail<double>(n - i);
        __m256i x = _mm512_castsi512_si256(_mm512_maskz_loadu_epi32(m, a + i));
        __m256i y = _mm512_castsi512_si256(_mm512_maskz_loadu_epi32(m, b + i));
        _mm512_mask_storeu_epi32(d + i, m, _mm512_castsi256_si512(kern(x, y)));
    }
}

}  // namespace

VrxStatus N0(vrxsMul_32s_Sfs)(const Vrx32s* pSrc1, const Vrx32s* pSrc2, Vrx32s* pDst, int len, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDst)) return st;
    const int sf = scaleFactor;
    if (sf >= kMul32s.zeroFrom) return N0(vrxsZero_32s)(pDst, len);
    const size_t n = static_cast<size_t>(len);
    if (sf <= kMul32s.boundTo) {
        kernBound<Vrx32s, int64_t>(pDst, n, [=](size_t i) { return int64_t(pSrc1[i]) * pSrc2[i]; });
        return vrxOk;
    }
    if (sf == 0) {
        mul32sF64<false>(pSrc1, pSrc2, pDst, n, 1.0);
        return vrxOk;
    }
    // 2^-sf built in the high word of the exponent
    const uint64_t bits = uint64_t(uint32_t(0x3FF00000 - (sf << 20))) << 32;
    double pw;
    memcpy(&pw, &bits, sizeof pw);
    RoundNearestGuard rn;
    mul32sF64<true>(pSrc1, pSrc2, pDst, n, pw);
    return vrxOk;
}
VrxStatus N0(vrxsMul_32s_ISfs)(const Vrx32s* pSrc, Vrx32s* pSrcDst, int len, int scaleFactor) { return N0(vrxsMul_32s_Sfs)(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }

// -------------------------------------------------------- complex products
namespace {

// (a + ib)(c + id) exact. The imaginary sum can exceed the wide type only
// when both products are the largest square (2^30, 2^62): it reads as the
// wide maximum instead.
template <class T, class W>
VRX_INLINE void cprod(W a, W b, W c, W d, W& re, W& im) {
    constexpr W top = W(1) << (2 * sizeof(T) * 8 - 1);
    re = a * c - b * d;
    im = a * d + b * c;
    if (im == top) im = top - 1;
}

template <class C, class W>
VrxStatus mulCplxBody(const C* s1, const C* s2, C* d, int len, int sf, Limits lim) {
    using T = typename Scalar<C>::type;
    if (sf >= lim.zeroFrom) return zeroFill(d, len);
    const T* a = reinterpret_cast<const T*>(s1);
    const T* b = reinterpret_cast<const T*>(s2);
    cplxRun<T, W>(reinterpret_cast<T*>(d), static_cast<size_t>(len), sf, sf <= lim.boundTo,
                  [=](size_t j, W& re, W& im) { cprod<T, W>(a[2 * j], a[2 * j + 1], b[2 * j], b[2 * j + 1], re, im); });
    return vrxOk;
}

template <class C, class W>
VrxStatus mulCplxConst(const C* s, C val, C* d, int len, int sf, Limits lim) {
    using T = typename Scalar<C>::type;
    if (sf >= lim.zeroFrom) return zeroFill(d, len);
    const T* a = reinterpret_cast<const T*>(s);
    const W c = val.re, e = val.im;
    cplxRun<T, W>(reinterpret_cast<T*>(d), static_cast<size_t>(len), sf, sf <= lim.boundTo,
                  [=](size_t j, W& re, W& im) { cprod<T, W>(a[2 * j], a[2 * j + 1], c, e, re, im); });
    return vrxOk;
}

}  // namespace

// A destination equal to a source is the in-place form with the other
// source; this is decided before any argument is tested.
VrxStatus N0(vrxsMul_16sc_Sfs)(const Vrx16sc* pSrc1, const Vrx16sc* pSrc2, Vrx16sc* pDst, int len, int scaleFactor) {
    if (pSrc2 == pDst) return N0(vrxsMul_16sc_ISfs)(pSrc1, pDst, len, scaleFactor);
    if (pSrc1 == pDst) return N0(vrxsMul_16sc_ISfs)(pSrc2, pDst, len, scaleFactor);
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDst)) return st;
    return mulCplxBody<Vrx16sc, int64_t>(pSrc1, pSrc2, pDst, len, scaleFactor, kMul16sc);
}
VrxStatus N0(vrxsMul_16sc_ISfs)(const Vrx16sc* pSrc, Vrx16sc* pSrcDst, int len, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc, pSrcDst)) return st;
    return mulCplxBody<Vrx16sc, int64_t>(pSrc, pSrcDst, pSrcDst, len, scaleFactor, kMul16sc);
}
VrxStatus N0(vrxsMul_32sc_Sfs)(const Vrx32sc* pSrc1, const Vrx32sc* pSrc2, Vrx32sc* pDst, int len, int scaleFactor) {
    if (pSrc2 == pDst) return N0(vrxsMul_32sc_ISfs)(pSrc1, pDst, len, scaleFactor);
    if (pSrc1 == pDst) return N0(vrxsMul_32sc_ISfs)(pSrc2, pDst, len, scaleFactor);
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDst)) return st;
    return mulCplxBody<Vrx32sc, i128>(pSrc1, pSrc2, pDst, len, scaleFactor, kMul32sc);
}
VrxStatus N0(vrxsMul_32sc_ISfs)(const Vrx32sc* pSrc, Vrx32sc* pSrcDst, int len, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc, pSrcDst)) return st;
    return mulCplxBody<Vrx32sc, i128>(pSrc, pSrcDst, pSrcDst, len, scaleFactor, kMul32sc);
}

// -------------------------------------------------------------- constants
// Order of the shortcuts: at sf 0 a unit constant copies; a zero constant
// clears at any scale factor; then the limits.
template <class C, class W>
static VrxStatus mulC(const C* s, C val, C* d, int len, int sf, Limits lim) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (sf == 0 && val == C(1)) return copyAll(s, d, len);
    if (val == 0) return zeroFill(d, len);
    if constexpr (std::is_same_v<C, Vrx16s>) return const16s<Op::Mul>(s, val, d, len, sf, lim);
    else return constBody<Op::Mul, C, W>(s, val, d, len, sf, lim);
}
template <class C, class W>
static VrxStatus mulCc(const C* s, C val, C* d, int len, int sf, Limits lim) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (sf == 0 && val.re == 1 && val.im == 0) return copyAll(s, d, len);
    if (val.re == 0 && val.im == 0) return zeroFill(d, len);
    return mulCplxConst<C, W>(s, val, d, len, sf, lim);
}

namespace {
constexpr Limits kMulC8u{17, -8}, kMulC16s{31, -16}, kMulC32s{63, -32};
}  // namespace

VrxStatus N0(vrxsMulC_8u_Sfs)(const Vrx8u* pSrc, Vrx8u val, Vrx8u* pDst, int len, int scaleFactor) { return mulC<Vrx8u, int32_t>(pSrc, val, pDst, len, scaleFactor, kMulC8u); }
VrxStatus N0(vrxsMulC_16u_Sfs)(const Vrx16u* pSrc, Vrx16u val, Vrx16u* pDst, int len, int scaleFactor) { return mulC<Vrx16u, int64_t>(pSrc, val, pDst, len, scaleFactor, kMulC16u); }
VrxStatus N0(vrxsMulC_16s_Sfs)(const Vrx16s* pSrc, Vrx16s val, Vrx16s* pDst, int len, int scaleFactor) { return mulC<Vrx16s, int32_t>(pSrc, val, pDst, len, scaleFactor, kMulC16s); }
// exact: the 64-bit product, rounded once
VrxStatus N0(vrxsMulC_32s_Sfs)(const Vrx32s* pSrc, Vrx32s val, Vrx32s* pDst, int len, int scaleFactor) { return mulC<Vrx32s, int64_t>(pSrc, val, pDst, len, scaleFactor, kMulC32s); }
VrxStatus N0(vrxsMulC_8u_ISfs)(Vrx8u val, Vrx8u* pSrcDst, int len, int scaleFactor) { return N0(vrxsMulC_8u_Sfs)(pSrcDst, val, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsMulC_16u_ISfs)(Vrx16u val, Vrx16u* pSrcDst, int len, int scaleFactor) { return N0(vrxsMulC_16u_Sfs)(pSrcDst, val, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsMulC_16s_ISfs)(Vrx16s val, Vrx16s* pSrcDst, int len, int scaleFactor) { return N0(vrxsMulC_16s_Sfs)(pSrcDst, val, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsMulC_32s_ISfs)(Vrx32s val, Vrx32s* pSrcDst, int len, int scaleFactor) { return N0(vrxsMulC_32s_Sfs)(pSrcDst, val, pSrcDst, len, scaleFactor); }

// Complex constants: src equal to dst is the in-place form, before any test.
VrxStatus N0(vrxsMulC_16sc_Sfs)(const Vrx16sc* pSrc, Vrx16sc val, Vrx16sc* pDst, int len, int scaleFactor) {
    if (pSrc == pDst) return N0(vrxsMulC_16sc_ISfs)(val, pDst, len, scaleFactor);
    return mulCc<Vrx16sc, int64_t>(pSrc, val, pDst, len, scaleFactor, kMul16sc);
}
VrxStatus N0(vrxsMulC_16sc_ISfs)(Vrx16sc val, Vrx16sc* pSrcDst, int len, int scaleFactor) {
    return mulCc<Vrx16sc, int64_t>(pSrcDst, val, pSrcDst, len, scaleFactor, kMul16sc);
}
VrxStatus N0(vrxsMulC_32sc_Sfs)(const Vrx32sc* pSrc, Vrx32sc val, Vrx32sc* pDst, int len, int scaleFactor) {
    if (pSrc == pDst) return N0(vrxsMulC_32sc_ISfs)(val, pDst, len, scaleFactor);
    return mulCc<Vrx32sc, i128>(pSrc, val, pDst, len, scaleFactor, kMul32sc);
}
VrxStatus N0(vrxsMulC_32sc_ISfs)(Vrx32sc val, Vrx32sc* pSrcDst, int len, int scaleFactor) {
    return mulCc<Vrx32sc, i128>(pSrcDst, val, pSrcDst, len, scaleFactor, kMul32sc);
}

// ------------------------------------------------- 64-bit constant products
namespace {

// The 128-bit product of each element with val, rounded once and saturated.
// Above sf 126 or with val 0 the answer is zero.
void mulC64s(Vrx64s val, Vrx64s* d, size_t n, int64_t sf) {
    if (sf > 126 || val == 0) {
        for (size_t i = 0; i < n; ++i) d[i] = 0;
        return;
    }
    if (sf < -200) sf = -200;
    const int s = static_cast<int>(sf);
    if (s > 0)
        for (size_t i = 0; i < n; ++i) d[i] = saturate<int64_t>(roundShiftEven<i128>(i128(d[i]) * val, s));
    else if (s < 0)
        for (size_t i = 0; i < n; ++i) d[i] = shiftLeftSaturate<int64_t, i128>(i128(d[i]) * val, -s);
    else
        for (size_t i = 0; i < n; ++i) d[i] = saturate<int64_t>(i128(d[i]) * val);
}

}  // namespace

VrxStatus N0(vrxsMulC_64s_ISfs)(Vrx64s val, Vrx64s* pSrcDst, int len, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrcDst)) return st;
    mulC64s(val, pSrcDst, static_cast<size_t>(len), scaleFactor);
    return vrxOk;
}

// val = m * 2^(e - 1075) with an integer mantissa m that keeps val's sign
// (2^-1074 for a subnormal); the call is then the 64s product with m at
// scale factor sf + 1075 - e. The length is unsigned: only 0 is bad.
VrxStatus N0(vrxsMulC_64f64s_ISfs)(Vrx64f val, Vrx64s* pSrcDst, int len, int scaleFactor) {
    if (pSrcDst == nullptr) return vrxErrNullPtr;
    if (len == 0) return vrxErrBadLength;
    const size_t n = static_cast<unsigned>(len);
    int64_t bits;
    memcpy(&bits, &val, sizeof bits);
    const uint64_t mag = bits < 0 ? 0 - uint64_t(bits) : uint64_t(bits);
    if (mag == 0x90000012CD94ull) {
        // this one pattern saturates every nonzero element by the two signs
        for (size_t i = 0; i < n; ++i) {
            if (pSrcDst[i] == 0) continue;
            pSrcDst[i] = ((pSrcDst[i] < 0) != (bits < 0)) ? INT64_MIN : INT64_MAX;
        }
        return vrxOk;
    }
    const int e = static_cast<int>((uint64_t(bits) >> 52) & 0x7FF);
    int64_t m = bits & ((int64_t(1) << 52) - 1);
    int64_t sf;
    if (e == 0) {
        sf = int64_t(scaleFactor) + 1074;
    } else {
        m |= int64_t(1) << 52;
        sf = int64_t(scaleFactor) + 1075 - e;
    }
    if (bits < 0) m = -m;
    mulC64s(m, pSrcDst, n, sf);
    return vrxOk;
}

// Threshold family on real vectors: limiting against a level, replacement
// by a value, the magnitude forms and the inverse. The kernels are element
// loops that the compiler turns into one compare or min/max per vector; the
// float LTAbs compares bit patterns as integers, and the 16s LTAbs works on
// unsigned words.
#include "conv_simd.h"

#include <type_traits>

using namespace n0;

namespace {

// Shared by every form: out-of-place (s, d) or in place (s == d).
template <class T, class F>
VRX_INLINE void mapv(const T* s, T* d, int len, F f) {
    if (s == d) {
        for (int i = 0; i < len; ++i) d[i] = f(d[i]);
    } else {
        const T* __restrict ss = s;
        T* __restrict dd = d;
        for (int i = 0; i < len; ++i) dd[i] = f(ss[i]);
    }
}

// Float kernels: one compare or min/max a vector, four vectors a step, the
// tail under a mask. Each op has exactly the scalar forms' semantics
// (vmaxps(level, x) is "x < level ? level : x", NaN included).
template <class T> struct Vf;
template <> struct Vf<Vrx32f> {
    using V = __m512;
    using M = __mmask16;
    static constexpr int n = 16;
    static VRX_INLINE M tail(int k) { return conv::tailMask16(k); }
    static VRX_INLINE V load(const Vrx32f* p) { return _mm512_loadu_ps(p); }
    static VRX_INLINE V loadm(M k, const Vrx32f* p) { return _mm512_maskz_loadu_ps(k, p); }
    static VRX_INLINE void store(Vrx32f* p, V v) { _mm512_storeu_ps(p, v); }
    static VRX_INLINE void stream(Vrx32f* p, V v) { _mm512_stream_ps(p, v); }
    static VRX_INLINE void storem(Vrx32f* p, M k, V v) { _mm512_mask_storeu_ps(p, k, v); }
    static VRX_INLINE V set1(Vrx32f x) { return _mm512_set1_ps(x); }
    static VRX_INLINE V max(V a, V b) { return _mm512_max_ps(a, b); }
    static VRX_INLINE V min(V a, V b) { return _mm512_min_ps(a, b); }
    static VRX_INLINE M lt(V a, V b) { return _mm512_cmp_ps_mask(a, b, _CMP_LT_OQ); }
    static VRX_INLINE V blend(M k, V a, V b) { return _mm512_mask_blend_ps(k, a, b); }
    static VRX_INLINE V abs(V a) { return _mm512_castsi512_ps(_mm512_and_si512(_mm512_castps_si512(a), _mm512_set1_epi32(0x7FFFFFFF))); }
};
template <> struct Vf<Vrx64f> {
    using V = __m512d;
    using M = __mmask8;
    static constexpr int n = 8;
    static VRX_INLINE M tail(int k) { return conv::tailMask8(k); }
    static VRX_INLINE V load(const Vrx64f* p) { return _mm512_loadu_pd(p); }
    static VRX_INLINE V loadm(M k, const Vrx64f* p) { return _mm512_maskz_loadu_pd(k, p); }
    static VRX_INLINE void store(Vrx64f* p, V v) { _mm512_storeu_pd(p, v); }
    static VRX_INLINE void stream(Vrx64f* p, V v) { _mm512_stream_pd(p, v); }
    static VRX_INLINE void storem(Vrx64f* p, M k, V v) { _mm512_mask_storeu_pd(p, k, v); }
    static VRX_INLINE V set1(Vrx64f x) { return _mm512_set1_pd(x); }
    static VRX_INLINE V max(V a, V b) { return _mm512_max_pd(a, b); }
    static VRX_INLINE V min(V a, V b) { return _mm512_min_pd(a, b); }
    static VRX_INLINE M lt(V a, V b) { return _mm512_cmp_pd_mask(a, b, _CMP_LT_OQ); }
    static VRX_INLINE V blend(M k, V a, V b) { return _mm512_mask_blend_pd(k, a, b); }
    static VRX_INLINE V abs(V a) { return _mm512_castsi512_pd(_mm512_and_si512(_mm512_castpd_si512(a), _mm512_set1_epi64(0x7FFFFFFFFFFFFFFFll))); }
};

template <class T, class Op>
VRX_INLINE void mapf(const T* s, T* d, int len, Op op) {
    using F = Vf<T>;
    constexpr int n = F::n;
    int i = 0;
    if (conv::streamWorth(static_cast<size_t>(len) * 2 * sizeof(T)) && (reinterpret_cast<uintptr_t>(d) & (sizeof(T) - 1)) == 0) {
        // large calls: a masked head up to a 64-byte boundary, then
        // streaming stores
        const int head = static_cast<int>(((64 - (reinterpret_cast<uintptr_t>(d) & 63)) & 63) / sizeof(T));
        if (head) F::storem(d, F::tail(head), op(F::load(s)));
        i = head;
        for (; i + 4 * n <= len; i += 4 * n) {
            auto a = op(F::load(s + i)), b = op(F::load(s + i + n)), c = op(F::load(s + i + 2 * n)), e = op(F::load(s + i + 3 * n));
            F::stream(d + i, a); F::stream(d + i + n, b); F::stream(d + i + 2 * n, c); F::stream(d + i + 3 * n, e);
        }
        _mm_sfence();
    }
    for (; i + 4 * n <= len; i += 4 * n) {
        auto a = op(F::load(s + i)), b = op(F::load(s + i + n)), c = op(F::load(s + i + 2 * n)), e = op(F::load(s + i + 3 * n));
        F::store(d + i, a); F::store(d + i + n, b); F::store(d + i + 2 * n, c); F::store(d + i + 3 * n, e);
    }
    for (; i + n <= len; i += n) F::store(d + i, op(F::load(s + i)));
    if (i < len) {
        auto k = F::tail(len - i);
        F::storem(d + i, k, op(F::loadm(k, s + i)));
    }
}

template <class T>
VRX_INLINE void threshLTKernel(const T* s, T* d, int len, T level) {
    if constexpr (std::is_floating_point_v<T>) {
        const auto l = Vf<T>::set1(level);
        mapf(s, d, len, [l](auto x) { return Vf<T>::max(l, x); });
    } else {
        mapv(s, d, len, [level](T x) { return x < level ? level : x; });
    }
}
template <class T>
VRX_INLINE void threshGTKernel(const T* s, T* d, int len, T level) {
    if constexpr (std::is_floating_point_v<T>) {
        const auto l = Vf<T>::set1(level);
        mapf(s, d, len, [l](auto x) { return Vf<T>::min(l, x); });
    } else {
        mapv(s, d, len, [level](T x) { return x > level ? level : x; });
    }
}

template <class T>
VrxStatus thresh(const T* s, T* d, int len, T level, VrxCmpOp relOp) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (relOp != vrxCmpLess && relOp != vrxCmpGreater) return vrxErrBadArg;
    if (relOp == vrxCmpLess) threshLTKernel(s, d, len, level);
    else threshGTKernel(s, d, len, level);
    return vrxOk;
}

template <class T>
VrxStatus threshLT(const T* s, T* d, int len, T level) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    threshLTKernel(s, d, len, level);
    return vrxOk;
}
template <class T>
VrxStatus threshGT(const T* s, T* d, int len, T level) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    threshGTKernel(s, d, len, level);
    return vrxOk;
}

template <class T>
VrxStatus threshLTVal(const T* s, T* d, int len, T level, T value) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if constexpr (std::is_floating_point_v<T>) {
        using F = Vf<T>;
        const auto l = F::set1(level), v = F::set1(value);
        mapf(s, d, len, [=](auto x) { return F::blend(F::lt(x, l), x, v); });
    } else {
        mapv(s, d, len, [level, value](T x) { return x < level ? value : x; });
    }
    return vrxOk;
}
template <class T>
VrxStatus threshGTVal(const T* s, T* d, int len, T level, T value) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if constexpr (std::is_floating_point_v<T>) {
        using F = Vf<T>;
        const auto l = F::set1(level), v = F::set1(value);
        mapf(s, d, len, [=](auto x) { return F::blend(F::lt(l, x), x, v); });
    } else {
        mapv(s, d, len, [level, value](T x) { return x > level ? value : x; });
    }
    return vrxOk;
}

template <class T>
VrxStatus threshLTValGTVal(const T* s, T* d, int len, T levelLT, T valueLT, T levelGT, T valueGT) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (levelLT > levelGT) return vrxErrThreshOrder;
    if constexpr (std::is_floating_point_v<T>) {
        using F = Vf<T>;
        const auto l1 = F::set1(levelLT), v1 = F::set1(valueLT), l2 = F::set1(levelGT), v2 = F::set1(valueGT);
        mapf(s, d, len, [=](auto x) { return F::blend(F::lt(x, l1), F::blend(F::lt(l2, x), x, v2), v1); });
    } else {
        mapv(s, d, len, [=](T x) { return x < levelLT ? valueLT : (x > levelGT ? valueGT : x); });
    }
    return vrxOk;
}

// The magnitude of an integer, wide enough for the most negative value.
template <class T> using Wide = std::conditional_t<sizeof(T) == 2, int32_t, int64_t>;

template <class T>
VrxStatus threshLTAbsVal(const T* s, T* d, int len, T level, T value) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if constexpr (std::is_floating_point_v<T>) {
        using F = Vf<T>;
        const auto l = F::set1(level), v = F::set1(value);
        mapf(s, d, len, [=](auto x) { return F::blend(F::lt(F::abs(x), l), x, v); });
    } else {
        mapv(s, d, len, [level, value](T x) {
            Wide<T> a = x < 0 ? -Wide<T>(x) : Wide<T>(x);
            return a < level ? value : x;
        });
    }
    return vrxOk;
}

template <class T>
VrxStatus threshGTAbs(const T* s, T* d, int len, T level) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (level < 0) return vrxErrThreshNeg;
    const T neg = static_cast<T>(-level);
    if constexpr (std::is_floating_point_v<T>) {
        using F = Vf<T>;
        const auto l = F::set1(level), n = F::set1(neg);
        mapf(s, d, len, [=](auto x) { return F::max(n, F::min(l, x)); });
    } else {
        mapv(s, d, len, [level, neg](T x) {
            T t = x > level ? level : x;
            return t < neg ? neg : t;
        });
    }
    return vrxOk;
}

// LTAbs on floats: the magnitude's bit pattern is raised to the level's and
// the sign put back, so minus zero becomes minus level and a NaN stays.
template <class T, class U>
VrxStatus threshLTAbsFloat(const T* s, T* d, int len, T level) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (level < 0) return vrxErrThreshNeg;
    constexpr U signBit = U(1) << (8 * sizeof(U) - 1);
    U lb;
    memcpy(&lb, &level, sizeof lb);
    lb &= ~signBit;
    const U* us = reinterpret_cast<const U*>(s);
    U* ud = reinterpret_cast<U*>(d);
    mapv(us, ud, len, [lb](U x) {
        U a = x & ~signBit;
        return (a < lb ? lb : a) | (x & signBit);
    });
    return vrxOk;
}

VrxStatus threshLTAbs32s(const Vrx32s* s, Vrx32s* d, int len, Vrx32s level) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (level < 0) return vrxErrThreshNeg;
    mapv(s, d, len, [level](Vrx32s x) {
        if (x >= 0) return x < level ? level : x;
        return x > -level ? -level : x;
    });
    return vrxOk;
}

// LTAbs on words: with L the level and M = 65536 - L, max(x, L) and then
// min(., M) as unsigned words give L for 0..L-1 and -L for -L+1..-1.
VrxStatus threshLTAbs16s(const Vrx16s* s, Vrx16s* d, int len, Vrx16s level) {
    if (level == 0) return N0(vrxsCopy_16s)(s, d, len);
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (level < 0) return vrxErrThreshNeg;
    const uint16_t L = static_cast<uint16_t>(level), M = static_cast<uint16_t>(65536 - level);
    mapv(reinterpret_cast<const uint16_t*>(s), reinterpret_cast<uint16_t*>(d), len, [L, M](uint16_t x) {
        uint16_t t = x < L ? L : x;
        return t > M ? M : t;
    });
    return vrxOk;
}

// ------------------------------------------------------------- inversion
// 1/v with v = x whose magnitude is first raised to the level. A round of
// lanes takes the approximate reciprocal with Newton steps when v * y is
// near 1 in every lane; otherwise (zero, infinity, NaN, a result below the
// normal range) the round is divided exactly. Returns the zero-divide flag.
struct Inv32f {
    using T = Vrx32f;
    using V = __m512;
    static constexpr int kLanes = 16;
    static VRX_INLINE V load(const T* p, int n) {
        return _mm512_mask_loadu_ps(_mm512_set1_ps(1.0f), conv::tailMask16(n), p);
    }
    static VRX_INLINE void store(T* p, int n, V v) { _mm512_mask_storeu_ps(p, conv::tailMask16(n), v); }
    static VRX_INLINE V raise(V x, V level) {
        const __m512i abs = _mm512_set1_epi32(0x7FFFFFFF);
        V a = _mm512_castsi512_ps(_mm512_and_si512(_mm512_castps_si512(x), abs));
        a = _mm512_max_ps(level, a);  // NaN stays
        return _mm512_castsi512_ps(_mm512_or_si512(_mm512_castps_si512(a), _mm512_andnot_si512(abs, _mm512_castps_si512(x))));
    }
    static VRX_INLINE V inv(V v) {
        V y = _mm512_rcp14_ps(v);
        V t = _mm512_mul_ps(v, y);
        __mmask16 ok = _mm512_cmp_ps_mask(t, _mm512_set1_ps(0.5f), _CMP_GT_OQ) & _mm512_cmp_ps_mask(t, _mm512_set1_ps(1.5f), _CMP_LT_OQ);
        if (ok != 0xFFFF) return _mm512_div_ps(_mm512_set1_ps(1.0f), v);
        return _mm512_mul_ps(y, _mm512_sub_ps(_mm512_set1_ps(2.0f), t));
    }
    static VRX_INLINE V set1(T v) { return _mm512_set1_ps(v); }
};

struct Inv64f {
    using T = Vrx64f;
    using V = __m512d;
    static constexpr int kLanes = 8;
    static VRX_INLINE V load(const T* p, int n) {
        return _mm512_mask_loadu_pd(_mm512_set1_pd(1.0), conv::tailMask8(n), p);
    }
    static VRX_INLINE void store(T* p, int n, V v) { _mm512_mask_storeu_pd(p, conv::tailMask8(n), v); }
    static VRX_INLINE V raise(V x, V level) {
        const __m512i abs = _mm512_set1_epi64(0x7FFFFFFFFFFFFFFFll);
        V a = _mm512_castsi512_pd(_mm512_and_si512(_mm512_castpd_si512(x), abs));
        a = _mm512_max_pd(level, a);
        return _mm512_castsi512_pd(_mm512_or_si512(_mm512_castpd_si512(a), _mm512_andnot_si512(abs, _mm512_castpd_si512(x))));
    }
    // two steps bring the 14-bit estimate to full double precision
    static VRX_INLINE V inv(V v) {
        V y = _mm512_rcp14_pd(v);
        V t = _mm512_mul_pd(v, y);
        __mmask8 ok = _mm512_cmp_pd_mask(t, _mm512_set1_pd(0.5), _CMP_GT_OQ) & _mm512_cmp_pd_mask(t, _mm512_set1_pd(1.5), _CMP_LT_OQ);
        if (ok != 0xFF) return _mm512_div_pd(_mm512_set1_pd(1.0), v);
        const V two = _mm512_set1_pd(2.0);
        y = _mm512_mul_pd(y, _mm512_sub_pd(two, t));
        return _mm512_mul_pd(y, _mm512_sub_pd(two, _mm512_mul_pd(v, y)));
    }
    static VRX_INLINE V set1(T v) { return _mm512_set1_pd(v); }
};

template <class K>
VrxStatus threshLTInv(const typename K::T* s, typename K::T* d, int len, typename K::T level) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (level < 0) return vrxErrThreshNeg;
    const unsigned saved = getMxcsr();
    setMxcsr((saved | kMxcsrMasks) & ~kMxcsrZeroDiv);
    const bool zero = level == 0;
    const typename K::V lv = K::set1(level);
    for (int i = 0; i < len; i += K::kLanes) {
        const int n = len - i < K::kLanes ? len - i : K::kLanes;
        typename K::V x = K::load(s + i, n);
        K::store(d + i, n, K::inv(zero ? x : K::raise(x, lv)));
    }
    const bool zeroDiv = (getMxcsr() & kMxcsrZeroDiv) != 0;
    setMxcsr(saved);
    return (zero && zeroDiv) ? vrxWarnInvZero : vrxOk;
}

}  // namespace

// --------------------------------------------------------------- exports
#define VRX_TH_IO(NAME, T, ARGS_DECL, CALL)                                               \
    VrxStatus N0(vrxsThreshold_##NAME)(const T* pSrc, T* pDst, int len ARGS_DECL) {        \
        return CALL(pSrc, pDst, len);                                                      \
    }                                                                                      \
    VrxStatus N0(vrxsThreshold_##NAME##_I)(T* pSrcDst, int len ARGS_DECL) {                \
        return CALL(pSrcDst, pSrcDst, len);                                                \
    }

#define COMMA ,
// relOp forms
#define TH(S, T) VRX_TH_IO(S, T, COMMA T level COMMA VrxCmpOp relOp, [&](const T* a, T* b, int n) { return thresh<T>(a, b, n, level, relOp); })
TH(16s, Vrx16s)
TH(32f, Vrx32f)
TH(64f, Vrx64f)
#undef TH

// LT and GT: 16s and 64f forward to the relOp form; 32s and 32f have their own
#define THF(S, T)                                                                                                             \
    VrxStatus N0(vrxsThreshold_LT_##S)(const T* s, T* d, int len, T level) { return N0(vrxsThreshold_##S)(s, d, len, level, vrxCmpLess); }    \
    VrxStatus N0(vrxsThreshold_GT_##S)(const T* s, T* d, int len, T level) { return N0(vrxsThreshold_##S)(s, d, len, level, vrxCmpGreater); } \
    VrxStatus N0(vrxsThreshold_LT_##S##_I)(T* d, int len, T level) { return N0(vrxsThreshold_##S##_I)(d, len, level, vrxCmpLess); }          \
    VrxStatus N0(vrxsThreshold_GT_##S##_I)(T* d, int len, T level) { return N0(vrxsThreshold_##S##_I)(d, len, level, vrxCmpGreater); }
THF(16s, Vrx16s)
THF(64f, Vrx64f)
#undef THF

VrxStatus N0(vrxsThreshold_LT_32f)(const Vrx32f* s, Vrx32f* d, int len, Vrx32f level) { return threshLT(s, d, len, level); }
VrxStatus N0(vrxsThreshold_GT_32f)(const Vrx32f* s, Vrx32f* d, int len, Vrx32f level) { return threshGT(s, d, len, level); }
VrxStatus N0(vrxsThreshold_LT_32f_I)(Vrx32f* d, int len, Vrx32f level) { return N0(vrxsThreshold_32f_I)(d, len, level, vrxCmpLess); }
VrxStatus N0(vrxsThreshold_GT_32f_I)(Vrx32f* d, int len, Vrx32f level) { return N0(vrxsThreshold_32f_I)(d, len, level, vrxCmpGreater); }
VrxStatus N0(vrxsThreshold_LT_32s)(const Vrx32s* s, Vrx32s* d, int len, Vrx32s level) { return threshLT(s, d, len, level); }
VrxStatus N0(vrxsThreshold_GT_32s)(const Vrx32s* s, Vrx32s* d, int len, Vrx32s level) { return threshGT(s, d, len, level); }
VrxStatus N0(vrxsThreshold_LT_32s_I)(Vrx32s* d, int len, Vrx32s level) { return threshLT<Vrx32s>(d, d, len, level); }
VrxStatus N0(vrxsThreshold_GT_32s_I)(Vrx32s* d, int len, Vrx32s level) { return threshGT<Vrx32s>(d, d, len, level); }

#define THV(S, T)                                                                                                      \
    VRX_TH_IO(LTVal_##S, T, COMMA T level COMMA T value, [&](const T* a, T* b, int n) { return threshLTVal<T>(a, b, n, level, value); }) \
    VRX_TH_IO(GTVal_##S, T, COMMA T level COMMA T value, [&](const T* a, T* b, int n) { return threshGTVal<T>(a, b, n, level, value); })
THV(16s, Vrx16s)
THV(32f, Vrx32f)
THV(64f, Vrx64f)
#undef THV

#define THB(S, T)                                                                                                         \
    VRX_TH_IO(LTValGTVal_##S, T, COMMA T levelLT COMMA T valueLT COMMA T levelGT COMMA T valueGT,                         \
              [&](const T* a, T* b, int n) { return threshLTValGTVal<T>(a, b, n, levelLT, valueLT, levelGT, valueGT); })  \
    VRX_TH_IO(LTAbsVal_##S, T, COMMA T level COMMA T value, [&](const T* a, T* b, int n) { return threshLTAbsVal<T>(a, b, n, level, value); }) \
    VRX_TH_IO(GTAbs_##S, T, COMMA T level, [&](const T* a, T* b, int n) { return threshGTAbs<T>(a, b, n, level); })
THB(16s, Vrx16s)
THB(32s, Vrx32s)
THB(32f, Vrx32f)
THB(64f, Vrx64f)
#undef THB

VRX_TH_IO(LTAbs_16s, Vrx16s, COMMA Vrx16s level, [&](const Vrx16s* a, Vrx16s* b, int n) { return threshLTAbs16s(a, b, n, level); })
VRX_TH_IO(LTAbs_32s, Vrx32s, COMMA Vrx32s level, [&](const Vrx32s* a, Vrx32s* b, int n) { return threshLTAbs32s(a, b, n, level); })
VRX_TH_IO(LTAbs_32f, Vrx32f, COMMA Vrx32f level, [&](const Vrx32f* a, Vrx32f* b, int n) { return (threshLTAbsFloat<Vrx32f COMMA uint32_t>)(a, b, n, level); })
VRX_TH_IO(LTAbs_64f, Vrx64f, COMMA Vrx64f level, [&](const Vrx64f* a, Vrx64f* b, int n) { return (threshLTAbsFloat<Vrx64f COMMA uint64_t>)(a, b, n, level); })
VRX_TH_IO(LTInv_32f, Vrx32f, COMMA Vrx32f level, [&](const Vrx32f* a, Vrx32f* b, int n) { return threshLTInv<Inv32f>(a, b, n, level); })
VRX_TH_IO(LTInv_64f, Vrx64f, COMMA Vrx64f level, [&](const Vrx64f* a, Vrx64f* b, int n) { return threshLTInv<Inv64f>(a, b, n, level); })

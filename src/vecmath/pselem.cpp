// Elementary functions: Exp, Ln, Arctan, SumLn. The float and double forms
// run the tier kernels; the integer forms run the double kernels on blocks
// widened to double and round by the scale multiplier 2^-sf.
#include "vm_common.h"
#include "vm_int.h"
#include "vm_kernels.h"
#include "vrx_consts.h"
#include "vrx_tiers.h"

using namespace n0::vm;

namespace {

constexpr int kBlock = 256;

// Ln warnings: a negative element outranks a zero one.
struct LnScan {
    bool neg = false, zero = false;
    VrxStatus status() const { return neg ? vrxWarnLnNegArg : zero ? vrxWarnLnZeroArg : vrxOk; }
};

template <class T>
VRX_INLINE void scan(const T* s, int len, LnScan& sc) {
    using V = simd::V<T>;
    typename V::M neg = 0, zero = 0;
    for (int i = 0; i < len; i += V::N) {
        typename V::M m = len - i >= V::N ? V::kAll : simd::tail<T>(len - i);
        typename V::R v = V::loadm(m, s + i);
        neg |= m & V::lt(v, V::zero());
        zero |= m & V::eq(v, V::zero());
    }
    sc.neg |= neg != 0;
    sc.zero |= zero != 0;
}

template <class T>
VRX_INLINE void widen(const T* s, double* b, int n) {
    for (int j = 0; j < n; ++j) b[j] = static_cast<double>(s[j]);
}

// exp of integers, scaled
template <class T>
VrxStatus expInt(const T* s, T* d, int len, int sf) {
    return trapped(len, {s, d}, [&] {
        alignas(64) double b[kBlock];
        inBlocks<kBlock>(len, [&](int i, int n) {
            widen(s + i, b, n);
            N0(own_vrxs_dExp_B3_ttab)[kSlotHA](b, b, n);
            for (int j = 0; j < n; ++j) d[i + j] = roundSat<T>(scaleBy(b[j], sf));
        });
    });
}

// ln of integers, scaled; ln 0 saturates low, a negative element gives 0
template <class T>
VrxStatus lnInt(const T* s, T* d, int len, int sf) {
    return trapped(len, {s, d}, [&] {
        LnScan sc;
        alignas(64) double b[kBlock];
        inBlocks<kBlock>(len, [&](int i, int n) {
            widen(s + i, b, n);
            scan(b, n, sc);
            N0(vrxsLn_64f_A53)(b, b, n);
            for (int j = 0; j < n; ++j) d[i + j] = b[j] != b[j] ? T(0) : roundSat<T>(scaleBy(b[j], sf));
        });
        return sc.status();
    });
}

// the float and double forms: the exponential and arctangent run their
// tiers (HA for double), the logarithm scans for its warnings first
VRX_INLINE VrxStatus expTier(const float* s, float* d, int len) { return N0(vrxsExp_32f_A21)(s, d, len); }
VRX_INLINE VrxStatus expTier(const double* s, double* d, int len) { return N0(own_vrxs_dExp_B3_ttab)[kSlotHA](s, d, len); }
VRX_INLINE VrxStatus lnTier(const float* s, float* d, int len) { return N0(vrxsLn_32f_A21)(s, d, len); }
VRX_INLINE VrxStatus lnTier(const double* s, double* d, int len) { return N0(vrxsLn_64f_A53)(s, d, len); }
VRX_INLINE VrxStatus atanTier(const float* s, float* d, int len) { return N0(own_vrxs_sAtan_B3_ttab)[kSlotHA](s, d, len); }
VRX_INLINE VrxStatus atanTier(const double* s, double* d, int len) { return N0(own_vrxs_dAtan_B3_ttab)[kSlotHA](s, d, len); }

template <class T>
VrxStatus expF(const T* s, T* d, int len) {
    return trapped(len, {s, d}, [&] { return expTier(s, d, len); });
}
template <class T>
VrxStatus lnF(const T* s, T* d, int len) {
    return trapped(len, {s, d}, [&] {
        LnScan sc;
        scan(s, len, sc);
        lnTier(s, d, len);
        return sc.status();
    });
}
template <class T>
VrxStatus arctanF(const T* s, T* d, int len) {
    return trapped(len, {s, d}, [&] { return atanTier(s, d, len); });
}

// sum of logarithms over blocks widened to double
template <class T>
VRX_INLINE VrxStatus sumLn(const T* s, int len, double* sum, LnScan& sc) {
    alignas(64) double b[kBlock];
    D8 acc = D::zero();
    inBlocks<kBlock>(len, [&](int i, int n) {
        widen(s + i, b, n);
        scan(b, n, sc);
        N0(vrxsLn_64f_A53)(b, b, n);
        for (int j = 0; j < n; j += 8) {
            __mmask8 m = n - j >= 8 ? 0xFF : simd::tail<double>(n - j);
            acc = D::add(acc, D::loadm(m, b + j));
        }
    });
    *sum = D::reduceAdd(acc);
    return sc.status();
}

}  // namespace

// ------------------------------------------------------------------ Exp
VrxStatus N0(vrxsExp_32f)(const Vrx32f* s, Vrx32f* d, int len) { return expF(s, d, len); }
VrxStatus N0(vrxsExp_64f)(const Vrx64f* s, Vrx64f* d, int len) { return expF(s, d, len); }
VrxStatus N0(vrxsExp_32f_I)(Vrx32f* p, int len) { return N0(vrxsExp_32f)(p, p, len); }
VrxStatus N0(vrxsExp_64f_I)(Vrx64f* p, int len) { return N0(vrxsExp_64f)(p, p, len); }
VrxStatus N0(vrxsExp_16s_Sfs)(const Vrx16s* s, Vrx16s* d, int len, int sf) { return expInt(s, d, len, sf); }
VrxStatus N0(vrxsExp_32s_Sfs)(const Vrx32s* s, Vrx32s* d, int len, int sf) { return expInt(s, d, len, sf); }
VrxStatus N0(vrxsExp_16s_ISfs)(Vrx16s* p, int len, int sf) { return N0(vrxsExp_16s_Sfs)(p, p, len, sf); }
VrxStatus N0(vrxsExp_32s_ISfs)(Vrx32s* p, int len, int sf) { return N0(vrxsExp_32s_Sfs)(p, p, len, sf); }

// ------------------------------------------------------------------- Ln
VrxStatus N0(vrxsLn_32f)(const Vrx32f* s, Vrx32f* d, int len) { return lnF(s, d, len); }
VrxStatus N0(vrxsLn_64f)(const Vrx64f* s, Vrx64f* d, int len) { return lnF(s, d, len); }
VrxStatus N0(vrxsLn_32f_I)(Vrx32f* p, int len) { return N0(vrxsLn_32f)(p, p, len); }
VrxStatus N0(vrxsLn_64f_I)(Vrx64f* p, int len) { return N0(vrxsLn_64f)(p, p, len); }
VrxStatus N0(vrxsLn_16s_Sfs)(const Vrx16s* s, Vrx16s* d, int len, int sf) { return lnInt(s, d, len, sf); }
VrxStatus N0(vrxsLn_32s_Sfs)(const Vrx32s* s, Vrx32s* d, int len, int sf) { return lnInt(s, d, len, sf); }
VrxStatus N0(vrxsLn_16s_ISfs)(Vrx16s* p, int len, int sf) { return N0(vrxsLn_16s_Sfs)(p, p, len, sf); }
VrxStatus N0(vrxsLn_32s_ISfs)(Vrx32s* p, int len, int sf) { return N0(vrxsLn_32s_Sfs)(p, p, len, sf); }

// --------------------------------------------------------------- Arctan
VrxStatus N0(vrxsArctan_32f)(const Vrx32f* s, Vrx32f* d, int len) { return arctanF(s, d, len); }
VrxStatus N0(vrxsArctan_64f)(const Vrx64f* s, Vrx64f* d, int len) { return arctanF(s, d, len); }
VrxStatus N0(vrxsArctan_32f_I)(Vrx32f* p, int len) { return N0(vrxsArctan_32f)(p, p, len); }
VrxStatus N0(vrxsArctan_64f_I)(Vrx64f* p, int len) { return N0(vrxsArctan_64f)(p, p, len); }

// ---------------------------------------------------------------- SumLn
// A negative element makes the sum NaN, else a zero one makes it -inf,
// both from the shared constants.
template <class S, class R> VrxStatus sumLnTo(const S* s, int len, R* pSum) {
    return trapped(len, {s, pSum}, [&] {
        LnScan sc;
        double sum;
        VrxStatus st = sumLn(s, len, &sum, sc);
        if constexpr (sizeof(R) == 8)
            *pSum = sc.neg ? n0::constant64f(n0_vrxConstantOfNAN_64f) : sc.zero ? n0::constant64f(n0_vrxConstantOfINF_NEG_64f) : sum;
        else
            *pSum = sc.neg ? n0::constant32f(n0_vrxConstantOfNAN_32f) : sc.zero ? n0::constant32f(n0_vrxConstantOfINF_NEG_32f) : toFloat(sum);
        return st;
    });
}
VrxStatus N0(vrxsSumLn_64f)(const Vrx64f* s, int len, Vrx64f* pSum) { return sumLnTo(s, len, pSum); }
VrxStatus N0(vrxsSumLn_32f64f)(const Vrx32f* s, int len, Vrx64f* pSum) { return sumLnTo(s, len, pSum); }
VrxStatus N0(vrxsSumLn_32f)(const Vrx32f* s, int len, Vrx32f* pSum) { return sumLnTo(s, len, pSum); }
VrxStatus N0(vrxsSumLn_16s32f)(const Vrx16s* s, int len, Vrx32f* pSum) { return sumLnTo(s, len, pSum); }

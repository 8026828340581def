// Threshold family on complex vectors. The magnitude is compared with the
// level; limiting scales an element to the level's magnitude so that its
// phase is kept. The float clip works in rounds of four elements: when any
// element of a round is selected, every element of the round is multiplied
// by level/|x| formed from the approximate reciprocal square root with one
// correction step (unselected elements use |x| = level, a factor within a
// rounding error of 1).
#include "simd/simd.h"
#include "vrx_fpu.h"
#include "vrx_round.h"

#include <math.h>

using namespace n0;

namespace {

// ------------------------------------------------------------ float clip
// A register holds whole rounds: 16 float lanes two rounds of 4 elements,
// 8 double lanes one. m is formed in both lanes of an element (re*re +
// im*im in either order gives the same sum). The double estimate takes one
// extra refinement so that the factor carries double precision.
template <class T>
VRX_INLINE typename simd::V<T>::M roundsOf(typename simd::V<T>::M sel) {
    if constexpr (simd::V<T>::N == 16) return ((sel & 0x00FF) ? 0x00FF : 0) | ((sel & 0xFF00) ? 0xFF00 : 0);
    else return sel ? simd::V<T>::kAll : 0;
}

template <bool Greater, class T>
void clipFc(const T* ps, T* pd, int len, T level) {
    using V = simd::V<T>;
    using M = typename V::M;
    constexpr int N = V::N;
    const auto L2 = V::set1(level * level), H = V::set1(level * T(0.5));
    const auto three = V::set1(T(3)), lv = V::set1(level);
    const int n = 2 * len;
    for (int i = 0; i < n; i += N) {
        const M k = simd::tail<T>(n - i < N ? n - i : N);
        auto v = V::loadm(k, ps + i);
        auto sq = V::mul(v, v);
        auto m = V::add(sq, V::swapPair(sq));
        const M sel = (Greater ? V::lt(L2, m) : V::lt(m, L2)) & k;
        const M rounds = roundsOf<T>(sel);
        if (rounds) {
            auto mm = V::blend(sel, L2, m);
            auto y = V::rsqrt14(mm);
            if constexpr (N == 8) y = V::mul(V::mul(V::set1(T(0.5)), y), V::sub(three, V::mul(V::mul(mm, y), y)));
            auto f = V::mul(V::mul(H, y), V::sub(three, V::mul(V::mul(mm, y), y)));
            auto r = V::mul(v, f);
            if (!Greater) {
                // a zero element has no phase: it becomes (level, 0)
                const M z = V::eq(m, V::zero()) & sel;
                r = V::blend(z & static_cast<M>(0x5555), r, lv);
                r = V::blend(z & static_cast<M>(0xAAAA), r, V::zero());
            }
            v = V::blend(rounds, v, r);
        }
        V::storem(pd + i, k, v);
    }
}

// ---------------------------------------------------------- integer clip
// Compared exactly on 64-bit squares; a selected element is scaled in
// double precision and rounded to nearest, ties to even.
template <bool Greater>
void clip16sc(const Vrx16sc* s, Vrx16sc* d, int len, Vrx16s level) {
    const int64_t L2 = int64_t(level) * level;
    for (int i = 0; i < len; ++i) {
        const int64_t re = s[i].re, im = s[i].im, m = re * re + im * im;
        if (Greater ? m > L2 : m < L2) {
            if (m == 0) { d[i].re = level; d[i].im = 0; continue; }
            const double f = level / sqrt(static_cast<double>(m));
            double a = roundEven(re * f), b = roundEven(im * f);
            d[i].re = static_cast<Vrx16s>(a > 32767.0 ? 32767.0 : (a < -32768.0 ? -32768.0 : a));
            d[i].im = static_cast<Vrx16s>(b > 32767.0 ? 32767.0 : (b < -32768.0 ? -32768.0 : b));
        } else {
            d[i] = s[i];
        }
    }
}

VRX_INLINE VrxStatus copyC(const Vrx16sc* s, Vrx16sc* d, int len) { return s == d ? vrxOk : N0(vrxsCopy_16sc)(s, d, len); }
VRX_INLINE VrxStatus copyC(const Vrx32fc* s, Vrx32fc* d, int len) { return s == d ? vrxOk : N0(vrxsCopy_32fc)(s, d, len); }
VRX_INLINE VrxStatus copyC(const Vrx64fc* s, Vrx64fc* d, int len) { return s == d ? vrxOk : N0(vrxsCopy_64fc)(s, d, len); }
VRX_INLINE VrxStatus zeroC(Vrx16sc* d, int len) { return N0(vrxsZero_16sc)(d, len); }
VRX_INLINE VrxStatus zeroC(Vrx32fc* d, int len) { return N0(vrxsZero_32fc)(d, len); }
VRX_INLINE VrxStatus zeroC(Vrx64fc* d, int len) { return N0(vrxsZero_64fc)(d, len); }

VRX_INLINE void clip(const Vrx16sc* s, Vrx16sc* d, int len, Vrx16s level, bool gt) {
    if (gt) clip16sc<true>(s, d, len, level); else clip16sc<false>(s, d, len, level);
}
VRX_INLINE void clip(const Vrx32fc* s, Vrx32fc* d, int len, Vrx32f level, bool gt) {
    if (gt) clipFc<true>(&s->re, &d->re, len, level); else clipFc<false>(&s->re, &d->re, len, level);
}
VRX_INLINE void clip(const Vrx64fc* s, Vrx64fc* d, int len, Vrx64f level, bool gt) {
    if (gt) clipFc<true>(&s->re, &d->re, len, level); else clipFc<false>(&s->re, &d->re, len, level);
}

template <class C, class R>
VrxStatus threshC(const C* s, C* d, int len, R level, VrxCmpOp relOp) {
    if (VrxStatus st = n0::checkArgs(len, s, d)) return st;
    if (relOp != vrxCmpLess && relOp != vrxCmpGreater) return vrxErrBadArg;
    if (level < 0) return vrxErrThreshNeg;
    if (level == 0) return relOp == vrxCmpLess ? copyC(s, d, len) : zeroC(d, len);
    clip(s, d, len, level, relOp == vrxCmpGreater);
    return vrxOk;
}

// ------------------------------------------------------- replacement forms
// Squared magnitude against squared level in the element's precision.
template <class C> struct Sq;
template <> struct Sq<Vrx16sc> { using W = int64_t; };
template <> struct Sq<Vrx32fc> { using W = float; };
template <> struct Sq<Vrx64fc> { using W = double; };

template <bool Greater, class C, class R>
VrxStatus threshValC(const C* s, C* d, int len, R level, C value) {
    if (VrxStatus st = n0::checkArgs(len, s, d)) return st;
    if (level < 0) return vrxErrThreshNeg;
    using W = typename Sq<C>::W;
    const W L2 = static_cast<W>(level) * static_cast<W>(level);
    for (int i = 0; i < len; ++i) {
        const W re = s[i].re, im = s[i].im;
        const W m = re * re + im * im;
        d[i] = (Greater ? m > L2 : m < L2) ? value : s[i];
    }
    return vrxOk;
}

// ------------------------------------------------------------- inversion
// The inverse of z after its magnitude is raised to the level; at level 0
// a zero element divides by zero and gives an infinity of its sign.
template <class C, class R>
VrxStatus threshInvC(const C* s, C* d, int len, R level) {
    if (VrxStatus st = n0::checkArgs(len, s, d)) return st;
    if (level < 0) return vrxErrThreshNeg;
    const unsigned saved = getMxcsr();
    setMxcsr((saved | kMxcsrMasks) & ~kMxcsrZeroDiv);
    const R L2 = level * level;
    for (int i = 0; i < len; ++i) {
        R re = s[i].re, im = s[i].im;
        R m = re * re + im * im;
        if (m < L2) {
            if (m == 0) { re = level; im = 0; }
            else {
                const R f = level / static_cast<R>(sqrt(static_cast<double>(m)));
                re *= f; im *= f;
            }
            m = L2;
        }
        if (m == 0) {
            d[i].re = R(1) / re;  // raises the zero-divide flag
            d[i].im = -im;
        } else {
            d[i].re = re / m;
            d[i].im = -im / m;
        }
    }
    const bool zeroDiv = (getMxcsr() & kMxcsrZeroDiv) != 0;
    setMxcsr(saved);
    return (level == 0 && zeroDiv) ? vrxWarnInvZero : vrxOk;
}

}  // namespace

VrxStatus N0(vrxsThreshold_16sc)(const Vrx16sc* s, Vrx16sc* d, int len, Vrx16s level, VrxCmpOp relOp) { return threshC(s, d, len, level, relOp); }
VrxStatus N0(vrxsThreshold_16sc_I)(Vrx16sc* d, int len, Vrx16s level, VrxCmpOp relOp) { return threshC<Vrx16sc, Vrx16s>(d, d, len, level, relOp); }
VrxStatus N0(vrxsThreshold_LT_16sc)(const Vrx16sc* s, Vrx16sc* d, int len, Vrx16s level) { return N0(vrxsThreshold_16sc)(s, d, len, level, vrxCmpLess); }
VrxStatus N0(vrxsThreshold_GT_16sc)(const Vrx16sc* s, Vrx16sc* d, int len, Vrx16s level) { return N0(vrxsThreshold_16sc)(s, d, len, level, vrxCmpGreater); }
VrxStatus N0(vrxsThreshold_LT_16sc_I)(Vrx16sc* d, int len, Vrx16s level) { return N0(vrxsThreshold_16sc_I)(d, len, level, vrxCmpLess); }
VrxStatus N0(vrxsThreshold_GT_16sc_I)(Vrx16sc* d, int len, Vrx16s level) { return N0(vrxsThreshold_16sc_I)(d, len, level, vrxCmpGreater); }
VrxStatus N0(vrxsThreshold_LTVal_16sc)(const Vrx16sc* s, Vrx16sc* d, int len, Vrx16s level, Vrx16sc value) { return threshValC<false>(s, d, len, level, value); }
VrxStatus N0(vrxsThreshold_GTVal_16sc)(const Vrx16sc* s, Vrx16sc* d, int len, Vrx16s level, Vrx16sc value) { return threshValC<true>(s, d, len, level, value); }
VrxStatus N0(vrxsThreshold_LTVal_16sc_I)(Vrx16sc* d, int len, Vrx16s level, Vrx16sc value) { return threshValC<false, Vrx16sc, Vrx16s>(d, d, len, level, value); }
VrxStatus N0(vrxsThreshold_GTVal_16sc_I)(Vrx16sc* d, int len, Vrx16s level, Vrx16sc value) { return threshValC<true, Vrx16sc, Vrx16s>(d, d, len, level, value); }

VrxStatus N0(vrxsThreshold_32fc)(const Vrx32fc* s, Vrx32fc* d, int len, Vrx32f level, VrxCmpOp relOp) { return threshC(s, d, len, level, relOp); }
VrxStatus N0(vrxsThreshold_32fc_I)(Vrx32fc* d, int len, Vrx32f level, VrxCmpOp relOp) { return threshC<Vrx32fc, Vrx32f>(d, d, len, level, relOp); }
VrxStatus N0(vrxsThreshold_LT_32fc)(const Vrx32fc* s, Vrx32fc* d, int len, Vrx32f level) { return N0(vrxsThreshold_32fc)(s, d, len, level, vrxCmpLess); }
VrxStatus N0(vrxsThreshold_GT_32fc)(const Vrx32fc* s, Vrx32fc* d, int len, Vrx32f level) { return N0(vrxsThreshold_32fc)(s, d, len, level, vrxCmpGreater); }
VrxStatus N0(vrxsThreshold_LT_32fc_I)(Vrx32fc* d, int len, Vrx32f level) { return N0(vrxsThreshold_32fc_I)(d, len, level, vrxCmpLess); }
VrxStatus N0(vrxsThreshold_GT_32fc_I)(Vrx32fc* d, int len, Vrx32f level) { return N0(vrxsThreshold_32fc_I)(d, len, level, vrxCmpGreater); }
VrxStatus N0(vrxsThreshold_LTVal_32fc)(const Vrx32fc* s, Vrx32fc* d, int len, Vrx32f level, Vrx32fc value) { return threshValC<false>(s, d, len, level, value); }
VrxStatus N0(vrxsThreshold_GTVal_32fc)(const Vrx32fc* s, Vrx32fc* d, int len, Vrx32f level, Vrx32fc value) { return threshValC<true>(s, d, len, level, value); }
VrxStatus N0(vrxsThreshold_LTVal_32fc_I)(Vrx32fc* d, int len, Vrx32f level, Vrx32fc value) { return threshValC<false, Vrx32fc, Vrx32f>(d, d, len, level, value); }
VrxStatus N0(vrxsThreshold_GTVal_32fc_I)(Vrx32fc* d, int len, Vrx32f level, Vrx32fc value) { return threshValC<true, Vrx32fc, Vrx32f>(d, d, len, level, value); }

VrxStatus N0(vrxsThreshold_64fc)(const Vrx64fc* s, Vrx64fc* d, int len, Vrx64f level, VrxCmpOp relOp) { return threshC(s, d, len, level, relOp); }
VrxStatus N0(vrxsThreshold_64fc_I)(Vrx64fc* d, int len, Vrx64f level, VrxCmpOp relOp) { return threshC<Vrx64fc, Vrx64f>(d, d, len, level, relOp); }
VrxStatus N0(vrxsThreshold_LT_64fc)(const Vrx64fc* s, Vrx64fc* d, int len, Vrx64f level) { return N0(vrxsThreshold_64fc)(s, d, len, level, vrxCmpLess); }
VrxStatus N0(vrxsThreshold_GT_64fc)(const Vrx64fc* s, Vrx64fc* d, int len, Vrx64f level) { return N0(vrxsThreshold_64fc)(s, d, len, level, vrxCmpGreater); }
VrxStatus N0(vrxsThreshold_LT_64fc_I)(Vrx64fc* d, int len, Vrx64f level) { return N0(vrxsThreshold_64fc_I)(d, len, level, vrxCmpLess); }
VrxStatus N0(vrxsThreshold_GT_64fc_I)(Vrx64fc* d, int len, Vrx64f level) { return N0(vrxsThreshold_64fc_I)(d, len, level, vrxCmpGreater); }
VrxStatus N0(vrxsThreshold_LTVal_64fc)(const Vrx64fc* s, Vrx64fc* d, int len, Vrx64f level, Vrx64fc value) { return threshValC<false>(s, d, len, level, value); }
VrxStatus N0(vrxsThreshold_GTVal_64fc)(const Vrx64fc* s, Vrx64fc* d, int len, Vrx64f level, Vrx64fc value) { return threshValC<true>(s, d, len, level, value); }
VrxStatus N0(vrxsThreshold_LTVal_64fc_I)(Vrx64fc* d, int len, Vrx64f level, Vrx64fc value) { return threshValC<false, Vrx64fc, Vrx64f>(d, d, len, level, value); }
VrxStatus N0(vrxsThreshold_GTVal_64fc_I)(Vrx64fc* d, int len, Vrx64f level, Vrx64fc value) { return threshValC<true, Vrx64fc, Vrx64f>(d, d, len, level, value); }

VrxStatus N0(vrxsThreshold_LTInv_32fc)(const Vrx32fc* s, Vrx32fc* d, int len, Vrx32f level) { return threshInvC(s, d, len, level); }
VrxStatus N0(vrxsThreshold_LTInv_64fc)(const Vrx64fc* s, Vrx64fc* d, int len, Vrx64f level) { return threshInvC(s, d, len, level); }
VrxStatus N0(vrxsThreshold_LTInv_32fc_I)(Vrx32fc* d, int len, Vrx32f level) { return threshInvC<Vrx32fc, Vrx32f>(d, d, len, level); }
VrxStatus N0(vrxsThreshold_LTInv_64fc_I)(Vrx64fc* d, int len, Vrx64f level) { return threshInvC<Vrx64fc, Vrx64f>(d, d, len, level); }

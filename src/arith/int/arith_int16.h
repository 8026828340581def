// 16s kernels of the scaled arithmetic in 512-bit registers: sixteen 16s
// elements widened to 32-bit lanes, the exact result formed there, rounded
// by the rule (shift, add the bias and the parity bit, shift) and packed
// with signed saturation. The tail uses the scalar rule, which gives the
// same bits.
#pragma once

#include "arith_int.h"
#include "simd/simd.h"

namespace n0::ar {

enum class Mode16 { NoScale, Pos, Neg };

template <Op op, bool Const, Mode16 M>
void kern16s(const Vrx16s* a, const Vrx16s* b, Vrx16s cval, Vrx16s* d, size_t n, int sf) {
    using I = simd::V<int32_t>;
    const auto cv = I::set1(cval);
    const auto cnt = I::set1(M == Mode16::Neg ? -sf : sf);
    const auto one = I::set1(1);
    const auto bias = I::set1(M == Mode16::Pos ? (1 << (sf - 1)) - 1 : 0);
    // for a left shift by k: the values that survive it, one beyond each side
    const int k = M == Mode16::Neg ? -sf : 0;
    const auto hiK = I::set1((32767 >> k) + 1), loK = I::set1(-(32768 >> k) - 1);
    auto body = [&](size_t i) {
        const auto x = simd::widen16s(a + i);
        const auto y = Const ? cv : simd::widen16s(b + i);
        I::R r;
        if constexpr (op == Op::Add) r = I::add(x, y);
        else if constexpr (op == Op::Sub) r = I::sub(y, x);
        else if constexpr (op == Op::SubRev) r = I::sub(x, y);
        else r = I::mullo(x, y);
        if constexpr (M == Mode16::Pos) {
            const auto q = I::shrv(r, cnt);
            r = I::shrv(I::add(I::add(r, bias), I::andb(q, one)), cnt);
        } else if constexpr (M == Mode16::Neg) {
            r = I::shlv(I::max(I::min(r, hiK), loK), cnt);
        }
        simd::narrowSat16s(d + i, I::kAll, r);
    };
    size_t i = 0;
    for (; i + 32 <= n; i += 32) { body(i); body(i + 16); }
    for (; i + 16 <= n; i += 16) body(i);
    for (; i < n; ++i) {
        const int32_t y = Const ? int32_t(cval) : int32_t(b[i]);
        d[i] = scaleSaturate<Vrx16s>(apply<op, int32_t>(int32_t(a[i]), y), sf);
    }
}

// A 16s call inside the limits: the kernel that sf selects; the bound
// kernel below them.
template <Op op, bool Const>
void run16s(const Vrx16s* a, const Vrx16s* b, Vrx16s cval, Vrx16s* d, size_t n, int sf, Limits lim) {
    if (sf <= lim.boundTo) {
        kernBound<Vrx16s, int32_t>(d, n, [=](size_t i) { return apply<op, int32_t>(int32_t(a[i]), Const ? int32_t(cval) : int32_t(b[i])); });
    } else if (sf == 0) {
        kern16s<op, Const, Mode16::NoScale>(a, b, cval, d, n, sf);
    } else if (sf > 0) {
        kern16s<op, Const, Mode16::Pos>(a, b, cval, d, n, sf);
    } else {
        kern16s<op, Const, Mode16::Neg>(a, b, cval, d, n, sf);
    }
}

template <Op op>
VRX_INLINE VrxStatus vec16s(const Vrx16s* s1, const Vrx16s* s2, Vrx16s* d, int len, int sf, Limits lim) {
    if (VrxStatus st = checkArgs(len, s1, s2, d)) return st;
    if (sf >= lim.zeroFrom) return zeroFill(d, len);
    run16s<op, false>(s1, s2, 0, d, static_cast<size_t>(len), sf, lim);
    return vrxOk;
}

// After the shortcuts of the constant form.
template <Op op>
VRX_INLINE VrxStatus const16s(const Vrx16s* s, Vrx16s val, Vrx16s* d, int len, int sf, Limits lim) {
    if (sf >= lim.zeroFrom) return zeroFill(d, len);
    run16s<op, true>(s, nullptr, val, d, static_cast<size_t>(len), sf, lim);
    return vrxOk;
}

}  // namespace n0::ar

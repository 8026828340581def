// DotProd: sum of a[i] * b[i], no operand conjugated. Complex products keep
// two running totals, P = sum re(a) b and Q = sum im(a) b, combined once at
// the end: re = P.re - Q.im, im = P.im + Q.re. 16-bit forms are exact in
// 64 bits; the 32-bit forms accumulate in double under round to nearest.
#include "vrx_reduce.h"

using namespace n0;
using namespace n0::red;

namespace {

// ------------------------------------------------------- floating point
// Real by real in the element precision: fused (32f, 64f). The single
// form runs eight accumulators (measured faster than four, in cache and
// from the second-level cache), the double form four.
template <class T>
T dotReal(const T* a, const T* b, size_t n) {
    using W = simd::V<T>;
    constexpr int U = sizeof(T) == 4 ? 8 : 4;
    typename W::R acc[U];
    unroll<U>([&](auto k) { acc[k] = W::zero(); });
    sweep<U, W::N>(n, [&](auto k, size_t i, size_t c) {
        if (c == size_t(W::N)) {
            acc[k] = W::fma(W::load(a + i), W::load(b + i), acc[k]);
        } else {
            const auto m = simd::tail<T>(c);
            acc[k] = W::fma(W::loadm(m, a + i), W::loadm(m, b + i), acc[k]);
        }
    });
    return W::reduceAdd(combine<U>(acc, W::add));
}

// Single by single into double: each value widened, product and sum
// rounded apart.
double dot32f64f(const float* a, const float* b, size_t n) {
    constexpr int U = 2;
    D::R acc[2 * U];
    unroll<2 * U>([&](auto k) { acc[k] = D::zero(); });
    sweep<U, 16>(n, [&](auto k, size_t i, size_t c) {
        const F::M m = simd::tail<float>(c);
        const F::R x = F::loadm(m, a + i), y = F::loadm(m, b + i);
        acc[2 * k] = D::add(acc[2 * k], D::mul(simd::lowToDouble(x), simd::lowToDouble(y)));
        acc[2 * k + 1] = D::add(acc[2 * k + 1], D::mul(simd::highToDouble(x), simd::highToDouble(y)));
    });
    return D::reduceAdd(combine<2 * U>(acc, D::add));
}

// Complex by complex in the register type W: P += dupRe(a) b and
// Q += dupIm(a) b, products and sums rounded apart. `ld(i, c)` loads the
// operands at value offset i (c values) as registers of W.
template <class W, int U, size_t step, class Ld>
void dotCplxPQ(size_t cnt, Ld ld, typename W::T* re, typename W::T* im) {
    typename W::R p[U], q[U];
    unroll<U>([&](auto k) { p[k] = W::zero(); q[k] = W::zero(); });
    sweep<U, step>(cnt, [&](auto k, size_t i, size_t c) {
        ld(i, c, [&](typename W::R x, typename W::R y) {
            p[k] = W::add(p[k], W::mul(W::dupRe(x), y));
            q[k] = W::add(q[k], W::mul(W::dupIm(x), y));
        });
    });
    typename W::T pr, pi, qr, qi;
    W::reduceAdd2(combine<U>(p, W::add), &pr, &pi);
    W::reduceAdd2(combine<U>(q, W::add), &qr, &qi);
    *re = pr - qi;
    *im = pi + qr;
}

// Real by complex: acc += (a, a) (re, im), products and sums rounded apart.
template <class W, int U, size_t step, class Ld>
void dotRealCplx(size_t cnt, Ld ld, typename W::T* re, typename W::T* im) {
    typename W::R acc[U];
    unroll<U>([&](auto k) { acc[k] = W::zero(); });
    sweep<U, step>(cnt, [&](auto k, size_t i, size_t c) {
        ld(i, c, [&](typename W::R x, typename W::R y) { acc[k] = W::add(acc[k], W::mul(x, y)); });
    });
    W::reduceAdd2(combine<U>(acc, W::add), re, im);
}

// Real by complex in single precision, n complex elements: groups of
// eight real values, each spread over the re and im lanes of its partners
// by one 256-bit load and one permute, group g into accumulator g mod 4;
// the last partial group into accumulator 0. Products and sums rounded
// apart.
void dot32f32fc(const float* a, const float* b, size_t n, float* re, float* im) {
    F::R acc[4];
    unroll<4>([&](auto k) { acc[k] = F::zero(); });
    size_t j = 0;
    for (; j + 32 <= n; j += 32) {
        unroll<4>([&](auto k) {
            const size_t i = j + 8 * k;
            acc[k] = F::add(acc[k], F::mul(simd::spreadPairs8(a + i), F::load(b + 2 * i)));
        });
    }
    for (; j < n; j += 8) {
        const size_t c = n - j < 8 ? n - j : 8;
        acc[0] = F::add(acc[0], F::mul(simd::spreadPairs(a + j, c), F::loadm(simd::tail<float>(2 * c), b + 2 * j)));
    }
    F::reduceAdd2(combine<4>(acc, F::add), re, im);
}

// Loaders: i and c count values of the interleaved complex operand.
// Each operand is read once: the registers reach both products as
// registers, not as two loads folded into them.
template <class T>
struct LoadCC {  // complex by complex, same type
    const T* a;
    const T* b;
    template <class Fn> VRX_INLINE void operator()(size_t i, size_t c, Fn f) const {
        using W = simd::V<T>;
        if (c == size_t(W::N)) return f(simd::keepInRegister(W::load(a + i)), simd::keepInRegister(W::load(b + i)));
        const auto m = simd::tail<T>(c);
        f(W::loadm(m, a + i), W::loadm(m, b + i));
    }
};
struct LoadCC32to64 {  // 32fc by 32fc, widened: 16 values give two registers
    const float* a;
    const float* b;
    template <class Fn> VRX_INLINE void operator()(size_t i, size_t c, Fn f) const {
        const F::M m = simd::tail<float>(c);
        const F::R x = F::loadm(m, a + i), y = F::loadm(m, b + i);
        f(simd::lowToDouble(x), simd::lowToDouble(y));
        f(simd::highToDouble(x), simd::highToDouble(y));
    }
};
template <class T>
struct LoadRC {  // real a (one value per complex element of b)
    const T* a;
    const T* b;
    template <class Fn> VRX_INLINE void operator()(size_t i, size_t c, Fn f) const {
        using W = simd::V<T>;
        f(simd::spreadPairs(a + i / 2, c / 2), W::loadm(simd::tail<T>(c), b + i));
    }
};
struct LoadRC32to64 {
    const float* a;
    const float* b;
    template <class Fn> VRX_INLINE void operator()(size_t i, size_t c, Fn f) const {
        const F::R x = simd::spreadPairs(a + i / 2, c / 2), y = F::loadm(simd::tail<float>(c), b + i);
        f(simd::lowToDouble(x), simd::lowToDouble(y));
        f(simd::highToDouble(x), simd::highToDouble(y));
    }
};

// ------------------------------------------------------------ integers
// The first c < 16 values at a and b through zeroed copies, handed to f.
template <class Fn>
VRX_INLINE void viaZeroedCopies(const int16_t* a, const int16_t* b, size_t c, Fn f) {
    alignas(32) int16_t u[16] = {}, v[16] = {};
    __builtin_memcpy(u, a, c * sizeof(int16_t));
    __builtin_memcpy(v, b, c * sizeof(int16_t));
    f(u, v);
}

// The exact 16-bit dot product: pair sums minus 1 in 64-bit lanes, the
// count of pairs added back at the end.
int64_t dot16s(const int16_t* a, const int16_t* b, size_t n) {
    constexpr int U = 4;
    I64::R acc[U];
    unroll<U>([&](auto k) { acc[k] = I64::zero(); });
    size_t pairs = 0;
    sweep<U, 16>(n, [&](auto k, size_t i, size_t c) {
        if (c == 16) {
            acc[k] = I64::add(acc[k], simd::pairDotLess1_16s(a + i, b + i));
        } else {
            alignas(32) int16_t x[16] = {}, y[16] = {};
            __builtin_memcpy(x, a + i, c * sizeof(int16_t));
            __builtin_memcpy(y, b + i, c * sizeof(int16_t));
            acc[k] = I64::add(acc[k], simd::pairDotLess1_16s(x, y));
        }
        pairs += 8;
    });
    return lanes64Sum(combine<U>(acc, I64::add)) + static_cast<int64_t>(pairs);
}

// Exact complex 16-bit products: pair sums of 16-bit products in 32 bits
// (each lowered by 1, so that two products of -32768 stay in range),
// x = sum(re re' + ~im im') and z = sum(re im' + im re') split into high
// halves and wrapping totals, and t = sum(im') in 32-bit lanes, all added
// in place in named registers (one set: two would not fit the sixteen
// AVX2 registers) and folded into 64-bit lanes every 65536 values; re = x + t, as -im = ~im + 1, and im = z, each with
// the count of pairs added back. A last partial group goes through zeroed
// copies, whose pairs add -1 like every other.
void dot16sc(const int16_t* a, const int16_t* b, size_t cnt, int64_t* re, int64_t* im) {
    I64::R x64 = I64::zero(), z64 = I64::zero();
    size_t i = 0;
    while (i < cnt) {
        const size_t end = cnt - i > 65536 ? i + 65536 : cnt;
        __m256i hx = simd::zero256i(), wx = hx, hz = hx, wz = hx, t = hx;
        auto add = [&](const int16_t* u, const int16_t* v) {
            __m256i x, z, q;
            simd::cplxDotNotLess1x32_16s(u, v, x, z, q);
            simd::splitAddInPlace32s(x, hx, wx);
            simd::splitAddInPlace32s(z, hz, wz);
            simd::addInPlace32(t, q);
        };
        for (; i + 16 <= end; i += 16) add(a + i, b + i);
        if (i < end) {
            viaZeroedCopies(a + i, b + i, end - i, add);
            i = end;
        }
        x64 = I64::add(x64, I64::add(simd::foldSplit32s(hx, wx), simd::widen8x32sTo64(t)));
        z64 = I64::add(z64, simd::foldSplit32s(hz, wz));
    }
    const int64_t n = static_cast<int64_t>((cnt + 15) / 16 * 8);
    *re = lanes64Sum(x64) + n;
    *im = lanes64Sum(z64) + n;
}

// Real 16-bit a by complex 16-bit b, exact; a last partial group through
// zeroed copies.
void dot16s16sc(const int16_t* a, const int16_t* b, size_t cnt, int64_t* re, int64_t* im) {
    constexpr int U = 2;
    I64::R r[U], q[U];
    unroll<U>([&](auto k) { r[k] = I64::zero(); q[k] = I64::zero(); });
    sweep<U, 16>(cnt, [&](auto k, size_t i, size_t c) {
        if (c == 16) {
            simd::realCplxDot16s(a + i / 2, b + i, r[k], q[k]);
        } else {
            alignas(32) int16_t u[8] = {}, v[16] = {};
            __builtin_memcpy(u, a + i / 2, c / 2 * sizeof(int16_t));
            __builtin_memcpy(v, b + i, c * sizeof(int16_t));
            simd::realCplxDot16s(u, v, r[k], q[k]);
        }
    });
    *re = lanes64Sum(combine<U>(r, I64::add));
    *im = lanes64Sum(combine<U>(q, I64::add));
}

// 16- or 32-bit a by 32-bit b in double: products and sums rounded apart.
// The caller holds round to nearest.
template <class TA>
double dot32sDouble(const TA* a, const int32_t* b, size_t n) {
    constexpr int U = 2;
    D::R acc[2 * U];
    unroll<2 * U>([&](auto k) { acc[k] = D::zero(); });
    sweep<U, 16>(n, [&](auto k, size_t i, size_t c) {
        I32::R x;
        if constexpr (sizeof(TA) == 2) x = simd::widen16sPart(a + i, c);
        else x = I32::loadm(simd::tail<int32_t>(c), a + i);
        const I32::R y = I32::loadm(simd::tail<int32_t>(c), b + i);
        acc[2 * k] = D::add(acc[2 * k], D::mul(simd::lowInt32ToDouble(x), simd::lowInt32ToDouble(y)));
        acc[2 * k + 1] = D::add(acc[2 * k + 1], D::mul(simd::highInt32ToDouble(x), simd::highInt32ToDouble(y)));
    });
    return D::reduceAdd(combine<2 * U>(acc, D::add));
}

template <class C, class T>
VRX_INLINE void put(C* p, T re, T im) {
    p->re = re;
    p->im = im;
}

}  // namespace

// ------------------------------------------------------- floating point
VrxStatus N0(vrxsDotProd_32f)(const Vrx32f* pSrc1, const Vrx32f* pSrc2, int len, Vrx32f* pDp) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDp)) return st;
    *pDp = dotReal<float>(pSrc1, pSrc2, len);
    return vrxOk;
}
VrxStatus N0(vrxsDotProd_64f)(const Vrx64f* pSrc1, const Vrx64f* pSrc2, int len, Vrx64f* pDp) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDp)) return st;
    *pDp = dotReal<double>(pSrc1, pSrc2, len);
    return vrxOk;
}
VrxStatus N0(vrxsDotProd_32f64f)(const Vrx32f* pSrc1, const Vrx32f* pSrc2, int len, Vrx64f* pDp) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDp)) return st;
    *pDp = dot32f64f(pSrc1, pSrc2, len);
    return vrxOk;
}
VrxStatus N0(vrxsDotProd_32fc)(const Vrx32fc* pSrc1, const Vrx32fc* pSrc2, int len, Vrx32fc* pDp) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDp)) return st;
    float re, im;
    dotCplxPQ<F, 4, 16>(2 * size_t(len), LoadCC<float>{&pSrc1->re, &pSrc2->re}, &re, &im);
    put(pDp, re, im);
    return vrxOk;
}
VrxStatus N0(vrxsDotProd_32fc64fc)(const Vrx32fc* pSrc1, const Vrx32fc* pSrc2, int len, Vrx64fc* pDp) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDp)) return st;
    double re, im;
    dotCplxPQ<D, 2, 16>(2 * size_t(len), LoadCC32to64{&pSrc1->re, &pSrc2->re}, &re, &im);
    put(pDp, re, im);
    return vrxOk;
}
VrxStatus N0(vrxsDotProd_64fc)(const Vrx64fc* pSrc1, const Vrx64fc* pSrc2, int len, Vrx64fc* pDp) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDp)) return st;
    double re, im;
    dotCplxPQ<D, 4, 8>(2 * size_t(len), LoadCC<double>{&pSrc1->re, &pSrc2->re}, &re, &im);
    put(pDp, re, im);
    return vrxOk;
}
VrxStatus N0(vrxsDotProd_32f32fc)(const Vrx32f* pSrc1, const Vrx32fc* pSrc2, int len, Vrx32fc* pDp) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDp)) return st;
    float re, im;
    dot32f32fc(pSrc1, &pSrc2->re, size_t(len), &re, &im);
    put(pDp, re, im);
    return vrxOk;
}
VrxStatus N0(vrxsDotProd_32f32fc64fc)(const Vrx32f* pSrc1, const Vrx32fc* pSrc2, int len, Vrx64fc* pDp) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDp)) return st;
    double re, im;
    dotRealCplx<D, 2, 16>(2 * size_t(len), LoadRC32to64{pSrc1, &pSrc2->re}, &re, &im);
    put(pDp, re, im);
    return vrxOk;
}
VrxStatus N0(vrxsDotProd_64f64fc)(const Vrx64f* pSrc1, const Vrx64fc* pSrc2, int len, Vrx64fc* pDp) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDp)) return st;
    double re, im;
    dotRealCplx<D, 4, 8>(2 * size_t(len), LoadRC<double>{pSrc1, &pSrc2->re}, &re, &im);
    put(pDp, re, im);
    return vrxOk;
}

// ------------------------------------------------------------- integers
VrxStatus N0(vrxsDotProd_16s64s)(const Vrx16s* pSrc1, const Vrx16s* pSrc2, int len, Vrx64s* pDp) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDp)) return st;
    *pDp = dot16s(pSrc1, pSrc2, len);
    return vrxOk;
}
VrxStatus N0(vrxsDotProd_16s32f)(const Vrx16s* pSrc1, const Vrx16s* pSrc2, int len, Vrx32f* pDp) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDp)) return st;
    *pDp = static_cast<float>(dot16s(pSrc1, pSrc2, len));
    return vrxOk;
}
VrxStatus N0(vrxsDotProd_16s32s_Sfs)(const Vrx16s* pSrc1, const Vrx16s* pSrc2, int len, Vrx32s* pDp, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDp)) return st;
    *pDp = ruleE(dot16s(pSrc1, pSrc2, len), scaleFactor);
    return vrxOk;
}
VrxStatus N0(vrxsDotProd_16sc64sc)(const Vrx16sc* pSrc1, const Vrx16sc* pSrc2, int len, Vrx64sc* pDp) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDp)) return st;
    int64_t re, im;
    dot16sc(&pSrc1->re, &pSrc2->re, 2 * size_t(len), &re, &im);
    put(pDp, re, im);
    return vrxOk;
}
VrxStatus N0(vrxsDotProd_16s16sc64sc)(const Vrx16s* pSrc1, const Vrx16sc* pSrc2, int len, Vrx64sc* pDp) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDp)) return st;
    int64_t re, im;
    dot16s16sc(pSrc1, &pSrc2->re, 2 * size_t(len), &re, &im);
    put(pDp, re, im);
    return vrxOk;
}
VrxStatus N0(vrxsDotProd_16s32s32s_Sfs)(const Vrx16s* pSrc1, const Vrx32s* pSrc2, int len, Vrx32s* pDp, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDp)) return st;
    RoundNearestGuard guard;
    const int32_t r = ruleF(dot32sDouble(pSrc1, pSrc2, len), scaleFactor);
    *pDp = r;
    return vrxOk;
}
VrxStatus N0(vrxsDotProd_32s_Sfs)(const Vrx32s* pSrc1, const Vrx32s* pSrc2, int len, Vrx32s* pDp, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDp)) return st;
    RoundNearestGuard guard;
    const int32_t r = ruleF(dot32sDouble(pSrc1, pSrc2, len), scaleFactor);
    *pDp = r;
    return vrxOk;
}

// Norm and NormDiff: Inf (largest magnitude), L1 (sum of magnitudes), L2
// (root of the sum of squares) and L2Sqr. One kernel per accumulator kind
// serves both families: the element is a source value, or the difference
// a - b formed in the accumulator's precision (exactly, for 16-bit data).
#include "vrx_reduce.h"

using namespace n0;
using namespace n0::red;

namespace {

enum Kind { kInf, kL1, kL2 };

// Registers of elements: one source, or the difference of two.
template <class T>
struct One {
    const T* a;
    using W = simd::V<T>;
    VRX_INLINE typename W::R at(size_t i, size_t n) const {
        return n == size_t(W::N) ? W::load(a + i) : W::loadm(simd::tail<T>(n), a + i);
    }
};
template <class T>
struct Diff {
    const T* a;
    const T* b;
    using W = simd::V<T>;
    VRX_INLINE typename W::R at(size_t i, size_t n) const {
        if (n == size_t(W::N)) return W::sub(W::load(a + i), W::load(b + i));
        const auto m = simd::tail<T>(n);
        return W::sub(W::loadm(m, a + i), W::loadm(m, b + i));
    }
};

template <class T, class W>
VRX_INLINE T lanesMax(typename W::R r) {
    alignas(64) T l[W::N];
    W::store(l, r);
    T m = l[0];
    for (int i = 1; i < W::N; ++i) m = l[i] > m ? l[i] : m;
    return m;
}

// Real data: max |x|, sum |x| or sum x*x (product and sum rounded apart),
// all in the element's precision.
template <Kind K, class T, class Src>
T normReal(Src s, size_t n) {
    using W = simd::V<T>;
    constexpr int U = 4;
    typename W::R acc[U];
    unroll<U>([&](auto k) { acc[k] = W::zero(); });
    sweep<U, W::N>(n, [&](auto k, size_t i, size_t c) {
        const typename W::R x = s.at(i, c);
        if constexpr (K == kInf) acc[k] = W::max(acc[k], W::abs(x));
        else if constexpr (K == kL1) acc[k] = W::add(acc[k], W::abs(x));
        else acc[k] = W::add(acc[k], W::mul(x, x));
    });
    if constexpr (K == kInf) return lanesMax<T, W>(combine<U>(acc, W::max));
    else return W::reduceAdd(combine<U>(acc, W::add));
}

// Interleaved complex data over 2n values. Inf: the largest re^2 + im^2
// (rounded apart); L1: the magnitudes, each the root of re^2 + im^2 in the
// element's precision, summed in the even lanes; L2: the squares of every
// value by fused multiply-add (single) or rounded apart (double). Returns
// the accumulator register.
template <Kind K, class T, class Src>
typename simd::V<T>::R normCplxAcc(Src s, size_t cnt) {
    using W = simd::V<T>;
    constexpr int U = 4;
    constexpr typename W::M even = W::N == 16 ? 0x5555 : 0x55;
    typename W::R acc[U];
    unroll<U>([&](auto k) { acc[k] = W::zero(); });
    sweep<U, W::N>(cnt, [&](auto k, size_t i, size_t c) {
        const typename W::R x = s.at(i, c);
        if constexpr (K == kL2) {
            if constexpr (sizeof(T) == 4) acc[k] = W::fma(x, x, acc[k]);
            else acc[k] = W::add(acc[k], W::mul(x, x));
        } else {
            const typename W::R sq = W::mul(x, x);
            const typename W::R p = W::add(sq, W::swapPair(sq));
            if constexpr (K == kInf) acc[k] = W::max(acc[k], p);
            else acc[k] = W::addm(acc[k], even, acc[k], W::sqrt(p));
        }
    });
    if constexpr (K == kInf) return combine<U>(acc, W::max);
    else return combine<U>(acc, W::add);
}

// Lanes of single precision reduced in double.
double reduceInDouble(F::R a) { return D::reduceAdd(D::add(simd::lowToDouble(a), simd::highToDouble(a))); }

template <Kind K, class Src>
double norm32fc(Src s, size_t cnt) {
    const F::R a = normCplxAcc<K, float>(s, cnt);
    if constexpr (K == kInf) return __builtin_sqrtf(lanesMax<float, F>(a));
    else if constexpr (K == kL1) return reduceInDouble(a);
    else return __builtin_sqrt(reduceInDouble(a));
}
template <Kind K, class Src>
double norm64fc(Src s, size_t cnt) {
    const D::R a = normCplxAcc<K, double>(s, cnt);
    if constexpr (K == kInf) return __builtin_sqrt(lanesMax<double, D>(a));
    else if constexpr (K == kL1) return D::reduceAdd(a);
    else return __builtin_sqrt(D::reduceAdd(a));
}

float sqrt32f(float x) {
    float r;
    N0(vrxsSqrt_32f)(&x, &r, 1);
    return r;
}
double sqrt64f(double x) {
    double r;
    N0(vrxsSqrt_64f)(&x, &r, 1);
    return r;
}

// --------------------------------------------------------------- 16-bit
// Elements as 32-bit lanes: x, or a - b (which reaches 65535 in magnitude).
struct One16 {
    const int16_t* a;
    VRX_INLINE I32::R at(size_t i, size_t n) const { return simd::widen16sPart(a + i, n); }
};
struct Diff16 {
    const int16_t* a;
    const int16_t* b;
    VRX_INLINE I32::R at(size_t i, size_t n) const {
        return I32::sub(simd::widen16sPart(a + i, n), simd::widen16sPart(b + i, n));
    }
};

// The largest magnitude, exact (-32768 has magnitude 32768), in unsigned
// 16-bit lanes, four chains; a last partial group of 16 is read again from
// the end of the vector (a maximum does not mind the overlap), a vector
// shorter than 16 goes through a zeroed copy.
uint32_t inf16(One16 s, size_t n) {
    if (n < 16) {
        alignas(32) int16_t x[16] = {};
        __builtin_memcpy(x, s.a, n * sizeof(int16_t));
        return simd::maxLane16u(simd::maxMagnitude16s(simd::zero256i(), x), simd::zero256i());
    }
    __m256i acc[4];
    unroll<4>([&](auto k) { acc[k] = simd::zero256i(); });
    sweep<4, 16>(n, [&](auto k, size_t i, size_t c) {
        acc[k] = simd::maxMagnitude16s(acc[k], c == 16 ? s.a + i : s.a + n - 16);
    });
    using NU = simd::VNarrow<uint16_t>;
    return simd::maxLane16u(NU::max(acc[0], acc[2]), NU::max(acc[1], acc[3]));
}
uint32_t inf16(Diff16 s, size_t n) {
    __m256i acc[2] = {simd::zero256i(), simd::zero256i()};
    sweep<2, 16>(n, [&](auto k, size_t i, size_t c) {
        if (c == 16) {
            acc[k] = simd::maxMagnitudeDiff16s(acc[k], s.a + i, s.b + i);
        } else {
            alignas(32) int16_t x[16] = {}, y[16] = {};
            __builtin_memcpy(x, s.a + i, c * sizeof(int16_t));
            __builtin_memcpy(y, s.b + i, c * sizeof(int16_t));
            acc[k] = simd::maxMagnitudeDiff16s(acc[k], x, y);
        }
    });
    return simd::maxLane16u(acc[0], acc[1]);
}

// The exact sum of magnitudes of a - b: AVX2 pair sums of the magnitudes
// less 32768 each (so that the 16-bit multiply-add reads them as signed);
// the 32768 of every value taken, zero-padded ones included, is added back.
uint64_t l1_16(Diff16 s, size_t n) {
    const int64_t t = pairBlocks16s(n, [&](size_t i, size_t c) {
        if (c == 16) return simd::addPairMagnitudesDiff16s(simd::zero256i(), s.a + i, s.b + i);
        alignas(32) int16_t x[16] = {}, y[16] = {};
        __builtin_memcpy(x, s.a + i, c * sizeof(int16_t));
        __builtin_memcpy(y, s.b + i, c * sizeof(int16_t));
        return simd::addPairMagnitudesDiff16s(simd::zero256i(), x, y);
    });
    return static_cast<uint64_t>(t + 32768 * static_cast<int64_t>((n + 15) & ~size_t(15)));
}

// One vector: pair sums of magnitudes by AVX2 multiply-adds.
uint64_t l1_16(One16 s, size_t n) {
    return static_cast<uint64_t>(pairTotal16s(s.a, n, [](const int16_t* q) { return simd::pairMagnitudes16s(simd::keepInRegister(simd::VNarrow<int16_t>::load(q))); }));
}

// The exact sum of squares: each square (below 2^32 even for differences)
// an unsigned 32-bit value, zero-extended into 64-bit lanes.
uint64_t l2sq16(One16 s, size_t n) { return sumSqPairs16s(s.a, n); }
template <class Src>
uint64_t l2sq16(Src s, size_t n) {
    constexpr int U = 2;
    U64::R acc[2 * U];
    unroll<2 * U>([&](auto k) { acc[k] = U64::zero(); });
    sweep<U, 16>(n, [&](auto k, size_t i, size_t c) {
        const I32::R x = s.at(i, c);
        const I32::R sq = I32::mullo(x, x);
        acc[2 * k] = U64::add(acc[2 * k], simd::lowTo64u(sq));
        acc[2 * k + 1] = U64::add(acc[2 * k + 1], simd::highTo64u(sq));
    });
    return static_cast<uint64_t>(lanes64Sum(combine<2 * U>(acc, U64::add)));
}

// Rule B picks its path by the length: the 32-bit sum up to 65536
// elements, the 64-bit total beyond.
int32_t l1To32(uint64_t t, int len, int sf) {
    return len <= 65536 ? ruleBShort(static_cast<uint32_t>(t), sf) : ruleBLong(t, sf);
}

double root16(uint64_t q) {
    double d = static_cast<double>(q);
    N0(vrxsSqrt_64f_I)(&d, 1);
    return d;
}

}  // namespace

// ------------------------------------------------------------------ Norm
VrxStatus N0(vrxsNorm_Inf_32f)(const Vrx32f* pSrc, int len, Vrx32f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc, pNorm)) return st;
    *pNorm = normReal<kInf, float>(One<float>{pSrc}, len);
    return vrxOk;
}
VrxStatus N0(vrxsNorm_Inf_64f)(const Vrx64f* pSrc, int len, Vrx64f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc, pNorm)) return st;
    *pNorm = normReal<kInf, double>(One<double>{pSrc}, len);
    return vrxOk;
}
VrxStatus N0(vrxsNorm_Inf_16s32f)(const Vrx16s* pSrc, int len, Vrx32f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc, pNorm)) return st;
    *pNorm = static_cast<float>(inf16(One16{pSrc}, len));
    return vrxOk;
}
VrxStatus N0(vrxsNorm_Inf_16s32s_Sfs)(const Vrx16s* pSrc, int len, Vrx32s* pNorm, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc, pNorm)) return st;
    *pNorm = ruleA(inf16(One16{pSrc}, len), scaleFactor);
    return vrxOk;
}
VrxStatus N0(vrxsNorm_Inf_32fc32f)(const Vrx32fc* pSrc, int len, Vrx32f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc, pNorm)) return st;
    *pNorm = static_cast<float>(norm32fc<kInf>(One<float>{&pSrc->re}, 2 * size_t(len)));
    return vrxOk;
}
VrxStatus N0(vrxsNorm_Inf_64fc64f)(const Vrx64fc* pSrc, int len, Vrx64f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc, pNorm)) return st;
    *pNorm = norm64fc<kInf>(One<double>{&pSrc->re}, 2 * size_t(len));
    return vrxOk;
}
VrxStatus N0(vrxsNorm_L1_32f)(const Vrx32f* pSrc, int len, Vrx32f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc, pNorm)) return st;
    *pNorm = normReal<kL1, float>(One<float>{pSrc}, len);
    return vrxOk;
}
VrxStatus N0(vrxsNorm_L1_64f)(const Vrx64f* pSrc, int len, Vrx64f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc, pNorm)) return st;
    *pNorm = normReal<kL1, double>(One<double>{pSrc}, len);
    return vrxOk;
}
VrxStatus N0(vrxsNorm_L1_16s32f)(const Vrx16s* pSrc, int len, Vrx32f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc, pNorm)) return st;
    *pNorm = static_cast<float>(l1_16(One16{pSrc}, len));
    return vrxOk;
}
VrxStatus N0(vrxsNorm_L1_16s32s_Sfs)(const Vrx16s* pSrc, int len, Vrx32s* pNorm, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc, pNorm)) return st;
    *pNorm = l1To32(l1_16(One16{pSrc}, len), len, scaleFactor);
    return vrxOk;
}
VrxStatus N0(vrxsNorm_L1_16s64s_Sfs)(const Vrx16s* pSrc, int len, Vrx64s* pNorm, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc, pNorm)) return st;
    *pNorm = ruleC(static_cast<int64_t>(l1_16(One16{pSrc}, len)), scaleFactor);
    return vrxOk;
}
VrxStatus N0(vrxsNorm_L1_32fc64f)(const Vrx32fc* pSrc, int len, Vrx64f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc, pNorm)) return st;
    *pNorm = norm32fc<kL1>(One<float>{&pSrc->re}, 2 * size_t(len));
    return vrxOk;
}
VrxStatus N0(vrxsNorm_L1_64fc64f)(const Vrx64fc* pSrc, int len, Vrx64f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc, pNorm)) return st;
    *pNorm = norm64fc<kL1>(One<double>{&pSrc->re}, 2 * size_t(len));
    return vrxOk;
}
VrxStatus N0(vrxsNorm_L2_32f)(const Vrx32f* pSrc, int len, Vrx32f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc, pNorm)) return st;
    *pNorm = sqrt32f(normReal<kL2, float>(One<float>{pSrc}, len));
    return vrxOk;
}
VrxStatus N0(vrxsNorm_L2_64f)(const Vrx64f* pSrc, int len, Vrx64f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc, pNorm)) return st;
    *pNorm = sqrt64f(normReal<kL2, double>(One<double>{pSrc}, len));
    return vrxOk;
}
VrxStatus N0(vrxsNorm_L2_16s32f)(const Vrx16s* pSrc, int len, Vrx32f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc, pNorm)) return st;
    *pNorm = static_cast<float>(root16(l2sq16(One16{pSrc}, len)));
    return vrxOk;
}
VrxStatus N0(vrxsNorm_L2_16s32s_Sfs)(const Vrx16s* pSrc, int len, Vrx32s* pNorm, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc, pNorm)) return st;
    *pNorm = ruleD(root16(l2sq16(One16{pSrc}, len)), scaleFactor);
    return vrxOk;
}
VrxStatus N0(vrxsNorm_L2_32fc64f)(const Vrx32fc* pSrc, int len, Vrx64f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc, pNorm)) return st;
    *pNorm = norm32fc<kL2>(One<float>{&pSrc->re}, 2 * size_t(len));
    return vrxOk;
}
VrxStatus N0(vrxsNorm_L2_64fc64f)(const Vrx64fc* pSrc, int len, Vrx64f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc, pNorm)) return st;
    *pNorm = norm64fc<kL2>(One<double>{&pSrc->re}, 2 * size_t(len));
    return vrxOk;
}
VrxStatus N0(vrxsNorm_L2Sqr_16s64s_Sfs)(const Vrx16s* pSrc, int len, Vrx64s* pNorm, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc, pNorm)) return st;
    *pNorm = ruleC(static_cast<int64_t>(l2sq16(One16{pSrc}, len)), scaleFactor);
    return vrxOk;
}

// -------------------------------------------------------------- NormDiff
VrxStatus N0(vrxsNormDiff_Inf_32f)(const Vrx32f* pSrc1, const Vrx32f* pSrc2, int len, Vrx32f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pNorm)) return st;
    *pNorm = normReal<kInf, float>(Diff<float>{pSrc1, pSrc2}, len);
    return vrxOk;
}
VrxStatus N0(vrxsNormDiff_Inf_64f)(const Vrx64f* pSrc1, const Vrx64f* pSrc2, int len, Vrx64f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pNorm)) return st;
    *pNorm = normReal<kInf, double>(Diff<double>{pSrc1, pSrc2}, len);
    return vrxOk;
}
VrxStatus N0(vrxsNormDiff_Inf_16s32f)(const Vrx16s* pSrc1, const Vrx16s* pSrc2, int len, Vrx32f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pNorm)) return st;
    *pNorm = static_cast<float>(inf16(Diff16{pSrc1, pSrc2}, len));
    return vrxOk;
}
VrxStatus N0(vrxsNormDiff_Inf_16s32s_Sfs)(const Vrx16s* pSrc1, const Vrx16s* pSrc2, int len, Vrx32s* pNorm, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pNorm)) return st;
    *pNorm = ruleA(inf16(Diff16{pSrc1, pSrc2}, len), scaleFactor);
    return vrxOk;
}
VrxStatus N0(vrxsNormDiff_Inf_32fc32f)(const Vrx32fc* pSrc1, const Vrx32fc* pSrc2, int len, Vrx32f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pNorm)) return st;
    *pNorm = static_cast<float>(norm32fc<kInf>(Diff<float>{&pSrc1->re, &pSrc2->re}, 2 * size_t(len)));
    return vrxOk;
}
VrxStatus N0(vrxsNormDiff_Inf_64fc64f)(const Vrx64fc* pSrc1, const Vrx64fc* pSrc2, int len, Vrx64f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pNorm)) return st;
    *pNorm = norm64fc<kInf>(Diff<double>{&pSrc1->re, &pSrc2->re}, 2 * size_t(len));
    return vrxOk;
}
VrxStatus N0(vrxsNormDiff_L1_32f)(const Vrx32f* pSrc1, const Vrx32f* pSrc2, int len, Vrx32f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pNorm)) return st;
    *pNorm = normReal<kL1, float>(Diff<float>{pSrc1, pSrc2}, len);
    return vrxOk;
}
VrxStatus N0(vrxsNormDiff_L1_64f)(const Vrx64f* pSrc1, const Vrx64f* pSrc2, int len, Vrx64f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pNorm)) return st;
    *pNorm = normReal<kL1, double>(Diff<double>{pSrc1, pSrc2}, len);
    return vrxOk;
}
VrxStatus N0(vrxsNormDiff_L1_16s32f)(const Vrx16s* pSrc1, const Vrx16s* pSrc2, int len, Vrx32f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pNorm)) return st;
    *pNorm = static_cast<float>(l1_16(Diff16{pSrc1, pSrc2}, len));
    return vrxOk;
}
VrxStatus N0(vrxsNormDiff_L1_16s32s_Sfs)(const Vrx16s* pSrc1, const Vrx16s* pSrc2, int len, Vrx32s* pNorm, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pNorm)) return st;
    *pNorm = l1To32(l1_16(Diff16{pSrc1, pSrc2}, len), len, scaleFactor);
    return vrxOk;
}
VrxStatus N0(vrxsNormDiff_L1_16s64s_Sfs)(const Vrx16s* pSrc1, const Vrx16s* pSrc2, int len, Vrx64s* pNorm, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pNorm)) return st;
    *pNorm = ruleC(static_cast<int64_t>(l1_16(Diff16{pSrc1, pSrc2}, len)), scaleFactor);
    return vrxOk;
}
VrxStatus N0(vrxsNormDiff_L1_32fc64f)(const Vrx32fc* pSrc1, const Vrx32fc* pSrc2, int len, Vrx64f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pNorm)) return st;
    *pNorm = norm32fc<kL1>(Diff<float>{&pSrc1->re, &pSrc2->re}, 2 * size_t(len));
    return vrxOk;
}
VrxStatus N0(vrxsNormDiff_L1_64fc64f)(const Vrx64fc* pSrc1, const Vrx64fc* pSrc2, int len, Vrx64f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pNorm)) return st;
    *pNorm = norm64fc<kL1>(Diff<double>{&pSrc1->re, &pSrc2->re}, 2 * size_t(len));
    return vrxOk;
}
VrxStatus N0(vrxsNormDiff_L2_32f)(const Vrx32f* pSrc1, const Vrx32f* pSrc2, int len, Vrx32f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pNorm)) return st;
    *pNorm = sqrt32f(normReal<kL2, float>(Diff<float>{pSrc1, pSrc2}, len));
    return vrxOk;
}
VrxStatus N0(vrxsNormDiff_L2_64f)(const Vrx64f* pSrc1, const Vrx64f* pSrc2, int len, Vrx64f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pNorm)) return st;
    *pNorm = sqrt64f(normReal<kL2, double>(Diff<double>{pSrc1, pSrc2}, len));
    return vrxOk;
}
VrxStatus N0(vrxsNormDiff_L2_16s32f)(const Vrx16s* pSrc1, const Vrx16s* pSrc2, int len, Vrx32f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pNorm)) return st;
    *pNorm = static_cast<float>(root16(l2sq16(Diff16{pSrc1, pSrc2}, len)));
    return vrxOk;
}
VrxStatus N0(vrxsNormDiff_L2_16s32s_Sfs)(const Vrx16s* pSrc1, const Vrx16s* pSrc2, int len, Vrx32s* pNorm, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pNorm)) return st;
    *pNorm = ruleD(root16(l2sq16(Diff16{pSrc1, pSrc2}, len)), scaleFactor);
    return vrxOk;
}
VrxStatus N0(vrxsNormDiff_L2_32fc64f)(const Vrx32fc* pSrc1, const Vrx32fc* pSrc2, int len, Vrx64f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pNorm)) return st;
    *pNorm = norm32fc<kL2>(Diff<float>{&pSrc1->re, &pSrc2->re}, 2 * size_t(len));
    return vrxOk;
}
VrxStatus N0(vrxsNormDiff_L2_64fc64f)(const Vrx64fc* pSrc1, const Vrx64fc* pSrc2, int len, Vrx64f* pNorm) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pNorm)) return st;
    *pNorm = norm64fc<kL2>(Diff<double>{&pSrc1->re, &pSrc2->re}, 2 * size_t(len));
    return vrxOk;
}
VrxStatus N0(vrxsNormDiff_L2Sqr_16s64s_Sfs)(const Vrx16s* pSrc1, const Vrx16s* pSrc2, int len, Vrx64s* pNorm, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pNorm)) return st;
    *pNorm = ruleC(static_cast<int64_t>(l2sq16(Diff16{pSrc1, pSrc2}, len)), scaleFactor);
    return vrxOk;
}

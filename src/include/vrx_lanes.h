// Element-wise drivers of the vector-math kernels, written against the SIMD
// layer: one lane driver parametrised by arity (one or two inputs, one or
// two outputs), width (native lanes, or float data computed in double
// halves) and unrolling, and a block driver for loops through stack
// buffers.
//
// Kernel protocol. A kernel maps registers of inputs to registers of
// outputs and reports in a mask the lanes its vector path does not serve
// (its rare lanes); its scalar routine serves one such lane. The driver
// stores the vector result first and patches the rare lanes after, in lane
// order, from copies of the input registers (so in-place calls are safe).
// The tail is loaded and stored masked: no byte outside the vectors is read
// or written, and rare lanes outside the mask are dropped.
//
//   one in, one out:   R vec(R x, M& rare);             T rare(T x)
//   one in, two out:   void vec(R x, R& a, R& b, M& rare); void rare(T x, T* a, T* b)
//   two in, one out:   R vec(R x, R y, M& rare);        T rare(T x, T y)
//   maps (kNoRare):    R vec(R x) or R vec(R x, R y), no rare lanes
//
// With ViaDouble the data are floats, R and T are double and each register
// of 16 floats runs the kernel on its low and high halves; the results are
// rounded to float once, to nearest.
#pragma once

#include <type_traits>

#include "simd/simd.h"
#include "vrx_fpu.h"

namespace n0::vm {

// The lane policies.
struct Native {};
struct ViaDouble {};

// Kernels without rare lanes say so with `static constexpr bool kNoRare = true`.
template <class K> inline constexpr bool kHasRare = !requires { K::kNoRare; };

// A lambda f as a kernel without rare lanes.
template <class F> struct Map {
    static constexpr bool kNoRare = true;
    F f;
    template <class... R> VRX_INLINE auto vec(R... x) const { return f(x...); }
};
template <class F> Map(F) -> Map<F>;

// double to float, to nearest whatever the caller's mode
VRX_INLINE float toFloat(double d) {
    // a scalar conversion with its own rounding: the layer names registers only
    return _mm_cvtss_f32(_mm_cvt_roundsd_ss(_mm_setzero_ps(), _mm_set_sd(d), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
}

// Calls f(j, x[0][j], ...) for every lane j whose bit is set in rare.
template <class V, size_t NI, class F>
VRX_INLINE void eachRare(const typename V::R (&x)[NI], unsigned rare, F f) {
    alignas(64) typename V::T t[NI][V::N];
    for (size_t i = 0; i < NI; ++i) V::storea(t[i], x[i]);
    for (; rare; rare &= rare - 1) {
        const int j = __builtin_ctz(rare);
        if constexpr (NI == 1) f(j, t[0][j]);
        else f(j, t[0][j], t[1][j]);
    }
}

namespace lanes_detail {

template <class K, class R, class M, size_t NI, size_t NO>
VRX_INLINE M vec(const K& k, const R (&x)[NI], R (&y)[NO]) {
    M rare = 0;
    if constexpr (!kHasRare<K>) {
        if constexpr (NI == 1) y[0] = k.vec(x[0]);
        else y[0] = k.vec(x[0], x[1]);
    } else if constexpr (NI == 1 && NO == 1) {
        y[0] = k.vec(x[0], rare);
    } else if constexpr (NI == 1 && NO == 2) {
        k.vec(x[0], y[0], y[1], rare);
    } else {
        static_assert(NI == 2 && NO == 1);
        y[0] = k.vec(x[0], x[1], rare);
    }
    return rare;
}

// Patches the rare lanes of one register of kernel lanes (type C) into
// outputs of type T at element `at`.
template <class K, class C, class T, size_t NI, size_t NO>
VRX_INLINE void patch(const K& k, const typename simd::V<C>::R (&x)[NI], unsigned rare, T* const (&out)[NO], int at) {
    if constexpr (kHasRare<K>) {
        eachRare<simd::V<C>>(x, rare, [&](int j, auto... v) {
            if constexpr (NO == 1) {
                if constexpr (sizeof(T) == sizeof(C)) out[0][at + j] = k.rare(v...);
                else out[0][at + j] = toFloat(k.rare(v...));
            } else if constexpr (sizeof(T) == sizeof(C)) {
                k.rare(v..., out[0] + at + j, out[1] + at + j);
            } else {
                C a, b;
                k.rare(v..., &a, &b);
                out[0][at + j] = toFloat(a);
                out[1][at + j] = toFloat(b);
            }
        });
    }
}

// One register of each input at element `at`, lanes m; Full: m is all.
template <bool Full, class K, class T, size_t NI, size_t NO>
VRX_INLINE void stepNative(const K& k, const T* const (&in)[NI], T* const (&out)[NO], int at, typename simd::V<T>::M m);

}  // namespace lanes_detail

// Runs the kernel on input registers x and stores the results at element
// `at` of the outputs, lanes m (all of them when Full), then patches the
// rare lanes among m: the step of every driver, for loops that load their
// registers themselves.
template <bool Full = false, class K, class T, size_t NI, size_t NO>
VRX_INLINE void storeLanes(const K& k, const typename simd::V<T>::R (&x)[NI], T* const (&out)[NO], int at,
                           typename simd::V<T>::M m) {
    using V = simd::V<T>;
    typename V::R y[NO];
    typename V::M rare = lanes_detail::vec<K, typename V::R, typename V::M>(k, x, y);
    for (size_t o = 0; o < NO; ++o) {
        if (Full) V::store(out[o] + at, y[o]);
        else V::storem(out[o] + at, m, y[o]);
    }
    if (!Full) rare &= m;
    if (VRX_UNLIKELY(rare)) lanes_detail::patch<K, T>(k, x, rare, out, at);
}

namespace lanes_detail {

template <bool Full, class K, class T, size_t NI, size_t NO>
VRX_INLINE void stepNative(const K& k, const T* const (&in)[NI], T* const (&out)[NO], int at, typename simd::V<T>::M m) {
    using V = simd::V<T>;
    typename V::R x[NI];
    for (size_t i = 0; i < NI; ++i) x[i] = Full ? V::load(in[i] + at) : V::loadm(m, in[i] + at);
    storeLanes<Full>(k, x, out, at, m);
}

// U registers at once, all full.
template <int U, class K, class T, size_t NI, size_t NO>
VRX_INLINE void stepNativeU(const K& k, const T* const (&in)[NI], T* const (&out)[NO], int at) {
    using V = simd::V<T>;
    typename V::R x[U][NI], y[U][NO];
    typename V::M rare[U];
    for (int u = 0; u < U; ++u)
        for (size_t i = 0; i < NI; ++i) x[u][i] = V::load(in[i] + at + u * V::N);
    for (int u = 0; u < U; ++u) rare[u] = vec<K, typename V::R, typename V::M>(k, x[u], y[u]);
    for (size_t o = 0; o < NO; ++o)
        for (int u = 0; u < U; ++u) V::store(out[o] + at + u * V::N, y[u][o]);
    unsigned any = 0;
    for (int u = 0; u < U; ++u) any |= rare[u];
    if (VRX_UNLIKELY(any))
        for (int u = 0; u < U; ++u) patch<K, T>(k, x[u], rare[u], out, at + u * V::N);
}

// One register of 16 floats of each input at `at`, lanes m, computed in
// two halves of doubles.
template <class K, size_t NI, size_t NO>
VRX_INLINE void stepViaDouble(const K& k, const float* const (&in)[NI], float* const (&out)[NO], int at, __mmask16 m) {
    using F = simd::V<float>;
    using D = simd::V<double>;
    D::R lo[NI], hi[NI], ylo[NO], yhi[NO];
    for (size_t i = 0; i < NI; ++i) {
        F::R v = F::loadm(m, in[i] + at);
        lo[i] = simd::lowToDouble(v);
        hi[i] = simd::highToDouble(v);
    }
    unsigned r0 = vec<K, D::R, D::M>(k, lo, ylo);
    unsigned r1 = vec<K, D::R, D::M>(k, hi, yhi);
    for (size_t o = 0; o < NO; ++o) F::storem(out[o] + at, m, simd::joinToFloat(ylo[o], yhi[o]));
    r0 &= static_cast<D::M>(m);
    r1 &= static_cast<D::M>(m >> 8);
    if (VRX_UNLIKELY(r0 | r1)) {
        patch<K, double>(k, lo, r0, out, at);
        patch<K, double>(k, hi, r1, out, at + 8);
    }
}

}  // namespace lanes_detail

// Runs kernel k over len elements of the inputs into the outputs: full
// registers (U at a time, then one at a time), then the masked tail.
template <class W, int U = 1, class K, class T, size_t NI, size_t NO>
VRX_INLINE void lanes(const K& k, const T* const (&in)[NI], T* const (&out)[NO], int len) {
    using namespace lanes_detail;
    constexpr int N = simd::V<T>::N;
    int i = 0;
    if constexpr (std::is_same_v<W, ViaDouble>) {
        static_assert(std::is_same_v<T, float> && U == 1);
        for (; i + N <= len; i += N) stepViaDouble(k, in, out, i, simd::V<float>::kAll);
        if (i < len) stepViaDouble(k, in, out, i, simd::tail<float>(len - i));
    } else {
        if constexpr (U > 1)
            for (; i + U * N <= len; i += U * N) stepNativeU<U>(k, in, out, i);
        for (; i + N <= len; i += N) stepNative<true>(k, in, out, i, simd::V<T>::kAll);
        if (i < len) stepNative<false>(k, in, out, i, simd::tail<T>(len - i));
    }
}

// The tier kernels' entry: a length below one is -6, then a null pointer
// -8; the run is framed by KernelFrame.
template <class W, int U = 1, class K, class T, size_t NI, size_t NO>
VRX_INLINE VrxStatus runKernel(const K& k, const T* const (&in)[NI], T* const (&out)[NO], int len) {
    if (len < 1) return vrxErrBadLength;
    for (const T* p : in)
        if (!p) return vrxErrNullPtr;
    for (T* p : out)
        if (!p) return vrxErrNullPtr;
    KernelFrame frame;
    lanes<W, U>(k, in, out, len);
    return vrxOk;
}

// Runs f(at, n) over [0, len) in blocks of B elements, the last one
// shorter: the loop of the families that pass through stack buffers of B.
template <int B, class F>
VRX_INLINE void inBlocks(int len, F f) {
    for (int i = 0; i < len; i += B) f(i, len - i < B ? len - i : B);
}

}  // namespace n0::vm

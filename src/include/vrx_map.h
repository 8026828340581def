// Element-wise loop drivers of the arithmetic, conversion, logic and
// threshold families, written against the SIMD layer.
//
// Protocol. The destination is walked in registers of V<T>, T its lane
// type: four registers a round while four fit, then one at a time, then one
// last partial register whose lanes beyond the end are masked off on load
// and on store. Every element goes through the same kernel, so the tail
// gives the bits of the body, and no byte outside the vectors is read or
// written. A round reads everything it needs before it stores anything, so
// an in-place call (destination equal to a source) is right.
//
// Store policy. Store::Plain writes with ordinary stores. Store::Auto turns
// to non-temporal stores when the call moves at least the largest cache
// (sources and destination together; see streamWorth): such a stream does
// not stay in a last-level cache, and kept there it would only evict the
// caller's working set. It then stores the head up to the destination's
// next 64-byte boundary under a mask, streams whole rounds, fences, and
// finishes as Plain does. The choice changes speed only, never a result.
//
// Kernels:
//   run<P>(d, n, traffic, body, last)   the general walk: body(i) is the
//       register for elements i..i+W-1, all of them present; last(i, m) the
//       same for the lanes of m only, reading nothing outside them.
//   map1<P>(a, d, n, f, fillA)          d[i] = f(a[i])
//   map2<P>(a, b, d, n, f, fillA)       d[i] = f(a[i], b[i])
//   map3<P>(a, b, c, d, n, f, fillA)    d[i] = f(a[i], b[i], c[i])
// f works on registers; in the last partial register the lanes past the end
// of a read fillA (a divisor stays nonzero there), the other sources 0.
// The maps' ordinary loops keep one fixed shape, which fixes the NaN a
// commuted add or multiply returns for two NaN operands (see map1).
#pragma once

#include "simd/simd.h"

namespace n0::map {

enum class Store { Plain, Auto };

// Calls below 2 MiB of traffic never stream; larger ones stream from the
// largest cache's size on (32 MiB when the size is unknown).
constexpr size_t kStreamFloor = size_t(1) << 21;
constexpr size_t kStreamBytes = size_t(1) << 25;

VRX_INLINE bool streamWorth(size_t trafficBytes) {
    if (trafficBytes < kStreamFloor) return false;
    int cache = 0;
    size_t limit = vrxGetMaxCacheSizeB(&cache) == 0 ? static_cast<size_t>(cache) : kStreamBytes;
    return trafficBytes >= limit;
}

// Elements of T from p up to the next 64-byte boundary (0 when p is on one).
template <class T>
VRX_INLINE size_t headTo64(const T* p) {
    return ((64 - (reinterpret_cast<uintptr_t>(p) & 63)) & 63) / sizeof(T);
}

template <Store P, class T, class Body, class Last>
VRX_INLINE void run(T* d, size_t n, size_t traffic, Body body, Last last) {
    using V = simd::V<T>;
    constexpr size_t N = V::N;
    size_t i = 0;
    if constexpr (P == Store::Auto) {
        if (streamWorth(traffic) && (reinterpret_cast<uintptr_t>(d) & (sizeof(T) - 1)) == 0) {
            const size_t head = headTo64(d);
            if (head) V::storem(d, simd::tail<T>(head), body(size_t(0)));
            i = head;
            for (; i + 4 * N <= n; i += 4 * N) {
                auto r0 = body(i), r1 = body(i + N), r2 = body(i + 2 * N), r3 = body(i + 3 * N);
                V::stream(d + i, r0); V::stream(d + i + N, r1); V::stream(d + i + 2 * N, r2); V::stream(d + i + 3 * N, r3);
            }
            simd::streamFence();
        }
    }
    for (; i + 4 * N <= n; i += 4 * N) {
        auto r0 = body(i), r1 = body(i + N), r2 = body(i + 2 * N), r3 = body(i + 3 * N);
        V::store(d + i, r0); V::store(d + i + N, r1); V::store(d + i + 2 * N, r2); V::store(d + i + 3 * N, r3);
    }
    for (; i + N <= n; i += N) V::store(d + i, body(i));
    if (i < n) {
        const auto m = simd::tail<T>(n - i);
        V::storem(d + i, m, last(i, m));
    }
}

// Large calls under Store::Auto: the head up to the destination's 64-byte
// boundary under a mask, then whole rounds of non-temporal stores and the
// fence; the caller's loops finish from i. body(k) is the register for
// elements k..k+W-1.
template <Store P, class T, class Body>
VRX_INLINE void streamRounds(T* d, size_t& i, size_t n, size_t traffic, Body body) {
    using V = simd::V<T>;
    constexpr size_t N = V::N;
    if constexpr (P == Store::Auto) {
        if (streamWorth(traffic) && (reinterpret_cast<uintptr_t>(d) & (sizeof(T) - 1)) == 0) {
            const size_t head = headTo64(d);
            if (head) V::storem(d, simd::tail<T>(head), body(size_t(0)));
            i = head;
            for (; i + 4 * N <= n; i += 4 * N) {
                auto r0 = body(i), r1 = body(i + N), r2 = body(i + 2 * N), r3 = body(i + 3 * N);
                V::stream(d + i, r0); V::stream(d + i + N, r1); V::stream(d + i + 2 * N, r2); V::stream(d + i + 3 * N, r3);
            }
            simd::streamFence();
        }
    }
}

// The ordinary loops of the maps load a round's registers, all sources,
// before they compute and store its first register, and compute a single
// register from loads written as call arguments. The compiler may commute
// an add or a multiply to take one operand from memory or by register
// order, and that choice decides the NaN a lane returns when both operands
// are NaN: these loops are kept in exactly this shape so that the choice
// stays as it has always been. Do not restructure them.
template <Store P = Store::Plain, class T, class F>
VRX_INLINE void map1(const T* a, T* d, size_t n, F f, T fillA = T(0)) {
    using V = simd::V<T>;
    constexpr size_t N = V::N;
    size_t i = 0;
    streamRounds<P>(d, i, n, 2 * n * sizeof(T), [&](size_t k) { return f(V::load(a + k)); });
    for (; i + 4 * N <= n; i += 4 * N) {
        auto a0 = V::load(a + i), a1 = V::load(a + i + N), a2 = V::load(a + i + 2 * N), a3 = V::load(a + i + 3 * N);
        V::store(d + i, f(a0));
        V::store(d + i + N, f(a1));
        V::store(d + i + 2 * N, f(a2));
        V::store(d + i + 3 * N, f(a3));
    }
    for (; i + N <= n; i += N) V::store(d + i, f(V::load(a + i)));
    if (i < n) {
        auto m = simd::tail<T>(n - i);
        V::storem(d + i, m, f(V::loadm(m, a + i, fillA)));
    }
}

template <Store P = Store::Plain, class T, class F>
VRX_INLINE void map2(const T* a, const T* b, T* d, size_t n, F f, T fillA = T(0)) {
    using V = simd::V<T>;
    constexpr size_t N = V::N;
    size_t i = 0;
    streamRounds<P>(d, i, n, 3 * n * sizeof(T), [&](size_t k) { return f(V::load(a + k), V::load(b + k)); });
    for (; i + 4 * N <= n; i += 4 * N) {
        auto a0 = V::load(a + i), a1 = V::load(a + i + N), a2 = V::load(a + i + 2 * N), a3 = V::load(a + i + 3 * N);
        auto b0 = V::load(b + i), b1 = V::load(b + i + N), b2 = V::load(b + i + 2 * N), b3 = V::load(b + i + 3 * N);
        V::store(d + i, f(a0, b0));
        V::store(d + i + N, f(a1, b1));
        V::store(d + i + 2 * N, f(a2, b2));
        V::store(d + i + 3 * N, f(a3, b3));
    }
    for (; i + N <= n; i += N) V::store(d + i, f(V::load(a + i), V::load(b + i)));
    if (i < n) {
        auto m = simd::tail<T>(n - i);
        V::storem(d + i, m, f(V::loadm(m, a + i, fillA), V::loadm(m, b + i)));
    }
}

template <Store P = Store::Plain, class T, class F>
VRX_INLINE void map3(const T* a, const T* b, const T* c, T* d, size_t n, F f, T fillA = T(0)) {
    using V = simd::V<T>;
    constexpr size_t N = V::N;
    size_t i = 0;
    streamRounds<P>(d, i, n, 4 * n * sizeof(T), [&](size_t k) { return f(V::load(a + k), V::load(b + k), V::load(c + k)); });
    for (; i + 4 * N <= n; i += 4 * N) {
        auto a0 = V::load(a + i), a1 = V::load(a + i + N), a2 = V::load(a + i + 2 * N), a3 = V::load(a + i + 3 * N);
        auto b0 = V::load(b + i), b1 = V::load(b + i + N), b2 = V::load(b + i + 2 * N), b3 = V::load(b + i + 3 * N);
        auto c0 = V::load(c + i), c1 = V::load(c + i + N), c2 = V::load(c + i + 2 * N), c3 = V::load(c + i + 3 * N);
        V::store(d + i, f(a0, b0, c0));
        V::store(d + i + N, f(a1, b1, c1));
        V::store(d + i + 2 * N, f(a2, b2, c2));
        V::store(d + i + 3 * N, f(a3, b3, c3));
    }
    for (; i + N <= n; i += N) V::store(d + i, f(V::load(a + i), V::load(b + i), V::load(c + i)));
    if (i < n) {
        auto m = simd::tail<T>(n - i);
        V::storem(d + i, m, f(V::loadm(m, a + i, fillA), V::loadm(m, b + i), V::loadm(m, c + i)));
    }
}

}  // namespace n0::map

// Shared helpers of the tests: deterministic random data, guarded buffers,
// control-register state; the references (vrx_ref.h) and the shapes
// (vrx_shapes.h) are included at the end.
#pragma once

#include <gtest/gtest.h>
#include <immintrin.h>
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

#include <vector>

#include "vrxs.h"

namespace vt {

// splitmix64: a fixed, portable sequence for test data.
class Rng {
public:
    explicit Rng(uint64_t seed = 0x9E3779B97F4A7C15ull) : s_(seed) {}
    uint64_t next() {
        uint64_t z = (s_ += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    }
    // uniform in [lo, hi]
    int64_t range(int64_t lo, int64_t hi) { return lo + static_cast<int64_t>(next() % static_cast<uint64_t>(hi - lo + 1)); }
    double uniform() { return static_cast<double>(next() >> 11) * 0x1.0p-53; }
    void fill(void* p, size_t bytes) {
        uint8_t* b = static_cast<uint8_t*>(p);
        for (size_t i = 0; i < bytes; ++i) b[i] = static_cast<uint8_t>(next());
    }
private:
    uint64_t s_;
};

// n floats uniform in [-1, 1) from a seed.
inline std::vector<float> noise(uint64_t seed, size_t n) {
    Rng r(seed);
    std::vector<float> v(n);
    for (auto& x : v) x = float(2 * r.uniform() - 1);
    return v;
}

// A byte buffer of n usable bytes at a chosen offset from a 64-byte
// boundary, with guard bytes around it to catch writes outside.
class Buffer {
public:
    static constexpr size_t kGuard = 128;
    static constexpr uint8_t kFill = 0xA5;
    Buffer(size_t n, size_t offset = 0) : n_(n), off_(offset) {
        size_t total = roundUp(n + 2 * kGuard + offset);
        raw_ = static_cast<uint8_t*>(aligned_alloc(64, total));
        memset(raw_, kFill, total);
    }
    ~Buffer() { free(raw_); }
    Buffer(const Buffer&) = delete;
    Buffer& operator=(const Buffer&) = delete;
    uint8_t* data() { return raw_ + kGuard + off_; }
    template <class T> T* as() { return reinterpret_cast<T*>(data()); }
    size_t size() const { return n_; }
    bool guardsIntact() const {
        const uint8_t* p = raw_ + kGuard + off_;
        for (size_t i = 1; i <= kGuard; ++i) if (p[-static_cast<ptrdiff_t>(i)] != kFill) return false;
        for (size_t i = 0; i < kGuard; ++i) if (p[n_ + i] != kFill) return false;
        return true;
    }
private:
    static size_t roundUp(size_t v) { return (v + 63) & ~size_t(63); }
    uint8_t* raw_;
    size_t n_, off_;
};

// Saves MXCSR on construction and puts it back on destruction, so that a
// test may set any state for a call.
class MxcsrScope {
public:
    MxcsrScope() : saved_(_mm_getcsr()) {}
    ~MxcsrScope() { _mm_setcsr(saved_); }
private:
    unsigned saved_;
};

constexpr unsigned kRoundNear = 0x0000, kRoundDown = 0x2000, kRoundUp = 0x4000, kRoundZero = 0x6000;
constexpr unsigned kFtz = 0x8000, kDaz = 0x0040;

}  // namespace vt

#include "vrx_ref.h"
#include "vrx_shapes.h"

namespace vt {

// The n values at p, to compare a whole result with one expectation.
template <class T> std::vector<T> vec(const T* p, size_t n) { return std::vector<T>(p, p + n); }

}  // namespace vt

namespace vt {

// The float sample types as one family: scalar type, complex or not, random
// elements uniform in [-1, 1) per part, the value in complex long double.
template <class E> struct Elem { using S = E; static constexpr bool cplx = false; };
template <> struct Elem<Vrx32fc> { using S = float; static constexpr bool cplx = true; };
template <> struct Elem<Vrx64fc> { using S = double; static constexpr bool cplx = true; };
template <class E> std::complex<long double> toLC(const E& v) {
    if constexpr (Elem<E>::cplx) return {v.re, v.im};
    else return {(long double)v, 0};
}
template <class E> std::vector<E> randElems(Rng& r, size_t n) {
    using S = typename Elem<E>::S;
    std::vector<E> v(n);
    for (auto& x : v) {
        if constexpr (Elem<E>::cplx) x = E{S(2 * r.uniform() - 1), S(2 * r.uniform() - 1)};
        else x = E(2 * r.uniform() - 1);
    }
    return v;
}
// x rounded to nearest, ties to even, and saturated to 16 bits.
inline int16_t sat16(long double x) { return (int16_t)std::max(-32768.0L, std::min(32767.0L, nearbyintl(x))); }

}  // namespace vt

namespace vt {

// The x87 control word, read and set.
inline unsigned short x87Cw() { unsigned short cw; __asm__ __volatile__("fnstcw %0" : "=m"(cw)); return cw; }
inline void setX87Cw(unsigned short cw) { __asm__ __volatile__("fldcw %0" ::"m"(cw)); }
// Two vectors of the same length with the same bits (+0 differs from -0).
template <class T> bool sameBitsAll(const std::vector<T>& a, const std::vector<T>& b) {
    return a.size() == b.size() && (a.empty() || memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0);
}

}  // namespace vt

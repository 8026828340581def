// Shared pieces of the fuzz targets: the input reader, guarded buffers, the
// caller's control word, and the checks that abort on a violation. Public
// header only.
#pragma once

#include <immintrin.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <fuzzer/FuzzedDataProvider.h>
#include <initializer_list>
#include <utility>
#include <vector>

#include "vrxs.h"

namespace fz {

// Stops the run with a message: libFuzzer keeps the input that did it.
[[noreturn]] inline void fail(const char* what, const char* where, int status) {
    fprintf(stderr, "fuzz violation: %s (%s, status %d)\n", what, where, status);
    abort();
}
inline void require(bool ok, const char* what, const char* where = "", int status = 0) {
    if (!ok) fail(what, where, status);
}

// The fuzzer's bytes with the few shapes the targets draw.
struct In : FuzzedDataProvider {
    using FuzzedDataProvider::FuzzedDataProvider;
    int range(int lo, int hi) { return ConsumeIntegralInRange<int>(lo, hi); }
    uint8_t byte() { return ConsumeIntegral<uint8_t>(); }
    // mostly in [lo, hi], sometimes any int at all
    int mostlyIn(int lo, int hi) { return byte() < 224 ? range(lo, hi) : ConsumeIntegral<int>(); }
    // true with probability about 1/den
    bool rarely(int den = 16) { return range(0, den - 1) == 0; }
    // a value of T from raw bytes (zeros once the input runs out)
    template <class T> T raw() {
        T v{};
        const std::vector<uint8_t> b = ConsumeBytes<uint8_t>(sizeof(T));
        if (!b.empty()) memcpy(&v, b.data(), b.size());
        return v;
    }
};

// n bytes at a chosen misalignment from 64, inside guard bytes of a fixed
// pattern; the whole block is one allocation, so the sanitizer sees an
// overrun beyond the guards and intact() sees one into them.
class Guarded {
public:
    static constexpr size_t kGuard = 64;
    static constexpr uint8_t kFill = 0xC3;
    explicit Guarded(size_t n, size_t misalign = 0) : n_(n), raw_(2 * kGuard + 64 + n) {
        memset(raw_.data(), kFill, raw_.size());
        uintptr_t p = reinterpret_cast<uintptr_t>(raw_.data()) + kGuard;
        p = (p + 63) & ~uintptr_t(63);
        data_ = reinterpret_cast<uint8_t*>(p) + misalign % 64;
    }
    uint8_t* data() { return data_; }
    template <class T> T* as() { return reinterpret_cast<T*>(data_); }
    size_t size() const { return n_; }
    // Fills the n bytes from the fuzzer's data (zeros once it runs out).
    void fill(In& in) {
        std::vector<uint8_t> b = in.ConsumeBytes<uint8_t>(n_);
        memset(data_, 0, n_);
        if (!b.empty()) memcpy(data_, b.data(), b.size());
    }
    // Fills the block with values of T from f(), e.g. finite samples.
    template <class T, class F> void fillWith(F f) {
        for (size_t i = 0; i < n_ / sizeof(T); ++i) as<T>()[i] = static_cast<T>(f());
    }
    bool intact() const {
        for (const uint8_t* p = raw_.data(); p < data_; ++p) if (*p != kFill) return false;
        for (const uint8_t* p = data_ + n_; p < raw_.data() + raw_.size(); ++p) if (*p != kFill) return false;
        return true;
    }
    std::vector<uint8_t> snapshot() const { return std::vector<uint8_t>(data_, data_ + n_); }
    bool same(const std::vector<uint8_t>& s) const { return s.size() == n_ && (n_ == 0 || memcmp(s.data(), data_, n_) == 0); }
private:
    size_t n_;
    std::vector<uint8_t> raw_;
    uint8_t* data_;
};

// The blocks a call may touch, with their bytes from before it.
class Watch {
public:
    Watch(std::initializer_list<Guarded*> blocks) {
        for (Guarded* b : blocks) w_.emplace_back(b, b->snapshot());
    }
    bool unchanged() const {
        for (const auto& [b, s] : w_) if (!b->same(s)) return false;
        return true;
    }
    bool unchanged(const Guarded& g) const {
        for (const auto& [b, s] : w_) if (b == &g) return b->same(s);
        return true;
    }
    // After a call: a status of 0 or below, no byte written outside a block,
    // and no block changed by a failed call.
    void check(VrxStatus st, const char* where) const {
        require(st <= 0, "positive status", where, st);
        for (const auto& [b, s] : w_) require(b->intact(), "written outside its buffers", where, st);
        if (st < 0) require(unchanged(), "written on failure", where, st);
    }
private:
    std::vector<std::pair<Guarded*, std::vector<uint8_t>>> w_;
};

// A caller's control word chosen by the fuzzer: any rounding mode, with or
// without flush-to-zero and denormals-are-zero, every exception masked.
// After a call the control bits must be as they were; flags may be set.
class CallerMxcsr {
public:
    explicit CallerMxcsr(In& in) : saved_(_mm_getcsr()) {
        const unsigned pick = in.byte();
        word_ = 0x1F80u | ((pick & 3u) << 13) | (pick & 4u ? 0x8000u : 0u) | (pick & 8u ? 0x0040u : 0u);
        _mm_setcsr(word_);
    }
    ~CallerMxcsr() { _mm_setcsr(saved_); }
    void check(const char* where, int status) {
        require((_mm_getcsr() & ~0x3Fu) == word_, "control word changed", where, status);
        _mm_setcsr(word_);
    }
private:
    unsigned saved_, word_;
};

}  // namespace fz

// Each target defines fuzzOne(fz::In&); this is the entry libFuzzer calls.
void fuzzOne(fz::In& in);
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fz::In in(data, size);
    fuzzOne(in);
    return 0;
}

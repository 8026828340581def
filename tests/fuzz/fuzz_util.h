// Shared pieces of the fuzz targets: guarded buffers, the caller's control
// word, and the check that aborts on a violation. Public header only.
#pragma once

#include <immintrin.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <fuzzer/FuzzedDataProvider.h>
#include <vector>

#include "vrxs.h"

namespace fz {

// Stops the run with a message: libFuzzer keeps the input that did it.
[[noreturn]] inline void fail(const char* what, const char* where, int status) {
    fprintf(stderr, "fuzz violation: %s (%s, status %d)\n", what, where, status);
    abort();
}
inline void require(bool ok, const char* what, const char* where, int status = 0) {
    if (!ok) fail(what, where, status);
}

// n bytes at a chosen misalignment from 64, inside guard bytes of a fixed
// pattern; the whole block is one allocation, so the sanitizer sees an
// overrun beyond the guards and intact() sees one into them.
class Guarded {
public:
    static constexpr size_t kGuard = 64;
    static constexpr uint8_t kFill = 0xC3;
    Guarded(size_t n, size_t misalign) : n_(n), raw_(2 * kGuard + 64 + n) {
        memset(raw_.data(), kFill, raw_.size());
        uintptr_t p = reinterpret_cast<uintptr_t>(raw_.data()) + kGuard;
        p = (p + 63) & ~uintptr_t(63);
        data_ = reinterpret_cast<uint8_t*>(p) + misalign % 64;
    }
    uint8_t* data() { return data_; }
    template <class T> T* as() { return reinterpret_cast<T*>(data_); }
    size_t size() const { return n_; }
    // Fills the n bytes from the fuzzer's data (zeros once it runs out).
    void fill(FuzzedDataProvider& in) {
        std::vector<uint8_t> b = in.ConsumeBytes<uint8_t>(n_);
        memset(data_, 0, n_);
        if (!b.empty()) memcpy(data_, b.data(), b.size());
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

// A caller's control word chosen by the fuzzer: any rounding mode, with or
// without flush-to-zero and denormals-are-zero, every exception masked.
// After a call the control bits must be as they were; flags may be set.
class CallerMxcsr {
public:
    explicit CallerMxcsr(FuzzedDataProvider& in) : saved_(_mm_getcsr()) {
        const unsigned pick = in.ConsumeIntegral<uint8_t>();
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

// An int that is mostly in [lo, hi] and sometimes anything at all.
inline int mostlyIn(FuzzedDataProvider& in, int lo, int hi) {
    const uint8_t sel = in.ConsumeIntegral<uint8_t>();
    if (sel < 224) return in.ConsumeIntegralInRange<int>(lo, hi);
    return in.ConsumeIntegral<int>();
}

// True with probability about 1/den.
inline bool rarely(FuzzedDataProvider& in, int den = 16) { return in.ConsumeIntegralInRange<int>(0, den - 1) == 0; }

}  // namespace fz

// Shape helpers of the tests: the lengths and offsets every kernel is run
// at, in place against out of place, a vector fed in pieces. Included by
// vrx_test.h, after vt::Buffer.
#pragma once

#include <gtest/gtest.h>
#include <stdint.h>

#include <algorithm>
#include <vector>

#include "vrxs.h"

namespace vt {

// Every tail length of one and two registers, the edges of 128 and of 4096.
inline const std::vector<int>& shapeLengths() {
    static const std::vector<int> v = [] {
        std::vector<int> l;
        for (int n = 1; n <= 70; ++n) l.push_back(n);
        for (int n : {127, 128, 129, 4095, 4096, 4097}) l.push_back(n);
        return l;
    }();
    return v;
}

// f(len, offset) for every length of shapeLengths() and every offset, in
// elements of T, that puts the start at each position modulo 64 bytes.
// Use with vt::Buffer(len * sizeof(T), offset * sizeof(T)) and guardsIntact().
template <class T, class F>
void forEachShape(F f) {
    const size_t offsets = 64 % sizeof(T) == 0 ? 64 / sizeof(T) : 64;
    for (int len : shapeLengths())
        for (size_t off = 0; off < offsets; ++off) f(len, off);
}

// Calls f(src, dst, n) over the whole vector in pieces of 1, 2, ..., 70, 1,
// ... elements, so that every tail length and misalignment is covered; every
// piece must return vrxOk.
template <class S, class D, class F>
void chunked(const std::vector<S>& s, std::vector<D>& d, F f) {
    size_t i = 0, n = 1;
    while (i < s.size()) {
        size_t c = std::min(n, s.size() - i);
        ASSERT_EQ(f(s.data() + i, d.data() + i, static_cast<int>(c)), vrxOk);
        i += c;
        n = n % 70 + 1;
    }
}

// Random piece lengths (1..maxPiece) that add up to total: a state fed in
// these pieces must give the bits of one call over the whole.
template <class R>
std::vector<int> randomPieces(R& rng, int total, int maxPiece = 70) {
    std::vector<int> p;
    while (total > 0) {
        int c = static_cast<int>(std::min<int64_t>(total, rng.range(1, maxPiece)));
        p.push_back(c);
        total -= c;
    }
    return p;
}

// Runs outOfPlace(src, dst, len) and inPlace(srcDst, len) on copies of src;
// the two results must have the same bits and the same status.
template <class T, class FO, class FI>
void expectInPlaceMatches(const std::vector<T>& src, FO outOfPlace, FI inPlace, const char* what = "") {
    std::vector<T> out(src.size()), io(src);
    const int n = static_cast<int>(src.size());
    VrxStatus so = outOfPlace(src.data(), out.data(), n), si = inPlace(io.data(), n);
    EXPECT_EQ(so, si) << what << " len " << n;
    EXPECT_EQ(0, memcmp(out.data(), io.data(), src.size() * sizeof(T))) << what << " len " << n;
}

}  // namespace vt

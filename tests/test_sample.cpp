// SampleUp and SampleDown against plain reference loops for every element
// size, factors 1..9 (down: to 17, the permute kernels' lanes), every phase,
// lengths across the kernels' blocks; a decimation carried across pieces;
// checks in order with neither length nor phase written on failure.
#include <vector>

#include "vrx_test.h"

namespace {

template <class E> struct Fn;
template <> struct Fn<Vrx16s> { static constexpr auto up = vrxsSampleUp_16s, down = vrxsSampleDown_16s; };
template <> struct Fn<Vrx16sc> { static constexpr auto up = vrxsSampleUp_16sc, down = vrxsSampleDown_16sc; };
template <> struct Fn<Vrx32f> { static constexpr auto up = vrxsSampleUp_32f, down = vrxsSampleDown_32f; };
template <> struct Fn<Vrx32fc> { static constexpr auto up = vrxsSampleUp_32fc, down = vrxsSampleDown_32fc; };
template <> struct Fn<Vrx64f> { static constexpr auto up = vrxsSampleUp_64f, down = vrxsSampleDown_64f; };
template <> struct Fn<Vrx64fc> { static constexpr auto up = vrxsSampleUp_64fc, down = vrxsSampleDown_64fc; };

template <class E> class Sample : public ::testing::Test {};
using Types = ::testing::Types<Vrx16s, Vrx16sc, Vrx32f, Vrx32fc, Vrx64f, Vrx64fc>;
TYPED_TEST_SUITE(Sample, Types);

template <class E> std::vector<E> rnds(vt::Rng& r, size_t n) {
    std::vector<E> v(n);
    r.fill(v.data(), n * sizeof(E));
    return v;
}

const int kLens[] = {1, 2, 3, 15, 16, 17, 31, 32, 33, 47, 48, 49, 100, 4095, 4096, 4097, 8193, 20000};

// Up: sample i at i*f + phase, zeros between; the phase handed back as it came.
TYPED_TEST(Sample, UpMatchesTheReference) {
    using E = TypeParam;
    vt::Rng r(41);
    for (int n : kLens)
        for (int f = 1; f <= 9; ++f)
            for (int ph = 0; ph < f; ++ph) {
                if (n > 5000 && f > 3 && ph) continue;
                const auto x = rnds<E>(r, static_cast<size_t>(n));
                vt::Buffer d(sizeof(E) * static_cast<size_t>(n * f), static_cast<size_t>(n % 64));
                int len = -1, p = ph;
                ASSERT_EQ(Fn<E>::up(x.data(), n, d.as<E>(), &len, f, &p), vrxOk);
                ASSERT_TRUE(len == n * f && p == ph && d.guardsIntact());
                std::vector<E> want(static_cast<size_t>(n * f));
                memset(static_cast<void*>(want.data()), 0, want.size() * sizeof(E));
                for (int i = 0; i < n; ++i) want[static_cast<size_t>(i * f + ph)] = x[static_cast<size_t>(i)];
                ASSERT_EQ(memcmp(d.data(), want.data(), want.size() * sizeof(E)), 0) << "n=" << n << " f=" << f << " ph=" << ph;
            }
}

// Down: every f-th sample from the phase; the phase handed back is where
// the next piece starts (0 for factor 1).
TYPED_TEST(Sample, DownMatchesTheReference) {
    using E = TypeParam;
    vt::Rng r(42);
    for (int n : kLens)
        for (int f : {1, 2, 3, 4, 5, 6, 7, 8, 9, 15, 16, 17})
            for (int ph = 0; ph < f; ++ph) {
                const auto x = rnds<E>(r, static_cast<size_t>(n));
                const int count = ph >= n ? 0 : (n + f - ph - 1) / f;
                vt::Buffer s(sizeof(E) * static_cast<size_t>(n), static_cast<size_t>(n * 3 % 64)), d(sizeof(E) * static_cast<size_t>(count), static_cast<size_t>(f * 8 % 64));
                memcpy(s.data(), x.data(), sizeof(E) * static_cast<size_t>(n));
                int len = -1, p = ph;
                ASSERT_EQ(Fn<E>::down(s.as<E>(), n, d.as<E>(), &len, f, &p), vrxOk);
                ASSERT_EQ(len, count);
                ASSERT_EQ(p, f == 1 ? 0 : ph + count * f - n) << "n=" << n << " f=" << f << " ph=" << ph;
                for (int k = 0; k < count; ++k)
                    ASSERT_EQ(memcmp(d.as<E>() + k, &x[static_cast<size_t>(ph + k * f)], sizeof(E)), 0) << "n=" << n << " f=" << f << " ph=" << ph << " k=" << k;
                ASSERT_TRUE(d.guardsIntact() && s.guardsIntact());
            }
}

// Pieces shorter and longer than the factor, each starting at the phase the
// one before handed back, give the decimation of the joined vector.
TYPED_TEST(Sample, DownInPiecesEqualsOneCall) {
    using E = TypeParam;
    vt::Rng r(43);
    for (int f : {2, 3, 7}) {
        const int n = 3000;
        const auto x = rnds<E>(r, n);
        std::vector<E> one(static_cast<size_t>(n)), parts(static_cast<size_t>(n));
        int len1 = 0, p1 = 1, got = 0, p = 1;
        ASSERT_EQ(Fn<E>::down(x.data(), n, one.data(), &len1, f, &p1), vrxOk);
        for (int at = 0, m = 0; at < n; at += m) {
            m = std::min<int>(n - at, int(r.range(1, 2 * f + 40)));
            int len = 0;
            ASSERT_EQ(Fn<E>::down(x.data() + at, m, parts.data() + got, &len, f, &p), vrxOk);
            got += len;
        }
        ASSERT_TRUE(got == len1 && p == p1);
        ASSERT_EQ(memcmp(one.data(), parts.data(), sizeof(E) * static_cast<size_t>(got)), 0);
    }
}

// Null pointers and lengths are the contract test's: here the factor, then
// the phase (factor 1 takes phase 0 only), nothing written; a phase at or
// beyond the length writes no sample and falls by srcLen.
TYPED_TEST(Sample, ChecksInOrderNothingWritten) {
    using E = TypeParam;
    std::vector<E> x(8), d(64);
    memset(static_cast<void*>(d.data()), 0x5A, d.size() * sizeof(E));
    const std::vector<E> d0(d);
    for (auto fn : {Fn<E>::up, Fn<E>::down}) {
        int len = 77, p = 0;
        EXPECT_EQ(fn(x.data(), 0, d.data(), &len, 0, &p), vrxErrBadLength);
        EXPECT_EQ(fn(x.data(), 8, d.data(), &len, 0, &p), vrxErrSampleFactor);
        for (auto [f, ph] : {std::pair{3, 3}, std::pair{3, -1}, std::pair{1, 1}}) {
            p = ph;
            EXPECT_EQ(fn(x.data(), 8, d.data(), &len, f, &p), vrxErrSamplePhase) << f << " " << ph;
            EXPECT_EQ(p, ph);
        }
        EXPECT_EQ(len, 77);
    }
    int len = 77, p = 6;
    EXPECT_EQ(Fn<E>::down(x.data(), 4, d.data(), &len, 8, &p), vrxOk);
    EXPECT_TRUE(len == 0 && p == 2);
    EXPECT_EQ(memcmp(d.data(), d0.data(), d.size() * sizeof(E)), 0);
}

}  // namespace

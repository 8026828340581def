// The shared references of the tests, checked against values known by
// hand: a wrong reference would pass a wrong library.
#include "vrx_test.h"

namespace {

TEST(Harness, ScaleRuleRoundsOnceTiesToEvenThenSaturates) {
    struct Row { long long r; int sf; long long want; };
    const Row rows[] = {
        {3, 1, 2}, {1, 1, 0}, {-1, 1, 0}, {-3, 1, -2}, {5, 1, 2}, {7, 1, 4},
        {6, 2, 2}, {10, 2, 2}, {-10, 2, -2}, {-6, 2, -2}, {11, 2, 3},
        {5, 0, 5}, {5, -3, 40}, {-5, -3, -40}, {0, -90, 0}, {1, 200, 0},
    };
    for (const Row& w : rows) EXPECT_EQ(static_cast<long long>(vt::scaleExact(w.r, w.sf)), w.want) << w.r << " sf " << w.sf;
    EXPECT_EQ(vt::scaled<Vrx16s>(65535, 1), 32767);     // 32767.5 to even is 32768, saturated
    EXPECT_EQ(vt::scaled<Vrx16s>(-65536, 1), -32768);   // exact bound
    EXPECT_EQ(vt::scaled<Vrx16s>(-65537, 1), -32768);
    EXPECT_EQ(vt::scaled<Vrx8u>(1, -200), 255);
    EXPECT_EQ(vt::scaled<Vrx8u>(-1, -200), 0);
    EXPECT_EQ(vt::scaled<Vrx64s>(vt::i128(1) << 70, 0), INT64_MAX);
}

TEST(Harness, BitsAndUlp) {
    EXPECT_FALSE(vt::sameBits(0.0, -0.0));
    EXPECT_TRUE(vt::sameBits(vt::bitsD(0x7FF8000000000001ull), vt::bitsD(0x7FF8000000000001ull)));
    EXPECT_EQ(vt::fBits(1.0f), 0x3F800000u);
    EXPECT_EQ(vt::bitsOf(-0.0f), 0x80000000u);
    EXPECT_EQ(vt::ulpErr<float>(1.0f + 0x1p-23f, 1.0L), 1.0);
    EXPECT_EQ(vt::ulpErr<double>(0x1p-1074, 0.0L), 1.0);   // subnormal binade
    EXPECT_EQ(vt::ulpErr<float>(INFINITY, 1e39L), 0.0);    // overflow on both sides
}

TEST(Harness, DftOfAnImpulseAndOfOneTone) {
    for (size_t n : {8u, 512u}) {
        std::vector<vt::CLD> x(n, 0), y(n, 0);
        x[1] = 1;
        y[3] = 1;
        auto X = vt::refDft(x, false);
        auto Y = vt::refDft(vt::refDft(y, true), false);  // back and forth is n times the input
        for (size_t k = 0; k < n; ++k) {
            long double a = -2 * 3.14159265358979323846264338327950288L * k / n;
            EXPECT_NEAR((double)X[k].real(), (double)cosl(a), 1e-15) << n << " " << k;
            EXPECT_NEAR((double)X[k].imag(), (double)sinl(a), 1e-15) << n << " " << k;
            EXPECT_NEAR((double)Y[k].real(), k == 3 ? (double)n : 0.0, 1e-12) << n << " " << k;
        }
    }
}

TEST(Harness, ShapesAndPieces) {
    EXPECT_EQ(vt::shapeLengths().size(), 76u);
    size_t count = 0;
    vt::forEachShape<Vrx64fc>([&](int, size_t off) { EXPECT_LT(off, 4u); ++count; });
    EXPECT_EQ(count, 76u * 4);
    vt::Rng rng(7);
    int sum = 0;
    for (int p : vt::randomPieces(rng, 4097)) {
        EXPECT_GE(p, 1);
        EXPECT_LE(p, 70);
        sum += p;
    }
    EXPECT_EQ(sum, 4097);
}

}  // namespace

// Random numbers: every output bit for bit against a model written here, in
// one call and in split calls, under the caller's rounding mode, state
// sizes and alignment, reinit, the identity check and untouched state on failure.
#include "vrx_test.h"

#include <math.h>

#include <limits>
#include <vector>

namespace {

// ------------------------------------------------------------------ model
// Subtract-with-borrow (modulo 2^32 - 18) plus a congruential word.
struct Model {
    uint32_t lcg = 0x436CBAE9u, a, b, c;
    int32_t borrow = -1;
    explicit Model(uint32_t seed) : a(seed) {
        b = a * 69069u + 0x3C6EF373u;
        c = b * 69069u + 0x3C6EF373u;
    }
    int32_t next() {
        const int32_t v = static_cast<int32_t>(b - c + static_cast<uint32_t>(borrow));
        borrow = v < 0 ? -1 : 0;
        c = b, b = a, a = static_cast<uint32_t>(v) - (v < 0 ? 18u : 0u);
        lcg = lcg * 69069u + 0x3C6EF373u;
        return static_cast<int32_t>(a + lcg);
    }
};

const uint32_t kSeeds[] = {0u, 1u, 0xFFFFFFFFu};

int cvtCur(double v) { return _mm_cvtsd_si32(_mm_set_sd(v)); }

// The output of y: floats rounded to nearest, integers converted in the
// caller's rounding mode, the normal deviates clamped to the range first.
template <class T> T out(double y, bool clamp) {
    if constexpr (std::is_floating_point_v<T>) return static_cast<T>(y);
    if (clamp) y = fmin(fmax(y, double(std::numeric_limits<T>::min())), double(std::numeric_limits<T>::max()));
    return static_cast<T>(cvtCur(y));
}

// The uniform stream of n values.
template <class T>
std::vector<T> modelUniform(uint32_t seed, T low, T high, int n) {
    Model m(seed);
    const double mid = (static_cast<double>(low) + static_cast<double>(high)) * 0.5;
    const double scale = (static_cast<double>(high) - static_cast<double>(low)) * 0x1p-32;
    std::vector<T> r(n);
    for (int i = 0; i < n; ++i) r[i] = out<T>(fma(static_cast<double>(m.next()), scale, mid), false);
    return r;
}

// The normal stream, calls of the given lengths one after another; a pair
// split across calls gives its second deviate as mean + sd (f q).
template <class T>
std::vector<T> modelGauss(uint32_t seed, T mean, T sd, const std::vector<int>& calls) {
    Model m(seed);
    const double mu = mean, s = sd;
    bool held = false;
    double f = 0, q = 0;
    std::vector<T> r;
    for (int len : calls)
        for (int i = 0; i < len; ++i) {
            if (held) {
                r.push_back(out<T>(fma(s, f * q, mu), true));
                held = false;
                continue;
            }
            double p, w;
            do {
                p = m.next() * 4.656612873077393e-10;
                q = m.next() * 4.656612873077393e-10;
                w = fma(q, q, p * p);
            } while (w >= 1.0 || w == 0.0);
            f = sqrt(-2.0 * log(w) / w);
            r.push_back(out<T>(fma(p * s, f, mu), true));
            if (++i < len) r.push_back(out<T>(fma(q * s, f, mu), true));
            else held = true;
        }
    return r;
}

// ------------------------------------------------------- per-type access
template <class T> struct Api;
#define RAND_API(T, t)                                                                                  \
    template <> struct Api<T> {                                                                         \
        static int uSize() { int s = 0; vrxsRandUniformGetSize_##t(&s); return s; }                     \
        static int gSize() { int s = 0; vrxsRandGaussGetSize_##t(&s); return s; }                       \
        static VrxStatus uInit(void* p, T l, T h, uint32_t s) {                                         \
            return vrxsRandUniformInit_##t(static_cast<VrxsRandUniformState*>(p), l, h, s); }           \
        static VrxStatus u(T* d, int n, void* p) { return vrxsRandUniform_##t(d, n, static_cast<VrxsRandUniformState*>(p)); } \
        static VrxStatus gInit(void* p, T m, T s, uint32_t seed) {                                      \
            return vrxsRandGaussInit_##t(static_cast<VrxsRandGaussState*>(p), m, s, seed); }            \
        static VrxStatus g(T* d, int n, void* p) { return vrxsRandGauss_##t(d, n, static_cast<VrxsRandGaussState*>(p)); } \
    };
RAND_API(uint8_t, 8u)
RAND_API(int16_t, 16s)
RAND_API(float, 32f)
RAND_API(double, 64f)
#undef RAND_API

// Calls of these lengths, 1000 elements in all: odd splits cross the
// vector groups and the held deviate.
const std::vector<int> kSplits = {1, 3, 17, 15, 1, 250, 129, 64, 5, 515};
const std::vector<int> kWhole = {1000};

template <class T>
std::vector<T> runCalls(bool gauss, void* st, const std::vector<int>& calls) {
    std::vector<T> r;
    for (int n : calls) {
        std::vector<T> d(n);
        EXPECT_EQ(gauss ? Api<T>::g(d.data(), n, st) : Api<T>::u(d.data(), n, st), vrxOk);
        r.insert(r.end(), d.begin(), d.end());
    }
    return r;
}

template <class T>
void expectSame(const std::vector<T>& got, const std::vector<T>& want, const char* what, uint32_t seed) {
    ASSERT_EQ(got.size(), want.size());
    for (size_t i = 0; i < got.size(); ++i)
        ASSERT_EQ(memcmp(&got[i], &want[i], sizeof(T)), 0) << what << " seed " << seed << " at " << i << ": " << +got[i] << " vs " << +want[i];
}

}  // namespace

TEST(RandSize, Figures) {
    EXPECT_EQ((std::vector<int>{Api<uint8_t>::uSize(), Api<int16_t>::uSize(), Api<float>::uSize(), Api<double>::uSize()}),
              (std::vector<int>{56, 56, 56, 64}));
    EXPECT_EQ((std::vector<int>{Api<uint8_t>::gSize(), Api<int16_t>::gSize(), Api<float>::gSize(), Api<double>::gSize()}),
              (std::vector<int>{64, 64, 72, 80}));
}

// Streams in which a difference d = b - c of the subtractive words is 0 or
// 0x80000000 while the borrow is set: there the borrow out is not the sign
// of d, the one case the fast uniform chain must redo exactly. The words
// (the uniform 64f output for low = -2^31, high = 2^31: scale 1, mid 0) are
// checked in one call and in calls that put the word at the start of a
// call, near a block's end and in a later block of a call.
TEST(RandWords, RareBorrowWords) {
    struct Row {
        uint32_t seed;
        int word;  // index of the first such word
    };
    const Row rows[] = {{24803u, 229009}, {7435u, 374423}};  // d == 0, d == 0x80000000
    for (const Row& r : rows) {
        const int n = r.word + 600;
        const std::vector<double> want = modelUniform<double>(r.seed, -2147483648.0, 2147483648.0, n);
        const std::vector<int> splits[] = {{n}, {r.word, n - r.word}, {r.word - 3, 5, n - r.word - 2},
                                           {r.word - 237, n - r.word + 237}, {r.word - 401, n - r.word + 401}};
        for (const auto& calls : splits) {
            vt::Buffer st(64);
            ASSERT_EQ(vrxsRandUniformInit_64f(st.as<VrxsRandUniformState>(), -2147483648.0, 2147483648.0, r.seed), vrxOk);
            expectSame(runCalls<double>(false, st.data(), calls), want, "rare borrow", r.seed);
        }
    }
}

// ---------------------------------------------------------------- streams
// Every seed in one call and in odd splits (the held deviate), each against
// the model, the state at several alignments; Init with the same seed
// restarts the sequence. Integer uniform outputs are converted in the
// caller's rounding mode (a different one per seed), which the call keeps.
template <class T>
void streamCase(bool gauss, T a, T b) {
    const unsigned modes[] = {vt::kRoundNear, vt::kRoundDown, vt::kRoundUp, vt::kRoundZero};
    for (uint32_t seed : kSeeds)
        for (const auto* calls : {&kWhole, &kSplits}) {
            vt::MxcsrScope scope;
            if (!gauss && !std::is_floating_point_v<T>) _mm_setcsr((_mm_getcsr() & ~0x6000u) | modes[(seed + (calls == &kSplits)) % 4]);
            const unsigned before = _mm_getcsr() & ~0x3Fu;
            vt::Buffer st(gauss ? Api<T>::gSize() : Api<T>::uSize(), seed % 13 + (calls == &kSplits) * 5);
            auto init = [&] { return gauss ? Api<T>::gInit(st.data(), a, b, seed) : Api<T>::uInit(st.data(), a, b, seed); };
            ASSERT_EQ(init(), vrxOk);
            const std::vector<T> want = gauss ? modelGauss<T>(seed, a, b, *calls) : modelUniform<T>(seed, a, b, 1000);
            expectSame(runCalls<T>(gauss, st.data(), *calls), want, gauss ? "gauss" : "uniform", seed);
            ASSERT_EQ(init(), vrxOk);
            expectSame(runCalls<T>(gauss, st.data(), {37}),
                       gauss ? modelGauss<T>(seed, a, b, {37}) : std::vector<T>(want.begin(), want.begin() + 37), "reinit", seed);
            EXPECT_EQ(_mm_getcsr() & ~0x3Fu, before);
            EXPECT_TRUE(st.guardsIntact());
        }
}

TEST(RandUniform, EveryTypeBitExact) {
    streamCase<uint8_t>(false, 0, 255);
    streamCase<uint8_t>(false, 200, 10);  // low above high: negative scale
    streamCase<int16_t>(false, -32768, 32767);
    streamCase<int16_t>(false, -5, 1000);
    streamCase<float>(false, -1.0f, 1.0f);
    streamCase<float>(false, 3.25f, 1e6f);
    streamCase<double>(false, -2147483648.0, 2147483648.0);  // the raw words
    streamCase<double>(false, -3e300, 1e-3);
    streamCase<float>(false, 2.5f, 2.5f);  // scale 0: the middle every time
}

// ------------------------------------------------------------------ Gauss
TEST(RandGauss, EveryTypeBitExactAndSplits) {
    streamCase<uint8_t>(true, 128, 30);
    streamCase<int16_t>(true, -100, 3000);
    streamCase<float>(true, 0.5f, 2.0f);
    streamCase<double>(true, -1.0, 0.25);
    // wide enough that many values clamp to the ends before conversion
    streamCase<uint8_t>(true, 128, 250);
    streamCase<int16_t>(true, 30000, 20000);
}

// The model itself draws normal deviates: mean and deviation of a long run.
TEST(RandGauss, Moments) {
    vt::Buffer st(80);
    ASSERT_EQ(vrxsRandGaussInit_64f(st.as<VrxsRandGaussState>(), 3.0, 2.0, 12345), vrxOk);
    const std::vector<double> d = runCalls<double>(true, st.data(), {200001});
    double m = 0, v = 0;
    for (double x : d) m += x / d.size();
    for (double x : d) v += (x - m) * (x - m) / d.size();
    EXPECT_NEAR(m, 3.0, 0.02);
    EXPECT_NEAR(sqrt(v), 2.0, 0.02);
}

// The length before the identity word; a state of the other kind or type
// is refused; nothing is written and the state is unchanged on failure.
TEST(RandChecks, IdentityAfterLengthNothingWritten) {
    vt::Buffer u(64), g(80);
    ASSERT_EQ(vrxsRandUniformInit_64f(u.as<VrxsRandUniformState>(), 0.0, 1.0, 1), vrxOk);
    ASSERT_EQ(vrxsRandGaussInit_64f(g.as<VrxsRandGaussState>(), 0.0, 1.0, 1), vrxOk);
    runCalls<double>(false, u.data(), {1});  // advance both once, so a spare is held in the Gauss state
    runCalls<double>(true, g.data(), {1});
    std::vector<uint8_t> us(u.data(), u.data() + 64), gs(g.data(), g.data() + 80);
    auto* U = u.as<VrxsRandUniformState>();
    auto* G = g.as<VrxsRandGaussState>();
    vt::Buffer dst(64 * 8);
    const VrxStatus got[] = {
        vrxsRandUniform_64f(dst.as<double>(), 0, reinterpret_cast<VrxsRandUniformState*>(G)),
        vrxsRandUniform_32f(dst.as<float>(), 8, U), vrxsRandUniform_16s(dst.as<int16_t>(), 8, U),
        vrxsRandUniform_8u(dst.as<uint8_t>(), 8, U),
        vrxsRandUniform_64f(dst.as<double>(), 8, reinterpret_cast<VrxsRandUniformState*>(G)),
        vrxsRandGauss_32f(dst.as<float>(), 8, G), vrxsRandGauss_16s(dst.as<int16_t>(), 8, G),
        vrxsRandGauss_8u(dst.as<uint8_t>(), 8, G),
        vrxsRandGauss_64f(dst.as<double>(), 8, reinterpret_cast<VrxsRandGaussState*>(U)),
    };
    EXPECT_EQ(got[0], vrxErrBadLength);
    for (size_t i = 1; i < sizeof got / sizeof got[0]; ++i) EXPECT_EQ(got[i], vrxErrBadSpec) << "case " << i;
    for (int i = 0; i < 64 * 8; ++i) ASSERT_EQ(dst.data()[i], vt::Buffer::kFill);
    EXPECT_EQ(memcmp(us.data(), u.data(), 64), 0);
    EXPECT_EQ(memcmp(gs.data(), g.data(), 80), 0);
    EXPECT_TRUE(dst.guardsIntact());
}

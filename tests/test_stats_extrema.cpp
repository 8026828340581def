// Extremes and their positions: every value and Indx form against a scalar
// reference over lengths 1..300 with duplicated extremes, the 16-bit forms
// across 4096-element blocks, the single-precision Indx paths (33/34 and
// misaligned sources), saturated magnitudes and the NaN rules of the
// element-wise forms.
#include <float.h>
#include <math.h>

#include <limits>

#include "vrx_test.h"

namespace {

// Data with many repeats: extremes occur at several positions, in
// different lanes and unrolled register sets.
template <class T>
std::vector<T> repeats(vt::Rng& rng, int n) {
    std::vector<T> v(n);
    for (auto& x : v) {
        if constexpr (std::is_floating_point_v<T>) x = static_cast<T>(rng.range(-6, 6)) * T(0.5);
        else if constexpr (std::is_signed_v<T>) x = static_cast<T>(rng.range(-6, 6));
        else x = static_cast<T>(rng.range(0, 9));
    }
    if (n > 8 && rng.range(0, 1)) {
        // the type's extremes, twice each
        v[rng.range(0, n - 1)] = std::numeric_limits<T>::lowest();
        v[rng.range(0, n - 1)] = std::numeric_limits<T>::lowest();
        v[rng.range(0, n - 1)] = std::numeric_limits<T>::max();
        v[rng.range(0, n - 1)] = std::numeric_limits<T>::max();
    }
    return v;
}

// Saturated magnitude as the library defines it.
template <class T> T satAbs(T x) {
    if constexpr (std::is_floating_point_v<T>) return std::fabs(x);
    else return x == std::numeric_limits<T>::lowest() ? std::numeric_limits<T>::max() : static_cast<T>(x < 0 ? -x : x);
}

template <class T, class Key>
int firstBest(const std::vector<T>& v, bool wantMax, Key key) {
    int k = 0;
    for (int i = 1; i < static_cast<int>(v.size()); ++i) {
        if (wantMax ? key(v[i]) > key(v[k]) : key(v[i]) < key(v[k])) k = i;
    }
    return k;
}

// One extreme: minimum or maximum, of the value or of its saturated
// magnitude, by the value form and (where there is one) the Indx form, whose
// index pointer is optional.
template <class T>
void checkExtreme(const char* name, bool wantMax, bool abs, VrxStatus (*val)(const T*, int, T*),
                  VrxStatus (*indx)(const T*, int, T*, int*)) {
    vt::Rng rng(7);
    auto key = [abs](T a) { return abs ? satAbs(a) : a; };
    for (int len = 1; len <= 300; ++len) {
        for (int rep = 0; rep < 3; ++rep) {
            auto x = repeats<T>(rng, len);
            const int k = firstBest(x, wantMax, key);
            T v{}, v2{}, v3{};
            int idx = -1;
            ASSERT_EQ(val(x.data(), len, &v), vrxOk) << name;
            ASSERT_EQ(v, key(x[k])) << name << " len " << len;
            if (!indx) continue;
            ASSERT_TRUE(indx(x.data(), len, &v2, &idx) == vrxOk && indx(x.data(), len, &v3, nullptr) == vrxOk) << name;
            ASSERT_TRUE(idx == k && v2 == v && v3 == v) << name << "Indx len " << len << ": index " << idx << " for " << k;
        }
    }
}

TEST(Extrema, ValueAndIndxFormsTakeTheFirstPosition) {
    checkExtreme<Vrx16s>("Min_16s", false, false, vrxsMin_16s, vrxsMinIndx_16s); checkExtreme<Vrx16s>("Max_16s", true, false, vrxsMax_16s, vrxsMaxIndx_16s);
    checkExtreme<Vrx32s>("Min_32s", false, false, vrxsMin_32s, vrxsMinIndx_32s); checkExtreme<Vrx32s>("Max_32s", true, false, vrxsMax_32s, vrxsMaxIndx_32s);
    checkExtreme<Vrx32f>("Min_32f", false, false, vrxsMin_32f, vrxsMinIndx_32f); checkExtreme<Vrx32f>("Max_32f", true, false, vrxsMax_32f, vrxsMaxIndx_32f);
    checkExtreme<Vrx64f>("Min_64f", false, false, vrxsMin_64f, vrxsMinIndx_64f); checkExtreme<Vrx64f>("Max_64f", true, false, vrxsMax_64f, vrxsMaxIndx_64f);
    checkExtreme<Vrx16s>("MinAbs_16s", false, true, vrxsMinAbs_16s, vrxsMinAbsIndx_16s); checkExtreme<Vrx16s>("MaxAbs_16s", true, true, vrxsMaxAbs_16s, vrxsMaxAbsIndx_16s);
    checkExtreme<Vrx32s>("MinAbs_32s", false, true, vrxsMinAbs_32s, vrxsMinAbsIndx_32s); checkExtreme<Vrx32s>("MaxAbs_32s", true, true, vrxsMaxAbs_32s, vrxsMaxAbsIndx_32s);
    checkExtreme<Vrx32f>("MinAbs_32f", false, true, vrxsMinAbs_32f, nullptr); checkExtreme<Vrx32f>("MaxAbs_32f", true, true, vrxsMaxAbs_32f, nullptr);
    checkExtreme<Vrx64f>("MinAbs_64f", false, true, vrxsMinAbs_64f, nullptr); checkExtreme<Vrx64f>("MaxAbs_64f", true, true, vrxsMaxAbs_64f, nullptr);
}

template <class T>
void checkMinMax(const char* name, VrxStatus (*mm)(const T*, int, T*, T*), VrxStatus (*mmi)(const T*, int, T*, int*, T*, int*)) {
    vt::Rng rng(13);
    auto id = [](T a) { return a; };
    for (int len = 1; len <= 300; ++len) {
        auto x = repeats<T>(rng, len);
        const int kn = firstBest(x, false, id), kx = firstBest(x, true, id);
        T a, b, c, d;
        int ia = -1, ib = -1;
        ASSERT_EQ(mm(x.data(), len, &a, &b), vrxOk);
        ASSERT_EQ(mmi(x.data(), len, &c, &ia, &d, &ib), vrxOk);
        ASSERT_TRUE(a == x[kn] && b == x[kx] && c == a && d == b) << name << " " << len;
        ASSERT_TRUE(ia == kn && ib == kx) << name << " " << len << ": " << ia << " " << ib;
    }
}

TEST(Extrema, MinMaxAndMinMaxIndx) {
    checkMinMax<Vrx8u>("8u", vrxsMinMax_8u, vrxsMinMaxIndx_8u);
    checkMinMax<Vrx16u>("16u", vrxsMinMax_16u, vrxsMinMaxIndx_16u);
    checkMinMax<Vrx16s>("16s", vrxsMinMax_16s, vrxsMinMaxIndx_16s);
    checkMinMax<Vrx32u>("32u", vrxsMinMax_32u, vrxsMinMaxIndx_32u);
    checkMinMax<Vrx32s>("32s", vrxsMinMax_32s, vrxsMinMaxIndx_32s);
    checkMinMax<Vrx32f>("32f", vrxsMinMax_32f, vrxsMinMaxIndx_32f);
    checkMinMax<Vrx64f>("64f", vrxsMinMax_64f, vrxsMinMaxIndx_64f);
}

// Equal extremes in different 4096-element blocks keep the first; a later
// block that strictly improves takes over; a saturated magnitude ties with
// the largest value and the first of them is taken.
TEST(Extrema, SixteenBitBlocksAndSaturatedTies) {
    const int len = 3 * 4096 + 77;
    std::vector<Vrx16s> x(len);
    for (int i = 0; i < len; ++i) x[i] = static_cast<Vrx16s>((i * 7) % 100 - 50);
    x[4100] = x[9000] = x[len - 3] = 900;  // blocks 1, 2 and the last
    x[5000] = x[12290] = -900;
    using F = VrxStatus (*)(const Vrx16s*, int, Vrx16s*, int*);
    struct Row { F f; int set, to; Vrx16s v; int k; };
    const Row rows[] = {
        {vrxsMaxIndx_16s, 0, 0, 900, 4100},           {vrxsMinIndx_16s, 0, 0, -900, 5000},
        {vrxsMaxAbsIndx_16s, 0, 0, 900, 4100},        {vrxsMaxIndx_16s, len - 2, 901, 901, len - 2},  // the short last block wins
        {vrxsMaxAbsIndx_16s, 3, -32768, 32767, 3},    {vrxsMaxAbsIndx_16s, 8000, 32767, 32767, 3},
    };
    for (const Row& r : rows) {
        if (r.set) x[r.set] = static_cast<Vrx16s>(r.to);
        Vrx16s v = 0;
        int k = -1;
        ASSERT_EQ(r.f(x.data(), len, &v, &k), vrxOk);
        EXPECT_EQ(v, r.v) << &r - rows;
        EXPECT_EQ(k, r.k) << &r - rows;
    }
    const Vrx16s t16[] = {-32768, 32767};
    const Vrx32s m32[] = {3, INT32_MIN, INT32_MAX};
    Vrx16s v;
    Vrx32s w;
    int k;
    EXPECT_TRUE(vrxsMinAbs_16s(t16, 1, &v) == vrxOk && v == 32767);
    EXPECT_TRUE(vrxsMinAbsIndx_16s(t16, 2, &v, &k) == vrxOk && v == 32767 && k == 0);
    EXPECT_TRUE(vrxsMaxAbs_32s(m32, 3, &w) == vrxOk && w == INT32_MAX);
    EXPECT_TRUE(vrxsMaxAbsIndx_32s(m32, 3, &w, &k) == vrxOk && w == INT32_MAX && k == 1);
    EXPECT_TRUE(vrxsMinAbs_32s(m32 + 1, 1, &w) == vrxOk && w == INT32_MAX);
}

// Lengths around the switch to float lane indices, sources at byte offsets
// 0..3 (1..3: the element-by-element path); a NaN first element is
// returned with index 0, a later NaN is passed over.
TEST(Extrema, SinglePrecisionIndxPaths) {
    vt::Rng rng(17);
    auto id = [](float a) { return a; };
    for (int len : {1, 15, 16, 17, 33, 34, 35, 64, 65, 200}) {
        for (size_t off = 0; off < 4; ++off) {
            for (int nan = 0; nan < (len == 33 ? 3 : 1); ++nan) {
                auto x = repeats<Vrx32f>(rng, len);
                if (nan) x[nan == 1 ? 0 : 5] = NAN;
                std::vector<float> y(x);
                if (nan == 2) y[5] = y[0];  // never the first extreme: passed over
                vt::Buffer b(len * sizeof(float), off);
                memcpy(b.data(), x.data(), len * sizeof(float));
                const Vrx32f* p = reinterpret_cast<const Vrx32f*>(b.data());
                for (bool mx : {true, false}) {
                    float v;
                    int k;
                    ASSERT_EQ((mx ? vrxsMaxIndx_32f : vrxsMinIndx_32f)(p, len, &v, &k), vrxOk);
                    const int want = nan == 1 ? 0 : firstBest(y, mx, id);
                    EXPECT_EQ(k, want) << len << " off " << off << " nan " << nan << " max " << mx;
                    EXPECT_TRUE(vt::sameBits(v, x[want])) << len << " off " << off << " nan " << nan << " max " << mx;
                }
            }
        }
    }
}

// ------------------------------------------------------------- Every forms
// The second operand is taken on NaN and on equal values (+0 / -0).
template <class T>
void checkEvery(const char* name, bool isMax, VrxStatus (*oop)(const T*, const T*, T*, int), VrxStatus (*inp)(const T*, T*, int)) {
    vt::Rng rng(19);
    for (int len = 1; len <= 70; ++len) {
        std::vector<T> a(len), b(len), want(len);
        rng.fill(a.data(), len * sizeof(T));
        rng.fill(b.data(), len * sizeof(T));
        if constexpr (std::is_floating_point_v<T>) {
            for (int i = 0; i < len; ++i) a[i] = static_cast<T>(rng.range(-4, 4)), b[i] = static_cast<T>(rng.range(-4, 4));
            if (len > 3) a[1] = NAN, b[2] = NAN, a[3] = T(0), b[3] = -T(0);
        }
        for (int i = 0; i < len; ++i) want[i] = isMax ? (a[i] > b[i] ? a[i] : b[i]) : (a[i] < b[i] ? a[i] : b[i]);
        vt::Buffer d(len * sizeof(T), (len % 4) * sizeof(T) % 64);
        if (oop) {
            ASSERT_EQ(oop(a.data(), b.data(), d.as<T>(), len), vrxOk) << name;
            ASSERT_TRUE(vt::sameBitsAll(vt::vec(d.as<T>(), len), want)) << name << " len " << len;
        }
        memcpy(d.data(), b.data(), len * sizeof(T));
        ASSERT_EQ(inp(a.data(), d.as<T>(), len), vrxOk) << name;
        ASSERT_TRUE(vt::sameBitsAll(vt::vec(d.as<T>(), len), want)) << name << "_I len " << len;
        ASSERT_TRUE(d.guardsIntact()) << name;
    }
}

TEST(Extrema, EveryForms) {
    checkEvery<Vrx8u>("MinEvery_8u", false, vrxsMinEvery_8u, vrxsMinEvery_8u_I); checkEvery<Vrx16u>("MinEvery_16u", false, vrxsMinEvery_16u, vrxsMinEvery_16u_I);
    checkEvery<Vrx16s>("MinEvery_16s", false, nullptr, vrxsMinEvery_16s_I); checkEvery<Vrx32s>("MinEvery_32s", false, nullptr, vrxsMinEvery_32s_I);
    checkEvery<Vrx32f>("MinEvery_32f", false, vrxsMinEvery_32f, vrxsMinEvery_32f_I); checkEvery<Vrx64f>("MinEvery_64f", false, vrxsMinEvery_64f, vrxsMinEvery_64f_I);
    checkEvery<Vrx8u>("MaxEvery_8u", true, vrxsMaxEvery_8u, vrxsMaxEvery_8u_I); checkEvery<Vrx16u>("MaxEvery_16u", true, vrxsMaxEvery_16u, vrxsMaxEvery_16u_I);
    checkEvery<Vrx16s>("MaxEvery_16s", true, nullptr, vrxsMaxEvery_16s_I); checkEvery<Vrx32s>("MaxEvery_32s", true, nullptr, vrxsMaxEvery_32s_I);
    checkEvery<Vrx32f>("MaxEvery_32f", true, vrxsMaxEvery_32f, vrxsMaxEvery_32f_I); checkEvery<Vrx64f>("MaxEvery_64f", true, vrxsMaxEvery_64f, vrxsMaxEvery_64f_I);

}

}  // namespace

// Sorting: every type and form against std::stable_sort on the total-order
// key (values bit for bit, index forms as the stable permutation), nothing
// written outside the vectors and the buffer, the buffer sizes and the
// selector checks of their queries.
#include <algorithm>
#include <cmath>
#include <limits>

#include "vrx_test.h"

namespace {

// The forms of one type: [0] ascending, [1] descending.
template <class T>
struct SortFns {
    VrxStatus (*plain[2])(T*, int);
    VrxStatus (*index[2])(T*, int*, int);
    VrxStatus (*radix[2])(T*, int, Vrx8u*);
    VrxStatus (*radixIndex[2])(const T*, int*, int, Vrx8u*);
    VrxDataType type;
};

#define SORT_FNS(t)                                                                       \
    {{vrxsSortAscend_##t##_I, vrxsSortDescend_##t##_I},                                   \
     {vrxsSortIndexAscend_##t##_I, vrxsSortIndexDescend_##t##_I},                         \
     {vrxsSortRadixAscend_##t##_I, vrxsSortRadixDescend_##t##_I},                         \
     {vrxsSortRadixIndexAscend_##t, vrxsSortRadixIndexDescend_##t}, vrx##t}
const SortFns<Vrx8u> kFns8u = SORT_FNS(8u);
const SortFns<Vrx16u> kFns16u = SORT_FNS(16u);
const SortFns<Vrx16s> kFns16s = SORT_FNS(16s);
const SortFns<Vrx32u> kFns32u = SORT_FNS(32u);
const SortFns<Vrx32s> kFns32s = SORT_FNS(32s);
const SortFns<Vrx32f> kFns32f = SORT_FNS(32f);
const SortFns<Vrx64f> kFns64f = SORT_FNS(64f);

// The unsigned integer of a type's width.
template <class T>
struct Bits {
    using U = std::conditional_t<sizeof(T) == 1, uint8_t,
              std::conditional_t<sizeof(T) == 2, uint16_t, std::conditional_t<sizeof(T) == 4, uint32_t, uint64_t>>>;
};

// The order key, written out per kind: a float's total order puts every
// negative pattern in reverse magnitude order below every positive one.
template <class T>
long double orderKey(T v) {
    if constexpr (std::is_floating_point_v<T>) {
        using U = typename Bits<T>::U;
        U b;
        memcpy(&b, &v, sizeof b);
        const U sign = U(1) << (sizeof(U) * 8 - 1);
        // magnitudes as integers: below 2^64, exact in long double
        return (b & sign) ? -1.0L - static_cast<long double>(b & ~sign) : static_cast<long double>(b);
    } else {
        return static_cast<long double>(v);
    }
}

template <class T>
std::vector<int> stablePerm(const std::vector<T>& v, bool desc) {
    std::vector<int> p(v.size());
    for (size_t i = 0; i < v.size(); ++i) p[i] = static_cast<int>(i);
    std::vector<long double> k(v.size());
    for (size_t i = 0; i < v.size(); ++i) k[i] = orderKey(v[i]);
    if (desc) std::stable_sort(p.begin(), p.end(), [&](int a, int b) { return k[b] < k[a]; });
    else std::stable_sort(p.begin(), p.end(), [&](int a, int b) { return k[a] < k[b]; });
    return p;
}

enum Kind { kRandom, kSorted, kReversed, kConstant, kSpecial, kFewValues, kNumKinds };
const char* kKindName[] = {"random", "sorted", "reversed", "constant", "special", "few values"};

template <class T>
T fromBits(uint64_t b) {
    T v;
    typename Bits<T>::U u = static_cast<typename Bits<T>::U>(b);
    memcpy(&v, &u, sizeof v);
    return v;
}

// The values that an order gets wrong first: both zeros, both infinities,
// NaNs of both signs and several payloads, denormals, the extremes.
template <class T>
std::vector<T> specials() {
    if constexpr (std::is_same_v<T, Vrx32f>) {
        std::vector<uint64_t> b = {0x00000000, 0x80000000, 0x7F800000, 0xFF800000, 0x7FC00000, 0xFFC00000, 0x7F800001,
                                   0xFF800001, 0x7FFFFFFF, 0xFFFFFFFF, 0x00000001, 0x80000001, 0x3F800000, 0xBF800000,
                                   0x7F7FFFFF, 0xFF7FFFFF, 0x00800000, 0x80800000};
        std::vector<T> v;
        for (auto x : b) v.push_back(fromBits<T>(x));
        return v;
    } else if constexpr (std::is_same_v<T, Vrx64f>) {
        std::vector<uint64_t> b = {0, 0x8000000000000000ull, 0x7FF0000000000000ull, 0xFFF0000000000000ull,
                                   0x7FF8000000000000ull, 0xFFF8000000000000ull, 0x7FF0000000000001ull,
                                   0xFFF0000000000001ull, 0x7FFFFFFFFFFFFFFFull, 0xFFFFFFFFFFFFFFFFull, 1,
                                   0x8000000000000001ull, 0x3FF0000000000000ull, 0xBFF0000000000000ull,
                                   0x7FEFFFFFFFFFFFFFull, 0xFFEFFFFFFFFFFFFFull};
        std::vector<T> v;
        for (auto x : b) v.push_back(fromBits<T>(x));
        return v;
    } else {
        using L = std::numeric_limits<T>;
        return {L::min(), static_cast<T>(L::min() + 1), 0, 1, static_cast<T>(-1), L::max(), static_cast<T>(L::max() - 1)};
    }
}

template <class T>
std::vector<T> makeData(Kind kind, int n, vt::Rng& rng) {
    std::vector<T> v(n);
    switch (kind) {
    case kRandom: rng.fill(v.data(), n * sizeof(T)); break;
    case kSorted:
    case kReversed: {
        rng.fill(v.data(), n * sizeof(T));
        auto p = stablePerm(v, kind == kReversed);
        std::vector<T> w(n);
        for (int i = 0; i < n; ++i) w[i] = v[p[i]];
        v = w;
        break;
    }
    case kConstant: {
        T c;
        rng.fill(&c, sizeof c);
        for (auto& x : v) x = c;
        break;
    }
    case kSpecial: {
        auto s = specials<T>();
        for (auto& x : v) x = s[rng.next() % s.size()];
        break;
    }
    case kFewValues: {
        T c[5];
        rng.fill(c, sizeof c);
        for (auto& x : v) x = c[rng.next() % 5];
        break;
    }
    default: break;
    }
    return v;
}

template <class T>
int bufferSize(VrxStatus (*query)(int, VrxDataType, int*), VrxDataType type, int n) {
    int size = -1;
    EXPECT_EQ(query(n, type, &size), vrxOk);
    EXPECT_EQ(size % 64, 0);
    return size;
}

// Runs all eight forms of one type on v and checks them against the stable
// reference: the same bits, the same permutation, the source of the index
// form untouched, nothing outside the vectors and buffers written.
template <class T>
void checkAllForms(const SortFns<T>& f, const std::vector<T>& v, const std::string& what) {
    const int n = static_cast<int>(v.size());
    const size_t bytes = n * sizeof(T);
    const size_t off = static_cast<size_t>(n % 3) * sizeof(T);  // misaligned too
    for (int d = 0; d < 2; ++d) {
        SCOPED_TRACE(what + (d ? " descending" : " ascending"));
        const auto perm = stablePerm(v, d == 1);
        std::vector<T> want(n);
        for (int i = 0; i < n; ++i) want[i] = v[perm[i]];

        vt::Buffer data(bytes, off), idx(n * sizeof(int), 4 * (n % 2));
        int radixSize = bufferSize<T>(vrxsSortRadixGetBufferSize, f.type, n);
        int indexSize = bufferSize<T>(vrxsSortRadixIndexGetBufferSize, f.type, n);
        vt::Buffer buf(radixSize, 8), ibuf(indexSize, 0);

        auto valuesOk = [&]() { return memcmp(data.data(), want.data(), bytes) == 0; };
        auto indexOk = [&]() { return memcmp(idx.data(), perm.data(), n * sizeof(int)) == 0; };

        memcpy(data.data(), v.data(), bytes);
        ASSERT_EQ(f.plain[d](data.as<T>(), n), vrxOk);
        ASSERT_TRUE(valuesOk()) << "Sort";

        memcpy(data.data(), v.data(), bytes);
        ASSERT_EQ(f.index[d](data.as<T>(), idx.as<int>(), n), vrxOk);
        ASSERT_TRUE(valuesOk()) << "SortIndex";
        ASSERT_TRUE(indexOk()) << "SortIndex";

        memcpy(data.data(), v.data(), bytes);
        ASSERT_EQ(f.radix[d](data.as<T>(), n, buf.data()), vrxOk);
        ASSERT_TRUE(valuesOk()) << "SortRadix";

        memcpy(data.data(), v.data(), bytes);
        memset(idx.data(), 0x5A, n * sizeof(int));
        ASSERT_EQ(f.radixIndex[d](data.as<T>(), idx.as<int>(), n, ibuf.data()), vrxOk);
        ASSERT_TRUE(indexOk()) << "SortRadixIndex";
        ASSERT_EQ(memcmp(data.data(), v.data(), bytes), 0) << "SortRadixIndex wrote its source";

        ASSERT_TRUE(data.guardsIntact() && idx.guardsIntact() && buf.guardsIntact() && ibuf.guardsIntact());
    }
}

template <class T>
void checkType(const SortFns<T>& f, uint64_t seed) {
    vt::Rng rng(seed);
    std::vector<int> lengths;
    for (int n = 1; n <= 70; ++n) lengths.push_back(n);
    for (int n : {95, 96, 97, 127, 128, 129, 200, 255, 256, 257, 511, 512, 513, 1000, 4095, 4096, 4097, 10000})
        lengths.push_back(n);
    for (int kind = 0; kind < kNumKinds; ++kind)
        for (int n : lengths) {
            auto v = makeData<T>(static_cast<Kind>(kind), n, rng);
            checkAllForms(f, v, std::string(kKindName[kind]) + " len " + std::to_string(n));
            if (::testing::Test::HasFatalFailure()) return;
        }
    for (Kind kind : {kRandom, kSpecial, kFewValues}) {
        auto v = makeData<T>(kind, 1 << 20, rng);
        checkAllForms(f, v, std::string(kKindName[kind]) + " len 1Mi");
        if (::testing::Test::HasFatalFailure()) return;
    }
}

TEST(Sort, AgainstStableSort_8u) { checkType(kFns8u, 11); }
TEST(Sort, AgainstStableSort_16u) { checkType(kFns16u, 12); }
TEST(Sort, AgainstStableSort_16s) { checkType(kFns16s, 13); }
TEST(Sort, AgainstStableSort_32u) { checkType(kFns32u, 14); }
TEST(Sort, AgainstStableSort_32s) { checkType(kFns32s, 15); }
TEST(Sort, AgainstStableSort_32f) { checkType(kFns32f, 16); }
TEST(Sort, AgainstStableSort_64f) { checkType(kFns64f, 17); }

TEST(Sort, BufferSizeFormulas) {
    auto r64 = [](long long x) { return (x + 63) / 64 * 64; };
    struct Row { VrxDataType type; int elem; };
    const Row rows[] = {{vrx8u, 1}, {vrx16u, 2}, {vrx16s, 2}, {vrx32u, 4}, {vrx32s, 4}, {vrx32f, 4}, {vrx64f, 8}};
    for (const Row& r : rows)
        for (int len : {1, 2, 15, 16, 17, 1000, 1 << 20, 100000007}) {
            long long plain, index;
            if (r.elem == 1) plain = index = 1024;
            else if (r.elem == 2) plain = index = 262144;
            else { plain = r64(1LL * r.elem * len) + 32768; index = plain + r64(4LL * len); }
            int got = -1;
            ASSERT_EQ(vrxsSortRadixGetBufferSize(len, r.type, &got), vrxOk);
            EXPECT_EQ(got, plain) << r.type << " " << len;
            ASSERT_EQ(vrxsSortRadixIndexGetBufferSize(len, r.type, &got), vrxOk);
            EXPECT_EQ(got, index) << r.type << " " << len;
        }
}

TEST(Sort, BufferSizeQueryStatuses) {
    for (auto q : {vrxsSortRadixGetBufferSize, vrxsSortRadixIndexGetBufferSize}) {
        int size = 12345;
        // null first, then the length, whatever the selector
        EXPECT_EQ(q(0, 99, nullptr), vrxErrNullPtr);
        EXPECT_EQ(q(0, 99, &size), vrxErrBadLength);
        // then the selector: the complex types and every unknown value
        for (int t : {0, 2, 3, 8, 10, 12, int(vrx32fc), 15, 18, int(vrx64fc), 21, -1})
            EXPECT_EQ(q(10, t, &size), vrxErrDataType) << t;
        EXPECT_EQ(size, 12345);
        // a size past INT_MAX is a bad length
        EXPECT_EQ(q(0x7FFFFFFF, vrx64f, &size), vrxErrBadLength);
        EXPECT_EQ(size, 12345);
    }
    EXPECT_EQ(vrx32u, 9);
    EXPECT_EQ(vrx32s, 11);
}

// The two float orders in one picture: -NaN, -inf, -0 and +0, +NaN each in
// their place, ascending and descending, with the index of each.
TEST(Sort, FloatTotalOrderSpelledOut) {
    const float nan = std::numeric_limits<float>::quiet_NaN(), inf = std::numeric_limits<float>::infinity();
    std::vector<float> v = {nan, -0.0f, 1.0f, -nan, 0.0f, -inf, inf, -1.0f};
    std::vector<float> a = v;
    std::vector<int> ix(v.size());
    ASSERT_EQ(vrxsSortIndexAscend_32f_I(a.data(), ix.data(), 8), vrxOk);
    EXPECT_EQ(ix, (std::vector<int>{3, 5, 7, 1, 4, 2, 6, 0}));
    EXPECT_TRUE(std::signbit(a[3]) && !std::signbit(a[4]) && a[3] == 0.0f && a[4] == 0.0f);
    std::vector<double> w = {0.0, -0.0, -std::nan(""), std::nan(""), -1e300, 1e-310};
    std::vector<int> jx(w.size());
    std::vector<Vrx8u> buf(100000);
    ASSERT_EQ(vrxsSortRadixIndexDescend_64f(w.data(), jx.data(), 6, buf.data()), vrxOk);
    EXPECT_EQ(jx, (std::vector<int>{3, 5, 0, 1, 4, 2}));
}

// A sequence that defeats median-of-three pivots still sorts (the depth
// limit hands over to the heap) and stays stable.
TEST(Sort, AdversarialOrganPipe) {
    const int n = 200000;
    std::vector<Vrx64f> v(n);
    for (int i = 0; i < n; ++i) v[i] = i < n / 2 ? i : n - i;
    auto perm = stablePerm(v, false);
    std::vector<Vrx64f> a = v;
    std::vector<int> ix(n);
    ASSERT_EQ(vrxsSortIndexAscend_64f_I(a.data(), ix.data(), n), vrxOk);
    ASSERT_EQ(ix, perm);
    a = v;
    ASSERT_EQ(vrxsSortAscend_64f_I(a.data(), n), vrxOk);
    for (int i = 0; i < n; ++i) ASSERT_EQ(a[i], v[perm[i]]);
}

}  // namespace

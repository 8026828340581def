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
template <class T> SortFns<T> kFns;
template <> constexpr SortFns<Vrx8u> kFns<Vrx8u> = SORT_FNS(8u);
template <> constexpr SortFns<Vrx16u> kFns<Vrx16u> = SORT_FNS(16u);
template <> constexpr SortFns<Vrx16s> kFns<Vrx16s> = SORT_FNS(16s);
template <> constexpr SortFns<Vrx32u> kFns<Vrx32u> = SORT_FNS(32u);
template <> constexpr SortFns<Vrx32s> kFns<Vrx32s> = SORT_FNS(32s);
template <> constexpr SortFns<Vrx32f> kFns<Vrx32f> = SORT_FNS(32f);
template <> constexpr SortFns<Vrx64f> kFns<Vrx64f> = SORT_FNS(64f);
#undef SORT_FNS

// The order key: a float's total order puts every negative pattern in
// reverse magnitude order below every positive one (magnitudes as integers,
// exact in long double).
template <class T> long double orderKey(T v) {
    if constexpr (!std::is_floating_point_v<T>) return static_cast<long double>(v);
    const uint64_t b = vt::bitsOf(v), sign = 1ull << (sizeof(T) * 8 - 1);
    return (b & sign) ? -1.0L - static_cast<long double>(b & ~sign) : static_cast<long double>(b);
}

template <class T> std::vector<int> stablePerm(const std::vector<T>& v, bool desc) {
    std::vector<int> p(v.size());
    std::vector<long double> k(v.size());
    for (size_t i = 0; i < v.size(); ++i) p[i] = static_cast<int>(i), k[i] = orderKey(v[i]);
    std::stable_sort(p.begin(), p.end(), [&](int a, int b) { return desc ? k[b] < k[a] : k[a] < k[b]; });
    return p;
}

template <class T> T fromBits(uint64_t b) { T v; memcpy(&v, &b, sizeof v); return v; }

// The values that an order gets wrong first: both zeros, both infinities,
// NaNs of both signs and several payloads, denormals, the extremes.
template <class T> std::vector<T> specials() {
    using L = std::numeric_limits<T>;
    if constexpr (!std::is_floating_point_v<T>)
        return {L::min(), static_cast<T>(L::min() + 1), 0, 1, static_cast<T>(-1), L::max(), static_cast<T>(L::max() - 1)};
    const uint64_t sign = 1ull << (sizeof(T) * 8 - 1), inf = vt::bitsOf(L::infinity()), quiet = inf | (inf >> 1 & ~inf);
    std::vector<T> v;
    for (uint64_t m : {uint64_t(0), inf, quiet, inf + 1, ~sign & (sign | (sign - 1)), uint64_t(1), vt::bitsOf(T(1)),
                       vt::bitsOf(L::max()), vt::bitsOf(L::min())})
        for (uint64_t s : {uint64_t(0), sign}) v.push_back(fromBits<T>(m | s));
    return v;
}

enum Kind { kRandom, kSorted, kReversed, kConstant, kSpecial, kFewValues, kNumKinds };
const char* kKindName[] = {"random", "sorted", "reversed", "constant", "special", "few values"};

template <class T> std::vector<T> makeData(Kind kind, int n, vt::Rng& rng) {
    std::vector<T> v(n), pool = kind == kSpecial ? specials<T>() : std::vector<T>(kind == kConstant ? 1 : 5);
    if (kind != kSpecial) rng.fill(pool.data(), pool.size() * sizeof(T));
    if (kind <= kReversed) rng.fill(v.data(), n * sizeof(T));
    else for (auto& x : v) x = pool[rng.next() % pool.size()];
    if (kind == kSorted || kind == kReversed) {
        const auto p = stablePerm(v, kind == kReversed);
        const std::vector<T> w(v);
        for (int i = 0; i < n; ++i) v[i] = w[p[i]];
    }
    return v;
}

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
    vt::Buffer data(bytes, static_cast<size_t>(n % 3) * sizeof(T)), idx(n * sizeof(int), 4 * (n % 2));
    vt::Buffer buf(bufferSize(vrxsSortRadixGetBufferSize, f.type, n), 8), ibuf(bufferSize(vrxsSortRadixIndexGetBufferSize, f.type, n));
    T* x = data.as<T>();
    int* ix = idx.as<int>();
    for (int d = 0; d < 2; ++d) {
        SCOPED_TRACE(what + (d ? " descending" : " ascending"));
        const auto perm = stablePerm(v, d == 1);
        std::vector<T> want(n);
        for (int i = 0; i < n; ++i) want[i] = v[perm[i]];
        for (int form = 0; form < 4; ++form) {
            memcpy(x, v.data(), bytes);
            memset(ix, 0x5A, n * sizeof(int));
            const VrxStatus st = form == 0 ? f.plain[d](x, n) : form == 1 ? f.index[d](x, ix, n)
                               : form == 2 ? f.radix[d](x, n, buf.data()) : f.radixIndex[d](x, ix, n, ibuf.data());
            ASSERT_EQ(st, vrxOk) << "form " << form;
            // the radix index form leaves its source as it was
            ASSERT_EQ(memcmp(x, form == 3 ? v.data() : want.data(), bytes), 0) << "values, form " << form;
            if (form & 1) { ASSERT_EQ(memcmp(ix, perm.data(), n * sizeof(int)), 0) << "index, form " << form; }
        }
        ASSERT_TRUE(data.guardsIntact() && idx.guardsIntact() && buf.guardsIntact() && ibuf.guardsIntact());
    }
}

template <class T> class SortForms : public ::testing::Test {};
using SortTypes = ::testing::Types<Vrx8u, Vrx16u, Vrx16s, Vrx32u, Vrx32s, Vrx32f, Vrx64f>;
TYPED_TEST_SUITE(SortForms, SortTypes);

// Every tail length, the edges of the radix passes (512) and of 4096, for
// every kind of data; one long random vector.
TYPED_TEST(SortForms, AgainstStableSort) {
    using T = TypeParam;
    vt::Rng rng(sizeof(T) * 7 + std::is_signed_v<T> + 2 * std::is_floating_point_v<T>);
    std::vector<int> lengths;
    for (int n = 1; n <= 70; ++n) lengths.push_back(n);
    lengths.insert(lengths.end(), {96, 127, 129, 255, 257, 511, 512, 513, 1000, 4095, 4097, 10000});
    for (int kind = 0; kind < kNumKinds; ++kind)
        for (int n : lengths) {
            checkAllForms(kFns<T>, makeData<T>(static_cast<Kind>(kind), n, rng), std::string(kKindName[kind]) + " len " + std::to_string(n));
            if (::testing::Test::HasFatalFailure()) return;
        }
    checkAllForms(kFns<T>, makeData<T>(kSpecial, 1 << 18, rng), "special len 256Ki");
    checkAllForms(kFns<T>, makeData<T>(kRandom, (1 << 20) + 3, rng), "random len 1Mi+3");
    // A sequence that defeats median-of-three pivots still sorts (the depth
    // limit hands over to the heap) and stays stable.
    if constexpr (sizeof(T) >= 4) {
        std::vector<T> organ(200000);
        for (int i = 0; i < 200000; ++i) organ[i] = static_cast<T>(i < 100000 ? i : 200000 - i);
        checkAllForms(kFns<T>, organ, "organ pipe");
    }
}

// Fixed counting tables for 8- and 16-bit keys; wider keys a copy of the
// data and 32 KiB of counts, the index forms the indices besides.
TYPED_TEST(SortForms, BufferSizes) {
    auto r64 = [](long long x) { return (x + 63) / 64 * 64; };
    constexpr long long e = sizeof(TypeParam);
    for (int len : {1, 2, 15, 16, 17, 1000, 1 << 20, 100000007}) {
        const long long plain = e == 1 ? 1024 : e == 2 ? 262144 : r64(e * len) + 32768, index = e <= 2 ? plain : plain + r64(4LL * len);
        int got[2] = {-1, -1};
        ASSERT_EQ(vrxsSortRadixGetBufferSize(len, kFns<TypeParam>.type, got), vrxOk);
        ASSERT_EQ(vrxsSortRadixIndexGetBufferSize(len, kFns<TypeParam>.type, got + 1), vrxOk);
        EXPECT_TRUE(got[0] == plain && got[1] == index) << len << ": " << got[0] << " " << got[1];
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

}  // namespace

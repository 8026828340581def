// DCT plans are read-only: four threads sharing one plan of each path, each
// with its own work buffer, give the bits of a single thread.
#include <thread>
#include <vector>

#include "test_dct_common.h"

namespace {

using dt::Api;
using dt::Plans;

template <class T> void sharedPlans() {
    using A = Api<T>;
    // kernel, FFT, direct, chirp (odd and even)
    for (int n : {8, 256, 35, 1001, 1000}) {
        Plans<T> p(n);
        ASSERT_EQ(p.status, vrxOk) << n;
        constexpr int kThreads = 4, kRounds = 20;
        std::vector<std::vector<T>> src(kThreads), want(kThreads), wantInv(kThreads);
        for (int t = 0; t < kThreads; ++t) {
            src[t] = dt::randomVec<T>(n, 100 * t + n);
            want[t].resize(n);
            wantInv[t].resize(n);
            ASSERT_EQ(A::fwd(src[t].data(), want[t].data(), p.f, p.fbuf()), vrxOk);
            ASSERT_EQ(A::inv(src[t].data(), wantInv[t].data(), p.i, p.ibuf()), vrxOk);
        }
        std::vector<int> bad(kThreads, 0);
        std::vector<std::thread> th;
        for (int t = 0; t < kThreads; ++t) {
            th.emplace_back([&, t] {
                std::vector<uint8_t> wf(p.work + 64), wi(p.work + 64);
                std::vector<T> y(n), z(n);
                for (int r = 0; r < kRounds; ++r) {
                    if (A::fwd(src[t].data(), y.data(), p.f, p.work ? wf.data() + (t * 8) % 64 : nullptr) != vrxOk) ++bad[t];
                    if (A::inv(src[t].data(), z.data(), p.i, p.work ? wi.data() + (t * 4) % 64 : nullptr) != vrxOk) ++bad[t];
                    if (memcmp(y.data(), want[t].data(), sizeof(T) * n) != 0) ++bad[t];
                    if (memcmp(z.data(), wantInv[t].data(), sizeof(T) * n) != 0) ++bad[t];
                }
            });
        }
        for (auto& x : th) x.join();
        for (int t = 0; t < kThreads; ++t) EXPECT_EQ(bad[t], 0) << "length " << n << " thread " << t;
    }
}

TEST(DctThreads, SharedPlansGiveSingleThreadBits32f) { sharedPlans<float>(); }
TEST(DctThreads, SharedPlansGiveSingleThreadBits64f) { sharedPlans<double>(); }

}  // namespace

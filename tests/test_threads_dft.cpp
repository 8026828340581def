// Four threads sharing one read-only plan of each kind (DFT on every path,
// Hilbert), each with its own work buffer, give the single-thread bits.
#include <gtest/gtest.h>

#include <string.h>

#include <functional>
#include <thread>

#include "test_dft_common.h"

using namespace dt;

namespace {

// Runs f(buf, out) once alone, then in 4 threads x rounds, and compares bits.
void sameBits(int bufSize, size_t outBytes, const std::function<void(Vrx8u*, uint8_t*)>& f) {
    std::vector<uint8_t> ref(outBytes, 0x5A);
    {
        std::vector<Vrx8u> buf(bufSize + 64);
        f(buf.data(), ref.data());
    }
    bool ok[4] = {true, true, true, true};
    std::vector<std::thread> th;
    for (int t = 0; t < 4; ++t)
        th.emplace_back([&, t] {
            std::vector<Vrx8u> buf(bufSize + 64 + t);
            std::vector<uint8_t> out(outBytes);
            for (int r = 0; r < 20; ++r) {
                memset(out.data(), 0x5A, outBytes);
                f(buf.data() + t, out.data());
                if (memcmp(out.data(), ref.data(), outBytes) != 0) ok[t] = false;
            }
        });
    for (auto& x : th) x.join();
    for (int t = 0; t < 4; ++t) EXPECT_TRUE(ok[t]) << "thread " << t;
}

template <class T> void dftKinds(int N) {
    using A = Api<T>;
    SCOPED_TRACE(testing::Message() << "N=" << N << " T=" << sizeof(T));
    const auto x = ft::randomSignal(N, 9 + N);
    std::vector<T> in(2 * N + 2);
    for (int i = 0; i < N; ++i) { in[2 * i] = static_cast<T>(x[i].real()); in[2 * i + 1] = static_cast<T>(x[i].imag()); }
    auto pc = makePlan<T>(K::C, N, 4), ps = makePlan<T>(K::S, N, 1), pr = makePlan<T>(K::R, N, 2);
    ASSERT_EQ(pc->st, vrxOk);
    const size_t cb = 2 * N * sizeof(T);
    sameBits(pc->workSize, 2 * cb, [&](Vrx8u* buf, uint8_t* out) {
        auto* o = reinterpret_cast<typename A::C*>(out);
        auto* plan = reinterpret_cast<const typename A::PC*>(pc->p());
        EXPECT_EQ(A::fwdC(reinterpret_cast<const typename A::C*>(in.data()), o, plan, buf), vrxOk);
        EXPECT_EQ(A::invC(o, o + N, plan, buf), vrxOk);
    });
    sameBits(ps->workSize, cb, [&](Vrx8u* buf, uint8_t* out) {
        T* o = reinterpret_cast<T*>(out);
        EXPECT_EQ(A::fwdS(in.data(), in.data() + N, o, o + N, reinterpret_cast<const typename A::PS*>(ps->p()), buf), vrxOk);
    });
    sameBits(pr->workSize, (3 * N + 2) * sizeof(T), [&](Vrx8u* buf, uint8_t* out) {
        T* o = reinterpret_cast<T*>(out);
        auto* plan = reinterpret_cast<const typename A::PR*>(pr->p());
        EXPECT_EQ(A::fwdCCS(in.data(), o, plan, buf), vrxOk);
        EXPECT_EQ(A::invCCS(o, o + N + 2, plan, buf), vrxOk);
    });
}

TEST(DftThreads, SharedPlansGiveSingleThreadBits) {
    for (int N : {12, 17, 53, 97, 100, 1001, 1024, 4095}) {
        dftKinds<float>(N);
        dftKinds<double>(N);
    }
}

TEST(DftThreads, SharedHilbertPlan) {
    for (int N : {7, 100, 1024, 4095}) {
        int s, b;
        ASSERT_EQ(vrxsHilbertGetSize_32f32fc(N, 0, &s, &b), vrxOk);
        std::vector<Vrx8u> spec(s), ib(b);
        auto* plan = reinterpret_cast<VrxsHilbertPlan*>(spec.data());
        ASSERT_EQ(vrxsHilbertInit_32f32fc(N, 0, plan, ib.data()), vrxOk);
        const auto x = ft::randomSignal(N, 4);
        std::vector<float> in(N);
        for (int i = 0; i < N; ++i) in[i] = static_cast<float>(x[i].real());
        sameBits(b, N * sizeof(Vrx32fc), [&](Vrx8u* buf, uint8_t* out) {
            EXPECT_EQ(vrxsHilbert_32f32fc(in.data(), reinterpret_cast<Vrx32fc*>(out), plan, buf), vrxOk);
        });
    }
}

}  // namespace

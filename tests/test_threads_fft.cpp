// FFT plans shared by threads: four threads run every transform of one
// plan of each kind at the same time, each on its own signal with its own
// work buffer, and must get the bits a single thread gets for that signal.
// The plan is read-only while it transforms: its memory is the same before
// and after.
#include <atomic>
#include <cstdio>
#include <cstring>
#include <latch>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "test_fft_common.h"

namespace {

constexpr int kThreads = 4;
std::atomic<long> g_calls{0};  // transforms run by the threads, for the log

// A plan in its own memory and its transforms; at large orders the
// out-of-place forward and inverse pair only (CCS for real plans).
struct Shared {
    std::vector<ft::Entry> ops;
    const void* plan = nullptr;
    std::unique_ptr<ft::PlanMem> mem = std::make_unique<ft::PlanMem>();
    int workSize() const { return mem->workSize; }
};

template <class T>
Shared sharedPlan(int kind, int order, int flag, bool all) {
    using A = ft::Api<T>;
    Shared s;
    s.plan = kind == 0 ? static_cast<const void*>(ft::makePlan(A::kc(), order, flag, *s.mem))
           : kind == 1 ? static_cast<const void*>(ft::makePlan(A::ks(), order, flag, *s.mem))
                       : static_cast<const void*>(ft::makePlan(A::kr(), order, flag, *s.mem));
    EXPECT_NE(s.plan, nullptr);
    for (auto& e : ft::entriesOf<T>(order))
        if (e.kind == kind && (all || (!e.inPlace && e.form == ft::kCCS))) s.ops.push_back(e);
    return s;
}

// One op on the thread's input: an in-place entry transforms a copy of its
// input in the output buffer.
VrxStatus runOp(const Shared& s, const ft::Entry& op, const uint8_t* in, uint8_t* out, uint8_t* work) {
    if (op.inPlace) memcpy(out, in, op.inBytes);
    return op.run(s.plan, in, out, s.workSize() ? work : nullptr);
}

// Signal bytes of one thread: values in [-1, 1) of the element type.
template <class T>
std::vector<uint8_t> signal(size_t bytes, uint64_t seed) {
    vt::Rng rng(seed);
    std::vector<uint8_t> v(bytes);
    for (size_t k = 0; k + sizeof(T) <= bytes; k += sizeof(T)) {
        T x = static_cast<T>(rng.uniform() * 2 - 1);
        memcpy(v.data() + k, &x, sizeof(T));
    }
    return v;
}

// Single-thread bits of every op for every thread's signal, then the four
// threads together, each running all ops starting at a different one, reps
// times over.
template <class T>
void runShared(const Shared& s, const char* kind, int order, int reps) {
    SCOPED_TRACE(std::string(kind) + " order " + std::to_string(order));
    ASSERT_FALSE(s.ops.empty());
    const size_t nOps = s.ops.size();
    std::vector<std::vector<uint8_t>> in(kThreads * nOps), want(kThreads * nOps);
    std::vector<uint8_t> work(static_cast<size_t>(s.workSize()) + 64);
    for (int t = 0; t < kThreads; ++t) {
        for (size_t k = 0; k < nOps; ++k) {
            const ft::Entry& op = s.ops[k];
            auto& x = in[t * nOps + k];
            x = signal<T>(op.inBytes, 1000u * order + 10u * t + k);
            want[t * nOps + k].assign(op.outBytes, 0);
            ASSERT_EQ(runOp(s, op, x.data(), want[t * nOps + k].data(), work.data()), vrxOk) << op.name;
        }
    }
    const std::vector<uint8_t> planBefore(s.mem->spec->data(), s.mem->spec->data() + s.mem->specSize);

    std::vector<std::string> faults(kThreads);
    std::latch start(kThreads);
    std::vector<std::thread> pool;
    for (int t = 0; t < kThreads; ++t) {
        pool.emplace_back([&, t] {
            std::vector<uint8_t> myWork(static_cast<size_t>(s.workSize()) + 64), out;
            start.arrive_and_wait();
            for (int r = 0; r < reps; ++r) {
                for (size_t j = 0; j < nOps; ++j) {
                    const size_t k = (j + t) % nOps;
                    const ft::Entry& op = s.ops[k];
                    out.assign(op.outBytes, 0xA5);
                    VrxStatus st = runOp(s, op, in[t * nOps + k].data(), out.data(), myWork.data());
                    g_calls.fetch_add(1, std::memory_order_relaxed);
                    if (st != vrxOk || out != want[t * nOps + k]) {
                        faults[t] = op.name + " differs in thread " + std::to_string(t);
                        return;
                    }
                }
            }
        });
    }
    for (auto& th : pool) th.join();
    for (const auto& f : faults) EXPECT_TRUE(f.empty()) << f;
    EXPECT_TRUE(memcmp(planBefore.data(), s.mem->spec->data(), planBefore.size()) == 0) << "the plan was written";
    EXPECT_TRUE(s.mem->spec->guardsIntact());
}

// Every entry at the small orders, the out-of-place pair at the large ones.
// A sanitizer build repeats less and runs the pair alone from order 17 on,
// which keeps the thread sanitizer's run to about a minute.
struct OrderCase { int order, reps; bool all; };
#ifdef VRX_SANITIZED
const OrderCase kOrders[] = {{6, 2, true}, {12, 1, true}, {17, 1, false}, {20, 1, false}};
#else
const OrderCase kOrders[] = {{6, 8, true}, {12, 4, true}, {17, 1, true}, {20, 1, false}};
#endif

template <class T>
void allKinds(const char* width) {
    for (const auto& c : kOrders) {
        runShared<T>(sharedPlan<T>(0, c.order, vrxFftScaleInv, c.all), (std::string("C interleaved ") + width).c_str(), c.order, c.reps);
        runShared<T>(sharedPlan<T>(1, c.order, vrxFftScaleSqrt, c.all), (std::string("C split ") + width).c_str(), c.order, c.reps);
        runShared<T>(sharedPlan<T>(2, c.order, vrxFftScaleFwd, c.all), (std::string("R ") + width).c_str(), c.order, c.reps);
    }
}

TEST(ThreadsFft, SharedPlans32) {
    allKinds<float>("32f");
    std::printf("[ threads  ] %ld transforms run by the threads so far\n", g_calls.load());
}
TEST(ThreadsFft, SharedPlans64) {
    allKinds<double>("64f");
    std::printf("[ threads  ] %ld transforms run by the threads so far\n", g_calls.load());
}

}  // namespace

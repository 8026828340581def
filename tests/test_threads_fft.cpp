// FFT plans shared by threads: four threads run every transform of one
// plan of each kind at the same time, each on its own signal with its own
// work buffer, and must get the bits a single thread gets for that signal.
// The plan is read-only while it transforms: its memory is the same before
// and after.
#include <atomic>
#include <cstdio>
#include <cstring>
#include <functional>
#include <latch>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "test_fft_common.h"

namespace {

constexpr int kThreads = 4;
std::atomic<long> g_calls{0};  // transforms run by the threads, for the log

// One transform of a plan: bytes in, bytes out, the caller's work buffer.
// An in-place entry transforms a copy of its input in the output buffer.
struct Op {
    std::string name;
    size_t inBytes, outBytes;
    std::function<VrxStatus(const uint8_t*, uint8_t*, uint8_t*)> run;
};

// A plan in its own memory, the sizes of its buffers and its transforms.
struct Shared {
    std::vector<Op> ops;
    std::unique_ptr<ft::PlanMem> mem = std::make_unique<ft::PlanMem>();
    int workSize() const { return mem->workSize; }
};

template <class T> T* as(uint8_t* p) { return reinterpret_cast<T*>(p); }
template <class T> const T* as(const uint8_t* p) { return reinterpret_cast<const T*>(p); }

// The transforms of each kind; at large orders the out-of-place pair only.
template <class T>
Shared interleaved(int order, int flag, bool all) {
    using A = ft::Api<T>;
    using C = typename A::C;
    Shared s;
    auto* plan = ft::makePlan(A::kc(), order, flag, *s.mem);
    EXPECT_NE(plan, nullptr);
    const size_t b = (size_t(1) << order) * sizeof(C);
    s.ops.push_back({"fwd", b, b, [=](const uint8_t* i, uint8_t* o, uint8_t* w) { return A::fwdC(as<C>(i), as<C>(o), plan, w); }});
    s.ops.push_back({"inv", b, b, [=](const uint8_t* i, uint8_t* o, uint8_t* w) { return A::invC(as<C>(i), as<C>(o), plan, w); }});
    if (all) {
        s.ops.push_back({"fwd_I", b, b, [=](const uint8_t* i, uint8_t* o, uint8_t* w) { memcpy(o, i, b); return A::fwdCI(as<C>(o), plan, w); }});
        s.ops.push_back({"inv_I", b, b, [=](const uint8_t* i, uint8_t* o, uint8_t* w) { memcpy(o, i, b); return A::invCI(as<C>(o), plan, w); }});
    }
    return s;
}

template <class T>
Shared split(int order, int flag, bool all) {
    using A = ft::Api<T>;
    Shared s;
    auto* plan = ft::makePlan(A::ks(), order, flag, *s.mem);
    EXPECT_NE(plan, nullptr);
    const size_t n = size_t(1) << order, b = 2 * n * sizeof(T);
    // real parts in the first half of a buffer, imaginary parts in the second
    s.ops.push_back({"fwd", b, b, [=](const uint8_t* i, uint8_t* o, uint8_t* w) {
        return A::fwdS(as<T>(i), as<T>(i) + n, as<T>(o), as<T>(o) + n, plan, w); }});
    s.ops.push_back({"inv", b, b, [=](const uint8_t* i, uint8_t* o, uint8_t* w) {
        return A::invS(as<T>(i), as<T>(i) + n, as<T>(o), as<T>(o) + n, plan, w); }});
    if (all) {
        s.ops.push_back({"fwd_I", b, b, [=](const uint8_t* i, uint8_t* o, uint8_t* w) {
            memcpy(o, i, b); return A::fwdSI(as<T>(o), as<T>(o) + n, plan, w); }});
        s.ops.push_back({"inv_I", b, b, [=](const uint8_t* i, uint8_t* o, uint8_t* w) {
            memcpy(o, i, b); return A::invSI(as<T>(o), as<T>(o) + n, plan, w); }});
    }
    return s;
}

template <class T>
Shared real(int order, int flag, bool all) {
    using A = ft::Api<T>;
    Shared s;
    auto* plan = ft::makePlan(A::kr(), order, flag, *s.mem);
    EXPECT_NE(plan, nullptr);
    const size_t n = size_t(1) << order, b = n * sizeof(T), ccs = (n + 2) * sizeof(T);
    using Out = VrxStatus (*)(const T*, T*, const typename A::PR*, Vrx8u*);
    using InPlace = VrxStatus (*)(T*, const typename A::PR*, Vrx8u*);
    auto add = [&](const char* name, size_t in, size_t out, Out f) {
        s.ops.push_back({name, in, out, [=](const uint8_t* i, uint8_t* o, uint8_t* w) { return f(as<T>(i), as<T>(o), plan, w); }});
    };
    auto addI = [&](const char* name, size_t in, size_t out, InPlace f) {
        s.ops.push_back({name, in, out, [=](const uint8_t* i, uint8_t* o, uint8_t* w) { memcpy(o, i, in); return f(as<T>(o), plan, w); }});
    };
    add("fwdCCS", b, ccs, A::fwdCCS);
    add("invCCS", ccs, b, A::invCCS);
    if (all) {
        add("fwdPack", b, b, A::fwdPack);
        add("fwdPerm", b, b, A::fwdPerm);
        add("invPack", b, b, A::invPack);
        add("invPerm", b, b, A::invPerm);
        addI("fwdCCS_I", b, ccs, A::fwdCCSI);
        addI("fwdPack_I", b, b, A::fwdPackI);
        addI("fwdPerm_I", b, b, A::fwdPermI);
        addI("invCCS_I", ccs, ccs, A::invCCSI);
        addI("invPack_I", b, b, A::invPackI);
        addI("invPerm_I", b, b, A::invPermI);
    }
    return s;
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
void runShared(Shared s, const char* kind, int order, int reps) {
    SCOPED_TRACE(std::string(kind) + " order " + std::to_string(order));
    ASSERT_FALSE(s.ops.empty());
    const size_t nOps = s.ops.size();
    std::vector<std::vector<uint8_t>> in(kThreads * nOps), want(kThreads * nOps);
    std::vector<uint8_t> work(static_cast<size_t>(s.workSize()) + 64);
    for (int t = 0; t < kThreads; ++t) {
        for (size_t k = 0; k < nOps; ++k) {
            const Op& op = s.ops[k];
            auto& x = in[t * nOps + k];
            x = signal<T>(op.inBytes, 1000u * order + 10u * t + k);
            want[t * nOps + k].assign(op.outBytes, 0);
            ASSERT_EQ(op.run(x.data(), want[t * nOps + k].data(), s.workSize() ? work.data() : nullptr), vrxOk) << op.name;
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
                    const Op& op = s.ops[k];
                    out.assign(op.outBytes, 0xA5);
                    VrxStatus st = op.run(in[t * nOps + k].data(), out.data(), s.workSize() ? myWork.data() : nullptr);
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
        runShared<T>(interleaved<T>(c.order, vrxFftScaleInv, c.all), (std::string("C interleaved ") + width).c_str(), c.order, c.reps);
        runShared<T>(split<T>(c.order, vrxFftScaleSqrt, c.all), (std::string("C split ") + width).c_str(), c.order, c.reps);
        runShared<T>(real<T>(c.order, vrxFftScaleFwd, c.all), (std::string("R ") + width).c_str(), c.order, c.reps);
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

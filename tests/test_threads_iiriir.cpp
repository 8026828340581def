// Zero-phase IIR states and IIR designs under threads: four threads each
// run their own states of every kind (a state is written by every run) and
// make designs, at once; every result must carry the bits of one thread
// running alone.
#include <thread>

#include "vrx_test.h"

namespace {

struct Job {
    int kind;  // 0 _32f, 1 64f_32f, 2 _64f
    int order;
    int len;
    std::vector<double> taps;
    std::vector<double> x;
};

// One fresh state, one run; the output as bytes.
std::vector<uint8_t> filter(const Job& j) {
    int size = 0;
    if (j.kind == 0) vrxsIIRIIRGetStateSize_32f(j.order, &size);
    else if (j.kind == 1) vrxsIIRIIRGetStateSize64f_32f(j.order, &size);
    else vrxsIIRIIRGetStateSize_64f(j.order, &size);
    std::vector<Vrx8u> buf(size);
    if (j.kind == 2) {
        VrxsIirIirState_64f* s = nullptr;
        std::vector<double> y(j.len);
        if (vrxsIIRIIRInit_64f(&s, j.taps.data(), j.order, buf.data()) != vrxOk) return {};
        if (vrxsIIRIIR_64f(j.x.data(), y.data(), j.len, s) != vrxOk) return {};
        const uint8_t* p = reinterpret_cast<const uint8_t*>(y.data());
        return std::vector<uint8_t>(p, p + y.size() * sizeof(double));
    }
    std::vector<float> x(j.x.begin(), j.x.end()), y(j.len);
    VrxStatus st;
    if (j.kind == 0) {
        std::vector<float> t(j.taps.begin(), j.taps.end());
        VrxsIirIirState_32f* s = nullptr;
        st = vrxsIIRIIRInit_32f(&s, t.data(), j.order, buf.data());
        if (st == vrxOk) st = vrxsIIRIIR_32f_I(x.data(), j.len, s);
        y = x;
    } else {
        VrxsIirIirState64f_32f* s = nullptr;
        st = vrxsIIRIIRInit64f_32f(&s, j.taps.data(), j.order, buf.data());
        if (st == vrxOk) st = vrxsIIRIIR64f_32f(x.data(), y.data(), j.len, s);
    }
    if (st != vrxOk) return {};
    const uint8_t* p = reinterpret_cast<const uint8_t*>(y.data());
    return std::vector<uint8_t>(p, p + y.size() * sizeof(float));
}

std::vector<double> design(int i) {
    const int order = 1 + i % 12;
    std::vector<double> t(2 * (2 * order + 1), 0.0);
    const VrxIirGenType type = i % 2 ? vrxIirGenChebyshev1 : vrxIirGenButterworth;
    if (i % 4 == 0) vrxsIIRGenLowpass_64f(0.05 + 0.01 * i, 0.5, order, t.data(), type);
    else if (i % 4 == 1) vrxsIIRGenHighpass_64f(0.05 + 0.01 * i, 0.5, order, t.data(), type);
    else if (i % 4 == 2) vrxsIIRGenBandpass_64f(0.1, 0.1 + 0.01 * i, 1.0, order, t.data(), type);
    else vrxsIIRGenBandstop_64f(0.05, 0.3, 2.0, order, t.data(), type);
    return t;
}

TEST(IirIirThreads, PerThreadStatesAndDesignsAreIndependent) {
    vt::Rng g(33);
    std::vector<Job> jobs;
    for (int kind = 0; kind < 3; ++kind)
        for (int order : {2, 5, 9}) {
            Job j{kind, order, 2500 + 37 * order, std::vector<double>(2 * order + 2), {}};
            vrxsIIRGenLowpass_64f(0.05 * order, 1.0, order, j.taps.data(), vrxIirGenChebyshev1);
            j.x.resize(j.len);
            for (double& v : j.x) v = static_cast<float>(g.uniform() * 2 - 1);
            jobs.push_back(j);
        }
    constexpr int kDesigns = 24;
    std::vector<std::vector<uint8_t>> want(jobs.size());
    std::vector<std::vector<double>> wantDesign(kDesigns);
    for (size_t i = 0; i < jobs.size(); ++i) want[i] = filter(jobs[i]);
    for (int i = 0; i < kDesigns; ++i) wantDesign[i] = design(i);

    constexpr int kThreads = 4;
    std::vector<std::vector<std::vector<uint8_t>>> got(kThreads, std::vector<std::vector<uint8_t>>(jobs.size()));
    std::vector<std::vector<std::vector<double>>> gotDesign(kThreads, std::vector<std::vector<double>>(kDesigns));
    std::vector<std::thread> th;
    for (int t = 0; t < kThreads; ++t) {
        th.emplace_back([&, t] {
            for (int rep = 0; rep < 2; ++rep) {
                for (size_t i = 0; i < jobs.size(); ++i) {
                    const size_t idx = (i + t * 5) % jobs.size();
                    got[t][idx] = filter(jobs[idx]);
                    const int d = static_cast<int>((i + t * 3) % kDesigns);
                    gotDesign[t][d] = design(d);
                }
                for (int d = 0; d < kDesigns; ++d) gotDesign[t][d] = design(d);
            }
        });
    }
    for (auto& x : th) x.join();
    for (int t = 0; t < kThreads; ++t) {
        for (size_t i = 0; i < jobs.size(); ++i) {
            ASSERT_FALSE(want[i].empty());
            EXPECT_EQ(got[t][i], want[i]) << "thread " << t << " job " << i;
        }
        for (int d = 0; d < kDesigns; ++d)
            for (size_t k = 0; k < wantDesign[d].size(); ++k)
                ASSERT_EQ(vt::dBits(gotDesign[t][d][k]), vt::dBits(wantDesign[d][k])) << "thread " << t << " design " << d;
    }
}

}  // namespace

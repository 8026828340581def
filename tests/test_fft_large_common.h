// The large-path tests' harness: one transform through any layout,
// placement and alignment, with the source checked untouched.
#pragma once

#include <string.h>

#include "test_fft_common.h"

namespace ft {

// ------------------------------------------------------------ placement

// Where the result goes: over the source, to separate arrays, or (split
// data) the real parts over their source and the imaginary parts apart.
enum class Place { InPlace, OutOfPlace, ReInPlace };

// One transform of x (n complex values, re and im alternating) through the
// entry of the layout and placement, data at the byte offset off from a
// 64-byte boundary. Returns the result in the same alternating form;
// checks the status, the guards and that no source array that is not also
// a destination was written.
template <class T>
std::vector<T> transform(Layout lay, Place pl, int order, int flag, bool inv, size_t off, const std::vector<T>& x) {
    using A = Api<T>;
    const size_t n = size_t(1) << order;
    std::vector<T> y(2 * n);
    PlanMem mem;
    VrxStatus st;
    if (lay == Layout::Interleaved) {
        auto* plan = makePlan(A::kc(), order, flag, mem);
        EXPECT_NE(plan, nullptr);
        if (!plan) return y;
        vt::Buffer src(2 * n * sizeof(T), off), dst(2 * n * sizeof(T), off);
        memcpy(src.data(), x.data(), 2 * n * sizeof(T));
        auto* s = src.as<typename A::C>();
        auto* d = dst.as<typename A::C>();
        if (pl == Place::InPlace) st = inv ? A::invCI(s, plan, mem.workPtr()) : A::fwdCI(s, plan, mem.workPtr());
        else st = inv ? A::invC(s, d, plan, mem.workPtr()) : A::fwdC(s, d, plan, mem.workPtr());
        if (pl != Place::InPlace) {
            EXPECT_EQ(memcmp(src.data(), x.data(), 2 * n * sizeof(T)), 0) << "source written";
        }
        memcpy(y.data(), pl == Place::InPlace ? src.data() : dst.data(), 2 * n * sizeof(T));
        EXPECT_TRUE(src.guardsIntact() && dst.guardsIntact());
    } else {
        auto* plan = makePlan(A::ks(), order, flag, mem);
        EXPECT_NE(plan, nullptr);
        if (!plan) return y;
        vt::Buffer sr(n * sizeof(T), off), si(n * sizeof(T), off), dr(n * sizeof(T), off), di(n * sizeof(T), 64 - off);
        for (size_t i = 0; i < n; ++i) { sr.as<T>()[i] = x[2 * i]; si.as<T>()[i] = x[2 * i + 1]; }
        T *pr = sr.as<T>(), *pi = si.as<T>(), *qr = dr.as<T>(), *qi = di.as<T>();
        if (pl == Place::InPlace) qr = pr, qi = pi;
        if (pl == Place::ReInPlace) qr = pr;
        if (pl == Place::InPlace) st = inv ? A::invSI(pr, pi, plan, mem.workPtr()) : A::fwdSI(pr, pi, plan, mem.workPtr());
        else st = inv ? A::invS(pr, pi, qr, qi, plan, mem.workPtr()) : A::fwdS(pr, pi, qr, qi, plan, mem.workPtr());
        for (size_t i = 0; i < n; ++i) {
            if (qr != pr && pr[i] != x[2 * i]) { ADD_FAILURE() << "real source written at " << i; break; }
            if (qi != pi && pi[i] != x[2 * i + 1]) { ADD_FAILURE() << "imaginary source written at " << i; break; }
        }
        for (size_t i = 0; i < n; ++i) { y[2 * i] = qr[i]; y[2 * i + 1] = qi[i]; }
        EXPECT_TRUE(sr.guardsIntact() && si.guardsIntact() && dr.guardsIntact() && di.guardsIntact());
    }
    EXPECT_EQ(st, vrxOk);
    EXPECT_TRUE((!mem.work || mem.work->guardsIntact()) && mem.spec->guardsIntact());
    return y;
}

template <class T> std::vector<T> randomValues(size_t n, uint64_t seed) {
    vt::Rng rng(seed);
    std::vector<T> x(n);
    for (auto& v : x) v = static_cast<T>(rng.uniform() * 2 - 1);
    return x;
}

// Index of the first difference in bits, or -1.
template <class T> long firstDiff(const std::vector<T>& a, const std::vector<T>& b) {
    for (size_t i = 0; i < a.size(); ++i)
        if (memcmp(&a[i], &b[i], sizeof(T)) != 0) return static_cast<long>(i);
    return -1;
}

// The three-property self-test of an FFT: linearity, impulse and time
// shift of the forward transform, which need no reference transform.
template <class T> void threeProperties(Layout lay, Place pl, int order) {
    const size_t n = size_t(1) << order;
    const LD tol = bound<T>(order) * 4;
    const LD twoPi = 6.283185307179586476925286766559005768L;
    auto fwd = [&](const std::vector<T>& v) { return transform<T>(lay, pl, order, vrxFftScaleNone, false, 0, v); };
    auto relErr = [](const std::vector<T>& y, auto want) {
        LD num = 0, den = 0;
        for (size_t k = 0; k < y.size() / 2; ++k) {
            const CLD r = want(k), d = CLD(y[2 * k], y[2 * k + 1]) - r;
            num += std::norm(d);
            den += std::norm(r);
        }
        return sqrtl(num / den);
    };
    const auto x = randomValues<T>(2 * n, 3 * order), z = randomValues<T>(2 * n, 3 * order + 1);
    const CLD a(0.625L, -0.375L), b(-0.25L, 0.875L);
    std::vector<T> comb(2 * n);
    for (size_t i = 0; i < n; ++i) {
        const CLD v = a * CLD(x[2 * i], x[2 * i + 1]) + b * CLD(z[2 * i], z[2 * i + 1]);
        comb[2 * i] = static_cast<T>(v.real());
        comb[2 * i + 1] = static_cast<T>(v.imag());
    }
    const auto fx = fwd(x);
    {
        const auto fz = fwd(z), fc = fwd(comb);
        EXPECT_LE(relErr(fc, [&](size_t k) { return a * CLD(fx[2 * k], fx[2 * k + 1]) + b * CLD(fz[2 * k], fz[2 * k + 1]); }), tol)
            << "linearity, order " << order;
    }
    auto w = [&](size_t e) {
        const LD ang = twoPi * static_cast<LD>(e % n) / static_cast<LD>(n);
        return CLD(cosl(ang), -sinl(ang));
    };
    {
        const size_t j = (size_t(0x9E3779B97F4A7C15ull) >> 7) % n;
        std::vector<T> imp(2 * n, T(0));
        imp[2 * j] = 1;
        EXPECT_LE(relErr(fwd(imp), [&](size_t k) { return w((j * k) % n); }), tol) << "impulse, order " << order;
    }
    {
        std::vector<T> xs(2 * n);
        for (size_t i = 0; i < n; ++i) {
            xs[2 * ((i + 1) % n)] = x[2 * i];
            xs[2 * ((i + 1) % n) + 1] = x[2 * i + 1];
        }
        EXPECT_LE(relErr(fwd(xs), [&](size_t k) { return CLD(fx[2 * k], fx[2 * k + 1]) * w(k); }), tol)
            << "time shift, order " << order;
    }
}

}  // namespace ft

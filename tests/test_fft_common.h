// Shared pieces of the FFT tests: plans held in guarded memory, reference
// transforms in long double, error measures, one transform through any
// layout, placement and alignment, every entry through one signature, the
// three-property self-test.
#pragma once

#include <math.h>
#include <string.h>

#include <complex>
#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "vrx_test.h"

namespace ft {

using vt::LD;
using vt::CLD;

using vt::refDft;  // the long-double DFT

inline LD relRms(const std::vector<CLD>& y, const std::vector<CLD>& ref) {
    LD num = 0, den = 0;
    for (size_t i = 0; i < y.size(); ++i) {
        num += std::norm(y[i] - ref[i]);
        den += std::norm(ref[i]);
    }
    return den == 0 ? sqrtl(num) : sqrtl(num / den);
}

// The relative RMS distance of y[i] / div from ref[i], real values.
template <class Y, class R> LD relRmsReal(const Y* y, const std::vector<R>& ref, LD div = 1) {
    LD num = 0, den = 0;
    for (size_t i = 0; i < ref.size(); ++i) {
        const LD d = static_cast<LD>(y[i]) / div - static_cast<LD>(ref[i]);
        num += d * d;
        den += static_cast<LD>(ref[i]) * static_cast<LD>(ref[i]);
    }
    return den == 0 ? sqrtl(num) : sqrtl(num / den);
}

// The accuracy bound: 2e-7 log2 N single, 4e-16 log2 N double (order 0
// counts as 1).
template <class T> LD bound(int order) {
    LD l = order < 1 ? 1 : order;
    return (sizeof(T) == 4 ? 2e-7L : 4e-16L) * l;
}

// Memory for a plan: spec block at a chosen misalignment, init buffer and a
// work buffer, each from the sizes the library reports.
struct PlanMem {
    std::unique_ptr<vt::Buffer> spec, init, work;
    int specSize = 0, initSize = 0, workSize = 0;
    Vrx8u* workPtr() { return work ? work->data() : nullptr; }
};

template <class P>
struct PlanKind {
    VrxStatus (*getSize)(int, int, VrxAlgHint, int*, int*, int*);
    VrxStatus (*init)(P**, int, int, VrxAlgHint, Vrx8u*, Vrx8u*);
};

template <class P>
P* makePlan(const PlanKind<P>& k, int order, int flag, PlanMem& mem, size_t misalign = 0) {
    if (k.getSize(order, flag, 0, &mem.specSize, &mem.initSize, &mem.workSize) != vrxOk) return nullptr;
    mem.spec = std::make_unique<vt::Buffer>(mem.specSize, misalign);
    if (mem.initSize > 0) mem.init = std::make_unique<vt::Buffer>(mem.initSize, misalign);
    if (mem.workSize > 0) mem.work = std::make_unique<vt::Buffer>(mem.workSize, misalign ? 64 - misalign % 64 : 0);
    P* plan = nullptr;
    if (k.init(&plan, order, flag, 0, mem.spec->data(), mem.init ? mem.init->data() : nullptr) != vrxOk) return nullptr;
    return plan;
}

inline const PlanKind<VrxsFftPlan_C_32fc> kC32fc{vrxsFFTGetSize_C_32fc, vrxsFFTInit_C_32fc};
inline const PlanKind<VrxsFftPlan_C_32f> kC32f{vrxsFFTGetSize_C_32f, vrxsFFTInit_C_32f};
inline const PlanKind<VrxsFftPlan_R_32f> kR32f{vrxsFFTGetSize_R_32f, vrxsFFTInit_R_32f};
inline const PlanKind<VrxsFftPlan_C_64fc> kC64fc{vrxsFFTGetSize_C_64fc, vrxsFFTInit_C_64fc};
inline const PlanKind<VrxsFftPlan_C_64f> kC64f{vrxsFFTGetSize_C_64f, vrxsFFTInit_C_64f};
inline const PlanKind<VrxsFftPlan_R_64f> kR64f{vrxsFFTGetSize_R_64f, vrxsFFTInit_R_64f};

// The single-width entry f or the double-width entry d, by T.
template <class T, class F, class D> constexpr auto pick(F f, D d) {
    if constexpr (sizeof(T) == 4) return f;
    else return d;
}

// Per-width access to the complex and real transforms.
template <class T> struct Api {
    using C = std::conditional_t<sizeof(T) == 4, Vrx32fc, Vrx64fc>;
    using PC = std::conditional_t<sizeof(T) == 4, VrxsFftPlan_C_32fc, VrxsFftPlan_C_64fc>;
    using PS = std::conditional_t<sizeof(T) == 4, VrxsFftPlan_C_32f, VrxsFftPlan_C_64f>;
    using PR = std::conditional_t<sizeof(T) == 4, VrxsFftPlan_R_32f, VrxsFftPlan_R_64f>;
    static const PlanKind<PC>& kc() { return *pick<T>(&kC32fc, &kC64fc); }
    static const PlanKind<PS>& ks() { return *pick<T>(&kC32f, &kC64f); }
    static const PlanKind<PR>& kr() { return *pick<T>(&kR32f, &kR64f); }
    static constexpr auto fwdC = pick<T>(vrxsFFTFwd_CToC_32fc, vrxsFFTFwd_CToC_64fc), invC = pick<T>(vrxsFFTInv_CToC_32fc, vrxsFFTInv_CToC_64fc);
    static constexpr auto fwdCI = pick<T>(vrxsFFTFwd_CToC_32fc_I, vrxsFFTFwd_CToC_64fc_I), invCI = pick<T>(vrxsFFTInv_CToC_32fc_I, vrxsFFTInv_CToC_64fc_I);
    static constexpr auto fwdS = pick<T>(vrxsFFTFwd_CToC_32f, vrxsFFTFwd_CToC_64f), invS = pick<T>(vrxsFFTInv_CToC_32f, vrxsFFTInv_CToC_64f);
    static constexpr auto fwdSI = pick<T>(vrxsFFTFwd_CToC_32f_I, vrxsFFTFwd_CToC_64f_I), invSI = pick<T>(vrxsFFTInv_CToC_32f_I, vrxsFFTInv_CToC_64f_I);
    static constexpr auto fwdCCS = pick<T>(vrxsFFTFwd_RToCCS_32f, vrxsFFTFwd_RToCCS_64f), invCCS = pick<T>(vrxsFFTInv_CCSToR_32f, vrxsFFTInv_CCSToR_64f);
    static constexpr auto fwdPack = pick<T>(vrxsFFTFwd_RToPack_32f, vrxsFFTFwd_RToPack_64f), invPack = pick<T>(vrxsFFTInv_PackToR_32f, vrxsFFTInv_PackToR_64f);
    static constexpr auto fwdPerm = pick<T>(vrxsFFTFwd_RToPerm_32f, vrxsFFTFwd_RToPerm_64f), invPerm = pick<T>(vrxsFFTInv_PermToR_32f, vrxsFFTInv_PermToR_64f);
    static constexpr auto fwdCCSI = pick<T>(vrxsFFTFwd_RToCCS_32f_I, vrxsFFTFwd_RToCCS_64f_I), invCCSI = pick<T>(vrxsFFTInv_CCSToR_32f_I, vrxsFFTInv_CCSToR_64f_I);
    static constexpr auto fwdPackI = pick<T>(vrxsFFTFwd_RToPack_32f_I, vrxsFFTFwd_RToPack_64f_I), invPackI = pick<T>(vrxsFFTInv_PackToR_32f_I, vrxsFFTInv_PackToR_64f_I);
    static constexpr auto fwdPermI = pick<T>(vrxsFFTFwd_RToPerm_32f_I, vrxsFFTFwd_RToPerm_64f_I), invPermI = pick<T>(vrxsFFTInv_PermToR_32f_I, vrxsFFTInv_PermToR_64f_I);
    static constexpr int maxC = sizeof(T) == 4 ? 28 : 27;
};

enum class Layout { Interleaved, Split };

// ------------------------------------------------------------ placement

// Where the result goes: over the source, to separate arrays, or (split
// data) the real parts over their source and the imaginary parts apart.
enum class Place { InPlace, OutOfPlace, ReInPlace };

// One transform of x (n complex values, re and im alternating) through the
// entry of the layout and placement, data at the byte offset off from a
// 64-byte boundary, the plan's blocks at planOff. Returns the result in
// the same alternating form; checks the status, the guards and that no
// source array that is not also a destination was written.
template <class T>
std::vector<T> transform(Layout lay, Place pl, int order, int flag, bool inv, size_t off, const std::vector<T>& x,
                         size_t planOff = 0) {
    using A = Api<T>;
    const size_t n = size_t(1) << order;
    std::vector<T> y(2 * n);
    PlanMem mem;
    VrxStatus st;
    if (lay == Layout::Interleaved) {
        auto* plan = makePlan(A::kc(), order, flag, mem, planOff);
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
        auto* plan = makePlan(A::ks(), order, flag, mem, planOff);
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

// One complex transform of x (see transform), data and plan at the byte
// offset misalign.
template <class T>
std::vector<CLD> runComplex(Layout lay, int order, int flag, bool inverse, bool inPlace, size_t misalign,
                            const std::vector<CLD>& x) {
    std::vector<T> v(2 * x.size());
    for (size_t i = 0; i < x.size(); ++i) { v[2 * i] = static_cast<T>(x[i].real()); v[2 * i + 1] = static_cast<T>(x[i].imag()); }
    const auto y = transform<T>(lay, inPlace ? Place::InPlace : Place::OutOfPlace, order, flag, inverse, misalign, v, misalign);
    std::vector<CLD> out(x.size());
    for (size_t i = 0; i < x.size(); ++i) out[i] = CLD(y[2 * i], y[2 * i + 1]);
    return out;
}

// Scale that a flag applies in a direction.
inline LD flagScale(int flag, bool inverse, int order) {
    LD n = ldexpl(1.0L, order);
    if (flag == vrxFftScaleSqrt) return 1.0L / sqrtl(n);
    if ((flag == vrxFftScaleFwd && !inverse) || (flag == vrxFftScaleInv && inverse)) return 1.0L / n;
    return 1.0L;
}

// ------------------------------------------------------------ real forms

enum Form { kCCS, kPack, kPerm };

// Reals of a packed spectrum of N points (N a power of two).
inline size_t packedLen(Form f, size_t n) { return f == kCCS ? (n == 1 ? 2 : n + 2) : n; }

// One real transform in a form; s null means the in-place form on d.
template <class T>
VrxStatus realCall(bool inverse, Form f, const T* s, T* d, const typename Api<T>::PR* p, Vrx8u* w) {
    using A = Api<T>;
    if (!s) {
        if (inverse) return f == kCCS ? A::invCCSI(d, p, w) : f == kPack ? A::invPackI(d, p, w) : A::invPermI(d, p, w);
        return f == kCCS ? A::fwdCCSI(d, p, w) : f == kPack ? A::fwdPackI(d, p, w) : A::fwdPermI(d, p, w);
    }
    if (inverse) return f == kCCS ? A::invCCS(s, d, p, w) : f == kPack ? A::invPack(s, d, p, w) : A::invPerm(s, d, p, w);
    return f == kCCS ? A::fwdCCS(s, d, p, w) : f == kPack ? A::fwdPack(s, d, p, w) : A::fwdPerm(s, d, p, w);
}

// ------------------------------------------------------------ every entry

// Every transform entry of one width through one signature: a plan, source
// bytes, destination bytes and the work buffer. Split data hold the real
// parts and then the imaginary parts, n values each. An in-place entry
// transforms the destination and ignores the source. kind: 0 interleaved,
// 1 split, 2 real; the sizes are those of order.
struct Entry {
    std::string name;
    int kind;
    bool inPlace, inverse;
    Form form;
    size_t inBytes, outBytes;
    std::function<VrxStatus(const void* plan, const uint8_t* src, uint8_t* dst, Vrx8u* work)> run;
};

template <class T> std::vector<Entry> entriesOf(int order) {
    using A = Api<T>;
    using C = typename A::C;
    const size_t n = size_t(1) << order, cb = n * sizeof(C);
    auto re = [](auto* p) { return reinterpret_cast<T*>(const_cast<uint8_t*>(p)); };
    auto im = [n, re](auto* p) { return p ? re(p) + n : nullptr; };
    auto cx = [](auto* p) { return reinterpret_cast<C*>(const_cast<uint8_t*>(p)); };
    std::vector<Entry> v;
    const std::string w = sizeof(T) == 4 ? "32" : "64";
    for (bool inv : {false, true})
        for (bool ip : {false, true}) {
            const std::string tag = std::string(inv ? "Inv" : "Fwd") + w + (ip ? "_I" : "");
            v.push_back({tag + " interleaved", 0, ip, inv, kCCS, cb, cb, [=](const void* pl, const uint8_t* s, uint8_t* d, Vrx8u* b) {
                auto* p = static_cast<const typename A::PC*>(pl);
                if (ip) return inv ? A::invCI(cx(d), p, b) : A::fwdCI(cx(d), p, b);
                return inv ? A::invC(cx(s), cx(d), p, b) : A::fwdC(cx(s), cx(d), p, b);
            }});
            v.push_back({tag + " split", 1, ip, inv, kCCS, cb, cb, [=](const void* pl, const uint8_t* s, uint8_t* d, Vrx8u* b) {
                auto* p = static_cast<const typename A::PS*>(pl);
                if (ip) return inv ? A::invSI(re(d), im(d), p, b) : A::fwdSI(re(d), im(d), p, b);
                return inv ? A::invS(re(s), im(s), re(d), im(d), p, b) : A::fwdS(re(s), im(s), re(d), im(d), p, b);
            }});
            for (Form f : {kCCS, kPack, kPerm}) {
                const size_t rb = n * sizeof(T), pb = packedLen(f, n) * sizeof(T);
                v.push_back({tag + " real form " + std::to_string(f), 2, ip, inv, f, inv ? pb : rb, ip || !inv ? pb : rb,
                             [=](const void* pl, const uint8_t* s, uint8_t* d, Vrx8u* b) {
                                 return realCall<T>(inv, f, ip ? nullptr : re(s), re(d), static_cast<const typename A::PR*>(pl), b);
                             }});
            }
        }
    return v;
}

inline std::vector<CLD> randomSignal(size_t n, uint64_t seed) {
    vt::Rng rng(seed);
    std::vector<CLD> x(n);
    for (auto& v : x) v = CLD(rng.uniform() * 2 - 1, rng.uniform() * 2 - 1);
    return x;
}

// Rounds a signal to the element width, so the reference sees the same input.
template <class T> std::vector<CLD> roundTo(std::vector<CLD> x) {
    for (auto& v : x) v = CLD(static_cast<T>(v.real()), static_cast<T>(v.imag()));
    return x;
}

// The largest error over all bins of the transform of a unit impulse at n0
// against exp(-+2 pi i n0 k / N) in long double.
template <class T>
LD impulseError(Layout lay, int order, bool inverse, bool inPlace, size_t misalign, size_t n0) {
    const size_t n = size_t(1) << order;
    std::vector<CLD> x(n, CLD(0, 0));
    x[n0] = CLD(1, 0);
    const auto y = runComplex<T>(lay, order, vrxFftScaleNone, inverse, inPlace, misalign, x);
    LD worst = 0;
    for (size_t k = 0; k < n; ++k) {
        const LD a = 2 * 3.141592653589793238462643383279502884L * static_cast<LD>((n0 * k) % n) / static_cast<LD>(n);
        const CLD want(cosl(a), inverse ? sinl(a) : -sinl(a));
        worst = std::max(worst, std::abs(y[k] - want));
    }
    return worst;
}

}  // namespace ft

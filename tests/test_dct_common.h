// Shared pieces of the DCT tests: the entries of both widths behind one
// interface, plans in guarded memory, and the long-double reference.
#pragma once

#include <math.h>

#include <memory>
#include <vector>

#include "vrx_test.h"

namespace dt {

using LD = long double;

template <class T> struct Api;
template <> struct Api<float> {
    using Fwd = VrxsDctPlan_Fwd_32f;
    using Inv = VrxsDctPlan_Inv_32f;
    static constexpr int kFftMax = 268435455, kDirectMax = 35, kConvInit = 67108863, kConvSize = 33554431;
    static VrxStatus fwdSize(int n, int* s, int* i, int* w) { return vrxsDCTFwdGetSize_32f(n, 0, s, i, w); }
    static VrxStatus invSize(int n, int* s, int* i, int* w) { return vrxsDCTInvGetSize_32f(n, 0, s, i, w); }
    static VrxStatus fwdInit(Fwd** p, int n, Vrx8u* m, Vrx8u* b) { return vrxsDCTFwdInit_32f(p, n, 0, m, b); }
    static VrxStatus invInit(Inv** p, int n, Vrx8u* m, Vrx8u* b) { return vrxsDCTInvInit_32f(p, n, 0, m, b); }
    static VrxStatus fwd(const float* s, float* d, const Fwd* p, Vrx8u* b) { return vrxsDCTFwd_32f(s, d, p, b); }
    static VrxStatus inv(const float* s, float* d, const Inv* p, Vrx8u* b) { return vrxsDCTInv_32f(s, d, p, b); }
    static VrxStatus fwdI(float* d, const Fwd* p, Vrx8u* b) { return vrxsDCTFwd_32f_I(d, p, b); }
    static VrxStatus invI(float* d, const Inv* p, Vrx8u* b) { return vrxsDCTInv_32f_I(d, p, b); }
    static VrxStatus fftR(int o, int* s, int* i, int* w) { return vrxsFFTGetSize_R_32f(o, 8, 0, s, i, w); }
    static VrxStatus fftC(int o, int* s, int* i, int* w) { return vrxsFFTGetSize_C_32fc(o, 8, 0, s, i, w); }
};
template <> struct Api<double> {
    using Fwd = VrxsDctPlan_Fwd_64f;
    using Inv = VrxsDctPlan_Inv_64f;
    static constexpr int kFftMax = 134217727, kDirectMax = 45, kConvInit = 33554431, kConvSize = 16777215;
    static VrxStatus fwdSize(int n, int* s, int* i, int* w) { return vrxsDCTFwdGetSize_64f(n, 0, s, i, w); }
    static VrxStatus invSize(int n, int* s, int* i, int* w) { return vrxsDCTInvGetSize_64f(n, 0, s, i, w); }
    static VrxStatus fwdInit(Fwd** p, int n, Vrx8u* m, Vrx8u* b) { return vrxsDCTFwdInit_64f(p, n, 0, m, b); }
    static VrxStatus invInit(Inv** p, int n, Vrx8u* m, Vrx8u* b) { return vrxsDCTInvInit_64f(p, n, 0, m, b); }
    static VrxStatus fwd(const double* s, double* d, const Fwd* p, Vrx8u* b) { return vrxsDCTFwd_64f(s, d, p, b); }
    static VrxStatus inv(const double* s, double* d, const Inv* p, Vrx8u* b) { return vrxsDCTInv_64f(s, d, p, b); }
    static VrxStatus fwdI(double* d, const Fwd* p, Vrx8u* b) { return vrxsDCTFwd_64f_I(d, p, b); }
    static VrxStatus invI(double* d, const Inv* p, Vrx8u* b) { return vrxsDCTInv_64f_I(d, p, b); }
    static VrxStatus fftR(int o, int* s, int* i, int* w) { return vrxsFFTGetSize_R_64f(o, 8, 0, s, i, w); }
    static VrxStatus fftC(int o, int* s, int* i, int* w) { return vrxsFFTGetSize_C_64fc(o, 8, 0, s, i, w); }
};

// A forward and an inverse plan of length n in guarded memory at byte
// offset off, with one work buffer each.
template <class T> struct Plans {
    using A = Api<T>;
    int n = 0, spec = 0, init = 0, work = 0;
    std::unique_ptr<vt::Buffer> fm, im, ib, fw, iw;
    typename A::Fwd* f = nullptr;
    typename A::Inv* i = nullptr;
    VrxStatus status = vrxOk;
    Plans(int len, size_t off = 0) : n(len) {
        status = A::fwdSize(n, &spec, &init, &work);
        if (status) return;
        fm.reset(new vt::Buffer(spec, off));
        im.reset(new vt::Buffer(spec, off));
        ib.reset(new vt::Buffer(init > 0 ? init : 1, off));
        fw.reset(new vt::Buffer(work > 0 ? work : 1, (off * 3) % 64));
        iw.reset(new vt::Buffer(work > 0 ? work : 1, (off * 5) % 64));
        status = A::fwdInit(&f, n, fm->data(), init > 0 ? ib->data() : nullptr);
        if (status) return;
        status = A::invInit(&i, n, im->data(), init > 0 ? ib->data() : nullptr);
    }
    Vrx8u* fbuf() { return work > 0 ? fw->data() : nullptr; }
    Vrx8u* ibuf() { return work > 0 ? iw->data() : nullptr; }
    bool intact() const {
        return fm->guardsIntact() && im->guardsIntact() && ib->guardsIntact() && fw->guardsIntact() && iw->guardsIntact();
    }
};

// cos(2 pi j/(4N)) in long double, j < 4N.
inline std::vector<LD> cosTab(int n) {
    std::vector<LD> t(4 * size_t(n));
    const LD twoPi = 6.283185307179586476925286766559005768L;
    for (size_t j = 0; j < t.size(); ++j) t[j] = cosl(twoPi * static_cast<LD>(j) / static_cast<LD>(4 * n));
    return t;
}

// The orthonormal definition: forward (type II) or inverse (type III).
template <class T> std::vector<LD> refDct(const std::vector<T>& x, bool inverse) {
    const int n = static_cast<int>(x.size());
    const std::vector<LD> tab = cosTab(n);
    const LD c0 = 1.0L / sqrtl(static_cast<LD>(n)), c1 = sqrtl(2.0L) / sqrtl(static_cast<LD>(n));
    const int64_t L = 4 * int64_t(n);
    std::vector<LD> y(n);
    for (int a = 0; a < n; ++a) {
        LD acc = 0;
        for (int b = 0; b < n; ++b) {
            const int k = inverse ? b : a, m = inverse ? a : b;
            const LD ck = k ? c1 : c0;
            acc += ck * static_cast<LD>(x[b]) * tab[(int64_t(2 * m + 1) * k) % L];
        }
        y[a] = acc;
    }
    return y;
}

template <class T> LD relRms(const T* y, const std::vector<LD>& ref) {
    LD num = 0, den = 0;
    for (size_t i = 0; i < ref.size(); ++i) {
        const LD d = static_cast<LD>(y[i]) - ref[i];
        num += d * d;
        den += ref[i] * ref[i];
    }
    return den == 0 ? sqrtl(num) : sqrtl(num / den);
}

template <class T> std::vector<T> randomVec(int n, uint64_t seed) {
    vt::Rng r(seed);
    std::vector<T> v(n);
    for (auto& e : v) e = static_cast<T>(2.0 * r.uniform() - 1.0);
    return v;
}

}  // namespace dt

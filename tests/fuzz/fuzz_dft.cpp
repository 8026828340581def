// Fuzz target of the DFT and Hilbert plans: fuzzer-chosen kind, length, flag,
// form and data through the size query, Init and the transforms. A failed
// call must return a negative status and write nothing outside the object's
// memory and the destination.
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

#include <vector>

#include "vrxs.h"

namespace {

constexpr uint8_t kFill = 0xC3;
constexpr size_t kGuard = 64;

struct Guarded {
    std::vector<uint8_t> m;
    size_t n;
    explicit Guarded(size_t bytes) : m(bytes + 2 * kGuard + 64, kFill), n(bytes) {}
    uint8_t* data() { return m.data() + kGuard; }
    void check() const {
        for (size_t i = 0; i < kGuard; ++i)
            if (m[i] != kFill || m[kGuard + n + i] != kFill) abort();
    }
    bool untouched() const {
        for (size_t i = 0; i < n; ++i)
            if (m[kGuard + i] != kFill) return false;
        return true;
    }
};

struct In {
    const uint8_t* p;
    size_t n;
    uint32_t u32() {
        uint32_t v = 0;
        for (int i = 0; i < 4; ++i) v = (v << 8) | (n ? (--n, *p++) : 0);
        return v;
    }
};

template <class T, class GS, class IN>
void run(In& in, int kind, GS getSize, IN init) {
    int N = static_cast<int>(in.u32() % 5000) - 2;
    if (in.u32() % 16 == 0) N = static_cast<int>(in.u32());  // any int, huge ones included
    const int flags[] = {1, 2, 4, 8, 0, 3};
    const int flag = flags[in.u32() % 6];
    int s = 0, i = 0, w = 0;
    VrxStatus st = getSize(N, flag, static_cast<VrxAlgHint>(0), &s, &i, &w);
    if (st != vrxOk) {
        if (st >= 0) abort();
        return;
    }
    if (N > 5000 || s <= 0 || s > (64 << 20)) return;
    Guarded spec(s), ib(i > 0 ? i : 1), wb(w > 0 ? w : 1);
    const bool nullInit = in.u32() % 8 == 0;
    st = init(N, flag, static_cast<VrxAlgHint>(0), spec.data(), nullInit ? nullptr : ib.data());
    spec.check();
    ib.check();
    if (st != vrxOk) {
        if (st >= 0) abort();
        return;
    }
    const size_t cap = 2 * static_cast<size_t>(N) + 2;
    Guarded src(cap * sizeof(T)), dst(cap * sizeof(T));
    T* sp = reinterpret_cast<T*>(src.data());
    for (size_t k = 0; k < cap; ++k) sp[k] = static_cast<T>(static_cast<int32_t>(in.u32()) * 1e-9);
    const bool nullBuf = in.u32() % 8 == 0;
    const bool inPlace = in.u32() % 2 == 0;
    T* dp = inPlace ? sp : reinterpret_cast<T*>(dst.data());
    const int form = static_cast<int>(in.u32() % 6);
    Vrx8u* buf = nullBuf ? nullptr : wb.data();
    if (sizeof(T) == 4) {
        const float* s32 = reinterpret_cast<const float*>(sp);
        float* d32 = reinterpret_cast<float*>(dp);
        if (kind == 0) st = form % 2 ? vrxsDFTFwd_CToC_32fc(reinterpret_cast<const Vrx32fc*>(s32), reinterpret_cast<Vrx32fc*>(d32), reinterpret_cast<const VrxsDftPlan_C_32fc*>(spec.data()), buf)
                                     : vrxsDFTInv_CToC_32fc(reinterpret_cast<const Vrx32fc*>(s32), reinterpret_cast<Vrx32fc*>(d32), reinterpret_cast<const VrxsDftPlan_C_32fc*>(spec.data()), buf);
        else if (kind == 1) st = form % 2 ? vrxsDFTFwd_CToC_32f(s32, s32 + N, d32, d32 + N, reinterpret_cast<const VrxsDftPlan_C_32f*>(spec.data()), buf)
                                          : vrxsDFTInv_CToC_32f(s32, s32 + N, d32, d32 + N, reinterpret_cast<const VrxsDftPlan_C_32f*>(spec.data()), buf);
        else {
            auto* pl = reinterpret_cast<const VrxsDftPlan_R_32f*>(spec.data());
            switch (form) {
                case 0: st = vrxsDFTFwd_RToCCS_32f(s32, d32, pl, buf); break;
                case 1: st = vrxsDFTFwd_RToPack_32f(s32, d32, pl, buf); break;
                case 2: st = vrxsDFTFwd_RToPerm_32f(s32, d32, pl, buf); break;
                case 3: st = vrxsDFTInv_CCSToR_32f(s32, d32, pl, buf); break;
                case 4: st = vrxsDFTInv_PackToR_32f(s32, d32, pl, buf); break;
                default: st = vrxsDFTInv_PermToR_32f(s32, d32, pl, buf); break;
            }
        }
    } else {
        const double* s64 = reinterpret_cast<const double*>(sp);
        double* d64 = reinterpret_cast<double*>(dp);
        if (kind == 0) st = form % 2 ? vrxsDFTFwd_CToC_64fc(reinterpret_cast<const Vrx64fc*>(s64), reinterpret_cast<Vrx64fc*>(d64), reinterpret_cast<const VrxsDftPlan_C_64fc*>(spec.data()), buf)
                                     : vrxsDFTInv_CToC_64fc(reinterpret_cast<const Vrx64fc*>(s64), reinterpret_cast<Vrx64fc*>(d64), reinterpret_cast<const VrxsDftPlan_C_64fc*>(spec.data()), buf);
        else if (kind == 1) st = form % 2 ? vrxsDFTFwd_CToC_64f(s64, s64 + N, d64, d64 + N, reinterpret_cast<const VrxsDftPlan_C_64f*>(spec.data()), buf)
                                          : vrxsDFTInv_CToC_64f(s64, s64 + N, d64, d64 + N, reinterpret_cast<const VrxsDftPlan_C_64f*>(spec.data()), buf);
        else {
            auto* pl = reinterpret_cast<const VrxsDftPlan_R_64f*>(spec.data());
            switch (form) {
                case 0: st = vrxsDFTFwd_RToCCS_64f(s64, d64, pl, buf); break;
                case 1: st = vrxsDFTFwd_RToPack_64f(s64, d64, pl, buf); break;
                case 2: st = vrxsDFTFwd_RToPerm_64f(s64, d64, pl, buf); break;
                case 3: st = vrxsDFTInv_CCSToR_64f(s64, d64, pl, buf); break;
                case 4: st = vrxsDFTInv_PackToR_64f(s64, d64, pl, buf); break;
                default: st = vrxsDFTInv_PermToR_64f(s64, d64, pl, buf); break;
            }
        }
    }
    src.check();
    dst.check();
    spec.check();
    wb.check();
    if (st > 0) abort();
    if (st < 0 && (!dst.untouched() || inPlace)) {
        if (!inPlace) abort();
    }
}

void runHilbert(In& in) {
    int N = static_cast<int>(in.u32() % 3000) - 2;
    int s = 0, b = 0;
    VrxStatus st = vrxsHilbertGetSize_32f32fc(N, static_cast<VrxAlgHint>(0), &s, &b);
    if (st != vrxOk) {
        if (st >= 0) abort();
        return;
    }
    Guarded spec(s), buf(b);
    st = vrxsHilbertInit_32f32fc(N, static_cast<VrxAlgHint>(0), reinterpret_cast<VrxsHilbertPlan*>(spec.data()), buf.data());
    spec.check();
    buf.check();
    if (st != vrxOk) abort();
    Guarded src(N * sizeof(float)), dst(N * sizeof(Vrx32fc));
    float* x = reinterpret_cast<float*>(src.data());
    for (int k = 0; k < N; ++k) x[k] = static_cast<float>(static_cast<int32_t>(in.u32()) * 1e-9);
    const bool nullBuf = in.u32() % 8 == 0;
    st = vrxsHilbert_32f32fc(x, reinterpret_cast<Vrx32fc*>(dst.data()), reinterpret_cast<const VrxsHilbertPlan*>(spec.data()),
                             nullBuf ? nullptr : buf.data());
    src.check();
    dst.check();
    buf.check();
    if (nullBuf != (st == vrxErrNullPtr)) abort();
    if (st < 0 && !dst.untouched()) abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    In in{data, size};
    const uint32_t sel = in.u32() % 7;
    switch (sel) {
        case 0: run<float>(in, 0, vrxsDFTGetSize_C_32fc, vrxsDFTInit_C_32fc); break;
        case 1: run<float>(in, 1, vrxsDFTGetSize_C_32f, vrxsDFTInit_C_32f); break;
        case 2: run<float>(in, 2, vrxsDFTGetSize_R_32f, vrxsDFTInit_R_32f); break;
        case 3: run<double>(in, 0, vrxsDFTGetSize_C_64fc, vrxsDFTInit_C_64fc); break;
        case 4: run<double>(in, 1, vrxsDFTGetSize_C_64f, vrxsDFTInit_C_64f); break;
        case 5: run<double>(in, 2, vrxsDFTGetSize_R_64f, vrxsDFTInit_R_64f); break;
        default: runHilbert(in); break;
    }
    return 0;
}

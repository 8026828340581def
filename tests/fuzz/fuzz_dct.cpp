// libFuzzer target of the DCT plans and Goertzel, through the public header:
// fuzzer-chosen width, direction, length, buffer offsets, in-place runs,
// missing buffers and plans of the other direction go through the size
// query, Init and the transforms. A failed call must return a negative
// status and write nothing: every buffer carries guard bytes, and the
// destination of a failed call must keep its bytes. abort() on a violation.
#include <math.h>
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

#include <vector>

#include "vrxs.h"

namespace {

constexpr size_t kGuard = 64;
constexpr uint8_t kFill = 0x5A;

struct Reader {
    const uint8_t* p;
    size_t n;
    uint32_t u32() {
        uint32_t v = 0;
        for (int i = 0; i < 4; ++i) v = (v << 8) | (n ? (--n, *p++) : 0u);
        return v;
    }
    uint8_t u8() { return n ? (--n, *p++) : 0; }
};

// A block with guard bytes on both sides, data at a chosen offset.
struct Block {
    std::vector<uint8_t> raw;
    size_t off, len;
    Block(size_t n, size_t o) : raw(n + 2 * kGuard + 64, kFill), off(kGuard + o % 64), len(n) {}
    uint8_t* data() { return raw.data() + off; }
    bool guards() const {
        for (size_t i = 0; i < off; ++i) if (raw[i] != kFill) return false;
        for (size_t i = off + len; i < raw.size(); ++i) if (raw[i] != kFill) return false;
        return true;
    }
};

void check(bool ok) {
    if (!ok) abort();
}

template <class T>
void runDct(Reader& r) {
    const bool single = sizeof(T) == 4;
    const bool inv = r.u8() & 1;
    int n = static_cast<int>(r.u32() % 5000) - 2;  // includes 0 and negatives
    const uint8_t flags = r.u8();
    int spec = -1, init = -1, work = -1;
    VrxStatus st = single ? (inv ? vrxsDCTInvGetSize_32f(n, 0, &spec, &init, &work) : vrxsDCTFwdGetSize_32f(n, 0, &spec, &init, &work))
                          : (inv ? vrxsDCTInvGetSize_64f(n, 0, &spec, &init, &work) : vrxsDCTFwdGetSize_64f(n, 0, &spec, &init, &work));
    if (st != vrxOk) {
        check(st < 0 && spec == -1 && init == -1 && work == -1);
        return;
    }
    check(spec > 0 && init >= 0 && work >= 0);
    Block specB(spec, r.u8()), initB(init ? init : 1, r.u8()), workB(work ? work : 1, r.u8());
    void* plan = nullptr;
    Vrx8u* ib = (flags & 1) ? nullptr : initB.data();
    if (single) st = inv ? vrxsDCTInvInit_32f(reinterpret_cast<VrxsDctPlan_Inv_32f**>(&plan), n, 0, specB.data(), ib)
                         : vrxsDCTFwdInit_32f(reinterpret_cast<VrxsDctPlan_Fwd_32f**>(&plan), n, 0, specB.data(), ib);
    else st = inv ? vrxsDCTInvInit_64f(reinterpret_cast<VrxsDctPlan_Inv_64f**>(&plan), n, 0, specB.data(), ib)
                  : vrxsDCTFwdInit_64f(reinterpret_cast<VrxsDctPlan_Fwd_64f**>(&plan), n, 0, specB.data(), ib);
    check(specB.guards() && initB.guards());
    if (st != vrxOk) {
        check(st < 0 && plan == nullptr && ib == nullptr && init > 0);
        return;
    }
    Block src(sizeof(T) * n, r.u8()), dst(sizeof(T) * n, r.u8());
    T* x = reinterpret_cast<T*>(src.data());
    for (int i = 0; i < n; ++i) {
        const uint32_t v = r.u32();
        x[i] = static_cast<T>(static_cast<int32_t>(v)) * static_cast<T>(1.0 / 65536);
    }
    const bool inPlace = flags & 2;
    T* out = inPlace ? x : reinterpret_cast<T*>(dst.data());
    Vrx8u* wb = (flags & 4) ? nullptr : workB.data();
    // a plan of the other direction: its words differ by one
    if (flags & 8) {
        int32_t& id = *static_cast<int32_t*>(plan);
        id += inv ? -1 : 1;
    }
    std::vector<uint8_t> before(reinterpret_cast<uint8_t*>(out), reinterpret_cast<uint8_t*>(out) + sizeof(T) * n);
    if (single) {
        auto* s = reinterpret_cast<const float*>(x);
        auto* d = reinterpret_cast<float*>(out);
        st = inv ? (inPlace ? vrxsDCTInv_32f_I(d, static_cast<VrxsDctPlan_Inv_32f*>(plan), wb) : vrxsDCTInv_32f(s, d, static_cast<VrxsDctPlan_Inv_32f*>(plan), wb))
                 : (inPlace ? vrxsDCTFwd_32f_I(d, static_cast<VrxsDctPlan_Fwd_32f*>(plan), wb) : vrxsDCTFwd_32f(s, d, static_cast<VrxsDctPlan_Fwd_32f*>(plan), wb));
    } else {
        auto* s = reinterpret_cast<const double*>(x);
        auto* d = reinterpret_cast<double*>(out);
        st = inv ? (inPlace ? vrxsDCTInv_64f_I(d, static_cast<VrxsDctPlan_Inv_64f*>(plan), wb) : vrxsDCTInv_64f(s, d, static_cast<VrxsDctPlan_Inv_64f*>(plan), wb))
                 : (inPlace ? vrxsDCTFwd_64f_I(d, static_cast<VrxsDctPlan_Fwd_64f*>(plan), wb) : vrxsDCTFwd_64f(s, d, static_cast<VrxsDctPlan_Fwd_64f*>(plan), wb));
    }
    check(specB.guards() && workB.guards() && src.guards() && dst.guards());
    if (st != vrxOk) {
        check(st < 0);
        check(memcmp(before.data(), out, sizeof(T) * n) == 0);
        check((flags & 8) || (wb == nullptr && work > 0));
    } else {
        check(!(flags & 8));
        for (int i = 0; i < n; ++i) check(isfinite(static_cast<double>(out[i])));
    }
}

void runGoertz(Reader& r) {
    const int form = r.u8() % 6;
    const int len = static_cast<int>(r.u32() % 3000) - 2;
    uint32_t fb = r.u32();
    float f;
    memcpy(&f, &fb, 4);
    const int sf = static_cast<int32_t>(r.u32());
    const int n = len > 0 ? len : 1;
    std::vector<uint8_t> buf(16 * size_t(n));
    for (auto& b : buf) b = r.u8();
    if (form <= 3) {  // keep float samples finite
        if (form <= 1) for (size_t i = 0; i < buf.size() / 4; ++i) reinterpret_cast<float*>(buf.data())[i] = static_cast<float>(buf[i]) - 128;
        else for (size_t i = 0; i < buf.size() / 8; ++i) reinterpret_cast<double*>(buf.data())[i] = static_cast<double>(buf[i]) - 128;
    }
    uint8_t val[16];
    memset(val, kFill, sizeof val);
    VrxStatus st;
    switch (form) {
        case 0: st = vrxsGoertz_32f(reinterpret_cast<Vrx32f*>(buf.data()), len, reinterpret_cast<Vrx32fc*>(val), f); break;
        case 1: st = vrxsGoertz_32fc(reinterpret_cast<Vrx32fc*>(buf.data()), len, reinterpret_cast<Vrx32fc*>(val), f); break;
        case 2: st = vrxsGoertz_64f(reinterpret_cast<Vrx64f*>(buf.data()), len, reinterpret_cast<Vrx64fc*>(val), f); break;
        case 3: st = vrxsGoertz_64fc(reinterpret_cast<Vrx64fc*>(buf.data()), len, reinterpret_cast<Vrx64fc*>(val), f); break;
        case 4: st = vrxsGoertz_16s_Sfs(reinterpret_cast<Vrx16s*>(buf.data()), len, reinterpret_cast<Vrx16sc*>(val), f, sf); break;
        default: st = vrxsGoertz_16sc_Sfs(reinterpret_cast<Vrx16sc*>(buf.data()), len, reinterpret_cast<Vrx16sc*>(val), f, sf); break;
    }
    const size_t wrote = form <= 1 ? 8 : (form <= 3 ? 16 : 4);
    for (size_t i = (st == vrxOk ? wrote : 0); i < sizeof val; ++i) check(val[i] == kFill);
    if (st != vrxOk) check(st < 0 && (len < 1 || !(f >= 0.0f && f < 1.0f)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Reader r{data, size};
    switch (r.u8() % 3) {
        case 0: runDct<float>(r); break;
        case 1: runDct<double>(r); break;
        default: runGoertz(r); break;
    }
    return 0;
}

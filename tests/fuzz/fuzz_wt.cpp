// Fuzz target of the wavelet states and Haar: fuzzer-chosen kind, taps,
// offsets (some invalid), block lengths (some not positive), delay lines
// and data through the size query, Init, Set/Get and the runs. A failed
// call must return a negative status and leave its outputs alone; nothing
// is written outside the state's reported size and the destinations (the
// guard bytes around each are checked).
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

#include <vector>

#include "vrxs.h"

namespace {

constexpr uint8_t kGuard = 0xE7;
constexpr size_t kPad = 64;

struct In {
    const uint8_t* p;
    size_t n;
    uint8_t byte() {
        if (!n) return 0;
        --n;
        return *p++;
    }
    int range(int lo, int hi) { return lo + static_cast<int>(byte() % static_cast<unsigned>(hi - lo + 1)); }
};

// A block with guard bytes on both sides.
struct Guarded {
    std::vector<uint8_t> mem;
    size_t size;
    explicit Guarded(size_t n) : mem(n + 2 * kPad, kGuard), size(n) {}
    uint8_t* data() { return mem.data() + kPad; }
    bool intact() const {
        for (size_t i = 0; i < kPad; ++i)
            if (mem[i] != kGuard || mem[kPad + size + i] != kGuard) return false;
        return true;
    }
};

void check(bool ok) {
    if (!ok) abort();
}

struct Api {
    int sel;
    bool inv;
};
const Api kApis[] = {{13, false}, {1, false}, {5, false}, {7, false}, {13, true}, {1, true}, {5, true}, {7, true}};

VrxStatus init(int k, void* s, const float* a, int b, int c, const float* d, int e, int f) {
    switch (k) {
        case 0: return vrxsWTFwdInit_32f(static_cast<VrxsWtFwdState_32f*>(s), a, b, c, d, e, f);
        case 1: return vrxsWTFwdInit_8u32f(static_cast<VrxsWtFwdState_8u32f*>(s), a, b, c, d, e, f);
        case 2: return vrxsWTFwdInit_16u32f(static_cast<VrxsWtFwdState_16u32f*>(s), a, b, c, d, e, f);
        case 3: return vrxsWTFwdInit_16s32f(static_cast<VrxsWtFwdState_16s32f*>(s), a, b, c, d, e, f);
        case 4: return vrxsWTInvInit_32f(static_cast<VrxsWtInvState_32f*>(s), a, b, c, d, e, f);
        case 5: return vrxsWTInvInit_32f8u(static_cast<VrxsWtInvState_32f8u*>(s), a, b, c, d, e, f);
        case 6: return vrxsWTInvInit_32f16u(static_cast<VrxsWtInvState_32f16u*>(s), a, b, c, d, e, f);
        default: return vrxsWTInvInit_32f16s(static_cast<VrxsWtInvState_32f16s*>(s), a, b, c, d, e, f);
    }
}
VrxStatus setDly(int k, void* s, const float* l, const float* h) {
    switch (k) {
        case 0: return vrxsWTFwdSetDlyLine_32f(static_cast<VrxsWtFwdState_32f*>(s), l, h);
        case 1: return vrxsWTFwdSetDlyLine_8u32f(static_cast<VrxsWtFwdState_8u32f*>(s), l, h);
        case 2: return vrxsWTFwdSetDlyLine_16u32f(static_cast<VrxsWtFwdState_16u32f*>(s), l, h);
        case 3: return vrxsWTFwdSetDlyLine_16s32f(static_cast<VrxsWtFwdState_16s32f*>(s), l, h);
        case 4: return vrxsWTInvSetDlyLine_32f(static_cast<VrxsWtInvState_32f*>(s), l, h);
        case 5: return vrxsWTInvSetDlyLine_32f8u(static_cast<VrxsWtInvState_32f8u*>(s), l, h);
        case 6: return vrxsWTInvSetDlyLine_32f16u(static_cast<VrxsWtInvState_32f16u*>(s), l, h);
        default: return vrxsWTInvSetDlyLine_32f16s(static_cast<VrxsWtInvState_32f16s*>(s), l, h);
    }
}
VrxStatus getDly(int k, const void* s, float* l, float* h) {
    switch (k) {
        case 0: return vrxsWTFwdGetDlyLine_32f(static_cast<const VrxsWtFwdState_32f*>(s), l, h);
        case 1: return vrxsWTFwdGetDlyLine_8u32f(static_cast<const VrxsWtFwdState_8u32f*>(s), l, h);
        case 2: return vrxsWTFwdGetDlyLine_16u32f(static_cast<const VrxsWtFwdState_16u32f*>(s), l, h);
        case 3: return vrxsWTFwdGetDlyLine_16s32f(static_cast<const VrxsWtFwdState_16s32f*>(s), l, h);
        case 4: return vrxsWTInvGetDlyLine_32f(static_cast<const VrxsWtInvState_32f*>(s), l, h);
        case 5: return vrxsWTInvGetDlyLine_32f8u(static_cast<const VrxsWtInvState_32f8u*>(s), l, h);
        case 6: return vrxsWTInvGetDlyLine_32f16u(static_cast<const VrxsWtInvState_32f16u*>(s), l, h);
        default: return vrxsWTInvGetDlyLine_32f16s(static_cast<const VrxsWtInvState_32f16s*>(s), l, h);
    }
}
// Forward: src typed by the kind, two float bands; inverse: two float
// bands into a typed destination.
VrxStatus run(int k, const void* a, const void* b, void* c, void* d, int n, void* s) {
    const float* fa = static_cast<const float*>(a);
    const float* fb = static_cast<const float*>(b);
    float* fc = static_cast<float*>(c);
    float* fd = static_cast<float*>(d);
    switch (k) {
        case 0: return vrxsWTFwd_32f(fa, fc, fd, n, static_cast<VrxsWtFwdState_32f*>(s));
        case 1: return vrxsWTFwd_8u32f(static_cast<const Vrx8u*>(a), fc, fd, n, static_cast<VrxsWtFwdState_8u32f*>(s));
        case 2: return vrxsWTFwd_16u32f(static_cast<const Vrx16u*>(a), fc, fd, n, static_cast<VrxsWtFwdState_16u32f*>(s));
        case 3: return vrxsWTFwd_16s32f(static_cast<const Vrx16s*>(a), fc, fd, n, static_cast<VrxsWtFwdState_16s32f*>(s));
        case 4: return vrxsWTInv_32f(fa, fb, n, fc, static_cast<VrxsWtInvState_32f*>(s));
        case 5: return vrxsWTInv_32f8u(fa, fb, n, static_cast<Vrx8u*>(c), static_cast<VrxsWtInvState_32f8u*>(s));
        case 6: return vrxsWTInv_32f16u(fa, fb, n, static_cast<Vrx16u*>(c), static_cast<VrxsWtInvState_32f16u*>(s));
        default: return vrxsWTInv_32f16s(fa, fb, n, static_cast<Vrx16s*>(c), static_cast<VrxsWtInvState_32f16s*>(s));
    }
}

int delayOf(bool inv, int taps, int offs) {
    if (inv) return offs == -1 ? taps / 2 : (taps + 1) / 2 - 1 + offs / 2;
    return taps - 1 + (offs > 0 ? offs : 0);
}

void haar(In& in) {
    const int len = in.range(-2, 300);
    const int sf = static_cast<int8_t>(in.byte());
    const size_t n = len > 0 ? static_cast<size_t>(len) : 1;
    const size_t h = (n + 1) / 2;
    Guarded x(n * 8), lo(h * 8), hi(h * 8), y(n * 8);
    for (size_t i = 0; i < n * 8; ++i) x.data()[i] = in.byte();
    const std::vector<uint8_t> loBefore = lo.mem, yBefore = y.mem;
    VrxStatus s[6];
    s[0] = vrxsWTHaarFwd_32f(reinterpret_cast<float*>(x.data()), len, reinterpret_cast<float*>(lo.data()), reinterpret_cast<float*>(hi.data()));
    s[1] = vrxsWTHaarInv_32f(reinterpret_cast<float*>(lo.data()), reinterpret_cast<float*>(hi.data()), reinterpret_cast<float*>(y.data()), len);
    s[2] = vrxsWTHaarFwd_64f(reinterpret_cast<double*>(x.data()), len, reinterpret_cast<double*>(lo.data()), reinterpret_cast<double*>(hi.data()));
    s[3] = vrxsWTHaarInv_64f(reinterpret_cast<double*>(lo.data()), reinterpret_cast<double*>(hi.data()), reinterpret_cast<double*>(y.data()), len);
    s[4] = vrxsWTHaarFwd_16s_Sfs(reinterpret_cast<int16_t*>(x.data()), len, reinterpret_cast<int16_t*>(lo.data()), reinterpret_cast<int16_t*>(hi.data()), sf);
    s[5] = vrxsWTHaarInv_16s_Sfs(reinterpret_cast<int16_t*>(lo.data()), reinterpret_cast<int16_t*>(hi.data()), reinterpret_cast<int16_t*>(y.data()), len, sf);
    for (VrxStatus v : s) check(len > 0 ? v == vrxOk : v == vrxErrBadLength);
    if (len <= 0) check(lo.mem == loBefore && y.mem == yBefore);
    check(x.intact() && lo.intact() && hi.intact() && y.intact());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    In in{data, size};
    const int k = in.range(0, 8);
    if (k == 8) {
        haar(in);
        return 0;
    }
    const Api& api = kApis[k];
    const int t0 = in.range(0, 40), t1 = in.range(0, 40);
    const int o0 = in.range(-2, 9), o1 = in.range(-2, 9);
    const int sel = in.range(0, 15) == 0 ? in.range(0, 20) : api.sel;
    int size0 = -1;
    const VrxStatus gs = api.inv ? vrxsWTInvGetSize(sel, t0, o0, t1, o1, &size0) : vrxsWTFwdGetSize(sel, t0, o0, t1, o1, &size0);
    const bool valid = t0 >= 1 && t1 >= 1 && o0 >= -1 && o1 >= -1 && (sel == 13 || sel == 1 || sel == 5 || sel == 7);
    check(valid ? (gs == vrxOk && size0 > 0) : (gs < 0 && size0 == 0));
    if (!valid || sel != api.sel) {
        // Init with bad values writes the identity word only
        if (t0 >= 1 && t1 >= 1 && o0 >= -1 && o1 >= -1) return 0;
        Guarded st(64);
        std::vector<float> taps(41, 1.0f);
        const VrxStatus s = init(k, st.data(), taps.data(), t0, o0, taps.data(), t1, o1);
        check(s == (t0 < 1 || t1 < 1 ? vrxErrBadLength : vrxErrWtOffset));
        for (size_t i = 4; i < 64; ++i) check(st.data()[i] == kGuard);
        check(st.intact());
        // the word alone is no state
        float f[8] = {};
        check(run(k, f, f, f + 2, f + 4, 1, st.data()) == vrxErrBadSpec);
        return 0;
    }
    Guarded st(static_cast<size_t>(size0));
    std::vector<float> tl(t0), th(t1);
    for (float& v : tl) v = static_cast<float>(static_cast<int8_t>(in.byte())) / 32.0f;
    for (float& v : th) v = static_cast<float>(static_cast<int8_t>(in.byte())) / 32.0f;
    check(init(k, st.data(), tl.data(), t0, o0, th.data(), t1, o1) == vrxOk);
    const int d0 = delayOf(api.inv, t0, o0), d1 = delayOf(api.inv, t1, o1);
    if (in.byte() & 1) {
        std::vector<float> l(d0 + 1), h(d1 + 1);
        for (float& v : l) v = static_cast<float>(static_cast<int8_t>(in.byte()));
        for (float& v : h) v = static_cast<float>(static_cast<int8_t>(in.byte()));
        check(setDly(k, st.data(), (in.byte() & 1) ? l.data() : nullptr, h.data()) == vrxOk);
        std::vector<float> gl(d0 + 1, 3.5f), gh(d1 + 1, 3.5f);
        check(getDly(k, st.data(), gl.data(), gh.data()) == vrxOk);
        for (int i = 0; i < d1; ++i) check(memcmp(&gh[i], &h[i], 4) == 0);
        check(gl[d0] == 3.5f && gh[d1] == 3.5f);
    }
    const size_t es = api.sel == 13 ? 4 : api.sel == 1 ? 1 : 2;
    int calls = in.range(1, 6);
    while (calls-- > 0) {
        const int n = in.range(-1, 1200);
        const size_t m = n > 0 ? static_cast<size_t>(n) : 1;
        // forward: src 2m typed, two float bands of m; inverse: two float
        // bands of m, destination 2m typed
        Guarded a(api.inv ? m * 4 : 2 * m * es), b(m * 4), c(api.inv ? 2 * m * es : m * 4), d(m * 4);
        for (size_t i = 0; i < a.size; ++i) a.data()[i] = in.byte();
        for (size_t i = 0; i < b.size; ++i) b.data()[i] = in.byte();
        if (api.inv)  // finite band values
            for (size_t i = 0; i < m; ++i) {
                reinterpret_cast<float*>(a.data())[i] = static_cast<float>(static_cast<int8_t>(a.data()[i]));
                reinterpret_cast<float*>(b.data())[i] = static_cast<float>(static_cast<int8_t>(b.data()[i]));
            }
        const std::vector<uint8_t> cBefore = c.mem, dBefore = d.mem, stBefore = st.mem;
        const VrxStatus s = run(k, a.data(), b.data(), c.data(), api.inv ? nullptr : d.data(), n, st.data());
        if (n < 1) check(s == vrxErrBadLength && c.mem == cBefore && d.mem == dBefore && st.mem == stBefore);
        else check(s == vrxOk);
        check(a.intact() && b.intact() && c.intact() && d.intact() && st.intact());
    }
    return 0;
}

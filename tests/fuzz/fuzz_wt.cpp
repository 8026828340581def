// Fuzz target of the wavelet states and Haar: fuzzer-chosen kind, taps,
// offsets (some invalid), block lengths (some not positive), delay lines
// and data through the size query, Init, Set/Get and the runs. A failed
// call must return a negative status and leave its outputs alone; nothing
// is written outside the state's reported size and the destinations (the
// guard bytes around each are checked).
#include "fuzz_util.h"

namespace {

// One state type: Init, the line pair and a run over untyped pointers.
// Forward: src typed by the kind, two float bands; inverse: two float bands
// into a typed destination.
struct Kind {
    int sel;
    bool inv;
    size_t es;
    VrxStatus (*init)(void*, const float*, int, int, const float*, int, int);
    VrxStatus (*setDly)(void*, const float*, const float*);
    VrxStatus (*getDly)(const void*, float*, float*);
    VrxStatus (*run)(const void*, const void*, void*, void*, int, void*);
};
template <class S, auto I, auto Set, auto Get> Kind base(int sel, bool inv, size_t es) {
    return {sel, inv, es,
            [](void* s, const float* a, int b, int c, const float* d, int e, int f) { return I(static_cast<S*>(s), a, b, c, d, e, f); },
            [](void* s, const float* l, const float* h) { return Set(static_cast<S*>(s), l, h); },
            [](const void* s, float* l, float* h) { return Get(static_cast<const S*>(s), l, h); }, nullptr};
}
template <class S, class E, auto I, auto Set, auto Get, auto R> Kind fwd(int sel) {
    Kind k = base<S, I, Set, Get>(sel, false, sizeof(E));
    k.run = [](const void* a, const void*, void* c, void* d, int n, void* s) {
        return R(static_cast<const E*>(a), static_cast<float*>(c), static_cast<float*>(d), n, static_cast<S*>(s));
    };
    return k;
}
template <class S, class E, auto I, auto Set, auto Get, auto R> Kind inv(int sel) {
    Kind k = base<S, I, Set, Get>(sel, true, sizeof(E));
    k.run = [](const void* a, const void* b, void* c, void*, int n, void* s) {
        return R(static_cast<const float*>(a), static_cast<const float*>(b), n, static_cast<E*>(c), static_cast<S*>(s));
    };
    return k;
}

int delayOf(bool inv, int taps, int offs) {
    if (inv) return offs == -1 ? taps / 2 : (taps + 1) / 2 - 1 + offs / 2;
    return taps - 1 + (offs > 0 ? offs : 0);
}

const Kind kKinds[] = {
    fwd<VrxsWtFwdState_32f, Vrx32f, vrxsWTFwdInit_32f, vrxsWTFwdSetDlyLine_32f, vrxsWTFwdGetDlyLine_32f, vrxsWTFwd_32f>(13),
    fwd<VrxsWtFwdState_8u32f, Vrx8u, vrxsWTFwdInit_8u32f, vrxsWTFwdSetDlyLine_8u32f, vrxsWTFwdGetDlyLine_8u32f, vrxsWTFwd_8u32f>(1),
    fwd<VrxsWtFwdState_16u32f, Vrx16u, vrxsWTFwdInit_16u32f, vrxsWTFwdSetDlyLine_16u32f, vrxsWTFwdGetDlyLine_16u32f, vrxsWTFwd_16u32f>(5),
    fwd<VrxsWtFwdState_16s32f, Vrx16s, vrxsWTFwdInit_16s32f, vrxsWTFwdSetDlyLine_16s32f, vrxsWTFwdGetDlyLine_16s32f, vrxsWTFwd_16s32f>(7),
    inv<VrxsWtInvState_32f, Vrx32f, vrxsWTInvInit_32f, vrxsWTInvSetDlyLine_32f, vrxsWTInvGetDlyLine_32f, vrxsWTInv_32f>(13),
    inv<VrxsWtInvState_32f8u, Vrx8u, vrxsWTInvInit_32f8u, vrxsWTInvSetDlyLine_32f8u, vrxsWTInvGetDlyLine_32f8u, vrxsWTInv_32f8u>(1),
    inv<VrxsWtInvState_32f16u, Vrx16u, vrxsWTInvInit_32f16u, vrxsWTInvSetDlyLine_32f16u, vrxsWTInvGetDlyLine_32f16u, vrxsWTInv_32f16u>(5),
    inv<VrxsWtInvState_32f16s, Vrx16s, vrxsWTInvInit_32f16s, vrxsWTInvSetDlyLine_32f16s, vrxsWTInvGetDlyLine_32f16s, vrxsWTInv_32f16s>(7),
};

void haar(fz::In& in) {
    const int len = in.range(-2, 300);
    const int sf = static_cast<int8_t>(in.byte());
    const size_t n = len > 0 ? static_cast<size_t>(len) : 1, h = (n + 1) / 2;
    fz::Guarded x(n * 8), lo(h * 8), hi(h * 8), y(n * 8);
    x.fill(in);
    const fz::Watch w{&x, &lo, &hi, &y};
    VrxStatus s[6];
    s[0] = vrxsWTHaarFwd_32f(x.as<float>(), len, lo.as<float>(), hi.as<float>());
    s[1] = vrxsWTHaarInv_32f(lo.as<float>(), hi.as<float>(), y.as<float>(), len);
    s[2] = vrxsWTHaarFwd_64f(x.as<double>(), len, lo.as<double>(), hi.as<double>());
    s[3] = vrxsWTHaarInv_64f(lo.as<double>(), hi.as<double>(), y.as<double>(), len);
    s[4] = vrxsWTHaarFwd_16s_Sfs(x.as<int16_t>(), len, lo.as<int16_t>(), hi.as<int16_t>(), sf);
    s[5] = vrxsWTHaarInv_16s_Sfs(lo.as<int16_t>(), hi.as<int16_t>(), y.as<int16_t>(), len, sf);
    for (VrxStatus v : s) {
        w.check(v, "Haar");
        fz::require(len > 0 ? v == vrxOk : v == vrxErrBadLength, "status", "Haar", v);
    }
}

}  // namespace

void fuzzOne(fz::In& in) {
    const int which = in.range(0, 8);
    if (which == 8) return haar(in);
    const Kind& k = kKinds[which];
    const int t0 = in.range(0, 40), t1 = in.range(0, 40);
    const int o0 = in.range(-2, 9), o1 = in.range(-2, 9);
    const int sel = in.rarely() ? in.range(0, 20) : k.sel;
    int size0 = -1;
    const VrxStatus gs = k.inv ? vrxsWTInvGetSize(sel, t0, o0, t1, o1, &size0) : vrxsWTFwdGetSize(sel, t0, o0, t1, o1, &size0);
    const bool valid = t0 >= 1 && t1 >= 1 && o0 >= -1 && o1 >= -1 && (sel == 13 || sel == 1 || sel == 5 || sel == 7);
    fz::require(valid ? (gs == vrxOk && size0 > 0) : (gs < 0 && size0 == 0), "size query", "GetSize", gs);
    if (!valid || sel != k.sel) {
        // Init with bad values writes the identity word only
        if (t0 >= 1 && t1 >= 1 && o0 >= -1 && o1 >= -1) return;
        fz::Guarded st(64);
        std::vector<float> taps(41, 1.0f);
        const VrxStatus s = k.init(st.data(), taps.data(), t0, o0, taps.data(), t1, o1);
        fz::require(s == (t0 < 1 || t1 < 1 ? vrxErrBadLength : vrxErrWtOffset) && st.intact(), "bad Init", "Init", s);
        for (size_t i = 4; i < 64; ++i) fz::require(st.data()[i] == fz::Guarded::kFill, "bad Init wrote more than the word", "Init", s);
        // the word alone is no state
        float f[8] = {};
        fz::require(k.run(f, f, f + 2, f + 4, 1, st.data()) == vrxErrBadSpec, "ran a bare word");
        return;
    }
    fz::Guarded st(size0);
    std::vector<float> tl(t0), th(t1);
    for (std::vector<float>* v : {&tl, &th})
        for (float& x : *v) x = static_cast<int8_t>(in.byte()) / 32.0f;
    fz::require(k.init(st.data(), tl.data(), t0, o0, th.data(), t1, o1) == vrxOk, "Init refused");
    const int d0 = delayOf(k.inv, t0, o0), d1 = delayOf(k.inv, t1, o1);
    if (in.ConsumeBool()) {
        std::vector<float> l(d0 + 1), h(d1 + 1), gl(d0 + 1, 3.5f), gh(d1 + 1, 3.5f);
        for (std::vector<float>* v : {&l, &h})
            for (float& x : *v) x = static_cast<int8_t>(in.byte());
        fz::require(k.setDly(st.data(), in.ConsumeBool() ? l.data() : nullptr, h.data()) == vrxOk, "SetDlyLine");
        fz::require(k.getDly(st.data(), gl.data(), gh.data()) == vrxOk, "GetDlyLine");
        fz::require(memcmp(gh.data(), h.data(), 4 * d1) == 0 && gl[d0] == 3.5f && gh[d1] == 3.5f, "line pair");
    }
    for (int calls = in.range(1, 6); calls-- > 0;) {
        const int n = in.range(-1, 1200);
        const size_t m = n > 0 ? static_cast<size_t>(n) : 1;
        // forward: src 2m typed, two float bands of m; inverse: two float
        // bands of m, destination 2m typed
        fz::Guarded a(k.inv ? m * 4 : 2 * m * k.es), b(m * 4), c(k.inv ? 2 * m * k.es : m * 4), d(m * 4);
        a.fill(in);
        b.fill(in);
        if (k.inv)  // finite band values
            for (fz::Guarded* g : {&a, &b}) g->fillWith<float>([&, i = 0]() mutable { return static_cast<int8_t>(g->data()[i++]); });
        const fz::Watch w{&a, &b, &c, &d, &st};
        const VrxStatus s = k.run(a.data(), b.data(), c.data(), k.inv ? nullptr : d.data(), n, st.data());
        w.check(s, "run");
        fz::require(n < 1 ? s == vrxErrBadLength : s == vrxOk, "status", "run", s);
    }
}

// The IIR kinds as one table for the tests: every kind's size query, Init,
// runs and delay-line pair behind one set of type-free entries (taps, lines
// and samples pass as complex long double), plus the long-double direct
// form II transposed model and random stable filters.
#pragma once

#include <complex>
#include <type_traits>
#include <vector>

#include "vrx_test.h"

namespace iirt {

using cld = std::complex<long double>;
using V = std::vector<cld>;

enum class Form { AR, BQ, DF1f, DF1s };

struct Api {
    const char* name;
    uint32_t word;
    Form form;
    bool cplxTaps, cplxSamples, intSamples;
    long double eps;        // of the arithmetic type
    int sampleBytes;        // of one (complex) sample
    long double sampleMax;  // integer samples: the type's upper bound
    const void* runFn;      // the exported run and line pair: kinds that share them take each other's states
    const void* lineFn;
    VrxStatus (*size)(int, int*);
    VrxStatus (*init)(VrxsIirState**, const V& taps, int n, const V* line, Vrx8u* buf) = nullptr;
    VrxStatus (*run)(const void* src, void* dst, int len, VrxsIirState*, int sf) = nullptr;
    VrxStatus (*runI)(void* srcDst, int len, VrxsIirState*, int sf) = nullptr;
    VrxStatus (*get)(const VrxsIirState*, V& out, int count) = nullptr;
    VrxStatus (*set)(VrxsIirState*, const V* in, int count) = nullptr;
    std::vector<uint8_t> (*pack)(const V& x) = nullptr;  // samples of the kind's type
    V (*unpack)(const std::vector<uint8_t>& b, size_t n) = nullptr;
    bool bq() const { return form != Form::AR; }
    int lineLen(int n) const { return form == Form::AR ? n : (form == Form::BQ ? 2 * n : 4 * n); }
};

template <class T> struct Real { using type = T; static constexpr bool cx = false; };
template <> struct Real<Vrx32fc> { using type = Vrx32f; static constexpr bool cx = true; };
template <> struct Real<Vrx64fc> { using type = Vrx64f; static constexpr bool cx = true; };
template <> struct Real<Vrx16sc> { using type = Vrx16s; static constexpr bool cx = true; };
template <> struct Real<Vrx32sc> { using type = Vrx32s; static constexpr bool cx = true; };

template <class T> T fromC(cld v) {
    using R = typename Real<T>::type;
    if constexpr (Real<T>::cx) return T{static_cast<R>(v.real()), static_cast<R>(v.imag())};
    else return static_cast<T>(v.real());
}
template <class T> cld toC(const T& t) {
    if constexpr (Real<T>::cx) return cld(t.re, t.im);
    else return cld(t, 0);
}
template <class T> std::vector<T> fromCs(const V& v) {
    std::vector<T> t(v.size());
    for (size_t i = 0; i < t.size(); ++i) t[i] = fromC<T>(v[i]);
    return t;
}

template <class Tap, class S, auto SizeF, auto InitF, auto RunF, auto RunIF, auto GetF, auto SetF>
Api make(const char* name, uint32_t word, Form form) {
    using RS = typename Real<S>::type;
    // the line's type: 32s for the direct form I line of 0x49493330, else the taps'
    using L = std::conditional_t<std::is_same_v<decltype(GetF), VrxStatus (*)(const VrxsIirState*, Vrx32s*)>, Vrx32s, Tap>;
    Api a{name, word, form, Real<Tap>::cx, Real<S>::cx, std::is_integral_v<RS>,
          std::is_same_v<typename Real<Tap>::type, Vrx32f> ? 0x1p-24L : 0x1p-53L, int(sizeof(S)), 0,
          reinterpret_cast<const void*>(RunF), reinterpret_cast<const void*>(GetF), SizeF};
    if constexpr (std::is_integral_v<RS>) a.sampleMax = static_cast<long double>(std::numeric_limits<RS>::max());
    a.init = [](VrxsIirState** pp, const V& taps, int n, const V* line, Vrx8u* buf) {
        const std::vector<L> l = line ? fromCs<L>(*line) : std::vector<L>();
        return InitF(pp, fromCs<Tap>(taps).data(), n, line ? l.data() : nullptr, buf);
    };
    a.run = [](const void* s, void* d, int len, VrxsIirState* st, int sf) {
        if constexpr (std::is_integral_v<RS>) return RunF(static_cast<const S*>(s), static_cast<S*>(d), len, st, sf);
        else return RunF(static_cast<const S*>(s), static_cast<S*>(d), len, st);
    };
    a.runI = [](void* sd, int len, VrxsIirState* st, int sf) {
        if constexpr (std::is_integral_v<RS>) return RunIF(static_cast<S*>(sd), len, st, sf);
        else return RunIF(static_cast<S*>(sd), len, st);
    };
    a.get = [](const VrxsIirState* st, V& out, int count) {
        std::vector<L> l(count);
        VrxStatus r = GetF(st, l.data());
        out.assign(count, 0);
        for (int i = 0; i < count; ++i) out[i] = toC(l[i]);
        return r;
    };
    a.set = [](VrxsIirState* st, const V* in, int count) {
        std::vector<L> l = in ? fromCs<L>(*in) : std::vector<L>(count);
        return SetF(st, in ? l.data() : nullptr);
    };
    a.pack = [](const V& x) {
        std::vector<uint8_t> out(x.size() * sizeof(S));
        const std::vector<S> s = fromCs<S>(x);
        memcpy(out.data(), s.data(), out.size());
        return out;
    };
    a.unpack = [](const std::vector<uint8_t>& b, size_t n) {
        V x(n);
        for (size_t i = 0; i < n; ++i) {
            S v;
            memcpy(&v, &b[i * sizeof(S)], sizeof(S));
            x[i] = toC(v);
        }
        return x;
    };
    return a;
}

#define IIR_KINDS(Tap, S, sfx, run, rs, is, pair, word, form)                                          \
    make<Tap, S, &vrxsIIRGetStateSize##sfx, &vrxsIIRInit##sfx, &vrxsIIR##run##rs, &vrxsIIR##run##is, \
         &vrxsIIRGetDlyLine##pair, &vrxsIIRSetDlyLine##pair>(#sfx, word, form)

inline const std::vector<Api>& kinds() {
    static const std::vector<Api> k = {
        IIR_KINDS(Vrx32f, Vrx32f, _32f, _32f, , _I, _32f, 0x49493031, Form::AR),
        IIR_KINDS(Vrx32f, Vrx32f, _BiQuad_32f, _32f, , _I, _32f, 0x49493032, Form::BQ),
        IIR_KINDS(Vrx32fc, Vrx32fc, _32fc, _32fc, , _I, _32fc, 0x49493033, Form::AR),
        IIR_KINDS(Vrx32fc, Vrx32fc, _BiQuad_32fc, _32fc, , _I, _32fc, 0x49493034, Form::BQ),
        IIR_KINDS(Vrx32f, Vrx16s, 32f_16s, 32f_16s, _Sfs, _ISfs, 32f_16s, 0x49493035, Form::AR),
        IIR_KINDS(Vrx32f, Vrx16s, 32f_BiQuad_16s, 32f_16s, _Sfs, _ISfs, 32f_16s, 0x49493036, Form::BQ),
        IIR_KINDS(Vrx32fc, Vrx16sc, 32fc_16sc, 32fc_16sc, _Sfs, _ISfs, 32fc_16sc, 0x49493037, Form::AR),
        IIR_KINDS(Vrx32fc, Vrx16sc, 32fc_BiQuad_16sc, 32fc_16sc, _Sfs, _ISfs, 32fc_16sc, 0x49493038, Form::BQ),
        IIR_KINDS(Vrx64f, Vrx64f, _64f, _64f, , _I, _64f, 0x49493133, Form::AR),
        IIR_KINDS(Vrx64f, Vrx64f, _BiQuad_64f, _64f, , _I, _64f, 0x49493134, Form::BQ),
        IIR_KINDS(Vrx64fc, Vrx64fc, _64fc, _64fc, , _I, _64fc, 0x49493135, Form::AR),
        IIR_KINDS(Vrx64fc, Vrx64fc, _BiQuad_64fc, _64fc, , _I, _64fc, 0x49493136, Form::BQ),
        IIR_KINDS(Vrx64f, Vrx32f, 64f_32f, 64f_32f, , _I, 64f_32f, 0x49493137, Form::AR),
        IIR_KINDS(Vrx64f, Vrx32f, 64f_BiQuad_32f, 64f_32f, , _I, 64f_32f, 0x49493138, Form::BQ),
        IIR_KINDS(Vrx64fc, Vrx32fc, 64fc_32fc, 64fc_32fc, , _I, 64fc_32fc, 0x49493139, Form::AR),
        IIR_KINDS(Vrx64fc, Vrx32fc, 64fc_BiQuad_32fc, 64fc_32fc, , _I, 64fc_32fc, 0x49493230, Form::BQ),
        IIR_KINDS(Vrx64f, Vrx32s, 64f_32s, 64f_32s, _Sfs, _ISfs, 64f_32s, 0x49493231, Form::AR),
        IIR_KINDS(Vrx64f, Vrx32s, 64f_BiQuad_32s, 64f_32s, _Sfs, _ISfs, 64f_32s, 0x49493232, Form::BQ),
        IIR_KINDS(Vrx64fc, Vrx32sc, 64fc_32sc, 64fc_32sc, _Sfs, _ISfs, 64fc_32sc, 0x49493233, Form::AR),
        IIR_KINDS(Vrx64fc, Vrx32sc, 64fc_BiQuad_32sc, 64fc_32sc, _Sfs, _ISfs, 64fc_32sc, 0x49493234, Form::BQ),
        IIR_KINDS(Vrx64f, Vrx16s, 64f_16s, 64f_16s, _Sfs, _ISfs, 64f_16s, 0x49493235, Form::AR),
        IIR_KINDS(Vrx64f, Vrx16s, 64f_BiQuad_16s, 64f_16s, _Sfs, _ISfs, 64f_16s, 0x49493236, Form::BQ),
        IIR_KINDS(Vrx64fc, Vrx16sc, 64fc_16sc, 64fc_16sc, _Sfs, _ISfs, 64fc_16sc, 0x49493237, Form::AR),
        IIR_KINDS(Vrx64fc, Vrx16sc, 64fc_BiQuad_16sc, 64fc_16sc, _Sfs, _ISfs, 64fc_16sc, 0x49493238, Form::BQ),
        IIR_KINDS(Vrx32f, Vrx32f, _BiQuad_DF1_32f, _32f, , _I, _32f, 0x49493239, Form::DF1f),
        IIR_KINDS(Vrx64f, Vrx32s, 64f_BiQuad_DF1_32s, 64f_32s, _Sfs, _ISfs, 64f_DF1_32s, 0x49493330, Form::DF1s),
    };
    return k;
}

// ------------------------------------------------------------- filters
// Random stable AR taps b[0..n], a[0..n] (poles inside radius 0.95; real
// kinds get conjugate pairs), a0 not 1 so that normalising is exercised.
inline V randomAR(vt::Rng& g, int n, bool cplx) {
    V a{cld(1)};
    auto root = [&](cld z) {  // a *= (1 - z x)
        a.push_back(0);
        for (size_t i = a.size() - 1; i > 0; --i) a[i] -= z * a[i - 1];
    };
    for (int left = n; left > 0;) {
        long double r = 0.95L * g.uniform(), th = 3.14159265358979L * g.uniform();
        if (cplx) root(std::polar(r, 2 * th)), --left;
        else if (left >= 2) root(std::polar(r, th)), root(std::polar(r, -th)), left -= 2;
        else root(cld(g.uniform() < 0.5 ? r : -r)), --left;
    }
    const long double a0 = 0.5L + g.uniform();
    V t(2 * n + 2);
    for (int i = 0; i <= n; ++i) {
        t[i] = cplx ? cld(g.uniform() - 0.5L, g.uniform() - 0.5L) : cld(g.uniform() - 0.5L);
        t[n + 1 + i] = (cplx ? a[i] : cld(a[i].real())) * a0;
    }
    if (t[0] == cld(0)) t[0] = 0.25L;
    return t;
}

// Random stable biquads: b0, b1, b2, a0, a1, a2 per section.
inline V randomBQ(vt::Rng& g, int m, bool cplx) {
    V t;
    for (int s = 0; s < m; ++s) {
        V ar = randomAR(g, 2, cplx);
        t.insert(t.end(), ar.begin(), ar.end());
    }
    return t;
}

// Random taps of the kind, rounded to its tap type as the kind holds them.
inline V randomTaps(const Api& k, vt::Rng& g, int n) {
    V t = k.bq() ? randomBQ(g, n, k.cplxTaps) : randomAR(g, n, k.cplxTaps);
    for (cld& v : t) v = k.eps > 0x1p-30L ? cld(float(v.real()), float(v.imag())) : cld(double(v.real()), double(v.imag()));
    return t;
}

// Direct form II transposed in long double over normalised taps; the line
// of n+1 values (last 0) carries over between calls. step() keeps per
// section the largest input, output and line value seen.
struct Model {
    std::vector<V> b, a, d;  // per section (AR: one section of order n)
    std::vector<long double> xin, yout, dmax;
    bool track = true;
    Model(const Api& k, const V& taps, int n) {
        if (!k.bq()) add(V(taps.begin(), taps.begin() + n + 1), V(taps.begin() + n + 1, taps.end()));
        else
            for (int s = 0; s < n; ++s) add(V(&taps[6 * s], &taps[6 * s + 3]), V(&taps[6 * s + 3], &taps[6 * s + 6]));
    }
    void add(V bb, V aa) {
        const cld a0 = aa[0];
        for (cld& v : bb) v /= a0;
        for (cld& v : aa) v /= a0;
        b.push_back(bb);
        a.push_back(aa);
        d.push_back(V(bb.size(), cld(0)));
        xin.push_back(0), yout.push_back(0), dmax.push_back(0);
    }
    cld step(cld x) {
        for (size_t s = 0; s < b.size(); ++s) {
            const size_t n = b[s].size() - 1;
            V& l = d[s];
            const cld y = b[s][0] * x + l[0];
            for (size_t i = 0; i < n; ++i) l[i] = b[s][i + 1] * x - a[s][i + 1] * y + l[i + 1];
            if (track) {
                xin[s] = std::max(xin[s], std::abs(x));
                yout[s] = std::max(yout[s], std::abs(y));
                for (size_t i = 0; i < n; ++i) dmax[s] = std::max(dmax[s], std::abs(l[i]));
            }
            x = y;
        }
        return x;
    }
    // L1 norm of the first 4000 samples of the impulse response of sections
    // s0..s1-1, from a zero line.
    long double l1(int s0, int s1) const {
        Model m = *this;
        m.b.assign(b.begin() + s0, b.begin() + s1);
        m.a.assign(a.begin() + s0, a.begin() + s1);
        m.d.assign(d.begin() + s0, d.begin() + s1);
        for (V& l : m.d) for (cld& v : l) v = 0;
        m.track = false;
        long double sum = 0;
        for (int i = 0; i < 4000; ++i) sum += std::abs(m.step(i == 0 ? cld(1) : cld(0)));
        return sum;
    }
};

// Random samples that the sample type holds exactly.
inline V randomSamples(const Api& k, vt::Rng& g, int n, long double amp) {
    V x(n);
    for (int i = 0; i < n; ++i) {
        long double re = amp * (2 * g.uniform() - 1), im = k.cplxSamples ? amp * (2 * g.uniform() - 1) : 0;
        if (k.intSamples) re = std::nearbyint(re), im = std::nearbyint(im);
        x[i] = cld(re, im);
    }
    return k.unpack(k.pack(x), n);  // exactly representable
}

// A state of the kind in an owned block.
struct StateBox {
    std::vector<uint8_t> mem;
    VrxsIirState* st = nullptr;
    VrxStatus status = vrxOk;
    StateBox(const Api& k, const V& taps, int n, const V* line = nullptr) {
        int size = 0;
        k.size(n, &size);
        mem.assign(size, 0);
        status = k.init(&st, taps, n, line, mem.data());
    }
};

}  // namespace iirt

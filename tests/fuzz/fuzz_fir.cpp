// Fuzz target of the FIR family: fuzzer-chosen tap counts, factors, phases,
// algorithms, lengths, aliasing and delay-line choices through the size
// queries, Init and the runs of the single-rate and multi-rate filters and
// SampleUp/SampleDown. Every call must return a status that is 0 or
// negative; a failed call writes nothing; no call writes outside the
// object, the work buffer, the destination and the delay line.
#include <algorithm>

#include "fuzz_util.h"

namespace {

template <class E, class S> struct Fir {
    VrxDataType sel;
    VrxStatus (*init)(const E*, int, int, S*);
    VrxStatus (*run)(const E*, E*, int, const S*, const E*, E*, Vrx8u*);
    VrxStatus (*mrInit)(const E*, int, int, int, int, int, VrxsFirMrState*);
    VrxStatus (*mrRun)(const E*, E*, int, const VrxsFirMrState*, const E*, E*, Vrx8u*);
};
const Fir<Vrx32f, VrxsFirState_32f> k32f{vrx32f, vrxsFIRSRInit_32f, vrxsFIRSR_32f, vrxsFIRMRInit_32f, vrxsFIRMR_32f};
const Fir<Vrx64fc, VrxsFirState_64fc> k64fc{vrx64fc, vrxsFIRSRInit_64fc, vrxsFIRSR_64fc, vrxsFIRMRInit_64fc, vrxsFIRMR_64fc};

// finite values from small bytes
void smallBytes(fz::Guarded& g, fz::In& in) { g.fillWith<uint8_t>([&] { return in.byte() & 0x3F; }); }

template <class E, class S>
void singleRate(fz::In& in, const Fir<E, S>& f) {
    const int N = in.range(-2, 300), alg = in.range(-1, 3);
    int specSize = -1, bufSize = -1;
    const VrxStatus gs = vrxsFIRSRGetSize(N, f.sel, &specSize, &bufSize);
    if (gs != vrxOk) return fz::require(gs < 0 && specSize == -1 && bufSize == -1, "failed size query", "GetSize", gs);
    fz::Guarded spec(specSize, in.byte()), taps(std::max(N, 1) * sizeof(E));
    smallBytes(taps, in);
    const fz::Watch ws{&spec};
    const VrxStatus is = f.init(taps.as<E>(), N, alg, spec.as<S>());
    ws.check(is, "Init");
    if (is < 0) return;
    const int n = in.range(-1, 3000);
    const int mode = in.range(0, 5);  // plain, in place, dst = line in, null lines, same line, no line out
    const size_t len = std::max(n, 1) * sizeof(E), lineLen = std::max(N - 1, 1) * sizeof(E);
    fz::Guarded src(len, in.byte()), dst(len, in.byte()), buf(bufSize, in.byte()), lin(lineLen), lout(lineLen);
    src.fill(in);
    memset(lin.data(), 0, lin.size());
    E* s = src.as<E>();
    E* d = mode == 1 ? s : dst.as<E>();
    const E* di = mode == 3 ? nullptr : lin.as<E>();
    E* dd = mode == 3 || mode == 5 ? nullptr : mode == 4 ? lin.as<E>() : lout.as<E>();
    const fz::Watch w{&src, &dst};
    const VrxStatus rs = f.run(s, d, n, spec.as<S>(), di, dd, buf.data());
    w.check(rs, "FIRSR");
    fz::require(spec.intact() && buf.intact() && lin.intact() && lout.intact(), "written outside", "FIRSR", rs);
}

template <class E, class S>
void multiRate(fz::In& in, const Fir<E, S>& f) {
    const int N = in.range(-1, 200), U = in.range(-1, 12), D = in.range(-1, 12), up = in.range(-1, 12), dp = in.range(-1, 12);
    int specSize = -1, bufSize = -1;
    const VrxStatus gs = vrxsFIRMRGetSize(N, U, D, f.sel, &specSize, &bufSize);
    fz::require(gs <= 0, "positive status", "MRGetSize", gs);
    fz::Guarded spec(gs < 0 ? 256 : specSize, in.byte()), taps(std::max(N, 1) * sizeof(E));
    memset(taps.data(), 0, taps.size());
    const fz::Watch ws{&spec};
    const VrxStatus is = f.mrInit(taps.as<E>(), N, U, up, D, dp, spec.as<VrxsFirMrState>());
    ws.check(is, "MRInit");
    if (is < 0) return;
    fz::require(gs == 0, "Init of a refused size", "MRInit", is);
    const int iters = in.range(-1, 600);
    const bool inPlace = in.ConsumeBool();
    const size_t len = size_t(std::max(iters, 1)) * std::max(U, D) * sizeof(E);
    const int H = U == 1 && D == 1 ? N : (N + U - 1) / U;
    fz::Guarded src(len), dst(len), buf(bufSize, in.byte()), line(H * sizeof(E));
    smallBytes(src, in);
    memset(line.data(), 0, line.size());
    const fz::Watch w{&src, &dst};
    const VrxStatus rs = f.mrRun(src.as<E>(), inPlace ? src.as<E>() : dst.as<E>(), iters, spec.as<VrxsFirMrState>(), line.as<E>(),
                                 line.as<E>(), buf.data());
    w.check(rs, "FIRMR");
    fz::require(spec.intact() && buf.intact() && line.intact(), "written outside", "FIRMR", rs);
}

void sampling(fz::In& in) {
    const int n = in.range(-1, 5000), f = in.range(-1, 20), ph = in.range(-1, 20);
    const bool up = in.ConsumeBool();
    const size_t srcN = std::max(n, 1);
    fz::Guarded src(srcN * 4, in.byte()), dst((up ? srcN * std::max(f, 1) : srcN) * 4, in.byte());
    int len = -7, phase = ph;
    const fz::Watch w{&src, &dst};
    const VrxStatus st = up ? vrxsSampleUp_32f(src.as<Vrx32f>(), n, dst.as<Vrx32f>(), &len, f, &phase)
                            : vrxsSampleDown_32f(src.as<Vrx32f>(), n, dst.as<Vrx32f>(), &len, f, &phase);
    w.check(st, "Sample");
    if (st < 0) fz::require(len == -7 && phase == ph, "length or phase written on failure", "Sample", st);
}

}  // namespace

void fuzzOne(fz::In& in) {
    switch (in.range(0, 4)) {
        case 0: singleRate(in, k32f); break;
        case 1: singleRate(in, k64fc); break;
        case 2: multiRate(in, k32f); break;
        case 3: multiRate(in, k64fc); break;
        default: sampling(in); break;
    }
}

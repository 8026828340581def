// Fuzz target of the convolution and correlation family: fuzzer-chosen
// function, lengths, lag, bias and algType (bad bytes included); the work
// buffer takes exactly the size that the matching query reports. A failed
// call must return a negative status and leave the sources and the
// destination untouched (except the late -228 of a bad norm byte, which
// follows a full result); no call may write outside the destination and the
// work buffer.
#include <algorithm>

#include "fuzz_util.h"

namespace {

// One call with its query (size pointer, algType) and its run over the two
// sources, the destination and the work buffer.
template <class E, class Query, class Run>
void one(fz::In& in, int n1, int n2, int outLen, VrxAlgType alg, Query query, Run run) {
    int size = -1, size2 = 64;
    const VrxStatus qs = query(&size, alg);
    // A bad norm byte is refused by the query at once but only after the
    // run: size the buffer from the query without it.
    if (qs == vrxErrAlgType && query(&size2, alg & 0xFF) != vrxOk) size2 = 64;
    if (qs == vrxOk && (size < 64 || size > (64 << 20))) return;
    fz::Guarded a(std::max(n1, 1) * sizeof(E), in.byte() & ~7), b(std::max(n2, 1) * sizeof(E), in.byte() & ~7);
    for (fz::Guarded* g : {&a, &b}) g->fillWith<float>([&] { return (in.range(0, 2000) - 1000) / 500.0f; });
    fz::Guarded dst(std::max(outLen, 1) * sizeof(E), in.byte() & ~7), work(qs == vrxOk ? size : size2, in.byte());
    const fz::Watch w{&a, &b, &dst};
    const VrxStatus st = run(a.as<E>(), b.as<E>(), dst.as<E>(), work.data());
    fz::require(work.intact(), "written outside the work buffer", "run", st);
    if (st == vrxErrAlgType && (alg & 0xFF) <= 2) fz::require(w.unchanged(a) && w.unchanged(b), "source written", "run", st);
    else w.check(st, "run");
    if (qs == vrxOk) fz::require(st == vrxOk || st == vrxErrAlgType, "refused after a good query", "run", st);
}

template <class E>
void corr(fz::In& in, int n1, int n2, int dstLen, int lowLag, VrxDataType type, VrxAlgType alg,
          VrxStatus (*autoF)(const E*, int, E*, int, VrxAlgType, Vrx8u*),
          VrxStatus (*crossF)(const E*, int, const E*, int, E*, int, int, VrxAlgType, Vrx8u*)) {
    if (in.ConsumeBool())
        one<E>(in, n1, 1, dstLen, alg, [&](int* s, VrxAlgType t) { return vrxsAutoCorrNormGetBufferSize(n1, dstLen, type, t, s); },
               [&](const E* a, const E*, E* o, Vrx8u* w) { return autoF(a, n1, o, dstLen, alg, w); });
    else
        one<E>(in, n1, n2, dstLen, alg,
               [&](int* s, VrxAlgType t) { return vrxsCrossCorrNormGetBufferSize(n1, n2, dstLen, lowLag, type, t, s); },
               [&](const E* a, const E* b, E* o, Vrx8u* w) { return crossF(a, n1, b, n2, o, dstLen, lowLag, alg, w); });
}

}  // namespace

void fuzzOne(fz::In& in) {
    const int which = in.range(0, 6);
    const int n1 = in.range(-1, 3000), n2 = in.range(-1, 3000), dstLen = in.range(-1, 3000);
    const int lowLag = in.range(-4000, 4000), bias = in.range(0, 63);
    const VrxAlgType alg = static_cast<VrxAlgType>(in.ConsumeIntegral<uint32_t>() & 0x7FFF03FF);
    const int T = n1 > 0 && n2 > 0 ? n1 + n2 - 1 : 1;
    switch (which) {
        case 0:
            one<Vrx32f>(in, n1, n2, T, alg, [&](int* s, VrxAlgType t) { return vrxsConvolveGetBufferSize(n1, n2, vrx32f, t, s); },
                        [&](const Vrx32f* a, const Vrx32f* b, Vrx32f* o, Vrx8u* w) { return vrxsConvolve_32f(a, n1, b, n2, o, alg, w); });
            break;
        case 1:
            one<Vrx64f>(in, n1, n2, T, alg, [&](int* s, VrxAlgType t) { return vrxsConvolveGetBufferSize(n1, n2, vrx64f, t, s); },
                        [&](const Vrx64f* a, const Vrx64f* b, Vrx64f* o, Vrx8u* w) { return vrxsConvolve_64f(a, n1, b, n2, o, alg, w); });
            break;
        case 2:  // pSrc2 stands bias elements into its array, so reads stay inside it
            if (n2 > 0 && bias >= n2) break;
            one<Vrx32f>(in, n1, n2, dstLen, 0,
                        [&](int* s, VrxAlgType) { return *s = 64, n1 < 1 || n2 < 1 || dstLen < 1 ? vrxErrBadLength : vrxOk; },
                        [&](const Vrx32f* a, const Vrx32f* b, Vrx32f* o, Vrx8u*) { return vrxsConvBiased_32f(a, n1, b + bias, n2, o, dstLen, bias); });
            break;
        case 3: corr<Vrx32f>(in, n1, n2, dstLen, lowLag, vrx32f, alg, vrxsAutoCorrNorm_32f, vrxsCrossCorrNorm_32f); break;
        case 4: corr<Vrx64f>(in, n1, n2, dstLen, lowLag, vrx64f, alg, vrxsAutoCorrNorm_64f, vrxsCrossCorrNorm_64f); break;
        case 5: corr<Vrx32fc>(in, n1, n2, dstLen, lowLag, vrx32fc, alg, vrxsAutoCorrNorm_32fc, vrxsCrossCorrNorm_32fc); break;
        default: corr<Vrx64fc>(in, n1, n2, dstLen, lowLag, vrx64fc, alg, vrxsAutoCorrNorm_64fc, vrxsCrossCorrNorm_64fc); break;
    }
}

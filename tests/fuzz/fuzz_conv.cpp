// Fuzz target of the convolution and correlation family: fuzzer-chosen
// function, lengths, lag, bias and algType (bad bytes included); the work
// buffer takes exactly the size that the matching query reports. A failed
// call must return a negative status and leave the destination untouched
// (except the late -228 of a bad norm byte, which follows a full result);
// no call may write outside the destination and the work buffer.
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
        for (int i = 0; i < 4; ++i) v = (v << 8) | (n ? (--n, *p++) : 0);
        return v;
    }
    int len(int max) { return static_cast<int>(u32() % (max + 2)) - 1; }  // -1 .. max
};

// A guarded byte block of n usable bytes.
struct Block {
    std::vector<uint8_t> raw;
    explicit Block(size_t n) : raw(n + 2 * kGuard, kFill) {}
    uint8_t* data() { return raw.data() + kGuard; }
    bool guardsIntact() const {
        for (size_t i = 0; i < kGuard; ++i)
            if (raw[i] != kFill || raw[raw.size() - 1 - i] != kFill) return false;
        return true;
    }
    bool untouched() const {
        for (uint8_t b : raw)
            if (b != kFill) return false;
        return true;
    }
};

template <class T> void fillData(std::vector<T>& v, Reader& r) {
    float* f = reinterpret_cast<float*>(v.data());
    for (size_t i = 0; i < v.size() * sizeof(T) / 4; ++i) f[i] = static_cast<float>(static_cast<int32_t>(r.u32() % 2001) - 1000) / 500.0f;
}

void check(bool ok) {
    if (!ok) abort();
}

// One call with its query; es is the element size, dataType the selector.
template <class E, class Run, class Query>
void one(Reader& r, int n1, int n2, int dstLen, int elemsOut, VrxAlgType alg, Run run, Query query) {
    int size = -1;
    const VrxStatus qs = query(&size, alg);
    // A bad norm byte is refused by the query at once but only after the
    // run: size the buffer from the query without it.
    int size2 = 64;
    if (qs == vrxErrAlgType && query(&size2, alg & 0xFF) != vrxOk) size2 = 64;
    const size_t workBytes = qs == vrxOk ? static_cast<size_t>(size) : static_cast<size_t>(size2);
    if (qs == vrxOk && (size < 64 || size > (64 << 20))) return;
    std::vector<E> a(n1 > 0 ? n1 : 1), b(n2 > 0 ? n2 : 1);
    fillData(a, r);
    fillData(b, r);
    const size_t outBytes = (elemsOut > 0 ? elemsOut : 1) * sizeof(E);
    Block dst(outBytes), work(workBytes);
    const VrxStatus st = run(a.data(), b.data(), reinterpret_cast<E*>(dst.data()), work.data());
    check(dst.guardsIntact() && work.guardsIntact());
    if (st < 0 && st != vrxErrAlgType) check(dst.untouched());
    if (st == vrxErrAlgType && (alg & 0xFF) > 2) check(dst.untouched());
    if (qs == vrxOk) check(st == vrxOk || st == vrxErrAlgType);
    (void)dstLen;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Reader r{data, size};
    const int which = static_cast<int>(r.u32() % 11);
    const int n1 = r.len(3000), n2 = r.len(3000), dstLen = r.len(3000);
    const int lowLag = static_cast<int>(r.u32() % 8001) - 4000;
    const int bias = static_cast<int>(r.u32() % 64);
    uint32_t algBits = r.u32();
    const VrxAlgType alg = static_cast<VrxAlgType>(algBits & 0x7FFF03FF);

    switch (which) {
    case 0:
    case 1: {
        const bool d = which == 1;
        const int T = n1 > 0 && n2 > 0 ? n1 + n2 - 1 : 1;
        auto q = [&](int* s, VrxAlgType t) { return vrxsConvolveGetBufferSize(n1, n2, d ? vrx64f : vrx32f, t, s); };
        if (d)
            one<Vrx64f>(r, n1, n2, T, T, alg,
                        [&](const Vrx64f* a, const Vrx64f* b, Vrx64f* o, Vrx8u* w) { return vrxsConvolve_64f(a, n1, b, n2, o, alg, w); }, q);
        else
            one<Vrx32f>(r, n1, n2, T, T, alg,
                        [&](const Vrx32f* a, const Vrx32f* b, Vrx32f* o, Vrx8u* w) { return vrxsConvolve_32f(a, n1, b, n2, o, alg, w); }, q);
        break;
    }
    case 2: {
        // pSrc2 stands bias elements into its array, so reads stay inside it.
        if (n2 > 0 && bias >= n2) break;
        auto q = [&](int* s, VrxAlgType) {
            *s = 64;
            return n1 < 1 || n2 < 1 || dstLen < 1 ? vrxErrBadLength : vrxOk;
        };
        one<Vrx32f>(r, n1, n2, dstLen, dstLen, 0,
                    [&](const Vrx32f* a, const Vrx32f* b, Vrx32f* o, Vrx8u*) {
                        return vrxsConvBiased_32f(a, n1, b + bias, n2, o, dstLen, bias);
                    }, q);
        break;
    }
#define VRX_FUZZ_CORR(k, E, type, AUTO, CROSS)                                                                          \
    case k: {                                                                                                           \
        auto q = [&](int* s, VrxAlgType t) { return vrxsAutoCorrNormGetBufferSize(n1, dstLen, type, t, s); };       \
        one<E>(r, n1, 1, dstLen, dstLen, alg,                                                                           \
               [&](const E* a, const E*, E* o, Vrx8u* w) { return AUTO(a, n1, o, dstLen, alg, w); }, q);               \
        break;                                                                                                          \
    }                                                                                                                   \
    case k + 4: {                                                                                                       \
        auto q = [&](int* s, VrxAlgType t) { return vrxsCrossCorrNormGetBufferSize(n1, n2, dstLen, lowLag, type, t, s); };       \
        one<E>(r, n1, n2, dstLen, dstLen, alg,                                                                          \
               [&](const E* a, const E* b, E* o, Vrx8u* w) { return CROSS(a, n1, b, n2, o, dstLen, lowLag, alg, w); }, \
               q);                                                                                                      \
        break;                                                                                                          \
    }
        VRX_FUZZ_CORR(3, Vrx32f, vrx32f, vrxsAutoCorrNorm_32f, vrxsCrossCorrNorm_32f)
        VRX_FUZZ_CORR(4, Vrx64f, vrx64f, vrxsAutoCorrNorm_64f, vrxsCrossCorrNorm_64f)
        VRX_FUZZ_CORR(5, Vrx32fc, vrx32fc, vrxsAutoCorrNorm_32fc, vrxsCrossCorrNorm_32fc)
        VRX_FUZZ_CORR(6, Vrx64fc, vrx64fc, vrxsAutoCorrNorm_64fc, vrxsCrossCorrNorm_64fc)
#undef VRX_FUZZ_CORR
    default: break;
    }
    return 0;
}

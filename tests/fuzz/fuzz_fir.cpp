// Fuzz target of the FIR family: fuzzer-chosen tap counts, factors, phases,
// algorithms, lengths, aliasing and delay-line choices through the size
// queries, Init and the runs of the single-rate and multi-rate filters and
// SampleUp/SampleDown. Every call must return a status that is 0 or
// negative; a failed call writes nothing; no call writes outside the
// object, the work buffer, the destination and the delay line.
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

#include <vector>

#include "vrxs.h"

namespace {

constexpr size_t kGuard = 64;
constexpr uint8_t kFill = 0xC3;

// n usable bytes with guards on both sides.
struct Region {
    std::vector<uint8_t> raw;
    size_t n;
    explicit Region(size_t bytes, size_t offset = 0) : raw(bytes + 2 * kGuard + offset, kFill), n(bytes) { at = raw.data() + kGuard + offset; }
    uint8_t* at;
    template <class T> T* as() { return reinterpret_cast<T*>(at); }
    bool guards() const {
        const uint8_t* b = raw.data();
        for (const uint8_t* p = b; p < at; ++p) if (*p != kFill) return false;
        for (const uint8_t* p = at + n; p < b + raw.size(); ++p) if (*p != kFill) return false;
        return true;
    }
};

struct Input {
    const uint8_t* p;
    size_t n;
    uint32_t take(uint32_t mod) {
        uint32_t v = 0;
        for (int i = 0; i < 4; ++i) v = v << 8 | (n ? (--n, *p++) : 0);
        return mod ? v % mod : v;
    }
    int between(int lo, int hi) { return lo + int(take(uint32_t(hi - lo + 1))); }
};

void require(bool ok) {
    if (!ok) abort();
}

// A status is 0 or an error; on an error the watched bytes are unchanged.
void checkStatus(VrxStatus st, const std::vector<uint8_t>& before, const uint8_t* watched, size_t n) {
    require(st <= 0);
    if (st < 0) require(memcmp(before.data(), watched, n) == 0);
}

template <class E> struct Sr;
template <> struct Sr<Vrx32f> {
    static constexpr int kSel = vrx32f;
    static VrxStatus init(const Vrx32f* t, int n, int a, void* s) { return vrxsFIRSRInit_32f(t, n, a, static_cast<VrxsFirState_32f*>(s)); }
    static VrxStatus run(const Vrx32f* s, Vrx32f* d, int n, const void* st, const Vrx32f* di, Vrx32f* dd, Vrx8u* b) { return vrxsFIRSR_32f(s, d, n, static_cast<const VrxsFirState_32f*>(st), di, dd, b); }
    static VrxStatus mrInit(const Vrx32f* t, int n, int u, int up, int d, int dp, VrxsFirMrState* s) { return vrxsFIRMRInit_32f(t, n, u, up, d, dp, s); }
    static VrxStatus mrRun(const Vrx32f* s, Vrx32f* d, int n, const VrxsFirMrState* st, const Vrx32f* di, Vrx32f* dd, Vrx8u* b) { return vrxsFIRMR_32f(s, d, n, st, di, dd, b); }
};
template <> struct Sr<Vrx64fc> {
    static constexpr int kSel = vrx64fc;
    static VrxStatus init(const Vrx64fc* t, int n, int a, void* s) { return vrxsFIRSRInit_64fc(t, n, a, static_cast<VrxsFirState_64fc*>(s)); }
    static VrxStatus run(const Vrx64fc* s, Vrx64fc* d, int n, const void* st, const Vrx64fc* di, Vrx64fc* dd, Vrx8u* b) { return vrxsFIRSR_64fc(s, d, n, static_cast<const VrxsFirState_64fc*>(st), di, dd, b); }
    static VrxStatus mrInit(const Vrx64fc* t, int n, int u, int up, int d, int dp, VrxsFirMrState* s) { return vrxsFIRMRInit_64fc(t, n, u, up, d, dp, s); }
    static VrxStatus mrRun(const Vrx64fc* s, Vrx64fc* d, int n, const VrxsFirMrState* st, const Vrx64fc* di, Vrx64fc* dd, Vrx8u* b) { return vrxsFIRMR_64fc(s, d, n, st, di, dd, b); }
};

template <class E>
void singleRate(Input& in) {
    const int N = in.between(-2, 300);
    const int alg = in.between(-1, 3);
    int specSize = -1, bufSize = -1;
    const VrxStatus gs = vrxsFIRSRGetSize(N, Sr<E>::kSel, &specSize, &bufSize);
    require(gs <= 0);
    if (gs < 0) { require(specSize == -1 && bufSize == -1); return; }
    Region spec(size_t(specSize), in.take(64));
    std::vector<E> taps(static_cast<size_t>(N > 0 ? N : 1), E{});
    uint8_t* tb = reinterpret_cast<uint8_t*>(taps.data());
    for (size_t i = 0; i < taps.size() * sizeof(E); ++i) tb[i] = uint8_t(in.take(0) & 0x3F);  // finite values
    const std::vector<uint8_t> sb(spec.at, spec.at + spec.n);
    const VrxStatus is = Sr<E>::init(taps.data(), N, alg, spec.at);
    checkStatus(is, sb, spec.at, spec.n);
    require(spec.guards());
    if (is < 0) return;
    const int n = in.between(-1, 3000);
    const int mode = in.between(0, 5);  // plain, in place, dst = line in, null lines, same line, no line out
    const size_t len = size_t(n > 0 ? n : 1);
    Region src(len * sizeof(E), in.take(64)), dst(len * sizeof(E), in.take(64)), buf(size_t(bufSize), in.take(64));
    Region lin(size_t(N > 1 ? N - 1 : 1) * sizeof(E)), lout(size_t(N > 1 ? N - 1 : 1) * sizeof(E));
    for (size_t i = 0; i < src.n; ++i) src.at[i] = uint8_t(in.take(0));
    memset(lin.at, 0, lin.n);
    E* s = src.as<E>();
    E* d = dst.as<E>();
    const E* di = lin.as<E>();
    E* dd = lout.as<E>();
    if (mode == 1) d = s;
    if (mode == 3) { di = nullptr; dd = nullptr; }
    if (mode == 4) dd = lin.as<E>();
    if (mode == 5) dd = nullptr;
    Region* out = mode == 1 ? &src : &dst;
    std::vector<uint8_t> before(out->at, out->at + out->n);
    const VrxStatus rs = Sr<E>::run(s, d, n, spec.at, di, dd, buf.at);
    checkStatus(rs, before, out->at, out->n);
    require(spec.guards() && src.guards() && dst.guards() && buf.guards() && lin.guards() && lout.guards());
}

template <class E>
void multiRate(Input& in) {
    const int N = in.between(-1, 200), U = in.between(-1, 12), D = in.between(-1, 12);
    const int up = in.between(-1, 12), dp = in.between(-1, 12);
    int specSize = -1, bufSize = -1;
    const VrxStatus gs = vrxsFIRMRGetSize(N, U, D, Sr<E>::kSel, &specSize, &bufSize);
    require(gs <= 0);
    Region spec(gs < 0 ? 256 : size_t(specSize), in.take(64));
    std::vector<E> taps(size_t(N > 0 ? N : 1), E{});
    const std::vector<uint8_t> sb(spec.at, spec.at + spec.n);
    const VrxStatus is = Sr<E>::mrInit(taps.data(), N, U, up, D, dp, reinterpret_cast<VrxsFirMrState*>(spec.at));
    checkStatus(is, sb, spec.at, spec.n);
    require(spec.guards());
    if (is < 0) return;
    require(gs == 0);
    const int iters = in.between(-1, 600);
    const bool inPlace = in.take(2);
    const int it = iters > 0 ? iters : 1;
    const size_t len = size_t(it) * size_t(U > D ? U : D);
    const int H = U == 1 && D == 1 ? N : (N + U - 1) / U;
    Region src(len * sizeof(E)), dst(len * sizeof(E)), buf(size_t(bufSize), in.take(64)), line(size_t(H) * sizeof(E));
    for (size_t i = 0; i < src.n; ++i) src.at[i] = uint8_t(in.take(0) & 0x3F);  // finite values
    memset(line.at, 0, line.n);
    E* s = src.as<E>();
    E* d = inPlace ? s : dst.as<E>();
    Region* out = inPlace ? &src : &dst;
    std::vector<uint8_t> before(out->at, out->at + out->n);
    const VrxStatus rs = Sr<E>::mrRun(s, d, iters, reinterpret_cast<VrxsFirMrState*>(spec.at), line.as<E>(), line.as<E>(), buf.at);
    checkStatus(rs, before, out->at, out->n);
    require(spec.guards() && src.guards() && dst.guards() && buf.guards() && line.guards());
}

void sampling(Input& in) {
    const int n = in.between(-1, 5000), f = in.between(-1, 20), ph = in.between(-1, 20);
    const bool up = in.take(2);
    const size_t srcN = size_t(n > 0 ? n : 1);
    const size_t dstN = up ? srcN * size_t(f > 0 ? f : 1) : srcN;
    Region src(srcN * 4, in.take(64)), dst(dstN * 4, in.take(64));
    int len = -7, phase = ph;
    std::vector<uint8_t> before(dst.at, dst.at + dst.n);
    const VrxStatus st = up ? vrxsSampleUp_32f(src.as<Vrx32f>(), n, dst.as<Vrx32f>(), &len, f, &phase)
                            : vrxsSampleDown_32f(src.as<Vrx32f>(), n, dst.as<Vrx32f>(), &len, f, &phase);
    checkStatus(st, before, dst.at, dst.n);
    if (st < 0) require(len == -7 && phase == ph);
    require(src.guards() && dst.guards());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Input in{data, size};
    switch (in.take(5)) {
        case 0: singleRate<Vrx32f>(in); break;
        case 1: singleRate<Vrx64fc>(in); break;
        case 2: multiRate<Vrx32f>(in); break;
        case 3: multiRate<Vrx64fc>(in); break;
        default: sampling(in); break;
    }
    return 0;
}

// Fuzz target of the median filter: fuzzer-chosen types, masks (odd, even,
// below 1, huge), lengths, samples, null and shared delay lines, through the
// size query and both run forms. A failed call returns a negative status and
// writes nothing; a good call returns 0, or 5 for an even mask; no call
// writes outside the destination, the outgoing line and the work buffer;
// in place gives the bits of out of place; short runs match a sorted-window
// reference.
#include <math.h>

#include <algorithm>

#include "fuzz_util.h"
#include "../test_median_common.h"

namespace {

using med::Api;

template <class E> void one(fz::In& in) {
    const int mask = in.rarely(64) ? in.ConsumeIntegral<int>() : in.range(-2, 160);
    const int len = in.mostlyIn(-2, 1500);
    const int mu = mask >= 1 ? mask - 1 + (mask & 1) : 0;
    const int L = mask >= 1 && mask <= 4096 ? mu - 1 : 0;
    const size_t n = len > 0 && len <= 4096 ? static_cast<size_t>(len) : 16;
    int size = 0;
    const VrxStatus qs = vrxsFilterMedianGetBufferSize(mask, Api<E>::kType, &size);
    fz::require(qs == (mask < 1 || mask > (1 << 26) ? vrxErrMaskSize : (mask & 1) ? vrxOk : vrxWarnEvenMedianMask), "size status", "query", qs);
    if ((mask > 4096 && qs >= 0) || len > 4096) return;  // valid but large: not worth the memory here

    fz::Guarded src(n * sizeof(E), in.byte()), dst(n * sizeof(E), in.byte());
    fz::Guarded dly(L * sizeof(E), in.byte()), out(L * sizeof(E), 5), buf(qs >= 0 ? size : 64, in.byte());
    dly.fill(in);
    src.fill(in);
    const bool nullSrc = in.rarely(), nullDst = in.rarely(), nullBuf = in.rarely();
    const bool hist = in.ConsumeBool(), shared = in.ConsumeBool(), lineOut = in.ConsumeBool();
    E* line = shared ? dly.as<E>() : out.as<E>();
    const std::vector<uint8_t> s0 = src.snapshot(), h0 = dly.snapshot();
    const fz::Watch w{&src, &dst, &dly, &out, &buf};

    const VrxStatus st = Api<E>::run(nullSrc ? nullptr : src.as<E>(), nullDst ? nullptr : dst.as<E>(), len, mask,
                                     hist ? dly.as<E>() : nullptr, lineOut ? line : nullptr, nullBuf ? nullptr : buf.data());
    const VrxStatus want = nullSrc || nullDst || nullBuf ? vrxErrNullPtr : len < 1 ? vrxErrBadLength : qs < 0 ? vrxErrMaskSize : qs;
    fz::require(st == want, "status", "run", st);
    w.check(st < 0 ? st : vrxOk, "run");  // the even-mask warning is a success
    fz::require(w.unchanged(src), "source written", "run", st);
    if (st < 0) return;
    if (!lineOut) fz::require(w.unchanged(dly) && w.unchanged(out), "line written though null", "run", st);

    // reference on short runs
    if (static_cast<int64_t>(len) * mu <= 200000) {
        std::vector<E> all(L + len), win(mu);
        if (hist && L > 0) memcpy(all.data(), h0.data(), L * sizeof(E));
        memcpy(all.data() + L, s0.data(), len * sizeof(E));
        for (int t = 0; t < len; ++t) {
            std::copy(all.begin() + t, all.begin() + t + mu, win.begin());
            std::sort(win.begin(), win.end(), med::before<E>);
            fz::require(memcmp(&win[mu / 2], dst.as<E>() + t, sizeof(E)) == 0, "median value", "run", st);
        }
        if (lineOut) fz::require(memcmp(all.data() + len, line, L * sizeof(E)) == 0, "line out", "run", st);
    }

    // in place from the same history gives the same bits
    std::vector<E> io(len), hv(L);
    memcpy(io.data(), s0.data(), len * sizeof(E));
    if (L > 0) memcpy(hv.data(), h0.data(), L * sizeof(E));
    const VrxStatus si = Api<E>::runI(io.data(), len, mask, hist ? hv.data() : nullptr, nullptr, buf.data());
    fz::require(si == st, "in-place status", "runI", si);
    fz::require(memcmp(io.data(), dst.data(), len * sizeof(E)) == 0, "in place differs", "runI", si);
}

}  // namespace

void fuzzOne(fz::In& in) {
    switch (in.range(0, 4)) {
        case 0: one<Vrx8u>(in); break;
        case 1: one<Vrx16u>(in); break;
        case 2: one<Vrx16s>(in); break;
        case 3: one<Vrx32f>(in); break;
        default: one<Vrx64f>(in); break;
    }
}

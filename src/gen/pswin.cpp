// Window functions on single-precision and 16-bit data: Hann, Hamming,
// Blackman and its two fixed forms, Bartlett. The weights are single
// precision; cosine seeds come from the double LA tier (16-bit Hann and
// Hamming from libm, 16-bit complex Blackman from the HA tier).
#include "pswin.h"

using namespace n0;
using namespace n0::gen;

extern "C" {

// --------------------------------------------------------- Hann, Hamming
VrxStatus N0(vrxsWinHann_16s)(const Vrx16s* pSrc, Vrx16s* pDst, int len) { return winHamHan(pSrc, pDst, len, false, Seed::Libm); }
VrxStatus N0(vrxsWinHann_16s_I)(Vrx16s* pSrcDst, int len) { return winHamHan<Vrx16s>(pSrcDst, pSrcDst, len, false, Seed::Libm); }
VrxStatus N0(vrxsWinHamming_16s)(const Vrx16s* pSrc, Vrx16s* pDst, int len) { return winHamHan(pSrc, pDst, len, true, Seed::Libm); }
VrxStatus N0(vrxsWinHamming_16s_I)(Vrx16s* pSrcDst, int len) { return winHamHan<Vrx16s>(pSrcDst, pSrcDst, len, true, Seed::Libm); }
VrxStatus N0(vrxsWinHann_16sc)(const Vrx16sc* pSrc, Vrx16sc* pDst, int len) { return winHamHan(pSrc, pDst, len, false, Seed::CosA50); }
VrxStatus N0(vrxsWinHann_16sc_I)(Vrx16sc* pSrcDst, int len) { return winHamHan<Vrx16sc>(pSrcDst, pSrcDst, len, false, Seed::CosA50); }
VrxStatus N0(vrxsWinHamming_16sc)(const Vrx16sc* pSrc, Vrx16sc* pDst, int len) { return winHamHan(pSrc, pDst, len, true, Seed::CosA50); }
VrxStatus N0(vrxsWinHamming_16sc_I)(Vrx16sc* pSrcDst, int len) { return winHamHan<Vrx16sc>(pSrcDst, pSrcDst, len, true, Seed::CosA50); }
VrxStatus N0(vrxsWinHann_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int len) { return winHamHan(pSrc, pDst, len, false, Seed::CosA50); }
VrxStatus N0(vrxsWinHann_32f_I)(Vrx32f* pSrcDst, int len) { return winHamHan<Vrx32f>(pSrcDst, pSrcDst, len, false, Seed::CosA50); }
VrxStatus N0(vrxsWinHamming_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int len) { return winHamHan(pSrc, pDst, len, true, Seed::CosA50); }
VrxStatus N0(vrxsWinHamming_32f_I)(Vrx32f* pSrcDst, int len) { return winHamHan<Vrx32f>(pSrcDst, pSrcDst, len, true, Seed::CosA50); }
VrxStatus N0(vrxsWinHann_32fc)(const Vrx32fc* pSrc, Vrx32fc* pDst, int len) { return winHamHan(pSrc, pDst, len, false, Seed::CosA50); }
VrxStatus N0(vrxsWinHann_32fc_I)(Vrx32fc* pSrcDst, int len) { return winHamHan<Vrx32fc>(pSrcDst, pSrcDst, len, false, Seed::CosA50); }
VrxStatus N0(vrxsWinHamming_32fc)(const Vrx32fc* pSrc, Vrx32fc* pDst, int len) { return winHamHan(pSrc, pDst, len, true, Seed::CosA50); }
VrxStatus N0(vrxsWinHamming_32fc_I)(Vrx32fc* pSrcDst, int len) { return winHamHan<Vrx32fc>(pSrcDst, pSrcDst, len, true, Seed::CosA50); }

// -------------------------------------------------------------- Blackman
// The out-of-place 32f and 32fc forms hand an in-place call to _I before
// any check, and otherwise run all N steps of the recurrence.
VrxStatus N0(vrxsWinBlackman_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f alpha) {
    if (pSrc == pDst) return N0(vrxsWinBlackman_32f_I)(pDst, len, alpha);
    return winBlackman32(pSrc, pDst, len, alpha, true, Seed::CosA50);
}
VrxStatus N0(vrxsWinBlackman_32fc)(const Vrx32fc* pSrc, Vrx32fc* pDst, int len, Vrx32f alpha) {
    if (pSrc == pDst) return N0(vrxsWinBlackman_32fc_I)(pDst, len, alpha);
    return winBlackman32(pSrc, pDst, len, alpha, true, Seed::CosA50);
}
VrxStatus N0(vrxsWinBlackman_32f_I)(Vrx32f* pSrcDst, int len, Vrx32f alpha) { return winBlackman32<Vrx32f>(pSrcDst, pSrcDst, len, alpha, false, Seed::CosA50); }
VrxStatus N0(vrxsWinBlackman_32fc_I)(Vrx32fc* pSrcDst, int len, Vrx32f alpha) { return winBlackman32<Vrx32fc>(pSrcDst, pSrcDst, len, alpha, false, Seed::CosA50); }
VrxStatus N0(vrxsWinBlackman_16s)(const Vrx16s* pSrc, Vrx16s* pDst, int len, Vrx32f alpha) { return winBlackman32(pSrc, pDst, len, alpha, false, Seed::SinCosA50); }
VrxStatus N0(vrxsWinBlackman_16s_I)(Vrx16s* pSrcDst, int len, Vrx32f alpha) { return winBlackman32<Vrx16s>(pSrcDst, pSrcDst, len, alpha, false, Seed::SinCosA50); }
VrxStatus N0(vrxsWinBlackman_16sc)(const Vrx16sc* pSrc, Vrx16sc* pDst, int len, Vrx32f alpha) { return winBlackman32(pSrc, pDst, len, alpha, false, Seed::SinCosA53); }
VrxStatus N0(vrxsWinBlackman_16sc_I)(Vrx16sc* pSrcDst, int len, Vrx32f alpha) { return winBlackman32<Vrx16sc>(pSrcDst, pSrcDst, len, alpha, false, Seed::SinCosA53); }

// Std: alpha = -0.16 as a single-precision value.
VrxStatus N0(vrxsWinBlackmanStd_16s)(const Vrx16s* pSrc, Vrx16s* pDst, int len) { return N0(vrxsWinBlackman_16s)(pSrc, pDst, len, -0.16f); }
VrxStatus N0(vrxsWinBlackmanStd_16s_I)(Vrx16s* pSrcDst, int len) { return N0(vrxsWinBlackman_16s_I)(pSrcDst, len, -0.16f); }
VrxStatus N0(vrxsWinBlackmanStd_16sc)(const Vrx16sc* pSrc, Vrx16sc* pDst, int len) { return N0(vrxsWinBlackman_16sc)(pSrc, pDst, len, -0.16f); }
VrxStatus N0(vrxsWinBlackmanStd_16sc_I)(Vrx16sc* pSrcDst, int len) { return N0(vrxsWinBlackman_16sc_I)(pSrcDst, len, -0.16f); }
VrxStatus N0(vrxsWinBlackmanStd_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int len) { return N0(vrxsWinBlackman_32f)(pSrc, pDst, len, -0.16f); }
VrxStatus N0(vrxsWinBlackmanStd_32f_I)(Vrx32f* pSrcDst, int len) { return N0(vrxsWinBlackman_32f_I)(pSrcDst, len, -0.16f); }
VrxStatus N0(vrxsWinBlackmanStd_32fc)(const Vrx32fc* pSrc, Vrx32fc* pDst, int len) { return N0(vrxsWinBlackman_32fc)(pSrc, pDst, len, -0.16f); }
VrxStatus N0(vrxsWinBlackmanStd_32fc_I)(Vrx32fc* pSrcDst, int len) { return N0(vrxsWinBlackman_32fc_I)(pSrcDst, len, -0.16f); }

// Opt: alpha from cos(pi/(N-1)) of the LA tier, rounded to single precision;
// the length must be at least 4.
VrxStatus N0(vrxsWinBlackmanOpt_16s)(const Vrx16s* pSrc, Vrx16s* pDst, int len) {
    if (anyNull(pSrc, pDst)) return vrxErrNullPtr;
    if (len < 4) return vrxErrBadLength;
    return N0(vrxsWinBlackman_16s)(pSrc, pDst, len, static_cast<float>(blackmanOptAlpha(len, Seed::CosA50)));
}
VrxStatus N0(vrxsWinBlackmanOpt_16s_I)(Vrx16s* pSrcDst, int len) {
    if (anyNull(pSrcDst)) return vrxErrNullPtr;
    if (len < 4) return vrxErrBadLength;
    return N0(vrxsWinBlackman_16s_I)(pSrcDst, len, static_cast<float>(blackmanOptAlpha(len, Seed::CosA50)));
}
VrxStatus N0(vrxsWinBlackmanOpt_16sc)(const Vrx16sc* pSrc, Vrx16sc* pDst, int len) {
    if (anyNull(pSrc, pDst)) return vrxErrNullPtr;
    if (len < 4) return vrxErrBadLength;
    return N0(vrxsWinBlackman_16sc)(pSrc, pDst, len, static_cast<float>(blackmanOptAlpha(len, Seed::CosA50)));
}
VrxStatus N0(vrxsWinBlackmanOpt_16sc_I)(Vrx16sc* pSrcDst, int len) {
    if (anyNull(pSrcDst)) return vrxErrNullPtr;
    if (len < 4) return vrxErrBadLength;
    return N0(vrxsWinBlackman_16sc_I)(pSrcDst, len, static_cast<float>(blackmanOptAlpha(len, Seed::CosA50)));
}
VrxStatus N0(vrxsWinBlackmanOpt_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int len) {
    if (anyNull(pSrc, pDst)) return vrxErrNullPtr;
    if (len < 4) return vrxErrBadLength;
    return N0(vrxsWinBlackman_32f)(pSrc, pDst, len, static_cast<float>(blackmanOptAlpha(len, Seed::CosA50)));
}
VrxStatus N0(vrxsWinBlackmanOpt_32f_I)(Vrx32f* pSrcDst, int len) {
    if (anyNull(pSrcDst)) return vrxErrNullPtr;
    if (len < 4) return vrxErrBadLength;
    return N0(vrxsWinBlackman_32f_I)(pSrcDst, len, static_cast<float>(blackmanOptAlpha(len, Seed::CosA50)));
}
VrxStatus N0(vrxsWinBlackmanOpt_32fc)(const Vrx32fc* pSrc, Vrx32fc* pDst, int len) {
    if (anyNull(pSrc, pDst)) return vrxErrNullPtr;
    if (len < 4) return vrxErrBadLength;
    return N0(vrxsWinBlackman_32fc)(pSrc, pDst, len, static_cast<float>(blackmanOptAlpha(len, Seed::CosA50)));
}
VrxStatus N0(vrxsWinBlackmanOpt_32fc_I)(Vrx32fc* pSrcDst, int len) {
    if (anyNull(pSrcDst)) return vrxErrNullPtr;
    if (len < 4) return vrxErrBadLength;
    return N0(vrxsWinBlackman_32fc_I)(pSrcDst, len, static_cast<float>(blackmanOptAlpha(len, Seed::CosA50)));
}

// -------------------------------------------------------------- Bartlett
VrxStatus N0(vrxsWinBartlett_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int len) {
    if (pSrc == pDst) return N0(vrxsWinBartlett_32f_I)(pDst, len);
    return winBartlett(pSrc, pDst, len);
}
VrxStatus N0(vrxsWinBartlett_32fc)(const Vrx32fc* pSrc, Vrx32fc* pDst, int len) {
    if (pSrc == pDst) return N0(vrxsWinBartlett_32fc_I)(pDst, len);
    return winBartlett(pSrc, pDst, len);
}
VrxStatus N0(vrxsWinBartlett_32f_I)(Vrx32f* pSrcDst, int len) { return winBartlett<Vrx32f>(pSrcDst, pSrcDst, len); }
VrxStatus N0(vrxsWinBartlett_32fc_I)(Vrx32fc* pSrcDst, int len) { return winBartlett<Vrx32fc>(pSrcDst, pSrcDst, len); }
VrxStatus N0(vrxsWinBartlett_16s)(const Vrx16s* pSrc, Vrx16s* pDst, int len) { return winBartlett(pSrc, pDst, len); }
VrxStatus N0(vrxsWinBartlett_16s_I)(Vrx16s* pSrcDst, int len) { return winBartlett<Vrx16s>(pSrcDst, pSrcDst, len); }
VrxStatus N0(vrxsWinBartlett_16sc)(const Vrx16sc* pSrc, Vrx16sc* pDst, int len) { return winBartlett(pSrc, pDst, len); }
VrxStatus N0(vrxsWinBartlett_16sc_I)(Vrx16sc* pSrcDst, int len) { return winBartlett<Vrx16sc>(pSrcDst, pSrcDst, len); }

}  // extern "C"

// Window functions on double-precision data: Hann, Hamming, Blackman and
// its two fixed forms, Bartlett. Weights in double; cosine seeds from the
// double HA tier.
#include "pswin.h"

using namespace n0;
using namespace n0::gen;

extern "C" {

// --------------------------------------------------------- Hann, Hamming
VrxStatus N0(vrxsWinHann_64f)(const Vrx64f* pSrc, Vrx64f* pDst, int len) { return winHamHan(pSrc, pDst, len, false, Seed::CosA53); }
VrxStatus N0(vrxsWinHann_64f_I)(Vrx64f* pSrcDst, int len) { return winHamHan<Vrx64f>(pSrcDst, pSrcDst, len, false, Seed::CosA53); }
VrxStatus N0(vrxsWinHamming_64f)(const Vrx64f* pSrc, Vrx64f* pDst, int len) { return winHamHan(pSrc, pDst, len, true, Seed::CosA53); }
VrxStatus N0(vrxsWinHamming_64f_I)(Vrx64f* pSrcDst, int len) { return winHamHan<Vrx64f>(pSrcDst, pSrcDst, len, true, Seed::CosA53); }
VrxStatus N0(vrxsWinHann_64fc)(const Vrx64fc* pSrc, Vrx64fc* pDst, int len) { return winHamHan(pSrc, pDst, len, false, Seed::CosA53); }
VrxStatus N0(vrxsWinHann_64fc_I)(Vrx64fc* pSrcDst, int len) { return winHamHan<Vrx64fc>(pSrcDst, pSrcDst, len, false, Seed::CosA53); }
VrxStatus N0(vrxsWinHamming_64fc)(const Vrx64fc* pSrc, Vrx64fc* pDst, int len) { return winHamHan(pSrc, pDst, len, true, Seed::CosA53); }
VrxStatus N0(vrxsWinHamming_64fc_I)(Vrx64fc* pSrcDst, int len) { return winHamHan<Vrx64fc>(pSrcDst, pSrcDst, len, true, Seed::CosA53); }

// -------------------------------------------------------------- Blackman
VrxStatus N0(vrxsWinBlackman_64f)(const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f alpha) { return winBlackman64(pSrc, pDst, len, alpha); }
VrxStatus N0(vrxsWinBlackman_64f_I)(Vrx64f* pSrcDst, int len, Vrx64f alpha) { return winBlackman64<Vrx64f>(pSrcDst, pSrcDst, len, alpha); }
VrxStatus N0(vrxsWinBlackman_64fc)(const Vrx64fc* pSrc, Vrx64fc* pDst, int len, Vrx64f alpha) { return winBlackman64(pSrc, pDst, len, alpha); }
VrxStatus N0(vrxsWinBlackman_64fc_I)(Vrx64fc* pSrcDst, int len, Vrx64f alpha) { return winBlackman64<Vrx64fc>(pSrcDst, pSrcDst, len, alpha); }
VrxStatus N0(vrxsWinBlackmanStd_64f)(const Vrx64f* pSrc, Vrx64f* pDst, int len) { return N0(vrxsWinBlackman_64f)(pSrc, pDst, len, -0.16); }
VrxStatus N0(vrxsWinBlackmanStd_64f_I)(Vrx64f* pSrcDst, int len) { return N0(vrxsWinBlackman_64f_I)(pSrcDst, len, -0.16); }
VrxStatus N0(vrxsWinBlackmanStd_64fc)(const Vrx64fc* pSrc, Vrx64fc* pDst, int len) { return N0(vrxsWinBlackman_64fc)(pSrc, pDst, len, -0.16); }
VrxStatus N0(vrxsWinBlackmanStd_64fc_I)(Vrx64fc* pSrcDst, int len) { return N0(vrxsWinBlackman_64fc_I)(pSrcDst, len, -0.16); }
VrxStatus N0(vrxsWinBlackmanOpt_64f)(const Vrx64f* pSrc, Vrx64f* pDst, int len) {
    if (anyNull(pSrc, pDst)) return vrxErrNullPtr;
    if (len < 4) return vrxErrBadLength;
    return N0(vrxsWinBlackman_64f)(pSrc, pDst, len, blackmanOptAlpha(len, Seed::CosA53));
}
VrxStatus N0(vrxsWinBlackmanOpt_64f_I)(Vrx64f* pSrcDst, int len) {
    if (anyNull(pSrcDst)) return vrxErrNullPtr;
    if (len < 4) return vrxErrBadLength;
    return N0(vrxsWinBlackman_64f_I)(pSrcDst, len, blackmanOptAlpha(len, Seed::CosA53));
}
VrxStatus N0(vrxsWinBlackmanOpt_64fc)(const Vrx64fc* pSrc, Vrx64fc* pDst, int len) {
    if (anyNull(pSrc, pDst)) return vrxErrNullPtr;
    if (len < 4) return vrxErrBadLength;
    return N0(vrxsWinBlackman_64fc)(pSrc, pDst, len, blackmanOptAlpha(len, Seed::CosA53));
}
VrxStatus N0(vrxsWinBlackmanOpt_64fc_I)(Vrx64fc* pSrcDst, int len) {
    if (anyNull(pSrcDst)) return vrxErrNullPtr;
    if (len < 4) return vrxErrBadLength;
    return N0(vrxsWinBlackman_64fc_I)(pSrcDst, len, blackmanOptAlpha(len, Seed::CosA53));
}

// -------------------------------------------------------------- Bartlett
// The out-of-place 64f form hands an in-place call to _I before any check.
VrxStatus N0(vrxsWinBartlett_64f)(const Vrx64f* pSrc, Vrx64f* pDst, int len) {
    if (pSrc == pDst) return N0(vrxsWinBartlett_64f_I)(pDst, len);
    return winBartlett(pSrc, pDst, len);
}
VrxStatus N0(vrxsWinBartlett_64f_I)(Vrx64f* pSrcDst, int len) { return winBartlett<Vrx64f>(pSrcDst, pSrcDst, len); }
VrxStatus N0(vrxsWinBartlett_64fc)(const Vrx64fc* pSrc, Vrx64fc* pDst, int len) { return winBartlett(pSrc, pDst, len); }
VrxStatus N0(vrxsWinBartlett_64fc_I)(Vrx64fc* pSrcDst, int len) { return winBartlett<Vrx64fc>(pSrcDst, pSrcDst, len); }

}  // extern "C"

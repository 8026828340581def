// Integer subtraction: src2 - src1 for vectors, element - val for SubC and
// val - element for SubCRev, scaled, in every integer type.
#include "arith_int16.h"

#include <type_traits>

using namespace n0;
using namespace n0::ar;

namespace {

constexpr Limits kSub8u{10, -8}, kSubC8u{9, -8};
constexpr Limits kSub16u{17, kNoBound}, kSubCRev16u{17, -16};
constexpr Limits kSub16s{17, -16};
constexpr Limits kSub32s{33, -31};

}  // namespace

// ---------------------------------------------------------------- vectors
VrxStatus N0(vrxsSub_8u_Sfs)(const Vrx8u* pSrc1, const Vrx8u* pSrc2, Vrx8u* pDst, int len, int scaleFactor) {
    return vecSfs<Op::Sub, Vrx8u, Vrx8u, int32_t>(pSrc1, pSrc2, pDst, len, scaleFactor, kSub8u);
}
VrxStatus N0(vrxsSub_16u_Sfs)(const Vrx16u* pSrc1, const Vrx16u* pSrc2, Vrx16u* pDst, int len, int scaleFactor) {
    return vecSfs<Op::Sub, Vrx16u, Vrx16u, int32_t>(pSrc1, pSrc2, pDst, len, scaleFactor, kSub16u);
}
VrxStatus N0(vrxsSub_16s_Sfs)(const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx16s* pDst, int len, int scaleFactor) {
    return vec16s<Op::Sub>(pSrc1, pSrc2, pDst, len, scaleFactor, kSub16s);
}
VrxStatus N0(vrxsSub_32s_Sfs)(const Vrx32s* pSrc1, const Vrx32s* pSrc2, Vrx32s* pDst, int len, int scaleFactor) {
    return vecSfs<Op::Sub, Vrx32s, Vrx32s, int64_t>(pSrc1, pSrc2, pDst, len, scaleFactor, kSub32s);
}
VrxStatus N0(vrxsSub_16sc_Sfs)(const Vrx16sc* pSrc1, const Vrx16sc* pSrc2, Vrx16sc* pDst, int len, int scaleFactor) {
    return asReal<Vrx16sc, Vrx16s>(pSrc1, pSrc2, pDst, len, scaleFactor, N0(vrxsSub_16s_Sfs));
}
VrxStatus N0(vrxsSub_32sc_Sfs)(const Vrx32sc* pSrc1, const Vrx32sc* pSrc2, Vrx32sc* pDst, int len, int scaleFactor) {
    return asReal<Vrx32sc, Vrx32s>(pSrc1, pSrc2, pDst, len, scaleFactor, N0(vrxsSub_32s_Sfs));
}
VrxStatus N0(vrxsSub_8u_ISfs)(const Vrx8u* pSrc, Vrx8u* pSrcDst, int len, int scaleFactor) { return N0(vrxsSub_8u_Sfs)(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsSub_16u_ISfs)(const Vrx16u* pSrc, Vrx16u* pSrcDst, int len, int scaleFactor) { return N0(vrxsSub_16u_Sfs)(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsSub_16s_ISfs)(const Vrx16s* pSrc, Vrx16s* pSrcDst, int len, int scaleFactor) { return N0(vrxsSub_16s_Sfs)(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsSub_32s_ISfs)(const Vrx32s* pSrc, Vrx32s* pSrcDst, int len, int scaleFactor) { return N0(vrxsSub_32s_Sfs)(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsSub_16sc_ISfs)(const Vrx16sc* pSrc, Vrx16sc* pSrcDst, int len, int scaleFactor) { return N0(vrxsSub_16sc_Sfs)(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsSub_32sc_ISfs)(const Vrx32sc* pSrc, Vrx32sc* pSrcDst, int len, int scaleFactor) { return N0(vrxsSub_32sc_Sfs)(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsSub_16s)(const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx16s* pDst, int len) { return N0(vrxsSub_16s_Sfs)(pSrc1, pSrc2, pDst, len, 0); }
VrxStatus N0(vrxsSub_16s_I)(const Vrx16s* pSrc, Vrx16s* pSrcDst, int len) { return N0(vrxsSub_16s_Sfs)(pSrc, pSrcDst, pSrcDst, len, 0); }

// ------------------------------------------------------- element - val
// A zero constant at scale factor 0 is a copy. Below the lower limit of
// 8u a positive constant gives 255 where the element exceeds it, else 0.
template <class C, class W>
static VrxStatus subC(const C* s, C val, C* d, int len, int sf, Limits lim) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (sf == 0 && isZero(val)) return copyAll(s, d, len);
    if constexpr (std::is_same_v<C, Vrx16s>) return const16s<Op::SubRev>(s, val, d, len, sf, lim);
    else return constBody<Op::SubRev, C, W>(s, val, d, len, sf, lim);
}
VrxStatus N0(vrxsSubC_8u_Sfs)(const Vrx8u* pSrc, Vrx8u val, Vrx8u* pDst, int len, int scaleFactor) { return subC<Vrx8u, int32_t>(pSrc, val, pDst, len, scaleFactor, kSubC8u); }
VrxStatus N0(vrxsSubC_16u_Sfs)(const Vrx16u* pSrc, Vrx16u val, Vrx16u* pDst, int len, int scaleFactor) { return subC<Vrx16u, int32_t>(pSrc, val, pDst, len, scaleFactor, kSub16u); }
VrxStatus N0(vrxsSubC_16s_Sfs)(const Vrx16s* pSrc, Vrx16s val, Vrx16s* pDst, int len, int scaleFactor) { return subC<Vrx16s, int32_t>(pSrc, val, pDst, len, scaleFactor, kSub16s); }
VrxStatus N0(vrxsSubC_32s_Sfs)(const Vrx32s* pSrc, Vrx32s val, Vrx32s* pDst, int len, int scaleFactor) { return subC<Vrx32s, int64_t>(pSrc, val, pDst, len, scaleFactor, kSub32s); }
VrxStatus N0(vrxsSubC_16sc_Sfs)(const Vrx16sc* pSrc, Vrx16sc val, Vrx16sc* pDst, int len, int scaleFactor) { return subC<Vrx16sc, int32_t>(pSrc, val, pDst, len, scaleFactor, kSub16s); }
VrxStatus N0(vrxsSubC_32sc_Sfs)(const Vrx32sc* pSrc, Vrx32sc val, Vrx32sc* pDst, int len, int scaleFactor) { return subC<Vrx32sc, int64_t>(pSrc, val, pDst, len, scaleFactor, kSub32s); }
VrxStatus N0(vrxsSubC_8u_ISfs)(Vrx8u val, Vrx8u* pSrcDst, int len, int scaleFactor) { return N0(vrxsSubC_8u_Sfs)(pSrcDst, val, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsSubC_16u_ISfs)(Vrx16u val, Vrx16u* pSrcDst, int len, int scaleFactor) { return N0(vrxsSubC_16u_Sfs)(pSrcDst, val, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsSubC_16s_ISfs)(Vrx16s val, Vrx16s* pSrcDst, int len, int scaleFactor) { return N0(vrxsSubC_16s_Sfs)(pSrcDst, val, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsSubC_32s_ISfs)(Vrx32s val, Vrx32s* pSrcDst, int len, int scaleFactor) { return N0(vrxsSubC_32s_Sfs)(pSrcDst, val, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsSubC_16sc_ISfs)(Vrx16sc val, Vrx16sc* pSrcDst, int len, int scaleFactor) { return N0(vrxsSubC_16sc_Sfs)(pSrcDst, val, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsSubC_32sc_ISfs)(Vrx32sc val, Vrx32sc* pSrcDst, int len, int scaleFactor) { return N0(vrxsSubC_32sc_Sfs)(pSrcDst, val, pSrcDst, len, scaleFactor); }

// ------------------------------------------------------- val - element
template <class C, class W>
static VrxStatus subCRev(const C* s, C val, C* d, int len, int sf, Limits lim) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if constexpr (std::is_same_v<C, Vrx16s>) return const16s<Op::Sub>(s, val, d, len, sf, lim);
    else return constBody<Op::Sub, C, W>(s, val, d, len, sf, lim);
}
VrxStatus N0(vrxsSubCRev_8u_Sfs)(const Vrx8u* pSrc, Vrx8u val, Vrx8u* pDst, int len, int scaleFactor) { return subCRev<Vrx8u, int32_t>(pSrc, val, pDst, len, scaleFactor, kSubC8u); }
VrxStatus N0(vrxsSubCRev_16u_Sfs)(const Vrx16u* pSrc, Vrx16u val, Vrx16u* pDst, int len, int scaleFactor) { return subCRev<Vrx16u, int32_t>(pSrc, val, pDst, len, scaleFactor, kSubCRev16u); }
VrxStatus N0(vrxsSubCRev_16s_Sfs)(const Vrx16s* pSrc, Vrx16s val, Vrx16s* pDst, int len, int scaleFactor) { return subCRev<Vrx16s, int32_t>(pSrc, val, pDst, len, scaleFactor, kSub16s); }
VrxStatus N0(vrxsSubCRev_32s_Sfs)(const Vrx32s* pSrc, Vrx32s val, Vrx32s* pDst, int len, int scaleFactor) { return subCRev<Vrx32s, int64_t>(pSrc, val, pDst, len, scaleFactor, kSub32s); }
VrxStatus N0(vrxsSubCRev_16sc_Sfs)(const Vrx16sc* pSrc, Vrx16sc val, Vrx16sc* pDst, int len, int scaleFactor) { return subCRev<Vrx16sc, int32_t>(pSrc, val, pDst, len, scaleFactor, kSub16s); }
VrxStatus N0(vrxsSubCRev_32sc_Sfs)(const Vrx32sc* pSrc, Vrx32sc val, Vrx32sc* pDst, int len, int scaleFactor) { return subCRev<Vrx32sc, int64_t>(pSrc, val, pDst, len, scaleFactor, kSub32s); }
VrxStatus N0(vrxsSubCRev_8u_ISfs)(Vrx8u val, Vrx8u* pSrcDst, int len, int scaleFactor) { return N0(vrxsSubCRev_8u_Sfs)(pSrcDst, val, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsSubCRev_16u_ISfs)(Vrx16u val, Vrx16u* pSrcDst, int len, int scaleFactor) { return N0(vrxsSubCRev_16u_Sfs)(pSrcDst, val, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsSubCRev_16s_ISfs)(Vrx16s val, Vrx16s* pSrcDst, int len, int scaleFactor) { return N0(vrxsSubCRev_16s_Sfs)(pSrcDst, val, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsSubCRev_32s_ISfs)(Vrx32s val, Vrx32s* pSrcDst, int len, int scaleFactor) { return N0(vrxsSubCRev_32s_Sfs)(pSrcDst, val, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsSubCRev_16sc_ISfs)(Vrx16sc val, Vrx16sc* pSrcDst, int len, int scaleFactor) { return N0(vrxsSubCRev_16sc_Sfs)(pSrcDst, val, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsSubCRev_32sc_ISfs)(Vrx32sc val, Vrx32sc* pSrcDst, int len, int scaleFactor) { return N0(vrxsSubCRev_32sc_Sfs)(pSrcDst, val, pSrcDst, len, scaleFactor); }

// Integer addition: the scaled forms of every type, their in-place and
// unscaled wrappers, the 64-bit constant forms with a rounding argument and
// the widening and saturating sums.
#include "arith_int16.h"

using namespace n0;
using namespace n0::ar;

namespace {

constexpr Limits kAdd8u{10, -8}, kAddC8u{9, -8};
constexpr Limits kAdd16u{18, kNoBound}, kAddC16u{18, kNoBound};
constexpr Limits kAdd16s{17, -16};
constexpr Limits kAdd32s{33, -31};
constexpr Limits kAdd64s{64, -63};

}  // namespace

// ---------------------------------------------------------------- vectors
VrxStatus N0(vrxsAdd_8u_Sfs)(const Vrx8u* pSrc1, const Vrx8u* pSrc2, Vrx8u* pDst, int len, int scaleFactor) {
    return vecSfs<Op::Add, Vrx8u, Vrx8u, int32_t>(pSrc1, pSrc2, pDst, len, scaleFactor, kAdd8u);
}
VrxStatus N0(vrxsAdd_16u_Sfs)(const Vrx16u* pSrc1, const Vrx16u* pSrc2, Vrx16u* pDst, int len, int scaleFactor) {
    return vecSfs<Op::Add, Vrx16u, Vrx16u, int32_t>(pSrc1, pSrc2, pDst, len, scaleFactor, kAdd16u);
}
VrxStatus N0(vrxsAdd_16s_Sfs)(const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx16s* pDst, int len, int scaleFactor) {
    return vec16s<Op::Add>(pSrc1, pSrc2, pDst, len, scaleFactor, kAdd16s);
}
VrxStatus N0(vrxsAdd_32s_Sfs)(const Vrx32s* pSrc1, const Vrx32s* pSrc2, Vrx32s* pDst, int len, int scaleFactor) {
    return vecSfs<Op::Add, Vrx32s, Vrx32s, int64_t>(pSrc1, pSrc2, pDst, len, scaleFactor, kAdd32s);
}
VrxStatus N0(vrxsAdd_64s_Sfs)(const Vrx64s* pSrc1, const Vrx64s* pSrc2, Vrx64s* pDst, int len, int scaleFactor) {
    return vecSfs<Op::Add, Vrx64s, Vrx64s, __int128>(pSrc1, pSrc2, pDst, len, scaleFactor, kAdd64s);
}
VrxStatus N0(vrxsAdd_16sc_Sfs)(const Vrx16sc* pSrc1, const Vrx16sc* pSrc2, Vrx16sc* pDst, int len, int scaleFactor) {
    return asReal<Vrx16sc, Vrx16s>(pSrc1, pSrc2, pDst, len, scaleFactor, N0(vrxsAdd_16s_Sfs));
}
VrxStatus N0(vrxsAdd_32sc_Sfs)(const Vrx32sc* pSrc1, const Vrx32sc* pSrc2, Vrx32sc* pDst, int len, int scaleFactor) {
    return asReal<Vrx32sc, Vrx32s>(pSrc1, pSrc2, pDst, len, scaleFactor, N0(vrxsAdd_32s_Sfs));
}

VrxStatus N0(vrxsAdd_8u_ISfs)(const Vrx8u* pSrc, Vrx8u* pSrcDst, int len, int scaleFactor) { return N0(vrxsAdd_8u_Sfs)(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsAdd_16u_ISfs)(const Vrx16u* pSrc, Vrx16u* pSrcDst, int len, int scaleFactor) { return N0(vrxsAdd_16u_Sfs)(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsAdd_16s_ISfs)(const Vrx16s* pSrc, Vrx16s* pSrcDst, int len, int scaleFactor) { return N0(vrxsAdd_16s_Sfs)(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsAdd_32s_ISfs)(const Vrx32s* pSrc, Vrx32s* pSrcDst, int len, int scaleFactor) { return N0(vrxsAdd_32s_Sfs)(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsAdd_64s_ISfs)(const Vrx64s* pSrc, Vrx64s* pSrcDst, int len, int scaleFactor) { return N0(vrxsAdd_64s_Sfs)(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsAdd_16sc_ISfs)(const Vrx16sc* pSrc, Vrx16sc* pSrcDst, int len, int scaleFactor) { return N0(vrxsAdd_16sc_Sfs)(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsAdd_32sc_ISfs)(const Vrx32sc* pSrc, Vrx32sc* pSrcDst, int len, int scaleFactor) { return N0(vrxsAdd_32sc_Sfs)(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsAdd_16s)(const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx16s* pDst, int len) { return N0(vrxsAdd_16s_Sfs)(pSrc1, pSrc2, pDst, len, 0); }
VrxStatus N0(vrxsAdd_16s_I)(const Vrx16s* pSrc, Vrx16s* pSrcDst, int len) { return N0(vrxsAdd_16s_Sfs)(pSrc, pSrcDst, pSrcDst, len, 0); }

// -------------------------------------------------------------- constants
VrxStatus N0(vrxsAddC_8u_Sfs)(const Vrx8u* pSrc, Vrx8u val, Vrx8u* pDst, int len, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    if (scaleFactor == 0 && val == 0) return N0(vrxsCopy_8u)(pSrc, pDst, len);
    // below the lower limit every element saturates once the constant is nonzero
    if (scaleFactor <= kAddC8u.boundTo && val != 0) return N0(vrxsSet_8u)(255, pDst, len);
    return constBody<Op::Add, Vrx8u, int32_t>(pSrc, val, pDst, len, scaleFactor, kAddC8u);
}
VrxStatus N0(vrxsAddC_16u_Sfs)(const Vrx16u* pSrc, Vrx16u val, Vrx16u* pDst, int len, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    if (scaleFactor == 0 && val == 0) return copyAll(pSrc, pDst, len);
    if (scaleFactor <= -16 && val != 0) return N0(vrxsSet_16s)(-1, reinterpret_cast<Vrx16s*>(pDst), len);
    return constBody<Op::Add, Vrx16u, int32_t>(pSrc, val, pDst, len, scaleFactor, kAddC16u);
}
VrxStatus N0(vrxsAddC_16s_Sfs)(const Vrx16s* pSrc, Vrx16s val, Vrx16s* pDst, int len, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    if (scaleFactor == 0 && val == 0) return copyAll(pSrc, pDst, len);
    return const16s<Op::Add>(pSrc, val, pDst, len, scaleFactor, kAdd16s);
}
VrxStatus N0(vrxsAddC_32s_Sfs)(const Vrx32s* pSrc, Vrx32s val, Vrx32s* pDst, int len, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    if (scaleFactor == 0 && val == 0) return copyAll(pSrc, pDst, len);
    return constBody<Op::Add, Vrx32s, int64_t>(pSrc, val, pDst, len, scaleFactor, kAdd32s);
}
VrxStatus N0(vrxsAddC_16sc_Sfs)(const Vrx16sc* pSrc, Vrx16sc val, Vrx16sc* pDst, int len, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    if (scaleFactor == 0 && isZero(val)) return copyAll(pSrc, pDst, len);
    return constBody<Op::Add, Vrx16sc, int32_t>(pSrc, val, pDst, len, scaleFactor, kAdd16s);
}
VrxStatus N0(vrxsAddC_32sc_Sfs)(const Vrx32sc* pSrc, Vrx32sc val, Vrx32sc* pDst, int len, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    if (scaleFactor == 0 && isZero(val)) return copyAll(pSrc, pDst, len);
    return constBody<Op::Add, Vrx32sc, int64_t>(pSrc, val, pDst, len, scaleFactor, kAdd32s);
}
VrxStatus N0(vrxsAddC_8u_ISfs)(Vrx8u val, Vrx8u* pSrcDst, int len, int scaleFactor) { return N0(vrxsAddC_8u_Sfs)(pSrcDst, val, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsAddC_16u_ISfs)(Vrx16u val, Vrx16u* pSrcDst, int len, int scaleFactor) { return N0(vrxsAddC_16u_Sfs)(pSrcDst, val, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsAddC_16s_ISfs)(Vrx16s val, Vrx16s* pSrcDst, int len, int scaleFactor) { return N0(vrxsAddC_16s_Sfs)(pSrcDst, val, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsAddC_32s_ISfs)(Vrx32s val, Vrx32s* pSrcDst, int len, int scaleFactor) { return N0(vrxsAddC_32s_Sfs)(pSrcDst, val, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsAddC_16sc_ISfs)(Vrx16sc val, Vrx16sc* pSrcDst, int len, int scaleFactor) { return N0(vrxsAddC_16sc_Sfs)(pSrcDst, val, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsAddC_32sc_ISfs)(Vrx32sc val, Vrx32sc* pSrcDst, int len, int scaleFactor) { return N0(vrxsAddC_32sc_Sfs)(pSrcDst, val, pSrcDst, len, scaleFactor); }

// ------------------------------------------ 64-bit constants with rounding
namespace {

using i128 = __int128;
using u128 = unsigned __int128;

// Signed: h = (a >> sf) + (c >> sf) and l = the sum of the low sf bits. A
// result whose high part h is 0 or -1 is 0 under truncation and financial
// rounding, and under nearest when h plus the carry of l is that sign word.
VRX_INLINE int64_t addC64sRound(int64_t a, int64_t c, int sf, int mode) {
    const uint64_t mask = (uint64_t(1) << sf) - 1;
    const int64_t h = (a >> sf) + (c >> sf);
    const uint64_t l = (uint64_t(a) & mask) + (uint64_t(c) & mask);
    const int64_t carry = static_cast<int64_t>(l >> sf);
    if (mode == vrxRndZero) {
        if (h == 0 || h == -1) return 0;
        return h + carry + ((h < 0 && l != 0) ? 1 : 0);
    }
    if (mode == vrxRndNear) {
        const int64_t m = h + carry;
        if (m == (h < 0 ? -1 : 0)) return 0;
        const u128 t = u128(uint64_t(m) & 1) + ((u128(1) << (sf - 1)) - 1) + (l & mask);
        return m + static_cast<int64_t>(t >> sf);
    }
    if (h == 0 || h == -1) return 0;
    const i128 s = i128(a) + c, half = i128(1) << (sf - 1);
    return static_cast<int64_t>(s >= 0 ? (s + half) >> sf : -((-s + half) >> sf));
}

VRX_INLINE uint64_t addC64uRound(uint64_t a, uint64_t c, int sf, int mode) {
    const u128 s = u128(a) + c;
    if (sf >= 64) {
        // sf 64 and 65: the exact quotient, now only a few values
        const u128 q = s >> sf, rem = s - (q << sf), half = u128(1) << (sf - 1);
        if (mode == vrxRndZero) return static_cast<uint64_t>(q);
        if (mode == vrxRndNear) return static_cast<uint64_t>(q + ((rem > half || (rem == half && (q & 1))) ? 1 : 0));
        return static_cast<uint64_t>(q + (rem >= half ? 1 : 0));
    }
    const uint64_t mask = (uint64_t(1) << sf) - 1;
    const uint64_t h = (a >> sf) + (c >> sf);
    const uint64_t l = (a & mask) + (c & mask);
    const uint64_t m = h + (l >> sf);
    if (mode == vrxRndZero) return m;
    if (mode == vrxRndNear) {
        const u128 t = u128(m & 1) + ((u128(1) << (sf - 1)) - 1) + (l & mask);
        return m + static_cast<uint64_t>(t >> sf);
    }
    return static_cast<uint64_t>((s + (u128(1) << (sf - 1))) >> sf);
}

}  // namespace

// The length is unsigned here: only 0 is a bad length.
VrxStatus N0(vrxsAddC_64s_Sfs)(const Vrx64s* pSrc, Vrx64s val, Vrx64s* pDst, int len, int scaleFactor, VrxRounding rounding) {
    if (anyNull(pSrc, pDst)) return vrxErrNullPtr;
    if (len == 0) return vrxErrBadLength;
    const size_t n = static_cast<unsigned>(len);
    const int sf = scaleFactor;
    if (sf == 0) {
        if (val == 0) return N0(vrxsCopy_64s)(pSrc, pDst, len);
        for (size_t i = 0; i < n; ++i) pDst[i] = saturate<int64_t>(i128(pSrc[i]) + val);
    } else if (sf >= 64) {
        for (size_t i = 0; i < n; ++i) pDst[i] = 0;
    } else if (sf <= -63) {
        for (size_t i = 0; i < n; ++i) pDst[i] = boundBySign<int64_t>(i128(pSrc[i]) + val);
    } else if (sf < 0) {
        for (size_t i = 0; i < n; ++i) pDst[i] = shiftLeftSaturate<int64_t>(i128(pSrc[i]) + val, -sf);
    } else {
        const int mode = (rounding == vrxRndZero || rounding == vrxRndNear) ? rounding : vrxRndFinancial;
        for (size_t i = 0; i < n; ++i) pDst[i] = addC64sRound(pSrc[i], val, sf, mode);
    }
    return vrxOk;
}

// An unknown rounding with a nonzero scale factor leaves the destination.
VrxStatus N0(vrxsAddC_64u_Sfs)(const Vrx64u* pSrc, Vrx64u val, Vrx64u* pDst, int len, int scaleFactor, VrxRounding rounding) {
    if (anyNull(pSrc, pDst)) return vrxErrNullPtr;
    if (len == 0) return vrxErrBadLength;
    const size_t n = static_cast<unsigned>(len);
    const int sf = scaleFactor;
    constexpr uint64_t kMax = ~uint64_t(0);
    if (sf == 0) {
        if (val == 0) return N0(vrxsCopy_64s)(reinterpret_cast<const Vrx64s*>(pSrc), reinterpret_cast<Vrx64s*>(pDst), len);
        for (size_t i = 0; i < n; ++i) { uint64_t s = pSrc[i] + val; pDst[i] = s < val ? kMax : s; }
        return vrxOk;
    }
    if (rounding != vrxRndZero && rounding != vrxRndNear && rounding != vrxRndFinancial) return vrxOk;
    if (sf >= 66) {
        for (size_t i = 0; i < n; ++i) pDst[i] = 0;
    } else if (sf <= -64) {
        for (size_t i = 0; i < n; ++i) pDst[i] = (pSrc[i] | val) ? kMax : 0;
    } else if (sf < 0) {
        const int k = -sf;
        for (size_t i = 0; i < n; ++i) {
            const u128 s = u128(pSrc[i]) + val;
            pDst[i] = s > (u128(kMax) >> k) ? kMax : static_cast<uint64_t>(s << k);
        }
    } else {
        for (size_t i = 0; i < n; ++i) pDst[i] = addC64uRound(pSrc[i], val, sf, rounding);
    }
    return vrxOk;
}

// ---------------------------------------------- widening and saturating sums
VrxStatus N0(vrxsAdd_8u16u)(const Vrx8u* pSrc1, const Vrx8u* pSrc2, Vrx16u* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDst)) return st;
    for (size_t i = 0, n = static_cast<size_t>(len); i < n; ++i) pDst[i] = static_cast<Vrx16u>(pSrc1[i] + pSrc2[i]);
    return vrxOk;
}
VrxStatus N0(vrxsAdd_16u)(const Vrx16u* pSrc1, const Vrx16u* pSrc2, Vrx16u* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDst)) return st;
    kernNoScale<Vrx16u, int32_t>(pDst, static_cast<size_t>(len), [=](size_t i) { return int32_t(pSrc1[i]) + pSrc2[i]; });
    return vrxOk;
}
VrxStatus N0(vrxsAdd_16u_I)(const Vrx16u* pSrc, Vrx16u* pSrcDst, int len) { return N0(vrxsAdd_16u)(pSrc, pSrcDst, pSrcDst, len); }
VrxStatus N0(vrxsAdd_32u)(const Vrx32u* pSrc1, const Vrx32u* pSrc2, Vrx32u* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDst)) return st;
    for (size_t i = 0, n = static_cast<size_t>(len); i < n; ++i) {
        const uint64_t s = uint64_t(pSrc1[i]) + pSrc2[i];
        pDst[i] = static_cast<Vrx32u>(s < 0xFFFFFFFFu ? s : 0xFFFFFFFFu);
    }
    return vrxOk;
}
VrxStatus N0(vrxsAdd_32u_I)(const Vrx32u* pSrc, Vrx32u* pSrcDst, int len) { return N0(vrxsAdd_32u)(pSrc, pSrcDst, pSrcDst, len); }
VrxStatus N0(vrxsAdd_16s32s_I)(const Vrx16s* pSrc, Vrx32s* pSrcDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc, pSrcDst)) return st;
    kernNoScale<Vrx32s, int64_t>(pSrcDst, static_cast<size_t>(len), [=](size_t i) { return int64_t(pSrcDst[i]) + pSrc[i]; });
    return vrxOk;
}

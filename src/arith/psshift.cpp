// Shifts by a constant count. Left shifts are logical for every type and
// drop the bits shifted out (no saturation, also for the signed types);
// right shifts are logical for the unsigned types and arithmetic for the
// signed ones. The shortcuts (count 0, count of the width or more) stand in
// front of the general checks.
#include "conv_forward.h"

#include <type_traits>

using namespace n0;
using namespace n0::fwd;

namespace {

template <class T>
void shl(const T* __restrict s, T* __restrict d, int len, int c) {
    for (int i = 0; i < len; ++i) d[i] = static_cast<T>(static_cast<std::make_unsigned_t<T>>(s[i]) << c);
}
template <class T>
void shlI(T* __restrict d, int len, int c) {
    for (int i = 0; i < len; ++i) d[i] = static_cast<T>(static_cast<std::make_unsigned_t<T>>(d[i]) << c);
}
// Logical for unsigned T, arithmetic for signed T (c below the width).
template <class T>
void shr(const T* __restrict s, T* __restrict d, int len, int c) {
    for (int i = 0; i < len; ++i) d[i] = static_cast<T>(s[i] >> c);
}
template <class T>
void shrI(T* __restrict d, int len, int c) {
    for (int i = 0; i < len; ++i) d[i] = static_cast<T>(d[i] >> c);
}

template <class T> constexpr int kWidth = 8 * static_cast<int>(sizeof(T));

// Left shifts of every type and logical right shifts.
template <bool Left, class T>
VrxStatus shiftClearing(const T* s, int c, T* d, int len) {
    if (c == 0) return copyW(s, d, len);
    if (c >= kWidth<T>) {
        if (!s) return vrxErrNullPtr;
        return zeroW(d, len);
    }
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (c < 0) return vrxErrShift;
    if (Left) shl(s, d, len, c); else shr(s, d, len, c);
    return vrxOk;
}

template <bool Left, class T>
VrxStatus shiftClearingI(int c, T* d, int len) {
    if (c >= kWidth<T>) return zeroW(d, len);
    if (VrxStatus st = checkArgs(len, d)) return st;
    if (c == 0) return vrxOk;
    if (c < 0) return vrxErrShift;
    if (Left) shlI(d, len, c); else shrI(d, len, c);
    return vrxOk;
}

// Arithmetic right shifts: a count of the width or more spreads the sign.
template <class T>
VrxStatus shiftArith(const T* s, int c, T* d, int len) {
    if (c == 0) return copyW(s, d, len);
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (c < 0) return vrxErrShift;
    shr(s, d, len, c < kWidth<T> ? c : kWidth<T> - 1);
    return vrxOk;
}

template <class T>
VrxStatus shiftArithI(int c, T* d, int len) {
    if (VrxStatus st = checkArgs(len, d)) return st;
    if (c == 0) return vrxOk;
    if (c < 0) return vrxErrShift;
    shrI(d, len, c < kWidth<T> ? c : kWidth<T> - 1);
    return vrxOk;
}

}  // namespace

#define VRX_SHIFT_TYPE(S, T, RSHIFT, RSHIFT_I)                                                          \
    VrxStatus N0(vrxsLShiftC_##S)(const T* s, int c, T* d, int len) { return shiftClearing<true>(s, c, d, len); } \
    VrxStatus N0(vrxsLShiftC_##S##_I)(int c, T* d, int len) { return shiftClearingI<true>(c, d, len); }           \
    VrxStatus N0(vrxsRShiftC_##S)(const T* s, int c, T* d, int len) { return RSHIFT(s, c, d, len); }              \
    VrxStatus N0(vrxsRShiftC_##S##_I)(int c, T* d, int len) { return RSHIFT_I(c, d, len); }

VRX_SHIFT_TYPE(8u, Vrx8u, shiftClearing<false>, shiftClearingI<false>)
VRX_SHIFT_TYPE(16u, Vrx16u, shiftClearing<false>, shiftClearingI<false>)
VRX_SHIFT_TYPE(16s, Vrx16s, shiftArith, shiftArithI)
VRX_SHIFT_TYPE(32s, Vrx32s, shiftArith, shiftArithI)

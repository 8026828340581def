// Bitwise logic on unsigned vectors: And, Or, Xor of two vectors or of a
// vector and a constant, and Not. One kernel per operation, instantiated per
// element width; the loops are plain element loops that the compiler widens
// to full vector registers. Constant forms take their zero-constant
// shortcuts before the general checks.
#include "vrx_base.h"

using namespace n0;

namespace {

struct OpAnd { template <class T> static VRX_INLINE T f(T a, T b) { return static_cast<T>(a & b); } };
struct OpOr  { template <class T> static VRX_INLINE T f(T a, T b) { return static_cast<T>(a | b); } };
struct OpXor { template <class T> static VRX_INLINE T f(T a, T b) { return static_cast<T>(a ^ b); } };

template <class Op, class T>
void logicVV(const T* __restrict a, const T* __restrict b, T* __restrict d, int len) {
    for (int i = 0; i < len; ++i) d[i] = Op::f(a[i], b[i]);
}

// In place: b and d are the same vector.
template <class Op, class T>
void logicVVI(const T* __restrict a, T* __restrict bd, int len) {
    for (int i = 0; i < len; ++i) bd[i] = Op::f(a[i], bd[i]);
}

template <class Op, class T>
void logicVC(const T* __restrict a, T c, T* __restrict d, int len) {
    for (int i = 0; i < len; ++i) d[i] = Op::f(a[i], c);
}

template <class Op, class T>
void logicVCI(T c, T* __restrict d, int len) {
    for (int i = 0; i < len; ++i) d[i] = Op::f(d[i], c);
}

template <class T>
void notV(const T* __restrict a, T* __restrict d, int len) {
    for (int i = 0; i < len; ++i) d[i] = static_cast<T>(~a[i]);
}

template <class T>
void notVI(T* __restrict d, int len) {
    for (int i = 0; i < len; ++i) d[i] = static_cast<T>(~d[i]);
}

template <class Op, class T>
VRX_INLINE VrxStatus vv(const T* a, const T* b, T* d, int len) {
    if (VrxStatus st = checkArgs(len, a, b, d)) return st;
    logicVV<Op>(a, b, d, len);
    return vrxOk;
}

template <class Op, class T>
VRX_INLINE VrxStatus vvI(const T* a, T* bd, int len) {
    if (VrxStatus st = checkArgs(len, a, bd)) return st;
    logicVVI<Op>(a, bd, len);
    return vrxOk;
}

template <class Op, class T>
VRX_INLINE VrxStatus vc(const T* a, T c, T* d, int len) {
    if (VrxStatus st = checkArgs(len, a, d)) return st;
    logicVC<Op>(a, c, d, len);
    return vrxOk;
}

template <class Op, class T>
VRX_INLINE VrxStatus vcI(T c, T* d, int len) {
    if (VrxStatus st = checkArgs(len, d)) return st;
    logicVCI<Op>(c, d, len);
    return vrxOk;
}

// The block moves by element width (the unsigned types share the bits of
// the signed ones).
VRX_INLINE VrxStatus copyW(const Vrx8u* s, Vrx8u* d, int len) { return N0(vrxsCopy_8u)(s, d, len); }
VRX_INLINE VrxStatus copyW(const Vrx16u* s, Vrx16u* d, int len) {
    return N0(vrxsCopy_16s)(reinterpret_cast<const Vrx16s*>(s), reinterpret_cast<Vrx16s*>(d), len);
}
VRX_INLINE VrxStatus copyW(const Vrx32u* s, Vrx32u* d, int len) {
    return N0(vrxsCopy_32s)(reinterpret_cast<const Vrx32s*>(s), reinterpret_cast<Vrx32s*>(d), len);
}
VRX_INLINE VrxStatus zeroW(Vrx8u* d, int len) { return N0(vrxsZero_8u)(d, len); }
VRX_INLINE VrxStatus zeroW(Vrx16u* d, int len) { return N0(vrxsZero_16s)(reinterpret_cast<Vrx16s*>(d), len); }
VRX_INLINE VrxStatus zeroW(Vrx32u* d, int len) { return N0(vrxsZero_32s)(reinterpret_cast<Vrx32s*>(d), len); }

template <class T>
VRX_INLINE VrxStatus andC(const T* a, T c, T* d, int len) {
    if (c == 0) {
        if (!a) return vrxErrNullPtr;
        return zeroW(d, len);
    }
    return vc<OpAnd>(a, c, d, len);
}

template <class T>
VRX_INLINE VrxStatus andCI(T c, T* d, int len) {
    if (c == 0) return zeroW(d, len);
    return vcI<OpAnd>(c, d, len);
}

// Or and Xor with zero leave the vector as it is.
template <class Op, class T>
VRX_INLINE VrxStatus orxorC(const T* a, T c, T* d, int len) {
    if (c == 0) return copyW(a, d, len);
    return vc<Op>(a, c, d, len);
}

template <class T>
VRX_INLINE VrxStatus notF(const T* a, T* d, int len) {
    if (VrxStatus st = checkArgs(len, a, d)) return st;
    notV(a, d, len);
    return vrxOk;
}

template <class T>
VRX_INLINE VrxStatus notFI(T* d, int len) {
    if (VrxStatus st = checkArgs(len, d)) return st;
    notVI(d, len);
    return vrxOk;
}

}  // namespace

#define VRX_LOGIC_TYPE(S, T)                                                                           \
    VrxStatus N0(vrxsAnd_##S)(const T* a, const T* b, T* d, int len) { return vv<OpAnd>(a, b, d, len); } \
    VrxStatus N0(vrxsOr_##S)(const T* a, const T* b, T* d, int len) { return vv<OpOr>(a, b, d, len); }   \
    VrxStatus N0(vrxsXor_##S)(const T* a, const T* b, T* d, int len) { return vv<OpXor>(a, b, d, len); } \
    VrxStatus N0(vrxsAnd_##S##_I)(const T* a, T* d, int len) { return vvI<OpAnd>(a, d, len); }           \
    VrxStatus N0(vrxsOr_##S##_I)(const T* a, T* d, int len) { return vvI<OpOr>(a, d, len); }             \
    VrxStatus N0(vrxsXor_##S##_I)(const T* a, T* d, int len) { return vvI<OpXor>(a, d, len); }           \
    VrxStatus N0(vrxsAndC_##S)(const T* a, T c, T* d, int len) { return andC(a, c, d, len); }            \
    VrxStatus N0(vrxsOrC_##S)(const T* a, T c, T* d, int len) { return orxorC<OpOr>(a, c, d, len); }     \
    VrxStatus N0(vrxsXorC_##S)(const T* a, T c, T* d, int len) { return orxorC<OpXor>(a, c, d, len); }   \
    VrxStatus N0(vrxsAndC_##S##_I)(T c, T* d, int len) { return andCI(c, d, len); }                      \
    VrxStatus N0(vrxsOrC_##S##_I)(T c, T* d, int len) { return vcI<OpOr>(c, d, len); }                   \
    VrxStatus N0(vrxsXorC_##S##_I)(T c, T* d, int len) { return vcI<OpXor>(c, d, len); }                 \
    VrxStatus N0(vrxsNot_##S)(const T* a, T* d, int len) { return notF(a, d, len); }                     \
    VrxStatus N0(vrxsNot_##S##_I)(T* d, int len) { return notFI(d, len); }

VRX_LOGIC_TYPE(8u, Vrx8u)
VRX_LOGIC_TYPE(16u, Vrx16u)
VRX_LOGIC_TYPE(32u, Vrx32u)

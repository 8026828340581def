// Bitwise logic on unsigned vectors: And, Or, Xor of two vectors or of a
// vector and a constant, and Not. One kernel per operation, instantiated per
// element width; the loops are plain element loops that the compiler widens
// to full vector registers. Constant forms take their zero-constant
// shortcuts before the general checks.
#include "conv_forward.h"
#include "vrx_map.h"

using namespace n0;
using namespace n0::fwd;

namespace {

struct OpAnd { template <class T> static VRX_INLINE T f(T a, T b) { return static_cast<T>(a & b); } };
struct OpOr  { template <class T> static VRX_INLINE T f(T a, T b) { return static_cast<T>(a | b); } };
struct OpXor { template <class T> static VRX_INLINE T f(T a, T b) { return static_cast<T>(a ^ b); } };

// Bitwise operations do not see element boundaries: the kernels run on
// bytes, 256 a step in 512-bit registers, then 64, then 4-byte lanes under a
// mask, then single bytes. A constant is its element repeated over the
// register, and the byte tail takes the matching byte of that pattern.
// The registers hold 32-bit lanes; the operations do not see them either.
using U = simd::V<uint32_t>;
struct OpAndV { static VRX_INLINE U::R f(U::R a, U::R b) { return U::andb(a, b); } };
struct OpOrV  { static VRX_INLINE U::R f(U::R a, U::R b) { return U::orb(a, b); } };
struct OpXorV { static VRX_INLINE U::R f(U::R a, U::R b) { return U::xorb(a, b); } };
template <class Op> struct VecOf;
template <> struct VecOf<OpAnd> { using V = OpAndV; };
template <> struct VecOf<OpOr> { using V = OpOrV; };
template <> struct VecOf<OpXor> { using V = OpXorV; };

VRX_INLINE const uint32_t* W(const Vrx8u* p) { return reinterpret_cast<const uint32_t*>(p); }
VRX_INLINE uint32_t* W(Vrx8u* p) { return reinterpret_cast<uint32_t*>(p); }
VRX_INLINE U::R ld(const Vrx8u* p) { return U::load(W(p)); }
VRX_INLINE void st(Vrx8u* p, U::R v) { U::store(W(p), v); }
VRX_INLINE void stream(Vrx8u* p, U::R v) { U::stream(W(p), v); }

// d = op(a, b) where b is a vector (pb) or the pattern vb.
template <class Op, bool Vec>
VRX_INLINE void bytesKernel(const Vrx8u* a, const Vrx8u* pb, U::R vb, Vrx8u* d, size_t n, size_t esz) {
    using V = typename VecOf<Op>::V;
    auto B = [&](size_t i) { return Vec ? ld(pb + i) : vb; };
    size_t i = 0;
    alignas(64) Vrx8u pat[64];
    if (!Vec) U::store(W(pat), vb);
    auto one = [&](size_t k) { return Op::f(a[k], Vec ? pb[k] : pat[k & 63]); };
    if (map::streamWorth(n * (Vec ? 3 : 2)) && (reinterpret_cast<uintptr_t>(d) & (esz - 1)) == 0) {
        // large calls: bytes up to a 64-byte boundary, then streaming
        // stores (the boundary is an element boundary, so the pattern fits)
        for (; (reinterpret_cast<uintptr_t>(d + i) & 63) != 0; ++i) d[i] = one(i);
        for (; i + 256 <= n; i += 256) {
            auto r0 = V::f(ld(a + i), B(i)), r1 = V::f(ld(a + i + 64), B(i + 64));
            auto r2 = V::f(ld(a + i + 128), B(i + 128)), r3 = V::f(ld(a + i + 192), B(i + 192));
            stream(d + i, r0); stream(d + i + 64, r1); stream(d + i + 128, r2); stream(d + i + 192, r3);
        }
        simd::streamFence();
    }
    for (; i + 256 <= n; i += 256) {
        auto r0 = V::f(ld(a + i), B(i)), r1 = V::f(ld(a + i + 64), B(i + 64));
        auto r2 = V::f(ld(a + i + 128), B(i + 128)), r3 = V::f(ld(a + i + 192), B(i + 192));
        st(d + i, r0); st(d + i + 64, r1); st(d + i + 128, r2); st(d + i + 192, r3);
    }
    for (; i + 64 <= n; i += 64) st(d + i, V::f(ld(a + i), B(i)));
    if (size_t q = (n - i) / 4) {
        const auto k = simd::tail<uint32_t>(q);
        auto bb = Vec ? U::loadm(k, W(pb + i)) : vb;
        U::storem(W(d + i), k, V::f(U::loadm(k, W(a + i)), bb));
        i += 4 * q;
    }
    for (; i < n; ++i) d[i] = one(i);
}

template <class T>
VRX_INLINE U::R broadcast(T c) {
    if constexpr (sizeof(T) == 1) return U::set1(0x01010101u * c);
    else if constexpr (sizeof(T) == 2) return U::set1(0x00010001u * c);
    else return U::set1(c);
}

template <class T> VRX_INLINE const Vrx8u* B8(const T* p) { return reinterpret_cast<const Vrx8u*>(p); }
template <class T> VRX_INLINE Vrx8u* B8(T* p) { return reinterpret_cast<Vrx8u*>(p); }
template <class T> VRX_INLINE size_t bytes(int len) { return static_cast<size_t>(len) * sizeof(T); }

template <class Op, class T>
void logicVV(const T* a, const T* b, T* d, int len) {
    bytesKernel<Op, true>(B8(a), B8(b), U::zero(), B8(d), bytes<T>(len), sizeof(T));
}
template <class Op, class T>
void logicVVI(const T* a, T* bd, int len) { logicVV<Op>(a, bd, bd, len); }
template <class Op, class T>
void logicVC(const T* a, T c, T* d, int len) {
    bytesKernel<Op, false>(B8(a), nullptr, broadcast(c), B8(d), bytes<T>(len), sizeof(T));
}
template <class Op, class T>
void logicVCI(T c, T* d, int len) { logicVC<Op>(d, c, d, len); }
template <class T>
void notV(const T* a, T* d, int len) {
    bytesKernel<OpXor, false>(B8(a), nullptr, U::set1(~0u), B8(d), bytes<T>(len), sizeof(T));
}
template <class T>
void notVI(T* d, int len) { notV(d, d, len); }

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

VrxStatus N0(vrxsAnd_8u)(const Vrx8u* a, const Vrx8u* b, Vrx8u* d, int len) { return vv<OpAnd>(a, b, d, len); }
VrxStatus N0(vrxsOr_8u)(const Vrx8u* a, const Vrx8u* b, Vrx8u* d, int len) { return vv<OpOr>(a, b, d, len); }
VrxStatus N0(vrxsXor_8u)(const Vrx8u* a, const Vrx8u* b, Vrx8u* d, int len) { return vv<OpXor>(a, b, d, len); }
VrxStatus N0(vrxsAnd_8u_I)(const Vrx8u* a, Vrx8u* d, int len) { return vvI<OpAnd>(a, d, len); }
VrxStatus N0(vrxsOr_8u_I)(const Vrx8u* a, Vrx8u* d, int len) { return vvI<OpOr>(a, d, len); }
VrxStatus N0(vrxsXor_8u_I)(const Vrx8u* a, Vrx8u* d, int len) { return vvI<OpXor>(a, d, len); }
VrxStatus N0(vrxsAndC_8u)(const Vrx8u* a, Vrx8u c, Vrx8u* d, int len) { return andC(a, c, d, len); }
VrxStatus N0(vrxsOrC_8u)(const Vrx8u* a, Vrx8u c, Vrx8u* d, int len) { return orxorC<OpOr>(a, c, d, len); }
VrxStatus N0(vrxsXorC_8u)(const Vrx8u* a, Vrx8u c, Vrx8u* d, int len) { return orxorC<OpXor>(a, c, d, len); }
VrxStatus N0(vrxsAndC_8u_I)(Vrx8u c, Vrx8u* d, int len) { return andCI(c, d, len); }
VrxStatus N0(vrxsOrC_8u_I)(Vrx8u c, Vrx8u* d, int len) { return vcI<OpOr>(c, d, len); }
VrxStatus N0(vrxsXorC_8u_I)(Vrx8u c, Vrx8u* d, int len) { return vcI<OpXor>(c, d, len); }
VrxStatus N0(vrxsNot_8u)(const Vrx8u* a, Vrx8u* d, int len) { return notF(a, d, len); }
VrxStatus N0(vrxsNot_8u_I)(Vrx8u* d, int len) { return notFI(d, len); }

VrxStatus N0(vrxsAnd_16u)(const Vrx16u* a, const Vrx16u* b, Vrx16u* d, int len) { return vv<OpAnd>(a, b, d, len); }
VrxStatus N0(vrxsOr_16u)(const Vrx16u* a, const Vrx16u* b, Vrx16u* d, int len) { return vv<OpOr>(a, b, d, len); }
VrxStatus N0(vrxsXor_16u)(const Vrx16u* a, const Vrx16u* b, Vrx16u* d, int len) { return vv<OpXor>(a, b, d, len); }
VrxStatus N0(vrxsAnd_16u_I)(const Vrx16u* a, Vrx16u* d, int len) { return vvI<OpAnd>(a, d, len); }
VrxStatus N0(vrxsOr_16u_I)(const Vrx16u* a, Vrx16u* d, int len) { return vvI<OpOr>(a, d, len); }
VrxStatus N0(vrxsXor_16u_I)(const Vrx16u* a, Vrx16u* d, int len) { return vvI<OpXor>(a, d, len); }
VrxStatus N0(vrxsAndC_16u)(const Vrx16u* a, Vrx16u c, Vrx16u* d, int len) { return andC(a, c, d, len); }
VrxStatus N0(vrxsOrC_16u)(const Vrx16u* a, Vrx16u c, Vrx16u* d, int len) { return orxorC<OpOr>(a, c, d, len); }
VrxStatus N0(vrxsXorC_16u)(const Vrx16u* a, Vrx16u c, Vrx16u* d, int len) { return orxorC<OpXor>(a, c, d, len); }
VrxStatus N0(vrxsAndC_16u_I)(Vrx16u c, Vrx16u* d, int len) { return andCI(c, d, len); }
VrxStatus N0(vrxsOrC_16u_I)(Vrx16u c, Vrx16u* d, int len) { return vcI<OpOr>(c, d, len); }
VrxStatus N0(vrxsXorC_16u_I)(Vrx16u c, Vrx16u* d, int len) { return vcI<OpXor>(c, d, len); }
VrxStatus N0(vrxsNot_16u)(const Vrx16u* a, Vrx16u* d, int len) { return notF(a, d, len); }
VrxStatus N0(vrxsNot_16u_I)(Vrx16u* d, int len) { return notFI(d, len); }

VrxStatus N0(vrxsAnd_32u)(const Vrx32u* a, const Vrx32u* b, Vrx32u* d, int len) { return vv<OpAnd>(a, b, d, len); }
VrxStatus N0(vrxsOr_32u)(const Vrx32u* a, const Vrx32u* b, Vrx32u* d, int len) { return vv<OpOr>(a, b, d, len); }
VrxStatus N0(vrxsXor_32u)(const Vrx32u* a, const Vrx32u* b, Vrx32u* d, int len) { return vv<OpXor>(a, b, d, len); }
VrxStatus N0(vrxsAnd_32u_I)(const Vrx32u* a, Vrx32u* d, int len) { return vvI<OpAnd>(a, d, len); }
VrxStatus N0(vrxsOr_32u_I)(const Vrx32u* a, Vrx32u* d, int len) { return vvI<OpOr>(a, d, len); }
VrxStatus N0(vrxsXor_32u_I)(const Vrx32u* a, Vrx32u* d, int len) { return vvI<OpXor>(a, d, len); }
VrxStatus N0(vrxsAndC_32u)(const Vrx32u* a, Vrx32u c, Vrx32u* d, int len) { return andC(a, c, d, len); }
VrxStatus N0(vrxsOrC_32u)(const Vrx32u* a, Vrx32u c, Vrx32u* d, int len) { return orxorC<OpOr>(a, c, d, len); }
VrxStatus N0(vrxsXorC_32u)(const Vrx32u* a, Vrx32u c, Vrx32u* d, int len) { return orxorC<OpXor>(a, c, d, len); }
VrxStatus N0(vrxsAndC_32u_I)(Vrx32u c, Vrx32u* d, int len) { return andCI(c, d, len); }
VrxStatus N0(vrxsOrC_32u_I)(Vrx32u c, Vrx32u* d, int len) { return vcI<OpOr>(c, d, len); }
VrxStatus N0(vrxsXorC_32u_I)(Vrx32u c, Vrx32u* d, int len) { return vcI<OpXor>(c, d, len); }
VrxStatus N0(vrxsNot_32u)(const Vrx32u* a, Vrx32u* d, int len) { return notF(a, d, len); }
VrxStatus N0(vrxsNot_32u_I)(Vrx32u* d, int len) { return notFI(d, len); }

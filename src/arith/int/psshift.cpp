// Shifts by a constant count. Left shifts are logical for every type and
// drop the bits shifted out (no saturation, also for the signed types);
// right shifts are logical for the unsigned types and arithmetic for the
// signed ones. The shortcuts (count 0, count of the width or more) stand in
// front of the general checks.
#include "conv_forward.h"
#include "simd/simd.h"

#include <type_traits>

using namespace n0;
using namespace n0::fwd;

namespace {

// The kernels shift 32-bit lanes and mask off the bits that crossed an
// element boundary, so one 512-bit shift serves 8-, 16- and 32-bit elements;
// the arithmetic shift of 16-bit elements uses 256-bit word shifts. The
// tail runs the same operation under a 32-bit lane mask, then element by
// element for the last bytes.
template <class T>
VRX_INLINE uint32_t laneMask(int c, bool left) {
    constexpr uint32_t ones = sizeof(T) == 1 ? 0xFFu : (sizeof(T) == 2 ? 0xFFFFu : 0xFFFFFFFFu);
    constexpr uint32_t rep = sizeof(T) == 1 ? 0x01010101u : (sizeof(T) == 2 ? 0x00010001u : 1u);
    return rep * ((left ? (ones << c) : (ones >> c)) & ones);
}

template <class T>
VRX_INLINE T scalarShift(T x, int c, bool left) {
    using U = std::make_unsigned_t<T>;
    if (left) return static_cast<T>(static_cast<U>(x) << c);
    return static_cast<T>(x >> c);  // logical for unsigned T, arithmetic for signed T
}

template <class T>
void shiftKernel(const T* s, T* d, int len, int c, bool left) {
    const Vrx8u* a = reinterpret_cast<const Vrx8u*>(s);
    Vrx8u* o = reinterpret_cast<Vrx8u*>(d);
    const size_t n = static_cast<size_t>(len) * sizeof(T);
    size_t i = 0;
    if constexpr (std::is_same_v<T, Vrx16s>) {
        if (!left) {
            // 16-bit lanes have no register type in the layer and no 512-bit
            // word shift without AVX-512BW: the arithmetic word shift runs
            // on raw 256-bit registers, 16 elements each.
            const __m128i cnt = _mm_cvtsi32_si128(c);
            auto op = [cnt](__m256i v) { return _mm256_sra_epi16(v, cnt); };
            for (; i + 128 <= n; i += 128) {
                __m256i r0 = op(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(a + i)));
                __m256i r1 = op(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(a + i + 32)));
                __m256i r2 = op(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(a + i + 64)));
                __m256i r3 = op(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(a + i + 96)));
                _mm256_storeu_si256(reinterpret_cast<__m256i*>(o + i), r0);
                _mm256_storeu_si256(reinterpret_cast<__m256i*>(o + i + 32), r1);
                _mm256_storeu_si256(reinterpret_cast<__m256i*>(o + i + 64), r2);
                _mm256_storeu_si256(reinterpret_cast<__m256i*>(o + i + 96), r3);
            }
            for (; i + 32 <= n; i += 32)
                _mm256_storeu_si256(reinterpret_cast<__m256i*>(o + i), op(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(a + i))));
            for (size_t k = i / sizeof(T); k < static_cast<size_t>(len); ++k) d[k] = scalarShift(s[k], c, false);
            return;
        }
    }
    using U = simd::V<uint32_t>;
    using I = simd::V<int32_t>;
    const U::R m = U::set1(laneMask<T>(c, left)), cv = U::set1(static_cast<uint32_t>(c));
    auto op = [&](U::R v) {
        if constexpr (std::is_same_v<T, Vrx32s>) {
            return left ? U::shlv(v, cv) : I::shrv(v, cv);
        } else {
            return U::andb(left ? U::shlv(v, cv) : U::shrv(v, cv), m);
        }
    };
    auto ld = [](const Vrx8u* p) { return U::load(reinterpret_cast<const uint32_t*>(p)); };
    auto st = [](Vrx8u* p, U::R v) { U::store(reinterpret_cast<uint32_t*>(p), v); };
    for (; i + 256 <= n; i += 256) {
        auto r0 = op(ld(a + i)), r1 = op(ld(a + i + 64));
        auto r2 = op(ld(a + i + 128)), r3 = op(ld(a + i + 192));
        st(o + i, r0); st(o + i + 64, r1);
        st(o + i + 128, r2); st(o + i + 192, r3);
    }
    for (; i + 64 <= n; i += 64) st(o + i, op(ld(a + i)));
    if (size_t q = (n - i) / 4) {
        const auto k = simd::tail<uint32_t>(q);
        U::storem(reinterpret_cast<uint32_t*>(o + i), k, op(U::loadm(k, reinterpret_cast<const uint32_t*>(a + i))));
        i += 4 * q;
    }
    for (size_t k = i / sizeof(T); k < static_cast<size_t>(len); ++k) d[k] = scalarShift(s[k], c, left);
}

template <class T>
VRX_INLINE void shl(const T* s, T* d, int len, int c) { shiftKernel(s, d, len, c, true); }
template <class T>
VRX_INLINE void shlI(T* d, int len, int c) { shiftKernel<T>(d, d, len, c, true); }
template <class T>
VRX_INLINE void shr(const T* s, T* d, int len, int c) { shiftKernel(s, d, len, c, false); }
template <class T>
VRX_INLINE void shrI(T* d, int len, int c) { shiftKernel<T>(d, d, len, c, false); }

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

VrxStatus N0(vrxsLShiftC_8u)(const Vrx8u* s, int c, Vrx8u* d, int len) { return shiftClearing<true>(s, c, d, len); }
VrxStatus N0(vrxsLShiftC_8u_I)(int c, Vrx8u* d, int len) { return shiftClearingI<true>(c, d, len); }
VrxStatus N0(vrxsRShiftC_8u)(const Vrx8u* s, int c, Vrx8u* d, int len) { return shiftClearing<false>(s, c, d, len); }
VrxStatus N0(vrxsRShiftC_8u_I)(int c, Vrx8u* d, int len) { return shiftClearingI<false>(c, d, len); }

VrxStatus N0(vrxsLShiftC_16u)(const Vrx16u* s, int c, Vrx16u* d, int len) { return shiftClearing<true>(s, c, d, len); }
VrxStatus N0(vrxsLShiftC_16u_I)(int c, Vrx16u* d, int len) { return shiftClearingI<true>(c, d, len); }
VrxStatus N0(vrxsRShiftC_16u)(const Vrx16u* s, int c, Vrx16u* d, int len) { return shiftClearing<false>(s, c, d, len); }
VrxStatus N0(vrxsRShiftC_16u_I)(int c, Vrx16u* d, int len) { return shiftClearingI<false>(c, d, len); }

VrxStatus N0(vrxsLShiftC_16s)(const Vrx16s* s, int c, Vrx16s* d, int len) { return shiftClearing<true>(s, c, d, len); }
VrxStatus N0(vrxsLShiftC_16s_I)(int c, Vrx16s* d, int len) { return shiftClearingI<true>(c, d, len); }
VrxStatus N0(vrxsRShiftC_16s)(const Vrx16s* s, int c, Vrx16s* d, int len) { return shiftArith(s, c, d, len); }
VrxStatus N0(vrxsRShiftC_16s_I)(int c, Vrx16s* d, int len) { return shiftArithI(c, d, len); }

VrxStatus N0(vrxsLShiftC_32s)(const Vrx32s* s, int c, Vrx32s* d, int len) { return shiftClearing<true>(s, c, d, len); }
VrxStatus N0(vrxsLShiftC_32s_I)(int c, Vrx32s* d, int len) { return shiftClearingI<true>(c, d, len); }
VrxStatus N0(vrxsRShiftC_32s)(const Vrx32s* s, int c, Vrx32s* d, int len) { return shiftArith(s, c, d, len); }
VrxStatus N0(vrxsRShiftC_32s_I)(int c, Vrx32s* d, int len) { return shiftArithI(c, d, len); }

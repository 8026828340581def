// Floating-point control: the hand-written control-word routines and the
// guards through which kernels change MXCSR. Every guard restores what it
// changed when it goes out of scope; none ever sets flush-to-zero or
// denormals-are-zero.
#pragma once

#include "vrx_base.h"

#include <immintrin.h>

// Hand-written routines (psfpctl.S).
VRX_OWN(unsigned, vrx_set_rc_ssx, (unsigned rcBits));
VRX_OWN(void, vrx_set_cw_ssx, (unsigned mxcsr));
VRX_OWN(unsigned, ps_set_ssx, (unsigned value, unsigned mask));
VRX_OWN(unsigned, ps_get_ssx, (void));
VRX_OWN(unsigned, ps_get_cw_fpu, (void));
VRX_OWN(unsigned, ps_set_cw_fpu, (unsigned value, unsigned mask));
VRX_OWN(int, vrx_isnan, (double x));

namespace n0 {

constexpr unsigned kMxcsrFlags = 0x003F;      // sticky exception flags
constexpr unsigned kMxcsrInvalid = 0x0001;
constexpr unsigned kMxcsrZeroDiv = 0x0004;
constexpr unsigned kMxcsrUnderflow = 0x0010;
constexpr unsigned kMxcsrMasks = 0x1F80;      // all six exception masks
constexpr unsigned kMxcsrInvalidMask = 0x0080;
constexpr unsigned kMxcsrRound = 0x6000;      // rounding control
constexpr unsigned kMxcsrRoundZero = 0x6000;
constexpr unsigned kMxcsrFtz = 0x8000;
constexpr unsigned kMxcsrDaz = 0x0040;

VRX_INLINE unsigned getMxcsr() { return _mm_getcsr(); }
VRX_INLINE void setMxcsr(unsigned w) { _mm_setcsr(w); }

// ------------------------------------------------------------- guards
// One scope type: FpScope<Policy> reads MXCSR on entry, lets the policy
// write what it needs, and lets the policy put back what it changed when
// the scope ends. No policy sets flush-to-zero or denormals-are-zero.
//
//   policy        entry                        exit                               used by
//   RoundNearest  rounding bits cleared        old rounding bits back             arith products, conversions
//                 (written only if set)        (written only if they were set)
//   TruncMasked   round toward zero, invalid   old rounding and invalid-mask      truncating conversions
//                 masked (written if changed)  bits back (written if changed)
//   InvalidQuiet  invalid masked (if not)      old invalid mask back; an invalid  conversions of out-of-range
//                                              flag raised inside is cleared      inputs
//   StickyFlags   all masked, flags cleared    old masks and old flags back;      Sqrt_32f/64f, Magnitude_32fc
//                 (always written)             the scope's flags stay (flags())
//   MaskTraps     all six masked when any      the whole old word back when it    vecmath exported families
//                 was unmasked                 was changed, else nothing
//   KernelQuiet   as MaskTraps                 x87 exceptions cleared (fnclex     vector-math tier kernels
//                                              only when one is up); the old word
//                                              back when changed, else the five
//                                              low flags cleared (precision kept)
template <class Policy>
class FpScope {
public:
    FpScope() : old_(getMxcsr()) { Policy::enter(old_); }
    ~FpScope() { Policy::leave(old_); }
    // the sticky flags raised so far (all of them: StickyFlags clears them
    // on entry)
    unsigned flags() const { return getMxcsr() & kMxcsrFlags; }
    FpScope(const FpScope&) = delete;
    FpScope& operator=(const FpScope&) = delete;
private:
    unsigned old_;
};

struct RoundNearest {
    static VRX_INLINE void enter(unsigned old) {
        if (old & kMxcsrRound) setMxcsr(old & ~kMxcsrRound);
    }
    static VRX_INLINE void leave(unsigned old) {
        if (old & kMxcsrRound) setMxcsr((getMxcsr() & ~kMxcsrRound) | (old & kMxcsrRound));
    }
};

struct TruncMasked {
    static VRX_INLINE void enter(unsigned old) {
        unsigned w = old | kMxcsrRoundZero | kMxcsrInvalidMask;
        if (w != old) setMxcsr(w);
    }
    static VRX_INLINE void leave(unsigned old) {
        constexpr unsigned bits = kMxcsrRound | kMxcsrInvalidMask;
        unsigned now = getMxcsr();
        unsigned w = (now & ~bits) | (old & bits);
        if (w != now) setMxcsr(w);
    }
};

struct InvalidQuiet {
    static VRX_INLINE void enter(unsigned old) {
        if (!(old & kMxcsrInvalidMask)) setMxcsr(old | kMxcsrInvalidMask);
    }
    static VRX_INLINE void leave(unsigned old) {
        unsigned now = getMxcsr();
        unsigned w = (now & ~kMxcsrInvalidMask) | (old & kMxcsrInvalidMask);
        if (!(old & kMxcsrInvalid)) w &= ~kMxcsrInvalid;
        if (w != now) setMxcsr(w);
    }
};

struct StickyFlags {
    static VRX_INLINE void enter(unsigned old) { setMxcsr((old | kMxcsrMasks) & ~kMxcsrFlags); }
    static VRX_INLINE void leave(unsigned old) {
        unsigned now = getMxcsr();
        setMxcsr((now & ~kMxcsrMasks) | (old & kMxcsrMasks) | (old & kMxcsrFlags));
    }
};

struct MaskTraps {
    static VRX_INLINE bool changes(unsigned old) { return (old & kMxcsrMasks) != kMxcsrMasks; }
    static VRX_INLINE void enter(unsigned old) {
        if (changes(old)) setMxcsr(old | kMxcsrMasks);
    }
    static VRX_INLINE void leave(unsigned old) {
        if (changes(old)) setMxcsr(old);
    }
};

struct KernelQuiet {
    static VRX_INLINE void enter(unsigned old) { MaskTraps::enter(old); }
    static VRX_INLINE void leave(unsigned old) {
        // fnclex costs several times a status read: it runs only when an
        // x87 exception flag is up
        unsigned short sw;
        __asm__ __volatile__("fnstsw %0" : "=a"(sw)::"memory");
        if (VRX_UNLIKELY(sw & 0x80FFu)) __asm__ __volatile__("fnclex" ::: "memory");
        if (MaskTraps::changes(old)) {
            setMxcsr(old);
        } else {
            unsigned w = getMxcsr();
            if (w & 0x1Fu) setMxcsr(w & ~0x1Fu);
        }
    }
};

// The names the kernels use.
using RoundNearestGuard = FpScope<RoundNearest>;
using TruncMaskedGuard = FpScope<TruncMasked>;
using InvalidQuietGuard = FpScope<InvalidQuiet>;
using StickyFlagGuard = FpScope<StickyFlags>;
using TrapGuard = FpScope<MaskTraps>;
using KernelFrame = FpScope<KernelQuiet>;

// Clears the sticky invalid and underflow flags when a table kernel left
// them set.
VRX_INLINE void clearInvalidUnderflow() {
    unsigned w = getMxcsr();
    if (w & (kMxcsrInvalid | kMxcsrUnderflow)) setMxcsr(w & ~(kMxcsrInvalid | kMxcsrUnderflow));
}

}  // namespace n0

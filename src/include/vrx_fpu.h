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

// Round to nearest for the conversion instructions of a kernel: clears the
// rounding bits when they are set and puts back only those bits at the end.
class RoundNearestGuard {
public:
    RoundNearestGuard() : old_(getMxcsr()) {
        if (old_ & kMxcsrRound) setMxcsr(old_ & ~kMxcsrRound);
    }
    ~RoundNearestGuard() {
        if (old_ & kMxcsrRound) setMxcsr((getMxcsr() & ~kMxcsrRound) | (old_ & kMxcsrRound));
    }
    RoundNearestGuard(const RoundNearestGuard&) = delete;
    RoundNearestGuard& operator=(const RoundNearestGuard&) = delete;
private:
    unsigned old_;
};

// Truncating or financial conversion: rounding toward zero and the invalid
// exception masked; the word is written only when it differs, and the old
// rounding and mask bits come back at the end.
class TruncMaskedGuard {
public:
    TruncMaskedGuard() : old_(getMxcsr()) {
        unsigned w = old_ | kMxcsrRoundZero | kMxcsrInvalidMask;
        if (w != old_) setMxcsr(w);
    }
    ~TruncMaskedGuard() {
        constexpr unsigned bits = kMxcsrRound | kMxcsrInvalidMask;
        unsigned now = getMxcsr();
        unsigned w = (now & ~bits) | (old_ & bits);
        if (w != now) setMxcsr(w);
    }
    TruncMaskedGuard(const TruncMaskedGuard&) = delete;
    TruncMaskedGuard& operator=(const TruncMaskedGuard&) = delete;
private:
    unsigned old_;
};

// Invalid masked for the kernel; an invalid flag that the kernel raised (it
// was clear on entry) is cleared again, so out-of-range inputs leave no trace.
class InvalidQuietGuard {
public:
    InvalidQuietGuard() : old_(getMxcsr()) {
        if (!(old_ & kMxcsrInvalidMask)) setMxcsr(old_ | kMxcsrInvalidMask);
    }
    ~InvalidQuietGuard() {
        unsigned now = getMxcsr();
        unsigned w = (now & ~kMxcsrInvalidMask) | (old_ & kMxcsrInvalidMask);
        if (!(old_ & kMxcsrInvalid)) w &= ~kMxcsrInvalid;
        if (w != now) setMxcsr(w);
    }
    InvalidQuietGuard(const InvalidQuietGuard&) = delete;
    InvalidQuietGuard& operator=(const InvalidQuietGuard&) = delete;
private:
    unsigned old_;
};

// Detection by sticky flag: all exceptions masked and the flags cleared for
// the kernel; flags() reads what the kernel raised. At the end the caller's
// masks and its own flags come back, and the kernel's flags stay set.
class StickyFlagGuard {
public:
    StickyFlagGuard() : old_(getMxcsr()) {
        setMxcsr((old_ | kMxcsrMasks) & ~kMxcsrFlags);
    }
    unsigned flags() const { return getMxcsr() & kMxcsrFlags; }
    ~StickyFlagGuard() {
        unsigned now = getMxcsr();
        setMxcsr((now & ~kMxcsrMasks) | (old_ & kMxcsrMasks) | (old_ & kMxcsrFlags));
    }
    StickyFlagGuard(const StickyFlagGuard&) = delete;
    StickyFlagGuard& operator=(const StickyFlagGuard&) = delete;
private:
    unsigned old_;
};

// Clears the sticky invalid and underflow flags when a table kernel left
// them set.
VRX_INLINE void clearInvalidUnderflow() {
    unsigned w = getMxcsr();
    if (w & (kMxcsrInvalid | kMxcsrUnderflow)) setMxcsr(w & ~(kMxcsrInvalid | kMxcsrUnderflow));
}

}  // namespace n0

// The x87 unit for the long double steps of the IIR design and of the
// zero-phase filter's Init: all six exceptions masked and 64-bit precision
// while the scope lives. The caller's control word comes back at the end; an
// exception flag raised inside that the caller's word leaves unmasked is
// cleared first, so that it cannot trap at the caller's next x87 instruction.
#pragma once

#include "vrx_fpu.h"

namespace n0::iir {

class X87Scope {
public:
    X87Scope() : old_(N0(ps_get_cw_fpu)()) { N0(ps_set_cw_fpu)(0x033Fu, 0x033Fu); }
    ~X87Scope() {
        unsigned short sw;
        __asm__ __volatile__("fnstsw %0" : "=a"(sw)::"memory");
        if (sw & ~old_ & 0x3Fu) __asm__ __volatile__("fnclex" ::: "memory");
        N0(ps_set_cw_fpu)(old_, 0xFFFFu);
    }
    X87Scope(const X87Scope&) = delete;
    X87Scope& operator=(const X87Scope&) = delete;

private:
    unsigned old_;
};

}  // namespace n0::iir

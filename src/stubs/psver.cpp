// The version record of the library, one constant object.
#include "vrx_base.h"

namespace {

// Lives in read-only-after-relocation data: its string pointers are
// relocated at load and never written again.
__attribute__((section(".data.rel.ro.vrx_version")))
const VrxLibraryVersion kVersion = {
    9,
    0,
    2,
    49912,
    {'n', '0', 0, 0},
    "vrxSP AVX-512F/CD/ER/PF (n0)",
    "9.0.2 (r49912)",
    "Dec 28 2015",
};

}  // namespace

const VrxLibraryVersion* N0(vrxsGetLibVersion)(void) { return &kVersion; }

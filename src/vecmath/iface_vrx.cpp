// The tier entries: each fetches its slot of its function's tier table and
// jumps there, so the kernel's status is the entry's status.
#include "vm_kernels.h"
#include "vrx_tiers.h"

VrxStatus N0(vrxsCos_32f_A24)(const Vrx32f* s, Vrx32f* d, int n) { return n0_own_vrxs_sCos_B3_ttab[1](s, d, n); }
VrxStatus N0(vrxsCos_64f_A26)(const Vrx64f* s, Vrx64f* d, int n) { return n0_own_vrxs_dCos_B3_ttab[2](s, d, n); }
VrxStatus N0(vrxsCos_64f_A50)(const Vrx64f* s, Vrx64f* d, int n) { return n0_own_vrxs_dCos_B3_ttab[0](s, d, n); }
VrxStatus N0(vrxsCos_64f_A53)(const Vrx64f* s, Vrx64f* d, int n) { return n0_own_vrxs_dCos_B3_ttab[1](s, d, n); }
VrxStatus N0(vrxsSinCos_32f_A21)(const Vrx32f* s, Vrx32f* a, Vrx32f* b, int n) {
    return n0_own_vrxs_sSinCos_B3_ttab[0](s, a, b, n);
}
VrxStatus N0(vrxsSinCos_64f_A26)(const Vrx64f* s, Vrx64f* a, Vrx64f* b, int n) {
    return n0_own_vrxs_dSinCos_B3_ttab[2](s, a, b, n);
}
VrxStatus N0(vrxsSinCos_64f_A50)(const Vrx64f* s, Vrx64f* a, Vrx64f* b, int n) {
    return n0_own_vrxs_dSinCos_B3_ttab[0](s, a, b, n);
}
VrxStatus N0(vrxsSinCos_64f_A53)(const Vrx64f* s, Vrx64f* a, Vrx64f* b, int n) {
    return n0_own_vrxs_dSinCos_B3_ttab[1](s, a, b, n);
}
VrxStatus N0(vrxsSin_32f_A21)(const Vrx32f* s, Vrx32f* d, int n) { return n0_own_vrxs_sSin_B3_ttab[0](s, d, n); }
VrxStatus N0(vrxsSin_32f_A24)(const Vrx32f* s, Vrx32f* d, int n) { return n0_own_vrxs_sSin_B3_ttab[1](s, d, n); }
VrxStatus N0(vrxsSin_64f_A50)(const Vrx64f* s, Vrx64f* d, int n) { return n0_own_vrxs_dSin_B3_ttab[0](s, d, n); }
VrxStatus N0(vrxsSin_64f_A53)(const Vrx64f* s, Vrx64f* d, int n) { return n0_own_vrxs_dSin_B3_ttab[1](s, d, n); }

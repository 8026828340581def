// The tier entries: each fetches its slot of its function's tier table and
// jumps there, so the kernel's status is the entry's status.
#include "vm_kernels.h"
#include "vrx_tiers.h"

using namespace n0::vm;

VrxStatus N0(vrxsAbs_64fc_A50)(const Vrx64fc* s, Vrx64f* d, int n) { return N0(own_vrxs_zAbs_B3_ttab)[kSlotLA](s, d, n); }
VrxStatus N0(vrxsAtan2_32f_A21)(const Vrx32f* a, const Vrx32f* b, Vrx32f* d, int n) {
    return N0(own_vrxs_sAtan2_B3_ttab)[kSlotLA](a, b, d, n);
}
VrxStatus N0(vrxsAtan2_64f_A50)(const Vrx64f* a, const Vrx64f* b, Vrx64f* d, int n) {
    return N0(own_vrxs_dAtan2_B3_ttab)[kSlotLA](a, b, d, n);
}
VrxStatus N0(vrxsCos_32f_A24)(const Vrx32f* s, Vrx32f* d, int n) { return N0(own_vrxs_sCos_B3_ttab)[kSlotHA](s, d, n); }
VrxStatus N0(vrxsCos_64f_A26)(const Vrx64f* s, Vrx64f* d, int n) { return N0(own_vrxs_dCos_B3_ttab)[kSlotEP](s, d, n); }
VrxStatus N0(vrxsCos_64f_A50)(const Vrx64f* s, Vrx64f* d, int n) { return N0(own_vrxs_dCos_B3_ttab)[kSlotLA](s, d, n); }
VrxStatus N0(vrxsCos_64f_A53)(const Vrx64f* s, Vrx64f* d, int n) { return N0(own_vrxs_dCos_B3_ttab)[kSlotHA](s, d, n); }
VrxStatus N0(vrxsCosh_64f_A53)(const Vrx64f* s, Vrx64f* d, int n) { return N0(own_vrxs_dCosh_B3_ttab)[kSlotHA](s, d, n); }
VrxStatus N0(vrxsExp_32f_A21)(const Vrx32f* s, Vrx32f* d, int n) { return N0(own_vrxs_sExp_B3_ttab)[kSlotLA](s, d, n); }
VrxStatus N0(vrxsLn_32f_A21)(const Vrx32f* s, Vrx32f* d, int n) { return N0(own_vrxs_sLn_B3_ttab)[kSlotLA](s, d, n); }
VrxStatus N0(vrxsLn_64f_A53)(const Vrx64f* s, Vrx64f* d, int n) { return N0(own_vrxs_dLn_B3_ttab)[kSlotHA](s, d, n); }
VrxStatus N0(vrxsPowx_64f_A53)(const Vrx64f* s, Vrx64f e, Vrx64f* d, int n) {
    return N0(own_vrxs_dPowx_B3_ttab)[kSlotHA](s, e, d, n);
}
VrxStatus N0(vrxsSinCos_32f_A21)(const Vrx32f* s, Vrx32f* a, Vrx32f* b, int n) {
    return N0(own_vrxs_sSinCos_B3_ttab)[kSlotLA](s, a, b, n);
}
VrxStatus N0(vrxsSinCos_64f_A26)(const Vrx64f* s, Vrx64f* a, Vrx64f* b, int n) {
    return N0(own_vrxs_dSinCos_B3_ttab)[kSlotEP](s, a, b, n);
}
VrxStatus N0(vrxsSinCos_64f_A50)(const Vrx64f* s, Vrx64f* a, Vrx64f* b, int n) {
    return N0(own_vrxs_dSinCos_B3_ttab)[kSlotLA](s, a, b, n);
}
VrxStatus N0(vrxsSinCos_64f_A53)(const Vrx64f* s, Vrx64f* a, Vrx64f* b, int n) {
    return N0(own_vrxs_dSinCos_B3_ttab)[kSlotHA](s, a, b, n);
}
VrxStatus N0(vrxsSin_32f_A21)(const Vrx32f* s, Vrx32f* d, int n) { return N0(own_vrxs_sSin_B3_ttab)[kSlotLA](s, d, n); }
VrxStatus N0(vrxsSin_32f_A24)(const Vrx32f* s, Vrx32f* d, int n) { return N0(own_vrxs_sSin_B3_ttab)[kSlotHA](s, d, n); }
VrxStatus N0(vrxsSin_64f_A50)(const Vrx64f* s, Vrx64f* d, int n) { return N0(own_vrxs_dSin_B3_ttab)[kSlotLA](s, d, n); }
VrxStatus N0(vrxsSin_64f_A53)(const Vrx64f* s, Vrx64f* d, int n) { return N0(own_vrxs_dSin_B3_ttab)[kSlotHA](s, d, n); }
VrxStatus N0(vrxsSinh_64f_A53)(const Vrx64f* s, Vrx64f* d, int n) { return N0(own_vrxs_dSinh_B3_ttab)[kSlotHA](s, d, n); }
VrxStatus N0(vrxsSqrt_64f_A53)(const Vrx64f* s, Vrx64f* d, int n) { return N0(own_vrxs_dSqrt_B3_ttab)[kSlotHA](s, d, n); }

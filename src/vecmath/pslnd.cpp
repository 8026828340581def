// Logarithm kernels: double HA, single computed in double and rounded once.
#include "vm_kernels.h"
#include "vm_log.h"

using namespace n0::vm;

namespace {

struct LnD {
    static VRX_INLINE D8 vec(D8 x, __mmask8& rare) {
        rare = logRare(x);
        return logCore(x);
    }
    static double rare(double x) {
        if (x == 0.0) {
            double r = -__builtin_inf();
            N0(own_vrxs_dError)("log", 2, &x, &x, &r);
        }
        return logSpecial(x);
    }
};

}  // namespace

extern "C" {
VrxStatus N0(own_vrxs_dLn_B3HAynn)(const Vrx64f* s, Vrx64f* d, int n) {
    return runKernel<Native>(LnD{}, {s}, {d}, n);
}
VrxStatus N0(own_vrxs_sLn_B3HAynn)(const Vrx32f* s, Vrx32f* d, int n) {
    return runKernel<ViaDouble>(LnD{}, {s}, {d}, n);
}
// One kernel serves every tier: it meets the HA target.
const VrxKernD1 N0(own_vrxs_dLn_B3_ttab)[3] = {N0(own_vrxs_dLn_B3HAynn), N0(own_vrxs_dLn_B3HAynn),
                                              N0(own_vrxs_dLn_B3HAynn)};
// Single precision: LA in float lanes, HA in double lanes (also slot 2).
const VrxKernS1 N0(own_vrxs_sLn_B3_ttab)[3] = {N0(own_vrxs_sLn_B3LAynn), N0(own_vrxs_sLn_B3HAynn),
                                              N0(own_vrxs_sLn_B3HAynn)};
}

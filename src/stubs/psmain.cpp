// Load and unload hooks of the library. There is no load-time work: the
// initialisation hook answers 1 and the finalisation hook does nothing.
#include "vrx_base.h"

VRX_OWN(int, vrx_init, (void));
VRX_OWN(void, vrx_fini, (void));

int N0(vrx_init)(void) { return 1; }
void N0(vrx_fini)(void) {}

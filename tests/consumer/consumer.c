/* A user's program: links against an installed vrxs and calls it. */
#include <stdio.h>
#include <string.h>
#include <vrxs.h>

int main(void) {
    const VrxLibraryVersion* v = vrxsGetLibVersion();
    Vrx32f src[5] = {1, 2, 3, 4, 5}, dst[5];
    if (vrxsFlip_32f(src, dst, 5) != vrxOk || dst[0] != 5.0f || dst[4] != 1.0f) return 1;
    if (v->major != 9 || strcmp(v->targetCpu, "n0") != 0) return 2;
    printf("%s %s\n", v->Name, v->Version);
    return 0;
}

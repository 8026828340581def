/* vrxs_demo: prints the library's version record and checks a few block
 * moves against plain loops. */
#include <stdio.h>
#include <string.h>

#include "vrxs.h"

static int check(const char* what, int ok) {
    printf("  %-44s %s\n", what, ok ? "ok" : "FAILED");
    return ok ? 0 : 1;
}

int main(void) {
    const VrxLibraryVersion* v = vrxsGetLibVersion();
    printf("%s\n  version %s (%d.%d.%d, build %d), target %s, built %s\n\n", v->Name, v->Version, v->major,
           v->minor, v->majorBuild, v->build, v->targetCpu, v->BuildDate);

    enum { N = 1000 };
    int failures = 0;
    Vrx32f* a = vrxsMalloc_32f(N);
    Vrx32f* b = vrxsMalloc_32f(N);
    if (!a || !b) return 1;
    for (int i = 0; i < N; ++i) a[i] = (Vrx32f)i * 0.5f;

    printf("block moves:\n");
    int ok = vrxsCopy_32f(a, b, N) == vrxOk && memcmp(a, b, sizeof(Vrx32f) * N) == 0;
    failures += check("vrxsCopy_32f copies 1000 samples", ok);

    ok = vrxsFlip_32f(a, b, N) == vrxOk;
    for (int i = 0; ok && i < N; ++i) ok = b[i] == a[N - 1 - i];
    failures += check("vrxsFlip_32f reverses them", ok);

    ok = vrxsSet_32f(3.25f, b, N) == vrxOk;
    for (int i = 0; ok && i < N; ++i) ok = b[i] == 3.25f;
    failures += check("vrxsSet_32f fills with 3.25", ok);

    ok = vrxsMove_32f(a, a + 1, N - 1) == vrxOk && a[1] == 0.0f && a[N - 1] == (N - 2) * 0.5f;
    failures += check("vrxsMove_32f shifts by one in place", ok);

    ok = vrxsZero_32f(b, N) == vrxOk && b[0] == 0.0f && b[N - 1] == 0.0f;
    failures += check("vrxsZero_32f clears", ok);

    failures += check("a null pointer is refused with vrxErrNullPtr", vrxsCopy_32f(NULL, b, 0) == vrxErrNullPtr);

    vrxsFree(a);
    vrxsFree(b);
    printf("\n%s\n", failures ? "self-check FAILED" : "self-check passed");
    return failures ? 1 : 0;
}

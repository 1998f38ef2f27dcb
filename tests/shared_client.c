/* A C program that uses the shared library the way a codec author would:
 * through the public header and the exported entries (the import library
 * on Windows).  It proves the header compiles as C, the library selects a
 * level when it loads (at most VEK_MAX_LEVEL when that is set), and calls
 * reach working code through the stubs. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "vek.h"

static int failures = 0;
#define CHECK(cond)                                                                  \
    do {                                                                             \
        if (!(cond)) {                                                               \
            fprintf(stderr, "%s:%d: check failed: %s\n", __FILE__, __LINE__, #cond); \
            ++failures;                                                              \
        }                                                                            \
    } while (0)

int main(void) {
    const VekLibraryVersion* v = veksGetLibVersion();
    Vek16s a[9] = {3, 1, 5, -5, -7, 30000, 0, 1, 2}, b[9] = {4, 4, 0, 0, 0, 30000, 0, 1, 2}, d[9];
    Vek32f x[5] = {1.5f, 2.0f, -3.0f, 0.25f, 8.0f}, y[5];
    int step = 0;
    void* img;
    const char* cap = getenv("VEK_MAX_LEVEL");

    CHECK(v != NULL && v->level >= 0 && v->level <= 7);
    if (cap && cap[0] >= '0' && cap[0] <= '7' && cap[1] == 0) CHECK(v->level <= cap[0] - '0');
    printf("vek %s, processor type %u, level %d (%s)\n", v->version, vekGetCpuType(), v->level, v->targetIsa);

    CHECK(veksAdd_16s_Sfs(a, b, d, 9, 1) == StatusOk);
    CHECK(d[0] == 4 && d[1] == 2 && d[2] == 2 && d[3] == -2 && d[4] == -4 && d[5] == 30000);
    CHECK(veksAdd_16s_Sfs(a, b, d, 0, 1) == StatusSize);
    CHECK(veksAdd_16s_Sfs(NULL, b, d, 0, 1) == StatusNullPointer);
    CHECK(veksMulC_32f(x, 2.0f, y, 5) == StatusOk);
    CHECK(y[0] == 3.0f && y[2] == -6.0f && y[4] == 16.0f);

    CHECK(strcmp(vekGetStatusString(StatusNullPointer), "Null pointer error") == 0);
    CHECK(strcmp(vekGetStatusString(-1), "Unknown Status Code") == 0);

    img = vekiMalloc_8u_C3(11, 2, &step);
    CHECK(img != NULL && step == 64 && ((size_t)img % 32) == 0);
    vekiFree(img);

    if (failures == 0) printf("shared client: all checks passed\n");
    return failures == 0 ? 0 : 1;
}

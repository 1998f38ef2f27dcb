// DispatchLevel and the load-time hook that writes it, once, before any
// dispatched function can run: the process-attach notification of the
// Windows DLL, a constructor everywhere else (shared object or static
// archive).  The hook allocates nothing and never fails.
//
// The level is the processor table's, raised to an extended level where the
// processor and the OS support one (cpu.cpp), then capped by the
// environment variable VEK_MAX_LEVEL (a digit 0..7), which lets tests,
// benchmarks and users run whole programs on a lower code path.
//
// This file is compiled once per library flavour: VEK_DLL selects DllMain.
#include "cpu.h"
#include "dispatch.h"

#if defined(_WIN32)
#    include <windows.h>
#else
#    include <stdlib.h>
#endif

namespace vek {

int DispatchLevel = 0;  // declared extern "C" in dispatch.h

namespace {

// The text of VEK_MAX_LEVEL, or null.  Windows reads it into the caller's
// buffer through KERNEL32 (safe under the loader lock; no C runtime call).
const char* maxLevelText(char (&buffer)[4]) {
#if defined(_WIN32)
    const DWORD n = GetEnvironmentVariableA("VEK_MAX_LEVEL", buffer, sizeof buffer);
    return n > 0 && n < sizeof buffer ? buffer : nullptr;
#else
    (void)buffer;
    return getenv("VEK_MAX_LEVEL");
#endif
}

void selectDispatchLevelAtLoad() {
    int selectionResult;  // StatusNotGenuineCpu on other vendors: not reported
    char buffer[4];
    DispatchLevel = chooseLevel(readCpuid(), maxLevelText(buffer), &selectionResult);
    (void)selectionResult;
}
}  // namespace

}  // namespace vek

#if defined(_WIN32) && defined(VEK_DLL)
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) vek::selectDispatchLevelAtLoad();
    return TRUE;
}
#else
__attribute__((constructor)) static void vekLoadHook() { vek::selectDispatchLevelAtLoad(); }
#endif

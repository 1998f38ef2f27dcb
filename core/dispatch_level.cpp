// DispatchLevel and the load-time hook that writes it, once, before any
// dispatched function can run: the process-attach notification of the
// Windows DLL, a constructor everywhere else (shared object or static
// archive).  The hook allocates nothing and never fails.
//
// This file is compiled once per library flavour: VEK_DLL selects DllMain.
#include "cpu.h"
#include "dispatch.h"

#if defined(_WIN32) && defined(VEK_DLL)
#    include <windows.h>
#endif

namespace vek {

int DispatchLevel = 0;  // declared extern "C" in dispatch.h

namespace {
void selectDispatchLevelAtLoad() {
    int selectionResult;  // StatusNotGenuineCpu on other vendors: not reported
    DispatchLevel = selectLevel(readCpuid(), &selectionResult);
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

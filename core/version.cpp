// The version records: one per domain and code-path level, so that a caller
// can see which code path serves it.  Each level's query returns its own
// record; the dispatch picks the query of the level chosen at load.
#include "dispatch.h"

#ifndef VEK_VERSION_MAJOR
#    error "VEK_VERSION_MAJOR/MINOR/PATCH come from the build"
#endif
#define VEK_STR2(x)        #x
#define VEK_STR(x)         VEK_STR2(x)
#define VEK_VERSION_STRING VEK_STR(VEK_VERSION_MAJOR) "." VEK_STR(VEK_VERSION_MINOR) "." VEK_STR(VEK_VERSION_PATCH)

namespace {

#define VEK_RECORD(domain, level, isa) \
    { VEK_VERSION_MAJOR, VEK_VERSION_MINOR, VEK_VERSION_PATCH, level, domain, VEK_VERSION_STRING, isa, __DATE__ }
#define VEK_RECORDS(domain)                                                                                \
    {                                                                                                      \
        VEK_RECORD(domain, 0, "plain"), VEK_RECORD(domain, 1, "SSE"), VEK_RECORD(domain, 2, "SSE2"),       \
            VEK_RECORD(domain, 3, "SSE3"), VEK_RECORD(domain, 4, "SSSE3"), VEK_RECORD(domain, 5, "SSE4.1") \
    }

const VekLibraryVersion kSignal[vek::kLevelCount] = VEK_RECORDS("vek signal");
const VekLibraryVersion kImage[vek::kLevelCount] = VEK_RECORDS("vek image");
const VekLibraryVersion kJpeg[vek::kLevelCount] = VEK_RECORDS("vek jpeg");

}  // namespace

#define VEK_VERSION_QUERIES(ns, level)                                                    \
    namespace vek::ns {                                                                   \
    const VekLibraryVersion* VEK_CALL veksGetLibVersion(void) { return &kSignal[level]; } \
    const VekLibraryVersion* VEK_CALL vekiGetLibVersion(void) { return &kImage[level]; }  \
    const VekLibraryVersion* VEK_CALL vekjGetLibVersion(void) { return &kJpeg[level]; }   \
    }
VEK_VERSION_QUERIES(plain, 0)
VEK_VERSION_QUERIES(sse, 1)
VEK_VERSION_QUERIES(sse2, 2)
VEK_VERSION_QUERIES(sse3, 3)
VEK_VERSION_QUERIES(ssse3, 4)
VEK_VERSION_QUERIES(sse41, 5)

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
    {VEK_VERSION_MAJOR, VEK_VERSION_MINOR, VEK_VERSION_PATCH, level, domain, VEK_VERSION_STRING, isa, __DATE__},
#define VEK_SIGNAL_RECORD(index, ns, isa) VEK_RECORD("vek signal", index, isa)
#define VEK_IMAGE_RECORD(index, ns, isa)  VEK_RECORD("vek image", index, isa)
#define VEK_JPEG_RECORD(index, ns, isa)   VEK_RECORD("vek jpeg", index, isa)
const VekLibraryVersion kSignal[vek::kLevelCount] = {VEK_LEVEL_LIST(VEK_SIGNAL_RECORD)};
const VekLibraryVersion kImage[vek::kLevelCount] = {VEK_LEVEL_LIST(VEK_IMAGE_RECORD)};
const VekLibraryVersion kJpeg[vek::kLevelCount] = {VEK_LEVEL_LIST(VEK_JPEG_RECORD)};

}  // namespace

// Each level's queries return that level's records.
#define VEK_VERSION_QUERIES(level, ns, isa)                                               \
    namespace vek::ns {                                                                   \
    const VekLibraryVersion* VEK_CALL veksGetLibVersion(void) { return &kSignal[level]; } \
    const VekLibraryVersion* VEK_CALL vekiGetLibVersion(void) { return &kImage[level]; }  \
    const VekLibraryVersion* VEK_CALL vekjGetLibVersion(void) { return &kJpeg[level]; }   \
    }
VEK_LEVEL_LIST(VEK_VERSION_QUERIES)

// The per-export dispatch tables and the enumeration of the export list.
// Both are generated from core/export_list.h and are read-only data.
#include "dispatch.h"

namespace vek {

#define VEK_EXPORT(name, l0, l1, l2, l3, l4, l5, ret, params)                                  \
    extern "C" const fn::name vekTable_##name[kLevelCount] = {&l0::name, &l1::name, &l2::name, \
                                                              &l3::name, &l4::name, &l5::name};
#include "export_list.h"
#undef VEK_EXPORT

#define VEK_EXPORT(name, l0, l1, l2, l3, l4, l5, ret, params) \
    {#name, reinterpret_cast<const void* const*>(vekTable_##name), {#l0, #l1, #l2, #l3, #l4, #l5}},
const ExportInfo kExports[] = {
#include "export_list.h"
};
#undef VEK_EXPORT
const int kExportCount = sizeof(kExports) / sizeof(kExports[0]);

const char* levelIsaName(int level) {
    static const char* const names[kLevelCount] = {"plain", "SSE", "SSE2", "SSE3", "SSSE3", "SSE4.1"};
    return level >= 0 && level < kLevelCount ? names[level] : "unknown";
}

}  // namespace vek

// The per-export dispatch tables and the enumeration of the export list.
// Both are generated from core/export_list.h and are read-only data.
#include "dispatch.h"

namespace vek {

#define VEK_EXPORT(name, l0, l1, l2, l3, l4, l5, l6, l7, ret, params)                                     \
    extern "C" const fn::name vekTable_##name[kLevelCount] = {&l0::name, &l1::name, &l2::name, &l3::name, \
                                                              &l4::name, &l5::name, &l6::name, &l7::name};
#include "export_list.h"
#undef VEK_EXPORT

#define VEK_EXPORT(name, l0, l1, l2, l3, l4, l5, l6, l7, ret, params) \
    {#name, reinterpret_cast<const void* const*>(vekTable_##name), {#l0, #l1, #l2, #l3, #l4, #l5, #l6, #l7}},
const ExportInfo kExports[] = {
#include "export_list.h"
};
#undef VEK_EXPORT
const int kExportCount = sizeof(kExports) / sizeof(kExports[0]);

#define VEK_LEVEL_ISA(index, ns, isa)       isa,
#define VEK_LEVEL_NAMESPACE(index, ns, isa) #ns,
static const char* const kLevelIsaNames[kLevelCount] = {VEK_LEVEL_LIST(VEK_LEVEL_ISA)};
static const char* const kLevelNamespaces[kLevelCount] = {VEK_LEVEL_LIST(VEK_LEVEL_NAMESPACE)};
#undef VEK_LEVEL_ISA
#undef VEK_LEVEL_NAMESPACE

const char* levelIsaName(int level) { return level >= 0 && level < kLevelCount ? kLevelIsaNames[level] : "unknown"; }
const char* levelNamespace(int level) {
    return level >= 0 && level < kLevelCount ? kLevelNamespaces[level] : "unknown";
}

}  // namespace vek

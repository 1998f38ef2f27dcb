// Internal view of the dispatch: the level variable, the level namespaces,
// one table of implementations per level for each export, and the enumeration of all
// exports that the tests, the benchmarks and `vek exports` walk.
#ifndef VEK_CORE_DISPATCH_H
#define VEK_CORE_DISPATCH_H

#include "core/levels.h"
#include "vek.h"

namespace vek {

// The code-path level 0..kLevelCount-1, written once at load
// (dispatch_level.cpp) and read by every entry stub.  The assembler name is
// fixed so that the stubs can address it.
extern "C" int DispatchLevel asm("vek_DispatchLevel");

// Name of the instruction set a level may use ("plain", "SSE", ...) and the
// namespace of its implementations ("plain", "sse", ...).
const char* levelIsaName(int level);
const char* levelNamespace(int level);

// Declarations of every export's implementation in the level namespaces the
// list names for it (a namespace named twice is declared twice, which is
// harmless).
#define VEK_DECLARE_IN(ns, name, ret, params) \
    namespace ns {                            \
    ret VEK_CALL name params;                 \
    }
// clang-format off
#define VEK_EXPORT(name, l0, l1, l2, l3, l4, l5, l6, l7, ret, params)                   \
    VEK_DECLARE_IN(l0, name, ret, params) VEK_DECLARE_IN(l1, name, ret, params)         \
    VEK_DECLARE_IN(l2, name, ret, params) VEK_DECLARE_IN(l3, name, ret, params)         \
    VEK_DECLARE_IN(l4, name, ret, params) VEK_DECLARE_IN(l5, name, ret, params)         \
    VEK_DECLARE_IN(l6, name, ret, params) VEK_DECLARE_IN(l7, name, ret, params)
// clang-format on
#include "export_list.h"
#undef VEK_EXPORT
#undef VEK_DECLARE_IN

// One function-pointer type and one table per export:
//   vek::fn::veksAdd_16s_Sfs and vekTable_veksAdd_16s_Sfs[kLevelCount].
namespace fn {
#define VEK_EXPORT(name, l0, l1, l2, l3, l4, l5, l6, l7, ret, params) typedef ret(VEK_CALL* name) params;
#include "export_list.h"
#undef VEK_EXPORT
}  // namespace fn

#define VEK_EXPORT(name, l0, l1, l2, l3, l4, l5, l6, l7, ret, params) \
    extern "C" const fn::name vekTable_##name[kLevelCount] asm("vekTable_" #name);
#include "export_list.h"
#undef VEK_EXPORT

// The enumeration of the list: name, table and the namespace serving each
// level, in list order.
struct ExportInfo {
    const char* name;
    const void* const* table;  // kLevelCount code addresses
    const char* levelImpl[kLevelCount];
};
extern const ExportInfo kExports[];
extern const int kExportCount;

}  // namespace vek

#endif

// Internal view of the dispatch: the level variable, the level namespaces,
// one table of six implementations per export, and the enumeration of all
// exports that the tests, the benchmarks and `vek exports` walk.
#ifndef VEK_CORE_DISPATCH_H
#define VEK_CORE_DISPATCH_H

#include "vek.h"

namespace vek {

constexpr int kLevelCount = 6;

// The code-path level 0..5, written once at load (dispatch_level.cpp) and
// read by every entry stub.  The assembler name is fixed so that the stubs
// can address it.
extern "C" int DispatchLevel asm("vek_DispatchLevel");

// Name of the instruction set a level may use ("plain", "SSE", ...).
const char* levelIsaName(int level);

// Declarations of every export's implementation in every level namespace.
// A namespace defines only the implementations the list assigns to it.
#define VEK_DECLARE_IN(ns, name, ret, params) \
    namespace ns {                            \
    ret VEK_CALL name params;                 \
    }
#define VEK_EXPORT(name, l0, l1, l2, l3, l4, l5, ret, params)                            \
    VEK_DECLARE_IN(plain, name, ret, params)                                             \
    VEK_DECLARE_IN(sse, name, ret, params) VEK_DECLARE_IN(sse2, name, ret, params)       \
        VEK_DECLARE_IN(sse3, name, ret, params) VEK_DECLARE_IN(ssse3, name, ret, params) \
            VEK_DECLARE_IN(sse41, name, ret, params)
#include "export_list.h"
#undef VEK_EXPORT
#undef VEK_DECLARE_IN

// One function-pointer type and one table per export:
//   vek::fn::veksAdd_16s_Sfs and vekTable_veksAdd_16s_Sfs[6].
namespace fn {
#define VEK_EXPORT(name, l0, l1, l2, l3, l4, l5, ret, params) typedef ret(VEK_CALL* name) params;
#include "export_list.h"
#undef VEK_EXPORT
}  // namespace fn

#define VEK_EXPORT(name, l0, l1, l2, l3, l4, l5, ret, params) \
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

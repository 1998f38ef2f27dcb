// The exported entry of every dispatched function: a load of DispatchLevel
// and an indirect jump through the export's table.  The stub has no frame of
// its own, so the implementation sees the caller's arguments and returns
// straight to the caller, whatever the calling convention.
//
// On 32-bit x86 the stubs address the level and the tables absolutely: that
// keeps each entry to two instructions.  In a PE DLL the base relocations
// cover those addresses; in an i686 ELF shared object they become text
// relocations, patched once by the loader (all stubs share one section, so
// only its pages are touched).  tests/check_entry_stubs.sh disassembles the
// built library and fails if an entry ever does more.
#include "dispatch.h"

#if defined(__x86_64__)
#    define VEK_ENTRY_ASM(table)                   \
        "movslq vek_DispatchLevel(%rip), %rax\n\t" \
        "leaq " table                              \
        "(%rip), %r11\n\t"                         \
        "jmpq *(%r11,%rax,8)\n\t"
#elif defined(__i386__)
#    define VEK_ENTRY_ASM(table)           \
        "movl vek_DispatchLevel, %eax\n\t" \
        "jmp *" table "(,%eax,4)\n\t"
#else
#    error "the entry stubs are written for x86 and x86-64"
#endif

#pragma GCC diagnostic ignored "-Wunused-parameter"

#define VEK_EXPORT(name, l0, l1, l2, l3, l4, l5, l6, l7, ret, params)                                \
    extern "C" VEK_API __attribute__((naked, section(".text.vek_entry"))) ret VEK_CALL name params { \
        asm(VEK_ENTRY_ASM("vekTable_" #name));                                                       \
    }
#include "export_list.h"
#undef VEK_EXPORT

#!/usr/bin/env python3
"""Static instruction-set audit of a built 32-bit library.

Disassembles the library and checks every function against the instruction
set of its code-path level: functions of namespace vek::sse use at most SSE,
vek::sse2 at most SSE2, and so on; everything else (the plain level, the
core services, any compiler-generated helper) is plain i686 integer and x87
code.  This complements the emulated-processor matrix: QEMU faults on
missing SSE3, SSSE3 and SSE4.1 instructions but lets SSE and SSE2 through on
models that lack them.

usage: check_isa.py LIBRARY [OBJDUMP]
"""
import re
import subprocess
import sys

LEVEL_NAMES = ["plain", "SSE", "SSE2", "SSE3", "SSSE3", "SSE4.1"]
FORBIDDEN = 99
NAMESPACE_LEVEL = {"sse": 1, "sse2": 2, "sse3": 3, "ssse3": 4, "sse41": 5}
# Plain-level functions allowed SSE state instructions: they run only after
# CPUID has reported the SSE unit (the FTZ/DAZ switches).
SSE_STATE_FUNCTIONS = re.compile(r"Mxcsr")

SSE3 = {"addsubpd", "addsubps", "haddpd", "haddps", "hsubpd", "hsubps", "lddqu", "movddup", "movshdup",
        "movsldup", "monitor", "mwait"}
SSSE3 = {"pabsb", "pabsw", "pabsd", "palignr", "phaddw", "phaddd", "phaddsw", "phsubw", "phsubd", "phsubsw",
         "pmaddubsw", "pmulhrsw", "pshufb", "psignb", "psignw", "psignd"}
SSE41 = {"blendpd", "blendps", "blendvpd", "blendvps", "pblendvb", "pblendw", "dppd", "dpps", "extractps",
         "insertps", "movntdqa", "mpsadbw", "packusdw", "pcmpeqq", "pextrb", "pextrd", "pextrq", "phminposuw",
         "pinsrb", "pinsrd", "pinsrq", "pmaxsb", "pmaxsd", "pmaxud", "pmaxuw", "pminsb", "pminsd", "pminud",
         "pminuw", "pmuldq", "pmulld", "ptest", "roundps", "roundpd", "roundss", "roundsd"} | {
        "pmov%sx%s" % (s, t) for s in "sz" for t in ("bw", "bd", "bq", "wd", "wq", "dq")}
BEYOND = {"pcmpgtq", "pcmpestri", "pcmpestrm", "pcmpistri", "pcmpistrm", "crc32", "popcnt", "lzcnt", "tzcnt",
          "andn", "bextr", "blsi", "blsr", "shlx", "shrx", "sarx", "rorx", "pdep", "pext", "movbe", "pclmulqdq"}
# SSE's own conversions between a general register (or MMX) and single
# precision: an xmm operand, but no "ps"/"ss" at the end of every form.
SSE1_CONVERSIONS = {"cvtss2si", "cvttss2si", "cvtsi2ss", "cvtsi2ssl", "cvtsi2ssq", "cvtpi2ps", "cvtps2pi",
                    "cvttps2pi"}
SSE1_NO_XMM = {"ldmxcsr", "stmxcsr", "sfence", "prefetchnta", "prefetcht0", "prefetcht1", "prefetcht2"}
SSE2_NO_XMM = {"lfence", "mfence", "clflush", "movnti"}


def required_level(mnemonic, operands):
    m = mnemonic
    for suffix in ("l", "q", "w", "b"):  # AT&T size suffixes on a few SSE forms
        if m[:-1] in SSE41 | SSSE3 | SSE3 and m.endswith(suffix):
            m = m[:-1]
    if "%ymm" in operands or "%zmm" in operands or "%k" in operands or (m.startswith("v") and "%xmm" in operands):
        return FORBIDDEN
    if m in BEYOND:
        return FORBIDDEN
    if m in SSE41:
        return 5
    if m in SSSE3:
        return 4
    if m in SSE3 or m.startswith("fisttp"):
        return 3
    if m in SSE1_CONVERSIONS:
        return 1
    if "%xmm" in operands:
        if m.startswith("cvt") and any(t in m for t in ("pd", "sd", "dq")):
            return 2
        if m.endswith(("ps", "ss")):
            return 1
        return 2
    if m in SSE2_NO_XMM:
        return 2
    if m in SSE1_NO_XMM or "%mm" in operands:
        return 1
    return 0


def function_level(name):
    found = re.search(r"vek::(sse41|ssse3|sse3|sse2|sse)::", name)
    return NAMESPACE_LEVEL[found.group(1)] if found else 0


def main():
    library = sys.argv[1]
    objdump = sys.argv[2] if len(sys.argv) > 2 else "objdump"
    text = subprocess.run([objdump, "-d", "-C", "--no-show-raw-insn", library], check=True,
                          capture_output=True, text=True).stdout
    header = re.compile(r"^[0-9a-f]+ <(.*)>:$")
    insn = re.compile(r"^\s*[0-9a-f]+:\s+(?:(?:rep[a-z]*|lock|data16|addr32|cs|ds|notrack)\s+)*([a-z0-9.]+)\s*(.*)$")
    current, level, allowed_state = None, 0, False
    problems, functions = [], 0
    for line in text.splitlines():
        h = header.match(line)
        if h:
            current = h.group(1)
            level = function_level(current)
            allowed_state = level == 0 and bool(SSE_STATE_FUNCTIONS.search(current))
            functions += 1
            continue
        i = insn.match(line)
        if not i or current is None:
            continue
        need = required_level(i.group(1), i.group(2))
        limit = 1 if allowed_state else level
        if need > limit:
            problems.append("%s: %s %s needs %s, function is level %d (%s)" % (
                current, i.group(1), i.group(2).split("#")[0].strip(),
                LEVEL_NAMES[need] if need < len(LEVEL_NAMES) else "a later instruction set",
                level, LEVEL_NAMES[level]))
    for p in problems[:40]:
        print(p)
    print("instruction-set audit of %s: %d functions, %d problems" % (library, functions, len(problems)))
    return 1 if problems or functions == 0 else 0


if __name__ == "__main__":
    sys.exit(main())

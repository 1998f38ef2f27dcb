#!/usr/bin/env python3
"""Static instruction-set audit of a built 32-bit library.

Disassembles the library and checks every function against the instruction
set of its code-path level: functions of namespace vek::sse use at most SSE,
vek::sse2 at most SSE2, and so on up to vek::avx512; everything else (the
plain level, the core services, any compiler-generated helper) is plain
i686 integer and x87 code.  This complements the emulated-processor matrix:
QEMU faults on missing SSE3, SSSE3, SSE4.1 and AVX2 instructions but lets
SSE and SSE2 through on models that lack them, and cannot run AVX-512 at
all, so level 7 is proven here and natively.

The levels (index, namespace, name) are read from core/levels.h.

usage: check_isa.py LIBRARY [OBJDUMP]
"""
import os
import re
import subprocess
import sys


def read_levels():
    here = os.path.dirname(os.path.abspath(__file__))
    text = open(os.path.join(here, "..", "core", "levels.h")).read()
    rows = re.findall(r'^\s*X\((\d+),\s*([a-z0-9]+),\s*"([^"]+)"\)', text, re.M)
    return [name for _, _, name in rows], {ns: int(i) for i, ns, _ in rows if int(i) > 0}


LEVEL_NAMES, NAMESPACE_LEVEL = read_levels()
FORBIDDEN = 99
AVX2_LEVEL, AVX512_LEVEL = 6, 7
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
# SSE4.2 (implied by the AVX2 level's flags), BMI1, BMI2 and PCLMULQDQ: level 6.
LEVEL6_SCALAR = {"pcmpgtq", "pcmpestri", "pcmpestrm", "pcmpistri", "pcmpistrm", "crc32", "andn", "bextr", "blsi",
                 "blsmsk", "blsr", "tzcnt", "bzhi", "mulx", "pdep", "pext", "rorx", "sarx", "shlx", "shrx",
                 "pclmulqdq"}
# Never allowed: instruction sets no level's flags enable, and fused
# multiply-add (every level must round each operation).
BEYOND = {"popcnt", "lzcnt", "movbe", "vcvtph2ps", "vcvtps2ph"}
BEYOND_PREFIXES = ("vfmadd", "vfmsub", "vfnmadd", "vfnmsub", "vpconflict", "vplzcnt", "vpermb", "vpermi2b",
                   "vpermt2b", "vpmultishiftqb", "vpdpb", "vpdpw", "vpopcnt", "vpshld", "vpshrd", "vpcompressb",
                   "vpcompressw", "vpexpandb", "vpexpandw", "vpmadd52", "gf2p8", "vgf2p8", "aes", "vaes", "vp2intersect",
                   "vcvtne2ps2bf16", "vcvtneps2bf16", "vdpbf16ps", "sha", "vexp2", "vrcp28", "vrsqrt28")
# AVX-512 only (EVEX encodings with no VEX form), beyond what the registers
# and masks used already show.
AVX512_PREFIXES = ("vpermt2", "vpermi2", "vpternlog", "vpcompress", "vpexpand", "valign", "vprol", "vpror",
                   "vpsravw", "vpsravq", "vpsllvw", "vpsrlvw", "vpmovm2", "vpmovb2m", "vpmovw2m", "vpmovd2m",
                   "vpmovq2m", "vbroadcasti32x", "vbroadcasti64x", "vbroadcastf32x", "vbroadcastf64x", "vinserti32x",
                   "vinserti64x", "vinsertf32x", "vinsertf64x", "vextracti32x", "vextracti64x", "vextractf32x",
                   "vextractf64x", "vshufi32x4", "vshufi64x2", "vshuff32x4", "vshuff64x2", "vpabsq", "vpmaxsq",
                   "vpminsq", "vpmaxuq", "vpminuq", "vpmullq", "vcvtqq", "vcvtuqq", "vcvtudq", "vcvtusi", "vcvtps2qq",
                   "vcvtpd2qq", "vcvttps2qq", "vcvttpd2qq", "vcvtps2udq", "vcvttps2udq", "vcvtpd2udq", "vcvttpd2udq",
                   "vcvtps2uqq", "vcvttps2uqq", "vcvtpd2uqq", "vcvttpd2uqq", "vcvtss2usi", "vcvtsd2usi", "vfixupimm",
                   "vgetexp", "vgetmant", "vrange", "vreduce", "vrndscale", "vscalef", "vrcp14", "vrsqrt14", "vpsraq",
                   "vpmovdb", "vpmovdw", "vpmovqb", "vpmovqw", "vpmovqd", "vpmovwb", "vpmovsdb", "vpmovsdw",
                   "vpmovsqb", "vpmovsqw", "vpmovsqd", "vpmovswb", "vpmovusdb", "vpmovusdw", "vpmovusqb", "vpmovusqw",
                   "vpmovusqd", "vpmovuswb", "vpcmpu", "vpcmpb", "vpcmpw", "vpcmpd", "vpcmpq", "vptestm", "vptestnm",
                   "vpblendm", "vblendm", "vdbpsadbw", "vpermw", "vpsllvw", "vpbroadcastm", "vmovdqu8", "vmovdqu16",
                   "vmovdqu32", "vmovdqu64", "vmovdqa32", "vmovdqa64", "vextracti32x8", "vpandd", "vpandq",
                   "vpandnd", "vpandnq", "vpord", "vporq", "vpxord", "vpxorq", "vfpclass")
# Registers and operand decorations only EVEX has: ZMM, opmasks, XMM/YMM
# 16-31, masking, embedded broadcast and rounding.
EVEX_REGISTER = re.compile(r"%zmm|%k[0-7]\b|%[xy]mm(1[6-9]|2[0-9]|3[01])\b|\{%k|\{z\}|\{1to|sae\}")
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
    if m in BEYOND or m.startswith(BEYOND_PREFIXES):
        return FORBIDDEN
    if EVEX_REGISTER.search(operands) or m.startswith(AVX512_PREFIXES) or m.startswith("k"):
        return AVX512_LEVEL
    if m == "vpclmulqdq" and "%ymm" in operands:
        return AVX512_LEVEL
    if m.startswith("v") or "%ymm" in operands or m in LEVEL6_SCALAR:
        return AVX2_LEVEL
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


NAMESPACE_PATTERN = re.compile(r"vek::(%s)::" % "|".join(sorted(NAMESPACE_LEVEL, key=len, reverse=True)))


def function_level(name):
    found = NAMESPACE_PATTERN.search(name)
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
        if h and h.group(1).startswith(".L"):
            # A local label kept as a symbol (the targets of a switch's jump
            # table in 32-bit position-independent code): still the function
            # above it.
            continue
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

// Processor services: the time-stamp counter, a clock-frequency estimate,
// the largest cache size, and the FTZ/DAZ switches of the SSE unit.  The
// SSE instructions here run only after CPUID says the unit is present, so
// this file is built with the plain flags like the rest of core/.
#if defined(_WIN32)
#    include <windows.h>
#else
#    include <time.h>
#endif

#include "cpu.h"
#include "dispatch.h"

namespace {

bool hasTsc() { return vek::cpuidAvailable() && ((vek::cpuid(1, 0).edx >> 4) & 1u); }
// Monotonic wall time in microseconds (kept free of the C++ runtime, so the
// library depends on the C library alone).
double nowMicroseconds() {
#if defined(_WIN32)
    LARGE_INTEGER count, frequency;
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(count.QuadPart) * 1e6 / static_cast<double>(frequency.QuadPart);
#else
    timespec ts;
    clock_gettime(CLOCK_MONOTONIC, &ts);
    return static_cast<double>(ts.tv_sec) * 1e6 + static_cast<double>(ts.tv_nsec) * 1e-3;
#endif
}

bool hasSse() { return vek::processorSupportsLevel(1); }

uint64_t readTsc() {
    uint32_t lo, hi;
    asm volatile("rdtsc" : "=a"(lo), "=d"(hi));
    return (static_cast<uint64_t>(hi) << 32) | lo;
}

__attribute__((noinline)) uint32_t readMxcsr() {
    uint32_t v;
    asm volatile("stmxcsr %0" : "=m"(v));
    return v;
}

__attribute__((noinline)) void writeMxcsr(uint32_t v) { asm volatile("ldmxcsr %0" : : "m"(v)); }

// Bits of MXCSR this processor accepts, from the FXSAVE image (0 in the
// image means the original default mask 0xFFBF, without DAZ).
__attribute__((noinline)) uint32_t mxcsrMask() {
    alignas(16) unsigned char area[512] = {};
    asm volatile("fxsave %0" : "=m"(area));
    uint32_t mask = area[28] | (area[29] << 8) | (area[30] << 16) | (static_cast<uint32_t>(area[31]) << 24);
    return mask ? mask : 0xFFBFu;
}

VekStatus setMxcsrBit(uint32_t bit, int value) {
    if (!hasSse() || !(mxcsrMask() & bit)) return StatusCpuNotSupported;
    const uint32_t v = readMxcsr();
    writeMxcsr(value ? (v | bit) : (v & ~bit));
    return StatusOk;
}

// Largest cache from the deterministic cache parameters (leaf 4 on one
// vendor, 0x8000001D on another), each sub-leaf one cache level.
uint64_t largestCacheFromLeaf(uint32_t leaf) {
    uint64_t largest = 0;
    for (uint32_t i = 0; i < 16; ++i) {
        const vek::CpuidLeaf c = vek::cpuid(leaf, i);
        const uint32_t type = c.eax & 0x1F;
        if (type == 0) break;
        if (type == 2) continue;  // instruction cache
        const uint64_t ways = ((c.ebx >> 22) & 0x3FF) + 1, parts = ((c.ebx >> 12) & 0x3FF) + 1;
        const uint64_t line = (c.ebx & 0xFFF) + 1, sets = static_cast<uint64_t>(c.ecx) + 1;
        const uint64_t size = ways * parts * line * sets;
        if (size > largest) largest = size;
    }
    return largest;
}

}  // namespace

extern "C" VEK_API Vek64u VEK_CALL vekGetCpuClocks(void) { return hasTsc() ? readTsc() : 0; }

extern "C" VEK_API VekStatus VEK_CALL vekGetCpuFreqMhz(int* pMhz) {
    if (!pMhz) return StatusNullPointer;
    if (!hasTsc()) {
        *pMhz = 0;
        return StatusCpuUnsupported;
    }
    const double t0 = nowMicroseconds();
    const uint64_t c0 = readTsc();
    double t1 = t0;
    while (t1 - t0 < 20000.0) t1 = nowMicroseconds();
    const uint64_t c1 = readTsc();
    const double us = t1 - t0;
    *pMhz = static_cast<int>(static_cast<double>(c1 - c0) / us + 0.5);
    return StatusOk;
}

extern "C" VEK_API VekStatus VEK_CALL vekGetMaxCacheSizeB(int* pSizeByte) {
    if (!pSizeByte) return StatusNullPointer;
    *pSizeByte = 0;
    if (!vek::cpuidAvailable()) return StatusCpuUnsupported;
    const vek::CpuidLeaf l0 = vek::cpuid(0, 0);
    const uint32_t maxExt = vek::cpuid(0x80000000u, 0).eax;
    uint64_t size = 0;
    if (l0.eax >= 4) size = largestCacheFromLeaf(4);
    if (size == 0 && maxExt >= 0x8000001Du && (vek::cpuid(0x80000001u, 0).ecx >> 22) & 1u)
        size = largestCacheFromLeaf(0x8000001Du);  // topology extensions present
    if (size == 0 && maxExt >= 0x80000006u) {
        const vek::CpuidLeaf l2l3 = vek::cpuid(0x80000006u, 0);
        const uint64_t l2 = static_cast<uint64_t>(l2l3.ecx >> 16) * 1024;
        const uint64_t l3 = static_cast<uint64_t>(l2l3.edx >> 18) * 512 * 1024;
        size = l3 > l2 ? l3 : l2;
    }
    if (size == 0) return StatusCacheSizeUnknown;
    *pSizeByte = size > 0x7FFFFFFF ? 0x7FFFFFFF : static_cast<int>(size);
    return StatusOk;
}

extern "C" VEK_API VekStatus VEK_CALL vekSetFlushToZero(int value) { return setMxcsrBit(1u << 15, value); }
extern "C" VEK_API VekStatus VEK_CALL vekSetDenormAreZeros(int value) { return setMxcsrBit(1u << 6, value); }

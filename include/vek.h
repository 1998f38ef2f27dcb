/*
 * vek.h - the public interface of the Vek library of codec primitives.
 *
 * Every function returns a VekStatus (0 = success, negative = error,
 * positive = warning) unless stated otherwise.  A function that reports an
 * error has written nothing.  Functions are reentrant and keep no state; the
 * only global setting is the code-path level the library picks once at load
 * from the processor it runs on.  All levels give bit-identical results.
 *
 * Code-path levels: 0 plain i686/x86-64 code, 1 SSE, 2 SSE2, 3 SSE3,
 * 4 SSSE3, 5 SSE4.1, chosen from the processor type (vekGetCpuType); where
 * that gives level 5, the library goes on to 6 (AVX2, BMI1, BMI2 and
 * PCLMULQDQ, with the OS saving YMM state) or 7 (level 6 plus AVX-512 F, BW,
 * DQ, VL and VPCLMULQDQ, with the OS saving opmask and ZMM state).  The
 * environment variable VEK_MAX_LEVEL, read once at load, caps the choice: a
 * single digit 0..7 keeps the level at or below it (it never raises it);
 * any other value is ignored.  The version records tell which level serves.
 *
 * On 32-bit Windows every function uses __stdcall and is exported from
 * vek.dll under its plain, undecorated name.  Define VEK_STATIC before
 * including this header when linking the static library on Windows.
 */
#ifndef VEK_H
#define VEK_H

#if defined(_WIN32) && !defined(_WIN64)
#    define VEK_CALL __stdcall
#else
#    define VEK_CALL
#endif

#if defined(_WIN32)
#    if defined(VEK_BUILDING_LIBRARY)
#        define VEK_API __declspec(dllexport)
#    elif defined(VEK_STATIC)
#        define VEK_API
#    else
#        define VEK_API __declspec(dllimport)
#    endif
#elif defined(__GNUC__)
#    define VEK_API __attribute__((visibility("default")))
#else
#    define VEK_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* clang-format off */
/* ---- Element types --------------------------------------------------- */
typedef unsigned char      Vek8u;
typedef signed char        Vek8s;
typedef unsigned short     Vek16u;
typedef signed short       Vek16s;
typedef unsigned int       Vek32u;
typedef signed int         Vek32s;
typedef float              Vek32f;
typedef double             Vek64f;
typedef unsigned long long Vek64u;
typedef signed long long   Vek64s;

/* ---- Status codes ----------------------------------------------------- */
/* VekStatus is a signed 32-bit code; vekGetStatusString gives its message.
 * The names below are the codes this library returns or reports. */
typedef int VekStatus;
enum {
    StatusModeNotSupported  = -9999,
    StatusCpuNotSupported   = -9998,
    StatusDataUnderRun      = -124,
    StatusChannelOrder      = -60,  /* a channel order outside 0..2 */
    StatusShift             = -32,
    StatusResizeFactor      = -23,
    StatusInterpolation     = -22,
    StatusMirrorFlip        = -21,  /* an unknown mirror flip code */
    StatusContextMismatch   = -17,
    StatusStep              = -14,
    StatusScaleRange        = -13,
    StatusDataType          = -12,
    StatusOutOfRange        = -11,
    StatusDivideByZero      = -10,
    StatusMemoryAllocated   = -9,
    StatusNullPointer       = -8,
    StatusBoundsOrder       = -7,
    StatusSize              = -6,
    StatusBadArgument       = -5,
    StatusNoMemory          = -4,
    StatusUnknown           = -2,
    StatusOk                = 0,
    StatusNoOperation       = 1,
    StatusMisalignedPointer = 2,
    StatusDivisorZero       = 6,
    StatusNotGenuineCpu     = 20,
    StatusCpuUnsupported    = 36,  /* "The cpu is not supported" */
    StatusCacheSizeUnknown  = 37,  /* "The cpu is supported, but the size of the cache is unknown" */
    StatusDstSize           = 33
};

/* ---- Image records ---------------------------------------------------- */
typedef struct { int width; int height; } VekiSize;
typedef struct { int x; int y; int width; int height; } VekiRect;
typedef struct { int x; int y; } VekiPoint;

/* ---- The deflate encoder's state -----------------------------------------
 * An opaque block owned by the caller: veksEncodeLZ77GetSize_8u gives its
 * size, veksEncodeLZ77Init_8u prepares it (or veksEncodeLZ77InitAlloc_8u
 * allocates and prepares one). */
typedef struct VekDeflateState VekDeflateState;

/* ---- Version record ----------------------------------------------------
 * One constant record per domain and code-path level; the version queries
 * return the record of the level chosen at load. */
typedef struct {
    int major;              /* library version, major.minor.patch          */
    int minor;
    int patch;
    int level;              /* code-path level 0..7 this record belongs to */
    const char* name;       /* e.g. "vek signal"                           */
    const char* version;    /* e.g. "0.1.0"                                */
    const char* targetIsa;  /* "plain", "SSE", ... "SSE4.1", "AVX2", "AVX-512" */
    const char* buildDate;  /* compiler's __DATE__ of the build            */
} VekLibraryVersion;
/* clang-format on */

/* ======================================================================
 * Core services (one implementation each, not dispatched by level)
 * ====================================================================== */

/* Processor type code from CPUID (0 = unknown or no CPUID).  Recomputed on
 * every call; changes nothing.  `vek info` prints the code with its meaning. */
VEK_API Vek32u VEK_CALL vekGetCpuType(void);

/* Time-stamp counter of the calling processor (RDTSC); 0 without CPUID. */
VEK_API Vek64u VEK_CALL vekGetCpuClocks(void);

/* Clock frequency in MHz, estimated by counting time-stamp ticks over about
 * 20 ms of wall time.  StatusNullPointer if pMhz is null; StatusCpuUnsupported
 * (36) with *pMhz = 0 when the processor has no time-stamp counter. */
VEK_API VekStatus VEK_CALL vekGetCpuFreqMhz(int* pMhz);

/* Size in bytes of the largest data or unified cache, read from CPUID
 * (deterministic cache leaf 4, or the extended leaves 0x80000005/6).
 * StatusNullPointer if pSizeByte is null; StatusCpuUnsupported (36) without
 * CPUID; StatusCacheSizeUnknown (37) with *pSizeByte = 0 when the processor
 * describes no cache in those leaves. */
VEK_API VekStatus VEK_CALL vekGetMaxCacheSizeB(int* pSizeByte);

/* Set (value != 0) or clear (value == 0) the flush-to-zero (FTZ) or the
 * denormals-are-zero (DAZ) mode of the calling thread's SSE unit (MXCSR).
 * They change the results of the SSE code paths only; the plain level on
 * 32-bit x86 computes with the x87 unit, which has no such modes.  Return
 * StatusCpuNotSupported when the processor lacks SSE (or, for DAZ, lacks the
 * DAZ bit); otherwise StatusOk. */
VEK_API VekStatus VEK_CALL vekSetFlushToZero(int value);
VEK_API VekStatus VEK_CALL vekSetDenormAreZeros(int value);

/* The library is single-threaded.  vekGetNumThreads writes 1 (no null check)
 * and vekSetNumThreads ignores its argument; both return StatusNoOperation. */
VEK_API VekStatus VEK_CALL vekGetNumThreads(int* pNumThreads);
VEK_API VekStatus VEK_CALL vekSetNumThreads(int numThreads);

/* Constant English message of a status code; "Unknown Status Code" for codes
 * without a message.  Never null; the caller must not free it. */
VEK_API const char* VEK_CALL vekGetStatusString(VekStatus status);

/* Aligned allocation.  vekMalloc returns a 32-byte aligned block of length
 * bytes, or null when length < 1 or the heap is exhausted.  The word before
 * the block holds the address to release, so only vekFree (or veksFree /
 * vekiFree) may release it; a null pointer is ignored. */
VEK_API void* VEK_CALL vekMalloc(int length);
VEK_API void VEK_CALL vekFree(void* ptr);

/* First address at or after ptr that is a multiple of alignBytes, which
 * must be a power of two (not checked). */
VEK_API void* VEK_CALL vekAlignPtr(void* ptr, int alignBytes);

/* ======================================================================
 * Dispatched services (all levels share one implementation)
 * ====================================================================== */

/* Same as vekMalloc and vekFree. */
VEK_API Vek8u* VEK_CALL veksMalloc_8u(int length);
VEK_API void VEK_CALL veksFree(void* ptr);

/* Image buffers: *pStepBytes receives the row step, widthPixels times the
 * pixel size rounded up to a multiple of 32; the block holds step x height
 * bytes and is 32-byte aligned.  A null pStepBytes gives null (nothing
 * written); a width or height below 1 writes step 0 and gives null.  When
 * the step or step x height does not fit in 32 bits, step 0 is written and
 * null returned.  Release with vekiFree. */
VEK_API Vek8u* VEK_CALL vekiMalloc_8u_C1(int widthPixels, int heightPixels, int* pStepBytes);
VEK_API Vek8u* VEK_CALL vekiMalloc_8u_C3(int widthPixels, int heightPixels, int* pStepBytes);
VEK_API Vek16s* VEK_CALL vekiMalloc_16s_C1(int widthPixels, int heightPixels, int* pStepBytes);
VEK_API Vek16s* VEK_CALL vekiMalloc_16s_C3(int widthPixels, int heightPixels, int* pStepBytes);
VEK_API Vek16u* VEK_CALL vekiMalloc_16u_C1(int widthPixels, int heightPixels, int* pStepBytes);
VEK_API Vek16u* VEK_CALL vekiMalloc_16u_C3(int widthPixels, int heightPixels, int* pStepBytes);
VEK_API Vek32s* VEK_CALL vekiMalloc_32s_C1(int widthPixels, int heightPixels, int* pStepBytes);
VEK_API Vek32s* VEK_CALL vekiMalloc_32s_C3(int widthPixels, int heightPixels, int* pStepBytes);
VEK_API Vek32f* VEK_CALL vekiMalloc_32f_C1(int widthPixels, int heightPixels, int* pStepBytes);
VEK_API Vek32f* VEK_CALL vekiMalloc_32f_C3(int widthPixels, int heightPixels, int* pStepBytes);
VEK_API void VEK_CALL vekiFree(void* ptr);

/* Version record of the level chosen at load, per domain (signal vectors,
 * images, JPEG).  Never null. */
VEK_API const VekLibraryVersion* VEK_CALL veksGetLibVersion(void);
VEK_API const VekLibraryVersion* VEK_CALL vekiGetLibVersion(void);
VEK_API const VekLibraryVersion* VEK_CALL vekjGetLibVersion(void);

/* ======================================================================
 * Vector arithmetic with integer scaling
 *
 * Vectors are contiguous and need no alignment; len counts elements.
 * Checks: any vector pointer null -> StatusNullPointer, then len < 1 ->
 * StatusSize; nothing is written on failure.  Otherwise StatusOk.
 *
 * Scaled members (_Sfs, _ISfs) compute the exact result r (in 32 bits for
 * 16-bit data, in 64 bits for 32-bit data, the full product for Mul) and
 * store r x 2^-scaleFactor saturated to the destination type:
 *   scaleFactor > 0: divide, rounding to nearest with ties to even; above 16
 *                    (16-bit data) or 32 (32-bit data) the result is all 0;
 *   scaleFactor < 0: multiply, saturating; at -16 (16-bit) or -31 (32-bit)
 *                    and below the result is the saturated sign of r.
 * Float members compute the IEEE single-precision result of each element in
 * the caller's floating-point modes: rounded to nearest unless the caller
 * changed the rounding mode, and, on the levels that compute with SSE (all
 * levels on x86-64, level 1 and up on 32-bit x86), subject to the
 * flush-to-zero and denormals-are-zero modes.  When both operands are NaN
 * the result is a NaN whose payload may come from either operand,
 * depending on the level.
 *
 * Sub computes src2 - src1 (in place: srcDst - src); SubC computes
 * src - value.  A destination may be the very same array as a source;
 * other overlaps are not supported.  MulC_16s forms its product in 32 bits.
 * ====================================================================== */
VEK_API VekStatus VEK_CALL veksAdd_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len,
                                           int scaleFactor);
VEK_API VekStatus VEK_CALL veksAdd_16s_ISfs(const Vek16s* pSrc, Vek16s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus VEK_CALL veksAdd_32s_Sfs(const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pDst, int len,
                                           int scaleFactor);
VEK_API VekStatus VEK_CALL veksAdd_32s_ISfs(const Vek32s* pSrc, Vek32s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus VEK_CALL veksAdd_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len);
VEK_API VekStatus VEK_CALL veksAdd_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len);

VEK_API VekStatus VEK_CALL veksSub_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len,
                                           int scaleFactor);
VEK_API VekStatus VEK_CALL veksSub_16s_ISfs(const Vek16s* pSrc, Vek16s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus VEK_CALL veksSub_32s_Sfs(const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pDst, int len,
                                           int scaleFactor);
VEK_API VekStatus VEK_CALL veksSub_32s_ISfs(const Vek32s* pSrc, Vek32s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus VEK_CALL veksSub_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len);
VEK_API VekStatus VEK_CALL veksSub_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len);

VEK_API VekStatus VEK_CALL veksMul_32s_Sfs(const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pDst, int len,
                                           int scaleFactor);
VEK_API VekStatus VEK_CALL veksMul_32s_ISfs(const Vek32s* pSrc, Vek32s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus VEK_CALL veksMul_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len);
VEK_API VekStatus VEK_CALL veksMul_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len);

VEK_API VekStatus VEK_CALL veksAddC_16s_Sfs(const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len, int scaleFactor);
VEK_API VekStatus VEK_CALL veksAddC_16s_ISfs(Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus VEK_CALL veksAddC_32s_Sfs(const Vek32s* pSrc, Vek32s val, Vek32s* pDst, int len, int scaleFactor);
VEK_API VekStatus VEK_CALL veksAddC_32s_ISfs(Vek32s val, Vek32s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus VEK_CALL veksAddC_32f(const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len);
VEK_API VekStatus VEK_CALL veksAddC_32f_I(Vek32f val, Vek32f* pSrcDst, int len);

VEK_API VekStatus VEK_CALL veksSubC_16s_Sfs(const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len, int scaleFactor);
VEK_API VekStatus VEK_CALL veksSubC_16s_ISfs(Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus VEK_CALL veksSubC_32s_Sfs(const Vek32s* pSrc, Vek32s val, Vek32s* pDst, int len, int scaleFactor);
VEK_API VekStatus VEK_CALL veksSubC_32s_ISfs(Vek32s val, Vek32s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus VEK_CALL veksSubC_32f(const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len);
VEK_API VekStatus VEK_CALL veksSubC_32f_I(Vek32f val, Vek32f* pSrcDst, int len);

VEK_API VekStatus VEK_CALL veksMulC_16s_Sfs(const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len, int scaleFactor);
VEK_API VekStatus VEK_CALL veksMulC_16s_ISfs(Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus VEK_CALL veksMulC_32s_Sfs(const Vek32s* pSrc, Vek32s val, Vek32s* pDst, int len, int scaleFactor);
VEK_API VekStatus VEK_CALL veksMulC_32s_ISfs(Vek32s val, Vek32s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus VEK_CALL veksMulC_32f(const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len);
VEK_API VekStatus VEK_CALL veksMulC_32f_I(Vek32f val, Vek32f* pSrcDst, int len);

/* ---- Vector shifts, conversions, copy and thresholds ---------------------- */
/* Vectors are contiguous and need no alignment; len counts elements.  A
 * destination may be the very same array as the source; other overlaps are
 * supported only by veksMove_8u.  Unless stated otherwise the checks are: a
 * null pointer -> StatusNullPointer, then len < 1 -> StatusSize, then a
 * negative shift -> StatusShift; nothing is written on failure.
 *
 * Left shifts are logical on the element's bits: the bits shifted out are
 * lost, no saturation.  Right shifts are arithmetic (rounding toward minus
 * infinity); shifts beyond the element width act as a shift by width - 1,
 * so the result is the sign of each element (-1 or 0).
 *
 * veksLShiftC_16s, veksLShiftC_32s (src, shift, dst, len), checked in order:
 *   shift 0:           a plain copy of src to dst (null -> StatusNullPointer,
 *                      len < 1 -> StatusSize);
 *   shift >= 16 (32):  a null src -> StatusNullPointer; otherwise dst is
 *                      zero-filled (null dst -> StatusNullPointer, len < 1 ->
 *                      StatusSize);
 *   otherwise:         null src or dst, then len < 1, then shift < 0 ->
 *                      StatusShift; else dst[i] = src[i] << shift.
 * veksRShiftC_16s, veksRShiftC_32s (src, shift, dst, len), checked in order:
 *   shift 0:           a plain copy, as above;
 *   otherwise:         null src or dst, then len < 1, then shift < 0 ->
 *                      StatusShift; else dst[i] = src[i] >> min(shift, 15 (31)).
 * The in-place forms (shift, srcDst, len) check a null srcDst, then len < 1,
 * then shift < 0; shift 0 then leaves the data untouched and succeeds,
 * veksLShiftC_16s_I clears every element from shift 16 on, and the right
 * shifts fill each element with its sign from shift 15 (31) on.
 *
 * veksConvert_16s32s sign-extends; veksConvert_32s16s saturates to
 * -32768..32767.
 *
 * veksConvert_32s32f_Sfs: dst[i] = src[i] x 2^-scaleFactor rounded once to
 * single precision, to nearest with ties to even (the exact product is
 * formed first, so no value is rounded twice).  Results beyond the float
 * range become +-infinity, tiny ones subnormals or +-0.  Any scaleFactor is
 * accepted.
 * veksConvert_32f32s_Sfs: dst[i] = src[i] x 2^-scaleFactor rounded to the
 * nearest integer, ties to even, saturated to -2147483648..2147483647
 * (+-infinity saturates); a NaN gives 0.  Any scaleFactor is accepted.
 * Both assume the processor's default rounding mode (to nearest); with the
 * flush-to-zero or denormals-are-zero modes set, subnormal values count as
 * zero on the levels that compute with SSE.
 *
 * veksCopy_8u copies len bytes; the regions must not overlap.  veksMove_8u
 * copies correctly whatever the overlap (the same address does nothing and
 * succeeds).
 *
 * veksThreshold_GT_32s_I replaces every element above level by level;
 * veksThreshold_LT_32s_I every element below level (signed comparisons).
 * Any level is accepted. */
VEK_API VekStatus VEK_CALL veksLShiftC_16s(const Vek16s* pSrc, int shift, Vek16s* pDst, int len);
VEK_API VekStatus VEK_CALL veksLShiftC_16s_I(int shift, Vek16s* pSrcDst, int len);
VEK_API VekStatus VEK_CALL veksLShiftC_32s(const Vek32s* pSrc, int shift, Vek32s* pDst, int len);
VEK_API VekStatus VEK_CALL veksRShiftC_16s(const Vek16s* pSrc, int shift, Vek16s* pDst, int len);
VEK_API VekStatus VEK_CALL veksRShiftC_16s_I(int shift, Vek16s* pSrcDst, int len);
VEK_API VekStatus VEK_CALL veksRShiftC_32s(const Vek32s* pSrc, int shift, Vek32s* pDst, int len);
VEK_API VekStatus VEK_CALL veksRShiftC_32s_I(int shift, Vek32s* pSrcDst, int len);

VEK_API VekStatus VEK_CALL veksConvert_16s32s(const Vek16s* pSrc, Vek32s* pDst, int len);
VEK_API VekStatus VEK_CALL veksConvert_32s16s(const Vek32s* pSrc, Vek16s* pDst, int len);
VEK_API VekStatus VEK_CALL veksConvert_32s32f_Sfs(const Vek32s* pSrc, Vek32f* pDst, int len, int scaleFactor);
VEK_API VekStatus VEK_CALL veksConvert_32f32s_Sfs(const Vek32f* pSrc, Vek32s* pDst, int len, int scaleFactor);

VEK_API VekStatus VEK_CALL veksCopy_8u(const Vek8u* pSrc, Vek8u* pDst, int len);
VEK_API VekStatus VEK_CALL veksMove_8u(const Vek8u* pSrc, Vek8u* pDst, int len);

VEK_API VekStatus VEK_CALL veksThreshold_GT_32s_I(Vek32s* pSrcDst, int len, Vek32s level);
VEK_API VekStatus VEK_CALL veksThreshold_LT_32s_I(Vek32s* pSrcDst, int len, Vek32s level);

/* ---- Images: copies, sets, mirrors, channel swaps, borders --------------- */
/* An image is a pointer to the first pixel of its region of interest and a
 * row step in bytes.  Copies, sets, mirrors, channel swaps and the border
 * replication accept any step, zero and negative included (a negative step
 * walks a bottom-up image), and need no alignment.  Checks, in order: a null
 * pointer -> StatusNullPointer; a region below 1 x 1 -> StatusSize; then the
 * function's own parameters.  Nothing is written on failure.  A source and
 * its destination must not overlap (use the in-place forms), and the rows of
 * one image must not overlap one another unless the step is zero, in which
 * case rows are processed from the first to the last.
 */

/* Copy roi.width pixels of each of roi.height rows.  AC4: channels 0..2 of
 * each four-channel pixel; the destination's fourth channel keeps its value
 * (it may be read and written back unchanged). */
VEK_API VekStatus VEK_CALL vekiCopy_8u_C1R(const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi);
VEK_API VekStatus VEK_CALL vekiCopy_16s_C1R(const Vek16s* pSrc, int srcStep, Vek16s* pDst, int dstStep, VekiSize roi);
VEK_API VekStatus VEK_CALL vekiCopy_32f_C1R(const Vek32f* pSrc, int srcStep, Vek32f* pDst, int dstStep, VekiSize roi);
VEK_API VekStatus VEK_CALL vekiCopy_8u_C3R(const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi);
VEK_API VekStatus VEK_CALL vekiCopy_8u_C4R(const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi);
VEK_API VekStatus VEK_CALL vekiCopy_8u_AC4R(const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi);

/* Planar to interleaved: channel c of each pixel comes from plane pSrc[c];
 * the three planes share srcStep.  A null array or plane pointer gives
 * StatusNullPointer.  Interleaved to planar (C3P3R) is the reverse, the
 * three destination planes sharing dstStep.  P3C3R outputs of more than
 * 2 MiB are written with stores that bypass the cache where the code path
 * has them (from SSE for 32f, from SSSE3 for 8u and 16s) and a row's
 * destination can be brought to 16-byte alignment; the result is the
 * same. */
VEK_API VekStatus VEK_CALL vekiCopy_8u_P3C3R(const Vek8u* const pSrc[3], int srcStep, Vek8u* pDst, int dstStep,
                                             VekiSize roi);
VEK_API VekStatus VEK_CALL vekiCopy_16s_P3C3R(const Vek16s* const pSrc[3], int srcStep, Vek16s* pDst, int dstStep,
                                              VekiSize roi);
VEK_API VekStatus VEK_CALL vekiCopy_32f_P3C3R(const Vek32f* const pSrc[3], int srcStep, Vek32f* pDst, int dstStep,
                                              VekiSize roi);
VEK_API VekStatus VEK_CALL vekiCopy_32f_C3P3R(const Vek32f* pSrc, int srcStep, Vek32f* const pDst[3], int dstStep,
                                              VekiSize roi);

/* Write value into every sample of the region.  C3CR: pDst addresses one
 * channel of the first pixel of a three-channel image; that channel of each
 * pixel is set and the other two are left alone (only the bytes from pDst
 * to the last written byte of a row are accessed). */
VEK_API VekStatus VEK_CALL vekiSet_8u_C1R(Vek8u value, Vek8u* pDst, int dstStep, VekiSize roi);
VEK_API VekStatus VEK_CALL vekiSet_16s_C1R(Vek16s value, Vek16s* pDst, int dstStep, VekiSize roi);
VEK_API VekStatus VEK_CALL vekiSet_16u_C1R(Vek16u value, Vek16u* pDst, int dstStep, VekiSize roi);
VEK_API VekStatus VEK_CALL vekiSet_8u_C3CR(Vek8u value, Vek8u* pDst, int dstStep, VekiSize roi);

/* Mirror.  flip 0: about the horizontal axis (source row i goes to row
 * roi.height - 1 - i); 1: about the vertical axis (pixel x goes to
 * roi.width - 1 - x, channels kept in order); 2: both.  After the pointer
 * and region checks: another flip code -> StatusMirrorFlip; then flip 0 with
 * roi.height < 2, flip 1 with roi.width < 2, flip 2 with either ->
 * StatusSize.  In place (IR), the middle row of an odd height and the middle
 * pixel of an odd width stay where they are. */
VEK_API VekStatus VEK_CALL vekiMirror_8u_C1R(const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi,
                                             int flip);
VEK_API VekStatus VEK_CALL vekiMirror_8u_C3R(const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi,
                                             int flip);
VEK_API VekStatus VEK_CALL vekiMirror_16u_C1R(const Vek16u* pSrc, int srcStep, Vek16u* pDst, int dstStep, VekiSize roi,
                                              int flip);
VEK_API VekStatus VEK_CALL vekiMirror_16u_C3R(const Vek16u* pSrc, int srcStep, Vek16u* pDst, int dstStep, VekiSize roi,
                                              int flip);
VEK_API VekStatus VEK_CALL vekiMirror_16s_C1R(const Vek16s* pSrc, int srcStep, Vek16s* pDst, int dstStep, VekiSize roi,
                                              int flip);
VEK_API VekStatus VEK_CALL vekiMirror_16s_C3R(const Vek16s* pSrc, int srcStep, Vek16s* pDst, int dstStep, VekiSize roi,
                                              int flip);
VEK_API VekStatus VEK_CALL vekiMirror_32s_C1R(const Vek32s* pSrc, int srcStep, Vek32s* pDst, int dstStep, VekiSize roi,
                                              int flip);
VEK_API VekStatus VEK_CALL vekiMirror_32s_C3R(const Vek32s* pSrc, int srcStep, Vek32s* pDst, int dstStep, VekiSize roi,
                                              int flip);
VEK_API VekStatus VEK_CALL vekiMirror_32f_C1R(const Vek32f* pSrc, int srcStep, Vek32f* pDst, int dstStep, VekiSize roi,
                                              int flip);
VEK_API VekStatus VEK_CALL vekiMirror_32f_C3R(const Vek32f* pSrc, int srcStep, Vek32f* pDst, int dstStep, VekiSize roi,
                                              int flip);
VEK_API VekStatus VEK_CALL vekiMirror_8u_C1IR(Vek8u* pSrcDst, int srcDstStep, VekiSize roi, int flip);
VEK_API VekStatus VEK_CALL vekiMirror_8u_C3IR(Vek8u* pSrcDst, int srcDstStep, VekiSize roi, int flip);
VEK_API VekStatus VEK_CALL vekiMirror_16u_C1IR(Vek16u* pSrcDst, int srcDstStep, VekiSize roi, int flip);
VEK_API VekStatus VEK_CALL vekiMirror_16u_C3IR(Vek16u* pSrcDst, int srcDstStep, VekiSize roi, int flip);
VEK_API VekStatus VEK_CALL vekiMirror_16s_C1IR(Vek16s* pSrcDst, int srcDstStep, VekiSize roi, int flip);
VEK_API VekStatus VEK_CALL vekiMirror_16s_C3IR(Vek16s* pSrcDst, int srcDstStep, VekiSize roi, int flip);
VEK_API VekStatus VEK_CALL vekiMirror_32s_C1IR(Vek32s* pSrcDst, int srcDstStep, VekiSize roi, int flip);
VEK_API VekStatus VEK_CALL vekiMirror_32s_C3IR(Vek32s* pSrcDst, int srcDstStep, VekiSize roi, int flip);
VEK_API VekStatus VEK_CALL vekiMirror_32f_C1IR(Vek32f* pSrcDst, int srcDstStep, VekiSize roi, int flip);
VEK_API VekStatus VEK_CALL vekiMirror_32f_C3IR(Vek32f* pSrcDst, int srcDstStep, VekiSize roi, int flip);

/* Reorder the channels of a three-channel image: destination channel c
 * takes source channel dstOrder[c] (so {2, 1, 0} swaps the first and the
 * last).  A value repeated in dstOrder copies that channel twice.  A null
 * dstOrder is StatusNullPointer (with the image pointers); after the region
 * check, a dstOrder value outside 0..2 gives StatusChannelOrder. */
VEK_API VekStatus VEK_CALL vekiSwapChannels_8u_C3R(const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep,
                                                   VekiSize roi, const int dstOrder[3]);
VEK_API VekStatus VEK_CALL vekiSwapChannels_8u_C3IR(Vek8u* pSrcDst, int srcDstStep, VekiSize roi,
                                                    const int dstOrder[3]);

/* Copy the srcRoi region of pSrc into the dstRoi region of pDst with its top
 * left pixel at (leftBorderWidth, topBorderHeight), and fill the rest of
 * dstRoi with the nearest source pixel: source rows are extended to the left
 * and right with their first and last pixels, and the first and last of the
 * extended rows are repeated above and below.  StatusSize when either region
 * is below 1 x 1, a border is negative, or dstRoi is narrower than
 * srcRoi.width + leftBorderWidth or lower than srcRoi.height +
 * topBorderHeight (the right and bottom borders take what is left). */
VEK_API VekStatus VEK_CALL vekiCopyReplicateBorder_32s_C1R(const Vek32s* pSrc, int srcStep, VekiSize srcRoi,
                                                           Vek32s* pDst, int dstStep, VekiSize dstRoi,
                                                           int topBorderHeight, int leftBorderWidth);

/* ---- Images: type conversions and per-pixel arithmetic ------------------- */
/* An image is addressed by the pointer to the first sample of the region of
 * interest and a step: the distance in bytes from one row's start to the
 * next.  roi gives the width in pixels and the height in rows; _C3R forms
 * work on three interleaved channels (three samples per pixel).  No
 * alignment is required.  When each step equals its row length the region
 * is worked as one long row (same results).
 *
 * Checks, in this order, for every function of this group: a null image
 * pointer -> StatusNullPointer; roi.width < 1 or roi.height < 1 ->
 * StatusSize; any step < 1 -> StatusStep; then the function's own
 * parameters as stated below.  Nothing is written on failure; otherwise
 * StatusOk.  Source and destination must not overlap (the _I forms work in
 * place on one image).
 *
 * vekiConvert_<src><dst>_C1R / _C3R (pSrc, srcStep, pDst, dstStep, roi):
 *   widening (8u to 16u, 16s, 32s, 32f; 16u and 16s to 32s, 32f): exact.
 *   narrowing from integers (32s, 16s, 16u to 8u): saturation to 0..255.
 *   narrowing from 32f (to 8u, 16s, 16u): rounding to the nearest integer,
 *     ties to even (2.5 -> 2, 3.5 -> 4, -0.5 -> 0), then saturation to the
 *     destination's range (infinities saturate); NaN gives 0.  The result
 *     does not depend on the caller's floating-point environment: whatever
 *     rounding mode MXCSR or the x87 control word holds, every level gives
 *     the same result.  The SSE levels read MXCSR to pick their fastest
 *     exact path; nothing changes either register.
 */
VEK_API VekStatus VEK_CALL vekiConvert_8u16u_C1R(const Vek8u* pSrc, int srcStep, Vek16u* pDst, int dstStep,
                                                 VekiSize roi);
VEK_API VekStatus VEK_CALL vekiConvert_8u16u_C3R(const Vek8u* pSrc, int srcStep, Vek16u* pDst, int dstStep,
                                                 VekiSize roi);
VEK_API VekStatus VEK_CALL vekiConvert_8u16s_C1R(const Vek8u* pSrc, int srcStep, Vek16s* pDst, int dstStep,
                                                 VekiSize roi);
VEK_API VekStatus VEK_CALL vekiConvert_8u16s_C3R(const Vek8u* pSrc, int srcStep, Vek16s* pDst, int dstStep,
                                                 VekiSize roi);
VEK_API VekStatus VEK_CALL vekiConvert_8u32s_C1R(const Vek8u* pSrc, int srcStep, Vek32s* pDst, int dstStep,
                                                 VekiSize roi);
VEK_API VekStatus VEK_CALL vekiConvert_8u32s_C3R(const Vek8u* pSrc, int srcStep, Vek32s* pDst, int dstStep,
                                                 VekiSize roi);
VEK_API VekStatus VEK_CALL vekiConvert_8u32f_C1R(const Vek8u* pSrc, int srcStep, Vek32f* pDst, int dstStep,
                                                 VekiSize roi);
VEK_API VekStatus VEK_CALL vekiConvert_8u32f_C3R(const Vek8u* pSrc, int srcStep, Vek32f* pDst, int dstStep,
                                                 VekiSize roi);
VEK_API VekStatus VEK_CALL vekiConvert_16u32s_C1R(const Vek16u* pSrc, int srcStep, Vek32s* pDst, int dstStep,
                                                  VekiSize roi);
VEK_API VekStatus VEK_CALL vekiConvert_16u32s_C3R(const Vek16u* pSrc, int srcStep, Vek32s* pDst, int dstStep,
                                                  VekiSize roi);
VEK_API VekStatus VEK_CALL vekiConvert_16u32f_C1R(const Vek16u* pSrc, int srcStep, Vek32f* pDst, int dstStep,
                                                  VekiSize roi);
VEK_API VekStatus VEK_CALL vekiConvert_16u32f_C3R(const Vek16u* pSrc, int srcStep, Vek32f* pDst, int dstStep,
                                                  VekiSize roi);
VEK_API VekStatus VEK_CALL vekiConvert_16s32s_C1R(const Vek16s* pSrc, int srcStep, Vek32s* pDst, int dstStep,
                                                  VekiSize roi);
VEK_API VekStatus VEK_CALL vekiConvert_16s32s_C3R(const Vek16s* pSrc, int srcStep, Vek32s* pDst, int dstStep,
                                                  VekiSize roi);
VEK_API VekStatus VEK_CALL vekiConvert_16s32f_C1R(const Vek16s* pSrc, int srcStep, Vek32f* pDst, int dstStep,
                                                  VekiSize roi);
VEK_API VekStatus VEK_CALL vekiConvert_16s32f_C3R(const Vek16s* pSrc, int srcStep, Vek32f* pDst, int dstStep,
                                                  VekiSize roi);

VEK_API VekStatus VEK_CALL vekiConvert_32s8u_C1R(const Vek32s* pSrc, int srcStep, Vek8u* pDst, int dstStep,
                                                 VekiSize roi);
VEK_API VekStatus VEK_CALL vekiConvert_32s8u_C3R(const Vek32s* pSrc, int srcStep, Vek8u* pDst, int dstStep,
                                                 VekiSize roi);
VEK_API VekStatus VEK_CALL vekiConvert_16s8u_C1R(const Vek16s* pSrc, int srcStep, Vek8u* pDst, int dstStep,
                                                 VekiSize roi);
VEK_API VekStatus VEK_CALL vekiConvert_16s8u_C3R(const Vek16s* pSrc, int srcStep, Vek8u* pDst, int dstStep,
                                                 VekiSize roi);
VEK_API VekStatus VEK_CALL vekiConvert_16u8u_C1R(const Vek16u* pSrc, int srcStep, Vek8u* pDst, int dstStep,
                                                 VekiSize roi);
VEK_API VekStatus VEK_CALL vekiConvert_16u8u_C3R(const Vek16u* pSrc, int srcStep, Vek8u* pDst, int dstStep,
                                                 VekiSize roi);
VEK_API VekStatus VEK_CALL vekiConvert_32f8u_C1R(const Vek32f* pSrc, int srcStep, Vek8u* pDst, int dstStep,
                                                 VekiSize roi);
VEK_API VekStatus VEK_CALL vekiConvert_32f8u_C3R(const Vek32f* pSrc, int srcStep, Vek8u* pDst, int dstStep,
                                                 VekiSize roi);
VEK_API VekStatus VEK_CALL vekiConvert_32f16s_C1R(const Vek32f* pSrc, int srcStep, Vek16s* pDst, int dstStep,
                                                  VekiSize roi);
VEK_API VekStatus VEK_CALL vekiConvert_32f16s_C3R(const Vek32f* pSrc, int srcStep, Vek16s* pDst, int dstStep,
                                                  VekiSize roi);
VEK_API VekStatus VEK_CALL vekiConvert_32f16u_C1R(const Vek32f* pSrc, int srcStep, Vek16u* pDst, int dstStep,
                                                  VekiSize roi);
VEK_API VekStatus VEK_CALL vekiConvert_32f16u_C3R(const Vek32f* pSrc, int srcStep, Vek16u* pDst, int dstStep,
                                                  VekiSize roi);

/* Shifts by a constant count `value`, one channel.
 * vekiLShiftC_32s_C1R (pSrc, srcStep, value, pDst, dstStep, roi) and
 * vekiLShiftC_32s_C1IR (value, pSrcDst, srcDstStep, roi): each sample's bit
 *   pattern shifted left; the bits shifted out are lost (no saturation);
 *   a count of 32 or more gives 0.
 * vekiRShiftC_16s_C1IR, vekiRShiftC_32s_C1IR (value, pSrcDst, srcDstStep,
 *   roi): arithmetic shift right (rounds toward minus infinity); a count at
 *   or beyond the sample width gives the sign fill (-1 or 0).
 * A count of 0 leaves the samples as they are (the checks still apply). */
VEK_API VekStatus VEK_CALL vekiLShiftC_32s_C1R(const Vek32s* pSrc, int srcStep, Vek32u value, Vek32s* pDst, int dstStep,
                                               VekiSize roi);
VEK_API VekStatus VEK_CALL vekiLShiftC_32s_C1IR(Vek32u value, Vek32s* pSrcDst, int srcDstStep, VekiSize roi);
VEK_API VekStatus VEK_CALL vekiRShiftC_16s_C1IR(Vek32u value, Vek16s* pSrcDst, int srcDstStep, VekiSize roi);
VEK_API VekStatus VEK_CALL vekiRShiftC_32s_C1IR(Vek32u value, Vek32s* pSrcDst, int srcDstStep, VekiSize roi);

/* Products with a constant, in place.
 * vekiMulC_16s_C1IRSfs (value, pSrcDst, srcDstStep, roi, scaleFactor): each
 *   sample as veksMulC_16s_ISfs gives it (any scaleFactor is accepted): the
 *   32-bit product times 2^-scaleFactor, rounded to nearest with ties to
 *   even and saturated, for scaleFactor up to 16; above 16 every sample
 *   becomes 0, whatever its product; from -16 down, the saturated sign of
 *   the product.
 * vekiMulC_32f_C1IR (value, pSrcDst, srcDstStep, roi): the single-precision
 *   product of each sample, as veksMulC_32f_I (and, like it, in the caller's
 *   rounding mode and, on the SSE levels, its FTZ and DAZ modes). */
VEK_API VekStatus VEK_CALL vekiMulC_16s_C1IRSfs(Vek16s value, Vek16s* pSrcDst, int srcDstStep, VekiSize roi,
                                                int scaleFactor);
VEK_API VekStatus VEK_CALL vekiMulC_32f_C1IR(Vek32f value, Vek32f* pSrcDst, int srcDstStep, VekiSize roi);

/* vekiComplement_32s_C1IR (pSrcDst, srcDstStep, roi, bitSize): reads the
 * low bitSize bits of each sample as a two's-complement number and stores
 * it sign-extended to 32 bits; the bits above the field are ignored (raw
 * signed samples of bitSize bits, as unpacked from a codestream, become
 * their values: with bitSize 12, 0xFFF -> -1, 0x800 -> -2048, 0x7FF ->
 * 2047).  bitSize 32 leaves the samples unchanged.  After the common
 * checks, bitSize outside 1..32 -> StatusOutOfRange. */
VEK_API VekStatus VEK_CALL vekiComplement_32s_C1IR(Vek32s* pSrcDst, int srcDstStep, VekiSize roi, int bitSize);

/* ---- Checksums ------------------------------------------------------------ */
/* Running checksums for the zlib (Adler-32) and gzip (CRC-32) containers; a
 * long stream is checksummed in any number of calls, each continuing from
 * the value the previous call left.  Both are reentrant.
 *
 * veksAdler32_8u: *pAdler holds B << 16 | A.  A null pAdler gives
 * StatusNullPointer; a null pSrc writes the start value 1 and succeeds
 * whatever len is; len < 1 leaves *pAdler unchanged and succeeds.
 *
 * veksCRC32_8u: *pCrc holds the finished CRC-32 of what was seen so far, 0
 * to start.  A null pointer gives StatusNullPointer; len < 1 gives
 * StatusSize with nothing written.
 *
 * Every level gives the same values; the AVX2 and AVX-512 levels fold
 * CRC-32 with carry-less multiplication and take Adler-32 64 bytes a step. */
VEK_API VekStatus VEK_CALL veksAdler32_8u(const Vek8u* pSrc, int len, Vek32u* pAdler);
VEK_API VekStatus VEK_CALL veksCRC32_8u(const Vek8u* pSrc, int len, Vek32u* pCrc);

/* ---- Run-length coding ---------------------------------------------------- */
/* A byte-oriented run-length code.  Items: a literal byte b (the byte after
 * it differs), or the three bytes b, b, n standing for n + 2 copies of b
 * (runs of 2 to 257; a longer run is split into runs of 257 and the rest,
 * a rest of one byte being a literal).  A coded chunk may end in up to 2
 * plain bytes: the encoder writes source bytes plainly once only 2 bytes of
 * room are left, and the decoder copies as they are the bytes left once
 * fewer than 3 remain to be read (a run item that ends the chunk exactly is
 * still a run).  So decode each coded chunk on its own, with exactly
 * the length the encoder produced for it (concatenated chunks do not
 * decode as one).
 *
 * Both functions code as much of *ppSrc (*pSrcLen bytes) as fits pDst
 * (*pDstLen bytes of room), then advance *ppSrc and reduce *pSrcLen by the
 * bytes taken and set *pDstLen to the bytes written.  They return StatusOk
 * when the whole source was taken, else StatusDstSize: call again with the
 * advanced source and fresh room.  The decoder writes a run item whole or
 * not at all, stopping with *ppSrc at the item that did not fit.
 * A null ppSrc, *ppSrc, pSrcLen, pDst or pDstLen gives StatusNullPointer;
 * then *pSrcLen < 1 or *pDstLen < 1 gives StatusSize; nothing is written
 * on failure.  No bytes of pDst beyond the reported count are touched. */
VEK_API VekStatus VEK_CALL veksEncodeRLE_8u(const Vek8u** ppSrc, int* pSrcLen, Vek8u* pDst, int* pDstLen);
VEK_API VekStatus VEK_CALL veksDecodeRLE_8u(const Vek8u** ppSrc, int* pSrcLen, Vek8u* pDst, int* pDstLen);

/* ---- The deflate encoder: the values of its arguments and status --------- */
/* Compression classes (comprClass of veksEncodeLZ77Init_8u; any other value
 * gives VekDeflateDefault). */
enum {
    VekDeflateFast = 0,    /* one candidate per position, no chains */
    VekDeflateDefault = 1, /* greedy matching, up to 16 candidates */
    VekDeflateBest = 2     /* lazy matching, up to 512 candidates */
};
/* Checksum kinds (checksumKind of veksEncodeLZ77Init_8u). */
enum {
    VekDeflateNoChecksum = 0,
    VekDeflateAdler32 = 1, /* for the zlib container */
    VekDeflateCrc32 = 2    /* for the gzip container */
};
/* Flush values of veksEncodeLZ77_8u and the block coders. */
enum {
    VekDeflateNoFlush = 0,    /* more follows */
    VekDeflateHistoryCut = 2, /* veksEncodeLZ77_8u: no match reaches back across this call */
    VekDeflateLastBlock = 3   /* block coders: the stream's last block (BFINAL = 1) */
};
/* Stream status (veksEncodeLZ77GetStatus_8u, veksEncodeLZ77SetStatus_8u). */
enum {
    VekDeflateNotBegun = 0, /* after Init and Reset */
    VekDeflateMatching = 1, /* an encoding call has run; set it to empty the pair list after a block */
    VekDeflateCoding = 2,   /* set it to make the pairs held the block to code */
    VekDeflateComplete = 3  /* the last block is written: the trailer may follow */
};
/* Code choices of veksEncodeLZ77SelectHuffMode_8u. */
enum { VekDeflateFixedCodes = 0, VekDeflateDynamicCodes = 1 };

/* ---- The deflate encoder: state and match finding ------------------------- */
/* The first stage of a deflate (RFC 1951) encoder: input bytes become LZ77
 * pairs, and the running checksum of the input is kept for the trailer.
 *
 * A pair is two Vek16u: {byte, 0} for a literal, {length 3..258, distance
 * 1..32767} for a match.  Pair counts and capacities count pairs.
 *
 * The state is one block of veksEncodeLZ77GetSize_8u bytes that the caller
 * owns.  veksEncodeLZ77Init_8u prepares a caller block, which must be
 * aligned for a pointer (any malloc or veksMalloc_8u block is), else
 * StatusBadArgument; the state points into itself, so it must not be moved
 * or copied after Init.  veksEncodeLZ77InitAlloc_8u allocates one with
 * veksMalloc_8u (StatusMemoryAllocated when that fails, *ppState then
 * unchanged); veksLZ77Free_8u releases it (null is ignored).
 *   comprClass: VekDeflateFast, VekDeflateDefault or VekDeflateBest (above);
 *     any other value gives VekDeflateDefault.
 *   checksumKind: VekDeflateAdler32 or VekDeflateCrc32 keep that running
 *     checksum of the input; any other value keeps none (and the trailer
 *     can then be written only for VekDeflateNoChecksum).  The running
 *     checksum starts from 0 for both kinds: the Adler-32 start value 1 is
 *     not put in.
 * veksEncodeLZ77Reset_8u starts a new stream with the same class and
 * checksum kind: history, checksum, stream position, stream status and the
 * block coder are cleared, and the pair list is the state's own again,
 * empty, with room for 65280 pairs.
 *
 * veksEncodeLZ77SetDictionary_8u preloads the history with the last
 * min(dictLen, 32768) bytes of pDict.  Null pointer: StatusNullPointer;
 * dictLen < 0: StatusSize; dictLen < 3: nothing done, StatusOk; once an
 * encoding call has run (until Reset): StatusUnknown.  A second dictionary
 * replaces the first.  The dictionary bytes count in the stream position
 * but not in the checksum.
 *
 * veksEncodeLZ77_8u takes bytes from *ppSrc (*pSrcLen of them) and writes
 * pairs at *ppPairs (room for *pPairsLen); both are advanced by what was
 * consumed and written.  Checks, in order: a null ppSrc, pSrcLen, ppPairs,
 * *ppPairs, pPairsLen or pState: StatusNullPointer; *pPairsLen or *pSrcLen
 * negative: StatusSize; *pPairsLen = 0: StatusDstSize at once; *pSrcLen = 0:
 * StatusOk at once (with VekDeflateHistoryCut the history is still cut);
 * a null *ppSrc: StatusNullPointer.  The last 2 bytes of every call (3
 * under the best class) are written as literals, so a stream fed in many
 * calls compresses a little worse than in one.  When the pairs run out the
 * call stops and returns StatusDstSize; calling again with more room gives
 * the same pairs as one larger call would have.
 * flush = VekDeflateHistoryCut cuts the history: that call and the next one
 * see no earlier bytes and leave none behind (the stream position is 0
 * after each), so no match reaches back across the cut.  Other flush
 * values do not change the matching.  The consumed bytes are added to the
 * running checksum, and a stream status of VekDeflateNotBegun becomes
 * VekDeflateMatching.  A stream takes at most 2^31 - 65537 bytes between
 * Init, Reset and history cuts; a call beyond that gets StatusSize.
 *
 * veksEncodeLZ77GetPairs_8u reports the pair list the block coders read:
 * where it starts, how many pairs it holds and its capacity (any null
 * pointer: StatusNullPointer).  veksEncodeLZ77SetPairs_8u replaces them;
 * a null pPairs gives StatusNullPointer, pairsCount < 0 or pairsCapacity <
 * pairsCount StatusSize. */
VEK_API VekStatus VEK_CALL veksEncodeLZ77GetSize_8u(int* pSize);
VEK_API VekStatus VEK_CALL veksEncodeLZ77Init_8u(int comprClass, int checksumKind, VekDeflateState* pState);
VEK_API VekStatus VEK_CALL veksEncodeLZ77InitAlloc_8u(int comprClass, int checksumKind, VekDeflateState** ppState);
VEK_API void VEK_CALL veksLZ77Free_8u(void* pState);
VEK_API VekStatus VEK_CALL veksEncodeLZ77Reset_8u(VekDeflateState* pState);
VEK_API VekStatus VEK_CALL veksEncodeLZ77SetDictionary_8u(const Vek8u* pDict, int dictLen, VekDeflateState* pState);
VEK_API VekStatus VEK_CALL veksEncodeLZ77_8u(const Vek8u** ppSrc, int* pSrcLen, Vek16u** ppPairs, int* pPairsLen,
                                             int flush, VekDeflateState* pState);
VEK_API VekStatus VEK_CALL veksEncodeLZ77GetPairs_8u(Vek16u** ppPairs, int* pPairsCount, int* pPairsCapacity,
                                                     VekDeflateState* pState);
VEK_API VekStatus VEK_CALL veksEncodeLZ77SetPairs_8u(Vek16u* pPairs, int pairsCount, int pairsCapacity,
                                                     VekDeflateState* pState);

/* ---- The deflate encoder: block coding and trailer ------------------------ */
/* The second stage of the deflate encoder: the pairs made by
 * veksEncodeLZ77_8u written as RFC 1951 blocks into the caller's output,
 * and the zlib or gzip trailer.  A pair is two Vek16u: a literal byte and 0,
 * or a match length 3..258 and its distance 1..32768.
 *
 * Streaming: ppPairs/pPairsLen (or ppSrc/pSrcLen) and ppDst/pDstLen are
 * advanced and reduced by what was consumed and produced.  When the output
 * fills first a coder returns StatusDstSize (33); call it again with more
 * room and the rest of its input and it goes on where it stopped (the same
 * coder: another coder called while a block is open returns
 * StatusContextMismatch).  The bytes are the same however the output is cut,
 * down to one byte per call.  Pending bits wait in the state between calls
 * and every coder writes them first.  Nothing outside the room given is
 * written; within it, only the Huffman coders may change bytes past those
 * reported as produced (below).  Every block a coder writes holds exactly
 * the pairs (or bytes) of the call that opened it.
 *
 * flush: VekDeflateLastBlock marks the stream's last block (BFINAL = 1); any
 * other value a block that more follow.  The coder of the last block pads
 * it to a byte boundary and writes every byte of it; when it has, it
 * returns StatusOk and sets the stream status to VekDeflateComplete, so the
 * trailer starts on a byte.
 *
 * Stream status (GetStatus/SetStatus): VekDeflateNotBegun after
 * initialisation, VekDeflateMatching once an encoding call has run,
 * VekDeflateComplete once the last block is written (the Flush call needs
 * it); SetStatus stores any value as given.  SetStatus with
 * VekDeflateMatching also empties the pair list (back to the state's own
 * storage, capacity 65280); with VekDeflateCoding it makes the capacity the
 * count of pairs held and the count 0, and lets the next SelectHuffMode
 * decide afresh.  So a caller codes a block by SetStatus(VekDeflateCoding),
 * the coder, then SetStatus(VekDeflateMatching) unless it was the last.
 * Null pointers: StatusNullPointer. */
VEK_API VekStatus VEK_CALL veksEncodeLZ77GetStatus_8u(int* pStatus, VekDeflateState* pState);
VEK_API VekStatus VEK_CALL veksEncodeLZ77SetStatus_8u(int status, VekDeflateState* pState);

/* Fixed (VekDeflateFixedCodes) or dynamic (VekDeflateDynamicCodes) codes
 * for the pairs, by their skew: with the distinct literal/length symbols
 * listed in order of first appearance and c(k) the count of the k-th,
 * m = (sum of k * c(k)) / pairsCount; dynamic when the largest count
 * exceeds c(m) by pairsCount / 4 or more (rounded down), else fixed.  No
 * bit counts are compared.  Zero pairs give fixed codes.  Decides once after
 * each SetStatus(VekDeflateCoding); otherwise writes the previous decision
 * without looking at the pairs.
 * Checks: null pointer -> StatusNullPointer; pairsCount < 0 -> StatusSize;
 * when deciding, a pair outside the ranges above -> StatusBadArgument. */
VEK_API VekStatus VEK_CALL veksEncodeLZ77SelectHuffMode_8u(const Vek16u* pPairs, int pairsCount, int* pHuffMode,
                                                           VekDeflateState* pState);

/* One block of the given pairs with the fixed codes (type 01) or with codes
 * built for them (type 10: code lengths at most 15 bits, code-length code
 * at most 7 bits, the run codes 16/17/18; every code complete).  Checks, in
 * order: a null pointer (including *ppPairs, *ppDst) -> StatusNullPointer;
 * *pDstLen < 0 or *pPairsLen < 0 -> StatusSize; *pDstLen = 0 ->
 * StatusDstSize; another block type open -> StatusContextMismatch; a pair
 * outside the ranges above, or one whose symbols have no code in the
 * dynamic block being resumed -> StatusBadArgument.  The call that opens a
 * block checks all its pairs; a call that resumes it with the rest of the
 * same list checks none again, and with another list only the pairs its
 * room can reach, so a call costs what it writes however small the room.
 * The coders write whole 8-byte words while the output has room: bytes past
 * the returned *ppDst, within the room given, may change. */
VEK_API VekStatus VEK_CALL veksEncodeLZ77FixedHuff_8u(const Vek16u** ppPairs, int* pPairsLen, Vek8u** ppDst,
                                                      int* pDstLen, int flush, VekDeflateState* pState);
VEK_API VekStatus VEK_CALL veksEncodeLZ77DynamicHuff_8u(const Vek16u** ppPairs, int* pPairsLen, Vek8u** ppDst,
                                                        int* pDstLen, int flush, VekDeflateState* pState);

/* One stored block (type 00) of *pSrcLen bytes (0..65535): 3 header bits,
 * zero bits to the byte boundary, LEN and NLEN, the bytes.  A call that
 * resumes the block passes the rest of its bytes.  Checks, in order: a null
 * pointer -> StatusNullPointer; *pDstLen = 0 -> StatusDstSize; *pDstLen < 0,
 * *pSrcLen outside 0..65535 or fewer than the rest of the open block ->
 * StatusSize; a Huffman block open -> StatusContextMismatch. */
VEK_API VekStatus VEK_CALL veksEncodeLZ77StoredBlock_8u(const Vek8u** ppSrc, int* pSrcLen, Vek8u** ppDst, int* pDstLen,
                                                        int flush, VekDeflateState* pState);

/* The trailer, after the last block: VekDeflateAdler32 writes the running
 * checksum most significant byte first (4 bytes); VekDeflateCrc32 and
 * VekDeflateNoChecksum write the running checksum (0 for no checksum) and
 * then the stream position (the input bytes taken, dictionary included,
 * counted from 0 again after a history cut), each least significant byte
 * first (8 bytes: gzip's CRC32 and ISIZE).  The state's running checksum
 * starts from 0 for both kinds, so a zlib caller that needs the true
 * Adler-32 (which starts from 1) computes it with veksAdler32_8u.  Stops on
 * a full output and goes on in the next call.
 * Checks: null pointer -> StatusNullPointer; *pDstLen < 0 -> StatusSize;
 * stream status not VekDeflateComplete or another checksum kind ->
 * StatusUnknown; *pDstLen = 0 -> StatusDstSize. */
VEK_API VekStatus VEK_CALL veksEncodeLZ77Flush_8u(Vek8u** ppDst, int* pDstLen, VekDeflateState* pState);

/* ======================================================================
 * JPEG: DCT, quantisation and level shift
 * 8x8 blocks transformed, quantised and level-shifted in both directions.
 * ====================================================================== */
/* (the family's functions go here) */

/* ======================================================================
 * JPEG: lossless prediction and TIFF rows
 * Lossless JPEG row prediction and reconstruction; TIFF PackBits and byte planes.
 * ====================================================================== */
/* (the family's functions go here) */

/* ======================================================================
 * JPEG: colour conversion, per-MCU level shift and chroma sampling
 * Colour conversions, per-MCU conversions and chroma resampling.
 * ====================================================================== */
/* (the family's functions go here) */

/* ======================================================================
 * JPEG: Huffman coding
 * Baseline and progressive Huffman coding of 8x8 blocks.
 * ====================================================================== */
/* (the family's functions go here) */

/* ======================================================================
 * JPEG 2000: wavelet transforms
 * 5/3 and 9/7 wavelet passes and the two-dimensional 9/7 level.
 * ====================================================================== */
/* (the family's functions go here) */

/* ======================================================================
 * JPEG 2000: component transforms
 * The reversible (RCT) and irreversible (ICT) component transforms.
 * ====================================================================== */
/* (the family's functions go here) */

/* ======================================================================
 * Video: motion compensation and block differences
 * Predicted blocks and residuals for MPEG-1/2.
 * ====================================================================== */
/* (the family's functions go here) */

/* ======================================================================
 * Video: block matching metrics
 * SAD, squared differences and variance for motion search.
 * ====================================================================== */
/* (the family's functions go here) */

/* ======================================================================
 * Video: MPEG-2 quantisation
 * Intra and non-intra quantisation with mismatch control.
 * ====================================================================== */
/* (the family's functions go here) */

#ifdef __cplusplus
}
#endif
#endif /* VEK_H */

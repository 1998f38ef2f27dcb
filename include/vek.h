/*
 * vek.h - the public interface of the Vek library of codec primitives.
 *
 * Every function returns a VekStatus (0 = success, negative = error,
 * positive = warning) unless stated otherwise.  A function that reports an
 * error has written nothing.  Functions are reentrant and keep no state; the
 * only global setting is the code-path level the library picks once at load
 * from the processor it runs on.  All levels give bit-identical results.
 *
 * On 32-bit Windows every function uses __stdcall and is exported from
 * vek.dll under its plain, undecorated name.  Define VEK_STATIC before
 * including this header when linking the static library on Windows.
 */
#ifndef VEK_H
#define VEK_H

#if defined(_WIN32) && !defined(_WIN64)
#  define VEK_CALL __stdcall
#else
#  define VEK_CALL
#endif

#if defined(_WIN32)
#  if defined(VEK_BUILDING_LIBRARY)
#    define VEK_API __declspec(dllexport)
#  elif defined(VEK_STATIC)
#    define VEK_API
#  else
#    define VEK_API __declspec(dllimport)
#  endif
#elif defined(__GNUC__)
#  define VEK_API __attribute__((visibility("default")))
#else
#  define VEK_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

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
    StatusShift             = -32,
    StatusResizeFactor      = -23,
    StatusInterpolation     = -22,
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
    int level;              /* code-path level 0..5 this record belongs to */
    const char* name;       /* e.g. "vek signal"                           */
    const char* version;    /* e.g. "0.1.0"                                */
    const char* targetIsa;  /* "plain", "SSE", "SSE2", "SSE3", "SSSE3", "SSE4.1" */
    const char* buildDate;  /* compiler's __DATE__ of the build            */
} VekLibraryVersion;

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
VEK_API void  VEK_CALL vekFree(void* ptr);

/* First address at or after ptr that is a multiple of alignBytes, which
 * must be a power of two (not checked). */
VEK_API void* VEK_CALL vekAlignPtr(void* ptr, int alignBytes);

/* ======================================================================
 * Dispatched services (all levels share one implementation)
 * ====================================================================== */

/* Same as vekMalloc and vekFree. */
VEK_API Vek8u* VEK_CALL veksMalloc_8u(int length);
VEK_API void   VEK_CALL veksFree(void* ptr);

/* Image buffers: *pStepBytes receives the row step, widthPixels times the
 * pixel size rounded up to a multiple of 32; the block holds step x height
 * bytes and is 32-byte aligned.  A null pStepBytes gives null (nothing
 * written); a width or height below 1 writes step 0 and gives null.  When
 * the step or step x height does not fit in 32 bits, step 0 is written and
 * null returned.  Release with vekiFree. */
VEK_API Vek8u*  VEK_CALL vekiMalloc_8u_C1(int widthPixels, int heightPixels, int* pStepBytes);
VEK_API Vek8u*  VEK_CALL vekiMalloc_8u_C3(int widthPixels, int heightPixels, int* pStepBytes);
VEK_API Vek16s* VEK_CALL vekiMalloc_16s_C1(int widthPixels, int heightPixels, int* pStepBytes);
VEK_API Vek16s* VEK_CALL vekiMalloc_16s_C3(int widthPixels, int heightPixels, int* pStepBytes);
VEK_API Vek16u* VEK_CALL vekiMalloc_16u_C1(int widthPixels, int heightPixels, int* pStepBytes);
VEK_API Vek16u* VEK_CALL vekiMalloc_16u_C3(int widthPixels, int heightPixels, int* pStepBytes);
VEK_API Vek32s* VEK_CALL vekiMalloc_32s_C1(int widthPixels, int heightPixels, int* pStepBytes);
VEK_API Vek32s* VEK_CALL vekiMalloc_32s_C3(int widthPixels, int heightPixels, int* pStepBytes);
VEK_API Vek32f* VEK_CALL vekiMalloc_32f_C1(int widthPixels, int heightPixels, int* pStepBytes);
VEK_API Vek32f* VEK_CALL vekiMalloc_32f_C3(int widthPixels, int heightPixels, int* pStepBytes);
VEK_API void    VEK_CALL vekiFree(void* ptr);

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
 * Float members compute the IEEE single-precision result of each element,
 * rounded to nearest.  When both operands are NaN the result is a NaN whose
 * payload may come from either operand, depending on the level.
 *
 * Sub computes src2 - src1 (in place: srcDst - src); SubC computes
 * src - value.  A destination may be the very same array as a source;
 * other overlaps are not supported.  MulC_16s forms its product in 32 bits.
 * ====================================================================== */
VEK_API VekStatus VEK_CALL veksAdd_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len, int scaleFactor);
VEK_API VekStatus VEK_CALL veksAdd_16s_ISfs(const Vek16s* pSrc, Vek16s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus VEK_CALL veksAdd_32s_Sfs(const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pDst, int len, int scaleFactor);
VEK_API VekStatus VEK_CALL veksAdd_32s_ISfs(const Vek32s* pSrc, Vek32s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus VEK_CALL veksAdd_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len);
VEK_API VekStatus VEK_CALL veksAdd_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len);

VEK_API VekStatus VEK_CALL veksSub_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len, int scaleFactor);
VEK_API VekStatus VEK_CALL veksSub_16s_ISfs(const Vek16s* pSrc, Vek16s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus VEK_CALL veksSub_32s_Sfs(const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pDst, int len, int scaleFactor);
VEK_API VekStatus VEK_CALL veksSub_32s_ISfs(const Vek32s* pSrc, Vek32s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus VEK_CALL veksSub_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len);
VEK_API VekStatus VEK_CALL veksSub_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len);

VEK_API VekStatus VEK_CALL veksMul_32s_Sfs(const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pDst, int len, int scaleFactor);
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
enum {
    StatusMirrorFlip   = -21,  /* "Invalid flip mode" */
    StatusChannelOrder = -60   /* "Wrong order of the destination channels" */
};

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
 * three destination planes sharing dstStep.  Outputs of more than 2 MiB are
 * written with stores that bypass the cache where the code path has them
 * (from SSE for 32f, from SSSE3 for 8u and 16s); the result is the same. */
VEK_API VekStatus VEK_CALL vekiCopy_8u_P3C3R(const Vek8u* const pSrc[3], int srcStep, Vek8u* pDst, int dstStep, VekiSize roi);
VEK_API VekStatus VEK_CALL vekiCopy_16s_P3C3R(const Vek16s* const pSrc[3], int srcStep, Vek16s* pDst, int dstStep, VekiSize roi);
VEK_API VekStatus VEK_CALL vekiCopy_32f_P3C3R(const Vek32f* const pSrc[3], int srcStep, Vek32f* pDst, int dstStep, VekiSize roi);
VEK_API VekStatus VEK_CALL vekiCopy_32f_C3P3R(const Vek32f* pSrc, int srcStep, Vek32f* const pDst[3], int dstStep, VekiSize roi);

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
VEK_API VekStatus VEK_CALL vekiMirror_8u_C1R(const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi, int flip);
VEK_API VekStatus VEK_CALL vekiMirror_8u_C3R(const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi, int flip);
VEK_API VekStatus VEK_CALL vekiMirror_16u_C1R(const Vek16u* pSrc, int srcStep, Vek16u* pDst, int dstStep, VekiSize roi, int flip);
VEK_API VekStatus VEK_CALL vekiMirror_16u_C3R(const Vek16u* pSrc, int srcStep, Vek16u* pDst, int dstStep, VekiSize roi, int flip);
VEK_API VekStatus VEK_CALL vekiMirror_16s_C1R(const Vek16s* pSrc, int srcStep, Vek16s* pDst, int dstStep, VekiSize roi, int flip);
VEK_API VekStatus VEK_CALL vekiMirror_16s_C3R(const Vek16s* pSrc, int srcStep, Vek16s* pDst, int dstStep, VekiSize roi, int flip);
VEK_API VekStatus VEK_CALL vekiMirror_32s_C1R(const Vek32s* pSrc, int srcStep, Vek32s* pDst, int dstStep, VekiSize roi, int flip);
VEK_API VekStatus VEK_CALL vekiMirror_32s_C3R(const Vek32s* pSrc, int srcStep, Vek32s* pDst, int dstStep, VekiSize roi, int flip);
VEK_API VekStatus VEK_CALL vekiMirror_32f_C1R(const Vek32f* pSrc, int srcStep, Vek32f* pDst, int dstStep, VekiSize roi, int flip);
VEK_API VekStatus VEK_CALL vekiMirror_32f_C3R(const Vek32f* pSrc, int srcStep, Vek32f* pDst, int dstStep, VekiSize roi, int flip);
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
VEK_API VekStatus VEK_CALL vekiSwapChannels_8u_C3R(const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi, const int dstOrder[3]);
VEK_API VekStatus VEK_CALL vekiSwapChannels_8u_C3IR(Vek8u* pSrcDst, int srcDstStep, VekiSize roi, const int dstOrder[3]);

/* Copy the srcRoi region of pSrc into the dstRoi region of pDst with its top
 * left pixel at (leftBorderWidth, topBorderHeight), and fill the rest of
 * dstRoi with the nearest source pixel: source rows are extended to the left
 * and right with their first and last pixels, and the first and last of the
 * extended rows are repeated above and below.  StatusSize when either region
 * is below 1 x 1, a border is negative, or dstRoi is narrower than
 * srcRoi.width + leftBorderWidth or lower than srcRoi.height +
 * topBorderHeight (the right and bottom borders take what is left). */
VEK_API VekStatus VEK_CALL vekiCopyReplicateBorder_32s_C1R(const Vek32s* pSrc, int srcStep, VekiSize srcRoi, Vek32s* pDst, int dstStep, VekiSize dstRoi, int topBorderHeight, int leftBorderWidth);


/* ---- Images: type conversions and per-pixel arithmetic ------------------- */


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
 * StatusSize with nothing written. */
VEK_API VekStatus VEK_CALL veksAdler32_8u(const Vek8u* pSrc, int len, Vek32u* pAdler);
VEK_API VekStatus VEK_CALL veksCRC32_8u(const Vek8u* pSrc, int len, Vek32u* pCrc);


/* ---- Run-length coding ---------------------------------------------------- */


/* ---- The deflate encoder: state and match finding ------------------------- */


/* ---- The deflate encoder: block coding and trailer ------------------------ */


#ifdef __cplusplus
}
#endif
#endif /* VEK_H */

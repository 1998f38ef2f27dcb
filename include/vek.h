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
    StatusIllegalCode       = -191, /* a bit stream holds no code of its table there */
    StatusDataUnderRun      = -124,
    StatusJpegHuffmanTable  = -64,  /* a Huffman table invalid, or without a code it needs */
    StatusJpegCoefficientRange = -63, /* a coefficient or run a JPEG code cannot carry */
    StatusOutOfBuffer       = -62,  /* a position outside its buffer, or output that does not fit */
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

/* ---- The JPEG Huffman coder's tables and states ----------------------------
 * Opaque blocks owned by the caller, like the deflate state: a GetSize
 * function gives the size, an Init function prepares the memory (any
 * 8-byte aligned block of that size). */
typedef struct VekEncodeHuffmanSpec VekEncodeHuffmanSpec;
typedef struct VekDecodeHuffmanSpec VekDecodeHuffmanSpec;
typedef struct VekEncodeHuffmanState VekEncodeHuffmanState;
typedef struct VekDecodeHuffmanState VekDecodeHuffmanState;

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
 * owns: about 840 KiB, of which the last 256 KiB is a private table that
 * only the best class uses (it lets the match finder follow its hash chains
 * four entries a load, with the same pairs; Init writes it for that class
 * alone, so the other classes never touch those pages).
 * veksEncodeLZ77Init_8u prepares a caller block, which must be
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
/* A coefficient block is 64 Vek16s in natural (row-major) order, element 0
 * the DC coefficient; blocks passed without a step are such contiguous
 * blocks.  Sample blocks are 8 x 8 with a row step in bytes.  Coefficients
 * are those of the T.81 DCT:
 *   F(u,v) = 1/4 C(u) C(v) sum f(x,y) cos((2x+1)u pi/16) cos((2y+1)v pi/16).
 *
 * The integer transforms (8-bit path) use the Loeffler-Ligtenberg-Moschytz
 * factorisation in 32-bit fixed point, two passes with 16-bit intermediates
 * carrying 3 fractional bits.  Every sum is formed modulo 2^32 and every
 * pass output is stored to 16 bits by truncation (two's-complement wrap, no
 * saturation): inputs whose coefficients or intermediates leave the 16-bit
 * range (possible for 16-bit inputs, not for 8-bit samples or coefficients
 * of 8-bit data) give wrapped, meaningless but reproducible results, the
 * same at every level.  "round" below means (sum + 2^(n-1)) >> n, shifts
 * arithmetic.
 *
 * Forward, pass 1 over the rows, pass 2 over the columns, on x0..x7:
 *   s07 = x0 + x7, d07 = x0 - x7 (and likewise s16, d16, s25, d25, s34, d34);
 *   even: e0 = s07 + s34, e3 = s07 - s34, e1 = s16 + s25, e2 = s16 - s25;
 *     X0 = e0 + e1, X4 = e0 - e1: times 8 in pass 1, round 6 in pass 2;
 *     z = 17734 (e2 + e3); X2 = z + 25080 e3; X6 = z - 60547 e2;
 *   odd: u = round12(46341 d16), v = round12(46341 d25) (sqrt 2, both
 *     passes); g = 8 d07 + 8 d34, h = 8 d07 - 8 d34;
 *     a = g + u, b' = g - u, b = h + v, a'' = v - h;
 *     z = 3406 (a + b): X1 = z - 1130 b, X7 = z - 5681 a;
 *     z = 799 (a'' + b'): X5 = z + 3218 b', X3 = z - 4816 a'';
 *   X2, X6 and X1..X7 odd round 12 in pass 1, round 21 in pass 2.
 * Against a double-precision DCT rounded half up, over random 8-bit
 * samples: peak error 1, per-coefficient mean square error at most 0.03,
 * overall mean error at most 0.005; coefficients of even row and even
 * column are exact (a flat block of s gives DC 8 s and no AC).
 * Inverse, pass 1 over the columns, pass 2 over the rows, the transpose of
 * the forward flow with 15-bit constants:
 *   even: z = 17734 (X2 + X6); t13 = z + 25080 X2; t12 = z - 60547 X6;
 *     e0 = 32768 (X0 + X4), e1 = 32768 (X0 - X4);
 *     E07 = e0 + t13, E34 = e0 - t13, E16 = e1 + t12, E25 = e1 - t12;
 *   odd: z = 27246 (X1 + X7): a = z - 45451 X7, b = z - 9041 X1;
 *     z = 6393 (X3 + X5): b' = z + 25746 X5, a'' = z - 38531 X3;
 *     g = a + b', u = a - b', h = b - a'', v = b + a'';
 *     O07 = g + h, O34 = g - h, O16 = 5793 round12(u), O25 = 5793 round12(v);
 *   x0 = E07 + O07, x7 = E07 - O07, x1 = E16 + O16, x6 = E16 - O16, ...;
 *   outputs round 12 in pass 1, round 21 in pass 2.
 * It meets the IEEE 1180-1990 accuracy test; a DC-only block D gives
 * floor((D + 4) / 8) everywhere.
 *
 * Checks of the stepped DCTs: pSrc or pDst null -> StatusNullPointer; the
 * step < 1 -> StatusStep.  The fused functions with a step check the
 * table after these (null -> StatusNullPointer); those without a step, and
 * the quantisers, return StatusNullPointer for any null pointer.  Nothing
 * is written on failure.  A block and its destination must not overlap,
 * except in the _I (in place) forms. */
VEK_API VekStatus VEK_CALL vekiDCT8x8Fwd_16s_C1R(const Vek16s* pSrc, int srcStep, Vek16s* pDst);
/* Samples 0..255 without level shift: a flat block of s gives DC 8 s. */
VEK_API VekStatus VEK_CALL vekiDCT8x8Fwd_8u16s_C1R(const Vek8u* pSrc, int srcStep, Vek16s* pDst);
/* The 16-bit results as they are (no clamp). */
VEK_API VekStatus VEK_CALL vekiDCT8x8Inv_16s_C1R(const Vek16s* pSrc, Vek16s* pDst, int dstStep);
/* Each result clamped to 0..255 (no level shift). */
VEK_API VekStatus VEK_CALL vekiDCT8x8Inv_16s8u_C1R(const Vek16s* pSrc, Vek8u* pDst, int dstStep);
/* v = result + addValue (in 32 bits); v < clipMin gives clipMin, else
 * v > clipMax gives clipMax, else v.  With clipMin > clipMax a sample is
 * clipMin where v is below clipMin and clipMax where it is not. */
VEK_API VekStatus VEK_CALL vekiDCT8x8InvLSClip_16s8u_C1R(const Vek16s* pSrc, Vek8u* pDst, int dstStep, Vek16s addValue,
                                                         Vek8u clipMin, Vek8u clipMax);

/* Quality scaling of a raw table (64 bytes in zig-zag order, as in a DQT
 * segment) in place.  quality < 50: scale = 5000 / quality, else scale =
 * 200 - 2 quality (worked in 64 bits, so every int quality is accepted);
 * each entry becomes t = (entry scale + 50) / 100 (truncating), clamped to
 * 1..255.  Quality 50 keeps the table (a zero entry still becomes 1),
 * quality 100 and above gives all ones.
 * Checks: null table -> StatusNullPointer; quality < 1 -> StatusBadArgument. */
VEK_API VekStatus VEK_CALL vekiQuantFwdRawTableInit_JPEG_8u(Vek8u* pQuantRawTable, int quality);
/* The forward table: the raw table put in natural order (entry i of the
 * result is raw entry zigzag[i]), each q replaced by 32768 / q rounded to
 * nearest, halves to even, computed as Q = floor(2^31 / q),
 * r = (Q + 32767 + 2 b) >> 16 with b bit 16 of Q (so an odd integer part
 * with a fraction of exactly 32767/65536 also rounds up).  q = 1 gives
 * 32768, q = 255 gives 129.  A zero q gives 65535; the whole table is
 * filled and the function returns StatusDivisorZero (a warning).
 * Checks: either pointer null -> StatusNullPointer. */
VEK_API VekStatus VEK_CALL vekiQuantFwdTableInit_JPEG_8u16u(const Vek8u* pQuantRawTable, Vek16u* pQuantFwdTable);
/* The inverse table: the raw table widened and put in natural order. */
VEK_API VekStatus VEK_CALL vekiQuantInvTableInit_JPEG_8u16u(const Vek8u* pQuantRawTable, Vek16u* pQuantInvTable);
/* Quantisation in place: p = table[i] (unsigned) * coef[i] in 32 bits;
 * coef[i] = p / 32768 rounded to nearest, halves to even, saturated to
 * -32768..32767. */
VEK_API VekStatus VEK_CALL vekiQuantFwd8x8_JPEG_16s_C1I(Vek16s* pSrcDst, const Vek16u* pQuantFwdTable);
/* Dequantisation in place: coef[i] * table[i], the table read as signed
 * 16-bit, saturated to -32768..32767. */
VEK_API VekStatus VEK_CALL vekiQuantInv8x8_JPEG_16s_C1I(Vek16s* pSrcDst, const Vek16u* pQuantInvTable);
/* Forward DCT of a contiguous block, then quantisation. */
VEK_API VekStatus VEK_CALL vekiDCTQuantFwd8x8_JPEG_16s_C1(const Vek16s* pSrc, Vek16s* pDst,
                                                          const Vek16u* pQuantFwdTable);
VEK_API VekStatus VEK_CALL vekiDCTQuantFwd8x8_JPEG_16s_C1I(Vek16s* pSrcDst, const Vek16u* pQuantFwdTable);
/* sample - 128, forward DCT, quantisation: an encoder's block. */
VEK_API VekStatus VEK_CALL vekiDCTQuantFwd8x8LS_JPEG_8u16s_C1R(const Vek8u* pSrc, int srcStep, Vek16s* pDst,
                                                               const Vek16u* pQuantFwdTable);
/* The 12-bit path in single precision: sample - 2048.0, the
 * Arai-Agui-Nakajima scaled DCT over the rows then the columns, each output
 * times the post-scale 1 / (8 a_u a_v) (a_0 = 1, a_k = sqrt(2) cos(k pi/16):
 * 0.125 at DC, 0.0901199803 at (0,1), 0.0956708565 at (0,2)), then times
 * the table, then rounded to nearest, halves to even, saturated to 16 bits
 * (NaN gives 0).  One 1-D pass, every operation a float operation in this
 * order (no fused multiply-add):
 *   t0 = x0 + x7, t7 = x0 - x7, t1 = x1 + x6, t6 = x1 - x6,
 *   t2 = x2 + x5, t5 = x2 - x5, t3 = x3 + x4, t4 = x3 - x4;
 *   t10 = t0 + t3, t13 = t0 - t3, t11 = t1 + t2, t12 = t1 - t2;
 *   X0 = t10 + t11, X4 = t10 - t11, z1 = (t12 + t13) * 0.707106781,
 *   X2 = t13 + z1, X6 = t13 - z1;
 *   p10 = t4 + t5, p11 = t5 + t6, p12 = t6 + t7,
 *   z5 = (p10 - p12) * 0.382683433, z2 = p10 * 0.541196100 + z5,
 *   z4 = p12 * 1.306562965 + z5, z3 = p11 * 0.707106781,
 *   z11 = t7 + z3, z13 = t7 - z3;
 *   X5 = z13 + z2, X3 = z13 - z2, X1 = z11 + z4, X7 = z11 - z4;
 *   result = ((X * post-scale) * table).
 * The sums and products round in the caller's rounding mode (identical at
 * every level in the default one); the final rounding ignores the mode. */
VEK_API VekStatus VEK_CALL vekiDCTQuantFwd8x8LS_JPEG_16u16s_C1R(const Vek16u* pSrc, int srcStep, Vek16s* pDst,
                                                                const Vek32f* pQuantFwdTable);
/* Dequantisation (saturated) into the destination, then the inverse DCT in
 * place: 16-bit results, no shift, no clamp. */
VEK_API VekStatus VEK_CALL vekiDCTQuantInv8x8_JPEG_16s_C1(const Vek16s* pSrc, Vek16s* pDst,
                                                          const Vek16u* pQuantInvTable);
VEK_API VekStatus VEK_CALL vekiDCTQuantInv8x8_JPEG_16s_C1I(Vek16s* pSrcDst, const Vek16u* pQuantInvTable);
/* Dequantisation, inverse DCT, + 128 and clamp to 0..255: a decoder's block. */
VEK_API VekStatus VEK_CALL vekiDCTQuantInv8x8LS_JPEG_16s8u_C1R(const Vek16s* pSrc, Vek8u* pDst, int dstStep,
                                                               const Vek16u* pQuantInvTable);
/* The accurate integer inverse of the libjpeg decoders (Loeffler-Ligtenberg-
 * Moschytz, 13-bit constants, 2 extra bits between the passes), so that a
 * decoder's samples equal libjpeg's and libjpeg-turbo's (its vector
 * decoders included) bit for bit; same checks, in the same order, as
 * vekiDCTQuantInv8x8LS_JPEG_16s8u_C1R.  Dequantisation: coef * table (table
 * read as signed), saturated to 16 bits.  Pass 1 down each column, then
 * pass 2 along each row of pass 1's results, the same 1-D flow on inputs
 * x0..x7 with F(c) = round(c * 8192):
 *   z1 = (x2 + x6) * F(0.541196100), e2 = z1 - x6 * F(1.847759065),
 *   e3 = z1 + x2 * F(0.765366865), e0 = (x0 + x4) * 8192 + R,
 *   e1 = (x0 - x4) * 8192 + R;
 *   t10 = e0 + e3, t13 = e0 - e3, t11 = e1 + e2, t12 = e1 - e2;
 *   z5 = (x7 + x3 + x5 + x1) * F(1.175875602),
 *   s1 = -(x7 + x1) * F(0.899976223), s2 = -(x5 + x3) * F(2.562915447),
 *   s3 = z5 - (x7 + x3) * F(1.961570560), s4 = z5 - (x5 + x1) * F(0.390180644);
 *   o0 = x7 * F(0.298631336) + s1 + s3, o1 = x5 * F(2.053119869) + s2 + s4,
 *   o2 = x3 * F(3.072711026) + s2 + s3, o3 = x1 * F(1.501321110) + s1 + s4;
 *   y0 = t10 + o3, y7 = t10 - o3, y1 = t11 + o2, y6 = t11 - o2,
 *   y2 = t12 + o1, y5 = t12 - o1, y3 = t13 + o0, y4 = t13 - o0,
 * each shifted right (arithmetic) by S and saturated to 16 bits; pass 1 has
 * S = 11, pass 2 S = 18, R = 1 << (S - 1).  The factors are 4433, 15137,
 * 6270, 9633, 7373, 20995, 16069, 3196, 2446, 16819, 25172, 12299.  All
 * sums and products are exact integers (none reaches 2^31 from 16-bit
 * inputs).  The sample is pass 2's result clamped to -128..127, plus 128.
 * Left to us, beyond what a real image's coefficients reach: libjpeg's
 * vector code wraps the dequantised values and some 16-bit sums (x0 + x4,
 * x7 + x3, ...), its scalar code keeps pass 1's results in 32 bits; here the
 * dequantised values and each pass's results saturate to 16 bits and the
 * rest is exact. */
VEK_API VekStatus VEK_CALL vekiDCTQuantInv8x8LS_LLM_JPEG_16s8u_C1R(const Vek16s* pSrc, Vek8u* pDst, int dstStep,
                                                                   const Vek16u* pQuantInvTable);
/* The 12-bit path: (float(coef) * table) * pre-scale a_u a_v / 8 (0.125
 * at DC, 0.173379987 at (0,1)), the Arai-Agui-Nakajima scaled inverse DCT
 * over the columns then the rows, + 2048.0, rounded to nearest (halves to
 * even; NaN gives 0) and clamped to 0..4095.  One 1-D pass, in order:
 *   t10 = x0 + x4, t11 = x0 - x4, t13 = x2 + x6,
 *   t12 = (x2 - x6) * 1.414213562 - t13;
 *   e0 = t10 + t13, e3 = t10 - t13, e1 = t11 + t12, e2 = t11 - t12;
 *   z13 = x5 + x3, z10 = x5 - x3, z11 = x1 + x7, z12 = x1 - x7;
 *   o7 = z11 + z13, r11 = (z11 - z13) * 1.414213562,
 *   z5 = (z10 + z12) * 1.847759065, r10 = z5 - z12 * 1.082392200,
 *   r12 = z5 - z10 * 2.613125930, o6 = r12 - o7, o5 = r11 - o6, o4 = r10 - o5;
 *   y0 = e0 + o7, y7 = e0 - o7, y1 = e1 + o6, y6 = e1 - o6,
 *   y2 = e2 + o5, y5 = e2 - o5, y3 = e3 + o4, y4 = e3 - o4. */
VEK_API VekStatus VEK_CALL vekiDCTQuantInv8x8LS_JPEG_16s16u_C1R(const Vek16s* pSrc, Vek16u* pDst, int dstStep,
                                                                const Vek32f* pQuantInvTable);
/* DC only: v = ((coef[0] * table[0]) >> 3) + 128 (table read as signed; the
 * shift floors, no rounding term), clamped to 0..255, in all 64 samples. */
VEK_API VekStatus VEK_CALL vekiDCTQuantInv8x8LS_1x1_JPEG_16s8u_C1R(const Vek16s* pSrc, Vek8u* pDst, int dstStep,
                                                                   const Vek16u* pQuantInvTable);
/* The 8 x 8 block of the top-left 2 x 2 (4 x 4) coefficients, the others
 * taken as zero: the same integer inverse DCT as
 * vekiDCTQuantInv8x8LS_JPEG_16s8u_C1R, so the output equals what that
 * function gives for a block whose other coefficients are zero (IEEE 1180
 * accuracy, rounded to integers before the + 128 and the clamp). */
VEK_API VekStatus VEK_CALL vekiDCTQuantInv8x8LS_2x2_JPEG_16s8u_C1R(const Vek16s* pSrc, Vek8u* pDst, int dstStep,
                                                                   const Vek16u* pQuantInvTable);
VEK_API VekStatus VEK_CALL vekiDCTQuantInv8x8LS_4x4_JPEG_16s8u_C1R(const Vek16s* pSrc, Vek8u* pDst, int dstStep,
                                                                   const Vek16u* pQuantInvTable);
/* Scaled-down decoding: each sample is the mean of a 4 x 4 group of the
 * full inverse (factor 4), + 128, clamped to 0..255.  After dequantisation,
 * pass 1 over columns 0, 1, 3, 5, 7: S = 59384 x1 - 20853 x3 + 13932 x5 -
 * 11812 x7, top = (65536 x0 + S + 4096) >> 13, bottom = (65536 x0 - S +
 * 4096) >> 13; pass 2 over the two rows, the same S of elements 1, 3, 5, 7:
 * (65536 e0 +- S + 2^21) >> 22.  Intermediates are 16-bit as in the full
 * inverse.  A DC-only block D gives floor((D + 4) / 8). */
VEK_API VekStatus VEK_CALL vekiDCTQuantInv8x8To2x2LS_JPEG_16s8u_C1R(const Vek16s* pSrc, Vek8u* pDst, int dstStep,
                                                                    const Vek16u* pQuantInvTable);
/* Factor 2: each sample the mean of a 2 x 2 group.  Pass 1 over the
 * columns: E = 32768 x0 +- (30274 x2 - 12540 x6), odd parts
 * 41991 x1 + 14745 x3 - 9852 x5 - 8352 x7 and
 * 17393 x1 - 35598 x3 + 23786 x5 - 3460 x7, outputs E0 + O0, E1 + O1,
 * E1 - O1, E0 - O0 round 12; pass 2 over the 4 rows alike, round 21. */
VEK_API VekStatus VEK_CALL vekiDCTQuantInv8x8To4x4LS_JPEG_16s8u_C1R(const Vek16s* pSrc, Vek8u* pDst, int dstStep,
                                                                    const Vek16u* pQuantInvTable);
/* dst = clamp(src + 128, 0, 255) and dst = src - 128 over a region.
 * Checks, in this order: pSrc null -> StatusNullPointer; srcStep < 1 ->
 * StatusStep; pDst null -> StatusNullPointer; dstStep < 1 -> StatusStep;
 * roiSize.width or height < 1 -> StatusSize. */
VEK_API VekStatus VEK_CALL vekiAdd128_JPEG_16s8u_C1R(const Vek16s* pSrc, int srcStep, Vek8u* pDst, int dstStep,
                                                     VekiSize roiSize);
VEK_API VekStatus VEK_CALL vekiSub128_JPEG_8u16s_C1R(const Vek8u* pSrc, int srcStep, Vek16s* pDst, int dstStep,
                                                     VekiSize roiSize);

/* ======================================================================
 * JPEG: lossless prediction and TIFF rows
 * Lossless JPEG row prediction and reconstruction; TIFF PackBits and byte planes.
 * ====================================================================== */
/* Lossless JPEG rows (ITU-T T.81 lossless process): width Vek16s samples a
 * row; the caller keeps the previous row.  A later row predicts sample i
 * from Ra = the sample to its left in the row, Rb = the sample above
 * (pPrevRow[i]) and Rc = the sample above-left (pPrevRow[i - 1]):
 *   1: Ra   2: Rb   3: Rc   4: Ra + Rb - Rc   5: Ra + ((Rb - Rc) >> 1)
 *   6: Rb + ((Ra - Rc) >> 1)   7: (Ra + Rb) >> 1
 * worked on the sign-extended 16-bit samples in 32 bits, >> an arithmetic
 * shift (so for samples of 0x8000 and above, read as negative, predictors
 * 5 to 7 differ from T.81's unsigned arithmetic).  Sample 0 of a later row
 * always predicts from above (pPrevRow[0]), for every predictor.  The first
 * row predicts sample 0 from 2^(precision - pointTransform - 1), the shift
 * count taken modulo 32 and the power wrapped to 16 bits (so a point
 * transform at or above the precision is accepted and the count 15 gives
 * -32768, counts 16..31 give 0), and every other sample from its left
 * neighbour.
 *
 * Diff: pDst[i] = pSrc[i] - prediction.  Reconstruct: pDst[i] = pSrc[i] +
 * prediction, Ra being the reconstructed pDst[i - 1].  Both wrap modulo
 * 2^16, without saturation.  The rows must not overlap, except that a
 * reconstruction may write over its differences (pDst == pSrc).
 * Checks, first rows: a null pSrc or pDst -> StatusNullPointer; width < 1
 * -> StatusSize; precision outside 2..16 or pointTransform < 0 ->
 * StatusBadArgument.  Later rows: a null pSrc, pPrevRow or pDst ->
 * StatusNullPointer; width < 1 -> StatusSize; predictor outside 1..7 ->
 * StatusBadArgument.  Nothing is written on failure. */
VEK_API VekStatus VEK_CALL vekiDiffPredFirstRow_JPEG_16s_C1(const Vek16s* pSrc, Vek16s* pDst, int width, int precision,
                                                            int pointTransform);
VEK_API VekStatus VEK_CALL vekiDiffPredRow_JPEG_16s_C1(const Vek16s* pSrc, const Vek16s* pPrevRow, Vek16s* pDst,
                                                       int width, int predictor);
VEK_API VekStatus VEK_CALL vekiReconstructPredFirstRow_JPEG_16s_C1(const Vek16s* pSrc, Vek16s* pDst, int width,
                                                                   int precision, int pointTransform);
VEK_API VekStatus VEK_CALL vekiReconstructPredRow_JPEG_16s_C1(const Vek16s* pSrc, const Vek16s* pPrevRow, Vek16s* pDst,
                                                              int width, int predictor);

/* TIFF PackBits rows.  A packet is a control byte n and its data: n = 0..127
 * is followed by n + 1 literal bytes, n = -127..-1 by one byte repeated
 * 1 - n times, n = -128 is no operation.
 *
 * vekiPackBitsRow_TIFF_8u_C1 codes the whole row pSrc[0..srcLen) and
 * appends the packets at pDst + *pDstCurrPos; dstLenBytes is the length of
 * the whole buffer from pDst (the rows written before included), not the
 * room left.  From the start of the row: a run of 2 to 128 equal bytes is a
 * replicate packet (a longer run is cut into runs of 128 and the rest); the
 * other bytes gather into a literal packet until two equal neighbours start
 * a run, the row ends or 128 bytes are gathered.  A run of exactly 2 bytes
 * between two literals is folded: when the packet before last is a literal
 * of L bytes with L + 2 < 128 (the limit counts bytes) and the last packet
 * is a run of 2, the literal bytes that follow join that earlier literal
 * with the run's two bytes, up to 128 bytes in all ("A", "BB", "CD" is one
 * literal packet of 5 bytes).  A run of 2 that ends the row or is followed
 * by a run stays a packet.  Every packet is checked against dstLenBytes
 * before any of its bytes is written, a fold included; a packet that fits
 * exactly is written.  On success *pDstCurrPos is the new total length;
 * when a packet does not fit, *pDstCurrPos is the end of the last whole
 * packet and the result is StatusDataUnderRun (the bytes before it are a
 * valid, shorter stream).  *pDstCurrPos outside 0..dstLenBytes is a full
 * output too: StatusDataUnderRun with nothing written.
 * Checks: a null pSrc, pDstCurrPos or pDst -> StatusNullPointer; srcLen < 1
 * or dstLenBytes < 1 -> StatusSize.
 *
 * vekiUnpackBitsRow_TIFF_8u_C1 decodes packets from pSrc + *pSrcCurrPos
 * into pDst until dstLen bytes are produced, then stores the position after
 * the last packet read in *pSrcCurrPos and returns StatusOk; it stops as
 * soon as the row is full, so a -128 byte after the row's last packet is
 * not consumed, and -128 bytes before are consumed and produce nothing.  A
 * packet is decoded whole or not at all: when the source ends
 * (srcLenBytes) before the row is full, or a packet would need bytes past
 * srcLenBytes or write past dstLen, the position of that packet (or
 * srcLenBytes) is stored, the bytes of the packets before it stay written,
 * and the result is StatusDataUnderRun.  A negative *pSrcCurrPos gives
 * StatusDataUnderRun with nothing read or written.
 * Checks: a null pSrc, pSrcCurrPos or pDst -> StatusNullPointer;
 * srcLenBytes < 1 or dstLen < 1 -> StatusSize. */
VEK_API VekStatus VEK_CALL vekiPackBitsRow_TIFF_8u_C1(const Vek8u* pSrc, int srcLen, Vek8u* pDst, int* pDstCurrPos,
                                                      int dstLenBytes);
VEK_API VekStatus VEK_CALL vekiUnpackBitsRow_TIFF_8u_C1(const Vek8u* pSrc, int* pSrcCurrPos, int srcLenBytes,
                                                        Vek8u* pDst, int dstLen);

/* TIFF 16-bit rows and their two byte planes: plane 0 holds the high bytes,
 * plane 1 the low bytes of the len samples (Join: pDst[i] = pSrc[0][i] * 256
 * + pSrc[1][i]; Split the inverse).  A null plane array, plane pointer or
 * 16-bit row -> StatusNullPointer; len < 1 -> StatusStep (deliberately the
 * step status for a bad length). */
VEK_API VekStatus VEK_CALL vekiJoinRow_TIFF_8u16u_C1(const Vek8u* const pSrc[2], Vek16u* pDst, int len);
VEK_API VekStatus VEK_CALL vekiSplitRow_TIFF_16u8u_C1(const Vek16u* pSrc, Vek8u* const pDst[2], int len);

/* ======================================================================
 * JPEG: colour conversion, per-MCU level shift and chroma sampling
 * Colour conversions, per-MCU conversions and chroma resampling.
 * ====================================================================== */
/* Every member is exact integer arithmetic and gives the same bits at every
 * level.  Images follow the image model: a pointer to the first pixel of the
 * region, a row step in bytes, roi.width pixels by roi.height rows.  P3 / P4
 * forms take an array of three (four) plane pointers that share one step.
 * No alignment is needed.  Sources and destinations must not overlap.
 *
 * Checks, in this order, for every member (note: steps before sizes):
 *   1. a null image pointer, plane-pointer array or plane pointer
 *      (plane 0, then 1, 2, 3) -> StatusNullPointer;
 *   2. a step below 1 -> StatusStep (even when the region is empty);
 *   3. roi.width or roi.height below 1 -> StatusSize, then what the member
 *      states below.
 * Nothing is written on failure; otherwise StatusOk.
 *
 * Forward (R, G, B -> Y, Cb, Cr), sums in 32 bits, never negative, so the
 * results lie in 0..255 without clamping:
 *   Y  = (19595 R + 38470 G + 7471 B + 32768) >> 16
 *   Cb = (-11059 R - 21709 G + 32768 B + 8421375) >> 16
 *   Cr = (32768 R + 8421375 - 27439 G - 5329 B) >> 16
 * (8421375 = 128 * 65536 + 32767).  RGB (255, 255, 255) gives (255, 128,
 * 128); (0, 0, 255) gives Cb 255.
 * Inverse (Y, Cb, Cr -> R, G, B), each result clamped to 0..255:
 *   R = Y + round(1.402 (Cr - 128))
 *   G = Y + ((-22554 (Cb - 128) + 32768 - 46802 (Cr - 128)) >> 16)   (arithmetic shift)
 *   B = Y + round(1.772 (Cb - 128))
 * where round() goes to the nearest integer, exact halves away from zero
 * (1.772 * -125 = -221.5 gives -222), as the usual 256-entry tables do.
 * YCbCr (0, 0, 0) gives RGB (0, 135, 0).
 * Every other member reads or writes another order or layout, or adds
 * chroma sampling, and computes through these two sums bit for bit.
 */

/* The fixed pair: interleaved R, G, B to the planes Y, Cb, Cr and back. */
VEK_API VekStatus VEK_CALL vekiRGBToYCbCr_JPEG_8u_C3P3R(const Vek8u* pSrc, int srcStep, Vek8u* const pDst[3],
                                                        int dstStep, VekiSize roi);
VEK_API VekStatus VEK_CALL vekiYCbCrToRGB_JPEG_8u_P3C3R(const Vek8u* const pSrc[3], int srcStep, Vek8u* pDst,
                                                        int dstStep, VekiSize roi);

/* The same sums on other orders and layouts: B, G, R interleaved; three
 * planes to three planes; the Y plane alone (RGBToY: the forward Y). */
VEK_API VekStatus VEK_CALL vekiBGRToYCbCr_JPEG_8u_C3P3R(const Vek8u* pSrc, int srcStep, Vek8u* const pDst[3],
                                                        int dstStep, VekiSize roi);
VEK_API VekStatus VEK_CALL vekiYCbCrToBGR_JPEG_8u_P3C3R(const Vek8u* const pSrc[3], int srcStep, Vek8u* pDst,
                                                        int dstStep, VekiSize roi);
VEK_API VekStatus VEK_CALL vekiRGBToYCbCr_JPEG_8u_P3R(const Vek8u* const pSrc[3], int srcStep, Vek8u* const pDst[3],
                                                      int dstStep, VekiSize roi);
VEK_API VekStatus VEK_CALL vekiYCbCrToRGB_JPEG_8u_P3R(const Vek8u* const pSrc[3], int srcStep, Vek8u* const pDst[3],
                                                      int dstStep, VekiSize roi);
VEK_API VekStatus VEK_CALL vekiRGBToY_JPEG_8u_P3C1R(const Vek8u* const pSrc[3], int srcStep, Vek8u* pDst, int dstStep,
                                                    VekiSize roi);
VEK_API VekStatus VEK_CALL vekiRGBToY_JPEG_8u_C3C1R(const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep,
                                                    VekiSize roi);
VEK_API VekStatus VEK_CALL vekiBGRToY_JPEG_8u_C3C1R(const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep,
                                                    VekiSize roi);

/* Packed pixels: one 16-bit word a pixel (little-endian in memory), blue
 * in bits 0-4, green in bits 5-9 (555) or 5-10 (565), red in the next five
 * bits; bit 15 of a 555 word is ignored when read and written as 0.  A
 * field widens to 8 bits by repeating its top bits below it (5 bits:
 * (v << 3) | (v >> 2), so 31 -> 255; 6 bits: (v << 2) | (v >> 4)); the
 * inverse narrows each clamped channel by dropping its low bits (R >> 3,
 * G >> 2 or >> 3), so a widened value narrows back to itself.  Steps are in
 * bytes (two a pixel). */
VEK_API VekStatus VEK_CALL vekiBGR555ToYCbCr_JPEG_16u8u_C3P3R(const Vek16u* pSrc, int srcStep, Vek8u* const pDst[3],
                                                              int dstStep, VekiSize roi);
VEK_API VekStatus VEK_CALL vekiBGR565ToYCbCr_JPEG_16u8u_C3P3R(const Vek16u* pSrc, int srcStep, Vek8u* const pDst[3],
                                                              int dstStep, VekiSize roi);
VEK_API VekStatus VEK_CALL vekiYCbCrToBGR555_JPEG_8u16u_P3C3R(const Vek8u* const pSrc[3], int srcStep, Vek16u* pDst,
                                                              int dstStep, VekiSize roi);
VEK_API VekStatus VEK_CALL vekiYCbCrToBGR565_JPEG_8u16u_P3C3R(const Vek8u* const pSrc[3], int srcStep, Vek16u* pDst,
                                                              int dstStep, VekiSize roi);

/* CMYK <-> YCCK, the convention of Adobe JPEG files: C, M, Y are inverted
 * (R = 255 - C, G = 255 - M, B = 255 - Y) and converted by the forward sums
 * into planes Y, Cb, Cr; K goes to the fourth plane unchanged.  The inverse
 * converts Y, Cb, Cr by the inverse sums and writes C = 255 - R,
 * M = 255 - G, Y = 255 - B, and K from the fourth plane. */
VEK_API VekStatus VEK_CALL vekiCMYKToYCCK_JPEG_8u_C4P4R(const Vek8u* pSrc, int srcStep, Vek8u* const pDst[4],
                                                        int dstStep, VekiSize roi);
VEK_API VekStatus VEK_CALL vekiYCCKToCMYK_JPEG_8u_P4C4R(const Vek8u* const pSrc[4], int srcStep, Vek8u* pDst,
                                                        int dstStep, VekiSize roi);

/* 4:2:2 pixel pairs in YUYV order (Y0 Cb Y1 Cr) to interleaved R, G, B by
 * the inverse sums; both pixels of a pair take its Cb and Cr (repeated, not
 * filtered).  A source row is read in whole pairs: 4 * ((roi.width + 1) / 2)
 * bytes, so an odd width reads the last pair whole and ignores its Y1. */
VEK_API VekStatus VEK_CALL vekiYCbCr422ToRGB_JPEG_8u_C2C3R(const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep,
                                                           VekiSize roi);

/* Chroma sampling by two, one plane.  The full-resolution region is W x H;
 * the subsampled one must be ((W + 1) / 2) x H for H2V1 and
 * ((W + 1) / 2) x ((H + 1) / 2) for H2V2, or StatusSize (after the common
 * checks).  Down: srcRoi is the full region and dstRoi the subsampled one;
 * up: the other way round.  Edges are replicated, as JPEG codecs do: an odd
 * W (H) pairs the last column (row) with itself, the smooth filter takes an
 * edge sample as its own outer neighbour, and an odd W (H) gets the first W
 * (H) outputs of the doubled row (column).  A band of rows can be worked in
 * one call per band: each output row depends only on the rows named here.
 *
 * SampleDown: each output is the mean of its 2 x 1 (2 x 2) group with an
 * alternating bias so that the rounding does not drift: output column i of
 * H2V1 is (a + b + (i & 1)) >> 1, of H2V2 (a + b + c + d + 1 + (i & 1)) >> 2,
 * the bias restarting at every row.
 * SampleUp (plain): every sample repeated into its 2 x 1 (2 x 2) group.
 * SampleUp...Smooth: the triangle filter of JPEG decoders, 3/4 of the nearer
 * and 1/4 of the farther input sample in each direction:
 *   H2V1: out[2i] = (3 in[i] + in[i-1] + 1) >> 2, out[2i+1] = (3 in[i] + in[i+1] + 2) >> 2;
 *   H2V2: output row 2j has row j as the nearer and row j - 1 as the farther
 *     input row, output row 2j + 1 row j + 1 as the farther; with the column
 *     sums cs[i] = 3 near[i] + far[i],
 *     out[2i] = (3 cs[i] + cs[i-1] + 8) >> 4, out[2i+1] = (3 cs[i] + cs[i+1] + 7) >> 4.
 * These are the results of libjpeg-turbo's "fancy" upsampling, bias for
 * bias, including its one exception: a subsampled width of 1 or 2 is
 * upsampled plainly (repeated), in both directions.
 * vekiSampleUpRowH2V2Smooth_JPEG_8u_C1 makes one output row of H2V2 from its
 * nearer and farther input rows (at the top and bottom edges the farther row
 * is the nearer one), for decoders that keep only a few chroma rows: a
 * decoder working MCU row by MCU row calls it for each output row once the
 * chroma row below is decoded.  Checks: a null pointer (StatusNullPointer),
 * then srcWidth or dstWidth below 1 or
 * srcWidth other than (dstWidth + 1) / 2 (StatusSize). */
VEK_API VekStatus VEK_CALL vekiSampleDownH2V1_JPEG_8u_C1R(const Vek8u* pSrc, int srcStep, VekiSize srcRoi, Vek8u* pDst,
                                                          int dstStep, VekiSize dstRoi);
VEK_API VekStatus VEK_CALL vekiSampleDownH2V2_JPEG_8u_C1R(const Vek8u* pSrc, int srcStep, VekiSize srcRoi, Vek8u* pDst,
                                                          int dstStep, VekiSize dstRoi);
VEK_API VekStatus VEK_CALL vekiSampleUpH2V1_JPEG_8u_C1R(const Vek8u* pSrc, int srcStep, VekiSize srcRoi, Vek8u* pDst,
                                                        int dstStep, VekiSize dstRoi);
VEK_API VekStatus VEK_CALL vekiSampleUpH2V2_JPEG_8u_C1R(const Vek8u* pSrc, int srcStep, VekiSize srcRoi, Vek8u* pDst,
                                                        int dstStep, VekiSize dstRoi);
VEK_API VekStatus VEK_CALL vekiSampleUpH2V1Smooth_JPEG_8u_C1R(const Vek8u* pSrc, int srcStep, VekiSize srcRoi,
                                                              Vek8u* pDst, int dstStep, VekiSize dstRoi);
VEK_API VekStatus VEK_CALL vekiSampleUpH2V2Smooth_JPEG_8u_C1R(const Vek8u* pSrc, int srcStep, VekiSize srcRoi,
                                                              Vek8u* pDst, int dstStep, VekiSize dstRoi);
VEK_API VekStatus VEK_CALL vekiSampleUpRowH2V2Smooth_JPEG_8u_C1(const Vek8u* pSrcNear, const Vek8u* pSrcFar,
                                                                int srcWidth, Vek8u* pDst, int dstWidth);

/* One MCU (minimum coded unit) between interleaved 8-bit pixels and its
 * level-shifted 16-bit blocks, for a baseline encoder or decoder that works
 * MCU by MCU straight from and into the image.
 *   444: 8 x 8 pixels, one Y block;
 *   422: 16 x 8 pixels, two Y blocks (left, right);
 *   411: 16 x 16 pixels (2 x 2 chroma subsampling, often called 4:2:0), four
 *        Y blocks (top left, top right, bottom left, bottom right).
 * pDstMCU[0] / pSrcMCU[0] holds the Y blocks one after the other, 64
 * samples each; [1] and [2] one Cb and one Cr block.  A block is 64 Vek16s
 * in natural row-major order (row r, column c at 8r + c), as the DCT takes
 * it.  The image is read (written) from pSrc (pDst), the MCU's top left
 * pixel, row after row srcStep (dstStep) bytes apart.
 * Forward: each pixel converted by the forward sums; chroma averaged over
 * each 2 x 1 (422) or 2 x 2 (411) group as by vekiSampleDown*; then 128
 * subtracted from every sample (range -128..127).
 * Inverse: 128 added to every sample and the result clamped to 0..255 (any
 * Vek16s is accepted); every pixel takes the chroma of its group (repeated;
 * for the smooth filter of vekiSampleUp*Smooth, go through planes instead)
 * and is converted by the inverse sums.
 * At the right and bottom edges of an image whose size is not a whole
 * number of MCUs, give the MCU pixels by replicating the last column and
 * row into a small buffer (as JPEG encoders pad), and keep only the pixels
 * inside the image on the way back.
 * Checks: a null image pointer, block array or block pointer ->
 * StatusNullPointer; a step below 1 -> StatusStep. */
VEK_API VekStatus VEK_CALL vekiRGBToYCbCr444LS_MCU_8u16s_C3P3R(const Vek8u* pSrc, int srcStep,
                                                               Vek16s* const pDstMCU[3]);
VEK_API VekStatus VEK_CALL vekiRGBToYCbCr422LS_MCU_8u16s_C3P3R(const Vek8u* pSrc, int srcStep,
                                                               Vek16s* const pDstMCU[3]);
VEK_API VekStatus VEK_CALL vekiRGBToYCbCr411LS_MCU_8u16s_C3P3R(const Vek8u* pSrc, int srcStep,
                                                               Vek16s* const pDstMCU[3]);
VEK_API VekStatus VEK_CALL vekiYCbCr444ToRGBLS_MCU_16s8u_P3C3R(const Vek16s* const pSrcMCU[3], Vek8u* pDst,
                                                               int dstStep);
VEK_API VekStatus VEK_CALL vekiYCbCr422ToRGBLS_MCU_16s8u_P3C3R(const Vek16s* const pSrcMCU[3], Vek8u* pDst,
                                                               int dstStep);
VEK_API VekStatus VEK_CALL vekiYCbCr411ToRGBLS_MCU_16s8u_P3C3R(const Vek16s* const pSrcMCU[3], Vek8u* pDst,
                                                               int dstStep);

/* One 4:2:2 MCU of YUYV pixel pairs (16 x 8 pixels, 32 bytes a row) split
 * into its two Y blocks, one Cb and one Cr block, 128 subtracted, as the
 * MCU members above; Join is the inverse (128 added, clamped to 0..255).
 * No colour conversion: the pixels are Y, Cb, Cr already. */
VEK_API VekStatus VEK_CALL vekiSplit422LS_MCU_8u16s_C2P3R(const Vek8u* pSrc, int srcStep, Vek16s* const pDstMCU[3]);
VEK_API VekStatus VEK_CALL vekiJoin422LS_MCU_16s8u_P3C2R(const Vek16s* const pSrcMCU[3], Vek8u* pDst, int dstStep);

/* ======================================================================
 * JPEG: Huffman coding
 * Baseline and progressive Huffman coding of 8x8 blocks.
 * ======================================================================
 * The entropy coding of T.81 (8-bit sequential and progressive DCT, Annexes
 * C, F.1.2, F.2.2 and G), one 8x8 block per call.  A block is 64 Vek16s
 * coefficients in natural (row-major) order, element 0 the DC coefficient,
 * as the DCT functions produce and take them; the coders reorder to
 * zig-zag themselves.
 *
 * Tables.  A table is given as a DHT segment holds it: pListBits, 16 counts
 * BITS[1..16] (the number of codes of each length 1..16), and pListVals,
 * HUFFVAL, the symbols in order of increasing code length (as many as the
 * counts add up to).  Codes are assigned canonically (T.81 C.2).  A table
 * whose counts add up to more than 256, or whose codes of some length do
 * not fit in that many bits without an all-ones code, is rejected with
 * StatusJpegHuffmanTable; so is an encoder table that lists a symbol twice.
 * The decoder's table resolves codes of up to 11 bits in one look-up, and
 * run/size codes together with their value bits where both fit in 11.
 *
 * Streams.  The encoders write the bytes of an entropy-coded segment, a
 * 0x00 stuffed after every 0xFF; the decoders read them.  The caller owns
 * the buffer and the position in it (*pDstCurrPos, *pSrcCurrPos: the next
 * byte to write or read), and a state that carries the bits between calls:
 * the writer's pending bits (fewer than 32), the reader's look-ahead (up to
 * 64 bits), and in progressive AC scans the end-of-band run (and, for
 * successive approximation encoding, up to 1000 correction bits that belong
 * to it).  One state serves one scan of one stream; Init makes it empty.
 *   Encoding: the last call of a scan, or the call before a restart
 *   marker, has bFlushState non-zero: it codes no block (pSrc and pLastDC
 *   are not read and may be null), sends a pending end-of-band run, pads the
 *   last byte with 1 bits and leaves the state empty.  The caller then
 *   writes the marker itself.
 *   Decoding: the reader stops at a marker (0xFF followed by anything but
 *   0x00; fill bytes 0xFF before it are skipped), does not consume it, sets
 *   *pMarker to the marker's code byte (0xD0..0xD7 for RSTn, 0xD9 for EOI,
 *   ...) and otherwise leaves *pMarker as it was.  At a restart marker the
 *   caller skips the two marker bytes, calls DecodeHuffmanStateInit (the
 *   bits left before the marker are padding) and resets its DC predictors.
 *   The reader takes whole bytes ahead, up to eight, so after the last
 *   block of an interval *pSrcCurrPos rests on the marker.
 * DC predictors: *pLastDC is the previous block's DC value of the same
 * component (0 at the start of a scan and after a restart); the baseline
 * encoder codes pSrc[0] - *pLastDC and the decoder adds the difference,
 * wrapping to 16 bits.  In a DC first scan the predictor holds values after
 * the point transform (pSrc[0] >> Al, arithmetic shift).
 *
 * Failure leaves everything as it was: a call that returns an error has
 * written nothing, not the output, not the block, not the position, not the
 * state, not the predictor.  An encoder stages its bytes and copies them
 * only when the whole call fits; a decoder decodes into a copy of the block
 * and commits it only when the block came from bits the input holds.  So
 * the decoders never read past srcLenBytes nor write past the 64
 * coefficients, whatever the input.
 *
 * Checks, in order (the first failing returns):
 *   a required pointer null -> StatusNullPointer;
 *   dstLenBytes or srcLenBytes < 1 -> StatusSize;
 *   the position outside 0..length -> StatusOutOfBuffer;
 *   Al outside 0..13, or for AC scans not 1 <= Ss <= Se <= 63 ->
 *     StatusBadArgument.
 * Then, while coding:
 *   a DC difference of more than 11 bits (|d| > 2047) or an AC value of
 *   more than 10 bits after the point transform (|v| > 1023) ->
 *   StatusJpegCoefficientRange (the 8-bit limits; the counters check them
 *   too, so a counted block also encodes);
 *   a symbol the encoder table has no code for -> StatusJpegHuffmanTable;
 *   the output of the call does not fit in dstLenBytes - *pDstCurrPos ->
 *   StatusOutOfBuffer (at most 1024 bytes per call; a block takes 8 bytes
 *   or so at usual qualities);
 *   decoding: no code of the table at this point of the stream (also a
 *   refinement code whose size is not 1) -> StatusIllegalCode; a size
 *   category above 15, or a run past the end of the band ->
 *   StatusJpegCoefficientRange; the block needs bits the input does not
 *   hold before a marker or its end -> StatusDataUnderRun (with more
 *   input the same call succeeds: a stream may arrive in pieces).
 * The decoders accept every size category up to 15, as a 16-bit
 * coefficient can take; decoded values wrap to 16 bits. */
VEK_API VekStatus VEK_CALL vekiEncodeHuffmanSpecGetSize_JPEG_8u(int* pSize);
VEK_API VekStatus VEK_CALL vekiEncodeHuffmanSpecInit_JPEG_8u(const Vek8u* pListBits, const Vek8u* pListVals,
                                                             VekEncodeHuffmanSpec* pEncHuffSpec);
VEK_API VekStatus VEK_CALL vekiDecodeHuffmanSpecGetSize_JPEG_8u(int* pSize);
VEK_API VekStatus VEK_CALL vekiDecodeHuffmanSpecInit_JPEG_8u(const Vek8u* pListBits, const Vek8u* pListVals,
                                                             VekDecodeHuffmanSpec* pDecHuffSpec);
VEK_API VekStatus VEK_CALL vekiEncodeHuffmanStateGetSize_JPEG_8u(int* pSize);
VEK_API VekStatus VEK_CALL vekiEncodeHuffmanStateInit_JPEG_8u(VekEncodeHuffmanState* pEncHuffState);
VEK_API VekStatus VEK_CALL vekiDecodeHuffmanStateGetSize_JPEG_8u(int* pSize);
VEK_API VekStatus VEK_CALL vekiDecodeHuffmanStateInit_JPEG_8u(VekDecodeHuffmanState* pDecHuffState);
/* The Init functions: a null pointer -> StatusNullPointer; a block not
 * aligned for the structure (8 bytes suffice) -> StatusBadArgument; a table
 * as above -> StatusJpegHuffmanTable. */

/* Optimal table from symbol counts (T.81 K.2): code lengths by joining the
 * two least frequent entries again and again (ties: the larger symbol),
 * with a reserved symbol of count 1 so that no code is all ones, lengths
 * limited to 16 by K.3, the reserved code removed; symbols listed by code
 * length, then by value.  Writes the 16 counts to pListBits and 256 bytes
 * to pListVals (the symbols, then zeros).  Symbols of count 0 get no code;
 * all counts 0 give an empty table.  A negative count -> StatusBadArgument. */
VEK_API VekStatus VEK_CALL vekiEncodeHuffmanRawTableInit_JPEG_8u(const int pStatistics[256], Vek8u* pListBits,
                                                                 Vek8u* pListVals);

/* Baseline: the DC difference (size category from the DC table, then its
 * bits), then the AC coefficients in zig-zag order as run/size symbols
 * (0xF0 for sixteen zeros, 0x00 for the end of the block when coefficient
 * 63 is zero).  Updates *pLastDC to pSrc[0]. */
VEK_API VekStatus VEK_CALL vekiEncodeHuffman8x8_JPEG_16s1u_C1(const Vek16s* pSrc, Vek8u* pDst, int dstLenBytes,
                                                              int* pDstCurrPos, Vek16s* pLastDC,
                                                              const VekEncodeHuffmanSpec* pDcTable,
                                                              const VekEncodeHuffmanSpec* pAcTable,
                                                              VekEncodeHuffmanState* pEncHuffState, int bFlushState);
/* Progressive scans (T.81 G.1.2), point transform Al:
 *   DCFirst: the difference of pSrc[0] >> Al from *pLastDC, coded as the
 *     baseline DC; *pLastDC = pSrc[0] >> Al.
 *   DCRefine: one bit, bit Al of pSrc[0]; no table.
 *   ACFirst: the band Ss..Se (zig-zag positions) of the values after the
 *     point transform (magnitude >> Al, sign kept); blocks with nothing
 *     left in the band join an end-of-band run (symbol 16*n, n extra bits;
 *     sent before the next coded value, at 32767 blocks, or on flush).
 *   ACRefine: bit Al of the band: coefficients that become nonzero are
 *     coded as run/1 with their sign bit; those nonzero before send their
 *     bit as a correction bit after the next code, or with the end-of-band
 *     run (sent also when its held correction bits pass 937). */
VEK_API VekStatus VEK_CALL vekiEncodeHuffman8x8_DCFirst_JPEG_16s1u_C1(const Vek16s* pSrc, Vek8u* pDst, int dstLenBytes,
                                                                      int* pDstCurrPos, Vek16s* pLastDC, int Al,
                                                                      const VekEncodeHuffmanSpec* pDcTable,
                                                                      VekEncodeHuffmanState* pEncHuffState,
                                                                      int bFlushState);
VEK_API VekStatus VEK_CALL vekiEncodeHuffman8x8_DCRefine_JPEG_16s1u_C1(const Vek16s* pSrc, Vek8u* pDst, int dstLenBytes,
                                                                       int* pDstCurrPos, int Al,
                                                                       VekEncodeHuffmanState* pEncHuffState,
                                                                       int bFlushState);
VEK_API VekStatus VEK_CALL vekiEncodeHuffman8x8_ACFirst_JPEG_16s1u_C1(const Vek16s* pSrc, Vek8u* pDst, int dstLenBytes,
                                                                      int* pDstCurrPos, int Ss, int Se, int Al,
                                                                      const VekEncodeHuffmanSpec* pAcTable,
                                                                      VekEncodeHuffmanState* pEncHuffState,
                                                                      int bFlushState);
VEK_API VekStatus VEK_CALL vekiEncodeHuffman8x8_ACRefine_JPEG_16s1u_C1(const Vek16s* pSrc, Vek8u* pDst, int dstLenBytes,
                                                                       int* pDstCurrPos, int Ss, int Se, int Al,
                                                                       const VekEncodeHuffmanSpec* pAcTable,
                                                                       VekEncodeHuffmanState* pEncHuffState,
                                                                       int bFlushState);

/* Symbol counts for optimal tables: each adds 1 to the count of every
 * symbol the matching encoder would code for the block (the same rules,
 * the same checks, no table and no output), so the tables built from the
 * counts code every block counted.  The AC counters keep the end-of-band
 * run in pEncHuffState like the encoders (a separate state from the
 * encoding's); a flush call counts the pending run. */
VEK_API VekStatus VEK_CALL vekiGetHuffmanStatistics8x8_JPEG_16s_C1(const Vek16s* pSrc, int pDcStatistics[256],
                                                                   int pAcStatistics[256], Vek16s* pLastDC);
VEK_API VekStatus VEK_CALL vekiGetHuffmanStatistics8x8_DCFirst_JPEG_16s_C1(const Vek16s* pSrc, int pDcStatistics[256],
                                                                           Vek16s* pLastDC, int Al);
VEK_API VekStatus VEK_CALL vekiGetHuffmanStatistics8x8_ACFirst_JPEG_16s_C1(const Vek16s* pSrc, int pAcStatistics[256],
                                                                           int Ss, int Se, int Al,
                                                                           VekEncodeHuffmanState* pEncHuffState,
                                                                           int bFlushState);
VEK_API VekStatus VEK_CALL vekiGetHuffmanStatistics8x8_ACRefine_JPEG_16s_C1(const Vek16s* pSrc, int pAcStatistics[256],
                                                                            int Ss, int Se, int Al,
                                                                            VekEncodeHuffmanState* pEncHuffState,
                                                                            int bFlushState);

/* Decoding.  Baseline writes all 64 coefficients (those not coded 0) and
 * sets *pLastDC to the block's DC value.  DCFirst sets pDst[0] = DC << Al
 * (the predictor holds the value before the shift); DCRefine sets bit Al
 * of pDst[0] when the stream's bit is 1; ACFirst writes the coded
 * coefficients of the band (value << Al) and leaves the others as they are
 * (zero, in a stream decoded from cleared blocks), or, inside an
 * end-of-band run, nothing at all; ACRefine adds the band's bit Al:
 * +-2^Al to coefficients that become nonzero, and a correction bit adds
 * 2^Al away from zero to those already nonzero unless they have that bit.
 * pMarker: see Streams above. */
VEK_API VekStatus VEK_CALL vekiDecodeHuffman8x8_JPEG_1u16s_C1(const Vek8u* pSrc, int srcLenBytes, int* pSrcCurrPos,
                                                              Vek16s* pDst, Vek16s* pLastDC, int* pMarker,
                                                              const VekDecodeHuffmanSpec* pDcTable,
                                                              const VekDecodeHuffmanSpec* pAcTable,
                                                              VekDecodeHuffmanState* pDecHuffState);
VEK_API VekStatus VEK_CALL vekiDecodeHuffman8x8_DCFirst_JPEG_1u16s_C1(const Vek8u* pSrc, int srcLenBytes,
                                                                      int* pSrcCurrPos, Vek16s* pDst, Vek16s* pLastDC,
                                                                      int* pMarker, int Al,
                                                                      const VekDecodeHuffmanSpec* pDcTable,
                                                                      VekDecodeHuffmanState* pDecHuffState);
VEK_API VekStatus VEK_CALL vekiDecodeHuffman8x8_DCRefine_JPEG_1u16s_C1(const Vek8u* pSrc, int srcLenBytes,
                                                                       int* pSrcCurrPos, Vek16s* pDst, int* pMarker,
                                                                       int Al, VekDecodeHuffmanState* pDecHuffState);
VEK_API VekStatus VEK_CALL vekiDecodeHuffman8x8_ACFirst_JPEG_1u16s_C1(const Vek8u* pSrc, int srcLenBytes,
                                                                      int* pSrcCurrPos, Vek16s* pDst, int* pMarker,
                                                                      int Ss, int Se, int Al,
                                                                      const VekDecodeHuffmanSpec* pAcTable,
                                                                      VekDecodeHuffmanState* pDecHuffState);
VEK_API VekStatus VEK_CALL vekiDecodeHuffman8x8_ACRefine_JPEG_1u16s_C1(const Vek8u* pSrc, int srcLenBytes,
                                                                       int* pSrcCurrPos, Vek16s* pDst, int* pMarker,
                                                                       int Ss, int Se, int Al,
                                                                       const VekDecodeHuffmanSpec* pAcTable,
                                                                       VekDecodeHuffmanState* pDecHuffState);

/* ======================================================================
 * JPEG 2000: wavelet transforms
 * 5/3 and 9/7 wavelet passes and the two-dimensional 9/7 level.
 * ====================================================================== */
/* One level of the JPEG 2000 discrete wavelet transform, by lifting: the
 * reversible 5/3 filter (B53) and the irreversible 9/7 filter (D97), as
 * one-dimensional passes over rows (Row) or columns (Col), a vertical pass
 * fed a pair of rows at a time (ColLift), and a whole 9/7 level over a tile.
 *
 * Lines and bands.  A line of samples x[p] (a row, or a column reached
 * through the step) splits into a low band L and a high band H, each of
 * roiSize.width coefficients per row (Row) or roiSize.height rows (Col):
 *   phase 0 (the first sample has an even coordinate): L[i] comes from
 *     position 2i, H[i] from 2i + 1;
 *   phase != 0 (odd): H[i] from position 2i, L[i] from 2i + 1.
 * The forward passes read the samples and write the two bands; the inverse
 * passes read the bands and write 2 * width samples interleaved (the
 * inverse of the forward with the same phase).
 *
 * Border extension is the caller's: pSrc points at sample 0, and the samples
 * around the line must hold its symmetric extension.  Exactly these are
 * read (w = the band width; for Col, rows reached through the step):
 *   forward 5/3, phase 0:  x[-2] .. x[2w]       phase 1: x[-1] .. x[2w+1]
 *   forward 9/7, phase 0:  x[-4] .. x[2w+2]     phase 1: x[-3] .. x[2w+3]
 *   inverse 5/3, phase 0:  L[0] .. L[w],   H[-1] .. H[w]
 *                phase 1:  L[-1] .. L[w-1], H[-1] .. H[w]
 *   inverse 9/7, phase 0:  L[-1] .. L[w+1], H[-2] .. H[w+1]
 *                phase 1:  L[-2] .. L[w],   H[-2] .. H[w+1]
 * The band values beyond the ends are those of the symmetric extension of
 * the interleaved coefficients (the forward's own values there).
 *
 * 5/3 (16s, 32s), arithmetic shifts (toward minus infinity); phase 0:
 *   H[i] = x[2i+1] - ((x[2i] + x[2i+2]) >> 1)
 *   L[i] = x[2i] + ((H[i-1] + H[i] + 2) >> 2)
 * phase 1: H[i] = x[2i] - ((x[2i-1] + x[2i+1]) >> 1),
 *          L[i] = x[2i+1] + ((H[i] + H[i+1] + 2) >> 2).
 * The inverse undoes them: L - ((Hprev + H + 2) >> 2) gives the samples at
 * the low positions, then H + ((their neighbours' sum) >> 1) the others.
 * Sums are exact; every stored coefficient keeps its type's low bits (it
 * wraps, it does not saturate), and the update step uses the wrapped high.
 *
 * 9/7 float (32f), single precision, no fused multiply-add, every level the
 * same operations in the same order.  With s the neighbours' sum (b + c)
 * each step is a + k s (computed as s, then k s, then a + k s); phase 0:
 *   1. H[i] += alpha (x[2i] + x[2i+2])             alpha = -1.5861343
 *   2. L[i] += beta (H[i-1] + H[i])                beta  = -0.052980117
 *   3. H[i] += gamma (L[i] + L[i+1])               gamma =  0.8829111
 *   4. L[i] = (L[i] + delta (H[i-1] + H[i])) * 0.8128931 (1/K),
 *                                                  delta =  0.44350687
 *   5. H[i] *= 1.2301741 (K)
 * (phase 1 with the neighbours shifted as for the 5/3).  The inverse:
 *   L = K L + (-0.36052364) s (K L and the product each rounded, then
 *   added), H = (1/K) H + (-gamma) s, L += -beta s, H += -alpha s.
 *
 * 9/7 fixed point (16s, 32s), Q16: each step is
 *   (CA a + CB s + 32768) >> 16
 * with exact 64-bit products and an arithmetic shift; CA = 65536 where the
 * step adds to the coefficient.  alpha -103949, beta -3472, gamma 57862,
 * delta 29066, K 80621, 1/K 53274, delta/K 23627.  Forward order: alpha,
 * beta, gamma; then, for every low coefficient of a line but its last,
 * delta and 1/K folded: (23627 s + 53274 L + 32768) >> 16; the line's last
 * low coefficient takes two roundings: L + ((29066 s + 32768) >> 16), then
 * (that * 53274 + 32768) >> 16; the high coefficients then
 * (80621 H + 32768) >> 16.  Inverse order: (80621 L - 23627 s) rounded, for
 * the line's last low coefficient in two roundings as the forward's mirror
 * ((80621 L + 32768) >> 16, then that + ((-23627 s + 32768) >> 16));
 * (53274 H - 57862 s); L + (3472 s); H + (103949 s).  _16s saturates every
 * step's result to -32768..32767; _32s keeps the low 32 bits.
 *
 * Band width 1 (9/7 Row passes, and Col passes with one row per band): no
 * lifting; the direct filters on the extended line.  Forward, with c the low
 * position (phase) and d the high one (1 - phase):
 *   L = 0.602949 x[c] + 0.26686412 (x[c-1] + x[c+1]) - 0.078223266 (x[c-2]
 *       + x[c+2]) - 0.01686412 (x[c-3] + x[c+3]) + 0.026748758 (x[c-4] +
 *       x[c+4])
 *   H = 1.115087 x[d] - 0.59127176 (x[d-1] + x[d+1]) - 0.057543527 (x[d-2]
 *       + x[d+2]) + 0.091271766 (x[d-3] + x[d+3])
 * The inverse uses the matching synthesis filters on the interleaved
 * coefficients y (positions as above, the bands' extension supplied):
 *   at a low position p:  1.115087 y[p] - 0.26686412 (y[p-1] + y[p+1])
 *       - 0.057543527 (y[p-2] + y[p+2]) + 0.01686412 (y[p-3] + y[p+3])
 *   at a high position p: 0.602949 y[p] + 0.59127176 (y[p-1] + y[p+1])
 *       - 0.078223266 (y[p-2] + y[p+2]) - 0.091271766 (y[p-3] + y[p+3])
 *       + 0.026748758 (y[p-4] + y[p+4])
 * (the inverse of the forward in exact arithmetic).  Float: the centre
 * product, then each pair's sum times its tap added in turn.  Q16 taps:
 * forward low 39515, 17489, -5126, -1105, 1753; forward high 73078, -38749,
 * -3771, 5982; inverse low position 73078, -17489, -3771, 1105; inverse
 * high position 39515, 38749, -5126, -5981, 1753.  _16s sums the exact
 * products, rounds once ((sum + 32768) >> 16) and saturates (like every
 * other 16-bit step); _32s rounds each tap's product on its own and sums
 * the rounded terms.
 *
 * Checks (Row and Col), in this order: a null image or band pointer ->
 * StatusNullPointer; any step below 1 -> StatusStep; roiSize.width or
 * .height below 1 -> StatusSize.  Nothing is written on failure.  Bands and
 * image must not overlap.
 */
VEK_API VekStatus VEK_CALL vekiWTFwdRow_B53_JPEG2K_16s_C1R(const Vek16s* pSrc, int srcStep, Vek16s* pDstLow,
                                                           int dstLowStep, Vek16s* pDstHigh, int dstHighStep,
                                                           VekiSize roiSize, Vek32u phase);
VEK_API VekStatus VEK_CALL vekiWTFwdRow_B53_JPEG2K_32s_C1R(const Vek32s* pSrc, int srcStep, Vek32s* pDstLow,
                                                           int dstLowStep, Vek32s* pDstHigh, int dstHighStep,
                                                           VekiSize roiSize, Vek32u phase);
VEK_API VekStatus VEK_CALL vekiWTFwdRow_D97_JPEG2K_16s_C1R(const Vek16s* pSrc, int srcStep, Vek16s* pDstLow,
                                                           int dstLowStep, Vek16s* pDstHigh, int dstHighStep,
                                                           VekiSize roiSize, Vek32u phase);
VEK_API VekStatus VEK_CALL vekiWTFwdRow_D97_JPEG2K_32s_C1R(const Vek32s* pSrc, int srcStep, Vek32s* pDstLow,
                                                           int dstLowStep, Vek32s* pDstHigh, int dstHighStep,
                                                           VekiSize roiSize, Vek32u phase);
VEK_API VekStatus VEK_CALL vekiWTFwdRow_D97_JPEG2K_32f_C1R(const Vek32f* pSrc, int srcStep, Vek32f* pDstLow,
                                                           int dstLowStep, Vek32f* pDstHigh, int dstHighStep,
                                                           VekiSize roiSize, Vek32u phase);
VEK_API VekStatus VEK_CALL vekiWTFwdCol_B53_JPEG2K_16s_C1R(const Vek16s* pSrc, int srcStep, Vek16s* pDstLow,
                                                           int dstLowStep, Vek16s* pDstHigh, int dstHighStep,
                                                           VekiSize roiSize, Vek32u phase);
VEK_API VekStatus VEK_CALL vekiWTFwdCol_B53_JPEG2K_32s_C1R(const Vek32s* pSrc, int srcStep, Vek32s* pDstLow,
                                                           int dstLowStep, Vek32s* pDstHigh, int dstHighStep,
                                                           VekiSize roiSize, Vek32u phase);
VEK_API VekStatus VEK_CALL vekiWTFwdCol_D97_JPEG2K_32f_C1R(const Vek32f* pSrc, int srcStep, Vek32f* pDstLow,
                                                           int dstLowStep, Vek32f* pDstHigh, int dstHighStep,
                                                           VekiSize roiSize, Vek32u phase);
VEK_API VekStatus VEK_CALL vekiWTInvRow_B53_JPEG2K_16s_C1R(const Vek16s* pSrcLow, int srcLowStep,
                                                           const Vek16s* pSrcHigh, int srcHighStep, VekiSize roiSize,
                                                           Vek16s* pDst, int dstStep, Vek32u phase);
VEK_API VekStatus VEK_CALL vekiWTInvRow_B53_JPEG2K_32s_C1R(const Vek32s* pSrcLow, int srcLowStep,
                                                           const Vek32s* pSrcHigh, int srcHighStep, VekiSize roiSize,
                                                           Vek32s* pDst, int dstStep, Vek32u phase);
VEK_API VekStatus VEK_CALL vekiWTInvRow_D97_JPEG2K_16s_C1R(const Vek16s* pSrcLow, int srcLowStep,
                                                           const Vek16s* pSrcHigh, int srcHighStep, VekiSize roiSize,
                                                           Vek16s* pDst, int dstStep, Vek32u phase);
VEK_API VekStatus VEK_CALL vekiWTInvRow_D97_JPEG2K_32s_C1R(const Vek32s* pSrcLow, int srcLowStep,
                                                           const Vek32s* pSrcHigh, int srcHighStep, VekiSize roiSize,
                                                           Vek32s* pDst, int dstStep, Vek32u phase);
VEK_API VekStatus VEK_CALL vekiWTInvRow_D97_JPEG2K_32f_C1R(const Vek32f* pSrcLow, int srcLowStep,
                                                           const Vek32f* pSrcHigh, int srcHighStep, VekiSize roiSize,
                                                           Vek32f* pDst, int dstStep, Vek32u phase);
VEK_API VekStatus VEK_CALL vekiWTInvCol_B53_JPEG2K_16s_C1R(const Vek16s* pSrcLow, int srcLowStep,
                                                           const Vek16s* pSrcHigh, int srcHighStep, VekiSize roiSize,
                                                           Vek16s* pDst, int dstStep, Vek32u phase);
VEK_API VekStatus VEK_CALL vekiWTInvCol_B53_JPEG2K_32s_C1R(const Vek32s* pSrcLow, int srcLowStep,
                                                           const Vek32s* pSrcHigh, int srcHighStep, VekiSize roiSize,
                                                           Vek32s* pDst, int dstStep, Vek32u phase);
VEK_API VekStatus VEK_CALL vekiWTInvCol_D97_JPEG2K_32f_C1R(const Vek32f* pSrcLow, int srcLowStep,
                                                           const Vek32f* pSrcHigh, int srcHighStep, VekiSize roiSize,
                                                           Vek32f* pDst, int dstStep, Vek32u phase);

/* Vertical lifting a pair of rows at a time: the caller keeps the rows of
 * the lifting in buffers of its own and calls once per pair of source rows;
 * each call works sample by sample over `width` samples (every step of a
 * sample before the next sample, so a row given for two roles is read and
 * written as such) and touches only the rows given.  Checks: a null row ->
 * StatusNullPointer, width below 1 -> StatusSize.  Arithmetic as for the
 * passes above.
 * 5/3 forward (x0, x1, x2 = rows 2n, 2n+1, 2n+2; low row n; high row n-1
 *   from the previous call; high row n):
 *   high = x1 - ((x0 + x2) >> 1); low = x0 + ((highPrev + high + 2) >> 2).
 * 5/3 inverse (low row n, high rows n-1 and n, the even row 2n-2 of the
 *   previous call; out: odd row 2n-1, even row 2n):
 *   even = low - ((highPrev + high + 2) >> 2); odd = highPrev + ((evenPrev
 *   + even) >> 1).
 * 9/7 forward, a pipeline of eight rows r0..r7 (pSrc0..pDstHigh): r0..r2
 *   source rows 2n..2n+2; r3 the low row after step 2 from the previous
 *   call (finished here); r4 out: the new low row after step 2; r5 the high
 *   row after step 3 from the previous call (finished here); r6 the high row
 *   after step 1 from the previous call (taken to step 3); r7 out: the new
 *   high row after step 1.  In order: r7 = r1 + alpha (r0 + r2); r4 = r0 +
 *   beta (r6 + r7); r6 += gamma (r3 + r4); r3 = (r3 + delta (r5 + r6)) * 1/K;
 *   r5 *= K.  The finished low row trails the source by one pair of rows,
 *   the high row by two; priming and draining the pipeline is the caller's.
 *   Fixed point: each of these is rounded on its own (the delta and 1/K of
 *   r3 in two roundings, as for a line's last low coefficient).
 * 9/7 inverse, q0..q7 (pSrcLow..pDstEven): q0 the low row n; q1 and q2
 *   the high rows on either side of it, q1 the one before (high row n-1,
 *   from which the new odd row comes), q2 the one after (high row n); q3 the
 *   even row the previous call finished; q4 and q5 the odd and even rows in
 *   progress (finished here); q6 and q7 out: the new odd (at step 3 -> 1)
 *   and even (at step 2) rows.  In order: q7 = K q0 - delta/K (q1 + q2);
 *   q6 = 1/K q1 - gamma (q5 + q7); q5 -= beta (q4 + q6); q4 -= alpha (q3 +
 *   q5).  After the call q5 holds the finished even row 2n-2 and q4 the
 *   finished odd row 2n-3. */
VEK_API VekStatus VEK_CALL vekiWTFwdColLift_B53_JPEG2K_16s_C1(const Vek16s* pSrc0, const Vek16s* pSrc1,
                                                              const Vek16s* pSrc2, Vek16s* pDstLow,
                                                              const Vek16s* pSrcHighPrev, Vek16s* pDstHigh, int width);
VEK_API VekStatus VEK_CALL vekiWTFwdColLift_B53_JPEG2K_32s_C1(const Vek32s* pSrc0, const Vek32s* pSrc1,
                                                              const Vek32s* pSrc2, Vek32s* pDstLow,
                                                              const Vek32s* pSrcHighPrev, Vek32s* pDstHigh, int width);
VEK_API VekStatus VEK_CALL vekiWTFwdColLift_D97_JPEG2K_16s_C1(const Vek16s* pSrc0, const Vek16s* pSrc1,
                                                              const Vek16s* pSrc2, Vek16s* pSrcDstLow, Vek16s* pDstLow,
                                                              Vek16s* pSrcDstHighPrev, Vek16s* pSrcDstHigh,
                                                              Vek16s* pDstHigh, int width);
VEK_API VekStatus VEK_CALL vekiWTFwdColLift_D97_JPEG2K_32s_C1(const Vek32s* pSrc0, const Vek32s* pSrc1,
                                                              const Vek32s* pSrc2, Vek32s* pSrcDstLow, Vek32s* pDstLow,
                                                              Vek32s* pSrcDstHighPrev, Vek32s* pSrcDstHigh,
                                                              Vek32s* pDstHigh, int width);
VEK_API VekStatus VEK_CALL vekiWTFwdColLift_D97_JPEG2K_32f_C1(const Vek32f* pSrc0, const Vek32f* pSrc1,
                                                              const Vek32f* pSrc2, Vek32f* pSrcDstLow, Vek32f* pDstLow,
                                                              Vek32f* pSrcDstHighPrev, Vek32f* pSrcDstHigh,
                                                              Vek32f* pDstHigh, int width);
VEK_API VekStatus VEK_CALL vekiWTInvColLift_B53_JPEG2K_16s_C1(const Vek16s* pSrcLow, const Vek16s* pSrcHighPrev,
                                                              const Vek16s* pSrcHigh, const Vek16s* pSrcEvenPrev,
                                                              Vek16s* pDstOdd, Vek16s* pDstEven, int width);
VEK_API VekStatus VEK_CALL vekiWTInvColLift_B53_JPEG2K_32s_C1(const Vek32s* pSrcLow, const Vek32s* pSrcHighPrev,
                                                              const Vek32s* pSrcHigh, const Vek32s* pSrcEvenPrev,
                                                              Vek32s* pDstOdd, Vek32s* pDstEven, int width);
VEK_API VekStatus VEK_CALL vekiWTInvColLift_D97_JPEG2K_16s_C1(const Vek16s* pSrcLow, const Vek16s* pSrcHigh,
                                                              const Vek16s* pSrcHighPrev, const Vek16s* pSrcEvenPrev,
                                                              Vek16s* pSrcDstOdd, Vek16s* pSrcDstEven, Vek16s* pDstOdd,
                                                              Vek16s* pDstEven, int width);
VEK_API VekStatus VEK_CALL vekiWTInvColLift_D97_JPEG2K_32s_C1(const Vek32s* pSrcLow, const Vek32s* pSrcHigh,
                                                              const Vek32s* pSrcHighPrev, const Vek32s* pSrcEvenPrev,
                                                              Vek32s* pSrcDstOdd, Vek32s* pSrcDstEven, Vek32s* pDstOdd,
                                                              Vek32s* pDstEven, int width);
VEK_API VekStatus VEK_CALL vekiWTInvColLift_D97_JPEG2K_32f_C1(const Vek32f* pSrcLow, const Vek32f* pSrcHigh,
                                                              const Vek32f* pSrcHighPrev, const Vek32f* pSrcEvenPrev,
                                                              Vek32f* pSrcDstOdd, Vek32f* pSrcDstEven, Vek32f* pDstOdd,
                                                              Vek32f* pDstEven, int width);

/* The two-dimensional 9/7 level on a tile of integer samples (Q16 as
 * above).  pTileRect gives the tile's position (x, y) and size (width w,
 * height h); pSrc (forward) or pDst (inverse) points at its first sample.
 * The four bands, in order: low horizontally and vertically (ceil(w/2) x
 * ceil(h/2)); low horizontally, high vertically (ceil(w/2) x floor(h/2));
 * high horizontally, low vertically (floor(w/2) x ceil(h/2)); high in both
 * (floor(w/2) x floor(h/2)).  The inverse takes the forward's arguments
 * with sources and destination exchanged.
 *
 * The forward transforms each row (its symmetric extension made here),
 * writing the work buffer's rows, then the columns of the low and of the
 * high half into the bands; the inverse undoes the columns into the work
 * buffer, then each row into the tile.  Rows and columns take the Row
 * pass's arithmetic exactly (so a band width of 1, a line of 2 samples,
 * takes the direct filters; a line of 1 sample is its own low band).
 * Phase: each direction's phase is the parity of the tile's coordinate (x
 * for rows, y for columns) when its extent is even; an odd extent is
 * transformed in phase 0 whatever its coordinate (the band sizes above
 * are those of an even coordinate).
 *
 * The work buffer: the tile's h rows at a pitch of w * sizeof(sample)
 * rounded up to a multiple of 32 bytes, then 8 rows for the lifting's
 * intermediate coefficients: VEK_WT_D97_JPEG2K_BUFFER_SIZE(w, h, sizeof
 * (sample)) bytes, which the functions never pass; aligned to the sample
 * size at least.  Its contents afterwards are unspecified.
 *
 * Checks, in this order: the image, the band-pointer array, the step array,
 * the rectangle or the buffer null -> StatusNullPointer; the image step
 * below 1 -> StatusStep; any band pointer null -> StatusNullPointer; any
 * band step below 1 -> StatusStep; the tile's width or height below 1 ->
 * StatusSize.  Nothing is written on failure. */
#define VEK_WT_D97_JPEG2K_PITCH(width, sampleBytes) ((((width) * (sampleBytes)) + 31) & ~31)
#define VEK_WT_D97_JPEG2K_BUFFER_SIZE(width, height, sampleBytes) \
    (VEK_WT_D97_JPEG2K_PITCH(width, sampleBytes) * ((height) + 8))
VEK_API VekStatus VEK_CALL vekiWTFwd_D97_JPEG2K_16s_C1R(const Vek16s* pSrc, int srcStep, const VekiRect* pTileRect,
                                                        Vek16s* const pDst[4], const int dstStep[4], Vek8u* pBuffer);
VEK_API VekStatus VEK_CALL vekiWTFwd_D97_JPEG2K_32s_C1R(const Vek32s* pSrc, int srcStep, const VekiRect* pTileRect,
                                                        Vek32s* const pDst[4], const int dstStep[4], Vek8u* pBuffer);
VEK_API VekStatus VEK_CALL vekiWTInv_D97_JPEG2K_16s_C1R(const Vek16s* const pSrc[4], const int srcStep[4],
                                                        const VekiRect* pTileRect, Vek16s* pDst, int dstStep,
                                                        Vek8u* pBuffer);
VEK_API VekStatus VEK_CALL vekiWTInv_D97_JPEG2K_32s_C1R(const Vek32s* const pSrc[4], const int srcStep[4],
                                                        const VekiRect* pTileRect, Vek32s* pDst, int dstStep,
                                                        Vek8u* pBuffer);

/* ======================================================================
 * JPEG 2000: component transforms
 * The reversible (RCT) and irreversible (ICT) component transforms.
 * ====================================================================== */
/* Three components per pixel, transformed pixel by pixel: all three inputs
 * of a pixel are read before any of its outputs is written.
 *   _P3IR (pSrcDst, srcDstStep, roiSize): three planes in place, the plane
 *     pointers in an array, sharing one step.
 *   _C3P3R (pSrc, srcStep, pDst, dstStep, roiSize): interleaved pixels
 *     (R, G, B) to three planes.
 *   _P3C3R (pSrc, srcStep, pDst, dstStep, roiSize): three planes to
 *     interleaved pixels (channels 0, 1, 2 = planes 0, 1, 2).
 * Plane 0 holds R (forward input) or Y, plane 1 G or the first chroma (U,
 * Cb), plane 2 B or the second chroma (V, Cr).  Steps are in bytes.
 *
 * Checks, in this order: a null plane array, a null plane (0, 1, 2) or a
 * null interleaved image -> StatusNullPointer; a step below 1 (the source's
 * first) -> StatusStep; roiSize.width or .height below 1 -> StatusSize.
 * Nothing is written on failure.  Source and destination must not overlap.
 *
 * RCT (exact; shifts are arithmetic, rounding toward minus infinity):
 *   forward  Y = (R + 2G + B) >> 2,  U = B - G,  V = R - G
 *   inverse  G = Y - ((U + V) >> 2), R = V + G,  B = U + G
 * ICT, 16s and 32s in Q14 fixed point, each output rounded by adding 8192
 * and shifting right by 14 (arithmetic):
 *   forward  Y  = (4899 R + 9617 G + 1868 B + 8192) >> 14
 *            Cb = (-2765 R - 5427 G + 8192 B + 8192) >> 14
 *            Cr = (8192 R - 6860 G - 1332 B + 8192) >> 14
 *   inverse  R = Y + ((22970 Cr + 8192) >> 14)
 *            G = Y + ((-5638 Cb - 11700 Cr + 8192) >> 14)
 *            B = Y + ((29032 Cb + 8192) >> 14)
 * The integer forms compute exactly (products and sums as wide as they
 * need) and keep the low 16 or 32 bits of each result: nothing saturates,
 * so extreme inputs wrap around.
 * ICT, 32f: in double precision with the constants as doubles, every
 * product and sum rounded to double in this order, the result rounded once
 * to float:
 *   forward  Y  = (0.299 R + 0.587 G) + 0.114 B
 *            Cb = (-0.16875 R - 0.33126 G) + 0.5 B
 *            Cr = (0.5 R - 0.41869 G) - 0.08131 B
 *   inverse  R = Y + 1.402 Cr,  G = (Y - 0.34413 Cb) - 0.71414 Cr,
 *            B = Y + 1.772 Cb
 * (the plain level of the 32-bit library sets the x87 unit to double
 * precision while it works, and restores the caller's setting). */
VEK_API VekStatus VEK_CALL vekiRCTFwd_JPEG2K_16s_P3IR(Vek16s* const pSrcDst[3], int srcDstStep, VekiSize roiSize);
VEK_API VekStatus VEK_CALL vekiRCTFwd_JPEG2K_32s_P3IR(Vek32s* const pSrcDst[3], int srcDstStep, VekiSize roiSize);
VEK_API VekStatus VEK_CALL vekiRCTFwd_JPEG2K_32s_C3P3R(const Vek32s* pSrc, int srcStep, Vek32s* const pDst[3],
                                                       int dstStep, VekiSize roiSize);
VEK_API VekStatus VEK_CALL vekiRCTInv_JPEG2K_16s_P3IR(Vek16s* const pSrcDst[3], int srcDstStep, VekiSize roiSize);
VEK_API VekStatus VEK_CALL vekiRCTInv_JPEG2K_32s_P3IR(Vek32s* const pSrcDst[3], int srcDstStep, VekiSize roiSize);
VEK_API VekStatus VEK_CALL vekiRCTInv_JPEG2K_32s_P3C3R(const Vek32s* const pSrc[3], int srcStep, Vek32s* pDst,
                                                       int dstStep, VekiSize roiSize);
VEK_API VekStatus VEK_CALL vekiICTFwd_JPEG2K_16s_P3IR(Vek16s* const pSrcDst[3], int srcDstStep, VekiSize roiSize);
VEK_API VekStatus VEK_CALL vekiICTFwd_JPEG2K_32s_P3IR(Vek32s* const pSrcDst[3], int srcDstStep, VekiSize roiSize);
VEK_API VekStatus VEK_CALL vekiICTFwd_JPEG2K_32f_P3IR(Vek32f* const pSrcDst[3], int srcDstStep, VekiSize roiSize);
VEK_API VekStatus VEK_CALL vekiICTFwd_JPEG2K_32f_C3P3R(const Vek32f* pSrc, int srcStep, Vek32f* const pDst[3],
                                                       int dstStep, VekiSize roiSize);
VEK_API VekStatus VEK_CALL vekiICTInv_JPEG2K_16s_P3IR(Vek16s* const pSrcDst[3], int srcDstStep, VekiSize roiSize);
VEK_API VekStatus VEK_CALL vekiICTInv_JPEG2K_32s_P3IR(Vek32s* const pSrcDst[3], int srcDstStep, VekiSize roiSize);
VEK_API VekStatus VEK_CALL vekiICTInv_JPEG2K_32f_P3IR(Vek32f* const pSrcDst[3], int srcDstStep, VekiSize roiSize);
VEK_API VekStatus VEK_CALL vekiICTInv_JPEG2K_32f_P3C3R(const Vek32f* const pSrc[3], int srcStep, Vek32f* pDst,
                                                       int dstStep, VekiSize roiSize);

/* ======================================================================
 * Video: motion compensation and block differences
 * Predicted blocks and residuals for MPEG-1/2.
 * ====================================================================== */
/* Block-level motion compensation with half-sample accuracy.  Every block
 * has its own step in bytes (bottom-up blocks take a negative step); the
 * block size is in the name, width first.  Pixels and references are
 * Vek8u, residuals, differences and predictors Vek16s.
 *
 * Prediction mode (mcType): only bits 2 and 3 are read (mcType & 12), so
 * 13 acts as 12 and 16 as 0.  With r the reference block and rc the
 * rounding control:
 *    0  r(x, y)
 *    4  (r(x, y) + r(x, y+1) + 1 - rc) >> 1                       half sample vertically
 *    8  (r(x, y) + r(x+1, y) + 1 - rc) >> 1                       half sample horizontally
 *   12  (r(x, y) + r(x+1, y) + r(x, y+1) + r(x+1, y+1) + 2 - rc) >> 2   both
 * The reference is read over the block plus one row (modes 4 and 12) and
 * plus one column (modes 8 and 12), never further.  roundControl is 0 or
 * 1 (1 rounds halves down); only its lowest bit is read.  The UV forms
 * work on 8 interleaved U/V pairs per row (16 bytes): the horizontal
 * neighbour of a sample is two bytes on, so they read two more bytes per
 * row in modes 8 and 12.
 *
 * The mode reaches its kernel through a table: one reference, entry
 * (mcType & 12) / 2 + (roundControl & 1) of eight; two references,
 * (mcTypeF & 12) / 2 + 2 * (mcTypeB & 12) + (roundControl & 1) of 32;
 * differences, (mcType & 12) + (pDstPredictor != NULL) of 16; bidirectional
 * differences, (mcTypeF & 12) / 4 + (mcTypeB & 12) of 16.
 *
 * vekiMC<w>x<h>_8u_C1: dst = clamp(p + residual, 0, 255).
 * vekiMC<w>x<h>B_8u_C1: pF and pB by their own modes, both with
 *   roundControl; dst = clamp((pF + pB + 2 * residual + 1) >> 1, 0, 255):
 *   one rounding serves the average and the residual.
 * vekiGetDiff<w>x<h>_8u16s_C1: diff = cur - p; when pDstPredictor is not
 *   NULL, p is also stored there (step dstPredictorStep).
 *   vekiGetDiff4x4_8u16s_C1 is the exception: diff = cur - ref at the
 *   full-sample position; it ignores mcType, roundControl and the
 *   predictor arguments and never writes a predictor.
 * vekiGetDiff<w>x<h>B_8u16s_C1: diff = (2 * cur - pF - pB) >> 1, an
 *   arithmetic shift (rounds toward minus infinity); no predictor.
 *
 * Checks: only the pointers (a NULL predictor is allowed); any other NULL
 * gives StatusNullPointer with nothing written.  Steps, modes and the
 * rounding control are used as given. */
VEK_API VekStatus VEK_CALL vekiMC16x16_8u_C1(const Vek8u* pSrcRef, int srcRefStep, const Vek16s* pSrcResidual,
                                             int srcResidualStep, Vek8u* pDst, int dstStep, int mcType,
                                             int roundControl);
VEK_API VekStatus VEK_CALL vekiMC16x8_8u_C1(const Vek8u* pSrcRef, int srcRefStep, const Vek16s* pSrcResidual,
                                            int srcResidualStep, Vek8u* pDst, int dstStep, int mcType,
                                            int roundControl);
VEK_API VekStatus VEK_CALL vekiMC16x4_8u_C1(const Vek8u* pSrcRef, int srcRefStep, const Vek16s* pSrcResidual,
                                            int srcResidualStep, Vek8u* pDst, int dstStep, int mcType,
                                            int roundControl);
VEK_API VekStatus VEK_CALL vekiMC8x16_8u_C1(const Vek8u* pSrcRef, int srcRefStep, const Vek16s* pSrcResidual,
                                            int srcResidualStep, Vek8u* pDst, int dstStep, int mcType,
                                            int roundControl);
VEK_API VekStatus VEK_CALL vekiMC8x8_8u_C1(const Vek8u* pSrcRef, int srcRefStep, const Vek16s* pSrcResidual,
                                           int srcResidualStep, Vek8u* pDst, int dstStep, int mcType, int roundControl);
VEK_API VekStatus VEK_CALL vekiMC8x4_8u_C1(const Vek8u* pSrcRef, int srcRefStep, const Vek16s* pSrcResidual,
                                           int srcResidualStep, Vek8u* pDst, int dstStep, int mcType, int roundControl);
VEK_API VekStatus VEK_CALL vekiMC4x8_8u_C1(const Vek8u* pSrcRef, int srcRefStep, const Vek16s* pSrcResidual,
                                           int srcResidualStep, Vek8u* pDst, int dstStep, int mcType, int roundControl);
VEK_API VekStatus VEK_CALL vekiMC4x4_8u_C1(const Vek8u* pSrcRef, int srcRefStep, const Vek16s* pSrcResidual,
                                           int srcResidualStep, Vek8u* pDst, int dstStep, int mcType, int roundControl);
VEK_API VekStatus VEK_CALL vekiMC4x2_8u_C1(const Vek8u* pSrcRef, int srcRefStep, const Vek16s* pSrcResidual,
                                           int srcResidualStep, Vek8u* pDst, int dstStep, int mcType, int roundControl);
VEK_API VekStatus VEK_CALL vekiMC2x4_8u_C1(const Vek8u* pSrcRef, int srcRefStep, const Vek16s* pSrcResidual,
                                           int srcResidualStep, Vek8u* pDst, int dstStep, int mcType, int roundControl);
VEK_API VekStatus VEK_CALL vekiMC2x2_8u_C1(const Vek8u* pSrcRef, int srcRefStep, const Vek16s* pSrcResidual,
                                           int srcResidualStep, Vek8u* pDst, int dstStep, int mcType, int roundControl);
VEK_API VekStatus VEK_CALL vekiMC16x8UV_8u_C1(const Vek8u* pSrcRef, int srcRefStep, const Vek16s* pSrcResidual,
                                              int srcResidualStep, Vek8u* pDst, int dstStep, int mcType,
                                              int roundControl);
VEK_API VekStatus VEK_CALL vekiMC16x16B_8u_C1(const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF,
                                              const Vek8u* pSrcRefB, int srcRefBStep, int mcTypeB,
                                              const Vek16s* pSrcResidual, int srcResidualStep, Vek8u* pDst, int dstStep,
                                              int roundControl);
VEK_API VekStatus VEK_CALL vekiMC16x8B_8u_C1(const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB,
                                             int srcRefBStep, int mcTypeB, const Vek16s* pSrcResidual,
                                             int srcResidualStep, Vek8u* pDst, int dstStep, int roundControl);
VEK_API VekStatus VEK_CALL vekiMC16x4B_8u_C1(const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB,
                                             int srcRefBStep, int mcTypeB, const Vek16s* pSrcResidual,
                                             int srcResidualStep, Vek8u* pDst, int dstStep, int roundControl);
VEK_API VekStatus VEK_CALL vekiMC8x16B_8u_C1(const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB,
                                             int srcRefBStep, int mcTypeB, const Vek16s* pSrcResidual,
                                             int srcResidualStep, Vek8u* pDst, int dstStep, int roundControl);
VEK_API VekStatus VEK_CALL vekiMC8x8B_8u_C1(const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB,
                                            int srcRefBStep, int mcTypeB, const Vek16s* pSrcResidual,
                                            int srcResidualStep, Vek8u* pDst, int dstStep, int roundControl);
VEK_API VekStatus VEK_CALL vekiMC8x4B_8u_C1(const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB,
                                            int srcRefBStep, int mcTypeB, const Vek16s* pSrcResidual,
                                            int srcResidualStep, Vek8u* pDst, int dstStep, int roundControl);
VEK_API VekStatus VEK_CALL vekiMC4x8B_8u_C1(const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB,
                                            int srcRefBStep, int mcTypeB, const Vek16s* pSrcResidual,
                                            int srcResidualStep, Vek8u* pDst, int dstStep, int roundControl);
VEK_API VekStatus VEK_CALL vekiMC4x4B_8u_C1(const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB,
                                            int srcRefBStep, int mcTypeB, const Vek16s* pSrcResidual,
                                            int srcResidualStep, Vek8u* pDst, int dstStep, int roundControl);
VEK_API VekStatus VEK_CALL vekiMC4x2B_8u_C1(const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB,
                                            int srcRefBStep, int mcTypeB, const Vek16s* pSrcResidual,
                                            int srcResidualStep, Vek8u* pDst, int dstStep, int roundControl);
VEK_API VekStatus VEK_CALL vekiMC2x4B_8u_C1(const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB,
                                            int srcRefBStep, int mcTypeB, const Vek16s* pSrcResidual,
                                            int srcResidualStep, Vek8u* pDst, int dstStep, int roundControl);
VEK_API VekStatus VEK_CALL vekiMC2x2B_8u_C1(const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB,
                                            int srcRefBStep, int mcTypeB, const Vek16s* pSrcResidual,
                                            int srcResidualStep, Vek8u* pDst, int dstStep, int roundControl);
VEK_API VekStatus VEK_CALL vekiMC16x8BUV_8u_C1(const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF,
                                               const Vek8u* pSrcRefB, int srcRefBStep, int mcTypeB,
                                               const Vek16s* pSrcResidual, int srcResidualStep, Vek8u* pDst,
                                               int dstStep, int roundControl);
VEK_API VekStatus VEK_CALL vekiGetDiff16x16_8u16s_C1(const Vek8u* pSrcCur, int srcCurStep, const Vek8u* pSrcRef,
                                                     int srcRefStep, Vek16s* pDstDiff, int dstDiffStep,
                                                     Vek16s* pDstPredictor, int dstPredictorStep, int mcType,
                                                     int roundControl);
VEK_API VekStatus VEK_CALL vekiGetDiff16x8_8u16s_C1(const Vek8u* pSrcCur, int srcCurStep, const Vek8u* pSrcRef,
                                                    int srcRefStep, Vek16s* pDstDiff, int dstDiffStep,
                                                    Vek16s* pDstPredictor, int dstPredictorStep, int mcType,
                                                    int roundControl);
VEK_API VekStatus VEK_CALL vekiGetDiff8x16_8u16s_C1(const Vek8u* pSrcCur, int srcCurStep, const Vek8u* pSrcRef,
                                                    int srcRefStep, Vek16s* pDstDiff, int dstDiffStep,
                                                    Vek16s* pDstPredictor, int dstPredictorStep, int mcType,
                                                    int roundControl);
VEK_API VekStatus VEK_CALL vekiGetDiff8x8_8u16s_C1(const Vek8u* pSrcCur, int srcCurStep, const Vek8u* pSrcRef,
                                                   int srcRefStep, Vek16s* pDstDiff, int dstDiffStep,
                                                   Vek16s* pDstPredictor, int dstPredictorStep, int mcType,
                                                   int roundControl);
VEK_API VekStatus VEK_CALL vekiGetDiff8x4_8u16s_C1(const Vek8u* pSrcCur, int srcCurStep, const Vek8u* pSrcRef,
                                                   int srcRefStep, Vek16s* pDstDiff, int dstDiffStep,
                                                   Vek16s* pDstPredictor, int dstPredictorStep, int mcType,
                                                   int roundControl);
VEK_API VekStatus VEK_CALL vekiGetDiff4x4_8u16s_C1(const Vek8u* pSrcCur, int srcCurStep, const Vek8u* pSrcRef,
                                                   int srcRefStep, Vek16s* pDstDiff, int dstDiffStep,
                                                   Vek16s* pDstPredictor, int dstPredictorStep, int mcType,
                                                   int roundControl);
VEK_API VekStatus VEK_CALL vekiGetDiff16x16B_8u16s_C1(const Vek8u* pSrcCur, int srcCurStep, const Vek8u* pSrcRefF,
                                                      int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB,
                                                      int srcRefBStep, int mcTypeB, Vek16s* pDstDiff, int dstDiffStep,
                                                      int roundControl);
VEK_API VekStatus VEK_CALL vekiGetDiff16x8B_8u16s_C1(const Vek8u* pSrcCur, int srcCurStep, const Vek8u* pSrcRefF,
                                                     int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB,
                                                     int srcRefBStep, int mcTypeB, Vek16s* pDstDiff, int dstDiffStep,
                                                     int roundControl);
VEK_API VekStatus VEK_CALL vekiGetDiff8x16B_8u16s_C1(const Vek8u* pSrcCur, int srcCurStep, const Vek8u* pSrcRefF,
                                                     int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB,
                                                     int srcRefBStep, int mcTypeB, Vek16s* pDstDiff, int dstDiffStep,
                                                     int roundControl);
VEK_API VekStatus VEK_CALL vekiGetDiff8x8B_8u16s_C1(const Vek8u* pSrcCur, int srcCurStep, const Vek8u* pSrcRefF,
                                                    int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB,
                                                    int srcRefBStep, int mcTypeB, Vek16s* pDstDiff, int dstDiffStep,
                                                    int roundControl);
VEK_API VekStatus VEK_CALL vekiGetDiff8x4B_8u16s_C1(const Vek8u* pSrcCur, int srcCurStep, const Vek8u* pSrcRefF,
                                                    int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB,
                                                    int srcRefBStep, int mcTypeB, Vek16s* pDstDiff, int dstDiffStep,
                                                    int roundControl);

/* ======================================================================
 * Video: block matching metrics
 * SAD, squared differences and variance for motion search.
 * ====================================================================== */
/* Cost measures for motion search on 8-bit blocks: pSrc is the current
 * block, pRef the reference, each with its own step.  No rounding control:
 * the half-sample predictions here always round halves up, (a + b + 1) >> 1
 * and (a + b + c + d + 2) >> 2, with the neighbours of motion compensation
 * (one more row for mode 4, one more column for 8, both for 12).
 *
 * vekiSAD16x16_8u32s: sum over 16x16 of |cur - pred|, pred by mcType.
 *   mcType must be 0, 4, 8 or 12: we return StatusBadArgument for any
 *   other value (after the pointer checks) and write nothing.
 * vekiSAD4x4_8u32s: sum over 4x4 of |cur - ref|; mcType is ignored.
 * vekiSAD16x16Blocks8x8_8u16u: the four 8x8 SADs of the macroblock,
 *   top-left, top-right, bottom-left, bottom-right; full sample, mcType
 *   ignored.
 * vekiSAD16x16Blocks4x4_8u16u: the sixteen 4x4 SADs in raster order of
 *   the blocks (entry 4 * (row / 4) + column / 4); mcType ignored.
 * vekiSqrDiff16x16_8u32s: sum over 16x16 of (pred - cur)^2.  mcType is
 *   compared whole: 0 full sample, 4 vertical, 8 horizontal, any other
 *   value the four-pixel average.
 * vekiSqrDiff16x16B_8u32s: sum of (((predF + predB + 1) >> 1) - cur)^2,
 *   each prediction by bits 2 and 3 of its own mode.
 * vekiVariance16x16_8u32s: with s = sum of x and q = sum of x^2 over the
 *   256 pixels (unsigned 32-bit), q - (s * s) / 256, where s * s is a
 *   32-bit two's-complement product divided as a signed value, truncating:
 *   256 times the variance.  Once s passes 46340 (a block averaging above
 *   181) the product wraps negative and the result with it, deliberately.
 *
 * Checks: any NULL pointer gives StatusNullPointer with nothing written;
 * steps and modes are not checked (but see vekiSAD16x16_8u32s). */
VEK_API VekStatus VEK_CALL vekiSAD16x16_8u32s(const Vek8u* pSrc, int srcStep, const Vek8u* pRef, int refStep,
                                              Vek32s* pSAD, int mcType);
VEK_API VekStatus VEK_CALL vekiSAD4x4_8u32s(const Vek8u* pSrc, int srcStep, const Vek8u* pRef, int refStep,
                                            Vek32s* pSAD, int mcType);
VEK_API VekStatus VEK_CALL vekiSAD16x16Blocks8x8_8u16u(const Vek8u* pSrc, int srcStep, const Vek8u* pRef, int refStep,
                                                       Vek16u* pDstSAD, int mcType);
VEK_API VekStatus VEK_CALL vekiSAD16x16Blocks4x4_8u16u(const Vek8u* pSrc, int srcStep, const Vek8u* pRef, int refStep,
                                                       Vek16u* pDstSAD, int mcType);
VEK_API VekStatus VEK_CALL vekiSqrDiff16x16_8u32s(const Vek8u* pSrc, int srcStep, const Vek8u* pRef, int refStep,
                                                  int mcType, Vek32s* pSqrDiff);
VEK_API VekStatus VEK_CALL vekiSqrDiff16x16B_8u32s(const Vek8u* pSrc, int srcStep, const Vek8u* pRefF, int refFStep,
                                                   int mcTypeF, const Vek8u* pRefB, int refBStep, int mcTypeB,
                                                   Vek32s* pSqrDiff);
VEK_API VekStatus VEK_CALL vekiVariance16x16_8u32s(const Vek8u* pSrc, int srcStep, Vek32s* pVar);

/* ======================================================================
 * Video: MPEG-2 quantisation
 * Intra and non-intra quantisation with mismatch control.
 * ====================================================================== */
/* Forward and inverse quantisation of one 8x8 block of DCT coefficients
 * (64 Vek16s, raster order) for MPEG-2 video, in place.  QP is the
 * quantiser step as the caller has mapped it (no scale-code table here).
 *
 * vekiQuant_MPEG2_16s_C1I (pSrcDst, QP, pQPMatrix, pCount): non-intra.
 *   With a matrix (64 Vek32f reciprocals 1/W): for every coefficient,
 *   q = (c * (16 / QP)) * M[i] in single precision, in that order, each
 *   operation rounded to float at every level; q is truncated toward zero
 *   and clamped to -2047..2047 (NaN, from a matrix holding infinities or
 *   NaNs, gives 0).  Without a matrix: QP <= 1 returns at once with the
 *   block unchanged and *pCount 0; otherwise r = (65536 + QP / 2) / QP and
 *   q = (c * r) / 65536, truncating, clamped to -2047..2047.
 *   *pCount is the number of non-zero results.
 * vekiQuantIntra_MPEG2_16s_C1I: the same float formula for coefficients
 *   1..63; the DC coefficient is left as it is and not counted.  A NULL
 *   matrix means the reciprocals of the MPEG-2 default intra matrix.
 * Forward checks: pSrcDst or pCount NULL -> StatusNullPointer; QP = 0 ->
 *   StatusDivideByZero; *pCount is cleared after these checks.
 *
 * vekiQuantInv_MPEG2_16s_C1I (pSrcDst, QP, pQPMatrix): non-intra, with
 *   s the sign of c (zero coefficients stay zero):
 *   v = ((2c + s) * QP * W[i]) / 32 with weights, v = (QP * (2c + s)) / 2
 *   without (pQPMatrix NULL), clamped to -2048..2047.
 * vekiQuantInvIntra_MPEG2_16s_C1I (pSrcDst, QP, pQPMatrix): weights
 *   required; the DC coefficient is kept; for the others
 *   v = (c * QP * W[i] * 2) / 32, clamped to -2048..2047.
 * Both: mismatch control: when the sum of the 64 stored values (the DC
 *   included) is even, the lowest bit of coefficient 63 is toggled.
 *   Products are formed in 32-bit two's-complement arithmetic, exact for
 *   every coefficient, scale and weight MPEG-2 allows, and divisions
 *   truncate toward zero.
 * Inverse checks: pSrcDst NULL (and, intra, pQPMatrix NULL) ->
 *   StatusNullPointer. */
VEK_API VekStatus VEK_CALL vekiQuant_MPEG2_16s_C1I(Vek16s* pSrcDst, int QP, const Vek32f* pQPMatrix, Vek32s* pCount);
VEK_API VekStatus VEK_CALL vekiQuantIntra_MPEG2_16s_C1I(Vek16s* pSrcDst, int QP, const Vek32f* pQPMatrix,
                                                        Vek32s* pCount);
VEK_API VekStatus VEK_CALL vekiQuantInv_MPEG2_16s_C1I(Vek16s* pSrcDst, int QP, const Vek16s* pQPMatrix);
VEK_API VekStatus VEK_CALL vekiQuantInvIntra_MPEG2_16s_C1I(Vek16s* pSrcDst, int QP, const Vek16s* pQPMatrix);

#ifdef __cplusplus
}
#endif
#endif /* VEK_H */

// The one list of dispatched exports.
//
// Each line names an export, the implementation that serves each of the
// eight code-path levels, its return type and its parameters:
//
//   VEK_EXPORT(name, L0, L1, L2, L3, L4, L5, L6, L7, return type, (parameters))
//
// L0..L7 are the namespaces of the level implementations (core/levels.h):
// plain (portable C++), sse, sse2, sse3, ssse3, sse41, avx2, avx512.  A
// level that gains nothing from its instruction set names the implementation
// of a level below it, so the table below is also the record of which levels
// share code.
//
// From this list come the per-export dispatch tables (dispatch_tables.cpp),
// the exported entry stubs (entry_stubs.cpp), the Windows export table and
// the enumeration the tests and `vek exports` walk.  Adding an export is one
// line here, its prototype in include/vek.h and its kernels.
//
// Keep one export per line: tests/check_entry_stubs.sh reads the names.

// clang-format off

// ---- services whose levels share one implementation ----------------------
VEK_EXPORT(veksMalloc_8u,     plain, plain, plain, plain, plain, plain, plain, plain, Vek8u*,  (int length))
VEK_EXPORT(veksFree,          plain, plain, plain, plain, plain, plain, plain, plain, void,    (void* ptr))
VEK_EXPORT(vekiMalloc_8u_C1,  plain, plain, plain, plain, plain, plain, plain, plain, Vek8u*,  (int widthPixels, int heightPixels, int* pStepBytes))
VEK_EXPORT(vekiMalloc_8u_C3,  plain, plain, plain, plain, plain, plain, plain, plain, Vek8u*,  (int widthPixels, int heightPixels, int* pStepBytes))
VEK_EXPORT(vekiMalloc_16s_C1, plain, plain, plain, plain, plain, plain, plain, plain, Vek16s*, (int widthPixels, int heightPixels, int* pStepBytes))
VEK_EXPORT(vekiMalloc_16s_C3, plain, plain, plain, plain, plain, plain, plain, plain, Vek16s*, (int widthPixels, int heightPixels, int* pStepBytes))
VEK_EXPORT(vekiMalloc_16u_C1, plain, plain, plain, plain, plain, plain, plain, plain, Vek16u*, (int widthPixels, int heightPixels, int* pStepBytes))
VEK_EXPORT(vekiMalloc_16u_C3, plain, plain, plain, plain, plain, plain, plain, plain, Vek16u*, (int widthPixels, int heightPixels, int* pStepBytes))
VEK_EXPORT(vekiMalloc_32s_C1, plain, plain, plain, plain, plain, plain, plain, plain, Vek32s*, (int widthPixels, int heightPixels, int* pStepBytes))
VEK_EXPORT(vekiMalloc_32s_C3, plain, plain, plain, plain, plain, plain, plain, plain, Vek32s*, (int widthPixels, int heightPixels, int* pStepBytes))
VEK_EXPORT(vekiMalloc_32f_C1, plain, plain, plain, plain, plain, plain, plain, plain, Vek32f*, (int widthPixels, int heightPixels, int* pStepBytes))
VEK_EXPORT(vekiMalloc_32f_C3, plain, plain, plain, plain, plain, plain, plain, plain, Vek32f*, (int widthPixels, int heightPixels, int* pStepBytes))
VEK_EXPORT(vekiFree,          plain, plain, plain, plain, plain, plain, plain, plain, void,    (void* ptr))

// ---- version records: one per level ---------------------------------------
VEK_EXPORT(veksGetLibVersion, plain, sse, sse2, sse3, ssse3, sse41, avx2, avx512, const VekLibraryVersion*, (void))
VEK_EXPORT(vekiGetLibVersion, plain, sse, sse2, sse3, ssse3, sse41, avx2, avx512, const VekLibraryVersion*, (void))
VEK_EXPORT(vekjGetLibVersion, plain, sse, sse2, sse3, ssse3, sse41, avx2, avx512, const VekLibraryVersion*, (void))

// ---- vector arithmetic with integer scaling (signal/arith_*) ---------------
// Float members use packed SSE from level 1; integer members SSE2 from
// level 2; the 32-bit products use the signed multiply of SSE4.1.
VEK_EXPORT(veksAdd_16s_Sfs,   plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksAdd_16s_ISfs,  plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (const Vek16s* pSrc, Vek16s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksAdd_32s_Sfs,   plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksAdd_32s_ISfs,  plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (const Vek32s* pSrc, Vek32s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksAdd_32f,       plain, sse,   sse,  sse,  sse,  sse,  sse,  sse,   VekStatus, (const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len))
VEK_EXPORT(veksAdd_32f_I,     plain, sse,   sse,  sse,  sse,  sse,  sse,  sse,   VekStatus, (const Vek32f* pSrc, Vek32f* pSrcDst, int len))
VEK_EXPORT(veksSub_16s_Sfs,   plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksSub_16s_ISfs,  plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (const Vek16s* pSrc, Vek16s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksSub_32s_Sfs,   plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksSub_32s_ISfs,  plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (const Vek32s* pSrc, Vek32s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksSub_32f,       plain, sse,   sse,  sse,  sse,  sse,  sse,  sse,   VekStatus, (const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len))
VEK_EXPORT(veksSub_32f_I,     plain, sse,   sse,  sse,  sse,  sse,  sse,  sse,   VekStatus, (const Vek32f* pSrc, Vek32f* pSrcDst, int len))
VEK_EXPORT(veksMul_32s_Sfs,   plain, plain, sse2, sse2, sse2, sse41, sse41, sse41, VekStatus, (const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksMul_32s_ISfs,  plain, plain, sse2, sse2, sse2, sse41, sse41, sse41, VekStatus, (const Vek32s* pSrc, Vek32s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksMul_32f,       plain, sse,   sse,  sse,  sse,  sse,  sse,  sse,   VekStatus, (const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len))
VEK_EXPORT(veksMul_32f_I,     plain, sse,   sse,  sse,  sse,  sse,  sse,  sse,   VekStatus, (const Vek32f* pSrc, Vek32f* pSrcDst, int len))
VEK_EXPORT(veksAddC_16s_Sfs,  plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksAddC_16s_ISfs, plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksAddC_32s_Sfs,  plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (const Vek32s* pSrc, Vek32s val, Vek32s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksAddC_32s_ISfs, plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (Vek32s val, Vek32s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksAddC_32f,      plain, sse,   sse,  sse,  sse,  sse,  sse,  sse,   VekStatus, (const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len))
VEK_EXPORT(veksAddC_32f_I,    plain, sse,   sse,  sse,  sse,  sse,  sse,  sse,   VekStatus, (Vek32f val, Vek32f* pSrcDst, int len))
VEK_EXPORT(veksSubC_16s_Sfs,  plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksSubC_16s_ISfs, plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksSubC_32s_Sfs,  plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (const Vek32s* pSrc, Vek32s val, Vek32s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksSubC_32s_ISfs, plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (Vek32s val, Vek32s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksSubC_32f,      plain, sse,   sse,  sse,  sse,  sse,  sse,  sse,   VekStatus, (const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len))
VEK_EXPORT(veksSubC_32f_I,    plain, sse,   sse,  sse,  sse,  sse,  sse,  sse,   VekStatus, (Vek32f val, Vek32f* pSrcDst, int len))
VEK_EXPORT(veksMulC_16s_Sfs,  plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksMulC_16s_ISfs, plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksMulC_32s_Sfs,  plain, plain, sse2, sse2, sse2, sse41, sse41, sse41, VekStatus, (const Vek32s* pSrc, Vek32s val, Vek32s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksMulC_32s_ISfs, plain, plain, sse2, sse2, sse2, sse41, sse41, sse41, VekStatus, (Vek32s val, Vek32s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksMulC_32f,      plain, sse,   sse,  sse,  sse,  sse,  sse,  sse,   VekStatus, (const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len))
VEK_EXPORT(veksMulC_32f_I,    plain, sse,   sse,  sse,  sse,  sse,  sse,  sse,   VekStatus, (Vek32f val, Vek32f* pSrcDst, int len))

// ---- vector shifts, conversions, copy and thresholds (signal/) -------------
// Integer members use SSE2 from level 2 (SSE alone has no integer vectors);
// SSE4.1 adds the signed 32-bit min/max of the thresholds and the rounding
// instruction of the float-to-integer conversion.  Copy and Move call the C
// runtime's memcpy and memmove, which already pick the widest copy loop the
// processor has: no level of ours would beat them.
VEK_EXPORT(veksLShiftC_16s,        plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (const Vek16s* pSrc, int shift, Vek16s* pDst, int len))
VEK_EXPORT(veksLShiftC_16s_I,      plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (int shift, Vek16s* pSrcDst, int len))
VEK_EXPORT(veksLShiftC_32s,        plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (const Vek32s* pSrc, int shift, Vek32s* pDst, int len))
VEK_EXPORT(veksRShiftC_16s,        plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (const Vek16s* pSrc, int shift, Vek16s* pDst, int len))
VEK_EXPORT(veksRShiftC_16s_I,      plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (int shift, Vek16s* pSrcDst, int len))
VEK_EXPORT(veksRShiftC_32s,        plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (const Vek32s* pSrc, int shift, Vek32s* pDst, int len))
VEK_EXPORT(veksRShiftC_32s_I,      plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (int shift, Vek32s* pSrcDst, int len))
VEK_EXPORT(veksConvert_16s32s,     plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (const Vek16s* pSrc, Vek32s* pDst, int len))
VEK_EXPORT(veksConvert_32s16s,     plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (const Vek32s* pSrc, Vek16s* pDst, int len))
VEK_EXPORT(veksConvert_32s32f_Sfs, plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,  VekStatus, (const Vek32s* pSrc, Vek32f* pDst, int len, int scaleFactor))
VEK_EXPORT(veksConvert_32f32s_Sfs, plain, plain, sse2, sse2, sse2, sse41, sse41, sse41, VekStatus, (const Vek32f* pSrc, Vek32s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksCopy_8u,            plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (const Vek8u* pSrc, Vek8u* pDst, int len))
VEK_EXPORT(veksMove_8u,            plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (const Vek8u* pSrc, Vek8u* pDst, int len))
VEK_EXPORT(veksThreshold_GT_32s_I, plain, plain, sse2, sse2, sse2, sse41, sse41, sse41, VekStatus, (Vek32s* pSrcDst, int len, Vek32s level))
VEK_EXPORT(veksThreshold_LT_32s_I, plain, plain, sse2, sse2, sse2, sse41, sse41, sse41, VekStatus, (Vek32s* pSrcDst, int len, Vek32s level))


// ---- image copies, sets, mirrors, channel swaps, borders (image/) ----------
// Whole rows go through memcpy at every level; the vector levels add
// shuffles where a row is reordered (see image/copy_simd.h).
VEK_EXPORT(vekiCopy_8u_C1R,       plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_16s_C1R,      plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (const Vek16s* pSrc, int srcStep, Vek16s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_32f_C1R,      plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (const Vek32f* pSrc, int srcStep, Vek32f* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_8u_C3R,       plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_8u_C4R,       plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_8u_AC4R,      plain, plain, sse2,  sse2,  sse2,  sse2,  sse2,  sse2,  VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_8u_P3C3R,     plain, plain, plain, plain, ssse3, ssse3, ssse3, ssse3, VekStatus, (const Vek8u* const pSrc[3], int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_16s_P3C3R,    plain, plain, plain, plain, ssse3, ssse3, ssse3, ssse3, VekStatus, (const Vek16s* const pSrc[3], int srcStep, Vek16s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_32f_P3C3R,    plain, sse,   sse,   sse,   sse,   sse,   sse,   sse,   VekStatus, (const Vek32f* const pSrc[3], int srcStep, Vek32f* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_32f_C3P3R,    plain, sse,   sse,   sse,   sse,   sse,   sse,   sse,   VekStatus, (const Vek32f* pSrc, int srcStep, Vek32f* const pDst[3], int dstStep, VekiSize roi))
VEK_EXPORT(vekiSet_8u_C1R,        plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (Vek8u value, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiSet_16s_C1R,       plain, plain, sse2,  sse2,  sse2,  sse2,  sse2,  sse2,  VekStatus, (Vek16s value, Vek16s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiSet_16u_C1R,       plain, plain, sse2,  sse2,  sse2,  sse2,  sse2,  sse2,  VekStatus, (Vek16u value, Vek16u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiSet_8u_C3CR,       plain, plain, sse2,  sse2,  sse2,  sse2,  sse2,  sse2,  VekStatus, (Vek8u value, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiMirror_8u_C1R,     plain, plain, sse2,  sse2,  ssse3, ssse3, ssse3, ssse3, VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_8u_C3R,     plain, plain, plain, plain, ssse3, ssse3, ssse3, ssse3, VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_16u_C1R,    plain, plain, sse2,  sse2,  ssse3, ssse3, ssse3, ssse3, VekStatus, (const Vek16u* pSrc, int srcStep, Vek16u* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_16u_C3R,    plain, plain, plain, plain, ssse3, ssse3, ssse3, ssse3, VekStatus, (const Vek16u* pSrc, int srcStep, Vek16u* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_16s_C1R,    plain, plain, sse2,  sse2,  ssse3, ssse3, ssse3, ssse3, VekStatus, (const Vek16s* pSrc, int srcStep, Vek16s* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_16s_C3R,    plain, plain, plain, plain, ssse3, ssse3, ssse3, ssse3, VekStatus, (const Vek16s* pSrc, int srcStep, Vek16s* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_32s_C1R,    plain, sse,   sse,   sse,   sse,   sse,   sse,   sse,   VekStatus, (const Vek32s* pSrc, int srcStep, Vek32s* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_32s_C3R,    plain, sse,   sse,   sse,   sse,   sse,   sse,   sse,   VekStatus, (const Vek32s* pSrc, int srcStep, Vek32s* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_32f_C1R,    plain, sse,   sse,   sse,   sse,   sse,   sse,   sse,   VekStatus, (const Vek32f* pSrc, int srcStep, Vek32f* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_32f_C3R,    plain, sse,   sse,   sse,   sse,   sse,   sse,   sse,   VekStatus, (const Vek32f* pSrc, int srcStep, Vek32f* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_8u_C1IR,    plain, plain, sse2,  sse2,  ssse3, ssse3, ssse3, ssse3, VekStatus, (Vek8u* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_8u_C3IR,    plain, plain, plain, plain, ssse3, ssse3, ssse3, ssse3, VekStatus, (Vek8u* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_16u_C1IR,   plain, plain, sse2,  sse2,  ssse3, ssse3, ssse3, ssse3, VekStatus, (Vek16u* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_16u_C3IR,   plain, plain, plain, plain, ssse3, ssse3, ssse3, ssse3, VekStatus, (Vek16u* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_16s_C1IR,   plain, plain, sse2,  sse2,  ssse3, ssse3, ssse3, ssse3, VekStatus, (Vek16s* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_16s_C3IR,   plain, plain, plain, plain, ssse3, ssse3, ssse3, ssse3, VekStatus, (Vek16s* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_32s_C1IR,   plain, sse,   sse,   sse,   sse,   sse,   sse,   sse,   VekStatus, (Vek32s* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_32s_C3IR,   plain, sse,   sse,   sse,   sse,   sse,   sse,   sse,   VekStatus, (Vek32s* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_32f_C1IR,   plain, sse,   sse,   sse,   sse,   sse,   sse,   sse,   VekStatus, (Vek32f* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_32f_C3IR,   plain, sse,   sse,   sse,   sse,   sse,   sse,   sse,   VekStatus, (Vek32f* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiSwapChannels_8u_C3R,  plain, plain, plain, plain, ssse3, ssse3, ssse3, ssse3, VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi, const int dstOrder[3]))
VEK_EXPORT(vekiSwapChannels_8u_C3IR, plain, plain, plain, plain, ssse3, ssse3, ssse3, ssse3, VekStatus, (Vek8u* pSrcDst, int srcDstStep, VekiSize roi, const int dstOrder[3]))
VEK_EXPORT(vekiCopyReplicateBorder_32s_C1R, plain, plain, sse2, sse2, sse2, sse2, sse2, sse2, VekStatus, (const Vek32s* pSrc, int srcStep, VekiSize srcRoi, Vek32s* pDst, int dstStep, VekiSize dstRoi, int topBorderHeight, int leftBorderWidth))


// ---- image type conversions and per-pixel arithmetic (image/) --------------
// Widening: integer members from SSE2 (unpacks); SSE4.1 sign-extends the
// 16s sources in one instruction.
VEK_EXPORT(vekiConvert_8u16u_C1R,       plain, plain, sse2, sse2, sse2, sse2, sse2, sse2, VekStatus, (const Vek8u* pSrc, int srcStep, Vek16u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_8u16u_C3R,       plain, plain, sse2, sse2, sse2, sse2, sse2, sse2, VekStatus, (const Vek8u* pSrc, int srcStep, Vek16u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_8u16s_C1R,       plain, plain, sse2, sse2, sse2, sse2, sse2, sse2, VekStatus, (const Vek8u* pSrc, int srcStep, Vek16s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_8u16s_C3R,       plain, plain, sse2, sse2, sse2, sse2, sse2, sse2, VekStatus, (const Vek8u* pSrc, int srcStep, Vek16s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_8u32s_C1R,       plain, plain, sse2, sse2, sse2, sse2, sse2, sse2, VekStatus, (const Vek8u* pSrc, int srcStep, Vek32s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_8u32s_C3R,       plain, plain, sse2, sse2, sse2, sse2, sse2, sse2, VekStatus, (const Vek8u* pSrc, int srcStep, Vek32s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_8u32f_C1R,       plain, plain, sse2, sse2, sse2, sse2, sse2, sse2, VekStatus, (const Vek8u* pSrc, int srcStep, Vek32f* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_8u32f_C3R,       plain, plain, sse2, sse2, sse2, sse2, sse2, sse2, VekStatus, (const Vek8u* pSrc, int srcStep, Vek32f* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_16u32s_C1R,      plain, plain, sse2, sse2, sse2, sse2, sse2, sse2, VekStatus, (const Vek16u* pSrc, int srcStep, Vek32s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_16u32s_C3R,      plain, plain, sse2, sse2, sse2, sse2, sse2, sse2, VekStatus, (const Vek16u* pSrc, int srcStep, Vek32s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_16u32f_C1R,      plain, plain, sse2, sse2, sse2, sse2, sse2, sse2, VekStatus, (const Vek16u* pSrc, int srcStep, Vek32f* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_16u32f_C3R,      plain, plain, sse2, sse2, sse2, sse2, sse2, sse2, VekStatus, (const Vek16u* pSrc, int srcStep, Vek32f* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_16s32s_C1R,      plain, plain, sse2, sse2, sse2, sse41, sse41, sse41, VekStatus, (const Vek16s* pSrc, int srcStep, Vek32s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_16s32s_C3R,      plain, plain, sse2, sse2, sse2, sse41, sse41, sse41, VekStatus, (const Vek16s* pSrc, int srcStep, Vek32s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_16s32f_C1R,      plain, plain, sse2, sse2, sse2, sse41, sse41, sse41, VekStatus, (const Vek16s* pSrc, int srcStep, Vek32f* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_16s32f_C3R,      plain, plain, sse2, sse2, sse2, sse41, sse41, sse41, VekStatus, (const Vek16s* pSrc, int srcStep, Vek32f* pDst, int dstStep, VekiSize roi))
// Narrowing: packs with saturation from SSE2; floats need SSE2 to reach
// integers, and SSE4.1 rounds with an explicit mode and packs unsigned.
VEK_EXPORT(vekiConvert_32s8u_C1R,       plain, plain, sse2, sse2, sse2, sse2, sse2, sse2, VekStatus, (const Vek32s* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_32s8u_C3R,       plain, plain, sse2, sse2, sse2, sse2, sse2, sse2, VekStatus, (const Vek32s* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_16s8u_C1R,       plain, plain, sse2, sse2, sse2, sse2, sse2, sse2, VekStatus, (const Vek16s* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_16s8u_C3R,       plain, plain, sse2, sse2, sse2, sse2, sse2, sse2, VekStatus, (const Vek16s* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_16u8u_C1R,       plain, plain, sse2, sse2, sse2, sse41, sse41, sse41, VekStatus, (const Vek16u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_16u8u_C3R,       plain, plain, sse2, sse2, sse2, sse41, sse41, sse41, VekStatus, (const Vek16u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_32f8u_C1R,       plain, plain, sse2, sse2, sse2, sse41, sse41, sse41, VekStatus, (const Vek32f* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_32f8u_C3R,       plain, plain, sse2, sse2, sse2, sse41, sse41, sse41, VekStatus, (const Vek32f* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_32f16s_C1R,      plain, plain, sse2, sse2, sse2, sse41, sse41, sse41, VekStatus, (const Vek32f* pSrc, int srcStep, Vek16s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_32f16s_C3R,      plain, plain, sse2, sse2, sse2, sse41, sse41, sse41, VekStatus, (const Vek32f* pSrc, int srcStep, Vek16s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_32f16u_C1R,      plain, plain, sse2, sse2, sse2, sse41, sse41, sse41, VekStatus, (const Vek32f* pSrc, int srcStep, Vek16u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_32f16u_C3R,      plain, plain, sse2, sse2, sse2, sse41, sse41, sse41, VekStatus, (const Vek32f* pSrc, int srcStep, Vek16u* pDst, int dstStep, VekiSize roi))
// Per-pixel arithmetic: shifts from SSE2; the products use the vector
// arithmetic's kernels of the same level.
VEK_EXPORT(vekiLShiftC_32s_C1R,         plain, plain, sse2, sse2, sse2, sse2, sse2, sse2, VekStatus, (const Vek32s* pSrc, int srcStep, Vek32u value, Vek32s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiLShiftC_32s_C1IR,        plain, plain, sse2, sse2, sse2, sse2, sse2, sse2, VekStatus, (Vek32u value, Vek32s* pSrcDst, int srcDstStep, VekiSize roi))
VEK_EXPORT(vekiRShiftC_16s_C1IR,        plain, plain, sse2, sse2, sse2, sse2, sse2, sse2, VekStatus, (Vek32u value, Vek16s* pSrcDst, int srcDstStep, VekiSize roi))
VEK_EXPORT(vekiRShiftC_32s_C1IR,        plain, plain, sse2, sse2, sse2, sse2, sse2, sse2, VekStatus, (Vek32u value, Vek32s* pSrcDst, int srcDstStep, VekiSize roi))
VEK_EXPORT(vekiMulC_16s_C1IRSfs,        plain, plain, sse2, sse2, sse2, sse2, sse2, sse2, VekStatus, (Vek16s value, Vek16s* pSrcDst, int srcDstStep, VekiSize roi, int scaleFactor))
VEK_EXPORT(vekiMulC_32f_C1IR,           plain, sse, sse, sse, sse, sse, sse, sse, VekStatus, (Vek32f value, Vek32f* pSrcDst, int srcDstStep, VekiSize roi))
VEK_EXPORT(vekiComplement_32s_C1IR,     plain, plain, sse2, sse2, sse2, sse2, sse2, sse2, VekStatus, (Vek32s* pSrcDst, int srcDstStep, VekiSize roi, int bitSize))


// ---- checksums (compression/) ----------------------------------------------
// Adler-32: psadbw/pmaddwd from SSE2, pmaddubsw from SSSE3, 64-byte chunks
// from AVX2.  CRC-32: three interleaved slicing streams from level 1, 64
// pshufb lanes from SSSE3, carry-less multiply folding from AVX2 (PCLMULQDQ)
// and AVX-512 (VPCLMULQDQ on 512 bits).
VEK_EXPORT(veksAdler32_8u,    plain, plain, sse2,  sse2,  ssse3, ssse3, avx2,  avx512, VekStatus, (const Vek8u* pSrc, int len, Vek32u* pAdler))
VEK_EXPORT(veksCRC32_8u,      plain, sse,   sse,   sse,   ssse3, ssse3, avx2,  avx512, VekStatus, (const Vek8u* pSrc, int len, Vek32u* pCrc))


// ---- run-length coding (compression/) --------------------------------------
// SSE2 finds literal stretches and run ends 16 bytes at a time.
VEK_EXPORT(veksEncodeRLE_8u,  plain, plain, sse2,  sse2,  sse2,  sse2,  sse2,  sse2,  VekStatus, (const Vek8u** ppSrc, int* pSrcLen, Vek8u* pDst, int* pDstLen))
VEK_EXPORT(veksDecodeRLE_8u,  plain, plain, sse2,  sse2,  sse2,  sse2,  sse2,  sse2,  VekStatus, (const Vek8u** ppSrc, int* pSrcLen, Vek8u* pDst, int* pDstLen))


// ---- the deflate encoder: state and match finding (compression/) -----------
// The state's own exports need no SIMD; matching compares 16 bytes at a
// time from SSE2 on, 32 from AVX2, and each level from SSSE3 on keeps the
// running checksum with its own level's checksum kernels.
VEK_EXPORT(veksEncodeLZ77GetSize_8u,       plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (int* pSize))
VEK_EXPORT(veksEncodeLZ77Init_8u,          plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (int comprClass, int checksumKind, VekDeflateState* pState))
VEK_EXPORT(veksEncodeLZ77InitAlloc_8u,     plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (int comprClass, int checksumKind, VekDeflateState** ppState))
VEK_EXPORT(veksLZ77Free_8u,                plain, plain, plain, plain, plain, plain, plain, plain, void,      (void* pState))
VEK_EXPORT(veksEncodeLZ77Reset_8u,         plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (VekDeflateState* pState))
VEK_EXPORT(veksEncodeLZ77SetDictionary_8u, plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (const Vek8u* pDict, int dictLen, VekDeflateState* pState))
VEK_EXPORT(veksEncodeLZ77_8u,              plain, plain, sse2,  sse2,  ssse3, ssse3, avx2,  avx512, VekStatus, (const Vek8u** ppSrc, int* pSrcLen, Vek16u** ppPairs, int* pPairsLen, int flush, VekDeflateState* pState))
VEK_EXPORT(veksEncodeLZ77GetPairs_8u,      plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (Vek16u** ppPairs, int* pPairsCount, int* pPairsCapacity, VekDeflateState* pState))
VEK_EXPORT(veksEncodeLZ77SetPairs_8u,      plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (Vek16u* pPairs, int pairsCount, int pairsCapacity, VekDeflateState* pState))


// ---- the deflate encoder: block coding and trailer (compression/) ----------
// Bit packing and table look-ups: the plain code, compiled again for AVX2
// and AVX-512 in the Huffman coders (the pairs checked by vectors, BMI2
// shifts).
VEK_EXPORT(veksEncodeLZ77GetStatus_8u,      plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (int* pStatus, VekDeflateState* pState))
VEK_EXPORT(veksEncodeLZ77SetStatus_8u,      plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (int status, VekDeflateState* pState))
VEK_EXPORT(veksEncodeLZ77SelectHuffMode_8u, plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (const Vek16u* pPairs, int pairsCount, int* pHuffMode, VekDeflateState* pState))
VEK_EXPORT(veksEncodeLZ77FixedHuff_8u,      plain, plain, plain, plain, plain, plain, avx2,  avx512, VekStatus, (const Vek16u** ppPairs, int* pPairsLen, Vek8u** ppDst, int* pDstLen, int flush, VekDeflateState* pState))
VEK_EXPORT(veksEncodeLZ77DynamicHuff_8u,    plain, plain, plain, plain, plain, plain, avx2,  avx512, VekStatus, (const Vek16u** ppPairs, int* pPairsLen, Vek8u** ppDst, int* pDstLen, int flush, VekDeflateState* pState))
VEK_EXPORT(veksEncodeLZ77StoredBlock_8u,    plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (const Vek8u** ppSrc, int* pSrcLen, Vek8u** ppDst, int* pDstLen, int flush, VekDeflateState* pState))
VEK_EXPORT(veksEncodeLZ77Flush_8u,          plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (Vek8u** ppDst, int* pDstLen, VekDeflateState* pState))

// ---- JPEG: DCT, quantisation, level shift (jpeg/) -------------------------
// (the family's exports go here)


// ---- JPEG: lossless prediction and TIFF rows (jpeg/) ----------------------
// (the family's exports go here)


// ---- JPEG: colour conversion, per-MCU level shift, chroma sampling (jpeg/) 
// (the family's exports go here)


// ---- JPEG: Huffman coding (jpeg/) -----------------------------------------
// (the family's exports go here)


// ---- JPEG 2000: wavelet transforms (jpeg2000/) ----------------------------
// (the family's exports go here)


// ---- JPEG 2000: component transforms (jpeg2000/) --------------------------
// (the family's exports go here)


// ---- video: motion compensation and block differences (video/) ------------
// (the family's exports go here)


// ---- video: block matching metrics (video/) -------------------------------
// (the family's exports go here)


// ---- video: MPEG-2 quantisation (video/) ----------------------------------
// (the family's exports go here)

// clang-format on

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
// level 2; the 32-bit products use the signed multiply of SSE4.1.  AVX2 and
// AVX-512 run the same kernels on 256- and 512-bit vectors.
VEK_EXPORT(veksAdd_16s_Sfs,   plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksAdd_16s_ISfs,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek16s* pSrc, Vek16s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksAdd_32s_Sfs,   plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksAdd_32s_ISfs,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek32s* pSrc, Vek32s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksAdd_32f,       plain, sse,   sse,  sse,  sse,  sse,   avx2, avx512, VekStatus, (const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len))
VEK_EXPORT(veksAdd_32f_I,     plain, sse,   sse,  sse,  sse,  sse,   avx2, avx512, VekStatus, (const Vek32f* pSrc, Vek32f* pSrcDst, int len))
VEK_EXPORT(veksSub_16s_Sfs,   plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksSub_16s_ISfs,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek16s* pSrc, Vek16s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksSub_32s_Sfs,   plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksSub_32s_ISfs,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek32s* pSrc, Vek32s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksSub_32f,       plain, sse,   sse,  sse,  sse,  sse,   avx2, avx512, VekStatus, (const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len))
VEK_EXPORT(veksSub_32f_I,     plain, sse,   sse,  sse,  sse,  sse,   avx2, avx512, VekStatus, (const Vek32f* pSrc, Vek32f* pSrcDst, int len))
VEK_EXPORT(veksMul_32s_Sfs,   plain, plain, sse2, sse2, sse2, sse41, avx2, avx512, VekStatus, (const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksMul_32s_ISfs,  plain, plain, sse2, sse2, sse2, sse41, avx2, avx512, VekStatus, (const Vek32s* pSrc, Vek32s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksMul_32f,       plain, sse,   sse,  sse,  sse,  sse,   avx2, avx512, VekStatus, (const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len))
VEK_EXPORT(veksMul_32f_I,     plain, sse,   sse,  sse,  sse,  sse,   avx2, avx512, VekStatus, (const Vek32f* pSrc, Vek32f* pSrcDst, int len))
VEK_EXPORT(veksAddC_16s_Sfs,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksAddC_16s_ISfs, plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksAddC_32s_Sfs,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek32s* pSrc, Vek32s val, Vek32s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksAddC_32s_ISfs, plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (Vek32s val, Vek32s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksAddC_32f,      plain, sse,   sse,  sse,  sse,  sse,   avx2, avx512, VekStatus, (const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len))
VEK_EXPORT(veksAddC_32f_I,    plain, sse,   sse,  sse,  sse,  sse,   avx2, avx512, VekStatus, (Vek32f val, Vek32f* pSrcDst, int len))
VEK_EXPORT(veksSubC_16s_Sfs,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksSubC_16s_ISfs, plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksSubC_32s_Sfs,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek32s* pSrc, Vek32s val, Vek32s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksSubC_32s_ISfs, plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (Vek32s val, Vek32s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksSubC_32f,      plain, sse,   sse,  sse,  sse,  sse,   avx2, avx512, VekStatus, (const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len))
VEK_EXPORT(veksSubC_32f_I,    plain, sse,   sse,  sse,  sse,  sse,   avx2, avx512, VekStatus, (Vek32f val, Vek32f* pSrcDst, int len))
VEK_EXPORT(veksMulC_16s_Sfs,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksMulC_16s_ISfs, plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksMulC_32s_Sfs,  plain, plain, sse2, sse2, sse2, sse41, avx2, avx512, VekStatus, (const Vek32s* pSrc, Vek32s val, Vek32s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksMulC_32s_ISfs, plain, plain, sse2, sse2, sse2, sse41, avx2, avx512, VekStatus, (Vek32s val, Vek32s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksMulC_32f,      plain, sse,   sse,  sse,  sse,  sse,   avx2, avx512, VekStatus, (const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len))
VEK_EXPORT(veksMulC_32f_I,    plain, sse,   sse,  sse,  sse,  sse,   avx2, avx512, VekStatus, (Vek32f val, Vek32f* pSrcDst, int len))

// ---- vector shifts, conversions, copy and thresholds (signal/) -------------
// Integer members use SSE2 from level 2 (SSE alone has no integer vectors);
// SSE4.1 adds the signed 32-bit min/max of the thresholds and the rounding
// instruction of the float-to-integer conversion; AVX2 and AVX-512 run the
// same kernels on 256- and 512-bit vectors.  Copy and Move call the C
// runtime's memcpy and memmove, which already pick the widest copy loop the
// processor has: no level of ours would beat them.
VEK_EXPORT(veksLShiftC_16s,        plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek16s* pSrc, int shift, Vek16s* pDst, int len))
VEK_EXPORT(veksLShiftC_16s_I,      plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (int shift, Vek16s* pSrcDst, int len))
VEK_EXPORT(veksLShiftC_32s,        plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek32s* pSrc, int shift, Vek32s* pDst, int len))
VEK_EXPORT(veksRShiftC_16s,        plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek16s* pSrc, int shift, Vek16s* pDst, int len))
VEK_EXPORT(veksRShiftC_16s_I,      plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (int shift, Vek16s* pSrcDst, int len))
VEK_EXPORT(veksRShiftC_32s,        plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek32s* pSrc, int shift, Vek32s* pDst, int len))
VEK_EXPORT(veksRShiftC_32s_I,      plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (int shift, Vek32s* pSrcDst, int len))
VEK_EXPORT(veksConvert_16s32s,     plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek16s* pSrc, Vek32s* pDst, int len))
VEK_EXPORT(veksConvert_32s16s,     plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek32s* pSrc, Vek16s* pDst, int len))
VEK_EXPORT(veksConvert_32s32f_Sfs, plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek32s* pSrc, Vek32f* pDst, int len, int scaleFactor))
VEK_EXPORT(veksConvert_32f32s_Sfs, plain, plain, sse2,  sse2,  sse2,  sse41, avx2,  avx512, VekStatus, (const Vek32f* pSrc, Vek32s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksCopy_8u,            plain, plain, plain, plain, plain, plain, plain, plain,  VekStatus, (const Vek8u* pSrc, Vek8u* pDst, int len))
VEK_EXPORT(veksMove_8u,            plain, plain, plain, plain, plain, plain, plain, plain,  VekStatus, (const Vek8u* pSrc, Vek8u* pDst, int len))
VEK_EXPORT(veksThreshold_GT_32s_I, plain, plain, sse2,  sse2,  sse2,  sse41, avx2,  avx512, VekStatus, (Vek32s* pSrcDst, int len, Vek32s level))
VEK_EXPORT(veksThreshold_LT_32s_I, plain, plain, sse2,  sse2,  sse2,  sse41, avx2,  avx512, VekStatus, (Vek32s* pSrcDst, int len, Vek32s level))


// ---- image copies, sets, mirrors, channel swaps, borders (image/) ----------
// Whole rows go through memcpy at every level; the vector levels add
// shuffles where a row is reordered (see image/copy_simd.h).  AVX2 reverses
// whole 256-bit registers and permutes 32-bit elements across them, AVX-512
// 16-bit ones too (VPERMW).  Three-channel bytes (no byte permutation across
// lanes below VBMI), the channel swap and the border replication keep their
// lower level: their wide forms measured no faster.
VEK_EXPORT(vekiCopy_8u_C1R,       plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_16s_C1R,      plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (const Vek16s* pSrc, int srcStep, Vek16s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_32f_C1R,      plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (const Vek32f* pSrc, int srcStep, Vek32f* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_8u_C3R,       plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_8u_C4R,       plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_8u_AC4R,      plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512,  VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_8u_P3C3R,     plain, plain, plain, plain, ssse3, ssse3, ssse3, ssse3, VekStatus, (const Vek8u* const pSrc[3], int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_16s_P3C3R,    plain, plain, plain, plain, ssse3, ssse3, ssse3, avx512, VekStatus, (const Vek16s* const pSrc[3], int srcStep, Vek16s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_32f_P3C3R,    plain, sse,   sse,   sse,   sse,   sse,   avx2,   avx512,   VekStatus, (const Vek32f* const pSrc[3], int srcStep, Vek32f* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_32f_C3P3R,    plain, sse,   sse,   sse,   sse,   sse,   avx2,   avx512,   VekStatus, (const Vek32f* pSrc, int srcStep, Vek32f* const pDst[3], int dstStep, VekiSize roi))
VEK_EXPORT(vekiSet_8u_C1R,        plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (Vek8u value, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiSet_16s_C1R,       plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512,  VekStatus, (Vek16s value, Vek16s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiSet_16u_C1R,       plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512,  VekStatus, (Vek16u value, Vek16u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiSet_8u_C3CR,       plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512,  VekStatus, (Vek8u value, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiMirror_8u_C1R,     plain, plain, sse2,  sse2,  ssse3, ssse3, avx2, avx512, VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_8u_C3R,     plain, plain, plain, plain, ssse3, ssse3, ssse3, ssse3, VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_16u_C1R,    plain, plain, sse2,  sse2,  ssse3, ssse3, avx2, avx512, VekStatus, (const Vek16u* pSrc, int srcStep, Vek16u* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_16u_C3R,    plain, plain, plain, plain, ssse3, ssse3, ssse3, avx512, VekStatus, (const Vek16u* pSrc, int srcStep, Vek16u* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_16s_C1R,    plain, plain, sse2,  sse2,  ssse3, ssse3, avx2, avx512, VekStatus, (const Vek16s* pSrc, int srcStep, Vek16s* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_16s_C3R,    plain, plain, plain, plain, ssse3, ssse3, ssse3, avx512, VekStatus, (const Vek16s* pSrc, int srcStep, Vek16s* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_32s_C1R,    plain, sse,   sse,   sse,   sse,   sse,   avx2,   avx512,   VekStatus, (const Vek32s* pSrc, int srcStep, Vek32s* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_32s_C3R,    plain, sse,   sse,   sse,   sse,   sse,   avx2,   avx512,   VekStatus, (const Vek32s* pSrc, int srcStep, Vek32s* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_32f_C1R,    plain, sse,   sse,   sse,   sse,   sse,   avx2,   avx512,   VekStatus, (const Vek32f* pSrc, int srcStep, Vek32f* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_32f_C3R,    plain, sse,   sse,   sse,   sse,   sse,   avx2,   avx512,   VekStatus, (const Vek32f* pSrc, int srcStep, Vek32f* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_8u_C1IR,    plain, plain, sse2,  sse2,  ssse3, ssse3, avx2, avx512, VekStatus, (Vek8u* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_8u_C3IR,    plain, plain, plain, plain, ssse3, ssse3, ssse3, ssse3, VekStatus, (Vek8u* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_16u_C1IR,   plain, plain, sse2,  sse2,  ssse3, ssse3, avx2, avx512, VekStatus, (Vek16u* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_16u_C3IR,   plain, plain, plain, plain, ssse3, ssse3, ssse3, avx512, VekStatus, (Vek16u* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_16s_C1IR,   plain, plain, sse2,  sse2,  ssse3, ssse3, avx2, avx512, VekStatus, (Vek16s* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_16s_C3IR,   plain, plain, plain, plain, ssse3, ssse3, ssse3, avx512, VekStatus, (Vek16s* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_32s_C1IR,   plain, sse,   sse,   sse,   sse,   sse,   avx2,   avx512,   VekStatus, (Vek32s* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_32s_C3IR,   plain, sse,   sse,   sse,   sse,   sse,   avx2,   avx512,   VekStatus, (Vek32s* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_32f_C1IR,   plain, sse,   sse,   sse,   sse,   sse,   avx2,   avx512,   VekStatus, (Vek32f* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_32f_C3IR,   plain, sse,   sse,   sse,   sse,   sse,   avx2,   avx512,   VekStatus, (Vek32f* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiSwapChannels_8u_C3R,  plain, plain, plain, plain, ssse3, ssse3, ssse3, ssse3, VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi, const int dstOrder[3]))
VEK_EXPORT(vekiSwapChannels_8u_C3IR, plain, plain, plain, plain, ssse3, ssse3, ssse3, ssse3, VekStatus, (Vek8u* pSrcDst, int srcDstStep, VekiSize roi, const int dstOrder[3]))
VEK_EXPORT(vekiCopyReplicateBorder_32s_C1R, plain, plain, sse2, sse2, sse2, sse2, sse2, sse2, VekStatus, (const Vek32s* pSrc, int srcStep, VekiSize srcRoi, Vek32s* pDst, int dstStep, VekiSize dstRoi, int topBorderHeight, int leftBorderWidth))


// ---- image type conversions and per-pixel arithmetic (image/) --------------
// Widening: integer members from SSE2 (unpacks); SSE4.1 sign-extends the
// 16s sources in one instruction.  AVX2 and AVX-512 run every conversion
// and per-pixel operation on 256- and 512-bit vectors.
VEK_EXPORT(vekiConvert_8u16u_C1R,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek8u* pSrc, int srcStep, Vek16u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_8u16u_C3R,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek8u* pSrc, int srcStep, Vek16u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_8u16s_C1R,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek8u* pSrc, int srcStep, Vek16s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_8u16s_C3R,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek8u* pSrc, int srcStep, Vek16s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_8u32s_C1R,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek8u* pSrc, int srcStep, Vek32s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_8u32s_C3R,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek8u* pSrc, int srcStep, Vek32s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_8u32f_C1R,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek8u* pSrc, int srcStep, Vek32f* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_8u32f_C3R,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek8u* pSrc, int srcStep, Vek32f* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_16u32s_C1R, plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek16u* pSrc, int srcStep, Vek32s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_16u32s_C3R, plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek16u* pSrc, int srcStep, Vek32s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_16u32f_C1R, plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek16u* pSrc, int srcStep, Vek32f* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_16u32f_C3R, plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek16u* pSrc, int srcStep, Vek32f* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_16s32s_C1R, plain, plain, sse2, sse2, sse2, sse41, avx2, avx512, VekStatus, (const Vek16s* pSrc, int srcStep, Vek32s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_16s32s_C3R, plain, plain, sse2, sse2, sse2, sse41, avx2, avx512, VekStatus, (const Vek16s* pSrc, int srcStep, Vek32s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_16s32f_C1R, plain, plain, sse2, sse2, sse2, sse41, avx2, avx512, VekStatus, (const Vek16s* pSrc, int srcStep, Vek32f* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_16s32f_C3R, plain, plain, sse2, sse2, sse2, sse41, avx2, avx512, VekStatus, (const Vek16s* pSrc, int srcStep, Vek32f* pDst, int dstStep, VekiSize roi))
// Narrowing: packs with saturation from SSE2; floats need SSE2 to reach
// integers, and SSE4.1 rounds with an explicit mode and packs unsigned.
VEK_EXPORT(vekiConvert_32s8u_C1R,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek32s* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_32s8u_C3R,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek32s* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_16s8u_C1R,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek16s* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_16s8u_C3R,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek16s* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_16u8u_C1R,  plain, plain, sse2, sse2, sse2, sse41, avx2, avx512, VekStatus, (const Vek16u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_16u8u_C3R,  plain, plain, sse2, sse2, sse2, sse41, avx2, avx512, VekStatus, (const Vek16u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_32f8u_C1R,  plain, plain, sse2, sse2, sse2, sse41, avx2, avx512, VekStatus, (const Vek32f* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_32f8u_C3R,  plain, plain, sse2, sse2, sse2, sse41, avx2, avx512, VekStatus, (const Vek32f* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_32f16s_C1R, plain, plain, sse2, sse2, sse2, sse41, avx2, avx512, VekStatus, (const Vek32f* pSrc, int srcStep, Vek16s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_32f16s_C3R, plain, plain, sse2, sse2, sse2, sse41, avx2, avx512, VekStatus, (const Vek32f* pSrc, int srcStep, Vek16s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_32f16u_C1R, plain, plain, sse2, sse2, sse2, sse41, avx2, avx512, VekStatus, (const Vek32f* pSrc, int srcStep, Vek16u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiConvert_32f16u_C3R, plain, plain, sse2, sse2, sse2, sse41, avx2, avx512, VekStatus, (const Vek32f* pSrc, int srcStep, Vek16u* pDst, int dstStep, VekiSize roi))
// Per-pixel arithmetic: shifts from SSE2; the products use the vector
// arithmetic's kernels of the same level.
VEK_EXPORT(vekiLShiftC_32s_C1R,     plain, plain, sse2, sse2, sse2, sse2, avx2, avx512, VekStatus, (const Vek32s* pSrc, int srcStep, Vek32u value, Vek32s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiLShiftC_32s_C1IR,    plain, plain, sse2, sse2, sse2, sse2, avx2, avx512, VekStatus, (Vek32u value, Vek32s* pSrcDst, int srcDstStep, VekiSize roi))
VEK_EXPORT(vekiRShiftC_16s_C1IR,    plain, plain, sse2, sse2, sse2, sse2, avx2, avx512, VekStatus, (Vek32u value, Vek16s* pSrcDst, int srcDstStep, VekiSize roi))
VEK_EXPORT(vekiRShiftC_32s_C1IR,    plain, plain, sse2, sse2, sse2, sse2, avx2, avx512, VekStatus, (Vek32u value, Vek32s* pSrcDst, int srcDstStep, VekiSize roi))
VEK_EXPORT(vekiMulC_16s_C1IRSfs,    plain, plain, sse2, sse2, sse2, sse2, avx2, avx512, VekStatus, (Vek16s value, Vek16s* pSrcDst, int srcDstStep, VekiSize roi, int scaleFactor))
VEK_EXPORT(vekiMulC_32f_C1IR,       plain, sse,   sse,  sse,  sse,  sse,  avx2, avx512, VekStatus, (Vek32f value, Vek32f* pSrcDst, int srcDstStep, VekiSize roi))
VEK_EXPORT(vekiComplement_32s_C1IR, plain, plain, sse2, sse2, sse2, sse2, avx2, avx512, VekStatus, (Vek32s* pSrcDst, int srcDstStep, VekiSize roi, int bitSize))


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
// The 8x8 transforms and the fused functions work in 32-bit lanes from
// SSE2 (products emulated with pmuludq), SSE4.1 (pmulld) and AVX2 (eight
// lanes, one row a register).  At AVX-512 the forward transforms hold two
// of a pass's eight inputs a register; the inverses gain nothing over AVX2
// on one 8x8 block.  The libjpeg-compatible inverse (LLM) multiplies pairs
// of 16-bit values with pmaddwd from SSE2; AVX2 holds two of a pass's
// inputs and all eight lanes of its sums a register.  The float path needs SSE2 to reach integers.  The
// tables and the DC-only inverse are scalar work.
VEK_EXPORT(vekiDCT8x8Fwd_16s_C1R,                     plain, plain, sse2,  sse2,  sse2,  sse41, avx2,  avx512, VekStatus, (const Vek16s* pSrc, int srcStep, Vek16s* pDst))
VEK_EXPORT(vekiDCT8x8Fwd_8u16s_C1R,                   plain, plain, sse2,  sse2,  sse2,  sse41, avx2,  avx512, VekStatus, (const Vek8u* pSrc, int srcStep, Vek16s* pDst))
VEK_EXPORT(vekiDCT8x8Inv_16s_C1R,                     plain, plain, sse2,  sse2,  sse2,  sse41, avx2,  avx2,   VekStatus, (const Vek16s* pSrc, Vek16s* pDst, int dstStep))
VEK_EXPORT(vekiDCT8x8Inv_16s8u_C1R,                   plain, plain, sse2,  sse2,  sse2,  sse41, avx2,  avx2,   VekStatus, (const Vek16s* pSrc, Vek8u* pDst, int dstStep))
VEK_EXPORT(vekiDCT8x8InvLSClip_16s8u_C1R,             plain, plain, sse2,  sse2,  sse2,  sse41, avx2,  avx2,   VekStatus, (const Vek16s* pSrc, Vek8u* pDst, int dstStep, Vek16s addValue, Vek8u clipMin, Vek8u clipMax))
VEK_EXPORT(vekiQuantFwdRawTableInit_JPEG_8u,          plain, plain, plain, plain, plain, plain, plain, plain,  VekStatus, (Vek8u* pQuantRawTable, int quality))
VEK_EXPORT(vekiQuantFwdTableInit_JPEG_8u16u,          plain, plain, plain, plain, plain, plain, plain, plain,  VekStatus, (const Vek8u* pQuantRawTable, Vek16u* pQuantFwdTable))
VEK_EXPORT(vekiQuantInvTableInit_JPEG_8u16u,          plain, plain, plain, plain, plain, plain, plain, plain,  VekStatus, (const Vek8u* pQuantRawTable, Vek16u* pQuantInvTable))
VEK_EXPORT(vekiQuantFwd8x8_JPEG_16s_C1I,              plain, plain, sse2,  sse2,  sse2,  sse41, avx2,  avx2,   VekStatus, (Vek16s* pSrcDst, const Vek16u* pQuantFwdTable))
VEK_EXPORT(vekiQuantInv8x8_JPEG_16s_C1I,              plain, plain, sse2,  sse2,  sse2,  sse41, avx2,  avx2,   VekStatus, (Vek16s* pSrcDst, const Vek16u* pQuantInvTable))
VEK_EXPORT(vekiDCTQuantFwd8x8_JPEG_16s_C1,            plain, plain, sse2,  sse2,  sse2,  sse41, avx2,  avx512, VekStatus, (const Vek16s* pSrc, Vek16s* pDst, const Vek16u* pQuantFwdTable))
VEK_EXPORT(vekiDCTQuantFwd8x8_JPEG_16s_C1I,           plain, plain, sse2,  sse2,  sse2,  sse41, avx2,  avx512, VekStatus, (Vek16s* pSrcDst, const Vek16u* pQuantFwdTable))
VEK_EXPORT(vekiDCTQuantFwd8x8LS_JPEG_8u16s_C1R,       plain, plain, sse2,  sse2,  sse2,  sse41, avx2,  avx512, VekStatus, (const Vek8u* pSrc, int srcStep, Vek16s* pDst, const Vek16u* pQuantFwdTable))
VEK_EXPORT(vekiDCTQuantFwd8x8LS_JPEG_16u16s_C1R,      plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek16u* pSrc, int srcStep, Vek16s* pDst, const Vek32f* pQuantFwdTable))
VEK_EXPORT(vekiDCTQuantInv8x8_JPEG_16s_C1,            plain, plain, sse2,  sse2,  sse2,  sse41, avx2,  avx2,   VekStatus, (const Vek16s* pSrc, Vek16s* pDst, const Vek16u* pQuantInvTable))
VEK_EXPORT(vekiDCTQuantInv8x8_JPEG_16s_C1I,           plain, plain, sse2,  sse2,  sse2,  sse41, avx2,  avx2,   VekStatus, (Vek16s* pSrcDst, const Vek16u* pQuantInvTable))
VEK_EXPORT(vekiDCTQuantInv8x8LS_JPEG_16s8u_C1R,       plain, plain, sse2,  sse2,  sse2,  sse41, avx2,  avx2,   VekStatus, (const Vek16s* pSrc, Vek8u* pDst, int dstStep, const Vek16u* pQuantInvTable))
VEK_EXPORT(vekiDCTQuantInv8x8LS_LLM_JPEG_16s8u_C1R,   plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx2,   VekStatus, (const Vek16s* pSrc, Vek8u* pDst, int dstStep, const Vek16u* pQuantInvTable))
VEK_EXPORT(vekiDCTQuantInv8x8LS_JPEG_16s16u_C1R,      plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx2,   VekStatus, (const Vek16s* pSrc, Vek16u* pDst, int dstStep, const Vek32f* pQuantInvTable))
VEK_EXPORT(vekiDCTQuantInv8x8LS_1x1_JPEG_16s8u_C1R,   plain, plain, plain, plain, plain, plain, plain, plain,  VekStatus, (const Vek16s* pSrc, Vek8u* pDst, int dstStep, const Vek16u* pQuantInvTable))
VEK_EXPORT(vekiDCTQuantInv8x8LS_2x2_JPEG_16s8u_C1R,   plain, plain, sse2,  sse2,  sse2,  sse41, avx2,  avx2,   VekStatus, (const Vek16s* pSrc, Vek8u* pDst, int dstStep, const Vek16u* pQuantInvTable))
VEK_EXPORT(vekiDCTQuantInv8x8LS_4x4_JPEG_16s8u_C1R,   plain, plain, sse2,  sse2,  sse2,  sse41, avx2,  avx2,   VekStatus, (const Vek16s* pSrc, Vek8u* pDst, int dstStep, const Vek16u* pQuantInvTable))
VEK_EXPORT(vekiDCTQuantInv8x8To2x2LS_JPEG_16s8u_C1R,  plain, plain, sse2,  sse2,  sse2,  sse41, avx2,  avx2,   VekStatus, (const Vek16s* pSrc, Vek8u* pDst, int dstStep, const Vek16u* pQuantInvTable))
VEK_EXPORT(vekiDCTQuantInv8x8To4x4LS_JPEG_16s8u_C1R,  plain, plain, sse2,  sse2,  sse2,  sse41, avx2,  avx2,   VekStatus, (const Vek16s* pSrc, Vek8u* pDst, int dstStep, const Vek16u* pQuantInvTable))
VEK_EXPORT(vekiAdd128_JPEG_16s8u_C1R,                 plain, plain, sse2,  sse2,  sse2,  sse2,  sse2,  sse2,   VekStatus, (const Vek16s* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roiSize))
VEK_EXPORT(vekiSub128_JPEG_8u16s_C1R,                 plain, plain, sse2,  sse2,  sse2,  sse2,  sse2,  sse2,   VekStatus, (const Vek8u* pSrc, int srcStep, Vek16s* pDst, int dstStep, VekiSize roiSize))


// ---- JPEG: lossless prediction and TIFF rows (jpeg/) ----------------------
// Row prediction: the differences and predictors 2 and 3 are element-wise;
// the reconstructions of predictors 1, 4 and 5 are prefix sums (the left
// neighbour enters linearly); those of 6 and 7 stay serial at every level.
// 16-bit lanes from SSE2, 256-bit from AVX2, 512-bit from AVX-512 BW.
VEK_EXPORT(vekiDiffPredFirstRow_JPEG_16s_C1,        plain, plain, sse2, sse2, sse2, sse2, avx2, avx512, VekStatus, (const Vek16s* pSrc, Vek16s* pDst, int width, int precision, int pointTransform))
VEK_EXPORT(vekiDiffPredRow_JPEG_16s_C1,             plain, plain, sse2, sse2, sse2, sse2, avx2, avx512, VekStatus, (const Vek16s* pSrc, const Vek16s* pPrevRow, Vek16s* pDst, int width, int predictor))
VEK_EXPORT(vekiReconstructPredFirstRow_JPEG_16s_C1, plain, plain, sse2, sse2, sse2, sse2, avx2, avx512, VekStatus, (const Vek16s* pSrc, Vek16s* pDst, int width, int precision, int pointTransform))
VEK_EXPORT(vekiReconstructPredRow_JPEG_16s_C1,      plain, plain, sse2, sse2, sse2, sse2, avx2, avx512, VekStatus, (const Vek16s* pSrc, const Vek16s* pPrevRow, Vek16s* pDst, int width, int predictor))
// TIFF rows: PackBits scans for runs and literal stretches with 16-byte
// compares from SSE2 (its packets of at most 128 bytes, most of them short,
// gain nothing from wider vectors); the byte planes are unpacks and packs,
// 256-bit from AVX2, 512-bit from AVX-512 BW.
VEK_EXPORT(vekiPackBitsRow_TIFF_8u_C1,              plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,    VekStatus, (const Vek8u* pSrc, int srcLen, Vek8u* pDst, int* pDstCurrPos, int dstLenBytes))
VEK_EXPORT(vekiUnpackBitsRow_TIFF_8u_C1,            plain, plain, sse2, sse2, sse2, sse2, sse2, sse2,    VekStatus, (const Vek8u* pSrc, int* pSrcCurrPos, int srcLenBytes, Vek8u* pDst, int dstLen))
VEK_EXPORT(vekiJoinRow_TIFF_8u16u_C1,               plain, plain, sse2, sse2, sse2, sse2, avx2, avx512, VekStatus, (const Vek8u* const pSrc[2], Vek16u* pDst, int len))
VEK_EXPORT(vekiSplitRow_TIFF_16u8u_C1,              plain, plain, sse2, sse2, sse2, sse2, avx2, avx512, VekStatus, (const Vek16u* pSrc, Vek8u* const pDst[2], int len))


// ---- JPEG: colour conversion, per-MCU level shift, chroma sampling (jpeg/) 
// Three interleaved channels: SSE2 spreads three-byte pixels with shifts and masks, SSSE3
// gathers them with pshufb; AVX2 and AVX-512 convert 16 and 32 pixels a block.
VEK_EXPORT(vekiRGBToYCbCr_JPEG_8u_C3P3R,         plain, plain, sse2,  sse2,  ssse3, ssse3, avx2,  avx512, VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* const pDst[3], int dstStep, VekiSize roi))
VEK_EXPORT(vekiBGRToYCbCr_JPEG_8u_C3P3R,         plain, plain, sse2,  sse2,  ssse3, ssse3, avx2,  avx512, VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* const pDst[3], int dstStep, VekiSize roi))
VEK_EXPORT(vekiYCbCrToRGB_JPEG_8u_P3C3R,         plain, plain, sse2,  sse2,  ssse3, ssse3, avx2,  avx512, VekStatus, (const Vek8u* const pSrc[3], int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiYCbCrToBGR_JPEG_8u_P3C3R,         plain, plain, sse2,  sse2,  ssse3, ssse3, avx2,  avx512, VekStatus, (const Vek8u* const pSrc[3], int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiRGBToY_JPEG_8u_C3C1R,             plain, plain, sse2,  sse2,  ssse3, ssse3, avx2,  avx512, VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiBGRToY_JPEG_8u_C3C1R,             plain, plain, sse2,  sse2,  ssse3, ssse3, avx2,  avx512, VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiYCbCr422ToRGB_JPEG_8u_C2C3R,      plain, plain, sse2,  sse2,  ssse3, ssse3, avx2,  avx512, VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
// Planes, packed pixels, four channels: 16-bit lanes from SSE2, wider from AVX2.
VEK_EXPORT(vekiRGBToYCbCr_JPEG_8u_P3R,           plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* const pSrc[3], int srcStep, Vek8u* const pDst[3], int dstStep, VekiSize roi))
VEK_EXPORT(vekiYCbCrToRGB_JPEG_8u_P3R,           plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* const pSrc[3], int srcStep, Vek8u* const pDst[3], int dstStep, VekiSize roi))
VEK_EXPORT(vekiRGBToY_JPEG_8u_P3C1R,             plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* const pSrc[3], int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiBGR555ToYCbCr_JPEG_16u8u_C3P3R,   plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek16u* pSrc, int srcStep, Vek8u* const pDst[3], int dstStep, VekiSize roi))
VEK_EXPORT(vekiBGR565ToYCbCr_JPEG_16u8u_C3P3R,   plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek16u* pSrc, int srcStep, Vek8u* const pDst[3], int dstStep, VekiSize roi))
VEK_EXPORT(vekiYCbCrToBGR555_JPEG_8u16u_P3C3R,   plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* const pSrc[3], int srcStep, Vek16u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiYCbCrToBGR565_JPEG_8u16u_P3C3R,   plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* const pSrc[3], int srcStep, Vek16u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCMYKToYCCK_JPEG_8u_C4P4R,         plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* const pDst[4], int dstStep, VekiSize roi))
VEK_EXPORT(vekiYCCKToCMYK_JPEG_8u_P4C4R,         plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* const pSrc[4], int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
// Chroma sampling: 16-bit lanes from SSE2, 16 and 32 of them with AVX2 and AVX-512.
VEK_EXPORT(vekiSampleDownH2V1_JPEG_8u_C1R,       plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrc, int srcStep, VekiSize srcRoi, Vek8u* pDst, int dstStep, VekiSize dstRoi))
VEK_EXPORT(vekiSampleDownH2V2_JPEG_8u_C1R,       plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrc, int srcStep, VekiSize srcRoi, Vek8u* pDst, int dstStep, VekiSize dstRoi))
VEK_EXPORT(vekiSampleUpH2V1_JPEG_8u_C1R,         plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrc, int srcStep, VekiSize srcRoi, Vek8u* pDst, int dstStep, VekiSize dstRoi))
VEK_EXPORT(vekiSampleUpH2V2_JPEG_8u_C1R,         plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrc, int srcStep, VekiSize srcRoi, Vek8u* pDst, int dstStep, VekiSize dstRoi))
VEK_EXPORT(vekiSampleUpH2V1Smooth_JPEG_8u_C1R,   plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrc, int srcStep, VekiSize srcRoi, Vek8u* pDst, int dstStep, VekiSize dstRoi))
VEK_EXPORT(vekiSampleUpH2V2Smooth_JPEG_8u_C1R,   plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrc, int srcStep, VekiSize srcRoi, Vek8u* pDst, int dstStep, VekiSize dstRoi))
VEK_EXPORT(vekiSampleUpRowH2V2Smooth_JPEG_8u_C1, plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcNear, const Vek8u* pSrcFar, int srcWidth, Vek8u* pDst, int dstWidth))
// One MCU: a row of 8 pixels a 128-bit lane (pshufb from SSSE3), 2 and 4 rows a vector with AVX2 and AVX-512.
// The YUYV split and join are loads, masks and packs of SSE2; wider vectors gain nothing.
VEK_EXPORT(vekiRGBToYCbCr444LS_MCU_8u16s_C3P3R,  plain, plain, sse2,  sse2,  ssse3, ssse3, avx2,  avx512, VekStatus, (const Vek8u* pSrc, int srcStep, Vek16s* const pDstMCU[3]))
VEK_EXPORT(vekiRGBToYCbCr422LS_MCU_8u16s_C3P3R,  plain, plain, sse2,  sse2,  ssse3, ssse3, avx2,  avx512, VekStatus, (const Vek8u* pSrc, int srcStep, Vek16s* const pDstMCU[3]))
VEK_EXPORT(vekiRGBToYCbCr411LS_MCU_8u16s_C3P3R,  plain, plain, sse2,  sse2,  ssse3, ssse3, avx2,  avx512, VekStatus, (const Vek8u* pSrc, int srcStep, Vek16s* const pDstMCU[3]))
VEK_EXPORT(vekiYCbCr444ToRGBLS_MCU_16s8u_P3C3R,  plain, plain, sse2,  sse2,  ssse3, ssse3, avx2,  avx512, VekStatus, (const Vek16s* const pSrcMCU[3], Vek8u* pDst, int dstStep))
VEK_EXPORT(vekiYCbCr422ToRGBLS_MCU_16s8u_P3C3R,  plain, plain, sse2,  sse2,  ssse3, ssse3, avx2,  avx512, VekStatus, (const Vek16s* const pSrcMCU[3], Vek8u* pDst, int dstStep))
VEK_EXPORT(vekiYCbCr411ToRGBLS_MCU_16s8u_P3C3R,  plain, plain, sse2,  sse2,  ssse3, ssse3, avx2,  avx512, VekStatus, (const Vek16s* const pSrcMCU[3], Vek8u* pDst, int dstStep))
VEK_EXPORT(vekiSplit422LS_MCU_8u16s_C2P3R,       plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx2, VekStatus, (const Vek8u* pSrc, int srcStep, Vek16s* const pDstMCU[3]))
VEK_EXPORT(vekiJoin422LS_MCU_16s8u_P3C2R,        plain, plain, sse2,  sse2,  sse2,  sse2,  sse2,  sse2, VekStatus, (const Vek16s* const pSrcMCU[3], Vek8u* pDst, int dstStep))


// ---- JPEG: Huffman coding (jpeg/) -----------------------------------------
// Tables and states are built once per table or scan: every level shares
// the plain code.  Encoders and counters take the zig-zag reorder and the
// mask of nonzero coefficients from vectors (SSE2 compares, SSSE3 pshufb,
// AVX2, AVX-512 word permutes; at AVX2 and AVX-512 also the size categories
// and value bits); DC scans touch one coefficient and share the plain code.
// Decoders are chains of dependent look-ups that vectors do not shorten:
// the AVX2 build, with BMI2's one-instruction variable shifts and its block
// cleared and copied by vectors, is some 12% faster than the plain code;
// an SSE2 build measured no faster, and AVX-512 has nothing more they use.
VEK_EXPORT(vekiEncodeHuffmanSpecGetSize_JPEG_8u,             plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (int* pSize))
VEK_EXPORT(vekiEncodeHuffmanSpecInit_JPEG_8u,                plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (const Vek8u* pListBits, const Vek8u* pListVals, VekEncodeHuffmanSpec* pEncHuffSpec))
VEK_EXPORT(vekiDecodeHuffmanSpecGetSize_JPEG_8u,             plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (int* pSize))
VEK_EXPORT(vekiDecodeHuffmanSpecInit_JPEG_8u,                plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (const Vek8u* pListBits, const Vek8u* pListVals, VekDecodeHuffmanSpec* pDecHuffSpec))
VEK_EXPORT(vekiEncodeHuffmanStateGetSize_JPEG_8u,            plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (int* pSize))
VEK_EXPORT(vekiEncodeHuffmanStateInit_JPEG_8u,               plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (VekEncodeHuffmanState* pEncHuffState))
VEK_EXPORT(vekiDecodeHuffmanStateGetSize_JPEG_8u,            plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (int* pSize))
VEK_EXPORT(vekiDecodeHuffmanStateInit_JPEG_8u,               plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (VekDecodeHuffmanState* pDecHuffState))
VEK_EXPORT(vekiEncodeHuffmanRawTableInit_JPEG_8u,            plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (const int pStatistics[256], Vek8u* pListBits, Vek8u* pListVals))
VEK_EXPORT(vekiEncodeHuffman8x8_JPEG_16s1u_C1,               plain, plain, sse2,  sse2,  ssse3, ssse3, avx2,  avx512, VekStatus, (const Vek16s* pSrc, Vek8u* pDst, int dstLenBytes, int* pDstCurrPos, Vek16s* pLastDC, const VekEncodeHuffmanSpec* pDcTable, const VekEncodeHuffmanSpec* pAcTable, VekEncodeHuffmanState* pEncHuffState, int bFlushState))
VEK_EXPORT(vekiEncodeHuffman8x8_DCFirst_JPEG_16s1u_C1,       plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (const Vek16s* pSrc, Vek8u* pDst, int dstLenBytes, int* pDstCurrPos, Vek16s* pLastDC, int Al, const VekEncodeHuffmanSpec* pDcTable, VekEncodeHuffmanState* pEncHuffState, int bFlushState))
VEK_EXPORT(vekiEncodeHuffman8x8_DCRefine_JPEG_16s1u_C1,      plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (const Vek16s* pSrc, Vek8u* pDst, int dstLenBytes, int* pDstCurrPos, int Al, VekEncodeHuffmanState* pEncHuffState, int bFlushState))
VEK_EXPORT(vekiEncodeHuffman8x8_ACFirst_JPEG_16s1u_C1,       plain, plain, sse2,  sse2,  ssse3, ssse3, avx2,  avx512, VekStatus, (const Vek16s* pSrc, Vek8u* pDst, int dstLenBytes, int* pDstCurrPos, int Ss, int Se, int Al, const VekEncodeHuffmanSpec* pAcTable, VekEncodeHuffmanState* pEncHuffState, int bFlushState))
VEK_EXPORT(vekiEncodeHuffman8x8_ACRefine_JPEG_16s1u_C1,      plain, plain, sse2,  sse2,  ssse3, ssse3, avx2,  avx512, VekStatus, (const Vek16s* pSrc, Vek8u* pDst, int dstLenBytes, int* pDstCurrPos, int Ss, int Se, int Al, const VekEncodeHuffmanSpec* pAcTable, VekEncodeHuffmanState* pEncHuffState, int bFlushState))
VEK_EXPORT(vekiGetHuffmanStatistics8x8_JPEG_16s_C1,          plain, plain, sse2,  sse2,  ssse3, ssse3, avx2,  avx512, VekStatus, (const Vek16s* pSrc, int pDcStatistics[256], int pAcStatistics[256], Vek16s* pLastDC))
VEK_EXPORT(vekiGetHuffmanStatistics8x8_DCFirst_JPEG_16s_C1,  plain, plain, plain, plain, plain, plain, plain, plain, VekStatus, (const Vek16s* pSrc, int pDcStatistics[256], Vek16s* pLastDC, int Al))
VEK_EXPORT(vekiGetHuffmanStatistics8x8_ACFirst_JPEG_16s_C1,  plain, plain, sse2,  sse2,  ssse3, ssse3, avx2,  avx512, VekStatus, (const Vek16s* pSrc, int pAcStatistics[256], int Ss, int Se, int Al, VekEncodeHuffmanState* pEncHuffState, int bFlushState))
VEK_EXPORT(vekiGetHuffmanStatistics8x8_ACRefine_JPEG_16s_C1, plain, plain, sse2,  sse2,  ssse3, ssse3, avx2,  avx512, VekStatus, (const Vek16s* pSrc, int pAcStatistics[256], int Ss, int Se, int Al, VekEncodeHuffmanState* pEncHuffState, int bFlushState))
VEK_EXPORT(vekiDecodeHuffman8x8_JPEG_1u16s_C1,               plain, plain, plain, plain, plain, plain, avx2,  avx2,  VekStatus, (const Vek8u* pSrc, int srcLenBytes, int* pSrcCurrPos, Vek16s* pDst, Vek16s* pLastDC, int* pMarker, const VekDecodeHuffmanSpec* pDcTable, const VekDecodeHuffmanSpec* pAcTable, VekDecodeHuffmanState* pDecHuffState))
VEK_EXPORT(vekiDecodeHuffman8x8_DCFirst_JPEG_1u16s_C1,       plain, plain, plain, plain, plain, plain, avx2,  avx2,  VekStatus, (const Vek8u* pSrc, int srcLenBytes, int* pSrcCurrPos, Vek16s* pDst, Vek16s* pLastDC, int* pMarker, int Al, const VekDecodeHuffmanSpec* pDcTable, VekDecodeHuffmanState* pDecHuffState))
VEK_EXPORT(vekiDecodeHuffman8x8_DCRefine_JPEG_1u16s_C1,      plain, plain, plain, plain, plain, plain, avx2,  avx2,  VekStatus, (const Vek8u* pSrc, int srcLenBytes, int* pSrcCurrPos, Vek16s* pDst, int* pMarker, int Al, VekDecodeHuffmanState* pDecHuffState))
VEK_EXPORT(vekiDecodeHuffman8x8_ACFirst_JPEG_1u16s_C1,       plain, plain, plain, plain, plain, plain, avx2,  avx2,  VekStatus, (const Vek8u* pSrc, int srcLenBytes, int* pSrcCurrPos, Vek16s* pDst, int* pMarker, int Ss, int Se, int Al, const VekDecodeHuffmanSpec* pAcTable, VekDecodeHuffmanState* pDecHuffState))
VEK_EXPORT(vekiDecodeHuffman8x8_ACRefine_JPEG_1u16s_C1,      plain, plain, plain, plain, plain, plain, avx2,  avx2,  VekStatus, (const Vek8u* pSrc, int srcLenBytes, int* pSrcCurrPos, Vek16s* pDst, int* pMarker, int Ss, int Se, int Al, const VekDecodeHuffmanSpec* pAcTable, VekDecodeHuffmanState* pDecHuffState))


// ---- JPEG 2000: wavelet transforms (jpeg2000/) ----------------------------
// The float 9/7 members in float vectors from SSE; the integer members from
// SSE2 (5/3 in lanes of the sample width, the 16-bit 9/7 by pmaddwd, the
// 32-bit 9/7 with 64-bit products, in one multiply from SSE4.1); AVX2 and
// AVX-512 widen every member.
VEK_EXPORT(vekiWTFwdRow_B53_JPEG2K_16s_C1R,    plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek16s* pSrc, int srcStep, Vek16s* pDstLow, int dstLowStep, Vek16s* pDstHigh, int dstHighStep, VekiSize roiSize, Vek32u phase))
VEK_EXPORT(vekiWTFwdRow_B53_JPEG2K_32s_C1R,    plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek32s* pSrc, int srcStep, Vek32s* pDstLow, int dstLowStep, Vek32s* pDstHigh, int dstHighStep, VekiSize roiSize, Vek32u phase))
VEK_EXPORT(vekiWTFwdRow_D97_JPEG2K_16s_C1R,    plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek16s* pSrc, int srcStep, Vek16s* pDstLow, int dstLowStep, Vek16s* pDstHigh, int dstHighStep, VekiSize roiSize, Vek32u phase))
VEK_EXPORT(vekiWTFwdRow_D97_JPEG2K_32s_C1R,    plain, plain, sse2,  sse2,  sse2,  sse41, avx2,  avx512, VekStatus, (const Vek32s* pSrc, int srcStep, Vek32s* pDstLow, int dstLowStep, Vek32s* pDstHigh, int dstHighStep, VekiSize roiSize, Vek32u phase))
VEK_EXPORT(vekiWTFwdRow_D97_JPEG2K_32f_C1R,    plain, sse,   sse,   sse,   sse,   sse,   avx2,  avx512, VekStatus, (const Vek32f* pSrc, int srcStep, Vek32f* pDstLow, int dstLowStep, Vek32f* pDstHigh, int dstHighStep, VekiSize roiSize, Vek32u phase))
VEK_EXPORT(vekiWTFwdCol_B53_JPEG2K_16s_C1R,    plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek16s* pSrc, int srcStep, Vek16s* pDstLow, int dstLowStep, Vek16s* pDstHigh, int dstHighStep, VekiSize roiSize, Vek32u phase))
VEK_EXPORT(vekiWTFwdCol_B53_JPEG2K_32s_C1R,    plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek32s* pSrc, int srcStep, Vek32s* pDstLow, int dstLowStep, Vek32s* pDstHigh, int dstHighStep, VekiSize roiSize, Vek32u phase))
VEK_EXPORT(vekiWTFwdCol_D97_JPEG2K_32f_C1R,    plain, sse,   sse,   sse,   sse,   sse,   avx2,  avx512, VekStatus, (const Vek32f* pSrc, int srcStep, Vek32f* pDstLow, int dstLowStep, Vek32f* pDstHigh, int dstHighStep, VekiSize roiSize, Vek32u phase))
VEK_EXPORT(vekiWTFwdColLift_B53_JPEG2K_16s_C1, plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek16s* pSrc0, const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDstLow, const Vek16s* pSrcHighPrev, Vek16s* pDstHigh, int width))
VEK_EXPORT(vekiWTFwdColLift_B53_JPEG2K_32s_C1, plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek32s* pSrc0, const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pDstLow, const Vek32s* pSrcHighPrev, Vek32s* pDstHigh, int width))
VEK_EXPORT(vekiWTFwdColLift_D97_JPEG2K_16s_C1, plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek16s* pSrc0, const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pSrcDstLow, Vek16s* pDstLow, Vek16s* pSrcDstHighPrev, Vek16s* pSrcDstHigh, Vek16s* pDstHigh, int width))
VEK_EXPORT(vekiWTFwdColLift_D97_JPEG2K_32s_C1, plain, plain, sse2,  sse2,  sse2,  sse41, avx2,  avx512, VekStatus, (const Vek32s* pSrc0, const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pSrcDstLow, Vek32s* pDstLow, Vek32s* pSrcDstHighPrev, Vek32s* pSrcDstHigh, Vek32s* pDstHigh, int width))
VEK_EXPORT(vekiWTFwdColLift_D97_JPEG2K_32f_C1, plain, sse,   sse,   sse,   sse,   sse,   avx2,  avx512, VekStatus, (const Vek32f* pSrc0, const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pSrcDstLow, Vek32f* pDstLow, Vek32f* pSrcDstHighPrev, Vek32f* pSrcDstHigh, Vek32f* pDstHigh, int width))
VEK_EXPORT(vekiWTInvRow_B53_JPEG2K_16s_C1R,    plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek16s* pSrcLow, int srcLowStep, const Vek16s* pSrcHigh, int srcHighStep, VekiSize roiSize, Vek16s* pDst, int dstStep, Vek32u phase))
VEK_EXPORT(vekiWTInvRow_B53_JPEG2K_32s_C1R,    plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek32s* pSrcLow, int srcLowStep, const Vek32s* pSrcHigh, int srcHighStep, VekiSize roiSize, Vek32s* pDst, int dstStep, Vek32u phase))
VEK_EXPORT(vekiWTInvRow_D97_JPEG2K_16s_C1R,    plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek16s* pSrcLow, int srcLowStep, const Vek16s* pSrcHigh, int srcHighStep, VekiSize roiSize, Vek16s* pDst, int dstStep, Vek32u phase))
VEK_EXPORT(vekiWTInvRow_D97_JPEG2K_32s_C1R,    plain, plain, sse2,  sse2,  sse2,  sse41, avx2,  avx512, VekStatus, (const Vek32s* pSrcLow, int srcLowStep, const Vek32s* pSrcHigh, int srcHighStep, VekiSize roiSize, Vek32s* pDst, int dstStep, Vek32u phase))
VEK_EXPORT(vekiWTInvRow_D97_JPEG2K_32f_C1R,    plain, sse,   sse,   sse,   sse,   sse,   avx2,  avx512, VekStatus, (const Vek32f* pSrcLow, int srcLowStep, const Vek32f* pSrcHigh, int srcHighStep, VekiSize roiSize, Vek32f* pDst, int dstStep, Vek32u phase))
VEK_EXPORT(vekiWTInvCol_B53_JPEG2K_16s_C1R,    plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek16s* pSrcLow, int srcLowStep, const Vek16s* pSrcHigh, int srcHighStep, VekiSize roiSize, Vek16s* pDst, int dstStep, Vek32u phase))
VEK_EXPORT(vekiWTInvCol_B53_JPEG2K_32s_C1R,    plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek32s* pSrcLow, int srcLowStep, const Vek32s* pSrcHigh, int srcHighStep, VekiSize roiSize, Vek32s* pDst, int dstStep, Vek32u phase))
VEK_EXPORT(vekiWTInvCol_D97_JPEG2K_32f_C1R,    plain, sse,   sse,   sse,   sse,   sse,   avx2,  avx512, VekStatus, (const Vek32f* pSrcLow, int srcLowStep, const Vek32f* pSrcHigh, int srcHighStep, VekiSize roiSize, Vek32f* pDst, int dstStep, Vek32u phase))
VEK_EXPORT(vekiWTInvColLift_B53_JPEG2K_16s_C1, plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek16s* pSrcLow, const Vek16s* pSrcHighPrev, const Vek16s* pSrcHigh, const Vek16s* pSrcEvenPrev, Vek16s* pDstOdd, Vek16s* pDstEven, int width))
VEK_EXPORT(vekiWTInvColLift_B53_JPEG2K_32s_C1, plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek32s* pSrcLow, const Vek32s* pSrcHighPrev, const Vek32s* pSrcHigh, const Vek32s* pSrcEvenPrev, Vek32s* pDstOdd, Vek32s* pDstEven, int width))
VEK_EXPORT(vekiWTInvColLift_D97_JPEG2K_16s_C1, plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek16s* pSrcLow, const Vek16s* pSrcHigh, const Vek16s* pSrcHighPrev, const Vek16s* pSrcEvenPrev, Vek16s* pSrcDstOdd, Vek16s* pSrcDstEven, Vek16s* pDstOdd, Vek16s* pDstEven, int width))
VEK_EXPORT(vekiWTInvColLift_D97_JPEG2K_32s_C1, plain, plain, sse2,  sse2,  sse2,  sse41, avx2,  avx512, VekStatus, (const Vek32s* pSrcLow, const Vek32s* pSrcHigh, const Vek32s* pSrcHighPrev, const Vek32s* pSrcEvenPrev, Vek32s* pSrcDstOdd, Vek32s* pSrcDstEven, Vek32s* pDstOdd, Vek32s* pDstEven, int width))
VEK_EXPORT(vekiWTInvColLift_D97_JPEG2K_32f_C1, plain, sse,   sse,   sse,   sse,   sse,   avx2,  avx512, VekStatus, (const Vek32f* pSrcLow, const Vek32f* pSrcHigh, const Vek32f* pSrcHighPrev, const Vek32f* pSrcEvenPrev, Vek32f* pSrcDstOdd, Vek32f* pSrcDstEven, Vek32f* pDstOdd, Vek32f* pDstEven, int width))
VEK_EXPORT(vekiWTFwd_D97_JPEG2K_16s_C1R,       plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek16s* pSrc, int srcStep, const VekiRect* pTileRect, Vek16s* const pDst[4], const int dstStep[4], Vek8u* pBuffer))
VEK_EXPORT(vekiWTFwd_D97_JPEG2K_32s_C1R,       plain, plain, sse2,  sse2,  sse2,  sse41, avx2,  avx512, VekStatus, (const Vek32s* pSrc, int srcStep, const VekiRect* pTileRect, Vek32s* const pDst[4], const int dstStep[4], Vek8u* pBuffer))
VEK_EXPORT(vekiWTInv_D97_JPEG2K_16s_C1R,       plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek16s* const pSrc[4], const int srcStep[4], const VekiRect* pTileRect, Vek16s* pDst, int dstStep, Vek8u* pBuffer))
VEK_EXPORT(vekiWTInv_D97_JPEG2K_32s_C1R,       plain, plain, sse2,  sse2,  sse2,  sse41, avx2,  avx512, VekStatus, (const Vek32s* const pSrc[4], const int srcStep[4], const VekiRect* pTileRect, Vek32s* pDst, int dstStep, Vek8u* pBuffer))


// ---- JPEG 2000: component transforms (jpeg2000/) --------------------------
// SSE2 from level 2 (integer lanes, pmaddwd for the 16-bit ICT, doubles for
// the float ICT); SSE4.1 multiplies the 32-bit ICT's 64-bit products in one
// instruction; AVX2 and AVX-512 widen every member.
VEK_EXPORT(vekiRCTFwd_JPEG2K_16s_P3IR,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (Vek16s* const pSrcDst[3], int srcDstStep, VekiSize roiSize))
VEK_EXPORT(vekiRCTFwd_JPEG2K_32s_P3IR,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (Vek32s* const pSrcDst[3], int srcDstStep, VekiSize roiSize))
VEK_EXPORT(vekiRCTFwd_JPEG2K_32s_C3P3R, plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek32s* pSrc, int srcStep, Vek32s* const pDst[3], int dstStep, VekiSize roiSize))
VEK_EXPORT(vekiRCTInv_JPEG2K_16s_P3IR,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (Vek16s* const pSrcDst[3], int srcDstStep, VekiSize roiSize))
VEK_EXPORT(vekiRCTInv_JPEG2K_32s_P3IR,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (Vek32s* const pSrcDst[3], int srcDstStep, VekiSize roiSize))
VEK_EXPORT(vekiRCTInv_JPEG2K_32s_P3C3R, plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek32s* const pSrc[3], int srcStep, Vek32s* pDst, int dstStep, VekiSize roiSize))
VEK_EXPORT(vekiICTFwd_JPEG2K_16s_P3IR,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (Vek16s* const pSrcDst[3], int srcDstStep, VekiSize roiSize))
VEK_EXPORT(vekiICTFwd_JPEG2K_32s_P3IR,  plain, plain, sse2, sse2, sse2, sse41, avx2, avx512, VekStatus, (Vek32s* const pSrcDst[3], int srcDstStep, VekiSize roiSize))
VEK_EXPORT(vekiICTFwd_JPEG2K_32f_P3IR,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (Vek32f* const pSrcDst[3], int srcDstStep, VekiSize roiSize))
VEK_EXPORT(vekiICTFwd_JPEG2K_32f_C3P3R, plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek32f* pSrc, int srcStep, Vek32f* const pDst[3], int dstStep, VekiSize roiSize))
VEK_EXPORT(vekiICTInv_JPEG2K_16s_P3IR,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (Vek16s* const pSrcDst[3], int srcDstStep, VekiSize roiSize))
VEK_EXPORT(vekiICTInv_JPEG2K_32s_P3IR,  plain, plain, sse2, sse2, sse2, sse41, avx2, avx512, VekStatus, (Vek32s* const pSrcDst[3], int srcDstStep, VekiSize roiSize))
VEK_EXPORT(vekiICTInv_JPEG2K_32f_P3IR,  plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (Vek32f* const pSrcDst[3], int srcDstStep, VekiSize roiSize))
VEK_EXPORT(vekiICTInv_JPEG2K_32f_P3C3R, plain, plain, sse2, sse2, sse2, sse2,  avx2, avx512, VekStatus, (const Vek32f* const pSrc[3], int srcStep, Vek32f* pDst, int dstStep, VekiSize roiSize))


// ---- video: motion compensation and block differences (video/) ------------
// pavgb predictions and 16-bit residuals from SSE2 (level 1 keeps the plain
// code: its pavgb works on MMX registers, which the level's flags leave
// off); AVX2 and AVX-512 take as many rows a vector as fill 32 or 64 bytes,
// so a block of 16 bytes or fewer stays with SSE2, one of 32 with AVX2.
VEK_EXPORT(vekiMC16x16_8u_C1,          plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcRef, int srcRefStep, const Vek16s* pSrcResidual, int srcResidualStep, Vek8u* pDst, int dstStep, int mcType, int roundControl))
VEK_EXPORT(vekiMC16x8_8u_C1,           plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcRef, int srcRefStep, const Vek16s* pSrcResidual, int srcResidualStep, Vek8u* pDst, int dstStep, int mcType, int roundControl))
VEK_EXPORT(vekiMC16x4_8u_C1,           plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcRef, int srcRefStep, const Vek16s* pSrcResidual, int srcResidualStep, Vek8u* pDst, int dstStep, int mcType, int roundControl))
VEK_EXPORT(vekiMC8x16_8u_C1,           plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcRef, int srcRefStep, const Vek16s* pSrcResidual, int srcResidualStep, Vek8u* pDst, int dstStep, int mcType, int roundControl))
VEK_EXPORT(vekiMC8x8_8u_C1,            plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcRef, int srcRefStep, const Vek16s* pSrcResidual, int srcResidualStep, Vek8u* pDst, int dstStep, int mcType, int roundControl))
VEK_EXPORT(vekiMC8x4_8u_C1,            plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcRef, int srcRefStep, const Vek16s* pSrcResidual, int srcResidualStep, Vek8u* pDst, int dstStep, int mcType, int roundControl))
VEK_EXPORT(vekiMC4x8_8u_C1,            plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcRef, int srcRefStep, const Vek16s* pSrcResidual, int srcResidualStep, Vek8u* pDst, int dstStep, int mcType, int roundControl))
VEK_EXPORT(vekiMC4x4_8u_C1,            plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcRef, int srcRefStep, const Vek16s* pSrcResidual, int srcResidualStep, Vek8u* pDst, int dstStep, int mcType, int roundControl))
VEK_EXPORT(vekiMC4x2_8u_C1,            plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcRef, int srcRefStep, const Vek16s* pSrcResidual, int srcResidualStep, Vek8u* pDst, int dstStep, int mcType, int roundControl))
VEK_EXPORT(vekiMC2x4_8u_C1,            plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcRef, int srcRefStep, const Vek16s* pSrcResidual, int srcResidualStep, Vek8u* pDst, int dstStep, int mcType, int roundControl))
VEK_EXPORT(vekiMC2x2_8u_C1,            plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcRef, int srcRefStep, const Vek16s* pSrcResidual, int srcResidualStep, Vek8u* pDst, int dstStep, int mcType, int roundControl))
VEK_EXPORT(vekiMC16x8UV_8u_C1,         plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcRef, int srcRefStep, const Vek16s* pSrcResidual, int srcResidualStep, Vek8u* pDst, int dstStep, int mcType, int roundControl))
VEK_EXPORT(vekiMC16x16B_8u_C1,         plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB, int srcRefBStep, int mcTypeB, const Vek16s* pSrcResidual, int srcResidualStep, Vek8u* pDst, int dstStep, int roundControl))
VEK_EXPORT(vekiMC16x8B_8u_C1,          plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB, int srcRefBStep, int mcTypeB, const Vek16s* pSrcResidual, int srcResidualStep, Vek8u* pDst, int dstStep, int roundControl))
VEK_EXPORT(vekiMC16x4B_8u_C1,          plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB, int srcRefBStep, int mcTypeB, const Vek16s* pSrcResidual, int srcResidualStep, Vek8u* pDst, int dstStep, int roundControl))
VEK_EXPORT(vekiMC8x16B_8u_C1,          plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB, int srcRefBStep, int mcTypeB, const Vek16s* pSrcResidual, int srcResidualStep, Vek8u* pDst, int dstStep, int roundControl))
VEK_EXPORT(vekiMC8x8B_8u_C1,           plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB, int srcRefBStep, int mcTypeB, const Vek16s* pSrcResidual, int srcResidualStep, Vek8u* pDst, int dstStep, int roundControl))
VEK_EXPORT(vekiMC8x4B_8u_C1,           plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB, int srcRefBStep, int mcTypeB, const Vek16s* pSrcResidual, int srcResidualStep, Vek8u* pDst, int dstStep, int roundControl))
VEK_EXPORT(vekiMC4x8B_8u_C1,           plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB, int srcRefBStep, int mcTypeB, const Vek16s* pSrcResidual, int srcResidualStep, Vek8u* pDst, int dstStep, int roundControl))
VEK_EXPORT(vekiMC4x4B_8u_C1,           plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB, int srcRefBStep, int mcTypeB, const Vek16s* pSrcResidual, int srcResidualStep, Vek8u* pDst, int dstStep, int roundControl))
VEK_EXPORT(vekiMC4x2B_8u_C1,           plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB, int srcRefBStep, int mcTypeB, const Vek16s* pSrcResidual, int srcResidualStep, Vek8u* pDst, int dstStep, int roundControl))
VEK_EXPORT(vekiMC2x4B_8u_C1,           plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB, int srcRefBStep, int mcTypeB, const Vek16s* pSrcResidual, int srcResidualStep, Vek8u* pDst, int dstStep, int roundControl))
VEK_EXPORT(vekiMC2x2B_8u_C1,           plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB, int srcRefBStep, int mcTypeB, const Vek16s* pSrcResidual, int srcResidualStep, Vek8u* pDst, int dstStep, int roundControl))
VEK_EXPORT(vekiMC16x8BUV_8u_C1,        plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB, int srcRefBStep, int mcTypeB, const Vek16s* pSrcResidual, int srcResidualStep, Vek8u* pDst, int dstStep, int roundControl))
VEK_EXPORT(vekiGetDiff16x16_8u16s_C1,  plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcCur, int srcCurStep, const Vek8u* pSrcRef, int srcRefStep, Vek16s* pDstDiff, int dstDiffStep, Vek16s* pDstPredictor, int dstPredictorStep, int mcType, int roundControl))
VEK_EXPORT(vekiGetDiff16x8_8u16s_C1,   plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcCur, int srcCurStep, const Vek8u* pSrcRef, int srcRefStep, Vek16s* pDstDiff, int dstDiffStep, Vek16s* pDstPredictor, int dstPredictorStep, int mcType, int roundControl))
VEK_EXPORT(vekiGetDiff8x16_8u16s_C1,   plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcCur, int srcCurStep, const Vek8u* pSrcRef, int srcRefStep, Vek16s* pDstDiff, int dstDiffStep, Vek16s* pDstPredictor, int dstPredictorStep, int mcType, int roundControl))
VEK_EXPORT(vekiGetDiff8x8_8u16s_C1,    plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcCur, int srcCurStep, const Vek8u* pSrcRef, int srcRefStep, Vek16s* pDstDiff, int dstDiffStep, Vek16s* pDstPredictor, int dstPredictorStep, int mcType, int roundControl))
VEK_EXPORT(vekiGetDiff8x4_8u16s_C1,    plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcCur, int srcCurStep, const Vek8u* pSrcRef, int srcRefStep, Vek16s* pDstDiff, int dstDiffStep, Vek16s* pDstPredictor, int dstPredictorStep, int mcType, int roundControl))
VEK_EXPORT(vekiGetDiff4x4_8u16s_C1,    plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcCur, int srcCurStep, const Vek8u* pSrcRef, int srcRefStep, Vek16s* pDstDiff, int dstDiffStep, Vek16s* pDstPredictor, int dstPredictorStep, int mcType, int roundControl))
VEK_EXPORT(vekiGetDiff16x16B_8u16s_C1, plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcCur, int srcCurStep, const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB, int srcRefBStep, int mcTypeB, Vek16s* pDstDiff, int dstDiffStep, int roundControl))
VEK_EXPORT(vekiGetDiff16x8B_8u16s_C1,  plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcCur, int srcCurStep, const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB, int srcRefBStep, int mcTypeB, Vek16s* pDstDiff, int dstDiffStep, int roundControl))
VEK_EXPORT(vekiGetDiff8x16B_8u16s_C1,  plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcCur, int srcCurStep, const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB, int srcRefBStep, int mcTypeB, Vek16s* pDstDiff, int dstDiffStep, int roundControl))
VEK_EXPORT(vekiGetDiff8x8B_8u16s_C1,   plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcCur, int srcCurStep, const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB, int srcRefBStep, int mcTypeB, Vek16s* pDstDiff, int dstDiffStep, int roundControl))
VEK_EXPORT(vekiGetDiff8x4B_8u16s_C1,   plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrcCur, int srcCurStep, const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB, int srcRefBStep, int mcTypeB, Vek16s* pDstDiff, int dstDiffStep, int roundControl))


// ---- video: block matching metrics (video/) -------------------------------
// psadbw and pmaddwd from SSE2; two macroblock rows a vector with AVX2,
// four with AVX-512.  The 4x4 SAD fills one 16-byte vector.
VEK_EXPORT(vekiSAD16x16_8u32s,          plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrc, int srcStep, const Vek8u* pRef, int refStep, Vek32s* pSAD, int mcType))
VEK_EXPORT(vekiSAD4x4_8u32s,            plain, plain, sse2,  sse2,  sse2,  sse2,  sse2,  sse2  , VekStatus, (const Vek8u* pSrc, int srcStep, const Vek8u* pRef, int refStep, Vek32s* pSAD, int mcType))
VEK_EXPORT(vekiSAD16x16Blocks8x8_8u16u, plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrc, int srcStep, const Vek8u* pRef, int refStep, Vek16u* pDstSAD, int mcType))
VEK_EXPORT(vekiSAD16x16Blocks4x4_8u16u, plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrc, int srcStep, const Vek8u* pRef, int refStep, Vek16u* pDstSAD, int mcType))
VEK_EXPORT(vekiSqrDiff16x16_8u32s,      plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrc, int srcStep, const Vek8u* pRef, int refStep, int mcType, Vek32s* pSqrDiff))
VEK_EXPORT(vekiSqrDiff16x16B_8u32s,     plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrc, int srcStep, const Vek8u* pRefF, int refFStep, int mcTypeF, const Vek8u* pRefB, int refBStep, int mcTypeB, Vek32s* pSqrDiff))
VEK_EXPORT(vekiVariance16x16_8u32s,     plain, plain, sse2,  sse2,  sse2,  sse2,  avx2,  avx512, VekStatus, (const Vek8u* pSrc, int srcStep, Vek32s* pVar))


// ---- video: MPEG-2 quantisation (video/) ----------------------------------
// Eight coefficients a vector from SSE2; SSE4.1's pmulld shortens the
// 32-bit products of the inverse quantisers.
VEK_EXPORT(vekiQuant_MPEG2_16s_C1I,         plain, plain, sse2,  sse2,  sse2,  sse2,  sse2,  sse2  , VekStatus, (Vek16s* pSrcDst, int QP, const Vek32f* pQPMatrix, Vek32s* pCount))
VEK_EXPORT(vekiQuantIntra_MPEG2_16s_C1I,    plain, plain, sse2,  sse2,  sse2,  sse2,  sse2,  sse2  , VekStatus, (Vek16s* pSrcDst, int QP, const Vek32f* pQPMatrix, Vek32s* pCount))
VEK_EXPORT(vekiQuantInv_MPEG2_16s_C1I,      plain, plain, sse2,  sse2,  sse2,  sse41, sse41, sse41 , VekStatus, (Vek16s* pSrcDst, int QP, const Vek16s* pQPMatrix))
VEK_EXPORT(vekiQuantInvIntra_MPEG2_16s_C1I, plain, plain, sse2,  sse2,  sse2,  sse41, sse41, sse41 , VekStatus, (Vek16s* pSrcDst, int QP, const Vek16s* pQPMatrix))

// clang-format on

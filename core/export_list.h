// The one list of dispatched exports.
//
// Each line names an export, the implementation that serves each of the six
// code-path levels, its return type and its parameters:
//
//   VEK_EXPORT(name, L0, L1, L2, L3, L4, L5, return type, (parameters))
//
// L0..L5 are the namespaces of the level implementations: plain (portable
// C++), sse, sse2, sse3, ssse3, sse41.  A level that gains nothing from its
// instruction set names the implementation of a level below it, so the
// table below is also the record of which levels share code.
//
// From this list come the per-export dispatch tables (dispatch_tables.cpp),
// the exported entry stubs (entry_stubs.cpp), the Windows export table and
// the enumeration the tests and `vek exports` walk.  Adding an export is one
// line here, its prototype in include/vek.h and its kernels.
//
// Keep one export per line: tests/check_entry_stubs.sh reads the names.

// ---- services whose levels share one implementation ----------------------
VEK_EXPORT(veksMalloc_8u,     plain, plain, plain, plain, plain, plain, Vek8u*,  (int length))
VEK_EXPORT(veksFree,          plain, plain, plain, plain, plain, plain, void,    (void* ptr))
VEK_EXPORT(vekiMalloc_8u_C1,  plain, plain, plain, plain, plain, plain, Vek8u*,  (int widthPixels, int heightPixels, int* pStepBytes))
VEK_EXPORT(vekiMalloc_8u_C3,  plain, plain, plain, plain, plain, plain, Vek8u*,  (int widthPixels, int heightPixels, int* pStepBytes))
VEK_EXPORT(vekiMalloc_16s_C1, plain, plain, plain, plain, plain, plain, Vek16s*, (int widthPixels, int heightPixels, int* pStepBytes))
VEK_EXPORT(vekiMalloc_16s_C3, plain, plain, plain, plain, plain, plain, Vek16s*, (int widthPixels, int heightPixels, int* pStepBytes))
VEK_EXPORT(vekiMalloc_16u_C1, plain, plain, plain, plain, plain, plain, Vek16u*, (int widthPixels, int heightPixels, int* pStepBytes))
VEK_EXPORT(vekiMalloc_16u_C3, plain, plain, plain, plain, plain, plain, Vek16u*, (int widthPixels, int heightPixels, int* pStepBytes))
VEK_EXPORT(vekiMalloc_32s_C1, plain, plain, plain, plain, plain, plain, Vek32s*, (int widthPixels, int heightPixels, int* pStepBytes))
VEK_EXPORT(vekiMalloc_32s_C3, plain, plain, plain, plain, plain, plain, Vek32s*, (int widthPixels, int heightPixels, int* pStepBytes))
VEK_EXPORT(vekiMalloc_32f_C1, plain, plain, plain, plain, plain, plain, Vek32f*, (int widthPixels, int heightPixels, int* pStepBytes))
VEK_EXPORT(vekiMalloc_32f_C3, plain, plain, plain, plain, plain, plain, Vek32f*, (int widthPixels, int heightPixels, int* pStepBytes))
VEK_EXPORT(vekiFree,          plain, plain, plain, plain, plain, plain, void,    (void* ptr))

// ---- version records: one per level ---------------------------------------
VEK_EXPORT(veksGetLibVersion, plain, sse, sse2, sse3, ssse3, sse41, const VekLibraryVersion*, (void))
VEK_EXPORT(vekiGetLibVersion, plain, sse, sse2, sse3, ssse3, sse41, const VekLibraryVersion*, (void))
VEK_EXPORT(vekjGetLibVersion, plain, sse, sse2, sse3, ssse3, sse41, const VekLibraryVersion*, (void))

// ---- vector arithmetic with integer scaling (signal/arith_*) ---------------
// Float members use packed SSE from level 1; integer members SSE2 from
// level 2; the 32-bit products use the signed multiply of SSE4.1.
VEK_EXPORT(veksAdd_16s_Sfs,   plain, plain, sse2, sse2, sse2, sse2,  VekStatus, (const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksAdd_16s_ISfs,  plain, plain, sse2, sse2, sse2, sse2,  VekStatus, (const Vek16s* pSrc, Vek16s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksAdd_32s_Sfs,   plain, plain, sse2, sse2, sse2, sse2,  VekStatus, (const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksAdd_32s_ISfs,  plain, plain, sse2, sse2, sse2, sse2,  VekStatus, (const Vek32s* pSrc, Vek32s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksAdd_32f,       plain, sse,   sse,  sse,  sse,  sse,   VekStatus, (const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len))
VEK_EXPORT(veksAdd_32f_I,     plain, sse,   sse,  sse,  sse,  sse,   VekStatus, (const Vek32f* pSrc, Vek32f* pSrcDst, int len))
VEK_EXPORT(veksSub_16s_Sfs,   plain, plain, sse2, sse2, sse2, sse2,  VekStatus, (const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksSub_16s_ISfs,  plain, plain, sse2, sse2, sse2, sse2,  VekStatus, (const Vek16s* pSrc, Vek16s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksSub_32s_Sfs,   plain, plain, sse2, sse2, sse2, sse2,  VekStatus, (const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksSub_32s_ISfs,  plain, plain, sse2, sse2, sse2, sse2,  VekStatus, (const Vek32s* pSrc, Vek32s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksSub_32f,       plain, sse,   sse,  sse,  sse,  sse,   VekStatus, (const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len))
VEK_EXPORT(veksSub_32f_I,     plain, sse,   sse,  sse,  sse,  sse,   VekStatus, (const Vek32f* pSrc, Vek32f* pSrcDst, int len))
VEK_EXPORT(veksMul_32s_Sfs,   plain, plain, sse2, sse2, sse2, sse41, VekStatus, (const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksMul_32s_ISfs,  plain, plain, sse2, sse2, sse2, sse41, VekStatus, (const Vek32s* pSrc, Vek32s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksMul_32f,       plain, sse,   sse,  sse,  sse,  sse,   VekStatus, (const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len))
VEK_EXPORT(veksMul_32f_I,     plain, sse,   sse,  sse,  sse,  sse,   VekStatus, (const Vek32f* pSrc, Vek32f* pSrcDst, int len))
VEK_EXPORT(veksAddC_16s_Sfs,  plain, plain, sse2, sse2, sse2, sse2,  VekStatus, (const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksAddC_16s_ISfs, plain, plain, sse2, sse2, sse2, sse2,  VekStatus, (Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksAddC_32s_Sfs,  plain, plain, sse2, sse2, sse2, sse2,  VekStatus, (const Vek32s* pSrc, Vek32s val, Vek32s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksAddC_32s_ISfs, plain, plain, sse2, sse2, sse2, sse2,  VekStatus, (Vek32s val, Vek32s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksAddC_32f,      plain, sse,   sse,  sse,  sse,  sse,   VekStatus, (const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len))
VEK_EXPORT(veksAddC_32f_I,    plain, sse,   sse,  sse,  sse,  sse,   VekStatus, (Vek32f val, Vek32f* pSrcDst, int len))
VEK_EXPORT(veksSubC_16s_Sfs,  plain, plain, sse2, sse2, sse2, sse2,  VekStatus, (const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksSubC_16s_ISfs, plain, plain, sse2, sse2, sse2, sse2,  VekStatus, (Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksSubC_32s_Sfs,  plain, plain, sse2, sse2, sse2, sse2,  VekStatus, (const Vek32s* pSrc, Vek32s val, Vek32s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksSubC_32s_ISfs, plain, plain, sse2, sse2, sse2, sse2,  VekStatus, (Vek32s val, Vek32s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksSubC_32f,      plain, sse,   sse,  sse,  sse,  sse,   VekStatus, (const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len))
VEK_EXPORT(veksSubC_32f_I,    plain, sse,   sse,  sse,  sse,  sse,   VekStatus, (Vek32f val, Vek32f* pSrcDst, int len))
VEK_EXPORT(veksMulC_16s_Sfs,  plain, plain, sse2, sse2, sse2, sse2,  VekStatus, (const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksMulC_16s_ISfs, plain, plain, sse2, sse2, sse2, sse2,  VekStatus, (Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksMulC_32s_Sfs,  plain, plain, sse2, sse2, sse2, sse41, VekStatus, (const Vek32s* pSrc, Vek32s val, Vek32s* pDst, int len, int scaleFactor))
VEK_EXPORT(veksMulC_32s_ISfs, plain, plain, sse2, sse2, sse2, sse41, VekStatus, (Vek32s val, Vek32s* pSrcDst, int len, int scaleFactor))
VEK_EXPORT(veksMulC_32f,      plain, sse,   sse,  sse,  sse,  sse,   VekStatus, (const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len))
VEK_EXPORT(veksMulC_32f_I,    plain, sse,   sse,  sse,  sse,  sse,   VekStatus, (Vek32f val, Vek32f* pSrcDst, int len))

// ---- vector shifts, conversions, copy and thresholds (signal/) -------------


// ---- image copies, sets, mirrors, channel swaps, borders (image/) ----------
// Whole rows go through memcpy at every level; the vector levels add
// shuffles where a row is reordered (see image/copy_simd.h).
VEK_EXPORT(vekiCopy_8u_C1R,       plain, plain, plain, plain, plain, plain, VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_16s_C1R,      plain, plain, plain, plain, plain, plain, VekStatus, (const Vek16s* pSrc, int srcStep, Vek16s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_32f_C1R,      plain, plain, plain, plain, plain, plain, VekStatus, (const Vek32f* pSrc, int srcStep, Vek32f* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_8u_C3R,       plain, plain, plain, plain, plain, plain, VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_8u_C4R,       plain, plain, plain, plain, plain, plain, VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_8u_AC4R,      plain, plain, sse2,  sse2,  sse2,  sse2,  VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_8u_P3C3R,     plain, plain, plain, plain, ssse3, ssse3, VekStatus, (const Vek8u* const pSrc[3], int srcStep, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_16s_P3C3R,    plain, plain, plain, plain, ssse3, ssse3, VekStatus, (const Vek16s* const pSrc[3], int srcStep, Vek16s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_32f_P3C3R,    plain, sse,   sse,   sse,   sse,   sse,   VekStatus, (const Vek32f* const pSrc[3], int srcStep, Vek32f* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiCopy_32f_C3P3R,    plain, sse,   sse,   sse,   sse,   sse,   VekStatus, (const Vek32f* pSrc, int srcStep, Vek32f* const pDst[3], int dstStep, VekiSize roi))
VEK_EXPORT(vekiSet_8u_C1R,        plain, plain, plain, plain, plain, plain, VekStatus, (Vek8u value, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiSet_16s_C1R,       plain, plain, sse2,  sse2,  sse2,  sse2,  VekStatus, (Vek16s value, Vek16s* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiSet_16u_C1R,       plain, plain, sse2,  sse2,  sse2,  sse2,  VekStatus, (Vek16u value, Vek16u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiSet_8u_C3CR,       plain, plain, sse2,  sse2,  sse2,  sse2,  VekStatus, (Vek8u value, Vek8u* pDst, int dstStep, VekiSize roi))
VEK_EXPORT(vekiMirror_8u_C1R,     plain, plain, sse2,  sse2,  ssse3, ssse3, VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_8u_C3R,     plain, plain, plain, plain, ssse3, ssse3, VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_16u_C1R,    plain, plain, sse2,  sse2,  ssse3, ssse3, VekStatus, (const Vek16u* pSrc, int srcStep, Vek16u* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_16u_C3R,    plain, plain, plain, plain, ssse3, ssse3, VekStatus, (const Vek16u* pSrc, int srcStep, Vek16u* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_16s_C1R,    plain, plain, sse2,  sse2,  ssse3, ssse3, VekStatus, (const Vek16s* pSrc, int srcStep, Vek16s* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_16s_C3R,    plain, plain, plain, plain, ssse3, ssse3, VekStatus, (const Vek16s* pSrc, int srcStep, Vek16s* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_32s_C1R,    plain, sse,   sse,   sse,   sse,   sse,   VekStatus, (const Vek32s* pSrc, int srcStep, Vek32s* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_32s_C3R,    plain, sse,   sse,   sse,   sse,   sse,   VekStatus, (const Vek32s* pSrc, int srcStep, Vek32s* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_32f_C1R,    plain, sse,   sse,   sse,   sse,   sse,   VekStatus, (const Vek32f* pSrc, int srcStep, Vek32f* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_32f_C3R,    plain, sse,   sse,   sse,   sse,   sse,   VekStatus, (const Vek32f* pSrc, int srcStep, Vek32f* pDst, int dstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_8u_C1IR,    plain, plain, sse2,  sse2,  ssse3, ssse3, VekStatus, (Vek8u* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_8u_C3IR,    plain, plain, plain, plain, ssse3, ssse3, VekStatus, (Vek8u* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_16u_C1IR,   plain, plain, sse2,  sse2,  ssse3, ssse3, VekStatus, (Vek16u* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_16u_C3IR,   plain, plain, plain, plain, ssse3, ssse3, VekStatus, (Vek16u* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_16s_C1IR,   plain, plain, sse2,  sse2,  ssse3, ssse3, VekStatus, (Vek16s* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_16s_C3IR,   plain, plain, plain, plain, ssse3, ssse3, VekStatus, (Vek16s* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_32s_C1IR,   plain, sse,   sse,   sse,   sse,   sse,   VekStatus, (Vek32s* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_32s_C3IR,   plain, sse,   sse,   sse,   sse,   sse,   VekStatus, (Vek32s* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_32f_C1IR,   plain, sse,   sse,   sse,   sse,   sse,   VekStatus, (Vek32f* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiMirror_32f_C3IR,   plain, sse,   sse,   sse,   sse,   sse,   VekStatus, (Vek32f* pSrcDst, int srcDstStep, VekiSize roi, int flip))
VEK_EXPORT(vekiSwapChannels_8u_C3R,  plain, plain, plain, plain, ssse3, ssse3, VekStatus, (const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi, const int dstOrder[3]))
VEK_EXPORT(vekiSwapChannels_8u_C3IR, plain, plain, plain, plain, ssse3, ssse3, VekStatus, (Vek8u* pSrcDst, int srcDstStep, VekiSize roi, const int dstOrder[3]))
VEK_EXPORT(vekiCopyReplicateBorder_32s_C1R, plain, plain, sse2, sse2, sse2, sse2, VekStatus, (const Vek32s* pSrc, int srcStep, VekiSize srcRoi, Vek32s* pDst, int dstStep, VekiSize dstRoi, int topBorderHeight, int leftBorderWidth))


// ---- image type conversions and per-pixel arithmetic (image/) --------------


// ---- checksums (compression/) ----------------------------------------------
VEK_EXPORT(veksAdler32_8u,    plain, plain, plain, plain, plain, plain, VekStatus, (const Vek8u* pSrc, int len, Vek32u* pAdler))
VEK_EXPORT(veksCRC32_8u,      plain, plain, plain, plain, plain, plain, VekStatus, (const Vek8u* pSrc, int len, Vek32u* pCrc))


// ---- run-length coding (compression/) --------------------------------------


// ---- the deflate encoder: state and match finding (compression/) -----------


// ---- the deflate encoder: block coding and trailer (compression/) ----------


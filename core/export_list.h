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


// ---- image type conversions and per-pixel arithmetic (image/) --------------


// ---- checksums (compression/) ----------------------------------------------
VEK_EXPORT(veksAdler32_8u,    plain, plain, plain, plain, plain, plain, VekStatus, (const Vek8u* pSrc, int len, Vek32u* pAdler))
VEK_EXPORT(veksCRC32_8u,      plain, plain, plain, plain, plain, plain, VekStatus, (const Vek8u* pSrc, int len, Vek32u* pCrc))


// ---- run-length coding (compression/) --------------------------------------


// ---- the deflate encoder: state and match finding (compression/) -----------
// The state's own exports need no SIMD; matching compares 16 bytes at a
// time from SSE2 on.
VEK_EXPORT(veksEncodeLZ77GetSize_8u,       plain, plain, plain, plain, plain, plain, VekStatus, (int* pSize))
VEK_EXPORT(veksEncodeLZ77Init_8u,          plain, plain, plain, plain, plain, plain, VekStatus, (int comprClass, int checksumKind, VekDeflateState* pState))
VEK_EXPORT(veksEncodeLZ77InitAlloc_8u,     plain, plain, plain, plain, plain, plain, VekStatus, (int comprClass, int checksumKind, VekDeflateState** ppState))
VEK_EXPORT(veksLZ77Free_8u,                plain, plain, plain, plain, plain, plain, void,      (void* pState))
VEK_EXPORT(veksEncodeLZ77Reset_8u,         plain, plain, plain, plain, plain, plain, VekStatus, (VekDeflateState* pState))
VEK_EXPORT(veksEncodeLZ77SetDictionary_8u, plain, plain, plain, plain, plain, plain, VekStatus, (const Vek8u* pDict, int dictLen, VekDeflateState* pState))
VEK_EXPORT(veksEncodeLZ77_8u,              plain, plain, sse2,  sse2,  sse2,  sse2,  VekStatus, (const Vek8u** ppSrc, int* pSrcLen, Vek16u** ppPairs, int* pPairsLen, int flush, VekDeflateState* pState))
VEK_EXPORT(veksEncodeLZ77GetPairs_8u,      plain, plain, plain, plain, plain, plain, VekStatus, (Vek16u** ppPairs, int* pPairsCount, int* pPairsCapacity, VekDeflateState* pState))
VEK_EXPORT(veksEncodeLZ77SetPairs_8u,      plain, plain, plain, plain, plain, plain, VekStatus, (Vek16u* pPairs, int pairsCount, int pairsCapacity, VekDeflateState* pState))


// ---- the deflate encoder: block coding and trailer (compression/) ----------
// Bit packing and table look-ups: every level shares the plain code.
VEK_EXPORT(veksEncodeLZ77GetStatus_8u,      plain, plain, plain, plain, plain, plain, VekStatus, (int* pStatus, VekDeflateState* pState))
VEK_EXPORT(veksEncodeLZ77SetStatus_8u,      plain, plain, plain, plain, plain, plain, VekStatus, (int status, VekDeflateState* pState))
VEK_EXPORT(veksEncodeLZ77SelectHuffMode_8u, plain, plain, plain, plain, plain, plain, VekStatus, (const Vek16u* pPairs, int pairsCount, int* pHuffMode, VekDeflateState* pState))
VEK_EXPORT(veksEncodeLZ77FixedHuff_8u,      plain, plain, plain, plain, plain, plain, VekStatus, (const Vek16u** ppPairs, int* pPairsLen, Vek8u** ppDst, int* pDstLen, int flush, VekDeflateState* pState))
VEK_EXPORT(veksEncodeLZ77DynamicHuff_8u,    plain, plain, plain, plain, plain, plain, VekStatus, (const Vek16u** ppPairs, int* pPairsLen, Vek8u** ppDst, int* pDstLen, int flush, VekDeflateState* pState))
VEK_EXPORT(veksEncodeLZ77StoredBlock_8u,    plain, plain, plain, plain, plain, plain, VekStatus, (const Vek8u** ppSrc, int* pSrcLen, Vek8u** ppDst, int* pDstLen, int flush, VekDeflateState* pState))
VEK_EXPORT(veksEncodeLZ77Flush_8u,          plain, plain, plain, plain, plain, plain, VekStatus, (Vek8u** ppDst, int* pDstLen, VekDeflateState* pState))


// The exports of the arithmetic family, with their entry checks, written
// once for every level.
//
// A level's translation unit defines, inside its own namespace, the
// operation tags Add, Sub, SubC and Mul and the kernels its member groups
// need, then includes this header there and expands those groups:
//   scaled<T, Op>(src1, src2, dst, len, sf)       T Vek16s or Vek32s
//   scaledConst<T, Op>(src, value, dst, len, sf)
//   float2<Op>(src1, src2, dst, len)
//   floatConst<Op>(src, value, dst, len)
// Every kernel gets valid pointers and len >= 1; dst may be the very array
// of a source.  Sub takes (src1, src2) and gives src2 - src1; SubC gives
// src - value.  The in-place forms pass srcDst as both the second operand
// and the destination (for Sub: srcDst - src).
#ifndef VEK_SIGNAL_ARITH_EXPORTS_H
#define VEK_SIGNAL_ARITH_EXPORTS_H

#include "signal/vector_checks.h"

// Two vectors, and in place.
#define VEK_ARITH_INT(Name, InPlaceName, Op, T)                                                                     \
    VekStatus VEK_CALL Name(const T* pSrc1, const T* pSrc2, T* pDst, int len, int scaleFactor) {                    \
        return checkThenRun([=] { scaled<T, Op>(pSrc1, pSrc2, pDst, len, scaleFactor); }, len, pSrc1, pSrc2, pDst); \
    }                                                                                                               \
    VekStatus VEK_CALL InPlaceName(const T* pSrc, T* pSrcDst, int len, int scaleFactor) {                           \
        return checkThenRun([=] { scaled<T, Op>(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }, len, pSrc, pSrcDst);  \
    }
// A vector and a constant, and in place.
#define VEK_ARITH_INTC(Name, InPlaceName, Op, T)                                                                 \
    VekStatus VEK_CALL Name(const T* pSrc, T val, T* pDst, int len, int scaleFactor) {                           \
        return checkThenRun([=] { scaledConst<T, Op>(pSrc, val, pDst, len, scaleFactor); }, len, pSrc, pDst);    \
    }                                                                                                            \
    VekStatus VEK_CALL InPlaceName(T val, T* pSrcDst, int len, int scaleFactor) {                                \
        return checkThenRun([=] { scaledConst<T, Op>(pSrcDst, val, pSrcDst, len, scaleFactor); }, len, pSrcDst); \
    }
#define VEK_ARITH_FLOAT(Name, InPlaceName, Op)                                                      \
    VekStatus VEK_CALL Name(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len) {      \
        return checkThenRun([=] { float2<Op>(pSrc1, pSrc2, pDst, len); }, len, pSrc1, pSrc2, pDst); \
    }                                                                                               \
    VekStatus VEK_CALL InPlaceName(const Vek32f* pSrc, Vek32f* pSrcDst, int len) {                  \
        return checkThenRun([=] { float2<Op>(pSrc, pSrcDst, pSrcDst, len); }, len, pSrc, pSrcDst);  \
    }
#define VEK_ARITH_FLOATC(Name, InPlaceName, Op)                                                 \
    VekStatus VEK_CALL Name(const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len) {            \
        return checkThenRun([=] { floatConst<Op>(pSrc, val, pDst, len); }, len, pSrc, pDst);    \
    }                                                                                           \
    VekStatus VEK_CALL InPlaceName(Vek32f val, Vek32f* pSrcDst, int len) {                      \
        return checkThenRun([=] { floatConst<Op>(pSrcDst, val, pSrcDst, len); }, len, pSrcDst); \
    }

#define VEK_ARITH_16S_MEMBERS                                         \
    VEK_ARITH_INT(veksAdd_16s_Sfs, veksAdd_16s_ISfs, Add, Vek16s)     \
    VEK_ARITH_INT(veksSub_16s_Sfs, veksSub_16s_ISfs, Sub, Vek16s)     \
    VEK_ARITH_INTC(veksAddC_16s_Sfs, veksAddC_16s_ISfs, Add, Vek16s)  \
    VEK_ARITH_INTC(veksSubC_16s_Sfs, veksSubC_16s_ISfs, SubC, Vek16s) \
    VEK_ARITH_INTC(veksMulC_16s_Sfs, veksMulC_16s_ISfs, Mul, Vek16s)
#define VEK_ARITH_32S_ADD_MEMBERS                                    \
    VEK_ARITH_INT(veksAdd_32s_Sfs, veksAdd_32s_ISfs, Add, Vek32s)    \
    VEK_ARITH_INT(veksSub_32s_Sfs, veksSub_32s_ISfs, Sub, Vek32s)    \
    VEK_ARITH_INTC(veksAddC_32s_Sfs, veksAddC_32s_ISfs, Add, Vek32s) \
    VEK_ARITH_INTC(veksSubC_32s_Sfs, veksSubC_32s_ISfs, SubC, Vek32s)
#define VEK_ARITH_32S_MUL_MEMBERS                                 \
    VEK_ARITH_INT(veksMul_32s_Sfs, veksMul_32s_ISfs, Mul, Vek32s) \
    VEK_ARITH_INTC(veksMulC_32s_Sfs, veksMulC_32s_ISfs, Mul, Vek32s)
#define VEK_ARITH_FLOAT_MEMBERS                          \
    VEK_ARITH_FLOAT(veksAdd_32f, veksAdd_32f_I, Add)     \
    VEK_ARITH_FLOAT(veksSub_32f, veksSub_32f_I, Sub)     \
    VEK_ARITH_FLOAT(veksMul_32f, veksMul_32f_I, Mul)     \
    VEK_ARITH_FLOATC(veksAddC_32f, veksAddC_32f_I, Add)  \
    VEK_ARITH_FLOATC(veksSubC_32f, veksSubC_32f_I, SubC) \
    VEK_ARITH_FLOATC(veksMulC_32f, veksMulC_32f_I, Mul)

#endif

// The exports of the arithmetic family, written once for every level.
//
// A level's translation unit defines, inside its own namespace, the kernel
// templates scaled<T, Op>, scaledConst<T, Op>, float2<Op> and floatc<Op>
// (each checks its pointers, then len) and the
// operation tags Add, Sub, SubC and Mul, then expands the member groups it
// implements.  Sub takes (src1, src2) and gives src2 - src1; SubC gives
// src - value.
#ifndef VEK_SIGNAL_ARITH_EXPORTS_H
#define VEK_SIGNAL_ARITH_EXPORTS_H

// In-place forms: srcDst is both the second operand and the destination
// (for Sub: srcDst - src, i.e. Sub with src1 = src, src2 = srcDst).
#define VEK_ARITH_INT(Name, Op, T)                                                                  \
    VekStatus VEK_CALL veks##Name##_Sfs(const T* pSrc1, const T* pSrc2, T* pDst, int len, int sf) { \
        return scaled<T, Op>(pSrc1, pSrc2, pDst, len, sf);                                          \
    }                                                                                               \
    VekStatus VEK_CALL veks##Name##_ISfs(const T* pSrc, T* pSrcDst, int len, int sf) {              \
        return scaled<T, Op>(pSrc, pSrcDst, pSrcDst, len, sf);                                      \
    }
#define VEK_ARITH_INTC(Name, Op, T)                                                       \
    VekStatus VEK_CALL veks##Name##_Sfs(const T* pSrc, T val, T* pDst, int len, int sf) { \
        return scaledConst<T, Op>(pSrc, val, pDst, len, sf);                              \
    }                                                                                     \
    VekStatus VEK_CALL veks##Name##_ISfs(T val, T* pSrcDst, int len, int sf) {            \
        return scaledConst<T, Op>(pSrcDst, val, pSrcDst, len, sf);                        \
    }
#define VEK_ARITH_FLOAT(Name, Op)                                                                          \
    VekStatus VEK_CALL veks##Name##_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len) { \
        return float2<Op>(pSrc1, pSrc2, pDst, len);                                                        \
    }                                                                                                      \
    VekStatus VEK_CALL veks##Name##_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len) {                  \
        return float2<Op>(pSrc, pSrcDst, pSrcDst, len);                                                    \
    }
#define VEK_ARITH_FLOATC(Name, Op)                                                               \
    VekStatus VEK_CALL veks##Name##_32f(const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len) { \
        return floatc<Op>(pSrc, val, pDst, len);                                                 \
    }                                                                                            \
    VekStatus VEK_CALL veks##Name##_32f_I(Vek32f val, Vek32f* pSrcDst, int len) {                \
        return floatc<Op>(pSrcDst, val, pSrcDst, len);                                           \
    }

#define VEK_ARITH_16S_MEMBERS              \
    VEK_ARITH_INT(Add_16s, Add, Vek16s)    \
    VEK_ARITH_INT(Sub_16s, Sub, Vek16s)    \
    VEK_ARITH_INTC(AddC_16s, Add, Vek16s)  \
    VEK_ARITH_INTC(SubC_16s, SubC, Vek16s) \
    VEK_ARITH_INTC(MulC_16s, Mul, Vek16s)
#define VEK_ARITH_32S_ADD_MEMBERS         \
    VEK_ARITH_INT(Add_32s, Add, Vek32s)   \
    VEK_ARITH_INT(Sub_32s, Sub, Vek32s)   \
    VEK_ARITH_INTC(AddC_32s, Add, Vek32s) \
    VEK_ARITH_INTC(SubC_32s, SubC, Vek32s)
#define VEK_ARITH_32S_MUL_MEMBERS       \
    VEK_ARITH_INT(Mul_32s, Mul, Vek32s) \
    VEK_ARITH_INTC(MulC_32s, Mul, Vek32s)
#define VEK_ARITH_FLOAT_MEMBERS  \
    VEK_ARITH_FLOAT(Add, Add)    \
    VEK_ARITH_FLOAT(Sub, Sub)    \
    VEK_ARITH_FLOAT(Mul, Mul)    \
    VEK_ARITH_FLOATC(AddC, Add)  \
    VEK_ARITH_FLOATC(SubC, SubC) \
    VEK_ARITH_FLOATC(MulC, Mul)

#endif

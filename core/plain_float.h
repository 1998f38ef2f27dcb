// Single-precision arithmetic for the plain level that rounds every result
// to float on every target.
//
// The SIMD levels round each float operation to single precision.  On i686
// the plain level runs on the x87 unit, which keeps intermediates in
// extended precision (GCC's C++ front end does not round them to float
// between operations), so a chain such as a * b + c could differ from the
// SSE result.  Rounding after each operation removes the difference: for
// +, -, * and / of two floats, the extended result rounded once to float is
// the correctly rounded float result, the same bits SSE gives.  (That does
// not hold for double: the plain level must not compute in double where a
// SIMD level computes in double.)  Elsewhere these helpers are plain
// operations that the compiler inlines away.
#ifndef VEK_CORE_PLAIN_FLOAT_H
#define VEK_CORE_PLAIN_FLOAT_H

namespace vek {

#if defined(__i386__) && !defined(__SSE_MATH__)
// A store to memory rounds the x87 register to single precision.
inline float roundToFloat(float x) {
    volatile float stored = x;
    return stored;
}
#else
inline float roundToFloat(float x) { return x; }
#endif

// Double arithmetic for the plain level that rounds as SSE2 does.  While
// one lives, the x87 unit rounds every result to 53 bits (its precision
// control), so a double operation rounds once, as SSE2's does, instead of
// to 64 bits and again on a store.  The exponent range stays the x87's,
// which differs only for results beyond double's range.  Elsewhere it does
// nothing.
#if defined(__i386__) && !defined(__SSE2_MATH__)
class DoubleRounding {
public:
    DoubleRounding() {
        __asm__ __volatile__("fnstcw %0" : "=m"(saved_));
        const unsigned short doublePrecision = static_cast<unsigned short>((saved_ & ~0x300u) | 0x200u);
        __asm__ __volatile__("fldcw %0" : : "m"(doublePrecision) : "memory");
    }
    ~DoubleRounding() { __asm__ __volatile__("fldcw %0" : : "m"(saved_) : "memory"); }
    DoubleRounding(const DoubleRounding&) = delete;
    DoubleRounding& operator=(const DoubleRounding&) = delete;

private:
    unsigned short saved_;
};
#else
class DoubleRounding {
public:
    DoubleRounding() {}  // user-provided: a guard variable is not "unused"
};
#endif

inline float addF(float a, float b) { return roundToFloat(a + b); }
inline float subF(float a, float b) { return roundToFloat(a - b); }
inline float mulF(float a, float b) { return roundToFloat(a * b); }
inline float divF(float a, float b) { return roundToFloat(a / b); }

}  // namespace vek

#endif

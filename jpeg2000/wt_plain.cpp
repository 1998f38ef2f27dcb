// Wavelet transforms, the plain reference: the step kernels one sample at a
// time (wt_steps.h gives the arithmetic of one coefficient); the walks over
// rows, columns and tiles are the ones every level shares.
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include <type_traits>

#include "core/dispatch.h"
#include "jpeg2000/wt_checks.h"
#include "jpeg2000/wt_exports.h"
#include "jpeg2000/wt_steps.h"

namespace vek::plain {
namespace {

template <class T, int Op>
void lift53(T* out, const T* a, const T* b, const T* c, size_t n) {
    for (size_t i = 0; i < n; ++i) out[i] = jpeg2000::step53<T, Op>(a[i], b[i], c[i]);
}

template <class T, int32_t CA, int32_t CB>
void liftQ(T* out, const T* a, const T* b, const T* c, size_t n) {
    for (size_t i = 0; i < n; ++i)
        out[i] = CB == 0 ? jpeg2000::stepQ<T, CA, 0>(a[i], 0, 0) : jpeg2000::stepQ<T, CA, CB>(a[i], b[i], c[i]);
}

template <int Kind>
void liftF(float* out, const float* a, const float* b, const float* c, size_t n, float k1, float k2) {
    for (size_t i = 0; i < n; ++i)
        out[i] = Kind == jpeg2000::kScale ? jpeg2000::stepF<Kind>(a[i], 0, 0, k1, k2)
                                          : jpeg2000::stepF<Kind>(a[i], b[i], c[i], k1, k2);
}

template <class T>
void split(const T* x, size_t pairs, T* even, T* odd) {
    for (size_t i = 0; i < pairs; ++i) even[i] = x[2 * i], odd[i] = x[2 * i + 1];
}
template <class T>
void merge(const T* even, const T* odd, size_t pairs, T* x) {
    for (size_t i = 0; i < pairs; ++i) x[2 * i] = even[i], x[2 * i + 1] = odd[i];
}

}  // namespace

#include "jpeg2000/wt_lifting.h"
#include "jpeg2000/wt_passes.h"

VEK_WT_B53_MEMBERS
VEK_WT_D97_32F_MEMBERS
VEK_WT_D97_16S_MEMBERS
VEK_WT_D97_32S_MEMBERS

}  // namespace vek::plain

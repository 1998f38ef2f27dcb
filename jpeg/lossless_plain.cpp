// Lossless JPEG row prediction, the plain reference: one sample at a time,
// each prediction worked in int as T.81 writes it.
#include <stddef.h>
#include <stdint.h>

#include <type_traits>

#include "core/dispatch.h"

namespace vek::plain {
#include "jpeg/lossless_checks.h"
#include "jpeg/lossless_rows.h"

namespace {
template <int P>
void diffRest(const Vek16s* src, const Vek16s* prev, Vek16s* dst, size_t n) {
    diffRestScalar<P>(src, prev, dst, n);
}
template <int P>
void reconstructRest(const Vek16s* src, const Vek16s* prev, Vek16s* dst, size_t n) {
    reconstructRestScalar<P>(src, prev, dst, n);
}
}  // namespace

#include "jpeg/lossless_exports.h"
VEK_LOSSLESS_EXPORTS
}  // namespace vek::plain

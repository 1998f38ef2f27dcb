// Per-pixel arithmetic on images, the SSE level: the float product with the
// packed SSE kernel of the vector arithmetic.
#include <stddef.h>
#include <stdint.h>

#include "core/dispatch.h"
#include "image/image_common.h"
#include "image/pixel_arith_exports.h"

namespace vek::sse {
#include "image/pixel_rows.h"

VEK_PIXEL_MULC_32F_MEMBER

}  // namespace vek::sse

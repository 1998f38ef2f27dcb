// Image copies, sets, mirrors, channel swaps and border replication: the
// plain reference.  Every member of the family is defined here; the scalar
// row loops of image/copy_rows.h run alone, with no vector kernel.  Whole
// rows are copied with memcpy at every level: the C library's copy is as fast
// as anything written here.
#include <stdint.h>
#include <string.h>

#include <type_traits>
#include <utility>

#include "core/dispatch.h"
#include "image/copy_checks.h"
#include "image/copy_exports.h"

namespace vek::plain {
#include "image/copy_rows.h"

VEK_IMAGE_PLAIN_COPY_MEMBERS
VEK_IMAGE_COPY_AC4_MEMBER
VEK_IMAGE_SET_WIDE_MEMBERS
VEK_IMAGE_BORDER_MEMBER
VEK_IMAGE_PLANAR_32F_MEMBERS
VEK_IMAGE_PLANAR_8U_MEMBER
VEK_IMAGE_PLANAR_16S_MEMBER
VEK_IMAGE_SWAP_MEMBERS
VEK_IMAGE_MIRROR_8U_C1_MEMBERS
VEK_IMAGE_MIRROR_8U_C3_MEMBERS
VEK_IMAGE_MIRROR_16_C1_MEMBERS
VEK_IMAGE_MIRROR_16_C3_MEMBERS
VEK_IMAGE_MIRROR_32_C1_MEMBERS
VEK_IMAGE_MIRROR_32_C3_MEMBERS
}  // namespace vek::plain

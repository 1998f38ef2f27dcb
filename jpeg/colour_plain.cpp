// The JPEG colour family, the plain level: the reference every other level
// is compared with.  Portable scalar C++ over the tables and layouts of
// colour_pixels.h.
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include <array>
#include <type_traits>

#include "core/dispatch.h"
#include "image/image_common.h"
#include "jpeg/colour_exports.h"
#include "jpeg/colour_pixels.h"

namespace vek::plain {
namespace {
using LevelVector = jpeg::NoVector;
}  // namespace

#include "jpeg/colour_rows.h"
#include "jpeg/mcu_rows.h"
#include "jpeg/sample_rows.h"

VEK_JPEG_COLOUR_INTERLEAVED_MEMBERS
VEK_JPEG_COLOUR_OTHER_MEMBERS
VEK_JPEG_SAMPLE_MEMBERS
VEK_JPEG_MCU_MEMBERS
VEK_JPEG_MCU422_MEMBERS
}  // namespace vek::plain

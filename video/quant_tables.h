// The MPEG-2 default intra quantiser matrix (ISO/IEC 13818-2), raster
// order, and its reciprocals in single precision, which the forward intra
// quantiser uses when the caller gives no matrix.  The reciprocals are
// folded by the compiler, correctly rounded, so every level reads the same
// bits.
//
// Included inside a level's namespace; internal linkage.
#ifndef VEK_VIDEO_QUANT_TABLES_H
#define VEK_VIDEO_QUANT_TABLES_H

namespace {

// clang-format off
constexpr Vek16s kDefaultIntraMatrix[64] = {
     8, 16, 19, 22, 26, 27, 29, 34,
    16, 16, 22, 24, 27, 29, 34, 37,
    19, 22, 26, 27, 29, 34, 34, 38,
    22, 22, 26, 27, 29, 34, 37, 40,
    22, 26, 27, 29, 32, 35, 40, 48,
    26, 27, 29, 32, 35, 40, 48, 58,
    26, 27, 29, 34, 38, 46, 56, 69,
    27, 29, 35, 38, 46, 56, 69, 83};
// clang-format on

template <size_t... I>
constexpr std::array<Vek32f, 64> reciprocalsOf(const Vek16s (&w)[64], std::index_sequence<I...>) {
    return {{(1.0f / static_cast<Vek32f>(w[I]))...}};
}
alignas(64) constexpr std::array<Vek32f, 64> kDefaultIntraReciprocalTable =
    reciprocalsOf(kDefaultIntraMatrix, std::make_index_sequence<64>{});
constexpr const Vek32f* kDefaultIntraReciprocals = kDefaultIntraReciprocalTable.data();

}  // namespace

#endif

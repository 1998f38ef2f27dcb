// CRC-32 and Adler-32: every level against level 0 over every length and
// alignment, every level against zlib and against bitwise references
// written from the definitions, the zero-byte advance tables of the fast
// levels, and the rules at entry.
#ifdef VEK_HAVE_ZLIB
#    include <zlib.h>
#endif

#include "compression/crc32_shift_tables.h"
#include "compression/crc32_tables.h"
#include "harness.h"

namespace vektest {
namespace {

// Bit-at-a-time CRC-32 and modulo-every-byte Adler-32.
uint32_t referenceCrc32(const uint8_t* p, size_t n, uint32_t crc) {
    uint32_t c = ~crc;
    for (size_t i = 0; i < n; ++i) {
        c ^= p[i];
        for (int k = 0; k < 8; ++k) c = (c >> 1) ^ (0xEDB88320u & (0u - (c & 1)));
    }
    return ~c;
}
uint32_t referenceAdler32(const uint8_t* p, size_t n, uint32_t adler) {
    uint32_t a = adler & 0xFFFF, b = adler >> 16;
    for (size_t i = 0; i < n; ++i) {
        a = (a + p[i]) % 65521;
        b = (b + a) % 65521;
    }
    return b << 16 | a;
}

std::vector<uint8_t> checksumInput(int len) {
    std::vector<uint8_t> v(len);
    const bool runs = rng()() % 4 == 0;  // long runs of 0xFF push the sums hardest
    for (auto& b : v) b = runs ? 0xFF : static_cast<uint8_t>(rng()());
    return v;
}

// Runs every level on the same input at offsets 0..15 (so every alignment
// and both sides of the 15-byte path switch are seen) and compares the
// running value written.
template <class Fn>
void diffChecksum(Fn* const* table, bool adler) {
    std::vector<int> lengths = testLengths();
    // Adler blocks; then each size of stream group the fast CRC levels use
    // (pieces of 64, 512 and 4096 bytes in threes, 16 and 256 in 64 lanes)
    // alone, with a byte more, and mixed.
    for (int len : {5551, 5552, 5553, 11104, 11111, 65536 + 7, 191, 192, 193, 1023, 1024, 1025, 1536, 1537, 12288,
                    16384, 16383, 16384 + 12288 + 1536 + 1024 + 192 + 7})
        lengths.push_back(len);
    for (int round = 0; round < rounds(2); ++round)
        for (int len : lengths) {
            const std::vector<uint8_t> data = checksumInput(len);
            const int offset = rng()() % 16;
            InputArray<Vek8u> src(len, offset);
            if (len) memcpy(src.data(), data.data(), len);
            GuardedArray<Vek32u> value(1);
            // Adler also from sums that were never reduced (A or B up to 65535).
            const Vek32u unreduced[] = {0xFFFFFFFFu, 0xFFF0FFF0u, 0x0000FFFFu};
            const Vek32u start = !adler        ? Vek32u(rng()())
                                 : rng()() % 2 ? 1
                                 : rng()() % 4 ? referenceAdler32(data.data(), len / 3, 1)
                                               : unreduced[rng()() % 3];
            compareLevels(
                value, {start}, [&](int level) { return int(table[level](src.data(), len, value.data())); },
                "len " + std::to_string(len) + " offset " + std::to_string(offset));
        }
}

VEK_DIFF_CASE(veksCRC32_8u, [] { diffChecksum(vek::vekTable_veksCRC32_8u, false); });
VEK_DIFF_CASE(veksAdler32_8u, [] { diffChecksum(vek::vekTable_veksAdler32_8u, true); });

TEST(Checksums, CrcTablesFollowFromThePolynomial) {
    const auto& K = vek::crc32::kCrc32Table;
    for (uint32_t i = 0; i < 256; ++i) {
        const uint8_t byte = static_cast<uint8_t>(i);
        EXPECT_EQ(K[0][i], ~referenceCrc32(&byte, 1, ~0u)) << i;  // one byte from a zero register
        for (int k = 1; k < 8; ++k) ASSERT_EQ(K[k][i], (K[k - 1][i] >> 8) ^ K[0][K[k - 1][i] & 0xFF]) << k << " " << i;
    }
}

// advance() of every table is the register after that many zero bytes.
template <size_t kBytes>
void expectAdvance() {
    const std::vector<uint8_t> zeros(kBytes, 0);
    for (int i = 0; i < 64; ++i) {
        const uint32_t c = i < 32 ? 1u << i : uint32_t(rng()());
        // referenceCrc32 takes and gives finished values: invert around it.
        EXPECT_EQ(vek::crc32::advance(vek::crc32::kAdvance<kBytes>, c), ~referenceCrc32(zeros.data(), kBytes, ~c))
            << kBytes << " bytes, register " << c;
    }
}
TEST(Checksums, AdvanceTablesMatchZeroBytes) {
    expectAdvance<16>();
    expectAdvance<64>();
    expectAdvance<256>();
    expectAdvance<512>();
    expectAdvance<4096>();
}

#ifdef VEK_HAVE_ZLIB
// zlib's crc32 and adler32 continue from a seed as ours do (CRC from 0,
// Adler from 1): every level equals them for every length up to a few
// hundred at every alignment, for long inputs, and from random seeds.
TEST(Checksums, EveryLevelEqualsZlib) {
    std::vector<int> lengths;
    for (int n = 1; n <= 400; ++n) lengths.push_back(n);
    for (int n : {1000, 4099, 12288 + 5, 16384, 65536, 65536 + 16384 + 3000 + 1, 1 << 20}) lengths.push_back(n);
    const std::vector<uint8_t> data = checksumInput((1 << 20) + 16);
    for (int level : availableLevels())
        for (int len : lengths)
            for (int offset = 0; offset < (len > 400 ? 3 : 16); ++offset) {
                const uint8_t* p = data.data() + offset;
                const Vek32u seed = rng()() % 2 ? 0 : Vek32u(rng()());
                Vek32u crc = seed, adler = 1;
                vek::vekTable_veksCRC32_8u[level](p, len, &crc);
                vek::vekTable_veksAdler32_8u[level](p, len, &adler);
                ASSERT_EQ(crc, ::crc32(seed, p, uInt(len)))
                    << "level " << level << " len " << len << " offset " << offset;
                ASSERT_EQ(adler, ::adler32(1, p, uInt(len)))
                    << "level " << level << " len " << len << " offset " << offset;
            }
}
#endif

TEST(Checksums, KnownValuesAndSplitsOnEveryLevel) {
    const uint8_t digits[] = "123456789";
    const std::vector<uint8_t> ff(11111, 0xFF);
    for (int level : availableLevels()) {
        Vek32u crc = 0, adler = 1;
        EXPECT_EQ(vek::vekTable_veksCRC32_8u[level](digits, 9, &crc), StatusOk);
        EXPECT_EQ(crc, 0xCBF43926u);
        EXPECT_EQ(vek::vekTable_veksAdler32_8u[level](digits, 9, &adler), StatusOk);
        EXPECT_EQ(adler, 0x091E01DEu);
        adler = 1;
        vek::vekTable_veksAdler32_8u[level](ff.data(), int(ff.size()), &adler);
        EXPECT_EQ(adler, 0x9D7B3E1Fu) << "level " << level;

        const std::vector<uint8_t> data = checksumInput(3000);
        for (int cut = 1; cut < 3000; cut += 1 + cut / 3) {
            Vek32u c = 0, a = 1;
            vek::vekTable_veksCRC32_8u[level](data.data(), cut, &c);
            vek::vekTable_veksCRC32_8u[level](data.data() + cut, 3000 - cut, &c);
            vek::vekTable_veksAdler32_8u[level](data.data(), cut, &a);
            vek::vekTable_veksAdler32_8u[level](data.data() + cut, 3000 - cut, &a);
            ASSERT_EQ(c, referenceCrc32(data.data(), 3000, 0)) << "level " << level << " cut " << cut;
            ASSERT_EQ(a, referenceAdler32(data.data(), 3000, 1)) << "level " << level << " cut " << cut;
        }
    }
}

TEST(Checksums, RulesAtEntry) {
    const uint8_t byte = 0x61;
    for (int level : availableLevels()) {
        Vek32u v = 12345;
        EXPECT_EQ(vek::vekTable_veksAdler32_8u[level](&byte, 1, nullptr), StatusNullPointer);
        EXPECT_EQ(vek::vekTable_veksAdler32_8u[level](nullptr, -5, &v), StatusOk);
        EXPECT_EQ(v, 1u);  // a null source asks for the start value
        v = 0x00620062;
        EXPECT_EQ(vek::vekTable_veksAdler32_8u[level](&byte, 0, &v), StatusOk);
        EXPECT_EQ(vek::vekTable_veksAdler32_8u[level](&byte, -1, &v), StatusOk);
        EXPECT_EQ(v, 0x00620062u);

        v = 777;
        EXPECT_EQ(vek::vekTable_veksCRC32_8u[level](nullptr, 1, &v), StatusNullPointer);
        EXPECT_EQ(vek::vekTable_veksCRC32_8u[level](&byte, 1, nullptr), StatusNullPointer);
        EXPECT_EQ(vek::vekTable_veksCRC32_8u[level](&byte, 0, &v), StatusSize);
        EXPECT_EQ(v, 777u);
        v = 0;
        EXPECT_EQ(vek::vekTable_veksCRC32_8u[level](&byte, 1, &v), StatusOk);
        EXPECT_EQ(v, 0xE8B7BE43u);
    }
}

}  // namespace
}  // namespace vektest

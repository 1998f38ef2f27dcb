// CRC-32 and Adler-32: every level against level 0 over every length and
// alignment, level 0 against bitwise references written from the
// definitions, and the rules at entry.
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
    for (int len : {5551, 5552, 5553, 11104, 11111, 65536 + 7}) lengths.push_back(len);
    for (int round = 0; round < rounds(2); ++round)
        for (int len : lengths) {
            const std::vector<uint8_t> data = checksumInput(len);
            const int offset = rng()() % 16;
            InputArray<Vek8u> src(len, offset);
            if (len) memcpy(src.data(), data.data(), len);
            GuardedArray<Vek32u> value(1);
            const Vek32u start = adler ? (rng()() % 2 ? 1 : referenceAdler32(data.data(), len / 3, 1)) : rng()();
            compareLevels(value, {start}, [&](int level) { return int(table[level](src.data(), len, value.data())); },
                          "len " + std::to_string(len) + " offset " + std::to_string(offset));
        }
}

VEK_DIFF_CASE(veksCRC32_8u, [] { diffChecksum(vekTable_veksCRC32_8u, false); });
VEK_DIFF_CASE(veksAdler32_8u, [] { diffChecksum(vekTable_veksAdler32_8u, true); });

TEST(Checksums, CrcTablesFollowFromThePolynomial) {
    const auto& K = vek::crc32::kCrc32Table;
    for (uint32_t i = 0; i < 256; ++i) {
        const uint8_t byte = static_cast<uint8_t>(i);
        EXPECT_EQ(K[0][i], ~referenceCrc32(&byte, 1, ~0u)) << i;  // one byte from a zero register
        for (int k = 1; k < 8; ++k) ASSERT_EQ(K[k][i], (K[k - 1][i] >> 8) ^ K[0][K[k - 1][i] & 0xFF]) << k << " " << i;
    }
}

TEST(Checksums, KnownValuesAndSplitsOnEveryLevel) {
    const uint8_t digits[] = "123456789";
    const std::vector<uint8_t> ff(11111, 0xFF);
    for (int level : availableLevels()) {
        Vek32u crc = 0, adler = 1;
        EXPECT_EQ(vekTable_veksCRC32_8u[level](digits, 9, &crc), StatusOk);
        EXPECT_EQ(crc, 0xCBF43926u);
        EXPECT_EQ(vekTable_veksAdler32_8u[level](digits, 9, &adler), StatusOk);
        EXPECT_EQ(adler, 0x091E01DEu);
        adler = 1;
        vekTable_veksAdler32_8u[level](ff.data(), int(ff.size()), &adler);
        EXPECT_EQ(adler, 0x9D7B3E1Fu) << "level " << level;

        const std::vector<uint8_t> data = checksumInput(3000);
        for (int cut = 1; cut < 3000; cut += 1 + cut / 3) {
            Vek32u c = 0, a = 1;
            vekTable_veksCRC32_8u[level](data.data(), cut, &c);
            vekTable_veksCRC32_8u[level](data.data() + cut, 3000 - cut, &c);
            vekTable_veksAdler32_8u[level](data.data(), cut, &a);
            vekTable_veksAdler32_8u[level](data.data() + cut, 3000 - cut, &a);
            ASSERT_EQ(c, referenceCrc32(data.data(), 3000, 0)) << "level " << level << " cut " << cut;
            ASSERT_EQ(a, referenceAdler32(data.data(), 3000, 1)) << "level " << level << " cut " << cut;
        }
    }
}

TEST(Checksums, RulesAtEntry) {
    const uint8_t byte = 0x61;
    for (int level : availableLevels()) {
        Vek32u v = 12345;
        EXPECT_EQ(vekTable_veksAdler32_8u[level](&byte, 1, nullptr), StatusNullPointer);
        EXPECT_EQ(vekTable_veksAdler32_8u[level](nullptr, -5, &v), StatusOk);
        EXPECT_EQ(v, 1u);  // a null source asks for the start value
        v = 0x00620062;
        EXPECT_EQ(vekTable_veksAdler32_8u[level](&byte, 0, &v), StatusOk);
        EXPECT_EQ(vekTable_veksAdler32_8u[level](&byte, -1, &v), StatusOk);
        EXPECT_EQ(v, 0x00620062u);

        v = 777;
        EXPECT_EQ(vekTable_veksCRC32_8u[level](nullptr, 1, &v), StatusNullPointer);
        EXPECT_EQ(vekTable_veksCRC32_8u[level](&byte, 1, nullptr), StatusNullPointer);
        EXPECT_EQ(vekTable_veksCRC32_8u[level](&byte, 0, &v), StatusSize);
        EXPECT_EQ(v, 777u);
        v = 0;
        EXPECT_EQ(vekTable_veksCRC32_8u[level](&byte, 1, &v), StatusOk);
        EXPECT_EQ(v, 0xE8B7BE43u);
    }
}

}  // namespace
}  // namespace vektest

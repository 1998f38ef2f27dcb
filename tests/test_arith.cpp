// Vector arithmetic with integer scaling: every level against level 0 on
// random data, level 0 against an independent reference, and the rules at
// each export's entry on every level.
#include <limits>
#include <tuple>

#include "harness.h"

namespace vektest {
namespace {

using vek::kLevelCount;

// ---- independent reference of the scaled result ---------------------------
// Written from the definition (divide, round half to even, saturate), not
// from the library's bias-and-shift formula.
int64_t referenceScale(int64_t s, int sf, int64_t lo, int64_t hi, int maxScale) {
    auto clamp = [&](int64_t v) { return v < lo ? lo : (v > hi ? hi : v); };
    if (sf > maxScale) return 0;
    if (sf == 0) return clamp(s);
    if (sf > 0) {
        const int64_t d = int64_t(1) << sf;
        int64_t q = s / d, r = s % d;
        if (r < 0) q -= 1, r += d;  // floor division
        if (2 * r > d || (2 * r == d && (q & 1))) q += 1;
        return clamp(q);
    }
    const int k = -sf;
    if (s == 0) return 0;
    const int64_t limit = k >= 62 ? 0 : (int64_t(1) << (62 - k));
    if (s >= limit || -s >= limit) return s > 0 ? hi : lo;
    return clamp(s * (int64_t(1) << k));
}

int64_t exact(char op, int64_t a, int64_t b) {
    switch (op) {
    case '+': return a + b;
    case '-': return b - a;  // Sub: src2 - src1
    case 'c': return a - b;  // SubC: src - value
    default: return a * b;
    }
}

const int kScales16[] = {-40, -17, -16, -15, -9, -1, 0, 1, 2, 3, 7, 14, 15, 16, 17, 31, 100};
const int kScales32[] = {-64, -33, -32, -31, -30, -17, -1, 0, 1, 2, 3, 15, 16, 17, 30, 31, 32, 33, 63};

template <class T>
int pickScale() {
    if constexpr (sizeof(T) == 2)
        return kScales16[rng()() % (sizeof kScales16 / sizeof(int))];
    else
        return kScales32[rng()() % (sizeof kScales32 / sizeof(int))];
}

template <class T>
std::vector<int> allScales() {
    std::vector<int> v;
    const int lo = sizeof(T) == 2 ? -20 : -36, hi = sizeof(T) == 2 ? 20 : 36;
    for (int s = lo; s <= hi; ++s) v.push_back(s);
    return v;
}

// ---- differential cases, one helper per argument shape ------------------------
// Each draws rounds of random inputs over all test lengths and scale factors,
// with misaligned starts, and compares every level with level 0.

std::string describe(int len, int sf, int offset) {
    return "len " + std::to_string(len) + " scaleFactor " + std::to_string(sf) + " offset " + std::to_string(offset);
}

template <class T>
void forShapes(const std::function<void(int len, int sf, int offset)>& body) {
    for (int round = 0; round < rounds(3); ++round) {
        for (int len : testLengths()) body(len, pickScale<T>(), rng()() % 8);
        for (int sf : allScales<T>()) body(1 + rng()() % 70, sf, rng()() % 8);
    }
}

// One call of any member: the function type says which arguments it takes.
#define VEK_INVOKE(params, ...)                                                                       \
    template <class T>                                                                                \
    int invoke(VekStatus(VEK_CALL* f) params, const T* a, const T* b, T v, T* out, int len, int sf) { \
        (void)a, (void)b, (void)v, (void)sf;                                                          \
        return f(__VA_ARGS__);                                                                        \
    }
VEK_INVOKE((const T*, const T*, T*, int, int), a, b, out, len, sf)  // (src1, src2, dst, len, sf)
VEK_INVOKE((const T*, const T*, T*, int), a, b, out, len)           // (src1, src2, dst, len)
VEK_INVOKE((const T*, T*, int, int), a, out, len, sf)               // (src, srcDst, len, sf)
VEK_INVOKE((const T*, T*, int), a, out, len)                        // (src, srcDst, len)
VEK_INVOKE((const T*, T, T*, int, int), a, v, out, len, sf)         // (src, value, dst, len, sf)
VEK_INVOKE((const T*, T, T*, int), a, v, out, len)                  // (src, value, dst, len)
VEK_INVOKE((T, T*, int, int), v, out, len, sf)                      // (value, srcDst, len, sf)
VEK_INVOKE((T, T*, int), v, out, len)                               // (value, srcDst, len)
#undef VEK_INVOKE

// Operands of 32-bit members drawn from the 16-bit range, where the
// products take a shorter path, with its edges (-32769, -32768, 32767,
// 32768) and, when `mixed`, a few full-range values so that vectors of
// either path meet in one call.
template <class T>
void fillShort(T* p, int n, bool mixed) {
    static const int32_t edges[] = {-32769, -32768, 32767, 32768};
    for (int i = 0; i < n; ++i) {
        const uint32_t r = rng()();
        if (mixed && r % 16 == 0)
            p[i] = randomValue<T>();
        else if (r % 16 == 1)
            p[i] = static_cast<T>(edges[(r >> 8) % 4]);
        else
            p[i] = static_cast<T>(int32_t(r >> 16) - 32768);
    }
}

// Random inputs and a random starting output (the in-place members read
// it), misaligned starts, every length and scale factor.
template <class T, class Fn>
void diffArith(const Fn* table) {
    forShapes<T>([&](int len, int sf, int off) {
        InputArray<T> a(len, off), b(len, (off + 3) % 8);
        const int data = std::is_same_v<T, Vek32s> ? int(rng()() % 3) : 0;  // full range, 16-bit range, mixed
        if (data == 0) {
            fillRandom(a.data(), len);
            fillRandom(b.data(), len);
        } else {
            fillShort(a.data(), len, data == 2);
            fillShort(b.data(), len, data == 2);
        }
        T v = randomValue<T>();
        std::vector<T> initial = randomVector<T>(len);
        if (data) {
            fillShort(&v, 1, data == 2);
            fillShort(initial.data(), len, data == 2);
        }
        GuardedArray<T> out(len, (off + 5) % 8);
        compareLevels(
            out, initial,
            [&](int level) { return invoke<T>(table[level], a.data(), b.data(), v, out.data(), len, sf); },
            describe(len, sf, off) + " value " + std::to_string(+v));
    });
}

#define VEK_ARITH_DIFF(name, T) VEK_DIFF_CASE(name, [] { diffArith<T>(vek::vekTable_##name); })

VEK_ARITH_DIFF(veksAdd_16s_Sfs, Vek16s);
VEK_ARITH_DIFF(veksAdd_16s_ISfs, Vek16s);
VEK_ARITH_DIFF(veksAdd_32s_Sfs, Vek32s);
VEK_ARITH_DIFF(veksAdd_32s_ISfs, Vek32s);
VEK_ARITH_DIFF(veksAdd_32f, Vek32f);
VEK_ARITH_DIFF(veksAdd_32f_I, Vek32f);
VEK_ARITH_DIFF(veksSub_16s_Sfs, Vek16s);
VEK_ARITH_DIFF(veksSub_16s_ISfs, Vek16s);
VEK_ARITH_DIFF(veksSub_32s_Sfs, Vek32s);
VEK_ARITH_DIFF(veksSub_32s_ISfs, Vek32s);
VEK_ARITH_DIFF(veksSub_32f, Vek32f);
VEK_ARITH_DIFF(veksSub_32f_I, Vek32f);
VEK_ARITH_DIFF(veksMul_32s_Sfs, Vek32s);
VEK_ARITH_DIFF(veksMul_32s_ISfs, Vek32s);
VEK_ARITH_DIFF(veksMul_32f, Vek32f);
VEK_ARITH_DIFF(veksMul_32f_I, Vek32f);
VEK_ARITH_DIFF(veksAddC_16s_Sfs, Vek16s);
VEK_ARITH_DIFF(veksAddC_16s_ISfs, Vek16s);
VEK_ARITH_DIFF(veksAddC_32s_Sfs, Vek32s);
VEK_ARITH_DIFF(veksAddC_32s_ISfs, Vek32s);
VEK_ARITH_DIFF(veksAddC_32f, Vek32f);
VEK_ARITH_DIFF(veksAddC_32f_I, Vek32f);
VEK_ARITH_DIFF(veksSubC_16s_Sfs, Vek16s);
VEK_ARITH_DIFF(veksSubC_16s_ISfs, Vek16s);
VEK_ARITH_DIFF(veksSubC_32s_Sfs, Vek32s);
VEK_ARITH_DIFF(veksSubC_32s_ISfs, Vek32s);
VEK_ARITH_DIFF(veksSubC_32f, Vek32f);
VEK_ARITH_DIFF(veksSubC_32f_I, Vek32f);
VEK_ARITH_DIFF(veksMulC_16s_Sfs, Vek16s);
VEK_ARITH_DIFF(veksMulC_16s_ISfs, Vek16s);
VEK_ARITH_DIFF(veksMulC_32s_Sfs, Vek32s);
VEK_ARITH_DIFF(veksMulC_32s_ISfs, Vek32s);
VEK_ARITH_DIFF(veksMulC_32f, Vek32f);
VEK_ARITH_DIFF(veksMulC_32f_I, Vek32f);

// ---- level 0 against the independent reference ------------------------------

template <class Fn>
struct ArgsOfT;
template <class R, class... A>
struct ArgsOfT<R(VEK_CALL*)(A...)> {
    using type = std::tuple<A...>;
};
template <class Fn>
using ArgsOf = typename ArgsOfT<Fn>::type;

template <class T, class Fn>
void checkAgainstReference(const Fn* table, char op) {
    constexpr bool constant = !std::is_pointer_v<std::tuple_element_t<1, ArgsOf<Fn>>>;
    const bool wide = sizeof(T) == 4;
    const int64_t lo = std::numeric_limits<T>::min(), hi = std::numeric_limits<T>::max();
    for (int round = 0; round < rounds(200); ++round) {
        for (int sf : allScales<T>()) {
            const int len = 1 + rng()() % 40;
            std::vector<T> a = randomVector<T>(len), b = randomVector<T>(len), d(len);
            if (constant) b.assign(len, b[0]);
            int status;
            if constexpr (constant)
                status = table[0](a.data(), b[0], d.data(), len, sf);
            else
                status = table[0](a.data(), b.data(), d.data(), len, sf);
            ASSERT_EQ(status, StatusOk);
            for (int i = 0; i < len; ++i)
                ASSERT_EQ(d[i], referenceScale(exact(op, a[i], b[i]), sf, lo, hi, wide ? 32 : 16))
                    << +a[i] << " " << op << " " << +b[i] << " scaleFactor " << sf;
        }
    }
}

TEST(ArithReference, ScaledMembersRoundHalfToEvenAndSaturate) {
    checkAgainstReference<Vek16s>(vek::vekTable_veksAdd_16s_Sfs, '+');
    checkAgainstReference<Vek16s>(vek::vekTable_veksSub_16s_Sfs, '-');
    checkAgainstReference<Vek16s>(vek::vekTable_veksAddC_16s_Sfs, '+');
    checkAgainstReference<Vek16s>(vek::vekTable_veksSubC_16s_Sfs, 'c');
    checkAgainstReference<Vek16s>(vek::vekTable_veksMulC_16s_Sfs, '*');
    checkAgainstReference<Vek32s>(vek::vekTable_veksAdd_32s_Sfs, '+');
    checkAgainstReference<Vek32s>(vek::vekTable_veksSub_32s_Sfs, '-');
    checkAgainstReference<Vek32s>(vek::vekTable_veksMul_32s_Sfs, '*');
    checkAgainstReference<Vek32s>(vek::vekTable_veksAddC_32s_Sfs, '+');
    checkAgainstReference<Vek32s>(vek::vekTable_veksSubC_32s_Sfs, 'c');
    checkAgainstReference<Vek32s>(vek::vekTable_veksMulC_32s_Sfs, '*');
}

// Float members give the correctly rounded single-precision result, which
// the double-precision operation rounded once to float is (53 >= 2*24 + 2).
TEST(ArithReference, FloatMembersAreCorrectlyRounded) {
    using F = VekStatus(VEK_CALL*)(const Vek32f*, const Vek32f*, Vek32f*, int);
    const struct {
        F fn;
        char op;
    } cases[] = {
        {vek::vekTable_veksAdd_32f[0], '+'}, {vek::vekTable_veksSub_32f[0], '-'}, {vek::vekTable_veksMul_32f[0], '*'}};
    for (const auto& c : cases) {
        for (int round = 0; round < rounds(200); ++round) {
            std::vector<Vek32f> a = randomVector<Vek32f>(64), b = randomVector<Vek32f>(64), d(64);
            ASSERT_EQ(c.fn(a.data(), b.data(), d.data(), 64), StatusOk);
            for (int i = 0; i < 64; ++i) {
                if (a[i] != a[i] || b[i] != b[i]) continue;
                const double x = a[i], y = b[i];
                const volatile double exactish = c.op == '+' ? x + y : c.op == '-' ? y - x : x * y;
                const Vek32f want = static_cast<Vek32f>(exactish);
                ASSERT_TRUE(sameBits(d[i], want)) << a[i] << " " << c.op << " " << b[i];
            }
        }
    }
}

// ---- the rules at the entry, on every level -------------------------------------

TEST(ArithEntry, TiesGoToEvenAndExtremeScalesSaturateOrClear) {
    onEveryLevel([](int level) {
        auto add = [&](Vek16s x, Vek16s y, int sf) {
            Vek16s d = 99;
            EXPECT_EQ(vek::vekTable_veksAdd_16s_Sfs[level](&x, &y, &d, 1, sf), StatusOk);
            return d;
        };
        EXPECT_EQ(add(3, 4, 1), 4);  // 3.5 -> 4
        EXPECT_EQ(add(1, 4, 1), 2);  // 2.5 -> 2
        EXPECT_EQ(add(5, 0, 1), 2);
        EXPECT_EQ(add(-5, 0, 1), -2);
        EXPECT_EQ(add(-7, 0, 1), -4);
        EXPECT_EQ(add(30000, 30000, 0), 32767);
        EXPECT_EQ(add(30000, 30000, 1), 30000);
        EXPECT_EQ(add(1, 2, 17), 0);
        EXPECT_EQ(add(1, 0, -16), 32767);
        EXPECT_EQ(add(-1, 0, -16), -32768);
        EXPECT_EQ(add(5, -5, -16), 0);
        EXPECT_EQ(add(-32768, -32768, 16), -1);  // -65536 / 65536

        Vek16s s1 = 1, s2 = 5, d = 0;
        EXPECT_EQ(vek::vekTable_veksSub_16s_Sfs[level](&s1, &s2, &d, 1, 0), StatusOk);
        EXPECT_EQ(d, 4);  // src2 - src1
        Vek16s io = 10;
        EXPECT_EQ(vek::vekTable_veksSubC_16s_ISfs[level](3, &io, 1, 0), StatusOk);
        EXPECT_EQ(io, 7);  // srcDst - value

        // The 64-bit product of the 32-bit members rounds before saturating.
        Vek32s a = INT32_MIN, b = INT32_MIN, r = 0;
        EXPECT_EQ(vek::vekTable_veksMul_32s_Sfs[level](&a, &b, &r, 1, 0), StatusOk);
        EXPECT_EQ(r, INT32_MAX);
        EXPECT_EQ(vek::vekTable_veksMul_32s_Sfs[level](&a, &b, &r, 1, 32), StatusOk);
        EXPECT_EQ(r, 1 << 30);
        a = 3, b = 1;
        EXPECT_EQ(vek::vekTable_veksMul_32s_Sfs[level](&a, &b, &r, 1, 1), StatusOk);
        EXPECT_EQ(r, 2);  // 1.5 -> 2
        a = INT32_MAX, b = INT32_MAX;
        EXPECT_EQ(vek::vekTable_veksAdd_32s_Sfs[level](&a, &b, &r, 1, 1), StatusOk);
        EXPECT_EQ(r, INT32_MAX);
        a = INT32_MIN, b = INT32_MAX;  // 2^32 - 1 halves to 2^31 - 0.5 -> 2^31, saturated
        EXPECT_EQ(vek::vekTable_veksSub_32s_Sfs[level](&a, &b, &r, 1, 1), StatusOk);
        EXPECT_EQ(r, INT32_MAX);
        a = 1, b = 0;
        EXPECT_EQ(vek::vekTable_veksAdd_32s_Sfs[level](&a, &b, &r, 1, -31), StatusOk);
        EXPECT_EQ(r, INT32_MAX);
        EXPECT_EQ(vek::vekTable_veksAdd_32s_Sfs[level](&a, &b, &r, 1, -30), StatusOk);
        EXPECT_EQ(r, 1 << 30);
        EXPECT_EQ(vek::vekTable_veksAdd_32s_Sfs[level](&a, &b, &r, 1, 33), StatusOk);
        EXPECT_EQ(r, 0);
    });
}

// Pointers are checked before the length, and a failed check writes nothing.
template <class T, class Fn>
void checkBinaryEntry(const Fn* table, int level, bool scaled) {
    T a[4] = {1, 2, 3, 4}, b[4] = {5, 6, 7, 8}, d[4] = {9, 9, 9, 9};
    auto call = [&](const T* x, const T* y, T* z, int len) {
        if constexpr (std::is_floating_point_v<T>) {
            (void)scaled;
            return table[level](x, y, z, len);
        } else
            return table[level](x, y, z, len, 0);
    };
    EXPECT_EQ(call(nullptr, b, d, 4), StatusNullPointer);
    EXPECT_EQ(call(a, nullptr, d, 4), StatusNullPointer);
    EXPECT_EQ(call(a, b, nullptr, 4), StatusNullPointer);
    EXPECT_EQ(call(nullptr, b, d, 0), StatusNullPointer);  // pointers first
    EXPECT_EQ(call(a, b, d, 0), StatusSize);
    EXPECT_EQ(call(a, b, d, -1), StatusSize);
    for (T v : d) EXPECT_EQ(v, T(9));
}

template <class T, class Fn>
void checkConstInPlaceEntry(const Fn* table, int level) {
    T d[2] = {9, 9};
    auto call = [&](T* z, int len) {
        if constexpr (std::is_floating_point_v<T>)
            return table[level](T(1), z, len);
        else
            return table[level](T(1), z, len, 0);
    };
    EXPECT_EQ(call(nullptr, 0), StatusNullPointer);
    EXPECT_EQ(call(d, 0), StatusSize);
    EXPECT_EQ(d[0], T(9));
}

TEST(ArithEntry, NullPointersComeBeforeLengthAndNothingIsWritten) {
    onEveryLevel([](int level) {
        checkBinaryEntry<Vek16s>(vek::vekTable_veksAdd_16s_Sfs, level, true);
        checkBinaryEntry<Vek16s>(vek::vekTable_veksSub_16s_Sfs, level, true);
        checkBinaryEntry<Vek32s>(vek::vekTable_veksAdd_32s_Sfs, level, true);
        checkBinaryEntry<Vek32s>(vek::vekTable_veksSub_32s_Sfs, level, true);
        checkBinaryEntry<Vek32s>(vek::vekTable_veksMul_32s_Sfs, level, true);
        checkBinaryEntry<Vek32f>(vek::vekTable_veksAdd_32f, level, false);
        checkBinaryEntry<Vek32f>(vek::vekTable_veksSub_32f, level, false);
        checkBinaryEntry<Vek32f>(vek::vekTable_veksMul_32f, level, false);
        checkConstInPlaceEntry<Vek16s>(vek::vekTable_veksAddC_16s_ISfs, level);
        checkConstInPlaceEntry<Vek16s>(vek::vekTable_veksMulC_16s_ISfs, level);
        checkConstInPlaceEntry<Vek32s>(vek::vekTable_veksSubC_32s_ISfs, level);
        checkConstInPlaceEntry<Vek32s>(vek::vekTable_veksMulC_32s_ISfs, level);
        checkConstInPlaceEntry<Vek32f>(vek::vekTable_veksMulC_32f_I, level);
        // Scale factors above the limit take the zero fill, which checks too.
        Vek16s a[1] = {1}, d[1] = {9};
        EXPECT_EQ(vek::vekTable_veksAddC_16s_Sfs[level](a, 1, nullptr, 1, 40), StatusNullPointer);
        EXPECT_EQ(vek::vekTable_veksAddC_16s_Sfs[level](a, 1, d, 0, 40), StatusSize);
        EXPECT_EQ(d[0], 9);
    });
}

// The public entry reaches the level chosen at load and agrees with it.
TEST(ArithEntry, PublicEntryUsesTheChosenLevel) {
    Vek32s a[5] = {1, -2, INT32_MAX, INT32_MIN, 7}, b[5] = {3, 3, 3, -3, 7}, viaEntry[5], viaTable[5];
    ASSERT_EQ(veksMul_32s_Sfs(a, b, viaEntry, 5, 1), StatusOk);
    ASSERT_EQ(vek::vekTable_veksMul_32s_Sfs[vek::DispatchLevel](a, b, viaTable, 5, 1), StatusOk);
    EXPECT_EQ(0, memcmp(viaEntry, viaTable, sizeof viaEntry));
}

}  // namespace
}  // namespace vektest

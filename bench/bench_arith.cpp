// Benchmark cases of the arithmetic family: every member on 4096-element
// vectors of random data, the scaled integer members at scale factor 0 and
// at a positive one (where rounding does its work).  The 32-bit data are
// 16-bit samples widened, as codecs mostly hold them: full-range random
// products would saturate almost every element.
//
// In-place members work on the same array call after call.  Left alone,
// an in-place Add at scale factor 0 would creep into saturation over
// thousands of calls, and the plain code (whose branches follow the data)
// would change speed during the measurement.  So the first operand (the
// source array or the constant) alternates in sign from call to call: Add
// and Sub then undo themselves after at most two calls, and positive scale
// factors shrink the data onto a fixed pair within a few.  Out-of-place
// members alternate the same way.  In-place 32-bit products alternate
// between gains that undo each other (gainCall below).
#include <memory>
#include <random>
#include <type_traits>

#include "bench_cases.h"
#include "core/dispatch.h"

namespace vekbench {
namespace {

constexpr int kElements = 4096;

template <class T>
T randomValue(std::mt19937& rng) {
    if constexpr (std::is_floating_point_v<T>)
        return std::uniform_real_distribution<T>(-1000, 1000)(rng);
    else
        return static_cast<T>(std::uniform_int_distribution<int>(-32767, 32767)(rng));  // negatable
}

// The inputs a and b, a negated, an output d (also the in-place operand)
// and a constant per element type, kept for the program's lifetime.  The
// arrays share one block, their starts 1 KiB apart modulo 4 KiB.  Arrays a
// whole number of pages apart (as separate heap blocks of this size tend to
// be) make loads wait on stores to another array that match in the low
// twelve address bits (4K aliasing), which made the plain code of some
// out-of-place members 1.6 times slower than the same code in place.
template <class T>
struct Buffers {
    static constexpr int kStride = kElements + 1024 / sizeof(T);  // elements
    std::vector<T> block = std::vector<T>(4 * kStride);
    T *a = &block[0], *negA = &block[kStride], *b = &block[2 * kStride], *d = &block[3 * kStride];
    T value;
    bool odd = false;  // this call uses -a and -value

    Buffers() {
        std::mt19937 rng(1);
        for (T* v : {a, b, d})
            for (int i = 0; i < kElements; ++i) v[i] = randomValue<T>(rng);
        for (int i = 0; i < kElements; ++i) negA[i] = static_cast<T>(-a[i]);
        value = randomValue<T>(rng);
    }
};
template <class T>
Buffers<T>& buffers() {
    static Buffers<T> b;
    return b;
}

// A call of one export on the buffers of its element type, and how many
// arrays of kElements it reads or writes.
struct Call {
    std::function<void(int level)> run;
    int streams;
    int elementBytes;
    bool scaled;  // has a scale factor (the integer members)
};

// One overload per argument shape of the family; the element type comes
// from the table's function type.
#define VEK_SHAPE(streams, params, ...)                                                  \
    template <class T>                                                                   \
    Call call(VekStatus(VEK_CALL* const* table) params, int sf) {                        \
        Buffers<T>& m = buffers<T>();                                                    \
        auto run = [table, sf, &m](int level) {                                          \
            m.odd = !m.odd;                                                              \
            [[maybe_unused]] const T* a = m.odd ? m.negA : m.a;                          \
            [[maybe_unused]] const T value = m.odd ? static_cast<T>(-m.value) : m.value; \
            table[level](__VA_ARGS__);                                                   \
        };                                                                               \
        return {run, streams, int(sizeof(T)), !std::is_floating_point_v<T>};             \
    }
VEK_SHAPE(3, (const T*, const T*, T*, int, int), a, m.b, m.d, kElements, sf)
VEK_SHAPE(3, (const T*, const T*, T*, int), a, m.b, m.d, kElements)
VEK_SHAPE(3, (const T*, T*, int, int), a, m.d, kElements, sf)
VEK_SHAPE(3, (const T*, T*, int), a, m.d, kElements)
VEK_SHAPE(2, (const T*, T, T*, int, int), a, value, m.d, kElements, sf)
VEK_SHAPE(2, (const T*, T, T*, int), a, value, m.d, kElements)
VEK_SHAPE(2, (T, T*, int, int), value, m.d, kElements, sf)
VEK_SHAPE(2, (T, T*, int), value, m.d, kElements)
#undef VEK_SHAPE

// In-place 32-bit products.  Multiplying the same array by random 16-bit
// values call after call saturates it within two calls, after which the
// benchmark would measure saturated data only.  Here the source (or the
// constant) alternates between gains g, signed powers of two near 2^sf,
// and their counterparts 2^(2 sf) / g, so each pair of calls leaves the
// data's magnitudes where they were, as a codec applying and removing a
// gain would.  The data are the case's own, so no other case's leftovers
// decide what it measures.
template <class T>
struct Gains {
    // One block, the arrays 1 KiB apart modulo 4 KiB (see Buffers).
    static constexpr int kStride = kElements + 1024 / sizeof(T);
    std::vector<T> block = std::vector<T>(3 * kStride);
    T *forward = &block[0], *back = &block[kStride], *data = &block[2 * kStride];
    bool odd = false;
    explicit Gains(int sf) {
        std::mt19937 rng(7);
        for (int i = 0; i < kElements; ++i) data[i] = randomValue<T>(rng);
        const int spread = sf >= 2 ? 2 : 0;
        for (int i = 0; i < kElements; ++i) {
            const int k = int(rng() % (2 * spread + 1)) - spread;
            const T sign = rng() % 2 ? T(-1) : T(1);
            forward[i] = static_cast<T>(sign * (T(1) << (sf + k)));
            back[i] = static_cast<T>(sign * (T(1) << (sf - k)));
        }
    }
};
template <class T>
Call gainCall(VekStatus(VEK_CALL* const* table)(const T*, T*, int, int), int sf) {
    auto g = std::make_shared<Gains<T>>(sf);
    auto run = [table, sf, g](int level) {
        g->odd = !g->odd;
        table[level](g->odd ? g->back : g->forward, g->data, kElements, sf);
    };
    return {run, 2, int(sizeof(T)), true};
}
template <class T>
Call gainCall(VekStatus(VEK_CALL* const* table)(T, T*, int, int), int sf) {
    auto g = std::make_shared<Gains<T>>(sf);
    auto run = [table, sf, g](int level) {
        g->odd = !g->odd;
        table[level](g->odd ? g->back[0] : g->forward[0], g->data, kElements, sf);
    };
    return {run, 2, int(sizeof(T)), true};
}
template <class Fn>
Call gainCall(const Fn* table, int sf) {
    return call(table, sf);
}

void push(std::vector<BenchCase>& cases, const char* exportName, std::string name, Call c) {
    const double bytes = double(c.streams) * kElements * c.elementBytes;
    cases.push_back({std::move(name), exportName, kElements, bytes, std::move(c.run)});
}

// A float member gives one case; a scaled member two: scale factor 0 and a
// positive one (3 for 16-bit data, 5 for 32-bit data).
template <class Fn>
void addArith(std::vector<BenchCase>& cases, const char* name, const Fn* table) {
    if (std::string(name).find("Mul") != std::string::npos && std::string(name).find("_32s_I") != std::string::npos) {
        push(cases, name, std::string(name) + "/sf:0", gainCall(table, 0));
        push(cases, name, std::string(name) + "/sf:5", gainCall(table, 5));
        return;
    }
    Call unscaled = call(table, 0);
    if (!unscaled.scaled) return push(cases, name, name, std::move(unscaled));
    const int sf = unscaled.elementBytes == 2 ? 3 : 5;
    push(cases, name, std::string(name) + "/sf:0", std::move(unscaled));
    push(cases, name, std::string(name) + "/sf:" + std::to_string(sf), call(table, sf));
}

}  // namespace

VEK_BENCH_FAMILY(arithmetic) {
// clang-format off
#define VEK_ARITH_CASE(name) addArith(cases, #name, vek::vekTable_##name);
    VEK_ARITH_CASE(veksAdd_16s_Sfs) VEK_ARITH_CASE(veksAdd_16s_ISfs) VEK_ARITH_CASE(veksSub_16s_Sfs)
    VEK_ARITH_CASE(veksSub_16s_ISfs) VEK_ARITH_CASE(veksAddC_16s_Sfs) VEK_ARITH_CASE(veksAddC_16s_ISfs)
    VEK_ARITH_CASE(veksSubC_16s_Sfs) VEK_ARITH_CASE(veksSubC_16s_ISfs) VEK_ARITH_CASE(veksMulC_16s_Sfs)
    VEK_ARITH_CASE(veksMulC_16s_ISfs)
    VEK_ARITH_CASE(veksAdd_32s_Sfs) VEK_ARITH_CASE(veksAdd_32s_ISfs) VEK_ARITH_CASE(veksSub_32s_Sfs)
    VEK_ARITH_CASE(veksSub_32s_ISfs) VEK_ARITH_CASE(veksMul_32s_Sfs) VEK_ARITH_CASE(veksMul_32s_ISfs)
    VEK_ARITH_CASE(veksAddC_32s_Sfs) VEK_ARITH_CASE(veksAddC_32s_ISfs) VEK_ARITH_CASE(veksSubC_32s_Sfs)
    VEK_ARITH_CASE(veksSubC_32s_ISfs) VEK_ARITH_CASE(veksMulC_32s_Sfs) VEK_ARITH_CASE(veksMulC_32s_ISfs)
    VEK_ARITH_CASE(veksAdd_32f) VEK_ARITH_CASE(veksAdd_32f_I) VEK_ARITH_CASE(veksSub_32f)
    VEK_ARITH_CASE(veksSub_32f_I) VEK_ARITH_CASE(veksMul_32f) VEK_ARITH_CASE(veksMul_32f_I)
    VEK_ARITH_CASE(veksAddC_32f) VEK_ARITH_CASE(veksAddC_32f_I) VEK_ARITH_CASE(veksSubC_32f)
    VEK_ARITH_CASE(veksSubC_32f_I) VEK_ARITH_CASE(veksMulC_32f) VEK_ARITH_CASE(veksMulC_32f_I)
#undef VEK_ARITH_CASE
    // clang-format on
}

}  // namespace vekbench

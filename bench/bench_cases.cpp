// Benchmark cases of the arithmetic family: every member on 4096-element
// vectors of random data, the scaled integer members at scale factor 0 and
// at a positive one (where rounding does its work).  The 32-bit data are
// 16-bit samples widened, as codecs mostly hold them: full-range random
// products would saturate almost every element.
#include "bench_cases.h"

#include <random>

#include "core/dispatch.h"

namespace vekbench {
namespace {

constexpr int kElements = 4096;

template <class T>
std::vector<T> randomData(unsigned seed) {
    std::mt19937 rng(seed);
    std::vector<T> v(kElements);
    for (T& x : v) {
        if constexpr (std::is_floating_point_v<T>) x = std::uniform_real_distribution<T>(-1000, 1000)(rng);
        else if constexpr (sizeof(T) == 2) x = static_cast<T>(rng());
        else x = std::uniform_int_distribution<T>(-32768, 32767)(rng);  // 16-bit samples widened
    }
    return v;
}

// Inputs and an output per element type, kept for the program's lifetime.
template <class T>
struct Buffers {
    std::vector<T> a = randomData<T>(1), b = randomData<T>(2), d = std::vector<T>(kElements);
    T value = randomData<T>(3)[0];
};
template <class T>
Buffers<T>& buffers() {
    static Buffers<T> b;
    return b;
}

// One call per argument shape of the family.
#define VEK_CALLER(params, ...)                                                              \
    template <class T>                                                                       \
    std::function<void(int)> caller(VekStatus(VEK_CALL* const* table) params, int sf) {      \
        Buffers<T>& m = buffers<T>();                                                        \
        (void)sf;                                                                            \
        return [table, sf, &m](int level) { table[level](__VA_ARGS__); };                    \
    }
VEK_CALLER((const T*, const T*, T*, int, int), m.a.data(), m.b.data(), m.d.data(), kElements, sf)
VEK_CALLER((const T*, const T*, T*, int), m.a.data(), m.b.data(), m.d.data(), kElements)
VEK_CALLER((const T*, T*, int, int), m.a.data(), m.d.data(), kElements, sf)
VEK_CALLER((const T*, T*, int), m.a.data(), m.d.data(), kElements)
VEK_CALLER((const T*, T, T*, int, int), m.a.data(), m.value, m.d.data(), kElements, sf)
VEK_CALLER((const T*, T, T*, int), m.a.data(), m.value, m.d.data(), kElements)
VEK_CALLER((T, T*, int, int), m.value, m.d.data(), kElements, sf)
VEK_CALLER((T, T*, int), m.value, m.d.data(), kElements)
#undef VEK_CALLER

template <class T, class Fn>
void addScaled(std::vector<BenchCase>& cases, const char* name, const Fn* table) {
    const int positive = sizeof(T) == 2 ? 3 : 5;
    cases.push_back({std::string(name) + "/sf:0", kElements, caller<T>(table, 0)});
    cases.push_back({std::string(name) + "/sf:" + std::to_string(positive), kElements, caller<T>(table, positive)});
}

template <class Fn>
void addFloat(std::vector<BenchCase>& cases, const char* name, const Fn* table) {
    cases.push_back({name, kElements, caller<Vek32f>(table, 0)});
}

std::vector<BenchCase> makeCases() {
    std::vector<BenchCase> c;
#define VEK_BENCH_16S(name) addScaled<Vek16s>(c, #name, vek::vekTable_##name);
#define VEK_BENCH_32S(name) addScaled<Vek32s>(c, #name, vek::vekTable_##name);
#define VEK_BENCH_32F(name) addFloat(c, #name, vek::vekTable_##name);
    VEK_BENCH_16S(veksAdd_16s_Sfs) VEK_BENCH_16S(veksAdd_16s_ISfs) VEK_BENCH_16S(veksSub_16s_Sfs)
    VEK_BENCH_16S(veksSub_16s_ISfs) VEK_BENCH_16S(veksAddC_16s_Sfs) VEK_BENCH_16S(veksAddC_16s_ISfs)
    VEK_BENCH_16S(veksSubC_16s_Sfs) VEK_BENCH_16S(veksSubC_16s_ISfs) VEK_BENCH_16S(veksMulC_16s_Sfs)
    VEK_BENCH_16S(veksMulC_16s_ISfs)
    VEK_BENCH_32S(veksAdd_32s_Sfs) VEK_BENCH_32S(veksAdd_32s_ISfs) VEK_BENCH_32S(veksSub_32s_Sfs)
    VEK_BENCH_32S(veksSub_32s_ISfs) VEK_BENCH_32S(veksMul_32s_Sfs) VEK_BENCH_32S(veksMul_32s_ISfs)
    VEK_BENCH_32S(veksAddC_32s_Sfs) VEK_BENCH_32S(veksAddC_32s_ISfs) VEK_BENCH_32S(veksSubC_32s_Sfs)
    VEK_BENCH_32S(veksSubC_32s_ISfs) VEK_BENCH_32S(veksMulC_32s_Sfs) VEK_BENCH_32S(veksMulC_32s_ISfs)
    VEK_BENCH_32F(veksAdd_32f) VEK_BENCH_32F(veksAdd_32f_I) VEK_BENCH_32F(veksSub_32f) VEK_BENCH_32F(veksSub_32f_I)
    VEK_BENCH_32F(veksMul_32f) VEK_BENCH_32F(veksMul_32f_I) VEK_BENCH_32F(veksAddC_32f) VEK_BENCH_32F(veksAddC_32f_I)
    VEK_BENCH_32F(veksSubC_32f) VEK_BENCH_32F(veksSubC_32f_I) VEK_BENCH_32F(veksMulC_32f) VEK_BENCH_32F(veksMulC_32f_I)
#undef VEK_BENCH_16S
#undef VEK_BENCH_32S
#undef VEK_BENCH_32F
    return c;
}

}  // namespace

const std::vector<BenchCase>& benchCases() {
    static const std::vector<BenchCase> cases = makeCases();
    return cases;
}

}  // namespace vekbench

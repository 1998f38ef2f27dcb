// Benchmark cases of the deflate match finder: one stream of 256 KiB per
// call (Reset, then one encoding call), on text-like data with repeats and
// on run-heavy data, where long matches make the compare the main cost.
#include <memory>
#include <random>

#include "bench_cases.h"
#include "core/dispatch.h"

namespace vekbench {
namespace {

constexpr int kBytes = 1 << 18;

std::vector<Vek8u> benchData(bool runs) {
    std::mt19937 rng(7);
    static const char text[] = "the quick brown fox jumps over the lazy dog; pack my box with five dozen jugs\n";
    std::vector<Vek8u> v(kBytes);
    for (int i = 0; i < kBytes;) {
        if (runs) {
            const Vek8u b = Vek8u(rng() % 3);
            for (int n = 1 + int(rng() % 600); n && i < kBytes; --n) v[i++] = b;
        } else {
            const int start = int(rng() % 40), len = 5 + int(rng() % 30);
            for (int j = 0; j < len && i < kBytes; ++j)
                v[i++] = rng() % 50 ? Vek8u(text[(start + j) % (sizeof text - 1)]) : Vek8u(rng());
        }
    }
    return v;
}

void addCase(std::vector<BenchCase>& cases, int comprClass, bool runs) {
    auto data = std::make_shared<std::vector<Vek8u>>(benchData(runs));
    auto state = std::shared_ptr<VekDeflateState>(nullptr, [](VekDeflateState* s) { veksLZ77Free_8u(s); });
    VekDeflateState* raw = nullptr;
    veksEncodeLZ77InitAlloc_8u(comprClass, VekDeflateAdler32, &raw);
    state.reset(raw, [](VekDeflateState* s) { veksLZ77Free_8u(s); });
    auto pairs = std::make_shared<std::vector<Vek16u>>(2 * kBytes);
    cases.push_back(BenchCase{"veksEncodeLZ77_8u/class:" + std::to_string(comprClass) + (runs ? "/runs" : "/text"),
                              "veksEncodeLZ77_8u", kBytes, double(kBytes), [=](int level) {
                                  veksEncodeLZ77Reset_8u(state.get());
                                  const Vek8u* src = data->data();
                                  Vek16u* out = pairs->data();
                                  int len = kBytes, room = kBytes;
                                  vek::vekTable_veksEncodeLZ77_8u[level](&src, &len, &out, &room, VekDeflateNoFlush,
                                                                         state.get());
                              }});
}

}  // namespace

VEK_BENCH_FAMILY(deflate_match) {
    for (int comprClass : {VekDeflateFast, VekDeflateDefault, VekDeflateBest})
        for (bool runs : {false, true}) addCase(cases, comprClass, runs);
}

}  // namespace vekbench

// Inputs of the checksum and run-length benchmarks, shared by the cases
// (bench_checksum.cpp) and the rivals (rivals_checksum.cpp): 64 KiB that
// stay in cache, and 16 MiB that do not, made once.
#ifndef VEK_BENCH_CHECKSUM_DATA_H
#define VEK_BENCH_CHECKSUM_DATA_H

#include <stdint.h>

#include <random>
#include <vector>

namespace vekbench {

constexpr int kChecksumBytes = 64 * 1024;
constexpr int kLargeChecksumBytes = 16 << 20;

inline const std::vector<uint8_t>& randomBytes(int size = kChecksumBytes) {
    static const std::vector<uint8_t> data = [] {
        std::vector<uint8_t> v(kLargeChecksumBytes);
        std::mt19937 rng(7);
        for (auto& b : v) b = static_cast<uint8_t>(rng());
        return v;
    }();
    static const std::vector<uint8_t> small(data.begin(), data.begin() + kChecksumBytes);
    return size == kChecksumBytes ? small : data;
}

// Words of a small vocabulary between spaces and line ends: mostly
// literals, with the odd doubled letter.
inline const std::vector<uint8_t>& textBytes() {
    static const std::vector<uint8_t> data = [] {
        static const char* const words[] = {"the",   "of",    "and",    "to",     "in",   "a",    "is",
                                            "that",  "for",   "it",     "was",    "with", "as",   "his",
                                            "on",    "be",    "at",     "by",     "all",  "been", "little",
                                            "small", "three", "letter", "coffee", "will", "off"};
        std::vector<uint8_t> v;
        std::mt19937 rng(11);
        while (v.size() < kChecksumBytes) {
            for (const char* w = words[rng() % (sizeof words / sizeof *words)]; *w; ++w) v.push_back(uint8_t(*w));
            v.push_back(rng() % 12 ? ' ' : '\n');
        }
        v.resize(kChecksumBytes);
        return v;
    }();
    return data;
}

// Runs of 1 to 40 equal bytes, as in masks and flat image rows.
inline const std::vector<uint8_t>& runBytes() {
    static const std::vector<uint8_t> data = [] {
        std::vector<uint8_t> v;
        std::mt19937 rng(13);
        while (v.size() < kChecksumBytes) v.insert(v.end(), 1 + rng() % 40, static_cast<uint8_t>(rng() % 4 * 60));
        v.resize(kChecksumBytes);
        return v;
    }();
    return data;
}

}  // namespace vekbench

#endif

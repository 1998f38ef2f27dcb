// Reading and writing JPEG files at the coefficient level (see
// jpeg_coefficients.h): the marker syntax of T.81 Annex B and the scan walk
// of its MCUs, blocks and restart intervals, with every block coded by the
// library's Huffman primitives.
#include "examples/jpeg_codec/jpeg_coefficients.h"

#include <string.h>

#include <algorithm>

#include "examples/jpeg_codec/jpeg_tables.h"

namespace vekjpeg {
namespace {

// A caller-owned block of the library (table or state), 8-byte aligned.
template <class T>
class Owned {
public:
    explicit Owned(VekStatus(VEK_CALL* getSize)(int*)) {
        int size = 0;
        getSize(&size);
        memory_.assign((size_t(size) + 7) / 8, 0);
    }
    T* get() { return reinterpret_cast<T*>(memory_.data()); }

private:
    std::vector<Vek64u> memory_;
};
using EncodeTable = Owned<VekEncodeHuffmanSpec>;
using DecodeTable = Owned<VekDecodeHuffmanSpec>;

int be16(const uint8_t* p) { return p[0] << 8 | p[1]; }

std::string hex(int v) {
    static const char digits[] = "0123456789ABCDEF";
    return std::string("0x") + digits[(v >> 4) & 15] + digits[v & 15];
}

// The kind of a scan, from its parameters.
enum class ScanKind { Baseline, DcFirst, DcRefine, AcFirst, AcRefine };
struct ScanSpec {
    std::vector<int> components;  // indices into the frame's components
    int ss = 0, se = 63, ah = 0, al = 0;
    ScanKind kind(bool progressive) const {
        if (!progressive) return ScanKind::Baseline;
        if (ss == 0) return ah ? ScanKind::DcRefine : ScanKind::DcFirst;
        return ah ? ScanKind::AcRefine : ScanKind::AcFirst;
    }
};

// Calls block(component, coefficients) for every block of the scan in
// coding order, restart(n) before the first MCU of restart interval n + 1,
// and rows(n) whenever the scan's blocks of the first n MCU rows are
// complete.  A scan of one component codes its blocks alone, row by row; a
// scan of several codes whole MCUs.  Stops when a call returns false.
template <class Image, class BlockFn, class RestartFn, class RowsFn>
bool walkScan(Image& img, const std::vector<int>& comps, int interval, BlockFn block, RestartFn restart, RowsFn rows) {
    // Units (blocks or MCUs) left in the restart interval, and the
    // intervals begun; counted down, not divided out, on the hot path.
    int left = interval, restarts = 0;
    auto nextUnit = [&] {
        if (!interval) return true;
        if (left == 0) {
            if (!restart(restarts++)) return false;
            left = interval;
        }
        --left;
        return true;
    };
    if (comps.size() == 1) {
        const int ci = comps[0];
        auto& c = img.components[size_t(ci)];
        for (int by = 0; by < c.usedHigh; ++by) {
            for (int bx = 0; bx < c.usedWide; ++bx)
                if (!nextUnit() || !block(ci, c.block(bx, by))) return false;
            if ((by + 1) % c.v == 0) rows((by + 1) / c.v);
        }
        rows(img.mcusHigh);
        return true;
    }
    // The blocks of an MCU in coding order (at most 4 x 4 x 4): component,
    // and where the block lies in the MCU row being coded, advanced MCU by
    // MCU by the width of the component's MCU.
    struct Unit {
        int ci;
        size_t offset, step;
        decltype(img.components[0].block(0, 0)) next;
    };
    Unit units[64];
    int count = 0;
    for (int ci : comps) {
        const auto& c = img.components[size_t(ci)];
        for (int y = 0; y < c.v; ++y)
            for (int x = 0; x < c.h; ++x)
                units[count++] = {ci, (size_t(y) * size_t(c.blocksWide) + size_t(x)) * 64, size_t(c.h) * 64, nullptr};
    }
    for (int my = 0; my < img.mcusHigh; ++my) {
        for (int u = 0; u < count; ++u) {
            auto& c = img.components[size_t(units[u].ci)];
            units[u].next = c.block(0, my * c.v) + units[u].offset;
        }
        for (int mx = 0; mx < img.mcusWide; ++mx) {
            if (!nextUnit()) return false;
            for (int u = 0; u < count; ++u) {
                if (!block(units[u].ci, units[u].next)) return false;
                units[u].next += units[u].step;
            }
        }
        rows(my + 1);
    }
    return true;
}
void noRows(int) {}

std::string statusMessage(VekStatus s) {
    switch (s) {
    case StatusDataUnderRun: return "truncated or damaged entropy-coded data";
    case StatusIllegalCode: return "damaged entropy-coded data: a bit pattern that is no Huffman code of its table";
    case StatusJpegCoefficientRange: return "damaged entropy-coded data: a coefficient run or size out of range";
    case StatusJpegHuffmanTable: return "a Huffman table lacks a code the data needs";
    default: return std::string("the Huffman coder failed: ") + vekGetStatusString(s);
    }
}

// ---- reading -------------------------------------------------------------------

class FileReader {
public:
    FileReader(const uint8_t* d, size_t n, CoefficientImage& img, size_t maxBytes, const RowsDone& rowsDone)
        : d_(d), n_(int(n)), img_(img), maxBytes_(maxBytes), rowsDone_(rowsDone) {}

    std::string read() {
        if (n_ < 4 || d_[0] != 0xFF || d_[1] != 0xD8) return "not a JPEG file (no start-of-image marker)";
        int pos = 2;
        for (;;) {
            if (pos >= n_) return "truncated file: no end-of-image marker";
            if (d_[pos] != 0xFF) return "bad marker: no 0xFF at byte " + std::to_string(pos);
            while (pos < n_ && d_[pos] == 0xFF) ++pos;
            if (pos >= n_) return "truncated file: no end-of-image marker";
            const int marker = d_[pos++];
            if (marker == 0xD9) break;
            if (marker == 0xD8 || marker == 0x00 || marker == 0x01 || (marker >= 0xD0 && marker <= 0xD7))
                return "bad marker " + hex(marker) + " outside a scan";
            if (pos + 2 > n_) return "truncated file in the segment of marker " + hex(marker);
            const int length = be16(d_ + pos);
            if (length < 2 || pos + length > n_) return "truncated or bad segment of marker " + hex(marker);
            const uint8_t* seg = d_ + pos + 2;
            const int segLength = length - 2;
            pos += length;
            std::string error;
            switch (marker) {
            case 0xC0:
            case 0xC1:
            case 0xC2: error = frame(seg, segLength, marker == 0xC2); break;
            case 0xC3:
            case 0xC7:
            case 0xCB:
            case 0xCF: return "lossless JPEG is not supported";
            case 0xC5:
            case 0xC6: return "hierarchical JPEG is not supported";
            case 0xC9:
            case 0xCA:
            case 0xCC:
            case 0xCD:
            case 0xCE: return "arithmetic-coded JPEG is not supported";
            case 0xC4: error = huffmanTables(seg, segLength); break;
            case 0xDB: error = quantTables(seg, segLength); break;
            case 0xDC: return "a DNL marker (height defined after the first scan) is not supported";
            case 0xDD:
                if (segLength < 2) return "bad restart interval segment";
                img_.restartInterval = be16(seg);
                break;
            case 0xDA:
                error = scan(seg, segLength, pos);
                if (error.empty()) pos = nextMarker(pos);
                break;
            default: break;  // APPn, COM and the like: skipped
            }
            if (!error.empty()) return error;
        }
        if (!haveFrame_) return "no frame header before the end of the image";
        if (!scans_) return "no scan before the end of the image";
        for (size_t i = 0; i < img_.components.size(); ++i) zeroUnwritten(int(i));
        return "";
    }

private:
    std::string frame(const uint8_t* s, int len, bool progressive) {
        if (haveFrame_) return "more than one frame header";
        if (len < 6) return "bad frame header";
        if (s[0] != 8)
            return s[0] == 12 ? std::string("12-bit JPEG is not supported")
                              : "unsupported sample precision " + std::to_string(s[0]);
        img_.height = be16(s + 1);
        img_.width = be16(s + 3);
        const int count = s[5];
        if (img_.height == 0) return "a height of 0 (defined by a DNL marker) is not supported";
        if (img_.width == 0) return "bad frame header: width 0";
        if (count != 1 && count != 3) return std::to_string(count) + " components: only 1 or 3 are supported";
        if (len < 6 + 3 * count) return "bad frame header";
        img_.progressive = progressive;
        img_.components.resize(size_t(count));
        for (int i = 0; i < count; ++i) {
            Component& c = img_.components[size_t(i)];
            std::vector<Vek16s> memory = std::move(c.coefficients);
            c = Component();
            c.coefficients = std::move(memory);
            c.id = s[6 + 3 * i];
            c.h = s[7 + 3 * i] >> 4;
            c.v = s[7 + 3 * i] & 15;
            c.quantTable = s[8 + 3 * i];
            if (c.h < 1 || c.h > 4 || c.v < 1 || c.v > 4) return "bad sampling factors in the frame header";
            if (c.quantTable > 3) return "bad quantisation table number in the frame header";
            for (int j = 0; j < i; ++j)
                if (img_.components[size_t(j)].id == c.id) return "two components with one identifier";
        }
        haveFrame_ = true;
        // Sequential scans write every block they walk: the coefficients
        // are zeroed only where no scan will (see unwritten_).
        for (int i = 0; i < count; ++i) unwritten_[i] = !progressive;
        return layOut(img_, maxBytes_, progressive);
    }

    std::string quantTables(const uint8_t* s, int len) {
        for (int p = 0; p < len;) {
            const int precision = s[p] >> 4, t = s[p] & 15;
            const int bytes = precision ? 128 : 64;
            if (precision > 1 || t > 3 || p + 1 + bytes > len) return "bad quantisation table segment";
            for (int k = 0; k < 64; ++k)
                img_.quant[t][kZigzagToNatural[k]] =
                    static_cast<Vek16u>(precision ? be16(s + p + 1 + 2 * k) : s[p + 1 + k]);
            p += 1 + bytes;
        }
        return "";
    }

    std::string huffmanTables(const uint8_t* s, int len) {
        for (int p = 0; p < len;) {
            if (p + 17 > len) return "bad Huffman table segment";
            const int cls = s[p] >> 4, t = s[p] & 15;
            if (cls > 1 || t > 3) return "bad Huffman table segment";
            int count = 0;
            for (int i = 0; i < 16; ++i) count += s[p + 1 + i];
            if (count > 256 || p + 17 + count > len) return "bad Huffman table segment";
            DecodeTable& table = cls ? ac_[t] : dc_[t];
            if (vekiDecodeHuffmanSpecInit_JPEG_8u(s + p + 1, s + p + 17, table.get()) != StatusOk)
                return "invalid Huffman table";
            (cls ? haveAc_ : haveDc_)[t] = true;
            p += 17 + count;
        }
        return "";
    }

    std::string scan(const uint8_t* s, int len, int& pos) {
        if (!haveFrame_) return "a scan before the frame header";
        if (len < 1) return "bad scan header";
        const int count = s[0];
        if (count < 1 || count > 4 || len < 1 + 2 * count + 3) return "bad scan header";
        ScanSpec scan;
        int dcTable[4], acTable[4], blocksPerMcu = 0;
        for (int i = 0; i < count; ++i) {
            const int id = s[1 + 2 * i];
            int index = -1;
            for (size_t c = 0; c < img_.components.size(); ++c)
                if (img_.components[c].id == id) index = int(c);
            if (index < 0) return "a scan names a component the frame lacks";
            for (int j : scan.components)
                if (j == index) return "a scan names a component twice";
            scan.components.push_back(index);
            dcTable[i] = s[2 + 2 * i] >> 4;
            acTable[i] = s[2 + 2 * i] & 15;
            if (dcTable[i] > 3 || acTable[i] > 3) return "bad Huffman table number in a scan header";
            blocksPerMcu += img_.components[size_t(index)].h * img_.components[size_t(index)].v;
        }
        const uint8_t* tail = s + 1 + 2 * count;
        scan.ss = tail[0];
        scan.se = tail[1];
        scan.ah = tail[2] >> 4;
        scan.al = tail[2] & 15;
        if (count > 1 && blocksPerMcu > 10) return "bad scan header: more than 10 blocks per MCU";
        if (!img_.progressive) {
            if (scan.ss != 0 || scan.se != 63 || scan.ah != 0 || scan.al != 0) return "bad sequential scan parameters";
        } else if ((scan.ss == 0 && scan.se != 0) || (scan.ss > 0 && (count != 1 || scan.se < scan.ss)) ||
                   scan.se > 63 || scan.al > 13 || scan.ah > 13) {
            return "bad progressive scan parameters";
        }
        const ScanKind kind = scan.kind(img_.progressive);
        for (int i = 0; i < count; ++i) {
            if ((kind == ScanKind::Baseline || kind == ScanKind::DcFirst) && !haveDc_[dcTable[i]])
                return "a scan uses a DC Huffman table that is not defined";
            if ((kind == ScanKind::Baseline || kind == ScanKind::AcFirst || kind == ScanKind::AcRefine) &&
                !haveAc_[acTable[i]])
                return "a scan uses an AC Huffman table that is not defined";
        }
        ++scans_;
        // A scan of one component walks only the blocks inside the image:
        // the MCU padding around them must read as zeros.
        for (int ci : scan.components) {
            const Component& c = img_.components[size_t(ci)];
            if (count == 1 && (c.usedWide != c.blocksWide || c.usedHigh != c.blocksHigh)) zeroUnwritten(ci);
            unwritten_[ci] = false;
        }
        return decodeScan(scan, kind, dcTable, acTable, pos);
    }

    void zeroUnwritten(int ci) {
        if (!unwritten_[ci]) return;
        std::vector<Vek16s>& k = img_.components[size_t(ci)].coefficients;
        std::fill(k.begin(), k.end(), Vek16s(0));
        unwritten_[ci] = false;
    }

    std::string decodeScan(const ScanSpec& scan, ScanKind kind, const int* dcTable, const int* acTable, int& pos) {
        Owned<VekDecodeHuffmanState> state(vekiDecodeHuffmanStateGetSize_JPEG_8u);
        vekiDecodeHuffmanStateInit_JPEG_8u(state.get());
        Vek16s lastDc[4] = {};
        int marker = 0;
        VekStatus failure = StatusOk;
        // Each frame component's predictor and tables in this scan, found once.
        Vek16s* lastDcOf[4] = {};
        const VekDecodeHuffmanSpec *dcOf[4] = {}, *acOf[4] = {};
        for (size_t i = 0; i < scan.components.size(); ++i) {
            const int c = scan.components[i];
            lastDcOf[c] = &lastDc[i];
            dcOf[c] = dc_[dcTable[i]].get();
            acOf[c] = ac_[acTable[i]].get();
        }
        VekDecodeHuffmanState* st = state.get();
        auto block = [&](int ci, Vek16s* b) {
            VekStatus s = StatusOk;
            switch (kind) {
            case ScanKind::Baseline:
                s = vekiDecodeHuffman8x8_JPEG_1u16s_C1(d_, n_, &pos, b, lastDcOf[ci], &marker, dcOf[ci], acOf[ci], st);
                break;
            case ScanKind::DcFirst:
                s = vekiDecodeHuffman8x8_DCFirst_JPEG_1u16s_C1(d_, n_, &pos, b, lastDcOf[ci], &marker, scan.al,
                                                               dcOf[ci], st);
                break;
            case ScanKind::DcRefine:
                s = vekiDecodeHuffman8x8_DCRefine_JPEG_1u16s_C1(d_, n_, &pos, b, &marker, scan.al, st);
                break;
            case ScanKind::AcFirst:
                s = vekiDecodeHuffman8x8_ACFirst_JPEG_1u16s_C1(d_, n_, &pos, b, &marker, scan.ss, scan.se, scan.al,
                                                               acOf[ci], st);
                break;
            case ScanKind::AcRefine:
                s = vekiDecodeHuffman8x8_ACRefine_JPEG_1u16s_C1(d_, n_, &pos, b, &marker, scan.ss, scan.se, scan.al,
                                                                acOf[ci], st);
                break;
            }
            failure = s;
            return s == StatusOk;
        };
        std::string restartError;
        auto restart = [&](int n) {
            pos = nextMarker(pos);
            if (pos + 1 >= n_) {
                restartError = "truncated file: a restart marker is missing";
                return false;
            }
            if (d_[pos + 1] != 0xD0 + n % 8) {
                restartError = "a restart marker is missing or out of order";
                return false;
            }
            pos += 2;
            vekiDecodeHuffmanStateInit_JPEG_8u(state.get());
            for (Vek16s& dc : lastDc) dc = 0;
            return true;
        };
        // A sequential scan of every component makes the blocks final, MCU
        // row after MCU row.
        auto rows = [&](int n) {
            if (rowsDone_ && !img_.progressive && scan.components.size() == img_.components.size()) rowsDone_(n);
        };
        if (walkScan(img_, scan.components, img_.restartInterval, block, restart, rows)) return "";
        return restartError.empty() ? statusMessage(failure) : restartError;
    }

    // The next marker at or after pos (0xFF followed by neither 0x00 nor
    // 0xFF); the end of the data when there is none.
    int nextMarker(int pos) const {
        while (pos + 1 < n_ && !(d_[pos] == 0xFF && d_[pos + 1] != 0x00 && d_[pos + 1] != 0xFF)) ++pos;
        return pos + 1 < n_ ? pos : n_;
    }

    const uint8_t* d_;
    int n_;
    CoefficientImage& img_;
    size_t maxBytes_;
    const RowsDone& rowsDone_;
    bool haveFrame_ = false;
    bool unwritten_[4] = {};  // coefficients not zeroed, no scan written yet
    int scans_ = 0;
    DecodeTable dc_[4] = {
        DecodeTable(vekiDecodeHuffmanSpecGetSize_JPEG_8u), DecodeTable(vekiDecodeHuffmanSpecGetSize_JPEG_8u),
        DecodeTable(vekiDecodeHuffmanSpecGetSize_JPEG_8u), DecodeTable(vekiDecodeHuffmanSpecGetSize_JPEG_8u)};
    DecodeTable ac_[4] = {
        DecodeTable(vekiDecodeHuffmanSpecGetSize_JPEG_8u), DecodeTable(vekiDecodeHuffmanSpecGetSize_JPEG_8u),
        DecodeTable(vekiDecodeHuffmanSpecGetSize_JPEG_8u), DecodeTable(vekiDecodeHuffmanSpecGetSize_JPEG_8u)};
    bool haveDc_[4] = {}, haveAc_[4] = {};
};

// ---- writing -------------------------------------------------------------------

void put16(std::vector<uint8_t>& out, int v) {
    out.push_back(uint8_t(v >> 8));
    out.push_back(uint8_t(v));
}
void marker(std::vector<uint8_t>& out, int m) {
    out.push_back(0xFF);
    out.push_back(uint8_t(m));
}

// The usual successive approximation script (T.81 G.1.1 gives the rules;
// this is the split that common encoders use): DC at half precision, the
// low luminance band first, then the rest, then the last bits.
std::vector<ScanSpec> progressiveScript(int components) {
    if (components == 1)
        return {{{0}, 0, 0, 0, 1},  {{0}, 1, 5, 0, 2}, {{0}, 6, 63, 0, 2},
                {{0}, 1, 63, 2, 1}, {{0}, 0, 0, 1, 0}, {{0}, 1, 63, 1, 0}};
    return {{{0, 1, 2}, 0, 0, 0, 1}, {{0}, 1, 5, 0, 2},  {{2}, 1, 63, 0, 1},      {{1}, 1, 63, 0, 1},
            {{0}, 6, 63, 0, 2},      {{0}, 1, 63, 2, 1}, {{0, 1, 2}, 0, 0, 1, 0}, {{2}, 1, 63, 1, 0},
            {{1}, 1, 63, 1, 0},      {{0}, 1, 63, 1, 0}};
}

class FileWriter {
public:
    FileWriter(const CoefficientImage& img, const WriteOptions& opt, std::vector<uint8_t>& out,
               const RowNeeded& beforeRow)
        : img_(img), opt_(opt), out_(out), beforeRow_(beforeRow) {}

    std::string write() {
        out_.clear();
        marker(out_, 0xD8);
        static const uint8_t jfif[] = {0xFF, 0xE0, 0, 16, 'J', 'F', 'I', 'F', 0, 1, 1, 0, 0, 1, 0, 1, 0, 0};
        out_.insert(out_.end(), jfif, jfif + sizeof jfif);
        bool used[4] = {};
        for (const Component& c : img_.components) used[c.quantTable & 3] = true;
        for (int t = 0; t < 4; ++t)
            if (used[t]) quantTable(t);
        marker(out_, opt_.progressive ? 0xC2 : 0xC0);
        put16(out_, 8 + 3 * int(img_.components.size()));
        out_.push_back(8);
        put16(out_, img_.height);
        put16(out_, img_.width);
        out_.push_back(uint8_t(img_.components.size()));
        for (const Component& c : img_.components) {
            out_.push_back(uint8_t(c.id));
            out_.push_back(uint8_t(c.h << 4 | c.v));
            out_.push_back(uint8_t(c.quantTable));
        }
        if (opt_.restartInterval) {
            marker(out_, 0xDD);
            put16(out_, 4);
            put16(out_, opt_.restartInterval);
        }
        std::vector<ScanSpec> script;
        if (opt_.progressive) {
            script = progressiveScript(int(img_.components.size()));
        } else {
            ScanSpec all;
            for (size_t c = 0; c < img_.components.size(); ++c) all.components.push_back(int(c));
            script.push_back(all);
        }
        for (const ScanSpec& scan : script)
            if (std::string e = writeScan(scan); !e.empty()) return e;
        marker(out_, 0xD9);
        return "";
    }

private:
    void quantTable(int t) {
        bool wide = false;
        for (Vek16u q : img_.quant[t]) wide = wide || q > 255;
        marker(out_, 0xDB);
        put16(out_, 2 + 1 + (wide ? 128 : 64));
        out_.push_back(uint8_t((wide ? 0x10 : 0) | t));
        for (int k = 0; k < 64; ++k) {
            const Vek16u q = img_.quant[t][kZigzagToNatural[k]];
            if (wide) out_.push_back(uint8_t(q >> 8));
            out_.push_back(uint8_t(q));
        }
    }

    static int tableClass(int component) { return component == 0 ? 0 : 1; }

    // Counts the scan's symbols per table class (restarts included, as
    // they cut end-of-band runs and reset predictors).
    std::string countScan(const ScanSpec& scan, ScanKind kind, int dcCounts[2][256], int acCounts[2][256]) {
        Owned<VekEncodeHuffmanState> state(vekiEncodeHuffmanStateGetSize_JPEG_8u);
        vekiEncodeHuffmanStateInit_JPEG_8u(state.get());
        Vek16s lastDc[4] = {};
        VekStatus failure = StatusOk;
        const int cls = tableClass(scan.components[0]);
        auto flush = [&] {
            if (kind == ScanKind::AcFirst)
                vekiGetHuffmanStatistics8x8_ACFirst_JPEG_16s_C1(nullptr, acCounts[cls], scan.ss, scan.se, scan.al,
                                                                state.get(), 1);
            if (kind == ScanKind::AcRefine)
                vekiGetHuffmanStatistics8x8_ACRefine_JPEG_16s_C1(nullptr, acCounts[cls], scan.ss, scan.se, scan.al,
                                                                 state.get(), 1);
        };
        auto block = [&](int ci, const Vek16s* b) {
            const int k = tableClass(ci);
            switch (kind) {
            case ScanKind::Baseline:
                failure = vekiGetHuffmanStatistics8x8_JPEG_16s_C1(b, dcCounts[k], acCounts[k], &lastDc[ci]);
                break;
            case ScanKind::DcFirst:
                failure = vekiGetHuffmanStatistics8x8_DCFirst_JPEG_16s_C1(b, dcCounts[k], &lastDc[ci], scan.al);
                break;
            case ScanKind::DcRefine: break;
            case ScanKind::AcFirst:
                failure = vekiGetHuffmanStatistics8x8_ACFirst_JPEG_16s_C1(b, acCounts[k], scan.ss, scan.se, scan.al,
                                                                          state.get(), 0);
                break;
            case ScanKind::AcRefine:
                failure = vekiGetHuffmanStatistics8x8_ACRefine_JPEG_16s_C1(b, acCounts[k], scan.ss, scan.se, scan.al,
                                                                           state.get(), 0);
                break;
            }
            return failure == StatusOk;
        };
        auto restart = [&](int) {
            flush();
            for (Vek16s& dc : lastDc) dc = 0;
            return true;
        };
        if (!walkScan(img_, scan.components, opt_.restartInterval, block, restart, noRows))
            return statusMessage(failure);
        flush();
        return "";
    }

    void huffmanTable(int cls, int index, const HuffmanTable& t, EncodeTable& coder) {
        marker(out_, 0xC4);
        put16(out_, 2 + 17 + t.count());
        out_.push_back(uint8_t(cls << 4 | index));
        out_.insert(out_.end(), t.bits, t.bits + 16);
        out_.insert(out_.end(), t.values, t.values + t.count());
        vekiEncodeHuffmanSpecInit_JPEG_8u(t.bits, t.values, coder.get());
    }

    std::string writeScan(const ScanSpec& scan) {
        const ScanKind kind = scan.kind(opt_.progressive);
        const bool needDc = kind == ScanKind::Baseline || kind == ScanKind::DcFirst;
        const bool needAc = kind == ScanKind::Baseline || kind == ScanKind::AcFirst || kind == ScanKind::AcRefine;
        bool classUsed[2] = {};
        for (int c : scan.components) classUsed[tableClass(c)] = true;
        EncodeTable dc[2] = {EncodeTable(vekiEncodeHuffmanSpecGetSize_JPEG_8u),
                             EncodeTable(vekiEncodeHuffmanSpecGetSize_JPEG_8u)};
        EncodeTable ac[2] = {EncodeTable(vekiEncodeHuffmanSpecGetSize_JPEG_8u),
                             EncodeTable(vekiEncodeHuffmanSpecGetSize_JPEG_8u)};
        if (opt_.optimize || opt_.progressive) {
            int dcCounts[2][256] = {}, acCounts[2][256] = {};
            if (std::string e = countScan(scan, kind, dcCounts, acCounts); !e.empty()) return e;
            for (int k = 0; k < 2; ++k) {
                if (!classUsed[k]) continue;
                HuffmanTable t{};
                if (needDc) {
                    vekiEncodeHuffmanRawTableInit_JPEG_8u(dcCounts[k], t.bits, t.values);
                    huffmanTable(0, k, t, dc[k]);
                }
                if (needAc) {
                    vekiEncodeHuffmanRawTableInit_JPEG_8u(acCounts[k], t.bits, t.values);
                    huffmanTable(1, k, t, ac[k]);
                }
            }
        } else {
            for (int k = 0; k < 2; ++k) {
                if (!classUsed[k]) continue;
                huffmanTable(0, k, k ? kChrominanceDc : kLuminanceDc, dc[k]);
                huffmanTable(1, k, k ? kChrominanceAc : kLuminanceAc, ac[k]);
            }
        }
        marker(out_, 0xDA);
        put16(out_, 6 + 2 * int(scan.components.size()));
        out_.push_back(uint8_t(scan.components.size()));
        for (int c : scan.components) {
            out_.push_back(uint8_t(img_.components[size_t(c)].id));
            out_.push_back(uint8_t(tableClass(c) * 0x11));
        }
        out_.push_back(uint8_t(scan.ss));
        out_.push_back(uint8_t(scan.se));
        out_.push_back(uint8_t(scan.ah << 4 | scan.al));
        return encodeScan(scan, kind, dc, ac);
    }

    std::string encodeScan(const ScanSpec& scan, ScanKind kind, EncodeTable* dc, EncodeTable* ac) {
        Owned<VekEncodeHuffmanState> state(vekiEncodeHuffmanStateGetSize_JPEG_8u);
        vekiEncodeHuffmanStateInit_JPEG_8u(state.get());
        Vek16s lastDc[4] = {};
        VekStatus failure = StatusOk;
        int pos = int(out_.size());
        const int kRoom = 1 << 16;
        // The output as the coder sees it (len 0: renew it from out_), and
        // each component's tables and predictor, found once.
        Vek8u* d = nullptr;
        int len = 0;
        const VekEncodeHuffmanSpec *dcOf[4] = {}, *acOf[4] = {};
        for (size_t c = 0; c < img_.components.size() && c < 4; ++c) {
            dcOf[c] = dc[tableClass(int(c))].get();
            acOf[c] = ac[tableClass(int(c))].get();
        }
        VekEncodeHuffmanState* st = state.get();
        auto call = [&](int ci, const Vek16s* b, int flush) {
            if (len - pos < 1024) {
                out_.resize(size_t(pos) + kRoom);
                d = out_.data();
                len = int(out_.size());
            }
            switch (kind) {
            case ScanKind::Baseline:
                return vekiEncodeHuffman8x8_JPEG_16s1u_C1(b, d, len, &pos, &lastDc[ci], dcOf[ci], acOf[ci], st, flush);
            case ScanKind::DcFirst:
                return vekiEncodeHuffman8x8_DCFirst_JPEG_16s1u_C1(b, d, len, &pos, &lastDc[ci], scan.al, dcOf[ci], st,
                                                                  flush);
            case ScanKind::DcRefine:
                return vekiEncodeHuffman8x8_DCRefine_JPEG_16s1u_C1(b, d, len, &pos, scan.al, st, flush);
            case ScanKind::AcFirst:
                return vekiEncodeHuffman8x8_ACFirst_JPEG_16s1u_C1(b, d, len, &pos, scan.ss, scan.se, scan.al, acOf[ci],
                                                                  st, flush);
            case ScanKind::AcRefine:
                return vekiEncodeHuffman8x8_ACRefine_JPEG_16s1u_C1(b, d, len, &pos, scan.ss, scan.se, scan.al, acOf[ci],
                                                                   st, flush);
            }
            return VekStatus(StatusOk);
        };
        const int first = scan.components[0];
        auto block = [&](int ci, const Vek16s* b) {
            failure = call(ci, b, 0);
            return failure == StatusOk;
        };
        auto restart = [&](int n) {
            if ((failure = call(first, nullptr, 1)) != StatusOk) return false;
            out_.resize(size_t(pos));
            marker(out_, 0xD0 + n % 8);
            pos = int(out_.size());
            len = 0;
            for (Vek16s& d : lastDc) d = 0;
            return true;
        };
        // The caller may make each MCU row's blocks just before they are coded.
        const bool justInTime = beforeRow_ && !opt_.progressive && scan.components.size() == img_.components.size();
        auto rows = [&](int n) {
            if (justInTime && n < img_.mcusHigh) beforeRow_(n);
        };
        if (justInTime) beforeRow_(0);
        if (!walkScan(img_, scan.components, opt_.restartInterval, block, restart, rows) ||
            (failure = call(first, nullptr, 1)) != StatusOk)
            return statusMessage(failure);
        out_.resize(size_t(pos));
        return "";
    }

    const CoefficientImage& img_;
    const WriteOptions& opt_;
    std::vector<uint8_t>& out_;
    const RowNeeded& beforeRow_;
};

}  // namespace

void resetKeepingMemory(CoefficientImage& img) {
    std::vector<std::vector<Vek16s>> memory;
    for (Component& c : img.components) memory.push_back(std::move(c.coefficients));
    img = CoefficientImage();
    img.components.resize(memory.size());
    for (size_t i = 0; i < memory.size(); ++i) img.components[i].coefficients = std::move(memory[i]);
}

std::string layOut(CoefficientImage& img, size_t maxBytes, bool zero) {
    img.maxH = img.maxV = 1;
    for (const Component& c : img.components) {
        img.maxH = c.h > img.maxH ? c.h : img.maxH;
        img.maxV = c.v > img.maxV ? c.v : img.maxV;
    }
    img.mcusWide = (img.width + 8 * img.maxH - 1) / (8 * img.maxH);
    img.mcusHigh = (img.height + 8 * img.maxV - 1) / (8 * img.maxV);
    size_t total = 0;
    for (Component& c : img.components) {
        const long w = (long(img.width) * c.h + img.maxH - 1) / img.maxH;
        const long h = (long(img.height) * c.v + img.maxV - 1) / img.maxV;
        c.usedWide = int((w + 7) / 8);
        c.usedHigh = int((h + 7) / 8);
        c.blocksWide = img.mcusWide * c.h;
        c.blocksHigh = img.mcusHigh * c.v;
        total += size_t(c.blocksWide) * size_t(c.blocksHigh) * 64 * sizeof(Vek16s);
    }
    if (total > maxBytes)
        return "image too large: " + std::to_string(img.width) + "x" + std::to_string(img.height) + " would need " +
               std::to_string(total >> 20) + " MiB of coefficients";
    for (Component& c : img.components) {
        const size_t n = size_t(c.blocksWide) * size_t(c.blocksHigh) * 64;
        if (zero)
            c.coefficients.assign(n, 0);
        else
            c.coefficients.resize(n);
    }
    return "";
}

std::string readJpeg(const uint8_t* data, size_t size, CoefficientImage& img, size_t maxBytes,
                     const RowsDone& rowsDone) {
    resetKeepingMemory(img);
    if (size > 0x7FFFFFF0u) return "file too large";
    return FileReader(data, size, img, maxBytes, rowsDone).read();
}

std::string writeJpeg(const CoefficientImage& img, const WriteOptions& options, std::vector<uint8_t>& out,
                      const RowNeeded& beforeRow) {
    if (img.components.empty() || img.components.size() > 4) return "no components to write";
    return FileWriter(img, options, out, beforeRow).write();
}

}  // namespace vekjpeg

// Bit packing of the JPEG Huffman coders, written once for every level.
//
// BitWriter puts codes most significant bit first into a 64-bit buffer and
// writes it as bytes 8 at a time, with a 0x00 after every 0xFF byte (byte
// stuffing); between calls it holds fewer than 32 bits.  It writes into a staging buffer: the caller copies the
// bytes out only when the whole call has succeeded, so a failing call
// writes nothing.
//
// BitReader keeps up to 64 bits of the stream left-aligned, refilled eight
// bytes at a time where no 0xFF is among them, byte by byte otherwise: a
// stuffed 0xFF 0x00 gives 0xFF, fill bytes 0xFF before a marker are
// skipped, and a marker or the end of the input stops the reader without
// consuming it.  Past that point the reader gives zero bits and `count`
// goes negative: a call that ends with count < 0 used bits the input did
// not have.
//
// Included inside a level's namespace; internal linkage.
#ifndef VEK_JPEG_HUFFMAN_BITS_H
#define VEK_JPEG_HUFFMAN_BITS_H

namespace {

using vek::jpeg::DecodeSpec;
using vek::jpeg::EncodeSpec;

// Number of bits of a magnitude (0 for 0): the JPEG size category.
inline int bitLength(unsigned magnitude) { return magnitude ? 32 - __builtin_clz(magnitude) : 0; }

// Bytes of a 32-bit word that equal 0xFF.
inline bool hasFFByte32(Vek32u w) {
    const Vek32u t = ~w;
    return ((t - 0x01010101u) & ~t & 0x80808080u) != 0;
}
inline bool hasFFByte64(Vek64u w) {
    const Vek64u t = ~w;
    return ((t - 0x0101010101010101ull) & ~t & 0x8080808080808080ull) != 0;
}

class BitWriter {
public:
    BitWriter(Vek64u bits, int count, Vek8u* out) : bits_(bits), count_(count), out_(out) {}

    // Appends the `length` low bits of `value` (length 0..32; the bits
    // above it zero).  The buffer fills to 64 bits and goes out 8 bytes at
    // a time.
    void put(Vek32u value, int length) {
        if (count_ + length <= 64) {
            bits_ = (bits_ << length) | value;
            count_ += length;
            return;
        }
        const int room = 64 - count_, rest = length - room;  // 0 <= room < length <= 32
        writeLong((bits_ << room) | (Vek64u(value) >> rest));
        bits_ = value;
        count_ = rest;
    }

    // Writes the whole 32-bit words pending, leaving fewer than 32 bits: the
    // writer's state between calls.
    void settle() {
        while (count_ >= 32) {
            count_ -= 32;
            writeWord(static_cast<Vek32u>(bits_ >> count_));
        }
    }

    // Pads with 1 bits to a byte boundary and writes every pending byte.
    void flush() {
        const int pad = (8 - (count_ & 7)) & 7;
        put((1u << pad) - 1, pad);
        while (count_ >= 8) {
            count_ -= 8;
            writeByte(static_cast<Vek8u>(bits_ >> count_));
        }
        bits_ = 0;
    }

    Vek8u* out() const { return out_; }
    int count() const { return count_; }
    Vek64u pendingBits() const { return count_ ? bits_ & ((Vek64u(1) << count_) - 1) : 0; }

private:
    void writeByte(Vek8u b) {
        *out_++ = b;
        if (b == 0xFF) *out_++ = 0;
    }
    void writeWord(Vek32u w) {
        if (!hasFFByte32(w)) {
            w = __builtin_bswap32(w);
            memcpy(out_, &w, 4);
            out_ += 4;
        } else {
            for (int shift = 24; shift >= 0; shift -= 8) writeByte(static_cast<Vek8u>(w >> shift));
        }
    }
    void writeLong(Vek64u w) {
        if (!hasFFByte64(w)) {
            w = __builtin_bswap64(w);
            memcpy(out_, &w, 8);
            out_ += 8;
        } else {
            writeWord(static_cast<Vek32u>(w >> 32));
            writeWord(static_cast<Vek32u>(w));
        }
    }

    Vek64u bits_;
    int count_;
    Vek8u* out_;
};

class BitReader {
public:
    BitReader(Vek64u bits, int count, const Vek8u* src, int pos, int len)
        : bits_(bits), count_(count), src_(src), next_(src + pos), end_(src + len) {}

    // Brings the buffer above 56 bits, as far as the input goes.  Reading
    // stops at a marker by moving the end of the input to it.
    void refill() {
        bits_ = bits();  // bytes are or-ed in below the valid bits
        while (count_ <= 56 && next_ < end_) {
            if (end_ - next_ >= 8) {
                Vek64u w;
                memcpy(&w, next_, 8);
                w = __builtin_bswap64(w);
                if (!hasFFByte64(w)) {
                    const int n = (64 - count_) >> 3;  // whole bytes that fit
                    const Vek64u top = n == 8 ? w : w & ~(~Vek64u(0) >> (8 * n));
                    bits_ |= top >> count_;
                    count_ += 8 * n;
                    next_ += n;
                    continue;
                }
            }
            refillByte();
        }
    }

    // Brings the buffer to 56..63 bits without a branch on the count, where
    // the next 8 bytes are input without a 0xFF (refill() otherwise).  The
    // bits below the valid ones are then the stream's next bits rather than
    // zero, which the next such refill or-es in again.  Needs count < 64.
    void refillQuick() {
        if (end_ - next_ >= 8) {
            Vek64u w;
            memcpy(&w, next_, 8);
            w = __builtin_bswap64(w);
            if (!hasFFByte64(w)) {
                bits_ |= w >> count_;
                next_ += (63 - count_) >> 3;
                count_ |= 56;
                return;
            }
        }
        refill();
    }

    // The next `n` bits (1..16) without consuming them.
    unsigned peek(int n) const { return static_cast<unsigned>(bits_ >> (64 - n)); }
    void skip(int n) {
        bits_ <<= n;
        count_ -= n;
    }
    // The next `n` bits (0..16), consumed.
    unsigned take(int n) {
        if (n == 0) return 0;
        const unsigned v = peek(n);
        skip(n);
        return v;
    }

    // The next Huffman symbol, or -1 when the stream holds no code of the
    // table there.  Needs 16 bits in the buffer (or a stopped reader).
    int symbol(const DecodeSpec& t) {
        const unsigned entry = t.fast[peek(vek::jpeg::kLookaheadBits)];
        if (entry) {
            skip(static_cast<int>(entry >> 8));
            return static_cast<int>(entry & 0xFF);
        }
        const Vek32u window = peek(16);
        int l = vek::jpeg::kLookaheadBits + 1;
        while (window >= t.limit[l]) ++l;
        if (l > vek::jpeg::kMaxCodeLength) return -1;
        skip(l);
        return t.values[static_cast<int>(window >> (16 - l)) + t.offset[l]];
    }

    // The signed value of `size` bits (T.81 F.12 EXTEND), consumed.
    int value(int size) {
        if (size == 0) return 0;
        const int v = static_cast<int>(take(size));
        return v < (1 << (size - 1)) ? v - (1 << size) + 1 : v;
    }

    bool underrun() const { return count_ < 0; }
    int marker() const { return marker_; }
    // The valid bits, the rest zero.
    Vek64u bits() const {
        if (count_ >= 64) return bits_;
        return count_ > 0 ? bits_ & ~(~Vek64u(0) >> count_) : 0;
    }
    int count() const { return count_; }
    int position() const { return static_cast<int>(next_ - src_); }

private:
    // One byte (end_ > next_): a stuffed 0xFF 0x00 gives 0xFF; a marker or
    // fill bytes running to the end of the input end the input there.
    void refillByte() {
        const Vek8u b = *next_;
        const Vek8u* after = next_ + 1;
        if (b == 0xFF) {
            while (after < end_ && *after == 0xFF) ++after;  // fill bytes
            if (after >= end_ || *after != 0) {
                if (after < end_) marker_ = *after;
                end_ = next_;
                return;
            }
            ++after;  // the stuffed zero
        }
        bits_ |= Vek64u(b) << (56 - count_);
        count_ += 8;
        next_ = after;
    }

    Vek64u bits_;
    int count_;
    const Vek8u* src_;
    const Vek8u* next_;
    const Vek8u* end_;
    int marker_ = 0;
};

}  // namespace

#endif

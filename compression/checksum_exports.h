// The checksum exports with their checks at entry, written once for every
// level.  A level's translation unit defines, inside its namespace,
// adlerUpdate(value, src, len) and/or crcUpdate(raw register, src, len)
// (len >= 1) and expands the macro of each export it serves.
#ifndef VEK_COMPRESSION_CHECKSUM_EXPORTS_H
#define VEK_COMPRESSION_CHECKSUM_EXPORTS_H

#define VEK_ADLER32_EXPORT                                                          \
    VekStatus VEK_CALL veksAdler32_8u(const Vek8u* pSrc, int len, Vek32u* pAdler) { \
        if (!pAdler) return StatusNullPointer;                                      \
        if (!pSrc) {                                                                \
            *pAdler = 1; /* the start value of a fresh checksum */                  \
            return StatusOk;                                                        \
        }                                                                           \
        if (len > 0) *pAdler = adlerUpdate(*pAdler, pSrc, size_t(len));             \
        return StatusOk;                                                            \
    }

#define VEK_CRC32_EXPORT                                                        \
    VekStatus VEK_CALL veksCRC32_8u(const Vek8u* pSrc, int len, Vek32u* pCrc) { \
        if (!pSrc || !pCrc) return StatusNullPointer;                           \
        if (len < 1) return StatusSize;                                         \
        *pCrc = ~crcUpdate(~*pCrc, pSrc, size_t(len));                          \
        return StatusOk;                                                        \
    }

#endif

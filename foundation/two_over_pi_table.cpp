// The binary digits of 2/pi, for argument reduction of huge arguments.
//
// 1536 bits: word k holds the bits of weights 2^-(32k+1) .. 2^-(32k+32). The
// reduction of the largest double, 2^1024 - 2^971, reads up to bit 1323.
// Generated with 2000-bit arithmetic (tests/foundation/elementary/
// make_tables.py); the test suite recomputes every word with MPFR.
#include "foundation/reduce_pio2.h"

namespace qel {

const std::uint32_t kTwoOverPiWords[kTwoOverPiWordCount] = {
    0xA2F9836E, 0x4E441529, 0xFC2757D1, 0xF534DDC0, 0xDB629599, 0x3C439041,
    0xFE5163AB, 0xDEBBC561, 0xB7246E3A, 0x424DD2E0, 0x06492EEA, 0x09D1921C,
    0xFE1DEB1C, 0xB129A73E, 0xE88235F5, 0x2EBB4484, 0xE99C7026, 0xB45F7E41,
    0x3991D639, 0x835339F4, 0x9C845F8B, 0xBDF9283B, 0x1FF897FF, 0xDE05980F,
    0xEF2F118B, 0x5A0A6D1F, 0x6D367ECF, 0x27CB09B7, 0x4F463F66, 0x9E5FEA2D,
    0x7527BAC7, 0xEBE5F17B, 0x3D0739F7, 0x8A5292EA, 0x6BFB5FB1, 0x1F8D5D08,
    0x56033046, 0xFC7B6BAB, 0xF0CFBC20, 0x9AF4361D, 0xA9E39161, 0x5EE61B08,
    0x6599855F, 0x14A06840, 0x8DFFD880, 0x4D732731, 0x06061556, 0xCA73A8C9,
};

}  // namespace qel

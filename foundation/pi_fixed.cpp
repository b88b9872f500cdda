// pi/2 and pi in fixed point, truncated to 224 fraction bits (error below
// 2^-224). Generated with 2000-bit arithmetic (tests/foundation/elementary/
// make_tables.py) and checked against MPFR by the test suite.
#include "foundation/elementary_internal.h"

namespace qel {

const fx::Fixed kPio2Fixed = {{0x00000001, 0x921FB544, 0x42D18469, 0x898CC517, 0x01B839A2,
                               0x52049C11, 0x14CF98E8, 0x04177D4C}};
const fx::Fixed kPiFixed = {{0x00000003, 0x243F6A88, 0x85A308D3, 0x13198A2E, 0x03707344,
                             0xA4093822, 0x299F31D0, 0x082EFA98}};

}  // namespace qel

#!/usr/bin/env python3
# Prints the constant tables of the elementary functions (binary digits of
# 2/pi and pi/2, sine and cosine of i/256, arc tangent of j/256) as C++
# literals. Run once by hand; the test suite checks the functions built on
# them against MPFR over every range of arguments.
from mpmath import mp, mpf, pi, sin, cos, atan, floor, ldexp

mp.prec = 2000


def dd(v):
    hi = float(v)
    lo = float(v - mpf(hi))
    return hi, lo


def words(v, n):
    """First n 32-bit words of the fraction of v (0 <= v < 1)."""
    out = []
    for _ in range(n):
        v *= 2 ** 32
        w = int(floor(v))
        out.append(w)
        v -= w
    return out


def fmt_words(ws, per=6):
    lines = []
    for i in range(0, len(ws), per):
        lines.append("    " + ", ".join("0x%08X" % w for w in ws[i:i + per]) + ",")
    return "\n".join(lines)


print("// 2/pi, fraction words")
print(fmt_words(words(2 / pi, 48)))
print("// pi/2: integer word then fraction words")
p2 = pi / 2
print(fmt_words([1] + words(p2 - 1, 7)))
print("// pi: integer word then fraction words")
print(fmt_words([3] + words(pi - 3, 7)))

# Cody-Waite pieces of pi/2: three of 33 bits, then the rest rounded.
rest = pi / 2
pieces = []
for _ in range(3):
    e = int(floor(mp.log(rest, 2)))
    q = ldexp(floor(ldexp(rest, 32 - e)), e - 32)  # 33 significant bits
    pieces.append(q)
    rest -= q
pieces.append(mpf(float(rest)))
print("// Cody-Waite pieces")
for q in pieces:
    print("    %s," % float(q).hex())
print("// error of the split: %s" % mp.nstr(pi / 2 - sum(pieces), 5))
print("// pi/2, pi, pi/4, 3pi/4 as double-double")
for v in (pi / 2, pi, pi / 4, 3 * pi / 4):
    h, l = dd(v)
    print("    {%s, %s}," % (h.hex(), l.hex()))

def split(v):
    # Veltkamp's split in IEEE double, exactly as the library computes it.
    c = 134217729.0 * v
    hi = c - (c - v)
    return hi, v - hi


print("// sin(i/256), cos(i/256), i = 0..203, and the splits of the high parts")
for i in range(204):
    a = mpf(i) / 256
    sh, sl = dd(sin(a))
    ch, cl = dd(cos(a))
    shh, shl = split(sh)
    chh, chl = split(ch)
    print("    {%s, %s, %s, %s, %s, %s, %s, %s}," % (sh.hex(), sl.hex(), ch.hex(), cl.hex(),
                                                 shh.hex(), shl.hex(), chh.hex(), chl.hex()))

print("// atan(j/256) and pi/2 - atan(j/256), j = 0..256")
for j in range(257):
    h, l = dd(atan(mpf(j) / 256))
    ch, cl = dd(pi / 2 - atan(mpf(j) / 256))
    print("    {%s, %s, %s, %s}," % (h.hex(), l.hex(), ch.hex(), cl.hex()))

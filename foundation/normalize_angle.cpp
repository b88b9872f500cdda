// math_NormalizeAngle: brings an angle into [0, 2pi) by whole turns.
//
// Method. The defined result is that of stepping: add 2pi while the value is
// negative, then subtract 2pi while it is at least 2pi, rounding after every
// step. That costs one step per turn, so runs of steps are taken at once:
// while the value and its successors stay inside one binade they are all
// multiples of the same ulp u, and each step adds 2pi rounded to a multiple
// of u. That rounding is the same for every step except where the remainder
// of 2pi modulo u is exactly u/2 (the binade [64, 128)): there each step is a
// round-half-even tie and always lands on an even multiple of u, so every
// step after the first within the binade starts from an even value and adds
// the same amount. Hence, once one step has been taken inside a binade, all
// further steps in it add the same d, x_k = x_1 + (k-1)*d exactly, and k*d and
// the sum are exact (multiples of u below the binade's top). Near a binade
// boundary the steps are taken one at a time, which reproduces the change of
// ulp exactly.
//
// Special cases. NaN and infinities are left unchanged. Where a step would
// not change the value (|x| so large that 2pi is below half an ulp), stepping
// would never end; such an angle is first reduced exactly with fmod, and the
// stepping then proceeds from the remainder.
//
// Guarantee: bit-identical to the stepping for every finite angle, in at most
// a few dozen iterations per binade.
#include <cmath>
#include <cstdint>
#include <cstring>

#include "QELMath.h"
#include "foundation/constants.h"

namespace {

constexpr double kTwoPi = qel::kTwoPi;

// Largest power of two not above |x|, read off the exponent field (x is
// finite; a subnormal x gives 0, which only disables a run).
double binade_floor(double x)
{
    std::uint64_t u;
    std::memcpy(&u, &x, sizeof u);
    u &= 0x7ff0000000000000u;
    double p;
    std::memcpy(&p, &u, sizeof p);
    return p;
}

// Steps x by `step` (+2pi or -2pi) while keep(x) holds, with the bits of one
// step at a time. keep() must fail before x could leave the binade in which
// the run is taken; both callers stop at 0 or 2pi, far below any binade in
// which runs are taken.
template <class Keep>
double step_while(double x, double step, Keep keep)
{
    while (keep(x)) {
        double x1 = x + step;
        if (!keep(x1)) return x1;
        double x2 = x1 + step;
        if (!keep(x2)) return x2;
        // x, x1, x2 all in one binade [lo, 2lo): x1 came from a step inside
        // it, so every further step adds exactly the last one, d.
        double lo = binade_floor(x2);
        if (std::fabs(x) < 2 * lo && std::fabs(x2) >= lo) {
            double d = x2 - x1;                          // exact: multiples of u
            double room = std::fabs(x2) - lo;            // exact: Sterbenz
            // Values move towards zero for both callers, so the binade's
            // floor is the boundary ahead; stop two steps short of it to
            // absorb the rounding of the quotient.
            double runs = std::floor(room / std::fabs(d)) - 2;
            if (runs >= 1) x2 = x2 + runs * d;
        }
        x = x2;
    }
    return x;
}

double normalize(double x)
{
    if (!std::isfinite(x)) return x;
    // Stagnation: the step to be taken rounds back to x. fmod is exact. Only
    // the direction of travel counts: at a power of two a step towards zero
    // can progress although the step away would not.
    if ((x < 0 && x + kTwoPi == x) || (x >= kTwoPi && x - kTwoPi == x))
        x = std::fmod(x, kTwoPi);
    if (x < 0) x = step_while(x, kTwoPi, [](double v) { return v < 0; });
    if (kTwoPi <= x) x = step_while(x, -kTwoPi, [](double v) { return v >= kTwoPi; });
    return x;
}

}  // namespace

QELMATH_API void math_NormalizeAngle(double* a)
{
    *a = normalize(*a);
}

QELMATH_API void math_NormalizeAngle(double* a, double* b)
{
    *a = normalize(*a);
    if (b == nullptr) return;
    *b = normalize(*b);
    if (*a > *b) *b = *b + kTwoPi;
}

// math_NormalizeAngle: brings an angle into [0, 2pi) by whole turns.
//
// Method. The defined result is that of stepping: add 2pi while the value is
// negative, then subtract 2pi while it is at least 2pi, rounding after every
// step. That costs one step per turn, so runs of steps are taken at once:
// while the value and its successors stay inside one binade they are all
// multiples of the same ulp u, and each step adds 2pi rounded to a multiple
// of u. That rounding is the same for every step except when the remainder
// of 2pi modulo u is exactly u/2 (one binade only); there round-half-even
// alternates between two neighbours with the value's parity. Any two
// consecutive steps therefore add the same amount D inside a binade, so
// x_{2k} = x_0 + k*D exactly, and k*D and the sum are exact (multiples of u
// below the binade's top). Near a binade boundary the steps are taken one at
// a time, which reproduces the change of ulp exactly.
//
// Special cases. NaN and infinities are left unchanged. Where a step would
// not change the value (|x| so large that 2pi is below half an ulp), stepping
// would never end; such an angle is first reduced exactly with fmod, and the
// stepping then proceeds from the remainder.
//
// Guarantee: bit-identical to the stepping for every finite angle, in at most
// a few dozen iterations per binade.
#include <cmath>

#include "QELMath.h"
#include "foundation/constants.h"

namespace {

constexpr double kTwoPi = qel::kTwoPi;

// Largest power of two not above |x| (x finite, non-zero).
double binade_floor(double x)
{
    int e;
    std::frexp(x, &e);
    return std::ldexp(1.0, e - 1);
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
        // All three in one binade [lo, 2lo): a run of pairs can be taken.
        double lo = binade_floor(x2);
        double ax = std::fabs(x), ax2 = std::fabs(x2);
        if (std::fabs(x1) >= lo && ax < 2 * lo && ax2 >= lo) {
            double pair = x2 - x;                 // exact: both multiples of u
            double room = std::fabs(ax2 - lo);    // distance to the binade's floor
            double runs = std::floor(room / std::fabs(pair)) - 2;
            // Values move towards zero for both callers, so the floor is the
            // boundary ahead; stay two pairs short of it to absorb the
            // rounding of the quotient.
            if (runs >= 1) x2 = x2 + runs * pair;
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

// Everything without a plain twin or scratch memory: tolerances,
// comparisons, angles, vectors, the number tables, integrators and roots
// with integrands that return NaN, infinities and huge values, polynomials,
// lines, arcs, triangles and every transformation builder. Checks: no crash,
// no undefined behaviour, bounded time (libFuzzer's -timeout), and outputs
// the header says stay unwritten keep their marker.
#include <csetjmp>

#include "QELMath.h"
#include "fuzz_input.h"

using fuzzin::Check;

namespace {

// A NaN payload no arithmetic makes: an entry still holding it was not written.
const std::uint64_t kMarkBits = 0x7ff4000000dead01ull;
double Mark() { return fuzzin::Bits(kMarkBits); }
bool Marked(double v) { return std::memcmp(&v, &kMarkBits, sizeof v) == 0; }

// Integrands: smooth, poles, non-finite and overflowing values, and one
// whose behaviour depends on the fuzzed constant.
double g_k = 1;
double Smooth(double x) { return g_k * x * x - 1; }
double Pole(double x) { return 1 / (x - g_k); }
double NotANumber(double x) { return x > g_k ? std::numeric_limits<double>::quiet_NaN() : x; }
double Infinite(double x) { return x < g_k ? -INFINITY : INFINITY; }
double Huge(double x) { return x * 1e308 * g_k; }
double Wild(double x) { return std::sin(g_k * x) * std::exp(x); }
double (*const kIntegrands[])(double) = {Smooth, Pole, NotANumber, Infinite, Huge, Wild};
double (*const kIntegrators[])(double (*)(double), double, double, double) = {int_Chebyshev, int_Gauss, int_Romberg, int_Simpson};

// An integrator that never converges stops by its own rule only after up to
// 2.5 million values of f, a quarter of a second under the sanitizers, which
// held this target to a hundred inputs a second. So f has a budget of values
// and jumps back to Analysis once it is spent: the integrators and the chord
// method hold no memory and no object with a destructor, so leaving them by
// longjmp skips nothing. Their own stops, and how many values of f each
// takes to reach them, are pinned by the analysis tests.
std::jmp_buf g_spent;
double (*g_f)(double) = Smooth;
int g_left = 0;  // values of f still allowed
double Budgeted(double x)
{
    if (g_left-- == 0) std::longjmp(g_spent, 1);
    return g_f(x);
}

// The transformation builders by their arguments.
using M3 = double (*)[3];
using M4 = double (*)[4];
void (*const k3One[])(double, M3) = {TransMatrixTanX2D, TransMatrixTanY2D};
void (*const k3Map[])(int, int, double, double, M3) = {TransMatrixCoordMapToGDI, TransMatrixCoordMapToView};
void (*const k4None[])(M4) = {TransMatrixMirror3DXY, TransMatrixMirror3DXZ, TransMatrixMirror3DYZ, TransMatrixViewV,
                              TransMatrixAxisViewPE, TransMatrixAxisViewP2, TransMatrixAxisViewL2};
void (*const k4One[])(double, M4) = {TransMatrixTanXY3D, TransMatrixTanXZ3D, TransMatrixTanYX3D, TransMatrixTanYZ3D,
                                     TransMatrixTanZX3D, TransMatrixTanZY3D, TransMatrixRotate3DX, TransMatrixRotate3DY,
                                     TransMatrixRotate3DZ, TransMatrixViewH, TransMatrixViewW};
void (*const k4Two[])(double, double, M4) = {TransMatrixAxisView, TransMatrixAxisViewL};
void (*const k4Three[])(double, double, double, M4) = {TransMatrixScale3D, TransMatrixMove3D};
// The last two are the four-number perspectives, which only reshift an existing matrix.
void (*const k4Four[])(double, double, double, double, M4) = {TransMatrixRotate3DO, TransMatrixPerspective1,
                                                              TransMatrixPerspective2, TransMatrixPerspective3};

void Transformations(FuzzedDataProvider& in)
{
    const std::vector<double> a = fuzzin::Values(in, 6);
    const int x0 = in.ConsumeIntegral<int>(), y0 = in.ConsumeIntegral<int>();
    double t3[3][3], t4[4][4];
    for (auto& r : t3) for (double& v : r) v = Mark();
    for (auto& r : t4) for (double& v : r) v = Mark();
    const int i = in.ConsumeIntegralInRange(0, 32);
    if (i == 0) TransMatrixMirror2D(a[0], a[1], a[2], t3);
    else if (i < 3) k3One[i - 1](a[0], t3);
    else if (i < 5) k3Map[i - 3](x0, y0, a[0], a[1], t3);
    else if (i < 16) k4One[i - 5](a[0], t4);
    else if (i < 23) k4None[i - 16](t4);
    else if (i < 25) k4Two[i - 23](a[0], a[1], t4);
    else if (i < 27) k4Three[i - 25](a[0], a[1], a[2], t4);
    else if (i == 27) TransMatrixPerspective2(a[0], a[1], a[2], a[3], a[4], t4);
    else if (i == 28) TransMatrixPerspective3(a[0], a[1], a[2], a[3], a[4], a[5], t4);
    else k4Four[i - 29](a[0], a[1], a[2], a[3], t4);
    // Every builder writes the whole matrix but the reshifts. (An argument
    // that is the marker itself may be copied into an entry.)
    for (double v : a)
        if (Marked(v)) return;
    if (i < 5) for (auto& r : t3) for (double v : r) Check(!Marked(v), "a 3x3 builder left an entry");
    else if (i < 31) for (auto& r : t4) for (double v : r) Check(!Marked(v), "a 4x4 builder left an entry");
}

void Geometry(FuzzedDataProvider& in)
{
    std::vector<double> v = fuzzin::Values(in, 9);
    double *p1 = v.data(), *p2 = p1 + 3, *p3 = p1 + 6;
    double out[6] = {Mark(), Mark(), Mark(), Mark(), Mark(), Mark()};
    switch (in.ConsumeIntegralInRange(0, 10)) {
    case 0: PointIsOnLine(p1, p2, p3); break;
    case 1: NormalizeLine(p1, p2, out); break;
    case 2: DistPoint2Line2d(p1, p2, p3); DistPoint2Line(p1, p2, p3); break;
    case 3:
        if (Bulge2Arc(p1, p2, p3[0], out, out + 3, out + 4, out + 5) != 0)
            for (double o : out) Check(Marked(o), "Bulge2Arc wrote without an arc");
        break;
    case 4: {
        const int r = ThreePoints2Arc(p1, p2, p3, out, out + 3, out + 4, out + 5);
        Check(r == 0 || (Marked(out[4]) && Marked(out[5])), "ThreePoints2Arc wrote angles without an arc");
        Check(r != -1 || (Marked(out[0]) && Marked(out[1]) && Marked(out[3])), "ThreePoints2Arc wrote a circle");
        break;
    }
    case 5: PointIsOnCircle(p1, p2[0], p3); break;
    case 6: TriangleCircumCircle(p1, p2, p3, out); Check(Marked(out[2]), "circumcircle wrote z"); break;
    case 7: PointIsInTriangle(p1, p2, p3, p1 + 1); break;
    case 8: TranglePerimeter(p1, p2, p3); TrangleArea(p1, p2, p3); break;
    case 9: TriangleInscribedCircle(p1, p2, p3, out); Check(Marked(out[2]), "inscribed circle wrote z"); break;
    default: {
        const int n = in.ConsumeIntegralInRange(-1, 9);
        math_Polynomial(p1, n, in.ConsumeBool() ? p1[0] : fuzzin::Value(in));
    }
    }
}

void Analysis(FuzzedDataProvider& in)
{
    g_k = fuzzin::Value(in);
    g_f = kIntegrands[in.ConsumeIntegralInRange(0, 5)];
    g_left = 1 << 12;
    const double a = fuzzin::Value(in), b = fuzzin::Value(in), eps = fuzzin::Value(in);
    double x[2] = {Mark(), Mark()};
    const int which = in.ConsumeIntegralInRange(0, 5);
    if (setjmp(g_spent) != 0) return;
    if (which < 4) kIntegrators[which](Budgeted, a, b, eps);
    else if (which == 4) solve_Chord(Budgeted, a, b, eps, x, in.ConsumeIntegralInRange(-1, 2000));
    else {
        const int k = solve_Equation(a, b, eps, x);
        Check(k >= 0 && k <= 2, "solve_Equation counted roots out of range");
        Check(k >= 1 || Marked(x[0]), "solve_Equation wrote without a root");
        Check(k == 2 || Marked(x[1]), "solve_Equation wrote a second root it has not");
    }
}

void Foundation(FuzzedDataProvider& in)
{
    std::vector<double> v = fuzzin::Values(in, 8);
    double *p = v.data(), out[3];
    switch (in.ConsumeIntegralInRange(0, 9)) {
    case 0: math_SetDoubleTolerance(v[0]); math_IsRealZero(v[1]); math_IsRealEqual(v[2], v[3]); break;
    case 1: math_SetPointTolerance(v[0]); math_IsPoint2dEqual(p + 1, p + 3); math_IsPointEqual(p + 1, p + 4); break;
    case 2: math_SetVectorTolerance(v[0]); math_IsDirection2dEqual(p, p + 2, p + 4, p + 6); math_IsDirectionEqual(p, p + 1, p + 2, p + 3); break;
    case 3: math_IsAngleEqual(v[0], v[1]); math_NormalizeAngle(p); math_NormalizeAngle(p + 1, p + 2); break;
    case 4: math_Radian2Degree(v[0]); math_Degree2Radian(v[1]); math_CosSin(v[2], out, out + 1); break;
    case 5: math_Polar(p, v[3], v[4], out); math_Angle(p, p + 2); break;
    case 6: math_Distance(p, p + 3); math_Distance2d(p, p + 3); math_Distance2(p, p + 3); math_Distance2d2(p, p + 3); break;
    case 7: VectorCrossProduct(p, p + 3, out); VectorDotProduct(p, p + 3); NormalizeVector(p + 5); break;
    default: {
        const std::uint32_t a = in.ConsumeIntegral<std::uint32_t>(), b = in.ConsumeIntegral<std::uint32_t>();
        const int n = in.ConsumeIntegralInRange(-3, 200), m = in.ConsumeIntegralInRange(-3, 200);
        num_IsPrime(a); num_CommonDivisor32(a, b);
        num_CommonDivisor64(in.ConsumeIntegral<std::uint64_t>(), in.ConsumeIntegral<std::uint64_t>());
        num_FactorialDword(n); num_FactorialQword(n); num_FactorialDouble(n);
        num_FibonacciDword(n); num_FibonacciQword(n); num_FibonacciDouble(n);
        num_PermutationDword(n, m); num_PermutationQword(n, m); num_PermutationDouble(n, m);
        num_QPermutationDword(n, m); num_QPermutationQword(n, m); num_QPermutationDouble(n, m);
        num_CombinationDword(n, m); num_CombinationQword(n, m); num_CombinationDouble(n, m);
    }
    }
    // Later inputs start from the documented defaults again.
    math_SetDoubleTolerance(1e-9), math_SetPointTolerance(1e-9), math_SetVectorTolerance(1e-9);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzedDataProvider in(data, size);
    void (*const parts[])(FuzzedDataProvider&) = {Foundation, Analysis, Geometry, Transformations};
    parts[in.ConsumeIntegralInRange(0, 3)](in);
    return 0;
}

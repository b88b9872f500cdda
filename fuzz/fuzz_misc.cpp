// Everything without a plain twin or scratch memory: tolerances,
// comparisons, angles, vectors, the number tables, integrators and roots
// with integrands that return NaN, infinities and huge values, polynomials,
// lines, arcs, triangles and every transformation builder. Checks: no crash,
// no undefined behaviour, bounded time (libFuzzer's -timeout), and outputs
// the header says stay unwritten keep their marker.
#include "QELMath.h"
#include "fuzz_input.h"

using fuzzin::Check;

namespace {

// A NaN payload no arithmetic makes: an entry still holding it was not written.
const std::uint64_t kMarkBits = 0x7ff4000000dead01ull;
double Mark()
{
    double v;
    std::memcpy(&v, &kMarkBits, sizeof v);
    return v;
}
bool Marked(double v) { return std::memcmp(&v, &kMarkBits, sizeof v) == 0; }

// Integrands: smooth, poles, non-finite and overflowing values, and one
// whose behaviour depends on the fuzzed constant.
double g_k = 1;
double Smooth(double x) { return g_k * x * x - 1; }
double Pole(double x) { return 1 / (x - g_k); }
double NotANumber(double x) { return x > g_k ? std::nan("") : x; }
double Infinite(double x) { return x < g_k ? -INFINITY : INFINITY; }
double Huge(double x) { return x * 1e308 * g_k; }
double Wild(double x) { return std::sin(g_k * x) * std::exp(x); }
double (*const kIntegrands[])(double) = {Smooth, Pole, NotANumber, Infinite, Huge, Wild};

void Transformations(FuzzedDataProvider& in)
{
    double a = fuzzin::Value(in), b = fuzzin::Value(in), c = fuzzin::Value(in), d = fuzzin::Value(in);
    double e = fuzzin::Value(in), f = fuzzin::Value(in);
    int x0 = in.ConsumeIntegral<int>(), y0 = in.ConsumeIntegral<int>();
    double t3[3][3], t4[4][4];
    for (auto& r : t3) for (double& v : r) v = Mark();
    for (auto& r : t4) for (double& v : r) v = Mark();
    bool full4 = true;
    switch (in.ConsumeIntegralInRange(0, 32)) {
    case 0: TransMatrixMirror2D(a, b, c, t3); break;
    case 1: TransMatrixTanX2D(a, t3); break;
    case 2: TransMatrixTanY2D(a, t3); break;
    case 3: TransMatrixCoordMapToGDI(x0, y0, a, b, t3); break;
    case 4: TransMatrixCoordMapToView(x0, y0, a, b, t3); break;
    case 5: TransMatrixScale3D(a, b, c, t4); break;
    case 6: TransMatrixTanXY3D(a, t4); break;
    case 7: TransMatrixTanXZ3D(a, t4); break;
    case 8: TransMatrixTanYX3D(a, t4); break;
    case 9: TransMatrixTanYZ3D(a, t4); break;
    case 10: TransMatrixTanZX3D(a, t4); break;
    case 11: TransMatrixTanZY3D(a, t4); break;
    case 12: TransMatrixMirror3DXY(t4); break;
    case 13: TransMatrixMirror3DXZ(t4); break;
    case 14: TransMatrixMirror3DYZ(t4); break;
    case 15: TransMatrixMove3D(a, b, c, t4); break;
    case 16: TransMatrixRotate3DX(a, t4); break;
    case 17: TransMatrixRotate3DY(a, t4); break;
    case 18: TransMatrixRotate3DZ(a, t4); break;
    case 19: TransMatrixRotate3DO(a, b, c, d, t4); break;
    case 20: TransMatrixViewV(t4); break;
    case 21: TransMatrixViewH(a, t4); break;
    case 22: TransMatrixViewW(a, t4); break;
    case 23: TransMatrixAxisView(a, b, t4); break;
    case 24: TransMatrixAxisViewPE(t4); break;
    case 25: TransMatrixAxisViewP2(t4); break;
    case 26: TransMatrixAxisViewL(a, b, t4); break;
    case 27: TransMatrixAxisViewL2(t4); break;
    case 28: TransMatrixPerspective1(a, b, c, d, t4); break;
    case 29: TransMatrixPerspective2(a, b, c, d, e, t4); break;
    case 30: TransMatrixPerspective3(a, b, c, d, e, f, t4); break;
    case 31: TransMatrixPerspective2(a, b, c, d, t4); full4 = false; break;
    default: TransMatrixPerspective3(a, b, c, d, t4); full4 = false; break;
    }
    // The builders write the whole matrix, but for the two four-number
    // perspectives, which only reshift an existing one. (An argument that
    // is the marker itself may be copied into an entry.)
    for (double arg : {a, b, c, d, e, f})
        if (Marked(arg)) return;
    const bool written3 = !Marked(t3[0][0]) || !Marked(t3[2][2]);
    for (auto& r : t3) for (double v : r) Check(!written3 || !Marked(v), "a 3x3 builder left an entry");
    if (full4 && Marked(t3[0][0]))
        for (auto& r : t4) for (double v : r) Check(!Marked(v), "a 4x4 builder left an entry");
}

void Geometry(FuzzedDataProvider& in)
{
    std::vector<double> v = fuzzin::Values(in, 9);
    double* p1 = v.data();
    double* p2 = v.data() + 3;
    double* p3 = v.data() + 6;
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
        if (r != 0) Check(Marked(out[4]) && Marked(out[5]), "ThreePoints2Arc wrote angles without an arc");
        if (r == -1) Check(Marked(out[0]) && Marked(out[1]) && Marked(out[3]), "ThreePoints2Arc wrote a circle");
        break;
    }
    case 5: PointIsOnCircle(p1, p2[0], p3); break;
    case 6: TriangleCircumCircle(p1, p2, p3, out); Check(Marked(out[2]), "circumcircle wrote z"); break;
    case 7: PointIsInTriangle(p1, p2, p3, v.data() + 1); break;
    case 8: TranglePerimeter(p1, p2, p3); TrangleArea(p1, p2, p3); break;
    case 9: TriangleInscribedCircle(p1, p2, p3, out); Check(Marked(out[2]), "inscribed circle wrote z"); break;
    default: {
        const int n = in.ConsumeIntegralInRange(-1, 9);
        math_Polynomial(v.data(), n, in.ConsumeBool() ? p1[0] : fuzzin::Value(in));
    }
    }
}

void Analysis(FuzzedDataProvider& in)
{
    g_k = fuzzin::Value(in);
    double (*f)(double) = kIntegrands[in.ConsumeIntegralInRange(0, 5)];
    const double a = fuzzin::Value(in), b = fuzzin::Value(in), eps = fuzzin::Value(in);
    switch (in.ConsumeIntegralInRange(0, 5)) {
    case 0: int_Chebyshev(f, a, b, eps); break;
    case 1: int_Gauss(f, a, b, eps); break;
    case 2: int_Romberg(f, a, b, eps); break;
    case 3: int_Simpson(f, a, b, eps); break;
    case 4: {
        double x = Mark();
        solve_Chord(f, a, b, eps, &x, in.ConsumeIntegralInRange(-1, 2000));
        break;
    }
    default: {
        double roots[2] = {Mark(), Mark()};
        const int k = solve_Equation(a, b, eps, roots);
        Check(k >= 0 && k <= 2, "solve_Equation counted roots out of range");
        Check(k >= 1 || Marked(roots[0]), "solve_Equation wrote without a root");
        Check(k == 2 || Marked(roots[1]), "solve_Equation wrote a second root it has not");
    }
    }
}

void Foundation(FuzzedDataProvider& in)
{
    std::vector<double> v = fuzzin::Values(in, 8);
    double out[3];
    switch (in.ConsumeIntegralInRange(0, 9)) {
    case 0: math_SetDoubleTolerance(v[0]); math_IsRealZero(v[1]); math_IsRealEqual(v[2], v[3]); break;
    case 1: math_SetPointTolerance(v[0]); math_IsPoint2dEqual(v.data() + 1, v.data() + 3); math_IsPointEqual(v.data() + 1, v.data() + 4); break;
    case 2:
        math_SetVectorTolerance(v[0]);
        math_IsDirection2dEqual(v.data(), v.data() + 2, v.data() + 4, v.data() + 6);
        math_IsDirectionEqual(v.data(), v.data() + 1, v.data() + 2, v.data() + 3);
        break;
    case 3: math_IsAngleEqual(v[0], v[1]); math_NormalizeAngle(v.data()); math_NormalizeAngle(v.data() + 1, v.data() + 2); break;
    case 4: math_Radian2Degree(v[0]); math_Degree2Radian(v[1]); math_CosSin(v[2], out, out + 1); break;
    case 5: math_Polar(v.data(), v[3], v[4], out); math_Angle(v.data(), v.data() + 2); break;
    case 6: math_Distance(v.data(), v.data() + 3); math_Distance2d(v.data(), v.data() + 3); math_Distance2(v.data(), v.data() + 3); math_Distance2d2(v.data(), v.data() + 3); break;
    case 7: VectorCrossProduct(v.data(), v.data() + 3, out); VectorDotProduct(v.data(), v.data() + 3); NormalizeVector(v.data() + 5); break;
    default: {
        const std::uint32_t a = in.ConsumeIntegral<std::uint32_t>(), b = in.ConsumeIntegral<std::uint32_t>();
        const int n = in.ConsumeIntegralInRange(-3, 200), m = in.ConsumeIntegralInRange(-3, 200);
        num_IsPrime(a);
        num_CommonDivisor32(a, b);
        num_CommonDivisor64(in.ConsumeIntegral<std::uint64_t>(), in.ConsumeIntegral<std::uint64_t>());
        num_FactorialDword(n); num_FactorialQword(n); num_FactorialDouble(n);
        num_FibonacciDword(n); num_FibonacciQword(n); num_FibonacciDouble(n);
        num_PermutationDword(n, m); num_PermutationQword(n, m); num_PermutationDouble(n, m);
        num_QPermutationDword(n, m); num_QPermutationQword(n, m); num_QPermutationDouble(n, m);
        num_CombinationDword(n, m); num_CombinationQword(n, m); num_CombinationDouble(n, m);
    }
    }
    // Later inputs start from the documented defaults again.
    math_SetDoubleTolerance(1e-9);
    math_SetPointTolerance(1e-9);
    math_SetVectorTolerance(1e-9);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzedDataProvider in(data, size);
    switch (in.ConsumeIntegralInRange(0, 3)) {
    case 0: Foundation(in); break;
    case 1: Analysis(in); break;
    case 2: Geometry(in); break;
    default: Transformations(in);
    }
    return 0;
}

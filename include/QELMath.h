/*
 * QELMath: numerical and geometric routines for drawing and engineering.
 *
 * 139 plain functions, grouped by family below. Conventions shared by all:
 *  - A point or vector is a double* to x, y, z; functions ending in "2d"
 *    read x and y only.
 *  - Matrices are row-major; element (i, j) of a matrix with k columns is at
 *    index i*k + j. A complex matrix is two arrays: real parts, imaginary parts.
 *  - Angles are radians; pi and 2pi are 3.141592653589793 and
 *    6.283185307179586.
 *  - Nothing is thrown, logged or validated beyond what each comment says;
 *    a function that can fail returns a result code.
 *  - Every scratch block comes from mem_malloc (QELMemory) and is given back
 *    before the call returns, except the two result arrays of
 *    ClipPolygonWithRect, which the caller releases with mem_free.
 *  - The solvers, determinants and inversions judge singularity against the
 *    fixed pivot threshold 2.220446049250313e-16, not the tolerances.
 *  - Sine, cosine and the arc tangents are correctly rounded: every result is
 *    the same to the last bit on every platform.
 */
#ifndef QELMATH_H
#define QELMATH_H

#include <cstdint>

#include "QELMemory.h"

#if defined(_WIN32)
#  if defined(QELMATH_BUILDING)
#    define QELMATH_API __declspec(dllexport)
#  elif defined(QELMATH_STATIC)
#    define QELMATH_API
#  else
#    define QELMATH_API __declspec(dllimport)
#  endif
#else
#  define QELMATH_API __attribute__((visibility("default")))
#endif

/* ---------------------------------------------------------------------------
 * Tolerances and comparisons
 *
 * Five process-wide values, read at every call: the double tolerance, point
 * tolerance and vector tolerance (1e-9 at load) and the squared point and
 * vector tolerances (1e-18). They are not locked: change them while no
 * comparison runs on another thread. Predicates return 1 (yes) or 0 (no).
 * ------------------------------------------------------------------------- */

/* Sets the double tolerance (any value is stored unchanged, NaN included). */
QELMATH_API void math_SetDoubleTolerance(double t);
/* Sets the point tolerance and the squared point tolerance to t*t. */
QELMATH_API void math_SetPointTolerance(double t);
/* Sets the vector tolerance and its square; no operation reads them. */
QELMATH_API void math_SetVectorTolerance(double t);
/* 1 when -t <= x <= t (t the double tolerance), else 0. */
QELMATH_API int math_IsRealZero(double x);
/* Relative to b: 1 when |b| <= t and |a| <= t, or |a/b - 1| <= t; else 0. */
QELMATH_API int math_IsRealEqual(double a, double b);
/* Reduces each angle into one turn (negative angles into (0, 2pi]) and
 * compares them like math_IsRealEqual; no wrap-around at 0 / 2pi. */
QELMATH_API int math_IsAngleEqual(double a, double b);
/* q is the reference: every coordinate passes a strict relative test (or both
 * are within the point tolerance of 0), and the squared distance is at most
 * the squared point tolerance. 2d reads x and y. */
QELMATH_API int math_IsPoint2dEqual(const double* p, const double* q);
QELMATH_API int math_IsPointEqual(const double* p, const double* q);
/* For directions already known to be parallel: 1 when a1->a2 and b1->b2 run
 * the same way on the axis where the first moves most (ties go to y, then x,
 * then z). No tolerance. */
QELMATH_API int math_IsDirection2dEqual(const double* a1, const double* a2, const double* b1, const double* b2);
QELMATH_API int math_IsDirectionEqual(const double* a1, const double* a2, const double* b1, const double* b2);

/* ---------------------------------------------------------------------------
 * Angles, distances, vectors
 * ------------------------------------------------------------------------- */

/* Brings *a into [0, 2pi) by whole turns, with the bits of stepping one turn
 * at a time. NaN and infinities are left unchanged. */
QELMATH_API void math_NormalizeAngle(double* a);
/* Normalises *a and, when b is not null, *b; then adds 2pi to *b when *a > *b,
 * so that *a <= *b < *a + 2pi. */
QELMATH_API void math_NormalizeAngle(double* a, double* b);
/* (x * 180) / pi. */
QELMATH_API double math_Radian2Degree(double x);
/* (x * pi) / 180. */
QELMATH_API double math_Degree2Radian(double x);
/* Writes cos(angle) to *c and sin(angle) to *s. */
QELMATH_API void math_CosSin(double angle, double* c, double* s);
/* out = p moved by r in direction angle in the xy plane; out.z = p.z.
 * out may be p. */
QELMATH_API void math_Polar(double* const p, double angle, double r, double* const out);
/* atan2(q.y - p.y, q.x - p.x), in [-pi, pi]. */
QELMATH_API double math_Angle(double* const p, double* const q);
/* Distance in space / in the plane, and their squares. */
QELMATH_API double math_Distance(double* const p, double* const q);
QELMATH_API double math_Distance2d(double* const p, double* const q);
QELMATH_API double math_Distance2(double* const p, double* const q);
QELMATH_API double math_Distance2d2(double* const p, double* const q);
/* out = a x b; out may be a or b. */
QELMATH_API void VectorCrossProduct(double* a, double* b, double* out);
/* a . b. */
QELMATH_API double VectorDotProduct(double* a, double* b);
/* Scales v by 1/|v| and returns 1; returns 0 and leaves v unchanged when the
 * squared length is zero by math_IsRealZero. */
QELMATH_API int NormalizeVector(double* v);

/* ---------------------------------------------------------------------------
 * Number theory and combinatorics
 *
 * Dword, Qword and Double forms answer in unsigned 32-bit, unsigned 64-bit
 * (both wrapping) and double. Out-of-range arguments give a neutral value.
 * ------------------------------------------------------------------------- */

/* 1 when n is prime, else 0. */
QELMATH_API int num_IsPrime(std::uint32_t n);
/* Greatest common divisor; (a, 0) gives a. */
QELMATH_API std::uint32_t num_CommonDivisor32(std::uint32_t a, std::uint32_t b);
QELMATH_API std::uint64_t num_CommonDivisor64(std::uint64_t a, std::uint64_t b);
/* n! from the built-in table. */
QELMATH_API std::uint32_t num_FactorialDword(int n);
QELMATH_API std::uint64_t num_FactorialQword(int n);
QELMATH_API double num_FactorialDouble(int n);
/* The n-th Fibonacci number from the built-in table. */
QELMATH_API std::uint32_t num_FibonacciDword(int n);
QELMATH_API std::uint64_t num_FibonacciQword(int n);
QELMATH_API double num_FibonacciDouble(int n);
/* Permutations of m out of n; m < 0 gives 0. */
QELMATH_API std::uint32_t num_PermutationDword(int n, int m);
QELMATH_API std::uint64_t num_PermutationQword(int n, int m);
QELMATH_API double num_PermutationDouble(int n, int m);
/* Circular permutations of m out of n; m < 0 gives 0, and m = 0 gives 0 in
 * the integer forms. */
QELMATH_API std::uint32_t num_QPermutationDword(int n, int m);
QELMATH_API std::uint64_t num_QPermutationQword(int n, int m);
QELMATH_API double num_QPermutationDouble(int n, int m);
/* Combinations of m out of n; m < 0 gives 0. */
QELMATH_API std::uint32_t num_CombinationDword(int n, int m);
QELMATH_API std::uint64_t num_CombinationQword(int n, int m);
QELMATH_API double num_CombinationDouble(int n, int m);

/* ---------------------------------------------------------------------------
 * Numerical analysis
 * ------------------------------------------------------------------------- */

/* Integral of f over [a, b] to accuracy eps by Chebyshev, Gauss-Legendre,
 * Romberg and Simpson rules; a NaN eps gives 0. */
QELMATH_API double int_Chebyshev(double (*f)(double), double a, double b, double eps);
QELMATH_API double int_Gauss(double (*f)(double), double a, double b, double eps);
QELMATH_API double int_Romberg(double (*f)(double), double a, double b, double eps);
QELMATH_API double int_Simpson(double (*f)(double), double a, double b, double eps);
/* Root of f in [a, b] by the chord method, at most maxIter steps; 1 when a
 * root was found and written to *x. */
QELMATH_API int solve_Chord(double (*f)(double), double a, double b, double eps, double* x, int maxIter);
/* Real roots of a x^2 + b x + c = 0 written to roots; returns their count. */
QELMATH_API int solve_Equation(double a, double b, double c, double* roots);
/* Polynomial with coefficients k[0..n] at x. */
QELMATH_API double math_Polynomial(double* k, int n, double x);

/* ---------------------------------------------------------------------------
 * Linear systems
 *
 * Solutions overwrite the right-hand side; the general solvers use a as work
 * space. Results: 1 solved, 0 singular (or a failed scratch request).
 * ------------------------------------------------------------------------- */

/* n x n real system by Gaussian elimination with full pivoting. */
QELMATH_API int linear_Gauss(double* a, double* b, int n);
/* 2, 3 and 4 unknowns in closed form; a is not changed, b only on success. */
QELMATH_API int linear_Gauss2(double* a, double* b);
QELMATH_API int linear_Gauss3(double* a, double* b);
QELMATH_API int linear_Gauss4(double* a, double* b);
/* n x n complex system (real and imaginary parts apart). */
QELMATH_API int linear_Gauss(double* ar, double* ai, int n, double* br, double* bi);
/* Gauss-Jordan with full pivoting, m right-hand sides (b is n x m). */
QELMATH_API int linear_GaussJordan(double* a, double* b, int n, int m);
QELMATH_API int linear_GaussJordan(double* ar, double* ai, double* br, double* bi, int n, int m);
/* Band system of half width h in packed storage, m right-hand sides;
 * 2 solved, 0 singular. */
QELMATH_API int linear_GaussBand(double* a, double* b, int n, int h, int m);
/* Tridiagonal system in packed storage; 2 solved, 0 singular. */
QELMATH_API int linear_TrianglePullup(double* a, int n, double* b);
/* Gauss-Seidel iteration into x to accuracy eps: 1 converged, -1 not strictly
 * diagonally dominant, 0 no convergence within 10,000 sweeps. */
QELMATH_API int linear_GaussSeidel(double* a, double* b, int n, double* x, double eps);
/* Gauss-Jordan that skips negligible entries. */
QELMATH_API int linear_SparsenessGaussJordan(double* a, int n, double* b);

/* ---------------------------------------------------------------------------
 * Matrix algebra
 * ------------------------------------------------------------------------- */

/* c = a + b and c = a - b over m*n elements; integers wrap around. */
QELMATH_API void mt_Add(const int* a, const int* b, int m, int n, int* c);
QELMATH_API void mt_Add(const double* a, const double* b, int m, int n, double* c);
QELMATH_API void mt_Add(const double* ar, const double* ai, const double* br, const double* bi, int m, int n, double* cr, double* ci);
QELMATH_API void mt_Sub(const int* a, const int* b, int m, int n, int* c);
QELMATH_API void mt_Sub(const double* a, const double* b, int m, int n, double* c);
QELMATH_API void mt_Sub(const double* ar, const double* ai, const double* br, const double* bi, int m, int n, double* cr, double* ci);
/* c (m x k) = a (m x n) . b (n x k). */
QELMATH_API void mt_Mul(const int* a, const int* b, int m, int n, int k, int* c);
QELMATH_API void mt_Mul(const double* a, const double* b, int m, int n, int k, double* c);
QELMATH_API void mt_Mul(const double* ar, const double* ai, const double* br, const double* bi, int m, int n, int k, double* cr, double* ci);
/* Fixed-size products: outer (n x 1 times 1 x n), inner, and rows times
 * 2x2, 3x3, 4x4 matrices. */
QELMATH_API void mt_MulN1x1N(const double* a, int n, const double* b, double* c);
QELMATH_API void mt_Mul1NxN1(const double* a, int n, const double* b, double* c);
QELMATH_API void mt_Mul12x22(const double* a, const double* b, double* c);
QELMATH_API void mt_Mul22x22(const double* a, const double* b, double* c);
QELMATH_API void mt_MulN2x22(const double* a, int n, const double* b, double* c);
QELMATH_API void mt_Mul13x33(const double* a, const double* b, double* c);
QELMATH_API void mt_Mul23x33(const double* a, const double* b, double* c);
QELMATH_API void mt_Mul33x33(const double* a, const double* b, double* c);
QELMATH_API void mt_MulN3x33(const double* a, int n, const double* b, double* c);
QELMATH_API void mt_Mul14x44(const double* a, const double* b, double* c);
QELMATH_API void mt_Mul24x44(const double* a, const double* b, double* c);
QELMATH_API void mt_Mul34x44(const double* a, const double* b, double* c);
QELMATH_API void mt_Mul44x44(const double* a, const double* b, double* c);
QELMATH_API void mt_MulN4x44(const double* a, int n, const double* b, double* c);
/* Determinant by full pivoting (a is destroyed; +0.0 when singular) and in
 * closed form for orders 2 to 4. */
QELMATH_API double mt_Det(double* a, int n);
QELMATH_API double mt_Det2(const double* a);
QELMATH_API double mt_Det3(const double* a);
QELMATH_API double mt_Det4(const double* a);
/* In-place inverse: 1 inverted, 0 singular. */
QELMATH_API int mt_Inv(double* a, int n);
QELMATH_API int mt_Inv(double* ar, double* ai, int n);
QELMATH_API int mt_Inv2(double* a);
QELMATH_API int mt_Inv3(double* a);
QELMATH_API int mt_Inv4(double* a);

/* ---------------------------------------------------------------------------
 * Plane and space geometry
 * ------------------------------------------------------------------------- */

/* Classifies p against the line through a and b, in space: 1 p is a, 2 p is b
 * (point tolerance), -3 a and b coincide, 0 on the segment, -1 beyond a,
 * -2 beyond b (triangle-inequality defect of the distances within the double
 * tolerance, absolute, not scaled by |ab|), 3 off the line. */
QELMATH_API int PointIsOnLine(double* const a, double* const b, double* const p);
/* Implicit form a*x + b*y + c = 0 of the line through a and b, unscaled, into
 * coef[0..2] (always written); positive right of a->b. 1, or 0 when a and b
 * coincide in the plane (squared length within the double tolerance). */
QELMATH_API int NormalizeLine(double* const a, double* const b, double* const coef);
/* Distance from p to the infinite line through a and b in the plane. A line
 * whose squared length is within the double tolerance counts as the point a. */
QELMATH_API double DistPoint2Line2d(double* const p, double* const a, double* const b);
/* Distance from p to the infinite line through a and b in space (Heron).
 * |ab| within the double tolerance gives |pa|; a point on the line gives 0,
 * never NaN. */
QELMATH_API double DistPoint2Line(double* const p, double* const a, double* const b);
/* Arc from two end points and a bulge (tan of a quarter of the included
 * angle; positive counter-clockwise), reported counter-clockwise from start
 * to end, angles in [0, 2pi): 0 done; 1 bulge zero (double tolerance);
 * -2 end points at different heights; -1 end points coincide in the plane.
 * Nothing is written unless the result is 0. centre.z is the mean height. */
QELMATH_API int Bulge2Arc(double* const p1, double* const p2, double bulge, double* const centre, double* radius, double* start, double* end);
/* Arc from p1 through p2 to p3, reported counter-clockwise (reversed when the
 * three run clockwise), angles in [0, 2pi). The centre is computed (never
 * read); centre.z = p2.z on every path. 0 done (centre, radius, start, end);
 * -2 p1 and p3 coincide in the plane: the circle on the diameter p1 p2
 * (centre x, y and radius, no angles); -1 all coincide, collinear, or p2 on
 * an end point (only centre.z). */
QELMATH_API int ThreePoints2Arc(double* const p1, double* const p2, double* const p3, double* const centre, double* radius, double* start, double* end);
/* 0 when the space distance from centre to p equals r by the double
 * tolerance (relative to r), -2 inside, -1 outside. */
QELMATH_API int PointIsOnCircle(double* const centre, double r, double* const p);
/* Circumscribed circle in the plane: writes centre x, y (z untouched) and
 * returns the radius. Collinear or coincident points (determinant within the
 * double tolerance): the bounding box's centre and its full diagonal. */
QELMATH_API double TriangleCircumCircle(double* const p1, double* const p2, double* const p3, double* const centre);
/* p against the triangle p1 p2 p3 in the plane: 1 inside, 0 within the double
 * tolerance (squared distance) of a vertex, -1 outside. A point exactly on
 * an edge gets the result the rounding of its angle sum gives. */
QELMATH_API int PointIsInTriangle(double* const p1, double* const p2, double* const p3, double* const p);
/* |p1p2| + |p2p3| in space: two sides, the closing side is not added. */
QELMATH_API double TranglePerimeter(double* const p1, double* const p2, double* const p3);
/* Area of the triangle in space: half the length of (p2-p1) x (p3-p1). */
QELMATH_API double TrangleArea(double* const p1, double* const p2, double* const p3);
/* Inscribed circle in the plane: centre x, y (z untouched) and the radius
 * |(p2-p1) x (p3-p1)| / perimeter. Perimeter within the double tolerance:
 * centre p1, radius 0. */
QELMATH_API double TriangleInscribedCircle(double* const p1, double* const p2, double* const p3, double* const centre);
/* Smallest circle enclosing n plane points (x, y pairs): centre[0..1] and
 * radius. n <= 0 writes nothing; 1 the point, radius 0; 2 the midpoint, half
 * the distance. For n >= 3 pts is reordered (four extreme points first) and
 * the result is that of an exhaustive search over pair and triple circles of
 * the points not inside a triangle of others; a point counts as outside a
 * circle only beyond r^2 (1 + 1e-12). Takes 2n doubles, then n 32-bit ints,
 * from mem_malloc; if either request fails nothing is written. Scattered
 * points are quick (3000 in a disc: milliseconds); points on one circle cost
 * of the order of n^3 (a quarter of a second at n = 1000). */
QELMATH_API void MinimumRadiusCircleFromPoints(double* pts, int n, double* centre, double* radius);

/* ---------------------------------------------------------------------------
 * Polygon clipping
 * ------------------------------------------------------------------------- */

/* Clips the integer polygon pts (n x, y pairs) against the rectangle
 * (x1, y1)-(x2, y2). Returns the number of contours and hands the caller two
 * arrays from mem_malloc (points, and one point count per contour), which the
 * caller gives back with mem_free; -1, -2, -3 for no result. */
QELMATH_API int ClipPolygonWithRect(int x1, int y1, int x2, int y2, int* pts, int n, int** outPts, int** outCounts);

/* ---------------------------------------------------------------------------
 * Transformation matrices. A point is a row vector: p' = (x, y, 1) . T or
 * (x, y, z, 1) . T; translations stand in the last row.
 * ------------------------------------------------------------------------- */

QELMATH_API void TransMatrixMirror2D(double a, double b, double c, double (* const T)[3]);
QELMATH_API void TransMatrixTanX2D(double t, double (* const T)[3]);
QELMATH_API void TransMatrixTanY2D(double t, double (* const T)[3]);
QELMATH_API void TransMatrixCoordMapToGDI(int x0, int y0, double sx, double sy, double (* const T)[3]);
QELMATH_API void TransMatrixCoordMapToView(int x0, int y0, double sx, double sy, double (* const T)[3]);

QELMATH_API void TransMatrixScale3D(double sx, double sy, double sz, double (* const T)[4]);
QELMATH_API void TransMatrixTanXY3D(double t, double (* const T)[4]);
QELMATH_API void TransMatrixTanXZ3D(double t, double (* const T)[4]);
QELMATH_API void TransMatrixTanYX3D(double t, double (* const T)[4]);
QELMATH_API void TransMatrixTanYZ3D(double t, double (* const T)[4]);
QELMATH_API void TransMatrixTanZX3D(double t, double (* const T)[4]);
/* The identity with T[2][1] = t: y' = y + t*z. */
QELMATH_API void TransMatrixTanZY3D(double t, double (* const T)[4]);
QELMATH_API void TransMatrixMirror3DXY(double (* const T)[4]);
QELMATH_API void TransMatrixMirror3DXZ(double (* const T)[4]);
QELMATH_API void TransMatrixMirror3DYZ(double (* const T)[4]);
QELMATH_API void TransMatrixMove3D(double dx, double dy, double dz, double (* const T)[4]);
QELMATH_API void TransMatrixRotate3DX(double theta, double (* const T)[4]);
QELMATH_API void TransMatrixRotate3DY(double theta, double (* const T)[4]);
QELMATH_API void TransMatrixRotate3DZ(double theta, double (* const T)[4]);
QELMATH_API void TransMatrixRotate3DO(double ux, double uy, double uz, double theta, double (* const T)[4]);

QELMATH_API void TransMatrixViewV(double (* const T)[4]);
QELMATH_API void TransMatrixViewH(double d, double (* const T)[4]);
QELMATH_API void TransMatrixViewW(double d, double (* const T)[4]);
QELMATH_API void TransMatrixAxisView(double alpha, double beta, double (* const T)[4]);
QELMATH_API void TransMatrixAxisViewPE(double (* const T)[4]);
QELMATH_API void TransMatrixAxisViewP2(double (* const T)[4]);
QELMATH_API void TransMatrixAxisViewL(double a, double b, double (* const T)[4]);
QELMATH_API void TransMatrixAxisViewL2(double (* const T)[4]);
QELMATH_API void TransMatrixPerspective1(double dx, double dz, double dy, double q, double (* const T)[4]);
QELMATH_API void TransMatrixPerspective2(double dx, double dz, double dy, double q, double theta, double (* const T)[4]);
QELMATH_API void TransMatrixPerspective3(double dx, double dz, double dy, double q, double theta, double phi, double (* const T)[4]);
/* Write three entries only; the other thirteen keep their values. */
QELMATH_API void TransMatrixPerspective2(double dx, double dz, double dy, double q, double (* const T)[4]);
QELMATH_API void TransMatrixPerspective3(double dx, double dz, double dy, double q, double (* const T)[4]);

#endif

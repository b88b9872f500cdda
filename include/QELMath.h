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

/* The library's version, semantic: the major number changes with any
 * incompatible change of a declaration, the shared library's name with it.
 * Macros only, nothing is exported for them; the build reads its version
 * from here. */
#define QELMATH_VERSION_MAJOR 1
#define QELMATH_VERSION_MINOR 1
#define QELMATH_VERSION_PATCH 0

#include <cstdint>

#include "QELMemory.h"

#if defined(_WIN32)
/* The DLL's exports come from its generated export list (MSVC names), so
 * the definitions carry no dllexport of their own. */
#  if defined(QELMATH_BUILDING) || defined(QELMATH_STATIC)
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

/* 1 when n is prime, else 0, exact for every 32-bit n (0 and 1 are not
 * prime). */
QELMATH_API int num_IsPrime(std::uint32_t n);
/* Greatest common divisor by Euclid's remainders; (0, b) gives b, (a, 0)
 * gives a, so (0, 0) gives 0. */
QELMATH_API std::uint32_t num_CommonDivisor32(std::uint32_t a, std::uint32_t b);
QELMATH_API std::uint64_t num_CommonDivisor64(std::uint64_t a, std::uint64_t b);
/* n! from the built-in table: exact for n <= 12 (Dword) and n <= 20 (Qword);
 * the Double form serves n <= 170, from 21 on as the running product in
 * doubles rounded at every step. Out of range (n < 0 included): 1. */
QELMATH_API std::uint32_t num_FactorialDword(int n);
QELMATH_API std::uint64_t num_FactorialQword(int n);
QELMATH_API double num_FactorialDouble(int n);
/* Entry n of the Fibonacci table, F(n + 1) with F(1) = F(2) = 1 (1, 1, 2,
 * 3, 5, ... for n = 0, 1, 2, ...): exact for n <= 46 (Dword) and n <= 92
 * (Qword); the Double form serves n <= 1475, the exact entries rounded to
 * double and then the recurrence continued in doubles. Out of range (n < 0
 * included): 0. */
QELMATH_API std::uint32_t num_FibonacciDword(int n);
QELMATH_API std::uint64_t num_FibonacciQword(int n);
QELMATH_API double num_FibonacciDouble(int n);
/* n (n-1) ... (n-m+1), each factor a signed 32-bit value: modulo 2^32,
 * modulo 2^64 (factors sign-extended) or in doubles rounded at every step,
 * with no overflow check. m = 0 gives 1; m > n >= 0 gives 0 (-0.0 in
 * doubles after an odd count of negative factors); m < 0 gives 0. */
QELMATH_API std::uint32_t num_PermutationDword(int n, int m);
QELMATH_API std::uint64_t num_PermutationQword(int n, int m);
QELMATH_API double num_PermutationDouble(int n, int m);
/* Circular permutations: the permutation count of the same width divided by
 * m, truncated in the integer forms. m < 0 gives 0; m = 0 gives 0 in the
 * integer forms and +infinity in the Double form. */
QELMATH_API std::uint32_t num_QPermutationDword(int n, int m);
QELMATH_API std::uint64_t num_QPermutationQword(int n, int m);
QELMATH_API double num_QPermutationDouble(int n, int m);
/* Combinations: the permutation count of the same width divided by m! from
 * the factorial table of that width, or by 1 when m! is beyond it (m > 12,
 * 20, 170). The integer forms are exact only while the permutation count
 * fits: C(20, 10) is 117 in 32 bits. m < 0 gives 0. */
QELMATH_API std::uint32_t num_CombinationDword(int n, int m);
QELMATH_API std::uint64_t num_CombinationQword(int n, int m);
QELMATH_API double num_CombinationDouble(int n, int m);

/* ---------------------------------------------------------------------------
 * Numerical analysis
 *
 * No memory, no state; f is called on the caller's thread. b < a integrates
 * backwards (the result changes sign). A NaN eps makes every integration
 * routine return 0: int_Chebyshev and int_Gauss without calling f,
 * int_Romberg and int_Simpson after calling f(a) and then f(b).
 * ------------------------------------------------------------------------- */

/* Five-point Chebyshev (equal weights) and Gauss-Legendre rules on 1, 2, 3,
 * ... equal panels until two passes agree: |I - previous| / (|I| + 1) < eps.
 * They stop with the last estimate when the step reaches |b - a| / 1000
 * (999 panels, at most 2,497,500 values of f); a = b gives 0 without calling
 * f, a NaN end gives NaN without calling f. The stored nodes and weights
 * carry 7 and 10 digits: the Gauss weights sum to 2.0000000001, so a
 * constant 3 over [1, 4] gives 9.00000000045. */
QELMATH_API double int_Chebyshev(double (*f)(double), double a, double b, double eps);
QELMATH_API double int_Gauss(double (*f)(double), double a, double b, double eps);
/* Romberg: trapezoid halving with Richardson extrapolation, at most 9 levels
 * (513 values of f); stops when the last extrapolation step moved the value
 * by less than eps (absolute) and otherwise returns the level-9 value. */
QELMATH_API double int_Romberg(double (*f)(double), double a, double b, double eps);
/* Simpson values from trapezoid halving until two successive values differ
 * by less than eps (absolute); after 20 halvings (2^20 panels, 1,048,577
 * values of f) it returns the latest value, so eps <= 0 ends there. */
QELMATH_API double int_Simpson(double (*f)(double), double a, double b, double eps);
/* Root of f in [a, b] by the chord method (regula falsi), at most maxIter
 * steps. Returns 1 when |f| <= 2^-52 at an end or a chord point, or when a
 * step moves the point by at most eps; *x then holds the root. Returns 0
 * without writing *x when f(a) and f(b) have one sign, and 0 with the last
 * chord point in *x when maxIter steps pass. f is called at most maxIter + 2
 * times. */
QELMATH_API int solve_Chord(double (*f)(double), double a, double b, double eps, double* x, int maxIter);
/* Real roots of a x^2 + b x + c = 0, thresholds absolute at 2^-52: |a| <=
 * 2^-52 solves b x + c = 0 (0 roots when |b| <= 2^-52 too); a discriminant
 * in [0, 2^-52] gives the double root. Returns the number of roots written
 * to roots[0..1]: 0 writes nothing, 1 writes roots[0] only. */
QELMATH_API int solve_Equation(double a, double b, double c, double* roots);
/* k[0] + k[1] x + ... + k[n-1] x^(n-1) by Horner's scheme from k[n-1] down;
 * n <= 0 gives 0. */
QELMATH_API double math_Polynomial(double* k, int n, double x);

/* ---------------------------------------------------------------------------
 * Linear systems
 *
 * Matrices are row-major (element (i, j) of an n x n matrix at i*n + j);
 * complex ones come as two arrays, real parts first. Solutions overwrite the
 * right-hand side; the elimination solvers use the matrix as work space.
 * Singularity is judged against the fixed pivot threshold 2^-52
 * (2.220446049250313e-16), for complex pivots against their squared modulus;
 * a pivot of magnitude equal to the threshold is singular. Results are the
 * same bits on every CPU and vector width. After a result of 0 from a
 * singular system, arrays the solver works in hold partially reduced values.
 * A negative order, half width or right-hand-side count returns 0 and touches
 * nothing.
 * ------------------------------------------------------------------------- */

/* Result codes of the solvers and inversions, by name. The elimination
 * solvers and mt_Inv* give QEL_SOLVED or QEL_SINGULAR (a failed scratch
 * request gives QEL_SINGULAR too); the band and tridiagonal solvers give
 * QEL_SOLVED_BAND or QEL_SINGULAR; linear_GaussSeidel gives a
 * QELIterationResult. The functions return int, as declared. */
enum QELSolveResult { QEL_SINGULAR = 0, QEL_SOLVED = 1, QEL_SOLVED_BAND = 2 };
enum QELIterationResult { QEL_NOT_DOMINANT = -1, QEL_NO_CONVERGENCE = 0, QEL_CONVERGED = 1 };

/* n x n real system by Gaussian elimination with full pivoting; b receives x.
 * 1 solved; 0 singular, or the scratch request (4n bytes through mem_malloc)
 * failed, in which case a and b are untouched. n = 0 returns 1. */
QELMATH_API int linear_Gauss(double* a, double* b, int n);
/* 2, 3 and 4 unknowns in closed form (Cramer's rule); no memory is taken and
 * a is never changed. 1 with x in b; 0 singular with b unchanged. Where the
 * closed form of 3 or 4 unknowns cannot finish (no pair of equations with a
 * usable minor; singular combined equations, as for the identity), the
 * system is solved by full-pivoting elimination on a copy instead. */
QELMATH_API int linear_Gauss2(double* a, double* b);
QELMATH_API int linear_Gauss3(double* a, double* b);
QELMATH_API int linear_Gauss4(double* a, double* b);
/* n x n complex system by Gaussian elimination with full pivoting; br, bi
 * receive x. Results and scratch as for the real overload. */
QELMATH_API int linear_Gauss(double* ar, double* ai, int n, double* br, double* bi);
/* Gauss-Jordan with full pivoting, m right-hand sides: b is n x m row-major,
 * one right-hand side per column, and receives X. 1 solved; 0 singular or
 * failed scratch request (4n bytes; a and b untouched then). n = 0 returns
 * 1 touching nothing; m = 0 reduces a and never writes b. */
QELMATH_API int linear_GaussJordan(double* a, double* b, int n, int m);
QELMATH_API int linear_GaussJordan(double* ar, double* ai, double* br, double* bi, int n, int m);
/* Band system of half width h in packed rows of 2h + 1 doubles (row i
 * left-justified from column max(0, i - h)), m right-hand sides (b n x m),
 * by elimination with partial pivoting inside the band. 2 solved, 0 singular.
 * No memory is taken. n = 0 returns 2; h >= n is allowed. */
QELMATH_API int linear_GaussBand(double* a, double* b, int n, int h, int m);
/* Tridiagonal system packed row by row in 3n - 2 doubles (a00, a01, a10,
 * a11, a12, ...), Thomas algorithm without pivoting: 2 solved, 0 when a
 * reduced diagonal entry is negligible (even if the matrix is regular). The
 * array keeps the normalised super-diagonal and reduced diagonal. n = 0
 * returns 2. */
QELMATH_API int linear_TrianglePullup(double* a, int n, double* b);
/* Gauss-Seidel iteration from x = 0 into x; a and b are not changed.
 * 1 converged: a sweep's largest change |new - old| / (1 + |new|) fell below
 * eps, or a sweep changed nothing; -1 not strictly diagonally dominant (x
 * zeroed up to the failing row); 0 no convergence within 10,000 sweeps, x
 * holding the last sweep. */
QELMATH_API int linear_GaussSeidel(double* a, double* b, int n, double* x, double eps);
/* Gauss-Jordan with full pivoting for one right-hand side that treats entries
 * of magnitude <= 2^-52 as zero, skipping their divisions and updates.
 * Results and scratch as for linear_GaussJordan; n = 0 returns 1. */
QELMATH_API int linear_SparsenessGaussJordan(double* a, int n, double* b);

/* ---------------------------------------------------------------------------
 * Matrix algebra
 * ------------------------------------------------------------------------- */

/* c = a + b and c = a - b, element by element over count = m*n elements
 * (the 32-bit wrap-around product; a count of zero or less writes nothing).
 * Integers wrap around in 32 bits. c may be the very same array as a or b.
 * The complex overloads do the real parts, then the imaginary parts: cr may
 * be ar or br, ci may be ai, bi, ar or br. */
QELMATH_API void mt_Add(const int* a, const int* b, int m, int n, int* c);
QELMATH_API void mt_Add(const double* a, const double* b, int m, int n, double* c);
QELMATH_API void mt_Add(const double* ar, const double* ai, const double* br, const double* bi, int m, int n, double* cr, double* ci);
QELMATH_API void mt_Sub(const int* a, const int* b, int m, int n, int* c);
QELMATH_API void mt_Sub(const double* a, const double* b, int m, int n, double* c);
QELMATH_API void mt_Sub(const double* ar, const double* ai, const double* br, const double* bi, int m, int n, double* cr, double* ci);
/* c (m x k) = a (m x n) . b (n x k), all m*k elements written; c must not
 * overlap an operand. Negative sizes write nothing and take no memory.
 * Integer: 32-bit wrap-around. Real: Winograd's inner-product scheme with one
 * row factor per row of a and one column factor per column of b (scratch
 * blocks of 8m then 8k bytes; should they not be had, the same bits are
 * computed without them); sums over index pairs in blocks of four, the
 * remainder after the last block, the odd-n term last; n = 0 gives -0.0.
 * Complex: three real multiplications per term, blocks of four; n = 0 gives
 * zeros. Results are the same bits on every CPU and vector unit. */
QELMATH_API void mt_Mul(const int* a, const int* b, int m, int n, int k, int* c);
QELMATH_API void mt_Mul(const double* a, const double* b, int m, int n, int k, double* c);
QELMATH_API void mt_Mul(const double* ar, const double* ai, const double* br, const double* bi, int m, int n, int k, double* cr, double* ci);
/* Fixed-size products, a row p times a matrix M as p . M: outer (n x 1 times
 * 1 x n; nothing for n <= 0), inner (c[0] = sum a[l] b[l] in blocks of four;
 * +0.0 for n <= 0), and 1, 2, 3, 4 or n rows times 2x2, 3x3, 4x4 matrices,
 * each element summed over the inner index left to right. The N members
 * touch rows 0 .. n-1 only (nothing for n <= 0). c must not overlap a or b. */
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
/* Determinant by Gaussian elimination with full pivoting, in place (a is
 * destroyed). +0.0 when a step's largest remaining magnitude is below
 * 2.220446049250313e-16 (the bound itself passes). n = 1 returns a[0];
 * n = 0 returns 1.0; n < 0 returns 0.0. No memory is taken.
 * Closed forms of orders 2, 3, 4: only read their argument, no threshold. */
QELMATH_API double mt_Det(double* a, int n);
QELMATH_API double mt_Det2(const double* a);
QELMATH_API double mt_Det3(const double* a);
QELMATH_API double mt_Det4(const double* a);
/* In-place inverse: 1 inverted, 0 singular.
 * General (real, complex): Gauss-Jordan with full pivoting; singular when the
 * largest remaining magnitude is <= 2.220446049250313e-16 (real) or the
 * largest squared modulus is < 2.220446049250313e-16 (complex); the matrix is
 * then left partly eliminated. Takes one block of 2n ints; when it cannot be
 * had the result is 0 and the matrix is untouched. n = 0 returns 1 (an empty
 * block is taken and given back); n < 0 returns 1 and takes nothing.
 * Orders 2, 3, 4: adjugate over determinant; singular when |det| <=
 * 2.220446049250313e-16, with the matrix unchanged; no memory. */
QELMATH_API int mt_Inv(double* a, int n);
QELMATH_API int mt_Inv(double* ar, double* ai, int n);
QELMATH_API int mt_Inv2(double* a);
QELMATH_API int mt_Inv3(double* a);
QELMATH_API int mt_Inv4(double* a);

/* ---------------------------------------------------------------------------
 * Plane and space geometry
 * ------------------------------------------------------------------------- */

/* Result codes of the geometry classifiers, by name (the functions return
 * int): where PointIsOnLine finds p, why Bulge2Arc and ThreePoints2Arc give
 * no arc, and on which side of a circle or triangle a point lies. */
enum QELLinePosition {
    QEL_LINE_DEGENERATE = -3, QEL_BEYOND_B = -2, QEL_BEYOND_A = -1, QEL_ON_SEGMENT = 0,
    QEL_AT_A = 1, QEL_AT_B = 2, QEL_OFF_LINE = 3
};
enum QELBulgeArcResult {
    QEL_BULGE_ARC_DONE = 0, QEL_BULGE_ZERO = 1, QEL_BULGE_ENDS_COINCIDE = -1, QEL_BULGE_HEIGHTS_DIFFER = -2
};
enum QELThreePointArcResult { QEL_ARC_DONE = 0, QEL_ARC_DEGENERATE = -1, QEL_ARC_DIAMETER_CIRCLE = -2 };
enum QELCircleSide { QEL_ON_CIRCLE = 0, QEL_OUTSIDE_CIRCLE = -1, QEL_INSIDE_CIRCLE = -2 };
enum QELTriangleSide { QEL_OUTSIDE_TRIANGLE = -1, QEL_AT_VERTEX = 0, QEL_INSIDE_TRIANGLE = 1 };

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

/* ClipPolygonWithRect's results when no contour is written (otherwise it
 * returns the number of contours, at least 1). */
enum QELClipResult { QEL_CLIP_NOTHING = -1, QEL_CLIP_POLYGON_INSIDE = -2, QEL_CLIP_RECT_INSIDE = -3 };

/* Clips the integer polygon pts (n x, y pairs, implicitly closed) against the
 * rectangle [x1, x2] x [y1, y2].
 * Input: any int coordinates; what is said below holds for coordinates up to
 * 2^25 (about 3.4e7) in magnitude, where the cross products of coordinate
 * differences are exact in doubles. Beyond that a crossing of an edge nearly
 * parallel to a side can come out farther from its true place than the
 * 0.001 that merges points (rect (-901100982, -903591350, -634893696,
 * 4868682) and the polygon (-901100982, -903198134) (-901100982, -901087104)
 * (16721994, 8407626) (-901110692, 656910847) give a thin extra contour
 * along the side), and toward the int range a crossing on a side can be
 * lost. The polygon may run either way, repeat its
 * first point at the end and touch itself; points closer than 0.001 are one
 * point.
 * Returns k >= 1, the number of closed contours, each counter-clockwise (y up,
 * positive area before rounding) with its vertices listed once; *outPts
 * receives 2m ints (the contours' x, y pairs one contour after another, m
 * vertices in all) and *outCounts k ints (the vertex count of each contour).
 * Both arrays come from mem_malloc and belong to the caller, who gives them
 * back with mem_free. Pieces of the intersection that touch only at a point
 * (say at a polygon vertex on a side) come out as separate contours.
 * Whether a point lies inside is decided exactly for integer points; crossing
 * points are computed in doubles and rounded to floor(v + 0.5), so a contour's
 * area differs from the exact piece's by at most about half its perimeter
 * (|dx| + |dy| summed) plus a quarter per vertex. Rounding can collapse a thin
 * piece and repeat a vertex: rect (-5, -5, 35, 18) and the polygon (0, 0)
 * (33554462, 33686018) (33686018, 33686018) give (0, 0) (18, 18) (18, 18). A
 * closed chain of fewer than three points or of zero area (before rounding)
 * is no contour, so a sliver thinner than 0.001, whose points merge, can vanish.
 *   -1  nothing of the polygon lies inside the rectangle (a bounding box that
 *       only touches it counts as disjoint), no closed contour could be
 *       formed, n <= 0, x1 >= x2 or y1 >= y2, or memory ran out;
 *   -2  the polygon lies inside the rectangle and needs no clipping;
 *   -3  the rectangle lies inside the polygon (fallback when no edge remains).
 * On every negative result *outPts and *outCounts are not written and every
 * block taken has been given back. The cost grows about linearly with n. */
QELMATH_API int ClipPolygonWithRect(int x1, int y1, int x2, int y2, int* pts, int n, int** outPts, int** outCounts);

/* ---------------------------------------------------------------------------
 * Transformation matrices. A point is a row vector: p' = (x, y, 1) . T or
 * (x, y, z, 1) . T; translations stand in the last row, projective terms in
 * the last column. Every builder overwrites the whole matrix (entries it does
 * not name are +0.0, whatever the array held) except the four-number
 * perspective overloads. Named entries keep the sign of zero their formula
 * gives. Angles are radians; nothing is validated and nothing can fail.
 * ------------------------------------------------------------------------- */

/* Mirror in the line a*x + b*y + c = 0 (need not be normalised). With
 * k = 1/(a*a + b*b): T[0][0] = (b - a)*(a + b)*k = -T[1][1],
 * T[0][1] = T[1][0] = -(2*a*b)*k, T[2][0] = -(2*a*c)*k, T[2][1] = -(2*b*c)*k,
 * T[2][2] = 1. a = b = 0 gives non-finite entries. */
QELMATH_API void TransMatrixMirror2D(double a, double b, double c, double (* const T)[3]);
/* Shear x' = x + t*y (T[1][0] = t); TanY2D: y' = y + t*x (T[0][1] = t). */
QELMATH_API void TransMatrixTanX2D(double t, double (* const T)[3]);
QELMATH_API void TransMatrixTanY2D(double t, double (* const T)[3]);
/* Model to device (y down): X = x*(1/sx) + x0, Y = y*(-1/sy) + y0; sx, sy are
 * model units per device unit. */
QELMATH_API void TransMatrixCoordMapToGDI(int x0, int y0, double sx, double sy, double (* const T)[3]);
/* Device back to model: x = X*sx + (-x0)*sx, y = Y*(-sy) + y0*sy, x0 negated
 * without overflow (INT_MIN gives 2147483648.0*sx). */
QELMATH_API void TransMatrixCoordMapToView(int x0, int y0, double sx, double sy, double (* const T)[3]);

/* Scale, shears, mirrors in the coordinate planes and translation. TanAB
 * adds t times one coordinate to another: TanXY x' = x + t*y, TanXZ
 * x' = x + t*z, TanYX y' = y + t*x, TanYZ z' = z + t*y, TanZX z' = z + t*x. */
QELMATH_API void TransMatrixScale3D(double sx, double sy, double sz, double (* const T)[4]);
QELMATH_API void TransMatrixTanXY3D(double t, double (* const T)[4]);
QELMATH_API void TransMatrixTanXZ3D(double t, double (* const T)[4]);
QELMATH_API void TransMatrixTanYX3D(double t, double (* const T)[4]);
QELMATH_API void TransMatrixTanYZ3D(double t, double (* const T)[4]);
QELMATH_API void TransMatrixTanZX3D(double t, double (* const T)[4]);
/* The identity with T[2][1] = t: y' = y + t*z, the one off-diagonal entry of
 * the linear block that no other shear sets. */
QELMATH_API void TransMatrixTanZY3D(double t, double (* const T)[4]);
QELMATH_API void TransMatrixMirror3DXY(double (* const T)[4]);
QELMATH_API void TransMatrixMirror3DXZ(double (* const T)[4]);
QELMATH_API void TransMatrixMirror3DYZ(double (* const T)[4]);
QELMATH_API void TransMatrixMove3D(double dx, double dy, double dz, double (* const T)[4]);
/* Rotations counter-clockwise seen from the positive end of the axis:
 * Rotate3DZ(pi/2) takes (1, 0, 0) to (0, 1, 0). */
QELMATH_API void TransMatrixRotate3DX(double theta, double (* const T)[4]);
QELMATH_API void TransMatrixRotate3DY(double theta, double (* const T)[4]);
QELMATH_API void TransMatrixRotate3DZ(double theta, double (* const T)[4]);
/* Rotation about the axis (ux, uy, uz) through the origin, which must be a
 * unit vector (it is not normalised). Products left to right: ux*uy*k is
 * (ux*uy)*k with k = 1 - cos theta. */
QELMATH_API void TransMatrixRotate3DO(double ux, double uy, double uz, double theta, double (* const T)[4]);

/* Views and projections onto the plane y = 0: drawing coordinates are x'
 * across and z' up, divided by w' for the perspectives.
 * ViewV: front view (x, 0, z); ViewH: top view (x, 0, -y - d); ViewW: side
 * view (-y - d, 0, z). */
QELMATH_API void TransMatrixViewV(double (* const T)[4]);
QELMATH_API void TransMatrixViewH(double d, double (* const T)[4]);
QELMATH_API void TransMatrixViewW(double d, double (* const T)[4]);
/* Axonometric view: Rotate3DZ(alpha) . Rotate3DX(-beta) with column 1
 * cleared. PE (isometric) and P2 (dimetric) hold fixed three-decimal
 * coefficients: 0.707, -0.408, 0.816 and 0.935, -0.118, -0.354, -0.312,
 * 0.943. */
QELMATH_API void TransMatrixAxisView(double alpha, double beta, double (* const T)[4]);
QELMATH_API void TransMatrixAxisViewPE(double (* const T)[4]);
QELMATH_API void TransMatrixAxisViewP2(double (* const T)[4]);
/* Oblique view drawing the y axis along (a, b): (x + a*y, 0, z + b*y); L2 is
 * the cabinet view a = b = -0.354. */
QELMATH_API void TransMatrixAxisViewL(double a, double b, double (* const T)[4]);
QELMATH_API void TransMatrixAxisViewL2(double (* const T)[4]);
/* Perspectives; shifts come in the order x, z, y, then the factor q.
 * Perspective1 = Move3D(dx, dy, dz) . Pq, where Pq keeps x and z, drops y
 * and sets w' = q*y + w: one vanishing point. Perspective2 prefixes
 * Rotate3DZ(theta) (two vanishing points), Perspective3 Rotate3DZ(theta) .
 * Rotate3DX(phi) (three); their entries are the written-out products formed
 * left to right, e.g. T[0][3] = (q*sin theta)*cos phi. */
QELMATH_API void TransMatrixPerspective1(double dx, double dz, double dy, double q, double (* const T)[4]);
QELMATH_API void TransMatrixPerspective2(double dx, double dz, double dy, double q, double theta, double (* const T)[4]);
QELMATH_API void TransMatrixPerspective3(double dx, double dz, double dy, double q, double theta, double phi, double (* const T)[4]);
/* Re-shift a perspective matrix: write T[3][0] = dx, T[3][2] = dz and
 * T[3][3] = dy*q + 1 only; the other thirteen entries keep their values, bit
 * for bit, including the q already in the last column. */
QELMATH_API void TransMatrixPerspective2(double dx, double dz, double dy, double q, double (* const T)[4]);
QELMATH_API void TransMatrixPerspective3(double dx, double dz, double dy, double q, double (* const T)[4]);

#endif

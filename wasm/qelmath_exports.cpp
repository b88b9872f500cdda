// Entry points of the WebAssembly module. The library's functions have C++
// names (several are overloaded); these C names are what JavaScript calls.
// qelmath.mjs wraps them into functions on plain JavaScript arrays.
#include <emscripten/emscripten.h>

#include "QELMath.h"
#include "QELMemory.h"

extern "C" {

// ClipPolygonWithRect as it is; the two result arrays go back through
// qel_release.
EMSCRIPTEN_KEEPALIVE int qel_clip(int x1, int y1, int x2, int y2, int* pts, int n,
                                  int** out_pts, int** out_counts)
{
    return ClipPolygonWithRect(x1, y1, x2, y2, pts, n, out_pts, out_counts);
}

EMSCRIPTEN_KEEPALIVE void qel_release(void* block)
{
    mem_free(block);
}

// MinimumRadiusCircleFromPoints; circle receives the centre's x and y, then
// the radius.
EMSCRIPTEN_KEEPALIVE void qel_enclosing_circle(double* pts, int n, double* circle)
{
    MinimumRadiusCircleFromPoints(pts, n, circle, circle + 2);
}

// linear_Gauss (real): 1 with the solution in b, 0 when singular.
EMSCRIPTEN_KEEPALIVE int qel_solve(double* a, double* b, int n)
{
    return linear_Gauss(a, b, n);
}

}  // extern "C"

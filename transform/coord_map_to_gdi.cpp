// TransMatrixCoordMapToGDI: model coordinates to device coordinates whose y
// axis points down. (x0, y0) is the device position of the model origin and
// sx, sy are model units per device unit, so X = x/sx + x0, Y = y0 - y/sy.
//
// The scales are stored as the rounded reciprocals 1/sx and -1/sy (the
// product x*(1/sx) may differ from x/sx in the last bit). Every int converts
// to double exactly. sx = 0 or sy = 0 gives infinite entries.
#include "QELMath.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixCoordMapToGDI(int x0, int y0, double sx, double sy,
                                          double (* const T)[3])
{
    qel::clear3(T);
    T[0][0] = 1.0 / sx;
    T[1][1] = -1.0 / sy;
    T[2][0] = static_cast<double>(x0);
    T[2][1] = static_cast<double>(y0);
    T[2][2] = 1.0;
}

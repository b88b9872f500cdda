// Shared starting points of the builders: every builder that overwrites the
// whole matrix starts from all zeros (or the identity) and then writes its
// own entries, so an entry a builder does not name is always +0.0, whatever
// the caller's array held. The compiler folds the double stores away.
#ifndef QELMATH_TRANSFORM_FILL_H
#define QELMATH_TRANSFORM_FILL_H

namespace qel {

inline void clear3(double (*const T)[3])
{
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) T[i][j] = 0.0;
}

inline void clear4(double (*const T)[4])
{
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) T[i][j] = 0.0;
}

inline void identity3(double (*const T)[3])
{
    clear3(T);
    T[0][0] = 1.0;
    T[1][1] = 1.0;
    T[2][2] = 1.0;
}

inline void identity4(double (*const T)[4])
{
    clear4(T);
    T[0][0] = 1.0;
    T[1][1] = 1.0;
    T[2][2] = 1.0;
    T[3][3] = 1.0;
}

}  // namespace qel

#endif

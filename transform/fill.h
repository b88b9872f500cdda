// Shared starting points of the builders: every builder that overwrites the
// whole matrix starts from all zeros (or the identity) and then writes its
// own entries, so an entry a builder does not name is always +0.0, whatever
// the caller's array held. The zeros are written row by row, not in a loop:
// a loop becomes a call to memset or a string store, which costs more than
// the whole builder; straight stores pair up into vector stores and those
// overwritten by the builder's own entries are dropped.
#ifndef QELMATH_TRANSFORM_FILL_H
#define QELMATH_TRANSFORM_FILL_H

namespace qel {

inline void clear_row3(double* const r)
{
    r[0] = 0.0;
    r[1] = 0.0;
    r[2] = 0.0;
}

inline void clear_row4(double* const r)
{
    r[0] = 0.0;
    r[1] = 0.0;
    r[2] = 0.0;
    r[3] = 0.0;
}

inline void clear3(double (*const T)[3])
{
    clear_row3(T[0]);
    clear_row3(T[1]);
    clear_row3(T[2]);
}

inline void clear4(double (*const T)[4])
{
    clear_row4(T[0]);
    clear_row4(T[1]);
    clear_row4(T[2]);
    clear_row4(T[3]);
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

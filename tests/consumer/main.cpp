// A user's program: calls QELMath functions only, through the installed
// public header. Taking no QELMemory function itself, it may be linked
// without QELMemory, which the installed QELMath must then find on its own.
#include <QELMath.h>

#include <cstdio>

int main()
{
    double a[9] = {2, 0, 0, 0, 4, 0, 0, 0, 8};
    double b[3] = {2, 8, 24};
    if (linear_Gauss3(a, b) != 1 || b[0] != 1 || b[1] != 2 || b[2] != 3) {
        std::puts("linear_Gauss3 gave a wrong answer");
        return 1;
    }
    double p[3] = {1, 2, 3}, q[3] = {4, 6, 3};
    if (math_Distance(p, q) != 5.0) {
        std::puts("math_Distance gave a wrong answer");
        return 1;
    }
    std::puts("installed QELMath works");
    return 0;
}

// Links the installed library and calls it through its public header only.
#include <QELMath.h>

#include <cstdio>
#include <cstring>

int main()
{
    double v[3] = {0, 3, 4};
    if (NormalizeVector(v) != 1 || v[1] != 0.6000000000000001 || v[2] != 0.8) {
        std::puts("NormalizeVector gave a wrong answer");
        return 1;
    }
    double p[3] = {1, 2, 3}, q[3] = {4, 6, 3};
    if (math_Distance(p, q) != 5.0) {
        std::puts("math_Distance gave a wrong answer");
        return 1;
    }
    void* block = mem_malloc(16);
    if (block == nullptr) return 1;
    std::memset(block, 0, 16);
    mem_free(block);
    std::puts("installed QELMath works");
    return 0;
}

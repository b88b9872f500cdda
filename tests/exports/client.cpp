// A client of the DLL through its import library: calls a few functions of
// every family (by-value doubles, pointers, 2-D arrays, 64-bit results,
// blocks from QELMemory) and prints a hash of each result. Built natively,
// with MinGW and, without any C runtime, for the MSVC ABI; all three must
// print the same lines.
#include "QELMath.h"

namespace {

char g_out[2048];
int g_len = 0;

// FNV-1a 32 over the bytes of each value (32-bit arithmetic only: the MSVC
// build has no runtime helpers for 64-bit operations on x86); line() prints
// it under a name and starts the next.
struct Hash {
    unsigned h = 2166136261u;
    template <class T>
    Hash& add(const T* p, int n)
    {
        const unsigned char* b = reinterpret_cast<const unsigned char*>(p);
        for (int i = 0; i < n * static_cast<int>(sizeof(T)); ++i) h = (h ^ b[i]) * 16777619u;
        return *this;
    }
    void line(const char* name)
    {
        while (*name) g_out[g_len++] = *name++;
        g_out[g_len++] = ' ';
        for (int s = 28; s >= 0; s -= 4) g_out[g_len++] = "0123456789abcdef"[(h >> s) & 15u];
        g_out[g_len++] = '\n';
        h = 2166136261u;
    }
};

void run()
{
    Hash h;
    double c = 0, s = 0;
    math_CosSin(1e22, &c, &s);
    h.add(&c, 1).add(&s, 1).line("math_CosSin");

    double a3[9] = {2, 1, 1, 1, 3, 2, 1, 0, 0.5}, b3[3] = {1, 2, 3};
    int r = linear_Gauss3(a3, b3);
    h.add(&r, 1).add(b3, 3).line("linear_Gauss3");

    double a[25], b[5];
    for (int i = 0; i < 25; ++i) a[i] = (i * 7 % 11) - 5.5 + (i % 6 == 0 ? 9 : 0);
    for (int i = 0; i < 5; ++i) b[i] = i - 2;
    r = linear_Gauss(a, b, 5);
    h.add(&r, 1).add(b, 5).line("linear_Gauss");

    double m[16];
    for (int i = 0; i < 16; ++i) m[i] = (i * 5 % 7) - 3.25;
    const double det = mt_Det4(m);
    h.add(&det, 1).line("mt_Det4");

    const std::uint64_t comb = num_CombinationQword(60, 30);
    h.add(&comb, 1).line("num_CombinationQword");

    double roots[2] = {0, 0};
    r = solve_Equation(1, -3, 2.25, roots);
    h.add(&r, 1).add(roots, 2).line("solve_Equation");

    double t[4][4];
    TransMatrixRotate3DO(1, 2, 2, 0.75, t);
    h.add(&t[0][0], 16).line("TransMatrixRotate3DO");

    double pts[10] = {0, 0, 4, 0, 1, 3, 2, -1, 3, 2.5}, centre[2], radius = 0;
    MinimumRadiusCircleFromPoints(pts, 5, centre, &radius);
    h.add(centre, 2).add(&radius, 1).line("MinimumRadiusCircleFromPoints");

    int poly[8] = {0, 0, 40, 10, 10, 40, -20, 5};
    int *out = nullptr, *counts = nullptr;
    const int k = ClipPolygonWithRect(-5, -5, 20, 20, poly, 4, &out, &counts);
    h.add(&k, 1);
    if (k > 0) {
        int total = 0;
        for (int i = 0; i < k; ++i) total += counts[i];
        h.add(counts, k).add(out, 2 * total);
        mem_free(out);
        mem_free(counts);
    }
    h.line("ClipPolygonWithRect");
}

}  // namespace

#if defined(_MSC_VER)
// No C runtime: the console through kernel32 alone.
extern "C" {
int _fltused = 0;
__declspec(dllimport) void* __stdcall GetStdHandle(unsigned long which);
__declspec(dllimport) int __stdcall WriteFile(void* file, const void* data, unsigned long size,
                                              unsigned long* written, void* overlapped);
__declspec(dllimport) void __stdcall ExitProcess(unsigned code);
void start()
{
    run();
    unsigned long written = 0;
    WriteFile(GetStdHandle(static_cast<unsigned long>(-11)), g_out, static_cast<unsigned long>(g_len),
              &written, nullptr);
    ExitProcess(0);
}
}
#else
#include <cstdio>
int main()
{
    run();
    std::fwrite(g_out, 1, static_cast<std::size_t>(g_len), stdout);
    return 0;
}
#endif

// The fast clipper against the plain transcription on a hundred thousand
// random polygons of every kind (run once in CI under the long label).
#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "QELMath.h"
#include "clip/clip_common_case.h"
#include "clip/clip_graph_merge.h"
#include "clip/plain_clip.h"
#include "clip/random_polygons.h"

namespace {

using Clipper = int (*)(int, int, int, int, const int*, int, int**, int**);

int Dispatched(int x1, int y1, int x2, int y2, const int* pts, int n, int** outPts, int** outCounts)
{
    return ClipPolygonWithRect(x1, y1, x2, y2, const_cast<int*>(pts), n, outPts, outCounts);
}

bool Same(const clipcases::Case& c, clipcases::Fnv* digest = nullptr, Clipper fast = Dispatched,
          Clipper slow = plainclip::ClipPolygonWithRect)
{
    int *fp = nullptr, *fc = nullptr, *pp = nullptr, *pc = nullptr;
    const int n = static_cast<int>(c.pts.size() / 2);
    const int* pts = c.pts.data();
    const int f = fast(c.x1, c.y1, c.x2, c.y2, pts, n, &fp, &fc);
    if (f == qel::kNotCommonCase) return true;
    const int p = slow(c.x1, c.y1, c.x2, c.y2, pts, n, &pp, &pc);
    bool same = f == p;
    if (same && f > 0) {
        int m = 0;
        for (int i = 0; i < f; ++i) {
            same = same && fc[i] == pc[i];
            m += fc[i];
        }
        for (int i = 0; same && i < 2 * m; ++i) same = fp[i] == pp[i];
    }
    if (digest != nullptr) {
        digest->mix(f);
        int m = 0;
        for (int i = 0; i < f; ++i) {
            digest->mix(fc[i]);
            m += fc[i];
        }
        for (int j = 0; j < 2 * m; ++j) digest->mix(fp[j]);
    }
    if (f > 0) {
        mem_free(fp);
        mem_free(fc);
    }
    if (p > 0) {
        mem_free(pp);
        mem_free(pc);
    }
    return same;
}

TEST(ClipEquivalenceLong, HundredThousandRandomPolygons)
{
    std::mt19937 rng(1);
    int differing = 0;
    for (int i = 0; i < 100000; ++i) {
        clipcases::Case c;
        switch (i % 4) {
        case 0:
            c.pts = clipcases::Star(rng, 3 + static_cast<int>(rng() % 30), (i % 8) ? 3.0 : 15.0, 15.0, 0.0, 0.0);
            clipcases::Rectangle(rng, -18, 18, c);
            break;
        case 1:
            c.pts = clipcases::Orthogonal(rng, 2 + static_cast<int>(rng() % 10), 10);
            clipcases::Rectangle(rng, -14, 14, c);
            break;
        case 2: {
            std::uniform_int_distribution<int> v(-3, 3);
            const int n = 1 + static_cast<int>(rng() % 8);
            for (int k = 0; k < 2 * n; ++k) c.pts.push_back(v(rng));
            clipcases::Rectangle(rng, -2, 2, c);
            break;
        }
        default:
            c.pts = clipcases::Star(rng, 40 + static_cast<int>(rng() % 60), 60.0, 200.0, 0.0, 0.0);
            clipcases::Rectangle(rng, -150, 150, c);
            break;
        }
        clipcases::Disturb(rng, c.pts);
        if (!Same(c)) ++differing;
    }
    EXPECT_EQ(differing, 0);
}

TEST(ClipEquivalenceLong, LinearPassGivesTheMergesBitsOnAMillionPolygons)
{
    // Small polygons on and around the sides (the pass's bounds are met
    // often), large stars near the origin and far from it.
    std::mt19937 rng(2);
    int differing = 0, taken = 0;
    for (int i = 0; i < 1000000; ++i) {
        clipcases::Case c;
        const int kind = i % 5;
        if (kind == 0) {
            c.pts = clipcases::Star(rng, 3 + static_cast<int>(rng() % 30), 3.0, 15.0, 0.0, 0.0);
            clipcases::Rectangle(rng, -18, 18, c);
        } else if (kind == 1) {
            c.pts = clipcases::Orthogonal(rng, 2 + static_cast<int>(rng() % 10), 10);
            clipcases::Rectangle(rng, -14, 14, c);
        } else {
            const double scale = kind == 2 ? 200.0 : 1.0e6, far = kind == 4 ? 1.5e7 : 0.0;
            c.pts = clipcases::Star(rng, 3 + static_cast<int>(rng() % 200), 0.3 * scale, scale, far, far);
            clipcases::Rectangle(rng, static_cast<int>(-0.8 * scale), static_cast<int>(0.8 * scale), c);
            c.x1 += static_cast<int>(far);
            c.x2 += static_cast<int>(far);
            c.y1 += static_cast<int>(far);
            c.y2 += static_cast<int>(far);
        }
        if (i % 3 == 0) clipcases::Disturb(rng, c.pts);
        int* p = nullptr;
        int* q = nullptr;
        const int n = static_cast<int>(c.pts.size() / 2);
        const int k = qel::ClipCommonCase(c.x1, c.y1, c.x2, c.y2, c.pts.data(), n, &p, &q);
        if (k > 0) {
            mem_free(p);
            mem_free(q);
        }
        taken += k != qel::kNotCommonCase ? 1 : 0;
        if (!Same(c, nullptr, qel::ClipCommonCase, qel::ClipByGraphMerge)) ++differing;
    }
    EXPECT_EQ(differing, 0);
    EXPECT_GE(taken, 500000);
}

TEST(ClipEquivalenceLong, ResultsAwayFromTiesDoNotMove)
{
    std::mt19937 rng(11);
    clipcases::Fnv digest;
    int differing = 0;
    for (int i = 0; i < 100000; ++i) differing += Same(clipcases::KeptApart(rng), &digest) ? 0 : 1;
    EXPECT_EQ(differing, 0);
    EXPECT_EQ(digest.h, 0xc79d32e171f592f6ull);
}

}  // namespace

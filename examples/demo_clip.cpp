// Polygon clipping: a star whose spikes cross the sides of a
// rectangle, clipped into closed counter-clockwise contours.
#include <cstdio>
#include <utility>
#include <vector>

#include "QELMath.h"
#include "demo.h"

namespace {

void run(demo::Picture& pic)
{
    // Twelve spikes around (50, 50); most of them cross a side.
    std::vector<int> poly;
    const int outer[12][2] = {{95, 50}, {88, 75}, {70, 92}, {50, 97}, {28, 90}, {12, 72},
                              {4, 50},  {12, 28}, {28, 10}, {50, 4},  {72, 10}, {88, 28}};
    const int inner[12][2] = {{75, 60}, {66, 70}, {58, 75}, {42, 74}, {33, 67}, {26, 58},
                              {26, 42}, {33, 33}, {42, 26}, {58, 26}, {67, 33}, {74, 42}};
    for (int i = 0; i < 12; ++i) {
        poly.push_back(outer[i][0]);
        poly.push_back(outer[i][1]);
        poly.push_back(inner[i][0]);
        poly.push_back(inner[i][1]);
    }
    const int x1 = 20, y1 = 15, x2 = 85, y2 = 80;

    int* pts = nullptr;
    int* counts = nullptr;
    const int k = ClipPolygonWithRect(x1, y1, x2, y2, poly.data(), static_cast<int>(poly.size() / 2), &pts, &counts);
    std::printf("ClipPolygonWithRect: star of %d vertices against [%d, %d] x [%d, %d] -> %d contour(s)\n",
                static_cast<int>(poly.size() / 2), x1, x2, y1, y2, k);

    demo::Panel& p = pic.panel("ClipPolygonWithRect", 0, 0, 100, 100);
    std::vector<std::pair<double, double>> input;
    for (std::size_t i = 0; i < poly.size(); i += 2) input.emplace_back(poly[i], poly[i + 1]);
    p.polygon(input, "#999");
    p.polygon({{x1, y1}, {x2, y1}, {x2, y2}, {x1, y2}}, "#36c");
    if (k > 0) {
        int at = 0;
        for (int c = 0; c < k; ++c) {
            std::vector<std::pair<double, double>> contour;
            for (int j = 0; j < counts[c]; ++j) contour.emplace_back(pts[2 * (at + j)], pts[2 * (at + j) + 1]);
            std::printf("  contour %d: %d vertices, first (%d, %d)\n", c, counts[c], pts[2 * at], pts[2 * at + 1]);
            p.polygon(contour, "#c00", "rgba(204,0,0,0.25)");
            at += counts[c];
        }
        mem_free(pts);
        mem_free(counts);
    }
    p.text(2, 2, "grey: polygon, blue: rectangle, red: result");
}

int reg = demo::add_section(70, "Polygon clipping", &run);

}  // namespace

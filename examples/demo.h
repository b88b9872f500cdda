// The demonstration program: each family contributes one section, registered
// from its own file, and the sections run in the order of their rank.
#ifndef QELMATH_DEMO_H
#define QELMATH_DEMO_H

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace demo {

// One framed drawing of the picture, in its own world coordinates (y up).
class Panel {
public:
    Panel(std::string title, double x0, double y0, double x1, double y1);

    void line(double xa, double ya, double xb, double yb, const char* colour = "#333");
    void circle(double cx, double cy, double r, const char* colour = "#333");
    void dot(double x, double y, const char* colour = "#c00");
    void polygon(const std::vector<std::pair<double, double>>& pts,
                 const char* stroke, const char* fill = "none");
    // Arc from angle a0 counter-clockwise to a1 (radians).
    void arc(double cx, double cy, double r, double a0, double a1, const char* colour = "#333");
    void text(double x, double y, const std::string& s);

    std::string render(double ox, double oy, double size) const;

private:
    double mapx(double x) const;
    double mapy(double y) const;
    std::string title_;
    double x0_, y0_, x1_, y1_;
    std::vector<std::string> items_;   // drawing commands in unit coordinates
};

class Picture {
public:
    Panel& panel(const std::string& title, double x0, double y0, double x1, double y1);
    bool write(const char* path) const;

private:
    std::vector<Panel> panels_;
};

struct Section {
    int rank;
    const char* title;
    void (*run)(Picture&);
};

// Registers a section; used at static initialisation by each demo file.
int add_section(int rank, const char* title, void (*run)(Picture&));

}  // namespace demo

#endif

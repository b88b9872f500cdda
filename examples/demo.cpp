// QELMath demonstration: walks through every family with a few lines of
// output each and draws what can be drawn into one SVG picture.
#include "demo.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace demo {

namespace {

std::vector<Section>& sections()
{
    static std::vector<Section> list;
    return list;
}

// Titles and labels are free text: escape what XML gives a meaning.
std::string xml(const std::string& s)
{
    std::string out;
    for (char c : s) {
        switch (c) {
        case '&': out += "&amp;"; break;
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        case '\'': out += "&apos;"; break;
        default: out += c;
        }
    }
    return out;
}

std::string num(double v)
{
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.3f", v);
    return buf;
}

}  // namespace

int add_section(int rank, const char* title, void (*run)(Picture&))
{
    sections().push_back({rank, title, run});
    return rank;
}

Panel::Panel(std::string title, double x0, double y0, double x1, double y1)
    : title_(std::move(title)), x0_(x0), y0_(y0), x1_(x1), y1_(y1)
{
}

// Panels keep their aspect ratio: the larger extent fills the frame.
double Panel::mapx(double x) const
{
    double span = std::max(x1_ - x0_, y1_ - y0_);
    return (x - x0_) / span;
}

double Panel::mapy(double y) const
{
    double span = std::max(x1_ - x0_, y1_ - y0_);
    return 1.0 - (y - y0_) / span;
}

void Panel::line(double xa, double ya, double xb, double yb, const char* colour)
{
    items_.push_back("L " + num(mapx(xa)) + " " + num(mapy(ya)) + " " + num(mapx(xb)) + " " +
                     num(mapy(yb)) + " " + colour);
}

void Panel::circle(double cx, double cy, double r, const char* colour)
{
    double span = std::max(x1_ - x0_, y1_ - y0_);
    items_.push_back("C " + num(mapx(cx)) + " " + num(mapy(cy)) + " " + num(r / span) + " " +
                     colour);
}

void Panel::dot(double x, double y, const char* colour)
{
    items_.push_back("D " + num(mapx(x)) + " " + num(mapy(y)) + " " + colour);
}

void Panel::polygon(const std::vector<std::pair<double, double>>& pts, const char* stroke,
                    const char* fill)
{
    std::string s = "P ";
    s += stroke;
    s += " ";
    s += fill;
    for (const auto& p : pts) s += " " + num(mapx(p.first)) + " " + num(mapy(p.second));
    items_.push_back(s);
}

void Panel::arc(double cx, double cy, double r, double a0, double a1, const char* colour)
{
    // A polyline is exact enough at picture scale and needs no SVG arc flags.
    std::vector<std::pair<double, double>> pts;
    int steps = 64;
    for (int i = 0; i <= steps; ++i) {
        double a = a0 + (a1 - a0) * i / steps;
        pts.emplace_back(cx + r * std::cos(a), cy + r * std::sin(a));
    }
    for (int i = 0; i < steps; ++i)
        line(pts[i].first, pts[i].second, pts[i + 1].first, pts[i + 1].second, colour);
}

void Panel::text(double x, double y, const std::string& s)
{
    items_.push_back("T " + num(mapx(x)) + " " + num(mapy(y)) + " " + s);
}

std::string Panel::render(double ox, double oy, double size) const
{
    char buf[512];
    std::string out;
    // A long title gets a smaller font rather than running into the next
    // panel (sans-serif glyphs average about 0.55 em).
    double title_size = std::min(13.0, (size - 12) / (0.55 * static_cast<double>(title_.size() + 1)));
    std::snprintf(buf, sizeof buf,
                  "<g><rect x='%.1f' y='%.1f' width='%.1f' height='%.1f' fill='#fafafa' "
                  "stroke='#999'/><text x='%.1f' y='%.1f' font-size='%.1f' "
                  "font-family='sans-serif'>%s</text>\n",
                  ox, oy, size, size + 20, ox + 6, oy + 15, title_size, xml(title_).c_str());
    out += buf;
    double pad = 12, inner = size - 2 * pad, top = oy + 20 + pad;
    auto X = [&](double u) { return ox + pad + u * inner; };
    auto Y = [&](double v) { return top + v * inner; };
    for (const std::string& item : items_) {
        char kind = item[0];
        const char* rest = item.c_str() + 2;
        if (kind == 'L') {
            double a, b, c, d;
            char col[32];
            std::sscanf(rest, "%lf %lf %lf %lf %31s", &a, &b, &c, &d, col);
            std::snprintf(buf, sizeof buf,
                          "<line x1='%.2f' y1='%.2f' x2='%.2f' y2='%.2f' stroke='%s'/>\n", X(a),
                          Y(b), X(c), Y(d), col);
        } else if (kind == 'C') {
            double a, b, r;
            char col[32];
            std::sscanf(rest, "%lf %lf %lf %31s", &a, &b, &r, col);
            std::snprintf(buf, sizeof buf,
                          "<circle cx='%.2f' cy='%.2f' r='%.2f' fill='none' stroke='%s'/>\n",
                          X(a), Y(b), r * inner, col);
        } else if (kind == 'D') {
            double a, b;
            char col[32];
            std::sscanf(rest, "%lf %lf %31s", &a, &b, col);
            std::snprintf(buf, sizeof buf, "<circle cx='%.2f' cy='%.2f' r='2.5' fill='%s'/>\n",
                          X(a), Y(b), col);
        } else if (kind == 'P') {
            char stroke[32], fill[32];
            int used = 0;
            std::sscanf(rest, "%31s %31s%n", stroke, fill, &used);
            std::string pts;
            const char* p = rest + used;
            double a, b;
            int n = 0;
            while (std::sscanf(p, "%lf %lf%n", &a, &b, &n) == 2) {
                char q[64];
                std::snprintf(q, sizeof q, "%.2f,%.2f ", X(a), Y(b));
                pts += q;
                p += n;
            }
            out += "<polygon points='" + pts + "' stroke='" + stroke + "' fill='" + fill +
                   "' fill-opacity='0.35'/>\n";
            continue;
        } else {
            double a, b;
            int used = 0;
            std::sscanf(rest, "%lf %lf %n", &a, &b, &used);
            std::snprintf(buf, sizeof buf,
                          "<text x='%.2f' y='%.2f' font-size='11' font-family='sans-serif'>%s"
                          "</text>\n",
                          X(a), Y(b), xml(rest + used).c_str());
        }
        out += buf;
    }
    out += "</g>\n";
    return out;
}

Panel& Picture::panel(const std::string& title, double x0, double y0, double x1, double y1)
{
    panels_.emplace_back(title, x0, y0, x1, y1);
    return panels_.back();
}

bool Picture::write(const char* path) const
{
    const double size = 260, gap = 16;
    const int columns = 3;
    int rows = (static_cast<int>(panels_.size()) + columns - 1) / columns;
    double width = columns * (size + gap) + gap;
    double height = rows * (size + 20 + gap) + gap;
    std::FILE* f = std::fopen(path, "w");
    if (!f) return false;
    std::fprintf(f,
                 "<svg xmlns='http://www.w3.org/2000/svg' width='%.0f' height='%.0f' "
                 "viewBox='0 0 %.0f %.0f'>\n<rect width='100%%' height='100%%' fill='white'/>\n",
                 width, height, width, height);
    for (std::size_t i = 0; i < panels_.size(); ++i) {
        double ox = gap + static_cast<double>(i % columns) * (size + gap);
        double oy = gap + static_cast<double>(i / columns) * (size + 20 + gap);
        std::fputs(panels_[i].render(ox, oy, size).c_str(), f);
    }
    std::fputs("</svg>\n", f);
    return std::fclose(f) == 0;
}

}  // namespace demo

int main(int argc, char** argv)
{
    const char* path = argc > 1 ? argv[1] : "qelmath-demo.svg";
    auto list = demo::sections();
    std::stable_sort(list.begin(), list.end(),
                     [](const demo::Section& a, const demo::Section& b) { return a.rank < b.rank; });
    demo::Picture picture;
    for (const demo::Section& s : list) {
        std::printf("== %s ==\n", s.title);
        s.run(picture);
        std::printf("\n");
    }
    if (!picture.write(path)) {
        std::fprintf(stderr, "cannot write %s\n", path);
        return 1;
    }
    std::printf("picture written to %s\n", path);
    return 0;
}

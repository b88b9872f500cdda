// qel_digest: prints the result digests of every family built into it, or
// compares them with a golden file and names every function that differs.
//   qel_digest                 print the digests
//   qel_digest --write FILE    write them to FILE
//   qel_digest --compare FILE  exit 1 unless FILE holds exactly these digests
#include <cinttypes>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <map>
#include <string>

#include "digest.h"

namespace {

// Families register during static initialisation, in no fixed order; their
// rank fixes the order of the file.
std::map<int, dg::FamilyFn>& families() { static std::map<int, dg::FamilyFn> list; return list; }

const char* kHeader =
    "# QELMath result digests. One line per exported function: label, number of\n"
    "# seeded calls, FNV-1a 64 of the bits of every result and of everything the\n"
    "# calls wrote. Every build on every platform must reproduce this file.\n"
    "# Regenerate with: cmake --workflow --preset digest-update\n";

// The API has 139 functions; a golden file written from fewer would hide
// the missing ones from every later comparison.
constexpr std::size_t kApiFunctions = 139;

// label -> formatted line, in the file's order.
std::vector<std::pair<std::string, std::string>> compute()
{
    dg::Out entries;
    for (const auto& f : families()) f.second(entries);
    std::vector<std::pair<std::string, std::string>> lines;
    char buf[256];
    for (const auto& e : entries) {
        std::snprintf(buf, sizeof buf, "%-44s %5d %016" PRIx64, e.label.c_str(), e.calls, e.digest);
        lines.emplace_back(e.label, buf);
    }
    return lines;
}

int compare(const std::vector<std::pair<std::string, std::string>>& lines, const char* path)
{
    std::ifstream in(path);
    if (!in) return std::fprintf(stderr, "cannot read %s\n", path), 2;
    std::map<std::string, std::string> mine(lines.begin(), lines.end());
    int bad = 0, golden = 0;
    for (std::string s; std::getline(in, s);) {
        if (!s.empty() && s.back() == '\r') s.pop_back();
        if (s.empty() || s[0] == '#') continue;
        ++golden;
        auto it = mine.find(s.substr(0, s.find(' ')));
        const std::string here = it == mine.end() ? "" : it->second;
        if (here.empty()) std::printf("MISSING  %s\n", s.c_str());
        else if (here != s) std::printf("DIFFERS\n  golden: %s\n  here:   %s\n", s.c_str(), here.c_str());
        bad += here != s;
        if (it != mine.end()) mine.erase(it);
    }
    for (const auto& m : mine) std::printf("NEW      %s\n", m.second.c_str());
    bad += static_cast<int>(mine.size());
    if (bad) std::printf("%d of %d functions differ from %s\n", bad, golden, path);
    else std::printf("all %d function digests match %s\n", golden, path);
    return bad ? 1 : 0;
}

}  // namespace

int dg::add_family(int rank, const char*, FamilyFn fn) { return families()[rank] = fn, rank; }

int main(int argc, char** argv)
{
    const auto lines = compute();
    const bool write = argc == 3 && std::strcmp(argv[1], "--write") == 0;
    if (argc == 3 && std::strcmp(argv[1], "--compare") == 0) return compare(lines, argv[2]);
    if (argc != 1 && !write) return std::fprintf(stderr, "usage: %s [--write FILE | --compare FILE]\n", argv[0]), 2;
    if (write && lines.size() != kApiFunctions)
        return std::fprintf(stderr, "refusing to write %s: %zu of %zu functions digested\n", argv[2], lines.size(),
                            kApiFunctions), 2;
    std::FILE* f = write ? std::fopen(argv[2], "w") : stdout;
    if (!f) return 2;
    std::fputs(kHeader, f);
    for (const auto& l : lines) std::fprintf(f, "%s\n", l.second.c_str());
    return (write && std::fclose(f) != 0) ? 2 : 0;
}

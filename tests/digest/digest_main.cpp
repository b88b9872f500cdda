// qel_digest: prints the result digests of every family built into it, or
// compares them with a golden file and names every function that differs.
//   qel_digest                 print the digests
//   qel_digest --write FILE    write them to FILE
//   qel_digest --compare FILE  exit 1 unless FILE holds exactly these digests
#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <utility>

#include "digest.h"

namespace dg {

namespace {

struct Family {
    int rank;
    const char* name;
    FamilyFn fn;
};

std::vector<Family>& families()
{
    static std::vector<Family> list;
    return list;
}

std::string format(const Entry& e)
{
    char buf[256];
    std::snprintf(buf, sizeof buf, "%-44s %5d %016" PRIx64, e.label.c_str(), e.calls, e.digest);
    return buf;
}

}  // namespace

int add_family(int rank, const char* name, FamilyFn fn)
{
    families().push_back({rank, name, fn});
    return rank;
}

}  // namespace dg

namespace {

std::vector<dg::Entry> compute()
{
    auto list = dg::families();
    std::stable_sort(list.begin(), list.end(),
                     [](const auto& a, const auto& b) { return a.rank < b.rank; });
    std::vector<dg::Entry> entries;
    for (const auto& f : list) f.fn(entries);
    return entries;
}

const char* kHeader =
    "# QELMath result digests. One line per exported function: label, number of\n"
    "# seeded calls, FNV-1a 64 of the bits of every result and of everything the\n"
    "# calls wrote. Every build on every platform must reproduce this file.\n"
    "# Regenerate with: cmake --workflow --preset digest-update\n";

// The API has 139 functions; a golden file written from fewer would hide
// the missing ones from every later comparison.
constexpr std::size_t kApiFunctions = 139;

int write(const std::vector<dg::Entry>& entries, const char* path)
{
    if (path && entries.size() != kApiFunctions) {
        std::fprintf(stderr, "refusing to write %s: %zu of %zu functions digested\n", path,
                     entries.size(), kApiFunctions);
        return 2;
    }
    std::FILE* f = path ? std::fopen(path, "w") : stdout;
    if (!f) {
        std::fprintf(stderr, "cannot write %s\n", path);
        return 2;
    }
    std::fputs(kHeader, f);
    for (const auto& e : entries) std::fprintf(f, "%s\n", dg::format(e).c_str());
    if (path && std::fclose(f) != 0) return 2;
    if (path) std::printf("%zu digests written to %s\n", entries.size(), path);
    return 0;
}

int compare(const std::vector<dg::Entry>& entries, const char* path)
{
    std::FILE* f = std::fopen(path, "r");
    if (!f) {
        std::fprintf(stderr, "cannot read %s\n", path);
        return 2;
    }
    std::vector<std::pair<std::string, std::string>> golden;   // label, whole line
    char line[512];
    while (std::fgets(line, sizeof line, f)) {
        std::string s(line);
        while (!s.empty() && (s.back() == '\n' || s.back() == '\r')) s.pop_back();
        if (s.empty() || s[0] == '#') continue;
        golden.emplace_back(s.substr(0, s.find(' ')), s);
    }
    std::fclose(f);

    std::map<std::string, std::string> mine;
    for (const auto& e : entries) mine[e.label] = dg::format(e);
    int bad = 0;
    for (const auto& g : golden) {
        auto it = mine.find(g.first);
        if (it == mine.end()) {
            std::printf("MISSING  %s (not computed by this build)\n", g.first.c_str());
            ++bad;
        } else if (it->second != g.second) {
            std::printf("DIFFERS  %s\n  golden: %s\n  here:   %s\n", g.first.c_str(),
                        g.second.c_str(), it->second.c_str());
            ++bad;
        }
        if (it != mine.end()) mine.erase(it);
    }
    for (const auto& m : mine) {
        std::printf("NEW      %s (not in the golden file)\n", m.first.c_str());
        ++bad;
    }
    if (bad) {
        std::printf("%d of %zu functions differ from %s\n", bad, golden.size(), path);
        return 1;
    }
    std::printf("all %zu function digests match %s\n", golden.size(), path);
    return 0;
}

}  // namespace

int main(int argc, char** argv)
{
    std::vector<dg::Entry> entries = compute();
    if (argc == 3 && std::strcmp(argv[1], "--write") == 0) return write(entries, argv[2]);
    if (argc == 3 && std::strcmp(argv[1], "--compare") == 0) return compare(entries, argv[2]);
    if (argc == 1) return write(entries, nullptr);
    std::fprintf(stderr, "usage: %s [--write FILE | --compare FILE]\n", argv[0]);
    return 2;
}

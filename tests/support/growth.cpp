#include "tests/support/growth.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <stdexcept>

namespace vmk::test {
namespace {

std::string Worded(const Slope& slope) {
    char text[80];
    std::snprintf(text, sizeof text, "%.3f +- %.3f per 1,000", slope.perThousand, slope.error);
    return text;
}

std::string Complaint(const char* counter, const Slope& slope) {
    return slope.MayBeZero() ? "" : std::string(counter) + ": " + Worded(slope) + "\n";
}

struct Counter {
    const char* name;
    std::size_t (*read)(const ResourceCounts& counts, long ownBlocks);
};
constexpr Counter kCounters[] = {
    {"handles", [](const ResourceCounts& counts, long) { return counts.handles; }},
    {"GDI objects", [](const ResourceCounts& counts, long) { return counts.gdiObjects; }},
    {"windows", [](const ResourceCounts& counts, long) { return counts.windows; }},
    {"heap blocks", [](const ResourceCounts& counts, long) { return counts.heapBlocks; }},
    {"own blocks", [](const ResourceCounts&, long own) { return static_cast<std::size_t>(own); }},
};

struct Point {
    double cycle;
    double count;
};

// By least squares, with the standard error of its slope.
Slope LineThrough(const std::vector<Point>& points) {
    if (points.size() < 3) throw std::logic_error("too few points for a slope");
    const auto number = static_cast<double>(points.size());
    double cycles = 0;
    double counts = 0;
    for (const Point& point : points) {
        cycles += point.cycle / number;
        counts += point.count / number;
    }
    double spread = 0;
    double product = 0;
    for (const Point& point : points) {
        spread += (point.cycle - cycles) * (point.cycle - cycles);
        product += (point.cycle - cycles) * (point.count - counts);
    }
    const double slope = product / spread;
    double residues = 0;
    for (const Point& point : points) {
        const double residue = point.count - counts - slope * (point.cycle - cycles);
        residues += residue * residue;
    }
    constexpr double kThousand = 1000;
    return {.perThousand = kThousand * slope,
            .error = kThousand * std::sqrt(residues / (number - 2) / spread)};
}

}  // namespace

bool Slope::MayBeZero() const {
    // What arithmetic leaves of counters that never change.
    constexpr double kNothing = 1e-6;
    return std::abs(perThousand) <= 3 * error + kNothing;
}

Slope operator-(const Slope& slope, const Slope& control) {
    return {.perThousand = slope.perThousand - control.perThousand,
            .error = std::hypot(slope.error, control.error)};
}

Slope Growth::Of(std::string_view counter) const {
    const auto found = std::ranges::find(kCounters, counter, &Counter::name);
    if (found == std::end(kCounters)) throw std::invalid_argument("no such counter");
    std::vector<Point> points;
    for (const auto& [cycle, counts, ownBlocks] : m_notes)
        points.push_back({.cycle = static_cast<double>(cycle),
                          .count = static_cast<double>(found->read(counts, ownBlocks))});
    return LineThrough(points);
}

std::string Growth::Found() const {
    std::string found;
    for (const Counter& counter : kCounters) found += Complaint(counter.name, Of(counter.name));
    return found;
}

std::string Growth::FoundBeyond(const Growth& control) const {
    std::string found;
    for (const Counter& counter : kCounters) {
        const Slope beyond = Of(counter.name) - control.Of(counter.name);
        if (beyond.perThousand > 0) found += Complaint(counter.name, beyond);
    }
    return found;
}

void Growth::Print(const std::string& what) const {
    for (const Counter& counter : kCounters)
        std::printf("figures: %s, %ld cycles: %s: %s\n", what.c_str(), m_notes.back().cycle, counter.name,
                    Worded(Of(counter.name)).c_str());
}

}  // namespace vmk::test

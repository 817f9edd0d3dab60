// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/trace_curves.h"

#include <algorithm>
#include <cmath>

namespace orvanta::review {

namespace {

double MiddleOf(const TraceColumn& column) {
    return (static_cast<double>(column.low) + column.high) / 2;
}

std::vector<TraceCurve> OfRuns(const TraceLine& line, const TraceLayout& layout,
                               const TraceScaling& scaling) {
    std::vector<TraceCurve> curves;
    curves.reserve(line.runs.size());
    for (const TraceRun& run : line.runs) {
        TraceCurve& curve = curves.emplace_back();
        curve.reserve(run.values.size());
        const double left = layout.XOf(run.start);
        const double step = run.step / layout.SecondsPerPixel();
        for (std::size_t i = 0; i < run.values.size(); ++i) {
            curve.push_back({left + static_cast<double>(i) * step, scaling.YOf(run.values[i])});
        }
    }
    return curves;
}

std::vector<TraceCurve> OfColumns(const TraceLine& line, const TraceLayout& layout,
                                  const TraceScaling& scaling) {
    std::vector<TraceCurve> curves;
    const double width = static_cast<double>(layout.plot.Width()) / static_cast<double>(line.columns.size());
    bool open = false;
    for (std::size_t i = 0; i < line.columns.size(); ++i) {
        const TraceColumn& column = line.columns[i];
        if (column.IsEmpty()) {
            open = false;
            continue;
        }
        if (!open) {
            curves.emplace_back().reserve(2 * (line.columns.size() - i));
            open = true;
        }
        TraceCurve& curve = curves.back();
        const double x = layout.plot.left + (static_cast<double>(i) + 0.5) * width;
        double first = scaling.YOf(column.low);
        double last = scaling.YOf(column.high);
        // On from where the column before ended, by the shorter way.
        if (!curve.empty() && std::abs(curve.back().y - last) < std::abs(curve.back().y - first)) {
            std::swap(first, last);
        }
        curve.push_back({x, first});
        curve.push_back({x, last});
    }
    return curves;
}

} // namespace

std::vector<TraceCurve> CurvesOf(const TraceLine& line, const TraceLayout& layout,
                                 const TraceScaling& scaling) {
    return line.columns.empty() ? OfRuns(line, layout, scaling) : OfColumns(line, layout, scaling);
}

std::optional<TraceColumn> RangeOf(const TraceLine& line) {
    TraceColumn range;
    const auto extend = [&range](float low, float high) {
        range = range.IsEmpty() ? TraceColumn{low, high}
                                : TraceColumn{std::min(range.low, low), std::max(range.high, high)};
    };
    for (const TraceRun& run : line.runs) {
        for (const float value : run.values) {
            extend(value, value);
        }
    }
    for (const TraceColumn& column : line.columns) {
        if (!column.IsEmpty()) {
            extend(column.low, column.high);
        }
    }
    return range.IsEmpty() ? std::nullopt : std::optional(range);
}

std::vector<TraceColumn> ColumnsOf(const TraceLine& line, const PageRequest& request) {
    std::vector<TraceColumn> columns = line.columns;
    columns.resize(static_cast<std::size_t>(std::max(0, request.columns)));
    for (const TraceRun& run : line.runs) {
        for (std::size_t i = 0; i < run.values.size(); ++i) {
            const double time = run.start + static_cast<double>(i) * run.step;
            const double at = std::floor((time - request.start) / request.duration * request.columns);
            if (at >= 0 && at < request.columns) {
                TraceColumn& column = columns[static_cast<std::size_t>(at)];
                const float value = run.values[i];
                column = column.IsEmpty()
                             ? TraceColumn{value, value}
                             : TraceColumn{std::min(column.low, value), std::max(column.high, value)};
            }
        }
    }
    return columns;
}

double MeanOf(const TraceLine& line) {
    double sum = 0;
    std::size_t count = 0;
    for (const TraceRun& run : line.runs) {
        for (const float value : run.values) {
            sum += value;
        }
        count += run.values.size();
    }
    for (const TraceColumn& column : line.columns) {
        if (!column.IsEmpty()) {
            sum += MiddleOf(column);
            ++count;
        }
    }
    return count > 0 ? sum / static_cast<double>(count) : 0;
}

std::optional<double> ValueAt(const TraceLine& line, const TraceLayout& page, double time) {
    for (const TraceRun& run : line.runs) {
        const double at = std::round((time - run.start) / run.step);
        if (at >= 0 && at < static_cast<double>(run.values.size())) {
            return run.values[static_cast<std::size_t>(at)];
        }
    }
    const double column =
        std::floor((time - page.start) / page.duration * static_cast<double>(line.columns.size()));
    if (column >= 0 && column < static_cast<double>(line.columns.size())) {
        const TraceColumn& found = line.columns[static_cast<std::size_t>(column)];
        return found.IsEmpty() ? std::nullopt : std::optional(MiddleOf(found));
    }
    return std::nullopt;
}

} // namespace orvanta::review

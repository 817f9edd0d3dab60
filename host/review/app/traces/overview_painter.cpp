// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/trace_painter.h"

#include <algorithm>
#include <cmath>

namespace orvanta::review {

namespace {

constexpr int kEventRows = 5;
constexpr int kLeastFrame = 4;
constexpr int kShadeBar = 3;
constexpr std::uint8_t kShade = 50;

/// Place of a time on the strip.
class Strip {
public:
    Strip(const owl::TRect& area, double total) : area_(area), total_(total) {}

    int At(double time) const {
        const double share = total_ > 0 ? std::clamp(time / total_, 0.0, 1.0) : 0;
        return area_.left + static_cast<int>(std::floor(share * (area_.Width() - 1)));
    }

private:
    owl::TRect area_;
    double total_;
};

void PaintActivity(owl::TDC& dc, const PageInput& page, const OverviewInput& overview,
                   const owl::TRect& area) {
    const owl::TColor color = Blended(page.colors.Of(TraceGroup::Eeg), page.colors.background, 0.62);
    const int middle = (area.top + area.bottom) / 2;
    const double half = area.Height() / 2.0 - 1;
    const auto columns =
        std::min<std::size_t>(overview.activity.size(), static_cast<std::size_t>(area.Width()));
    for (std::size_t i = 0; i < columns; ++i) {
        const float activity = overview.activity[i];
        if (activity < 0) {
            continue;
        }
        const int reach = static_cast<int>(std::lround(half * std::min(1.0F, activity)));
        const int x = area.left + static_cast<int>(i);
        dc.FillRect({x, middle - reach, x + 1, middle + reach + 1}, color);
    }
}

} // namespace

void PaintOverview(owl::TDC& dc, const PageInput& page, const OverviewInput& overview) {
    const owl::TRect& strip = page.layout.overview;
    if (strip.IsEmpty()) {
        return;
    }
    const owl::TRect inner = strip.InflatedBy(0, -1);
    const Strip places(strip, page.total);
    dc.FillRect(strip, page.colors.background);
    for (const Shade& shade : page.shades) {
        const int begin = places.At(shade.interval.GetBeginPtr()->Seconds());
        const int end = std::max(begin + 1, places.At(shade.interval.GetEndPtr()->Seconds()));
        dc.BlendRect({begin, inner.top + kEventRows, end, inner.bottom}, shade.color, kShade);
        const int bar = inner.bottom - (shade.secondary ? kShadeBar : 0);
        dc.BlendRect({begin, bar - kShadeBar, end, bar}, shade.color, 225);
    }
    for (const TraceGap& gap : page.gaps) {
        const int begin = places.At(gap.begin);
        dc.FillRect({begin, inner.top, std::max(begin + 1, places.At(gap.end)), inner.bottom},
                    page.colors.gap);
    }
    PaintActivity(dc, page, overview,
                  {inner.left, inner.top + kEventRows, inner.right, inner.bottom - kShadeBar});
    for (const EventInput& event : page.events) {
        const int begin = places.At(event.event->Interval.GetBeginPtr()->Seconds());
        const int end = std::max(begin + 1, places.At(event.event->Interval.GetEndPtr()->Seconds()));
        const owl::TColor color = ColorOf(event, page.colors);
        if (event.event->Class == EventClass::State) {
            dc.BlendRect({begin, inner.top, end, inner.bottom}, color, event.own ? 60 : 24);
        }
        dc.FillRect({begin, inner.top, end, inner.top + kEventRows - 2}, color);
    }
    if (overview.progress < 1) {
        const int reached = strip.left + static_cast<int>(overview.progress * strip.Width());
        dc.FillRect({strip.left, strip.bottom - 2, reached, strip.bottom}, page.colors.accent);
    }
    dc.FrameRect(strip, page.colors.labelledGrid);
    int left = places.At(page.layout.start);
    int right = places.At(page.layout.start + page.layout.duration) + 1;
    if (right - left < kLeastFrame) {
        left = std::max(strip.left, std::min(left - 1, strip.right - kLeastFrame));
        right = left + kLeastFrame;
    }
    const owl::TRect frame{left, strip.top, right, strip.bottom};
    dc.BlendRect(frame, page.colors.accent, 60);
    dc.FrameRect(frame, page.colors.accent);
}

} // namespace orvanta::review

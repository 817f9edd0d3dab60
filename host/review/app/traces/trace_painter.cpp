// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/trace_painter.h"

#include "host/review/app/traces/fitted_text.h"
#include "host/review/app/traces/scale_bars.h"
#include "host/review/app/traces/time_ruler.h"
#include "host/review/app/traces/trace_texts.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace orvanta::review {

namespace {

constexpr int kMargin = 6;
constexpr int kTagPadding = 4;
constexpr int kTickHeight = 5;
// Opacities. What the recording itself holds often lasts for hours and stands back.
constexpr std::uint8_t kFileBand = 14;
constexpr std::uint8_t kBand = 34;
constexpr std::uint8_t kSelectedBand = 72;
constexpr std::uint8_t kShade = 36;
constexpr std::uint8_t kShadeEdge = 110;
constexpr std::uint8_t kShadeBar = 225;
constexpr int kShadeBarHeight = 4;
constexpr int kHatch = 8;

owl::TRect Between(const TraceLayout& layout, double begin, double end, int top, int bottom) {
    const auto at = [&layout](double time) {
        return static_cast<int>(
            std::floor(std::clamp(layout.XOf(time), double(layout.plot.left), double(layout.plot.right))));
    };
    return {at(begin), top, at(end), bottom};
}

void PaintShades(owl::TDC& dc, const PageInput& page) {
    for (const Shade& shade : page.shades) {
        const double begin = shade.interval.GetBeginPtr()->Seconds();
        const double end = shade.interval.GetEndPtr()->Seconds();
        const owl::TRect& plot = page.layout.plot;
        const owl::TRect area = Between(page.layout, begin, end, plot.top, plot.bottom);
        if (area.IsEmpty()) {
            continue;
        }
        dc.BlendRect(area, shade.color, kShade);
        // Neighbours of one colour can be told apart by their edges, and analyses of one stretch by their
        // bars.
        dc.BlendRect({area.left, area.top, area.left + 1, area.bottom}, shade.color, kShadeEdge);
        const int bar = area.bottom - (shade.secondary ? kShadeBarHeight : 0);
        dc.BlendRect({area.left, bar - kShadeBarHeight, area.right, bar}, shade.color, kShadeBar);
    }
}

void PaintGrid(owl::TDC& dc, const PageInput& page, const RulerSteps& steps) {
    const TraceLayout& layout = page.layout;
    for (int line = 0; line < layout.lineCount; ++line) {
        const int y = static_cast<int>(layout.YOf(line));
        dc.FillRect({layout.plot.left, y, layout.plot.right, y + 1}, page.colors.baseline);
    }
    const auto upright = [&](double step, owl::TColor color) {
        for (const double tick : TicksOf(layout.start, layout.duration, step)) {
            const int x = static_cast<int>(std::floor(layout.XOf(tick)));
            if (x > layout.plot.left && x < layout.plot.right) {
                dc.FillRect({x, layout.plot.top, x + 1, layout.plot.bottom}, color);
            }
        }
    };
    if (steps.grid < steps.label) {
        upright(steps.grid, page.colors.grid);
    }
    upright(steps.label, page.colors.labelledGrid);
}

std::string GapText(double seconds) {
    return TraceText("gap", "no data for %1", ElapsedText(seconds, seconds < 10 ? 0.1 : 1));
}

void PaintGaps(owl::TDC& dc, const PageInput& page) {
    const owl::TRect& plot = page.layout.plot;
    for (const TraceGap& gap : page.gaps) {
        owl::TRect area = Between(page.layout, gap.begin, gap.end, plot.top, plot.bottom);
        if (gap.end < page.layout.start || gap.begin > page.layout.start + page.layout.duration) {
            continue;
        }
        area.right = std::max(area.right, area.left + 2);
        dc.FillRect(area, page.colors.margin);
        dc.SetClip(area);
        dc.SelectPen({page.colors.gap});
        for (int x = area.left - plot.Height(); x < area.right; x += kHatch) {
            if (x + plot.Height() >= area.left) {
                dc.Line({x, plot.bottom}, {x + plot.Height(), plot.top});
            }
        }
        dc.ClearClip();
        dc.FillRect({area.left, plot.top, area.left + 1, plot.bottom}, page.colors.faint);
        dc.FillRect({area.right - 1, plot.top, area.right, plot.bottom}, page.colors.faint);
        const std::string text = GapText(gap.end - gap.begin);
        const owl::TSize size = dc.GetTextExtent(text);
        if (size.cx + 2 * kMargin < area.Width()) {
            const int x = (area.left + area.right) / 2;
            const int y = (area.top + area.bottom) / 2;
            dc.FillRect(owl::TRect{x, y, x, y}.InflatedBy(size.cx / 2 + kMargin, size.cy / 2 + 3),
                        page.colors.margin);
            dc.SetTextColor(page.colors.faint);
            dc.SetTextAlign(owl::TextAlign::Center);
            dc.TextOut({x, y - size.cy / 2}, text);
            dc.SetTextAlign(owl::TextAlign::Left);
        }
    }
}

void PaintBands(owl::TDC& dc, const PageInput& page, std::span<const EventTag> tags) {
    const owl::TRect& plot = page.layout.plot;
    for (const EventTag& tag : tags) {
        if (tag.input->event->Class == EventClass::State) {
            const owl::TColor color = ColorOf(*tag.input, page.colors);
            const bool quiet = !tag.input->own && color != page.colors.badEvent;
            dc.BlendRect({tag.begin, plot.top, tag.end, plot.bottom}, color,
                         tag.input->selected ? kSelectedBand
                         : quiet             ? kFileBand
                                             : kBand);
        }
    }
}

void PaintEvents(owl::TDC& dc, const PageInput& page, std::span<const EventTag> tags) {
    const TraceLayout& layout = page.layout;
    for (const EventTag& tag : tags) {
        const owl::TColor color = ColorOf(*tag.input, page.colors);
        const int top = tag.box.IsEmpty() ? layout.plot.top : tag.box.top;
        const bool spot = tag.input->event->Class == EventClass::Spot;
        const int width = tag.input->selected ? 2 : 1;
        dc.FillRect({tag.begin, top, tag.begin + width, layout.plot.bottom}, color);
        if (!spot) {
            dc.FillRect({tag.begin, layout.plot.top - 2, tag.end, layout.plot.top + 1}, color);
        }
        if (tag.box.IsEmpty()) {
            continue;
        }
        // The user's own stand out.
        if (tag.input->own || tag.input->selected) {
            dc.FillRect(tag.box, color);
        } else {
            dc.FillRect(tag.box, Blended(color, page.colors.margin, 0.16));
            dc.FillRect({tag.box.left, tag.box.top, tag.box.left + 1, tag.box.bottom}, color);
        }
        if (tag.input->selected) {
            dc.FrameRect(tag.box, page.colors.text);
        }
        dc.SetTextColor(tag.input->own || tag.input->selected ? TextOn(color) : page.colors.text);
        const std::string text = FittedText(dc, tag.input->event->Label, tag.box.Width() - 2 * kTagPadding);
        dc.TextOut({tag.box.left + kTagPadding, tag.box.top + 1}, text);
    }
}

void PaintTraces(owl::TDC& dc, const PageInput& page) {
    dc.SetClip(page.layout.plot);
    for (const LineInput& line : page.lines) {
        if (line.data == nullptr) {
            continue;
        }
        const TraceGroup group = GroupOf(line.channel->type);
        const owl::TColor color = line.channel->bad ? page.colors.bad : page.colors.Of(group);
        dc.SelectPen({color});
        const double width = line.selected ? page.lineWidth * 1.5 : page.lineWidth;
        for (const TraceCurve& curve : CurvesOf(*line.data, page.layout, line.scaling)) {
            dc.Curve(curve, width);
        }
    }
    dc.ClearClip();
}

void PaintNames(owl::TDC& dc, const PageInput& page) {
    const TraceLayout& layout = page.layout;
    owl::TFont font = page.font;
    font.height = layout.nameHeight;
    dc.SelectFont(font);
    dc.SetTextAlign(owl::TextAlign::Right);
    const int column = (layout.names.Width() - kMargin) / layout.nameColumns;
    for (std::size_t i = 0; i < page.lines.size(); ++i) {
        const LineInput& line = page.lines[i];
        const int middle = static_cast<int>(layout.YOf(static_cast<int>(i)));
        const int half = static_cast<int>(layout.spacing / 2);
        if (line.selected) {
            dc.FillRect({layout.names.left, middle - half, layout.names.right, middle + half + 1},
                        Blended(page.colors.accent, page.colors.margin, 0.22));
            dc.FillRect({layout.names.left, middle - half, layout.names.left + 3, middle + half + 1},
                        page.colors.accent);
        }
        const TraceGroup group = GroupOf(line.channel->type);
        dc.SetTextColor(line.channel->bad          ? page.colors.faint
                        : group == TraceGroup::Eeg ? page.colors.text
                                                   : page.colors.Of(group));
        // By turns in the right column and in the left one.
        const int right = layout.names.right - kMargin -
                          column * static_cast<int>(i % static_cast<std::size_t>(layout.nameColumns));
        const std::string name = FittedText(dc, line.channel->name, column - kMargin);
        const owl::TSize size = dc.GetTextExtent(name);
        dc.TextOut({right, middle - size.cy / 2}, name);
        if (line.channel->bad) {
            dc.FillRect({right - size.cx, middle, right, middle + 1}, page.colors.badEvent);
        }
    }
    dc.SetTextAlign(owl::TextAlign::Left);
    dc.SelectFont(page.font);
}

void PaintRuler(owl::TDC& dc, const PageInput& page, const RulerSteps& steps) {
    const TraceLayout& layout = page.layout;
    if (layout.ruler.IsEmpty()) {
        return;
    }
    for (const double tick : TicksOf(layout.start, layout.duration, steps.grid)) {
        const int x = static_cast<int>(std::floor(layout.XOf(tick)));
        dc.FillRect({x, layout.ruler.top, x + 1, layout.ruler.top + 3}, page.colors.faint);
    }
    const int top = layout.ruler.top + kTickHeight;
    int taken = layout.ruler.left - 2 * kMargin;
    for (const double tick : TicksOf(layout.start, layout.duration, steps.label)) {
        const int x = static_cast<int>(std::floor(layout.XOf(tick)));
        dc.FillRect({x, layout.ruler.top, x + 1, top}, page.colors.text);
        const RulerTexts texts = RulerTextsOf(tick, steps.label, page.startTime);
        const int clock = dc.GetTextExtent(texts.clock).cx;
        const int elapsed = dc.GetTextExtent(texts.elapsed).cx;
        const int width = clock + (texts.clock.empty() ? 0 : kMargin) + elapsed;
        const int left = std::max(layout.ruler.left - kMargin,
                                  std::min(x - width / 2, layout.ruler.right + kMargin - width));
        if (left < taken + kMargin) {
            continue; // the last one, pushed back from the edge
        }
        taken = left + width;
        dc.SetTextColor(page.colors.text);
        dc.TextOut({left, top}, texts.clock);
        dc.SetTextColor(texts.clock.empty() ? page.colors.text : page.colors.faint);
        dc.TextOut({left + width - elapsed, top}, texts.elapsed);
    }
}

/// Room for the times at both ends of the page, so that no label stands on the next.
int LabelWidth(const owl::TDC& dc, const PageInput& page, double step) {
    int width = 0;
    for (const double time : {page.layout.start, page.layout.start + page.layout.duration}) {
        const RulerTexts texts = RulerTextsOf(time, step, page.startTime);
        width = std::max(width, dc.GetTextExtent(texts.clock).cx + dc.GetTextExtent(texts.elapsed).cx);
    }
    return width + 4 * kMargin;
}

/// Decimals of a second take room, and how many there are depends on the room.
RulerSteps StepsFor(const owl::TDC& dc, const PageInput& page) {
    RulerSteps steps{1, 1};
    for (const double assumed : {1.0, 0.1, 0.01, 0.001}) {
        steps = StepsOf(1 / page.layout.SecondsPerPixel(), LabelWidth(dc, page, assumed));
        if (steps.label >= assumed) {
            break;
        }
    }
    return steps;
}

} // namespace

owl::TColor ColorOf(const EventInput& event, const TraceColors& colors) {
    const std::string& label = event.event->Label;
    const bool bad = label.size() >= 3 && (label[0] == 'b' || label[0] == 'B') &&
                     (label[1] == 'a' || label[1] == 'A') && (label[2] == 'd' || label[2] == 'D');
    return bad ? colors.badEvent : event.own ? colors.ownEvent : colors.fileEvent;
}

void PaintPage(owl::TDC& dc, const PageInput& page, std::span<const EventTag> tags) {
    const TraceLayout& layout = page.layout;
    dc.SelectFont(page.font);
    dc.FillRect({layout.names.left, layout.labels.top, layout.names.right, layout.ruler.bottom},
                page.colors.margin);
    dc.FillRect({layout.names.right, layout.labels.top, layout.plot.right + 2 * kMargin, layout.plot.top},
                page.colors.margin);
    dc.FillRect({layout.plot.right, layout.labels.top, layout.plot.right + 2 * kMargin, layout.ruler.bottom},
                page.colors.margin);
    dc.FillRect(layout.ruler, page.colors.margin);
    if (!layout.plot.IsEmpty()) {
        dc.FillRect(layout.plot, page.colors.background);
        const RulerSteps steps = StepsFor(dc, page);
        PaintShades(dc, page);
        PaintBands(dc, page, tags);
        PaintGrid(dc, page, steps);
        PaintGaps(dc, page);
        PaintTraces(dc, page);
        PaintEvents(dc, page, tags);
        PaintScaleBars(dc, page);
        PaintRuler(dc, page, steps);
    }
    PaintNames(dc, page);
}

} // namespace orvanta::review

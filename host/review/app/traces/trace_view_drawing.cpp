// SPDX-License-Identifier: GPL-3.0-or-later
// What the trace view shows.
#include "host/review/app/traces/trace_view_impl.h"
#include "host/toolkit/qt_painting.h"
#include "host/toolkit/set_font.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>

namespace orvanta::review {

namespace {

constexpr double kMillimetresPerInch = 25.4;
constexpr int kLeastNames = 40;
constexpr int kMostNames = 160;
/// From this many device pixels to a logical one lines are thinner than a logical pixel.
constexpr double kFineScreen = 1.5;
constexpr double kFineLine = 0.75;

TraceColors ColorsOf(const QPalette& palette) {
    return ColorsFor(owl::FromQColor(palette.color(QPalette::Base)),
                     owl::FromQColor(palette.color(QPalette::Window)),
                     owl::FromQColor(palette.color(QPalette::WindowText)));
}

} // namespace

int TraceView::Impl::NameWidth() const {
    const auto font = owl::FontFor(view.GetViewFont());
    int width = kLeastNames;
    for (const std::size_t line : model.Shown()) {
        width = std::max(width, font->Extent(model.Channels()[line].name).cx);
    }
    return std::min(width, kMostNames);
}

double TraceView::Impl::Millimetre() const {
    return view.GetDPI() / kMillimetresPerInch;
}

TraceLayout TraceView::Impl::Layout() const {
    owl::TRect client = view.GetClientRect();
    if (scrollBar != nullptr && !scrollBar->isHidden()) {
        client.right = std::max(client.left, client.right - scrollBar->width());
    }
    return LayOutTraces(client,
                        {view.GetViewFont().height, NameWidth(), static_cast<int>(model.Shown().size()),
                         model.State().window, !events.Events().empty()});
}

std::vector<EventInput> TraceView::Impl::Events() const {
    std::vector<EventInput> inputs;
    const std::vector<EventRecord>& all = events.Events();
    inputs.reserve(all.size());
    for (std::size_t i = 0; i < all.size(); ++i) {
        inputs.push_back({&all[i], i, events.IsOwn(i), selectedEvent == i});
    }
    return inputs;
}

PageInput TraceView::Impl::Page(const TraceLayout& layout) {
    PageInput page;
    page.layout = layout;
    page.colors = ColorsOf(view.palette());
    page.font = view.GetViewFont();
    const double fine = fineness.value_or(view.devicePixelRatioF());
    page.lineWidth = fine >= kFineScreen ? kFineLine : 1;
    page.startTime = model.StartTime();
    page.total = model.Total();
    page.millimetre = Millimetre();
    page.events = Events();
    page.shades = shades;
    page.gaps = model.Gaps();
    model.ReadPage(layout, static_cast<int>(std::lround(layout.plot.Width() * fine)));
    page.lines = model.Lines(layout, page.millimetre);
    return page;
}

void TraceView::Impl::Paint(owl::TDC& dc) {
    const TraceLayout layout = Layout();
    PageInput page = Page(layout);
    dc.FillRect(view.GetClientRect(), page.colors.margin);
    dc.SelectFont(page.font);
    tags =
        PlaceTags(layout, page.events, [&dc](const std::string& text) { return dc.GetTextExtent(text).cx; });
    PaintPage(dc, page, tags);
    PaintOverview(dc, page, model.Overview(layout.overview.Width()));
    shownEvents = std::move(page.events); // the tags point to them
    if (!model.Failure().empty()) {
        Say(model.Failure());
    }
    if (overlay != nullptr) {
        overlay->SetLook(layout, page.colors, page.font);
    }
    if (overlay != nullptr && !fineness) { // on the screen
        ReadOutPage(layout);
    }
}

void TraceView::Impl::SetScrollBar(const TraceLayout& layout) {
    if (scrollBar == nullptr) {
        return;
    }
    const int lines = static_cast<int>(model.Shown().size());
    const int width = scrollBar->sizeHint().width();
    const QSignalBlocker blocker(scrollBar);
    scrollBar->setRange(0, std::max(0, lines - layout.capacity));
    scrollBar->setPageStep(std::max(1, layout.capacity));
    scrollBar->setValue(layout.firstLine);
    // Time runs to the right in every language, so the bar stands on the right.
    scrollBar->setGeometry(view.width() - width, layout.plot.top, width, std::max(0, layout.plot.Height()));
    scrollBar->setVisible(lines > layout.capacity);
}

void TraceView::Impl::Refresh() {
    const TraceLayout layout = Layout();
    model.State().window.firstLine = layout.firstLine;
    SetScrollBar(layout);
    const TraceChannel* selected = model.SelectedChannel();
    const TraceGroup group = selected != nullptr ? GroupOf(selected->type) : TraceGroup::Eeg;
    boxes.Show(model.State().window.duration, model.State().window.gains[group],
               std::string(selected != nullptr ? selected->unit : "µV") + "/mm", model.State().filter);
    view.Invalidate();
}

void TraceView::DrawPicture(owl::TDC& dc, const owl::TSize& size, double fineness) {
    // A larger page may begin with an earlier line.
    const int firstLine = impl_->model.State().window.firstLine;
    TheChild::DrawPicture(dc, size, fineness);
    impl_->model.State().window.firstLine = firstLine;
    impl_->Refresh();
}

void TraceView::DrawAll(owl::TDC& dc, double fineness) {
    impl_->scrollBar->hide(); // it comes back with the view's size
    const QScopedValueRollback<std::optional<double>> fine(impl_->fineness, fineness);
    TheChild::DrawAll(dc, fineness);
}

} // namespace orvanta::review

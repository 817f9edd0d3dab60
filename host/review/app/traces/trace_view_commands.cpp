// SPDX-License-Identifier: GPL-3.0-or-later
// The commands of the trace view.
#include "host/review/app/traces/trace_scales.h"
#include "host/review/app/traces/trace_view_impl.h"
#include "host/toolkit/command_enabler.h"

namespace orvanta::review {

namespace {

/// Of the page: what Ctrl+arrow moves by.
constexpr double kSmallStep = 0.1;

} // namespace

void TraceView::Impl::Say(const std::string& text) {
    view.SetMessageBar(text);
}

void TraceView::Impl::Run(unsigned command) {
    const TraceWindow& window = model.State().window;
    const double page = window.duration;
    // A page of minutes moves by more than a second.
    const double step = page <= 60 ? 1 : page / 10;
    switch (command) {
    case kCmPageBack:
        return MoveBy(-page);
    case kCmPageForward:
        return MoveBy(page);
    case kCmStepBack:
        return MoveBy(-step);
    case kCmStepForward:
        return MoveBy(step);
    case kCmSmallStepBack:
        return MoveBy(-step * kSmallStep);
    case kCmSmallStepForward:
        return MoveBy(step * kSmallStep);
    case kCmToStart:
        return MoveTo(0);
    case kCmToEnd:
        return MoveTo(model.Total());
    case kCmLessTime:
        return SetDuration(NextStep(kPageLengths, page, false), 0);
    case kCmMoreTime:
        return SetDuration(NextStep(kPageLengths, page, true), 0);
    case kCmGainUp:
        return StepGain(true);
    case kCmGainDown:
        return StepGain(false);
    case kCmLineUp:
        return ScrollLines(-1);
    case kCmLineDown:
        return ScrollLines(1);
    case kCmPreviousLine:
        return SelectNeighbour(-1);
    case kCmNextLine:
        return SelectNeighbour(1);
    case kCmFewerLines:
        return SetLinesPerPage(Layout().lineCount - 1);
    case kCmMoreLines:
        return SetLinesPerPage(Layout().lineCount + 1);
    case kCmZoomBack:
        return ZoomBack();
    case kCmMarkBad:
        return ToggleBad();
    case kCmHideLine:
        return HideSelected();
    case kCmShowAllLines:
        return ShowAll();
    case kCmCenter:
        model.State().centered = !model.State().centered;
        return Refresh();
    default:
        return;
    }
}

void TraceView::CeTraces(owl::TCommandEnabler& item) {
    const TraceChannel* selected = impl_->model.SelectedChannel();
    switch (item.GetId()) {
    case kCmZoomBack:
        item.Enable(!impl_->zooms.empty());
        break;
    case kCmMarkBad:
        item.Enable(selected != nullptr);
        item.SetCheck(selected != nullptr && selected->bad);
        break;
    case kCmHideLine:
        item.Enable(selected != nullptr);
        break;
    case kCmShowAllLines:
        item.Enable(!impl_->model.Hidden().empty());
        break;
    case kCmCenter:
        item.SetCheck(impl_->model.State().centered);
        break;
    default:
        break;
    }
}

} // namespace orvanta::review

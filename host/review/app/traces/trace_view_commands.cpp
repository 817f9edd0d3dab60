// SPDX-License-Identifier: GPL-3.0-or-later
// The commands of the trace view.
#include "host/review/app/traces/go_to_dialog.h"
#include "host/review/app/traces/trace_scales.h"
#include "host/review/app/traces/trace_texts.h"
#include "host/review/app/traces/trace_view_impl.h"
#include "host/toolkit/command_enabler.h"
#include "host/toolkit/control_text.h"
#include "host/toolkit/modal_gateway.h"
#include "host/toolkit/services.h"

namespace orvanta::review {

namespace {

/// Of the page: what Ctrl+arrow moves by.
constexpr double kSmallStep = 0.1;
/// Milliseconds from picture to picture while the traces play.
constexpr int kPlayStep = 40;

/// What was changed, with labels as the user wrote them.
std::string Caption(const std::string& change) {
    return owl::AsCaption(QString::fromStdString(change)).toStdString();
}

} // namespace

void TraceView::Impl::Say(const std::string& text) {
    said.clear();
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
    case kCmGoToTime:
        return GoToTime();
    case kCmPlay:
        return Play(!player.isActive());
    case kCmNextEvent:
        return SelectNextEvent(true);
    case kCmPreviousEvent:
        return SelectNextEvent(false);
    case kCmMarkMode:
        return SetMode(mode == Mode::Mark ? Mode::Select : Mode::Mark);
    case kCmMeasureMode:
        return SetMode(mode == Mode::Measure ? Mode::Select : Mode::Measure);
    case kCmMarkEvent:
        return MarkHere();
    case kCmEditEvent:
        return EditEvent();
    case kCmDeleteEvent:
        return DeleteEvent();
    case kCmUndo:
        return events.Undo();
    case kCmRedo:
        return events.Redo();
    case kCmCancel:
        return Cancel();
    case kCmChannels:
        return ChooseChannels();
    case kCmTraceFont:
        if (view.ChooseChildFont()) {
            Refresh();
        }
        return;
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
    case kCmNegativeUp:
        model.State().negativeUp = !model.State().negativeUp;
        Say(model.State().negativeUp
                ? TraceText("isNegativeUp", "EEG and EOG are drawn with negative voltages upwards.")
                : TraceText("isPositiveUp", "All traces are drawn with positive values upwards."));
        return Refresh();
    default:
        return;
    }
}

void TraceView::Impl::SetMode(Mode next) {
    mode = next;
    view.setCursor(mode == Mode::Select ? Qt::ArrowCursor : Qt::CrossCursor);
    overlay->SetCursor({});
    if (mode == Mode::Mark) {
        Say(TraceText("marks", "A click marks a moment, a drag a stretch. Esc ends it."));
    } else if (mode == Mode::Measure) {
        Say(TraceText("measures", "A drag measures time, frequency and voltage. Esc ends it."));
    }
}

void TraceView::Impl::Cancel() {
    Play(false);
    drag = Drag::None;
    SetMode(Mode::Select);
    model.Select({});
    selectedEvent.reset();
    Refresh();
}

bool TraceView::Impl::CanCancel() const {
    return player.isActive() || drag != Drag::None || mode != Mode::Select || !model.Selected().empty() ||
           selectedEvent;
}

void TraceView::Impl::GoToTime() {
    const TraceWindow& window = model.State().window;
    GoToDialog dialog(view.GetHandle(), {window.start, model.Total(), model.StartTime()});
    const QPointer<TraceView> alive(&view);
    if (dialog.ShowModal() == owl::kIdOk && alive) {
        MoveTo(dialog.Seconds());
    }
}

void TraceView::Impl::Play(bool play) {
    if (play) {
        playedAt = owl::CurrentServices().clock->Milliseconds();
        player.start(kPlayStep);
    } else {
        player.stop();
    }
}

void TraceView::Impl::PlayOn() {
    const std::int64_t now = owl::CurrentServices().clock->Milliseconds();
    const double start = model.State().window.start;
    MoveBy(static_cast<double>(now - playedAt) / 1000);
    playedAt = now;
    if (model.State().window.start <= start) {
        Play(false); // at the end
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
    case kCmPlay:
        item.SetCheck(impl_->player.isActive());
        break;
    case kCmMarkMode:
        item.SetCheck(impl_->mode == Impl::Mode::Mark);
        break;
    case kCmMeasureMode:
        item.SetCheck(impl_->mode == Impl::Mode::Measure);
        break;
    case kCmEditEvent:
    case kCmDeleteEvent:
        item.Enable(impl_->selectedEvent.has_value());
        break;
    case kCmUndo:
        item.Enable(impl_->events.CanUndo());
        item.SetText(WithKey(kCmUndo, impl_->events.CanUndo()
                                          ? TraceText("undo", "&Undo %1", Caption(impl_->events.UndoText()))
                                          : TraceText("undoPlain", "&Undo")));
        break;
    case kCmRedo:
        item.Enable(impl_->events.CanRedo());
        item.SetText(WithKey(kCmRedo, impl_->events.CanRedo()
                                          ? TraceText("redo", "&Redo %1", Caption(impl_->events.RedoText()))
                                          : TraceText("redoPlain", "&Redo")));
        break;
    case kCmCenter:
        item.SetCheck(impl_->model.State().centered);
        break;
    case kCmNegativeUp:
        item.SetCheck(impl_->model.State().negativeUp);
        break;
    default:
        break;
    }
}

} // namespace orvanta::review

// SPDX-License-Identifier: GPL-3.0-or-later
// Marking, editing and finding events in the trace view.
#include "host/review/app/events/event_dialog.h"
#include "host/review/app/traces/event_labels.h"
#include "host/review/app/traces/trace_texts.h"
#include "host/review/app/traces/trace_view_impl.h"
#include "host/toolkit/control_text.h"
#include "host/toolkit/event_guard.h"
#include "host/toolkit/modal_gateway.h"

#include <QMenu>

#include <algorithm>
#include <array>
#include <cmath>

namespace orvanta::review {

void TraceView::Impl::Offer(const EventRecord& event, const owl::TPoint& at) {
    delete labelMenu;
    auto* menu = new QMenu(&view);
    labelMenu = menu;
    menu->setObjectName("EventLabels");
    menu->setAccessibleName(QString::fromStdString(TraceText("labels", "Label of the event")));
    const auto add = [this, menu](const QString& text, auto&& action) {
        connect(menu->addAction(text), &QAction::triggered, &view,
                [action = std::forward<decltype(action)>(action)] { owl::RunGuarded(action); });
    };
    for (const std::string& label : OfferedLabels(recentLabels, events.Events(), event.Class)) {
        add(owl::AsCaption(QString::fromStdString(label)), [this, event, label] {
            EventRecord labelled = event;
            labelled.Label = label;
            AddEvent(labelled);
        });
    }
    menu->addSeparator();
    add(QString::fromStdString(TraceText("otherLabel", "&Other Label...")), [this, event] {
        EventRecord suggested = event;
        suggested.Label = recentLabels.empty() ? std::string() : recentLabels.front();
        if (const std::optional<std::size_t> added = AddWithDialog(view.GetHandle(), events, suggested)) {
            recentLabels = WithRecent(recentLabels, events.Events()[*added].Label);
            SelectEvent(*added);
        }
    });
    connect(menu, &QMenu::aboutToHide, &view, [this] { overlay->SetCursor({}); });
    menu->popup(view.mapToGlobal(QPoint(at.x, at.y)));
    menu->setActiveAction(menu->actions().front());
}

void TraceView::Impl::AddEvent(const EventRecord& event) {
    const std::string whyNot = events.WhyNot(event);
    if (!whyNot.empty()) {
        Tell(whyNot);
        return;
    }
    const std::size_t added = events.Add(event);
    recentLabels = WithRecent(recentLabels, event.Label);
    SelectEvent(added);
}

XTime TraceView::Impl::MomentAt(double time) {
    // A pixel tells no more.
    constexpr double kPerSecond = 1e3;
    const bool finer = Layout().SecondsPerPixel() * kPerSecond < 1;
    const double rounded = finer ? time : std::round(time * kPerSecond) / kPerSecond;
    return XTime::FromSeconds(std::clamp(rounded, 0.0, model.Total()));
}

void TraceView::Impl::OfferSpot(double time, const owl::TPoint& at) {
    const XTime moment = MomentAt(time);
    CursorInput cursor;
    cursor.kind = CursorInput::Kind::Stretch;
    cursor.from = cursor.at = at;
    overlay->SetCursor(cursor);
    Offer({{}, EventClass::Spot, {moment, moment}}, at);
}

void TraceView::Impl::OfferState(double begin, double end, const owl::TPoint& at) {
    const auto [first, last] = std::minmax(begin, end);
    const XTime from = MomentAt(first);
    const XTime to = MomentAt(last);
    if (from < to) {
        Offer({{}, EventClass::State, {from, to}}, at);
    }
}

void TraceView::Impl::MarkHere() {
    const TraceLayout layout = Layout();
    // Where the mouse is, else in the middle of the page.
    const CursorInput& cursor = overlay->Cursor();
    owl::TPoint at{(layout.plot.left + layout.plot.right) / 2, (layout.plot.top + layout.plot.bottom) / 2};
    if (menuAt) {
        at = *menuAt;
    } else if (cursor.kind == CursorInput::Kind::Cursor) {
        at = cursor.at;
    }
    OfferSpot(layout.TimeAt(at.x), at);
}

void TraceView::Impl::SelectEvent(std::optional<std::size_t> event) {
    selectedEvent = event;
    if (event) {
        const EventRecord& record = events.Events()[*event];
        Show(Showing(model.State().window, record.Interval.GetBeginPtr()->Seconds(), model.Total()));
    }
    view.Invalidate();
}

void TraceView::Impl::SelectNextEvent(bool forward) {
    const std::vector<EventRecord>& all = events.Events();
    if (all.empty()) {
        Say(TraceText("noEvents", "There are no events."));
        return;
    }
    const auto begin = [&all](std::size_t event) { return all[event].Interval.GetBeginPtr()->Seconds(); };
    std::optional<std::size_t> next;
    if (selectedEvent) {
        if (forward && *selectedEvent + 1 < all.size()) {
            next = *selectedEvent + 1;
        } else if (!forward && *selectedEvent > 0) {
            next = *selectedEvent - 1;
        }
    } else {
        const TraceWindow& window = model.State().window;
        for (std::size_t i = 0; i < all.size(); ++i) {
            if (forward && begin(i) >= window.start) {
                next = i;
                break;
            }
            if (!forward && begin(i) < window.start + window.duration) {
                next = i;
            }
        }
    }
    if (!next) {
        Say(forward ? TraceText("lastEvent", "There is no later event.")
                    : TraceText("firstEvent", "There is no earlier event."));
        return;
    }
    SelectEvent(next);
    Say(all[*next].Label);
}

void TraceView::Impl::EditEvent() {
    if (!selectedEvent) {
        Say(TraceText("noEventSelected", "Select an event first: click its label, or press N."));
        return;
    }
    if (const std::optional<std::size_t> changed =
            ChangeWithDialog(view.GetHandle(), events, *selectedEvent)) {
        SelectEvent(*changed);
    }
}

void TraceView::Impl::DeleteEvent() {
    if (!selectedEvent) {
        Say(TraceText("noEventSelected", "Select an event first: click its label, or press N."));
        return;
    }
    if (!events.IsOwn(*selectedEvent)) {
        Tell(TraceText("notOwn",
                       "This event is part of the recording itself and cannot be deleted. Only events "
                       "that were marked here can."));
        return;
    }
    const std::array chosen{*selectedEvent};
    events.Remove(chosen);
}

void TraceView::Impl::Tell(const std::string& text) {
    owl::CurrentModalGateway().ShowMessage(view.GetHandle(), text, view.GW().GetErrorStr(),
                                           owl::kMbOk | owl::kMbIconExclamation);
}

} // namespace orvanta::review

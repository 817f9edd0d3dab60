// SPDX-License-Identifier: GPL-3.0-or-later
// The context menus of the trace view.
#include "host/review/app/traces/trace_view_impl.h"

#include <QContextMenuEvent>

#include <array>

namespace orvanta::review {

namespace {

constexpr unsigned kLine = 0; ///< between items

constexpr std::array<unsigned, 9> kOfName{kCmMarkBad, kCmHideLine, kCmShowAllLines, kCmChannels,  kLine,
                                          kCmGainUp,  kCmGainDown, kLine,           kCmNegativeUp};
constexpr std::array<unsigned, 9> kOfTraces{kCmMarkEvent, kCmMarkMode, kCmMeasureMode,
                                            kLine,        kCmGoToTime, kCmZoomBack,
                                            kLine,        kCmMarkBad,  kCmHideLine};
constexpr std::array<unsigned, 5> kOfEvent{kCmEditEvent, kCmDeleteEvent, kLine, kCmPreviousEvent,
                                           kCmNextEvent};

} // namespace

void TraceView::Impl::PopUp(const TraceLayout& layout, const owl::TPoint& point) {
    const EventTag* tag = TagAt(tags, layout, point);
    const bool onEvent =
        tag != nullptr && (tag->box.Contains(point) || tag->input->event->Class == EventClass::Spot);
    const std::optional<int> line = layout.LineAt(point.y);
    if (line && !onEvent && point.x < layout.plot.right) {
        Select(model.Channels()[model.LineOf(layout, *line)].name);
    }
    // Not as soon as it is hidden: an item that runs long lets events through while Qt is still in the menu.
    delete contextMenu;
    owl::TMenu* menu = nullptr;
    if (onEvent) {
        SelectEvent(tag->input->index);
        menu = MakeTraceMenu(kOfEvent, view, view);
    } else if (layout.names.Contains(point)) {
        menu = MakeTraceMenu(kOfName, view, view);
    } else {
        menu = MakeTraceMenu(kOfTraces, view, view);
        menuAt = layout.plot.Contains(point) || layout.labels.Contains(point) ? std::optional(point)
                                                                              : std::nullopt;
    }
    menu->setObjectName("TraceContextMenu");
    contextMenu = menu;
    // Queued: the item that was chosen runs after the menu has gone, and still needs the place.
    connect(
        menu, &QMenu::aboutToHide, &view, [this] { menuAt.reset(); }, Qt::QueuedConnection);
    overlay->SetCursor({});
    menu->popup(view.mapToGlobal(QPoint(point.x, point.y)));
}

void TraceView::contextMenuEvent(QContextMenuEvent* event) {
    // The mouse opens it on release, unless a rectangle was drawn.
    if (event->reason() == QContextMenuEvent::Keyboard && IsCreated()) {
        const TraceLayout layout = impl_->Layout();
        impl_->PopUp(
            layout, {(layout.plot.left + layout.plot.right) / 2, (layout.plot.top + layout.plot.bottom) / 2});
    }
    event->accept();
}

} // namespace orvanta::review

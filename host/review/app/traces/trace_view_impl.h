// SPDX-License-Identifier: GPL-3.0-or-later
// What the trace view is made of.
#pragma once

#include "host/review/app/events/event_editor.h"
#include "host/review/app/traces/trace_boxes.h"
#include "host/review/app/traces/trace_commands.h"
#include "host/review/app/traces/trace_model.h"
#include "host/review/app/traces/trace_overlay.h"
#include "host/review/app/traces/trace_painter.h"
#include "host/review/app/traces/trace_view.h"

#include <QScrollBar>

#include <atomic>
#include <functional>

namespace orvanta::review {

/// Runs a function when a flag is set.
class FlagAction final : public FlagListener {
public:
    FlagAction(const char* name, ManagedFlag& flag, std::function<void()> action)
        : FlagListener(name, flag), action_(std::move(action)) {}
    void PerformAction() override { action_(); }

private:
    std::function<void()> action_;
};

struct TraceView::Impl {
    /// What the mouse does while a button is down.
    enum class Drag { None, Overview, Mark, Measure, Zoom, Pan };

    Impl(TraceView& owner, EEGFileInfoType& file, EventEditor& eventEditor);

    // Looking.
    TraceLayout Layout() const;
    int NameWidth() const;
    double Millimetre() const;
    std::vector<EventInput> Events() const;
    PageInput Page(const TraceLayout& layout);
    void Paint(owl::TDC& dc);

    // Moving.
    void Show(const TraceWindow& window);
    void MoveTo(double start);
    void MoveBy(double seconds);
    void SetDuration(double seconds, double share);
    void ScrollLines(int lines);
    void SetLinesPerPage(int lines);
    void FollowCursor();
    void ZoomInto(const owl::TRect& area);
    void ZoomBack();

    // Gains and filters.
    /// The groups that gains change: that of the selected line, else all.
    std::vector<TraceGroup> GroupsToScale() const;
    void StepGain(bool larger);
    void SetGain(double unitsPerMillimetre);
    void SetFilter(const TraceFilter& filter);

    // Lines.
    void Select(const std::string& line);
    void SelectNeighbour(int step);
    void BringIntoView(std::size_t line);
    void ToggleBad();
    /// Marks the electrode that the line is named after.
    void SetBad(const TraceChannel& line, bool bad);
    void HideSelected();
    void ShowAll();
    void ChooseChannels();
    void MontageChanged();

    void Run(unsigned command);
    void Say(const std::string& text);
    /// After lines, page or gains changed.
    void Refresh();
    void SetScrollBar(const TraceLayout& layout);

    // Mouse.
    void Press(const owl::TPoint& point, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    void Move(const owl::TPoint& point, Qt::KeyboardModifiers modifiers);
    void Release(const owl::TPoint& point);
    void Wheel(const owl::TPoint& point, double notches, Qt::KeyboardModifiers modifiers);
    void MoveToOverview(int x);

    void Load();
    void Store();

    TraceView& view;
    EEGFileInfoType& recording;
    EventEditor& events;
    TraceModel model;
    std::vector<TraceWindow> zooms; ///< to go back to
    std::vector<Shade> shades;
    std::vector<EventTag> tags;          ///< of the page that was painted last
    std::vector<EventInput> shownEvents; ///< what the tags point to
    std::optional<std::size_t> selectedEvent;
    bool marking = false; ///< a click marks an event
    Drag drag = Drag::None;
    owl::TPoint dragFrom;
    TraceWindow dragWindow; ///< when the button went down
    bool dragged = false;
    bool moving = false; ///< the view itself moves the trace cursor
    std::atomic<bool> grownQueued = false;
    QScrollBar* scrollBar = nullptr;
    TraceOverlay* overlay = nullptr;
    TraceBoxes boxes;
    FlagAction montageAction, positionAction, eventsAction;
};

} // namespace orvanta::review

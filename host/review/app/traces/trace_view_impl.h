// SPDX-License-Identifier: GPL-3.0-or-later
// What the trace view is made of.
#pragma once

#include "host/review/app/action_listener.h"
#include "host/review/app/events/event_editor.h"
#include "host/review/app/traces/trace_boxes.h"
#include "host/review/app/traces/trace_commands.h"
#include "host/review/app/traces/trace_model.h"
#include "host/review/app/traces/trace_overlay.h"
#include "host/review/app/traces/trace_painter.h"
#include "host/review/app/traces/trace_view.h"

#include <QMenu>
#include <QPointer>
#include <QScrollBar>
#include <QTimer>

#include <atomic>

namespace orvanta::review {

struct TraceView::Impl {
    /// What the mouse does while a button is down.
    enum class Drag { None, Overview, Mark, Measure, Zoom, Pan };
    /// What a click and a drag on the traces are for.
    enum class Mode { Select, Mark, Measure };

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
    /// Marks the electrode that the line is named after. \return its name
    std::string SetBad(const TraceChannel& line, bool bad);
    /// Other views and the average reference notice what is bad.
    void TellBad();
    void HideSelected();
    void SetHidden(std::set<std::string> names);
    void ShowAll();
    void ChooseChannels();
    void MontageChanged();

    void Run(unsigned command);
    void Say(const std::string& text);
    /// After lines, page or gains changed.
    void Refresh();
    void SetScrollBar(const TraceLayout& layout);

    // Mouse.
    std::optional<LineInput> LineUnder(const TraceLayout& layout, int y);
    CursorInput CursorAt(const TraceLayout& layout, const owl::TPoint& point);
    CursorInput StretchTo(const TraceLayout& layout, const owl::TPoint& point);
    /// Beside the mouse and in the message bar.
    void ReadOut(const CursorInput& cursor);
    /// What the page has under the mouse now that it is drawn.
    void ReadOutPage(const TraceLayout& layout);
    /// What was measured has gone with its page.
    void ForgetMeasurement();
    void Click(const TraceLayout& layout, const owl::TPoint& point);
    void Press(const owl::TPoint& point, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    void Move(const owl::TPoint& point);
    void Release(const owl::TPoint& point, Qt::MouseButton button);
    void Wheel(const owl::TPoint& point, double notches, Qt::KeyboardModifiers modifiers);
    void MoveToOverview(int x);
    /// The context menu of what is there: a channel's name, an event, the traces.
    void PopUp(const TraceLayout& layout, const owl::TPoint& point);

    // Events.
    /// Lets the user choose the label of an event that is to be added.
    void Offer(const EventRecord& event, const owl::TPoint& at);
    /// Of an event that the mouse marks: whole milliseconds, unless a pixel is less.
    XTime MomentAt(double time);
    void OfferSpot(double time, const owl::TPoint& at);
    void OfferState(double begin, double end, const owl::TPoint& at);
    void AddEvent(const EventRecord& event);
    void MarkHere();
    void SelectEvent(std::optional<std::size_t> event);
    void SelectNextEvent(bool forward);
    void EditEvent();
    void DeleteEvent();
    /// In a box that waits for the user.
    void Tell(const std::string& text);

    void SetMode(Mode next);
    /// Ends what the user began, and selects nothing.
    void Cancel();
    bool CanCancel() const;
    void GoToTime();
    void Play(bool play);
    void PlayOn();

    void Load();
    void Store();
    std::string ReadText(const std::string& key) const;
    // Hidden lines are kept for each montage.
    std::string HiddenKey() const;
    void LoadHidden();
    void StoreHidden() const;

    TraceView& view;
    EEGFileInfoType& recording;
    EventEditor& events;
    std::atomic<bool> grownQueued = false; ///< the background of the model looks at it to its end
    TraceModel model;
    std::string montage;            ///< name of the one in use
    std::vector<TraceWindow> zooms; ///< to go back to
    std::vector<Shade> shades;
    std::vector<EventTag> tags;          ///< of the page that was painted last
    std::vector<EventInput> shownEvents; ///< what the tags point to
    std::optional<std::size_t> selectedEvent;
    std::vector<std::string> recentLabels; ///< the one used last first
    std::string said;                      ///< of the mouse, while it stands in the message bar
    Mode mode = Mode::Select;
    std::optional<owl::TPoint> menuAt; ///< where the context menu was asked for
    Drag drag = Drag::None;
    owl::TPoint dragFrom;
    TraceWindow dragWindow; ///< when the button went down
    bool dragged = false;
    bool drawn = false;                     ///< the first page was shown
    bool moving = false;                    ///< the view itself moves the trace cursor
    QPointer<QMenu> labelMenu, contextMenu; ///< opened last
    QTimer player;
    std::int64_t playedAt = 0; ///< milliseconds
    QScrollBar* scrollBar = nullptr;
    TraceOverlay* overlay = nullptr;
    std::optional<double> fineness; ///< of a picture; the screen's without
    TraceBoxes boxes;
    ActionListener montageAction, positionAction, eventsAction;
};

} // namespace orvanta::review

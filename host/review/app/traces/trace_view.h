// SPDX-License-Identifier: GPL-3.0-or-later
// The traces of a recording.
#pragma once

#include "host/chart_view/the_child.h"
#include "spectra_contract/recording.h"

#include <memory>
#include <string>
#include <vector>

namespace orvanta::review {

class EventEditor;

/// A stretch that is shaded behind the traces: an analysis used it.
struct Shade {
    XTimeInterval interval;
    owl::TColor color = 0;  ///< strong; the traces' painter lets the traces through
    std::string name = {};  ///< whose it is, "Main analysis: Resting"
    bool secondary = false; ///< its bar stands above that of the main analysis

    bool operator==(const Shade&) const = default;
};

/// Shows the traces of the montage in use, events, a ruler and an overview of the whole recording. It follows
/// the recording's trace cursor and moves it. Neither the recording nor the events are owned; both must
/// outlive the view. GUI thread.
class TraceView : public TheChild {
public:
    TraceView(GlobalWindow& window, EEGFileInfoType& recording, EventEditor& events);
    ~TraceView() override;

    /// Moves the page so that the time is on it.
    void GoTo(const XTime& time);
    /// The stretch that is on the page.
    XTimeInterval GetPage() const;
    /// Brings the line that shows the channel or electrode into view and marks it; nothing for an unknown
    /// name.
    void ShowChannel(const std::string& name);
    /// Whether the picture has all of the recording that the background looks at, or as much as it ever will.
    bool IsComplete() const;
    /// Replaces what was shaded.
    void SetShades(std::vector<Shade> shades);

    void StoreUserSettings() const override;
    void Destroy(int retVal = 0) override;
    void Draw(owl::TDC& dc, bool erase, owl::TRect& rect) override;
    void DrawPicture(owl::TDC& dc, const owl::TSize& size, double fineness) override;
    const owl::TResponseEntry* Find(const owl::TEventKey& key) const override;

protected:
    static const owl::TResponseTable __entries; // NOLINT(clang-diagnostic-reserved-identifier): the family's

    void SetupWindow() override;
    void LoadUserSettings() override;
    void CreateGadgets() override;
    void DrawAll(owl::TDC& dc, double fineness) override;

    /// \param id of the view's commands
    void CmTraces(unsigned id);
    void CeTraces(owl::TCommandEnabler& item);
    // The user chose an entry of a box of the tool bar.
    void EvPageLength(WPARAM index, LPARAM);
    void EvGain(WPARAM index, LPARAM);
    void EvLowCut(WPARAM index, LPARAM);
    void EvHighCut(WPARAM index, LPARAM);
    void EvNotch(WPARAM index, LPARAM);
    void EvMontage(WPARAM index, LPARAM);
    /// More of the recording was looked at in the background.
    void EvGrown(WPARAM, LPARAM);

    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace orvanta::review

// SPDX-License-Identifier: GPL-3.0-or-later
// Where the views stand.
#pragma once

#include "host/review/app/main_window/framed_view.h"
#include "host/review/app/main_window/pane_shares.h"

#include <QPointer>
#include <QSplitter>

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace orvanta::review {

enum class ViewKind {
    Traces,
    Spectrum,
    Maps,  ///< flat
    Heads, ///< maps on heads, in the place of the flat ones
};

inline constexpr std::array kViewKinds = {ViewKind::Traces, ViewKind::Spectrum, ViewKind::Maps,
                                          ViewKind::Heads};
inline constexpr std::array kAnalysisViews = {ViewKind::Spectrum, ViewKind::Maps, ViewKind::Heads};

inline constexpr std::array kMapsViews = {ViewKind::Maps, ViewKind::Heads};

constexpr bool IsMaps(ViewKind kind) {
    return kind == ViewKind::Maps || kind == ViewKind::Heads;
}

/// One place for each kind of view, in splitters that the user can move. What the user gave to each stays
/// while views come and go and the window changes its size. GUI thread.
class ViewArea final : public QSplitter {
public:
    explicit ViewArea(QWidget* parent = nullptr);

    /// \param close what the view's button asks for
    void Place(ViewKind kind, TheChild& view, std::function<void()> close);
    /// Removes the frame; the view itself is not touched and must be gone or go with its main window.
    void Remove(ViewKind kind);
    /// Null without one.
    TheChild* ViewOf(ViewKind kind) const;
    /// In the order of kViewKinds, those that can be seen.
    std::vector<FramedView*> Shown() const;
    /// Of the view that is seen with one; null without.
    PanelBeside* SideBar() const;

    Arrangement GetArrangement() const { return layout_.arrangement; }
    void Arrange(Arrangement arrangement);

    /// Lets the view alone be seen; a second time, or when it goes or another comes, all again.
    void Fill(ViewKind kind);
    void ShowAll();
    bool IsFilled() const { return filled_.has_value(); }

    // Arrangement and sizes as a text.
    std::string Layout() const { return TextOf(layout_); }
    /// Nothing for a text that makes no sense.
    void RestoreLayout(const std::string& text);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void ShowFrames();
    void ShareRoom();

    PaneLayout layout_;
    QSplitter* others_; ///< spectrum and maps
    std::array<QPointer<FramedView>, kViewKinds.size()> frames_;
    std::optional<ViewKind> filled_;
};

} // namespace orvanta::review

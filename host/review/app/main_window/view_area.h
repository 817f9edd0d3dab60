// SPDX-License-Identifier: GPL-3.0-or-later
// Where the views stand.
#pragma once

#include "host/review/app/main_window/framed_view.h"

#include <QPointer>
#include <QSplitter>

#include <array>
#include <functional>
#include <optional>
#include <string>

namespace orvanta::review {

enum class ViewKind { Traces, Spectrum, Maps };

inline constexpr std::array kViewKinds = {ViewKind::Traces, ViewKind::Spectrum, ViewKind::Maps};

enum class Arrangement {
    TracesAbove,  ///< the traces above, the others beside each other
    TracesBeside, ///< the traces on the left, the others on top of each other
    Rows,         ///< each below the other
};

/// One place for each kind of view, in splitters that the user can move. GUI thread.
class ViewArea final : public QSplitter {
public:
    explicit ViewArea(QWidget* parent = nullptr);

    /// \param close what the view's button asks for
    void Place(ViewKind kind, TheChild& view, std::function<void()> close);
    /// Removes the frame; the view itself is not touched and must be gone or go with its main window.
    void Remove(ViewKind kind);
    /// Null without one.
    TheChild* ViewOf(ViewKind kind) const;

    Arrangement GetArrangement() const { return arrangement_; }
    void Arrange(Arrangement arrangement);

    /// Lets the view alone be seen; a second time, or when it goes, all again.
    void Fill(ViewKind kind);
    bool IsFilled() const { return filled_.has_value(); }

    // Arrangement and sizes as a text.
    std::string Layout() const;
    /// Nothing for a text that makes no sense.
    void RestoreLayout(const std::string& text);

private:
    void ShowFrames();
    /// As a new user finds them.
    void ShareRoom();

    Arrangement arrangement_ = Arrangement::TracesAbove;
    QSplitter* others_; ///< spectrum and maps
    std::array<QPointer<FramedView>, kViewKinds.size()> frames_;
    std::optional<ViewKind> filled_;
    QList<int> sizes_, otherSizes_; ///< as they were stored; empty for a new user
};

} // namespace orvanta::review

// SPDX-License-Identifier: GPL-3.0-or-later
// What stands beside a view, in its panes.
#pragma once

#include "host/review/app/main_window/pane_shares.h"

#include <QObject>

class QSplitter;
class QToolButton;
class TheChild;

namespace orvanta::review {

/// Keeps the panel as wide as the user made it, shows and hides it. Without a choice of the user's it is
/// shown while it leaves the larger part to the view. A view makes its panel when it needs one. GUI thread.
class PanelBeside final : public QObject {
public:
    /// \param view must outlive this or end with it
    /// \param button the user's, which owns this; hidden without a panel
    /// \param stored follows the user
    PanelBeside(TheChild& view, QToolButton& button, SidePanel& stored);

    /// Null while there is none.
    QWidget* Panel() const;
    bool IsShown() const;
    /// The user's choice.
    void Show(bool show);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Arrange();

    TheChild& view_;
    QSplitter& panes_;
    QToolButton& button_;
    SidePanel& stored_;
    bool queued_ = false;
};

} // namespace orvanta::review

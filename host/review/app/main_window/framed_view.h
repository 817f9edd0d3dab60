// SPDX-License-Identifier: GPL-3.0-or-later
// A view with its tool bar.
#pragma once

#include <QFrame>

#include <functional>

class QToolButton;
class TheChild;

namespace orvanta::review {

class PanelBeside;
struct SidePanel;

// Keys of the buttons, which are those of menu items, too.
constexpr Qt::Key kFillKey = Qt::Key_F11;
constexpr Qt::Key kPanelKey = Qt::Key_F9;

/// The tool bar and buttons, which show what stands beside the view, let it fill the area and close it, above
/// the panes of the view. What has the focus is framed in the colour of what is selected. The frame must go
/// before or with the view's main window; it does not own the view.
class FramedView final : public QFrame {
public:
    struct Buttons {
        std::function<void()> fill;
        std::function<void()> close;
    };

    /// \param panel is kept as the user leaves it; must outlive this
    FramedView(TheChild& view, Buttons buttons, SidePanel& panel, QWidget* parent);

    TheChild& View() const { return view_; }
    PanelBeside& Panel() const { return *panel_; }
    void ShowFilled(bool filled);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    TheChild& view_;
    QToolButton* fill_;
    PanelBeside* panel_;
};

} // namespace orvanta::review

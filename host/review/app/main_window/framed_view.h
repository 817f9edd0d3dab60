// SPDX-License-Identifier: GPL-3.0-or-later
// A view with its tool bar.
#pragma once

#include <QFrame>

#include <functional>

class TheChild;

namespace orvanta::review {

/// The tool bar and two buttons, which let the view fill the area and close it, above the panes of the view.
/// The frame must go before or with the view's main window; it does not own the view.
class FramedView final : public QFrame {
public:
    struct Buttons {
        std::function<void()> fill;
        std::function<void()> close;
    };

    FramedView(TheChild& view, Buttons buttons, QWidget* parent);

    TheChild& View() const { return view_; }

private:
    TheChild& view_;
};

} // namespace orvanta::review

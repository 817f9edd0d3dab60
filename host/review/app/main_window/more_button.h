// SPDX-License-Identifier: GPL-3.0-or-later
// What a tool bar has no room for.
#pragma once

#include <QToolButton>

class QToolBar;

namespace orvanta::review {

/// Stands at the end of a tool bar of widgets and offers those that found no room, in a menu. Hidden while
/// there is room for all. GUI thread.
class MoreButton final : public QToolButton {
public:
    /// \param bar must outlive this or end with its window
    MoreButton(QToolBar& bar, QWidget* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Follow();
    void Fill();

    QToolBar& bar_;
    QMenu* menu_;
    bool queued_ = false;
};

} // namespace orvanta::review

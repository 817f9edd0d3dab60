// SPDX-License-Identifier: GPL-3.0-or-later
// The panels of the view that has the focus, at the edge of the window.
#pragma once

#include "host/chart_view/side_bar_manager.h"

#include <QDockWidget>
#include <QPointer>

#include <vector>

class QTabWidget;

namespace orvanta::review {

/// A tab for each panel; hidden without panels. A panel that already has a place in a window, such as beside
/// its view, keeps that. GUI thread.
class SideBar final : public QDockWidget, public SideBarManager {
public:
    explicit SideBar(QWidget* parent = nullptr);
    /// Hands the panels back.
    ~SideBar() override;

    void AddPanel(QWidget& panel, bool show, bool activate) override;
    void RemovePanel(QWidget& panel) override;
    void Update() override;

private:
    bool Has(const QWidget& panel) const;

    QTabWidget* tabs_;
};

} // namespace orvanta::review

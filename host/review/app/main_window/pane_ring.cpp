// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/pane_ring.h"

#include "host/chart_view/the_child.h"
#include "host/review/app/main_window/main_window.h"
#include "host/review/app/main_window/notice_strip.h"
#include "host/review/app/main_window/panel_beside.h"
#include "host/review/app/main_window/view_area.h"

#include <QApplication>
#include <QDockWidget>
#include <QMainWindow>

#include <algorithm>
#include <vector>

namespace orvanta::review {

namespace {

bool Takes(const QWidget& widget) {
    return widget.isVisible() && widget.isEnabled() && (widget.focusPolicy() & Qt::TabFocus) != 0;
}

/// The pane itself, else the first in it that the Tab key reaches; null when there is none.
QWidget* Entry(QWidget& pane) {
    if (pane.isVisible() && pane.focusPolicy() != Qt::NoFocus) {
        return &pane;
    }
    QWidget* widget = pane.nextInFocusChain();
    while (widget != &pane && !(pane.isAncestorOf(widget) && Takes(*widget))) {
        widget = widget->nextInFocusChain();
    }
    return widget != &pane ? widget : nullptr;
}

std::vector<QWidget*> Panes(const QMainWindow& shell, const MainWindow& middle) {
    std::vector<QWidget*> panes;
    for (const FramedView* frame : middle.Views().Shown()) {
        panes.push_back(&frame->View());
        panes.push_back(frame->Panel().Panel());
    }
    panes.push_back(&middle.Offer());
    for (QDockWidget* dock : shell.findChildren<QDockWidget*>()) {
        panes.push_back(dock->widget());
    }
    panes.push_back(&middle.Problem());
    panes.push_back(&middle.Repairs());
    std::erase_if(panes, [](QWidget* pane) { return pane == nullptr || Entry(*pane) == nullptr; });
    return panes;
}

} // namespace

void GoToPane(const QMainWindow& shell, const MainWindow& middle, bool next) {
    const std::vector<QWidget*> panes = Panes(shell, middle);
    const QWidget* focus = QApplication::focusWidget();
    const auto now = std::ranges::find_if(
        panes, [focus](const QWidget* pane) { return pane == focus || pane->isAncestorOf(focus); });
    if (panes.empty()) {
        return;
    }
    const auto count = static_cast<std::ptrdiff_t>(panes.size());
    const std::ptrdiff_t from = now != panes.end() ? now - panes.begin() : (next ? -1 : count);
    const std::ptrdiff_t to = (from + (next ? 1 : count - 1)) % count;
    Entry(*panes[static_cast<std::size_t>(to)])->setFocus(Qt::ShortcutFocusReason);
}

} // namespace orvanta::review

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/panel_beside.h"

#include "host/chart_view/the_child.h"

#include <QApplication>
#include <QEvent>
#include <QSplitter>
#include <QToolButton>

#include <algorithm>

namespace orvanta::review {

PanelBeside::PanelBeside(TheChild& view, QToolButton& button, SidePanel& stored)
    : QObject(&button), view_(view), panes_(view.Panes()), button_(button), stored_(stored) {
    button_.setCheckable(true);
    panes_.installEventFilter(this);
    connect(&button_, &QToolButton::clicked, this, [this](bool checked) { Show(checked); });
    connect(&panes_, &QSplitter::splitterMoved, this, [this] {
        if (const QWidget* panel = Panel()) {
            stored_.width = panel->width();
        }
    });
    Arrange();
}

QWidget* PanelBeside::Panel() const {
    for (int i = 0; i < panes_.count(); ++i) {
        if (panes_.widget(i) != &view_) {
            return panes_.widget(i);
        }
    }
    return nullptr;
}

bool PanelBeside::IsShown() const {
    const QWidget* panel = Panel();
    return panel != nullptr && !panel->isHidden();
}

void PanelBeside::Show(bool show) {
    stored_.shown = show;
    Arrange();
}

bool PanelBeside::eventFilter(QObject* watched, QEvent* event) {
    const bool changes = event->type() == QEvent::ChildAdded || event->type() == QEvent::ChildRemoved ||
                         event->type() == QEvent::Resize;
    if (changes && !queued_) {
        // Once the panes have taken it in.
        queued_ = true;
        QMetaObject::invokeMethod(
            this, [this] { Arrange(); }, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}

void PanelBeside::Arrange() {
    queued_ = false;
    QWidget* panel = Panel();
    button_.setVisible(panel != nullptr);
    if (panel == nullptr) {
        return;
    }
    constexpr double kWidest = 0.45; // of both
    const int wanted = stored_.width > 0 ? stored_.width : panel->sizeHint().width();
    const int most = static_cast<int>(kWidest * panes_.width());
    const bool show = stored_.shown.value_or(panel->minimumSizeHint().width() <= most);
    button_.setChecked(show);
    if (!show && panel->isAncestorOf(QApplication::focusWidget())) {
        view_.SetFocus();
    }
    panel->setVisible(show);
    if (show && panes_.count() == 2) {
        const int width = std::min(wanted, most);
        QList<int> sizes{width, panes_.width() - width};
        if (panes_.widget(0) == &view_) {
            std::ranges::reverse(sizes);
        }
        panes_.setSizes(sizes);
    }
}

} // namespace orvanta::review

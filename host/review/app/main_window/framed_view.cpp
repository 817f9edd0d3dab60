// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/framed_view.h"

#include "host/chart_view/the_child.h"
#include "host/review/app/main_window/host_text.h"
#include "host/review/app/main_window/more_button.h"
#include "host/review/app/main_window/panel_beside.h"
#include "host/toolkit/icon.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QPainter>
#include <QSplitter>
#include <QToolButton>
#include <QVBoxLayout>

#include <utility>

namespace orvanta::review {

namespace {

constexpr int kFrame = 2; // logical pixels

QToolButton* Button(const char* name, const QString& tip, const QKeySequence& key, QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setObjectName(name);
    button->setIcon(owl::IconOf(QString(name)));
    button->setToolTip(key.isEmpty() ? tip : tip + " (" + key.toString(QKeySequence::NativeText) + ')');
    button->setAccessibleName(tip);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

} // namespace

FramedView::FramedView(TheChild& view, Buttons buttons, SidePanel& panel, QWidget* parent)
    : QFrame(parent), view_(view),
      fill_(Button("view_fill", HostQText("viewFill", "Let this view fill the window, or show all again"),
                   kFillKey, this)) {
    connect(qApp, &QApplication::focusChanged, this,
            [this] { update(QRegion(rect()) - rect().adjusted(kFrame, kFrame, -kFrame, -kFrame)); });
    QToolButton* beside =
        Button("view_panel", HostQText("viewPanel", "Show or hide the side bar"), kPanelKey, this);
    panel_ = new PanelBeside(view, *beside, panel);
    QToolButton* close = Button("view_close", HostQText("viewClose", "Close this view"), {}, this);
    fill_->setCheckable(true);
    auto* head = new QHBoxLayout;
    head->setSpacing(0);
    head->addWidget(beside);
    head->addWidget(&view.GetToolBar(), 1);
    head->addWidget(new MoreButton(view.GetToolBar(), this));
    head->addWidget(fill_);
    head->addWidget(close);
    connect(fill_, &QToolButton::clicked, this, std::move(buttons.fill));
    connect(close, &QToolButton::clicked, this, std::move(buttons.close), Qt::QueuedConnection);

    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(kFrame, kFrame, kFrame, kFrame);
    rows->setSpacing(0);
    rows->addLayout(head);
    rows->addWidget(&view.Panes(), 1);
    view.GetToolBar().show();
    view.Panes().show();
}

void FramedView::paintEvent(QPaintEvent* /*event*/) {
    const bool focused = isAncestorOf(QApplication::focusWidget());
    const int width = focused ? kFrame : 1;
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    const QColor color = palette().color(focused ? QPalette::Highlight : QPalette::Mid);
    for (const QRect& side : QRegion(rect()) - rect().adjusted(width, width, -width, -width)) {
        painter.fillRect(side, color);
    }
}

void FramedView::ShowFilled(bool filled) {
    fill_->setChecked(filled);
}

} // namespace orvanta::review

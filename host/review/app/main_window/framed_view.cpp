// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/framed_view.h"

#include "host/chart_view/the_child.h"
#include "host/review/app/main_window/host_text.h"
#include "host/toolkit/icon.h"

#include <QHBoxLayout>
#include <QSplitter>
#include <QToolButton>
#include <QVBoxLayout>

#include <utility>

namespace orvanta::review {

namespace {

QToolButton* Button(const char* name, const QString& tip, QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setObjectName(name);
    button->setIcon(owl::IconOf(QString(name)));
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

} // namespace

FramedView::FramedView(TheChild& view, Buttons buttons, QWidget* parent) : QFrame(parent), view_(view) {
    setFrameShape(QFrame::StyledPanel);
    auto* head = new QHBoxLayout;
    head->setSpacing(0);
    head->addWidget(&view.GetToolBar(), 1);
    QToolButton* fill =
        Button("view_fill", HostQText("viewFill", "Let this view fill the window, or show all again"), this);
    QToolButton* close = Button("view_close", HostQText("viewClose", "Close this view"), this);
    head->addWidget(fill);
    head->addWidget(close);
    connect(fill, &QToolButton::clicked, this, std::move(buttons.fill));
    connect(close, &QToolButton::clicked, this, std::move(buttons.close), Qt::QueuedConnection);

    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addLayout(head);
    rows->addWidget(&view.Panes(), 1);
    view.GetToolBar().show();
    view.Panes().show();
}

} // namespace orvanta::review

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/notice_strip.h"

#include "host/review/app/main_window/host_text.h"
#include "host/toolkit/event_guard.h"
#include "host/toolkit/icon.h"
#include "host/toolkit/modal_gateway.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

#include <utility>

namespace orvanta::review {

NoticeStrip::NoticeStrip(QWidget* parent)
    : QFrame(parent), text_(new QLabel(this)), more_(new QToolButton(this)), close_(new QToolButton(this)) {
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    text_->setForegroundRole(QPalette::ToolTipText);
    text_->setTextFormat(Qt::PlainText);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    text_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* icon = new QLabel(this);
    constexpr int kIcon = 16;
    icon->setPixmap(owl::IconOf(QStringLiteral("information")).pixmap(kIcon, kIcon));
    more_->setText(HostQText("noticeMore", "Show all..."));
    more_->setAutoRaise(true);
    close_->setIcon(owl::IconOf(QStringLiteral("view_close")));
    close_->setAutoRaise(true);
    connect(close_, &QToolButton::clicked, this, &QWidget::hide);
    WhenClosed(HostQText("noticeClose", "Close this notice"), [] {});
    connect(more_, &QToolButton::clicked, this, [this] {
        owl::CurrentModalGateway().ShowMessage(HWND(window()), lines_.join('\n').toStdString(),
                                               heading_.toStdString(), owl::kMbOk);
    });
    auto* row = new QHBoxLayout(this);
    constexpr int kMargin = 4;
    row->setContentsMargins(2 * kMargin, kMargin / 2, kMargin, kMargin / 2);
    row->addWidget(icon);
    row->addWidget(text_, 1);
    row->addWidget(more_);
    row->addWidget(close_);
    hide();
}

void NoticeStrip::Tell(const QString& heading, const QStringList& lines) {
    heading_ = heading;
    lines_ = lines;
    text_->setText(lines.isEmpty() || heading.isEmpty() ? lines.value(0) : heading + ": " + lines.first());
    text_->setToolTip(lines.join('\n').toHtmlEscaped().replace('\n', "<br>"));
    more_->setVisible(lines.size() > 1);
    setVisible(!lines.isEmpty());
}

QString NoticeStrip::Text() const {
    return text_->text();
}

void NoticeStrip::AddAction(const QString& name, const QString& caption, std::function<void()> run) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    connect(button, &QPushButton::clicked, this, [run = std::move(run)] { owl::RunGuarded(run); });
    auto* row = static_cast<QHBoxLayout*>(layout());
    row->insertWidget(row->indexOf(close_), button);
    setTabOrder(button, close_);
}

void NoticeStrip::WhenClosed(const QString& tip, std::function<void()> closed) {
    close_->setToolTip(tip);
    close_->setAccessibleName(tip);
    connect(close_, &QToolButton::clicked, this, [closed = std::move(closed)] { owl::RunGuarded(closed); });
}

} // namespace orvanta::review

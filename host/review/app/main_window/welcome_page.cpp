// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/welcome_page.h"

#include "host/review/app/main_window/documents.h"
#include "host/review/app/main_window/host_text.h"
#include "host/toolkit/control_text.h"
#include "host/toolkit/icon.h"

#include <QCommandLinkButton>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace orvanta::review {

namespace {

constexpr int kColumn = 520;
constexpr int kIcon = 64;
constexpr double kTitleSize = 2;
constexpr std::size_t kShown = 5;

QLabel* Title(const QString& text, QWidget* parent) {
    auto* title = new QLabel(text, parent);
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * kTitleSize);
    title->setFont(font);
    return title;
}

} // namespace

WelcomePage::WelcomePage(Documents& documents, QWidget* parent)
    : QWidget(parent), documents_(documents), recent_(new QWidget(this)) {
    auto* icon = new QLabel(this);
    icon->setPixmap(owl::IconOf(QStringLiteral("orvanta")).pixmap(kIcon, kIcon));
    auto* open = new QPushButton(HostQText("welcomeOpen", "&Open a Recording..."), this);
    open->setObjectName("welcomeOpen");
    open->setDefault(true);
    open->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    connect(open, &QPushButton::clicked, this, [this] { documents_.AskForFile(); });
    auto* hint = new QLabel(
        HostQText("welcomeHint", "Or drop a file here. EDF, EDF+, BDF, BDF+ and BrainVision are read."),
        this);
    hint->setWordWrap(true);

    auto* column = new QVBoxLayout;
    column->addStretch(1);
    auto* head = new QHBoxLayout;
    head->addWidget(icon);
    head->addWidget(Title(QStringLiteral("Orvanta"), this), 1);
    column->addLayout(head);
    column->addSpacing(kIcon / 4);
    column->addWidget(open);
    column->addWidget(hint);
    column->addSpacing(kIcon / 4);
    column->addWidget(recent_);
    column->addStretch(2);
    auto* middle = new QWidget(this);
    middle->setMaximumWidth(kColumn);
    middle->setLayout(column);
    auto* row = new QHBoxLayout(this);
    row->addStretch(1);
    row->addWidget(middle, 4);
    row->addStretch(1);
    new QVBoxLayout(recent_);
    recent_->layout()->setContentsMargins(0, 0, 0, 0);
}

void WelcomePage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    FillRecent();
}

void WelcomePage::FillRecent() {
    while (QLayoutItem* item = recent_->layout()->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    std::size_t shown = 0;
    for (const std::string& path : documents_.Recent().Paths()) {
        const QFileInfo file(QString::fromStdString(path));
        if (!file.exists() || shown == kShown) {
            continue;
        }
        if (shown++ == 0) {
            recent_->layout()->addWidget(
                new QLabel(HostQText("welcomeRecent", "Recent recordings"), recent_));
        }
        auto* link = new QCommandLinkButton(owl::AsCaption(file.fileName()), file.path(), recent_);
        link->setIcon(owl::IconOf(QStringLiteral("spectrum")));
        // The page fills itself anew meanwhile.
        connect(
            link, &QPushButton::clicked, this, [this, path] { documents_.Open(path); }, Qt::QueuedConnection);
        recent_->layout()->addWidget(link);
    }
}

} // namespace orvanta::review

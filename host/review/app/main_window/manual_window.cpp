// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/manual_window.h"

#include "host/review/app/main_window/host_text.h"
#include "host/review/app/main_window/manual_page.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace orvanta::review {

namespace {

constexpr QSize kSize(960, 680);
constexpr double kOfScreen = 0.9;

QPushButton* AddButton(QBoxLayout& row, const QString& caption) {
    auto* button = new QPushButton(caption);
    button->setAutoDefault(false); // the Enter key searches
    row.addWidget(button);
    return button;
}

} // namespace

ManualWindow::ManualWindow(QWidget* parent, const QString& page) : QDialog(parent) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(HostQText("manualTitle", "Manual"));
    auto* text = new ManualPage(this);
    auto* head = new QHBoxLayout;
    QPushButton* back = AddButton(*head, HostQText("manualBack", "&Back"));
    QPushButton* forward = AddButton(*head, HostQText("manualForward", "&Forward"));
    QPushButton* contents = AddButton(*head, HostQText("manualContents", "&Contents"));
    head->addStretch();
    auto* result = new QLabel(this);
    head->addWidget(result);
    auto* caption = new QLabel(HostQText("manualSearch", "&Search"), this);
    auto* search = new QLineEdit(this);
    search->setObjectName(QStringLiteral("manualSearch"));
    search->setClearButtonEnabled(true);
    caption->setBuddy(search);
    head->addWidget(caption);
    head->addWidget(search);

    back->setEnabled(false);
    forward->setEnabled(false);
    connect(text, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(text, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
    connect(back, &QPushButton::clicked, text, &QTextBrowser::backward);
    connect(forward, &QPushButton::clicked, text, &QTextBrowser::forward);
    connect(contents, &QPushButton::clicked, text, &QTextBrowser::home);
    connect(search, &QLineEdit::returnPressed, this, [text, search, result] {
        result->setText(text->Find(search->text()) ? QString()
                                                   : HostQText("manualNotFound", "No page has this text."));
    });
    auto* find = new QAction(this);
    find->setShortcut(QKeySequence::Find);
    connect(find, &QAction::triggered, search, [search] {
        search->setFocus();
        search->selectAll();
    });
    addAction(find);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->button(QDialogButtonBox::Close)->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(head);
    rows->addWidget(text, 1);
    rows->addWidget(buttons);
    const QSize room = screen()->availableSize() * kOfScreen;
    resize(kSize.boundedTo(room));
    rows->activate(); // pictures are made for the width of the page
    text->setSource(QUrl::fromLocalFile(page), QTextDocument::MarkdownResource);
    text->setFocus();
}

} // namespace orvanta::review

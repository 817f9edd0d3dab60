// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/input_dialog.h"

#include "host/toolkit/message_text.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace owl {

namespace {
constexpr int kEditWidth = 320;
}

TInputDialog::TInputDialog(HWND owner, const TextQuestion& question)
    : QDialog(owner.Widget()), edit_(new QLineEdit(QString::fromStdString(question.text))) {
    setWindowTitle(QString::fromStdString(question.title));
    auto* prompt = new QLabel(WithBreaks(QString::fromStdString(question.prompt)));
    prompt->setTextFormat(Qt::PlainText);
    prompt->setWordWrap(true);
    prompt->setBuddy(edit_);
    edit_->setObjectName("edit");
    edit_->setMaxLength(question.limit);
    edit_->setMinimumWidth(kEditWidth);
    edit_->selectAll();
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(prompt);
    rows->addWidget(edit_);
    rows->addWidget(buttons);
    edit_->setFocus();
}

std::string TInputDialog::Text() const {
    return edit_->text().toStdString();
}

} // namespace owl

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/go_to_dialog.h"

#include "host/review/app/traces/time_ruler.h"
#include "host/toolkit/form_texts.h"
#include "host/toolkit/message_module.h"
#include "ui_go_to_time.h"

#include <QPushButton>

namespace orvanta::review {

GoToDialog::GoToDialog(HWND parent, const TimeContext& context)
    : TForm(parent), context_(context), ui_(std::make_unique<Ui::TFormGoToTime>()) {
    ui_->setupUi(this);
    owl::TranslateForm(*this, PModule::Named("Orvanta"), "TFormGoToTime");
    ui_->Edit->setText(QString::fromStdString(context_.start ? ClockTimeText(context_.now, 1, context_.start)
                                                             : ElapsedText(context_.now, 1)));
    ui_->Edit->selectAll();
    SetCancelButton(ui_->Buttons->button(QDialogButtonBox::Cancel));
    connect(ui_->Edit, &QLineEdit::textChanged, this, [this] { ui_->LabelError->clear(); });
    connect(ui_->Buttons, &QDialogButtonBox::accepted, this, [this] { TakeIt(); });
    connect(ui_->Buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

GoToDialog::~GoToDialog() = default;

double GoToDialog::Seconds() const {
    return ReadTypedTime(ui_->Edit->text().toStdString(), context_).seconds;
}

void GoToDialog::TakeIt() {
    const TypedTime typed = ReadTypedTime(ui_->Edit->text().toStdString(), context_);
    if (typed.error.empty()) {
        accept();
        return;
    }
    ui_->LabelError->setText(QString::fromStdString(typed.error));
    ui_->Edit->setFocus();
    ui_->Edit->selectAll();
}

} // namespace orvanta::review

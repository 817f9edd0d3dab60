// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/pictures_out/picture_dialog.h"

#include "host/toolkit/form_texts.h"
#include "host/toolkit/message_module.h"
#include "ui_picture_size.h"

#include <QPushButton>
#include <QSignalBlocker>

namespace orvanta::review {

PictureDialog::PictureDialog(HWND parent, const PictureSettings& settings)
    : TForm(parent), settings_(settings), proportion_(settings.height / settings.width),
      ui_(std::make_unique<Ui::TFormPictureSize>()) {
    ui_->setupUi(this);
    owl::TranslateForm(*this, PModule::Named("Orvanta"), "TFormPictureSize");
    ui_->Format->setCurrentIndex(static_cast<int>(settings_.format));
    ui_->Unit->setCurrentIndex(static_cast<int>(settings_.unit));
    ui_->Resolution->setValue(settings_.resolution);
    ShowLengths();
    connect(ui_->Format, &QComboBox::currentIndexChanged, this, [this](int index) {
        settings_.format = static_cast<PictureFormat>(index);
        ShowSize();
    });
    connect(ui_->Unit, &QComboBox::currentIndexChanged, this,
            [this](int index) { TakeUnit(static_cast<LengthUnit>(index)); });
    connect(ui_->Resolution, &QSpinBox::valueChanged, this, &PictureDialog::TakeResolution);
    connect(ui_->Width, &QDoubleSpinBox::valueChanged, this, &PictureDialog::TakeWidth);
    connect(ui_->Height, &QDoubleSpinBox::valueChanged, this, &PictureDialog::TakeHeight);
    connect(ui_->Proportions, &QCheckBox::toggled, this, [this](bool keep) {
        if (keep) {
            proportion_ = settings_.height / settings_.width;
        }
    });
    SetCancelButton(ui_->Buttons->button(QDialogButtonBox::Cancel));
    connect(ui_->Buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(ui_->Buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

PictureDialog::~PictureDialog() = default;

void PictureDialog::ShowLengths() {
    const int decimals = settings_.unit == LengthUnit::Pixels   ? 0
                         : settings_.unit == LengthUnit::Inches ? 2
                                                                : 1;
    for (const auto& [box, logical] :
         {std::pair(ui_->Width, settings_.width), {ui_->Height, settings_.height}}) {
        const QSignalBlocker quiet(box);
        box->setDecimals(decimals);
        box->setValue(InUnit(logical, settings_.unit, settings_.resolution));
    }
    ShowSize();
}

void PictureDialog::ShowSize() {
    const std::string problem = ProblemOf(settings_);
    ui_->LabelSize->setText(QString::fromStdString(SizeText(settings_)));
    ui_->LabelError->setText(QString::fromStdString(problem));
    ui_->Buttons->button(QDialogButtonBox::Save)->setEnabled(problem.empty());
}

void PictureDialog::TakeUnit(LengthUnit unit) {
    settings_.unit = unit;
    ShowLengths();
}

void PictureDialog::TakeResolution(int resolution) {
    settings_.resolution = resolution;
    ShowLengths();
}

void PictureDialog::TakeWidth(double length) {
    settings_.width = FromUnit(length, settings_.unit, settings_.resolution);
    if (ui_->Proportions->isChecked()) {
        settings_.height = settings_.width * proportion_;
        ShowLengths();
    }
    ShowSize();
}

void PictureDialog::TakeHeight(double length) {
    settings_.height = FromUnit(length, settings_.unit, settings_.resolution);
    if (ui_->Proportions->isChecked()) {
        settings_.width = settings_.height / proportion_;
        ShowLengths();
    }
    ShowSize();
}

} // namespace orvanta::review

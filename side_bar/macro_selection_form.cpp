// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/macro_selection_form.h"

#include "spectra_contract/platform.h"

#include <QHBoxLayout>
#include <QPushButton>

#include <cstdio>

TFormMacroSpectra::TFormMacroSpectra(QWidget* owner, HWND parent, SpectraMacro* macro, EventsManager* events,
                                     const SensorList& sensors, int mode, const GenericPlatform* platform)
    : TForm(parent ? parent : HWND(owner)), parent_(parent ? parent : HWND(owner)), macro_(macro),
      events_(events), sensors_(sensors), openedAsNew_(mode == 1), active_(mode != 0) {
    const std::string folder = platform != nullptr ? platform->GetAppFolder("MACRO") : std::string();
    std::snprintf(searchMask_.data(), searchMask_.size(), "%s*%s", folder.c_str(), kExtension);
    std::snprintf(macroFolder_.data(), macroFolder_.size(), "%s", folder.c_str());
    auto* buttons = new QHBoxLayout(this);
    const auto add = [&](const char* name, const char* text, void (TFormMacroSpectra::*handler)()) {
        auto* button = new QPushButton(text);
        button->setObjectName(name);
        connect(button, &QPushButton::clicked, this, [this, handler] { (this->*handler)(); });
        buttons->addWidget(button);
    };
    add("BtnAutoAverage", "OK", &TFormMacroSpectra::BtnAutoAverageClick);
    add("BtnManualAverage", "Manual", &TFormMacroSpectra::BtnManualAverageClick);
    add("BtnCancel", "Cancel", &TFormMacroSpectra::BtnCancelClick);
}

void TFormMacroSpectra::BtnAutoAverageClick() {
    result_ = 1;
    accept();
}

void TFormMacroSpectra::BtnManualAverageClick() {
    result_ = 2;
    accept();
}

void TFormMacroSpectra::BtnCancelClick() {
    result_ = 0;
    active_ = false;
    reject();
}

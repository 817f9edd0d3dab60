// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/dialogs/info_dialog.h"

#include "host/toolkit/form_texts.h"
#include "host/toolkit/window.h"
#include "spectrum_view/dialogs/info_text.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPlainTextEdit>

namespace {

constexpr int kReport = 101;
constexpr int kTabCharacters = 8;

} // namespace

SpectrumInfoDlg::SpectrumInfoDlg(owl::TWindow* parent, SpectMacroResult* result)
    : PDialog(HWND(parent), kNumber, PModule::Named("Orvanta")), result_(result) {}

SpectrumInfoDlg::~SpectrumInfoDlg() = default;

void SpectrumInfoDlg::SetupWindow() {
    PDialog::SetupWindow();
    if (auto* report = Item<QPlainTextEdit>(kReport)) {
        // Begin and end stand in columns because every character is as wide as the next.
        QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        font.setPointSizeF(report->font().pointSizeF());
        report->setFont(font);
        report->setTabStopDistance(kTabCharacters * QFontMetricsF(font).horizontalAdvance('0'));
        report->setPlaceholderText(
            QString::fromStdString(owl::TextOr(GetModule(), "DIALOG_1627", "noEpochs", "No epochs")));
    }
    SetDlgItemText(kReport, orvanta::spectrum_view::InfoText(result_));
}

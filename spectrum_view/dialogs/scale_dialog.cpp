// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/dialogs/scale_dialog.h"

#include "host/toolkit/form_texts.h"
#include "host/toolkit/modal_gateway.h"
#include "host/toolkit/window.h"
#include "side_bar/texts.h"
#include "spectrum_view/dialogs/row_mark.h"
#include "spectrum_view/dialogs/typed_range.h"

#include <QLabel>

#include <algorithm>

namespace {

using namespace orvanta::spectrum_view;
using orvanta::side_bar::FillIn;

constexpr int kEntity = 105;
constexpr int kAutoscale = 106;
constexpr int kUnit = 110;
constexpr int kMinX = 300;
constexpr int kMinY = 301;
constexpr int kMaxX = 400;
constexpr int kMaxY = 401;

TypedRange RangeOf(const owl::TDialog& dialog, int lower, int upper) {
    return {TypedNumber(dialog.GetDlgItemText(lower, kNumberBytes)),
            TypedNumber(dialog.GetDlgItemText(upper, kNumberBytes))};
}

struct Remark {
    MarkKind kind = MarkKind::Warning;
    std::string text = {};
};

Remark RemarkOnReading(const TypedRange& range, const PModule* module) {
    if (range.IsWhole()) {
        return {};
    }
    return {MarkKind::Note, FillIn(owl::TextOr(module, "DIALOG_1631", "readAs", "Read as %s - %s"),
                                   {ShortText(range.lower.value), ShortText(range.upper.value)})};
}

Remark RemarkOnFrequencies(const TypedRange& range, double limit, const PModule* module) {
    if (range.IsNegative() || range.IsReversed()) {
        return {MarkKind::Warning, owl::TextOr(module, "DIALOG_1631", "reversed",
                                               "Maximum below minimum: the minimum becomes 0")};
    }
    if (range.upper.value > limit) {
        return {MarkKind::Warning, FillIn(owl::TextOr(module, "DIALOG_1631", "limited",
                                                      "Above half the sampling rate: becomes %s Hz"),
                                          {ShortText(limit)})};
    }
    return RemarkOnReading(range, module);
}

Remark RemarkOnAmplitudes(const TypedRange& range, bool autoScale, const PModule* module) {
    if (!autoScale && range.upper.value <= range.lower.value) {
        return {MarkKind::Warning,
                owl::TextOr(module, "DIALOG_1631", "empty", "Maximum not above minimum: no curve is drawn")};
    }
    return RemarkOnReading(range, module);
}

} // namespace

SpectrumScaleDlg::SpectrumScaleDlg(owl::TWindow* parent, const std::string& entityName,
                                   const std::string& unit, double frequencyLimit)
    : PDialog(HWND(parent), kNumber, PModule::Named("Orvanta")), entityName_(entityName), unit_(unit),
      frequencyLimit_(frequencyLimit) {
    for (const int control : {kMinX, kMaxX, kMinY, kMaxY}) {
        OnTextChange(control, [this] { MarkRows(); });
    }
    OnClick(kAutoscale, [this] { MarkRows(); });
}

SpectrumScaleDlg::~SpectrumScaleDlg() = default;

void SpectrumScaleDlg::SetupWindow() {
    PDialog::SetupWindow();
    CheckDlgButton(kAutoscale, scale_.AutoScale);
    SetDlgItemText(kEntity, entityName_);
    SetDlgItemText(kUnit, unit_);
    SetDlgItemText(kMinY, OneDecimal(scale_.MinY));
    SetDlgItemText(kMaxY, OneDecimal(scale_.MaxY));
    SetDlgItemText(kMinX, OneDecimal(scale_.MinX));
    SetDlgItemText(kMaxX, OneDecimal(scale_.MaxX));
    MarkRows();
}

void SpectrumScaleDlg::Destroy(int retValue) {
    PDialog::Destroy(retValue);
    if (retValue != owl::kIdOk) {
        return;
    }
    const TypedRange amplitudes = RangeOf(*this, kMinY, kMaxY);
    scale_.MinY = amplitudes.lower.value;
    scale_.MaxY = amplitudes.upper.value;
    scale_.AutoScale = IsDlgButtonChecked(kAutoscale);
    const TypedRange frequencies = RangeOf(*this, kMinX, kMaxX);
    // The minimum is judged by the maximum as it was typed.
    const bool resets = frequencies.IsNegative() || frequencies.IsReversed();
    scale_.MinX = resets ? 0 : frequencies.lower.value;
    scale_.MaxX = std::min(frequencies.upper.value, frequencyLimit_);
}

void SpectrumScaleDlg::MarkRows() {
    const TypedRange frequencies = RangeOf(*this, kMinX, kMaxX);
    const Remark x = RemarkOnFrequencies(frequencies, frequencyLimit_, GetModule());
    const TypedRange amplitudes = RangeOf(*this, kMinY, kMaxY);
    const Remark y = RemarkOnAmplitudes(amplitudes, IsDlgButtonChecked(kAutoscale), GetModule());
    MarkRow(findChild<QLabel*>("markX"), {GetDlgItem(kMinX), GetDlgItem(kMaxX)}, x.kind,
            QString::fromStdString(x.text));
    MarkRow(findChild<QLabel*>("markY"), {GetDlgItem(kMinY), GetDlgItem(kMaxY)}, y.kind,
            QString::fromStdString(y.text));
    if (auto* line = findChild<QLabel*>("remark")) {
        line->setText(QString::fromStdString(x.text.empty() ? y.text : x.text));
    }
}

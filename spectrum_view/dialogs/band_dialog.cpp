// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/dialogs/band_dialog.h"

#include "host/toolkit/cut_text.h"
#include "host/toolkit/form_texts.h"
#include "host/toolkit/modal_gateway.h"
#include "host/toolkit/qt_painting.h"
#include "host/toolkit/window.h"
#include "side_bar/texts.h"
#include "spectra_contract/number_locale.h"
#include "spectra_contract/spect_globals.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/dialogs/row_mark.h"
#include "spectrum_view/dialogs/typed_range.h"
#include "spectrum_view/painting/band_colors.h"

#include <QFrame>
#include <QLabel>
#include <QLineEdit>

#include <cstdio>

namespace {

using namespace orvanta::spectrum_view;

constexpr int kBands = static_cast<int>(SPECT::BandCount);
constexpr int kTotal = kBands; ///< the row of the total band
constexpr int kRows = kBands + 1;
constexpr std::size_t kNameBytes = sizeof(SPECT::Band::name) - 1;

constexpr int NameEdit(int row) {
    return 201 + row;
}

constexpr int LowerEdit(int row) {
    return row == kTotal ? 300 : 301 + row;
}

constexpr int UpperEdit(int row) {
    return row == kTotal ? 400 : 401 + row;
}

TypedRange RangeOf(const owl::TDialog& dialog, int row) {
    return {TypedNumber(dialog.GetDlgItemText(LowerEdit(row), kNumberBytes)),
            TypedNumber(dialog.GetDlgItemText(UpperEdit(row), kNumberBytes))};
}

bool IsStored(const TypedRange& range) {
    return !range.HasNan() && !range.IsNegative() && !range.IsReversed();
}

QString RemarkOn(const TypedRange& range, const PModule* module) {
    std::string text;
    if (range.HasNan()) {
        text = owl::TextOr(module, "DIALOG_1625", "nan", "No number: this row is not stored");
    } else if (range.IsNegative()) {
        text = owl::TextOr(module, "DIALOG_1625", "negative", "Below 0 Hz: this row is not stored");
    } else if (range.IsReversed()) {
        text = owl::TextOr(module, "DIALOG_1625", "reversed", "Lower above upper: this row is not stored");
    } else if (!range.IsWhole()) {
        text = orvanta::side_bar::FillIn(
            owl::TextOr(module, "DIALOG_1625", "readAs", "Read as %s - %s Hz; the decimal sign is the point"),
            {ShortText(range.lower.value), ShortText(range.upper.value)});
    }
    return QString::fromStdString(text);
}

/// Filled while the band is one that displays show.
void ColorSwatch(QFrame& swatch, std::size_t band, bool defined) {
    swatch.setAutoFillBackground(defined);
    QPalette colors;
    colors.setColor(QPalette::Window, owl::ToQColor(kBandColors[band]));
    swatch.setPalette(colors);
}

} // namespace

SpectrumBandDlg::SpectrumBandDlg(owl::TWindow* parent, GenericPlatform* platform, SpectraMgr* manager)
    : PDialog(HWND(parent), kNumber, PModule::Named("Orvanta")), platform_(platform), manager_(manager) {
    NameForScreenReaders();
    KeepNamesStorable();
    for (int row = 0; row < kRows; ++row) {
        for (const int control : {LowerEdit(row), UpperEdit(row)}) {
            OnTextChange(control, [this, row] { MarkRowOf(row); });
        }
        OnTextChange(NameEdit(row), [this] { ShowFirstRemark(); });
    }
}

SpectrumBandDlg::~SpectrumBandDlg() = default;

void SpectrumBandDlg::NameForScreenReaders() {
    const struct {
        int (*control)(int);
        std::string name;
    } columns[] = {
        {NameEdit, owl::TextOr(GetModule(), "DIALOG_1625", "nameOf", "Name of band %s")},
        {LowerEdit, owl::TextOr(GetModule(), "DIALOG_1625", "lowerOf", "Lower frequency of band %s, in Hz")},
        {UpperEdit, owl::TextOr(GetModule(), "DIALOG_1625", "upperOf", "Upper frequency of band %s, in Hz")},
    };
    for (const auto& [control, name] : columns) {
        for (int band = 0; band < kBands; ++band) {
            if (QWidget* edit = GetDlgItem(control(band))) {
                const std::string text = orvanta::side_bar::FillIn(name, {std::to_string(band + 1)});
                edit->setAccessibleName(QString::fromStdString(text));
            }
        }
    }
}

/// What is typed stays what will be stored, also where characters take several bytes.
void SpectrumBandDlg::KeepNamesStorable() {
    for (int band = 0; band < kBands; ++band) {
        if (auto* edit = Item<QLineEdit>(NameEdit(band))) {
            connect(edit, &QLineEdit::textEdited, edit, [edit](const QString& typed) {
                const QString cut = QString::fromStdString(owl::CutAt(typed.toStdString(), kNameBytes));
                if (cut != typed) {
                    edit->setText(cut);
                }
            });
        }
    }
}

void SpectrumBandDlg::SetupWindow() {
    PDialog::SetupWindow();
    SetDlgItemMsg("IDDFB_GB_FREQUENCYBANDS", 101);
    SetDlgItemMsg("IDDFB_ST_DEFINEFREQUENCY", 501);
    const auto show = [this](int row, double lower, double upper) {
        SetDlgItemText(LowerEdit(row), OneDecimal(lower, 4));
        SetDlgItemText(UpperEdit(row), OneDecimal(upper, 4));
        MarkRowOf(row);
    };
    for (int band = 0; band < kBands; ++band) {
        const SPECT::Band& stored = manager_->GetBand(static_cast<unsigned>(band));
        SetDlgItemText(NameEdit(band), stored.name);
        show(band, stored.lo, stored.hi);
    }
    show(kTotal, SPECT::GetGlobals().TotalLo, SPECT::GetGlobals().TotalHi);
}

void SpectrumBandDlg::Destroy(int retValue) {
    PDialog::Destroy(retValue);
    if (retValue != owl::kIdOk) {
        return;
    }
    const TempNumEngLocale english;
    for (int row = 0; row < kBands; ++row) {
        const TypedRange range = RangeOf(*this, row);
        if (IsStored(range)) {
            SPECT::Band& band = manager_->GetBand(static_cast<unsigned>(row));
            band.lo = range.lower.value;
            band.hi = range.upper.value;
            std::snprintf(band.name, sizeof band.name, "%s",
                          GetDlgItemText(NameEdit(row), kNameBytes).c_str());
        }
    }
    const TypedRange total = RangeOf(*this, kTotal);
    if (IsStored(total)) {
        SPECT::Globals& globals = SPECT::GetGlobals();
        globals.TotalLo = total.lower.value;
        globals.TotalHi = total.upper.value;
        globals.SaveInfo(platform_);
    }
}

void SpectrumBandDlg::MarkRowOf(int row) {
    const TempNumEngLocale english;
    const TypedRange range = RangeOf(*this, row);
    const QString number = QString::number(row);
    MarkRow(findChild<QLabel*>("mark" + number), {GetDlgItem(LowerEdit(row)), GetDlgItem(UpperEdit(row))},
            IsStored(range) ? MarkKind::Note : MarkKind::Warning, RemarkOn(range, GetModule()));
    if (auto* swatch = findChild<QFrame*>("color" + number)) {
        const SPECT::Band& kept = manager_->GetBand(static_cast<unsigned>(row));
        ColorSwatch(*swatch, static_cast<std::size_t>(row),
                    IsStored(range) ? SPECT::IsBandDefined(range.lower.value, range.upper.value)
                                    : kept.IsDefined());
    }
    ShowFirstRemark();
}

void SpectrumBandDlg::ShowFirstRemark() {
    auto* line = findChild<QLabel*>("remark");
    if (line == nullptr) {
        return;
    }
    line->clear();
    for (int row = kRows - 1; row >= 0; --row) {
        const auto* mark = findChild<QLabel*>("mark" + QString::number(row));
        if (mark != nullptr && !mark->toolTip().isEmpty()) {
            line->setText(CaptionOf(row) + ": " + mark->toolTip());
        }
    }
}

QString SpectrumBandDlg::CaptionOf(int row) const {
    if (row == kTotal) {
        return QString::fromStdString(owl::TextOr(GetModule(), "DIALOG_1625", "totalBand", "Total band"));
    }
    const std::string name = GetDlgItemText(NameEdit(row), kNameBytes);
    return QString::fromStdString(
        name.empty()
            ? orvanta::side_bar::FillIn(owl::TextOr(GetModule(), "DIALOG_1625", "nameless", "Band %s"),
                                        {std::to_string(row + 1)})
            : name);
}

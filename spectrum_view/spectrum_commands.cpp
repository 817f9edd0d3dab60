// SPDX-License-Identifier: GPL-3.0-or-later
// Commands that page, zoom and weight the spectra, move to the next selection and ask for settings.
#include "host/toolkit/modal_gateway.h"
#include "side_bar/measure_names.h"
#include "side_bar/spectrum_macro_form.h"
#include "spectra_contract/module_entry.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/dialogs/band_dialog.h"
#include "spectrum_view/dialogs/info_dialog.h"
#include "spectrum_view/dialogs/scale_dialog.h"
#include "spectrum_view/spectrum.h"
#include "spectrum_view/state/frequency_zoom.h"

#include <QScopeGuard>

using namespace orvanta::spectrum_view;

void Spectrum::CmNextTrace() {
    const SpectMacroResult* main = manager_->GetMain();
    const unsigned count = main != nullptr ? main->GetNumBip() : 0;
    ShowFrom(NextPage(state_.firstTrace, state_.grid.Cells(), count));
}

void Spectrum::CmPreviousTrace() {
    ShowFrom(PreviousPage(state_.firstTrace, state_.grid.Cells()));
}

void Spectrum::ShowFrom(std::uint64_t trace) {
    if (trace != state_.firstTrace) {
        state_.firstTrace = trace;
        Invalidate();
    }
}

SPECT::Scale& Spectrum::CurrentScale() {
    return state_.scales[manager_->GetCurrMeasEntityStr()];
}

void Spectrum::ShowZoomed() {
    SPECT::FrequencyRange& range = Display().range;
    range = RangeAfterZoom(CurrentScale(), range, LoadedRate());
    Invalidate();
}

void Spectrum::CmWide() {
    if (const SpectMacroResult* main = manager_->GetMain()) {
        Widen(CurrentScale(), main->GetFFTSR());
        ShowZoomed();
    }
}

void Spectrum::CmNarrow() {
    Narrow(CurrentScale());
    ShowZoomed();
}

void Spectrum::CmSetMaxAxis() {
    const SpectMacroResult* main = manager_->GetMain();
    if (main == nullptr) {
        return;
    }
    SPECT::Scale& scale = CurrentScale();
    SpectrumScaleDlg dialog(this, orvanta::side_bar::EntityName(*manager_, manager_->GetMeasEntity()),
                            manager_->GetCurrEntityMeasUnit(), main->GetFFTSR() * 0.5);
    dialog.SetScale(scale);
    if (dialog.Execute() == owl::kIdOk) {
        scale = dialog.GetScale();
        Display().range = RangeAfterEdit(scale);
        Invalidate();
    }
    SetFocus();
}

void Spectrum::CmSetBands() {
    const QPointer<Spectrum> alive(this);
    if (SpectrumBandDlg(this, GW().GetPlatform(), manager_).Execute() == owl::kIdOk) {
        CmRecompute();
    }
    if (alive) {
        SetFocus();
    }
}

void Spectrum::CmSpectraInfo() {
    if (SpectMacroResult* main = manager_->GetMain()) {
        SpectrumInfoDlg(this, main).Execute();
        SetFocus();
    }
}

void Spectrum::Normalize(SPECT::Normalisation normalisation) {
    Display().normalisation = normalisation;
    Invalidate();
}

void Spectrum::CmNextSelection() {
    const SpectMacroResult* main = manager_->GetMain();
    if (main == nullptr) {
        return;
    }
    TraceCursorType& cursor = *recording_->GetTraceCursor();
    if (const XTime* start = main->GetNextSelectionStart(cursor.GetStartRecTime())) {
        cursor.SetPosition(cursor.GetSample(start, Sample::Mode::Memory, 0));
    }
    CmRecompute();
}

void Spectrum::CmSelectFont() {
    if (ChooseChildFont()) {
        SetViewCoords();
        Invalidate();
    }
    SetFocus();
}

void Spectrum::CmNewSpectrum() {
    if (asking_) {
        return;
    }
    const QPointer<Spectrum> alive(this);
    asking_ = true; // also while the focus comes back
    const auto asked = qScopeGuard([&] {
        if (alive) {
            asking_ = false;
        }
    });
    {
        EnableWindow(false);
        const auto answered = qScopeGuard([&] {
            if (alive) {
                EnableWindow(true);
            }
        });
        CreateNewSpectrum(GW().GetPlatform(), GetHandle(), *manager_, recording_);
    }
    if (alive && IsCreated()) {
        Invalidate();
        NotifyPanels();
        SetFocus();
    }
}

void Spectrum::CmEditOptions() {
    SpectMacroResult* main = manager_->GetMain();
    if (main == nullptr) {
        CmNewSpectrum();
        return;
    }
    constexpr int kEdit = 2;
    SensorList sensors;
    recording_->GetTraceInfo()->GetSensorsListOfType(sensors, Sensor::EegFamily, Sensor::Class::Eeg);
    const QPointer<Spectrum> alive(this);
    // The form is gone before the computation, in which the view may go with all that belongs to it.
    if (TFormSpectrumMacro(GetHandle(), "", &main->GetMacro(), recording_->GetEventsManager(), sensors, kEdit)
            .ShowModal() == owl::kIdOk) {
        CmRecompute();
        if (alive) {
            NotifyPanels();
        }
    }
    if (alive) {
        SetFocus();
    }
}

// SPDX-License-Identifier: GPL-3.0-or-later
// What the menu items and tool buttons of the commands look like. What an enabler does not say stays as it
// is: an item that was disabled when the view was set up remains so under an enabler that only checks it.
#include "host/toolkit/command_enabler.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/command_ids.h"
#include "spectrum_view/spectrum.h"

using namespace orvanta::spectrum_view;
using owl::TCommandEnabler;
using SPECT::Normalisation;

namespace {

void CheckFor(TCommandEnabler& item, Normalisation normalisation) {
    item.SetCheck(Display().normalisation == normalisation);
}

/// Coherence and phase have no density that a frequency could weight.
bool IsWeightedByFrequency(const SpectraMgr& manager) {
    const SPECT::Entity::Type entity = manager.GetMeasEntity();
    return entity == SPECT::Entity::Type::Amplitude || entity == SPECT::Entity::Type::Power;
}

} // namespace

void Spectrum::CeCommonScale(TCommandEnabler& item) {
    item.Enable();
}

void Spectrum::CeNextTrace(TCommandEnabler& item) {
    const SpectMacroResult* main = manager_->GetMain();
    item.Enable(main != nullptr && state_.firstTrace + state_.grid.Cells() < main->GetNumBip() &&
                state_.layout == Layout::Mode::Grid);
}

void Spectrum::CePreviousTrace(TCommandEnabler& item) {
    item.Enable(state_.firstTrace != 0 && state_.layout == Layout::Mode::Grid);
}

void Spectrum::CeNextSelection(TCommandEnabler& item) {
    const SpectMacroResult* main = manager_->GetMain();
    item.Enable(main != nullptr && main->GetMacro().GetTimeIntervalSelectMode() ==
                                       SpectraMacro::TimeIntervalSelectMode::ByDuration);
}

void Spectrum::CeWide(TCommandEnabler& item) {
    item.Enable();
}

void Spectrum::CeNarrow(TCommandEnabler& item) {
    item.Enable();
}

void Spectrum::CeFullOpt(TCommandEnabler& item) {
    item.Enable();
}

// The mean's mark follows the layout, not the data mode.
void Spectrum::CeMean(TCommandEnabler& item) {
    item.SetCheck(state_.layout == Layout::Mode::Scalp);
}

void Spectrum::CeTimeFreq(TCommandEnabler& item) {
    item.Enable(false);
}

void Spectrum::CeCSA(TCommandEnabler& item) {
    item.SetCheck(Display().mode == SPECT::Data::Mode::CSA);
}

void Spectrum::CeGridView(TCommandEnabler& item) {
    item.SetCheck(state_.layout == Layout::Mode::Grid);
}

void Spectrum::CeHeadView(TCommandEnabler& item) {
    item.SetCheck(state_.layout == Layout::Mode::Scalp);
}

void Spectrum::CeTable(TCommandEnabler& item) {
    item.Enable(state_.layout == Layout::Mode::Grid);
}

void Spectrum::CeShowPoints(TCommandEnabler& item) {
    item.SetCheck(Display().showPoints);
}

void Spectrum::CeShowLines(TCommandEnabler& item) {
    item.SetCheck(Display().showLines);
}

void Spectrum::CeShowSD(TCommandEnabler& item) {
    item.SetCheck(Display().showSd);
}

void Spectrum::CeShowMeasures(TCommandEnabler& item) {
    item.SetCheck(Display().showMeasuresBox);
}

void Spectrum::CeShowAxesText(TCommandEnabler& item) {
    item.SetCheck(Display().showAxesText);
}

void Spectrum::CeShowLabel(TCommandEnabler& item) {
    item.SetCheck(Display().showLabels);
}

void Spectrum::CeNormalizeNone(TCommandEnabler& item) {
    CheckFor(item, Normalisation::None);
}

void Spectrum::CeNormalizeDb(TCommandEnabler& item) {
    CheckFor(item, Normalisation::Db);
}

void Spectrum::CeNormalizeByF(TCommandEnabler& item) {
    item.Enable(IsWeightedByFrequency(*manager_));
    CheckFor(item, Normalisation::ByF);
}

void Spectrum::CeNormalizeBySqrtF(TCommandEnabler& item) {
    item.Enable(IsWeightedByFrequency(*manager_));
    CheckFor(item, Normalisation::BySqrtF);
}

void Spectrum::CeNormalizeByLog10F(TCommandEnabler& item) {
    CheckFor(item, Normalisation::ByLog10F);
}

void Spectrum::CeNormalizeByLnF(TCommandEnabler& item) {
    CheckFor(item, Normalisation::ByLnF);
}

void Spectrum::CeSetEntity(TCommandEnabler& item) {
    constexpr unsigned kCoherence = kCmSetEntity + static_cast<unsigned>(SPECT::Entity::Type::Coherence);
    constexpr unsigned kPhase = kCmSetEntity + static_cast<unsigned>(SPECT::Entity::Type::Phase);
    if (item.GetId() < kCoherence) {
        item.Enable();
    } else if (item.GetId() <= kPhase) {
        item.Enable(Display().normalisation == Normalisation::None);
    }
}

// SPDX-License-Identifier: GPL-3.0-or-later
// The form with which the user edits the settings of an analysis.
#pragma once

#include "host/toolkit/form.h"
#include "host/toolkit/modal_gateway.h"
#include "side_bar/event_rows.h"
#include "spectra_contract/sensor.h"

#include <array>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

class QRadioButton;
class SpectraMacro;

namespace Ui {
class TFormSpectrumMacro;
} // namespace Ui

/// "Spectral Analysis Settings". Shows the settings when it is made and writes all of them back on "Compute"
/// and "Save As..."; only a chosen colour is written at once. GUI thread.
class ORVANTA_API TFormSpectrumMacro : public owl::TForm {
public:
    /// Nothing passed in is owned; all of it must outlive the form.
    /// \param folder put before the name of a macro that is saved, with the separator that it ends with; its
    /// first 259 bytes count \param macro the settings; not null \param events events of the recording;
    /// without them the settings are only shown \param sensors of the analysis; the first gives the sampling
    /// rate that resolutions are told for, else 1 Hz \param mode 0 to show the settings only, 1 for a new
    /// macro of the library, 2 to edit one
    TFormSpectrumMacro(HWND parent, const char* folder, SpectraMacro* macro, EventsManager* events,
                       const SensorList& sensors, int mode);
    ~TFormSpectrumMacro() override;

    /// Copies every control into the macro.
    void ReadControls();
    /// Window length chosen, seconds; 1 when the text for another length is no number.
    double GetFFTSeconds() const;
    /// Writes the read-only fields of the window length.
    void UpdateResolution();
    /// Enables what belongs to the chosen way to select intervals.
    void UpdateControls();
    /// Enables the criteria for "no more than".
    void UpdateEpochsSelMode();

    // Handlers.
    void BitBtnComputeClick();
    void BitBtnSaveAsClick();
    void BtnSpeColorClick();
    void rbFFTSecondsClick();
    void ebCustomSecondsChange();
    void rbAllRecClick();
    void rbByDurationClick();
    void rbByStateEventClick();
    void rbBySpotEventClick();
    void rbESMAllEpochsClick();
    void rbESMUseExactlyClick();
    void ebUseExactlyCountEpochsChange();

    /// A chooser that belongs to the layout; nothing asks with it.
    const owl::FileQuestion SaveDialog1{.title = "Save Macro Preset",
                                        .filter = "Spectra Macro File|*.smx|All Files|*.*",
                                        .extension = "max",
                                        .folder = {},
                                        .name = {}};

    /// Whether "Compute" and "Save As..." write.
    bool IsEditable() const { return editable_; }
    bool IsOpenedFromLibrary() const { return openedFromLibrary_; }
    /// At most 259 bytes.
    const char* GetMacroFolder() const { return macroFolder_.data(); }
    /// Hz, at least 1.
    std::uint32_t GetSamplingRate() const { return samplingRate_; }

private:
    void ConnectHandlers();
    // What the controls show, from the macro.
    void ShowWindowLength();
    void ShowNumbers();
    void ShowTapers();
    void ShowEvents();
    void ShowIntervals();
    void ShowEpochs();
    void PaintSwatch();
    void SaveUnderNewName();
    /// The buttons of the window lengths that have one, with their seconds.
    std::array<std::pair<QRadioButton*, double>, 6> FixedLengths() const;

    std::unique_ptr<Ui::TFormSpectrumMacro> ui_;
    SpectraMacro* macro_;
    EventsManager* events_;
    SensorList sensors_;
    std::uint32_t samplingRate_;
    bool editable_;
    bool openedFromLibrary_;
    std::array<char, 260> macroFolder_{};
    owl::TColor cdSpeColor_; ///< the colour chooser's current colour
    /// The lists' rows point to their types.
    std::vector<orvanta::side_bar::EventRow> stateRows_, spotRows_, rejectRows_;
};

// SPDX-License-Identifier: GPL-3.0-or-later
// The form with which the user picks the settings of a new analysis.
#pragma once

#include "host/toolkit/form.h"
#include "spectra_contract/api.h"
#include "spectra_contract/sensor.h"

#include <array>
#include <cstdint>
#include <string>

class EventsManager;
class GenericPlatform;
class QWidget;
class SpectraMacro;

/// Macro selection.
class ORVANTA_API TFormMacroSpectra : public owl::TForm {
public:
    /// Nothing passed in is owned; all of it must outlive the form.
    /// \param owner window that the form belongs to when \p parent is null; may be null
    /// \param macro settings into which files are loaded
    /// \param sensors copied
    /// \param mode 0 for looking only, 1 when opened for a new analysis
    /// \param platform gives the folder of the macro files; without it there is no folder
    TFormMacroSpectra(QWidget* owner, HWND parent, SpectraMacro* macro, EventsManager* events,
                      const SensorList& sensors, int mode, const GenericPlatform* platform = nullptr);

    /// 0 cancelled, 1 compute with the chosen macro, 2 chosen by hand. 0 from the start.
    std::int32_t GetResult() const { return result_; }

    void BtnAutoAverageClick();
    void BtnManualAverageClick();
    void BtnCancelClick();

    HWND GetParentWindow() const { return parent_; }
    const std::string& GetCaption() const { return caption_; }
    /// With trailing separator; at most 259 characters.
    const char* GetMacroFolder() const { return macroFolder_.data(); }
    /// Folder, "*" and extension; at most 259 characters.
    const char* GetSearchMask() const { return searchMask_.data(); }
    const SensorList& GetSensors() const { return sensors_; }
    SpectraMacro* GetMacro() const { return macro_; }
    EventsManager* GetEvents() const { return events_; }
    bool IsOpenedAsNew() const { return openedAsNew_; }
    bool IsActive() const { return active_; }
    bool IsMacroLoaded() const { return macroLoaded_; }

private:
    static constexpr const char* kExtension = ".smx";

    HWND parent_;
    SpectraMacro* macro_;
    EventsManager* events_;
    SensorList sensors_;
    bool openedAsNew_;
    bool active_;
    bool macroLoaded_ = false;
    std::int32_t result_ = 0;
    std::array<char, 260> macroFolder_{};
    std::array<char, 260> searchMask_{};
    std::string caption_ = "Spectra Manager (Default)";
};

// SPDX-License-Identifier: GPL-3.0-or-later
// The form with which the user picks the settings of a new analysis, and makes, edits and erases macro files.
#pragma once

#include "host/toolkit/form.h"
#include "spectra_contract/api.h"
#include "spectra_contract/sensor.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>

class EventsManager;
class GenericPlatform;
class QWidget;
class SpectraMacro;

namespace Ui {
class TFormMacroSpectra;
}

/// Macro selection. A click on a row, or an arrow key that moves to it, loads its file into the macro; that
/// stays so whatever the result.
class ORVANTA_API TFormMacroSpectra : public owl::TForm {
public:
    /// Nothing passed in is owned; all of it must outlive the form.
    /// \param owner window that the form belongs to when \p parent is null; may be null
    /// \param macro settings into which files are loaded; not null
    /// \param sensors copied
    /// \param mode 0 for looking only, 1 when opened for a new analysis
    /// \param platform gives the folder of the macro files; without it there is no folder and no row
    TFormMacroSpectra(QWidget* owner, HWND parent, SpectraMacro* macro, EventsManager* events,
                      const SensorList& sensors, int mode, const GenericPlatform* platform = nullptr);
    ~TFormMacroSpectra() override;

    /// 0 cancelled, 1 compute with the chosen macro, 2 chosen by hand. 0 from the start.
    std::int32_t GetResult() const { return result_; }

    void ListBoxMacroClick();
    void ListBoxMacroDblClick();
    void BitBtnNewClick();
    void BitBtnEditClick();
    void BitBtnEraseClick();
    void BtnAutoAverageClick();
    void BtnManualAverageClick();
    void BtnCancelClick();

    HWND GetParentWindow() const { return parent_; }
    std::string GetCaption() const;
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

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void SetUpControls();
    void MakeRoomForCaptions();
    void ShowIcons(bool shown);
    void FillList();
    /// -1 when no row is selected.
    int SelectedRow() const;
    std::string SelectedName() const;
    /// Empty when it would be longer than 259 characters.
    std::string SelectedPath() const;
    void Describe();
    /// Runs the settings form on the macro. True when it ended with OK and nothing failed to be saved.
    bool EditMacro(int mode);

    static constexpr const char* kExtension = ".smx";

    std::unique_ptr<Ui::TFormMacroSpectra> ui_;
    HWND parent_;
    SpectraMacro* macro_;
    EventsManager* events_;
    SensorList sensors_;
    bool openedAsNew_;
    bool active_;
    bool macroLoaded_ = false;
    bool loadedBySelection_ = false; ///< the selection has changed since the last press on the list
    bool loadedByPress_ = false;     ///< the last press has loaded its row
    std::int32_t result_ = 0;
    std::array<char, 260> macroFolder_{};
    std::array<char, 260> searchMask_{};
};

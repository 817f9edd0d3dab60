// SPDX-License-Identifier: GPL-3.0-or-later
// The form that shows the results of a regression: a list, the points behind a row, and two files.
#pragma once

#include "host/toolkit/form.h"
#include "host/toolkit/modal_gateway.h"
#include "spectra_contract/api.h"
#include "spectra_contract/spectra_types.h"

#include <functional>
#include <list>
#include <memory>
#include <string>

class GenericPlatform;
class SpectMacroResult;

namespace Ui {
class TFormBCIResults;
}

/// One row per pair of sensor and frequency. Those with |R| of 0.3 or more are listed; "Fill Grid" adds all
/// that are below this limit, and those whose R is not computable. The strongest pair is selected at first.
class ORVANTA_API TFormBCIResults : public owl::TForm {
public:
    /// Nothing passed in is owned; all of it must outlive the form.
    /// \param owner may be null
    /// \param analyses those that were handed to the regression
    /// \param platform shows progress while the full spectra are saved; may be null
    TFormBCIResults(HWND owner, const std::list<BCIReg>& results,
                    const std::list<SpectMacroResult*>& analyses, const GenericPlatform* platform = nullptr);
    ~TFormBCIResults() override;

    /// Sorts by the column, ascending; when the list is sorted so already, descending.
    void lvBCIResultsColumnClick(int column);
    /// Negative when \p a stands above \p b in the list, positive when below, 0 when either may.
    int lvBCIResultsCompare(const BCIReg& a, const BCIReg& b) const;
    /// Plots the selected row: its epochs and its line.
    void lvBCIResultsSelectItem();
    void BitBtnSaveClick();
    void BitBtn2Click();
    void cbFillGridClick();

    const owl::FileQuestion sdBCIResults{.title = {},
                                         .filter = "Text file|*.txt",
                                         .extension = "*.txt",
                                         .folder = {},
                                         .name = "regressions.txt"};
    const owl::FileQuestion sdFullSpectra{.title = {},
                                          .filter = "Text file|*.txt",
                                          .extension = "*.txt",
                                          .folder = {},
                                          .name = "full_spectra.txt"};

private:
    void SetUpList();
    void FillList();
    void SortRows();
    void TellCount();
    /// Null when no row is selected.
    const BCIReg* Selected() const;
    /// Selects and plots the row when it is listed, else nothing.
    void Select(const BCIReg* row);
    /// Asks for a name and writes the file; a failure is told in a box.
    void Save(const owl::FileQuestion& question, const std::function<void(const std::string&)>& write);

    std::unique_ptr<Ui::TFormBCIResults> ui_;
    const std::list<BCIReg>& results_;
    const std::list<SpectMacroResult*>& analyses_;
    const GenericPlatform* platform_;
    int sortColumn_ = 0;
    Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
};

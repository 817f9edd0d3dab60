// SPDX-License-Identifier: GPL-3.0-or-later
// The form that writes the spectra of single epochs to a text file.
#pragma once

#include "host/toolkit/form.h"
#include "host/toolkit/modal_gateway.h"
#include "spectra_contract/api.h"

#include <memory>

class SpectraMgr;
struct SpectraExport;

namespace Ui {
class TSpectraExportForm;
}
namespace orvanta::side_bar {
class AnalysisList;
}

/// "Spectra Export". Closes with OK once the file is written; a cancelled chooser, a cancelled export and a
/// failure leave it open. A file that cannot be opened is told to the log alone. GUI thread.
class ORVANTA_API TSpectraExportForm : public owl::TForm {
public:
    /// \param owner window that the form belongs to; may be null
    /// \param manager not owned; may be null, then there is nothing to export
    TSpectraExportForm(HWND owner, SpectraMgr* manager);
    ~TSpectraExportForm() override;

    /// Lists the analyses whose bins are as wide as those of the main one; all are selected. Done when the
    /// form is made.
    void FormCreate();
    /// Asks for the file and writes the selected rows to it, with progress of the manager's.
    void BitBtnOkClick();

    /// What is asked for the file's name.
    const owl::FileQuestion sdSpectra{
        .title = {}, .filter = "Text file|*.txt", .extension = "txt", .folder = {}, .name = {}};

private:
    void SetUpControls();
    SpectraExport Chosen() const;
    /// Tells how much is chosen.
    void ShowSize();

    std::unique_ptr<Ui::TSpectraExportForm> ui_;
    SpectraMgr* manager_;
    std::unique_ptr<orvanta::side_bar::AnalysisList> list_; ///< lvSpectra with analyses for rows
};

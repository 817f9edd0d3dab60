// SPDX-License-Identifier: GPL-3.0-or-later
// The side bar's panel for the regression of contrast values on power.
#pragma once

#include "side_bar/analysis_list.h"
#include "side_bar/form_listener.h"

#include <QPointer>

#include <list>
#include <memory>

class EEGFileInfoType;
class GenericPlatform;

namespace Ui {
class TFormListenerSpectraBCI;
}

/// The tab "BCI": a main analysis, others to go with it, and a range of frequencies. The main analysis is the
/// manager's; choosing another here makes that the manager's. Only the range is read from the options.
class ORVANTA_API TFormListenerSpectraBCI : public TFormListener {
public:
    /// Nothing passed in is owned; all of it but the view must outlive the panel.
    /// \param view gets the focus back while it is there; may be null \param recording may be null \param
    /// manager may be null
    TFormListenerSpectraBCI(HWND view, GenericPlatform* platform, EEGFileInfoType* recording,
                            SpectraMgr* manager);
    ~TFormListenerSpectraBCI() override;

    void SomethingChanged() override;
    void FillListSpectra();
    /// The analyses with the resolution and the montage of the selected main one. Those that were selected
    /// stay so; when none was, or the manager has another secondary analysis than before, that one is.
    void FillSecondListSpectra();
    void UpdateControls();

    void lvMainListSelectItem();
    void lvSecondaryListSelectItem();
    /// Computes the selected main analysis again. No control runs it.
    void BtnProcessClick();
    /// Computes the regression and shows its results, or why there are none.
    void BtnRegressionClick();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void SetUpLists();
    HWND View() const { return HWND(view_.data()); }
    /// What goes into the regression: the main analysis, then for each focused row of the other list the
    /// first selected analysis there, whichever row has the focus.
    std::list<SpectMacroResult*> AnalysesFor(SpectMacroResult& main) const;
    /// Tells what a code of the library means.
    void ShowCode(const char* key, const char* builtIn);

    std::unique_ptr<Ui::TFormListenerSpectraBCI> ui_;
    QPointer<QWidget> view_;
    GenericPlatform* platform_;
    EEGFileInfoType* recording_;
    SpectraMgr* manager_;
    std::unique_ptr<orvanta::side_bar::AnalysisList> mainList_, secondaryList_;
    const SpectMacroResult* secondary_ = nullptr; ///< the manager's of last time, to be compared only
    bool filling_ = false;                        ///< giving the focus back may tell of a change
};

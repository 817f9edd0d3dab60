// SPDX-License-Identifier: GPL-3.0-or-later
// The panel that lists the spectra of a view: which one is shown, and which one it is compared with.
#pragma once

#include "side_bar/form_listener.h"

#include <QPointer>

#include <memory>

class EEGFileInfoType;
class GenericPlatform;
class QTreeWidgetItem;
class SpectMacroResult;
class SpectraMgr;

namespace Ui {
class TFormListenerSpectra1;
}

namespace orvanta::side_bar {
class AnalysisList;
}

/// The tab "t-test". What the user chooses goes to the manager at once; the view is drawn anew and gets the
/// focus back. GUI thread.
class ORVANTA_API TFormListenerSpectra1 : public TFormListener {
public:
    /// Nothing passed in is owned; all of it but the view must outlive the panel.
    /// \param view gets the focus and is drawn anew while it is there; may be null
    /// \param platform may be null without a recording
    /// \param recording may be null: then there are no new spectra
    /// \param manager of the spectra; may be null
    TFormListenerSpectra1(HWND view, GenericPlatform* platform, EEGFileInfoType* recording,
                          SpectraMgr* manager);
    ~TFormListenerSpectra1() override;

    void SomethingChanged() override;
    void FillListSpectra();
    void FillSecondListSpectra();
    void UpdateControls();
    /// The p-value that the threshold box shows, above 0 and at most 1; -1 for any other text.
    double GetThreshold() const;

    // Handlers.
    void FormActivate();
    /// \param selected false when no row is selected any more
    void lvMainListSelectItem(const QTreeWidgetItem* row, bool selected);
    void lvSecondaryListSelectItem(const QTreeWidgetItem* row, bool selected);
    void lvMainListMouseUp();
    void lvSecondaryListMouseUp();
    void cbStatClick();
    void cbSpectRatioClick();
    void cbThresholdChange();
    void ebThresholdChange() { cbThresholdChange(); }
    void BtnSpectraNewClick();
    void BtnEraseSpectraClick();
    void BtnExportClick();
    void BtnEditClick();
    void BtnErpProcessClick();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void SetUpControls();
    void OfferThresholds();
    /// Tells what the threshold is in percent, or that it stays as it is.
    void ShowThresholdMeaning();
    void ConnectHandlers();
    /// The view gets the focus and is drawn anew from its background.
    void ShowInView();
    HWND View() const { return HWND(view_.data()); }

    GenericPlatform* platform_;
    EEGFileInfoType* recording_;
    SpectraMgr* manager_;
    QPointer<QWidget> view_;
    std::unique_ptr<Ui::TFormListenerSpectra1> ui_;
    std::unique_ptr<orvanta::side_bar::AnalysisList> main_, secondary_; ///< the rows of the two lists
    int roomForAll_ = 0;                                                ///< height that all controls need
    bool filling_ = false;
};

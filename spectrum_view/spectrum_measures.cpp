// SPDX-License-Identifier: GPL-3.0-or-later
// The view's measures as text, and the size of its grid.
#include "host/toolkit/table_window.h"
#include "spectra_contract/platform.h"
#include "spectrum_view/command_ids.h"
#include "spectrum_view/dialogs/measures_dialog.h"
#include "spectrum_view/measures/copy_measures.h"
#include "spectrum_view/spectrum.h"

#include <QCursor>

using namespace orvanta::spectrum_view;

void Spectrum::CmCopy2ClpBrd() {
    CopyMeasures({*GW().GetPlatform(), GetMessages(), GW().GetErrorStr(), GetHandle(), *manager_,
                  state_.layout, state_.grid, GetTraces()});
}

void Spectrum::CmMeasures() {
    SpectMeasDlg(this, GW().GetPlatform(), manager_).Execute();
    SetFocus();
}

void Spectrum::CmSpectraTable() {
    constexpr int kSize = 10; // columns, rows, and pixels of a cell
    delete picker_;
    const QPoint mouse = QCursor::pos();
    picker_ = new TTableWnd(*this, {mouse.x(), mouse.y()}, kSize, kSize, kSize, kSize, kGridPicked, GetDPI());
    picker_->show();
}

LPARAM Spectrum::EvTable(WPARAM picked, LPARAM /*unused*/) {
    state_.grid = PickedGridSize(picked);
    SetBipolarList();
    SetViewCoords();
    Invalidate();
    SetFocus();
    return 0;
}

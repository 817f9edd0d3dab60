// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectral_maps/dialogs/electrodes_dialog.h"

#include "host/toolkit/form_texts.h"
#include "host/toolkit/modal_gateway.h"
#include "host/toolkit/window.h"

#include <QListWidget>

#include <algorithm>

namespace {

constexpr int kElectrodes = 100;
constexpr int kColumnWidth = 100;
constexpr int kAroundRow = 8;

} // namespace

CARElectSelDlg::CARElectSelDlg(owl::TWindow* parent, std::list<const SensorType*>& selected,
                               const std::list<const SensorType*>& all)
    : PDialog(HWND(parent), kNumber, PModule::Named("Orvanta")), list_(Item<QListWidget>(kElectrodes)),
      selected_(selected), all_(all) {
    if (list_ != nullptr) {
        const std::string name = owl::TextOr(GetModule(), "DIALOG_1634", "name", "Electrodes");
        list_->setAccessibleName(QString::fromStdString(name));
    }
}

CARElectSelDlg::~CARElectSelDlg() = default;

void CARElectSelDlg::SetupWindow() {
    PDialog::SetupWindow();
    if (list_ == nullptr) {
        return;
    }
    const QSize place(kColumnWidth, list_->fontMetrics().height() + kAroundRow);
    list_->setGridSize(place);
    list_->setUpdatesEnabled(false);
    for (const SensorType* sensor : all_) {
        auto* item = new QListWidgetItem(QString::fromStdString(sensor->GetName()), list_);
        item->setSizeHint(place);
        item->setSelected(std::find(selected_.begin(), selected_.end(), sensor) != selected_.end());
    }
    list_->setUpdatesEnabled(true);
}

void CARElectSelDlg::Destroy(int retVal) {
    PDialog::Destroy(retVal);
    if (retVal != owl::kIdOk || list_ == nullptr) {
        return;
    }
    selected_.clear();
    int row = 0;
    for (const SensorType* sensor : all_) {
        const QListWidgetItem* item = list_->item(row++);
        if (item != nullptr && item->isSelected()) { // without items it was never shown
            selected_.push_back(sensor);
        }
    }
}

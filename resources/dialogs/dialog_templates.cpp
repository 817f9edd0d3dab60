// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/dialogs/dialog_templates.h"

#include "host/toolkit/dialog.h"

#include "ui_1625.h"
#include "ui_1626.h"
#include "ui_1627.h"
#include "ui_1628.h"
#include "ui_1629.h"
#include "ui_1631.h"
#include "ui_1634.h"

namespace orvanta::resources {

namespace {

template <class Layout>
void Build(QDialog& dialog) {
    Layout().setupUi(&dialog);
}

constexpr struct {
    unsigned number;
    owl::DialogTemplate build;
} kDialogs[] = {
    {1625, Build<Ui::BandDialog>},       {1626, Build<Ui::MapDialog>},      {1627, Build<Ui::InfoDialog>},
    {1628, Build<Ui::MeasuresDialog>},   {1629, Build<Ui::CommentsDialog>}, {1631, Build<Ui::ScaleDialog>},
    {1634, Build<Ui::ElectrodesDialog>},
};

} // namespace

void RegisterDialogs() {
    for (const auto& dialog : kDialogs) {
        owl::RegisterDialogTemplate(dialog.number, dialog.build);
    }
}

void ForgetDialogs() {
    for (const auto& dialog : kDialogs) {
        owl::RegisterDialogTemplate(dialog.number, nullptr);
    }
}

} // namespace orvanta::resources

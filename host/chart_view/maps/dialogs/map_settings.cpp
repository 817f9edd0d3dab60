// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/dialogs/map_settings.h"

#include "host/toolkit/form.h"
#include "host/toolkit/form_texts.h"
#include "host/toolkit/message_module.h"
#include "host/toolkit/modal_gateway.h"
#include "ui_map_settings.h"

namespace orvanta::chart {

namespace {

class MapSettingsForm final : public owl::TForm {
public:
    MapSettingsForm(HWND parent, const MapSettings& settings)
        : TForm(parent), settings_(settings), font_(settings.display.font) {
        ui_.setupUi(this);
        owl::TranslateForm(*this, PModule::Named("Orvanta"), "TMapSettingsForm");
        const MapDisplay& display = settings.display;
        ui_.cbElectrodes->setChecked(display.electrodes);
        ui_.cbNames->setChecked(display.names);
        ui_.cbValues->setChecked(display.values);
        (settings.singlePalette ? ui_.rbSingle : ui_.rbEach)->setChecked(true);
        ui_.spContours->setValue(display.contours);
        ShowFont();
        connect(ui_.btFont, &QPushButton::clicked, this, [this] { AskFont(); });
    }

    MapSettings Settings() const {
        MapSettings changed = settings_;
        changed.singlePalette = ui_.rbSingle->isChecked();
        changed.display.ownScale = !changed.singlePalette;
        changed.display.electrodes = ui_.cbElectrodes->isChecked();
        changed.display.names = ui_.cbNames->isChecked();
        changed.display.values = ui_.cbValues->isChecked();
        changed.display.contours = ui_.spContours->value();
        changed.display.font = font_;
        return changed;
    }

private:
    void AskFont() {
        if (const auto chosen = owl::CurrentModalGateway().AskFont(GetHandle(), font_)) {
            font_ = *chosen;
            ShowFont();
        }
    }
    void ShowFont() {
        ui_.btFont->setText(
            QString::fromStdString(font_.face + ", " + std::to_string(font_.height)).replace('&', "&&"));
    }

    Ui::TMapSettingsForm ui_;
    MapSettings settings_;
    owl::TFont font_;
};

} // namespace

bool EditMapSettings(HWND parent, MapSettings& settings) {
    MapSettingsForm form(parent, settings);
    if (form.ShowModal() != owl::kIdOk) {
        return false;
    }
    settings = form.Settings();
    return true;
}

} // namespace orvanta::chart

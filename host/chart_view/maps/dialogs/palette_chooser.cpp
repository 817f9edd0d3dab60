// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/dialogs/palette_chooser.h"

#include "host/chart_view/maps/dialogs/palette_preview.h"
#include "host/toolkit/form.h"
#include "host/toolkit/form_texts.h"
#include "host/toolkit/message_module.h"
#include "host/toolkit/modal_gateway.h"
#include "ui_map_palette.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace orvanta::chart {

namespace {

constexpr const char* kSection = "TMapPaletteForm";

/// What a palette is good for.
std::string AboutPalette(const std::string& name) {
    static const std::pair<const char*, const char*> texts[] = {
        {"viridis", "Even steps, readable in grey and to colour-blind eyes"},
        {"cividis", "Looks the same to normal and to red-green colour vision"},
        {"inferno", "Even steps from black to light yellow"},
        {"difference", "For values around 0: blue below, red above, white in the middle"},
        {"turbo", "Many hues, for single values read off by colour"},
        {"grey", "For printing without colours"},
    };
    const auto* const found = std::find_if(std::begin(texts), std::end(texts),
                                           [&name](const auto& text) { return name == text.first; });
    return found == std::end(texts)
               ? std::string()
               : owl::TextOr(PModule::Named("Orvanta"), kSection, (name + ".about").c_str(), found->second);
}

class PaletteForm final : public owl::TForm {
public:
    PaletteForm(HWND parent, const std::string& current) : TForm(parent) {
        ui_.setupUi(this);
        owl::TranslateForm(*this, PModule::Named("Orvanta"), kSection);
        preview_ = new PalettePreview(ui_.preview);
        auto* fill = new QVBoxLayout(ui_.preview);
        fill->setContentsMargins(0, 0, 0, 0);
        fill->addWidget(preview_);
        for (const Palette& palette : Palettes()) {
            const auto name = QString::fromUtf8(palette.name.data(), static_cast<int>(palette.name.size()));
            new QListWidgetItem(PaletteIcon(palette, ui_.lstPalettes->iconSize(), *this), name,
                                ui_.lstPalettes);
            if (palette.name == current) {
                ui_.lstPalettes->setCurrentRow(ui_.lstPalettes->count() - 1);
            }
        }
        connect(ui_.lstPalettes, &QListWidget::currentRowChanged, this, [this] { ShowChoice(); });
        connect(ui_.lstPalettes, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
        if (ui_.lstPalettes->currentRow() < 0) {
            ui_.lstPalettes->setCurrentRow(0);
        }
        ShowChoice();
    }

    std::string Choice() const { return std::string(Chosen().name); }

private:
    const Palette& Chosen() const {
        return Palettes()[static_cast<std::size_t>(ui_.lstPalettes->currentRow())];
    }
    void ShowChoice() {
        preview_->Show(Chosen());
        ui_.lbAbout->setText(QString::fromStdString(AboutPalette(Choice())));
    }

    Ui::TMapPaletteForm ui_;
    PalettePreview* preview_ = nullptr;
};

} // namespace

std::optional<std::string> ChoosePalette(HWND parent, const std::string& current) {
    PaletteForm form(parent, current);
    return form.ShowModal() == owl::kIdOk ? std::optional(form.Choice()) : std::nullopt;
}

} // namespace orvanta::chart

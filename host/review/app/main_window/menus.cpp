// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/menus.h"

#include "host/chart_view/the_child.h"

#include <QMenuBar>

#include <utility>

namespace orvanta::review {

namespace {

QString MenuTitle(const std::string& view) {
    // Only one of them is there at a time: they share a mnemonic.
    for (const auto& [name, caption] : {std::pair("Spectrum", Caption{"spectrumMenu", "&Spectrum"}),
                                        std::pair("SpectMap", Caption{"mapsMenu", "Map&s"}),
                                        std::pair("Traces", Caption{"tracesMenu", "Trace&s"})}) {
        if (view == name) {
            return caption.Text();
        }
    }
    return QString::fromStdString(view);
}

} // namespace

Menus::Menus(QMenuBar& bar, const MenuParts& parts) : bar_(bar), items_(bar) {
    AddFileMenu(items_, parts);
    AddEditMenu(items_, parts);
    AddViewMenu(items_, parts);
    AddAnalysisMenu(items_, parts);
    beforeChild_ = AddMontageMenu(items_, parts).menuAction();
    AddToolsMenu(items_, parts);
    AddWindowMenu(items_, parts);
    AddHelpMenu(items_, parts);
    Update();
}

void Menus::ShowMenuOf(TheChild* child) {
    if (child_) {
        bar_.removeAction(child_);
        child_ = nullptr;
    }
    if (child != nullptr) {
        QMenu& menu = child->GetMenu();
        if (menu.title().isEmpty()) {
            menu.setTitle(MenuTitle(child->GetChildName()));
        }
        child_ = menu.menuAction();
        bar_.insertAction(beforeChild_, child_);
    }
}

} // namespace orvanta::review

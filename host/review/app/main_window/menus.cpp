// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/menus.h"

#include "host/chart_view/the_child.h"
#include "host/review/app/main_window/open_views.h"
#include "host/toolkit/event_guard.h"

#include <QMenuBar>

namespace orvanta::review {

namespace {

/// Of a view.
struct ChildMenu {
    const char* view;
    Caption caption;
    ViewKind first; ///< what its first item names
};

// Only one of them is there at a time: they share a mnemonic.
constexpr ChildMenu kChildMenus[] = {
    {"Spectrum", Caption{"spectrumMenu", "&Spectrum"}, ViewKind::Spectrum},
    {"SpectMap", Caption{"mapsMenu", "Map&s"}, ViewKind::Heads},
    {"Traces", Caption{"tracesMenu", "Trace&s"}, ViewKind::Traces},
};

} // namespace

Menus::Menus(QMenuBar& bar, const MenuParts& parts) : bar_(bar), parts_(parts), items_(bar) {
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

void Menus::AnswerFirst(TheChild& child, ViewKind kind) {
    owl::TMenu& menu = child.GetMenu();
    QAction* item = menu.Item(child.GetResInfo().command);
    if (item == nullptr) {
        return;
    }
    item->setCheckable(true);
    QObject::connect(&menu, &QMenu::aboutToShow, item, [this, item, kind] {
        item->setEnabled(parts_.views.CanShow(kind));
        item->setChecked(parts_.views.IsShown(kind));
    });
    // Later: the menu goes with its view.
    QObject::connect(
        item, &QAction::triggered, &bar_,
        [this, kind] { owl::RunGuarded([&] { ToggleView(parts_, kind); }); }, Qt::QueuedConnection);
}

void Menus::ShowMenuOf(TheChild* child) {
    if (child_) {
        bar_.removeAction(child_);
        child_ = nullptr;
    }
    if (child != nullptr) {
        QMenu& menu = child->GetMenu();
        if (menu.title().isEmpty()) {
            for (const auto& [view, caption, first] : kChildMenus) {
                if (child->GetChildName() == view) {
                    menu.setTitle(caption.Text());
                    AnswerFirst(*child, first);
                }
            }
        }
        child_ = menu.menuAction();
        bar_.insertAction(beforeChild_, child_);
    }
}

} // namespace orvanta::review

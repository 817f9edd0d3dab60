// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/menu_items.h"

#include "host/review/app/main_window/host_text.h"
#include "host/toolkit/event_guard.h"

#include <QMenuBar>

#include <utility>

namespace orvanta::review {

QString Caption::Text() const {
    return HostQText(key, text);
}

QAction& AddItem(QMenu& menu, const Caption& caption, const QKeySequence& shortcut,
                 std::function<void()> run) {
    QAction* action =
        menu.addAction(caption.Text(), shortcut, [run = std::move(run)] { owl::RunGuarded(run); });
    action->setObjectName(caption.key);
    return *action;
}

QMenu& MenuItems::AddMenu(const Caption& caption) {
    QMenu* menu = bar_.addMenu(caption.Text());
    menu->setObjectName(caption.key);
    QObject::connect(menu, &QMenu::aboutToShow, menu, [this] { Update(); });
    return *menu;
}

QAction& MenuItems::Add(QMenu& menu, const Caption& caption, const QKeySequence& shortcut,
                        std::function<void()> run, ItemState state) {
    QAction& action = AddItem(menu, caption, shortcut, std::move(run));
    if (state.enabled) {
        AddUpdate([&action, enabled = std::move(state.enabled)] { action.setEnabled(enabled()); });
    }
    if (state.checked) {
        action.setCheckable(true);
        AddUpdate([&action, checked = std::move(state.checked)] { action.setChecked(checked()); });
    }
    return action;
}

void MenuItems::AddUpdate(std::function<void()> update) {
    updates_.push_back(std::move(update));
}

void MenuItems::Update() const {
    for (const std::function<void()>& update : updates_) {
        update();
    }
}

} // namespace orvanta::review

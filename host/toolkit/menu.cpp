// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/menu.h"

#include "host/toolkit/command_enabler.h"
#include "host/toolkit/event_guard.h"
#include "host/toolkit/event_handler.h"
#include "host/toolkit/qt_painting.h"

namespace owl {

namespace {

/// 0 for a separator and a menu below.
unsigned IdOf(const QAction& item) {
    return item.data().toUInt();
}

} // namespace

TMenu::TMenu(std::span<const MenuItem> items, TEventHandler* handler, QWidget* parent)
    : QMenu(parent), handler_(handler) {
    connect(this, &QMenu::aboutToShow, this, &TMenu::RunEnablers);
    for (const MenuItem& item : items) {
        AppendItem(item.id, item.text);
    }
}

QAction* TMenu::Item(unsigned id) const {
    for (QAction* item : actions()) {
        if (id != 0 && IdOf(*item) == id) {
            return item;
        }
        if (const auto* below = dynamic_cast<const TMenu*>(item->menu())) {
            if (QAction* found = below->Item(id)) {
                return found;
            }
        }
    }
    return nullptr;
}

void TMenu::CheckMenuItem(unsigned id, bool check) {
    if (QAction* item = Item(id)) {
        item->setCheckable(true);
        item->setChecked(check);
    }
}

void TMenu::EnableMenuItem(unsigned id, bool enable) {
    if (QAction* item = Item(id)) {
        item->setEnabled(enable);
    }
}

void TMenu::SetItemText(unsigned id, std::string_view text) {
    if (QAction* item = Item(id)) {
        item->setText(ToQString(text));
    }
}

void TMenu::DeleteItem(unsigned id) {
    // Later, since the item may be the one whose command runs.
    if (QAction* item = Item(id)) {
        item->setData(0);
        static_cast<QMenu*>(item->parent())->removeAction(item);
        item->deleteLater();
    }
}

void TMenu::AppendItem(unsigned id, std::string_view text) {
    if (id == 0) {
        addSeparator();
        return;
    }
    QAction* item = addAction(ToQString(text));
    item->setData(id);
    connect(item, &QAction::triggered, this, [this, item](bool checked) { Run(*item, checked); });
}

void TMenu::RunEnablers() {
    if (handler_ == nullptr) {
        return;
    }
    for (QAction* item : actions()) {
        if (const unsigned id = IdOf(*item)) {
            RunEnabler(*handler_, id, *item);
        }
    }
}

void TMenu::Run(QAction& item, bool checked) {
    if (item.isCheckable()) {
        item.setChecked(!checked); // Qt's own mark of the click
    }
    if (handler_ != nullptr) {
        RunGuarded([&] { handler_->RunCommand(IdOf(item)); });
    }
}

} // namespace owl

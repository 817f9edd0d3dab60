// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/map_context_menu.h"

#include "host/chart_view/maps/map_commands.h"
#include "host/toolkit/control_text.h"
#include "host/toolkit/event_guard.h"
#include "host/toolkit/form_texts.h"
#include "host/toolkit/message_module.h"

namespace orvanta::chart {

namespace {

struct Entry {
    unsigned id; ///< 0 for a separator
    const char* key;
    const char* text;
    bool heads = false; ///< for maps on heads only
};

constexpr Entry kEntries[] = {
    {kGrid, "grid", "&Rows and Columns..."},
    {kConfigureMap, "settings", "&Maps Settings..."},
    {kChoosePalette, "palette", "&Palette..."},
    {kSelectFont, "font", "&Font..."},
    {0, "", ""},
    {kElectrodes, "electrodes", "&Electrodes"},
    {kNames, "names", "&Names of Electrodes"},
    {kValues, "values", "&Values on Electrodes"},
    {kSinglePalette, "oneScale", "&One Scale for All Maps"},
    {kValuesTable, "table", "&Table of Values"},
    {0, "", "", true},
    {kLock, "lock", "Turn All Maps To&gether", true},
    {kFromTop, "top", "Top View", true},
    {kFromFront, "front", "Front View", true},
    {kFromLeft, "left", "&Left View", true},
    {kFromRight, "right", "R&ight View", true},
    {kFromBack, "back", "&Back View", true},
    {0, "", ""},
    {kCopyMeasures, "copy", "&Copy Measures to Clipboard"},
};

void AddMapOptions(owl::TMenu& menu, owl::TEventHandler& handler, const std::vector<MapToSet>& maps) {
    if (maps.empty()) {
        return;
    }
    const QString caption = QString::fromStdString(
        owl::TextOr(PModule::Named("Orvanta"), "MAP_MENU", "options", "Ban&d and Measure..."));
    const auto add = [&handler](QMenu& to, const QString& text, std::size_t map) {
        to.addAction(text, &to, [&handler, map] {
            owl::RunGuarded([&] {
                handler.Dispatch({{owl::EventKind::Message, kMapOptions}, owl::MessageArgs{map, 0}});
            });
        });
    };
    if (maps.size() == 1) {
        add(menu, caption, maps.front().index);
    } else {
        constexpr std::size_t kDigits = 9;
        QMenu& each = *menu.addMenu(caption);
        for (const auto& [index, title] : maps) {
            add(each,
                QString(index < kDigits ? "&%1 %2" : "%1 %2")
                    .arg(index + 1)
                    .arg(owl::AsCaption(QString::fromStdString(title))),
                index);
        }
    }
    menu.addSeparator();
}

} // namespace

owl::TMenu* MakeMapContextMenu(QWidget& window, owl::TEventHandler& handler, const MapMenuState& state) {
    // Not as soon as it is closed: an item that runs long lets events through while Qt is still in the menu.
    constexpr const char* kName = "MapContextMenu";
    delete window.findChild<owl::TMenu*>(kName, Qt::FindDirectChildrenOnly);
    auto* menu = new owl::TMenu({}, &handler, &window);
    menu->setObjectName(kName);
    AddMapOptions(*menu, handler, state.maps);
    const PModule* const messages = PModule::Named("Orvanta");
    for (const Entry& entry : kEntries) {
        if (entry.heads && !state.threeD) {
            continue;
        }
        menu->AppendItem(entry.id,
                         entry.id != 0 ? owl::TextOr(messages, "MAP_MENU", entry.key, entry.text) : "");
    }
    menu->CheckMenuItem(kElectrodes, state.electrodes);
    menu->CheckMenuItem(kNames, state.names);
    menu->CheckMenuItem(kValues, state.values);
    menu->CheckMenuItem(kSinglePalette, state.singlePalette);
    menu->CheckMenuItem(kValuesTable, state.table);
    menu->CheckMenuItem(kLock, state.locked);
    return menu;
}

} // namespace orvanta::chart

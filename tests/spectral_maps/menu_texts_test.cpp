// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectral_maps/menu_texts.h"

#include "host/toolkit/menu.h"
#include "host/toolkit/message_module.h"
#include "resources/menus/maps_menu.h"
#include "spectral_maps/command_ids.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using namespace orvanta;
using namespace orvanta::spectral_maps;
using testing::ElementsAre;
using testing::Pair;

/// The menu with the texts of a message file.
class MapsMenuTexts : public testing::Test {
protected:
    void Translate(const std::string& lines) {
        folder.Write("messages/Other.en.ini", "[MENU]\n" + lines);
        const PModule module("Other", nullptr, folder.Path("messages"));
        TranslateMenu(menu, &module);
    }
    std::string TextOf(unsigned id) const { return menu.Item(id)->text().toStdString(); }

    test::TempFolder folder;
    owl::TMenu menu{resources::kMapsMenuItems};
};

TEST(MapsMenu, HasItsItemsInTheirOrder) {
    const owl::TMenu menu(resources::kMapsMenuItems);

    std::vector<std::pair<int, std::string>> items;
    for (const QAction* item : menu.actions()) {
        items.emplace_back(item->data().toInt(), item->text().toStdString());
    }

    EXPECT_THAT(items,
                ElementsAre(Pair(9328, "&View 3D Spectral Maps"), Pair(14130, "&Recompute"),
                            Pair(14140, "&Computation Settings..."), Pair(14143, "Maps Settings..."),
                            Pair(14170, "Cartoon Mode"), Pair(14190, "Next Selection"), Pair(0, ""),
                            Pair(14150, "&Lock Maps"), Pair(14180, "&Copy Measures to Clipboard"),
                            Pair(14142, "Define &Bands..."), Pair(0, ""), Pair(14081, "&Select Palette..."),
                            Pair(14144, "&Select Font..."), Pair(0, ""), Pair(14100, "Top View"),
                            Pair(14102, "Left View"), Pair(14103, "Right View"), Pair(14101, "Front View"),
                            Pair(14104, "Back View")));
}

TEST_F(MapsMenuTexts, ComeFromTheMessageStore) {
    Translate("CM_MAP_3D_PALETTE=Farben\nCM_MAP_3D_MACRO_OPTIONS=Einstellungen\n"
              "CM_MAP_3D_RECOMPUTE=Rechnen\nCM_MAP_3D_LOCK=Koppeln\n");

    EXPECT_EQ(TextOf(14081), "Farben");
    EXPECT_EQ(TextOf(14140), "Einstellungen");
    EXPECT_EQ(TextOf(14130), "Rechnen");
    EXPECT_EQ(TextOf(14150), "Koppeln");
}

TEST_F(MapsMenuTexts, StayWhereTheStoreHasNoneOrAnEmptyOne) {
    Translate("CM_MAP_3D_PALETTE=\n");

    EXPECT_EQ(TextOf(14081), "&Select Palette...");
    EXPECT_EQ(TextOf(14130), "&Recompute");
}

TEST_F(MapsMenuTexts, StayWithoutAMessageStore) {
    TranslateMenu(menu, nullptr);

    EXPECT_EQ(TextOf(14150), "&Lock Maps");
}

TEST_F(MapsMenuTexts, EndAfter127Characters) {
    Translate("CM_MAP_3D_LOCK=" + std::string(130, 'x') + "\n");

    EXPECT_EQ(TextOf(14150), std::string(127, 'x'));
}

TEST_F(MapsMenuTexts, LeaveNumberStateAndCheckMarkOfAnItem) {
    menu.CheckMenuItem(kCmLock, true);
    menu.EnableMenuItem(kCmLock, false);

    Translate("CM_MAP_3D_LOCK=Koppeln\n");

    EXPECT_TRUE(menu.Item(14150)->isChecked());
    EXPECT_FALSE(menu.Item(14150)->isEnabled());
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/dialogs/palette_chooser.h"

#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"

#include <QDialog>
#include <QListWidget>
#include <gtest/gtest.h>

namespace {

using orvanta::chart::ChoosePalette;
using orvanta::test::FormUser;
using orvanta::test::ScriptedUser;

/// What the user does with the form.
std::optional<std::string> Chosen(const std::string& current, const std::function<void(QDialog&)>& action) {
    ScriptedUser user;
    user.MeetsDialog(action);
    return ChoosePalette(nullptr, current);
}

TEST(PaletteChooser, OffersAllPalettesWithTheCurrentOneSelected) {
    Chosen("inferno", [](QDialog& form) {
        const FormUser user(form);
        EXPECT_EQ(user.RowsOf("lstPalettes"),
                  QStringList({"viridis", "cividis", "inferno", "difference", "turbo", "grey"}));
        EXPECT_EQ(user.SelectedRowsOf("lstPalettes"), QStringList("inferno"));
        form.reject();
    });
}

TEST(PaletteChooser, SelectsTheFirstForAnUnknownName) {
    EXPECT_EQ(Chosen("rainbow", [](QDialog& form) { form.accept(); }), "viridis");
}

TEST(PaletteChooser, AnswersTheSelectedOne) {
    EXPECT_EQ(Chosen("viridis",
                     [](QDialog& form) {
                         FormUser(form).SelectsRow("lstPalettes", 4);
                         form.accept();
                     }),
              "turbo");
}

TEST(PaletteChooser, AnswersOnADoubleClick) {
    EXPECT_EQ(Chosen("viridis", [](QDialog& form) { FormUser(form).DoubleClicksRow("lstPalettes", 3); }),
              "difference");
}

TEST(PaletteChooser, AnswersNothingWhenCancelled) {
    EXPECT_EQ(Chosen("viridis",
                     [](QDialog& form) {
                         FormUser(form).SelectsRow("lstPalettes", 4);
                         FormUser(form).PressesEscape();
                     }),
              std::nullopt);
}

TEST(PaletteChooser, TellsWhatThePaletteIsGoodFor) {
    Chosen("viridis", [](QDialog& form) {
        const FormUser user(form);
        const QString viridis = user.TextOf("lbAbout");
        user.SelectsRow("lstPalettes", 3);
        EXPECT_NE(user.TextOf("lbAbout"), viridis);
        EXPECT_FALSE(user.TextOf("lbAbout").isEmpty());
        form.reject();
    });
}

TEST(PaletteChooser, ShowsASampleMapInTheSelectedPalette) {
    Chosen("viridis", [](QDialog& form) {
        auto* preview = form.findChild<QWidget*>("preview");
        ASSERT_NE(preview, nullptr);
        const QImage viridis = preview->grab().toImage();
        FormUser(form).SelectsRow("lstPalettes", 5);
        const QImage grey = preview->grab().toImage();
        EXPECT_NE(grey, viridis);
        const QColor middle = grey.pixelColor(grey.width() / 2 + 12, grey.height() / 2 + 12);
        EXPECT_EQ(middle.red(), middle.blue());
        form.reject();
    });
}

} // namespace

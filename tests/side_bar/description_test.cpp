// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/description.h"

#include "host/toolkit/message_module.h"
#include "spectra_contract/spectra_macro.h"
#include "tests/support/temp_folder.h"

#include <QLocale>
#include <QPlainTextEdit>
#include <gtest/gtest.h>

#include <sstream>

namespace {

using orvanta::side_bar::ShowDescription;

std::string Shown(const std::string& text) {
    QPlainTextEdit memo;
    ShowDescription(memo, text);
    return memo.toPlainText().toStdString();
}

std::string Description(const SpectraMacro& macro) {
    std::ostringstream text;
    macro.GetLongDescrStr(text);
    return text.str();
}

/// A user who reads German, with texts of the test.
class GermanDescription : public testing::Test {
protected:
    GermanDescription() {
        QLocale::setDefault(QLocale("de_DE"));
        folder.Write("messages/Orvanta.de.ini",
                     "[DESCRIPTION]\nfftWindow=FFT-Fenster\ninterval=Abschnitt\n"
                     "bySpots=Nach Punktereignissen\nspots=Punktereignisse\nstates=Zustandsereignisse\n"
                     "exclude=Ausgeschlossen\nnone=Keine\nepochs=Epochen\nall=Alle\n"
                     "random=Zufällige %s in zeitlicher Reihenfolge\ncomputed=Berechnet\nyes=ja\n");
    }
    ~GermanDescription() override { QLocale::setDefault(QLocale::system()); }

    orvanta::test::TempFolder folder;
    PModule texts{"Orvanta", nullptr, folder.Path("messages")};
};

TEST(Description, IsShownAsItComesInEnglish) {
    const std::string text = "Name: a: b\nInterval: All recording\nno name here\n";
    EXPECT_EQ(Shown(text), text);
}

TEST_F(GermanDescription, TellsSettingsInGerman) {
    SpectraMacro macro;
    macro.SetTimeIntervalSelectMode(SpectraMacro::TimeIntervalSelectMode::BySpotEvents);
    macro.SetAcceptSpotList({"All", "tone"});
    macro.SetEpochsSelMode(SpectraMacro::EpochsSelectionMode::RandomN);
    macro.SetNumEpochsToUse(40);
    EXPECT_EQ(Shown(Description(macro)), "FFT-Fenster: 2 s\n"
                                         "Overlap: 50 %\n"
                                         "Windowing: Hanning\n"
                                         "Abschnitt: Nach Punktereignissen\n"
                                         "Punktereignisse: All, tone\n"
                                         "Pre-trigger: 0 ms\n"
                                         "Segment duration: 1000 ms\n"
                                         "Steps: 1 x 1 ms\n"
                                         "Ausgeschlossen: Keine\n"
                                         "Epochen: Zufällige 40 in zeitlicher Reihenfolge\n"
                                         "Contrast value: 0\n");
}

TEST_F(GermanDescription, LeavesTheUsersOwnWords) {
    EXPECT_EQ(Shown("Name: Rate\nMontage: Name\nState events: yes\nComputed: yes\n"),
              "Name: Rate\nMontage: Name\nZustandsereignisse: yes\nBerechnet: ja\n");
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/refusal_text.h"

#include "host/signal_base/montage/montage_file.h"
#include "host/signal_base/recording.h"
#include "host/signal_base/recording_error.h"
#include "host/toolkit/message_module.h"
#include "tests/support/temp_folder.h"

#include <QLocale>
#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using namespace orvanta;

/// What a user who reads German is told of a file in the folder that is opened.
class GermanRefusal : public testing::Test {
protected:
    GermanRefusal() { QLocale::setDefault(QLocale("de_DE")); }
    ~GermanRefusal() override { QLocale::setDefault(QLocale::system()); }

    std::string Of(const std::string& name) const {
        try {
            signal::OpenRecording(folder.Path(name));
        } catch (const std::exception& error) {
            const std::string text = review::RefusalText(error, &texts);
            return text.substr(text.find(": ") + 2); // behind the path
        }
        return "opened";
    }

    test::TempFolder folder;
    PModule texts{"Orvanta", nullptr, folder.Path("messages")};
};

TEST_F(GermanRefusal, OfAMissingFile) {
    EXPECT_EQ(Of("none.edf"), "ist nicht vorhanden (prüfen Sie Namen und Ordner)");
}

TEST_F(GermanRefusal, OfAFolder) {
    EXPECT_EQ(Of(""), "ist ein Ordner (wählen Sie eine Aufzeichnung)");
}

TEST_F(GermanRefusal, OfAnEmptyFile) {
    folder.Write("empty.edf", "");
    EXPECT_EQ(Of("empty.edf"), "Byte 0: die Datei ist leer (kopieren Sie die Datei noch einmal)");
}

TEST_F(GermanRefusal, OfAnotherFormat) {
    folder.Write("notes.txt", "not a recording");
    EXPECT_EQ(
        Of("notes.txt"),
        "dies ist keine Aufzeichnung in einem bekannten Format (öffnen Sie eine Datei in EDF, EDF+, BDF, "
        "BDF+ oder BrainVision, oder exportieren Sie in eines dieser Formate)");
}

TEST_F(GermanRefusal, OfACutFile) {
    folder.Write("cut.edf", "0       " + std::string(92, ' '));
    EXPECT_EQ(Of("cut.edf"),
              "Byte 100: die Datei ist kürzer als ein Kopf von 256 Byte (wählen Sie eine Aufzeichnung "
              "in EDF oder BDF, oder kopieren Sie die Datei noch einmal)");
}

TEST_F(GermanRefusal, OfMontagesWithTheLine) {
    const auto of = [this](const char* text) -> std::string {
        try {
            signal::ParseMontages(text, "own.mtg");
        } catch (const signal::RecordingError& error) {
            return review::RefusalText(error, &texts);
        }
        return "read";
    };
    EXPECT_EQ(of("a = +Fp1\na = +Fp2\n"),
              "own.mtg: Zeile 2: der Kanal \"a\" steht zweimal da (geben Sie jedem "
              "Kanal eine eigene Bezeichnung)");
    EXPECT_EQ(of("a = +x*Fp1\n"),
              "own.mtg: Zeile 1: \"x\" ist kein Gewicht (schreiben Sie vor * eine Zahl außer 0)");
    EXPECT_EQ(of("a = \"Fp1\n"),
              "own.mtg: Zeile 1: ein Anführungszeichen wird nicht geschlossen (schließen Sie "
              "den Namen mit \")");
    EXPECT_EQ(of(""), "own.mtg: hat keinen Kanal (schreiben Sie Kanäle wie \"Fp1-F3 = +Fp1 -F3\")");
}

TEST_F(GermanRefusal, KeepsWhatItHasNoWordsFor) {
    EXPECT_EQ(review::RefusalText(signal::RecordingError("a.edf", "odd", "open the file again"), &texts),
              "a.edf: odd (öffnen Sie die Datei noch einmal)");
    EXPECT_EQ(review::RefusalText(std::runtime_error("something else"), &texts), "something else");
}

TEST(Refusal, IsWhatTheErrorSaysInEnglish) {
    const signal::RecordingError error("a.edf", "byte 7: the file was cut while open", "open the file again");
    EXPECT_EQ(review::RefusalText(error, nullptr), error.what());
}

} // namespace

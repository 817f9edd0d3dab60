// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/dialogs/band_dialog.h"

#include "host/toolkit/message_module.h"
#include "host/toolkit/modal_gateway.h"
#include "host/toolkit/window.h"
#include "resources/dialogs/dialog_templates.h"
#include "spectra_contract/spect_globals.h"
#include "tests/spectrum_view/traces/trace_fixture.h"
#include "tests/support/comma_numerals.h"
#include "tests/support/qt/fake_global_window.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"
#include "tests/support/temp_folder.h"

#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

using namespace orvanta;

/// The user types into edits, by name.
struct Entry {
    const char* edit;
    const char* text;
};

class Bands : public test::TraceFixture {
protected:
    Bands() { resources::RegisterDialogs(); }
    ~Bands() override { resources::ForgetDialogs(); }

    /// "Delta 0.5 4"
    std::string Band(unsigned index) const {
        const SPECT::Band& band = manager.GetBand(index);
        return std::string(band.name) + Range(band.lo, band.hi);
    }
    static std::string Total() { return Range(SPECT::GetGlobals().TotalLo, SPECT::GetGlobals().TotalHi); }
    static std::string Range(double lower, double upper) {
        std::ostringstream text;
        text << ' ' << lower << ' ' << upper;
        return text.str();
    }
    /// The user types and closes the dialog by a button.
    int Run(const std::vector<Entry>& entries, int button = 1) {
        SpectrumBandDlg dialog(nullptr, &platform, &manager);
        test::ScriptedUser user;
        user.Meets<SpectrumBandDlg>([&](SpectrumBandDlg& shown) {
            for (const Entry& entry : entries) {
                test::FormUser(shown).Types(entry.edit, entry.text);
            }
            shown.Item<QPushButton>(button)->click();
        });
        return dialog.Execute();
    }
    bool Saved() const { return !platform.texts.empty(); }

    test::FakePlatform platform;
};

/// The dialog while it is open.
class OpenBands : public Bands {
protected:
    OpenBands() { dialog.show(); }

    QString MarkOf(int row) const {
        const auto* mark = dialog.findChild<QLabel*>("mark" + QString::number(row));
        // What can be seen and what is told agree.
        EXPECT_EQ(mark->pixmap().isNull(), mark->toolTip().isEmpty());
        return mark->toolTip();
    }
    QString Remark() const { return dialog.findChild<QLabel*>("remark")->text(); }
    bool IsColored(int row) const {
        return dialog.findChild<QFrame*>("color" + QString::number(row))->autoFillBackground();
    }

    SpectrumBandDlg dialog{nullptr, &platform, &manager};
};

TEST_F(OpenBands, HaveTheirCaptions) {
    EXPECT_EQ(dialog.windowTitle(), "Define Frequency Bands");
    EXPECT_EQ(dialog.GetDlgItemText(101, 99), "Frequency Bands");
    EXPECT_EQ(dialog.GetDlgItemText(501, 99), "Define frequency bands for measurements");
    EXPECT_EQ(test::FormUser(dialog).TextOf("total"), "Total Band\n (used for Relative Power computation)");
    EXPECT_EQ(dialog.GetDlgItemText(1, 99), "OK");
    EXPECT_EQ(dialog.GetDlgItemText(2, 99), "Cancel");
}

TEST_F(Bands, TakeTwoCaptionsFromTheHostsMessages) {
    const test::TempFolder folder;
    folder.Write("Orvanta.en.ini", "[DIALOG]\nIDDFB_GB_FREQUENCYBANDS=Rhythms\n"
                                   "IDDFB_ST_DEFINEFREQUENCY=Say which\n");
    const PModule messages("Orvanta", nullptr, folder.Path(""));
    SpectrumBandDlg dialog(nullptr, &platform, &manager);
    dialog.ensurePolished();
    EXPECT_EQ(dialog.GetDlgItemText(101, 99), "Rhythms");
    EXPECT_EQ(dialog.GetDlgItemText(501, 99), "Say which");
}

TEST_F(OpenBands, ShowNamesAndEdgesWithOneDecimalAndFourCharacters) {
    const char* rows[8][3] = {{"Delta", " 0.5", " 4.0"}, {"Theta", " 4.0", " 8.0"}, {"Alpha", " 8.0", "13.0"},
                              {"Beta", "13.0", "30.0"},  {"Gamma", "30.0", "45.0"}, {"", " 0.0", " 0.0"},
                              {"", " 0.0", " 0.0"},      {"", " 0.0", " 0.0"}};
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(dialog.GetDlgItemText(201 + i, 99), rows[i][0]);
        EXPECT_EQ(dialog.GetDlgItemText(301 + i, 99), rows[i][1]);
        EXPECT_EQ(dialog.GetDlgItemText(401 + i, 99), rows[i][2]);
    }
    EXPECT_EQ(dialog.GetDlgItemText(300, 99), " 0.5");
    EXPECT_EQ(dialog.GetDlgItemText(400, 99), "45.0");
}

TEST_F(Bands, ShowAtMost63CharactersOfANumber) {
    manager.GetBand(7).hi = 1e80;
    SpectrumBandDlg dialog(nullptr, &platform, &manager);
    dialog.ensurePolished();
    EXPECT_EQ(dialog.GetDlgItemText(408, 99),
              "100000000000000000026609864708367276537402401181200809098131977");
}

TEST_F(Bands, AreTakenFromTheRowsOnOk) {
    EXPECT_EQ(Run({{"name5", "Mu"}, {"lower5", "9.5"}, {"upper5", "11"}, {"upper0", "3.75"}}), owl::kIdOk);
    EXPECT_EQ(Band(5), "Mu 9.5 11");
    EXPECT_EQ(Band(0), "Delta 0.5 3.75");
    EXPECT_EQ(Band(1), "Theta 4 8");
}

TEST_F(Bands, AreThoseOfTheSharedTable) {
    Run({{"upper1", "7.5"}});
    EXPECT_EQ(SPECT::GetGlobals().Bands[1].hi, 7.5);
}

TEST_F(Bands, StayAsTheyWereOnCancel) {
    EXPECT_EQ(Run({{"name0", "Slow"}, {"upper0", "3"}, {"lower8", "1"}}, 2), owl::kIdCancel);
    EXPECT_EQ(Band(0), "Delta 0.5 4");
    EXPECT_EQ(Total(), " 0.5 45");
    EXPECT_FALSE(Saved());
}

struct RowCase {
    const char* title;
    const char* lower;
    const char* upper;
    const char* stored;
};

class RowOnOk : public Bands, public testing::WithParamInterface<RowCase> {};

TEST_P(RowOnOk, IsStoredWholeOrNotAtAll) {
    Run({{"name2", "New"}, {"lower2", GetParam().lower}, {"upper2", GetParam().upper}});
    EXPECT_EQ(Band(2), GetParam().stored);
    EXPECT_EQ(Band(3), "Beta 13 30");
}

INSTANTIATE_TEST_SUITE_P(
    Edges, RowOnOk,
    testing::Values(
        RowCase{"Reversed", "13", "8", "Alpha 8 13"}, RowCase{"Equal", "8", "8", "New 8 8"},
        RowCase{"NegativeLower", "-1", "8", "Alpha 8 13"}, RowCase{"BothNegative", "-8", "-4", "Alpha 8 13"},
        RowCase{"FromZero", "0", "8", "New 0 8"}, RowCase{"NoNumber", "eight", "9", "New 0 9"},
        RowCase{"Emptied", "", "", "New 0 0"}, RowCase{"BlanksAround", "  8.25 ", "9", "New 8.25 9"},
        RowCase{"TextBehind", "8 Hz", "9 Hz", "New 8 9"}, RowCase{"Comma", "8,5", "9,5", "New 8 9"},
        RowCase{"Exponent", "85e-1", "1e1", "New 8.5 10"}, RowCase{"NotANumber", "nan", "9", "Alpha 8 13"},
        RowCase{"UpperNotANumber", "8", "NAN", "Alpha 8 13"}, RowCase{"MinusZero", "-0", "9", "New -0 9"},
        RowCase{"TooLarge", "8", "1e400", "New 8 1.79769e+308"},
        RowCase{"TooSmall", "1e-400", "9", "New 0 9"},
        RowCase{"NegativeAndTooSmall", "-1e-400", "9", "New -0 9"},
        RowCase{"Infinity", "8", "inf", "New 8 1.79769e+308"}),
    [](const auto& row) { return row.param.title; });

TEST_F(Bands, StoreTheTotalBandAndTheSettings) {
    Run({{"lower8", "1"}, {"upper8", "40.5"}});
    EXPECT_EQ(Total(), " 1 40.5");
    EXPECT_EQ(platform.texts["Spectrum/TotalLo"], "1");
    EXPECT_EQ(platform.texts["Spectrum/TotalHi"], "40.5");
}

class TotalOnOk : public Bands, public testing::WithParamInterface<std::pair<const char*, const char*>> {};

TEST_P(TotalOnOk, IsNotStoredAndSavesNothing) {
    Run({{"name0", "Slow"}, {"lower8", GetParam().first}, {"upper8", GetParam().second}});
    EXPECT_EQ(Total(), " 0.5 45");
    EXPECT_FALSE(Saved());
    EXPECT_EQ(Band(0), "Slow 0.5 4") << "the bands do not depend on it";
}

INSTANTIATE_TEST_SUITE_P(Edges, TotalOnOk,
                         testing::Values(std::pair("-0.5", "45"), std::pair("45", "0.5"),
                                         std::pair("-2", "-1"), std::pair("nan", "45"),
                                         std::pair("0.5", "nan")));

TEST_F(Bands, SaveTheSettingsAlsoWhenABandIsIgnored) {
    Run({{"lower2", "13"}, {"upper2", "8"}});
    EXPECT_EQ(Band(2), "Alpha 8 13");
    EXPECT_TRUE(Saved());
}

TEST_F(Bands, AreShownWithTheUsersDecimalSign) {
    const test::CommaNumerals comma;
    SpectrumBandDlg dialog(nullptr, &platform, &manager);
    dialog.ensurePolished();
    EXPECT_EQ(dialog.GetDlgItemText(301, 99), " 0,5");
    EXPECT_EQ(dialog.GetDlgItemText(403, 99), "13,0");
    EXPECT_EQ(dialog.GetDlgItemText(400, 99), "45,0");
}

TEST_F(Bands, AreReadWithAPointWhereTheUserHasAComma) {
    const test::CommaNumerals comma;
    Run({{"lower2", "8.5"}, {"upper2", "12.25"}, {"lower8", "0.25"}});
    EXPECT_EQ(Band(2), "Alpha 8.5 12.25");
    EXPECT_EQ(Band(0), "Delta 0 4") << "the comma that is shown ends the number";
    EXPECT_EQ(Total(), " 0.25 45");
}

TEST_F(Bands, LeaveTheUsersNumeralsAsTheyWere) {
    const test::CommaNumerals comma;
    Run({{"upper2", "12"}});
    EXPECT_EQ(std::strtod("0,5", nullptr), 0.5);
}

TEST_F(Bands, KeepNamesOf63Bytes) {
    const std::string name(63, 'x');
    Run({{"name0", name.c_str()}});
    EXPECT_EQ(manager.GetBand(0).name, name);
}

TEST_F(Bands, CutALongerNameAtTheTerminator) {
    Run({{"name0", std::string(70, 'x').c_str()}});
    EXPECT_EQ(manager.GetBand(0).name, std::string(63, 'x'));
}

TEST_F(OpenBands, CutANameBeforeACharacterThatDoesNotFitWhenItIsPasted) {
    QString name(32, QChar(0x3B1)); // two bytes each
    auto* edit = dialog.Item<QLineEdit>(201);
    edit->selectAll();
    edit->insert(name);
    EXPECT_EQ(test::FormUser(dialog).TextOf("name0"), name.left(31));
}

TEST_F(Bands, CutANameBeforeACharacterThatDoesNotFit) {
    SpectrumBandDlg dialog(nullptr, &platform, &manager);
    dialog.ensurePolished();
    dialog.SetDlgItemText(201, std::string(62, 'x') + "α");
    dialog.accept();
    EXPECT_EQ(manager.GetBand(0).name, std::string(62, 'x'));
}

TEST_F(Bands, KeepNamesWithMarksAndCharactersOfAllKinds) {
    std::snprintf(manager.GetBand(0).name, sizeof(SPECT::Band::name), "δ & <b>");
    Run({{"name1", "&Th"}});
    EXPECT_STREQ(manager.GetBand(0).name, "δ & <b>");
    EXPECT_STREQ(manager.GetBand(1).name, "&Th");
}

TEST_F(OpenBands, AreNotMarkedWhenTheyAreFine) {
    for (int row = 0; row < 9; ++row) {
        EXPECT_EQ(MarkOf(row), "");
    }
    EXPECT_EQ(Remark(), "");
}

TEST_F(OpenBands, MarkARowWhoseLowerLiesAboveUpperUntilItIsMended) {
    test::FormUser(dialog).Types("lower2", "18");
    EXPECT_EQ(MarkOf(2), "Lower above upper: this row is not stored");
    EXPECT_EQ(Remark(), "Alpha: Lower above upper: this row is not stored");
    EXPECT_EQ(dialog.GetDlgItem(303)->toolTip(), "Lower above upper: this row is not stored");
    EXPECT_EQ(dialog.GetDlgItem(403)->accessibleDescription(), "Lower above upper: this row is not stored");
    EXPECT_EQ(MarkOf(3), "");
    test::FormUser(dialog).Types("upper2", "19");
    EXPECT_EQ(MarkOf(2), "");
    EXPECT_EQ(Remark(), "");
}

TEST_F(OpenBands, MarkANegativeTotalBand) {
    test::FormUser(dialog).Types("lower8", "-1");
    EXPECT_EQ(MarkOf(8), "Below 0 Hz: this row is not stored");
    EXPECT_EQ(Remark(), "Total band: Below 0 Hz: this row is not stored");
}

TEST_F(OpenBands, MarkARowWithNotANumber) {
    test::FormUser(dialog).Types("upper2", "nan");
    EXPECT_EQ(MarkOf(2), "No number: this row is not stored");
}

TEST_F(OpenBands, TellHowATextIsReadThatIsNoNumber) {
    test::FormUser(dialog).Types("lower2", "8,5");
    EXPECT_EQ(MarkOf(2), "Read as 8 - 13 Hz; the decimal sign is the point");
}

TEST_F(OpenBands, TellTheFirstRemarkWithTheNameAsItIsTyped) {
    test::FormUser(dialog).Types("lower6", "5");
    EXPECT_EQ(Remark(), "Band 7: Lower above upper: this row is not stored");
    test::FormUser(dialog).Types("upper1", "2");
    test::FormUser(dialog).Types("name1", "Slow");
    EXPECT_EQ(Remark(), "Slow: Lower above upper: this row is not stored");
}

TEST_F(Bands, TellHowNumbersWithACommaAreRead) {
    const test::CommaNumerals comma;
    SpectrumBandDlg dialog(nullptr, &platform, &manager);
    dialog.show();
    EXPECT_EQ(dialog.findChild<QLabel*>("mark0")->toolTip(),
              "Read as 0 - 4 Hz; the decimal sign is the point");
    test::FormUser(dialog).Types("lower0", "0.5");
    test::FormUser(dialog).Types("upper0", "4.0");
    EXPECT_EQ(dialog.findChild<QLabel*>("mark0")->toolTip(), "");
}

TEST_F(OpenBands, AreColoredWhenTheyAreDefined) {
    EXPECT_TRUE(IsColored(4));
    EXPECT_FALSE(IsColored(5));
    test::FormUser(dialog).Types("upper5", "3");
    EXPECT_TRUE(IsColored(5));
    test::FormUser(dialog).Types("lower5", "4");
    EXPECT_FALSE(IsColored(5)) << "the row is not stored, and the band was not defined";
    test::FormUser(dialog).Types("lower4", "90");
    EXPECT_TRUE(IsColored(4)) << "the row is not stored, and the band stays defined";
}

TEST_F(OpenBands, CanBeReachedByTabRowByRow) {
    std::string order;
    const QWidget* next = dialog.GetDlgItem(201);
    for (int count = 0; count < 28; next = next->nextInFocusChain()) {
        if (next->property("controlId").isValid() && (next->focusPolicy() & Qt::TabFocus) != 0) {
            order += next->property("controlId").toString().toStdString() + ' ';
            ++count;
        }
    }
    EXPECT_EQ(order, "201 301 401 202 302 402 203 303 403 204 304 404 205 305 405 206 306 406 207 307 407 "
                     "208 308 408 300 400 1 2 ");
}

TEST_F(OpenBands, LieInColumns) {
    dialog.grab();
    for (int i = 1; i < 8; ++i) {
        EXPECT_EQ(dialog.GetDlgItem(201 + i)->x(), dialog.GetDlgItem(201)->x());
        EXPECT_EQ(dialog.GetDlgItem(301 + i)->x(), dialog.GetDlgItem(300)->x());
        EXPECT_EQ(dialog.GetDlgItem(401 + i)->x(), dialog.GetDlgItem(400)->x());
    }
    EXPECT_EQ(dialog.Item<QLineEdit>(301)->alignment(), Qt::AlignRight | Qt::AlignVCenter);
}

TEST_F(OpenBands, AreToldToScreenReaders) {
    EXPECT_EQ(dialog.GetDlgItem(203)->accessibleName(), "Name of band 3");
    EXPECT_EQ(dialog.GetDlgItem(303)->accessibleName(), "Lower frequency of band 3, in Hz");
    EXPECT_EQ(dialog.GetDlgItem(403)->accessibleName(), "Upper frequency of band 3, in Hz");
}

TEST_F(Bands, StandOverTheirView) {
    owl::TWindow view;
    const SpectrumBandDlg dialog(&view, &platform, &manager);
    EXPECT_EQ(dialog.parentWidget(), &view);
}

} // namespace

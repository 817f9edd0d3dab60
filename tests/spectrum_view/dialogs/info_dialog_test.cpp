// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/dialogs/info_dialog.h"

#include "host/toolkit/modal_gateway.h"
#include "host/toolkit/window.h"
#include "resources/dialogs/dialog_templates.h"
#include "spectrum_view/dialogs/info_text.h"
#include "tests/spectrum_view/traces/trace_fixture.h"
#include "tests/support/comma_numerals.h"
#include "tests/support/qt/scripted_user.h"

#include <QClipboard>
#include <QFontInfo>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTextBlock>

namespace {

using namespace orvanta;

class Info : public test::TraceFixture {
protected:
    Info() { resources::RegisterDialogs(); }
    ~Info() override { resources::ForgetDialogs(); }

    /// Two seconds in windows of one second that overlap by half: three epochs.
    std::unique_ptr<EEGFileInfoType> shortRecording = test::SmallRecording(2);
    SpectMacroResult result{test::SmallMacro(), shortRecording.get(), nullptr};
};

constexpr const char* kThreeEpochs = "FFT Computation Parameters:\r\n"
                                     "\tSeconds: 1\r\n"
                                     "\tSamples: 8\r\n"
                                     "\tResolution: 1 Hz\r\n"
                                     "\tOverlap: 50 %\r\n"
                                     "\tWindow: Hanning\r\n"
                                     "\r\n"
                                     "FFT selected epochs:\r\n"
                                     "Index\tBegin         \tEnd\r\n"
                                     "1\t00:00:00.000  \t00:00:01.000\r\n"
                                     "2\t00:00:00.500  \t00:00:01.500\r\n"
                                     "3\t00:00:01.000  \t00:00:02.000\r\n";

TEST_F(Info, IsWrittenToTheLetter) {
    EXPECT_EQ(spectrum_view::InfoText(&result), kThreeEpochs);
}

TEST_F(Info, NeedsNoSpectraAndIsTheSameWithThem) {
    result.Compute(nullptr);
    EXPECT_EQ(spectrum_view::InfoText(&result), kThreeEpochs);
}

TEST_F(Info, WritesNumbersShortWithAPointWhateverTheUsersNumerals) {
    const test::CommaNumerals comma;
    result.SetFFTSeconds(0.625);
    const std::string text = spectrum_view::InfoText(&result);
    EXPECT_EQ(text.substr(29, 54), "\tSeconds: 0.625\r\n\tSamples: 8\r\n\tResolution: 1 Hz\r\n\tOver");
}

TEST_F(Info, WritesSixSignificantDigits) {
    result.SetFFTSeconds(1.23456789);
    EXPECT_NE(spectrum_view::InfoText(&result).find("\tSeconds: 1.23457\r\n"), std::string::npos);
}

TEST_F(Info, IsEmptyWithoutAnAnalysis) {
    EXPECT_EQ(spectrum_view::InfoText(nullptr), "");
    SpectrumInfoDlg dialog(nullptr, nullptr);
    dialog.ensurePolished();
    EXPECT_EQ(dialog.GetDlgItemText(101, 9999), "");
}

TEST_F(Info, IsEmptyWithoutEpochs) {
    result.SetFFTSeconds(30);
    EXPECT_EQ(result.GetFFTIntervalList().size(), 0u);
    EXPECT_EQ(spectrum_view::InfoText(&result), "");
    SpectrumInfoDlg dialog(nullptr, &result);
    dialog.ensurePolished();
    EXPECT_EQ(dialog.GetDlgItemText(101, 9999), "");
    EXPECT_EQ(dialog.Item<QPlainTextEdit>(101)->placeholderText(), "No epochs");
}

/// The dialog while it is open.
class OpenInfo : public Info {
protected:
    OpenInfo() { dialog.grab(); }

    SpectrumInfoDlg dialog{nullptr, &result};
    QPlainTextEdit* report = dialog.Item<QPlainTextEdit>(101);
};

TEST_F(OpenInfo, ShowsTheTextLineByLine) {
    EXPECT_EQ(dialog.windowTitle(), "Spectra Info");
    EXPECT_EQ(report->document()->blockCount(), 13);
    EXPECT_EQ(report->document()->findBlockByNumber(8).text(), "Index\tBegin         \tEnd");
    EXPECT_EQ(report->document()->findBlockByNumber(11).text(), "3\t00:00:01.000  \t00:00:02.000");
    EXPECT_EQ(dialog.GetDlgItemText(1, 99), "Close");
}

TEST_F(OpenInfo, HasBeginAndEndInColumns) {
    const auto placeOf = [this](int line, int character) {
        QTextCursor cursor(report->document()->findBlockByNumber(line));
        cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::MoveAnchor, character);
        return report->cursorRect(cursor).x();
    };
    EXPECT_EQ(placeOf(8, 6), placeOf(9, 2));
    EXPECT_EQ(placeOf(8, 21), placeOf(9, 17));
    EXPECT_GT(placeOf(8, 21), placeOf(8, 20));
}

TEST_F(OpenInfo, IsReadOnlyAndCanBeCopied) {
    EXPECT_TRUE(report->isReadOnly());
    QTest::keyClick(report, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(report, Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(
        QGuiApplication::clipboard()->text().startsWith("FFT Computation Parameters:\n\tSeconds: 1\n"));
}

TEST_F(OpenInfo, GrowsWithItsWindow) {
    const QSize before = report->size();
    dialog.resize(dialog.size() + QSize(100, 50));
    dialog.grab();
    EXPECT_EQ(report->size(), before + QSize(100, 50));
}

TEST_F(Info, ClosesByItsButton) {
    SpectrumInfoDlg dialog(nullptr, &result);
    test::ScriptedUser user;
    user.Meets<SpectrumInfoDlg>([](SpectrumInfoDlg& shown) { shown.Item<QPushButton>(1)->click(); });
    EXPECT_EQ(dialog.Execute(), owl::kIdOk);
}

TEST_F(Info, StandsOverItsView) {
    owl::TWindow view;
    const SpectrumInfoDlg dialog(&view, &result);
    EXPECT_EQ(dialog.parentWidget(), &view);
}

} // namespace

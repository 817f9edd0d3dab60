// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/regression_results.h"

#include "host/platform/host_platform.h"
#include "host/signal_base/recording.h"
#include "host/spectral_data/compute_options.h"
#include "host/toolkit/chart/scatter_chart.h"
#include "host/toolkit/report_list.h"
#include "spectra_contract/bci_regression.h"
#include "spectra_contract/sensor.h"
#include "tests/support/failing_source.h"
#include "tests/support/globals_guard.h"
#include "tests/support/known_slope.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"
#include "tests/support/recording_gui.h"
#include "tests/support/small_recording.h"
#include "tests/support/temp_folder.h"

#include <QHeaderView>
#include <QTest>
#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace orvanta;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// The form over results that the test gives.
class RegressionResults : public testing::Test {
protected:
    const SensorType* Sensor(const char* name) const { return test::SensorOf(*recording, name); }
    /// Three sensors; O1 at two frequencies, one of them below the limit; Cz not computable.
    static constexpr std::size_t kAll = 4;
    void GiveFour() {
        results = {{Sensor("O1"), 9, 0.1, 30, -4, 20},
                   {Sensor("O1"), 10, 1, 2, 1, 20},
                   {Sensor("O2"), 10, -0.9, -2.5, 3, 19},
                   {Sensor("Cz"), 10, kNaN, kNaN, kNaN, 0}};
    }
    void GiveKnownSlope() {
        for (const int contrast : {-1, 1, 3, 5}) {
            analyses.push_back(test::AddKnownSlope(manager, *recording, contrast));
        }
        ASSERT_EQ(manager.ComputeBCIRegression(analyses, results, GetBCISensors(*analyses.front()), 10, 10),
                  0);
    }
    void Open() {
        form = std::make_unique<TFormBCIResults>(nullptr, results, analyses, &platform);
        form->show();
    }
    test::FormUser Hand() const { return test::FormUser(*form); }
    owl::ReportList& List() const { return *form->findChild<owl::ReportList*>("lvBCIResults"); }
    owl::ScatterChart& Chart() const { return *form->findChild<owl::ScatterChart*>("Chart1"); }
    /// One column from the top.
    QStringList Column(int column) const {
        QStringList texts;
        for (int row = 0; row < List().topLevelItemCount(); ++row) {
            texts << List().topLevelItem(row)->text(column);
        }
        return texts;
    }
    void ClicksColumn(int column) const {
        QHeaderView& header = *List().header();
        const QPoint at(header.sectionViewportPosition(column) + header.sectionSize(column) / 2,
                        header.height() / 2);
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, at);
    }

    test::GlobalsGuard guard;
    test::ScriptedUser user;
    test::RecordingGui gui;
    test::TempFolder folder;
    platform::HostPlatform platform{gui, folder.Path("settings.ini"), folder.Path("data")};
    std::unique_ptr<EEGFileInfoType> recording = test::KnownSlopeRecording();
    SpectraMgr manager{recording.get(), nullptr};
    std::list<SpectMacroResult*> analyses;
    std::list<BCIReg> results;
    std::unique_ptr<TFormBCIResults> form;
};

TEST_F(RegressionResults, HasTheseTexts) {
    GiveFour();
    Open();
    EXPECT_EQ(form->windowTitle(), "BCI Regression Results");
    EXPECT_EQ(Hand().TextOf("BitBtnSave"), "Save Regressions...");
    EXPECT_EQ(Hand().TextOf("BitBtn2"), "Save Full Spectra...");
    EXPECT_EQ(Hand().TextOf("cbFillGrid"), "Fill Grid");
    QStringList titles;
    for (int column = 0; column < List().columnCount(); ++column) {
        titles << List().headerItem()->text(column);
        if (column + 1 < List().columnCount()) { // the last one fills the list
            EXPECT_EQ(List().columnWidth(column), 75);
        }
    }
    EXPECT_EQ(titles, (QStringList{"Sensor", "Freq [Hz]", "R", "K", "M", "Count"}));
}

TEST_F(RegressionResults, ListPairsAboveTheLimitByTheNameOfTheirSensor) {
    GiveFour();
    results.reverse();
    Open();
    EXPECT_EQ(Column(0), (QStringList{"O1", "O2"}));
    EXPECT_EQ(Column(1), (QStringList{"10.00", "10.00"}));
    EXPECT_EQ(Column(2), (QStringList{"1.000", "-0.900"}));
    EXPECT_EQ(Column(3), (QStringList{"2.000", "-2.500"}));
    EXPECT_EQ(Column(4), (QStringList{"1.000", "3.000"}));
    EXPECT_EQ(Column(5), (QStringList{"20", "19"}));
    EXPECT_EQ(Hand().TextOf("LabelShown"), "2 of 4 pairs, |R| ≥ 0.3");
}

TEST_F(RegressionResults, FillGridAddsThePairsBelowTheLimit) {
    GiveFour();
    Open();
    Hand().Clicks("cbFillGrid");
    EXPECT_EQ(Column(0), (QStringList{"Cz", "O1", "O1", "O2"}));
    EXPECT_EQ(Column(1), (QStringList{"10.00", "9.00", "10.00", "10.00"}));
    EXPECT_EQ(Column(2), (QStringList{"n/a", "0.100", "1.000", "-0.900"}));
    EXPECT_EQ(Hand().TextOf("LabelShown"), "All 4 pairs");
    Hand().Clicks("cbFillGrid");
    EXPECT_EQ(Column(0), (QStringList{"O1", "O2"}));
}

TEST_F(RegressionResults, FillGridKeepsOrderAndSelection) {
    GiveFour();
    Open();
    ClicksColumn(2);
    Hand().SelectsRow("lvBCIResults", 0);
    Hand().Clicks("cbFillGrid");
    EXPECT_EQ(Column(2), (QStringList{"-0.900", "0.100", "1.000", "n/a"}));
    EXPECT_EQ(Hand().SelectedRowsOf("lvBCIResults"), QStringList{"O2"});
}

TEST_F(RegressionResults, ASelectionThatIsListedNoMoreIsPlottedNoMore) {
    GiveKnownSlope();
    Open();
    Hand().Clicks("cbFillGrid");
    Hand().SelectsRow("lvBCIResults", 0);
    ASSERT_EQ(Hand().SelectedRowsOf("lvBCIResults"), QStringList{"Cz"});
    Hand().Clicks("cbFillGrid");
    EXPECT_EQ(Hand().SelectedRowsOf("lvBCIResults"), QStringList());
    EXPECT_TRUE(Chart().Points().isEmpty());
}

TEST_F(RegressionResults, AColumnOfNumbersIsSortedByValueASecondClickReverses) {
    results = {{Sensor("O1"), 10, 0.5, 100, -1, 9},
               {Sensor("O1"), 9, -0.9, 9, -10, 100},
               {Sensor("O2"), 100, 0.45, 1e-5, 2, 20}};
    Open();
    const struct {
        int column;
        QStringList ascending;
    } cases[] = {{1, {"9.00", "10.00", "100.00"}},
                 {2, {"-0.900", "0.450", "0.500"}},
                 {3, {"1.000e-05", "9.000", "100.0"}},
                 {4, {"-10.00", "-1.000", "2.000"}},
                 {5, {"9", "20", "100"}}};
    for (const auto& [column, ascending] : cases) {
        ClicksColumn(column);
        EXPECT_EQ(Column(column), ascending);
        EXPECT_EQ(List().header()->sortIndicatorOrder(), Qt::AscendingOrder);
        ClicksColumn(column);
        EXPECT_EQ(Column(column), QStringList(ascending.rbegin(), ascending.rend()));
        EXPECT_EQ(List().header()->sortIndicatorOrder(), Qt::DescendingOrder);
        EXPECT_EQ(List().header()->sortIndicatorSection(), column);
    }
    ClicksColumn(5);
    ClicksColumn(5);
    ClicksColumn(5);
    EXPECT_EQ(Column(5), (QStringList{"9", "20", "100"}));
}

TEST_F(RegressionResults, AClickOnTheColumnOfSensorsReversesItsOrder) {
    GiveFour();
    Open();
    ClicksColumn(0);
    EXPECT_EQ(Column(0), (QStringList{"O2", "O1"}));
    form->lvBCIResultsColumnClick(0);
    EXPECT_EQ(Column(0), (QStringList{"O1", "O2"}));
}

TEST_F(RegressionResults, CompareAsTheListIsSorted) {
    GiveFour();
    Open();
    const BCIReg& low = results.front();
    const BCIReg& high = *std::next(results.begin());
    const BCIReg& none = results.back();
    form->lvBCIResultsColumnClick(2);
    EXPECT_LT(form->lvBCIResultsCompare(low, high), 0);
    EXPECT_GT(form->lvBCIResultsCompare(high, low), 0);
    EXPECT_EQ(form->lvBCIResultsCompare(low, low), 0);
    EXPECT_LT(form->lvBCIResultsCompare(high, none), 0);
    form->lvBCIResultsColumnClick(2);
    EXPECT_GT(form->lvBCIResultsCompare(low, high), 0);
    EXPECT_LT(form->lvBCIResultsCompare(high, none), 0);
}

TEST_F(RegressionResults, TheStrongestPairIsSelectedAtFirst) {
    results = {{Sensor("O1"), 9, 0.5, 1, 1, 20},
               {Sensor("O2"), 10, -0.9, -2.5, 3, 19},
               {Sensor("Cz"), 10, kNaN, kNaN, kNaN, 0}};
    Open();
    EXPECT_EQ(Hand().SelectedRowsOf("lvBCIResults"), QStringList{"O2"});
}

TEST_F(RegressionResults, ASelectedRowIsPlottedWithItsLine) {
    GiveKnownSlope();
    Open();
    Hand().SelectsRow("lvBCIResults", 0); // O1: contrast = 2 log10 power + 1
    QList<QPointF> points = Chart().Points();
    ASSERT_EQ(points.size(), 20);
    const double contrasts[] = {-1, 1, 3, 5};
    for (int i = 0; i < 20; ++i) {
        EXPECT_NEAR(points[i].x(), (contrasts[i / 5] - 1) / 2, 1e-6);
        EXPECT_EQ(points[i].y(), contrasts[i / 5]);
    }
    ASSERT_TRUE(Chart().Line());
    EXPECT_NEAR(Chart().Line()->x1(), -1, 1e-6);
    EXPECT_NEAR(Chart().Line()->y1(), -1, 1e-5);
    EXPECT_NEAR(Chart().Line()->x2(), 2, 1e-6);
    EXPECT_NEAR(Chart().Line()->y2(), 5, 1e-5);

    Hand().SelectsRow("lvBCIResults", 1); // O2: contrast = -2 log10 power + 3
    points = Chart().Points();
    ASSERT_EQ(points.size(), 20);
    EXPECT_NEAR(points.front().x(), -1, 1e-6);
    EXPECT_EQ(points.front().y(), 5);
    EXPECT_NEAR(Chart().Line()->y2(), -1, 1e-5);
}

TEST_F(RegressionResults, APairThatIsNotComputableHasNeitherPointsNorLine) {
    GiveKnownSlope();
    Open();
    Hand().Clicks("cbFillGrid");
    Hand().SelectsRow("lvBCIResults", 0);
    ASSERT_EQ(Hand().SelectedRowsOf("lvBCIResults"), QStringList{"Cz"});
    EXPECT_TRUE(Chart().Points().isEmpty());
    EXPECT_FALSE(Chart().Line());
}

TEST_F(RegressionResults, WithoutASelectionNothingIsPlotted) {
    GiveKnownSlope();
    Open();
    List().clearSelection();
    EXPECT_TRUE(Chart().Points().isEmpty());
    EXPECT_FALSE(Chart().Line());
}

TEST_F(RegressionResults, EpochsThatCannotBeReadAgainAreToldAndNotPlotted) {
    signal::RecordingData data = test::SmallData(4);
    const auto source = std::make_shared<test::FailingSource>(data.source);
    data.source = source;
    const auto file = signal::MakeRecording(std::move(data));
    SpectMacroResult analysis(test::SmallMacro(), file.get(), nullptr);
    spectral::ComputeOptions options;
    options.memory_bytes = 0;
    analysis.SetComputeOptions(options);
    analysis.Compute(nullptr);
    analyses = {&analysis};
    results = {{test::SensorOf(*file, "Fp1"), 2, 0.1, 1, 1, 4}};
    Open();
    Hand().Clicks("cbFillGrid");
    source->BeforeRead = [] { throw std::runtime_error("memory.edf: it went away (bring it back)"); };
    user.AnswersMessage(owl::kIdOk);
    Hand().SelectsRow("lvBCIResults", 0);
    ASSERT_EQ(user.Messages().size(), 1u);
    EXPECT_EQ(user.Messages()[0],
              (test::ScriptedUser::Message{form->GetHandle(),
                                           "The epochs of this pair cannot be plotted.\n\n"
                                           "memory.edf: it went away (bring it back)",
                                           "Error", 48}));
    EXPECT_TRUE(Chart().Points().isEmpty());
}

TEST_F(RegressionResults, SaveRegressionsWritesAllPairsListedOrNot) {
    GiveFour();
    Open();
    user.ChoosesFile(folder.Path("out.txt"));
    Hand().Clicks("BitBtnSave");
    EXPECT_EQ(folder.Read("out.txt"), "sensor\tfreq_hz\tr\tk\tm\tcount\n"
                                      "O1\t9\t0.1\t30\t-4\t20\n"
                                      "O1\t10\t1\t2\t1\t20\n"
                                      "O2\t10\t-0.9\t-2.5\t3\t19\n"
                                      "Cz\t10\tn/a\tn/a\tn/a\t0\n");
}

TEST_F(RegressionResults, SaveAsksForAName) {
    GiveFour();
    Open();
    user.ChoosesFile(std::nullopt).ChoosesFile(std::nullopt);
    Hand().Clicks("BitBtnSave");
    Hand().Clicks("BitBtn2");
    owl::FileQuestion question{.title = "",
                               .filter = "Text file|*.txt",
                               .extension = "*.txt",
                               .folder = "",
                               .name = "regressions.txt",
                               .askOverwrite = true};
    ASSERT_EQ(user.FileRequests().size(), 2u);
    EXPECT_EQ(user.FileRequests()[0], (test::ScriptedUser::FileRequest{true, question}));
    question.name = "full_spectra.txt";
    EXPECT_EQ(user.FileRequests()[1], (test::ScriptedUser::FileRequest{true, question}));
}

TEST_F(RegressionResults, SaveFullSpectraWritesTheEpochsOfAllAnalyses) {
    GiveKnownSlope();
    Open();
    user.ChoosesFile(folder.Path("full.txt"));
    Hand().Clicks("BitBtn2");
    const QStringList lines = QString::fromStdString(folder.Read("full.txt")).split('\n');
    ASSERT_EQ(lines.size(), 1 + 4 * 3 * 5 + 1);
    EXPECT_TRUE(lines[0].startsWith("analysis\tcontrast\tepoch\tbegin_s\tend_s\tsensor\t0\t1\t2\t"));
    EXPECT_TRUE(lines[0].endsWith("\t31\t32"));
    EXPECT_TRUE(lines[1].startsWith("c-1\t-1\t1\t0\t1\tO1\t"));
    EXPECT_EQ(lines[1].split('\t')[6 + 10], "0.1"); // µV²/Hz at 10 Hz
    EXPECT_TRUE(lines[60].startsWith("c5\t5\t5\t19\t20\tCz\t0\t0\t"));
    EXPECT_EQ(gui.Progresses(), std::vector<std::string>{"Saving the spectra"});
}

TEST_F(RegressionResults, CancellingTheFullSpectraLeavesNoFile) {
    GiveKnownSlope();
    Open();
    gui.Cancelled = true;
    user.ChoosesFile(folder.Path("full.txt"));
    Hand().Clicks("BitBtn2");
    EXPECT_FALSE(std::filesystem::exists(folder.Path("full.txt")));
    EXPECT_TRUE(user.Messages().empty());
}

TEST_F(RegressionResults, AFailedSaveIsToldAndLosesNothing) {
    GiveFour();
    Open();
    const std::string path = folder.Path("no/such/folder/out.txt");
    user.ChoosesFile(path).AnswersMessage(owl::kIdOk);
    Hand().Clicks("BitBtnSave");
    ASSERT_EQ(user.Messages().size(), 1u);
    EXPECT_EQ(user.Messages()[0],
              (test::ScriptedUser::Message{
                  form->GetHandle(),
                  "The file was not saved. The results are still here.\n\n" + path +
                      ": cannot be written: No such file or directory (choose a folder that exists)",
                  "Error", 48}));
    EXPECT_EQ(Column(0), (QStringList{"O1", "O2"}));
}

TEST_F(RegressionResults, ClosesWithItsButtonAndWithEscape) {
    GiveFour();
    Open();
    Hand().Clicks("BitBtn1");
    EXPECT_FALSE(form->isVisible());
    form->show();
    Hand().PressesEscape();
    EXPECT_FALSE(form->isVisible());
}

TEST_F(RegressionResults, OfNoPairIsEmpty) {
    Open();
    EXPECT_EQ(Column(0), QStringList());
    EXPECT_EQ(Hand().TextOf("LabelShown"), "0 of 0 pairs, |R| ≥ 0.3");
}

TEST_F(RegressionResults, AGridOfManyPairsIsSortedAsAWhole) {
    for (int bin = 0; bin < 12800; ++bin) {
        results.push_back(
            {Sensor(bin % 2 == 0 ? "O1" : "O2"), bin * 0.5, ((bin * 7919) % 12800) / 12800.0, 1, 1, 100});
    }
    Open();
    Hand().Clicks("cbFillGrid");
    form->lvBCIResultsColumnClick(2);
    const QStringList r = Column(2);
    ASSERT_EQ(r.size(), 12800);
    EXPECT_EQ(r.first(), "0.000");
    EXPECT_TRUE(std::ranges::is_sorted(r, {}, [](const QString& text) { return text.toDouble(); }));
}

} // namespace

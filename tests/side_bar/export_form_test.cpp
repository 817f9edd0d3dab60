// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/export_form.h"

#include "host/spectral_data/compute_options.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"
#include "tests/support/globals_guard.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/kept_log.h"
#include "tests/support/qt/scripted_user.h"
#include "tests/support/recording_gui.h"
#include "tests/support/small_recording.h"
#include "tests/support/temp_folder.h"

#include <QDialog>
#include <QGroupBox>
#include <QLocale>
#include <QRadioButton>
#include <QTreeWidget>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace {

using namespace orvanta;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A recording of 2 s of Fp1, F3 and Cz at 8 Hz, in whole windows of 1 s.
class ExportForm : public testing::Test {
protected:
    SpectMacroResult& Add(const std::string& name, int contrast, double seconds = 1) {
        SpectraMacro macro = test::SmallMacro("Hanning", 0);
        macro.SetFFTSeconds(seconds);
        macro.SetContrastValue(contrast);
        macro.SaveAs(folder.Path(name + ".smx"));
        auto* analysis = new SpectMacroResult(macro, recording.get(), nullptr);
        spectral::ComputeOptions exact; // the same digits on every machine
        exact.precision = spectral::Precision::Double;
        analysis->SetComputeOptions(exact);
        analysis->Compute(nullptr);
        manager.push_back(analysis);
        return *analysis;
    }
    TSpectraExportForm& Open(SpectraMgr* of) {
        form = std::make_unique<TSpectraExportForm>(nullptr, of);
        form->show();
        return *form;
    }
    TSpectraExportForm& Open() { return Open(&manager); }
    test::FormUser Hand() const { return test::FormUser(*form); }
    /// The rows, their columns joined.
    std::vector<std::string> Rows() const {
        std::vector<std::string> rows;
        const auto* list = form->findChild<QTreeWidget*>("lvSpectra");
        for (int i = 0; i < list->topLevelItemCount(); ++i) {
            const QTreeWidgetItem* row = list->topLevelItem(i);
            rows.push_back((row->text(0) + '|' + row->text(1) + '|' + row->text(2)).toStdString());
        }
        return rows;
    }
    /// The first fields of the lines of the file.
    std::vector<std::string> FirstFields() const {
        std::vector<std::string> fields;
        const std::string text = target.Read("out.txt");
        for (std::size_t at = 0; at < text.size(); at = text.find('\n', at) + 1) {
            fields.push_back(text.substr(at, text.find('\t', at) - at));
        }
        return fields;
    }
    bool IsWritten() const { return std::filesystem::exists(path); }

    test::GlobalsGuard guard;
    test::TempFolder folder;
    test::TempFolder target;
    std::string path = target.Path("out.txt");
    test::RecordingGui gui;
    std::unique_ptr<EEGFileInfoType> recording = test::SmallRecording(2);
    SpectraMgr manager{recording.get(), &gui};
    test::ScriptedUser user;
    std::unique_ptr<TSpectraExportForm> form;
};

TEST_F(ExportForm, ShowsTheCaptionsOfItsControls) {
    Open();
    EXPECT_EQ(form->windowTitle(), "Spectra Export");
    EXPECT_EQ(Hand().TextOf("cbHeader"), "Add Header");
    EXPECT_EQ(Hand().TextOf("cbContrast"), "Add Contrast value");
    EXPECT_EQ(Hand().TextOf("cbLabel"), "Add Macro name");
    const auto* titles = form->findChild<QTreeWidget*>("lvSpectra")->headerItem();
    EXPECT_EQ(titles->text(0), "Spectrum");
    EXPECT_EQ(titles->text(1), "Nr. FFTs");
    EXPECT_EQ(titles->text(2), "Contrast Value");
    const auto* list = form->findChild<QTreeWidget*>("lvSpectra");
    EXPECT_GE(list->columnWidth(0), 120); // takes the room that is left
    EXPECT_GE(list->columnWidth(1), 60);
    EXPECT_GE(list->columnWidth(2), 90);
    for (const char* box : {"cbHeader", "cbContrast", "cbLabel"}) {
        EXPECT_TRUE(Hand().IsChecked(box)) << box;
    }
}

TEST_F(ExportForm, NeverShowsTheSortMode) {
    Open();
    const auto* group = form->findChild<QGroupBox*>("rgSortMode");
    EXPECT_FALSE(group->isVisible());
    EXPECT_FALSE(group->isEnabled());
    EXPECT_EQ(group->title(), "Sort Mode");
    EXPECT_TRUE(form->findChild<QRadioButton*>("rbByType")->isChecked());
}

TEST_F(ExportForm, IsEmptyAndWithoutOkWithoutAManager) {
    Open(nullptr);
    EXPECT_FALSE(Hand().IsEnabled("BitBtnOk"));
    EXPECT_THAT(Rows(), IsEmpty());
    form->BitBtnOkClick(); // asks for nothing
    EXPECT_THAT(user.FileRequests(), IsEmpty());
}

TEST_F(ExportForm, ListsTheAnalysesInTheManagersOrderAllSelected) {
    Add("Rest", 1);
    Add("Task", -7);
    Open();
    EXPECT_TRUE(Hand().IsEnabled("BitBtnOk"));
    EXPECT_THAT(Rows(), ElementsAre("Rest|2|1", "Task|2|-7"));
    EXPECT_EQ(Hand().SelectedRowsOf("lvSpectra"), (QStringList{"Rest", "Task"}));
}

TEST_F(ExportForm, ListsOnlyAnalysesWithTheBinsOfTheMainOne) {
    Add("Rest", 1);
    SpectMacroResult& longer = Add("Longer", 2, 2);
    Add("Task", 3);
    Open();
    EXPECT_THAT(Rows(), ElementsAre("Rest|2|1", "Task|2|3"));
    manager.SetMain(&longer);
    Open();
    EXPECT_THAT(Rows(), ElementsAre("Longer|1|2"));
}

TEST_F(ExportForm, ListsNothingWithoutAMainAnalysis) {
    Add("Rest", 1);
    manager.SetMain(nullptr);
    Open();
    EXPECT_THAT(Rows(), IsEmpty());
    EXPECT_TRUE(Hand().IsEnabled("BitBtnOk"));
}

TEST_F(ExportForm, AsksForATextFileAndWarnsOfOverwriting) {
    Add("Rest", 1);
    Open();
    user.ChoosesFile({});
    Hand().Clicks("BitBtnOk");
    ASSERT_EQ(user.FileRequests().size(), 1);
    const auto& [save, question] = user.FileRequests().front();
    EXPECT_TRUE(save);
    EXPECT_EQ(question.filter, "Text file|*.txt");
    EXPECT_EQ(question.extension, "txt");
    EXPECT_TRUE(question.askOverwrite);
}

TEST_F(ExportForm, StaysOpenWhenNoFileIsChosen) {
    Add("Rest", 1);
    Open();
    user.ChoosesFile({});
    Hand().Clicks("BitBtnOk");
    EXPECT_TRUE(form->isVisible());
    EXPECT_THAT(gui.Progresses(), IsEmpty());
}

TEST_F(ExportForm, WritesWhatIsChosenAndCloses) {
    Add("Rest", 1);
    Add("Task", -7);
    Open();
    user.ChoosesFile(path);
    Hand().Clicks("BitBtnOk");
    EXPECT_EQ(form->result(), QDialog::Accepted);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(
        target.Read("out.txt"),
        "Macro\tContrast\tFp1(1)\tFp1(2)\tFp1(3)\tF3(1)\tF3(2)\tF3(3)\tCz(1)\tCz(2)\tCz(3)\t\n"
        "Rest\t1\t7.21466\t2.21201\t3.60376\t14.024\t2.77374\t4.49608\t6.94286\t16.2423\t10.6533\t\n"
        "Rest\t1\t11.6252\t2.21201\t3.60376\t1.58878\t7.66315\t26.6706\t0.339308\t3.74995\t3.33057\t\n"
        "Task\t-7\t7.21466\t2.21201\t3.60376\t14.024\t2.77374\t4.49608\t6.94286\t16.2423\t10.6533\t\n"
        "Task\t-7\t11.6252\t2.21201\t3.60376\t1.58878\t7.66315\t26.6706\t0.339308\t3.74995\t3.33057\t\n");
}

TEST_F(ExportForm, WritesTheSelectedRowsAlone) {
    Add("Rest", 1);
    Add("Task", 2);
    Add("Sleep", 3);
    Open();
    Hand().SelectsRows("lvSpectra", {"Task", "Sleep"});
    user.ChoosesFile(path);
    Hand().Clicks("BitBtnOk");
    EXPECT_THAT(FirstFields(), ElementsAre("Macro", "Task", "Task", "Sleep", "Sleep"));
}

TEST_F(ExportForm, WritesTheHeaderAloneWhenNoRowIsSelected) {
    Add("Rest", 1);
    Open();
    Hand().SelectsRows("lvSpectra", {});
    user.ChoosesFile(path);
    Hand().Clicks("BitBtnOk");
    EXPECT_EQ(target.Read("out.txt"),
              "Macro\tContrast\tFp1(1)\tFp1(2)\tFp1(3)\tF3(1)\tF3(2)\tF3(3)\tCz(1)\tCz(2)\tCz(3)\t\n");
}

TEST_F(ExportForm, LeavesOutWhatIsNotChecked) {
    Add("Rest", 1);
    Open();
    Hand().Clicks("cbHeader");
    Hand().Clicks("cbLabel");
    user.ChoosesFile(path);
    Hand().Clicks("BitBtnOk");
    EXPECT_THAT(FirstFields(), ElementsAre("1", "1"));
    Open();
    Hand().Clicks("cbContrast");
    Hand().Clicks("cbLabel");
    user.ChoosesFile(path);
    Hand().Clicks("BitBtnOk");
    EXPECT_THAT(FirstFields(), ElementsAre("Fp1(1)", "7.21466", "11.6252"));
}

TEST_F(ExportForm, NamesTheColumnsByTheManagersFirstAnalysis) {
    Add("Longer", 2, 2);
    manager.SetMain(&Add("Rest", 1));
    Open();
    Hand().Clicks("cbLabel");
    Hand().Clicks("cbContrast");
    user.ChoosesFile(path);
    Hand().Clicks("BitBtnOk");
    const std::string text = target.Read("out.txt");
    EXPECT_TRUE(text.starts_with("Fp1(0.5)\tFp1(1)\tFp1(1.5)\t")) << text;
    EXPECT_THAT(FirstFields(), ElementsAre("Fp1(0.5)", "7.21466", "11.6252"));
}

TEST_F(ExportForm, WritesAHeaderWithoutSensorsWhenThereIsNoAnalysis) {
    Open();
    user.ChoosesFile(path);
    Hand().Clicks("BitBtnOk");
    EXPECT_EQ(target.Read("out.txt"), "Macro\tContrast\t\n");
}

TEST_F(ExportForm, ShowsProgressOfTheManagers) {
    Add("Rest", 1);
    Open();
    user.ChoosesFile(path);
    Hand().Clicks("BitBtnOk");
    EXPECT_THAT(gui.Progresses(), ElementsAre("Exporting Spectra..."));
    EXPECT_THAT(gui.Positions(), ElementsAre(1));
}

TEST_F(ExportForm, LeavesNoFileAndStaysOpenWhenTheExportIsCancelled) {
    Add("Rest", 1);
    Open();
    gui.Cancelled = true;
    user.ChoosesFile(path);
    Hand().Clicks("BitBtnOk");
    EXPECT_FALSE(IsWritten());
    EXPECT_TRUE(form->isVisible());
    EXPECT_THAT(gui.Errors(), IsEmpty());
}

TEST_F(ExportForm, LogsWhyAFileCannotBeOpenedAndSaysNothing) {
    Add("Rest", 1);
    Open();
    path = target.Path("none/out.txt");
    user.ChoosesFile(path);
    const test::KeptLog log;
    Hand().Clicks("BitBtnOk");
    EXPECT_EQ(log.Last(), "Spectra export: " + path +
                              ": cannot be written: No such file or directory (choose a folder that exists)");
    EXPECT_THAT(gui.Errors(), IsEmpty());
    EXPECT_TRUE(form->isVisible());
}

TEST_F(ExportForm, TellsWhatFailedInTheMiddleOfTheExport) {
    Add("Rest", 1);
    Open();
    gui.OnPosition = [] { throw std::runtime_error("the disk is full"); };
    user.ChoosesFile(path);
    Hand().Clicks("BitBtnOk");
    EXPECT_THAT(gui.Errors(), ElementsAre("the disk is full"));
    EXPECT_FALSE(IsWritten());
    EXPECT_TRUE(form->isVisible());
}

TEST_F(ExportForm, WritesNothingWhenCancelled) {
    Add("Rest", 1);
    Open();
    Hand().Clicks("BitBtnCancel");
    EXPECT_EQ(form->result(), QDialog::Rejected);
    Open();
    Hand().PressesEscape();
    EXPECT_FALSE(form->isVisible());
    EXPECT_FALSE(IsWritten());
}

TEST_F(ExportForm, TellsHowMuchIsChosen) {
    QLocale::setDefault(QLocale::c());
    Add("Rest", 1);
    Add("Task", 2);
    Open();
    EXPECT_EQ(Hand().TextOf("lbSize"), "2 of 2 spectra selected, about 471 bytes of text");
    Hand().SelectsRows("lvSpectra", {});
    EXPECT_EQ(Hand().TextOf("lbSize"), "0 of 2 spectra selected, about 115 bytes of text");
    Hand().Clicks("cbHeader");
    EXPECT_EQ(Hand().TextOf("lbSize"), "0 of 2 spectra selected, about 0 bytes of text");
    QLocale::setDefault(QLocale::system());
}

TEST_F(ExportForm, SaysThatSingleEpochsHaveNoCoherence) {
    Add("Rest", 1);
    manager.SetMeasEntity(SPECT::Entity::Type::Coherence);
    Open();
    EXPECT_THAT(Hand().TextOf("lbSize").toStdString(),
                HasSubstr("\nSingle epochs have neither coherence nor phase: every value will be n/a."));
    manager.SetMeasEntity(SPECT::Entity::Type::Power);
    Open();
    EXPECT_THAT(Hand().TextOf("lbSize").toStdString(), testing::Not(HasSubstr("n/a")));
}

TEST_F(ExportForm, BelongsToItsOwner) {
    QDialog owner;
    const TSpectraExportForm owned(HWND(&owner), nullptr);
    EXPECT_EQ(owned.parentWidget(), &owner);
}

} // namespace

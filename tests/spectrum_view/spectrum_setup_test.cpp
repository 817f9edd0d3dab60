// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/table_window.h"
#include "side_bar/spectrum_macro_form.h"
#include "spectrum_view/dialogs/info_dialog.h"
#include "tests/spectrum_view/view_fixture.h"
#include "tests/support/qt/fake_services.h"
#include "tests/support/qt/scripted_user.h"
#include "tests/support/temp_folder.h"

#include <QComboBox>
#include <QLabel>
#include <QLocale>
#include <QToolButton>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using testing::ElementsAre;
using testing::IsEmpty;

class SetUpView : public test::ViewFixture {
protected:
    SetUpView() { QLocale::setDefault(QLocale("en")); }
    ~SetUpView() override { QLocale::setDefault(QLocale::system()); }

    /// Texts of the menu in order; "-" for a separator.
    std::vector<std::string> MenuTexts() {
        std::vector<std::string> texts;
        for (const QAction* item : view->GetMenu().actions()) {
            texts.push_back(item->isSeparator() ? "-" : item->text().toStdString());
        }
        return texts;
    }
    std::vector<std::string> StatusFields() {
        std::vector<std::string> texts;
        for (QAction* place : view->GetToolBar().actions()) {
            if (const auto* text = qobject_cast<QLabel*>(view->GetToolBar().widgetForAction(place))) {
                texts.push_back(text->text().toStdString());
            }
        }
        return texts;
    }
    /// Before a menu opens.
    void RunEnablers() { view->GetMenu().aboutToShow(); }

    test::FakeServices services;
    test::TempFolder folder;
};

TEST_F(SetUpView, HasItsMenuWithTheEntitiesAtTheEnd) {
    Open();
    EXPECT_THAT(MenuTexts(),
                ElementsAre("&View Spectrum", "&Recompute", "Computation Options...", "Next Selection",
                            "Save Spectra", "Save Spectra and Launch Calvera Merovia Tabulix", "-", "&Mean",
                            "Compressed Spectral Array (CSA)", "&Time/Freq", "-", "&Scalp View", "&Grid View",
                            "-", "Normal display", "Normalized by f display", "Normalized by sqrt(f) display",
                            "-", "Select M&easures...", "&Copy Measures to Clipboard", "-",
                            "Define &Bands...", "C&ommon Scale", "Set Scale Axis Range...", "-",
                            "Select &Font", "-", "Show Points", "Show Lines", "Show SD", "-",
                            "Show Measures Box", "Show Axes Text", "Show Labels", "-", "Amplitude", "Power",
                            "Coherence", "Phase"));
}

TEST_F(SetUpView, TakesTheTextsOfTheMessageStoreWhereItHasThem) {
    folder.Write("Orvanta.en.ini", "[MENU]\n"
                                   "CM_SPE_MEAN=a\nCM_SPE_TIME_FREQ=b\nCM_SPE_HEAD_VIEW=c\n"
                                   "CM_SPE_GRID_VIEW=d\nCM_SPE_MEA=e\nCM_SPE_RECOMPUTE=f\n"
                                   "CM_SPE_SET_BND=g\nCM_SPE_SET_COM=h\nCM_SPE_COPY2CLPBRD=i\n"
                                   "CM_SPE_OPTIONS=j\nCM_SPE_SET_POW=k\nCM_SPE_SET_AMP=l\n");
    const PModule messages("Orvanta", nullptr, folder.Path(""));
    Open();
    const std::pair<unsigned, const char*> texts[] = {{14346, "a"}, {14347, "b"}, {14356, "c"}, {14357, "d"},
                                                      {14396, "e"}, {14376, "f"}, {14386, "g"}, {14426, "h"},
                                                      {14439, "i"}, {14447, "j"}};
    for (const auto& [id, text] : texts) {
        EXPECT_EQ(Item(id).text().toStdString(), text) << id;
    }
    // Not in the store; and the entities' items come after the texts, with the library's names.
    EXPECT_EQ(Item(14496).text().toStdString(), "Show Points");
    EXPECT_EQ(Item(14456).text().toStdString(), "Amplitude");
    EXPECT_EQ(Item(14457).text().toStdString(), "Power");
    view.reset();
}

TEST_F(SetUpView, DisablesTheScalpViewWithoutEegSensorsForGood) {
    const auto other = signal::MakeRecording(test::MakeData({{"ECG", 8, test::CzValues(40), "uV"}}));
    SpectraMgr ofOther(other.get(), nullptr);
    view = std::make_unique<Spectrum>(window, other.get(), &ofOther, false);
    view->Create();
    EXPECT_FALSE(Item(kCmHeadView).isEnabled());
    RunEnablers();
    EXPECT_FALSE(Item(kCmHeadView).isEnabled());
    Item(kCmHeadView).trigger();
    EXPECT_EQ(view->GetState().layout, Layout::Mode::Grid);
    view.reset();
}

TEST_F(SetUpView, EnablesTheScalpViewWithEegSensors) {
    Open();
    EXPECT_TRUE(Item(kCmHeadView).isEnabled());
}

TEST_F(SetUpView, ChecksTheCurrentEntity) {
    Setting("Spectrum/MeasEntity") = 2;
    Open();
    for (unsigned entity = 0; entity < 4; ++entity) {
        EXPECT_EQ(Item(kCmSetEntity + entity).isChecked(), entity == 2) << entity;
    }
}

TEST_F(SetUpView, ChecksTheCommonScaleWhenItIsOn) {
    Open();
    EXPECT_FALSE(Item(kCmSetCommon).isChecked());
    view.reset();
    Setting("Spectrum/bCommonScale") = 1;
    Open();
    EXPECT_TRUE(Item(kCmSetCommon).isChecked());
}

TEST_F(SetUpView, DisablesStatisticsWithoutTheirProgram) {
    Open();
    EXPECT_FALSE(Item(kCmSaveAndLaunch).isEnabled());
    RunEnablers();
    EXPECT_FALSE(Item(kCmSaveAndLaunch).isEnabled());
}

TEST_F(SetUpView, LooksForTheStatisticsProgramInItsUsualPlace) {
    Open();
    EXPECT_EQ(window.platform.defaults["Spectrum/Tabulix"], R"(c:\quorvex\quorvex.exe)");
}

TEST_F(SetUpView, ReadsNoMoreThan259CharactersOfThePathToTheProgram) {
    const std::string name(259 - folder.Path("").size(), 'p');
    const std::string path = folder.Write(name, "");
    ASSERT_EQ(path.size(), 259u);
    window.platform.texts["Spectrum/Tabulix"] = path + "x";
    Open();
    EXPECT_TRUE(Item(kCmSaveAndLaunch).isEnabled());
}

TEST_F(SetUpView, EnablesStatisticsWithAProgramThatCanBeRead) {
    window.platform.texts["Spectrum/Tabulix"] = folder.Write("tabulix", "");
    Open();
    EXPECT_TRUE(Item(kCmSaveAndLaunch).isEnabled());
    services.files.Fail(folder.Path("tabulix"), EACCES);
    Open();
    EXPECT_FALSE(Item(kCmSaveAndLaunch).isEnabled());
}

TEST_F(SetUpView, ShowsEntityAndUnits) {
    Setting("Spectrum/MeasEntity") = 1;
    Open();
    EXPECT_THAT(StatusFields(), ElementsAre("Power", "Hz", "Vert : µV²/Hz"));
    view->CmSetEntity(kCmSetEntity);
    EXPECT_THAT(StatusFields(), ElementsAre("Amplitude", "Hz", "Vert : µV/√Hz"));
}

TEST_F(SetUpView, ShowsTheHorizontalUnitOfTheMessageStore) {
    folder.Write("Orvanta.en.ini", "[Spectrum]\nHorHz=Hertz\n");
    const PModule messages("Orvanta", nullptr, folder.Path(""));
    Open();
    EXPECT_THAT(StatusFields(), ElementsAre("Amplitude", "Hertz", "Vert : µV/√Hz"));
    view.reset();
}

TEST_F(SetUpView, HasItsToolsInOrder) {
    Open();
    std::vector<std::string> tools;
    for (QAction* place : view->GetToolBar().actions()) {
        const QWidget* tool = view->GetToolBar().widgetForAction(place);
        if (qobject_cast<const QComboBox*>(tool) != nullptr) {
            tools.emplace_back("montages");
        } else if (qobject_cast<const QLabel*>(tool) != nullptr) {
            tools.emplace_back("text");
        } else {
            tools.push_back(tool->toolTip().isEmpty() ? "-" : tool->toolTip().toStdString());
        }
    }
    EXPECT_THAT(tools,
                ElementsAre("Previous traces", "Next traces", "-", "montages", "-", "Computation options",
                            "Compute the spectra again", "-", "Save the spectra to a file",
                            "Copy the measures to the clipboard", "-", "Halve the frequency range",
                            "Double the frequency range", "Rows and columns of the grid", "-",
                            "Parameters and epochs of the analysis", "text", "text", "text"));
}

TEST_F(SetUpView, RunsTheCommandsOfItsTools) {
    UseFiveBipolarChannels();
    Add();
    Open();
    const auto click = [this](const char* tip) {
        for (auto* tool : view->GetToolBar().findChildren<QToolButton*>()) {
            if (tool->toolTip() == tip) {
                tool->click();
            }
        }
    };
    click("Compute the spectra again");
    EXPECT_THAT(window.platform.gui.Progresses(), ElementsAre("Computing Spectra..."));
    click("Copy the measures to the clipboard");
    EXPECT_EQ(services.clipboard.Texts().size(), 1u);
    click("Rows and columns of the grid");
    EXPECT_EQ(view->findChildren<TTableWnd*>().size(), 1);
}

TEST_F(SetUpView, HasAPictureOnEveryTool) {
    Open();
    int tools = 0;
    for (const auto* tool : view->GetToolBar().findChildren<QToolButton*>(Qt::FindDirectChildrenOnly)) {
        if (!tool->toolTip().isEmpty()) { // not the arrow at the end
            ++tools;
            EXPECT_FALSE(tool->icon().isNull()) << tool->toolTip().toStdString();
        }
    }
    EXPECT_EQ(tools, 10);
}

TEST_F(SetUpView, AnswersEveryItemOfItsMenuButTheTitle) {
    Open();
    for (const QAction* item : view->GetMenu().actions()) {
        const unsigned id = item->data().toUInt();
        if (id != 0) {
            EXPECT_EQ(view->Find({owl::EventKind::Command, id}) != nullptr, id != kCmView) << id;
        }
    }
}

TEST_F(SetUpView, AsksAndZoomsWithItsTools) {
    Setting("EntityString_0/MaxX") = 100;
    Add();
    Open();
    test::ScriptedUser user;
    const auto click = [this](const char* tip) {
        for (auto* tool : view->GetToolBar().findChildren<QToolButton*>()) {
            if (tool->toolTip() == tip) {
                tool->click();
            }
        }
    };
    click("Halve the frequency range");
    EXPECT_DOUBLE_EQ(view->GetState().scales.at("Amplitude").MaxX, 50);
    click("Double the frequency range"); // half of 8 Hz in whole Hz
    EXPECT_DOUBLE_EQ(view->GetState().scales.at("Amplitude").MaxX, 4);
    user.Meets<TFormSpectrumMacro>([](TFormSpectrumMacro& form) { form.reject(); });
    click("Computation options");
    user.Meets<SpectrumInfoDlg>([](SpectrumInfoDlg& dialog) { dialog.accept(); });
    click("Parameters and epochs of the analysis");
    user.ChoosesFile(std::nullopt);
    click("Save the spectra to a file");
    EXPECT_EQ(user.FileRequests().size(), 1u);
    EXPECT_EQ(user.DialogsShown(), 2);
}

TEST_F(SetUpView, SaysOnFocusWhatWasAnalyzed) {
    Add();
    Open();
    EXPECT_THAT(window.messages, IsEmpty());
    view->Dispatch({{owl::EventKind::Window, static_cast<unsigned>(owl::WindowEvent::SetFocus)},
                    owl::FocusArgs{nullptr}});
    EXPECT_THAT(window.messages, ElementsAre("Analyzed: 9 epochs, 5.0 s"));
    EXPECT_EQ(window.GetActiveChild(), view.get());
}

TEST_F(SetUpView, SaysNothingWithoutAnAnalysis) {
    Open().DrawStatusBar();
    EXPECT_THAT(window.messages, ElementsAre(""));
}

TEST_F(SetUpView, CutsALongTextOfTheMessageBar) {
    folder.Write("Orvanta.en.ini", "[Spectrum]\nTimeInterval=" + std::string(200, 'x') + "\n");
    const PModule messages("Orvanta", nullptr, folder.Path(""));
    Add();
    Open().DrawStatusBar();
    EXPECT_EQ(window.messages.back(), std::string(127, 'x'));
    view.reset();
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later
// A user's whole day with the spectrum view, from the file of the recording to the files that are saved: with
// the real settings file, the real reader and the system's processes.
#include "host/toolkit/menu_templates.h"
#include "resources/dialogs/dialog_templates.h"
#include "resources/menus/spectrum_menu.h"
#include "side_bar/macro_selection_form.h"
#include "side_bar/spectrum_macro_form.h"
#include "spectrum_view/command_ids.h"
#include "spectrum_view/dialogs/band_dialog.h"
#include "spectrum_view/dialogs/comments_dialog.h"
#include "spectrum_view/dialogs/scale_dialog.h"
#include "spectrum_view/spectrum.h"
#include "tests/support/edf_file.h"
#include "tests/support/globals_guard.h"
#include "tests/support/qt/fake_services.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"
#include "tests/support/qt/session_application.h"
#include "tests/support/temp_folder.h"

#include <QApplication>
#include <QComboBox>
#include <QSplitter>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pugixml.hpp>

#include <algorithm>
#include <filesystem>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using spectrum_view::Display; // hides the one of the X headers
using test::FormUser;
using testing::ElementsAre;
using testing::IsEmpty;

const owl::TFont kFont{"Serif", 15, true, false};
constexpr int kCtrlShift = Qt::ControlModifier | Qt::ShiftModifier;

/// 24 s of eight sensors at 64 Hz: awake from 0 to 8 s, asleep from 9 to 20 s, a bad signal from 20 s on.
test::EdfFile Night() {
    constexpr std::size_t kSeconds = 24;
    constexpr std::size_t kRate = 64;
    test::EdfFile file = test::PlusEdf(kSeconds);
    std::vector<std::string> notes;
    for (std::size_t second = 0; second < kSeconds; ++second) {
        notes.push_back(test::TimeKeeping(std::to_string(second)));
    }
    notes[0] += test::AnnotationBytes("0", "8", "Awake") + test::AnnotationBytes("9", "11", "Sleep") +
                test::AnnotationBytes("20", "4", "bad");
    file.patient = "P-7 X X X";
    file.signals.clear();
    std::uint32_t noise = 1;
    for (const char* label : {"Fp1", "F7", "T7", "P7", "O1", "F3", "C3", "Cz"}) {
        test::EdfFileSignal& signal = file.signals.emplace_back();
        signal.label = label;
        signal.samples = kRate;
        for (std::size_t i = 0; i < kSeconds * kRate; ++i) {
            noise = noise * 1664525U + 1013904223U;
            signal.values.push_back(static_cast<std::int32_t>(noise >> 22U) - 512);
        }
    }
    constexpr std::size_t kRoom = 64;
    file.signals.push_back(test::AnnotationSignal(notes, kRoom));
    return file;
}

/// The application with one recording and its spectrum view, on the screen.
class Application : public test::SessionApplication<Spectrum> {
public:
    explicit Application(const test::TempFolder& folder)
        : SessionApplication(folder.Path("night.edf"), folder.Path("")) {
        SPECT::GetGlobals().LoadInfo(&platform);
        view = std::make_unique<Spectrum>(window, recording.get(), &manager, false);
    }
    ~Application() {
        Close();
        SPECT::GetGlobals().SaveInfo(&platform);
    }
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    void Show() { SessionApplication::Show(800, 600); }
    bool IsChecked(unsigned command) {
        const QAction* item = OpenMenu().Item(command);
        return item != nullptr && item->isChecked();
    }
    void ClickTool(const QString& tip) {
        for (auto* tool : view->GetToolBar().findChildren<QToolButton*>()) {
            if (tool->toolTip() == tip) {
                tool->click();
                RunQueue();
                return;
            }
        }
        ADD_FAILURE() << "no tool " << tip.toStdString();
    }
    void ChooseMontage(const QString& name) {
        auto* montages = view->GetToolBar().findChild<QComboBox*>();
        const int index = montages->findText(name);
        ASSERT_GE(index, 0) << name.toStdString();
        montages->setCurrentIndex(index);
        montages->activated(index);
        RunQueue();
    }
    void TurnWheel(int degrees) {
        QWheelEvent event({3, 4}, view->mapToGlobal(QPointF(3, 4)), {}, {0, 8 * degrees}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(view.get(), &event);
        RunQueue();
    }
    /// Names of the traces shown; "-" for an empty slot.
    std::vector<std::string> Traces() const {
        std::vector<std::string> names;
        for (const TraceEntry& entry : view->GetTraces()) {
            names.push_back(entry.main == nullptr ? "-" : entry.main->GetName());
        }
        return names;
    }
};

void TypeInto(const owl::TDialog& dialog, int control, const QString& text) {
    QWidget* edit = dialog.GetDlgItem(control);
    ASSERT_NE(edit, nullptr) << control;
    FormUser(*edit->window()).Types(edit->objectName().toUtf8().constData(), text);
}

class WholeSession : public testing::Test {
protected:
    WholeSession() {
        resources::RegisterDialogs();
        owl::RegisterMenuTemplate(resources::kSpectrumMenu, resources::kSpectrumMenuItems);
        fakes.files.RunFrom(folder.Write("bin/orvanta", ""));
        services_ = owl::CurrentServices();
        services_.processes = system_.processes;
        owl::ReplaceServices(&services_);
        folder.Write("night.edf", Night().Bytes());
        folder.Write("settings.ini",
                     "[Spectrum]\nSaveDir=" + folder.Path("spectra") + "\nTabulix=" + WriteProgram() + "\n");
        Start();
    }
    ~WholeSession() override {
        app.reset();
        Display() = {};
        owl::RegisterMenuTemplate(resources::kSpectrumMenu, {});
        resources::ForgetDialogs();
    }

    /// A new process: what the views share has its defaults.
    void Start() {
        SPECT::GetGlobals() = SPECT::Globals();
        Display() = {};
        app = std::make_unique<Application>(folder);
    }
    /// Opens the view, which asks for an analysis and gets one with the settings of the form.
    void OpenWithNewAnalysis() {
        user.Meets<TFormMacroSpectra>(
            [](TFormMacroSpectra& form) { FormUser(form).Clicks("BtnAutoAverage"); });
        app->Show();
    }
    /// Saves to this file with these comments.
    void PlanSave(const std::string& file) {
        user.ChoosesFile(file);
        user.Meets<SpectralCommentsDlg>([](SpectralCommentsDlg& dialog) {
            const FormUser form(dialog);
            form.Types("protocol1", "Nap");
            form.Types("code2", "Kürzel 2");
            form.Types("comment", "first\nlast");
            dialog.accept();
        });
    }
    /// Presses a key with Ctrl and Shift. \return names of the files saved; they are removed
    std::vector<std::string> SavedBy(Qt::Key key) {
        fakes.keys.Hold(owl::kVkControl);
        fakes.keys.Hold(owl::kVkShift);
        QTest::keyClick(app->view.get(), key, Qt::KeyboardModifiers(kCtrlShift));
        fakes.keys.Release(owl::kVkControl);
        fakes.keys.Release(owl::kVkShift);
        std::vector<std::string> names;
        for (const auto& file : std::filesystem::directory_iterator(folder.Path("spectra"))) {
            names.push_back(file.path().filename());
            EXPECT_EQ(NameFor(file.path()), names.back());
        }
        std::filesystem::remove_all(folder.Path("spectra"));
        std::sort(names.begin(), names.end());
        return names;
    }
    SpectMacroResult& Main() const { return *app->manager.GetMain(); }
    /// Of all combinations, in alphabetical order.
    static std::vector<std::string> Names(const std::vector<std::string>& events,
                                          const std::vector<std::string>& windows,
                                          const std::vector<std::string>& seconds) {
        std::vector<std::string> names;
        for (const std::string& event : events) {
            for (const std::string& window : windows) {
                for (const std::string& second : seconds) {
                    names.push_back(event + "_P-7_" + window + "_" + second + "_50_night.edf.xml");
                }
            }
        }
        return names;
    }
    static void ExpectComments(const std::string& file) {
        pugi::xml_document document;
        document.load_file(file.c_str());
        const pugi::xml_node comments = document.child("spectra").child("comments");
        EXPECT_STREQ(comments.child_value("protocol1"), "Nap");
        EXPECT_STREQ(comments.child_value("protocol2"), "");
        EXPECT_STREQ(comments.child_value("code2"), "Kürzel 2");
        EXPECT_STREQ(comments.child_value("comment"), "first\nlast");
    }
    /// The name that a file of a batch should have for what it says of itself.
    static std::string NameFor(const std::string& file) {
        pugi::xml_document document;
        document.load_file(file.c_str());
        const pugi::xml_node root = document.child("spectra");
        const pugi::xml_node settings = root.child("settings");
        EXPECT_STREQ(settings.child_value("mode"), "states");
        EXPECT_FALSE(root.child("comments"));
        return std::string(settings.child("states").child_value("label")) + "_" +
               root.child("recording").child_value("label") + "_" + settings.child_value("window") + "_" +
               settings.child_value("fft_seconds") + "_" + settings.child_value("overlap") + "_" +
               root.child("recording").child_value("file") + ".xml";
    }

    const owl::Services system_ = owl::CurrentServices();
    test::GlobalsGuard guard;
    test::FakeServices fakes;
    test::ScriptedUser user;
    test::TempFolder folder;
    std::unique_ptr<Application> app;

private:
    /// It writes down what it is told to open.
    std::string WriteProgram() const {
        std::string program = folder.Write("stat istics/tabulix.sh", "#!/bin/sh\n"
                                                                     "printf '%s\\n' \"$@\" > opened.part\n"
                                                                     "mv opened.part opened\n");
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
        return program;
    }

    owl::Services services_{};
};

TEST_F(WholeSession, ComesFromOpeningTheRecordingToOpeningItAgain) {
    // Open: the view asks for an analysis and lists its channels in a grid.
    OpenWithNewAnalysis();
    app->ChooseMontage("Longitudinal bipolar");
    EXPECT_TRUE(Main().IsComputed());
    app->view->SendMessage(kGridPicked, 2U << 16U | 3U);
    Application::RunQueue();
    EXPECT_THAT(app->Traces(), ElementsAre("Fp1-F7", "F7-T7", "T7-P7", "P7-O1", "Fp1-F3", "F3-C3"));

    // Page.
    app->ClickTool("Next traces");
    EXPECT_THAT(app->Traces(), ElementsAre("C3-O1", "-", "-", "-", "-", "-"));
    app->TurnWheel(15);
    EXPECT_EQ(app->Traces()[0], "Fp1-F7");

    // Zoom, and set the axes of the amplitude by hand.
    app->ClickTool("Halve the frequency range");
    EXPECT_EQ(Display().range.top, 16);
    QTest::keyClick(app->view.get(), Qt::Key_Down);
    EXPECT_EQ(Display().gain, 1.5);
    user.Meets<SpectrumScaleDlg>([](SpectrumScaleDlg& dialog) {
        TypeInto(dialog, 400, "20");
        TypeInto(dialog, 401, "7.5");
        dialog.CheckDlgButton(106, false);
        dialog.accept();
    });
    app->Choose(kCmSetMaxAxis);
    EXPECT_EQ(Display().range.top, 20);

    // Another entity has ranges of its own.
    app->Choose(kCmSetEntity + 1);
    EXPECT_TRUE(app->IsChecked(kCmSetEntity + 1));
    app->ClickTool("Halve the frequency range");
    EXPECT_EQ(Display().range.top, 16);

    // Bands.
    user.Meets<SpectrumBandDlg>([](SpectrumBandDlg& dialog) {
        TypeInto(dialog, 206, "Spindles");
        TypeInto(dialog, 306, "11.5");
        TypeInto(dialog, 406, "15");
        TypeInto(dialog, 300, "1");
        TypeInto(dialog, 400, "30");
        dialog.accept();
    });
    app->Choose(kCmSetBands);
    EXPECT_TRUE(Main().IsComputed());

    // What is shown, and in which font.
    app->Choose(kCmShowSd);
    app->Choose(kCmShowPoints);
    app->Choose(kCmSetCommon);
    user.ChoosesFont(kFont);
    app->Choose(kCmSelectFont);

    // Only the epochs awake, without what is bad.
    user.Meets<TFormSpectrumMacro>([](TFormSpectrumMacro& form) {
        const FormUser hand(form);
        hand.Clicks("rbByStateEvent");
        hand.SelectsRows("lvStateAccept", {"Awake"});
        hand.SelectsRows("lvReject", {"bad"});
        hand.Clicks("BitBtnCompute");
    });
    app->Choose(kCmEditOptions);
    EXPECT_EQ(Main().GetFFTCount(), 7u);

    // Save with comments, and let the statistics program open the file.
    const std::string file = folder.Path("spectra/my näp.xml");
    PlanSave(file);
    app->Choose(kCmSaveAndLaunch);
    EXPECT_EQ(user.FileRequests().back().question.folder, folder.Path("spectra/"));
    EXPECT_EQ(user.FileRequests().back().question.name, "Awake_P-7_Hanning_2_50_night.xml");
    ExpectComments(file);
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return std::filesystem::exists(folder.Path("stat istics/opened")); }, 10000));
    EXPECT_EQ(folder.Read("stat istics/opened"), file + "\n");
    std::filesystem::remove(file);

    // Batches.
    const std::vector<std::string> windows{"Hamming", "Hanning", "Rectangular", "Triangular"};
    EXPECT_EQ(SavedBy(Qt::Key_3), Names({}, {}, {}));
    EXPECT_EQ(SavedBy(Qt::Key_1), Names({"Awake", "Sleep"}, windows, {"1"}));
    EXPECT_EQ(SavedBy(Qt::Key_2), Names({"Awake", "Sleep"}, windows, {"2"}));
    EXPECT_EQ(SavedBy(Qt::Key_4), Names({"Awake", "Sleep"}, windows, {"4"}));
    EXPECT_EQ(SavedBy(Qt::Key_A), Names({"Awake", "Sleep"}, windows, {"1", "2", "4"}));
    EXPECT_EQ(SavedBy(Qt::Key_E), Names({"Awake", "Sleep"}, {"Triangular"}, {"4"}));
    EXPECT_EQ(SavedBy(Qt::Key_W), Names({"Sleep"}, windows, {"4"}));
    EXPECT_THAT(app->gui.Errors(), IsEmpty());

    // Close, and come back the next day.
    app.reset();
    Start();
    OpenWithNewAnalysis();
    EXPECT_EQ(app->manager.GetMeasEntity(), SPECT::Entity::Type::Power);
    EXPECT_TRUE(app->IsChecked(kCmSetEntity + 1));
    EXPECT_EQ(app->view->GetState().grid, (GridSize{2, 3}));
    EXPECT_TRUE(app->view->GetState().commonScale);
    EXPECT_TRUE(app->IsChecked(kCmSetCommon));
    EXPECT_TRUE(app->IsChecked(kCmShowSd));
    EXPECT_FALSE(app->IsChecked(kCmShowPoints));
    EXPECT_TRUE(app->IsChecked(kCmShowLines));
    EXPECT_EQ(app->view->GetViewFont(), kFont);
    EXPECT_EQ(Display().range, (SPECT::FrequencyRange{0, 16}));
    const Scales& scales = app->view->GetState().scales;
    EXPECT_EQ(scales.at("Amplitude"), (SPECT::Scale{0, 7.5, 0, 20, false}));
    EXPECT_EQ(scales.at("Power"), (SPECT::Scale{0, 10, 0, 16, true}));
    EXPECT_STREQ(app->manager.GetBand(5).name, "Spindles");
    EXPECT_EQ(app->manager.GetBand(5).lo, 11.5);
    EXPECT_EQ(app->manager.GetBand(5).hi, 15);
    EXPECT_EQ(SPECT::GetGlobals().TotalLo, 1);
    EXPECT_EQ(SPECT::GetGlobals().TotalHi, 30);
    user.ChoosesFile(file);
    user.Meets<SpectralCommentsDlg>([](SpectralCommentsDlg& dialog) {
        EXPECT_EQ(FormUser(dialog).TextOf("protocol1"), "Nap");
        EXPECT_EQ(FormUser(dialog).TextOf("code2"), "");
        dialog.reject();
    });
    app->Choose(kCmSaveSpectra);
    EXPECT_EQ(user.FileRequests().back().question.folder, folder.Path("spectra/"));
}

} // namespace

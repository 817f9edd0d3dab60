// SPDX-License-Identifier: GPL-3.0-or-later
// A user's whole session with the maps view, from the file of the recording to the view that is opened again:
// with the real settings file and the real reader.
#include "host/platform/host_platform.h"
#include "host/review/cli/demo_recording.h"
#include "side_bar/macro_selection_form.h"
#include "spectral_maps/dialogs/map_dialog.h"
#include "tests/spectral_maps/map_fixture.h"
#include "tests/support/qt/fake_services.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"
#include "tests/support/qt/session_application.h"
#include "tests/support/temp_folder.h"

#include <QCheckBox>
#include <QListWidget>
#include <QMouseEvent>
#include <QTest>

namespace {

using namespace orvanta;
using namespace orvanta::test;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

/// The application with one recording and its maps view, on the screen.
class Application : public SessionApplication<SpectMap> {
public:
    explicit Application(const TempFolder& folder)
        : SessionApplication(folder.Path("demo.edf"), folder.Path("")) {
        view = std::make_unique<SpectMap>(window, recording.get(), &manager, true, ElectrodesOf(*recording));
    }

    void Show() { SessionApplication::Show(1000, 600); }
    void DoubleClick(std::size_t map) {
        TMapWindow& target = *view->GetMap(map);
        const QPoint place(3, 3);
        QTest::mouseDClick(&target, Qt::LeftButton, Qt::NoModifier, place);
        RunQueue();
    }
    std::string TitleOf(std::size_t map) const { return view->GetMap(map)->GetTitle(); }
};

class MapsSession : public testing::Test {
protected:
    MapsSession() {
        owl::RegisterMenuTemplate(resources::kMapsMenu, resources::kMapsMenuItems);
        resources::RegisterDialogs();
        cli::DemoParameters parameters;
        parameters.minutes = 1;
        cli::DemoSignal demo(parameters);
        cli::WriteDemoRecording(folder.Path("demo.edf"), demo);
        SpectraMacro macro;
        macro.SetTimeIntervalSelectMode(SpectraMacro::TimeIntervalSelectMode::ByDuration);
        macro.SetFixedDurationSec(20);
        RecordingGui gui;
        const platform::HostPlatform platform(gui, folder.Path("settings.ini"), folder.Path("data"));
        EXPECT_EQ(macro.SaveAs(platform.GetAppFolder("MACRO") + "Twenty seconds.smx"), 0);
    }
    ~MapsSession() override {
        resources::ForgetDialogs();
        owl::RegisterMenuTemplate(resources::kMapsMenu, {});
    }

    /// The user takes the first macro of the library.
    void PicksMacro() {
        user.Meets<TFormMacroSpectra>([](TFormMacroSpectra& form) {
            FormUser(form).SelectsRow("ListBoxMacro", 0);
            FormUser(form).Clicks("BtnAutoAverage");
        });
    }

    TempFolder folder;
    GlobalsGuard guard;
    FakeServices services;
    ScriptedUser user;
};

TEST_F(MapsSession, IsFoundAgainTheNextTime) {
    {
        Application application(folder);
        PicksMacro();
        application.Show();
        SpectMap& view = *application.view;

        // The maps are there.
        ASSERT_NE(application.manager.GetMain(), nullptr);
        EXPECT_EQ(application.manager.GetMain()->GetFFTCount(), 19U);
        ASSERT_GE(view.GetNumMaps(), 4);
        EXPECT_EQ(application.TitleOf(0), "Band: Delta - Measure: Abs");
        EXPECT_TRUE(view.GetMap(0)->isVisible());
        EXPECT_EQ(view.GetMap(0)->GetValues().size(), 19U);

        // Another band for the second map, then another measure for all of them.
        user.Meets<Spect3DDlg>([](Spect3DDlg& dialog) {
            dialog.Item<QAbstractButton>(112)->click();
            dialog.Item<QAbstractButton>(owl::kIdOk)->click();
        });
        application.DoubleClick(1);
        EXPECT_EQ(application.TitleOf(1), "Band: Alpha - Measure: Abs");
        EXPECT_EQ(application.TitleOf(0), "Band: Delta - Measure: Abs");
        user.Meets<Spect3DDlg>([](Spect3DDlg& dialog) {
            dialog.Item<QAbstractButton>(522)->click();
            dialog.Item<QAbstractButton>(107)->click();
            dialog.Item<QAbstractButton>(owl::kIdOk)->click();
        });
        application.DoubleClick(1);
        EXPECT_EQ(application.TitleOf(1), "Band: Alpha - Measure: Mean");
        EXPECT_EQ(application.TitleOf(0), "Band: Delta - Measure: Mean");

        // The next twenty seconds, on the clipboard.
        const std::vector<double> before = view.GetMap(1)->GetValues();
        application.Choose(14190);
        EXPECT_EQ(application.recording->GetTraceCursor()->GetStartRecTime()->Seconds(), 20);
        EXPECT_NE(view.GetMap(1)->GetValues(), before);
        application.Choose(14180);
        ASSERT_EQ(services.clipboard.Texts().size(), 1U);
        EXPECT_THAT(services.clipboard.Texts().back(), StartsWith("Item\tFp1\tFp2\t"));
        EXPECT_THAT(services.clipboard.Texts().back(), HasSubstr("\r\nBand: Alpha - Measure: Mean\t"));

        // A cartoon and back.
        application.Choose(14170);
        EXPECT_EQ(view.GetStepCount(), 19U);
        EXPECT_EQ(application.TitleOf(0), "Time: 00:00:20.000");
        EXPECT_EQ(view.GetTitle(), "Band: Delta   Measure: Abs");
        view.ShowStep(3);
        EXPECT_EQ(application.TitleOf(0), "Time: 00:00:23.000");
        application.Choose(14170);
        EXPECT_EQ(application.TitleOf(1), "Band: Alpha - Measure: Mean");

        // How it looks.
        application.Choose(14150);
        view.RunCommand(14141);
    }
    Application application(folder);
    PicksMacro();
    application.Show();
    const SpectMap& view = *application.view;
    EXPECT_EQ(application.TitleOf(0), "Band: Delta - Measure: Mean");
    EXPECT_EQ(application.TitleOf(1), "Band: Alpha - Measure: Mean");
    EXPECT_FALSE(view.GetCartoonMode());
    EXPECT_TRUE(view.IsLocked());
    EXPECT_FALSE(view.AreElectrodesShown());
    EXPECT_TRUE(dynamic_cast<QToolButton*>(view.GetGadget(7))->isChecked());
    EXPECT_FALSE(dynamic_cast<QToolButton*>(view.GetGadget(16))->isChecked());
}

} // namespace

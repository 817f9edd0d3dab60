// SPDX-License-Identifier: GPL-3.0-or-later
// Keys, wheel and mouse as they come from Qt, the montage box, and the focus.
#include "side_bar/macro_selection_form.h"
#include "side_bar/regression_panel.h"
#include "side_bar/side_bar_form.h"
#include "side_bar/spectra_panel.h"
#include "side_bar/spectrum_macro_form.h"
#include "tests/spectrum_view/view_fixture.h"
#include "tests/support/qt/fake_services.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"

#include <QComboBox>
#include <QTest>
#include <QTreeWidget>
#include <QWheelEvent>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using spectrum_view::Display; // hides the one of the X headers
using test::FormUser;
using testing::ElementsAre;
using testing::IsEmpty;

class Keys : public test::ViewFixture {
protected:
    /// Factor of the vertical range after the keys, 1 before.
    double GainAfter(std::initializer_list<Qt::Key> keys) {
        Display().gain = 1;
        for (const Qt::Key key : keys) {
            QTest::keyClick(view.get(), key);
        }
        return Display().gain;
    }

    test::FakeServices services;
};

TEST_F(Keys, DownMakesTheCurvesSmallerAndUpLarger) {
    Add();
    Show();
    EXPECT_DOUBLE_EQ(GainAfter({Qt::Key_Down}), 1.5);
    EXPECT_DOUBLE_EQ(GainAfter({Qt::Key_Down, Qt::Key_Down}), 2.25);
    EXPECT_DOUBLE_EQ(GainAfter({Qt::Key_Up}), 1 / 1.5);
    EXPECT_DOUBLE_EQ(GainAfter({Qt::Key_Up, Qt::Key_Down}), 1);
}

TEST_F(Keys, GainHasNoLimit) {
    Add();
    Open();
    for (int i = 0; i < 100; ++i) {
        QTest::keyClick(view.get(), Qt::Key_Down);
    }
    EXPECT_DOUBLE_EQ(Display().gain, std::pow(1.5, 100));
}

TEST_F(Keys, OthersDoNothing) {
    Add();
    Show();
    EXPECT_DOUBLE_EQ(GainAfter({Qt::Key_Left, Qt::Key_Right, Qt::Key_PageDown, Qt::Key_1, Qt::Key_A}), 1);
    EXPECT_EQ(view->GetState().firstTrace, 0u);
}

TEST_F(Keys, DoNothingWithoutAnAnalysis) {
    Open();
    EXPECT_DOUBLE_EQ(GainAfter({Qt::Key_Down}), 1);
}

TEST_F(Keys, OneModifierAloneIsNoBatch) {
    Add();
    Open();
    services.keys.Hold(owl::kVkControl);
    EXPECT_DOUBLE_EQ(GainAfter({Qt::Key_Down}), 1.5);
    services.keys.Release(owl::kVkControl);
    services.keys.Hold(owl::kVkShift);
    EXPECT_DOUBLE_EQ(GainAfter({Qt::Key_Down}), 1.5);
}

TEST_F(Keys, ArrowsDoNothingWithBothModifiers) {
    Add();
    Open();
    services.keys.Hold(owl::kVkControl);
    services.keys.Hold(owl::kVkShift);
    EXPECT_DOUBLE_EQ(GainAfter({Qt::Key_Down, Qt::Key_Up, Qt::Key_Up}), 1);
}

/// Channels A to E, two of them on a page.
class Wheel : public test::ViewFixture {
protected:
    Wheel() {
        UseFiveBipolarChannels();
        Add();
        Show();
        view->SendMessage(kGridPicked, 1U << 16U | 2U);
    }
    std::uint64_t FirstAfter(QPoint turned) {
        QWheelEvent event({3, 4}, view->mapToGlobal(QPointF(3, 4)), {}, turned, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(view.get(), &event);
        return view->GetState().firstTrace;
    }
};

TEST_F(Wheel, PagesForwardTowardsTheUserAndBackAwayFromThem) {
    EXPECT_EQ(FirstAfter({0, -120}), 2u);
    EXPECT_EQ(FirstAfter({0, -15}), 4u);
    EXPECT_EQ(FirstAfter({0, -120}), 4u);
    EXPECT_EQ(FirstAfter({0, 120}), 2u);
    EXPECT_EQ(FirstAfter({0, 240}), 0u);
    EXPECT_EQ(FirstAfter({0, 120}), 0u);
}

TEST_F(Wheel, PagesNothingWhenItIsTurnedSideways) {
    EXPECT_EQ(FirstAfter({0, -120}), 2u);
    EXPECT_EQ(FirstAfter({-120, 0}), 2u);
}

TEST_F(Wheel, PagesNothingOnTheScalp) {
    view->CmHeadView();
    UseFiveBipolarChannels();
    manager.GetMain()->Compute(nullptr);
    EXPECT_EQ(FirstAfter({0, -120}), 0u);
}

TEST_F(Wheel, GoesOnToTheWindowAround) {
    QWheelEvent event({3, 4}, view->mapToGlobal(QPointF(3, 4)), {}, {0, -120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(view.get(), &event);
    EXPECT_FALSE(event.isAccepted());
}

/// The reference montage on the scalp, with Cz as its reference.
class Click : public test::ViewFixture {
protected:
    Click() {
        Add();
        Show(600, 600);
        view->CmHeadView();
        RunQueue();
    }
    /// The middle of the plot of this trace.
    QPoint PlotOf(const std::string& trace) const {
        for (const TraceEntry& entry : view->GetTraces()) {
            if (entry.main != nullptr && entry.main->GetName() == trace) {
                const owl::TRect& place = entry.rectangle;
                return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
            }
        }
        ADD_FAILURE() << "no plot of " << trace;
        return {};
    }
};

TEST_F(Click, PointsAtTheTraceOfThePlot) {
    const std::string trace = TraceNames().front();
    QTest::mouseClick(view.get(), Qt::LeftButton, {}, PlotOf(trace));
    EXPECT_THAT(window.channels, ElementsAre(trace));
}

TEST_F(Click, BesideThePlotsPointsAtNothing) {
    QTest::mouseClick(view.get(), Qt::LeftButton, {}, {1, 1});
    EXPECT_THAT(window.channels, IsEmpty());
}

TEST_F(Click, ThatEndsOnAnotherPlotPointsAtNothing) {
    const std::vector<std::string> traces = TraceNames();
    ASSERT_GE(traces.size(), 2U);
    QTest::mousePress(view.get(), Qt::LeftButton, {}, PlotOf(traces[0]));
    QTest::mouseRelease(view.get(), Qt::LeftButton, {}, PlotOf(traces[1]));
    EXPECT_THAT(window.channels, IsEmpty());
}

TEST_F(Click, WithoutAnAnalysisPointsAtNothing) {
    const QPoint plot = PlotOf(TraceNames().front());
    SpectMacroResult* main = manager.GetMain();
    manager.Remove(main);
    delete main;
    QTest::mouseClick(view.get(), Qt::LeftButton, {}, plot);
    EXPECT_THAT(window.channels, IsEmpty());
}

class DoubleClick : public test::ViewFixture {
protected:
    DoubleClick() {
        recording->GetTraceInfo()->SetMtg(Reference());
        Add();
        Show(600, 600);
        view->CmHeadView();
        RunQueue();
    }
    MontageType& Reference() const { return *recording->GetMontageList()->GetRefMtg(); }
    const MontageType& Montage() const { return recording->GetTraceInfo()->GetMtg(); }
    static std::vector<std::string> ChannelsOf(const MontageType& montage) {
        std::vector<std::string> names;
        for (std::size_t i = 0; i < montage.GetNumTraces(); ++i) {
            names.push_back(montage.GetChn(i)->GetName());
        }
        return names;
    }
    void ClickAt(QPoint point) const {
        QTest::mouseDClick(view.get(), Qt::LeftButton, {}, point);
        RunQueue();
    }
    /// On the plot of the channel at this electrode.
    void ClickOn(const std::string& electrode) const {
        for (const TraceEntry& entry : view->GetTraces()) {
            const auto* spectrum = dynamic_cast<const SpectrumChn*>(entry.main);
            if (spectrum != nullptr && spectrum->GetChn()->GetLabelPos() == electrode) {
                const owl::TRect& place = entry.rectangle;
                ClickAt({(place.left + place.right) / 2, (place.top + place.bottom) / 2});
                return;
            }
        }
        FAIL() << "no plot at " << electrode;
    }
    std::size_t Computations() const { return window.platform.gui.Progresses().size(); }
};

TEST_F(DoubleClick, MakesTheElectrodeTheReference) {
    ASSERT_THAT(ChannelsOf(Montage()), ElementsAre("Fp1-Cz", "F3-Cz"));
    const std::size_t before = Computations();
    ClickOn("Fp1");
    EXPECT_THAT(ChannelsOf(Montage()), ElementsAre("Cz-Fp1", "F3-Fp1"));
    EXPECT_THAT(ChannelsOf(Reference()), ElementsAre("Cz-Fp1", "F3-Fp1"));
    EXPECT_EQ(Computations(), before + 1);
    EXPECT_THAT(TraceNames(), ElementsAre("Cz-Fp1", "F3-Fp1"));
}

TEST_F(DoubleClick, WorksAgainOnTheNewMontage) {
    ClickOn("Fp1");
    ClickOn("F3");
    EXPECT_THAT(ChannelsOf(Montage()), ElementsAre("Cz-F3", "Fp1-F3"));
}

TEST_F(DoubleClick, BesideThePlotsOnlyComputesAgain) {
    const std::size_t before = Computations();
    ClickAt({1, 1});
    EXPECT_THAT(ChannelsOf(Montage()), ElementsAre("Fp1-Cz", "F3-Cz"));
    EXPECT_EQ(Computations(), before + 1);
}

TEST_F(DoubleClick, DoesNothingInAnotherMontage) {
    recording->GetTraceInfo()->SetMtg(*recording->GetMontageList()->GetUniMtg());
    view->CmRecompute();
    RunQueue();
    const std::size_t before = Computations();
    ClickOn("Fp1");
    EXPECT_EQ(Montage(), *recording->GetMontageList()->GetUniMtg());
    EXPECT_THAT(ChannelsOf(Reference()), ElementsAre("Fp1-Cz", "F3-Cz"));
    EXPECT_EQ(Computations(), before);
}

TEST_F(DoubleClick, TakesTheMontageBoxWithIt) {
    const auto* montages = view->GetToolBar().findChild<QComboBox*>();
    const int place = montages->findText("Reference Cz");
    ASSERT_GE(place, 0);
    const int chosen = montages->currentIndex();
    ClickOn("Fp1");
    EXPECT_EQ(montages->itemText(place).toStdString(), "Reference Fp1");
    EXPECT_EQ(montages->currentIndex(), chosen);
}

TEST_F(DoubleClick, OnlyComputesAgainInTheGridWhereNoCellHasASpectrumOfIt) {
    view->CmGridView();
    RunQueue();
    ASSERT_THAT(TraceNames(), testing::Each("-"));
    const std::size_t before = Computations();
    const owl::TRect cell = Rectangles().front();
    ClickAt({(cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2});
    EXPECT_THAT(ChannelsOf(Montage()), ElementsAre("Fp1-Cz", "F3-Cz"));
    EXPECT_EQ(Computations(), before + 1);
}

TEST_F(DoubleClick, DoesNothingWithTheRightButton) {
    const std::size_t before = Computations();
    QTest::mouseDClick(view.get(), Qt::RightButton, {}, {1, 1});
    EXPECT_EQ(Computations(), before);
}

class Focus : public test::ViewFixture {
protected:
    void GiveFocus() { Tell(owl::WindowEvent::SetFocus); }
    void TakeFocus() { Tell(owl::WindowEvent::KillFocus); }
    QComboBox& Montages() const { return *view->GetToolBar().findChild<QComboBox*>(); }

    test::ScriptedUser user;

private:
    void Tell(owl::WindowEvent event) {
        view->Dispatch({{owl::EventKind::Window, static_cast<unsigned>(event)}, owl::FocusArgs{nullptr}});
    }
};

TEST_F(Focus, FillsTheMontageBox) {
    Add();
    Open();
    recording->GetMontageList()->SetCurrentIndex(1);
    EXPECT_EQ(Montages().count(), 0);
    GiveFocus();
    std::vector<std::string> names;
    for (int i = 0; i < Montages().count(); ++i) {
        names.push_back(Montages().itemText(i).toStdString());
    }
    std::vector<std::string> expected;
    for (const auto& montage : *recording->GetMontageList()) {
        expected.push_back(montage->GetName());
    }
    ASSERT_GE(expected.size(), 3u);
    EXPECT_EQ(names, expected);
    EXPECT_EQ(Montages().currentIndex(), 1);
    GiveFocus();
    EXPECT_EQ(Montages().count(), static_cast<int>(expected.size()));
    EXPECT_THAT(window.platform.gui.Progresses(), IsEmpty());
}

TEST_F(Focus, TheMontageChosenInTheBoxIsComputed) {
    Add();
    Show();
    GiveFocus();
    const MontageList& list = *recording->GetMontageList();
    ASSERT_EQ(list.GetCurrentIndex(), 0u);
    QTest::keyClick(&Montages(), Qt::Key_Down);
    EXPECT_EQ(list.GetCurrentIndex(), 1u);
    EXPECT_EQ(recording->GetTraceInfo()->GetMtg(), *list.Get(1));
    EXPECT_THAT(window.platform.gui.Progresses(), ElementsAre("Computing Spectra..."));
    EXPECT_EQ(window.focusWidget(), view.get());
}

TEST_F(Focus, TheMontageBoxCountsForMoreThanTheMessage) {
    Add();
    Open();
    GiveFocus();
    Montages().setCurrentIndex(2);
    view->SendMessage(kMontageSelector, 1);
    EXPECT_EQ(recording->GetMontageList()->GetCurrentIndex(), 2u);
}

TEST_F(Focus, TheMessageCountsBeforeTheBoxIsFilled) {
    Add();
    Open();
    view->SendMessage(kMontageSelector, 1);
    EXPECT_EQ(recording->GetMontageList()->GetCurrentIndex(), 1u);
}

TEST_F(Focus, AMontageThatIsNotThereChangesNothing) {
    Add();
    Open();
    const MontageType before = recording->GetTraceInfo()->GetMtg();
    view->SendMessage(kMontageSelector, 99);
    EXPECT_EQ(recording->GetTraceInfo()->GetMtg(), before);
}

TEST_F(Focus, TellsTheListenersOfTheMontage) {
    struct Listener final : FlagListener {
        using FlagListener::FlagListener;
        void PerformAction() override { ++told; }
        int told = 0;
    };
    const Listener listener("test", recording->GetMontageFlag());
    Add();
    Open();
    view->SendMessage(kMontageSelector, 1);
    EXPECT_EQ(listener.told, 1);
}

TEST_F(Focus, TellsTheSideBarOfTheApplication) {
    Add();
    Open();
    GiveFocus(); // makes the panel of spectra
    TakeFocus();
    window.sideBar.calls.clear();
    QWidget extra;
    view->SetExtraPanel(&extra);
    GiveFocus();
    TakeFocus();
    EXPECT_EQ(window.sideBar.calls, (std::vector<std::string>{"add true false", "add true false", "update",
                                                              "remove", "remove", "update"}));
    view->SetExtraPanel(nullptr);
}

TEST_F(Focus, MakesItsPanelsAfterTheSideBarOfTheApplicationWasTold) {
    Add();
    Open();
    GiveFocus();
    EXPECT_THAT(window.sideBar.calls, ElementsAre("update"));
}

/// A main window whose side bar knows which panels it has.
class ListingWindow final : public GlobalWindow {
public:
    struct Listing final : SideBarManager {
        void AddPanel(QWidget& panel, bool /*show*/, bool /*activate*/) override { panels.push_back(&panel); }
        void RemovePanel(QWidget& panel) override { std::erase(panels, &panel); }
        void Update() override { ++updates; }

        std::vector<QWidget*> panels;
        int updates = 0;
    };
    GenericPlatform* GetPlatform() const override { return &platform; }
    std::string GetErrorStr() const override { return "Error"; }
    bool IsQuiet() const override { return true; }
    void SetMessageText(const std::string& /*text*/) override {}
    SideBarManager& GetSideBar() override { return listing; }

    mutable test::FakePlatform platform;
    Listing listing;
};

class ListedPanels : public Focus {
protected:
    ListedPanels() {
        Add();
        manager.SetStatMode(2);
        view = std::make_unique<Spectrum>(listingWindow, recording.get(), &manager, false);
        view->Create();
        view->SetExtraPanel(&extra);
        GiveFocus(); // makes the panels
        TakeFocus();
        GiveFocus();
    }
    ~ListedPanels() override { view.reset(); }

    QWidget extra;
    ListingWindow listingWindow;
};

TEST_F(ListedPanels, AreThoseOfSpectraAndRegressionAndThenTheExtraOne) {
    const std::vector<QWidget*>& panels = listingWindow.listing.panels;
    ASSERT_EQ(panels.size(), 3u);
    EXPECT_NE(dynamic_cast<TFormListenerSpectra1*>(panels[0]), nullptr);
    EXPECT_NE(dynamic_cast<TFormListenerSpectraBCI*>(panels[1]), nullptr);
    EXPECT_EQ(panels[2], &extra);
    TakeFocus();
    EXPECT_THAT(panels, IsEmpty());
}

TEST_F(ListedPanels, AreGivenBackByAViewThatEndsWithTheFocus) {
    const int before = listingWindow.listing.updates;
    view->Destroy();
    EXPECT_THAT(listingWindow.listing.panels, IsEmpty());
    EXPECT_GT(listingWindow.listing.updates, before);
}

TEST_F(Focus, MakesTheSideBarWhenItComesFirst) {
    Add();
    Open();
    EXPECT_EQ(view->Panes().count(), 1);
    GiveFocus();
    ASSERT_EQ(view->Panes().count(), 2);
    EXPECT_NE(dynamic_cast<TSideBarFormBase*>(view->Panes().widget(0)), nullptr);
    TakeFocus();
    GiveFocus();
    EXPECT_EQ(view->Panes().count(), 2);
}

/// The side bar's list of analyses, which is filled anew when the view tells its panels to do so.
class PanelsOfView : public Focus {
protected:
    PanelsOfView() {
        Add();
        Open();
        GiveFocus();
        EXPECT_EQ(Listed(), 1);
    }
    int Listed() const { return view->Panes().findChild<QTreeWidget*>("lvMainList")->topLevelItemCount(); }
};

TEST_F(PanelsOfView, AreToldOfAnotherMontage) {
    Add();
    view->SendMessage(kMontageSelector, 1);
    EXPECT_EQ(Listed(), 2);
}

TEST_F(PanelsOfView, AreToldOfEditedOptions) {
    Add();
    user.Meets<TFormSpectrumMacro>([](TFormSpectrumMacro& form) { form.reject(); });
    view->CmEditOptions();
    EXPECT_EQ(Listed(), 1);
    user.Meets<TFormSpectrumMacro>([](TFormSpectrumMacro& form) { FormUser(form).Clicks("BitBtnCompute"); });
    view->CmEditOptions();
    EXPECT_EQ(Listed(), 2);
}

TEST_F(PanelsOfView, AreToldOfANewSpectrum) {
    user.Meets<TFormMacroSpectra>([](TFormMacroSpectra& form) { FormUser(form).Clicks("BtnAutoAverage"); });
    view->CmNewSpectrum();
    EXPECT_EQ(Listed(), 2);
}

TEST_F(PanelsOfView, AreNotToldOfZoomAndPages) {
    Add();
    view->CmNarrow();
    view->CmNextTrace();
    view->CmRecompute();
    EXPECT_EQ(Listed(), 1);
}

TEST_F(Focus, AsksForAnAnalysisUntilThereIsOne) {
    Open();
    user.Meets<TFormMacroSpectra>([](TFormMacroSpectra& form) { FormUser(form).Clicks("BtnCancel"); });
    GiveFocus();
    EXPECT_EQ(manager.Size(), 0u);
    EXPECT_GT(Montages().count(), 0);
    user.Meets<TFormMacroSpectra>([](TFormMacroSpectra& form) { FormUser(form).Clicks("BtnAutoAverage"); });
    GiveFocus();
    EXPECT_EQ(manager.Size(), 1u);
    GiveFocus();
    EXPECT_EQ(user.DialogsShown(), 2);
}

TEST_F(Focus, AsksOnceHoweverOftenItComesMeanwhile) {
    Open();
    user.Meets<TFormMacroSpectra>([&](TFormMacroSpectra& form) {
        window.messages.clear();
        window.SetActiveChild(nullptr);
        GiveFocus();
        EXPECT_EQ(window.GetActiveChild(), view.get()); // what every view does
        EXPECT_THAT(window.messages, IsEmpty());
        FormUser(form).Clicks("BtnCancel");
    });
    GiveFocus();
    EXPECT_EQ(user.DialogsShown(), 1);
}

TEST_F(Focus, ComesToTheShownViewOnceItHasItsAnalysis) {
    Make();
    user.Meets<TFormMacroSpectra>([](TFormMacroSpectra& form) { FormUser(form).Clicks("BtnAutoAverage"); });
    ShowMade();
    window.activateWindow();
    view->SetFocus();
    RunQueue();
    EXPECT_EQ(user.DialogsShown(), 1);
    EXPECT_EQ(manager.Size(), 1u);
    EXPECT_TRUE(view->hasFocus());
}

TEST_F(Focus, EndsQuietlyWhenTheViewEndsInTheRequest) {
    Open();
    user.Meets<TFormMacroSpectra>([&](TFormMacroSpectra& form) {
        view->Destroy();
        FormUser(form).Clicks("BtnCancel");
    });
    GiveFocus();
    EXPECT_FALSE(view->IsCreated());
}

} // namespace

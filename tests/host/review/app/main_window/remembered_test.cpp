// SPDX-License-Identifier: GPL-3.0-or-later
// What the user set is found again the next day: the views then look as they were left.
#include "host/chart_view/the_child.h"
#include "host/review/app/module_bridge.h"
#include "host/review/app/spectrum_look.h"
#include "host/review/app/traces/trace_view.h"
#include "host/toolkit/dialog.h"
#include "tests/host/review/app/main_window/workbench_fixture.h"
#include "tests/support/qt/form_user.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QTest>
#include <QToolBar>

#include <utility>

namespace {

using namespace orvanta;
using review::ViewKind;

/// Where a user sits.
struct Desk {
    review::Workbench& bench;
    TheChild& view; ///< whose looks tell the change
    test::ScriptedUser& user;
};

struct Change {
    const char* name;
    ViewKind view;
    void (*make)(const Desk& desk);
    std::size_t montage = 0; ///< that is shown meanwhile
};

void Press(QWidget& view, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(&view, static_cast<Qt::Key>(key), modifiers);
}

void ChooseNext(TheChild& view, int box) {
    QComboBox& chosen = *view.GetToolBar().findChildren<QComboBox*>().at(box);
    QTest::keyClick(&chosen, Qt::Key_Down);
}

/// An item of the view's own menu, by its caption.
void Choose(TheChild& view, const QString& caption) {
    QMenu& menu = view.GetMenu();
    QMetaObject::invokeMethod(&menu, "aboutToShow");
    for (QAction* item : menu.actions()) {
        if (item->text().section('\t', 0, 0).remove('&') == caption) {
            EXPECT_TRUE(item->isEnabled()) << caption.toStdString();
            item->trigger();
            return;
        }
    }
    ADD_FAILURE() << caption.toStdString() << " is not in the menu";
}

constexpr unsigned kSpectrumGrid = 14539; // message

/// In rows and columns, with the view's picker.
void PickGrid(TheChild& view, unsigned message, unsigned rows, unsigned columns) {
    view.SendMessage(message, rows << 16U | columns);
}

void ChoosePalette(const Desk& desk) {
    desk.user.MeetsDialog([](QDialog& dialog) {
        const test::FormUser form(dialog);
        form.SelectsRow("lstPalettes", 2);
        dialog.accept();
    });
    Choose(desk.view, "Select Palette...");
}

/// Other electrodes and contours.
void ChangeMapsSettings(const Desk& desk) {
    desk.user.MeetsDialog([](QDialog& dialog) {
        const test::FormUser form(dialog);
        form.Clicks("cbElectrodes");
        form.SetsNumber("spContours", 3);
        dialog.accept();
    });
    Choose(desk.view, "Maps Settings...");
}

/// Measure and band of the second map, as a double click on it lets the user choose them.
void ChooseQuantity(const Desk& desk) {
    desk.user.Meets<owl::TDialog>([](owl::TDialog& dialog) {
        dialog.CheckRadioButton(110, 117, 114); // Gamma
        dialog.CheckRadioButton(521, 528, 524); // peak frequency
        dialog.done(owl::kIdOk);
    });
    desk.view.SendMessage(16333, 1);
}

constexpr std::size_t kBipolar = 1; // montage, shown in the grid; here with room for texts in a plot

const Change kChanges[] = {
    {"Position", ViewKind::Traces, [](const Desk& desk) { Press(desk.view, Qt::Key_PageDown); }},
    {"Montage", ViewKind::Traces,
     [](const Desk& desk) { desk.bench.GetDocuments().Current()->Recording().ChangeMntg(kBipolar, true); }},
    {"TimeScale", ViewKind::Traces,
     [](const Desk& desk) { Press(desk.view, Qt::Key_Plus, Qt::ControlModifier); }},
    {"Gain", ViewKind::Traces, [](const Desk& desk) { Press(desk.view, Qt::Key_Plus); }},
    {"LowCut", ViewKind::Traces, [](const Desk& desk) { ChooseNext(desk.view, 3); }},
    {"HighCut", ViewKind::Traces, [](const Desk& desk) { ChooseNext(desk.view, 4); }},
    {"Notch", ViewKind::Traces, [](const Desk& desk) { ChooseNext(desk.view, 5); }},
    {"Centering", ViewKind::Traces,
     [](const Desk& desk) { Choose(desk.view, "Center Traces on Their Mean"); }},
    {"Polarity", ViewKind::Traces, [](const Desk& desk) { Choose(desk.view, "Negative Upwards"); }},
    {"HiddenChannel", ViewKind::Traces,
     [](const Desk& desk) {
         Press(desk.view, Qt::Key_Down, Qt::ShiftModifier);
         Press(desk.view, Qt::Key_H);
     }},
    {"BadChannel", ViewKind::Traces,
     [](const Desk& desk) {
         Press(desk.view, Qt::Key_Down, Qt::ShiftModifier);
         Press(desk.view, Qt::Key_B);
         Press(desk.view, Qt::Key_Up, Qt::ShiftModifier);
         Press(desk.view, Qt::Key_Escape);
     }},
    {"Quantity", ViewKind::Spectrum, [](const Desk& desk) { Choose(desk.view, "Power"); }},
    {"Points", ViewKind::Spectrum, [](const Desk& desk) { Choose(desk.view, "Show Points"); }},
    {"Deviation", ViewKind::Spectrum, [](const Desk& desk) { Choose(desk.view, "Show SD"); }},
    {"Labels", ViewKind::Spectrum, [](const Desk& desk) { Choose(desk.view, "Show Labels"); }},
    {"AxesText", ViewKind::Spectrum, [](const Desk& desk) { Choose(desk.view, "Show Axes Text"); }, kBipolar},
    {"MeasuresBox", ViewKind::Spectrum, [](const Desk& desk) { Choose(desk.view, "Show Measures Box"); },
     kBipolar},
    {"CompressedArray", ViewKind::Spectrum,
     [](const Desk& desk) { Choose(desk.view, "Compressed Spectral Array (CSA)"); }},
    {"Weighting", ViewKind::Spectrum,
     [](const Desk& desk) { Choose(desk.view, "Normalized by sqrt(f) display"); }},
    {"Zoom", ViewKind::Spectrum, [](const Desk& desk) { Press(desk.view, Qt::Key_Up); }},
    {"Frequencies", ViewKind::Spectrum, [](const Desk& desk) { desk.view.RunCommand(14451); }},
    {"CommonScale", ViewKind::Spectrum, [](const Desk& desk) { Choose(desk.view, "Common Scale"); }},
    {"Grid", ViewKind::Spectrum, [](const Desk& desk) { PickGrid(desk.view, kSpectrumGrid, 2, 3); },
     kBipolar},
    {"PageOfTraces", ViewKind::Spectrum, [](const Desk& desk) { desk.view.RunCommand(14417); }, kBipolar},
    {"MapsGrid", ViewKind::Maps, [](const Desk& desk) { PickGrid(desk.view, 14160, 1, 3); }},
    {"MapsPalette", ViewKind::Maps, ChoosePalette},
    {"MapsSettings", ViewKind::Maps, ChangeMapsSettings},
    {"MapsQuantity", ViewKind::Maps, ChooseQuantity},
    {"MapsTable", ViewKind::Maps, [](const Desk& desk) { desk.view.RunCommand(14164); }},
};

using Pictures = std::pair<QImage, QImage>;

class Remembered : public test::WorkbenchFixture, public testing::WithParamInterface<Change> {
protected:
    TheChild& View() const { return *bench->Middle().Views().ViewOf(GetParam().view); }
    /// Of the view and its tool bar, once nothing more happens to them.
    Pictures Looks() {
        QTest::qWait(250); // the window looks now and then at what has changed
        View().SetFocus();
        Pictures last, now;
        QElapsedTimer clock;
        clock.start();
        do {
            last = now;
            QTest::qWait(250);
            test::WaitUntilIdle();
            now = {View().grab().toImage(), View().GetToolBar().grab().toImage()};
        } while (now != last && clock.elapsed() < 10000);
        EXPECT_TRUE(now == last) << "still changing";
        return now;
    }
    /// What spectrum views share is not in the memory of the next day's program.
    void ForgetWhatViewsShare() {
        Start(Demo("other.edf"));
        AddAnalysis();
        test::WaitUntilIdle();
        bench->GetAnalyses().Show(ViewKind::Spectrum);
        test::LoadedModule().Choose(*bench->Middle().Views().ViewOf(ViewKind::Spectrum), {});
        Leave();
    }
};

TEST_P(Remembered, IsFoundAgain) {
    Start(Demo());
    SpectraMacro macro;
    ASSERT_EQ(macro.SaveAs(folder.Path("macro.smx")), 0); // gives the analysis a name that stays
    AddAnalysis(macro);
    bench->Window().resize(1200, 800);
    ChangeMontage(GetParam().montage);
    bench->GetAnalyses().Recompute();
    if (GetParam().montage == kBipolar) {
        PickGrid(View(), kSpectrumGrid, 1, 1);
    }
    const Pictures before = Looks();
    GetParam().make({*bench, View(), user});
    const Pictures changed = Looks();
    ASSERT_TRUE(changed != before) << "nothing to be seen of the change";
    Leave();
    if (GetParam().view == ViewKind::Spectrum) {
        ForgetWhatViewsShare();
    }
    Start(folder.Path("demo.edf"));
    const Pictures found = Looks();
    EXPECT_EQ(found.first.size(), changed.first.size());
    EXPECT_TRUE(found == changed);
}

INSTANTIATE_TEST_SUITE_P(Settings, Remembered, testing::ValuesIn(kChanges),
                         [](const auto& each) { return each.param.name; });

} // namespace

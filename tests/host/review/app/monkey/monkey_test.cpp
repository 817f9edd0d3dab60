// SPDX-License-Identifier: GPL-3.0-or-later
// Clicks and keys without sense: the application must stay as it is, or end as asked, without a word.
// ORVANTA_MONKEY_EVENTS and ORVANTA_MONKEY_SEED let it run longer and with other seeds.
#include "tests/host/review/app/monkey/monkey.h"

#include "host/chart_view/the_child.h"
#include "host/review/app/main_window/starter_macros.h"
#include "host/toolkit/appearance.h"
#include "host/toolkit/event_guard.h"
#include "tests/host/review/app/main_window/fast_clock.h"
#include "tests/host/review/app/main_window/workbench_fixture.h"

#include <QDockWidget>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QTimer>
#include <QUrl>

namespace {

using namespace orvanta;
using review::ViewKind;

constexpr int kEvents = 2000; // of each of 50 seeds

class ARandomUser : public test::WorkbenchFixture, public testing::WithParamInterface<int> {
protected:
    ARandomUser() {
        review::InstallStarterMacros(folder.Path("data/MACRO/"));
        // Names that are typed may be paths from here, the printer's from the user's folder.
        std::filesystem::current_path(folder.Path(""));
        qputenv("HOME", folder.Path("").c_str());
    }
    ~ARandomUser() override {
        qputenv("HOME", earlierHome_);
        std::filesystem::current_path(earlierFolder_);
        QApplication::setLayoutDirection(Qt::LeftToRight);
        owl::ApplyAppearance(*qApp, owl::Appearance::System);
    }

    /// One of the things that no widget offers.
    void ActOnTheWindow(test::Monkey& monkey) {
        switch (monkey.Number(9)) {
        case 0:
            monkey.Notes().Note("open");
            bench->GetDocuments().Open(monkey.AnyFile());
            break;
        case 1:
            Drop(monkey.AnyFile(), monkey);
            break;
        case 2:
            monkey.Notes().Note("resize");
            bench->Window().resize(static_cast<int>(200 + monkey.Number(1400)),
                                   static_cast<int>(150 + monkey.Number(900)));
            break;
        case 3:
            monkey.Notes().Note("style");
            owl::ApplyAppearance(*qApp, monkey.Chance(50) ? owl::Appearance::Dark : owl::Appearance::Light);
            break;
        case 4:
            monkey.Notes().Note("direction");
            QApplication::setLayoutDirection(monkey.Chance(30) ? Qt::RightToLeft : Qt::LeftToRight);
            break;
        case 5:
            ShowOrHide(monkey);
            break;
        case 6:
        case 7:
            Interrupt(monkey);
            break;
        default:
            if (monkey.Chance(15)) {
                monkey.Notes().Note("start again");
                End();
            }
            break;
        }
    }
    void Drop(const std::string& file, test::Monkey& monkey) {
        monkey.Notes().Note("drop");
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString(file))});
        QDropEvent drop({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&bench->Window(), &drop);
    }
    void ShowOrHide(test::Monkey& monkey) {
        monkey.Notes().Note("show or hide a view");
        const ViewKind kind = review::kViewKinds[monkey.Number(std::size(review::kViewKinds))];
        if (bench->GetViews().IsShown(kind)) {
            bench->GetViews().Hide(kind);
        } else {
            bench->GetAnalyses().Show(kind);
        }
    }
    /// Something happens in the middle of a computation.
    void Interrupt(test::Monkey& monkey) {
        if (bench->GetDocuments().Current() == nullptr) {
            return;
        }
        if (Analyses().GetMain() == nullptr) {
            AddAnalysis();
        }
        monkey.Notes().Note("compute");
        QTimer::singleShot(0, &bench->Window(),
                           [this, &monkey] { owl::RunGuarded([&] { ActMeanwhile(monkey); }); });
        bench->GetAnalyses().Recompute();
    }
    void ActMeanwhile(test::Monkey& monkey) {
        monkey.Notes().Note("meanwhile");
        switch (monkey.Number(5)) {
        case 0:
            bench->GetDocuments().Open(monkey.AnyFile());
            break;
        case 1:
            bench->GetDocuments().Close();
            break;
        case 2:
            ShowOrHide(monkey);
            break;
        case 3:
            bench->Window().close();
            break;
        default:
            break;
        }
    }
    /// An exception that comes as far as Qt would end the program.
    void UseAWidget(test::Monkey& monkey) noexcept { monkey.ActOn(bench->Window()); }
    /// What happens when nothing more comes from the user.
    static void Rest() noexcept {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    /// The button is let go of first: what Qt keeps while a pane is dragged would never be freed.
    void End() {
        if (bench != nullptr) {
            for (QDockWidget* pane : bench->Window().findChildren<QDockWidget*>()) {
                QMouseEvent release(QEvent::MouseButtonRelease, {}, pane->mapToGlobal(QPointF()),
                                    Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
                QApplication::sendEvent(pane, &release);
            }
        }
        Leave();
    }
    void KeepRunning(const std::string& file) {
        if (bench == nullptr || !bench->Window().isVisible()) {
            End();
            review::Workbench::Setup setup = Setup();
            setup.savesEvents = true;
            Start(setup, file);
        }
    }

    test::FastClock clock_;
    QByteArray earlierHome_ = qgetenv("HOME");
    std::filesystem::path earlierFolder_ = std::filesystem::current_path();
};

TEST_P(ARandomUser, BreaksNothing) {
    std::filesystem::create_directory(folder.Path("out"));
    test::Monkey monkey(
        {.seed = static_cast<std::uint64_t>(GetParam() + qEnvironmentVariableIntValue("ORVANTA_MONKEY_SEED")),
         .files = {Demo("a.edf"), Demo("b.edf", 2), Demo("c.edf", 3, 0.1), folder.Write("broken.edf", "?"),
                   folder.Path("missing.edf"), folder.Path("out")},
         .folder = folder.Path("out/")});
    const int more = qEnvironmentVariableIntValue("ORVANTA_MONKEY_EVENTS");
    const int events = more > 0 ? more : kEvents;
    for (int i = 0; i < events && !HasFailure(); ++i) {
        owl::RunGuarded([&] { KeepRunning(folder.Path("a.edf")); });
        if (monkey.Chance(97)) {
            UseAWidget(monkey);
        } else {
            owl::RunGuarded([&] { ActOnTheWindow(monkey); });
        }
        Rest();
    }
    EXPECT_FALSE(HasFailure()) << monkey.Notes().Text();
    bench->GetDocuments().Close();
    End();
}

INSTANTIATE_TEST_SUITE_P(Seeds, ARandomUser, testing::Range(1, 51));

} // namespace

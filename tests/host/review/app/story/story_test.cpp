// SPDX-License-Identifier: GPL-3.0-or-later
// A technologist who has never seen the program reviews a recording, and goes on the next day.
#include "host/chart_view/maps/cartoon_stat.h"
#include "host/review/app/events/event_editor.h"
#include "tests/host/review/app/story/story_user.h"
#include "tests/support/qt/recording_dc.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QImageReader>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {

using namespace orvanta;
using review::ViewKind;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

class ANewUser : public test::StoryUser {
public: // the steps
    void OpensARecording() {
        StartsTheProgram();
        Pictures("first-start");
        user.ChoosesFile(Demo("demo.edf", 1, 3));
        Chooses("File", "Open");
        ASSERT_NE(bench->GetDocuments().Current(), nullptr);
        EXPECT_EQ(Title(), "demo.edf[*] - Orvanta");
        EXPECT_TRUE(bench->GetViews().IsShown(ViewKind::Traces));
        EXPECT_TRUE(Soon([] { return QApplication::activeModalWidget() == nullptr; }));
        Pictures("opened");
    }

    void PagesThroughTheTraces() {
        hand.Click(Traces(), InTraces(0.5));
        const double page = PageLength();
        EXPECT_EQ(PageStart(), 0);
        hand.Press(Qt::Key_PageDown);
        hand.Press(Qt::Key_PageDown);
        EXPECT_DOUBLE_EQ(PageStart(), 2 * page);
        hand.Press(Qt::Key_End);
        EXPECT_DOUBLE_EQ(PageStart() + PageLength(), 180);
        Pictures("last-page");
        hand.Press(Qt::Key_Home);
        hand.Press(Qt::Key_Right);
        EXPECT_DOUBLE_EQ(PageStart(), 1);
        hand.Press(Qt::Key_Home);
    }

    void ScalesTheTraces() {
        const double page = PageLength();
        const std::vector<std::string> before = Curves();
        hand.Press(Qt::Key_Plus);
        EXPECT_NE(Curves(), before);
        hand.Press(Qt::Key_Minus);
        EXPECT_EQ(Curves(), before);
        hand.Turn(Traces(), InTraces(0.5), -1, Qt::ControlModifier);
        EXPECT_GT(PageLength(), page);
        Pictures("more-time");
        hand.Turn(Traces(), InTraces(0.5), 1, Qt::ControlModifier);
        EXPECT_DOUBLE_EQ(PageLength(), page);
    }

    void MarksAnArtifactByDragging() {
        hand.Press(Qt::Key_Home);
        hand.Drag(Traces(), InTraces(0.3), InTraces(0.45));
        auto* labels = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(labels, nullptr) << "no labels are offered";
        Pictures("labels");
        hand.ClickItem(*labels, "artifact");
        ASSERT_THAT(Marked("artifact"), SizeIs(1));
        const EventRecord marked = Marked("artifact")[0];
        EXPECT_EQ(marked.Class, EventClass::State);
        const double length =
            marked.Interval.GetEndPtr()->Seconds() - marked.Interval.GetBeginPtr()->Seconds();
        // 15 % of the view's width; names and margins take some of it from the page.
        EXPECT_GT(length, 0.15 * PageLength());
        EXPECT_LT(length, 0.19 * PageLength());
        Pictures("artifact");
    }

    void MarksAnEventByAClick() {
        Chooses("Traces", "Mark Events by Clicks");
        hand.Click(Traces(), InTraces(0.7));
        auto* labels = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(labels, nullptr) << "no labels are offered";
        user.MeetsDialog([this](QDialog& form) {
            auto* label = form.findChild<QComboBox*>("cbLabel");
            ASSERT_NE(label, nullptr);
            hand.Press(Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(label->lineEdit(), "spike");
            Pictures("event-dialog");
            hand.Click(*form.findChild<QPushButton*>("btOk"));
        });
        hand.ClickItem(*labels, "Other Label");
        ASSERT_THAT(Marked("spike"), SizeIs(1));
        EXPECT_EQ(Marked("spike")[0].Class, EventClass::Spot);
        hand.Press(Qt::Key_Escape);
        Pictures("spike");
    }

    void TakesItBackAndDoesItAgain() {
        hand.Press(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_THAT(Marked("spike"), IsEmpty());
        Chooses("Edit", "Undo");
        EXPECT_THAT(Marked("artifact"), IsEmpty());
        hand.Press(Qt::Key_Y, Qt::ControlModifier);
        Chooses("Edit", "Redo");
        EXPECT_THAT(Marked("artifact"), SizeIs(1));
        EXPECT_THAT(Marked("spike"), SizeIs(1));
        EXPECT_TRUE(Soon([this] { return !Events().IsChanged(); })) << "not saved unasked";
        EXPECT_THAT(folder.Read("demo_events.tsv"), HasSubstr("spike"));
    }

    void AnalysesRestingWithEyesClosed() {
        WillTakeMacro("Resting eyes closed", "macros");
        Chooses("Analysis", "New Analysis");
        ASSERT_EQ(Analyses().Size(), 1U);
        EXPECT_TRUE(Analyses().GetMain()->IsComputed());
        EXPECT_GT(Analyses().GetMain()->GetFFTCount(), 20U);
        EXPECT_TRUE(bench->GetViews().IsShown(ViewKind::Spectrum));
        EXPECT_TRUE(Soon([this] { return bench->GetViews().IsShown(ViewKind::Maps); }));
        Pictures("analysed");
    }

    void ComparesTwoConditions() {
        for (const char* macro : {"Eyes open vs closed - open", "Eyes open vs closed - closed"}) {
            WillTakeMacro(macro);
            hand.Press(Qt::Key_N, Qt::ControlModifier);
        }
        ASSERT_EQ(Analyses().Size(), 3U);
        hand.Click(Spectrum(), QPoint(Spectrum().width() / 2, 4)); // beside the plots
        ClicksRow("lvMainList", "Eyes open vs closed - closed");
        ClicksRow("lvSecondaryList", "Eyes open vs closed - open");
        EXPECT_EQ(Analyses().GetMain()->GetName(), "Eyes open vs closed - closed");
        ASSERT_NE(Analyses().GetSecondary(), nullptr);
        EXPECT_EQ(Analyses().GetSecondary()->GetName(), "Eyes open vs closed - open");
        if (!Analyses().GetShowTTest()) {
            ClicksButton("cbStat");
        }
        EXPECT_TRUE(Analyses().GetShowTTest());
        Pictures("compared");
        EXPECT_THAT(SignificanceMarks(), testing::Not(IsEmpty()));
    }

    void LooksAtTheMaps() {
        ASSERT_GT(Maps().GetNumMaps(), 0);
        TMapWindow& map = *Maps().GetMap(0);
        EXPECT_TRUE(map.isVisible());
        EXPECT_THAT(map.GetValues(), SizeIs(19));
        hand.Click(Maps(), QPoint(3, 3));
        Pictures("maps");
    }

    void ClicksAnElectrode() {
        hand.Click(FirstMap(), ElectrodePlace("O1"));
        EXPECT_EQ(MarkedChannel(), "O1");
        hand.Click(FirstMap(), ElectrodePlace("Cz"));
        EXPECT_EQ(MarkedChannel(), "Cz");
        Pictures("electrode");
    }

    void ClicksAnEpoch() {
        hand.Click(Maps(), QPoint(3, 3));
        Chooses("Maps", "Cartoon Mode");
        ASSERT_GT(Maps().GetStepCount(), 5U);
        hand.Click(Traces(), InTraces(0.5));
        hand.Press(Qt::Key_Home);
        // Closed eyes begin at 30 s.
        hand.Click(FirstMap(), ElectrodePlace("O2"));
        EXPECT_EQ(MarkedChannel(), "O2");
        EXPECT_GT(PageStart() + PageLength(), 30);
        Pictures("epoch");
    }

    void PlaysTheCartoon() {
        const std::uint64_t first = Maps().GetFirstStep();
        ClicksButton("cartoonPlay");
        EXPECT_TRUE(Maps().IsPlaying());
        for (int i = 0; i < 200 && Maps().GetFirstStep() == first; ++i) {
            services.clock.Advance(50);
            QTest::qWait(10);
        }
        EXPECT_NE(Maps().GetFirstStep(), first);
        ClicksButton("cartoonPlay");
        EXPECT_FALSE(Maps().IsPlaying());
        Pictures("cartoon");
    }

    void SavesTheSpectra() {
        hand.Click(Spectrum(), QPoint(Spectrum().width() / 2, 4));
        user.ChoosesFile(folder.Path("spectra.xml"));
        user.MeetsDialog([this](QDialog& form) {
            Pictures("comments");
            hand.Click(*form.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok));
        });
        Chooses("Spectrum", "Save Spectra");
        EXPECT_THAT(folder.Read("spectra.xml"), StartsWith("<?xml"));
        EXPECT_THAT(folder.Read("spectra.xml"), HasSubstr("O2"));
    }

    void SavesAPicture(const char* format, const char* name) {
        user.MeetsDialog([this, format](QDialog& form) {
            auto& box = *form.findChild<QComboBox*>("Format");
            hand.ChooseEntry(box, format);
            Pictures(std::string("picture-") + format);
            hand.Click(*form.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save));
        });
        user.ChoosesFile(folder.Path(name));
        Chooses("File", "Save Picture");
        EXPECT_EQ(bench->Window().ShownText(), "Written: " + folder.Path(name));
    }

    void SavesPictures() {
        SavesAPicture("PNG", "view.png");
        QImageReader png(QString::fromStdString(folder.Path("view.png")));
        EXPECT_EQ(png.read().size(), Spectrum().size());
        SavesAPicture("SVG", "view.svg");
        EXPECT_THAT(folder.Read("view.svg"), HasSubstr("<svg"));
        SavesAPicture("PDF", "view.pdf");
        EXPECT_THAT(folder.Read("view.pdf"), StartsWith("%PDF-"));
    }

    void FindsEverythingTheNextDay() {
        hand.Click(Traces(), InTraces(0.5));
        hand.Press(Qt::Key_PageDown);
        const double place = PageStart();
        Leave();
        StartsTheProgram();
        ASSERT_NE(bench->GetDocuments().Current(), nullptr) << "the last recording is not open";
        EXPECT_EQ(Title(), "demo.edf[*] - Orvanta");
        EXPECT_NEAR(PageStart(), place, 0.1);
        EXPECT_THAT(Marked("artifact"), SizeIs(1));
        EXPECT_THAT(Marked("spike"), SizeIs(1));
        ASSERT_EQ(Analyses().Size(), 3U);
        EXPECT_EQ(Analyses().GetMain()->GetName(), "Eyes open vs closed - closed");
        EXPECT_EQ(Analyses().GetSecondary()->GetName(), "Eyes open vs closed - open");
        EXPECT_TRUE(Soon([this] { return Analyses().GetMain()->IsComputed(); }));
        EXPECT_TRUE(bench->GetViews().IsShown(ViewKind::Spectrum));
        EXPECT_TRUE(bench->GetViews().IsShown(ViewKind::Maps));
        constexpr int kLook = 500; // ms, until every view has followed the others
        QTest::qWait(kLook);
        Pictures("next-day");
    }

private:
    std::vector<std::string> Curves() const {
        test::RecordingDC dc;
        Traces().DrawPicture(dc, {Traces().width(), Traces().height()}, 1);
        return dc.CallsOf("curve");
    }
    std::vector<std::string> SignificanceMarks() const {
        test::RecordingDC dc;
        Spectrum().DrawPicture(dc, {Spectrum().width(), Spectrum().height()}, 1);
        return dc.CallsOf("polygon");
    }
    TMapWindow& FirstMap() const { return *Maps().GetMap(0); }
    /// Where an electrode of the first map is on the screen.
    QPoint ElectrodePlace(const std::string& name) const {
        const std::vector<ElectInfo>& electrodes = Maps().GetElectrodes();
        constexpr int kStep = 2;
        QPoint sum;
        int count = 0;
        for (int y = 0; y < FirstMap().height(); y += kStep) {
            for (int x = 0; x < FirstMap().width(); x += kStep) {
                const auto at = FirstMap().ElectrodeAt({x, y});
                if (at && electrodes[*at].Name == name) {
                    sum += QPoint(x, y);
                    ++count;
                }
            }
        }
        EXPECT_GT(count, 0) << name << " cannot be hit";
        return count > 0 ? sum / count : QPoint();
    }
};

TEST_F(ANewUser, ReviewsARecordingAndFindsItTheNextDay) {
    for (void (ANewUser::*step)() :
         {&ANewUser::OpensARecording, &ANewUser::PagesThroughTheTraces, &ANewUser::ScalesTheTraces,
          &ANewUser::MarksAnArtifactByDragging, &ANewUser::MarksAnEventByAClick,
          &ANewUser::TakesItBackAndDoesItAgain, &ANewUser::AnalysesRestingWithEyesClosed,
          &ANewUser::ComparesTwoConditions, &ANewUser::LooksAtTheMaps, &ANewUser::ClicksAnElectrode,
          &ANewUser::ClicksAnEpoch, &ANewUser::PlaysTheCartoon, &ANewUser::SavesTheSpectra,
          &ANewUser::SavesPictures, &ANewUser::FindsEverythingTheNextDay}) {
        (this->*step)();
        ASSERT_FALSE(HasFailure());
    }
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/host/review/app/story/story_user.h"

#include "host/chart_view/maps/cartoon_stat.h"
#include "host/review/app/events/event_editor.h"
#include "host/review/app/main_window/starter_macros.h"
#include "tests/support/qt/recording_dc.h"

#include <QAbstractButton>
#include <QDialog>
#include <QDir>
#include <QListView>
#include <QTest>

#include <cstdio>

namespace orvanta::test {

StoryUser::StoryUser() {
    review::InstallStarterMacros(folder.Path("data/MACRO/"));
}

void StoryUser::StartsTheProgram() {
    review::Workbench::Setup setup = Setup();
    setup.savesEvents = true;
    Start(setup, {});
    constexpr int kWidth = 1280;
    constexpr int kHeight = 720;
    bench->Window().showNormal(); // it may come up maximised
    bench->Window().resize(kWidth, kHeight);
    // No window manager does so.
    bench->Window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&bench->Window()));
    WaitUntilIdle();
}

void StoryUser::Chooses(const char* menu, const char* item) const {
    hand.Choose(*bench->Window().menuBar(), menu, item);
}

void StoryUser::WillTakeMacro(const char* name, const char* picture) {
    user.MeetsDialog([this, name, picture](QDialog& form) {
        auto& list = *form.findChild<QAbstractItemView*>("ListBoxMacro");
        const QModelIndexList found =
            list.model()->match(list.model()->index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << "no macro " << name;
        list.scrollTo(found[0]);
        hand.Click(*list.viewport(), list.visualRect(found[0]).center());
        if (picture != nullptr) {
            Pictures(picture);
        }
        hand.Click(*form.findChild<QAbstractButton*>("BtnAutoAverage"));
    });
}

void StoryUser::ClicksRow(const char* list, const std::string& name) const {
    auto* tree = bench->Window().findChild<QTreeWidget*>(list);
    ASSERT_NE(tree, nullptr) << list;
    for (int row = 0; row < tree->topLevelItemCount(); ++row) {
        const QTreeWidgetItem& item = *tree->topLevelItem(row);
        if (item.text(0).startsWith(QString::fromStdString(name))) {
            tree->scrollToItem(&item);
            const QRect place = tree->visualItemRect(&item);
            hand.Click(*tree->viewport(), {place.left() + 30, place.center().y()});
            return;
        }
    }
    FAIL() << "no row " << name << " in " << list;
}

void StoryUser::ClicksButton(const char* name) const {
    auto* button = bench->Window().findChild<QAbstractButton*>(name);
    ASSERT_NE(button, nullptr) << name;
    // A check box is hit at its box.
    hand.Click(*button, button->isCheckable() ? QPoint(8, button->height() / 2) : QPoint());
}

QString StoryUser::PictureFolder() {
    return qEnvironmentVariable("ORVANTA_STORY_PICTURES");
}

void StoryUser::Pictures(const std::string& what) const {
    ++pictures_;
    const QString folderName = PictureFolder();
    if (folderName.isEmpty()) {
        return;
    }
    WaitUntilIdle();
    ASSERT_TRUE(QDir().mkpath(folderName));
    const QString name =
        QStringLiteral("%1-%2.png").arg(pictures_, 2, 10, QChar('0')).arg(QString::fromStdString(what));
    ASSERT_TRUE(Screenshot(bench->Window()).save(QDir(folderName).filePath(name))) << name.toStdString();
}

review::TraceView& StoryUser::Traces() const {
    return static_cast<review::TraceView&>(*bench->Middle().Views().ViewOf(review::ViewKind::Traces));
}

TheChild& StoryUser::Spectrum() const {
    return *bench->Middle().Views().ViewOf(review::ViewKind::Spectrum);
}

CartoonStat& StoryUser::Maps() const {
    return dynamic_cast<CartoonStat&>(*bench->Middle().Views().ViewOf(review::ViewKind::Maps));
}

QPoint StoryUser::InTraces(double x, double y) const {
    return {static_cast<int>(Traces().width() * x), static_cast<int>(Traces().height() * y)};
}

std::string StoryUser::MarkedChannel() const {
    RecordingDC dc;
    Traces().DrawPicture(dc, {Traces().width(), Traces().height()}, 1);
    // A bar of three pixels stands before its name.
    constexpr int kBar = 3;
    bool barred = false;
    for (const std::string& call : dc.CallsOf({"fill", "text"})) {
        int left = 0;
        int right = 0;
        if (std::sscanf(call.c_str(), "fill %d,%*d,%d,", &left, &right) == 2) {
            barred = right - left == kBar;
        } else if (barred) {
            const std::size_t quote = call.find('"') + 1;
            return call.substr(quote, call.rfind('"') - quote);
        }
    }
    return {};
}

std::vector<EventRecord> StoryUser::Marked(const std::string& label) const {
    const review::EventEditor& editor = Events();
    std::vector<EventRecord> found;
    for (std::size_t i = 0; i < editor.Events().size(); ++i) {
        if (editor.IsOwn(i) && editor.Events()[i].Label == label) {
            found.push_back(editor.Events()[i]);
        }
    }
    return found;
}

bool StoryUser::Soon(const std::function<bool()>& isSo) {
    constexpr int kPatience = 20000; // ms
    return QTest::qWaitFor(isSo, kPatience);
}

} // namespace orvanta::test

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/manual_window.h"

#include "host/review/app/main_window/manual_page.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/idle.h"
#include "tests/support/temp_folder.h"

#include <QImage>
#include <QLineEdit>
#include <QPointer>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace {

using namespace orvanta;
using review::ManualPage;
using review::ManualWindow;

TEST(TargetOfAHeading, IsItsWordsWithDashes) {
    EXPECT_EQ(review::TargetOf("Keys and mouse").toStdString(), "keys-and-mouse");
    EXPECT_EQ(review::TargetOf("Events table (events.tsv)").toStdString(), "events-table-eventstsv");
}

class Manual : public testing::Test {
protected:
    Manual() {
        QImage wide(2000, 400, QImage::Format_RGB32);
        wide.fill(Qt::blue);
        EXPECT_TRUE(wide.save(QString::fromStdString(folder.Path("wide.png"))));
        std::string text = "# Contents\n\n[far](more.md#far-below) [here](#end)\n\n![](wide.png)\n\n";
        for (int i = 0; i < 100; ++i) {
            text += "line\n\n";
        }
        folder.Write("README.md", text + "## End\n\nthe end\n");
        text = "# More\n\n";
        for (int i = 0; i < 100; ++i) {
            text += "line\n\n";
        }
        folder.Write("more.md", text + "## Far below\n\nmany words\n\n");
        window = new ManualWindow(nullptr, QString::fromStdString(folder.Path("README.md")));
        window->resize(700, 500);
        window->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(window));
        page = window->findChild<ManualPage*>();
    }
    ~Manual() override { delete window; }

    int PictureWidth() const {
        const QImage picture =
            page->document()->resource(QTextDocument::ImageResource, QUrl("wide.png")).value<QImage>();
        return qRound(picture.width() / picture.devicePixelRatio());
    }
    std::string File() const { return page->source().fileName().toStdString(); }
    void Follows(const char* link) const {
        page->setSource(page->source().resolved(QUrl(link)));
        test::WaitUntilIdle();
    }

    test::TempFolder folder;
    QPointer<ManualWindow> window;
    ManualPage* page;
};

TEST_F(Manual, MakesPicturesFitTheWindow) {
    for (const int width : {700, 500, 900}) {
        window->resize(width, 500);
        EXPECT_TRUE(QTest::qWaitFor([this] {
            return std::abs(page->viewport()->width() - PictureWidth() - 8) <= 1; // margins of 4 on each side
        })) << width;
        EXPECT_EQ(page->horizontalScrollBar()->maximum(), 0) << width;
    }
}

TEST_F(Manual, LinksLeadToHeadingsOfThisAndOfOtherPages) {
    Follows("#end");
    EXPECT_EQ(File(), "README.md");
    EXPECT_GT(page->verticalScrollBar()->value(), 0);
    Follows("more.md#far-below");
    EXPECT_EQ(File(), "more.md");
    EXPECT_GT(page->verticalScrollBar()->value(), 0);
}

TEST_F(Manual, BackspaceLeadsBack) {
    Follows("more.md");
    QTest::keyClick(page, Qt::Key_Backspace);
    EXPECT_EQ(File(), "README.md");
    EXPECT_FALSE(page->isBackwardAvailable());
}

TEST_F(Manual, BackspaceLeadsToThePlaceThatWasLeft) {
    page->verticalScrollBar()->setValue(1234);
    Follows("more.md#far-below");
    QTest::keyClick(page, Qt::Key_Backspace);
    EXPECT_EQ(page->verticalScrollBar()->value(), 1234);
}

TEST_F(Manual, StaysAtItsPlaceWhenTheWindowChanges) {
    page->verticalScrollBar()->setValue(page->verticalScrollBar()->maximum() / 2);
    window->resize(500, 500);
    EXPECT_TRUE(QTest::qWaitFor([this] { return PictureWidth() < 500; }));
    EXPECT_NEAR(page->verticalScrollBar()->value(), page->verticalScrollBar()->maximum() / 2, 2);
}

// Laying out piece by piece takes seconds for a page with a long table.
TEST_F(Manual, LaysAPageOutOnce) {
    std::string text = "# Keys\n\n| Key | Does |\n|---|---|\n";
    for (int i = 0; i < 100; ++i) {
        text += "| key | something |\n";
    }
    folder.Write("table.md", text);
    QSignalSpy changes(page->document(), &QTextDocument::contentsChange);
    Follows("table.md");
    EXPECT_EQ(changes.count(), 2); // emptied, filled
    EXPECT_GT(page->verticalScrollBar()->maximum(), 1000);
}

TEST_F(Manual, FindsATextOnThisPageThenOnTheOthers) {
    const struct {
        const char *text, *page;
        bool found;
    } table[] = {{"The End", "README.md", true},
                 {"many words", "more.md", true},
                 {"nowhere", "more.md", false},
                 {"wide.png", "README.md", false}}; // the name of a picture is no text
    for (const auto& row : table) {
        EXPECT_EQ(page->Find(row.text), row.found) << row.text;
        if (row.found) {
            EXPECT_EQ(File(), row.page);
            EXPECT_EQ(page->textCursor().selectedText().toLower(), QString(row.text).toLower());
        }
    }
}

TEST_F(Manual, CtrlFGoesToTheSearchThatEnterStarts) {
    auto* search = window->findChild<QLineEdit*>("manualSearch");
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    QTest::keyClick(page, Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(search->hasFocus());
    QTest::keyClicks(search, "many words");
    QTest::keyClick(search, Qt::Key_Return);
    EXPECT_EQ(File(), "more.md");
    EXPECT_TRUE(window->isVisible());
}

} // namespace

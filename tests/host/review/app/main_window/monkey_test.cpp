// SPDX-License-Identifier: GPL-3.0-or-later
// Clicks and keys without sense: the application must stay as it is, or end as asked, without a word.
#include "host/chart_view/the_child.h"
#include "host/review/app/main_window/starter_macros.h"
#include "tests/host/review/app/main_window/workbench_fixture.h"

#include <QDialog>
#include <QTest>
#include <QTimer>

#include <random>

namespace {

using namespace orvanta;

/// Cancels whatever comes up.
class Impatient final : public owl::ModalGateway {
public:
    Impatient() : earlier_(owl::ReplaceModalGateway(this)) {}
    ~Impatient() override { owl::ReplaceModalGateway(earlier_); }

    int ShowMessage(HWND /*owner*/, const std::string& /*text*/, const std::string& /*caption*/,
                    unsigned type) override {
        return (type & 0xFU) == owl::kMbYesNo ? owl::kIdNo : owl::kIdOk;
    }
    int RunModal(QDialog& dialog) override {
        dialog.show();
        dialog.reject();
        return owl::kIdCancel;
    }
    std::optional<std::string> AskFileToOpen(HWND /*owner*/, const owl::FileQuestion& /*q*/) override {
        return std::nullopt;
    }
    std::optional<std::string> AskFileToSave(HWND /*owner*/, const owl::FileQuestion& /*q*/) override {
        return std::nullopt;
    }
    std::optional<owl::TColor> AskColor(HWND /*owner*/, owl::TColor /*color*/) override {
        return std::nullopt;
    }
    std::optional<owl::TFont> AskFont(HWND /*owner*/, const owl::TFont& /*font*/) override {
        return std::nullopt;
    }
    std::optional<std::string> AskText(HWND /*owner*/, const owl::TextQuestion& /*question*/) override {
        return std::nullopt;
    }

private:
    owl::ModalGateway* earlier_;
};

class Monkey : public test::WorkbenchFixture {
protected:
    unsigned Number(unsigned below) { return static_cast<unsigned>(random_() % below); }

    /// A visible widget anywhere in the window.
    QWidget* AnyWidget() {
        QList<QWidget*> shown;
        for (QWidget* widget : bench->Window().findChildren<QWidget*>()) {
            if (widget->isVisible() && !widget->isWindow()) {
                shown << widget;
            }
        }
        return shown.isEmpty() ? &bench->Window() : shown[Number(static_cast<unsigned>(shown.size()))];
    }
    void Click() {
        QWidget* widget = AnyWidget();
        const QPoint point(static_cast<int>(Number(static_cast<unsigned>(std::max(widget->width(), 1)))),
                           static_cast<int>(Number(static_cast<unsigned>(std::max(widget->height(), 1)))));
        if (Number(4) == 0) {
            QTest::mouseDClick(widget, Qt::LeftButton, {}, point);
        } else {
            QTest::mouseClick(widget, Number(4) == 0 ? Qt::RightButton : Qt::LeftButton, {}, point);
        }
    }
    void Press() {
        constexpr Qt::Key kKeys[] = {
            Qt::Key_Up,     Qt::Key_Down,     Qt::Key_Left,   Qt::Key_Right,     Qt::Key_Plus, Qt::Key_Minus,
            Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home,   Qt::Key_End,       Qt::Key_Tab,  Qt::Key_Escape,
            Qt::Key_Space,  Qt::Key_Return,   Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_A,    Qt::Key_7};
        QWidget* focused = QApplication::focusWidget();
        QTest::keyClick(focused != nullptr ? focused : &bench->Window(), kKeys[Number(std::size(kKeys))]);
    }
    void Choose() {
        QList<QAction*> items;
        for (QAction* action : bench->Window().findChildren<QAction*>()) {
            const bool leaves = action->objectName() == "fileQuit" || action->objectName().startsWith("help");
            if (action->isEnabled() && !action->isSeparator() && action->menu() == nullptr && !leaves) {
                items << action;
            }
        }
        items[Number(static_cast<unsigned>(items.size()))]->trigger();
    }
    void CloseWhatIsOpen() {
        while (QWidget* popup = QApplication::activePopupWidget()) {
            popup->close();
        }
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window != &bench->Window() && window->isVisible()) {
                window->close();
            }
        }
    }

private:
    std::mt19937 random_{20260105};
};

TEST_F(Monkey, BreaksNothing) {
    review::InstallStarterMacros(folder.Path("data/MACRO/"));
    const std::string files[] = {Demo("a.edf"), Demo("b.edf", 2), folder.Write("broken.edf", "?")};
    const Impatient user_;
    Start(files[0]);
    AddAnalysis();
    bench->GetAnalyses().Recompute();
    // Menus of buttons wait for an answer.
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout, &closer, [this] { CloseWhatIsOpen(); });
    closer.start(20);
    constexpr int kEvents = 2000;
    for (int i = 0; i < kEvents; ++i) {
        const unsigned what = Number(100);
        if (what < 50) {
            Click();
        } else if (what < 85) {
            Press();
        } else if (what < 98) {
            Choose();
        } else {
            bench->GetDocuments().Open(files[Number(std::size(files))]);
        }
        test::WaitUntilIdle(); // an event loop, which deletes what is to be deleted later, too
        CloseWhatIsOpen();
    }
    closer.stop();
    EXPECT_TRUE(bench->Window().isVisible());
    Leave();
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/host/review/app/monkey/monkey.h"

#include "host/toolkit/outlive_parent.h"

#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace orvanta::test {

namespace {

std::string NameOf(const QWidget& widget) {
    const QString name = widget.objectName();
    return std::string(widget.metaObject()->className()) + (name.isEmpty() ? "" : " ") + name.toStdString();
}

QWindow* WindowOf(const QWidget& widget) {
    return widget.window()->windowHandle();
}

/// Where it is in the window; parts that are scrolled away are not met.
QPoint InWindow(const QWidget& widget, const QPoint& point) {
    const QPoint at = widget.mapTo(widget.window(), point);
    const QSize size = WindowOf(widget)->size(); // less than the widget's where the screen ends
    return {std::clamp(at.x(), 0, std::max(size.width() - 1, 0)),
            std::clamp(at.y(), 0, std::max(size.height() - 1, 0))};
}

/// A key may take its window away before it is let go.
void SendKey(const QPointer<QWindow>& window, Qt::Key key, const QString& text,
             Qt::KeyboardModifiers modifiers) {
    for (const bool press : {true, false}) {
        if (window) {
            QTest::simulateEvent(window.data(), press, key, modifiers, text, false);
        }
    }
}

void SendKey(const QPointer<QWindow>& window, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    const bool letter = key >= Qt::Key_A && key <= Qt::Key_Z && modifiers == Qt::NoModifier;
    SendKey(window, key, letter ? QString(QChar('a' + (key - Qt::Key_A))) : QString(), modifiers);
}

} // namespace

Monkey::Monkey(Setup setup)
    : setup_(std::move(setup)), random_(setup_.seed), journal_("seed " + std::to_string(setup_.seed)),
      earlier_(owl::ReplaceModalGateway(this)) {
    qApp->installEventFilter(this);
}

Monkey::~Monkey() {
    qApp->removeEventFilter(this);
    owl::ReplaceModalGateway(earlier_);
}

QWidget& Monkey::AnyWidget(QWidget& window) {
    QList<QWidget*> shown;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->window() == &window && !widget->size().isEmpty()) {
            shown << widget;
        }
    }
    return shown.isEmpty() ? window : *shown[Number(static_cast<unsigned>(shown.size()))];
}

QPoint Monkey::AnyPoint(const QWidget& widget) {
    return {static_cast<int>(Number(static_cast<unsigned>(std::max(widget.width(), 1)))),
            static_cast<int>(Number(static_cast<unsigned>(std::max(widget.height(), 1))))};
}

Qt::KeyboardModifiers Monkey::AnyModifiers() {
    constexpr Qt::KeyboardModifiers kModifiers[] = {Qt::NoModifier,
                                                    Qt::NoModifier,
                                                    Qt::NoModifier,
                                                    Qt::ShiftModifier,
                                                    Qt::AltModifier,
                                                    Qt::ControlModifier,
                                                    Qt::ControlModifier | Qt::ShiftModifier};
    return kModifiers[Number(std::size(kModifiers))];
}

std::string Monkey::AnyText() {
    constexpr const char* kTexts[] = {"0",     "1",  "-1",        "0.5",      "1e9", "12,5",
                                      "99999", "",   "eyes open", "Größe µV", "nan", "a/b\\c",
                                      "&x",    "10", "<b>",       "O1-O2",    " ",   "%1"};
    return kTexts[Number(std::size(kTexts))];
}

void Monkey::ActOn(QWidget& window) {
    QWidget* target = QApplication::activePopupWidget();
    if (target == nullptr) {
        target = QApplication::activeModalWidget();
    }
    if (target == nullptr) {
        target = &window;
        for (QWidget* other : QApplication::topLevelWidgets()) {
            if (other != &window && other->isVisible() && other->windowHandle() != nullptr && Chance(30)) {
                target = other;
            }
        }
    }
    const unsigned what = Number(100);
    if (what < 36) {
        Click(*target);
    } else if (what < 46) {
        Drag(*target);
    } else if (what < 53) {
        Wheel(*target);
    } else if (what < 82) {
        Press(*target);
    } else if (what < 90) {
        Type(*target);
    } else {
        Choose(*target);
    }
}

void Monkey::Click(QWidget& window) {
    QWidget& widget = AnyWidget(window);
    const QPoint point = AnyPoint(widget);
    const Qt::MouseButton button = Chance(25) ? Qt::RightButton : Qt::LeftButton;
    const bool twice = Chance(20);
    journal_.Note((twice ? "double click on " : "click on ") + NameOf(widget) + ' ' +
                  std::to_string(point.x()) + ',' + std::to_string(point.y()));
    if (twice) {
        QTest::mouseDClick(WindowOf(widget), button, AnyModifiers(), InWindow(widget, point));
    } else {
        QTest::mouseClick(WindowOf(widget), button, AnyModifiers(), InWindow(widget, point));
    }
}

void Monkey::Drag(QWidget& window) {
    const QPointer<QWidget> widget(&AnyWidget(window));
    constexpr Qt::MouseButton kButtons[] = {Qt::LeftButton, Qt::LeftButton, Qt::RightButton,
                                            Qt::MiddleButton};
    const Qt::MouseButton button = kButtons[Number(std::size(kButtons))];
    const Qt::KeyboardModifiers modifiers = AnyModifiers();
    const QPointer<QWindow> screen(WindowOf(*widget));
    QPoint point = InWindow(*widget, AnyPoint(*widget));
    journal_.Note("drag in " + NameOf(*widget));
    QTest::mousePress(screen, button, modifiers, point);
    for (unsigned moves = 1 + Number(3); moves > 0 && widget && screen && WindowOf(*widget) == screen;
         --moves) {
        point = InWindow(*widget, AnyPoint(*widget));
        QTest::mouseMove(screen, point);
    }
    // The window may have become smaller on the way.
    if (screen && QRect({}, screen->size()).contains(point) && !Chance(5)) { // or it goes on
        QTest::mouseRelease(screen, button, modifiers, point);
    }
}

void Monkey::Wheel(QWidget& window) {
    QWidget& widget = AnyWidget(window);
    const QPoint point = AnyPoint(widget);
    constexpr int kNotch = 120;
    const int turn = (Chance(50) ? kNotch : -kNotch) * static_cast<int>(1 + Number(3));
    journal_.Note("wheel on " + NameOf(widget));
    QWheelEvent event(point, widget.mapToGlobal(point), {}, {0, turn}, Qt::NoButton, AnyModifiers(),
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

void Monkey::Press(QWidget& window) {
    constexpr Qt::Key kKeys[] = {
        Qt::Key_Up,     Qt::Key_Down,     Qt::Key_Left,   Qt::Key_Right,     Qt::Key_Plus,   Qt::Key_Minus,
        Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home,   Qt::Key_End,       Qt::Key_Tab,    Qt::Key_Escape,
        Qt::Key_Space,  Qt::Key_Return,   Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_7,      Qt::Key_F1,
        Qt::Key_F2,     Qt::Key_F5,       Qt::Key_F10,    Qt::Key_Menu,      Qt::Key_Insert, Qt::Key_Period};
    const int key = Chance(70) ? static_cast<int>(kKeys[Number(std::size(kKeys))])
                               : static_cast<int>(Qt::Key_A) + static_cast<int>(Number(26));
    const Qt::KeyboardModifiers modifiers = AnyModifiers();
    journal_.Note("key " + QKeySequence(key | static_cast<int>(modifiers)).toString().toStdString());
    SendKey(WindowOf(window), static_cast<Qt::Key>(key), modifiers);
}

void Monkey::Type(QWidget& window) {
    QList<QWidget*> edits;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        const bool takesText = qobject_cast<QLineEdit*>(widget) != nullptr ||
                               qobject_cast<QPlainTextEdit*>(widget) != nullptr ||
                               qobject_cast<QAbstractSpinBox*>(widget) != nullptr;
        if (takesText && widget->isVisible() && widget->isEnabled()) {
            edits << widget;
        }
    }
    if (edits.isEmpty()) {
        Press(window);
        return;
    }
    QWidget& edit = *edits[Number(static_cast<unsigned>(edits.size()))];
    const std::string text = AnyText();
    const QPointer<QWindow> screen(WindowOf(edit));
    journal_.Note("type \"" + text + "\" into " + NameOf(edit));
    edit.setFocus(Qt::MouseFocusReason);
    SendKey(screen, Qt::Key_A, Qt::ControlModifier);
    const QPointer<QWidget> there(&edit);
    for (const QChar letter : QString::fromStdString(text)) {
        if (screen && there) {
            SendKey(screen, Qt::Key_unknown, letter, {});
        }
    }
    if (screen && Chance(50)) {
        SendKey(screen, Chance(50) ? Qt::Key_Return : Qt::Key_Tab);
    }
}

void Monkey::Choose(QWidget& window) {
    QList<QAction*> items;
    for (QAction* action : window.findChildren<QAction*>()) {
        if (action->isEnabled() && !action->isSeparator() && action->menu() == nullptr &&
            action->objectName() != "fileQuit") { // which a key does often enough
            items << action;
        }
    }
    if (items.isEmpty()) {
        Press(window);
        return;
    }
    QAction& item = *items[Number(static_cast<unsigned>(items.size()))];
    journal_.Note("choose " + item.text().toStdString());
    item.trigger();
}

void Monkey::Tend(const QPointer<QWidget>& popup, int events) {
    if (!popup || !popup->isVisible()) {
        return;
    }
    if (events <= 0) {
        popup->close();
        return;
    }
    QTimer::singleShot(0, popup, [this, popup, events] { Tend(popup, events - 1); });
    ActOn(*popup);
}

bool Monkey::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show && watched->isWidgetType()) {
        auto& widget = static_cast<QWidget&>(*watched);
        auto* progress = qobject_cast<QProgressDialog*>(&widget);
        const bool waits = widget.windowType() == Qt::Popup || widget.isModal();
        if (waits && progress == nullptr && &widget != running_) {
            const QPointer<QWidget> popup(&widget);
            const int events = static_cast<int>(Number(5));
            QTimer::singleShot(0, &widget, [this, popup, events] { Tend(popup, events); });
        } else if (progress != nullptr) {
            constexpr int kPatience = 30; // ms
            QTimer::singleShot(Chance(50) ? 0 : kPatience, progress, [this, progress] {
                journal_.Note("cancel \"" + progress->labelText().toStdString() + '"');
                progress->cancel();
            });
        }
    }
    return QObject::eventFilter(watched, event);
}

int Monkey::ShowMessage(HWND /*owner*/, const std::string& text, const std::string& /*caption*/,
                        unsigned type) {
    const bool yes = Chance(50);
    journal_.Note((yes ? "yes to \"" : "no to \"") + text.substr(0, 90) + '"');
    if ((type & 0xFU) == owl::kMbYesNo) {
        return yes ? owl::kIdYes : owl::kIdNo;
    }
    return owl::kIdOk;
}

int Monkey::RunModal(QDialog& dialog) {
    constexpr int kMostDialogs = 3;
    journal_.Note("dialog \"" + dialog.windowTitle().toStdString() + '"');
    dialog.setModal(true);
    owl::OutliveParent(dialog);
    {
        const QScopedValueRollback running(running_, static_cast<QWidget*>(&dialog));
        dialog.show();
    }
    ++dialogs_;
    for (unsigned events = dialogs_ <= kMostDialogs ? Number(12) : 0; events > 0 && dialog.isVisible();
         --events) {
        ActOn(dialog);
        QCoreApplication::processEvents();
    }
    --dialogs_;
    while (QWidget* popup = QApplication::activePopupWidget()) {
        popup->close();
    }
    if (dialog.isVisible() && Chance(60)) {
        journal_.Note("accept \"" + dialog.windowTitle().toStdString() + '"');
        dialog.accept();
    }
    if (dialog.isVisible()) {
        journal_.Note("reject \"" + dialog.windowTitle().toStdString() + '"');
        dialog.reject();
    }
    return dialog.result() == QDialog::Accepted ? owl::kIdOk : owl::kIdCancel;
}

std::optional<std::string> Monkey::AskFileToOpen(HWND /*owner*/, const owl::FileQuestion& /*question*/) {
    return Chance(60) ? std::optional(AnyFile()) : std::nullopt;
}

std::optional<std::string> Monkey::AskFileToSave(HWND /*owner*/, const owl::FileQuestion& question) {
    constexpr const char* kNames[] = {"a.png", "b.svg", "c.pdf", "d.txt", "e.xml", "f", "none/g.txt"};
    if (Chance(40)) {
        return std::nullopt;
    }
    const std::string name = Chance(50)
                                 ? std::string(kNames[Number(std::size(kNames))])
                                 : "own." + question.extension.substr(question.extension.rfind('.') + 1);
    journal_.Note("save as " + name);
    return setup_.folder + name;
}

std::optional<owl::TColor> Monkey::AskColor(HWND /*owner*/, owl::TColor /*color*/) {
    return Chance(60) ? std::optional(Number(0x01000000)) : std::nullopt;
}

std::optional<owl::TFont> Monkey::AskFont(HWND /*owner*/, const owl::TFont& font) {
    return Chance(60)
               ? std::optional(owl::TFont{font.face, static_cast<int>(4 + Number(30)), Chance(50), false})
               : std::nullopt;
}

std::optional<std::string> Monkey::AskText(HWND /*owner*/, const owl::TextQuestion& /*question*/) {
    return Chance(60) ? std::optional(AnyText()) : std::nullopt;
}

} // namespace orvanta::test

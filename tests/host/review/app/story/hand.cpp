// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/host/review/app/story/hand.h"

#include "tests/support/qt/idle.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QScreen>
#include <QScrollArea>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>
#include <gtest/gtest.h>

#include <algorithm>

namespace orvanta::test {

namespace {

QPoint InWindow(const QWidget& widget, QPoint at) {
    return widget.mapTo(widget.window(), at.isNull() ? widget.rect().center() : at);
}

QString Plain(QString caption) {
    caption = caption.section('\t', 0, 0);
    caption.remove('&');
    return caption.endsWith("...") ? caption.chopped(3) : caption;
}

QAction* Find(const QList<QAction*>& actions, const QString& caption) {
    QAction* found = nullptr;
    QStringList there;
    for (QAction* action : actions) {
        const QString text = Plain(action->text());
        there << text;
        if (text == caption) {
            return action;
        }
        if (text.startsWith(caption)) {
            found = action;
        }
    }
    if (found == nullptr) {
        ADD_FAILURE() << "no item " << caption.toStdString() << " among " << there.join(", ").toStdString();
    }
    return found;
}

} // namespace

bool Hand::CanReach(QWidget& widget) {
    const QWidget* modal = QApplication::activeModalWidget();
    const char* whyNot =
        !widget.isVisible()   ? "cannot be seen"
        : !widget.isEnabled() ? "is disabled"
        : modal != nullptr && widget.window() != modal && widget.window()->windowType() != Qt::Popup
            ? "is behind a dialog"
            : nullptr;
    if (whyNot != nullptr) {
        ADD_FAILURE() << widget.metaObject()->className() << ' ' << widget.objectName().toStdString() << ' '
                      << whyNot;
    }
    for (QWidget* around = widget.parentWidget(); whyNot == nullptr && around != nullptr;
         around = around->parentWidget()) {
        if (auto* area = qobject_cast<QScrollArea*>(around)) {
            area->ensureWidgetVisible(&widget);
        }
    }
    if (QApplication::activeWindow() == nullptr) {
        widget.window()->activateWindow(); // as a window manager does with a window that is clicked on
        WaitUntilIdle();
    }
    return whyNot == nullptr;
}

void Hand::Click(QWidget& widget, QPoint at, Qt::KeyboardModifiers modifiers) const {
    if (CanReach(widget)) {
        QTest::mouseMove(widget.window()->windowHandle(), InWindow(widget, at));
        QTest::mouseClick(widget.window()->windowHandle(), Qt::LeftButton, modifiers, InWindow(widget, at));
        WaitUntilIdle();
    }
}

void Hand::DoubleClick(QWidget& widget, QPoint at) const {
    if (CanReach(widget)) {
        QTest::mouseDClick(widget.window()->windowHandle(), Qt::LeftButton, {}, InWindow(widget, at));
        WaitUntilIdle();
    }
}

void Hand::Drag(QWidget& widget, QPoint from, QPoint to, Qt::MouseButton button) const {
    if (CanReach(widget)) {
        QWindow* window = widget.window()->windowHandle();
        QTest::mousePress(window, button, {}, InWindow(widget, from));
        QTest::mouseMove(window, InWindow(widget, (from + to) / 2));
        QTest::mouseMove(window, InWindow(widget, to));
        QTest::mouseRelease(window, button, {}, InWindow(widget, to));
        WaitUntilIdle();
    }
}

void Hand::Turn(QWidget& widget, QPoint at, int notches, Qt::KeyboardModifiers modifiers) const {
    if (CanReach(widget)) {
        constexpr int kNotch = 120;
        QWheelEvent event(at, widget.mapToGlobal(at), {}, {0, kNotch * notches}, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &event);
        WaitUntilIdle();
    }
}

void Hand::Press(Qt::Key key, Qt::KeyboardModifiers modifiers) const {
    QWidget* front = FrontWindow();
    ASSERT_NE(front, nullptr) << "there is no window";
    QTest::keyClick(front->windowHandle(), key, modifiers);
    WaitUntilIdle();
}

void Hand::Choose(QMenuBar& bar, const QString& menu, const QString& item) const {
    QAction* title = Find(bar.actions(), menu);
    if (title == nullptr || title->menu() == nullptr) {
        return;
    }
    Click(bar, bar.actionGeometry(title).center());
    ClickItem(*title->menu(), item);
}

void Hand::ClickItem(QMenu& menu, const QString& item) const {
    QAction* action = Find(menu.actions(), item);
    if (action != nullptr && !action->isEnabled()) {
        ADD_FAILURE() << item.toStdString() << " cannot be chosen";
        menu.close();
    } else if (action != nullptr) {
        Click(menu, menu.actionGeometry(action).center());
    }
}

void Hand::ChooseEntry(QComboBox& box, const QString& entry) const {
    Click(box);
    QAbstractItemView& list = *box.view();
    const int row = box.findText(entry, Qt::MatchStartsWith);
    ASSERT_GE(row, 0) << "no entry " << entry.toStdString();
    const QModelIndex index = list.model()->index(row, box.modelColumn());
    list.scrollTo(index);
    WaitUntilIdle();
    Click(*list.viewport(), list.visualRect(index).center());
}

QWidget* FrontWindow() {
    for (QWidget* front : {QApplication::activePopupWidget(), QApplication::activeModalWidget(),
                           QApplication::activeWindow()}) {
        if (front != nullptr) {
            return front;
        }
    }
    // Where no window manager does so, nothing gives the focus back when a menu or a dialog has gone.
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && qobject_cast<QMainWindow*>(window) != nullptr) {
            window->activateWindow();
            WaitUntilIdle();
            return window;
        }
    }
    return nullptr;
}

QImage Screenshot(QWidget& main) {
    const QRect area = main.frameGeometry();
    if (QGuiApplication::platformName() != "offscreen") {
        return main.screen()->grabWindow().toImage();
    }
    QImage image(area.size(), QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    QList<QWidget*> windows{&main};
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window != &main && window->isVisible()) {
            windows << window;
        }
    }
    // Menus over dialogs.
    std::ranges::stable_sort(windows, {}, [&](const QWidget* window) {
        return window == &main ? 0 : window->windowType() == Qt::Popup ? 2 : 1;
    });
    for (QWidget* window : windows) {
        painter.drawPixmap(window->pos() - area.topLeft(), window->grab());
    }
    return image;
}

} // namespace orvanta::test

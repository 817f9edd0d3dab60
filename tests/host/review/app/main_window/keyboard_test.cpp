// SPDX-License-Identifier: GPL-3.0-or-later
// The application without a mouse, and as a screen reader tells it.
#include "tests/host/review/app/main_window/workbench_fixture.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>

namespace {

using namespace orvanta;
using testing::IsEmpty;

/// "QToolButton view_close in QFrame"
std::string Described(const QWidget& widget) {
    return std::string(widget.metaObject()->className()) + ' ' + widget.objectName().toStdString() + " in " +
           widget.parentWidget()->metaObject()->className();
}

/// What a screen reader says when it comes to the widget.
QString SpokenName(QWidget& widget) {
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&widget);
    return told != nullptr ? told->text(QAccessible::Name) : QString();
}

bool IsControl(const QWidget& widget) {
    return qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
           qobject_cast<const QComboBox*>(&widget) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(&widget) != nullptr ||
           qobject_cast<const QAbstractItemView*>(&widget) != nullptr ||
           qobject_cast<const QLineEdit*>(&widget) != nullptr;
}

/// Part of another control, which speaks for it.
bool IsInside(const QWidget& widget) {
    const QWidget* parent = widget.parentWidget();
    return widget.objectName().startsWith("qt_") || (parent != nullptr && IsControl(*parent)) ||
           widget.inherits("QComboBoxPrivateContainer") || widget.inherits("QHeaderView");
}

class Keyboard : public test::WorkbenchFixture {
protected:
    /// With an analysis, so that every view and panel is there.
    void StartWithEverything() {
        Start(Demo());
        AddAnalysis();
        bench->GetAnalyses().Recompute();
        test::WaitUntilIdle();
    }
    std::vector<QWidget*> Visible() const {
        std::vector<QWidget*> visible;
        for (QWidget* widget : bench->Window().findChildren<QWidget*>()) {
            if (widget->isVisible() && !IsInside(*widget)) {
                visible.push_back(widget);
            }
        }
        return visible;
    }
};

TEST_F(Keyboard, EverythingThatTakesTheFocusHasASpokenName) {
    StartWithEverything();
    std::vector<std::string> mute;
    for (QWidget* widget : Visible()) {
        if ((widget->focusPolicy() != Qt::NoFocus || IsControl(*widget)) && SpokenName(*widget).isEmpty()) {
            mute.push_back(Described(*widget));
        }
    }
    EXPECT_THAT(mute, IsEmpty());
}

TEST_F(Keyboard, TabComesToEveryControl) {
    StartWithEverything();
    std::vector<std::string> left;
    for (QWidget* widget : Visible()) {
        if (IsControl(*widget) && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus) == 0) {
            left.push_back(Described(*widget) + " \"" + SpokenName(*widget).toStdString() + '"');
        }
    }
    EXPECT_THAT(left, IsEmpty());
}

} // namespace

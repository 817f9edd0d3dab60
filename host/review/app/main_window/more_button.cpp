// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/more_button.h"

#include "host/review/app/main_window/host_text.h"
#include "host/toolkit/control_text.h"

#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QMenu>
#include <QSlider>
#include <QStyleOption>
#include <QStylePainter>
#include <QToolBar>

namespace orvanta::review {

namespace {

void AddButton(QMenu& menu, QToolButton& button) {
    QAction* action = menu.addAction(button.icon(), owl::AsCaption(button.toolTip()), &button,
                                     [&button] { button.click(); });
    action->setEnabled(button.isEnabled());
    action->setCheckable(button.isCheckable());
    action->setChecked(button.isChecked());
}

void AddBox(QMenu& menu, QComboBox& box) {
    QMenu* choices = menu.addMenu(owl::AsCaption(box.toolTip()));
    choices->setEnabled(box.isEnabled());
    for (int i = 0; i < box.count(); ++i) {
        QAction* choice = choices->addAction(owl::AsCaption(box.itemText(i)), &box, [&box, i] {
            box.setCurrentIndex(i);
            Q_EMIT box.activated(i);
        });
        choice->setCheckable(true);
        choice->setChecked(i == box.currentIndex());
    }
}

void AddSlider(QMenu& menu, QSlider& slider) {
    QMenu* positions = menu.addMenu(owl::AsCaption(slider.toolTip()));
    constexpr int kSteps = 4;
    for (int i = 0; i <= kSteps; ++i) {
        const int value = slider.minimum() + (slider.maximum() - slider.minimum()) * i / kSteps;
        QAction* position = positions->addAction(QString::number(value), &slider,
                                                 [&slider, value] { slider.setValue(value); });
        position->setCheckable(true);
        position->setChecked(value == slider.value());
    }
}

} // namespace

MoreButton::MoreButton(QToolBar& bar, QWidget* parent)
    : QToolButton(parent), bar_(bar), menu_(new QMenu(this)) {
    setObjectName("view_more");
    setText(QStringLiteral("»"));
    setToolTip(HostQText("viewMore", "What the tool bar has no room for"));
    setAccessibleName(toolTip());
    setAutoRaise(true);
    setFocusPolicy(Qt::TabFocus);
    setPopupMode(InstantPopup);
    setMenu(menu_);
    connect(menu_, &QMenu::aboutToShow, this, &MoreButton::Fill);
    // Qt's own button opens nothing for a bar of widgets.
    if (auto* none = bar.findChild<QToolButton*>("qt_toolbar_ext_button")) {
        none->setMaximumSize(0, 0);
    }
    bar.installEventFilter(this);
    Follow();
}

bool MoreButton::eventFilter(QObject* watched, QEvent* event) {
    const bool changes = event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest;
    if (changes && !queued_) {
        queued_ = true;
        QMetaObject::invokeMethod(
            this, [this] { Follow(); }, Qt::QueuedConnection);
    }
    return QToolButton::eventFilter(watched, event);
}

void MoreButton::paintEvent(QPaintEvent* /*event*/) {
    QStyleOptionToolButton option;
    initStyleOption(&option);
    option.features &= ~QStyleOptionToolButton::HasMenu; // the mark says so already
    QStylePainter(this).drawComplexControl(QStyle::CC_ToolButton, option);
}

void MoreButton::Follow() {
    queued_ = false;
    const int room = bar_.width() + (isHidden() ? 0 : sizeHint().width());
    setVisible(bar_.sizeHint().width() > room);
}

void MoreButton::Fill() {
    qDeleteAll(menu_->findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
    menu_->clear();
    for (QAction* place : bar_.actions()) {
        QWidget* gadget = bar_.widgetForAction(place);
        if (gadget == nullptr || !gadget->isHidden()) {
            continue;
        }
        if (auto* button = qobject_cast<QToolButton*>(gadget)) {
            AddButton(*menu_, *button);
        } else if (auto* box = qobject_cast<QComboBox*>(gadget)) {
            AddBox(*menu_, *box);
        } else if (auto* slider = qobject_cast<QSlider*>(gadget)) {
            AddSlider(*menu_, *slider);
        } else if (const auto* text = qobject_cast<QLabel*>(gadget)) {
            menu_->addAction(owl::AsCaption(text->text()))->setEnabled(false);
        } else {
            menu_->addSeparator();
        }
    }
}

} // namespace orvanta::review

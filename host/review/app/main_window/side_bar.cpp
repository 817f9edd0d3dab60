// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/side_bar.h"

#include "host/review/app/main_window/host_text.h"

#include <QTabWidget>

namespace orvanta::review {

SideBar::SideBar(QWidget* parent)
    : QDockWidget(HostQText("sideBar", "Side Bar"), parent), tabs_(new QTabWidget(this)) {
    setObjectName(QStringLiteral("SideBar")); // under which the layout is stored
    setFeatures(DockWidgetMovable);
    tabs_->setDocumentMode(true);
    setWidget(tabs_);
    hide();
}

SideBar::~SideBar() {
    while (tabs_->count() > 0) {
        RemovePanel(*tabs_->widget(0));
    }
}

bool SideBar::Has(const QWidget& panel) const {
    return tabs_->indexOf(&panel) >= 0;
}

void SideBar::AddPanel(QWidget& panel, bool show, bool activate) {
    if (!Has(panel) && panel.parentWidget() == nullptr) {
        tabs_->addTab(&panel, panel.windowTitle());
        tabs_->setTabVisible(tabs_->indexOf(&panel), show);
    }
    if (Has(panel) && activate) {
        tabs_->setTabVisible(tabs_->indexOf(&panel), true);
        tabs_->setCurrentWidget(&panel);
    }
}

void SideBar::RemovePanel(QWidget& panel) {
    if (Has(panel)) {
        tabs_->removeTab(tabs_->indexOf(&panel));
        panel.hide();
        panel.setParent(nullptr);
    }
}

void SideBar::Update() {
    bool any = false;
    for (int i = 0; i < tabs_->count(); ++i) {
        any = any || tabs_->isTabVisible(i);
    }
    setVisible(any);
}

} // namespace orvanta::review

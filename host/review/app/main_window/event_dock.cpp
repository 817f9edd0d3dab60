// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/event_dock.h"

#include "host/review/app/events/event_list.h"
#include "host/review/app/main_window/host_text.h"
#include "host/review/app/main_window/text_setting.h"
#include "spectra_contract/platform.h"

#include <QCloseEvent>

#include <utility>

namespace orvanta::review {

namespace {

constexpr const char* kWanted = "EventList";
constexpr const char* kColumns = "EventListColumns";

} // namespace

EventDock::EventDock(QWidget* parent, GenericPlatform& platform)
    : QDockWidget(HostQText("eventList", "Events"), parent), platform_(platform) {
    setObjectName(QStringLiteral("EventDock")); // under which the layout is stored
    hide();
}

void EventDock::Open(EventEditor& events, std::function<void(const XTimeInterval&)> goTo) {
    Close();
    panel_ = new EventListPanel(this, events, std::move(goTo));
    panel_->RestoreColumns(ReadText(platform_, kColumns));
    setWidget(panel_);
    setVisible(IsWanted());
}

void EventDock::Close() {
    if (panel_ != nullptr) {
        Store();
        hide();
        delete std::exchange(panel_, nullptr);
    }
}

void EventDock::Store() {
    if (panel_ != nullptr) {
        WriteText(platform_, kColumns, panel_->Columns());
    }
}

bool EventDock::IsWanted() const {
    return platform_.GetUser()->GetInt(kHostSection, kWanted, 0) != 0;
}

void EventDock::Want(bool wanted) {
    platform_.GetUser()->PutInt(kHostSection, kWanted, wanted ? 1 : 0);
    setVisible(wanted && panel_ != nullptr);
    if (isVisible()) {
        raise();
        panel_->FocusList();
    }
}

void EventDock::closeEvent(QCloseEvent* event) {
    QDockWidget::closeEvent(event);
    Want(false);
}

} // namespace orvanta::review

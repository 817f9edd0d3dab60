// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/event_guard.h"

#include "host/toolkit/form_texts.h"
#include "host/toolkit/message_module.h"
#include "host/toolkit/modal_gateway.h"

#include <QApplication>

namespace owl {

void TellFailure(const std::exception& failure) {
    qInfo("%s", failure.what());
    const PModule* messages = PModule::Named("Orvanta");
    const std::string what = TextOr(messages, "HOST", "notFinished", "This could not be finished:");
    CurrentModalGateway().ShowMessage(HWND(QApplication::activeWindow()), what + "\n" + failure.what(),
                                      TextOr(messages, "HOST", "error", "Error"), kMbOk | kMbIconStop);
}

} // namespace owl

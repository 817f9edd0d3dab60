// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/gui.h"

#include "host/review/app/progress_box.h"
#include "host/toolkit/form_texts.h"
#include "host/toolkit/message_module.h"
#include "host/toolkit/modal_gateway.h"

#include <QApplication>

namespace orvanta::review {

namespace {

HWND ActiveWindow() {
    return HWND(QApplication::activeWindow());
}

std::string Title(const char* key, const char* builtIn) {
    return owl::TextOr(PModule::Named("Orvanta"), "HOST", key, builtIn);
}

} // namespace

void Gui::ShowError(const std::string& text) const {
    qInfo("%s", text.c_str()); // what went wrong is in the log, too, when the box is gone
    owl::CurrentModalGateway().ShowMessage(ActiveWindow(), text, Title("error", "Error"),
                                           owl::kMbOk | owl::kMbIconStop);
}

void Gui::ShowWarning(const std::string& text) const {
    qInfo("%s", text.c_str());
    owl::CurrentModalGateway().ShowMessage(ActiveWindow(), text, Title("warning", "Warning"),
                                           owl::kMbOk | owl::kMbIconExclamation);
}

std::unique_ptr<GenericProgress> Gui::CreateProgress(const std::string& text) const {
    return std::make_unique<ProgressBox>(text, QApplication::activeWindow());
}

} // namespace orvanta::review

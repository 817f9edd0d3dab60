// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/qt/scripted_user.h"

namespace orvanta::test {

ScriptedUser::ScriptedUser() : earlier_(owl::ReplaceModalGateway(this)) {}

ScriptedUser::~ScriptedUser() {
    owl::ReplaceModalGateway(earlier_);
}

int ScriptedUser::ShowMessage(HWND owner, const std::string& text, const std::string& caption,
                              unsigned type) {
    messages_.push_back({owner, text, caption, type});
    return Answer;
}

int ScriptedUser::RunModal(owl::ModalForm& form) {
    ++formsShown_;
    if (OnForm) {
        OnForm(form);
    }
    return owl::kIdOk;
}

CursorLog::CursorLog() : earlier_(owl::ReplaceCursorDisplay(this)) {}

CursorLog::~CursorLog() {
    owl::ReplaceCursorDisplay(earlier_);
}

} // namespace orvanta::test

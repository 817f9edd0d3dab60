// SPDX-License-Identifier: GPL-3.0-or-later
// A user who answers forms and message boxes as a test says, and a cursor that is written down.
#pragma once

#include "host/toolkit/modal_gateway.h"
#include "host/toolkit/wait_cursor.h"

#include <functional>
#include <string>
#include <vector>

namespace orvanta::test {

/// Takes the place of the user while it lives.
class ScriptedUser final : public owl::ModalGateway {
public:
    struct Message {
        HWND owner;
        std::string text, caption;
        unsigned type;
        bool operator==(const Message&) const = default;
    };

    ScriptedUser();
    ~ScriptedUser() override;
    ScriptedUser(const ScriptedUser&) = delete;
    ScriptedUser& operator=(const ScriptedUser&) = delete;

    int ShowMessage(HWND owner, const std::string& text, const std::string& caption, unsigned type) override;
    int RunModal(owl::ModalForm& form) override;

    /// What the user does with a form; nothing by default.
    std::function<void(owl::ModalForm&)> OnForm;
    /// The answer to every message.
    int Answer = owl::kIdOk;
    const std::vector<Message>& Messages() const { return messages_; }
    int FormsShown() const { return formsShown_; }

private:
    owl::ModalGateway* earlier_;
    std::vector<Message> messages_;
    int formsShown_ = 0;
};

/// Writes down which cursors are shown (their number) and restored (0) while it lives.
class CursorLog final : public owl::CursorDisplay {
public:
    CursorLog();
    ~CursorLog() override;
    CursorLog(const CursorLog&) = delete;
    CursorLog& operator=(const CursorLog&) = delete;

    void Show(unsigned cursor) override { log_.push_back(cursor); }
    void Restore() override { log_.push_back(0); }
    const std::vector<unsigned>& Log() const { return log_; }

private:
    owl::CursorDisplay* earlier_;
    std::vector<unsigned> log_;
};

} // namespace orvanta::test

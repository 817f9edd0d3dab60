// SPDX-License-Identifier: GPL-3.0-or-later
// A user who answers dialogs, choosers and message boxes as a test says, and a cursor that is written down.
#pragma once

#include "host/toolkit/modal_gateway.h"
#include "host/toolkit/wait_cursor.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

class QWidget;

namespace orvanta::test {

/// Takes the place of the user while it lives. What comes up is met by the steps in the order in which the
/// test gave them; something that comes up without its step, and a step that is left over, fail the test.
class ScriptedUser final : public owl::ModalGateway {
public:
    struct Message {
        HWND owner;
        std::string text, caption;
        unsigned type;
        bool operator==(const Message&) const = default;
    };
    struct FileRequest {
        bool save;
        owl::FileQuestion question;
        bool operator==(const FileRequest&) const = default;
    };

    ScriptedUser();
    ~ScriptedUser() override;
    ScriptedUser(const ScriptedUser&) = delete;
    ScriptedUser& operator=(const ScriptedUser&) = delete;

    // Steps.
    /// \param meanwhile what happens while the message is shown
    ScriptedUser& AnswersMessage(int answer, std::function<void()> meanwhile = {});
    /// The user does so with the dialog that comes up, which is shown by then and must be closed in the end.
    ScriptedUser& MeetsDialog(std::function<void(QDialog&)> action);
    /// The same for a dialog of this class.
    template <typename Form>
    ScriptedUser& Meets(std::function<void(Form&)> action);
    ScriptedUser& ChoosesFile(std::optional<std::string> path);
    ScriptedUser& ChoosesColor(std::optional<owl::TColor> color);
    ScriptedUser& ChoosesFont(std::optional<owl::TFont> font, std::function<void()> meanwhile = {});
    ScriptedUser& Enters(std::optional<std::string> text);

    // What came up, in order.
    const std::vector<Message>& Messages() const { return messages_; }
    const std::vector<FileRequest>& FileRequests() const { return files_; }
    const std::vector<owl::TextQuestion>& TextQuestions() const { return texts_; }
    const std::vector<owl::TColor>& ColorsOffered() const { return colors_; }
    const std::vector<owl::TFont>& FontsOffered() const { return fonts_; }
    int DialogsShown() const { return dialogsShown_; }

    int ShowMessage(HWND owner, const std::string& text, const std::string& caption, unsigned type) override;
    int RunModal(QDialog& dialog) override;
    std::optional<std::string> AskFileToOpen(HWND owner, const owl::FileQuestion& question) override;
    std::optional<std::string> AskFileToSave(HWND owner, const owl::FileQuestion& question) override;
    std::optional<owl::TColor> AskColor(HWND owner, owl::TColor color) override;
    std::optional<owl::TFont> AskFont(HWND owner, const owl::TFont& font) override;
    std::optional<std::string> AskText(HWND owner, const owl::TextQuestion& question) override;

private:
    struct Step {
        std::string kind = {}; ///< "message", "dialog", "file", "color", "font", "text"
        int answer = owl::kIdOk;
        std::function<void(QDialog&)> action = {};
        std::function<void()> meanwhile = {};
        std::optional<std::string> text = {};
        std::optional<owl::TColor> color = {};
        std::optional<owl::TFont> font = {};
    };

    ScriptedUser& Add(Step step);
    /// The next step; a failure and an empty one when it is of another kind. \param what for the failure's
    /// text
    Step Take(const std::string& kind, const std::string& what);
    std::optional<std::string> AskFile(bool save, const owl::FileQuestion& question);

    owl::ModalGateway* earlier_;
    std::deque<Step> steps_;
    std::vector<Message> messages_;
    std::vector<FileRequest> files_;
    std::vector<owl::TextQuestion> texts_;
    std::vector<owl::TColor> colors_;
    std::vector<owl::TFont> fonts_;
    int dialogsShown_ = 0;
};

template <typename Form>
ScriptedUser& ScriptedUser::Meets(std::function<void(Form&)> action) {
    return MeetsDialog(
        [action = std::move(action)](QDialog& dialog) { action(dynamic_cast<Form&>(dialog)); });
}

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

// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/qt/scripted_user.h"

#include "host/toolkit/outlive_parent.h"

#include <QDialog>
#include <gtest/gtest.h>

#include <utility>

namespace orvanta::test {

ScriptedUser::ScriptedUser() : earlier_(owl::ReplaceModalGateway(this)) {}

ScriptedUser::~ScriptedUser() {
    owl::ReplaceModalGateway(earlier_);
    for (const Step& step : steps_) {
        ADD_FAILURE() << "the user was to meet a " << step.kind << ", and none came up";
    }
}

ScriptedUser& ScriptedUser::Add(Step step) {
    steps_.push_back(std::move(step));
    return *this;
}

ScriptedUser& ScriptedUser::AnswersMessage(int answer, std::function<void()> meanwhile) {
    Step step{"message"};
    step.answer = answer;
    step.meanwhile = std::move(meanwhile);
    return Add(std::move(step));
}

ScriptedUser& ScriptedUser::MeetsDialog(std::function<void(QDialog&)> action) {
    Step step{"dialog"};
    step.action = std::move(action);
    return Add(std::move(step));
}

ScriptedUser& ScriptedUser::ChoosesFile(std::optional<std::string> path) {
    Step step{"file"};
    step.text = std::move(path);
    return Add(std::move(step));
}

ScriptedUser& ScriptedUser::ChoosesColor(std::optional<owl::TColor> color) {
    Step step{"color"};
    step.color = color;
    return Add(std::move(step));
}

ScriptedUser& ScriptedUser::ChoosesFont(std::optional<owl::TFont> font, std::function<void()> meanwhile) {
    Step step{"font"};
    step.font = std::move(font);
    step.meanwhile = std::move(meanwhile);
    return Add(std::move(step));
}

ScriptedUser& ScriptedUser::Enters(std::optional<std::string> text) {
    Step step{"text"};
    step.text = std::move(text);
    return Add(std::move(step));
}

ScriptedUser::Step ScriptedUser::Take(const std::string& kind, const std::string& what) {
    if (steps_.empty() || steps_.front().kind != kind) {
        ADD_FAILURE() << "unexpected " << kind << ": " << what << "; the user expects "
                      << (steps_.empty() ? "nothing more" : "a " + steps_.front().kind);
        return {kind, owl::kIdCancel};
    }
    Step step = std::move(steps_.front());
    steps_.pop_front();
    return step;
}

int ScriptedUser::ShowMessage(HWND owner, const std::string& text, const std::string& caption,
                              unsigned type) {
    messages_.push_back({owner, text, caption, type});
    const Step step = Take("message", caption + ": " + text);
    if (step.meanwhile) {
        step.meanwhile();
    }
    return step.answer;
}

int ScriptedUser::RunModal(QDialog& dialog) {
    ++dialogsShown_;
    const Step step = Take("dialog", dialog.windowTitle().toStdString());
    if (!step.action) {
        return owl::kIdCancel;
    }
    dialog.setModal(true);
    owl::OutliveParent(dialog);
    dialog.show();
    step.action(dialog);
    if (dialog.isVisible()) {
        ADD_FAILURE() << "the user left the dialog open: " << dialog.windowTitle().toStdString();
        dialog.reject();
    }
    return dialog.result() == QDialog::Accepted ? owl::kIdOk : owl::kIdCancel;
}

std::optional<std::string> ScriptedUser::AskFile(bool save, const owl::FileQuestion& question) {
    files_.push_back({save, question});
    return Take("file", question.title + " " + question.name).text;
}

std::optional<std::string> ScriptedUser::AskFileToOpen(HWND /*owner*/, const owl::FileQuestion& question) {
    return AskFile(false, question);
}

std::optional<std::string> ScriptedUser::AskFileToSave(HWND /*owner*/, const owl::FileQuestion& question) {
    return AskFile(true, question);
}

std::optional<owl::TColor> ScriptedUser::AskColor(HWND /*owner*/, owl::TColor color) {
    colors_.push_back(color);
    return Take("color", "").color;
}

std::optional<owl::TFont> ScriptedUser::AskFont(HWND /*owner*/, const owl::TFont& font) {
    fonts_.push_back(font);
    const Step step = Take("font", font.face);
    if (step.meanwhile) {
        step.meanwhile();
    }
    return step.font;
}

std::optional<std::string> ScriptedUser::AskText(HWND /*owner*/, const owl::TextQuestion& question) {
    texts_.push_back(question);
    return Take("text", question.prompt).text;
}

CursorLog::CursorLog() : earlier_(owl::ReplaceCursorDisplay(this)) {}

CursorLog::~CursorLog() {
    owl::ReplaceCursorDisplay(earlier_);
}

} // namespace orvanta::test

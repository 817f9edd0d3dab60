// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/macro_file_name.h"

#include "host/toolkit/modal_gateway.h"
#include "host/toolkit/services.h"
#include "side_bar/texts.h"

#include <cerrno>
#include <cstring>
#include <optional>
#include <sstream>
#include <string>

using orvanta::side_bar::FillIn;
using orvanta::side_bar::MacroText;

namespace {

constexpr int kNameLimit = 255;

std::string HexText(int number) {
    std::ostringstream text;
    text << std::hex << number;
    return text.str();
}

/// The message boxes of one question for a name.
class Boxes {
public:
    explicit Boxes(HWND owner) : owner_(owner) {}

    void Error(const std::string& text) const {
        Show(text, MacroText("ERROR", "Error"), owl::kMbIconExclamation);
    }
    void Warning(const std::string& text, unsigned type = owl::kMbIconExclamation) const {
        Show(text, WarningTitle(), type);
    }
    void Titled(const std::string& text, const std::string& title) const {
        Show(text, title, owl::kMbIconExclamation);
    }
    bool Agrees(const std::string& question) const {
        return Show(question, WarningTitle(), owl::kMbYesNo + owl::kMbIconExclamation) == owl::kIdYes;
    }

private:
    static std::string WarningTitle() { return MacroText("WARNING", "Warning"); }
    int Show(const std::string& text, const std::string& title, unsigned type) const {
        return owl::CurrentModalGateway().ShowMessage(owner_, text, title, type);
    }

    HWND owner_;
};

/// 0 when the file may be written or does not exist yet.
int CheckAccess(const std::string& path, const Boxes& boxes) {
    const int error = owl::CurrentServices().files->Access(path, owl::FileAccess::kWritable);
    if (error == 0 || error == ENOENT) {
        return 0;
    }
    if (error == EACCES) {
        boxes.Error(MacroText("PERMISSION_DENIED", "Permission denied"));
        return MacroFileNameCode::Denied;
    }
    boxes.Titled(FillIn(MacroText("ACCESS_ERROR", "The following error code was returned: %d (%x)"),
                        {std::to_string(error), HexText(error)}),
                 MacroText("ACCESS_ERROR_TITLE", "File Access Error"));
    return MacroFileNameCode::AccessError + error;
}

/// 0 when there is no such file or the user wants it overwritten.
int AskToOverwrite(const std::string& path, const Boxes& boxes) {
    if (owl::CurrentServices().files->Access(path, owl::FileAccess::kExists) != 0) {
        return 0;
    }
    const auto refused = [&boxes](int code) {
        boxes.Warning(MacroText("OPERATION_ABORTED", "Operation aborted"));
        return code;
    };
    if (!boxes.Agrees(
            MacroText("OVERWRITE", "A macro with this name already exists. Do you want to overwrite it?"))) {
        return refused(MacroFileNameCode::OverwriteRefused);
    }
    if (!boxes.Agrees(MacroText("OVERWRITE_AGAIN", "This will erase the old macro. Proceed anyway?"))) {
        return refused(MacroFileNameCode::EraseRefused);
    }
    return 0;
}

} // namespace

int GetMacroFileName(HWND parent, const char* title, const char* prompt, const char* defaultName,
                     const char* folder, const char* extension, char* buffer, int size) {
    const Boxes boxes(parent);
    const std::optional<std::string> name =
        owl::CurrentModalGateway().AskText(parent, {title, prompt, defaultName, kNameLimit});
    if (!name) {
        boxes.Warning(MacroText("DISCARDED", "Macro file changes discarded"), owl::kMbOk);
        return MacroFileNameCode::Cancelled;
    }
    const std::string fileName = *name + (extension[0] == '.' ? "" : ".") + extension;
    if (IsValidFileName(fileName.c_str()) != 0) {
        // The system's last error, not the rule's code; read before anything else can change it.
        const std::string code = HexText(errno);
        boxes.Titled(
            FillIn(MacroText("INVALID_NAME", "Invalid file name: %s   (Error code: %x)"), {fileName, code}),
            MacroText("INVALID_NAME_TITLE", "IsValidFileName Error"));
        return MacroFileNameCode::InvalidName;
    }
    const std::string path = folder + fileName;
    if (const int refused = CheckAccess(path, boxes); refused != 0) {
        return refused;
    }
    if (const int refused = AskToOverwrite(path, boxes); refused != 0) {
        return refused;
    }
    return CopyMacroPath(parent, path.c_str(), buffer, size);
}

int CopyMacroPath(HWND parent, const char* path, char* buffer, int size) {
    const std::size_t length = std::strlen(path);
    if (size <= 0 || length >= static_cast<std::size_t>(size)) {
        Boxes(parent).Error(MacroText("NAME_TOO_LONG", "File name too long"));
        return MacroFileNameCode::TooLong;
    }
    if (length == 0) {
        Boxes(parent).Error(MacroText("NAME_TOO_SHORT", "File name too short"));
        return MacroFileNameCode::TooShort;
    }
    std::memcpy(buffer, path, length + 1);
    return 0;
}

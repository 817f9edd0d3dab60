// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/qt_modal_gateway.h"

#include "host/toolkit/file_chooser.h"
#include "host/toolkit/input_dialog.h"
#include "host/toolkit/message_box.h"
#include "host/toolkit/outlive_parent.h"
#include "host/toolkit/qt_painting.h"

#include <QApplication>
#include <QColorDialog>
#include <QFontDialog>
#include <QFontInfo>

#include <iostream>

namespace owl {

namespace {

bool HasWindows() {
    return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr;
}

} // namespace

int QtModalGateway::ShowMessage(HWND owner, const std::string& text, const std::string& caption,
                                unsigned type) {
    if (!HasWindows()) {
        std::cerr << caption << ": " << text << '\n';
        return (type & 0xFU) == kMbYesNo ? kIdNo : kIdOk;
    }
    return TMessageBox(owner, text, caption, type).Ask();
}

int QtModalGateway::RunModal(QDialog& dialog) {
    OutliveParent(dialog);
    return dialog.exec() == QDialog::Accepted ? kIdOk : kIdCancel;
}

std::optional<std::string> QtModalGateway::AskFileToOpen(HWND owner, const FileQuestion& question) {
    return HasWindows() ? ChooseFileToOpen(owner, question) : std::nullopt;
}

std::optional<std::string> QtModalGateway::AskFileToSave(HWND owner, const FileQuestion& question) {
    return HasWindows() ? ChooseFileToSave(owner, question) : std::nullopt;
}

std::optional<TColor> QtModalGateway::AskColor(HWND owner, TColor color) {
    if (!HasWindows()) {
        return std::nullopt;
    }
    QColorDialog chooser(ToQColor(color), owner.Widget());
    return RunModal(chooser) == kIdOk ? std::optional(FromQColor(chooser.selectedColor())) : std::nullopt;
}

std::optional<TFont> QtModalGateway::AskFont(HWND owner, const TFont& font) {
    if (!HasWindows()) {
        return std::nullopt;
    }
    // The chooser finds a style only by the names of a family that exists.
    QFont offered = ToQFont(font);
    const QFontInfo existing(offered);
    offered.setFamily(existing.family());
    offered.setStyleName(existing.styleName());
    QFontDialog chooser(offered, owner.Widget());
    const QFont shown = chooser.currentFont();
    if (RunModal(chooser) != kIdOk) {
        return std::nullopt;
    }
    // It counts in whole points: a font that nobody touched keeps its own height and face.
    return chooser.selectedFont() == shown ? font : FromQFont(chooser.selectedFont());
}

std::optional<std::string> QtModalGateway::AskText(HWND owner, const TextQuestion& question) {
    if (!HasWindows()) {
        return std::nullopt;
    }
    TInputDialog dialog(owner, question);
    return RunModal(dialog) == kIdOk ? std::optional(dialog.Text()) : std::nullopt;
}

} // namespace owl

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/qt_modal_gateway.h"

#include "host/toolkit/input_dialog.h"
#include "host/toolkit/qt_painting.h"

#include <QApplication>
#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QFontDialog>
#include <QMessageBox>

#include <iostream>

namespace owl {

namespace {

bool AsksYesNo(unsigned type) {
    return (type & 0xFU) == kMbYesNo;
}

QMessageBox::Icon IconOf(unsigned type) {
    switch (type & 0xF0U) {
    case kMbIconStop:
        return QMessageBox::Critical;
    case kMbIconExclamation:
        return QMessageBox::Warning;
    default:
        return QMessageBox::NoIcon;
    }
}

bool HasWindows() {
    return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr;
}

std::optional<std::string> AskFile(HWND owner, const FileQuestion& question, bool save) {
    if (!HasWindows()) {
        return std::nullopt;
    }
    const QDir folder(QString::fromStdString(question.folder));
    QFileDialog chooser(owner.Widget(), QString::fromStdString(question.title), folder.path(),
                        QtFileFilter(question.filter));
    chooser.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    chooser.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    chooser.setDefaultSuffix(QString::fromStdString(question.extension));
    chooser.setOption(QFileDialog::DontConfirmOverwrite, !question.askOverwrite);
    if (!question.name.empty()) {
        chooser.selectFile(QString::fromStdString(question.name));
    }
    if (chooser.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    return chooser.selectedFiles().constFirst().toStdString();
}

} // namespace

QString QtFileFilter(const std::string& filter) {
    const QStringList parts = QString::fromStdString(filter).split('|', Qt::SkipEmptyParts);
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString name = parts[i];
        QString patterns = parts[i + 1];
        // A name may repeat its pattern: "XML Files (*.xml)".
        name = name.section('(', 0, 0).trimmed();
        patterns.replace(';', ' ').replace("*.*", "*");
        filters << name + " (" + patterns + ')';
    }
    return filters.join(";;");
}

int QtModalGateway::ShowMessage(HWND owner, const std::string& text, const std::string& caption,
                                unsigned type) {
    if (!HasWindows()) {
        std::cerr << caption << ": " << text << '\n';
        return AsksYesNo(type) ? kIdNo : kIdOk;
    }
    QMessageBox box(IconOf(type), QString::fromStdString(caption), QString::fromStdString(text),
                    AsksYesNo(type) ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok, owner.Widget());
    // The texts are plain; "<" is no markup.
    box.setTextFormat(Qt::PlainText);
    const int answer = box.exec();
    if (AsksYesNo(type)) {
        return answer == QMessageBox::Yes ? kIdYes : kIdNo;
    }
    return kIdOk;
}

int QtModalGateway::RunModal(QDialog& dialog) {
    return dialog.exec() == QDialog::Accepted ? kIdOk : kIdCancel;
}

std::optional<std::string> QtModalGateway::AskFileToOpen(HWND owner, const FileQuestion& question) {
    return AskFile(owner, question, false);
}

std::optional<std::string> QtModalGateway::AskFileToSave(HWND owner, const FileQuestion& question) {
    return AskFile(owner, question, true);
}

std::optional<TColor> QtModalGateway::AskColor(HWND owner, TColor color) {
    if (!HasWindows()) {
        return std::nullopt;
    }
    const QColor chosen = QColorDialog::getColor(ToQColor(color), owner.Widget());
    return chosen.isValid() ? std::optional(FromQColor(chosen)) : std::nullopt;
}

std::optional<TFont> QtModalGateway::AskFont(HWND owner, const TFont& font) {
    if (!HasWindows()) {
        return std::nullopt;
    }
    bool chosen = false;
    const QFont answer = QFontDialog::getFont(&chosen, ToQFont(font), owner.Widget());
    return chosen ? std::optional(FromQFont(answer)) : std::nullopt;
}

std::optional<std::string> QtModalGateway::AskText(HWND owner, const TextQuestion& question) {
    if (!HasWindows()) {
        return std::nullopt;
    }
    TInputDialog dialog(owner, question);
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.Text()) : std::nullopt;
}

} // namespace owl

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/file_chooser.h"

#include "host/toolkit/outlive_parent.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QPointer>
#include <QRegularExpression>

namespace owl {

namespace {

/// An existing folder to start in; a chooser would take the last part of another one for a file.
QString StartFolder(const std::string& wanted) {
    const QString folder = QString::fromStdString(wanted);
    return !folder.isEmpty() && QDir(folder).exists() ? folder : QDir::currentPath();
}

std::optional<QString> Choose(HWND owner, const FileQuestion& question, const QString& folder,
                              const QString& name, bool save) {
    QFileDialog chooser(owner.Widget(), QString::fromStdString(question.title), folder,
                        QtFileFilter(question.filter));
    chooser.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    chooser.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    chooser.setOption(QFileDialog::DontConfirmOverwrite, !question.askOverwrite);
    if (!name.isEmpty()) {
        chooser.selectFile(name);
    }
    OutliveParent(chooser);
    const bool accepted = chooser.exec() == QDialog::Accepted;
    // The question whether to replace a file may be answered when the owner is gone.
    const bool orphaned = owner && chooser.parentWidget() == nullptr;
    return accepted && !orphaned ? std::optional(chooser.selectedFiles().constFirst()) : std::nullopt;
}

/// The extension is added here and not by the chooser: those of some desktops confirm an overwrite before Qt
/// adds it, and so ask about another file.
/// What stands behind a point is an extension when files have it: "Dr. Meyer" has none.
QString WithExtension(const QString& path, const std::string& extension) {
    const std::size_t begin = extension.rfind('.') + 1; // 0 without a dot
    const QString added = '.' + QString::fromStdString(extension.substr(begin));
    const QString name = QFileInfo(path).fileName();
    const bool hasOne = name.startsWith('.') || name.endsWith(added, Qt::CaseInsensitive) ||
                        !QMimeDatabase().suffixForFileName(name).isEmpty();
    return hasOne || extension.empty() ? path : path + added;
}

bool MayReplace(HWND owner, const QString& path) {
    const QString question = QFileDialog::tr("%1 already exists.\nDo you want to replace it?");
    return CurrentModalGateway().ShowMessage(owner, question.arg(path).toStdString(),
                                             QFileDialog::tr("Save As").toStdString(),
                                             kMbYesNo + kMbIconExclamation) == kIdYes;
}

} // namespace

QString QtFileFilter(const std::string& filter) {
    // A name may repeat its pattern: "XML Files (*.xml)".
    static const QRegularExpression repeated(R"(\s*\([^()]*\*[^()]*\)\s*$)");
    const QStringList parts = QString::fromStdString(filter).split('|', Qt::SkipEmptyParts);
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString patterns = parts[i + 1];
        patterns.replace(';', ' ').replace("*.*", "*");
        filters << QString(parts[i]).remove(repeated).trimmed() + " (" + patterns.simplified() + ')';
    }
    return filters.join(";;");
}

std::optional<std::string> ChooseFileToOpen(HWND owner, const FileQuestion& question) {
    const auto chosen =
        Choose(owner, question, StartFolder(question.folder), QString::fromStdString(question.name), false);
    return chosen ? std::optional(chosen->toStdString()) : std::nullopt;
}

std::optional<std::string> ChooseFileToSave(HWND owner, const FileQuestion& question) {
    const QPointer<QWidget> over(owner.Widget());
    QString folder = StartFolder(question.folder);
    QString name = QString::fromStdString(question.name);
    while (const auto chosen = Choose(owner, question, folder, name, true)) {
        const QString path = WithExtension(*chosen, question.extension);
        const bool confirmed = path == *chosen || !question.askOverwrite;
        if (confirmed || !QFileInfo::exists(path) || MayReplace(owner, path)) {
            return path.toStdString();
        }
        if (owner && !over) {
            break; // it went while the question was open
        }
        folder = QFileInfo(path).path();
        name = QFileInfo(path).fileName();
    }
    return std::nullopt;
}

} // namespace owl

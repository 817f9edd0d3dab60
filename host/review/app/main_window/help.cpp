// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/help.h"

#include "host/review/app/main_window/host_text.h"
#include "host/review/app/main_window/log.h"
#include "host/review/app/main_window/manual_window.h"
#include "host/review/app/module_library.h"
#include "host/toolkit/icon.h"
#include "host/toolkit/modal_gateway.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace orvanta::review {

namespace {

constexpr int kWidth = 760;
constexpr int kHeight = 560;

/// A window that stays beside the application's until it is closed.
QDialog* HelpWindow(QWidget& parent, const QString& title, QWidget* content) {
    auto* window = new QDialog(&parent);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setWindowTitle(title);
    auto* rows = new QVBoxLayout(window);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, window);
    QObject::connect(buttons, &QDialogButtonBox::rejected, window, &QDialog::close);
    rows->addWidget(content, 1);
    rows->addWidget(buttons);
    window->resize(kWidth, kHeight);
    return window;
}

/// Installed, or in the source tree that the program was built in; empty when it is in neither.
QString FirstPage() {
    QDir folder(QString::fromStdString(LibraryFolder()));
    do {
        for (const char* page : {"share/doc/orvanta/manual/README.md", "docs/manual/README.md"}) {
            if (folder.exists(page)) {
                return folder.filePath(page);
            }
        }
    } while (folder.cdUp());
    return {};
}

} // namespace

void ShowManual(QWidget& parent) {
    const QString page = FirstPage();
    if (page.isEmpty()) {
        owl::CurrentModalGateway().ShowMessage(
            HWND(&parent), HostText("manualMissing", "The manual is not installed with the program."),
            HostText("warning", "Warning"), owl::kMbOk | owl::kMbIconExclamation);
        return;
    }
    (new ManualWindow(&parent, page))->show();
}

void ShowLog(QWidget& parent) {
    auto* text = new QPlainTextEdit(Log::Lines().join('\n'));
    text->setReadOnly(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setPlaceholderText(HostQText("logEmpty", "Nothing was logged since the start."));
    HelpWindow(parent, HostQText("logTitle", "Log"), text)->show();
}

void ShowAbout(QWidget& parent) {
    QDialog dialog(&parent);
    dialog.setWindowTitle(HostQText("aboutTitle", "About Orvanta"));
    auto* icon = new QLabel(&dialog);
    constexpr int kIcon = 64;
    icon->setPixmap(owl::IconOf(QStringLiteral("orvanta")).pixmap(kIcon, kIcon));
    auto* text = new QLabel(
        HostQText("aboutText", "Spectral analysis of EEG recordings.\nFree software under the GNU General "
                               "Public License, version 3 or later, without any warranty.\nNot a medical "
                               "device: findings need the judgement of an expert."),
        &dialog);
    text->setWordWrap(true);
    text->setMinimumWidth(kWidth / 2);
    auto* title = new QLabel("<b>Orvanta " ORVANTA_VERSION "</b>", &dialog);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, &dialog);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* columns = new QHBoxLayout;
    columns->addWidget(icon, 0, Qt::AlignTop);
    auto* texts = new QVBoxLayout;
    texts->addWidget(title);
    texts->addWidget(text);
    columns->addLayout(texts, 1);
    auto* rows = new QVBoxLayout(&dialog);
    rows->addLayout(columns);
    rows->addWidget(buttons);
    owl::CurrentModalGateway().RunModal(dialog);
}

} // namespace orvanta::review

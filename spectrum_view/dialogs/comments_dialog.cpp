// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/dialogs/comments_dialog.h"

#include "host/toolkit/modal_gateway.h"
#include "host/toolkit/services.h"
#include "host/toolkit/window.h"
#include "spectra_contract/spectra_types.h"

#include <QComboBox>
#include <QCompleter>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

using namespace orvanta::spectrum_view;

namespace {

constexpr int kComment = 101;
constexpr int kFirstProtocol = 105;
constexpr int kFirstCode = 111;
constexpr int kFields = 3; // protocols, and codes

} // namespace

SpectralCommentsDlg::SpectralCommentsDlg(owl::TWindow* parent, SpectralComments* comments,
                                         const GenericPlatform* platform)
    : PDialog(HWND(parent), kNumber, PModule::Named("Orvanta")), comments_(comments),
      files_(CommentsHistoryFiles(platform)) {}

SpectralCommentsDlg::~SpectralCommentsDlg() = default;

QComboBox* SpectralCommentsDlg::Protocol(std::size_t index) const {
    return Item<QComboBox>(kFirstProtocol + static_cast<int>(index));
}

void SpectralCommentsDlg::SetupWindow() {
    PDialog::SetupWindow();
    LimitTexts();
    if (owl::CurrentServices().files->Access(files_.read, owl::FileAccess::kExists) == 0) {
        ShowHistory();
    }
}

void SpectralCommentsDlg::LimitTexts() {
    for (int i = 0; i < kFields; ++i) {
        if (auto* code = Item<QLineEdit>(kFirstCode + i)) {
            code->setMaxLength(kMostCharacters);
        }
        if (QComboBox* protocol = Protocol(static_cast<std::size_t>(i))) {
            protocol->lineEdit()->setMaxLength(kMostCharacters);
            // A name that differs from an earlier one only in its case, or is its beginning, is another name.
            protocol->completer()->setCaseSensitivity(Qt::CaseSensitive);
            protocol->completer()->setCompletionMode(QCompleter::PopupCompletion);
        }
    }
    auto* limit = findChild<QLabel*>("limit");
    auto* comment = Item<QPlainTextEdit>(kComment);
    if (limit != nullptr && comment != nullptr) {
        const auto tell = [limit, comment] {
            limit->setVisible(comment->toPlainText().size() > kMostCharacters);
        };
        tell();
        OnTextChange(kComment, tell);
    }
}

void SpectralCommentsDlg::ShowHistory() {
    loaded_ = LoadHistory(files_.read);
    for (std::size_t i = 0; i < loaded_.size(); ++i) {
        if (QComboBox* protocol = Protocol(i)) {
            for (const std::string& name : loaded_[i].names) {
                protocol->addItem(QString::fromStdString(name));
            }
            protocol->setEditText(QString::fromStdString(loaded_[i].last));
        }
    }
}

std::string SpectralCommentsDlg::Text(int control) const {
    constexpr int kMostBytes = 4;
    QString text = QString::fromStdString(GetDlgItemText(control, kMostBytes * kMostCharacters));
    text.truncate(kMostCharacters);
    if (!text.isEmpty() && text.back().isHighSurrogate()) {
        text.chop(1); // half a character
    }
    return text.toStdString();
}

CommentsHistory SpectralCommentsDlg::ShownHistory() const {
    CommentsHistory shown;
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const QComboBox* protocol = Protocol(i);
        for (int row = 0; protocol != nullptr && row < protocol->count(); ++row) {
            shown[i].names.push_back(protocol->itemText(row).toStdString());
        }
        shown[i].last = Text(kFirstProtocol + static_cast<int>(i));
    }
    return shown;
}

void SpectralCommentsDlg::Destroy(int retValue) {
    PDialog::Destroy(retValue);
    if (retValue != owl::kIdOk) {
        return;
    }
    *comments_ = {Text(kFirstProtocol), Text(kFirstProtocol + 1), Text(kFirstProtocol + 2),
                  Text(kFirstCode),     Text(kFirstCode + 1),     Text(kFirstCode + 2),
                  Text(kComment)};
    SaveHistory(files_.saved, ShownHistory(), loaded_);
}

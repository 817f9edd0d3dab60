// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/dialog.h"

#include "host/toolkit/control_text.h"
#include "host/toolkit/cut_text.h"
#include "host/toolkit/form_texts.h"
#include "host/toolkit/modal_gateway.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>

#include <map>
#include <utility>

namespace owl {

namespace {

constexpr const char* kIdProperty = "controlId";

std::map<unsigned, DialogTemplate>& Templates() {
    static std::map<unsigned, DialogTemplate> templates;
    return templates;
}

/// A button box makes its buttons by itself, so that a designer cannot number them.
void NumberButtonBox(const QDialogButtonBox& box) {
    const std::pair<QDialogButtonBox::StandardButton, int> numbers[] = {
        {QDialogButtonBox::Ok, kIdOk},
        {QDialogButtonBox::Close, kIdOk},
        {QDialogButtonBox::Cancel, kIdCancel}};
    for (const auto& [standard, number] : numbers) {
        if (QPushButton* button = box.button(standard)) {
            button->setProperty(kIdProperty, number);
        }
    }
}

} // namespace

void RegisterDialogTemplate(unsigned number, DialogTemplate build) {
    if (build != nullptr) {
        Templates()[number] = build;
    } else {
        Templates().erase(number);
    }
}

TDialog::TDialog(HWND parent, unsigned dialogNumber, const PModule* module)
    : QDialog(parent.Widget()), module_(module) {
    const auto found = Templates().find(dialogNumber);
    if (found == Templates().end()) {
        return;
    }
    found->second(*this);
    TranslateForm(*this, module, ("DIALOG_" + std::to_string(dialogNumber)).c_str());
    for (const auto* box : findChildren<QDialogButtonBox*>()) {
        NumberButtonBox(*box);
    }
    if (auto* ok = Item<QPushButton>(kIdOk)) {
        ok->setDefault(true);
    }
    OnClick(kIdOk, [this] { accept(); });
    OnClick(kIdCancel, [this] { reject(); });
}

int TDialog::Execute() {
    return CurrentModalGateway().RunModal(*this);
}

QWidget* TDialog::GetDlgItem(int controlId) const {
    for (QWidget* control : findChildren<QWidget*>()) {
        const QVariant number = control->property(kIdProperty);
        if (number.isValid() && number.toInt() == controlId) {
            return control;
        }
    }
    return nullptr;
}

void TDialog::SetDlgItemText(int controlId, const std::string& text) {
    if (QWidget* control = GetDlgItem(controlId)) {
        SetControlText(*control, QString::fromStdString(text));
    }
}

std::string TDialog::GetDlgItemText(int controlId, int max) const {
    const QWidget* control = GetDlgItem(controlId);
    return control != nullptr && max > 0
               ? CutAt(ControlText(*control).toStdString(), static_cast<std::size_t>(max))
               : std::string();
}

void TDialog::CheckDlgButton(int controlId, bool checked) {
    CheckRadioButton(controlId, controlId, checked ? controlId : controlId - 1);
}

bool TDialog::IsDlgButtonChecked(int controlId) const {
    const auto* button = Item<QAbstractButton>(controlId);
    return button != nullptr && button->isChecked();
}

void TDialog::CheckRadioButton(int first, int last, int checked) {
    for (int id = first; id <= last; ++id) {
        if (auto* button = Item<QAbstractButton>(id)) {
            // Buttons that exclude each other would never let the last one be unchecked.
            const bool exclusive = button->autoExclusive();
            button->setAutoExclusive(exclusive && id == checked);
            button->setChecked(id == checked);
            button->setAutoExclusive(exclusive);
        }
    }
}

void TDialog::EnableDlgItem(int controlId, bool enabled) {
    if (QWidget* control = GetDlgItem(controlId)) {
        control->setEnabled(enabled);
    }
}

void TDialog::OnClick(int controlId, std::function<void()> handler) {
    if (auto* button = Item<QAbstractButton>(controlId)) {
        connect(button, &QAbstractButton::clicked, this, [handler = std::move(handler)] { handler(); });
    }
}

void TDialog::OnTextChange(int controlId, std::function<void()> handler) {
    auto call = [handler = std::move(handler)] { handler(); };
    if (auto* edit = Item<QLineEdit>(controlId)) {
        connect(edit, &QLineEdit::textChanged, this, call);
    } else if (auto* memo = Item<QPlainTextEdit>(controlId)) {
        connect(memo, &QPlainTextEdit::textChanged, this, call);
    } else if (auto* combo = Item<QComboBox>(controlId)) {
        connect(combo, &QComboBox::currentTextChanged, this, call);
    }
}

void TDialog::SetUpOnce() {
    if (!open_) {
        open_ = true;
        SetupWindow();
    }
}

void TDialog::setVisible(bool visible) {
    if (visible) {
        SetUpOnce();
    }
    QDialog::setVisible(visible);
}

bool TDialog::event(QEvent* event) {
    // Rendering polishes a widget that was never shown.
    if (event->type() == QEvent::Polish) {
        SetUpOnce();
    }
    return QDialog::event(event);
}

void TDialog::done(int result) {
    if (open_) {
        Destroy(result == Accepted ? kIdOk : kIdCancel);
    } else {
        QDialog::done(result);
    }
}

void TDialog::SetupWindow() {}

void TDialog::Destroy(int retValue) {
    if (open_) {
        open_ = false;
        QDialog::done(retValue == kIdOk ? Accepted : Rejected);
    }
}

} // namespace owl

void PDialog::SetDlgItemMsg(const char* key, int controlId) {
    QWidget* control = GetDlgItem(controlId);
    const std::string text = owl::TextOr(GetModule(), "DIALOG", key, {});
    if (control != nullptr && !text.empty()) {
        owl::SetControlCaption(*control, QString::fromStdString(text));
    }
}

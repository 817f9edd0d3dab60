// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/form_texts.h"

#include "host/toolkit/message_module.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QTreeWidget>

namespace owl {

namespace {

class Texts {
public:
    Texts(const PModule& module, const char* section) : module_(module), section_(section) {}

    /// Hands the text of the key to \p set when there is one.
    template <typename Set>
    void Give(const QString& key, Set set) const {
        const std::string text = module_.GetMsg2(section_, key.toUtf8().constData());
        if (!text.empty()) {
            set(QString::fromStdString(text));
        }
    }

private:
    const PModule& module_;
    const char* section_;
};

void TranslateControl(QWidget& control, const Texts& texts) {
    const QString name = control.objectName();
    texts.Give(name + ".tip", [&](const QString& text) { control.setToolTip(text); });
    if (auto* button = qobject_cast<QAbstractButton*>(&control)) {
        texts.Give(name, [button](const QString& text) { button->setText(text); });
    } else if (auto* label = qobject_cast<QLabel*>(&control)) {
        texts.Give(name, [label](const QString& text) { label->setText(text); });
    } else if (auto* group = qobject_cast<QGroupBox*>(&control)) {
        texts.Give(name, [group](const QString& text) { group->setTitle(text); });
    } else if (auto* list = qobject_cast<QTreeWidget*>(&control)) {
        for (int column = 0; column < list->columnCount(); ++column) {
            texts.Give(name + '.' + QString::number(column),
                       [&](const QString& text) { list->headerItem()->setText(column, text); });
        }
    }
}

} // namespace

void TranslateForm(QWidget& form, const PModule* module, const char* section) {
    if (module == nullptr) {
        return;
    }
    const Texts texts(*module, section);
    texts.Give("caption", [&](const QString& text) { form.setWindowTitle(text); });
    for (QWidget* control : form.findChildren<QWidget*>()) {
        if (!control->objectName().isEmpty()) {
            TranslateControl(*control, texts);
        }
    }
}

std::string TextOr(const PModule* module, const char* section, const char* key, const std::string& builtIn) {
    std::string text = module != nullptr ? module->GetMsg2(section, key) : std::string();
    return text.empty() ? builtIn : text;
}

} // namespace owl

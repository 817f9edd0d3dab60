// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/form_texts.h"

#include "host/toolkit/control_text.h"
#include "host/toolkit/message_module.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QTabWidget>
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

/// The parts of a control that have texts of their own: columns, pages, the items of a group.
void TranslateParts(QWidget& control, const Texts& texts) {
    const auto each = [&](qsizetype count, const auto& set) {
        for (int part = 0; part < count; ++part) {
            texts.Give(control.objectName() + '.' + QString::number(part),
                       [&](const QString& text) { set(part, text); });
        }
    };
    if (auto* list = qobject_cast<QTreeWidget*>(&control)) {
        each(list->columnCount(),
             [list](int column, const QString& text) { list->headerItem()->setText(column, text); });
    } else if (auto* pages = qobject_cast<QTabWidget*>(&control)) {
        each(pages->count(), [pages](int page, const QString& text) { pages->setTabText(page, text); });
    } else if (auto* combo = qobject_cast<QComboBox*>(&control)) {
        each(combo->count(), [combo](int item, const QString& text) { combo->setItemText(item, text); });
    } else if (auto* group = qobject_cast<QGroupBox*>(&control)) {
        const auto items = group->findChildren<QRadioButton*>(QString(), Qt::FindDirectChildrenOnly);
        each(items.size(), [&](int item, const QString& text) { items[item]->setText(text); });
    }
}

/// What a screen reader says of the control that a label stands for, where it is not told by the label
/// itself.
void TranslateSpokenName(const QWidget& control) {
    const auto* label = qobject_cast<const QLabel*>(&control);
    if (label != nullptr && label->buddy() != nullptr && !label->buddy()->accessibleName().isEmpty()) {
        label->buddy()->setAccessibleName(ControlText(*label));
    }
}

void TranslateControl(QWidget& control, const Texts& texts) {
    const QString name = control.objectName();
    texts.Give(name + ".tip", [&](const QString& text) { control.setToolTip(text); });
    texts.Give(name, [&](const QString& text) {
        SetControlCaption(control, text);
        TranslateSpokenName(control);
    });
    TranslateParts(control, texts);
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

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/control_text.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace owl {

namespace {

QString WithoutMnemonics(const QString& caption) {
    QString text;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        // The character behind a mark is the text's own, also when it is a second "&".
        if (caption[i] == '&' && i + 1 < caption.size()) {
            ++i;
        }
        text += caption[i];
    }
    return text;
}

/// Only a label with a buddy has a mnemonic.
bool HasMnemonic(const QLabel& label) {
    return label.buddy() != nullptr;
}

} // namespace

QString AsCaption(QString text) {
    return text.replace('&', "&&");
}

void SetControlCaption(QWidget& control, const QString& caption) {
    if (auto* button = qobject_cast<QAbstractButton*>(&control)) {
        button->setText(caption);
    } else if (auto* group = qobject_cast<QGroupBox*>(&control)) {
        group->setTitle(caption);
    } else if (auto* label = qobject_cast<QLabel*>(&control)) {
        label->setText(caption);
    }
}

void SetControlText(QWidget& control, const QString& text) {
    if (auto* edit = qobject_cast<QLineEdit*>(&control)) {
        edit->setText(text);
    } else if (auto* memo = qobject_cast<QPlainTextEdit*>(&control)) {
        memo->setPlainText(text);
    } else if (auto* combo = qobject_cast<QComboBox*>(&control)) {
        combo->isEditable() ? combo->setEditText(text) : combo->setCurrentText(text);
    } else if (auto* label = qobject_cast<QLabel*>(&control)) {
        label->setTextFormat(Qt::PlainText);
        label->setText(HasMnemonic(*label) ? AsCaption(text) : text);
    } else {
        SetControlCaption(control, AsCaption(text));
    }
}

QString ControlText(const QWidget& control) {
    if (const auto* edit = qobject_cast<const QLineEdit*>(&control)) {
        return edit->text();
    }
    if (const auto* memo = qobject_cast<const QPlainTextEdit*>(&control)) {
        return memo->toPlainText();
    }
    if (const auto* combo = qobject_cast<const QComboBox*>(&control)) {
        return combo->currentText();
    }
    if (const auto* label = qobject_cast<const QLabel*>(&control)) {
        return HasMnemonic(*label) ? WithoutMnemonics(label->text()) : label->text();
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control)) {
        return WithoutMnemonics(button->text());
    }
    const auto* group = qobject_cast<const QGroupBox*>(&control);
    return group != nullptr ? WithoutMnemonics(group->title()) : QString();
}

} // namespace owl

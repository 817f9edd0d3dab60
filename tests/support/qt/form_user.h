// SPDX-License-Identifier: GPL-3.0-or-later
// What a user does with the controls of a form, by their names.
#pragma once

#include <QString>
#include <QStringList>

class QWidget;

namespace orvanta::test {

/// Acts on the controls of one form as a user would: a control that is missing, hidden or disabled fails the
/// test and is left alone.
class FormUser {
public:
    explicit FormUser(QWidget& form) : form_(form) {}

    void Clicks(const char* button) const;
    void DoubleClicksRow(const char* list, int row) const;
    /// Sets the text of an edit, memo or combo box, key by key.
    void Types(const char* edit, const QString& text) const;
    void SetsNumber(const char* spinner, int value) const;
    /// Selects these rows of a list and no others.
    void SelectsRows(const char* list, const QStringList& captions) const;
    void SelectsRow(const char* list, int row) const;
    void PressesEscape() const;

    bool IsEnabled(const char* control) const;
    bool IsVisible(const char* control) const;
    bool IsChecked(const char* button) const;
    /// Text of a label, button, group, edit, memo or combo box, without the marks of mnemonics.
    QString TextOf(const char* control) const;
    int NumberOf(const char* spinner) const;
    QStringList RowsOf(const char* list) const;
    QStringList SelectedRowsOf(const char* list) const;

private:
    QWidget& form_;
};

} // namespace orvanta::test

// SPDX-License-Identifier: GPL-3.0-or-later
// A number field with up and down arrows.
#pragma once

#include "host/toolkit/export.h"

#include <QSpinBox>

namespace owl {

/// The wheel turns it while it has the focus only. The spinner and its edit are two members of a form: the
/// spinner carries its own objectName, the edit inside it the name in `editName`.
class ORVANTA_TOOLKIT_API SpinEdit : public QSpinBox {
    Q_OBJECT
    Q_PROPERTY(QString editName READ EditName WRITE SetEditName)

public:
    explicit SpinEdit(QWidget* parent = nullptr);

    QString EditName() const;
    void SetEditName(const QString& name);
    /// The edit inside; its textChanged follows every change, by key or by program.
    QLineEdit* Edit() const { return lineEdit(); }

protected:
    void wheelEvent(QWheelEvent* event) override;
};

} // namespace owl

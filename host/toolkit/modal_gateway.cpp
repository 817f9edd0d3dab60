// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/modal_gateway.h"

#include <QApplication>
#include <QDialog>
#include <QMessageBox>

#include <iostream>
#include <utility>

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

class QtModalGateway final : public ModalGateway {
public:
    int ShowMessage(HWND owner, const std::string& text, const std::string& caption, unsigned type) override {
        if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr) {
            std::cerr << caption << ": " << text << '\n';
            return AsksYesNo(type) ? kIdNo : kIdOk;
        }
        QMessageBox box(IconOf(type), QString::fromStdString(caption), QString::fromStdString(text),
                        AsksYesNo(type) ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok,
                        owner.Widget());
        // The texts are plain; "<" is no markup.
        box.setTextFormat(Qt::PlainText);
        const int answer = box.exec();
        if (AsksYesNo(type)) {
            return answer == QMessageBox::Yes ? kIdYes : kIdNo;
        }
        return kIdOk;
    }

    int RunModal(ModalForm& form) override {
        QDialog* dialog = form.Dialog();
        return dialog != nullptr && dialog->exec() == QDialog::Accepted ? kIdOk : kIdCancel;
    }
};

ModalGateway*& Replacement() {
    static ModalGateway* gateway = nullptr;
    return gateway;
}

} // namespace

ModalForm::~ModalForm() = default;
ModalGateway::~ModalGateway() = default;

ModalGateway& CurrentModalGateway() {
    static QtModalGateway standard;
    return Replacement() != nullptr ? *Replacement() : standard;
}

ModalGateway* ReplaceModalGateway(ModalGateway* gateway) {
    return std::exchange(Replacement(), gateway);
}

} // namespace owl

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/message_box.h"

#include "host/toolkit/message_text.h"
#include "host/toolkit/outlive_parent.h"
#include "host/toolkit/services.h"

#include <QKeyEvent>
#include <QLabel>
#include <QScreen>

#include <algorithm>

namespace owl {

namespace {

/// Characters in a line that are easy to read.
constexpr qsizetype kLineLength = 60;
/// A box whose contents need more has the lines of its text broken by Qt; in a narrower one they stay whole.
constexpr int kQtWrapsFrom = 500;

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

} // namespace

TMessageBox::TMessageBox(HWND owner, const std::string& text, const std::string& caption, unsigned type)
    : QMessageBox(owner.Widget()), whole_(QString::fromStdString(text)) {
    setWindowTitle(QString::fromStdString(caption));
    setIcon(IconOf(type));
    // The texts are plain; "<" is no markup.
    setTextFormat(Qt::PlainText);
    const QString shown = Shortened(whole_);
    setText(WithBreaks(shown));
    if (shown.size() > kLineLength) {
        WidenForLongText();
    }
    if (shown != whole_) {
        setDetailedText(whole_);
    }
    setStandardButtons(AsksYesNo(type) ? Yes | No : StandardButtons(Ok));
    if (AsksYesNo(type)) {
        setDefaultButton(icon() == Warning ? No : Yes);
        setEscapeButton(No);
    }
}

void TMessageBox::WidenForLongText() {
    // Qt takes half a small screen, whatever the font.
    if (auto* label = findChild<QLabel*>("qt_msgbox_label")) {
        const int readable = static_cast<int>(kLineLength) * label->fontMetrics().averageCharWidth();
        const int most =
            std::min(std::max(readable, kQtWrapsFrom), screen()->availableGeometry().width() * 2 / 3);
        label->setMinimumWidth(std::min(label->sizeHint().width(), most));
    }
}

int TMessageBox::Ask() {
    OutliveParent(*this);
    // A box closed without a button answers something else.
    const bool agreed = exec() == Yes;
    if (agreed) {
        return kIdYes;
    }
    return standardButtons().testFlag(No) ? kIdNo : kIdOk;
}

void TMessageBox::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        CurrentServices().clipboard->SetText(whole_.toStdString());
        return;
    }
    QMessageBox::keyPressEvent(event);
}

} // namespace owl

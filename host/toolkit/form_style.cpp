// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/form_style.h"

#include "host/toolkit/icon.h"

#include <QPainter>
#include <QStyleOption>

#include <algorithm>

namespace owl {

namespace {

constexpr double kIndicatorShare = 0.5;
constexpr double kFrameShare = 0.25;

/// Between the background of a window and its text.
QColor Line(const QPalette& palette, double textShare) {
    const QColor window = palette.color(QPalette::Window);
    const QColor text = palette.color(QPalette::WindowText);
    const auto mix = [textShare](float from, float to) {
        return from + static_cast<float>(textShare) * (to - from);
    };
    return QColor::fromRgbF(mix(window.redF(), text.redF()), mix(window.greenF(), text.greenF()),
                            mix(window.blueF(), text.blueF()));
}

void DrawIndicatorOutline(const QStyleOption& option, QPainter& painter, bool round) {
    const bool byKeyboard = option.state.testFlag(QStyle::State_HasFocus) &&
                            option.state.testFlag(QStyle::State_KeyboardFocusChange);
    if (byKeyboard) {
        return; // the style below shows the focus there
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Line(option.palette, kIndicatorShare));
    painter.setBrush(Qt::NoBrush);
    if (round) {
        const int width = option.rect.width();
        const double radius = (width + (width + 1) % 2) / 2.0 - 1;
        painter.drawEllipse(QPointF(option.rect.center() + QPoint(1, 1)), radius, radius);
    } else {
        painter.drawRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5));
    }
    painter.restore();
}

/// Along the outermost device pixels: what the frame is around covers those further inside where a scale puts
/// its edge between two pixels.
void DrawFrame(const QStyleOption& option, QPainter& painter) {
    const QTransform toDevice = painter.deviceTransform();
    const QTransform back = toDevice.inverted();
    const QRectF mapped = toDevice.mapRect(QRectF(option.rect));
    const QRect frame(mapped.topLeft().toPoint(), mapped.bottomRight().toPoint() - QPoint(1, 1));
    const int line = std::max(1, static_cast<int>(toDevice.m22()));
    const QColor color = Line(option.palette, kFrameShare);
    for (const QRect& side : {QRect(frame.left(), frame.top(), frame.width(), line),
                              QRect(frame.left(), frame.bottom() + 1 - line, frame.width(), line),
                              QRect(frame.left(), frame.top(), line, frame.height()),
                              QRect(frame.right() + 1 - line, frame.top(), line, frame.height())}) {
        painter.fillRect(back.mapRect(QRectF(side)), color);
    }
}

const char* IconName(QStyle::StandardPixmap icon) {
    switch (icon) {
    case QStyle::SP_MessageBoxWarning:
        return "warning";
    case QStyle::SP_MessageBoxCritical:
        return "error";
    case QStyle::SP_MessageBoxQuestion:
        return "question";
    case QStyle::SP_MessageBoxInformation:
        return "information";
    case QStyle::SP_DialogOkButton:
    case QStyle::SP_DialogYesButton:
        return "ok";
    case QStyle::SP_DialogCancelButton:
    case QStyle::SP_DialogNoButton:
    case QStyle::SP_DialogCloseButton:
        return "cancel";
    default:
        return "";
    }
}

} // namespace

FormStyle::FormStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

QIcon FormStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const {
    const QIcon own = IconOf(QString(IconName(icon)));
    return own.isNull() ? QProxyStyle::standardIcon(icon, option, widget) : own;
}

int FormStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* answer) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) {
        return 1; // as the buttons of the forms, on every desktop
    }
    return QProxyStyle::styleHint(hint, option, widget, answer);
}

void FormStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    if (element == PE_Frame) {
        DrawFrame(*option, *painter);
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton) {
        DrawIndicatorOutline(*option, *painter, element == PE_IndicatorRadioButton);
    }
}

} // namespace owl

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/table_window.h"

#include "host/toolkit/window.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

#include <algorithm>

namespace {

constexpr int kBaseDpi = 96;
constexpr int kGap = 4;
constexpr int kMargin = 8;
constexpr double kCorner = 2;
constexpr float kFaintLine = 0.35F;

/// In whole logical pixels, smoothed: half a pixel in, where a pen of width 1 lies on one row.
void DrawBox(QPainter& painter, const QRect& rect, const QColor& fill, const QColor& line) {
    painter.setPen(line);
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
}

} // namespace

TTableWnd::TTableWnd(owl::TWindow& window, const owl::TPoint& place, int columns, int rows, int cellWidth,
                     int cellHeight, unsigned reply, int dpi)
    : QWidget(&window, Qt::Popup | Qt::FramelessWindowHint),
      window_(window), count_{std::max(1, columns), std::max(1, rows)},
      cell_{std::max(1, MulDiv(cellWidth, dpi, kBaseDpi)), std::max(1, MulDiv(cellHeight, dpi, kBaseDpi))},
      reply_(reply) {
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFixedSize(sizeHint());
    const QPoint wanted(place.x, place.y);
    const QScreen* screen = QGuiApplication::screenAt(wanted);
    const QRect room = (screen != nullptr ? screen : QGuiApplication::primaryScreen())->availableGeometry();
    move(std::max(room.left(), std::min(wanted.x(), room.right() + 1 - width())),
         std::max(room.top(), std::min(wanted.y(), room.bottom() + 1 - height())));
    Mark(1, 1);
}

QRect TTableWnd::CellRect(int column, int row) const {
    return {kMargin + column * (cell_.cx + kGap), kMargin + row * (cell_.cy + kGap), cell_.cx, cell_.cy};
}

QRect TTableWnd::Field() const {
    return CellRect(0, 0) | CellRect(count_.cx - 1, count_.cy - 1);
}

QSize TTableWnd::sizeHint() const {
    const QRect field = Field();
    const int longest = fontMetrics().horizontalAdvance(QString("%1 × %2").arg(count_.cx).arg(count_.cy));
    return {std::max(field.right() + 1, kMargin + longest) + kMargin,
            field.bottom() + 1 + kGap + fontMetrics().height() + kMargin};
}

QString TTableWnd::Caption() const {
    return QString("%1 × %2").arg(marked_.cx).arg(marked_.cy);
}

void TTableWnd::Mark(int columns, int rows) {
    marked_ = {std::clamp(columns, 1, count_.cx), std::clamp(rows, 1, count_.cy)};
    setAccessibleName(Caption());
    update();
}

void TTableWnd::MarkAt(const QPoint& point) {
    // A gap belongs to the cell before it; beside the field the nearest cell counts.
    Mark((point.x() - kMargin) / (cell_.cx + kGap) + 1, (point.y() - kMargin) / (cell_.cy + kGap) + 1);
}

void TTableWnd::Answer() {
    const auto columns = static_cast<WPARAM>(marked_.cx) & 0xFFFFU;
    const auto rows = static_cast<WPARAM>(marked_.cy) & 0xFFFFU;
    close();
    window_.SendMessage(reply_, columns | rows << 16U);
}

void TTableWnd::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QPalette colors = palette();
    QColor faint = colors.color(QPalette::WindowText);
    faint.setAlphaF(kFaintLine);
    painter.fillRect(rect(), colors.color(QPalette::Window));
    painter.setRenderHint(QPainter::Antialiasing);
    DrawBox(painter, rect(), colors.color(QPalette::Window), faint);
    for (int row = 0; row < count_.cy; ++row) {
        for (int column = 0; column < count_.cx; ++column) {
            const bool isMarked = column < marked_.cx && row < marked_.cy;
            const QColor highlight = colors.color(QPalette::Highlight);
            DrawBox(painter, CellRect(column, row), isMarked ? highlight : colors.color(QPalette::Base),
                    isMarked ? highlight : faint);
        }
    }
    painter.setPen(colors.color(QPalette::WindowText));
    const int top = Field().bottom() + 1 + kGap;
    painter.drawText(QRect(0, top, width(), fontMetrics().height()), Qt::AlignCenter, Caption());
}

void TTableWnd::mouseMoveEvent(QMouseEvent* event) {
    if (rect().contains(event->pos())) {
        MarkAt(event->pos());
    }
}

void TTableWnd::mouseReleaseEvent(QMouseEvent* event) {
    // The release of the click that opened the picker falls on its margin.
    if (event->button() == Qt::LeftButton && Field().contains(event->pos())) {
        MarkAt(event->pos());
        Answer();
    }
}

void TTableWnd::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
        Mark(marked_.cx - 1, marked_.cy);
        break;
    case Qt::Key_Right:
        Mark(marked_.cx + 1, marked_.cy);
        break;
    case Qt::Key_Up:
        Mark(marked_.cx, marked_.cy - 1);
        break;
    case Qt::Key_Down:
        Mark(marked_.cx, marked_.cy + 1);
        break;
    case Qt::Key_Home:
        Mark(1, 1);
        break;
    case Qt::Key_End:
        Mark(count_.cx, count_.cy);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        Answer();
        break;
    default:
        // Escape closes a popup.
        QWidget::keyPressEvent(event);
    }
}

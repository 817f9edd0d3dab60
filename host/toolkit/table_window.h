// SPDX-License-Identifier: GPL-3.0-or-later
// A picker for the size of a grid.
#pragma once

#include "host/toolkit/export.h"
#include "host/toolkit/geometry.h"

#include <QWidget>

namespace owl {
class TWindow;
}

/// Pops up over its window and shows a field of cells. The mouse or the arrow keys mark columns × rows from
/// the upper left; a click, Enter or Space answers the window with a message whose first argument holds the
/// columns in its lower and the rows in its upper 16 bits. Escape or a click elsewhere closes without an
/// answer. The owner may delete it at any time, also while it is being answered. GUI thread.
class ORVANTA_TOOLKIT_API TTableWnd final : public QWidget {
public:
    /// \param window owns the picker
    /// \param place upper left corner on the screen; moved so that the whole picker is on it
    /// \param cellWidth, cellHeight logical pixels at 96 dots per inch
    /// \param reply number of the message
    /// \param dpi logical dots per inch of the window
    TTableWnd(owl::TWindow& window, const owl::TPoint& place, int columns, int rows, int cellWidth,
              int cellHeight, unsigned reply, int dpi);

    /// Columns and rows that are marked, from 1.
    owl::TSize Marked() const { return marked_; }
    /// Of a cell, from 0.
    QRect CellRect(int column, int row) const;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QRect Field() const;
    QString Caption() const;
    void Mark(int columns, int rows);
    void MarkAt(const QPoint& point);
    void Answer();

    owl::TWindow& window_;
    owl::TSize count_;
    owl::TSize cell_;
    unsigned reply_;
    owl::TSize marked_{1, 1};
};

// SPDX-License-Identifier: GPL-3.0-or-later
// Pages behind tabs.
#pragma once

#include "host/toolkit/export.h"

#include <QRect>
#include <QSize>
#include <QWidget>

#include <span>
#include <vector>

class QStackedWidget;

namespace owl {

/// Places for tabs of these sizes, left to right and in as many lines as it takes, all as high as the
/// highest. A tab that is wider than the line gets one of its own and is cut. \param width of the lines
ORVANTA_TOOLKIT_API std::vector<QRect> TabLines(std::span<const QSize> tabs, int width);

/// A page of a page control, filled by the one widget in it. Its tab goes with it.
class ORVANTA_TOOLKIT_API TTabSheet final : public QWidget {
public:
    /// Moves the widget in and shows it.
    void Take(QWidget& content);

private:
    friend class TPageControl;
    explicit TTabSheet(QWidget* parent);
};

/// Shows one of its pages; the tabs stand above it, on several lines when they do not fit on one.
class ORVANTA_TOOLKIT_API TPageControl final : public QWidget {
public:
    explicit TPageControl(QWidget* parent = nullptr);

    /// An empty page behind the others; the first one is shown.
    TTabSheet& AddPage(const QString& caption);
    int GetPageCount() const;
    /// From 0. Nothing for a number that no page has.
    void SetActivePage(int index);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    class Tabs;

    Tabs* tabs_;
    QStackedWidget* pages_;
};

} // namespace owl

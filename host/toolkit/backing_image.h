// SPDX-License-Identifier: GPL-3.0-or-later
// The picture behind a window.
#pragma once

#include "host/toolkit/export.h"
#include "host/toolkit/geometry.h"

#include <QColor>
#include <QImage>

class QPainter;

namespace owl {

/// Keeps the last finished picture while the next one is drawn. Sizes and rectangles are logical pixels; the
/// pictures have as many pixels as the screen. GUI thread.
class ORVANTA_TOOLKIT_API BackingImage {
public:
    struct Surface {
        TSize size;
        double pixelRatio; ///< device pixels to a logical one
        QColor background;
    };
    /// What is to be drawn again.
    struct Damage {
        TRect rect;
        bool erase; ///< the background first
    };

    /// True when the finished picture fits the surface pixel by pixel.
    bool Fits(const Surface& surface) const;

    /// A picture to draw on: a copy of the finished one, or an empty one when that does not fit; the damage
    /// is then all of it.
    QImage Begin(const Surface& surface, Damage& damage) const;

    /// The picture is finished; of one that began as a copy only the damaged rectangle is taken.
    void Finish(const QImage& picture, const TRect& damaged);

    /// Copies the finished picture, and shows the background where it does not reach.
    void Paint(QPainter& painter, const Surface& surface) const;

private:
    QImage finished_;
};

} // namespace owl

// SPDX-License-Identifier: GPL-3.0-or-later
// The look of all controls.
#pragma once

#include "host/toolkit/export.h"

#include <QProxyStyle>

namespace owl {

/// Qt's Fusion style with the icons of this program in message boxes and on their buttons, outlines of check
/// boxes and radio buttons that stand out from every background, and frames that are whole at every scale.
class ORVANTA_TOOLKIT_API FormStyle final : public QProxyStyle {
public:
    FormStyle();

    /// Of the program's resources; Qt's own where they have none.
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* answer) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

} // namespace owl

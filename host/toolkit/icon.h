// SPDX-License-Identifier: GPL-3.0-or-later
// Icons by their number or name.
#pragma once

#include "host/toolkit/export.h"

#include <QIcon>

namespace owl {

/// The icon ":/icons/NUMBER.svg" of the program's resources, sharp at every size and scale. A picture in
/// black alone is painted in the colour of button texts, as it is when it is painted, so that it can be seen
/// in every appearance; one with colours keeps them. An empty icon when there is none.
ORVANTA_TOOLKIT_API QIcon IconOf(unsigned number);

/// The icon ":/icons/NAME.svg", of the same kind.
ORVANTA_TOOLKIT_API QIcon IconOf(const QString& name);

/// An icon with a picture of its own for buttons that are pressed.
ORVANTA_TOOLKIT_API QIcon IconOf(unsigned up, unsigned down);

} // namespace owl

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/trace_commands.h"

#include "host/toolkit/menu_templates.h"

#include <algorithm>
#include <array>

namespace orvanta::review {

namespace {

constexpr owl::MenuItem kItems[] = {
    {kCmViewTraces, "&View Traces"},
    {kCmPageForward, "Page &Forward\tPgDown"},
    {kCmPageBack, "Page &Back\tPgUp"},
    {kCmToStart, "To the &Start\tHome"},
    {kCmToEnd, "To the &End\tEnd"},
    {0, ""},
    {kCmGainUp, "Gain &Up\t+"},
    {kCmGainDown, "Gain &Down\t-"},
    {kCmLessTime, "Less &Time on the Page\tCtrl++"},
    {kCmMoreTime, "M&ore Time on the Page\tCtrl+-"},
    {kCmFewerLines, "Fe&wer Lines on the Page\tCtrl+Down"},
    {kCmMoreLines, "More &Lines on the Page\tCtrl+Up"},
    {kCmZoomBack, "&Zoom Back\tBackspace"},
    {kCmCenter, "Center Traces on &Their Mean"},
    {0, ""},
    {kCmMarkBad, "Bad C&hannel\tB"},
    {kCmHideLine, "H&ide Channel\tH"},
    {kCmShowAllLines, "Show &All Channels\tShift+H"},
    {0, ""},
    {0, ""},
};

struct KeyCommand {
    int key;
    Qt::KeyboardModifiers modifiers;
    unsigned command;
};

const std::array kKeys{
    KeyCommand{Qt::Key_PageUp, Qt::NoModifier, kCmPageBack},
    KeyCommand{Qt::Key_PageDown, Qt::NoModifier, kCmPageForward},
    KeyCommand{Qt::Key_Left, Qt::NoModifier, kCmStepBack},
    KeyCommand{Qt::Key_Right, Qt::NoModifier, kCmStepForward},
    KeyCommand{Qt::Key_Left, Qt::ControlModifier, kCmSmallStepBack},
    KeyCommand{Qt::Key_Right, Qt::ControlModifier, kCmSmallStepForward},
    KeyCommand{Qt::Key_Left, Qt::ShiftModifier, kCmPageBack},
    KeyCommand{Qt::Key_Right, Qt::ShiftModifier, kCmPageForward},
    KeyCommand{Qt::Key_Home, Qt::NoModifier, kCmToStart},
    KeyCommand{Qt::Key_End, Qt::NoModifier, kCmToEnd},
    KeyCommand{Qt::Key_Up, Qt::NoModifier, kCmLineUp},
    KeyCommand{Qt::Key_Down, Qt::NoModifier, kCmLineDown},
    KeyCommand{Qt::Key_Up, Qt::ShiftModifier, kCmPreviousLine},
    KeyCommand{Qt::Key_Down, Qt::ShiftModifier, kCmNextLine},
    KeyCommand{Qt::Key_Up, Qt::ControlModifier, kCmMoreLines},
    KeyCommand{Qt::Key_Down, Qt::ControlModifier, kCmFewerLines},
    KeyCommand{Qt::Key_Plus, Qt::NoModifier, kCmGainUp},
    KeyCommand{Qt::Key_Minus, Qt::NoModifier, kCmGainDown},
    KeyCommand{Qt::Key_Plus, Qt::ControlModifier, kCmLessTime},
    KeyCommand{Qt::Key_Minus, Qt::ControlModifier, kCmMoreTime},
    KeyCommand{Qt::Key_Backspace, Qt::NoModifier, kCmZoomBack},
    KeyCommand{Qt::Key_B, Qt::NoModifier, kCmMarkBad},
    KeyCommand{Qt::Key_H, Qt::NoModifier, kCmHideLine},
    KeyCommand{Qt::Key_H, Qt::ShiftModifier, kCmShowAllLines},
};

} // namespace

void RegisterTraceMenu() {
    owl::RegisterMenuTemplate(kTraceMenu, kItems);
}

std::optional<unsigned> CommandOfKey(int key, Qt::KeyboardModifiers modifiers) {
    modifiers &= Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier;
    // Where "+" and "-" are on a keyboard depends on its layout, and so does the Shift they need.
    if (key == Qt::Key_Equal) {
        key = Qt::Key_Plus;
    } else if (key == Qt::Key_Underscore) {
        key = Qt::Key_Minus;
    }
    if (key == Qt::Key_Plus || key == Qt::Key_Minus) {
        modifiers &= ~Qt::ShiftModifier;
    }
    const auto found = std::find_if(kKeys.begin(), kKeys.end(), [&](const KeyCommand& entry) {
        return entry.key == key && entry.modifiers == modifiers;
    });
    return found == kKeys.end() ? std::nullopt : std::optional(found->command);
}

} // namespace orvanta::review

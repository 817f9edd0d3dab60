// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers, menu and keys of the trace view.
#pragma once

#include "host/toolkit/menu.h"

#include <Qt>

#include <optional>
#include <span>
#include <string>

namespace orvanta::review {

inline constexpr unsigned kTraceMenu = 8300;
inline constexpr unsigned kCmViewTraces = 9300; ///< the menu's title item, a command of the application

enum TraceCommand : unsigned {
    kCmFirstTraceCommand = 14700,
    kCmPageBack = kCmFirstTraceCommand,
    kCmPageForward,
    kCmStepBack,
    kCmStepForward,
    kCmSmallStepBack,
    kCmSmallStepForward,
    kCmToStart,
    kCmToEnd,
    kCmGoToTime,
    kCmPreviousEvent,
    kCmNextEvent,
    kCmLessTime,
    kCmMoreTime,
    kCmGainUp,
    kCmGainDown,
    kCmLineUp,
    kCmLineDown,
    kCmPreviousLine,
    kCmNextLine,
    kCmFewerLines,
    kCmMoreLines,
    kCmZoomBack,
    kCmMarkBad,
    kCmHideLine,
    kCmShowAllLines,
    kCmChannels,
    kCmCenter,
    kCmMarkMode,
    kCmMarkEvent,
    kCmEditEvent,
    kCmDeleteEvent,
    kCmUndo,
    kCmRedo,
    kCmCancel,
    kCmPlay,
    kCmTraceFont,
    kCmMeasureMode,
    kCmNegativeUp,
    kCmLastTraceCommand = kCmNegativeUp,
};

// Messages of the tool bar's boxes and of the background.
inline constexpr unsigned kMsgPageLength = 14760;
inline constexpr unsigned kMsgGain = 14761;
inline constexpr unsigned kMsgLowCut = 14762;
inline constexpr unsigned kMsgHighCut = 14763;
inline constexpr unsigned kMsgNotch = 14764;
inline constexpr unsigned kMsgMontage = 14765;
inline constexpr unsigned kMsgGrown = 14766;

/// A menu of some of the view's commands, with the texts and keys of its own menu; 0 is a separator.
owl::TMenu* MakeTraceMenu(std::span<const unsigned> commands, owl::TEventHandler& handler, QWidget& parent);

/// The text of an item with the key of the command beside it.
std::string WithKey(unsigned command, const std::string& text);

/// From now on the menu of the view has its items, in the language in use.
void RegisterTraceMenu();

/// The command of a key; nothing for a key without one.
std::optional<unsigned> CommandOfKey(int key, Qt::KeyboardModifiers modifiers);

} // namespace orvanta::review

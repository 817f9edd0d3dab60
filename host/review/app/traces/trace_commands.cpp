// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/trace_commands.h"

#include "host/review/app/traces/trace_texts.h"
#include "host/toolkit/menu_templates.h"

#include <QKeySequence>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace orvanta::review {

namespace {

/// A line of the menu: its text among those of section TRACES, and the key that is shown beside it.
struct TraceRow {
    unsigned id;
    const char* key;
    const char* text;
    const char* shortcut;
};

constexpr std::array kRows{
    TraceRow{kCmViewTraces, "viewTraces", "&View Traces", ""},
    TraceRow{kCmGoToTime, "goToTime", "&Go to Time...", "G"},
    TraceRow{kCmPageForward, "pageForward", "Page &Forward", "PgDown"},
    TraceRow{kCmPageBack, "pageBack", "Page &Back", "PgUp"},
    TraceRow{kCmToStart, "toStart", "To the &Start", "Home"},
    TraceRow{kCmToEnd, "toEnd", "To the &End", "End"},
    TraceRow{kCmNextEvent, "nextEvent", "&Next Event", "N"},
    TraceRow{kCmPreviousEvent, "previousEvent", "&Previous Event", "Shift+N"},
    TraceRow{kCmPlay, "play", "Pla&y", "Space"},
    TraceRow{0, "", "", ""},
    TraceRow{kCmGainUp, "gainUp", "Larger Traces", "+"},
    TraceRow{kCmGainDown, "gainDown", "Smaller Traces", "-"},
    TraceRow{kCmLessTime, "lessTime", "Less Time on the Page", "Ctrl++"},
    TraceRow{kCmMoreTime, "moreTime", "More Time on the Page", "Ctrl+-"},
    TraceRow{kCmFewerLines, "fewerLines", "Fewer Channels on the Page", "Ctrl+Down"},
    TraceRow{kCmMoreLines, "moreLines", "More Channels on the Page", "Ctrl+Up"},
    TraceRow{kCmZoomBack, "zoomBack", "&Zoom Back", "Backspace"},
    TraceRow{kCmCenter, "center", "Center &Traces on Their Mean", ""},
    TraceRow{kCmNegativeUp, "negativeUp", "Negative Up&wards", ""},
    TraceRow{0, "", "", ""},
    TraceRow{kCmChannels, "channels", "&Channels...", "C"},
    TraceRow{kCmMarkBad, "markBad", "Bad C&hannel", "B"},
    TraceRow{kCmHideLine, "hideChannel", "H&ide Channel", "H"},
    TraceRow{kCmShowAllLines, "showAll", "Show &All Channels", "Shift+H"},
    TraceRow{0, "", "", ""},
    TraceRow{kCmMarkMode, "markMode", "Mar&k Events by Clicks", "Shift+M"},
    TraceRow{kCmMeasureMode, "measureMode", "Measure by Dragging", "R"},
    TraceRow{kCmMarkEvent, "markEvent", "&Mark an Event Here...", "M"},
    TraceRow{kCmEditEvent, "editEvent", "Edit E&vent...", "Enter"},
    TraceRow{kCmDeleteEvent, "deleteEvent", "&Delete Event", "Del"},
    TraceRow{kCmUndo, "undoPlain", "&Undo", "Ctrl+Z"},
    TraceRow{kCmRedo, "redoPlain", "&Redo", "Ctrl+Y"},
    TraceRow{0, "", "", ""},
    TraceRow{kCmTraceFont, "font", "Select F&ont...", ""},
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
    KeyCommand{Qt::Key_G, Qt::NoModifier, kCmGoToTime},
    KeyCommand{Qt::Key_G, Qt::ControlModifier, kCmGoToTime},
    KeyCommand{Qt::Key_N, Qt::NoModifier, kCmNextEvent},
    KeyCommand{Qt::Key_N, Qt::ShiftModifier, kCmPreviousEvent},
    KeyCommand{Qt::Key_B, Qt::NoModifier, kCmMarkBad},
    KeyCommand{Qt::Key_H, Qt::NoModifier, kCmHideLine},
    KeyCommand{Qt::Key_H, Qt::ShiftModifier, kCmShowAllLines},
    KeyCommand{Qt::Key_C, Qt::NoModifier, kCmChannels},
    KeyCommand{Qt::Key_M, Qt::NoModifier, kCmMarkEvent},
    KeyCommand{Qt::Key_M, Qt::ShiftModifier, kCmMarkMode},
    KeyCommand{Qt::Key_R, Qt::NoModifier, kCmMeasureMode},
    KeyCommand{Qt::Key_Return, Qt::NoModifier, kCmEditEvent},
    KeyCommand{Qt::Key_Enter, Qt::NoModifier, kCmEditEvent},
    KeyCommand{Qt::Key_Delete, Qt::NoModifier, kCmDeleteEvent},
    KeyCommand{Qt::Key_Z, Qt::ControlModifier, kCmUndo},
    KeyCommand{Qt::Key_Y, Qt::ControlModifier, kCmRedo},
    KeyCommand{Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, kCmRedo},
    KeyCommand{Qt::Key_Escape, Qt::NoModifier, kCmCancel},
    KeyCommand{Qt::Key_Space, Qt::NoModifier, kCmPlay},
};

/// The text with the row's key beside it, which is named in the language in use.
std::string WithKey(const TraceRow& row, const std::string& text) {
    const QString key = QKeySequence::fromString(row.shortcut).toString(QKeySequence::NativeText);
    return key.isEmpty() ? text : text + '\t' + key.toStdString();
}

std::string TextOf(const TraceRow& row) {
    return row.id == 0 ? std::string() : WithKey(row, TraceText(row.key, row.text));
}

} // namespace

std::string WithKey(unsigned command, const std::string& text) {
    const auto* const row = std::ranges::find(kRows, command, &TraceRow::id);
    return row == kRows.end() ? text : WithKey(*row, text);
}

owl::TMenu* MakeTraceMenu(std::span<const unsigned> commands, owl::TEventHandler& handler, QWidget& parent) {
    auto* menu = new owl::TMenu({}, &handler, &parent);
    for (const unsigned command : commands) {
        const auto* const row = std::ranges::find(kRows, command, &TraceRow::id);
        menu->AppendItem(command, row == kRows.end() ? std::string() : TextOf(*row));
    }
    return menu;
}

void RegisterTraceMenu() {
    // Both last as long as the program: templates are not copied.
    static std::vector<std::string> texts;
    static std::vector<owl::MenuItem> items;
    texts.clear();
    items.clear();
    for (const TraceRow& row : kRows) {
        texts.push_back(TextOf(row));
    }
    for (std::size_t i = 0; i < kRows.size(); ++i) {
        items.push_back({kRows[i].id, texts[i].c_str()});
    }
    owl::RegisterMenuTemplate(kTraceMenu, items);
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

// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/macro_refusal.h"

#include "host/toolkit/message_module.h"
#include "host/toolkit/reasons.h"

namespace orvanta::side_bar {

namespace {

using Reason = owl::Wording; // or a remedy

constexpr Reason kReasons[] = {
    Reason{"largerThan", "larger than %s bytes"},
    Reason{"chooseMacro", "choose a macro file"},
    Reason{"noXml", "no well-formed XML: %s"},
    Reason{"restore", "restore the file from a copy or make a new one"},
    Reason{"noMacro", "no macro file"},
    Reason{"chooseSmx", "choose a file with the extension .smx"},
    Reason{"noVersion", "no version"},
    Reason{"newer", "from a newer version (macro file version %s, known is %s)"},
    Reason{"update", "update this program"},
    Reason{"fieldTwice", "%s is there twice"},
    Reason{"removeOne", "remove one of them"},
    Reason{"wholeNumber", "%s: a whole number from %s to %s is needed"},
    Reason{"oneOf", "%s: one of %s is needed"},
    Reason{"seconds", "%s: a number above 0 and at most %s is needed"},
    Reason{"windowName", "%s: the name of a window function is needed"},
    Reason{"color", "%s: a colour from 0x00000000 to 0x00FFFFFF (0x00BBGGRR) is needed"},
    Reason{"correct", "correct the value"},
    Reason{"moreLabels", "more than %s labels"},
    Reason{"shortenList", "shorten the list"},
    Reason{"longText", "a text of more than %s bytes"},
    Reason{"shorten", "shorten it"},
};

std::string Told(const std::string& english) {
    return owl::ReasonInUsersWords(PModule::Named("Orvanta"), kReasons, english);
}

} // namespace

std::string MacroRefusal(const std::string& error, const std::string& file) {
    const std::string begin = file + ": ";
    const std::size_t remedy = error.rfind(" (");
    if (!error.starts_with(begin) || !error.ends_with(')') || remedy == std::string::npos ||
        remedy < begin.size()) {
        return error;
    }
    const std::size_t inside = remedy + 2;
    return begin + Told(error.substr(begin.size(), remedy - begin.size())) + " (" +
           Told(error.substr(inside, error.size() - inside - 1)) + ")";
}

} // namespace orvanta::side_bar

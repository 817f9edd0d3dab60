// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/refusal_text.h"

#include "host/signal_base/recording_error.h"
#include "host/toolkit/reasons.h"

namespace orvanta::review {

namespace {

using Reason = owl::Wording; // or a remedy

constexpr Reason kReasons[] = {
    Reason{"chooseRecording", "choose a recording file"},
    Reason{"empty", "the file is empty"},
    Reason{"emptyFrom", "byte %s: the file is empty"},
    Reason{"unknownFormat", "it is no recording of a known format"},
    Reason{"openKnown", "open an EDF, EDF+, BDF, BDF+ or BrainVision file, or export to one of these"},
    Reason{"tooShort", "byte %s: %s bytes wanted, but the file ends at byte %s"},
    Reason{"copyWhole", "the file is shorter than its header says; copy it again"},
    Reason{"notRead", "byte %s cannot be read: %s"},
    Reason{"checkDisk", "check the disk or the network and open the file again"},
    Reason{"cut", "byte %s: the file was cut while open"},
    Reason{"changed", "was changed while open"},
    Reason{"openAgain", "open the file again"},
    Reason{"copyAgain", "copy the file again"},
    Reason{"headerCut", "byte %s: the file is shorter than a header of %s bytes"},
    Reason{"chooseEdf", "choose an EDF or BDF recording, or copy the file again"},
    // Of montages.
    Reason{"noSign", "no sign before %s"},
    Reason{"writeSigns", "write + or - before every term and names with blanks in quotes"},
    Reason{"openQuote", "a quote is not closed"},
    Reason{"closeQuote", "close the name with \""},
    Reason{"noSensorName", "a sensor name is missing"},
    Reason{"writeTerms", "write terms such as +Fp1 or -0.5*A1"},
    Reason{"noWeight", "%s is no weight"},
    Reason{"writeNumber", "write a number other than 0 before *"},
    Reason{"sensorTwice", "sensor %s occurs twice"},
    Reason{"oneWeight", "give every sensor one weight per channel"},
    Reason{"noSensor", "the channel has no sensor"},
    Reason{"writeTermsBehind", "write terms such as +Fp1 -F3 after ="},
    Reason{"noChannel", "has no channel"},
    Reason{"writeChannels", "write channels such as \"Fp1-F3 = +Fp1 -F3\""},
    Reason{"noMontageName", "a montage name is missing or not closed"},
    Reason{"writeName", "write [name]"},
    Reason{"montageTwice", "montage %s occurs twice"},
    Reason{"ownName", "give every montage its own name"},
    Reason{"isNoChannel", "is no channel"},
    Reason{"writeLine", "write a line such as \"Fp1-F3 = +Fp1 -F3\""},
    Reason{"channelTwice", "channel %s occurs twice"},
    Reason{"ownLabel", "give every channel its own label"},
    Reason{"emptyMontage", "montage %s has no channel"},
    Reason{"writeBelow", "write its channels below the name"},
    Reason{"notRecorded", "the recording has no channel %s"},
    Reason{"useListed", "use a channel's name as listed by the recording"},
    Reason{"useListedOrBlanks", "use a channel's name as listed by the recording, and blanks before the sign "
                                "of the next one (+Fp1 -F3) or quotes around a name"},
    Reason{"noEeg", "channel %s is no EEG"},
    Reason{"useEeg", "use EEG channels only"},
    Reason{"standsTwice", "channel %s stands in it twice"},
    Reason{"nameOnce", "name each channel once"},
};

std::string Told(const std::string& english, const PModule* messages) {
    return owl::ReasonInUsersWords(messages, kReasons, english);
}

} // namespace

std::string ReasonText(const signal::RecordingError& refused, const PModule* messages) {
    return Told(refused.Reason(), messages) + " (" + Told(refused.Remedy(), messages) + ")";
}

std::string RefusalText(const std::exception& error, const PModule* messages) {
    const auto* refused = dynamic_cast<const signal::RecordingError*>(&error);
    return refused != nullptr ? refused->File() + ": " + ReasonText(*refused, messages) : error.what();
}

} // namespace orvanta::review

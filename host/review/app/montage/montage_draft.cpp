// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/montage/montage_draft.h"

#include "host/review/app/montage/montage_texts.h"
#include "host/signal_base/montage/montage_file.h"

#include <algorithm>

namespace orvanta::review {

namespace {

constexpr qsizetype kLongestName = 100;
constexpr const char* kNotInNames = "\"*/:<>?|\\";

QString NameOf(const MontageFile& draft) {
    return QString::fromStdString(draft.name);
}

bool SameName(const MontageFile& a, const MontageFile& b) {
    return NameOf(a).compare(NameOf(b), Qt::CaseInsensitive) == 0;
}

bool CannotStand(QChar character) {
    return character.category() == QChar::Other_Control || QString(kNotInNames).contains(character);
}

QString ProblemOfName(const std::vector<MontageFile>& drafts, std::size_t at) {
    const QString name = NameOf(drafts[at]);
    if (name.isEmpty()) {
        return MontageWords("noName", "Type a name for the montage.");
    }
    if (name.size() > kLongestName) {
        return MontageWords("longName", "The name is too long (use %1 characters or fewer).")
            .arg(kLongestName);
    }
    if (name.startsWith('.') || std::ranges::any_of(name, CannotStand)) {
        return MontageWords("badName", "The name must not begin with \".\" or hold any of %1")
            .arg(kNotInNames);
    }
    for (std::size_t i = 0; i < drafts.size(); ++i) {
        if (i != at && SameName(drafts[i], drafts[at])) {
            return MontageWords("sameName", "Another montage has this name.");
        }
    }
    return {};
}

/// What the action throws about a montage.
template <typename Action>
MontageProblem ProblemOf(const Action& action) {
    try {
        action();
    } catch (const signal::MontageError& error) {
        return {ReasonText(error), error.Line()};
    } catch (const signal::RecordingError& error) {
        return {ReasonText(error), 0};
    }
    return {};
}

} // namespace

MontageProblem WhyNotStored(const std::vector<MontageFile>& drafts, std::size_t at) {
    if (QString name = ProblemOfName(drafts, at); !name.isEmpty()) {
        return {std::move(name), 0};
    }
    return ProblemOf([&] { signal::ParseMontages(drafts[at].text, drafts[at].name); });
}

MontageProblem WhyNotOffered(const MontageFile& draft, const TraceInfoType& sensors) {
    return ProblemOf([&] {
        for (const signal::MontageText& montage : signal::ParseMontages(draft.text, draft.name)) {
            signal::MakeUserMontage(montage, draft.name, sensors);
        }
    });
}

std::string FreeName(const std::vector<MontageFile>& drafts) {
    const QString pattern = MontageWords("newName", "Montage %1");
    for (int number = 1;; ++number) {
        const MontageFile made{pattern.arg(number).toStdString(), {}};
        if (std::ranges::none_of(drafts, [&](const MontageFile& draft) { return SameName(draft, made); })) {
            return made.name;
        }
    }
}

} // namespace orvanta::review

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/pane_shares.h"

#include <QStringList>

namespace orvanta::review {

namespace {

// "arrangement;traces,spectrum;traces,spectrum;traces,spectrum;shown,width"
constexpr int kParts = 5;
constexpr double kOne = 10'000;
constexpr int kWidest = 10'000; // logical pixels
constexpr int kOpen = -1;       // the user has not chosen

QString PairText(int first, int second) {
    return QString("%1,%2").arg(first).arg(second);
}

std::optional<std::pair<int, int>> PairOf(const QString& text) {
    const QStringList numbers = text.split(',');
    if (numbers.size() != 2) {
        return std::nullopt;
    }
    bool first = false;
    bool second = false;
    const std::pair pair(numbers[0].toInt(&first), numbers[1].toInt(&second));
    return first && second ? std::optional(pair) : std::nullopt;
}

int Stored(double share) {
    return qRound(share * kOne);
}

bool IsShare(int stored) {
    return stored >= Stored(kLeastShare) && stored <= Stored(1 - kLeastShare);
}

} // namespace

std::string TextOf(const PaneLayout& layout) {
    QStringList parts(QString::number(static_cast<int>(layout.arrangement)));
    for (const PaneShares& shares : layout.shares) {
        parts << PairText(Stored(shares.traces), Stored(shares.spectrum));
    }
    const int shown = layout.panel.shown ? static_cast<int>(*layout.panel.shown) : kOpen;
    parts << PairText(shown, layout.panel.width);
    return parts.join(';').toStdString();
}

std::optional<PaneLayout> PaneLayoutOf(const std::string& text) {
    const QStringList parts = QString::fromStdString(text).split(';');
    bool number = false;
    const int arrangement = parts.first().toInt(&number);
    if (parts.size() != kParts || !number || arrangement < 0 ||
        arrangement > static_cast<int>(Arrangement::Rows)) {
        return std::nullopt;
    }
    PaneLayout layout;
    layout.arrangement = static_cast<Arrangement>(arrangement);
    int part = 1;
    for (PaneShares& shares : layout.shares) {
        const auto pair = PairOf(parts[part++]);
        if (!pair || !IsShare(pair->first) || !IsShare(pair->second)) {
            return std::nullopt;
        }
        shares = {pair->first / kOne, pair->second / kOne};
    }
    const auto panel = PairOf(parts[part]);
    if (!panel || panel->first < kOpen || panel->first > 1 || panel->second < 0 || panel->second > kWidest) {
        return std::nullopt;
    }
    layout.panel.shown = panel->first == kOpen ? std::nullopt : std::optional(panel->first == 1);
    layout.panel.width = panel->second;
    return layout;
}

} // namespace orvanta::review

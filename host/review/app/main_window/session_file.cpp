// SPDX-License-Identifier: GPL-3.0-or-later
// Sessions as JSON files.
#include "host/platform/atomic_file.h"
#include "host/review/app/main_window/session.h"

#include <QCryptographicHash>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace orvanta::review {

namespace {

constexpr int kVersion = 1;
constexpr qint64 kMostBytes = 16 << 20;
constexpr qsizetype kMostAnalyses = 1000;

QJsonValue Number(const std::optional<std::size_t>& place) {
    return place ? QJsonValue(static_cast<qint64>(*place)) : QJsonValue(QJsonValue::Null);
}

std::optional<std::size_t> Place(const QJsonValue& value) {
    const qint64 place = value.toInteger(-1);
    return place >= 0 ? std::optional(static_cast<std::size_t>(place)) : std::nullopt;
}

std::string Text(const QJsonValue& value) {
    return value.toString().toStdString();
}

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

QJsonValue LookAsJson(const std::optional<SpectrumLook>& look) {
    if (!look) {
        return QJsonValue::Null;
    }
    return QJsonObject{{"mode", static_cast<int>(look->mode)},
                       {"normalisation", static_cast<int>(look->normalisation)},
                       {"labels", look->labels},
                       {"axesText", look->axesText},
                       {"measuresBox", look->measuresBox},
                       {"gain", look->gain},
                       {"firstTrace", static_cast<qint64>(look->firstTrace)}};
}

/// \param member stays as it is for a value that is none of its type
template <typename Enum>
void Take(Enum& member, const QJsonValue& value, Enum first, Enum last) {
    const int number = value.toInt(-1);
    if (number >= static_cast<int>(first) && number <= static_cast<int>(last)) {
        member = static_cast<Enum>(number);
    }
}

std::optional<SpectrumLook> LookOf(const QJsonValue& value) {
    if (!value.isObject()) {
        return std::nullopt;
    }
    SpectrumLook look;
    Take(look.mode, value["mode"], SPECT::Data::Mode::Mean, SPECT::Data::Mode::CSA);
    Take(look.normalisation, value["normalisation"], SPECT::Normalisation::None, SPECT::Normalisation::Db);
    look.labels = value["labels"].toBool(look.labels);
    look.axesText = value["axesText"].toBool(look.axesText);
    look.measuresBox = value["measuresBox"].toBool(look.measuresBox);
    if (const double gain = value["gain"].toDouble(); gain > 0 && std::isfinite(gain)) {
        look.gain = gain;
    }
    look.firstTrace = Place(value["firstTrace"]).value_or(look.firstTrace);
    return look;
}

} // namespace

std::string SessionFile(const std::string& folder, const std::string& recording) {
    const QByteArray hash =
        QCryptographicHash::hash(QByteArray::fromStdString(recording), QCryptographicHash::Sha256).toHex();
    constexpr int kDigits = 24;
    return folder + hash.left(kDigits).toStdString() + ".json";
}

std::optional<Session> LoadSession(const std::string& file) {
    QFile stored(Text(file));
    if (!stored.exists()) {
        return std::nullopt;
    }
    if (!stored.open(QIODevice::ReadOnly) || stored.size() > kMostBytes) {
        qInfo("%s: the session cannot be read", file.c_str());
        return std::nullopt;
    }
    const QJsonObject root = QJsonDocument::fromJson(stored.readAll()).object();
    const QJsonArray analyses = root["analyses"].toArray();
    if (root["version"].toInt() != kVersion || analyses.size() > kMostAnalyses) {
        qInfo("%s: this is no session of this release", file.c_str());
        return std::nullopt;
    }
    Session session;
    session.position = root["position"].toDouble();
    session.events = Text(root["events"]);
    session.montage = Text(root["montage"]);
    for (const auto& element : analyses) {
        const QJsonValue value = element;
        session.analyses.push_back({Text(value["macro"]), Text(value["settings"])});
    }
    const QJsonObject marks = root["marks"].toObject();
    for (auto mark = marks.begin(); mark != marks.end(); ++mark) {
        session.marks.push_back({mark.key().toStdString(), mark.value().toBool()});
    }
    session.main = Place(root["main"]);
    session.secondary = Place(root["secondary"]);
    session.heads = root["heads"].toBool();
    session.spectrum = LookOf(root["spectrum"]);
    return session;
}

void SaveSession(const std::string& file, const Session& session) {
    QJsonArray analyses;
    for (const SavedAnalysis& analysis : session.analyses) {
        analyses.append(QJsonObject{{"macro", Text(analysis.file)}, {"settings", Text(analysis.settings)}});
    }
    QJsonObject marks;
    for (const signal::ChannelMark& mark : session.marks) {
        marks.insert(Text(mark.name), mark.bad);
    }
    const QJsonObject root{{"version", kVersion},
                           {"position", session.position},
                           {"events", Text(session.events)},
                           {"montage", Text(session.montage)},
                           {"analyses", analyses},
                           {"main", Number(session.main)},
                           {"secondary", Number(session.secondary)},
                           {"heads", session.heads},
                           {"marks", marks},
                           {"spectrum", LookAsJson(session.spectrum)}};
    platform::WriteFileAtomically(file, QJsonDocument(root).toJson().toStdString());
}

} // namespace orvanta::review

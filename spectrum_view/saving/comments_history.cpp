// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/saving/comments_history.h"

#include "host/toolkit/services.h"
#include "spectra_contract/file_path.h"
#include "spectra_contract/platform.h"

#include <QFile>
#include <QLockFile>
#include <QSaveFile>

#include <algorithm>
#include <filesystem>
#include <pugixml.hpp>
#include <set>
#include <sstream>

namespace orvanta::spectrum_view {

namespace {

constexpr const char* kRoot = "DOC";
constexpr const char* kItem = "Item";
constexpr const char* kLabel = "Label";
constexpr const char* kLast = "Last";

std::string ElementOf(std::size_t protocol) {
    return "Protocol" + std::to_string(protocol + 1);
}

CommentsHistory HistoryOf(const pugi::xml_document& document) {
    CommentsHistory history;
    for (std::size_t i = 0; i < history.size(); ++i) {
        const pugi::xml_node protocol = document.child(kRoot).child(ElementOf(i).c_str());
        for (const pugi::xml_node item : protocol.children(kItem)) {
            if (const pugi::xml_attribute label = item.attribute(kLabel)) {
                history[i].names.emplace_back(label.value());
            }
        }
        history[i].last = protocol.attribute(kLast).value();
    }
    return history;
}

bool Contains(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

} // namespace

HistoryFiles CommentsHistoryFiles(const GenericPlatform* platform) {
    const owl::FileAccess& files = *owl::CurrentServices().files;
    FilePath path(files.ProgramFile());
    path.SetFile("spectra");
    path.SetExt(".xml");
    const std::string installed = path.GetFullPath();
    const std::string folder = std::filesystem::path(installed).parent_path();
    if (platform == nullptr || files.Access(folder, owl::FileAccess::kWritable) == 0) {
        return {installed, installed};
    }
    const std::string own = platform->GetAppFolder("PROTOCOLS") + "spectra.xml";
    const bool saved = files.Access(own, owl::FileAccess::kExists) == 0;
    return {saved ? own : installed, own};
}

CommentsHistory ParseHistory(std::string_view xml) {
    pugi::xml_document document;
    document.load_buffer(xml.data(), xml.size()); // what is damaged is read as far as it goes
    return HistoryOf(document);
}

std::string HistoryXml(const CommentsHistory& history) {
    pugi::xml_document document;
    pugi::xml_node root = document.append_child(kRoot);
    for (std::size_t i = 0; i < history.size(); ++i) {
        const auto& [names, last] = history[i];
        pugi::xml_node protocol = root.append_child(ElementOf(i).c_str());
        if (!last.empty()) {
            protocol.append_attribute(kLast).set_value(last.c_str());
        }
        std::set<std::string> sorted(names.begin(), names.end());
        sorted.insert(last);
        sorted.erase("");
        for (const std::string& name : sorted) {
            protocol.append_child(kItem).append_attribute(kLabel).set_value(name.c_str());
        }
    }
    std::ostringstream xml;
    document.save(xml, "\t", pugi::format_indent, pugi::encoding_auto);
    return xml.str();
}

CommentsHistory WithNamesOfOthers(CommentsHistory shown, const CommentsHistory& loaded,
                                  const CommentsHistory& now) {
    for (std::size_t i = 0; i < shown.size(); ++i) {
        std::copy_if(now[i].names.begin(), now[i].names.end(), std::back_inserter(shown[i].names),
                     [&known = loaded[i].names](const std::string& name) { return !Contains(known, name); });
    }
    return shown;
}

CommentsHistory LoadHistory(const std::string& file) {
    QFile source(QString::fromStdString(file)); // refuses a folder, for which the parser asks for all memory
    const bool opened = source.open(QIODevice::ReadOnly);
    const QByteArray xml = opened ? source.readAll() : QByteArray();
    return ParseHistory({xml.constData(), static_cast<std::size_t>(xml.size())});
}

void SaveHistory(const std::string& file, const CommentsHistory& shown, const CommentsHistory& loaded,
                 std::chrono::milliseconds patience) {
    const QString name = QString::fromStdString(file);
    QLockFile lock(name + ".lock");
    if (!lock.tryLock(static_cast<int>(patience.count()))) {
        qInfo("%s: the protocol names are not saved: the file cannot be locked", file.c_str());
        return;
    }
    const std::string xml = HistoryXml(WithNamesOfOthers(shown, loaded, LoadHistory(file)));
    QSaveFile target(name);
    const bool saved = target.open(QIODevice::WriteOnly) &&
                       target.write(xml.data(), static_cast<qint64>(xml.size())) >= 0 && target.commit();
    if (!saved) {
        qInfo("%s: the protocol names are not saved: %s", file.c_str(), qPrintable(target.errorString()));
    }
}

} // namespace orvanta::spectrum_view

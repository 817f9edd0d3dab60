// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/services.h"

#include "host/toolkit/module_file.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QImage>
#include <QProcess>

#include <cerrno>
#include <filesystem>
#include <unistd.h>
#include <utility>

namespace owl {

namespace {

class SystemFiles final : public FileAccess {
public:
    int Access(const std::string& path, int mode) const override {
        return ::access(path.c_str(), mode) == 0 ? 0 : errno;
    }
    int MakeFolders(const std::string& folder) const override {
        std::error_code error;
        std::filesystem::create_directories(folder, error);
        return error.value();
    }
    int Remove(const std::string& file) const override { return ::unlink(file.c_str()) == 0 ? 0 : errno; }
    std::vector<std::string> FilesIn(const std::string& folder, const std::string& ending) const override {
        std::vector<std::string> names;
        for (const QString& name :
             QDir(QString::fromStdString(folder))
                 .entryList(QDir::Files | QDir::Hidden, QDir::Name | QDir::IgnoreCase)) {
            std::string text = name.toStdString();
            if (text.ends_with(ending)) {
                names.push_back(std::move(text));
            }
        }
        return names;
    }
};

class QtProcesses final : public ProcessLauncher {
public:
    bool Launch(const std::string& commandLine, const std::string& folder) const override {
        QStringList words = QProcess::splitCommand(QString::fromStdString(commandLine));
        if (words.isEmpty()) {
            return false;
        }
        // A path is meant from here and not from the folder that it starts in.
        const QFileInfo named(words.takeFirst());
        const QString program = named.isFile() ? named.absoluteFilePath() : named.filePath();
        return QProcess::startDetached(program, words, QString::fromStdString(folder));
    }
};

/// A program of the command line has neither.
bool HasKeyboardAndClipboard() {
    return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr;
}

class QtClipboard final : public Clipboard {
public:
    void SetText(const std::string& text) const override {
        if (HasKeyboardAndClipboard()) {
            QGuiApplication::clipboard()->setText(QString::fromStdString(text));
        }
    }
    void SetImage(const QImage& image) const override {
        if (HasKeyboardAndClipboard()) {
            QGuiApplication::clipboard()->setImage(image);
        }
    }
};

class QtKeys final : public KeyState {
public:
    bool IsDown(unsigned virtualKey) const override {
        const Qt::KeyboardModifiers held =
            HasKeyboardAndClipboard() ? QGuiApplication::queryKeyboardModifiers() : Qt::KeyboardModifiers();
        return (virtualKey == kVkShift && held.testFlag(Qt::ShiftModifier)) ||
               (virtualKey == kVkControl && held.testFlag(Qt::ControlModifier)) ||
               (virtualKey == kVkAlt && held.testFlag(Qt::AltModifier));
    }
};

class SteadyClock final : public Clock {
public:
    SteadyClock() { timer_.start(); }
    std::int64_t Milliseconds() const override { return timer_.elapsed(); }

private:
    QElapsedTimer timer_;
};

const Services*& Replacement() {
    static const Services* services = nullptr;
    return services;
}

} // namespace

FileAccess::~FileAccess() = default;
std::string FileAccess::ProgramFile() const {
    return ModuleFileName(nullptr);
}
ProcessLauncher::~ProcessLauncher() = default;
Clipboard::~Clipboard() = default;
KeyState::~KeyState() = default;
Clock::~Clock() = default;

const Services& CurrentServices() {
    static const SystemFiles files;
    static const QtProcesses processes;
    static const QtClipboard clipboard;
    static const QtKeys keys;
    static const SteadyClock clock;
    static const Services system{&files, &processes, &clipboard, &keys, &clock};
    return Replacement() != nullptr ? *Replacement() : system;
}

const Services* ReplaceServices(const Services* services) {
    return std::exchange(Replacement(), services);
}

} // namespace owl

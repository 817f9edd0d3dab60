// SPDX-License-Identifier: GPL-3.0-or-later
// What windows ask of the system besides Qt: files, processes, the clipboard, the keyboard, the time.
#pragma once

#include "host/toolkit/export.h"

#include <cstdint>
#include <string>
#include <vector>

class QImage;

namespace owl {

/// The system's errors are errno values; 0 stands for success.
class ORVANTA_TOOLKIT_API FileAccess {
public:
    /// Modes of Access, added.
    static constexpr int kExists = 0;
    static constexpr int kWritable = 2;
    static constexpr int kReadable = 4;

    virtual ~FileAccess();
    /// 0 when the file may be used so; sets errno too.
    virtual int Access(const std::string& path, int mode) const = 0;
    /// Makes the folder and the ones above it that are missing.
    virtual int MakeFolders(const std::string& folder) const = 0;
    virtual int Remove(const std::string& file) const = 0;
    /// Names, without folder, of the files in \p folder that end with \p ending, in alphabetical order, case
    /// ignored; empty for a folder that cannot be read.
    virtual std::vector<std::string> FilesIn(const std::string& folder, const std::string& ending) const = 0;
    /// Full path of the running program; empty when the system does not know.
    virtual std::string ProgramFile() const;
};

class ORVANTA_TOOLKIT_API ProcessLauncher {
public:
    virtual ~ProcessLauncher();
    /// Starts a program and does not wait for it.
    /// \param commandLine the program and its arguments, each in double quotes when it holds blanks
    /// \param folder to start it in
    virtual bool Launch(const std::string& commandLine, const std::string& folder) const = 0;
};

class ORVANTA_TOOLKIT_API Clipboard {
public:
    virtual ~Clipboard();
    virtual void SetText(const std::string& text) const = 0;
    virtual void SetImage(const QImage& image) const = 0;
};

/// Virtual keys of the keyboard state.
constexpr unsigned kVkShift = 0x10;
constexpr unsigned kVkControl = 0x11;
constexpr unsigned kVkAlt = 0x12;

class ORVANTA_TOOLKIT_API KeyState {
public:
    virtual ~KeyState();
    virtual bool IsDown(unsigned virtualKey) const = 0;
};

class ORVANTA_TOOLKIT_API Clock {
public:
    virtual ~Clock();
    /// Milliseconds since an arbitrary start; never goes back.
    virtual std::int64_t Milliseconds() const = 0;
};

/// All of them. Windows and forms take theirs when they are made.
struct Services {
    const FileAccess* files;
    const ProcessLauncher* processes;
    const Clipboard* clipboard;
    const KeyState* keys;
    const Clock* clock;
};

/// The system's own, unless replaced.
ORVANTA_TOOLKIT_API const Services& CurrentServices();

/// From now on these are used; null for the system's own. Answers what was set before.
ORVANTA_TOOLKIT_API const Services* ReplaceServices(const Services* services);

} // namespace owl

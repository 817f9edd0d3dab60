// SPDX-License-Identifier: GPL-3.0-or-later
// Files that are either the old or the new one, whole.
#pragma once

#include "spectra_contract/api.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace orvanta::platform {

/// The system calls of a save, replaceable so that each one's failure can be tested. Those that fail return
/// -1 and set errno.
struct FileOperations {
    std::function<int(const char* path)> create; ///< exclusive; descriptor or -1
    /// Gives the new file the permissions of the file at \p model; 0 also when there is no such file.
    std::function<int(int descriptor, const char* model)> copy_mode;
    std::function<long(int descriptor, const char* data, unsigned long size)> write;
    std::function<int(int descriptor)> sync;
    std::function<int(int descriptor)> close;
    std::function<int(const char* from, const char* to)> rename;
    std::function<int(const char* path)> remove;
    std::function<int(const char* folder)> sync_folder;

    /// The system's own.
    ORVANTA_API static const FileOperations& System();
    /// Those, without waiting until the data are on the disk: for what can be computed again.
    ORVANTA_API static const FileOperations& WithoutSync();
};

/// A save in pieces: written to a temporary file beside \p path, which takes the place of \p path only when
/// it is complete and on the disk. A link stays a link: the file it points at is replaced. The permissions of
/// an existing file are kept. On failure the old file stays as it was, the temporary one is removed, and the
/// system's reason is in the exception, a std::runtime_error "PATH: reason (remedy)".
class ORVANTA_API AtomicFile {
public:
    /// \throws std::runtime_error; also when something that is no regular file has that name
    explicit AtomicFile(const std::string& path, const FileOperations& operations = FileOperations::System());
    /// Removes what was not committed.
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    /// Appends. \throws std::runtime_error
    void Write(std::string_view content);
    /// Puts the file in place; the last call. Once the rename is done the save counts as done: a folder that
    /// cannot be synced is no failure. \throws std::runtime_error
    void Commit();

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

/// Saves \p content as a whole, as AtomicFile does. \throws std::runtime_error "PATH: reason (remedy)"
ORVANTA_API void WriteFileAtomically(const std::string& path, std::string_view content,
                                     const FileOperations& operations = FileOperations::System());

} // namespace orvanta::platform

// SPDX-License-Identifier: GPL-3.0-or-later
// The system calls behind a save.
#include "host/platform/atomic_file.h"

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orvanta::platform {

namespace {

int Create(const char* path) {
    return ::open(path, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
}

int CopyMode(int descriptor, const char* model) {
    struct stat status {};
    if (::stat(model, &status) != 0) {
        return errno == ENOENT ? 0 : -1;
    }
    return ::fchmod(descriptor, status.st_mode & 07777u);
}

int SyncFolder(const char* folder) {
    const int descriptor = ::open(folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) {
        return -1;
    }
    const int result = ::fsync(descriptor);
    ::close(descriptor);
    return result;
}

} // namespace

const FileOperations& FileOperations::System() {
    static const FileOperations system = {
        Create, CopyMode, ::write, ::fsync, ::close, ::rename, ::unlink, SyncFolder,
    };
    return system;
}

const FileOperations& FileOperations::WithoutSync() {
    static const FileOperations operations = [] {
        FileOperations unsynced = System();
        unsynced.sync = [](int) { return 0; };
        unsynced.sync_folder = [](const char*) { return 0; };
        return unsynced;
    }();
    return operations;
}

} // namespace orvanta::platform

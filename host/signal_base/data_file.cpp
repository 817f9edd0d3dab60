// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/data_file.h"

#include "host/signal_base/recording_error.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace orvanta::signal {

namespace {

std::string SystemText(int error) {
    return std::generic_category().message(error);
}

const char* KindOf(mode_t mode) {
    switch (mode & S_IFMT) {
    case S_IFDIR:
        return "is a folder";
    case S_IFIFO:
        return "is a FIFO";
    case S_IFCHR:
    case S_IFBLK:
        return "is a device";
    case S_IFSOCK:
        return "is a socket";
    default:
        return "is no regular file";
    }
}

[[noreturn]] void RefuseKind(const std::string& path, mode_t mode, const char* wanted) {
    throw RecordingError(path, KindOf(mode), std::string("choose ") + wanted);
}

[[noreturn]] void RefuseOpen(const std::string& path, int error) {
    if (error == ENOENT || error == ENOTDIR) {
        throw RecordingError(path, "does not exist", "check the name and the folder");
    }
    throw RecordingError(path, "cannot be opened: " + SystemText(error), "check the permissions of the file");
}

} // namespace

DataFile::DataFile(std::string path, const char* wanted) : path_(std::move(path)) {
    struct stat status {};
    // Looked at before it is opened: opening a device can already do something.
    if (::stat(path_.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) {
        RefuseKind(path_, status.st_mode, wanted);
    }
    descriptor_ = ::open(path_.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor_ < 0) {
        RefuseOpen(path_, errno);
    }
    if (::fstat(descriptor_, &status) != 0 || !S_ISREG(status.st_mode)) {
        ::close(descriptor_);
        RefuseKind(path_, status.st_mode, wanted);
    }
    size_ = static_cast<std::uint64_t>(status.st_size);
    changedSeconds_ = status.st_mtim.tv_sec;
    changedNanoseconds_ = status.st_mtim.tv_nsec;
}

DataFile::~DataFile() {
    ::close(descriptor_);
}

void DataFile::ReadAt(std::uint64_t offset, std::size_t size, std::byte* destination) const {
    if (offset > size_ || size > size_ - offset) {
        throw RecordingError(path_,
                             "byte " + std::to_string(offset) + ": " + std::to_string(size) +
                                 " bytes wanted, but the file ends at byte " + std::to_string(size_),
                             "the file is shorter than its header says; copy it again");
    }
    std::size_t done = 0;
    while (done < size) {
        const ssize_t got =
            ::pread(descriptor_, destination + done, size - done, static_cast<off_t>(offset + done));
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got < 0) {
            throw RecordingError(
                path_, "byte " + std::to_string(offset + done) + " cannot be read: " + SystemText(errno),
                "check the disk or the network and open the file again");
        }
        if (got == 0) {
            break;
        }
        done += static_cast<std::size_t>(got);
    }
    // Checked after the bytes are here, so that a change while they were read is noticed too.
    CheckUnchanged();
    if (done < size) {
        throw RecordingError(path_, "byte " + std::to_string(offset + done) + ": the file was cut while open",
                             "open the file again");
    }
}

std::string DataFile::ReadAll(std::uint64_t limit) const {
    if (size_ > limit) {
        throw RecordingError(path_,
                             "has " + std::to_string(size_) + " bytes, more than the " +
                                 std::to_string(limit) + " that such a file may have",
                             "check that it is the right file");
    }
    std::string text(static_cast<std::size_t>(size_), '\0');
    ReadAt(0, text.size(), reinterpret_cast<std::byte*>(text.data()));
    return text;
}

void DataFile::CheckUnchanged() const {
    struct stat status {};
    if (::fstat(descriptor_, &status) != 0) {
        throw RecordingError(path_, "cannot be examined: " + SystemText(errno), "open the file again");
    }
    if (static_cast<std::uint64_t>(status.st_size) != size_ || status.st_mtim.tv_sec != changedSeconds_ ||
        status.st_mtim.tv_nsec != changedNanoseconds_) {
        throw RecordingError(path_, "was changed while open", "open the file again");
    }
}

} // namespace orvanta::signal

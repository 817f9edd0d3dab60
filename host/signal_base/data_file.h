// SPDX-License-Identifier: GPL-3.0-or-later
// A regular file that is read by position and watched for changes.
#pragma once

#include "spectra_contract/api.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace orvanta::signal {

/// A file open for reading. It is never memory-mapped: a file that shrinks is a short read and an error, not
/// a signal. Reading is safe from several threads at once.
class ORVANTA_API DataFile {
public:
    /// \throws RecordingError when the file is missing, may not be read or is no regular file (a folder, a
    /// FIFO and a device are refused without waiting on them)
    /// \param wanted what kind of file is wanted, for the remedy "choose ..."
    explicit DataFile(std::string path, const char* wanted = "a recording file");
    ~DataFile();
    DataFile(const DataFile&) = delete;
    DataFile& operator=(const DataFile&) = delete;

    const std::string& Path() const { return path_; }
    /// Bytes at the time of opening.
    std::uint64_t Size() const { return size_; }
    /// Reads exactly \p size bytes from byte \p offset.
    /// \throws RecordingError when the bytes lie beyond Size(), the file's size or time of change differ from
    /// those at opening, or the system reports an error
    void ReadAt(std::uint64_t offset, std::size_t size, std::byte* destination) const;
    /// The whole file. \throws RecordingError as ReadAt, and when the file is larger than \p limit bytes
    std::string ReadAll(std::uint64_t limit) const;

private:
    void CheckUnchanged() const;

    std::string path_;
    int descriptor_ = -1;
    std::uint64_t size_ = 0;
    std::int64_t changedSeconds_ = 0;
    std::int64_t changedNanoseconds_ = 0;
};

} // namespace orvanta::signal

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/files/tab_file.h"

#include "host/spectral_data/files/general_number.h"

#include <algorithm>

namespace orvanta::spectral {

namespace {

constexpr std::size_t kBufferBytes = std::size_t{1} << 20;

char WithoutControl(char c) {
    const auto code = static_cast<unsigned char>(c);
    return code < 0x20 || code == 0x7F ? ' ' : c;
}

} // namespace

TabFile::TabFile(const std::string& path, const platform::FileOperations& operations)
    : file_(path, operations), buffer_(kBufferBytes) {}

void TabFile::Field(std::string_view text) {
    char* out = std::transform(text.begin(), text.end(), Room(text.size() + 1), WithoutControl);
    *out++ = '\t';
    used_ = static_cast<std::size_t>(out - buffer_.data());
}

void TabFile::Numbers(std::span<const double> values) {
    char* out = Room(values.size() * (kGeneralWidth + 1));
    for (const double value : values) {
        out = WriteGeneral(out, value);
        *out++ = '\t';
    }
    used_ = static_cast<std::size_t>(out - buffer_.data());
}

void TabFile::EndLine() {
    *Room(1) = '\n';
    ++used_;
}

void TabFile::Commit() {
    Flush();
    file_.Commit();
}

char* TabFile::Room(std::size_t size) {
    if (size > buffer_.size() - used_) {
        Flush();
        buffer_.resize(std::max(buffer_.size(), size));
    }
    return buffer_.data() + used_;
}

void TabFile::Flush() {
    file_.Write({buffer_.data(), used_});
    used_ = 0;
}

} // namespace orvanta::spectral

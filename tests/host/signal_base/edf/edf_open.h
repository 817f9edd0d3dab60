// SPDX-License-Identifier: GPL-3.0-or-later
// Opens made-up files.
#pragma once

#include "host/signal_base/recording_data.h"
#include "host/signal_base/recording_error.h"
#include "tests/support/edf_file.h"
#include "tests/support/recording_reader.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orvanta::test {

/// The file is gone when this returns; the open recording still reads it.
inline signal::RecordingData Open(const std::string& bytes) {
    const TempFolder folder;
    return signal::ReadEdf(folder.Write("made.edf", bytes));
}

inline signal::RecordingData Open(const EdfFile& file) {
    return Open(file.Bytes());
}

/// The reason for which the bytes are refused; fails the test when they are not, or say not what to do.
inline std::string Refusal(const std::string& bytes) {
    try {
        Open(bytes);
    } catch (const signal::RecordingError& error) {
        EXPECT_THAT(error.File(), testing::EndsWith("made.edf"));
        EXPECT_NE(error.Remedy(), "");
        EXPECT_EQ(std::string(error.what()).find('\n'), std::string::npos);
        return error.Reason();
    }
    ADD_FAILURE() << "not refused";
    return "";
}

inline std::string Refusal(const EdfFile& file) {
    return Refusal(file.Bytes());
}

} // namespace orvanta::test

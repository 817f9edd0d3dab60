// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/edf/edf_source.h"

#include "host/signal_base/recording_error.h"

#include <utility>

namespace orvanta::signal {

namespace {

class EdfSource final : public BlockSource {
public:
    EdfSource(std::shared_ptr<const DataFile> file, const EdfHeader& header, std::uint64_t records)
        : file_(std::move(file)), firstByte_(header.first_byte), recordBytes_(header.record_bytes),
          records_(records) {
        for (const EdfSignal& signal : header.signals) {
            layouts_.push_back(signal.layout);
        }
    }

    std::size_t SignalCount() const override { return layouts_.size(); }
    const SignalLayout& Layout(std::size_t signal) const override { return layouts_.at(signal); }
    std::uint64_t BlockCount() const override { return records_; }
    std::size_t BlockBytes() const override { return recordBytes_; }
    std::uint64_t SampleCount(std::size_t signal) const override { return records_ * Layout(signal).samples; }

    void Read(std::uint64_t first, std::uint64_t count, std::byte* destination) const override {
        if (first > records_ || count > records_ - first) {
            throw RecordingError(file_->Path(),
                                 "data record " + std::to_string(first + count) + " wanted, but there are " +
                                     std::to_string(records_),
                                 "ask for fewer data records");
        }
        file_->ReadAt(firstByte_ + first * recordBytes_, static_cast<std::size_t>(count) * recordBytes_,
                      destination);
    }

private:
    std::shared_ptr<const DataFile> file_;
    std::vector<SignalLayout> layouts_;
    std::uint64_t firstByte_;
    std::size_t recordBytes_;
    std::uint64_t records_;
};

} // namespace

std::shared_ptr<const BlockSource> MakeEdfSource(std::shared_ptr<const DataFile> file,
                                                 const EdfHeader& header, std::uint64_t records) {
    return std::make_shared<EdfSource>(std::move(file), header, records);
}

} // namespace orvanta::signal

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/recording/kept_source.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <unordered_map>
#include <utility>

namespace orvanta::signal {

namespace {

/// Blocks are kept in pages of about this size, each of which is read as a whole.
constexpr std::uint64_t kPageBytes = std::uint64_t{1} << 20;

} // namespace

/// Runs of blocks that lie fixed in the source, in memory or still to be read.
class KeptSource::Pages {
public:
    Pages(std::shared_ptr<const BlockSource> source, std::uint64_t limit)
        : source_(std::move(source)), blockBytes_(std::max<std::size_t>(1, source_->BlockBytes())),
          pageBlocks_(std::max<std::uint64_t>(1, kPageBytes / blockBytes_)), left_(limit) {}

    /// The blocks exist.
    void Read(std::uint64_t first, std::uint64_t count, std::byte* destination) {
        for (std::uint64_t block = first; block < first + count;) {
            const std::uint64_t page = block / pageBlocks_;
            const std::uint64_t here = std::min((page + 1) * pageBlocks_, first + count) - block;
            std::byte* to = destination + (block - first) * blockBytes_;
            if (const std::byte* held = Find(page)) {
                std::memcpy(to, held + (block - page * pageBlocks_) * blockBytes_, here * blockBytes_);
            } else {
                source_->Read(block, here, to);
            }
            block += here;
        }
    }

private:
    struct Page {
        std::mutex mutex;
        std::unique_ptr<std::byte[]> bytes; ///< null until it was read
    };

    /// Null when the page is beyond the limit or cannot be read as a whole.
    const std::byte* Find(std::uint64_t index) {
        const std::uint64_t first = index * pageBlocks_;
        const std::uint64_t count = std::min(pageBlocks_, source_->BlockCount() - first);
        Page* page = Claim(index, count * blockBytes_);
        if (page == nullptr) {
            return nullptr;
        }
        // Who comes while it is being read waits for it.
        const std::lock_guard lock(page->mutex);
        if (!page->bytes) {
            try {
                auto bytes = std::make_unique_for_overwrite<std::byte[]>(count * blockBytes_);
                source_->Read(first, count, bytes.get());
                page->bytes = std::move(bytes);
            } catch (const std::exception&) {
                return nullptr; // the blocks that are wanted may be readable, and else they say what is wrong
            }
        }
        return page->bytes.get();
    }

    /// The page, with room for it; null when there is none.
    Page* Claim(std::uint64_t index, std::uint64_t bytes) {
        const std::lock_guard lock(mutex_);
        if (const auto known = pages_.find(index); known != pages_.end()) {
            return &known->second;
        }
        if (bytes > left_) {
            return nullptr;
        }
        left_ -= bytes;
        return &pages_[index]; // stays where it is while others come
    }

    std::shared_ptr<const BlockSource> source_;
    std::size_t blockBytes_;
    std::uint64_t pageBlocks_;
    std::mutex mutex_;
    std::uint64_t left_; ///< bytes
    std::unordered_map<std::uint64_t, Page> pages_;
};

KeptSource::KeptSource(std::shared_ptr<const BlockSource> inner) : inner_(std::move(inner)) {}

KeptSource::~KeptSource() = default;

std::shared_ptr<const void> KeptSource::Keep(std::uint64_t limit) const {
    const std::lock_guard lock(mutex_);
    std::shared_ptr<Pages> pages = pages_.lock();
    if (!pages) {
        pages = std::make_shared<Pages>(inner_, limit);
        pages_ = pages;
    }
    return pages;
}

void KeptSource::Read(std::uint64_t first, std::uint64_t count, std::byte* destination) const {
    std::shared_ptr<Pages> pages;
    {
        const std::lock_guard lock(mutex_);
        pages = pages_.lock();
    }
    const bool exist = first <= BlockCount() && count <= BlockCount() - first;
    if (pages && exist) {
        pages->Read(first, count, destination);
    } else {
        inner_->Read(first, count, destination);
    }
}

} // namespace orvanta::signal

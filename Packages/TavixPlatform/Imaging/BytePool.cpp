#include "TavixPlatform/Imaging/BytePool.h"

#include <bit>
#include <cstdint>
#include <new>
#include <sys/mman.h>

namespace tavix::imaging {

namespace {

constexpr std::align_val_t alignment{64};
// Room behind the last pixel, so that kernels may read a whole vector there.
constexpr std::size_t slackBytes = 256;

// Pictures of a film's size are touched whole; in pages of 4 KB the first touch of each takes the system
// longer than what is drawn there takes us.
constexpr std::size_t leastForLargePages = std::size_t{4} << 20, largePageBytes = std::size_t{2} << 20;

void askForLargePages(std::uint8_t* bytes, std::size_t count) {
    const auto address = reinterpret_cast<std::uintptr_t>(bytes);
    const std::size_t before = (largePageBytes - address % largePageBytes) % largePageBytes;
    const std::size_t whole = (count - before) / largePageBytes * largePageBytes;
    ::madvise(bytes + before, whole, MADV_HUGEPAGE);   // a wish; without it only time is lost
}

std::uint8_t* allocate(std::size_t capacity) {
    auto* bytes = static_cast<std::uint8_t*>(::operator new[](capacity + slackBytes, alignment));
    if (capacity >= leastForLargePages) askForLargePages(bytes, capacity);
    return bytes;
}

// Pictures that grow and shrink from frame to frame take the same few sizes: eight to the double.
std::size_t roundedUp(std::size_t count) {
    const std::size_t step = std::bit_floor(count) / 8 + 1;
    return (count + step - 1) / step * step;
}

void release(std::uint8_t* bytes) { ::operator delete[](bytes, alignment); }

}   // namespace

void PooledBytesDeleter::operator()(std::uint8_t* bytes) const {
    if (pool)
        pool->giveBack({bytes, capacity});
    else
        release(bytes);
}

BytePool::~BytePool() {
    for (const Block& block : idle_) release(block.bytes);
}

std::size_t BytePool::allocationCount() const {
    const std::lock_guard lock(mutex_);
    return allocationCount_;
}

BytePool::Block BytePool::take(std::size_t count) {
    {
        const std::lock_guard lock(mutex_);
        std::size_t best = idle_.size();
        for (std::size_t i = 0; i < idle_.size(); ++i) {
            const bool fits = idle_[i].capacity >= count && idle_[i].capacity / 2 <= count;
            if (fits && (best == idle_.size() || idle_[i].capacity < idle_[best].capacity)) best = i;
        }
        if (best < idle_.size()) {
            const Block block = idle_[best];
            idle_.erase(idle_.begin() + std::ptrdiff_t(best));
            idleBytes_ -= block.capacity;
            return block;
        }
        ++allocationCount_;
    }
    const std::size_t capacity = roundedUp(count);
    return {allocate(capacity), capacity};
}

void BytePool::giveBack(Block block) {
    std::vector<Block> surplus;
    {
        const std::lock_guard lock(mutex_);
        idle_.push_back(block);
        idleBytes_ += block.capacity;
        while (idleBytes_ > mostIdleBytes_ && !idle_.empty()) {   // the longest idle goes first
            surplus.push_back(idle_.front());
            idleBytes_ -= idle_.front().capacity;
            idle_.erase(idle_.begin());
        }
    }
    for (const Block& b : surplus) release(b.bytes);
}

PooledBytes takeBytes(std::size_t count, const std::shared_ptr<BytePool>& pool) {
    if (!pool) return {allocate(count), PooledBytesDeleter{nullptr, count}};
    const BytePool::Block block = pool->take(count);
    return {block.bytes, PooledBytesDeleter{pool, block.capacity}};
}

}   // namespace tavix::imaging

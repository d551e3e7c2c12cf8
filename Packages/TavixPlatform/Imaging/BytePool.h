// Memory for pixels that is used again: blocks come back when their owner goes, and serve the next taker.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace tavix::imaging {

class BytePool;

struct PooledBytesDeleter {
    std::shared_ptr<BytePool> pool;
    std::size_t capacity = 0;
    void operator()(std::uint8_t* bytes) const;
};
using PooledBytes = std::unique_ptr<std::uint8_t[], PooledBytesDeleter>;   // aligned to 64 bytes

// May be shared by threads; it owns its lock.
class BytePool {
public:
    explicit BytePool(std::size_t mostIdleBytes) : mostIdleBytes_(mostIdleBytes) {}
    ~BytePool();
    BytePool(const BytePool&) = delete;
    BytePool& operator=(const BytePool&) = delete;

    std::size_t allocationCount() const;   // how often memory was asked of the system

private:
    friend PooledBytes takeBytes(std::size_t count, const std::shared_ptr<BytePool>& pool);
    friend struct PooledBytesDeleter;
    struct Block {
        std::uint8_t* bytes;
        std::size_t capacity;
    };
    Block take(std::size_t count);
    void giveBack(Block block);

    mutable std::mutex mutex_;
    std::vector<Block> idle_;
    std::size_t idleBytes_ = 0;
    std::size_t mostIdleBytes_;
    std::size_t allocationCount_ = 0;
};

// At least that many bytes, with whatever was in them; without a pool from the system.
PooledBytes takeBytes(std::size_t count, const std::shared_ptr<BytePool>& pool);

}   // namespace tavix::imaging

// What drawing needs: threads, scratch memory, and the results kept from frame to frame. Inside the library
// only.
#pragma once

#include "TavixPlatform/Imaging/BytePool.h"
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Imaging/Node.h"
#include "TavixPlatform/Imaging/ScratchLoop.h"

#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <unordered_map>

namespace tavix::imaging {

// Results by what they are of. What a film's last frame did not use goes, since what moves never comes back;
// and the least recently used go when there are more bytes than allowed.
class ResultCache {
public:
    struct Limits {
        std::size_t mostBytes;
        bool comparesStructures = false;   // as in `EvaluatorOptions`
    };
    explicit ResultCache(const Limits& limits) : limits_(limits) {}

    enum class Kind { picture, halved, pyramid };   // a Bitmap, a Bitmap, a GaussianPyramid
    struct Subject {
        Kind kind;
        NodeRef node = nullptr;   // of a picture and a pyramid
        PixelRegion region = {};
        std::uint64_t bitmapId = 0;   // of what is halved
        int halvings = 0;

        Digest key() const;
        bool isSameAs(const Subject& other) const;   // field by field and node by node
    };
    std::shared_ptr<const void> find(const Subject& subject);
    void keep(const Subject& subject, std::shared_ptr<const void> result, std::size_t bytes);
    void endFrame();

private:
    struct Entry {
        Digest key;
        std::shared_ptr<const void> result;
        std::size_t bytes;
        std::uint64_t lastFrame;
        std::optional<Subject> subject;   // where structures are compared
    };
    void dropLast();
    struct Bucket {
        std::size_t operator()(const Digest& key) const { return std::size_t(key.low); }
    };
    std::list<Entry> byUse_;   // the latest first
    std::unordered_map<Digest, std::list<Entry>::iterator, Bucket> entries_;
    Limits limits_;
    std::size_t bytes_ = 0;
    std::uint64_t frame_ = 0;
};

// Pixels of a node that stand in memory, for random access.
struct Picture {
    BitmapRef bitmap;
    PixelRegion region;   // where its pixels lie
    bool isEmpty() const { return region.isEmpty(); }
};

// Used by one thread at a time, apart from the jobs that it hands out itself.
class RenderContext {
public:
    explicit RenderContext(const EvaluatorOptions& options);
    ~RenderContext();

    // Runs job(i, scratch) for i in 0 ... count - 1 on the context's threads and returns when all are done.
    void forEach(int count, const std::function<void(int, Scratch&)>& job) { loop_.run(count, job); }
    // The pixels of a node within `needed`: computed, found in the cache, or those of a bitmap node itself.
    // May cover more.
    Picture pictureOf(const NodeRef& node, const PixelRegion& needed);
    // Draws a node into a target that covers the target's region.
    void drawInto(const NodeRef& node, const Tile& target);
    DrawableRef prepare(const NodeRef& node, const PixelRegion& wanted);

    ResultCache& cache() { return cache_; }
    bool comparesStructures() const { return comparesStructures_; }
    const std::shared_ptr<BytePool>& pool() const { return pool_; }

private:
    ScratchLoop loop_;
    bool comparesStructures_;
    ResultCache cache_;
    std::shared_ptr<BytePool> pool_;
};

// How much to compute when `needed` of a result is asked for: all of it, unless that is a good deal more.
// Asking for all makes the result the same from frame to frame, so that it is found again.
PixelRegion worthKeeping(const PixelRegion& whole, const PixelRegion& needed);

struct Evaluator::Impl {
    explicit Impl(const EvaluatorOptions& options) : context(options) {}
    RenderContext context;
};

}   // namespace tavix::imaging

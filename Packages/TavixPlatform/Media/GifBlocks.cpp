#include "TavixPlatform/Media/GifBlocks.h"

#include <algorithm>
#include <bit>

namespace tavix::media {
namespace {

void putByte(std::string& out, unsigned value) { out.push_back(static_cast<char>(value & 255)); }
void putShort(std::string& out, int value) {
    putByte(out, static_cast<unsigned>(value));
    putByte(out, static_cast<unsigned>(value) >> 8);
}

// Codes of a growing number of bits, the lowest bit first, in blocks of at most 255 bytes.
class CodeStream {
public:
    explicit CodeStream(std::string& out) : out_(out) {}

    void put(unsigned code, int bits) {
        pending_ |= code << pendingBits_;
        for (pendingBits_ += bits; pendingBits_ >= 8; pendingBits_ -= 8, pending_ >>= 8) putInBlock(pending_);
    }
    void end() {
        if (pendingBits_ > 0) putInBlock(pending_);
        flush();
        putByte(out_, 0);
    }

private:
    void putInBlock(unsigned byte) {
        putByte(block_, byte);
        if (block_.size() == 255) flush();
    }
    void flush() {
        if (block_.empty()) return;
        putByte(out_, static_cast<unsigned>(block_.size()));
        out_ += block_;
        block_.clear();
    }

    std::string& out_;
    std::string block_;
    unsigned pending_ = 0;
    int pendingBits_ = 0;
};

// LZW as GIF has it: every code stands for an earlier run of indices and one index more.
class LzwCoder {
public:
    LzwCoder(std::string& out, int indexBits) : stream_(out), indexBits_(indexBits) { startOver(); }

    void put(std::uint8_t index) {
        if (run_ == noRun) {
            run_ = index;
            return;
        }
        const std::size_t at = place(run_, index);
        if (runs_[at].code) {
            run_ = runs_[at].code;
            return;
        }
        stream_.put(run_, bits_);
        learn(at, index);
        run_ = index;
    }

    void end() {
        if (run_ != noRun) {
            stream_.put(run_, bits_);
            // The reader learns a run here, too, and may widen its codes for it.
            if (lastCode_ + 1 >= 1U << bits_) ++bits_;
        }
        stream_.put(clearCode() + 1, std::min(bits_, maxBits));
        stream_.end();
    }

private:
    struct Run {
        std::uint16_t before = 0, code = 0;   // code 0 marks a free place: no longer run has it
        std::uint8_t index = 0;
    };
    static constexpr unsigned noRun = ~0U, lastPossibleCode = 4095;
    static constexpr int maxBits = 12;
    static constexpr std::size_t places = 16384;   // of a hash table, a quarter full at most

    unsigned clearCode() const { return 1U << indexBits_; }

    void startOver() {
        stream_.put(clearCode(), indexBits_ + 1 > bits_ ? indexBits_ + 1 : bits_);
        runs_.assign(places, Run{});
        lastCode_ = clearCode() + 1;
        bits_ = indexBits_ + 1;
    }

    std::size_t place(unsigned before, std::uint8_t index) const {
        std::size_t at = ((before << 8 | index) * 2654435761U) >> 18;
        while (runs_[at].code && (runs_[at].before != before || runs_[at].index != index))
            at = (at + 1) % places;
        return at;
    }

    void learn(std::size_t at, std::uint8_t index) {
        ++lastCode_;
        runs_[at] = {static_cast<std::uint16_t>(run_), static_cast<std::uint16_t>(lastCode_), index};
        if (lastCode_ >= 1U << bits_) ++bits_;
        if (lastCode_ == lastPossibleCode) startOver();
    }

    CodeStream stream_;
    int indexBits_;
    int bits_ = 0;
    unsigned run_ = noRun, lastCode_ = 0;
    std::vector<Run> runs_;
};

// A colour table has a power of two of entries.
int tableBits(const GifFrame& frame) {
    return std::max(static_cast<int>(std::bit_width(frame.palette.size())), 1);
}

void putTable(std::string& out, const GifFrame& frame) {
    std::vector<Rgb> entries = frame.palette;
    entries.resize(std::size_t{1} << tableBits(frame));
    for (const Rgb color : entries) {
        putByte(out, color.red);
        putByte(out, color.green);
        putByte(out, color.blue);
    }
}

void putControl(std::string& out, const GifFrame& frame) {
    constexpr unsigned hasTransparency = 1;
    out += "\x21\xf9\x04";
    putByte(out, static_cast<unsigned>(frame.disposal) << 2 | hasTransparency);
    putShort(out, frame.delayCentisec);
    putByte(out, frame.transparentIndex());
    putByte(out, 0);
}

void putPixels(std::string& out, const GifFrame& frame, int canvasWidthPx) {
    const int indexBits = std::max(tableBits(frame), 2);
    putByte(out, static_cast<unsigned>(indexBits));
    LzwCoder coder(out, indexBits);
    for (int y = frame.area.y0; y < frame.area.y1; ++y) {
        const std::uint8_t* row = frame.indices.data() + std::ptrdiff_t{y} * canvasWidthPx;
        for (int x = frame.area.x0; x < frame.area.x1; ++x) coder.put(row[x]);
    }
    coder.end();
}

}   // namespace

std::string gifHead(int widthPx, int heightPx) {
    constexpr unsigned eightBitsPerChannel = 0x70;
    std::string out = "GIF89a";
    putShort(out, widthPx);
    putShort(out, heightPx);
    putByte(out, eightBitsPerChannel);
    putShort(out, 0);   // background and aspect ratio: none
    out += "\x21\xff\x0bNETSCAPE2.0\x03\x01";
    putShort(out, 0);   // times to repeat: for ever
    putByte(out, 0);
    return out;
}

std::string gifFrame(const GifFrame& frame, int canvasWidthPx) {
    constexpr unsigned hasTable = 0x80;
    std::string out;
    putControl(out, frame);
    out += '\x2c';
    putShort(out, frame.area.x0);
    putShort(out, frame.area.y0);
    putShort(out, frame.area.width());
    putShort(out, frame.area.height());
    putByte(out, hasTable | static_cast<unsigned>(tableBits(frame) - 1));
    putTable(out, frame);
    putPixels(out, frame, canvasWidthPx);
    return out;
}

std::string gifTail() { return "\x3b"; }

}   // namespace tavix::media

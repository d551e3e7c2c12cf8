// The encoder that a film's file asks for.
#pragma once

#include "TavixRender/Encoding/FilmWriter.h"
#include "TavixRender/Encoding/FrameSequenceAnimationEncoder.h"
#include "TavixRender/Encoding/FrameSequenceEncoder.h"
#include "TavixRender/Encoding/FrameSequencePngEncoder.h"

namespace tavix {

// Calls use(encoder), whose encoder has append(image, frameIndex) and finish(). All of these throw `Failure`.
template <class Use>
void withEncoder(const FilmFile& file, imaging::Size size, const FrameRate& fps,
    imaging::Evaluator& evaluator, const Use& use) {
    switch (file.format) {
    case ExportFormat::gif:
    case ExportFormat::webp: {
        FrameSequenceAnimationEncoder encoder(
            {file.output, size, fps, file.format, file.rate.quality, file.effort}, evaluator);
        return use(encoder);
    }
    case ExportFormat::png: {
        FrameSequencePngEncoder encoder({file.output, size}, evaluator);
        return use(encoder);
    }
    case ExportFormat::video: break;
    }
    FrameSequenceEncoder encoder(
        {file.output, size, fps, file.codec, file.container, file.effort, file.rate, file.hardware},
        evaluator);
    use(encoder);
}

}   // namespace tavix

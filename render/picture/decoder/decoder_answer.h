#pragma once

#include <cstdint>

namespace mosslantern {

/// The arguments of the program mosslantern-decoder are one of these words, the number of a PictureFormat,
/// the most bytes that decoding may take, and, to decode, the width and height to cover and whether to crop
/// to them (0 or 1). Its descriptor 0 is the picture's file, its descriptor 1 an empty file that takes the
/// answer.
constexpr const char *decoderInfoTask = "info";
constexpr const char *decoderDecodeTask = "decode";

enum class DecoderOutcome : uint32_t {
    Done,
    Failed,    ///< for the reason that the answer tells
    NeedsMore, ///< than the bytes that decoding may take, but not more than any decoder may
    OutOfMemory,
};

constexpr uint32_t decoderAnswerMark = 0x4d4c4431; // changes with the layout of the answer

/// What an answer begins with. The reason of a failure, in UTF-8, or the pixels follow at once: red, green,
/// blue and opacity, by which they are multiplied, or 255, a byte each.
struct DecoderAnswer
{
    uint32_t mark = decoderAnswerMark;
    DecoderOutcome outcome = DecoderOutcome::Failed;
    int32_t fullWidth = 0; ///< of the whole picture, upright
    int32_t fullHeight = 0;
    int32_t width = 0; ///< of the pixels, whose rows follow one another without a gap; 0 without any
    int32_t height = 0;
    uint32_t hasAlpha = 0;
    uint32_t reasonBytes = 0;
    double region[4] = {}; ///< as Picture::region: left, top, width and height
};

} // namespace mosslantern

#pragma once

#include <cstdint>

namespace mosslantern {

/// The arguments of the program mosslantern-heif are one of these words, the longest side of a picture that
/// is accepted and the most bytes that decoding may take. Its descriptor 0 is the picture's file, its
/// descriptor 1 an empty file that takes the answer.
constexpr const char *heifInfoTask = "info";
constexpr const char *heifDecodeTask = "decode";

enum class HeifOutcome : uint32_t { Done, Damaged, Unsupported, TooLarge, OutOfMemory };
enum class HeifAlpha : uint32_t { Opaque, Straight, Premultiplied };
enum class HeifColors : uint32_t { Unknown, Profile, Coded };

constexpr uint32_t heifAnswerMark = 0x4d4c4831; // changes with the layout of the answer

/// What an answer begins with. An ICC profile follows at once, the pixels at `pixelsAt`: red, green, blue and
/// opacity or padding, a byte each.
struct HeifAnswer
{
    uint32_t mark = heifAnswerMark;
    HeifOutcome outcome = HeifOutcome::Damaged;
    int32_t width = 0; ///< also known of a picture that is too large
    int32_t height = 0;
    uint32_t bits = 8; ///< per channel, in the file
    HeifAlpha alpha = HeifAlpha::Opaque;
    HeifColors colors = HeifColors::Unknown;
    uint32_t transfer = 0;        ///< for Coded: transfer characteristic of ITU-T H.273
    float chromaticities[8] = {}; ///< for Coded: x and y of white, red, green and blue
    uint64_t profileBytes = 0;    ///< for Profile
    uint64_t pixelsAt = 0;        ///< from the start of the answer; a multiple of heifPixelAlignment
    uint64_t stride = 0;          ///< bytes from row to row; 0 when there are no pixels
};

constexpr uint64_t heifPixelAlignment = 64;

/// The most bytes that decoding holds for a pixel: planes of brightness and colour, the pixels made of them,
/// and the part that is kept.
constexpr int heifBytesPerPixel(uint32_t bits)
{
    return bits > 8 ? 12 : 8;
}

} // namespace mosslantern

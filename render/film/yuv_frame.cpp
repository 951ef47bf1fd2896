#include "render/film/yuv_frame.h"

#include "render/pixels/vectorized.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace mosslantern {

namespace {

// BT.709 from 0…255 to 16…235 and 16…240, in parts of 2¹⁶.
constexpr std::array<int, 3> brightness{11'966, 40'254, 4'064};
constexpr std::array<int, 3> towardsBlue{-6'596, -22'188, 28'784};
constexpr std::array<int, 3> towardsRed{28'784, -26'145, -2'639};
constexpr int brightnessOffset = 16;
constexpr int colorOffset = 128;

MOSSLANTERN_VECTORIZED
void brightnessRow(const uint8_t *__restrict rgb, uint8_t *__restrict out, int count)
{
    for (int i = 0; i < count; ++i) {
        const int sum =
            rgb[4 * i] * brightness[0] + rgb[4 * i + 1] * brightness[1] + rgb[4 * i + 2] * brightness[2];
        out[i] = uint8_t((sum + (brightnessOffset << 16) + (1 << 15)) >> 16);
    }
}

/// Of two rows; each four pixels share a colour.
MOSSLANTERN_VECTORIZED
void colorRow(const uint8_t *__restrict upper, const uint8_t *__restrict lower, uint8_t *__restrict blue,
              uint8_t *__restrict red, int count)
{
    constexpr int offset = (colorOffset << 18) + (1 << 17);
    for (int i = 0; i < count; ++i) {
        const int r = upper[8 * i] + upper[8 * i + 4] + lower[8 * i] + lower[8 * i + 4];
        const int g = upper[8 * i + 1] + upper[8 * i + 5] + lower[8 * i + 1] + lower[8 * i + 5];
        const int b = upper[8 * i + 2] + upper[8 * i + 6] + lower[8 * i + 2] + lower[8 * i + 6];
        blue[i] = uint8_t((r * towardsBlue[0] + g * towardsBlue[1] + b * towardsBlue[2] + offset) >> 18);
        red[i] = uint8_t((r * towardsRed[0] + g * towardsRed[1] + b * towardsRed[2] + offset) >> 18);
    }
}

MOSSLANTERN_VECTORIZED
void fade(const uint8_t *__restrict from, const uint8_t *__restrict to, uint8_t *__restrict out, size_t count,
          int mix)
{
    for (size_t i = 0; i < count; ++i)
        out[i] = uint8_t((from[i] * (256 - mix) + to[i] * mix + 128) >> 8);
}

} // namespace

YuvFrame::YuvFrame(QSize size)
    : m_size(size)
    , m_bytes(size_t(size.width()) * size_t(size.height()) * 3 / 2)
{}

void YuvFrame::setRows(int first, int count, const uint8_t *pixels, int stride)
{
    const ptrdiff_t width = m_size.width();
    const ptrdiff_t all = width * m_size.height();
    for (int y = 0; y < count; ++y)
        brightnessRow(pixels + ptrdiff_t(4) * stride * y, m_bytes.data() + width * (first + y), int(width));
    for (int y = 0; y < count; y += 2) {
        uint8_t *blue = m_bytes.data() + all + width / 2 * ((first + y) / 2);
        const uint8_t *upper = pixels + ptrdiff_t(4) * stride * y;
        colorRow(upper, upper + ptrdiff_t(4) * stride, blue, blue + all / 4, int(width / 2));
    }
}

void YuvFrame::setFade(const YuvFrame &from, const YuvFrame &to, double mix)
{
    fade(from.m_bytes.data(), to.m_bytes.data(), m_bytes.data(), m_bytes.size(), int(std::lround(mix * 256)));
}

void YuvFrame::setPush(const YuvFrame &from, const YuvFrame &to, double mix)
{
    const int half = m_size.width() / 2;
    const int gone = std::clamp(int(std::lround(mix * half)), 0, half);
    ptrdiff_t start = 0;
    const auto push = [&](int width, int pushed, int rows) {
        for (int y = 0; y < rows; ++y, start += width) {
            const auto out = m_bytes.begin() + start;
            std::copy_n(from.m_bytes.begin() + start + pushed, width - pushed, out);
            std::copy_n(to.m_bytes.begin() + start, pushed, out + (width - pushed));
        }
    };
    push(2 * half, 2 * gone, m_size.height());
    push(half, gone, m_size.height()); // both planes of colours
}

} // namespace mosslantern

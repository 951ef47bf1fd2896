#pragma once

#include <QtCore/QByteArray>

#include <memory>

namespace mosslantern {

/// What the four bytes of a pixel are: in gray pixels the first counts; those of CMYK are complements, as
/// JPEG files hold them.
enum class PixelColors { gray, rgb, cmyk };

/// Converts pixels from the colours of an ICC profile, of any kind, to sRGB.
class ProfileTransform
{
public:
    /// Not valid where `profile` is none, or not for such pixels.
    ProfileTransform(const QByteArray &profile, PixelColors colors);

    [[nodiscard]] bool isValid() const { return m_transform != nullptr; }

    /// Makes `count` pixels red, green and blue; the fourth byte stays, that of CMYK becomes 255.
    void convert(uchar *pixels, int count) const;

private:
    struct Delete
    {
        void operator()(void *transform) const;
    };
    std::unique_ptr<void, Delete> m_transform;
    bool m_setsOpacity;
};

} // namespace mosslantern

#include "render/picture/picture_profile.h"

#include <lcms2.h>

namespace mosslantern {

namespace {

struct CloseProfile
{
    void operator()(void *profile) const { cmsCloseProfile(profile); }
};
using Profile = std::unique_ptr<void, CloseProfile>;

Profile opened(const QByteArray &bytes)
{
    return Profile(cmsOpenProfileFromMem(bytes.constData(), static_cast<cmsUInt32Number>(bytes.size())));
}

cmsUInt32Number formatOf(PixelColors colors)
{
    switch (colors) {
    case PixelColors::gray:
        return COLORSPACE_SH(PT_GRAY) | CHANNELS_SH(1) | EXTRA_SH(3) | BYTES_SH(1);
    case PixelColors::rgb:
        return TYPE_RGBA_8;
    case PixelColors::cmyk:
        return TYPE_CMYK_8_REV;
    }
    Q_UNREACHABLE();
}

cmsColorSpaceSignature spaceOf(PixelColors colors)
{
    switch (colors) {
    case PixelColors::gray:
        return cmsSigGrayData;
    case PixelColors::rgb:
        return cmsSigRgbData;
    case PixelColors::cmyk:
        return cmsSigCmykData;
    }
    Q_UNREACHABLE();
}

} // namespace

ProfileTransform::ProfileTransform(const QByteArray &profile, PixelColors colors)
    : m_setsOpacity(colors == PixelColors::cmyk)
{
    const Profile from = opened(profile);
    if (!from || cmsGetColorSpace(from.get()) != spaceOf(colors))
        return;
    const Profile to(cmsCreate_sRGBProfile());
    m_transform.reset(cmsCreateTransform(from.get(), formatOf(colors), to.get(), TYPE_RGBA_8,
                                         cmsGetHeaderRenderingIntent(from.get()), cmsFLAGS_NOCACHE));
}

void ProfileTransform::Delete::operator()(void *transform) const
{
    cmsDeleteTransform(transform);
}

void ProfileTransform::convert(uchar *pixels, int count) const
{
    cmsDoTransform(m_transform.get(), pixels, pixels, static_cast<cmsUInt32Number>(count));
    if (!m_setsOpacity)
        return;
    for (int i = 0; i < count; ++i)
        pixels[qsizetype(i) * 4 + 3] = 255;
}

} // namespace mosslantern

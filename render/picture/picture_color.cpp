#include "render/picture/picture_color.h"

#include "render/picture/picture_profile.h"

#include <QtGui/QColorTransform>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace mosslantern {

namespace {

/// Whether converting changes no colour visibly. Profiles of sRGB come in many wordings, so colours are
/// compared.
bool looksLikeSrgb(const QColorTransform &toSrgb)
{
    constexpr std::array levels{0, 20, 64, 128, 192, 255};
    constexpr int tolerance = 1;
    for (int red : levels) {
        for (int green : levels) {
            for (int blue : levels) {
                const QRgb mapped = toSrgb.map(qRgb(red, green, blue));
                if (std::abs(qRed(mapped) - red) > tolerance ||
                    std::abs(qGreen(mapped) - green) > tolerance ||
                    std::abs(qBlue(mapped) - blue) > tolerance) {
                    return false;
                }
            }
        }
    }
    return true;
}

/// Older PNG files say sRGB in the only words that they had, a gamma of 1 / 2.2. Taken literally, that would
/// crush dark tones; nobody else does.
bool isSrgbAsGamma(const QColorSpace &space)
{
    return space.transferFunction() == QColorSpace::TransferFunction::Gamma &&
           std::abs(space.gamma() - 2.2F) < 0.01F &&
           looksLikeSrgb(space.withTransferFunction(QColorSpace::TransferFunction::SRgb)
                             .transformationToColorSpace(QColorSpace::SRgb));
}

/// SMPTE ST 2084: light of a code value, 1 being diffuse white at 203 cd/m² (ITU-R BT.2408).
double perceptualQuantizer(double value)
{
    constexpr double m1 = 2610.0 / 16384, m2 = 2523.0 / 32;
    constexpr double c1 = 3424.0 / 4096, c2 = 2413.0 / 128, c3 = 2392.0 / 128;
    const double power = std::pow(value, 1 / m2);
    return 10'000.0 / 203 * std::pow(std::max(power - c1, 0.0) / (c2 - c3 * power), 1 / m1);
}

/// ITU-R BT.2100 hybrid log-gamma on a display of 1000 cd/m², 1 being diffuse white at 203 cd/m².
double hybridLogGamma(double value)
{
    constexpr double a = 0.17883277, b = 0.28466892, c = 0.55991073, systemGamma = 1.2;
    const double scene = value <= 0.5 ? value * value / 3 : (std::exp((value - c) / a) + b) / 12;
    return 1000.0 / 203 * std::pow(scene, systemGamma);
}

bool isOfGray(const QByteArray &profile)
{
    constexpr qsizetype headerLength = 128, spaceAt = 16;
    return profile.size() >= headerLength && profile.sliced(spaceAt, 4) == "GRAY";
}

void convertByProfile(QImage &image, const QByteArray &profile)
{
    const ProfileTransform toSrgb(profile, isOfGray(profile) ? PixelColors::gray : PixelColors::rgb);
    if (!toSrgb.isValid())
        return;
    const QImage::Format format = image.format();
    // Colours are converted as they are without opacity.
    image.convertTo(image.hasAlphaChannel() ? QImage::Format_RGBA8888 : QImage::Format_RGBX8888);
    for (int y = 0; y < image.height(); ++y)
        toSrgb.convert(image.scanLine(y), image.width());
    image.convertTo(format);
}

QList<uint16_t> transferTable(double (*light)(double))
{
    constexpr int entries = 1024;
    QList<uint16_t> table(entries);
    for (int i = 0; i < entries; ++i)
        table[i] = uint16_t(std::lround(65'535 * std::clamp(light(double(i) / (entries - 1)), 0.0, 1.0)));
    return table;
}

} // namespace

void convertToSrgb(QImage &image, const QColorSpace &space)
{
    // Qt keeps the bytes of a profile that it cannot read, and takes gray for a colour.
    const QByteArray profile = space.iccProfile();
    if (!profile.isEmpty() && (!space.isValid() || isOfGray(profile)))
        return convertByProfile(image, profile);
    if (!space.isValid() || looksLikeSrgb(space.transformationToColorSpace(QColorSpace::SRgb)) ||
        isSrgbAsGamma(space))
        return;
    image.setColorSpace(space);
    image.convertToColorSpace(QColorSpace::SRgb);
}

QColorSpace codedColorSpace(QPointF white, QPointF red, QPointF green, QPointF blue, int transfer)
{
    using Transfer = QColorSpace::TransferFunction;
    // The constructor that takes a table makes an invalid space in Qt 6.4: tables are set afterwards.
    QColorSpace space(white, red, green, blue, Transfer::SRgb);
    switch (transfer) {
    case 4:
        space.setTransferFunction(Transfer::Gamma, 2.2F);
        break;
    case 5:
        space.setTransferFunction(Transfer::Gamma, 2.8F);
        break;
    case 8:
        space.setTransferFunction(Transfer::Linear);
        break;
    case 16:
        space.setTransferFunction(transferTable(perceptualQuantizer));
        break;
    case 18:
        space.setTransferFunction(transferTable(hybridLogGamma));
        break;
    default: // the curves of television are shown as that of sRGB everywhere
        break;
    }
    return space;
}

} // namespace mosslantern

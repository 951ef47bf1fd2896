#include "render/picture/picture_format.h"

#include <QtCore/QtEndian>

#include <algorithm>
#include <array>
#include <string_view>

namespace mosslantern {

namespace {

using namespace std::string_view_literals;

struct Signature
{
    std::string_view bytes;
    PictureFormat format;
};

constexpr std::array signatures{
    Signature{"\xff\xd8\xff"sv, PictureFormat::Jpeg},
    Signature{"\x89PNG\r\n\x1a\n"sv, PictureFormat::Png},
    Signature{"GIF87a"sv, PictureFormat::Gif},
    Signature{"GIF89a"sv, PictureFormat::Gif},
    Signature{"BM"sv, PictureFormat::Bmp},
    Signature{"II*\0"sv, PictureFormat::Tiff},
    Signature{"MM\0*"sv, PictureFormat::Tiff},
    Signature{"II+\0"sv, PictureFormat::Tiff},
    Signature{"MM\0+"sv, PictureFormat::Tiff},
};

constexpr std::array avifBrands{"avif"sv, "avis"sv};
constexpr std::array heicBrands{"heic"sv, "heix"sv, "heim"sv, "heis"sv, "hevc"sv,
                                "hevx"sv, "mif1"sv, "msf1"sv, "mif2"sv};

/// The file type box of the ISO base media format: size, "ftyp", main brand, version, compatible brands.
/// "mif1" says nothing about the codec, so an AVIF brand anywhere in the list decides.
std::optional<PictureFormat> formatOfBrands(std::string_view head)
{
    if (head.size() < 16 || head.substr(4, 4) != "ftyp"sv)
        return std::nullopt;
    const auto boxSize = qFromBigEndian<quint32>(head.data());
    std::optional<PictureFormat> format;
    for (size_t at = 8; at + 4 <= std::min<size_t>(boxSize, head.size()); at += at == 8 ? 8 : 4) {
        const auto brand = head.substr(at, 4);
        if (std::ranges::find(avifBrands, brand) != avifBrands.end())
            return PictureFormat::Avif;
        if (std::ranges::find(heicBrands, brand) != heicBrands.end())
            format = PictureFormat::Heic;
    }
    return format;
}

} // namespace

std::optional<PictureFormat> pictureFormat(QByteArrayView bytes)
{
    const std::string_view head(bytes.data(), bytes.size());
    for (const auto &[signature, format] : signatures) {
        if (head.starts_with(signature))
            return format;
    }
    if (head.starts_with("RIFF"sv) && head.substr(std::min<size_t>(8, head.size())).starts_with("WEBP"sv))
        return PictureFormat::WebP;
    return formatOfBrands(head);
}

} // namespace mosslantern

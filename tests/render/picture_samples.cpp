#include "picture_samples.h"

#include <QtCore/QBuffer>
#include <QtCore/QtEndian>
#include <QtGui/QImageWriter>
#include <QtGui/QTransform>

#include <jpeglib.h>
#include <lcms2.h>
#include <zlib.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace mosslantern::samples {

namespace {

/// The four bytes of a number as they stand in memory.
QByteArray bytesOf(quint32 value)
{
    return {reinterpret_cast<const char *>(&value), sizeof value};
}

/// A TIFF header and a directory whose second entry is the orientation.
QByteArray exif(int orientation)
{
    QByteArray bytes("MM\0*\0\0\0\x08\0\x02", 10);
    bytes += QByteArray("\x01\x0f\0\x02\0\0\0\x04", 8) + "Oak\0"_ba;
    bytes += QByteArray("\x01\x12\0\x03\0\0\0\x01\0", 9) + char(orientation) + QByteArray("\0\0", 2);
    return bytes + QByteArray("\0\0\0\0", 4);
}

cmsInt32Number lessCyan(const cmsUInt16Number *inks, cmsUInt16Number *lab, void *)
{
    lab[0] = cmsUInt16Number((0xFFFF - inks[0]) * 0xFF00 / 0xFFFF);
    lab[1] = lab[2] = 0x8000;
    return TRUE;
}

QByteArray saved(cmsHPROFILE profile)
{
    cmsUInt32Number size = 0;
    cmsSaveProfileToMem(profile, nullptr, &size);
    QByteArray bytes(size, '\0');
    cmsSaveProfileToMem(profile, bytes.data(), &size);
    cmsCloseProfile(profile);
    return bytes;
}

QByteArray inserted(const QByteArray &file, qsizetype at, const QByteArray &part)
{
    return file.first(at) + part + file.sliced(at);
}

} // namespace

QImage painting(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const double across = double(x) / width, down = double(y) / height;
            image.setPixel(
                x, y,
                qRgb(int(255 * across), int(255 * down), int(127 + 120 * std::sin(9 * across + 4 * down))));
        }
    }
    return image;
}

QByteArray encoded(const QImage &image, const char *format, int quality)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, format);
    writer.setQuality(quality);
    return writer.write(image) ? bytes : QByteArray();
}

QByteArray cmykProfile()
{
    const cmsHPROFILE profile = cmsCreateProfilePlaceholder(nullptr);
    cmsSetProfileVersion(profile, 2.1);
    cmsSetDeviceClass(profile, cmsSigOutputClass);
    cmsSetColorSpace(profile, cmsSigCmykData);
    cmsSetPCS(profile, cmsSigLabData);
    cmsStage *const table = cmsStageAllocCLut16bit(nullptr, 2, 4, 3, nullptr);
    cmsStageSampleCLut16bit(table, lessCyan, nullptr, 0);
    cmsPipeline *const pipeline = cmsPipelineAlloc(nullptr, 4, 3);
    cmsPipelineInsertStage(pipeline, cmsAT_BEGIN, table);
    cmsWriteTag(profile, cmsSigAToB0Tag, pipeline);
    cmsWriteTag(profile, cmsSigMediaWhitePointTag, cmsD50_XYZ());
    cmsPipelineFree(pipeline);
    return saved(profile);
}

QByteArray linearGrayProfile()
{
    cmsToneCurve *const light = cmsBuildGamma(nullptr, 1);
    const cmsHPROFILE profile = cmsCreateGrayProfile(cmsD50_xyY(), light);
    cmsFreeToneCurve(light);
    return saved(profile);
}

QByteArray jpeg(const QImage &image, const JpegOptions &options)
{
    jpeg_compress_struct codec;
    jpeg_error_mgr errors;
    codec.err = jpeg_std_error(&errors);
    jpeg_create_compress(&codec);
    unsigned char *bytes = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&codec, &bytes, &size);
    codec.image_width = JDIMENSION(image.width());
    codec.image_height = JDIMENSION(image.height());
    codec.input_components = options.colors == JpegColors::Gray ? 1 : 4;
    codec.in_color_space = options.colors == JpegColors::Gray   ? JCS_GRAYSCALE
                           : options.colors == JpegColors::Cmyk ? JCS_CMYK
                                                                : JCS_EXT_RGBX;
    jpeg_set_defaults(&codec);
    jpeg_set_quality(&codec, options.quality, TRUE);
    codec.comp_info[0].h_samp_factor = options.subsamplingAcross;
    codec.comp_info[0].v_samp_factor = options.subsamplingDown;
    if (options.progressive)
        jpeg_simple_progression(&codec);
    jpeg_start_compress(&codec, TRUE);
    if (!options.iccProfile.isEmpty())
        jpeg_write_icc_profile(&codec, reinterpret_cast<const JOCTET *>(options.iccProfile.data()),
                               unsigned(options.iccProfile.size()));
    // Inks are written as their complements: without black that is the picture itself.
    const QImage pixels = image.convertToFormat(options.colors == JpegColors::Gray ? QImage::Format_Grayscale8
                                                                                   : QImage::Format_RGBX8888);
    for (int y = 0; y < pixels.height(); ++y) {
        JSAMPROW row = const_cast<JSAMPROW>(pixels.constScanLine(y));
        jpeg_write_scanlines(&codec, &row, 1);
    }
    jpeg_finish_compress(&codec);
    jpeg_destroy_compress(&codec);
    const QByteArray result(reinterpret_cast<char *>(bytes), qsizetype(size));
    std::free(bytes);
    return result;
}

QByteArray gif()
{
    // Eight times a clear code, which keeps the codes at three bits, and two pixels of one colour.
    const auto rows = [](const char *row) { return QByteArray::fromHex(row).repeated(9); };
    const QByteArray red = rows("040810204080000102"), green = rows("4c983061c284091326");
    const QByteArray blue = rows("942851a2448912254a"), white = rows("dcb871e3c68d1b376e");
    const auto frame = [](const QByteArray &codes) {
        return QByteArray("\x2c\0\0\0\0\x10\0\x1b\0\0\x02\xf4", 12) + codes + QByteArray("\5\0", 2);
    };
    return QByteArray("GIF89a\x10\0\x1b\0\x81\0\0", 13) +
           QByteArray("\xff\0\0\0\xff\0\0\0\xff\xff\xff\xff", 12) + frame(red + green + blue) +
           frame(white.repeated(3)) + ';';
}

QByteArray heif(const QImage &image, const HeifOptions &options)
{
    heif_context *context = heif_context_alloc();
    heif_encoder *encoder = nullptr;
    if (heif_context_get_encoder_for_format(context, options.codec, &encoder).code != heif_error_Ok) {
        heif_context_free(context);
        return {};
    }
    const bool deep = options.bits > 8, alpha = image.hasAlphaChannel();
    const QImage source = image.convertToFormat(deep    ? QImage::Format_RGBX64
                                                : alpha ? QImage::Format_RGBA8888
                                                        : QImage::Format_RGB888);
    const auto chroma = deep    ? heif_chroma_interleaved_RRGGBB_LE
                        : alpha ? heif_chroma_interleaved_RGBA
                                : heif_chroma_interleaved_RGB;
    heif_image *pixels = nullptr;
    heif_image_create(source.width(), source.height(), heif_colorspace_RGB, chroma, &pixels);
    heif_image_add_plane(pixels, heif_channel_interleaved, source.width(), source.height(), options.bits);
    int stride = 0;
    uint8_t *plane = heif_image_get_plane(pixels, heif_channel_interleaved, &stride);
    for (int y = 0; y < source.height(); ++y, plane += stride) {
        const uchar *row = source.constScanLine(y);
        if (!deep) {
            std::copy_n(row, source.width() * (alpha ? 4 : 3), plane);
            continue;
        }
        const auto *from = reinterpret_cast<const quint16 *>(row);
        auto *to = reinterpret_cast<quint16 *>(plane);
        for (int i = 0; i < source.width() * 3; ++i)
            to[i] = quint16(from[i / 3 * 4 + i % 3] >> (16 - options.bits));
    }
    if (!options.iccProfile.isEmpty())
        heif_image_set_raw_color_profile(pixels, "prof", options.iccProfile.data(),
                                         size_t(options.iccProfile.size()));
    heif_color_profile_nclx *coded = heif_nclx_color_profile_alloc();
    if (options.primaries) {
        heif_nclx_color_profile_set_color_primaries(coded, uint16_t(options.primaries));
        heif_nclx_color_profile_set_transfer_characteristics(coded, uint16_t(options.transfer));
        coded->matrix_coefficients = heif_matrix_coefficients_ITU_R_BT_601_6;
        coded->full_range_flag = 1;
        heif_image_set_nclx_color_profile(pixels, coded);
    }
    heif_encoder_set_lossy_quality(encoder, 98);
    heif_encoder_set_logging_level(encoder, 0);
    heif_encoding_options *encoding = heif_encoding_options_alloc();
    encoding->macOS_compatibility_workaround_no_nclx_profile = 0;
    encoding->image_orientation = options.orientation;
    heif_context_encode_image(context, pixels, encoder, encoding, nullptr);
    QByteArray bytes;
    heif_writer writer{1, [](heif_context *, const void *data, size_t size, void *target) {
                           static_cast<QByteArray *>(target)->append(static_cast<const char *>(data),
                                                                     qsizetype(size));
                           return heif_error{heif_error_Ok, heif_suberror_Unspecified, ""};
                       }};
    heif_context_write(context, &writer, &bytes);
    heif_encoding_options_free(encoding);
    heif_nclx_color_profile_free(coded);
    heif_image_release(pixels);
    heif_encoder_release(encoder);
    heif_context_free(context);
    return bytes;
}

QByteArray heifGrid(const QByteArray &tile, int across, QSize size, QSize claimed)
{
    const auto number = [](auto value) {
        value = qToBigEndian(value);
        return QByteArray(reinterpret_cast<const char *>(&value), sizeof value);
    };
    const auto box = [&](const char *type, const QByteArray &content) {
        return number(quint32(content.size() + 8)) + type + content;
    };
    const auto boxOf = [&](const char *type) {
        const auto at = tile.indexOf(type) - 4;
        return tile.sliced(at, qFromBigEndian<quint32>(tile.constData() + at));
    };
    const auto sides = [&](QSize value) {
        return number(quint32(value.width())) + number(quint32(value.height()));
    };
    const auto entry = [&](quint16 id, const char *type) {
        return box("infe", number(0x02000000u) + number(id) + number(quint16(0)) + type + '\0');
    };
    const auto count = quint16(across * across);
    const QByteArray grid = QByteArray("\0\1", 2) + QByteArray(2, char(across - 1)) + sides(size);
    const QByteArray data = boxOf("mdat").sliced(8);
    const auto place = [&](quint16 id, qsizetype offset, qsizetype bytes) {
        return number(id) + number(quint16(0)) + number(quint16(1)) + number(quint32(offset)) +
               number(quint32(bytes));
    };
    const QByteArray start = tile.first(qFromBigEndian<quint32>(tile.constData()));
    const QByteArray none(4, '\0');
    // Twice, as the header says where the data begin.
    QByteArray header = start;
    for (int round = 0; round < 2; ++round) {
        const qsizetype from = header.size() + 8;
        header =
            start +
            box("meta",
                none + box("hdlr", none + none + "pict" + QByteArray(13, '\0')) +
                    box("pitm", none + number(quint16(2))) +
                    box("iloc", none + QByteArray("\x44\0\0\2", 4) + place(1, from, data.size()) +
                                    place(2, from + data.size(), grid.size())) +
                    box("iinf", none + number(quint16(2)) + entry(1, "hvc1") + entry(2, "grid")) +
                    box("iref", none + box("dimg", number(quint16(2)) + number(count) +
                                                       number(quint16(1)).repeated(count))) +
                    box("iprp",
                        box("ipco", boxOf("hvcC") + boxOf("ispe") + box("ispe", none + sides(claimed))) +
                            box("ipma", none + number(quint32(2)) + QByteArray("\0\1\2\x81\2\0\2\1\3", 9))));
    }
    return header + box("mdat", data + grid);
}

QByteArray jpegWithOrientation(const QByteArray &file, int orientation)
{
    const QByteArray data = QByteArray("Exif\0\0", 6) + exif(orientation);
    return inserted(file, 2, QByteArray("\xff\xe1\0", 3) + char(data.size() + 2) + data);
}

QByteArray pngChunk(const QByteArray &content)
{
    const auto check = crc32(0, reinterpret_cast<const Bytef *>(content.data()), uInt(content.size()));
    return bytesOf(qToBigEndian(quint32(content.size() - 4))) + content +
           bytesOf(qToBigEndian(quint32(check)));
}

QByteArray pngWithOrientation(const QByteArray &file, int orientation)
{
    constexpr int afterHeader = 8 + 25;
    return inserted(file, afterHeader, pngChunk("eXIf"_ba + exif(orientation)));
}

QByteArray webpWithOrientation(const QByteArray &file, int orientation)
{
    const QByteArray data = exif(orientation);
    QByteArray result = file + "EXIF"_ba + bytesOf(qToLittleEndian(quint32(data.size()))) + data;
    return result.replace(4, 4, bytesOf(qToLittleEndian(quint32(result.size() - 8))));
}

QByteArray tiffWithOrientation(const QByteArray &file, int orientation)
{
    const auto entry = file.indexOf(QByteArray("\x12\x01\x03\0\x01\0\0\0", 8));
    return QByteArray(file).replace(entry + 8, 1, QByteArray(1, char(orientation)));
}

QImage upright(const QImage &stored, int orientation)
{
    const auto rotated = [&](int degrees) { return stored.transformed(QTransform().rotate(degrees)); };
    const std::array images{stored,
                            stored.mirrored(true, false),
                            rotated(180),
                            stored.mirrored(false, true),
                            rotated(90).mirrored(true, false),
                            rotated(90),
                            rotated(90).mirrored(false, true),
                            rotated(270)};
    return orientation >= 1 && orientation <= 8 ? images[size_t(orientation - 1)] : stored;
}

QByteArray reason(const Result<Picture> &result)
{
    return result ? QByteArray() : result.error().message.toUtf8();
}

QString mistake(const Picture &picture, const PictureRequest &request, const QImage &whole, int tolerance)
{
    const QImage &image = picture.image;
    const bool alpha = whole.hasAlphaChannel();
    if (image.format() != (alpha ? QImage::Format_RGBA8888_Premultiplied : QImage::Format_RGBX8888))
        return u"format %1"_s.arg(image.format());
    if (picture.fullSize != whole.size())
        return u"full size %1 × %2"_s.arg(picture.fullSize.width()).arg(picture.fullSize.height());
    if (!picture.region.contains(neededRegion(whole.size(), request)))
        return u"region %1 × %2"_s.arg(picture.region.width()).arg(picture.region.height());
    const double needed = neededScale(whole.size(), request);
    const double across = image.width() / picture.region.width();
    const double down = image.height() / picture.region.height();
    if (std::abs(across - down) > 1e-6 || across < needed - 1e-6 || (across > 2 * needed && across > 0.125))
        return u"%1 pixels a pixel, %2 needed"_s.arg(across).arg(needed);

    const QImage straight = whole.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const auto channel = [&](int x, int y, int shift) {
        return double(reinterpret_cast<const QRgb *>(straight.constScanLine(
                          std::clamp(y, 0, whole.height() - 1)))[std::clamp(x, 0, whole.width() - 1)] >>
                          shift &
                      0xFF);
    };
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const double atX = picture.region.left() + (x + 0.5) / across - 0.5;
            const double atY = picture.region.top() + (y + 0.5) / down - 0.5;
            const int left = int(std::floor(atX)), top = int(std::floor(atY));
            const uchar *pixel = image.constScanLine(y) + x * 4;
            for (const int shift : {16, 8, 0, 24}) {
                const double upper =
                    std::lerp(channel(left, top, shift), channel(left + 1, top, shift), atX - left);
                const double lower =
                    std::lerp(channel(left, top + 1, shift), channel(left + 1, top + 1, shift), atX - left);
                const double expected = std::lerp(upper, lower, atY - top);
                if (std::abs(*pixel - expected) > tolerance)
                    return u"pixel %1, %2: %3 instead of %4"_s.arg(x).arg(y).arg(*pixel).arg(expected);
                ++pixel;
            }
        }
    }
    return {};
}

} // namespace mosslantern::samples

#include "render/picture/supervised_decoder.h"

#include "render/picture/decoder/decoder_answer.h"
#include "render/picture/decoder_program.h"
#include "render/picture/decoding_share.h"
#include "render/picture/picture_errors.h"
#include "render/picture/picture_fit.h"

#include <QtCore/QtEndian>

#include <algorithm>
#include <cmath>
#include <cstring>

using namespace Qt::StringLiterals;

namespace mosslantern {

namespace {

constexpr qsizetype longestReason = 300;

/// The largest picture that a HEIC or AVIF file describes in a property of its own.
QSize heifSize(QByteArrayView header)
{
    QSize largest;
    for (auto at = header.indexOf("ispe"); at >= 0 && at + 16 <= header.size();
         at = header.indexOf("ispe", at + 1)) {
        const auto width = qFromBigEndian<quint32>(header.data() + at + 8);
        const auto height = qFromBigEndian<quint32>(header.data() + at + 12);
        if (width <= longestPictureSide && height <= longestPictureSide &&
            qint64(width) * height > qint64(largest.width()) * largest.height())
            largest = {int(width), int(height)};
    }
    return largest;
}

/// What decoding is likely to take. The program tells when it needs more.
qint64 likelyBytes(QIODevice &device, PictureFormat format)
{
    constexpr qint64 makingTheImage = 24 << 20;
    const QSize size = announcedSize(device, format);
    const qint64 pixels = size.isEmpty() ? 0 : qint64(size.width()) * size.height();
    const auto decoded = [&]() -> qint64 {
        switch (format) {
        case PictureFormat::Gif:
        case PictureFormat::Bmp:
            return pixels * 4;
        case PictureFormat::WebP:
            return device.size() + pixels * 8;
        case PictureFormat::Tiff:
            return device.size() * 4;
        default:
            return device.size() + pixels * 10;
        }
    };
    return std::clamp<qint64>(decoded() + makingTheImage, makingTheImage, mostDecodingMemory);
}

/// Whether the program ran into the limit that it was given.
bool needsMore(const MemoryFile::Mapping &answer)
{
    DecoderAnswer start;
    if (!answer || answer.get_deleter().size < sizeof start)
        return false;
    std::memcpy(&start, answer.get(), sizeof start);
    return start.outcome == DecoderOutcome::NeedsMore || start.outcome == DecoderOutcome::OutOfMemory;
}

Error reasonOf(const DecoderAnswer &answer, QByteArrayView rest)
{
    if (answer.outcome == DecoderOutcome::OutOfMemory || answer.outcome == DecoderOutcome::NeedsMore)
        return {pictureNeedsTooMuchMemory()};
    const QString reason =
        QString::fromUtf8(rest.first(std::min<qsizetype>(rest.size(), answer.reasonBytes)));
    const bool isSentence = reason.startsWith(u'T') && reason.endsWith(u'.') &&
                            reason.size() <= longestReason &&
                            std::ranges::all_of(reason, [](QChar letter) { return letter.isPrint(); });
    return {answer.outcome == DecoderOutcome::Failed && isSentence ? reason : damagedPicture()};
}

/// Whether the pixels are all there, and show a part of the picture.
bool isConsistent(const DecoderAnswer &answer, uint64_t bytes)
{
    const auto &[left, top, width, height] = answer.region;
    const auto isWithin = [](double value, double from, double to) { return value >= from && value <= to; };
    // What is reduced may end past the picture's edge, by less than one of its pixels.
    const double across = answer.fullWidth * 2.0, down = answer.fullHeight * 2.0;
    return answer.width > 0 && answer.height > 0 && answer.width <= longestPictureSide &&
           answer.height <= longestPictureSide &&
           uint64_t(answer.width) * uint64_t(answer.height) * 4 == bytes && isWithin(left, -across, across) &&
           isWithin(top, -down, down) && isWithin(width, answer.width, across + 4096) &&
           isWithin(height, answer.height, down + 4096);
}

} // namespace

QSize announcedSize(QIODevice &device, PictureFormat format)
{
    constexpr qint64 headerBytes = 1 << 16;
    const QByteArray header = device.peek(headerBytes);
    const auto number = [&header](qsizetype at) -> int {
        return at + 2 <= header.size() ? qFromLittleEndian<quint16>(header.constData() + at) : 0;
    };
    constexpr int lossySide = 0x3FFF;
    switch (format) {
    case PictureFormat::Gif:
        return {number(6), number(8)};
    case PictureFormat::Bmp:
        return {number(18), number(22)};
    case PictureFormat::WebP: // as the extended header and that of lossy pictures have it
        return header.indexOf("VP8X") == 12 ? QSize(number(24) + 1, number(27) + 1)
                                            : QSize(number(26) & lossySide, number(28) & lossySide);
    case PictureFormat::Heic:
    case PictureFormat::Avif:
        return heifSize(header);
    default:
        return {};
    }
}

Result<Picture> readDecoderAnswer(MemoryFile::Mapping bytes)
{
    const size_t size = bytes.get_deleter().size;
    DecoderAnswer answer;
    if (!bytes || size < sizeof answer)
        return fail(damagedPicture());
    std::memcpy(&answer, bytes.get(), sizeof answer);
    const QByteArrayView rest(bytes.get() + sizeof answer, qsizetype(size - sizeof answer));
    if (answer.mark != decoderAnswerMark)
        return fail(damagedPicture());
    if (answer.outcome != DecoderOutcome::Done)
        return std::unexpected(reasonOf(answer, rest));
    Picture picture;
    picture.fullSize = {answer.fullWidth, answer.fullHeight};
    if (const auto checked = checkPictureSize(picture.fullSize, 0, decodingMemory); !checked)
        return std::unexpected(checked.error());
    if (answer.width == 0)
        return picture;
    if (!isConsistent(answer, uint64_t(rest.size())))
        return fail(damagedPicture());
    const auto &[left, top, width, height] = answer.region;
    picture.region = {left, top, width, height};
    auto *held = new MemoryFile::Mapping(std::move(bytes));
    const auto release = [](void *mapping) { delete static_cast<MemoryFile::Mapping *>(mapping); };
    picture.image = QImage(reinterpret_cast<const uchar *>(rest.data()), answer.width, answer.height,
                           qsizetype(answer.width) * 4,
                           answer.hasAlpha ? QImage::Format_RGBA8888_Premultiplied : QImage::Format_RGBX8888,
                           release, held);
    if (picture.image.isNull()) {
        delete held;
        return fail(damagedPicture());
    }
    return picture;
}

Result<Picture> decodeSupervised(QIODevice &device, PictureFormat format, const PictureRequest &request)
{
    for (const qint64 memory : {likelyBytes(device, format), mostDecodingMemory}) {
        const DecodingShare share(memory);
        auto answer = runDecoder(decoderPath(), {format, memory, request}, device);
        if (!answer)
            return std::unexpected(answer.error());
        if (memory < mostDecodingMemory && needsMore(*answer))
            continue;
        auto picture = readDecoderAnswer(std::move(*answer));
        if (picture && picture->image.isNull())
            break;
        return picture;
    }
    return fail(damagedPicture());
}

Result<PictureInfo> readInfoSupervised(QIODevice &device, PictureFormat format)
{
    auto answer = runDecoder(decoderPath(), {format, mostDecodingMemory, std::nullopt}, device);
    if (!answer)
        return std::unexpected(answer.error());
    const auto picture = readDecoderAnswer(std::move(*answer));
    if (!picture)
        return std::unexpected(picture.error());
    return PictureInfo{format, picture->fullSize};
}

} // namespace mosslantern

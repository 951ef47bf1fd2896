#include "render/picture/heif_decoder.h"

#include "render/picture/decoding_share.h"
#include "render/picture/heif/heif_answer.h"
#include "render/picture/heif_program.h"
#include "render/picture/picture_color.h"
#include "render/picture/picture_errors.h"
#include "render/picture/picture_fit.h"

#include <QtCore/QtEndian>

#include <algorithm>
#include <cstring>
#include <limits>

using namespace Qt::StringLiterals;

namespace mosslantern {

namespace {

Result<> checkOutcome(HeifOutcome outcome)
{
    switch (outcome) {
    case HeifOutcome::Done:
    case HeifOutcome::TooLarge:
        return {};
    case HeifOutcome::Unsupported:
        return fail(u"This kind of HEIC or AVIF picture is not supported."_s);
    case HeifOutcome::OutOfMemory:
        return fail(pictureNeedsTooMuchMemory());
    case HeifOutcome::Damaged:
        break;
    }
    return fail(damagedPicture());
}

QColorSpace codedColors(const HeifAnswer &answer)
{
    const auto &at = answer.chromaticities;
    if (!std::ranges::all_of(at, [](float value) { return value >= 0 && value <= 1; }))
        return {};
    return codedColorSpace({at[0], at[1]}, {at[2], at[3]}, {at[4], at[5]}, {at[6], at[7]},
                           answer.transfer <= 255 ? int(answer.transfer) : 0);
}

QImage::Format formatOf(HeifAlpha alpha)
{
    switch (alpha) {
    case HeifAlpha::Straight:
        return QImage::Format_RGBA8888;
    case HeifAlpha::Premultiplied:
        return QImage::Format_RGBA8888_Premultiplied;
    case HeifAlpha::Opaque:
        break;
    }
    return QImage::Format_RGBX8888;
}

/// Whether all of the pixels lie in an answer of `size` bytes. The picture's size is one that is accepted.
bool holdsPixels(const HeifAnswer &answer, uint64_t size)
{
    return answer.stride >= uint64_t(answer.width) * 4 && answer.stride % 4 == 0 &&
           answer.stride <= uint64_t(std::numeric_limits<int>::max()) &&
           answer.pixelsAt % heifPixelAlignment == 0 && answer.pixelsAt <= size &&
           answer.stride * uint64_t(answer.height) <= size - answer.pixelsAt;
}

/// What decoding takes of the largest picture that the file describes in a property of its own.
qint64 announcedBytes(const QByteArray &bytes)
{
    constexpr qsizetype headerBytes = 1 << 20;
    const QByteArrayView header = QByteArrayView(bytes).first(std::min(bytes.size(), headerBytes));
    qint64 most = 0;
    for (auto at = header.indexOf("ispe"); at >= 0 && at + 16 <= header.size();
         at = header.indexOf("ispe", at + 1)) {
        const auto width = qFromBigEndian<quint32>(header.data() + at + 8);
        const auto height = qFromBigEndian<quint32>(header.data() + at + 12);
        if (width <= longestPictureSide && height <= longestPictureSide)
            most = std::max(most, qint64(width) * height);
    }
    return std::clamp<qint64>(most * heifBytesPerPixel(8), 1, decodingMemory);
}

/// Whether the program ran into the limit that it was given.
bool needsMore(const MemoryFile::Mapping &answer)
{
    HeifAnswer start;
    if (!answer || answer.get_deleter().size < sizeof start)
        return false;
    std::memcpy(&start, answer.get(), sizeof start);
    return start.outcome == HeifOutcome::TooLarge || start.outcome == HeifOutcome::OutOfMemory;
}

} // namespace

Result<HeifPicture> readHeifAnswer(MemoryFile::Mapping bytes)
{
    const size_t size = bytes.get_deleter().size;
    HeifAnswer answer;
    if (!bytes || size < sizeof answer)
        return fail(damagedPicture());
    std::memcpy(&answer, bytes.get(), sizeof answer);
    if (answer.mark != heifAnswerMark)
        return fail(damagedPicture());
    if (const auto checked = checkOutcome(answer.outcome); !checked)
        return std::unexpected(checked.error());
    HeifPicture picture;
    picture.size = {answer.width, answer.height};
    if (const auto checked = checkPictureSize(picture.size, heifBytesPerPixel(answer.bits), decodingMemory);
        !checked)
        return std::unexpected(checked.error());
    if (answer.outcome == HeifOutcome::TooLarge)
        return fail(damagedPicture());
    if (answer.stride == 0)
        return picture;

    if (!holdsPixels(answer, size) || answer.profileBytes > size - sizeof answer)
        return fail(damagedPicture());
    if (answer.colors == HeifColors::Profile) {
        const auto *profile = reinterpret_cast<const char *>(bytes.get() + sizeof answer);
        picture.colorSpace = QColorSpace::fromIccProfile({profile, qsizetype(answer.profileBytes)});
    } else if (answer.colors == HeifColors::Coded) {
        picture.colorSpace = codedColors(answer);
    }
    const uchar *pixels = bytes.get() + answer.pixelsAt;
    auto *held = new MemoryFile::Mapping(std::move(bytes));
    const auto release = [](void *mapping) { delete static_cast<MemoryFile::Mapping *>(mapping); };
    picture.image = QImage(pixels, answer.width, answer.height, qsizetype(answer.stride),
                           formatOf(answer.alpha), release, held);
    if (picture.image.isNull()) {
        delete held;
        return fail(damagedPicture());
    }
    return picture;
}

Result<Picture> decodeHeif(const QByteArray &bytes, const PictureRequest &request)
{
    // What a file announces may be too little, for more than 8 bits or when it lies.
    for (const qint64 memory : {announcedBytes(bytes), decodingMemory}) {
        const DecodingShare share(memory);
        auto answer = runHeifProgram(heifProgramPath(), heifDecodeTask, bytes, memory);
        if (!answer)
            return std::unexpected(answer.error());
        if (memory < decodingMemory && needsMore(*answer))
            continue;
        auto picture = readHeifAnswer(std::move(*answer));
        if (!picture)
            return std::unexpected(picture.error());
        if (picture->image.isNull())
            break;
        return fitPicture(std::move(picture->image), {}, picture->colorSpace, request);
    }
    return fail(damagedPicture());
}

Result<PictureInfo> readHeifInfo(const QByteArray &bytes, PictureFormat format)
{
    auto answer = runHeifProgram(heifProgramPath(), heifInfoTask, bytes, decodingMemory);
    if (!answer)
        return std::unexpected(answer.error());
    const auto picture = readHeifAnswer(std::move(*answer));
    if (!picture)
        return std::unexpected(picture.error());
    return PictureInfo{format, picture->size};
}

} // namespace mosslantern

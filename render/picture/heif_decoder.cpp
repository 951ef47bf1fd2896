#include "render/picture/heif_decoder.h"

#include "render/picture/heif/heif_answer.h"
#include "render/picture/heif_program.h"
#include "render/picture/picture_color.h"
#include "render/picture/picture_errors.h"
#include "render/picture/picture_fit.h"

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
    if (const auto checked = checkPictureSize(picture.size, heifBytesPerPixel(answer.bits)); !checked)
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
    auto answer = runHeifProgram(heifProgramPath(), heifDecodeTask, bytes);
    if (!answer)
        return std::unexpected(answer.error());
    auto picture = readHeifAnswer(std::move(*answer));
    if (!picture)
        return std::unexpected(picture.error());
    if (picture->image.isNull())
        return fail(damagedPicture());
    return fitPicture(std::move(picture->image), {}, picture->colorSpace, request);
}

Result<PictureInfo> readHeifInfo(const QByteArray &bytes, PictureFormat format)
{
    auto answer = runHeifProgram(heifProgramPath(), heifInfoTask, bytes);
    if (!answer)
        return std::unexpected(answer.error());
    const auto picture = readHeifAnswer(std::move(*answer));
    if (!picture)
        return std::unexpected(picture.error());
    return PictureInfo{format, picture->size};
}

} // namespace mosslantern

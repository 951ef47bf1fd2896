#include "render/export/slide_format.h"

#include "model/raw_text.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

QString rawText(SlideFormat format)
{
    switch (format) {
    case SlideFormat::png:
        return u"png"_s;
    case SlideFormat::jpeg:
        return u"jpeg"_s;
    case SlideFormat::webp:
        return u"webp"_s;
    case SlideFormat::losslessWebp:
        return u"webp-lossless"_s;
    }
    Q_UNREACHABLE();
}

QString rawText(Corners corners)
{
    return corners == Corners::rounded ? u"rounded"_s : u"square"_s;
}

std::optional<SlideFormat> slideFormatFromRawText(QStringView text)
{
    return valueWithRawText(allSlideFormats, text);
}

std::optional<Corners> cornersFromRawText(QStringView text)
{
    return valueWithRawText(allCorners, text);
}

QString fileEnding(SlideFormat format)
{
    switch (format) {
    case SlideFormat::png:
        return u".png"_s;
    case SlideFormat::jpeg:
        return u".jpg"_s;
    case SlideFormat::webp:
    case SlideFormat::losslessWebp:
        return u".webp"_s;
    }
    Q_UNREACHABLE();
}

std::optional<SlideFormat> slideFormatOfFile(const QString &name)
{
    for (const SlideFormat format : allSlideFormats) {
        if (name.endsWith(fileEnding(format), Qt::CaseInsensitive))
            return format;
    }
    if (name.endsWith(u".jpeg"_s, Qt::CaseInsensitive))
        return SlideFormat::jpeg;
    return {};
}

} // namespace mosslantern

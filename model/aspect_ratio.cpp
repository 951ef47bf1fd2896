#include "model/aspect_ratio.h"

#include "model/raw_text.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

QString rawText(AspectRatio ratio)
{
    switch (ratio) {
    case AspectRatio::tiktok:
        return u"9:16"_s;
    case AspectRatio::instagram:
        return u"4:5"_s;
    case AspectRatio::square:
        return u"1:1"_s;
    }
    Q_UNREACHABLE();
}

std::optional<AspectRatio> aspectRatioFromRawText(QStringView text)
{
    return valueWithRawText(allAspectRatios, text);
}

QString displayName(AspectRatio ratio)
{
    switch (ratio) {
    case AspectRatio::tiktok:
        return u"TikTok (9:16)"_s;
    case AspectRatio::instagram:
        return u"Instagram (4:5)"_s;
    case AspectRatio::square:
        return u"Square (1:1)"_s;
    }
    Q_UNREACHABLE();
}

double widthToHeight(AspectRatio ratio)
{
    switch (ratio) {
    case AspectRatio::tiktok:
        return 9.0 / 16.0;
    case AspectRatio::instagram:
        return 4.0 / 5.0;
    case AspectRatio::square:
        return 1.0;
    }
    Q_UNREACHABLE();
}

} // namespace mosslantern

#include "model/text_style.h"

#include "model/raw_text.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

QString rawText(TextStyle style)
{
    switch (style) {
    case TextStyle::classic:
        return u"classic"_s;
    case TextStyle::boxed:
        return u"boxed"_s;
    case TextStyle::modern:
        return u"modern"_s;
    case TextStyle::neon:
        return u"neon"_s;
    }
    Q_UNREACHABLE();
}

std::optional<TextStyle> textStyleFromRawText(QStringView text)
{
    return valueWithRawText(allTextStyles, text);
}

} // namespace mosslantern

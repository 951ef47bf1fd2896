#include "content/slide_content.h"
#include "model/line_breaks.h"

#include <unicode/uchar.h>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

char32_t codePointBefore(QStringView text, qsizetype index)
{
    const QChar unit = text[index - 1];
    if (unit.isLowSurrogate() && index > 1 && text[index - 2].isHighSurrogate())
        return QChar::surrogateToUcs4(text[index - 2], unit);
    return unit.unicode();
}

char32_t codePointAt(QStringView text, qsizetype index)
{
    const QChar unit = text[index];
    if (unit.isHighSurrogate() && index + 1 < text.size() && text[index + 1].isLowSurrogate())
        return QChar::surrogateToUcs4(unit, text[index + 1]);
    return unit.unicode();
}

int clusterBreak(char32_t character)
{
    return u_getIntPropertyValue(static_cast<UChar32>(character), UCHAR_GRAPHEME_CLUSTER_BREAK);
}

/// Whether the quote or backslash at `index` is a whole user-perceived character. By the rules of Unicode
/// Standard Annex 29 only a preceding Prepend and a following Extend, joiner or SpacingMark attach to it.
bool standsAlone(QStringView text, qsizetype index)
{
    if (index > 0 && clusterBreak(codePointBefore(text, index)) == U_GCB_PREPEND)
        return false;
    if (index + 1 == text.size())
        return true;
    const int next = clusterBreak(codePointAt(text, index + 1));
    return next != U_GCB_EXTEND && next != U_GCB_ZWJ && next != U_GCB_SPACING_MARK;
}

} // namespace

QString fixNewlinesInStrings(const QString &text)
{
    const QStringView view = text;
    QString result;
    result.reserve(view.size());
    bool insideString = false;
    qsizetype copied = 0;
    for (qsizetype i = 0; i < view.size(); ++i) {
        const QChar c = view[i];
        if (c == u'"') {
            const bool escaped = i > 0 && view[i - 1] == u'\\' && standsAlone(view, i - 1);
            if (!escaped && standsAlone(view, i))
                insideString = !insideString;
        } else if (insideString && isLineBreak(c.unicode())) {
            result += view.sliced(copied, i - copied);
            result += "\\n"_L1;
            if (c == u'\r' && i + 1 < view.size() && view[i + 1] == u'\n')
                ++i;
            copied = i + 1;
        }
    }
    return result += view.sliced(copied);
}

} // namespace mosslantern

#include "content/slide_content.h"

#include "content/json.h"
#include "content/utf8.h"
#include "model/console.h"
#include "model/line_breaks.h"

#include <utility>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// The JSON document that `content` holds, or an empty view when it is plain text.
QStringView jsonPart(QStringView content)
{
    const QStringView trimmed = content.trimmed();
    return trimmed.startsWith(u'{') ? trimmed : QStringView();
}

bool isHorizontalSpace(QChar c)
{
    return c == u'\t' || c.category() == QChar::Separator_Space;
}

QStringView trimmedHorizontally(QStringView text)
{
    const auto first = std::find_if_not(text.begin(), text.end(), isHorizontalSpace);
    const auto last = std::find_if_not(text.rbegin(), std::reverse_iterator(first), isHorizontalSpace);
    return QStringView(first, last.base());
}

} // namespace

QString tooManySlides()
{
    return u"the content has more than %1 slides"_s.arg(mostSlides);
}

Result<QList<SlideText>> readSlideLines(QStringView text)
{
    QList<SlideText> entries;
    qsizetype start = 0;
    for (qsizetype end = 0; end <= text.size(); ++end) {
        if (end < text.size() && !isLineBreak(text[end].unicode()))
            continue;
        const QStringView main = trimmedHorizontally(text.sliced(start, end - start));
        start = end + 1;
        if (main.isEmpty())
            continue;
        if (entries.size() == mostSlides)
            return fail(tooManySlides());
        entries.append({main.toString(), QString()});
    }
    return entries;
}

Result<QList<SlideText>> readSlideContent(const QString &content)
{
    const QStringView json = jsonPart(content);
    if (json.isEmpty())
        return readSlideLines(content);
    Result<SlideContentJSON> document = SlideContentJSON::decode(json);
    if (!document)
        return std::unexpected(document.error());
    QList<SlideText> entries;
    entries.reserve(document->slides.size());
    for (SlideData &slide : document->slides)
        entries.append({std::move(slide.main), std::move(slide.subtitle).value_or(QString())});
    return entries;
}

QList<SlideText> parseSlideContent(const QString &content)
{
    Result<QList<SlideText>> entries = readSlideContent(content);
    if (entries)
        return *std::move(entries);
    if (jsonPart(content).isEmpty()) {
        printLine(u"Slide content: "_s + entries.error().message);
        return {};
    }
    printLine(u"❌ JSON parsing error: "_s + entries.error().message);
    printLine(u"💡 Tip: Check for unescaped quotes, missing commas, or trailing commas"_s);
    return {};
}

bool isValidSlideContent(const QString &content)
{
    const QStringView json = jsonPart(content);
    return !json.isEmpty() && SlideContentJSON::decode(json);
}

QString prettifySlideContent(const QString &text)
{
    const std::optional<QByteArray> utf8 = encodeUtf8(text);
    if (!utf8)
        return text;
    const Result<JsonValue> value = JsonValue::parse(*utf8);
    if (!value || (value->kind() != JsonValue::Kind::object && value->kind() != JsonValue::Kind::array))
        return text;
    const Result<QByteArray> pretty = prettyJson(*value);
    return pretty ? QString::fromUtf8(*pretty) : text;
}

QString updateSlideContent(const QString &content, qsizetype index, const std::optional<QString> &newMain,
                           const std::optional<QString> &newSubtitle)
{
    const QStringView json = jsonPart(content);
    if (json.isEmpty())
        return content;
    const auto failed = [&content](const Error &error) {
        printLine(u"Failed to update JSON: "_s + error.message);
        return content;
    };
    Result<SlideContentJSON> document = SlideContentJSON::decode(json);
    if (!document)
        return failed(document.error());
    if (index < 0 || index >= document->slides.size())
        return content;

    SlideData &slide = document->slides[index];
    slide.main = newMain.value_or(slide.main);
    if (newSubtitle)
        slide.subtitle = newSubtitle;
    const Result<QString> encoded = document->encode();
    return encoded ? *encoded : failed(encoded.error());
}

} // namespace mosslantern

#include "app/cli/option_reader.h"

#include <algorithm>
#include <cmath>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr double farthestPosition = 10;

std::optional<double> finiteNumber(QStringView text)
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

/// Two numbers with `separator` between them.
std::optional<std::pair<double, double>> numberPair(QStringView text, QChar separator)
{
    const qsizetype at = text.indexOf(separator);
    if (at < 0)
        return std::nullopt;
    const auto first = finiteNumber(text.first(at));
    const auto second = finiteNumber(text.sliced(at + 1));
    return first && second ? std::optional(std::pair(*first, *second)) : std::nullopt;
}

bool isHexDigit(QChar c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
}

template <typename T>
QString choices(const T &all)
{
    QStringList texts;
    for (const auto &value : all)
        texts.append(rawText(value));
    return u"one of "_s + texts.join(u", "_s);
}

} // namespace

std::optional<qint64> OptionReader::integer(QLatin1StringView option, qint64 min, qint64 max)
{
    const auto parse = [min, max](const QString &text) {
        bool isNumber = false;
        const qint64 number = text.toLongLong(&isNumber);
        return isNumber && number >= min && number <= max ? std::optional(number) : std::nullopt;
    };
    return read(option, parse, u"a whole number from %1 to %2"_s.arg(min).arg(max));
}

std::optional<quint64> OptionReader::seed(QLatin1StringView option)
{
    const auto parse = [](const QString &text) {
        bool isNumber = false;
        const quint64 number = text.toULongLong(&isNumber);
        return isNumber ? std::optional(number) : std::nullopt;
    };
    return read(option, parse, u"a whole number from 0 to 18446744073709551615"_s);
}

std::optional<double> OptionReader::real(QLatin1StringView option, double min, double max)
{
    const auto parse = [min, max](const QString &text) {
        const std::optional<double> number = finiteNumber(text);
        return number && *number >= min && *number <= max ? number : std::nullopt;
    };
    return read(option, parse, u"a number from %1 to %2"_s.arg(min).arg(max));
}

std::optional<QPointF> OptionReader::position(QLatin1StringView option)
{
    const auto parse = [](const QString &text) -> std::optional<QPointF> {
        const auto numbers = numberPair(text, u',');
        if (!numbers || std::abs(numbers->first) > farthestPosition ||
            std::abs(numbers->second) > farthestPosition)
            return std::nullopt;
        return QPointF(numbers->first, numbers->second);
    };
    return read(option, parse, u"X,Y as fractions of the width and height, such as 0.5,0.8"_s);
}

std::optional<QSizeF> OptionReader::size(QLatin1StringView option)
{
    const auto parse = [](const QString &text) -> std::optional<QSizeF> {
        const auto numbers = numberPair(text, u'x');
        if (!numbers || numbers->first <= 0 || numbers->second <= 0)
            return std::nullopt;
        return QSizeF(numbers->first, numbers->second);
    };
    return read(option, parse, u"WxH in points, such as 1080x1920"_s);
}

std::optional<TextStyle> OptionReader::style(QLatin1StringView option)
{
    return read(option, textStyleFromRawText, choices(allTextStyles));
}

std::optional<AspectRatio> OptionReader::shape(QLatin1StringView option)
{
    return read(option, aspectRatioFromRawText, choices(allAspectRatios));
}

std::optional<RgbaColor> OptionReader::color(QLatin1StringView option)
{
    const auto parse = [](const QString &text) -> std::optional<RgbaColor> {
        const QStringView digits = QStringView(text).sliced(text.startsWith(u'#') ? 1 : 0);
        if ((digits.size() != 6 && digits.size() != 8) || !std::ranges::all_of(digits, isHexDigit))
            return std::nullopt;
        return colorFromHex(text);
    };
    return read(option, parse, u"RRGGBB or RRGGBBAA in hexadecimal digits"_s);
}

std::optional<qint64> OptionReader::bytes(QLatin1StringView option)
{
    const auto parse = [](const QString &text) -> std::optional<qint64> {
        const bool hasUnit = text.endsWith(u'K') || text.endsWith(u'M');
        const double unit = !hasUnit ? 1 : text.endsWith(u'K') ? 1e3 : 1e6;
        const auto number = finiteNumber(QStringView(text).chopped(hasUnit ? 1 : 0));
        constexpr double most = 1e15;
        if (!number || *number * unit < 1 || *number * unit > most)
            return std::nullopt;
        return qint64(*number * unit);
    };
    return read(option, parse, u"a number of bytes, such as 500K or 8M"_s);
}

std::optional<SlideFormat> OptionReader::slideFormat(QLatin1StringView option)
{
    return read(option, slideFormatFromRawText, choices(allSlideFormats));
}

const Platform *OptionReader::platform(QLatin1StringView option)
{
    QStringList names;
    for (const Platform &platform : allPlatforms())
        names.append(platform.name);
    const auto parse = [](const QString &text) -> std::optional<const Platform *> {
        const Platform *platform = platformNamed(text);
        return platform ? std::optional(platform) : std::nullopt;
    };
    return read(option, parse, u"one of "_s + names.join(u", "_s)).value_or(nullptr);
}

std::optional<Corners> OptionReader::corners(QLatin1StringView option)
{
    return read(option, cornersFromRawText, choices(allCorners));
}

std::optional<FilmFormat> OptionReader::filmFormat(QLatin1StringView option)
{
    return read(option, filmFormatFromRawText, choices(allFilmFormats));
}

std::optional<Transition> OptionReader::transition(QLatin1StringView option)
{
    return read(option, transitionFromRawText, choices(allTransitions));
}

QString OptionReader::required(QLatin1StringView option)
{
    const QString text = m_arguments.value(option).value_or(QString());
    if (text.isEmpty() && !m_problem)
        m_problem =
            (m_arguments.has(option) ? u"--%1 must not be empty"_s : u"--%1 is missing"_s).arg(option);
    return text;
}

template <typename Parse>
std::invoke_result_t<Parse, QString> OptionReader::read(QLatin1StringView option, Parse parse,
                                                        const QString &expected)
{
    const std::optional<QString> text = m_arguments.value(option);
    if (!text)
        return std::nullopt;
    const auto value = parse(*text);
    if (!value && !m_problem)
        m_problem = u"--%1: expected %2, not “%3”"_s.arg(option, expected, *text);
    return value;
}

} // namespace mosslantern

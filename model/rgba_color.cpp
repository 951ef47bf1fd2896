#include "model/rgba_color.h"

#include <cmath>
#include <limits>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

int hexDigit(QChar c)
{
    const char16_t unit = c.unicode();
    if (unit >= u'0' && unit <= u'9')
        return unit - u'0';
    if (unit >= u'a' && unit <= u'f')
        return unit - u'a' + 10;
    if (unit >= u'A' && unit <= u'F')
        return unit - u'A' + 10;
    return -1;
}

/// The hexadecimal number at the start of the text: 0 when there is none, the largest when it is too long.
quint64 leadingHexNumber(QStringView text)
{
    if (text.size() > 2 && text.startsWith(u"0x", Qt::CaseInsensitive) && hexDigit(text[2]) >= 0)
        text = text.mid(2);
    quint64 number = 0;
    int digits = 0;
    for (const QChar c : text) {
        const int digit = hexDigit(c);
        if (digit < 0)
            break;
        if (++digits > 16)
            return std::numeric_limits<quint64>::max();
        number = number << 4 | static_cast<quint64>(digit);
    }
    return number;
}

/// Characters as people count them: a surrogate pair is one.
qsizetype characterCount(const QString &text)
{
    return text.toUcs4().size();
}

double component(quint64 number, int shift)
{
    return static_cast<double>(number >> shift & 0xFF) / 255;
}

int eightBits(double fraction)
{
    return static_cast<int>(std::clamp(fraction, 0.0, 1.0) * 255);
}

} // namespace

RgbaColor colorFromHex(const QString &text)
{
    QString digits = text.trimmed();
    digits.remove(u'#');
    const quint64 number = leadingHexNumber(digits);
    if (characterCount(digits) == 8)
        return {component(number, 24), component(number, 16), component(number, 8), component(number, 0)};
    return {component(number, 16), component(number, 8), component(number, 0), 1};
}

QString hexFromColor(const RgbaColor &color)
{
    if (std::isnan(color.red) || std::isnan(color.green) || std::isnan(color.blue) ||
        std::isnan(color.opacity))
        return u"FFFFFF"_s;
    const auto hex = [](double fraction) {
        return u"%1"_s.arg(eightBits(fraction), 2, 16, QLatin1Char('0')).toUpper();
    };
    const QString opaque = hex(color.red) + hex(color.green) + hex(color.blue);
    return eightBits(color.opacity) > 254 ? opaque : opaque + hex(color.opacity);
}

} // namespace mosslantern

#include "ui/common/dates.h"

#include <QtCore/QLocale>

#include <unicode/datefmt.h>
#include <unicode/measfmt.h>

#include <array>
#include <memory>

namespace mosslantern {

namespace {

icu::Locale userLocale()
{
    UErrorCode status = U_ZERO_ERROR;
    return icu::Locale::forLanguageTag(QLocale().bcp47Name().toStdString(), status);
}

QString toQString(const icu::UnicodeString &text)
{
    return QString::fromUtf16(text.getBuffer(), text.length());
}

struct Unit
{
    qint64 seconds;
    icu::MeasureUnit (*unit)();
};

constexpr qint64 daySeconds = 24 * 60 * 60;
const std::array units{Unit{365 * daySeconds, icu::MeasureUnit::getYear},
                       Unit{30 * daySeconds, icu::MeasureUnit::getMonth},
                       Unit{7 * daySeconds, icu::MeasureUnit::getWeek},
                       Unit{daySeconds, icu::MeasureUnit::getDay},
                       Unit{60 * 60, icu::MeasureUnit::getHour},
                       Unit{60, icu::MeasureUnit::getMinute},
                       Unit{0, icu::MeasureUnit::getSecond}};

} // namespace

QString Dates::day(const QDateTime &time) const
{
    const std::unique_ptr<icu::DateFormat> format(
        icu::DateFormat::createDateInstance(icu::DateFormat::kLong, userLocale()));
    // The calendar day is Qt's, so ICU is shown it in a time zone in which nothing can move it.
    format->adoptTimeZone(icu::TimeZone::createTimeZone("GMT"));
    constexpr double noon = 0.5;
    const auto days = static_cast<double>(QDate(1970, 1, 1).daysTo(time.toLocalTime().date()));
    icu::UnicodeString text;
    return toQString(format->format((days + noon) * daySeconds * 1000, text));
}

QString Dates::distance(const QDateTime &from, const QDateTime &to) const
{
    const qint64 seconds = std::abs(from.secsTo(to));
    const Unit &unit = *std::ranges::find_if(units, [=](const Unit &u) { return seconds >= u.seconds; });
    const qint64 amount = unit.seconds == 0 ? seconds : seconds / unit.seconds;

    UErrorCode status = U_ZERO_ERROR;
    const icu::MeasureFormat format(userLocale(), UMEASFMT_WIDTH_WIDE, status);
    const icu::Measure measure(icu::Formattable(static_cast<int64_t>(amount)),
                               new icu::MeasureUnit(unit.unit()), status);
    icu::UnicodeString text;
    icu::FieldPosition position;
    format.formatMeasures(&measure, 1, text, position, status);
    return U_SUCCESS(status) ? toQString(text) : QString();
}

} // namespace mosslantern

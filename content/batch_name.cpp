#include "content/batch_name.h"

#include "model/folded_spaces.h"

#include <QtCore/QTimeZone>

#include <unicode/smpdtfmt.h>

#include <memory>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// Null when the name of the locale makes no sense.
std::unique_ptr<icu::DateFormat> numericFormat(const icu::Locale &locale)
{
    if (locale.isBogus()) // ICU would crash
        return nullptr;
    UErrorCode status = U_ZERO_ERROR;
    // "j" is the hour as the locale counts it, from 12 or from 24.
    std::unique_ptr<icu::DateFormat> format(
        icu::DateFormat::createInstanceForSkeleton(u"yMdjm", locale, status));
    return U_SUCCESS(status) ? std::move(format) : nullptr;
}

} // namespace

QString defaultBatchName(const QDateTime &now, const QString &locale)
{
    std::unique_ptr<icu::DateFormat> format = numericFormat(icu::Locale::createCanonical(qPrintable(locale)));
    if (!format)
        format = numericFormat(icu::Locale::getUS());
    Q_ASSERT(format);
    // The clock's reading is formatted as it is, so that no idea of ICU about the zone comes in.
    format->setTimeZone(*icu::TimeZone::getGMT());
    const QDateTime reading(now.date(), now.time(), QTimeZone::utc());
    icu::UnicodeString text;
    format->format(static_cast<UDate>(reading.toMSecsSinceEpoch()), text);
    return u"Batch "_s + foldedSpaces({text.getBuffer(), text.length()});
}

QString userDateLocale()
{
    for (const char *variable : {"LC_ALL", "LC_TIME", "LANG"}) {
        if (const QString locale = qEnvironmentVariable(variable); !locale.isEmpty())
            return locale;
    }
    return u"C"_s;
}

QString batchNameFor(const QString &typed, const QDateTime &now, const QString &locale)
{
    return typed.isEmpty() ? defaultBatchName(now, locale) : typed;
}

} // namespace mosslantern

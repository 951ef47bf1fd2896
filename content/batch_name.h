#pragma once

#include <QtCore/QDateTime>

namespace mosslantern {

/// "Batch " and `now` as a numeric date with the whole year and a time to the minute, in the form that
/// `locale` ("de_DE.UTF-8") gives them, or that of en_US when there can be no such locale; its zone is that
/// of `now`.
QString defaultBatchName(const QDateTime &now, const QString &locale);

/// The name of the locale in which the user reads dates, as the environment says it.
QString userDateLocale();

/// The name of a batch: as it was typed, or the default one where nothing was.
QString batchNameFor(const QString &typed, const QDateTime &now = QDateTime::currentDateTime(),
                     const QString &locale = userDateLocale());

} // namespace mosslantern

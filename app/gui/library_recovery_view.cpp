#include "app/gui/library_recovery_view.h"

#include <QtCore/QLocale>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

QString recordCount(qint64 count)
{
    return count == 1 ? LibraryRecoveryView::tr("one record")
                      : LibraryRecoveryView::tr("%1 records").arg(count);
}

} // namespace

LibraryRecoveryView::LibraryRecoveryView(const LibraryLocation &location, QObject *parent)
    : QObject(parent)
    , m_location(location)
    , m_copy(newestWholeCopy(location))
{}

QString LibraryRecoveryView::copy() const
{
    if (!m_copy)
        return {};
    return tr("the copy of %1, which has %2 and nothing that came later")
        .arg(QLocale().toString(m_copy->day, QLocale::LongFormat), recordCount(m_copy->records));
}

void LibraryRecoveryView::useCopy()
{
    if (m_copy)
        finish(mosslantern::useCopy(m_location, *m_copy), tr("%1 more were not in the copy."));
}

void LibraryRecoveryView::rescue()
{
    finish(rescueLibrary(m_location), tr("%1 more could not be read."));
}

void LibraryRecoveryView::finish(const Result<Recovery> &recovery, const QString &lostCount)
{
    m_problem = recovery ? QString() : recovery.error().message;
    if (recovery) {
        m_outcome = tr("Your library has %1 now.").arg(recordCount(recovery->records));
        if (recovery->lost > 0)
            m_outcome += u' ' + lostCount.arg(recovery->lost);
        if (recovery->isDoubtful)
            m_outcome += u' ' + tr("Some may not be as you left them.");
        m_outcome += u' ' + tr("The damaged file is still there, as “%1”.").arg(recovery->damagedFile);
    }
    emit changed();
}

} // namespace mosslantern

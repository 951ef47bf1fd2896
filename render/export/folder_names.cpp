#include "render/export/folder_names.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QFile>

#include <climits>

namespace mosslantern {

using namespace Qt::StringLiterals;

QString batchFolderName(const std::optional<QString> &batchName)
{
    const QString name = batchName.value_or(u"Unknown Batch"_s).replace(u'/', u'-').replace(u'\0', u'-');
    if (name.isEmpty())
        return u"Unnamed Batch"_s;
    if (name == u"."_s || name == u".."_s)
        return u'_' + name;
    if (QFile::encodeName(name).size() <= NAME_MAX)
        return name;
    // Of names that begin alike the rest tells them apart.
    const QByteArray hash =
        QCryptographicHash::hash(name.toUtf8(), QCryptographicHash::Sha256).toHex().left(8);
    const QString end = u'~' + QString::fromLatin1(hash);
    QString begin = name;
    while (QFile::encodeName(begin + end).size() > NAME_MAX)
        begin.chop(begin.back().isLowSurrogate() ? 2 : 1);
    return begin + end;
}

QString suggestedFolderName(const QDateTime &time)
{
    return u"Slideshow_"_s + time.toString(u"yyyy-MM-dd_HH-mm-ss"_s);
}

} // namespace mosslantern

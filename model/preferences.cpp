#include "model/preferences.h"

#include "model/standard_folder.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QSettings>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr auto apiKeyName = "openAiApiKey"_L1;
constexpr QFile::Permissions ownerOnly = QFile::ReadOwner | QFile::WriteOwner;

bool makePrivateFolder(const QString &folder)
{
    return QFileInfo(folder).isDir() ||
           (QDir().mkpath(folder) && QFile::setPermissions(folder, ownerOnly | QFile::ExeOwner));
}

/// QSettings gives a new file its permissions when the contents are already in it, but replaces a file by one
/// with the same permissions: so there must be one before it writes.
bool makePrivateFile(const QString &path)
{
    QFile file(path);
    if (file.exists())
        return QFileInfo(path).isFile() && file.setPermissions(ownerOnly);
    return file.open(QIODevice::NewOnly | QIODevice::WriteOnly, ownerOnly);
}

} // namespace

QString Preferences::standardFile()
{
    const QString folder = standardFolder(QStandardPaths::AppConfigLocation);
    return folder.isEmpty() ? folder : QDir(folder).filePath(u"preferences.ini"_s);
}

Preferences::Preferences(const QString &file)
    : m_file(file.isEmpty() ? file : QDir::current().absoluteFilePath(file))
{}

QString Preferences::openAiApiKey() const
{
    return readOpenAiApiKey().value_or(QString());
}

Result<QString> Preferences::readOpenAiApiKey() const
{
    const auto cannotBeRead = fail(u"The preferences “%1” cannot be read."_s.arg(m_file));
    if (::faccessat(AT_FDCWD, QFile::encodeName(m_file).constData(), R_OK, AT_EACCESS) != 0) {
        if (errno == ENOENT || errno == ENOTDIR)
            return QString();
        return cannotBeRead;
    }
    if (!QFileInfo(m_file).isFile())
        return cannotBeRead;
    QFile::setPermissions(m_file, QFile::permissions(m_file) & ownerOnly);
    const QSettings settings(m_file, QSettings::IniFormat);
    const QString key = settings.value(apiKeyName).toString();
    if (settings.status() == QSettings::AccessError)
        return cannotBeRead;
    return key;
}

Result<> Preferences::setOpenAiApiKey(const QString &key)
{
    if (m_file.isEmpty())
        return fail(u"There is no home folder to keep the preferences in."_s);
    const auto cannotBeWritten = fail(u"The preferences “%1” cannot be written."_s.arg(m_file));
    if (!makePrivateFolder(QFileInfo(m_file).path()) || !makePrivateFile(m_file))
        return cannotBeWritten;
    QSettings settings(m_file, QSettings::IniFormat);
    settings.setValue(apiKeyName, key);
    settings.sync();
    // A FormatError speaks of lines that made no sense; they are gone now.
    if (settings.status() == QSettings::AccessError)
        return cannotBeWritten;
    return {};
}

} // namespace mosslantern

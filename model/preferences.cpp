#include "model/preferences.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QSettings>
#include <QtCore/QStandardPaths>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr auto apiKeyName = "openAiApiKey"_L1;
constexpr QFile::Permissions ownerOnly = QFile::ReadOwner | QFile::WriteOwner;

std::unexpected<Error> cannotBeWritten(const QString &path)
{
    return fail(u"The preferences “%1” cannot be written."_s.arg(path));
}

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
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation))
        .filePath(u"preferences.ini"_s);
}

Preferences::Preferences(const QString &file)
    : m_file(QDir::current().absoluteFilePath(file))
{}

QString Preferences::openAiApiKey() const
{
    return QSettings(m_file, QSettings::IniFormat).value(apiKeyName).toString();
}

Result<> Preferences::setOpenAiApiKey(const QString &key)
{
    if (!makePrivateFolder(QFileInfo(m_file).path()) || !makePrivateFile(m_file))
        return cannotBeWritten(m_file);
    QSettings settings(m_file, QSettings::IniFormat);
    settings.setValue(apiKeyName, key);
    settings.sync();
    if (settings.status() != QSettings::NoError)
        return cannotBeWritten(m_file);
    return {};
}

} // namespace mosslantern

#include "model/library_location.h"

#include "model/standard_folder.h"

#include <QtCore/QDir>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

QString absolutePath(const QString &path)
{
    return path.isEmpty() ? path : QDir::cleanPath(QDir::current().absoluteFilePath(path));
}

QString below(const QString &folder, const QString &name)
{
    return folder.isEmpty() ? folder : QDir(folder).filePath(name);
}

constexpr auto storeFileName = "library.sqlite"_L1;

} // namespace

LibraryLocation LibraryLocation::standard()
{
    return {below(standardFolder(QStandardPaths::AppDataLocation), storeFileName),
            standardFolder(QStandardPaths::DocumentsLocation)};
}

LibraryLocation LibraryLocation::inFolder(const QString &folder)
{
    return {QDir(folder).filePath(storeFileName), folder};
}

LibraryLocation::LibraryLocation(const QString &storeFile, const QString &documentsFolder)
    : m_storeFile(absolutePath(storeFile))
    , m_documentsFolder(absolutePath(documentsFolder))
{}

QString LibraryLocation::assetFolder() const
{
    return below(m_documentsFolder, u"Assets"_s);
}

QString LibraryLocation::slideImageFolder() const
{
    return below(m_documentsFolder, u"Slideshows"_s);
}

} // namespace mosslantern

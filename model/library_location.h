#pragma once

#include <QtCore/QString>

namespace mosslantern {

/// Where one library lives: the file of its records and the documents folder that holds its pictures.
class LibraryLocation
{
public:
    /// The user's own library: the records in the application's data folder, the pictures in the documents
    /// folder.
    static LibraryLocation standard();

    /// A library that has everything inside one folder.
    static LibraryLocation inFolder(const QString &folder);

    /// Both are made absolute; either is empty when the platform reports no folder for it.
    LibraryLocation(const QString &storeFile, const QString &documentsFolder);

    /// The file of the records.
    QString storeFile() const { return m_storeFile; }

    /// The folder of the copies of that file, beside it.
    QString copyFolder() const { return m_storeFile + QLatin1StringView("-copies"); }

    /// The folder "Assets" of the documents folder, one file per imported asset; empty when there is no
    /// documents folder.
    QString assetFolder() const;

    /// The folder "Slideshows" of the documents folder, one file per slide; empty when there is no documents
    /// folder.
    QString slideImageFolder() const;

    friend bool operator==(const LibraryLocation &, const LibraryLocation &) = default;

private:
    QString m_storeFile;
    QString m_documentsFolder;
};

} // namespace mosslantern

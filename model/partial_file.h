#pragma once

#include <QtCore/QFile>

#include <sys/types.h>

namespace mosslantern {

/// A file that gets its name when it is whole. Until then it has a hidden name of its own in the same folder,
/// and is locked: what a killed program leaves behind is not, and is what removeAbandonedFiles() removes.
class PartialFile
{
public:
    /// Makes the file, with these rights as far as the user's mask leaves them.
    explicit PartialFile(const QString &folder, mode_t mode);
    /// Removes it if it has not got its name.
    ~PartialFile();
    Q_DISABLE_COPY_MOVE(PartialFile)

    /// False with errno set when the file could not be made.
    bool isOpen() const { return m_descriptor >= 0; }
    int descriptor() const { return m_descriptor; }
    /// Where it is until it gets its name.
    QString path() const { return QFile::decodeName(m_path); }

    /// Closes the file and gives it a name in its folder, in place of any file of that name; false with errno
    /// set when that fails.
    bool commit(const QString &name);

    /// The same, but fails with EEXIST where there is a file of that name.
    bool commitNew(const QString &name);

private:
    bool close();

    QString m_folder;
    QByteArray m_path;
    int m_descriptor = -1;
};

/// Removes the partial files in a folder whose makers are gone, with the logs of those that are databases.
void removeAbandonedFiles(const QString &folder);

/// A random UUID in upper case.
QString randomName();

} // namespace mosslantern

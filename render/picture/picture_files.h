#pragma once

#include "model/error.h"

#include <QtCore/QStringList>

namespace mosslantern {

/// The pictures that a command line names, or that are dropped together.
struct PictureFiles
{
    QStringList files;
    /// About names that are empty or not UTF-8, and folders that could not be read or hold no pictures.
    QList<Error> problems;
    /// Whether a folder was among the names.
    bool hasFolder = false;
};

/// Each name as it is, or, of a folder, the pictures right in it: whatever is called like a picture, readable
/// or not, and files that begin like one; hidden ones and folders left out, sorted as people count ("9.jpg"
/// before "10.jpg"). A file that is named together with its folder comes once.
PictureFiles pictureFiles(const QStringList &names);

/// The endings of the names of pictures, in lower case.
QStringList pictureSuffixes();

/// Whether a file is called or begins like a picture. A file that cannot be read is told by its name.
bool isLikePicture(const QString &path);

} // namespace mosslantern

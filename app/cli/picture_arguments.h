#pragma once

#include "model/error.h"

#include <QtCore/QStringList>

namespace mosslantern {

/// The pictures that a command line names.
struct PictureArguments
{
    QStringList files;
    /// About names that are empty or not UTF-8, and folders that could not be read or hold no pictures.
    QList<Error> problems;
    /// Whether a folder stood among the arguments.
    bool hasFolder = false;
};

/// Each argument as it is, or, of a folder, the pictures right in it: whatever is called like a picture,
/// readable or not, and files that begin like one; hidden ones and folders left out, sorted as people count
/// ("9.jpg" before "10.jpg").
PictureArguments pictureArguments(const QStringList &arguments);

} // namespace mosslantern

#pragma once

#include "model/error.h"

#include <QtCore/QList>
#include <QtCore/QUrl>

#include <functional>

namespace mosslantern {

/// What a panel says in which the user names a folder to save into.
struct FolderRequest
{
    QString acceptLabel;
    QString message;
    QString suggestedName;
};

/// The platform's panels in which the user picks files.
class FilePanels
{
public:
    /// The picked files; none when the user cancels.
    using Picked = std::function<void(const Result<QList<QUrl>> &)>;

    virtual ~FilePanels() = default;

    /// Lets the user pick any number of image files, then calls `picked` once.
    virtual void openImages(Picked picked) = 0;

    /// The folder, which need not exist yet; empty when the user cancels.
    using Chosen = std::function<void(const QString &)>;

    /// Lets the user name a folder, then calls `chosen` once.
    virtual void saveFolder(const FolderRequest &request, Chosen chosen) = 0;

    /// Shows a folder in the platform's file browser.
    virtual void openFolder(const QString &folder) = 0;
};

} // namespace mosslantern

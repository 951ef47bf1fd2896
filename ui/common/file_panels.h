#pragma once

#include "model/error.h"

#include <QtCore/QList>
#include <QtCore/QUrl>

#include <functional>

namespace mosslantern {

/// The platform's panels in which the user picks files.
class FilePanels
{
public:
    /// The picked files; none when the user cancels.
    using Picked = std::function<void(const Result<QList<QUrl>> &)>;

    virtual ~FilePanels() = default;

    /// Lets the user pick any number of image files, then calls `picked` once.
    virtual void openImages(Picked picked) = 0;
};

} // namespace mosslantern

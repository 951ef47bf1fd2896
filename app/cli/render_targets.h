#pragma once

#include <QtCore/QStringList>

#include <vector>

namespace mosslantern {

/// A file that the slide of a picture is written to.
struct RenderTarget
{
    QString file;
    /// Whether it has a number behind its name.
    bool isNumbered = false;
};

/// The files in `folder` for the slides of `pictures`, in this order: each called like its picture, with this
/// ending and a number behind the name where another of them, or one of the pictures themselves, has that
/// name already
/// ("photo-2.png"). Names that differ only in case count as the same.
std::vector<RenderTarget> renderTargets(const QStringList &pictures, const QString &folder,
                                        const QString &ending);

} // namespace mosslantern

#pragma once

#include "render/export/slide_renderer.h"

namespace mosslantern {

/// Where an export writes its files.
class SlideDestination
{
public:
    SlideDestination() = default;
    virtual ~SlideDestination() = default;
    Q_DISABLE_COPY_MOVE(SlideDestination)

    /// Makes sure that files can go into the folder `path`.
    [[nodiscard]] virtual Result<> prepareFolder(const QString &path) = 0;
    /// Writes the file of a slide, in place of any of that path.
    [[nodiscard]] virtual Result<> write(const QString &path, const EncodedSlide &slide) = 0;
    /// Writes another file, such as a caption, in place of any of that path.
    [[nodiscard]] virtual Result<> writeBeside(const QString &path, const QByteArray &bytes);
    /// Ends a whole export.
    [[nodiscard]] virtual Result<> finish() { return {}; }
};

/// The folders and files of the system.
class FolderDestination : public SlideDestination
{
public:
    /// Takes away what a killed export has left in the folder, too.
    [[nodiscard]] Result<> prepareFolder(const QString &path) override;
    [[nodiscard]] Result<> write(const QString &path, const EncodedSlide &slide) override;
};

} // namespace mosslantern

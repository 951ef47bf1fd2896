#pragma once

#include "model/partial_file.h"
#include "render/export/slide_destination.h"

#include <memory>

namespace mosslantern {

/// Writes the slides of an export into one ZIP file, stored: they are compressed already. The file gets its
/// name when it is whole.
class SlideArchive : public SlideDestination
{
public:
    /// The archive stands for the folder `root`, below which all paths lie, and is called like it, with
    /// ".zip" behind. Fails when its folder cannot be made or written to.
    [[nodiscard]] static Result<std::unique_ptr<SlideArchive>> create(const QString &root);

    [[nodiscard]] Result<> prepareFolder(const QString &path) override;
    /// Fails for an archive of more than 4 GB or 65,535 files, too.
    [[nodiscard]] Result<> write(const QString &path, const EncodedSlide &slide) override;

    /// Ends the archive; in place of any file of its name.
    [[nodiscard]] Result<> finish() override;

    QString path() const { return m_root + QStringLiteral(".zip"); }

private:
    explicit SlideArchive(const QString &root);
    [[nodiscard]] Result<> append(const QByteArray &bytes);
    [[nodiscard]] std::unexpected<Error> failure(const QString &reason) const;

    QString m_root;
    PartialFile m_partial;
    QFile m_file;
    QByteArray m_directory;
    qint64 m_size = 0;
    int m_count = 0;
};

} // namespace mosslantern

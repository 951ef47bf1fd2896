#pragma once

#include "model/error.h"
#include "model/partial_file.h"
#include "render/film/film_options.h"
#include "render/film/yuv_frame.h"

#include <QtCore/QProcess>

namespace mosslantern {

/// Writes a film by Debian's ffmpeg, a process of its own that is given the frames. The file gets its name
/// when it is whole.
class FilmWriter
{
public:
    FilmWriter(const QString &path, const FilmOptions &options);
    /// Ends ffmpeg, and removes what there is of an unfinished film.
    ~FilmWriter();
    Q_DISABLE_COPY_MOVE(FilmWriter)

    /// Fails, with a sentence for people, when there is no ffmpeg, or no file can be made.
    [[nodiscard]] Result<> start(QSize size, int frames);
    [[nodiscard]] Result<> write(const YuvFrame &frame);
    [[nodiscard]] Result<> finish();

private:
    [[nodiscard]] QStringList arguments(QSize size, int frames) const;
    [[nodiscard]] std::unexpected<Error> failure(const QString &reason) const;
    [[nodiscard]] std::unexpected<Error> programFailure();

    QString m_path;
    FilmOptions m_options;
    PartialFile m_partial;
    QProcess m_process;
};

} // namespace mosslantern

#pragma once

#include "model/error.h"
#include "render/export/slide_job.h"

#include <functional>
#include <span>

namespace mosslantern {

class WorkCrew;

/// A finished film.
struct MadeFilm
{
    /// For each slide, why it stands on the placeholder instead of its picture; empty when it does not.
    QStringList pictureProblems;
};

/// Makes a film of slides of one size, at `path`, in place of any file of that name; the pictures need not be
/// even in size. Returns when it is written; `progressed` is called with the number of slides that have been
/// shown. Call it on the thread that may touch fonts. Fails when decoding is stopped, too; what is there of
/// the film is removed.
[[nodiscard]] Result<MadeFilm> makeFilm(std::span<const SlideJob> slides, const FilmOptions &options,
                                        const QString &path, WorkCrew &crew,
                                        const std::function<void(int)> &progressed = {});

} // namespace mosslantern

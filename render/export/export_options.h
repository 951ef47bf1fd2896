#pragma once

#include "model/error.h"
#include "render/canvas.h"
#include "render/export/platform.h"
#include "render/film/film_options.h"

namespace mosslantern {

/// How slides are exported. As it is made, it stands for what an export writes when nothing is asked for.
struct ExportOptions
{
    static constexpr int widest = 8192;
    static constexpr int usualFilmWidth = 1080;

    SlideEncoding encoding = {};
    std::optional<int> width = {};        // pixels, 1 to `widest`; none: 2 pixels per point; 1080 of a film
    std::optional<Corners> corners = {};  // none: rounded in PNG files, square in others and films
    std::optional<FilmOptions> film = {}; // of each slideshow, instead of its files; none: files
    const Platform *platform = nullptr;   // whose shapes and number of slides bind
    bool fits = false; // slides of other shapes than the platform's stand in a picture of its size
    int digits = 1;    // of the numbers of files, at least

    /// What a platform takes.
    [[nodiscard]] static ExportOptions forPlatform(const Platform &platform);

    /// Whether slides of this shape can be exported.
    [[nodiscard]] bool takes(AspectRatio aspectRatio) const;
    [[nodiscard]] int mostSlides() const;
    /// Why a slideshow that is called `name` is not exported, or not whole; nothing if it is.
    [[nodiscard]] std::optional<Error> objection(const QString &name, AspectRatio aspectRatio,
                                                 qsizetype slides) const;
    /// The larger picture, in pixels, that slides of this shape stand in; empty without one.
    [[nodiscard]] QSize frame(AspectRatio aspectRatio) const;
    /// The name of the file of a slide, which counts from 0.
    [[nodiscard]] QString fileName(size_t index) const;

    /// What slides of this shape are drawn on: as many points as ever, whatever their size in pixels.
    [[nodiscard]] Canvas canvas(AspectRatio aspectRatio) const;
    [[nodiscard]] Corners drawnCorners() const;

    friend bool operator==(const ExportOptions &, const ExportOptions &) = default;
};

} // namespace mosslantern

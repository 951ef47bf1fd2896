#include "app/cli/film_options.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr double longestSeconds = 60;
constexpr double shortestSeconds = 0.1;
constexpr double largestZoom = 2;
constexpr double largestVolume = 10;
constexpr int slowestFrames = 10;
constexpr int fastestFrames = 60;

std::optional<Music> readMusic(OptionReader &options)
{
    const double volume = options.real("volume"_L1, 0, largestVolume).value_or(1);
    const double fadeOut = options.real("fade-out"_L1, 0, longestSeconds).value_or(0);
    if (!options.has("music"_L1))
        return {};
    const QString file = QDir::current().absoluteFilePath(options.required("music"_L1));
    if (!QFileInfo(file).isFile())
        options.note(u"--music: “%1” is no file"_s.arg(file));
    return Music{.file = file, .volume = volume, .fadeOut = fadeOut, .loops = !options.has("no-loop"_L1)};
}

} // namespace

std::vector<OptionSpec> filmOptions()
{
    return {
        {"film"_L1, "FORMAT"_L1,
         "write each slideshow as a film, mp4 or webm, 1080 pixels wide by default; takes ffmpeg"_L1},
        {"seconds"_L1, "S"_L1, "how long a film shows each slide; 3 by default"_L1},
        {"transition"_L1, "KIND"_L1, "none (the default), fade or slide, within these seconds"_L1},
        {"transition-seconds"_L1, "S"_L1, "how long a transition takes; 0.5 by default"_L1},
        {"zoom"_L1, "F"_L1, "how much larger the photographs become slowly, 1 to 2; 1 by default"_L1},
        {"fps"_L1, "N"_L1, "frames a second, 10 to 60; 30 by default"_L1},
        {"music"_L1, "FILE"_L1, "what is heard, again and again as long as the film"_L1},
        {"volume"_L1, "F"_L1, "how loud, from 0; 1 by default, as the file is"_L1},
        {"fade-out"_L1, "S"_L1, "how long before the end the music fades; 0 by default"_L1},
        {"no-loop"_L1, {}, "music that is shorter than the film is heard once"_L1},
    };
}

std::optional<FilmOptions> readFilmOptions(OptionReader &options, const std::optional<FilmOptions> &usual)
{
    FilmOptions film = usual.value_or(FilmOptions());
    const auto format = options.filmFormat("film"_L1);
    film.format = format.value_or(film.format);
    film.seconds = options.real("seconds"_L1, shortestSeconds, longestSeconds).value_or(film.seconds);
    film.transition = options.transition("transition"_L1).value_or(film.transition);
    film.transitionSeconds =
        options.real("transition-seconds"_L1, 0, longestSeconds).value_or(film.transitionSeconds);
    film.zoom = options.real("zoom"_L1, 1, largestZoom).value_or(film.zoom);
    film.framesPerSecond =
        int(options.integer("fps"_L1, slowestFrames, fastestFrames).value_or(film.framesPerSecond));
    film.music = readMusic(options);
    if (usual || options.has("film"_L1))
        return film;
    for (const OptionSpec &option : filmOptions()) {
        if (options.has(option.name))
            options.note(u"expected --film with --%1"_s.arg(option.name));
    }
    return {};
}

} // namespace mosslantern

#pragma once

#include <QtCore/QString>

#include <array>
#include <optional>

namespace mosslantern {

enum class FilmFormat { mp4, webm };
enum class Transition { none, fade, slide };

inline constexpr std::array allFilmFormats{FilmFormat::mp4, FilmFormat::webm};
inline constexpr std::array allTransitions{Transition::none, Transition::fade, Transition::slide};

/// The texts that stand for them in arguments: "mp4", "webm"; "none", "fade", "slide".
QString rawText(FilmFormat format);
QString rawText(Transition transition);
std::optional<FilmFormat> filmFormatFromRawText(QStringView text);
std::optional<Transition> transitionFromRawText(QStringView text);

/// What is heard in a film.
struct Music
{
    QString file;
    double volume = 1;  // factor
    double fadeOut = 0; // seconds before the end of the film
    bool loops = true;  // else there is silence after its end

    friend bool operator==(const Music &, const Music &) = default;
};

/// How a slideshow becomes a film.
struct FilmOptions
{
    static constexpr double usualSeconds = 3;
    static constexpr double usualTransitionSeconds = 0.5;
    static constexpr int usualFramesPerSecond = 30;

    FilmFormat format = FilmFormat::mp4; // H.264 in MP4 or VP9 in WebM
    double seconds = usualSeconds;       // of each slide, with the transition to the next one
    Transition transition = Transition::none;
    double transitionSeconds = usualTransitionSeconds;
    double zoom = 1; // how much larger the photograph is in the end, under texts that stand still
    int framesPerSecond = usualFramesPerSecond;
    std::optional<Music> music = {};

    friend bool operator==(const FilmOptions &, const FilmOptions &) = default;
};

} // namespace mosslantern

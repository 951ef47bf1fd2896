#pragma once

#include "render/film/film_options.h"

namespace mosslantern {

/// What one frame of a film shows.
struct FilmMoment
{
    int slide = 0;
    double progress = 0; // of the time that the slide is seen: 0 to 1
    double mix = 0;      // how far the transition to the next slide is: 0 (there is none yet) to less than 1
    double nextProgress = 0;
};

/// Which slide is seen when. All slides are seen equally long; the transition to the next one is the end of
/// that time.
class FilmTimeline
{
public:
    FilmTimeline(int slides, const FilmOptions &options);

    [[nodiscard]] int frames() const { return m_slides * m_framesOfSlide; }
    [[nodiscard]] FilmMoment moment(int frame) const;

private:
    int m_slides;
    int m_framesOfSlide;
    int m_framesOfTransition;
};

} // namespace mosslantern

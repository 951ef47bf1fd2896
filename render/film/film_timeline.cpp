#include "render/film/film_timeline.h"

#include <algorithm>
#include <cmath>

namespace mosslantern {

FilmTimeline::FilmTimeline(int slides, const FilmOptions &options)
    : m_slides(slides)
    , m_framesOfSlide(std::max(1, int(std::lround(options.seconds * options.framesPerSecond))))
    , m_framesOfTransition(options.transition == Transition::none
                               ? 0
                               : std::min(m_framesOfSlide - 1, int(std::lround(options.transitionSeconds *
                                                                               options.framesPerSecond))))
{}

FilmMoment FilmTimeline::moment(int frame) const
{
    const int slide = frame / m_framesOfSlide;
    const int inSlide = frame % m_framesOfSlide;
    const int seen = m_framesOfSlide + m_framesOfTransition; // once it has begun to come in
    const int inTransition =
        slide + 1 < m_slides ? inSlide - (m_framesOfSlide - m_framesOfTransition) + 1 : 0;
    FilmMoment moment{.slide = slide, .progress = double(inSlide + m_framesOfTransition) / seen};
    if (inTransition > 0) {
        moment.mix = double(inTransition) / (m_framesOfTransition + 1);
        moment.nextProgress = double(inTransition - 1) / seen;
    }
    return moment;
}

} // namespace mosslantern

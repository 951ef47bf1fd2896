#include "render/film/film_options.h"

#include "model/raw_text.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

QString rawText(FilmFormat format)
{
    return format == FilmFormat::mp4 ? u"mp4"_s : u"webm"_s;
}

QString rawText(Transition transition)
{
    switch (transition) {
    case Transition::none:
        return u"none"_s;
    case Transition::fade:
        return u"fade"_s;
    case Transition::slide:
        return u"slide"_s;
    }
    Q_UNREACHABLE();
}

std::optional<FilmFormat> filmFormatFromRawText(QStringView text)
{
    return valueWithRawText(allFilmFormats, text);
}

std::optional<Transition> transitionFromRawText(QStringView text)
{
    return valueWithRawText(allTransitions, text);
}

} // namespace mosslantern

#pragma once

#include "app/cli/arguments.h"
#include "model/aspect_ratio.h"
#include "model/rgba_color.h"
#include "model/text_style.h"
#include "render/export/platform.h"
#include "render/film/film_options.h"

#include <QtCore/QPointF>
#include <QtCore/QSizeF>

#include <type_traits>

namespace mosslantern {

/// Turns the values of options into what they stand for, numbers written as in JSON whatever the user's
/// locale. Each reader gives nothing for an option that is not there, and for one whose value is not what is
/// expected; the first of these is kept as problem().
class OptionReader
{
public:
    explicit OptionReader(const Arguments &arguments)
        : m_arguments(arguments)
    {}

    std::optional<qint64> integer(QLatin1StringView option, qint64 min, qint64 max);
    /// Any 64-bit number without sign.
    std::optional<quint64> seed(QLatin1StringView option);
    std::optional<double> real(QLatin1StringView option, double min, double max);
    /// "X,Y", both from -10 to 10.
    std::optional<QPointF> position(QLatin1StringView option);
    /// "WxH", both greater than 0.
    std::optional<QSizeF> size(QLatin1StringView option);
    std::optional<TextStyle> style(QLatin1StringView option);
    std::optional<AspectRatio> shape(QLatin1StringView option);
    /// Six or eight hexadecimal digits, with or without "#".
    std::optional<RgbaColor> color(QLatin1StringView option);

    /// A number greater than 0, with "K" for thousands or "M" for millions behind it.
    std::optional<qint64> bytes(QLatin1StringView option);
    std::optional<SlideFormat> slideFormat(QLatin1StringView option);
    /// Null without one.
    const Platform *platform(QLatin1StringView option);
    std::optional<Corners> corners(QLatin1StringView option);

    std::optional<FilmFormat> filmFormat(QLatin1StringView option);
    std::optional<Transition> transition(QLatin1StringView option);

    bool has(QLatin1StringView option) const { return m_arguments.has(option); }

    /// Makes it a problem when an option is missing or empty.
    QString required(QLatin1StringView option);

    /// Makes this the problem, unless there is one.
    void note(const QString &problem) { m_problem = m_problem.value_or(problem); }

    const std::optional<QString> &problem() const { return m_problem; }

private:
    /// The value of `option` as `parse` gives it, which gives nothing for what is not `expected`.
    template <typename Parse>
    std::invoke_result_t<Parse, QString> read(QLatin1StringView option, Parse parse, const QString &expected);

    const Arguments &m_arguments;
    std::optional<QString> m_problem;
};

} // namespace mosslantern

#include "render/export/export_options.h"

#include <algorithm>
#include <limits>

namespace mosslantern {

using namespace Qt::StringLiterals;

ExportOptions ExportOptions::forPlatform(const Platform &platform)
{
    ExportOptions options{.encoding = {.format = platform.format, .mostBytes = platform.mostBytes},
                          .width = platform.frame.width(),
                          .corners = Corners::square,
                          .platform = &platform,
                          .digits = 2};
    if (platform.isFilm)
        options.film.emplace();
    return options;
}

bool ExportOptions::takes(AspectRatio aspectRatio) const
{
    return !platform || fits || platform->takes(aspectRatio);
}

int ExportOptions::mostSlides() const
{
    return platform ? platform->mostSlides : std::numeric_limits<int>::max();
}

std::optional<Error> ExportOptions::objection(const QString &name, AspectRatio aspectRatio,
                                              qsizetype slides) const
{
    if (!takes(aspectRatio))
        return Error{u"“%1” is left out: %2 does not take slides of the shape %3."_s.arg(
            name, platform->title, rawText(aspectRatio))};
    if (slides > mostSlides())
        return Error{u"“%1” is cut short: %2 takes %3 slides at most, not %4."_s.arg(name, platform->title)
                         .arg(mostSlides())
                         .arg(slides)};
    return {};
}

QSize ExportOptions::frame(AspectRatio aspectRatio) const
{
    if (!platform || !fits || platform->takes(aspectRatio))
        return {};
    const int across = width.value_or(platform->frame.width());
    return {across, std::max(1, across * platform->frame.height() / platform->frame.width())};
}

Canvas ExportOptions::canvas(AspectRatio aspectRatio) const
{
    Canvas canvas = exportCanvas(aspectRatio);
    if (const QSize outer = frame(aspectRatio); !outer.isEmpty())
        canvas.pixelRatio =
            std::min(outer.width() / canvas.size.width(), outer.height() / canvas.size.height());
    else if (width || film)
        canvas.pixelRatio = width.value_or(usualFilmWidth) / canvas.size.width();
    return canvas;
}

Corners ExportOptions::drawnCorners() const
{
    return corners.value_or(encoding.format == SlideFormat::png && !film ? Corners::rounded
                                                                         : Corners::square);
}

QString ExportOptions::fileName(size_t index) const
{
    return u"Slide_%1"_s.arg(qulonglong(index + 1), digits, 10, QChar(u'0')) + fileEnding(encoding.format);
}

} // namespace mosslantern

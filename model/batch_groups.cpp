#include "model/batch_groups.h"

#include "model/live_query.h"
#include "model/slideshow.h"

#include <QtCore/QHash>

#include <algorithm>
#include <vector>

namespace mosslantern {

using namespace Qt::StringLiterals;

QList<BatchGroup> groupedSlideshows(std::span<Slideshow *const> slideshows)
{
    std::vector<Slideshow *> sorted(slideshows.begin(), slideshows.end());
    std::ranges::sort(sorted, [](const auto *a, const auto *b) { return newestFirst(*a, *b); });

    QList<BatchGroup> groups;
    QHash<QString, qsizetype> places;
    for (Slideshow *slideshow : sorted) {
        const QString name = slideshow->batchName().value_or(u"Uncategorized"_s);
        const qsizetype place = places.value(name, groups.size());
        if (place == groups.size()) {
            places.insert(name, place);
            groups.append({name, {}});
        }
        groups[place].slideshows.append(slideshow);
    }
    return groups;
}

} // namespace mosslantern

#include "model/record_lookup.h"

#include "model/collection.h"
#include "model/content_template.h"
#include "model/folded_spaces.h"
#include "model/slide_preset.h"
#include "model/slideshow.h"

#include <algorithm>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype shortestIdStart = 4;

template <typename T>
concept Named = requires(const T &record)
{
    {
        record.name()
        } -> std::convertible_to<QString>;
};

/// An error about what `count` records have in common, and how to tell them apart.
template <typename T>
std::unexpected<Error> ambiguous(const QString &things, const QString &common,
                                 const std::vector<T *> &records)
{
    constexpr size_t most = 5;
    QStringList ids;
    for (size_t i = 0; i < std::min(records.size(), most); ++i)
        ids.append(idText(records[i]->id()));
    if (records.size() > most)
        ids.append(u"…"_s);
    return fail(u"%1 %2 %3; give an id instead: %4"_s.arg(QString::number(records.size()), things, common,
                                                          ids.join(u", "_s)));
}

template <typename T>
Result<T *> findRecord(const Store &store, const QString &text, const QString &thing)
{
    if (T *const record = store.find<T>(QUuid::fromString(text)))
        return record;
    if constexpr (Named<T>) {
        std::vector<T *> named = store.fetch<T>([&](const T &record) { return record.name() == text; });
        if (named.empty()) {
            named = store.fetch<T>(
                [&](const T &record) { return foldedSpaces(record.name()) == foldedSpaces(text); });
        }
        if (named.size() > 1)
            return ambiguous(thing + u's', u"are called “%1”"_s.arg(text), named);
        if (!named.empty())
            return named.front();
    }
    const std::vector<T *> begun =
        store.fetch<T>([&](const T &record) { return isIdOrStart(text, record.id()); });
    if (begun.size() > 1)
        return ambiguous(thing + u's', u"have ids that begin with “%1”"_s.arg(text), begun);
    if (begun.empty())
        return fail(u"There is no %1 “%2”."_s.arg(thing, text));
    return begun.front();
}

} // namespace

QString idText(const QUuid &id)
{
    return id.toString(QUuid::WithoutBraces).toUpper();
}

bool isIdOrStart(QStringView text, const QUuid &id)
{
    return text.size() >= shortestIdStart && idText(id).startsWith(text, Qt::CaseInsensitive);
}

Result<Asset *> findAsset(const Store &store, const QString &text)
{
    return findRecord<Asset>(store, text, u"asset"_s);
}

Result<Collection *> findCollection(const Store &store, const QString &text)
{
    return findRecord<Collection>(store, text, u"collection"_s);
}

Result<Slideshow *> findSlideshow(const Store &store, const QString &text)
{
    return findRecord<Slideshow>(store, text, u"slideshow"_s);
}

Result<SlidePreset *> findPreset(const Store &store, const QString &text)
{
    return findRecord<SlidePreset>(store, text, u"preset"_s);
}

Result<ContentTemplate *> findTemplate(const Store &store, const QString &text)
{
    return findRecord<ContentTemplate>(store, text, u"template"_s);
}

Result<BatchGroup> findBatch(const Store &store, const QString &text)
{
    const QList<BatchGroup> groups = groupedSlideshows(store.all<Slideshow>());
    const auto named = std::ranges::find(groups, text, &BatchGroup::name);
    if (named != groups.end())
        return *named;
    QList<BatchGroup> alike;
    std::ranges::copy_if(groups, std::back_inserter(alike), [&](const BatchGroup &group) {
        return foldedSpaces(group.name) == foldedSpaces(text);
    });
    if (alike.size() > 1)
        return fail(
            u"Several batches are called “%1” but for white space; give the id of a run instead."_s.arg(
                text));
    if (!alike.isEmpty())
        return alike.first();

    BatchGroup run;
    QUuid id;
    for (const BatchGroup &group : groups) {
        for (Slideshow *slideshow : group.slideshows) {
            if (slideshow->batchId().isNull() || !isIdOrStart(text, slideshow->batchId()))
                continue;
            if (!id.isNull() && id != slideshow->batchId())
                return fail(u"Several batches have ids that begin with “%1”."_s.arg(text));
            id = slideshow->batchId();
            run.name = group.name;
            run.slideshows.append(slideshow);
        }
    }
    if (run.slideshows.isEmpty())
        return fail(u"There is no batch “%1”."_s.arg(text));
    return run;
}

} // namespace mosslantern

#include "app/cli/record_json.h"

#include "app/cli/output.h"
#include "model/collection.h"
#include "model/content_template.h"
#include "model/record_lookup.h"
#include "model/slide_preset.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

Json toJson(const QUuid &id)
{
    return id.isNull() ? Json() : mosslantern::toJson(idText(id));
}

Json toJson(const QDateTime &time)
{
    return mosslantern::toJson(time.toUTC().toString(Qt::ISODateWithMs));
}

Json idOf(const Record *record)
{
    return record ? toJson(record->id()) : Json();
}

template <typename T>
Json idsOf(const QList<T *> &records)
{
    Json ids = Json::array();
    for (const Record *record : records)
        ids.push_back(toJson(record->id()));
    return ids;
}

Json fileAt(const QUrl &url)
{
    return url.isEmpty() ? Json() : mosslantern::toJson(url.toLocalFile());
}

Json json(double value)
{
    return value;
}

Json json(const QString &value)
{
    return mosslantern::toJson(value);
}

Json json(TextStyle value)
{
    return mosslantern::toJson(rawText(value));
}

void addStyle(Json &object, const SlideStyle &style)
{
    forEachStyleValue([&](const char *name, auto value) { object[name] = json(style.*value); });
}

} // namespace

Json toJson(const QString &text)
{
    return text.toStdString();
}

Json toJson(const Asset &asset)
{
    return {{"id", toJson(asset.id())},
            {"name", toJson(asset.name())},
            {"file", fileAt(asset.fileURL())},
            {"collection", idOf(asset.collection())}};
}

Json toJson(const Collection &collection)
{
    return {{"id", toJson(collection.id())},
            {"name", toJson(collection.name())},
            {"createdAt", toJson(collection.createdAt())},
            {"assets", idsOf(collection.assets())},
            {"slideshows", idsOf(collection.slideshows())}};
}

Json toJson(const BatchGroup &group)
{
    Json batchIds = Json::array();
    for (const Slideshow *slideshow : group.slideshows) {
        const Json id = toJson(slideshow->batchId());
        if (!id.is_null() && std::ranges::find(batchIds, id) == batchIds.end())
            batchIds.push_back(id);
    }
    return {{"name", toJson(group.name)},
            {"createdAt", toJson(group.slideshows.first()->createdAt())},
            {"batchIds", batchIds},
            {"slideshows", idsOf(group.slideshows)}};
}

Json toJson(const Slideshow &slideshow)
{
    Json slides = Json::array();
    for (const Slide *slide : slideshow.slidesInOrder())
        slides.push_back(toJson(*slide));
    const auto shape = slideshow.aspectRatio();
    const auto batchName = slideshow.batchName();
    return {{"id", toJson(slideshow.id())},
            {"createdAt", toJson(slideshow.createdAt())},
            {"aspectRatio", shape ? toJson(rawText(*shape)) : Json()},
            {"batchId", toJson(slideshow.batchId())},
            {"batchName", batchName ? toJson(*batchName) : Json()},
            {"caption", slideshow.caption().isEmpty() ? Json() : toJson(slideshow.caption())},
            {"collection", idOf(slideshow.collection())},
            {"slides", slides}};
}

Json toJson(const Slide &slide)
{
    Json object{
        {"id", toJson(slide.id())}, {"text", toJson(slide.text())}, {"subtitle", toJson(slide.subtitle())}};
    addStyle(object, slide.style());
    object["order"] = slide.order();
    object["image"] = fileAt(slide.imageURL());
    object["asset"] = idOf(slide.asset());
    return object;
}

Json toJson(const SlidePreset &preset)
{
    Json object{{"id", toJson(preset.id())},
                {"name", toJson(preset.name())},
                {"createdAt", toJson(preset.createdAt())}};
    addStyle(object, preset.style());
    return object;
}

Json toJson(const ContentTemplate &contentTemplate)
{
    return {{"id", toJson(contentTemplate.id())},
            {"name", toJson(contentTemplate.name())},
            {"createdAt", toJson(contentTemplate.createdAt())},
            {"content", toJson(contentTemplate.content())}};
}

void writeJson(const Json &json)
{
    writeOut(QByteArray::fromStdString(json.dump(2, ' ', false, Json::error_handler_t::replace)) + '\n');
}

} // namespace mosslantern

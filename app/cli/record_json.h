#pragma once

#include "model/batch_groups.h"

#include <nlohmann/json.hpp>

namespace mosslantern {

class Asset;
class Collection;
class ContentTemplate;
class Slide;
class SlidePreset;

/// Objects that keep the order of their members.
using Json = nlohmann::ordered_json;

// Records as the tool writes them. Ids are texts in upper case, paths absolute, times in UTC after ISO 8601;
// a relation is the id of the other record, and null is what a record does not have. Members may be added in
// later versions, and none of these go.

/// id, name, file, collection
Json toJson(const Asset &asset);
/// id, name, createdAt, assets, slideshows (ids)
Json toJson(const Collection &collection);
/// name, createdAt (of the newest), batchIds, slideshows (ids, in the order of an export)
Json toJson(const BatchGroup &group);
/// id, createdAt, aspectRatio, batchId, batchName, caption, collection, slides (in order)
Json toJson(const Slideshow &slideshow);
/// id, text, subtitle, the values of the style by their names, order, image (the file that is drawn),
/// asset
Json toJson(const Slide &slide);
/// id, name, createdAt, the values of the style
Json toJson(const SlidePreset &preset);
/// id, name, createdAt, content
Json toJson(const ContentTemplate &contentTemplate);

Json toJson(const QString &text);

/// Writes a value to standard output, indented, in UTF-8.
void writeJson(const Json &json);

} // namespace mosslantern

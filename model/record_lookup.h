#pragma once

#include "model/batch_groups.h"
#include "model/error.h"
#include "model/store.h"

namespace mosslantern {

class Asset;
class Collection;
class ContentTemplate;
class SlidePreset;

/// An id as the tool shows it: 36 characters, upper case.
QString idText(const QUuid &id);

/// Whether `text` is the id, or at least its first four characters.
bool isIdOrStart(QStringView text, const QUuid &id);

// The record that `text` names: by its id, by its whole name, or by the first characters of its id (four or
// more), in this order. A name or beginning that several records share is an error.
Result<Asset *> findAsset(const Store &store, const QString &text);
Result<Collection *> findCollection(const Store &store, const QString &text);
Result<Slideshow *> findSlideshow(const Store &store, const QString &text);
Result<SlidePreset *> findPreset(const Store &store, const QString &text);
Result<ContentTemplate *> findTemplate(const Store &store, const QString &text);

/// The slideshows of the batches called `text`, or of the one generation run whose id it is, newest first.
Result<BatchGroup> findBatch(const Store &store, const QString &text);

} // namespace mosslantern

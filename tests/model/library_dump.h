#pragma once

#include "model/asset.h"
#include "model/collection.h"
#include "model/slideshow.h"
#include "model/store.h"

#include <QtCore/QMetaProperty>

namespace mosslantern {

/// Every property that a record stores, as text.
inline QStringList dump(const Record &record)
{
    QStringList lines;
    const QMetaObject &type = *record.metaObject();
    for (int i = 0; i < type.propertyCount(); ++i) {
        const QVariant value = type.property(i).read(&record);
        if (value.canConvert<Record *>())
            lines.append(value.value<Record *>() ? value.value<Record *>()->id().toString()
                                                 : QStringLiteral("none"));
        else if (value.typeId() == QMetaType::QDateTime)
            lines.append(value.toDateTime().toString(Qt::ISODateWithMs));
        else
            lines.append(value.toString());
        lines.back().prepend(QLatin1StringView(type.property(i).name()) + QStringLiteral(" = "));
    }
    return lines;
}

/// The whole library, apart from one slideshow.
inline QStringList dump(const Store &store, const Slideshow *ignored = nullptr)
{
    QStringList lines;
    for (const Asset *asset : store.all<Asset>())
        lines += dump(*asset);
    for (const Collection *collection : store.all<Collection>())
        lines += dump(*collection);
    for (const Slideshow *slideshow : store.all<Slideshow>()) {
        if (slideshow == ignored)
            continue;
        lines += dump(*slideshow);
        for (const Slide *slide : slideshow->slides())
            lines += dump(*slide);
    }
    return lines;
}

} // namespace mosslantern

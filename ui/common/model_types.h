#pragma once

#include "model/asset.h"
#include "model/collection.h"
#include "model/content_template.h"
#include "model/live_query.h"
#include "model/slide_preset.h"
#include "model/slideshow.h"

#include <QtQml/qqml.h>

// The records and live queries by name for the screens, which only look at them: the core does not know QML.

namespace mosslantern {

struct RecordForQml
{
    Q_GADGET
    QML_FOREIGN(mosslantern::Record)
    QML_NAMED_ELEMENT(Record)
    QML_UNCREATABLE("The store makes records.")
};

struct AssetForQml
{
    Q_GADGET
    QML_FOREIGN(mosslantern::Asset)
    QML_NAMED_ELEMENT(Asset)
    QML_UNCREATABLE("The store makes records.")
};

struct CollectionForQml
{
    Q_GADGET
    QML_FOREIGN(mosslantern::Collection)
    QML_NAMED_ELEMENT(Collection)
    QML_UNCREATABLE("The store makes records.")
};

struct ContentTemplateForQml
{
    Q_GADGET
    QML_FOREIGN(mosslantern::ContentTemplate)
    QML_NAMED_ELEMENT(ContentTemplate)
    QML_UNCREATABLE("The store makes records.")
};

struct SlideshowForQml
{
    Q_GADGET
    QML_FOREIGN(mosslantern::Slideshow)
    QML_NAMED_ELEMENT(Slideshow)
    QML_UNCREATABLE("The store makes records.")
};

struct StyledRecordForQml
{
    Q_GADGET
    QML_FOREIGN(mosslantern::StyledRecord)
    QML_NAMED_ELEMENT(StyledRecord)
    QML_UNCREATABLE("The store makes records.")
};

struct SlideForQml
{
    Q_GADGET
    QML_FOREIGN(mosslantern::Slide)
    QML_NAMED_ELEMENT(Slide)
    QML_UNCREATABLE("The store makes records.")
};

struct SlidePresetForQml
{
    Q_GADGET
    QML_FOREIGN(mosslantern::SlidePreset)
    QML_NAMED_ELEMENT(SlidePreset)
    QML_UNCREATABLE("The store makes records.")
};

struct SlideStyleForQml
{
    Q_GADGET
    QML_FOREIGN(mosslantern::SlideStyle)
    QML_VALUE_TYPE(slideStyle)
};

struct LiveQueryForQml
{
    Q_GADGET
    QML_FOREIGN(mosslantern::LiveQueryBase)
    QML_NAMED_ELEMENT(LiveQuery)
    QML_UNCREATABLE("Screens make their queries.")
};

} // namespace mosslantern

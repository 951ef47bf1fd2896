#include "model/slide_preset.h"

#include "model/slide.h"

namespace mosslantern {

SlidePreset::SlidePreset(const QString &name, const SlideStyle &style)
    : StyledRecord(recordKind, style)
    , m_name(name)
    , m_createdAt(QDateTime::currentDateTimeUtc())
{}

SlidePreset::SlidePreset(const StoredIdentity &identity, const SlideStyle &style, const QString &name,
                         const QDateTime &createdAt)
    : StyledRecord(recordKind, identity, style)
    , m_name(name)
    , m_createdAt(createdAt)
{}

std::unique_ptr<SlidePreset> presetFromSlide(const QString &name, const Slide &slide)
{
    return std::unique_ptr<SlidePreset>(new SlidePreset(name, slide.style()));
}

} // namespace mosslantern

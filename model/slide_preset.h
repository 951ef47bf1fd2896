#pragma once

#include "model/styled_record.h"

#include <QtCore/QDateTime>

#include <memory>

namespace mosslantern {

class Slide;

/// A style of slides, saved under a name.
class SlidePreset : public StyledRecord
{
    Q_OBJECT
    Q_PROPERTY(QString name READ name CONSTANT)
    Q_PROPERTY(QDateTime createdAt READ createdAt CONSTANT)

public:
    static constexpr RecordKind recordKind = RecordKind::slidePreset;

    SlidePreset(const StoredIdentity &identity, const SlideStyle &style, const QString &name,
                const QDateTime &createdAt);

    /// The name for people; need not be unique.
    QString name() const { return m_name; }

    /// In UTC, to the millisecond.
    QDateTime createdAt() const { return m_createdAt; }

private:
    friend std::unique_ptr<SlidePreset> presetFromSlide(const QString &name, const Slide &slide);

    SlidePreset(const QString &name, const SlideStyle &style);

    QString m_name;
    QDateTime m_createdAt;
};

/// A new preset with this name and the style of `slide`.
std::unique_ptr<SlidePreset> presetFromSlide(const QString &name, const Slide &slide);

} // namespace mosslantern

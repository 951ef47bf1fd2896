#pragma once

#include "model/record.h"
#include "model/slide_style.h"

namespace mosslantern {

/// A record that holds the style of a slide: a slide or a preset.
class StyledRecord : public Record
{
    Q_OBJECT
    Q_PROPERTY(mosslantern::SlideStyle style READ style WRITE setStyle NOTIFY styleChanged)

public:
    const SlideStyle &style() const { return m_style; }

    /// A position or scale that is not a number stays as it was.
    void setStyle(const SlideStyle &style);

    /// Sets one of its values.
    template <typename T>
    void setStyle(T SlideStyle::*value, const std::type_identity_t<T> &to)
    {
        SlideStyle style = m_style;
        style.*value = to;
        setStyle(style);
    }

signals:
    void styleChanged();

protected:
    StyledRecord(RecordKind kind, const SlideStyle &style);
    StyledRecord(RecordKind kind, const StoredIdentity &identity, const SlideStyle &style);

private:
    SlideStyle m_style;
};

} // namespace mosslantern

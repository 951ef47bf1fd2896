#include "model/styled_record.h"

#include <cmath>

namespace mosslantern {

StyledRecord::StyledRecord(RecordKind kind, const SlideStyle &style)
    : Record(kind)
    , m_style(style)
{}

StyledRecord::StyledRecord(RecordKind kind, const StoredIdentity &identity, const SlideStyle &style)
    : Record(kind, identity)
    , m_style(style)
{}

void StyledRecord::setStyle(const SlideStyle &style)
{
    SlideStyle changed = style;
    forEachStyleValue([&]<typename T>(const char *, T SlideStyle::*value) {
        if constexpr (std::is_same_v<T, double>) {
            if (std::isnan(changed.*value))
                changed.*value = m_style.*value;
        }
    });
    if (changed == m_style)
        return;
    m_style = changed;
    emit styleChanged();
    noteFieldChanged();
}

} // namespace mosslantern

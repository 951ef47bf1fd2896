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

void StyledRecord::setTextX(double value)
{
    setReal(&SlideStyle::textX, value, &StyledRecord::textXChanged);
}

void StyledRecord::setTextY(double value)
{
    setReal(&SlideStyle::textY, value, &StyledRecord::textYChanged);
}

void StyledRecord::setSubtitleX(double value)
{
    setReal(&SlideStyle::subtitleX, value, &StyledRecord::subtitleXChanged);
}

void StyledRecord::setSubtitleY(double value)
{
    setReal(&SlideStyle::subtitleY, value, &StyledRecord::subtitleYChanged);
}

void StyledRecord::setTextScale(double value)
{
    setReal(&SlideStyle::textScale, value, &StyledRecord::textScaleChanged);
}

void StyledRecord::setSubtitleScale(double value)
{
    setReal(&SlideStyle::subtitleScale, value, &StyledRecord::subtitleScaleChanged);
}

void StyledRecord::setTextStyle(TextStyle value)
{
    if (m_style.textStyle == value)
        return;
    m_style.textStyle = value;
    emit textStyleChanged();
    noteFieldChanged();
}

void StyledRecord::setBoxColorHex(const QString &value)
{
    if (m_style.boxColorHex == value)
        return;
    m_style.boxColorHex = value;
    emit boxColorHexChanged();
    noteFieldChanged();
}

void StyledRecord::setReal(double SlideStyle::*field, double value, void (StyledRecord::*fieldChanged)())
{
    if (std::isnan(value) || m_style.*field == value)
        return;
    m_style.*field = value;
    emit(this->*fieldChanged)();
    noteFieldChanged();
}

} // namespace mosslantern

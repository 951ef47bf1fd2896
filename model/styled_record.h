#pragma once

#include "model/record.h"
#include "model/slide_style.h"

namespace mosslantern {

/// A record that holds the style of a slide: a slide or a preset. The values mean what SlideStyle says; a
/// position or scale that is not a number is ignored.
class StyledRecord : public Record
{
    Q_OBJECT
    Q_PROPERTY(double textX READ textX WRITE setTextX NOTIFY textXChanged)
    Q_PROPERTY(double textY READ textY WRITE setTextY NOTIFY textYChanged)
    Q_PROPERTY(double subtitleX READ subtitleX WRITE setSubtitleX NOTIFY subtitleXChanged)
    Q_PROPERTY(double subtitleY READ subtitleY WRITE setSubtitleY NOTIFY subtitleYChanged)
    Q_PROPERTY(double textScale READ textScale WRITE setTextScale NOTIFY textScaleChanged)
    Q_PROPERTY(double subtitleScale READ subtitleScale WRITE setSubtitleScale NOTIFY subtitleScaleChanged)
    Q_PROPERTY(mosslantern::TextStyle textStyle READ textStyle WRITE setTextStyle NOTIFY textStyleChanged)
    Q_PROPERTY(QString boxColorHex READ boxColorHex WRITE setBoxColorHex NOTIFY boxColorHexChanged)

public:
    /// All eight values.
    const SlideStyle &style() const { return m_style; }

    double textX() const { return m_style.textX; }
    double textY() const { return m_style.textY; }
    double subtitleX() const { return m_style.subtitleX; }
    double subtitleY() const { return m_style.subtitleY; }
    double textScale() const { return m_style.textScale; }
    double subtitleScale() const { return m_style.subtitleScale; }
    TextStyle textStyle() const { return m_style.textStyle; }
    QString boxColorHex() const { return m_style.boxColorHex; }

    void setTextX(double value);
    void setTextY(double value);
    void setSubtitleX(double value);
    void setSubtitleY(double value);
    void setTextScale(double value);
    void setSubtitleScale(double value);
    void setTextStyle(TextStyle value);
    void setBoxColorHex(const QString &value);

signals:
    void textXChanged();
    void textYChanged();
    void subtitleXChanged();
    void subtitleYChanged();
    void textScaleChanged();
    void subtitleScaleChanged();
    void textStyleChanged();
    void boxColorHexChanged();

protected:
    StyledRecord(RecordKind kind, const SlideStyle &style);
    StyledRecord(RecordKind kind, const StoredIdentity &identity, const SlideStyle &style);

private:
    void setReal(double SlideStyle::*field, double value, void (StyledRecord::*fieldChanged)());

    SlideStyle m_style;
};

} // namespace mosslantern

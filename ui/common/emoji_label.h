#pragma once

#include "ui/common/painted_item.h"

#include <QtCore/QPointer>

namespace mosslantern {

/// Within a Text item: draws its text in its place when it has emoji, so that they look as on slides. Qt
/// takes each character of an emoji by itself and finds some of them in the text font.
class EmojiLabel : public mosslantern::PaintedItem
{
    Q_OBJECT
    QML_ELEMENT
public:
    explicit EmojiLabel(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

protected:
    void componentComplete() override;

private slots:
    void takeText();
    void takeSize();

private:
    QPointer<QQuickItem> m_label;
};

} // namespace mosslantern

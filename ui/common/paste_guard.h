#pragma once

#include <QtCore/QPointer>
#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickItem>

namespace mosslantern {

/// Keeps more from being pasted into a text item, or inserted by an input method, than it can lay out at
/// once.
class PasteGuard : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem *target READ target WRITE setTarget NOTIFY targetChanged REQUIRED)
    /// How many UTF-16 code units the item may hold after something has been inserted.
    Q_PROPERTY(int limit MEMBER m_limit NOTIFY limitChanged REQUIRED)

public:
    using QObject::QObject;

    QQuickItem *target() const { return m_target; }
    void setTarget(QQuickItem *target);

    bool eventFilter(QObject *receiver, QEvent *event) override;

signals:
    void targetChanged();
    void limitChanged();

    /// Nothing was inserted: the text would have had `length` code units.
    void refused(int length);

private:
    bool refuses(qsizetype inserted, bool isTyped);

    QPointer<QQuickItem> m_target;
    int m_limit = 0;
};

} // namespace mosslantern

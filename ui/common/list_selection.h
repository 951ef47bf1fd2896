#pragma once

#include "model/live_query.h"

#include <QtQml/qqmlregistration.h>

namespace mosslantern {

/// Which record of a list is selected, or none; none again when it is removed.
class ListSelection : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The type of a screen makes it.")

public:
    explicit ListSelection(LiveQueryBase &list, QObject *parent = nullptr)
        : QObject(parent)
        , m_list(list)
    {}

    Record *record() const { return m_record; }
    void select(Record *record);

    /// Selects what is that many rows further down, or up when negative, as far as the list goes. From none,
    /// the rows are counted from above the first one.
    Q_INVOKABLE void moveBy(int rows);
    Q_INVOKABLE void letGo() { select(nullptr); }

    /// The row of the selected record, -1 for none.
    Q_INVOKABLE int row() const { return m_list.indexOf(m_record); }

signals:
    void changed();

private:
    LiveQueryBase &m_list;
    Record *m_record = nullptr;
    QMetaObject::Connection m_removed;
};

} // namespace mosslantern

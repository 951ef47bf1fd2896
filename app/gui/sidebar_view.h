#pragma once

#include <QtCore/QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace mosslantern {

/// The rows of the sidebar, one for each screen, in the order of the screens. The first row of a section has
/// its heading, the others an empty one.
class SidebarView : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT

public:
    /// "heading" of the section or an empty text, "label" and "symbol" of the row: all texts.
    enum Role { HeadingRole = Qt::UserRole, LabelRole, SymbolRole };

    explicit SidebarView(QObject *parent = nullptr)
        : QAbstractListModel(parent)
    {}

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;
};

} // namespace mosslantern

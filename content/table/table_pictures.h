#pragma once

#include "content/table/table_contents.h"

#include <QtCore/QHash>

namespace mosslantern {

class Asset;
class Store;

/// Finds the pictures that the rows of a table name: assets of a library by their names or ids, else files.
/// To be made anew when assets come or go.
class TablePictures
{
public:
    /// A relative path is looked for in `folder`, that of the table, and then in the working directory.
    /// `canDraw`: whether there are pictures for slides that name none.
    TablePictures(const Store &store, const QString &folder, bool canDraw);

    /// An asset, or else a file that is there.
    struct Found
    {
        Asset *asset = nullptr;
        QString file;
    };
    Result<Found> find(const QString &name);

    /// What is in the way of a row with these pictures; nothing where all is well.
    std::optional<QString> objection(const QStringList &names);

private:
    Result<Found> search(const QString &name) const;

    const Store &m_store;
    QString m_folder;
    bool m_canDraw;
    QHash<QString, Asset *> m_assets; // by name; null for a name of several
    QHash<QString, Result<Found>> m_found;
};

} // namespace mosslantern

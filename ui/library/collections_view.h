#pragma once

#include "model/collection.h"
#include "model/live_query.h"
#include "ui/common/list_selection.h"
#include "ui/common/screen_context.h"

#include <optional>

namespace mosslantern {

/// The screen of all collections.
class CollectionsView : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(
        mosslantern::ScreenContext *context READ context WRITE setContext NOTIFY contextChanged REQUIRED)
    Q_PROPERTY(QAbstractItemModel *collections READ collectionsModel NOTIFY contextChanged)
    Q_PROPERTY(mosslantern::Collection *selectedCollection READ selectedCollection WRITE setSelectedCollection
                   NOTIFY selectedCollectionChanged)
    Q_PROPERTY(mosslantern::ListSelection *selection READ selection NOTIFY contextChanged)
    Q_PROPERTY(bool isCreatingCollection READ isCreatingCollection WRITE setIsCreatingCollection NOTIFY
                   isCreatingCollectionChanged)
    Q_PROPERTY(QString newCollectionName READ newCollectionName WRITE setNewCollectionName NOTIFY
                   newCollectionNameChanged)

public:
    explicit CollectionsView(QObject *parent = nullptr);

    ScreenContext *context() const { return m_context; }
    /// Once, before anything else.
    void setContext(ScreenContext *context);

    /// All collections, newest first.
    const LiveQuery<Collection> &collections() const { return *m_collections; }

    /// The collection that is shown below the list, or null. Null again when it is removed.
    Collection *selectedCollection() const;
    void setSelectedCollection(Collection *collection) { m_selection->select(collection); }
    ListSelection *selection() { return m_selection ? &*m_selection : nullptr; }

    /// Its place in the list, -1 when it is not there.
    Q_INVOKABLE int rowOf(const mosslantern::Collection *collection) const;

    /// Whether the alert is shown that asks for a name.
    bool isCreatingCollection() const { return m_isCreatingCollection; }
    void setIsCreatingCollection(bool isCreating);

    /// The text of that alert.
    QString newCollectionName() const { return m_newCollectionName; }
    void setNewCollectionName(const QString &name);

    /// Makes a collection of exactly that name and closes the alert; does nothing when it is closed already.
    Q_INVOKABLE void createCollection();
    /// Closes the alert and forgets the name.
    Q_INVOKABLE void cancelCreation();

    /// Removes the collections in these rows of the list as it is now; their assets and slideshows stay.
    Q_INVOKABLE void deleteCollections(const QList<int> &positions);

signals:
    void contextChanged();
    void selectedCollectionChanged();
    void isCreatingCollectionChanged();
    void newCollectionNameChanged();

private:
    QAbstractItemModel *collectionsModel() { return m_collections ? &*m_collections : nullptr; }

    ScreenContext *m_context = nullptr;
    std::optional<LiveQuery<Collection>> m_collections;
    std::optional<ListSelection> m_selection;
    bool m_isCreatingCollection = false;
    QString m_newCollectionName;
};

} // namespace mosslantern

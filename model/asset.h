#pragma once

#include "model/record.h"

#include <QtCore/QUrl>

Q_MOC_INCLUDE("model/collection.h")

namespace mosslantern {

class Collection;
class Slide;

/// One imported image.
class Asset : public Record
{
    Q_OBJECT
    Q_PROPERTY(QString filename READ filename CONSTANT)
    Q_PROPERTY(QString name READ name CONSTANT)
    Q_PROPERTY(
        mosslantern::Collection *collection READ collection WRITE setCollection NOTIFY collectionChanged)
    Q_PROPERTY(QUrl fileURL READ fileURL NOTIFY fileURLChanged)

public:
    static constexpr RecordKind recordKind = RecordKind::asset;

    /// `collection` may be null.
    Asset(const QString &filename, const QString &name, Collection *collection);
    Asset(const StoredIdentity &identity, const QString &filename, const QString &name,
          Collection *collection);
    ~Asset() override;

    /// Name of the image file inside the asset folder.
    QString filename() const { return m_filename; }

    /// The imported file's own name, extension included.
    QString name() const { return m_name; }

    /// The one collection that the asset belongs to, or null.
    Collection *collection() const { return m_collection; }
    void setCollection(Collection *collection);

    /// Where the image file is; empty while the asset is in no store.
    QUrl fileURL() const;

signals:
    void collectionChanged();
    /// The asset has been inserted: its file has a location now.
    void fileURLChanged();

private:
    friend class Collection;
    friend class Slide;

    void noteCollectionGone();
    void sever(Notices &notices) override;
    void entered() override;

    QString m_filename;
    QString m_name;
    Collection *m_collection = nullptr;
    std::vector<Slide *> m_slides;
};

} // namespace mosslantern

#pragma once

#include "model/asset.h"
#include "model/record_list.h"
#include "model/slideshow.h"

#include <QtCore/QDateTime>

namespace mosslantern {

/// A named group of assets and of slideshows.
class Collection : public Record
{
    Q_OBJECT
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(QDateTime createdAt READ createdAt CONSTANT)
    Q_PROPERTY(QList<mosslantern::Slideshow *> slideshows READ slideshows NOTIFY slideshowsChanged)
    Q_PROPERTY(QList<mosslantern::Asset *> assets READ assets NOTIFY assetsChanged)
    Q_PROPERTY(int assetCount READ assetCount NOTIFY assetsChanged)

public:
    static constexpr RecordKind recordKind = RecordKind::collection;

    /// A new, empty collection.
    explicit Collection(const QString &name);
    Collection(const StoredIdentity &identity, const QString &name, const QDateTime &createdAt);
    ~Collection() override;

    /// The name for people; need not be unique.
    QString name() const { return m_name; }
    void setName(const QString &name);

    /// In UTC, to the millisecond.
    QDateTime createdAt() const { return m_createdAt; }

    /// The slideshows whose `collection` this is, in the store's order.
    const QList<Slideshow *> &slideshows() const { return m_slideshows.records(); }

    /// The assets whose `collection` this is, in the store's order.
    const QList<Asset *> &assets() const { return m_assets.records(); }
    /// Number of assets.
    int assetCount() const { return static_cast<int>(assets().size()); }

signals:
    void nameChanged();
    void slideshowsChanged();
    void assetsChanged();

private:
    friend class Asset;
    friend class Slideshow;

    void noteAssetsChanged();
    void noteSlideshowsChanged();
    void sever(Notices &notices) override;
    void entered() override;

    QString m_name;
    QDateTime m_createdAt;
    RecordList<Slideshow> m_slideshows;
    RecordList<Asset> m_assets;
};

} // namespace mosslantern

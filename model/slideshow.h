#pragma once

#include "model/aspect_ratio.h"
#include "model/slide.h"

#include <QtCore/QDateTime>
#include <QtCore/QVariant>

#include <memory>

Q_MOC_INCLUDE("model/collection.h")

namespace mosslantern {

class Collection;

/// The slides that one generation run made together. Slideshows of one run share batch id and batch name.
class Slideshow : public Record
{
    Q_OBJECT
    Q_PROPERTY(QDateTime createdAt READ createdAt CONSTANT)
    Q_PROPERTY(QVariant aspectRatio READ aspectRatioOrUndefined CONSTANT)
    Q_PROPERTY(QList<mosslantern::Slide *> slides READ slides NOTIFY slidesChanged)
    Q_PROPERTY(
        mosslantern::Collection *collection READ collection WRITE setCollection NOTIFY collectionChanged)
    Q_PROPERTY(QUuid batchId READ batchId CONSTANT)
    Q_PROPERTY(QVariant batchName READ batchNameOrUndefined CONSTANT)
    Q_PROPERTY(QString caption READ caption WRITE setCaption NOTIFY captionChanged)

public:
    static constexpr RecordKind recordKind = RecordKind::slideshow;

    /// Takes over `slides`; they are inserted into a store and removed from it with the slideshow. A null
    /// `batchId` and an absent `batchName` or `aspectRatio` mean that there is none.
    Slideshow(std::vector<std::unique_ptr<Slide>> slides, std::optional<AspectRatio> aspectRatio,
              const QUuid &batchId, const std::optional<QString> &batchName);
    Slideshow(const StoredIdentity &identity, const QDateTime &createdAt,
              std::optional<AspectRatio> aspectRatio, Collection *collection, const QUuid &batchId,
              const std::optional<QString> &batchName);
    ~Slideshow() override;

    /// In UTC, to the millisecond.
    QDateTime createdAt() const { return m_createdAt; }

    /// None counts as `tiktok` wherever it is shown.
    std::optional<AspectRatio> aspectRatio() const { return m_aspectRatio; }

    /// The slides as they are stored: in the order of the constructor's list, whatever their `order`.
    const QList<Slide *> &slides() const { return m_slides; }

    /// The collection that the slideshow is filed under, or null.
    Collection *collection() const { return m_collection; }
    void setCollection(Collection *collection);

    /// Null when the slideshow belongs to no batch.
    QUuid batchId() const { return m_batchId; }

    /// The empty text is a name like any other; none is the absence of a name.
    std::optional<QString> batchName() const { return m_batchName; }

    /// What is posted beside the slides; empty for none.
    QString caption() const { return m_caption; }
    void setCaption(const QString &caption);

    /// The slides by ascending `order`; slides of equal order as they are stored.
    QList<Slide *> slidesInOrder() const;

    /// Gives every slide of `order` 0, but for the first, its place in slidesInOrder() as `order`.
    void repairSlideOrder();

signals:
    void slidesChanged();
    void collectionChanged();
    void captionChanged();

private:
    friend class Collection;
    friend class RecordReader;
    friend class Slide;

    QVariant aspectRatioOrUndefined() const;
    QVariant batchNameOrUndefined() const;
    void noteCollectionGone();
    void noteSlideGone();
    void sever(Notices &notices) override;
    void entered() override;

    QDateTime m_createdAt;
    std::optional<AspectRatio> m_aspectRatio;
    QList<Slide *> m_slides;
    Collection *m_collection = nullptr;
    QUuid m_batchId;
    std::optional<QString> m_batchName;
    QString m_caption;
};

} // namespace mosslantern

#pragma once

#include "model/styled_record.h"

#include <QtCore/QUrl>

#include <optional>

Q_MOC_INCLUDE("model/asset.h")

namespace mosslantern {

class Asset;
class LibraryLocation;
class SlidePreset;

/// One image with a main text and a subtitle laid over it.
class Slide : public StyledRecord
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(QString subtitle READ subtitle WRITE setSubtitle NOTIFY subtitleChanged)
    Q_PROPERTY(qint64 order READ order WRITE setOrder NOTIFY orderChanged)
    Q_PROPERTY(QString imageFilename READ imageFilenameOrEmpty CONSTANT)
    Q_PROPERTY(mosslantern::Asset *asset READ asset NOTIFY assetChanged)
    Q_PROPERTY(QUrl imageURL READ imageURL NOTIFY imageURLChanged)

public:
    static constexpr RecordKind recordKind = RecordKind::slide;

    /// Gives the slide its own copy of the image of `asset`, which must be inserted in a store. If copying
    /// fails, copySlideImage() says so on the console and the slide shows the asset's file.
    Slide(Asset *asset, const QString &text, const QString &subtitle, TextStyle textStyle, qint64 order);
    Slide(const StoredIdentity &identity, const SlideStyle &style, const QString &text,
          const QString &subtitle, qint64 order, const std::optional<QString> &imageFilename, Asset *asset);
    ~Slide() override;

    /// The main text.
    QString text() const { return m_text; }
    void setText(const QString &text);

    /// The empty text is no subtitle.
    QString subtitle() const { return m_subtitle; }
    void setSubtitle(const QString &subtitle);

    /// Place within the slideshow, from 0.
    qint64 order() const { return m_order; }
    void setOrder(qint64 order);

    /// Name of the slide's own image inside the slide-image folder, if it has one.
    std::optional<QString> imageFilename() const { return m_imageFilename; }

    /// The asset that the slide was made from; null once that asset is removed.
    Asset *asset() const { return m_asset; }

    /// Where the picture is read from: the slide's own image, else the asset's file, else empty.
    QUrl imageURL() const;

    /// Copies its style.
    void applyPreset(const SlidePreset &preset);

signals:
    void textChanged();
    void subtitleChanged();
    void orderChanged();
    void assetChanged();
    void imageURLChanged();

private:
    friend class Asset;

    QString imageFilenameOrEmpty() const { return m_imageFilename.value_or(QString()); }
    void noteAssetGone();
    void sever(Notices &notices) override;
    void entered() override;

    QString m_text;
    QString m_subtitle;
    qint64 m_order;
    std::optional<QString> m_imageFilename;
    Asset *m_asset;
};

} // namespace mosslantern

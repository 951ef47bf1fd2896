#pragma once

#include "content/slideshow_generator.h"

#include <QtCore/QAbstractListModel>

namespace mosslantern {

/// The entries of the slide content with the assets behind them, as the preview shows them. A change of the
/// content touches only the rows that differ.
class PreviewEntryModel : public QAbstractListModel
{
    Q_OBJECT

public:
    /// Named "mainText", "subtitle" and "asset".
    enum Role { MainTextRole = Qt::UserRole, SubtitleRole, AssetRole };

    explicit PreviewEntryModel(const SlideshowGenerator &generator, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    struct Row
    {
        SlideText entry;
        QPointer<Asset> asset;

        friend bool operator==(const Row &, const Row &) = default;
    };

    QList<Row> wantedRows() const;
    void update();

    const SlideshowGenerator &m_generator;
    QList<Row> m_rows;
};

} // namespace mosslantern

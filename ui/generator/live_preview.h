#pragma once

#include "ui/generator/slideshow_generator.h"
#include "ui/slide/draggable_text_view.h"

#include <QtCore/QRectF>

namespace mosslantern {

/// The large preview of one entry: its two text blocks, which write into the generator's settings and into
/// its content, and the asset behind them.
class LivePreview : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("SlideshowsView makes it.")
    Q_PROPERTY(mosslantern::DraggableTextView *mainBlock READ mainBlock CONSTANT)
    Q_PROPERTY(mosslantern::DraggableTextView *subtitleBlock READ subtitleBlock CONSTANT)
    Q_PROPERTY(bool hasSubtitle READ hasSubtitle NOTIFY entryChanged)
    Q_PROPERTY(mosslantern::Asset *asset READ asset NOTIFY assetChanged)
    Q_PROPERTY(int index READ index WRITE setIndex NOTIFY indexChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(QAbstractItemModel *entries READ entries CONSTANT)
    /// An AspectRatio as a number.
    Q_PROPERTY(int aspectRatio READ aspectRatio NOTIFY shapeChanged)
    Q_PROPERTY(QSizeF area READ area WRITE setArea NOTIFY frameChanged)
    Q_PROPERTY(QRectF frame READ frame NOTIFY frameChanged)

public:
    explicit LivePreview(SlideshowGenerator &generator, QObject *parent = nullptr);

    DraggableTextView *mainBlock() { return &m_mainBlock; }
    DraggableTextView *subtitleBlock() { return &m_subtitleBlock; }
    bool hasSubtitle() const { return !m_generator.currentPreviewEntry().subtitle.isEmpty(); }

    /// Null when there is none.
    Asset *asset() const { return entryModel().asset(m_generator.currentPreviewIndex()); }

    /// Which entry is shown; kept within the entries.
    int index() const { return static_cast<int>(m_generator.currentPreviewIndex()); }
    void setIndex(int index);
    int count() const { return entryModel().count(); }

    QAbstractItemModel *entries() { return &entryModel(); }

    int aspectRatio() const { return static_cast<int>(m_generator.selectedAspectRatio()); }

    /// Where there is room for the preview, in points.
    QSizeF area() const { return m_area; }
    void setArea(QSizeF area);

    /// Where the preview stands in it: in the middle, 30 points or more from every side.
    QRectF frame() const { return m_frame; }

    /// Lets go of the text that is being edited.
    Q_INVOKABLE void endEditing();

signals:
    void entryChanged();
    void assetChanged();
    void indexChanged();
    void countChanged();
    void shapeChanged();
    void frameChanged();

private:
    PreviewEntryModel &entryModel() const { return m_generator.previewEntries(); }
    void followGenerator();
    void followBlocks();
    void showEntry();
    void showLook();
    void fit();
    void takeMainText();
    void takeSubtitle();
    void replaceContent(const QString &content);

    SlideshowGenerator &m_generator;
    DraggableTextView m_mainBlock;
    DraggableTextView m_subtitleBlock;
    QSizeF m_area;
    QRectF m_frame;
};

} // namespace mosslantern

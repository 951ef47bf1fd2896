#include "ui/generator/live_preview.h"

#include "content/slide_content.h"
#include "render/canvas.h"

namespace mosslantern {

namespace {

constexpr double margin = 30;

} // namespace

LivePreview::LivePreview(SlideshowGenerator &generator, QObject *parent)
    : QObject(parent)
    , m_generator(generator)
{
    m_subtitleBlock.setIsSubtitle(true);
    for (DraggableTextView *const block : {&m_mainBlock, &m_subtitleBlock})
        block->setIsEditable(true);
    followGenerator();
    followBlocks();
    showEntry();
    showLook();
}

void LivePreview::followGenerator()
{
    const auto follow = [this](auto signal, auto &&receiver) {
        connect(&m_generator, signal, this, receiver);
    };
    follow(&SlideshowGenerator::currentPreviewEntryChanged, &LivePreview::showEntry);
    follow(&SlideshowGenerator::currentPreviewIndexChanged, &LivePreview::indexChanged);
    follow(&SlideshowGenerator::currentPreviewIndexChanged, &LivePreview::assetChanged);
    follow(&SlideshowGenerator::styleChanged, &LivePreview::showLook);
    follow(&SlideshowGenerator::selectedAspectRatioChanged, &LivePreview::shapeChanged);
    follow(&SlideshowGenerator::selectedAspectRatioChanged, &LivePreview::fit);
    connect(&entryModel(), &PreviewEntryModel::assetsChanged, this, &LivePreview::assetChanged);
    connect(&entryModel(), &PreviewEntryModel::countChanged, this, &LivePreview::countChanged);
}

void LivePreview::followBlocks()
{
    connect(&m_mainBlock, &DraggableTextView::positionChanged, this,
            [this] { m_generator.setTemplateTextPos(m_mainBlock.position()); });
    connect(&m_mainBlock, &DraggableTextView::scaleChanged, this,
            [this] { m_generator.setTemplateTextScale(m_mainBlock.scale()); });
    connect(&m_subtitleBlock, &DraggableTextView::positionChanged, this,
            [this] { m_generator.setTemplateSubtitlePos(m_subtitleBlock.position()); });
    connect(&m_subtitleBlock, &DraggableTextView::scaleChanged, this,
            [this] { m_generator.setTemplateSubtitleScale(m_subtitleBlock.scale()); });
    connect(&m_mainBlock, &DraggableTextView::textChanged, this, &LivePreview::takeMainText);
    connect(&m_subtitleBlock, &DraggableTextView::textChanged, this, &LivePreview::takeSubtitle);
}

void LivePreview::setIndex(int index)
{
    m_generator.setCurrentPreviewIndex(std::clamp(index, 0, std::max(0, count() - 1)));
}

void LivePreview::showEntry()
{
    const SlideText entry = m_generator.currentPreviewEntry();
    m_mainBlock.setText(entry.main);
    m_subtitleBlock.setText(entry.subtitle);
    emit entryChanged();
}

void LivePreview::showLook()
{
    // A block that is placed writes into the generator.
    const SlideStyle style = m_generator.style();
    for (DraggableTextView *const block : {&m_mainBlock, &m_subtitleBlock}) {
        block->setStyle(style.textStyle);
        block->setBoxColor(style.boxColor());
    }
    m_mainBlock.setPosition(style.textPos());
    m_mainBlock.setScale(style.textScale);
    m_subtitleBlock.setPosition(style.subtitlePos());
    m_subtitleBlock.setScale(style.subtitleScale);
}

void LivePreview::setArea(QSizeF area)
{
    if (m_area == area)
        return;
    m_area = area;
    fit();
}

void LivePreview::fit()
{
    const QRectF available = QRectF(QPointF(), m_area).adjusted(margin, margin, -margin, -margin);
    m_frame = available.isEmpty() ? QRectF() : fittedCanvas(m_generator.selectedAspectRatio(), available);
    m_mainBlock.setContainerSize(m_frame.size());
    m_subtitleBlock.setContainerSize(m_frame.size());
    emit frameChanged();
}

void LivePreview::takeMainText()
{
    if (m_mainBlock.text() != m_generator.currentPreviewEntry().main)
        replaceContent(updateSlideContent(m_generator.textInput(), m_generator.currentPreviewIndex(),
                                          m_mainBlock.text(), {}));
}

void LivePreview::takeSubtitle()
{
    if (m_subtitleBlock.text() != m_generator.currentPreviewEntry().subtitle)
        replaceContent(updateSlideContent(m_generator.textInput(), m_generator.currentPreviewIndex(), {},
                                          m_subtitleBlock.text()));
}

void LivePreview::replaceContent(const QString &content)
{
    m_generator.setTextInput(content);
    // What the content cannot take must not stay on the canvas. The block's editor is still at work here.
    QMetaObject::invokeMethod(this, &LivePreview::showEntry, Qt::QueuedConnection);
}

void LivePreview::endEditing()
{
    m_mainBlock.setIsFocused(false);
    m_subtitleBlock.setIsFocused(false);
}

} // namespace mosslantern

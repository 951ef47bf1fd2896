#include "ui/editor/slide_inspector_view.h"

#include "model/change.h"
#include "ui/slide/style_choices.h"

namespace mosslantern {

SlideInspectorView::SlideInspectorView(Store &store, QObject *parent)
    : QObject(parent)
    , m_store(store)
    , m_presets(store, nullptr, newestFirst<SlidePreset>)
{
    connect(this, &SlideInspectorView::boxColorChanged, this, &SlideInspectorView::colorChoiceChanged);
    connect(this, &SlideInspectorView::styleChanged, this, &SlideInspectorView::colorChoiceChanged);
    for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(&m_presets, signal, this, &SlideInspectorView::presetsChanged);
    connect(&m_presets, &QAbstractItemModel::modelReset, this, &SlideInspectorView::presetsChanged);
}

void SlideInspectorView::setSlide(Slide *slide)
{
    if (m_slide == slide)
        return;
    if (m_slide)
        m_slide->disconnect(this);
    m_slide = slide;
    if (slide) {
        connect(slide, &Slide::textChanged, this, &SlideInspectorView::textChanged);
        connect(slide, &Slide::subtitleChanged, this, &SlideInspectorView::subtitleChanged);
        connect(slide, &Slide::styleChanged, this, &SlideInspectorView::styleChanged);
        connect(slide, &Record::removed, this, [this] { setSlide(nullptr); });
    }
    emit textChanged();
    emit subtitleChanged();
    emit styleChanged();
}

void SlideInspectorView::setSlideshow(Slideshow *slideshow)
{
    m_slideshow = slideshow;
    emit slideshowChanged();
}

void SlideInspectorView::setBoxColor(const RgbaColor &color)
{
    if (m_boxColor == color)
        return;
    showBoxColor(color);
    if (showsBoxColor() || showsBorder())
        m_slide->setStyle(&SlideStyle::boxColorHex, hexFromColor(color));
}

void SlideInspectorView::showBoxColor(const RgbaColor &color)
{
    change(*this, m_boxColor, color, &SlideInspectorView::boxColorChanged);
}

void SlideInspectorView::setText(const QString &text)
{
    if (m_slide)
        m_slide->setText(text);
}

void SlideInspectorView::setSubtitle(const QString &subtitle)
{
    if (m_slide)
        m_slide->setSubtitle(subtitle);
}

void SlideInspectorView::setTextStyle(int style)
{
    if (m_slide && style >= 0 && style < static_cast<int>(allTextStyles.size()))
        m_slide->setStyle(&SlideStyle::textStyle, allTextStyles[static_cast<size_t>(style)]);
}

int SlideInspectorView::colorChoice() const
{
    return mosslantern::colorChoice(shownStyle(), m_boxColor);
}

void SlideInspectorView::chooseColor(int choice)
{
    setBoxColor(colorChoices(shownStyle()).at(static_cast<size_t>(choice)));
}

void SlideInspectorView::setSelectedPreset(SlidePreset *preset)
{
    if (m_selectedPreset == preset)
        return;
    disconnect(m_presetRemoved);
    m_selectedPreset = preset;
    if (preset)
        m_presetRemoved = connect(preset, &Record::removed, this, [this] { setSelectedPreset(nullptr); });
    emit presetsChanged();
}

QStringList SlideInspectorView::presetNames() const
{
    QStringList names{tr("None")};
    for (const SlidePreset *preset : m_presets.records())
        names.append(preset->name());
    return names;
}

int SlideInspectorView::presetChoice() const
{
    return m_selectedPreset ? m_presets.indexOf(m_selectedPreset) + 1 : 0;
}

void SlideInspectorView::choosePreset(int choice)
{
    setSelectedPreset(choice > 0 && choice <= m_presets.count() ? m_presets.at(choice - 1) : nullptr);
}

void SlideInspectorView::setShowingSaveDialog(bool isShown)
{
    change(*this, m_showingSaveDialog, isShown, &SlideInspectorView::showingSaveDialogChanged);
}

void SlideInspectorView::setNewPresetName(const QString &name)
{
    change(*this, m_newPresetName, name, &SlideInspectorView::newPresetNameChanged);
}

void SlideInspectorView::applyStyleToAllSlides(const Slideshow &slideshow)
{
    if (!m_slide)
        return;
    emit slideNeeded();
    for (Slide *slide : slideshow.slides()) {
        if (slide->id() != m_slide->id())
            slide->setStyle(m_slide->style());
    }
}

void SlideInspectorView::applyStyleToBatch(const QUuid &batchId)
{
    if (!m_slide)
        return;
    emit slideNeeded();
    for (const Slideshow *slideshow : m_store.fetch<Slideshow>(
             [&](const Slideshow &candidate) { return candidate.batchId() == batchId; })) {
        for (Slide *slide : slideshow->slides())
            slide->setStyle(m_slide->style());
    }
}

void SlideInspectorView::applyToAllSlides()
{
    if (m_slideshow)
        applyStyleToAllSlides(*m_slideshow);
}

void SlideInspectorView::applyToBatch()
{
    if (hasBatch())
        applyStyleToBatch(m_slideshow->batchId());
}

void SlideInspectorView::applyPresetToSlide()
{
    if (!m_selectedPreset || !m_slide)
        return;
    emit slideNeeded();
    m_slide->applyPreset(*m_selectedPreset);
    setBoxColor(m_selectedPreset->style().boxColor());
}

void SlideInspectorView::deleteSelectedPreset()
{
    SlidePreset *const preset = m_selectedPreset;
    if (!preset)
        return;
    setSelectedPreset(nullptr);
    m_store.remove(preset);
}

void SlideInspectorView::savePreset()
{
    if (!m_slide)
        return;
    emit slideNeeded();
    setSelectedPreset(m_store.insert(presetFromSlide(m_newPresetName.trimmed(), *m_slide)));
}

} // namespace mosslantern

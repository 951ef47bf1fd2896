#include "ui/generator/slideshow_generator.h"

#include "content/openai_service.h"
#include "content/slide_documents.h"
#include "model/change.h"
#include "model/console.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

SlideshowGenerator::SlideshowGenerator(Store &store, OpenAIService &service, Preferences preferences,
                                       GeneratorSurroundings surroundings, QObject *parent)
    : QObject(parent)
    , m_store(store)
    , m_service(service)
    , m_preferences(std::move(preferences))
    , m_surroundings(std::move(surroundings))
    , m_textInput(defaultSlideContent.toString())
    , m_openAiApiKey(m_preferences.openAiApiKey())
    , m_customPrompt(defaultPrompt.toString())
    , m_assets(store)
    , m_collections(store)
    , m_entries(m_assets, *m_surroundings.random)
{
    m_entries.setEntries(parseSlideContent(m_textInput));
}

void SlideshowGenerator::setSlideCount(double count)
{
    change(*this, m_settings.slideCount, count, &SlideshowGenerator::slideCountChanged);
}

void SlideshowGenerator::setBulkCount(double count)
{
    change(*this, m_bulkCount, count, &SlideshowGenerator::bulkCountChanged);
}

void SlideshowGenerator::setStyle(const SlideStyle &style)
{
    change(*this, m_settings.style, style, &SlideshowGenerator::styleChanged);
}

template <typename Change>
void SlideshowGenerator::changeStyle(Change change)
{
    SlideStyle style = m_settings.style;
    change(style);
    setStyle(style);
}

void SlideshowGenerator::setSelectedStyle(TextStyle textStyle)
{
    if (textStyle == m_settings.style.textStyle)
        return;
    changeStyle([&](SlideStyle &style) {
        style.textStyle = textStyle;
        if (textStyle == TextStyle::classic)
            style.setBoxColor(opaqueBlack);
        else if (textStyle == TextStyle::boxed)
            style.setBoxColor(opaqueWhite);
    });
}

void SlideshowGenerator::setBoxColor(const RgbaColor &color)
{
    changeStyle([&](SlideStyle &style) { style.setBoxColor(color); });
}

void SlideshowGenerator::setTemplateTextPos(const QPointF &position)
{
    changeStyle([&](SlideStyle &style) { style.setTextPos(position); });
}

void SlideshowGenerator::setTemplateTextScale(double scale)
{
    changeStyle([&](SlideStyle &style) { style.textScale = scale; });
}

void SlideshowGenerator::setTemplateSubtitlePos(const QPointF &position)
{
    changeStyle([&](SlideStyle &style) { style.setSubtitlePos(position); });
}

void SlideshowGenerator::setTemplateSubtitleScale(double scale)
{
    changeStyle([&](SlideStyle &style) { style.subtitleScale = scale; });
}

void SlideshowGenerator::setSelectedAspectRatio(AspectRatio ratio)
{
    change(*this, m_settings.aspectRatio, ratio, &SlideshowGenerator::selectedAspectRatioChanged);
}

void SlideshowGenerator::setTextInput(const QString &content)
{
    if (m_textInput == content)
        return;
    m_textInput = content;
    const QList<SlideText> entries = parseSlideContent(content);
    const qsizetype index = entries.isEmpty() ? 0 : qMin(m_currentPreviewIndex, entries.size() - 1);
    const bool indexMoves = std::exchange(m_currentPreviewIndex, index) != index;
    m_entries.setEntries(entries);
    emit textInputChanged();
    if (indexMoves)
        emit currentPreviewIndexChanged();
    emit currentPreviewEntryChanged();
}

void SlideshowGenerator::setSelectedCollection(Collection *collection)
{
    if (m_selectedCollection == collection)
        return;
    if (m_selectedCollection)
        disconnect(m_selectedCollection, &Record::removed, this, nullptr);
    m_selectedCollection = collection;
    if (collection) {
        connect(collection, &Record::removed, this, [this] { setSelectedCollection(nullptr); });
        m_assets.setFilter([id = collection->id()](const Asset &asset) {
            return asset.collection() && asset.collection()->id() == id;
        });
    } else {
        m_assets.setFilter({});
    }
    emit selectedCollectionChanged();
    updatePreviewAssetMapping();
}

void SlideshowGenerator::setOpenAiApiKey(const QString &key)
{
    if (!change(*this, m_openAiApiKey, key, &SlideshowGenerator::openAiApiKeyChanged))
        return;
    if (const Result<> stored = m_preferences.setOpenAiApiKey(key); !stored)
        printLine(u"Failed to store the API key: "_s + stored.error().message);
}

void SlideshowGenerator::setCustomPrompt(const QString &prompt)
{
    change(*this, m_customPrompt, prompt, &SlideshowGenerator::customPromptChanged);
}

void SlideshowGenerator::setBatchName(const QString &name)
{
    change(*this, m_batchName, name, &SlideshowGenerator::batchNameChanged);
}

void SlideshowGenerator::setIsAiMode(bool on)
{
    change(*this, m_isAiMode, on, &SlideshowGenerator::isAiModeChanged);
}

void SlideshowGenerator::setCurrentPreviewIndex(qsizetype index)
{
    if (change(*this, m_currentPreviewIndex, index, &SlideshowGenerator::currentPreviewIndexChanged))
        emit currentPreviewEntryChanged();
}

SlideText SlideshowGenerator::currentPreviewEntry() const
{
    return m_entries.entry(m_currentPreviewIndex).value_or(SlideText{u"Main Text"_s, u"Subtitle Text"_s});
}

QCoro::Task<Result<GeneratedBatch>> SlideshowGenerator::generateBatch()
{
    change(*this, m_isGenerating, true, &SlideshowGenerator::isGeneratingChanged);
    GeneratedBatch batch{.name = batchNameFor(m_batchName, m_surroundings.now(), m_surroundings.locale),
                         .slideshows = {}};
    const QString boxColorHex = m_settings.style.boxColorHex;
    const qint64 count = truncatedCount(m_bulkCount);
    Result<> outcome;
    if (m_isAiMode) {
        const QPointer<SlideshowGenerator> self = this;
        ++m_waitingRuns;
        const OpenAIService::Variations variations =
            co_await m_service.generateVariations(m_openAiApiKey, m_customPrompt, m_textInput, count);
        if (!self)
            co_return Result<GeneratedBatch>(fail(u"the run was abandoned"_s));
        --m_waitingRuns;
        if (variations) {
            for (const QString &variation : *variations)
                addSlideshow(batch, variation, boxColorHex);
        } else {
            outcome = fail(describe(variations.error()));
            printLine(u"AI Generation failed: "_s + outcome.error().message);
        }
    } else {
        for (qint64 i = 0; i < count; ++i)
            addSlideshow(batch, m_textInput, boxColorHex);
    }
    change(*this, m_isGenerating, false, &SlideshowGenerator::isGeneratingChanged);
    if (m_endsAfterRuns && m_waitingRuns == 0)
        deleteLater();
    if (!outcome)
        co_return Result<GeneratedBatch>(std::unexpect, outcome.error());
    co_return Result<GeneratedBatch>(std::move(batch));
}

void SlideshowGenerator::addSlideshow(GeneratedBatch &batch, const QString &content,
                                      const QString &boxColorHex)
{
    if (Slideshow *const made = createSlideshow(content, boxColorHex, batch.id, batch.name))
        batch.slideshows.append(made);
}

Slideshow *SlideshowGenerator::createSlideshow(const QString &content, const QString &boxColorHex,
                                               const QUuid &batchId, const QString &batchName)
{
    SlideshowSettings settings = m_settings;
    settings.style.boxColorHex = boxColorHex;
    return makeSlideshow(content, settings, {filteredAssets(), m_surroundings.random}, batchId, batchName,
                         m_store);
}

void SlideshowGenerator::deleteAfterRuns()
{
    if (m_waitingRuns == 0)
        delete this;
    else
        m_endsAfterRuns = true;
}

} // namespace mosslantern

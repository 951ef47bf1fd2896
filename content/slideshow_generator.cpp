#include "content/slideshow_generator.h"

#include "content/openai_service.h"
#include "content/slide_documents.h"
#include "model/console.h"

#include <limits>
#include <random>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr RgbaColor black{.red = 0, .green = 0, .blue = 0, .opacity = 1};
constexpr RgbaColor white{.red = 1, .green = 1, .blue = 1, .opacity = 1};

/// A count from a slider: truncated toward zero, 0 for what is below and for what is no number.
qint64 truncated(double count)
{
    constexpr auto most = std::numeric_limits<qint64>::max();
    if (!(count >= 1))
        return 0;
    return count < static_cast<double>(most) ? static_cast<qint64>(count) : most;
}

} // namespace

QString defaultPrompt()
{
    return u"Can you give me another text but with the same styling, emojis, etc just with a different text "
           "but for the same topic/goal"_s;
}

QString generationFailure(const OpenAIFailure &failure)
{
    return u"AI Generation failed: "_s + describe(failure);
}

SlideshowGenerator::SlideshowGenerator(Store &store, OpenAIService &service, Preferences preferences,
                                       GeneratorSurroundings surroundings, QObject *parent)
    : QObject(parent)
    , m_store(store)
    , m_service(service)
    , m_preferences(std::move(preferences))
    , m_surroundings(std::move(surroundings))
    , m_textInput(defaultSlideContent.toString())
    , m_openAiApiKey(m_preferences.openAiApiKey())
    , m_customPrompt(defaultPrompt())
    , m_entries(parseSlideContent(m_textInput))
    , m_assets(store)
    , m_collections(store)
{}

template <typename T>
bool SlideshowGenerator::change(T &field, const T &value, void (SlideshowGenerator::*changed)())
{
    if (field == value)
        return false;
    field = value;
    emit(this->*changed)();
    return true;
}

void SlideshowGenerator::setSlideCount(double count)
{
    change(m_slideCount, count, &SlideshowGenerator::slideCountChanged);
}

void SlideshowGenerator::setBulkCount(double count)
{
    change(m_bulkCount, count, &SlideshowGenerator::bulkCountChanged);
}

void SlideshowGenerator::setStyle(const SlideStyle &style)
{
    change(m_style, style, &SlideshowGenerator::styleChanged);
}

template <typename Change>
void SlideshowGenerator::changeStyle(Change change)
{
    SlideStyle style = m_style;
    change(style);
    setStyle(style);
}

void SlideshowGenerator::setSelectedStyle(TextStyle textStyle)
{
    if (textStyle == m_style.textStyle)
        return;
    changeStyle([&](SlideStyle &style) {
        style.textStyle = textStyle;
        if (textStyle == TextStyle::classic)
            style.setBoxColor(black);
        else if (textStyle == TextStyle::boxed)
            style.setBoxColor(white);
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
    change(m_selectedAspectRatio, ratio, &SlideshowGenerator::selectedAspectRatioChanged);
}

void SlideshowGenerator::setTextInput(const QString &content)
{
    if (m_textInput == content)
        return;
    m_textInput = content;
    m_entries = parseSlideContent(content);
    const qsizetype index = m_entries.isEmpty() ? 0 : qMin(m_currentPreviewIndex, m_entries.size() - 1);
    const bool indexMoves = std::exchange(m_currentPreviewIndex, index) != index;
    const bool mappingChanges = renewPreviewAssets();

    emit textInputChanged();
    emit entriesChanged();
    if (indexMoves)
        emit currentPreviewIndexChanged();
    emit currentPreviewEntryChanged();
    if (mappingChanges)
        emit previewAssetMappingChanged();
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
    if (!change(m_openAiApiKey, key, &SlideshowGenerator::openAiApiKeyChanged))
        return;
    if (const Result<> stored = m_preferences.setOpenAiApiKey(key); !stored)
        printLine(u"Failed to store the API key: "_s + stored.error().message);
}

void SlideshowGenerator::setCustomPrompt(const QString &prompt)
{
    change(m_customPrompt, prompt, &SlideshowGenerator::customPromptChanged);
}

void SlideshowGenerator::setBatchName(const QString &name)
{
    change(m_batchName, name, &SlideshowGenerator::batchNameChanged);
}

void SlideshowGenerator::setIsAiMode(bool on)
{
    change(m_isAiMode, on, &SlideshowGenerator::isAiModeChanged);
}

void SlideshowGenerator::setCurrentPreviewIndex(qsizetype index)
{
    if (change(m_currentPreviewIndex, index, &SlideshowGenerator::currentPreviewIndexChanged))
        emit currentPreviewEntryChanged();
}

SlideText SlideshowGenerator::currentPreviewEntry() const
{
    return m_entries.value(m_currentPreviewIndex, SlideText{u"Main Text"_s, u"Subtitle Text"_s});
}

QList<Asset *> SlideshowGenerator::previewAssetMapping() const
{
    return {m_previewAssets.begin(), m_previewAssets.end()};
}

Asset *SlideshowGenerator::previewAsset(qsizetype entry) const
{
    return m_previewAssets.value(entry);
}

void SlideshowGenerator::updatePreviewAssetMapping()
{
    if (renewPreviewAssets())
        emit previewAssetMappingChanged();
}

bool SlideshowGenerator::renewPreviewAssets()
{
    QList<QPointer<Asset>> renewed;
    if (m_assets.count() > 0) {
        renewed.reserve(m_entries.size());
        for (qsizetype i = 0; i < m_entries.size(); ++i) {
            Asset *asset = previewAsset(i);
            if (m_assets.indexOf(asset) < 0) {
                asset = randomAsset();
                connect(asset, &Record::removed, this, &SlideshowGenerator::forgetRemovedAssets,
                        Qt::UniqueConnection);
            }
            renewed.append(asset);
        }
    }
    if (renewed == m_previewAssets)
        return false;
    m_previewAssets = renewed;
    return true;
}

void SlideshowGenerator::forgetRemovedAssets()
{
    for (QPointer<Asset> &asset : m_previewAssets) {
        if (asset && !asset->store())
            asset.clear();
    }
    emit previewAssetMappingChanged();
}

Asset *SlideshowGenerator::randomAsset()
{
    std::uniform_int_distribution<int> row(0, m_assets.count() - 1);
    return m_assets.at(row(*m_surroundings.random));
}

QCoro::Task<Result<GeneratedBatch>> SlideshowGenerator::generateBatch()
{
    change(m_isGenerating, true, &SlideshowGenerator::isGeneratingChanged);
    GeneratedBatch batch = beginBatch();
    const qint64 count = truncated(m_bulkCount);
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
                addSlideshow(batch, variation);
        } else {
            outcome = fail(describe(variations.error()));
            printLine(generationFailure(variations.error()));
        }
    } else {
        for (qint64 i = 0; i < count; ++i)
            addSlideshow(batch, m_textInput);
    }
    change(m_isGenerating, false, &SlideshowGenerator::isGeneratingChanged);
    if (m_endsAfterRuns && m_waitingRuns == 0)
        deleteLater();
    if (!outcome)
        co_return Result<GeneratedBatch>(std::unexpect, outcome.error());
    co_return Result<GeneratedBatch>(std::move(batch));
}

void SlideshowGenerator::deleteAfterRuns()
{
    if (m_waitingRuns == 0)
        delete this;
    else
        m_endsAfterRuns = true;
}

GeneratedBatch SlideshowGenerator::generateBatch(const QStringList &contents,
                                                 const GenerationProgress &goesOn)
{
    GeneratedBatch batch = beginBatch();
    for (qsizetype i = 0; i < contents.size(); ++i) {
        addSlideshow(batch, contents[i]);
        if (!goesOn(i + 1, contents.size()))
            break;
    }
    return batch;
}

GeneratedBatch SlideshowGenerator::beginBatch() const
{
    const QString name =
        m_batchName.isEmpty() ? defaultBatchName(m_surroundings.now(), m_surroundings.locale) : m_batchName;
    return {.id = QUuid::createUuid(), .name = name, .boxColorHex = m_style.boxColorHex, .slideshows = {}};
}

void SlideshowGenerator::addSlideshow(GeneratedBatch &batch, const QString &content)
{
    if (Slideshow *const slideshow = createSlideshow(content, batch.boxColorHex, batch.id, batch.name))
        batch.slideshows.append(slideshow);
}

Slideshow *SlideshowGenerator::createSlideshow(const QString &content, const QString &boxColorHex,
                                               const QUuid &batchId, const QString &batchName)
{
    const QList<SlideText> entries = parseSlideContent(content);
    const qint64 kept = qMin(truncated(m_slideCount), qint64(entries.size()));
    std::vector<std::unique_ptr<Slide>> slides;
    for (qint64 order = 0; order < kept && m_assets.count() > 0; ++order)
        slides.push_back(makeSlide(entries[order], order, boxColorHex));
    if (slides.empty())
        return nullptr;
    return m_store.insert(
        std::make_unique<Slideshow>(std::move(slides), m_selectedAspectRatio, batchId, batchName));
}

std::unique_ptr<Slide> SlideshowGenerator::makeSlide(const SlideText &entry, qint64 order,
                                                     const QString &boxColorHex)
{
    auto slide = std::make_unique<Slide>(randomAsset(), entry.main, entry.subtitle, m_style.textStyle, order);
    SlideStyle style = m_style;
    style.boxColorHex = boxColorHex;
    slide->setStyle(style);
    return slide;
}

} // namespace mosslantern

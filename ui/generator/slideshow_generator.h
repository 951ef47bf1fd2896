#pragma once

#include "content/batch_name.h"
#include "content/slideshow_maker.h"
#include "model/collection.h"
#include "model/preferences.h"
#include "model/rgba_color.h"
#include "ui/generator/preview_entry_model.h"

#include <QtQml/qqmlregistration.h>
#include <qcoro/qcorotask.h>

namespace mosslantern {

class OpenAIService;

/// What a generator takes from the world around it.
struct GeneratorSurroundings
{
    QRandomGenerator *random = QRandomGenerator::system();
    std::function<QDateTime()> now = [] { return QDateTime::currentDateTime(); };
    /// As defaultBatchName() takes it.
    QString locale = userDateLocale();
};

/// The settings of the generation screen and what follows from them: batches of slideshows, and which entry
/// and which images the live preview shows. The content is parsed once for each change of `textInput`, so a
/// broken document is reported once per change, and again by each createSlideshow().
class SlideshowGenerator : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("SlideshowsView makes it.")
    Q_PROPERTY(double slideCount READ slideCount WRITE setSlideCount NOTIFY slideCountChanged)
    Q_PROPERTY(double bulkCount READ bulkCount WRITE setBulkCount NOTIFY bulkCountChanged)
    Q_PROPERTY(mosslantern::SlideStyle style READ style WRITE setStyle NOTIFY styleChanged)
    Q_PROPERTY(mosslantern::AspectRatio selectedAspectRatio READ selectedAspectRatio WRITE
                   setSelectedAspectRatio NOTIFY selectedAspectRatioChanged)
    Q_PROPERTY(QString textInput READ textInput WRITE setTextInput NOTIFY textInputChanged)
    Q_PROPERTY(double templateTextScale READ templateTextScale WRITE setTemplateTextScale NOTIFY styleChanged)
    Q_PROPERTY(double templateSubtitleScale READ templateSubtitleScale WRITE setTemplateSubtitleScale NOTIFY
                   styleChanged)
    Q_PROPERTY(mosslantern::Collection *selectedCollection READ selectedCollection WRITE setSelectedCollection
                   NOTIFY selectedCollectionChanged)
    Q_PROPERTY(QString openAiApiKey READ openAiApiKey WRITE setOpenAiApiKey NOTIFY openAiApiKeyChanged)
    Q_PROPERTY(QString customPrompt READ customPrompt WRITE setCustomPrompt NOTIFY customPromptChanged)
    Q_PROPERTY(QString batchName READ batchName WRITE setBatchName NOTIFY batchNameChanged)
    Q_PROPERTY(bool isAiMode READ isAiMode WRITE setIsAiMode NOTIFY isAiModeChanged)
    Q_PROPERTY(bool isGenerating READ isGenerating NOTIFY isGeneratingChanged)
    Q_PROPERTY(qsizetype currentPreviewIndex READ currentPreviewIndex WRITE setCurrentPreviewIndex NOTIFY
                   currentPreviewIndexChanged)
    Q_PROPERTY(
        mosslantern::SlideText currentPreviewEntry READ currentPreviewEntry NOTIFY currentPreviewEntryChanged)
    Q_PROPERTY(mosslantern::LiveQueryBase *assetSource READ assetSource CONSTANT)
    Q_PROPERTY(mosslantern::LiveQueryBase *collections READ collections CONSTANT)

public:
    /// `store` and `service` outlive the generator.
    SlideshowGenerator(Store &store, OpenAIService &service, Preferences preferences,
                       GeneratorSurroundings surroundings = {}, QObject *parent = nullptr);

    /// Slides per slideshow at most.
    double slideCount() const { return m_settings.slideCount; }
    void setSlideCount(double count);

    /// Slideshows per batch, or variations asked of the AI service. Truncated like every count; what is below
    /// one makes nothing.
    double bulkCount() const { return m_bulkCount; }
    void setBulkCount(double count);

    /// The style of new slides, and its values one by one. A change of the selected style to `classic` makes
    /// the box colour black, one to `boxed` white.
    const SlideStyle &style() const { return m_settings.style; }
    void setStyle(const SlideStyle &style);
    TextStyle selectedStyle() const { return m_settings.style.textStyle; }
    void setSelectedStyle(TextStyle style);
    RgbaColor boxColor() const { return m_settings.style.boxColor(); }
    void setBoxColor(const RgbaColor &color);
    QPointF templateTextPos() const { return m_settings.style.textPos(); }
    void setTemplateTextPos(const QPointF &position);
    double templateTextScale() const { return m_settings.style.textScale; }
    void setTemplateTextScale(double scale);
    QPointF templateSubtitlePos() const { return m_settings.style.subtitlePos(); }
    void setTemplateSubtitlePos(const QPointF &position);
    double templateSubtitleScale() const { return m_settings.style.subtitleScale; }
    void setTemplateSubtitleScale(double scale);

    AspectRatio selectedAspectRatio() const { return m_settings.aspectRatio; }
    void setSelectedAspectRatio(AspectRatio ratio);

    /// The slide content. A change keeps the preview index within the entries and updates the mapping.
    QString textInput() const { return m_textInput; }
    void setTextInput(const QString &content);

    /// The collection whose assets are used, or null for all assets; null again when it is removed. A change
    /// updates the mapping.
    Collection *selectedCollection() const { return m_selectedCollection; }
    void setSelectedCollection(Collection *collection);

    /// A change is written to the preferences; a failure of that is printed.
    QString openAiApiKey() const { return m_openAiApiKey; }
    void setOpenAiApiKey(const QString &key);

    QString customPrompt() const { return m_customPrompt; }
    void setCustomPrompt(const QString &prompt);

    /// Used as typed; the empty name stands for one made of date and time.
    QString batchName() const { return m_batchName; }
    void setBatchName(const QString &name);

    bool isAiMode() const { return m_isAiMode; }
    void setIsAiMode(bool on);

    /// On from the start of a run to its end; of several runs at once the first to end turns it off.
    bool isGenerating() const { return m_isGenerating; }

    qsizetype currentPreviewIndex() const { return m_currentPreviewIndex; }
    void setCurrentPreviewIndex(qsizetype index);

    /// The assets that slides are made of, in the store's order: as records and as a live model.
    std::vector<Asset *> filteredAssets() const { return m_assets.records(); }
    LiveQueryBase *assetSource() { return &m_assets; }

    /// All collections, in the store's order.
    LiveQueryBase *collections() { return &m_collections; }

    /// The entries of `textInput`, each with the asset that the preview shows behind it.
    PreviewEntryModel &previewEntries() { return m_entries; }

    /// The entry at the preview index, or placeholder texts when there is none.
    SlideText currentPreviewEntry() const;

    /// Those assets by the places of their entries.
    QMap<qsizetype, Asset *> previewAssetMapping() const { return m_entries.assets(); }

    /// Gives every entry an asset of the source: the one that it has, or a random one. To be called when the
    /// screen is shown.
    void updatePreviewAssetMapping() { m_entries.renewAssets(); }

    /// Makes one batch from the present settings, in AI mode from the variations that the service returns.
    /// A failure of the service is printed. A run in AI mode whose generator is destroyed makes nothing more;
    /// deleteAfterRuns() lets it finish.
    QCoro::Task<Result<GeneratedBatch>> generateBatch();

    /// Deletes the generator when no run waits for the service any more: at once, or some time after the last
    /// run has made its slideshows from the settings as they are. Its parent, if it has one, may delete it
    /// before that.
    void deleteAfterRuns();

    /// Makes a slideshow from `content` and inserts it. Null when there are no entries or no assets.
    Slideshow *createSlideshow(const QString &content, const QString &boxColorHex, const QUuid &batchId,
                               const QString &batchName);

signals:
    void slideCountChanged();
    void bulkCountChanged();
    void styleChanged();
    void selectedAspectRatioChanged();
    void textInputChanged();
    void selectedCollectionChanged();
    void openAiApiKeyChanged();
    void customPromptChanged();
    void batchNameChanged();
    void isAiModeChanged();
    void isGeneratingChanged();
    void currentPreviewIndexChanged();
    void currentPreviewEntryChanged();

private:
    void addSlideshow(GeneratedBatch &batch, const QString &content, const QString &boxColorHex);
    template <typename Change>
    void changeStyle(Change change);

    Store &m_store;
    OpenAIService &m_service;
    Preferences m_preferences;
    GeneratorSurroundings m_surroundings;

    SlideshowSettings m_settings;
    double m_bulkCount = 1;
    QString m_textInput;
    QPointer<Collection> m_selectedCollection;
    QString m_openAiApiKey;
    QString m_customPrompt;
    QString m_batchName;
    bool m_isAiMode = false;
    bool m_isGenerating = false;
    int m_waitingRuns = 0;
    bool m_endsAfterRuns = false;
    qsizetype m_currentPreviewIndex = 0;

    LiveQuery<Asset> m_assets;
    LiveQuery<Collection> m_collections;
    PreviewEntryModel m_entries;
};

} // namespace mosslantern

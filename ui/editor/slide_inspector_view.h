#pragma once

#include "model/live_query.h"
#include "model/rgba_color.h"
#include "model/slide_preset.h"
#include "model/slideshow.h"
#include "ui/slide/style_choices.h"

#include <QtCore/QPointer>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace mosslantern {

/// The panel that edits the selected slide's texts and style, and the saved presets.
class SlideInspectorView : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("SlideshowDetailView makes it.")
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(QString subtitle READ subtitle WRITE setSubtitle NOTIFY subtitleChanged)
    Q_PROPERTY(QList<QString> styleNames READ styleNames CONSTANT)
    /// A TextStyle as a number.
    Q_PROPERTY(int textStyle READ textStyle WRITE setTextStyle NOTIFY styleChanged)
    Q_PROPERTY(bool showsBoxColor READ showsBoxColor NOTIFY styleChanged)
    Q_PROPERTY(bool showsBorder READ showsBorder NOTIFY styleChanged)
    Q_PROPERTY(int colorChoice READ colorChoice NOTIFY colorChoiceChanged)
    Q_PROPERTY(bool hasSlideshow READ hasSlideshow NOTIFY slideshowChanged)
    Q_PROPERTY(bool hasBatch READ hasBatch NOTIFY slideshowChanged)
    Q_PROPERTY(QStringList presetNames READ presetNames NOTIFY presetsChanged)
    Q_PROPERTY(int presetChoice READ presetChoice NOTIFY presetsChanged)
    Q_PROPERTY(bool hasSelectedPreset READ hasSelectedPreset NOTIFY presetsChanged)
    Q_PROPERTY(bool showingSaveDialog READ showingSaveDialog WRITE setShowingSaveDialog NOTIFY
                   showingSaveDialogChanged)
    Q_PROPERTY(QString newPresetName READ newPresetName WRITE setNewPresetName NOTIFY newPresetNameChanged)
    Q_PROPERTY(bool canSave READ canSave NOTIFY newPresetNameChanged)

public:
    explicit SlideInspectorView(Store &store, QObject *parent = nullptr);

    /// Null while no slide is selected; then nothing is edited.
    Slide *slide() const { return m_slide; }
    void setSlide(Slide *slide);

    /// The slideshow that holds the slide; null: nothing applies to all slides.
    Slideshow *slideshow() const { return m_slideshow; }
    void setSlideshow(Slideshow *slideshow);

    /// What the colour pickers show. A change goes into the slide while one of them is shown.
    RgbaColor boxColor() const { return m_boxColor; }
    void setBoxColor(const RgbaColor &color);

    /// Lets the pickers show the colour of a slide that has just been selected: nothing is written.
    void showBoxColor(const RgbaColor &color);

    QString text() const { return m_slide ? m_slide->text() : QString(); }
    void setText(const QString &text);

    QString subtitle() const { return m_slide ? m_slide->subtitle() : QString(); }
    void setSubtitle(const QString &subtitle);

    int textStyle() const { return static_cast<int>(shownStyle()); }
    void setTextStyle(int style);

    /// Which of the two colour pickers is shown: white or black for boxed, black or clear for classic.
    bool showsBoxColor() const { return m_slide && m_slide->style().textStyle == TextStyle::boxed; }
    bool showsBorder() const { return m_slide && m_slide->style().textStyle == TextStyle::classic; }

    /// Which of the shown picker's two choices the colour is; -1 when it is neither.
    int colorChoice() const;
    Q_INVOKABLE void chooseColor(int choice);

    bool hasSlideshow() const { return m_slideshow; }
    bool hasBatch() const { return m_slideshow && !m_slideshow->batchId().isNull(); }

    /// All presets, newest first.
    const LiveQuery<SlidePreset> &presets() const { return m_presets; }

    SlidePreset *selectedPreset() const { return m_selectedPreset; }
    void setSelectedPreset(SlidePreset *preset);

    /// The items of the presets' menu, "None" before the presets, and the selected one among them.
    QStringList presetNames() const;
    int presetChoice() const;
    Q_INVOKABLE void choosePreset(int choice);

    bool showingSaveDialog() const { return m_showingSaveDialog; }
    void setShowingSaveDialog(bool isShown);

    QString newPresetName() const { return m_newPresetName; }
    void setNewPresetName(const QString &name);

    /// Whether the typed name is a name.
    bool canSave() const { return !m_newPresetName.trimmed().isEmpty(); }

    /// Copies the slide's style to the other slides of the slideshow.
    void applyStyleToAllSlides(const Slideshow &slideshow);

    /// The same for all slides of all slideshows of a batch.
    void applyStyleToBatch(const QUuid &batchId);

    /// The two on the slide's own slideshow.
    Q_INVOKABLE void applyToAllSlides();
    Q_INVOKABLE void applyToBatch();

    Q_INVOKABLE void applyPresetToSlide();
    Q_INVOKABLE void deleteSelectedPreset();

    /// Saves the slide's style under the typed name and selects the new preset.
    Q_INVOKABLE void savePreset();

signals:
    /// The slide is about to be read or edited: whatever of it is not written yet should be.
    void slideNeeded();

    void textChanged();
    void subtitleChanged();
    void styleChanged();
    void slideshowChanged();
    void boxColorChanged();
    void colorChoiceChanged();
    void presetsChanged();
    void showingSaveDialogChanged();
    void newPresetNameChanged();

private:
    static QStringList styleNames() { return mosslantern::styleNames(); }
    TextStyle shownStyle() const { return m_slide ? m_slide->style().textStyle : TextStyle::classic; }
    bool hasSelectedPreset() const { return m_selectedPreset; }

    Store &m_store;
    LiveQuery<SlidePreset> m_presets;
    QPointer<Slide> m_slide;
    QPointer<Slideshow> m_slideshow;
    RgbaColor m_boxColor{1, 1, 1, 1};
    QPointer<SlidePreset> m_selectedPreset;
    QMetaObject::Connection m_presetRemoved;
    bool m_showingSaveDialog = false;
    QString m_newPresetName;
};

} // namespace mosslantern

#pragma once

#include "model/batch_groups.h"
#include "model/live_query.h"
#include "model/slideshow.h"
#include "ui/slide/export_run.h"

#include <optional>

namespace mosslantern {

/// The screen of all generated slideshows in their batches.
class GalleryView : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(
        mosslantern::ScreenContext *context READ context WRITE setContext NOTIFY contextChanged REQUIRED)
    Q_PROPERTY(mosslantern::LiveQueryBase *slideshows READ slideshowsModel NOTIFY contextChanged)
    Q_PROPERTY(mosslantern::Slideshow *selectedSlideshow READ selectedSlideshow WRITE setSelectedSlideshow
                   NOTIFY selectedSlideshowChanged)
    Q_PROPERTY(mosslantern::ExportRun *exportRun READ exportRun CONSTANT)
    Q_PROPERTY(bool isExporting READ isExporting NOTIFY isExportingChanged)
    Q_PROPERTY(bool showingDeleteBatchAlert READ showingDeleteBatchAlert WRITE setShowingDeleteBatchAlert
                   NOTIFY showingDeleteBatchAlertChanged)
    Q_PROPERTY(QString nameOfBatchToDelete READ nameOfBatchToDelete NOTIFY batchToDeleteChanged)
    Q_PROPERTY(int sizeOfBatchToDelete READ sizeOfBatchToDelete NOTIFY batchToDeleteChanged)

public:
    explicit GalleryView(QObject *parent = nullptr);

    ScreenContext *context() const { return m_context; }
    /// Once, before anything else.
    void setContext(ScreenContext *context);

    /// All slideshows, newest first.
    LiveQuery<Slideshow> &slideshows() { return *m_slideshows; }

    /// The same in groups, as they are shown; empty without a context.
    QList<BatchGroup> groupedSlideshows() const;

    /// The slideshow that is open in the editor, or null. Null again when it is removed.
    Slideshow *selectedSlideshow() const { return m_selectedSlideshow; }
    void setSelectedSlideshow(Slideshow *slideshow);

    /// Whether the export of a batch is running; of several, until the last ends.
    bool isExporting() const { return m_exportRun.isRunning(); }
    ExportRun *exportRun() { return &m_exportRun; }

    /// Asks for a folder and writes the slides of a batch into it.
    void exportBatch(const BatchGroup &batch);
    Q_INVOKABLE void exportBatch(const QString &name);
    /// The same when the folder is known.
    void exportTo(const BatchGroup &batch, const QString &folder);

    /// Whether the alert is shown that asks before a batch is deleted.
    bool showingDeleteBatchAlert() const { return m_showingDeleteBatchAlert; }
    void setShowingDeleteBatchAlert(bool isShowing);

    /// The batch that the alert is about, or was about last, without the slideshows that are gone; none at
    /// first.
    std::optional<BatchGroup> batchToDelete() const;
    /// Of that batch, as it was when the deletion was asked for.
    QString nameOfBatchToDelete() const;
    int sizeOfBatchToDelete() const;
    Q_INVOKABLE void askToDeleteBatch(const QString &name);
    /// The answer to the alert.
    Q_INVOKABLE void confirmDeletion();

    /// Removes the slideshows of a batch with their slides.
    void deleteBatch(const BatchGroup &batch);

    /// Removes one slideshow with its slides, without asking.
    Q_INVOKABLE void deleteSlideshow(mosslantern::Slideshow *slideshow);

signals:
    void contextChanged();
    void selectedSlideshowChanged();
    void isExportingChanged();
    void showingDeleteBatchAlertChanged();
    void batchToDeleteChanged();
    /// The next change of what is shown is to be seen as a movement.
    void batchWillBeDeleted();

private:
    /// Slideshows of which some may go.
    using Presented = QList<QPointer<Slideshow>>;
    struct PresentedBatch
    {
        QString name;
        Presented slideshows;
    };

    LiveQueryBase *slideshowsModel() { return m_slideshows ? &*m_slideshows : nullptr; }
    BatchGroup group(const QString &name) const;
    static QCoro::Task<> runExport(QPointer<ExportRun> run, QPointer<ScreenContext> context,
                                   Presented presented, QString folder);

    ScreenContext *m_context = nullptr;
    std::optional<LiveQuery<Slideshow>> m_slideshows;
    Slideshow *m_selectedSlideshow = nullptr;
    QMetaObject::Connection m_selectedRemoved;
    ExportRun m_exportRun;
    bool m_showingDeleteBatchAlert = false;
    std::optional<PresentedBatch> m_batchToDelete;
};

} // namespace mosslantern

#include "ui/generator/slideshows_view.h"

#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>

namespace mosslantern {

SlideshowsView::SlideshowsView(QObject *parent)
    : QObject(parent)
{}

SlideshowsView::~SlideshowsView() = default;

void SlideshowsView::setContext(ScreenContext *context)
{
    Q_ASSERT(!m_context && context);
    m_context = context;
    // The context's child, since a run may outlive the screen, but not the store.
    m_generator.reset(
        new SlideshowGenerator(context->store(), context->service(), context->preferences(), {}, context));
    m_generator->updatePreviewAssetMapping();
    m_panel = std::make_unique<GeneratorView>(*m_generator);
    m_preview = std::make_unique<LivePreview>(*m_generator);
    connect(m_panel.get(), &GeneratorView::onGenerate, this, &SlideshowsView::generate);
    emit contextChanged();
}

void SlideshowsView::generate()
{
    QMetaObject::invokeMethod(this, &SlideshowsView::run, Qt::QueuedConnection);
}

QCoro::Task<> SlideshowsView::follow(ScreenContext &context, QCoro::Task<Result<GeneratedBatch>> run)
{
    const RunningWork::Piece piece(context.work(), RunningWork::Kind::generating);
    co_await run;
}

void SlideshowsView::run()
{
    // Without the AI service this returns when all files are copied.
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    follow(*m_context, m_generator->generateBatch());
    QGuiApplication::restoreOverrideCursor();
}

} // namespace mosslantern

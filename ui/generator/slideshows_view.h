#pragma once

#include "ui/common/screen_context.h"
#include "ui/generator/generator_view.h"
#include "ui/generator/live_preview.h"

#include <memory>

namespace mosslantern {

/// The screen that makes slideshows: the generator's settings, its panel and the live preview.
class SlideshowsView : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(
        mosslantern::ScreenContext *context READ context WRITE setContext NOTIFY contextChanged REQUIRED)
    Q_PROPERTY(mosslantern::SlideshowGenerator *generator READ generator NOTIFY contextChanged)
    Q_PROPERTY(mosslantern::GeneratorView *panel READ panel NOTIFY contextChanged)
    Q_PROPERTY(mosslantern::LivePreview *preview READ preview NOTIFY contextChanged)

public:
    explicit SlideshowsView(QObject *parent = nullptr);
    ~SlideshowsView() override;

    ScreenContext *context() const { return m_context; }
    /// Once, before anything else.
    void setContext(ScreenContext *context);

    SlideshowGenerator *generator() const { return m_generator.get(); }
    GeneratorView *panel() const { return m_panel.get(); }
    LivePreview *preview() const { return m_preview.get(); }

    /// Starts a run and returns at once. A run that waits for the AI service goes on without the screen, as
    /// long as there is the context.
    void generate();

signals:
    void contextChanged();

private:
    struct DeleteAfterRuns
    {
        void operator()(SlideshowGenerator *generator) const { generator->deleteAfterRuns(); }
    };

    static QCoro::Task<> follow(ScreenContext &context, QCoro::Task<Result<GeneratedBatch>> run);
    void run();

    ScreenContext *m_context = nullptr;
    std::unique_ptr<SlideshowGenerator, DeleteAfterRuns> m_generator;
    std::unique_ptr<GeneratorView> m_panel;
    std::unique_ptr<LivePreview> m_preview;
};

} // namespace mosslantern

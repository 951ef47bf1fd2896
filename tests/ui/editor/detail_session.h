#pragma once

#include "content/openai_service.h"
#include "tests/ui/slide/editor_session.h"
#include "tests/ui/test_file_panels.h"
#include "ui/editor/slideshow_detail_view.h"
#include "ui/slide/draggable_text_view.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

/// What a slideshow editor works with.
class DetailSession : public EditorSession
{
public:
    Slide *slide(int stored) const { return slideshow->slides()[stored]; }

    TestFilePanels panels;
    OpenAIService service;
    ScreenContext context{store(), panels, service, Preferences(QString())};
    Slideshow *slideshow = nullptr;
};

/// An editor on a slideshow of four slides, without a window.
class DetailFixture : public DetailSession
{
public:
    explicit DetailFixture(const QUuid &batch = {})
    {
        slideshow = addLetters(batch);
        detail.setContext(&context);
        detail.setSlideshow(slideshow);
    }

    Slideshow *addLetters(const QUuid &batch)
    {
        return addSlideshow(addPicture(u"photo.jpg"_s, {300, 300}), {u"A"_s, u"B"_s, u"C"_s, u"D"_s},
                            AspectRatio::square, batch);
    }

    SlideInspectorView &inspector() { return *detail.inspector(); }

    SlideshowDetailView detail;
};

/// The editor's screen in a window.
class ScreenSession : public DetailSession
{
public:
    ScreenSession()
    {
        slideshow = addSlideshow(addPicture(u"photo.jpg"_s, {400, 700}), {u"One"_s, u"Two"_s, u"Three"_s});
        root = show(
            u"SlideshowDetailScreen"_s,
            {{u"context"_s, QVariant::fromValue(&context)}, {u"slideshow"_s, QVariant::fromValue(slideshow)}},
            {1200, 960});
    }

    ~ScreenSession() { close(); }
    Q_DISABLE_COPY_MOVE(ScreenSession)

    bool click(const QString &name)
    {
        const QQuickItem *const item = find(name);
        if (!item || !item->isEnabled())
            return false;
        QTest::mouseClick(&window(), Qt::LeftButton, {},
                          item->mapToScene(item->boundingRect().center()).toPoint());
        settle();
        return true;
    }

    DraggableTextView *block() const
    {
        return find(u"canvasLoader"_s)->findChild<DraggableTextView *>(u"mainBlock"_s);
    }
    /// Begins to edit the main text on the canvas and types at its end; false when the editor does not open.
    bool typeOnCanvas(const QString &text)
    {
        block()->startEditing();
        const bool isOpen = QTest::qWaitFor([this] {
            const QQuickItem *const edit = find(u"textEdit"_s);
            return edit && edit->hasActiveFocus();
        });
        if (isOpen)
            type(text);
        return isOpen;
    }
    SlideshowDetailView *detail() const { return root->findChild<SlideshowDetailView *>(); }

    QQuickItem *root;
};

} // namespace mosslantern

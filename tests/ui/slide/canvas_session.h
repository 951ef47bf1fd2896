#pragma once

#include "tests/ui/slide/editor_session.h"
#include "ui/slide/draggable_text_view.h"
#include "ui/slide/slide_canvas_view.h"

namespace mosslantern {

/// The canvas of a slide in a window of 420 by 700 points: 360 by 640 points large.
class CanvasSession : public EditorSession
{
public:
    explicit CanvasSession(const QString &subtitle = QStringLiteral("Subtitle"))
    {
        slideshow =
            addSlideshow(addPicture(QStringLiteral("photo.jpg"), {900, 1600}), {QStringLiteral("Main text")});
        slide = slideshow->slides().constFirst();
        slide->setSubtitle(subtitle);
        root = show(QStringLiteral("SlideCanvas"),
                    {{QStringLiteral("slide"), QVariant::fromValue(slide)},
                     {QStringLiteral("slideshow"), QVariant::fromValue(slideshow)}},
                    {420, 700});
        static_cast<void>(QTest::qWaitFor(
            [this] { return find(QStringLiteral("canvasBackground"))->property("isLoaded").toBool(); }));
        mainBlock = root->findChild<DraggableTextView *>(QStringLiteral("mainBlock"));
        subtitleBlock = root->findChild<DraggableTextView *>(QStringLiteral("subtitleBlock"));
    }

    /// A place on the canvas, given in fractions of it, in the window.
    QPoint at(double x, double y) const
    {
        const QQuickItem *content = find(QStringLiteral("canvasContent"));
        return content->mapToScene({x * content->width(), y * content->height()}).toPoint();
    }

    void drag(QPoint from, QPoint by)
    {
        QTest::mousePress(&window(), Qt::LeftButton, {}, from);
        for (int step = 1; step <= 10; ++step) {
            QTest::mouseMove(&window(), from + by * step / 10);
            settle();
        }
    }
    void drop(QPoint at)
    {
        QTest::mouseRelease(&window(), Qt::LeftButton, {}, at);
        settle();
    }

    Slideshow *slideshow;
    Slide *slide;
    QQuickItem *root;
    DraggableTextView *mainBlock;
    DraggableTextView *subtitleBlock;
};

} // namespace mosslantern

// What shows slides against the picture that the renderer makes of them, pixel by pixel, at the window's
// number of pixels to a point.

#include "render/background.h"
#include "render/export/slide_job.h"
#include "tests/ui/slide/editor_session.h"
#include "ui/slide/static_slide.h"

#include <QtGui/QPainter>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

struct Fixture
{
    Fixture()
    {
        slideshow = session.addSlideshow(session.addPicture(u"photo.png"_s, {900, 700}),
                                         {u"First 🎉\nsecond"_s}, AspectRatio::tiktok);
        slide = slideshow->slides().constFirst();
        slide->setSubtitle(u"below"_s);
    }

    /// How far what `item` shows is from the picture of a canvas of `size` points; rows of `margin` points at
    /// the top and the bottom are not compared.
    int distance(const QQuickItem &item, QSizeF size, double margin)
    {
        const double ratio = session.window().effectiveDevicePixelRatio();
        const Canvas canvas{size, ratio};
        const QString picture = slide->imageURL().toLocalFile();
        const QImage expected =
            SlideComposition(canvas, loadBackground(picture, canvas), drawTexts(slideValues(*slide), canvas))
                .image();
        const QPoint place = (item.mapToScene({}) * ratio).toPoint();
        const int leftOut = qCeil(margin * ratio);
        const QRect compared = expected.rect().adjusted(0, leftOut, 0, -leftOut);
        QImage onBlack(expected.size(), QImage::Format_RGB32);
        onBlack.fill(Qt::black);
        QPainter(&onBlack).drawImage(0, 0, expected);
        return difference(session.grab().copy(compared.translated(place)), onBlack.copy(compared));
    }

    EditorSession session;
    Slideshow *slideshow;
    Slide *slide;
};

} // namespace

class WholePixelsTest : public QObject
{
    Q_OBJECT

private slots:
    void showsThePreviewAsItIs();
    void showsTheCanvasAsItIs();
};

void WholePixelsTest::showsThePreviewAsItIs()
{
    Fixture f;
    const QString list = u"Item { id: root; required property Slide slide\n"
                         "property Item preview: SlidePreviewView { parent: root; x: 20.3; y: 11.8; "
                         "height: 120; slide: root.slide; aspectRatio: 0 } }"_s;
    const QQuickItem *const root =
        f.session.showSource(list, {{u"slide"_s, QVariant::fromValue(f.slide)}}, {301, 203});
    auto *const preview = root->property("preview").value<StaticSlide *>();
    QTRY_VERIFY(preview->isLoaded());
    QCOMPARE_LE(f.distance(*preview, {67.5, 120}, 0), 1);
    // A list that is scrolled takes it along.
    preview->setPosition({33.9, -7.7});
    QCOMPARE_LE(f.distance(*preview, {67.5, 120}, 10), 1);
}

void WholePixelsTest::showsTheCanvasAsItIs()
{
    Fixture f;
    const QQuickItem *const root = f.session.show(
        u"SlideCanvas"_s,
        {{u"slide"_s, QVariant::fromValue(f.slide)}, {u"slideshow"_s, QVariant::fromValue(f.slideshow)}},
        {421, 603});
    QTRY_VERIFY(f.session.find(u"canvasBackground"_s)->property("isLoaded").toBool());
    constexpr double corners = 20;
    QCOMPARE_LE(
        f.distance(*f.session.find(u"canvasContent"_s), root->property("frame").toRectF().size(), corners),
        1);
}

int main(int argc, char **argv)
{
    return runEditorTest<WholePixelsTest>(argc, argv,
                                          qEnvironmentVariable("QT_SCALE_FACTOR", u"1"_s).toUtf8());
}

#include "tst_whole_pixels.moc"

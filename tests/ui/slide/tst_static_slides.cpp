// Slides on the screen against the files of their export, at two pixels to a point.

#include "model/image_files.h"
#include "render/background.h"
#include "render/export/slide_job.h"
#include "tests/ui/slide/editor_session.h"
#include "ui/slide/live_slide_thumbnail.h"
#include "ui/slide/slide_preview_view.h"

#include <QtGui/QPainter>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

QImage over(const QColor &color, const QImage &image)
{
    QImage behind(image.size(), QImage::Format_RGB32);
    behind.fill(color);
    QPainter(&behind).drawImage(0, 0, image);
    return behind;
}

/// How far the window is from the export of `job`, on black as on white: together they tell the opacity, too.
int distanceFromExport(EditorSession &session, const SlideJob &job)
{
    const QImage exported = SlideComposition(job.canvas, loadBackground(job.picturePath, job.canvas),
                                             drawTexts(job.values, job.canvas))
                                .image();
    int largest = 0;
    for (const QColor &color : {QColor(Qt::black), QColor(Qt::white)}) {
        session.window().setColor(color);
        largest = std::max(largest, difference(session.grab(), over(color, exported)));
    }
    return largest;
}

QVariant asVariant(QObject *object)
{
    return QVariant::fromValue(object);
}

} // namespace

class StaticSlidesTest : public QObject
{
    Q_OBJECT

private slots:
    void equalsItsExport_data();
    void equalsItsExport();
    void followsItsRecord();
    void standsInForMissingPictures();
    void drawsSettings();
};

void StaticSlidesTest::equalsItsExport_data()
{
    QTest::addColumn<AspectRatio>("shape");
    QTest::addColumn<TextStyle>("style");
    QTest::addColumn<QSize>("picture");
    QTest::newRow("reduced") << AspectRatio::tiktok << TextStyle::classic << QSize(5000, 4000);
    QTest::newRow("enlarged") << AspectRatio::instagram << TextStyle::neon << QSize(300, 200);
    QTest::newRow("tiny canvas") << AspectRatio::square << TextStyle::boxed << QSize(1200, 900);
    QTest::newRow("exact") << AspectRatio::instagram << TextStyle::modern << QSize(960, 1200);
}

void StaticSlidesTest::equalsItsExport()
{
    QFETCH(AspectRatio, shape);
    QFETCH(TextStyle, style);
    QFETCH(QSize, picture);

    EditorSession session;
    const Slideshow *slideshow =
        session.addSlideshow(session.addPicture(u"photo.jpg"_s, picture), {u"First 🎉\nsecond"_s}, shape);
    Slide *const slide = slideshow->slides().constFirst();
    slide->setStyle(&SlideStyle::textStyle, style);
    slide->setSubtitle(u"below"_s);
    slide->setStyle(&SlideStyle::textX, 0.37);
    slide->setStyle(&SlideStyle::textScale, 1.3);

    const SlideJob job = exportJob(*slide, shape);
    auto *const view = qobject_cast<StaticSlide *>(session.show(
        u"SlidePreviewView"_s, {{u"slide"_s, asVariant(slide)}, {u"aspectRatio"_s, static_cast<int>(shape)}},
        job.canvas.size.toSize()));
    QTRY_VERIFY(view->isLoaded());
    const int levels = distanceFromExport(session, job);
    QVERIFY2(levels <= 1, qPrintable(u"differs by %1 levels"_s.arg(levels)));
}

void StaticSlidesTest::followsItsRecord()
{
    EditorSession session;
    const Slideshow *slideshow = session.addSlideshow(session.addPicture(u"photo.jpg"_s, {400, 600}),
                                                      {u"Before"_s}, AspectRatio::square);
    Slide *const slide = slideshow->slides().constFirst();
    auto *const view = qobject_cast<StaticSlide *>(session.show(
        u"SlidePreviewView"_s, {{u"slide"_s, asVariant(slide)}, {u"aspectRatio"_s, 2}}, {120, 120}));
    QTRY_VERIFY(view->isLoaded());
    slide->setText(u"After"_s);
    slide->setStyle(&SlideStyle::textStyle, TextStyle::boxed);
    slide->setStyle(&SlideStyle::textY, 0.2);
    QVERIFY(distanceFromExport(session, exportJob(*slide, AspectRatio::square)) <= 1);
}

void StaticSlidesTest::standsInForMissingPictures()
{
    EditorSession session;
    const Slideshow *slideshow =
        session.library().addSlideshow(session.library().addAsset(u"gone"_s), {u""_s});
    session.show(u"SlidePreviewView"_s,
                 {{u"slide"_s, asVariant(slideshow->slides().constFirst())}, {u"aspectRatio"_s, QVariant()}},
                 {540, 960});
    QTest::qWait(50);
    const QImage shown = session.grab();
    QCOMPARE(shown.pixelColor(200, 600).red(), qRound(0.2 * 142));
    QVERIFY(shown.pixelColor(0, 0).red() < 10);
}

void StaticSlidesTest::drawsSettings()
{
    EditorSession session;
    auto *const view = qobject_cast<LiveSlideThumbnail *>(session.show(
        u"LiveSlideThumbnail"_s,
        {{u"mainText"_s, u"Main"_s}, {u"subtitle"_s, u"Sub"_s}, {u"aspectRatio"_s, 2}}, {120, 120}));
    QCOMPARE(session.grab().pixelColor(20, 20).red(), qRound(0.3 * 142));

    const auto asset =
        importAsset(QUrl::fromLocalFile(session.addPicture(u"photo.png"_s, {300, 300})), session.store());
    view->setAsset(*asset);
    const SlideStyle style{.textX = 0.4,
                           .textY = 0.3,
                           .subtitleScale = 0.5,
                           .textStyle = TextStyle::boxed,
                           .boxColorHex = u"FFFF00"_s};
    view->setStyle(style);
    QTRY_VERIFY(view->isLoaded());
    const SlideJob job{{.text = u"Main"_s, .subtitle = u"Sub"_s, .style = style},
                       exportCanvas(AspectRatio::square),
                       (*asset)->fileURL().toLocalFile()};
    QVERIFY(distanceFromExport(session, job) <= 1);
}

int main(int argc, char **argv)
{
    return runEditorTest<StaticSlidesTest>(argc, argv, "2");
}

#include "tst_static_slides.moc"

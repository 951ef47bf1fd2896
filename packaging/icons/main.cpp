// mosslantern-icons FOLDER SIZE...: draws the application's icon in these sizes, in pixels; run by the build.

#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

using namespace Qt::StringLiterals;

namespace {

// Up to this size the small drawing, made for a grid of 16, is clearer.
constexpr int largestSmall = 24;

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList words = QGuiApplication::arguments();
    for (const QString &word : words.sliced(2)) {
        const int size = word.toInt();
        QSvgRenderer drawing(size <= largestSmall ? u":/mosslantern-small.svg"_s : u":/mosslantern.svg"_s);
        QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        drawing.render(&painter);
        painter.end();
        if (!drawing.isValid() || !image.save(words[1] + u"/mosslantern-%1.png"_s.arg(size)))
            return 1;
    }
    return 0;
}

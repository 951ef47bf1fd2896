#include "ui/common/symbol_drawing.h"

#include <QtCore/QFile>
#include <QtCore/QHash>
#include <QtCore/QXmlStreamReader>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

#include <optional>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

struct Icon
{
    QString file;
    bool isFilled = false;
};

QByteArray resource(const QString &name)
{
    QFile file(u":/mosslantern/symbols/"_s + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QHash<QString, Icon> readTable()
{
    QHash<QString, Icon> table;
    for (const QString &line :
         QString::fromUtf8(resource(u"symbols.txt"_s)).split(u'\n', Qt::SkipEmptyParts)) {
        const QStringList words = line.split(u' ', Qt::SkipEmptyParts);
        table.insert(words[0], {words[1] + u".svg"_s, words.size() > 2});
    }
    return table;
}

const QHash<QString, Icon> &symbolTable()
{
    static const QHash<QString, Icon> table = readTable();
    return table;
}

/// The shapes of an icon, each as an SVG element in black.
QStringList shapes(const QByteArray &svg)
{
    QStringList found;
    QXmlStreamReader reader(svg);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement || reader.name() == "svg"_L1)
            continue;
        QString attributes;
        for (const QXmlStreamAttribute &attribute : reader.attributes())
            attributes += u" %1=\"%2\""_s.arg(attribute.name(), attribute.value());
        found.append(u"<%1%2/>"_s.arg(reader.name(), attributes.replace("currentColor"_L1, "black"_L1)));
    }
    return found;
}

void drawShapes(QPainter &painter, const QStringList &shapes, const QString &fill)
{
    const QString svg = u"<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 24 24\">"
                        "<g fill=\"%1\" stroke=\"black\" stroke-width=\"2\" stroke-linecap=\"round\" "
                        "stroke-linejoin=\"round\">%2</g></svg>"_s;
    QSvgRenderer renderer(svg.arg(fill, shapes.join(QString())).toUtf8());
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    renderer.render(&painter);
}

} // namespace

QStringList symbolNames()
{
    return symbolTable().keys();
}

QImage drawSymbol(const QString &name, QSize size, const QColor &color)
{
    const auto icon = symbolTable().constFind(name);
    if (icon == symbolTable().cend() || size.isEmpty())
        return {};
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const QStringList all = shapes(resource(icon->file));

    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    if (icon->isFilled) {
        drawShapes(painter, all.first(1), u"black"_s);
        painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
        drawShapes(painter, all.sliced(1), u"none"_s);
    } else {
        drawShapes(painter, all, u"none"_s);
    }
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    return image;
}

} // namespace mosslantern

#include "render/text/thaana_font.h"

#include <QtCore/QtEndian>
#include <QtGui/QFontDatabase>
#include <QtGui/QRawFont>

#include <array>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

using FontTable = std::pair<QByteArray, QByteArray>; // tag, data

template <typename Number>
void append(QByteArray &bytes, Number number)
{
    std::array<char, sizeof number> data{};
    qToBigEndian(number, data.data());
    bytes.append(data.data(), data.size());
}

/// Qt leaves a script to a font only if its substitution table names it. Noto Sans Thaana needs no
/// substitutions, and has no such table: this one names the script and is empty otherwise.
QByteArray substitutions()
{
    return QByteArray::fromHex("00010000000a001c001e"     // the places of its three lists
                               "000174686161000800040000" // scripts: "thaa"
                               "0000ffff0000"             // its language: no features
                               "0000"                     // features
                               "0000");                   // lookups
}

QByteArray names(const QString &family, const QString &style)
{
    QByteArray records;
    QByteArray texts;
    const auto add = [&](quint16 name, const QString &text) {
        const auto length = static_cast<quint16>(2 * text.size());
        for (const quint16 number :
             {quint16(3), quint16(1), quint16(0x409), name, length, static_cast<quint16>(texts.size())})
            append(records, number);
        for (const QChar unit : text)
            append(texts, quint16(unit.unicode()));
    };
    add(1, family);
    add(2, style);
    QByteArray table;
    for (const auto number : {quint16(0), quint16(2), static_cast<quint16>(6 + records.size())})
        append(table, number);
    return table + records + texts;
}

QByteArray fontFile(const QList<FontTable> &tables)
{
    QByteArray header;
    QByteArray data;
    append(header, quint32(0x00010000));
    for (const auto number : {static_cast<quint16>(tables.size()), quint16(0), quint16(0), quint16(0)})
        append(header, number);
    const auto start = header.size() + 16 * tables.size();
    for (const auto &[tag, table] : tables) {
        header += tag;
        for (const auto number :
             {quint32(0), static_cast<quint32>(start + data.size()), static_cast<quint32>(table.size())})
            append(header, number);
        data += table;
        data.append((4 - data.size() % 4) % 4, '\0');
    }
    return header + data;
}

bool registerFace(const QString &family, QFont::Weight weight, const QString &style)
{
    QFont font(u"Noto Sans Thaana"_s);
    font.setWeight(weight);
    font.setStyleStrategy(QFont::NoFontMerging);
    // As if for Latin: for its own script Qt has no such font.
    const QRawFont installed = QRawFont::fromFont(font, QFontDatabase::Latin);
    if (!installed.isValid() || !installed.supportsCharacter(uint(0x0780)))
        return false;
    QList<FontTable> tables;
    for (const char *tag : {"GDEF", "GPOS", "GSUB", "OS/2", "cmap", "cvt ", "fpgm", "glyf", "head", "hhea",
                            "hmtx", "loca", "maxp", "name", "post", "prep"}) {
        QByteArray table = installed.fontTable(tag);
        if (qstrcmp(tag, "GSUB") == 0)
            table = substitutions();
        else if (qstrcmp(tag, "name") == 0)
            table = names(family, style);
        if (!table.isEmpty())
            tables.append({tag, table});
    }
    return QFontDatabase::addApplicationFontFromData(fontFile(tables)) >= 0;
}

} // namespace

QString thaanaFamily()
{
    static const QString family = [] {
        const QString name = u"Mosslantern Thaana"_s;
        if (!QFontDatabase::hasFamily(u"Noto Sans Thaana"_s))
            return QString();
        const bool hasRegular = registerFace(name, QFont::Normal, u"Regular"_s);
        const bool hasBold = registerFace(name, QFont::Bold, u"Bold"_s);
        return hasRegular || hasBold ? name : QString();
    }();
    return family;
}

} // namespace mosslantern

#include "app/cli/text_input.h"

#include "content/utf8.h"

#include <QtCore/QFile>

#include <cstdio>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 mebibyte = 1 << 20;

QString nameOf(const QString &path)
{
    return path == "-"_L1 ? u"Standard input"_s : u"“%1”"_s.arg(path);
}

Result<QByteArray> readUpTo(qint64 mebibytes, const QString &path)
{
    const QString name = nameOf(path);
    QFile file(path);
    if (!(path == "-"_L1 ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly)))
        return fail(u"%1 could not be read: %2"_s.arg(name, file.errorString()));
    // What a pipe gives at once need not be all.
    QByteArray bytes;
    for (QByteArray part; bytes.size() <= mebibytes * mebibyte && !(part = file.read(mebibyte)).isEmpty();)
        bytes += part;
    if (file.error() != QFileDevice::NoError)
        return fail(u"%1 could not be read: %2"_s.arg(name, file.errorString()));
    if (bytes.size() > mebibytes * mebibyte)
        return fail(u"%1 is too long: more than %2 MiB"_s.arg(name).arg(mebibytes));
    return bytes;
}

} // namespace

Result<QByteArray> readBytes(const QString &path)
{
    return readUpTo(128, path);
}

Result<QString> readText(const QString &path)
{
    const Result<QByteArray> bytes = readUpTo(64, path);
    if (!bytes)
        return std::unexpected(bytes.error());
    std::optional<QString> text = decodeUtf8(*bytes);
    if (!text)
        return fail(u"%1 is not a text in UTF-8"_s.arg(nameOf(path)));
    if (text->startsWith(QChar::ByteOrderMark))
        text->remove(0, 1);
    return *std::move(text);
}

} // namespace mosslantern

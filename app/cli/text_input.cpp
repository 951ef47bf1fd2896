#include "app/cli/text_input.h"

#include "content/utf8.h"

#include <QtCore/QFile>

#include <cstdio>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {
constexpr qint64 mostBytes = 64 << 20;
constexpr qint64 partBytes = 1 << 20;
} // namespace

Result<QString> readText(const QString &path)
{
    const bool isInput = path == "-"_L1;
    const QString name = isInput ? u"Standard input"_s : u"“%1”"_s.arg(path);
    QFile file(path);
    if (!(isInput ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly)))
        return fail(u"%1 could not be read: %2"_s.arg(name, file.errorString()));
    // What a pipe gives at once need not be all.
    QByteArray bytes;
    for (QByteArray part; bytes.size() <= mostBytes && !(part = file.read(partBytes)).isEmpty();)
        bytes += part;
    if (file.error() != QFileDevice::NoError)
        return fail(u"%1 could not be read: %2"_s.arg(name, file.errorString()));
    if (bytes.size() > mostBytes)
        return fail(u"%1 is too long: more than 64 MiB"_s.arg(name));
    std::optional<QString> text = decodeUtf8(bytes);
    if (!text)
        return fail(u"%1 is not a text in UTF-8"_s.arg(name));
    if (text->startsWith(QChar::ByteOrderMark))
        text->remove(0, 1);
    return *std::move(text);
}

} // namespace mosslantern

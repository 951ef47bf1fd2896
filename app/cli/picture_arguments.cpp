#include "app/cli/picture_arguments.h"

#include "render/picture/picture_format.h"

#include <QtCore/QCollator>
#include <QtCore/QDir>

#include <algorithm>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

bool isCalledLikePicture(const QFileInfo &file)
{
    static const QStringList suffixes{u"jpg"_s, u"jpeg"_s, u"png"_s,  u"webp"_s, u"gif"_s, u"bmp"_s,
                                      u"tif"_s, u"tiff"_s, u"heic"_s, u"heif"_s, u"avif"_s};
    return suffixes.contains(file.suffix(), Qt::CaseInsensitive);
}

bool beginsLikePicture(const QFileInfo &info)
{
    QFile file(info.filePath());
    return file.open(QIODevice::ReadOnly) && pictureFormat(file.read(128));
}

Result<QStringList> picturesIn(const QString &folder)
{
    const QDir directory(folder);
    if (!directory.isReadable())
        return fail(u"The folder “%1” cannot be read."_s.arg(folder));
    QStringList names;
    for (const QFileInfo &file : directory.entryInfoList(QDir::Files, QDir::NoSort)) {
        if (isCalledLikePicture(file) || beginsLikePicture(file))
            names.append(file.fileName());
    }
    if (names.isEmpty())
        return fail(u"There are no pictures in “%1”."_s.arg(folder));

    // One order for all users, whatever their language.
    QCollator collator(QLocale(QLocale::English));
    collator.setNumericMode(true);
    std::ranges::sort(names, [&](const QString &a, const QString &b) {
        const int order = collator.compare(a, b);
        return order != 0 ? order < 0 : a < b;
    });
    for (QString &name : names)
        name = directory.filePath(name);
    return names;
}

} // namespace

PictureArguments pictureArguments(const QStringList &arguments)
{
    PictureArguments pictures;
    for (const QString &argument : arguments) {
        if (argument.isEmpty()) {
            pictures.problems.append({u"The name of a file is empty."_s});
            continue;
        }
        if (!QFileInfo(argument).isDir()) {
            pictures.files.append(argument);
            continue;
        }
        pictures.hasFolder = true;
        if (const Result<QStringList> found = picturesIn(argument))
            pictures.files += *found;
        else
            pictures.problems.append(found.error());
    }
    return pictures;
}

} // namespace mosslantern

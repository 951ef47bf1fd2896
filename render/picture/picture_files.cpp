#include "render/picture/picture_files.h"

#include "model/text_decoding.h"
#include "render/picture/picture_format.h"

#include <QtCore/QCollator>
#include <QtCore/QDir>
#include <QtCore/QSet>

#include <algorithm>
#include <filesystem>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

bool isCalledLikePicture(const QString &name)
{
    static const QStringList suffixes = pictureSuffixes();
    return suffixes.contains(QFileInfo(name).suffix(), Qt::CaseInsensitive);
}

bool beginsLikePicture(const std::filesystem::path &path)
{
    QFile file(path);
    std::error_code problem;
    return std::filesystem::is_regular_file(path, problem) && file.open(QIODevice::ReadOnly) &&
           pictureFormat(file.read(128));
}

Error improperName(const QString &path)
{
    return {u"%1: The name of the file is not UTF-8."_s.arg(path)};
}

/// One order for all users, whatever their language.
void sortAsPeopleCount(QStringList &names)
{
    QCollator collator{QLocale(QLocale::English)};
    collator.setNumericMode(true);
    std::ranges::sort(names, [&](const QString &a, const QString &b) {
        const int order = collator.compare(a, b);
        return order != 0 ? order < 0 : a < b;
    });
}

/// The names of the pictures in a folder. Not from QDir, which leaves out links to nothing, pipes and names
/// that it cannot decode without a word.
Result<QStringList> pictureNames(const QString &folder)
{
    namespace fs = std::filesystem;
    QStringList names;
    std::error_code problem;
    for (fs::directory_iterator entry(QFileInfo(folder).filesystemFilePath(), problem);
         !problem && entry != fs::directory_iterator(); entry.increment(problem)) {
        const QString name = decoded(entry->path().filename().native());
        std::error_code ignored;
        if (!name.startsWith(u'.') && !entry->is_directory(ignored) &&
            (isCalledLikePicture(name) || beginsLikePicture(entry->path())))
            names.append(name);
    }
    if (problem)
        return fail(u"The folder “%1” cannot be read."_s.arg(folder));
    if (names.isEmpty())
        return fail(u"There are no pictures in “%1”."_s.arg(folder));
    sortAsPeopleCount(names);
    return names;
}

} // namespace

PictureFiles pictureFiles(const QStringList &names)
{
    PictureFiles pictures;
    const auto add = [&pictures](const QString &path) {
        if (isProperText(path))
            pictures.files.append(path);
        else
            pictures.problems.append(improperName(path));
    };
    const auto isFolder = [](const QString &name) { return isProperText(name) && QFileInfo(name).isDir(); };
    QSet<QString> taken;
    for (const QString &name : names) {
        if (isProperText(name) && !isFolder(name))
            taken.insert(QFileInfo(name).canonicalFilePath());
    }
    for (const QString &name : names) {
        if (name.isEmpty()) {
            pictures.problems.append({u"The name of a file is empty."_s});
            continue;
        }
        if (!isFolder(name)) {
            add(name);
            continue;
        }
        pictures.hasFolder = true;
        const Result<QStringList> inFolder = pictureNames(name);
        if (!inFolder)
            pictures.problems.append(inFolder.error());
        for (const QString &inside : inFolder.value_or(QStringList())) {
            const QString path = QDir(name).filePath(inside);
            const QString canonical = QFileInfo(path).canonicalFilePath(); // empty when there is no file
            if (!canonical.isEmpty() && taken.contains(canonical))
                continue;
            taken.insert(canonical);
            add(path);
        }
    }
    return pictures;
}

QStringList pictureSuffixes()
{
    return {u"jpg"_s, u"jpeg"_s, u"png"_s,  u"webp"_s, u"gif"_s, u"bmp"_s,
            u"tif"_s, u"tiff"_s, u"heic"_s, u"heif"_s, u"avif"_s};
}

bool isLikePicture(const QString &path)
{
    return isCalledLikePicture(path) || beginsLikePicture(QFileInfo(path).filesystemFilePath());
}

} // namespace mosslantern

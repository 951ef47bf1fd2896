#include "render/text/emoji_outlines.h"

#include <QtCore/QFile>
#include <QtCore/QHash>
#include <QtCore/QRegularExpression>

#include <algorithm>
#include <vector>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// One of the files, and the characters that it has.
struct OutlineFile
{
    QString path;
    std::vector<std::pair<char32_t, char32_t>> characters; // from, to
    std::unique_ptr<ColorFont> font;                       // once it has been asked for

    bool has(uint character) const
    {
        // Invisible characters are not looked for.
        constexpr uint colourPresentation = 0xFE0F;
        return character == colourPresentation || std::ranges::any_of(characters, [&](const auto &range) {
                   return range.first <= character && character <= range.second;
               });
    }
};

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// As the style sheet beside the files lists them.
std::vector<OutlineFile> outlineFiles()
{
    static const QString folder = u":/mosslantern/emoji/"_s;
    static const QRegularExpression entry(u"files/([^)]+)\\).*?unicode-range: ([^;]+);"_s,
                                          QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression range(u"U\\+([0-9a-f]+)(?:-([0-9a-f]+))?"_s);
    std::vector<OutlineFile> files;
    for (const auto &found : entry.globalMatch(QString::fromUtf8(contents(folder + u"index.css"_s)))) {
        OutlineFile file{.path = folder + found.captured(1), .characters = {}, .font = nullptr};
        for (const auto &characters : range.globalMatch(found.captured(2))) {
            const uint from = characters.captured(1).toUInt(nullptr, 16);
            const QString to = characters.captured(2);
            file.characters.emplace_back(from, to.isEmpty() ? from : to.toUInt(nullptr, 16));
        }
        files.push_back(std::move(file));
    }
    return files;
}

std::optional<EmojiOutlines> find(const QString &emoji)
{
    thread_local std::vector<OutlineFile> files = outlineFiles();
    const QList<uint> characters = emoji.toUcs4();
    for (OutlineFile &file : files) {
        if (!std::ranges::all_of(characters, [&](uint character) { return file.has(character); }))
            continue;
        if (!file.font)
            file.font = std::make_unique<ColorFont>(contents(file.path));
        if (const auto glyph = file.font->glyphOf(emoji))
            return EmojiOutlines{file.font.get(), *glyph};
    }
    return {};
}

} // namespace

std::optional<EmojiOutlines> emojiOutlines(const QString &emoji)
{
    thread_local QHash<QString, std::optional<EmojiOutlines>> known;
    const auto found = known.constFind(emoji);
    return found != known.cend() ? *found : *known.insert(emoji, find(emoji));
}

} // namespace mosslantern

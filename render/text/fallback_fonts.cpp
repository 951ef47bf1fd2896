#include "render/text/fallback_fonts.h"

#include "render/text/thaana_font.h"

#include <QtCore/QHash>
#include <QtGui/QFontDatabase>
#include <QtGui/QRawFont>

#include <unicode/uchar.h>
#include <unicode/uscript.h>

#include <algorithm>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

UScriptCode scriptOf(UChar32 character)
{
    UErrorCode error = U_ZERO_ERROR;
    const UScriptCode script = uscript_getScript(character, &error);
    return U_SUCCESS(error) ? script : USCRIPT_UNKNOWN;
}

bool isShared(UScriptCode script)
{
    return script == USCRIPT_COMMON || script == USCRIPT_INHERITED;
}

bool isMark(UChar32 character)
{
    return (U_GET_GC_MASK(character) & U_GC_M_MASK) != 0;
}

bool isInvisible(UChar32 character)
{
    return u_iscntrl(character) || u_hasBinaryProperty(character, UCHAR_DEFAULT_IGNORABLE_CODE_POINT);
}

/// The families that draw one script, the best first.
QStringList familiesOfScript(UScriptCode script)
{
    switch (script) {
    case USCRIPT_COMMON:
    case USCRIPT_INHERITED:
    case USCRIPT_LATIN:
    case USCRIPT_GREEK:
    case USCRIPT_CYRILLIC:
    case USCRIPT_HAN:
    case USCRIPT_HIRAGANA:
    case USCRIPT_KATAKANA:
    case USCRIPT_HANGUL:
    case USCRIPT_BOPOMOFO:
        return {}; // in the families of many scripts
    case USCRIPT_NKO:
        return {u"Noto Sans NKo"_s};
    case USCRIPT_PHAGS_PA:
        return {u"Noto Sans PhagsPa"_s};
    case USCRIPT_THAANA:
        return {thaanaFamily()};
    case USCRIPT_TAMIL:
        return {u"Noto Sans Tamil"_s, u"Noto Sans Tamil Supplement"_s};
    default:
        break;
    }
    const QString name = QString::fromLatin1(uscript_getName(script)).replace(u'_', u' ');
    return {u"Noto Sans "_s + name, u"Noto Serif "_s + name};
}

const QStringList &familiesOfManyScripts()
{
    static const QStringList families{u"Noto Sans"_s,         u"Noto Sans CJK SC"_s,   u"Noto Sans Math"_s,
                                      u"Noto Sans Symbols"_s, u"Noto Sans Symbols2"_s, u"Noto Music"_s};
    return families;
}

bool findCharacter(const QString &family, UChar32 character)
{
    if (!QFontDatabase::hasFamily(family))
        return false;
    QFont font(family);
    font.setStyleStrategy(QFont::NoFontMerging);
    return QRawFont::fromFont(font).supportsCharacter(static_cast<uint>(character));
}

/// Both lookups are slow, and made once for each character and thread.
bool hasCharacter(const QString &family, UChar32 character)
{
    thread_local QHash<std::pair<QString, UChar32>, bool> known;
    const std::pair key(family, character);
    const auto found = known.constFind(key);
    return found != known.constEnd() ? *found : *known.insert(key, findCharacter(family, character));
}

QString findFamily(UChar32 character)
{
    for (const QStringList &families : {familiesOfScript(scriptOf(character)), familiesOfManyScripts()}) {
        const auto found = std::ranges::find_if(
            families, [character](const QString &family) { return hasCharacter(family, character); });
        if (found != families.end())
            return *found;
    }
    return {};
}

QString familyOf(UChar32 character)
{
    thread_local QHash<UChar32, QString> known;
    const auto found = known.constFind(character);
    return found != known.constEnd() ? *found : *known.insert(character, findFamily(character));
}

} // namespace

QList<FallbackRun> fallbackRuns(const QString &text, const QRawFont &textFont)
{
    QList<FallbackRun> runs;
    QString family; // of the character before; empty: the text font's
    qsizetype at = 0;
    for (const uint unit : text.toUcs4()) {
        const auto character = static_cast<UChar32>(unit);
        const qsizetype length = character > 0xFFFF ? 2 : 1;
        const bool staysWithLast = isInvisible(character) || isMark(character);
        if (character < 0x20) {
            family.clear();
        } else if (!staysWithLast || family.isEmpty() ||
                   (!isInvisible(character) && !hasCharacter(family, character))) {
            if (textFont.supportsCharacter(unit) || isInvisible(character))
                family.clear();
            else if (family.isEmpty() || !isShared(scriptOf(character)) || !hasCharacter(family, character))
                family = familyOf(character);
        }
        if (!family.isEmpty()) {
            if (!runs.isEmpty() && runs.last().family == family &&
                runs.last().run.start + runs.last().run.length == at)
                runs.last().run.length += length;
            else
                runs.append({{at, length}, family});
        }
        at += length;
    }
    return runs;
}

} // namespace mosslantern

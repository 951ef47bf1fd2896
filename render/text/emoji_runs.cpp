#include "render/text/emoji_runs.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

namespace mosslantern {

namespace {

constexpr UChar32 joiner = 0x200D;
constexpr UChar32 textPresentation = 0xFE0E;
constexpr UChar32 emojiPresentation = 0xFE0F;
constexpr UChar32 keycap = 0x20E3;
constexpr UChar32 tagFirst = 0xE0020;
constexpr UChar32 tagLast = 0xE007E;
constexpr UChar32 tagEnd = 0xE007F;

bool has(UChar32 character, UProperty property)
{
    return u_hasBinaryProperty(character, property) != 0;
}

class Scanner
{
public:
    explicit Scanner(QStringView text)
        : m_text(text)
    {}

    QList<TextRun> scan()
    {
        QList<TextRun> runs;
        while (m_at < m_text.size()) {
            const qsizetype start = m_at;
            if (sequence())
                runs.append({start, m_at - start});
            else
                m_at = start, next();
        }
        return runs;
    }

private:
    /// The character at the position, or -1 at the end; lone surrogates come out as themselves.
    [[nodiscard]] UChar32 peek() const
    {
        if (m_at >= m_text.size())
            return -1;
        const char16_t unit = m_text[m_at].unicode();
        if (U16_IS_LEAD(unit) && m_at + 1 < m_text.size()) {
            const char16_t trail = m_text[m_at + 1].unicode();
            if (U16_IS_TRAIL(trail))
                return U16_GET_SUPPLEMENTARY(unit, trail);
        }
        return unit;
    }

    UChar32 next()
    {
        const UChar32 character = peek();
        m_at += character > 0xFFFF ? 2 : 1;
        return character;
    }

    bool take(UChar32 character)
    {
        if (peek() != character)
            return false;
        next();
        return true;
    }

    /// emoji_sequence, with everything that is joined to it.
    bool sequence()
    {
        if (!element())
            return false;
        while (peek() == joiner) {
            const qsizetype beforeJoiner = m_at;
            next();
            if (!element(Joined::yes)) {
                m_at = beforeJoiner;
                break;
            }
        }
        return true;
    }

    enum class Joined { no, yes };

    /// One element; inside a joined sequence a character needs no U+FE0F to count as an emoji.
    bool element(Joined joined = Joined::no)
    {
        const UChar32 first = peek();
        if (first < 0 || !has(first, UCHAR_EMOJI))
            return false;
        next();
        if (has(first, UCHAR_REGIONAL_INDICATOR)) {
            if (!has(peek(), UCHAR_REGIONAL_INDICATOR))
                return false;
            next();
            return true;
        }
        if (take(textPresentation))
            return false;
        const bool asked = take(emojiPresentation);
        if (first < 0x80) // digits, # and *
            return take(keycap);
        if (!asked && has(first, UCHAR_EMOJI_MODIFIER_BASE) && has(peek(), UCHAR_EMOJI_MODIFIER)) {
            next();
        } else if (asked) {
            take(keycap);
        } else if (joined == Joined::no && !has(first, UCHAR_EMOJI_PRESENTATION)) {
            return opensJoinedSequence();
        }
        tags();
        return true;
    }

    /// Old texts leave out U+FE0F before a joiner (❤ joiner 🔥): still one picture.
    [[nodiscard]] bool opensJoinedSequence()
    {
        if (peek() != joiner)
            return false;
        Scanner ahead(m_text);
        ahead.m_at = m_at + 1;
        return ahead.element(Joined::yes);
    }

    void tags()
    {
        const qsizetype start = m_at;
        while (peek() >= tagFirst && peek() <= tagLast)
            next();
        if (m_at != start && !take(tagEnd))
            m_at = start;
    }

    QStringView m_text;
    qsizetype m_at = 0;
};

} // namespace

QList<TextRun> emojiRuns(QStringView text)
{
    return Scanner(text).scan();
}

} // namespace mosslantern

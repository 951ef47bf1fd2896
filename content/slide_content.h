#pragma once

#include "model/error.h"

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QString>

#include <optional>

namespace mosslantern {

/// One entry of a slide-content document; members other than "main" and "subtitle" are ignored.
struct SlideData
{
    QString main;
    /// Nothing for an absent member and for null.
    std::optional<QString> subtitle;

    friend bool operator==(const SlideData &, const SlideData &) = default;
};

/// A slide-content document: a JSON object whose member "slides" lists the slides in order.
/// Of a member that is repeated the last one counts, but each must be of the right type.
struct SlideContentJSON
{
    QList<SlideData> slides;

    /// Fails on anything but strict JSON of this form, with a message that says where. Numbers that a double
    /// cannot hold are refused even in members that are ignored.
    static Result<SlideContentJSON> decode(QStringView text);

    /// Pretty-printed, "main" before "subtitle", a missing subtitle left out. Fails when a text holds half
    /// of a surrogate pair.
    Result<QString> encode() const;

    friend bool operator==(const SlideContentJSON &, const SlideContentJSON &) = default;
};

/// One parsed entry of a slide content, as generator and preview use it.
struct SlideText
{
    Q_GADGET
    Q_PROPERTY(QString main MEMBER main CONSTANT)
    Q_PROPERTY(QString subtitle MEMBER subtitle CONSTANT)

public:
    QString main;
    /// Empty when the entry has none.
    QString subtitle;

    friend bool operator==(const SlideText &, const SlideText &) = default;
};

/// More entries than anybody means: a content of more is refused, before it takes memory for them.
inline constexpr qsizetype mostSlides = 100'000;

/// What is said of such a content.
QString tooManySlides();

/// The lines of `text` that are not blank, each an entry. Fails on more than mostSlides.
Result<QList<SlideText>> readSlideLines(QStringView text);

/// The entries of `content`: of a JSON document when it begins with "{" after white space, else one per line
/// that is not blank. Fails on a document that does not decode, and on more than mostSlides entries.
Result<QList<SlideText>> readSlideContent(const QString &content);

/// As readSlideContent(), but what fails gives no entries and prints a line or two.
QList<SlideText> parseSlideContent(const QString &content);

/// Whether `content` is a JSON document that parseSlideContent() reads without complaint.
bool isValidSlideContent(const QString &content);

/// What the member "caption" of a JSON document says, to be posted beside the slides; empty for none.
QString captionOf(const QString &content);

/// Any JSON object or array written out again in the layout of prettyJson(); another text is returned as is.
QString prettifySlideContent(const QString &text);

/// `text` with every line break inside a JSON string literal replaced by a backslash and "n". Works on
/// user-perceived characters: CR LF is one, and a quote with a combining mark is not a quote. A quote counts
/// as escaped when the one character before it is a backslash.
QString fixNewlinesInStrings(const QString &text);

/// `content` with the given texts of entry `index` replaced, encoded again as a whole; `content` itself when
/// it is no document, has no such entry, or cannot be written. Prints a line when JSON fails.
QString updateSlideContent(const QString &content, qsizetype index, const std::optional<QString> &newMain,
                           const std::optional<QString> &newSubtitle);

} // namespace mosslantern

#include "content/slide_content.h"
#include "tests/fuzz/target.h"

#include <cstring>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

/// As UTF-8, or behind the byte FF as UTF-16, in which halves of surrogate pairs can stand.
QString textOf(QByteArrayView bytes)
{
    if (!bytes.startsWith('\xFF'))
        return QString::fromUtf8(bytes);
    QString text((bytes.size() - 1) / 2, Qt::Uninitialized);
    std::memcpy(text.data(), bytes.data() + 1, static_cast<size_t>(text.size()) * sizeof(QChar));
    return text;
}

} // namespace

void mosslantern::tryBytes(QByteArrayView bytes)
{
    const QString text = textOf(bytes);
    const auto entries = readSlideContent(text);
    expect(!isValidSlideContent(text) || entries, "a valid content is read");
    expect(!entries || entries->size() <= mostSlides, "slides are bounded");
    expect(parseSlideContent(text) == entries.value_or(QList<SlideText>()), "one reading");

    const QString pretty = prettifySlideContent(text);
    expect(prettifySlideContent(pretty) == pretty, "pretty stays pretty");
    expect(isValidSlideContent(pretty) || !isValidSlideContent(text), "pretty stays valid");
    const QString fixed = fixNewlinesInStrings(text);
    expect(fixNewlinesInStrings(fixed) == fixed, "fixed stays fixed");

    const QString updated = updateSlideContent(text, 0, u"m"_s, u"s"_s);
    if (updated != text) {
        const auto changed = readSlideContent(updated);
        expect(changed && changed->size() == entries->size(), "an update keeps the entries");
        expect(changed->first() == SlideText{u"m"_s, u"s"_s}, "an update is read back");
    }
}

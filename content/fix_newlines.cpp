#include "content/slide_content.h"
#include "model/line_breaks.h"

#include <unicode/brkiter.h>

#include <memory>

namespace mosslantern {

using namespace Qt::StringLiterals;

QString fixNewlinesInStrings(const QString &text)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> boundaries(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    Q_ASSERT(U_SUCCESS(status));
    const QStringView view = text;
    const icu::UnicodeString characters(false, view.utf16(), static_cast<int32_t>(view.size()));
    boundaries->setText(characters);

    QString result;
    result.reserve(view.size());
    QStringView previous;
    bool insideString = false;
    for (qsizetype start = 0, end = 0; start < view.size(); start = end) {
        end = boundaries->next();
        const QStringView character = view.sliced(start, end - start);
        if (character == u"\"" && previous != u"\\")
            insideString = !insideString;
        if (insideString && isLineBreak(character.front().unicode()))
            result += "\\n"_L1;
        else
            result += character;
        previous = character;
    }
    return result;
}

} // namespace mosslantern

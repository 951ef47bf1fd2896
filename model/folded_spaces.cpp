#include "model/folded_spaces.h"

namespace mosslantern {

namespace {

bool isInvisible(QChar c)
{
    constexpr char16_t nonJoiner = 0x200C;
    constexpr char16_t joiner = 0x200D;
    return c.category() == QChar::Other_Format && c != nonJoiner && c != joiner;
}

} // namespace

QString foldedSpaces(QStringView text)
{
    QString folded = text.toString();
    folded.removeIf(isInvisible);
    return folded.simplified();
}

} // namespace mosslantern

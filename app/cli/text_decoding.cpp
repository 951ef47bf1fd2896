#include "app/cli/text_decoding.h"

#include "content/utf8.h"

namespace mosslantern {

QString decoded(QByteArrayView bytes)
{
    constexpr QChar undecodable(0xDCFF);
    return decodeUtf8(bytes).value_or(
        QString::fromUtf8(bytes).replace(QChar(QChar::ReplacementCharacter), undecodable));
}

bool isProperText(QStringView text)
{
    return encodeUtf8(text).has_value();
}

} // namespace mosslantern

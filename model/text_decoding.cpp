#include "model/text_decoding.h"

#include <QtCore/QStringConverter>

namespace mosslantern {

QString decoded(QByteArrayView bytes)
{
    constexpr QChar undecodable(0xDCFF);
    // QString::fromUtf8 would drop a byte order mark.
    using Flag = QStringConverter::Flag;
    QStringDecoder decoder(QStringConverter::Utf8, Flag::Stateless | Flag::ConvertInitialBom);
    QString text = decoder.decode(bytes);
    return decoder.hasError() ? text.replace(QChar(QChar::ReplacementCharacter), undecodable) : text;
}

bool isProperText(QStringView text)
{
    return text.isValidUtf16();
}

} // namespace mosslantern

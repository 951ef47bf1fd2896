#include "content/utf8.h"

#include <QtCore/QStringConverter>

namespace mosslantern {

std::optional<QByteArray> encodeUtf8(QStringView text)
{
    if (!text.isValidUtf16())
        return std::nullopt;
    return text.toUtf8();
}

std::optional<QString> decodeUtf8(QByteArrayView bytes)
{
    // QString::fromUtf8 would drop a byte order mark.
    using Flag = QStringConverter::Flag;
    QStringDecoder decoder(QStringConverter::Utf8, Flag::Stateless | Flag::ConvertInitialBom);
    QString text = decoder.decode(bytes);
    if (decoder.hasError())
        return std::nullopt;
    return text;
}

} // namespace mosslantern

#pragma once

#include <QtCore/QByteArrayView>

#include <algorithm>

/// Steps over the pieces of a JSON text that has been checked; internal to the reader and the writer.
namespace mosslantern::jsonText {

inline bool isSpace(char c)
{
    return c == ' ' || c == '\n' || c == '\r' || c == '\t';
}

inline QByteArrayView skippingSpace(QByteArrayView text)
{
    return text.sliced(std::find_if_not(text.begin(), text.end(), isSpace) - text.begin());
}

/// The length of the string literal that `text` begins with.
inline qsizetype stringLength(QByteArrayView text)
{
    qsizetype i = 1;
    while (text[i] != '"')
        i += text[i] == '\\' ? 2 : 1;
    return i + 1;
}

/// The length of the number or word that `text` begins with.
inline qsizetype scalarLength(QByteArrayView text)
{
    const auto ends = [](char c) { return c == ',' || c == ']' || c == '}' || isSpace(c); };
    return std::find_if(text.begin(), text.end(), ends) - text.begin();
}

/// The length of the object or array that `text` begins with.
inline qsizetype containerLength(QByteArrayView text)
{
    qsizetype depth = 0;
    for (qsizetype i = 0;;) {
        const char c = text[i];
        if (c == '"') {
            i += stringLength(text.sliced(i));
            continue;
        }
        ++i;
        if (c == '{' || c == '[')
            ++depth;
        else if ((c == '}' || c == ']') && --depth == 0)
            return i;
    }
}

/// The length of the value that `text` begins with.
inline qsizetype valueLength(QByteArrayView text)
{
    switch (text.front()) {
    case '{':
    case '[':
        return containerLength(text);
    case '"':
        return stringLength(text);
    default:
        return scalarLength(text);
    }
}

} // namespace mosslantern::jsonText

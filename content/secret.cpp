#include "content/secret.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QUrl>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype shortestSecret = 8;
const QString mask = u"[API key]"_s;

/// The characters of Base64 that `bytes` alone decide when `before` bytes stand in front of them and anything
/// behind.
QString base64Core(const QByteArray &bytes, int before, QByteArray::Base64Options options)
{
    // 6 bits a character: those that share bits with what stands beside the bytes are left out.
    const qsizetype first = (before * 8 + 5) / 6;
    const qsizetype end = (before + bytes.size()) * 8 / 6;
    return QString::fromLatin1((QByteArray(before, 'x') + bytes).toBase64(options).mid(first, end - first));
}

/// Finds `secret` with any of its characters escaped, as JSON may and as addresses do, once or several times.
QRegularExpression escapedForm(const QString &secret)
{
    QString pattern;
    for (const QChar c : secret) {
        const auto code = static_cast<uint>(c.unicode());
        QString forms = QRegularExpression::escape(QString(c)) + u"|(?i:u%1"_s.arg(code, 4, 16, QChar(u'0'));
        if (code < 0x80)
            forms += u"|%%1"_s.arg(code, 2, 16, QChar(u'0'));
        pattern += u"\\\\{0,3}(?:"_s + forms + u"))"_s;
    }
    return QRegularExpression(pattern);
}

/// Its bytes percent-encoded, and in Base64.
QStringList encodedForms(const QString &secret)
{
    const QByteArray bytes = secret.toUtf8();
    QStringList found{QString::fromLatin1(QUrl::toPercentEncoding(secret))};
    for (const auto options : {QByteArray::Base64Encoding, QByteArray::Base64UrlEncoding}) {
        for (int before = 0; before < 3; ++before)
            found.append(base64Core(bytes, before, options | QByteArray::OmitTrailingEquals));
    }
    found.removeDuplicates();
    return found;
}

} // namespace

QString withoutSecret(const QString &text, const QString &secret)
{
    const QString trimmed = secret.trimmed();
    QString result = text;
    if (trimmed.size() < shortestSecret)
        return result;
    result.replace(escapedForm(trimmed), mask);
    for (const QString &form : encodedForms(trimmed))
        result.replace(form, mask, form.contains(u'%') ? Qt::CaseInsensitive : Qt::CaseSensitive);
    return result;
}

} // namespace mosslantern

#include "content/secret.h"

#include <QtCore/QUrl>

#include <nlohmann/json.hpp>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype shortestSecret = 8;

/// The characters of Base64 that `bytes` alone decide when `before` bytes stand in front of them and anything
/// behind.
QString base64Core(const QByteArray &bytes, int before, QByteArray::Base64Options options)
{
    // 6 bits a character: those that share bits with what stands beside the bytes are left out.
    const qsizetype first = (before * 8 + 5) / 6;
    const qsizetype end = (before + bytes.size()) * 8 / 6;
    return QString::fromLatin1((QByteArray(before, 'x') + bytes).toBase64(options).mid(first, end - first));
}

QStringList forms(const QString &secret)
{
    const QByteArray bytes = secret.toUtf8();
    const std::string json =
        nlohmann::json(bytes.toStdString()).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
    const QString escaped = QString::fromStdString(json.substr(1, json.size() - 2));
    const QByteArray percent = QUrl::toPercentEncoding(secret);
    QStringList found{secret, escaped, QString(escaped).replace(u'/', u"\\/"_s),
                      QString::fromLatin1(percent)};
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
    for (const QString &form : forms(trimmed))
        result.replace(form, u"[API key]"_s, form.contains(u'%') ? Qt::CaseInsensitive : Qt::CaseSensitive);
    return result;
}

} // namespace mosslantern

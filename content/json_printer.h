#pragma once

#include "content/json_handler.h"

#include <QtCore/QByteArray>

namespace mosslantern {

/// Writes the value whose pieces it receives in the layout of prettyJson().
class JsonPrinter final : public JsonHandler
{
public:
    /// Fails when the text takes more than `limit` bytes.
    explicit JsonPrinter(qsizetype limit)
        : m_limit(limit)
    {}

    /// What is written so far.
    const QByteArray &text() const { return m_text; }

    Result<> scalar(JsonKind kind, const std::string &text) override;
    Result<> begin(JsonKind kind) override;
    Result<> end(JsonKind kind) override;
    Result<> key(const std::string &name) override;

private:
    void startItem();
    void newLine();
    Result<> withinLimit() const;

    qsizetype m_limit;
    QByteArray m_text;
    qsizetype m_depth = 0;
    bool m_isFirst = true;
    bool m_isNamed = false;
};

} // namespace mosslantern

#include "content/json_handler.h"

#include <QtCore/QScopeGuard>

#include <nlohmann/json.hpp>

#include <clocale>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

using Json = nlohmann::ordered_json;

/// Passes the library's events on and keeps the failure that ends them.
class Events final : public nlohmann::json_sax<Json>
{
public:
    explicit Events(JsonHandler &handler)
        : m_handler(handler)
    {}

    const Error &error() const { return m_error; }

    bool null() override { return scalar(JsonKind::null, "null"); }
    bool boolean(bool on) override { return scalar(JsonKind::boolean, on ? "true" : "false"); }
    bool number_integer(Json::number_integer_t value) override
    {
        // What is not negative is unsigned: zero here was written with a sign.
        return scalar(JsonKind::number, value == 0 ? "-0" : std::to_string(value));
    }
    bool number_unsigned(Json::number_unsigned_t value) override
    {
        return scalar(JsonKind::number, std::to_string(value));
    }
    bool number_float(double, const std::string &text) override { return scalar(JsonKind::number, text); }
    bool string(std::string &text) override { return scalar(JsonKind::string, text); }
    bool binary(Json::binary_t &) override { Q_UNREACHABLE(); }
    bool start_object(std::size_t) override { return begin(JsonKind::object); }
    bool end_object() override { return end(JsonKind::object); }
    bool start_array(std::size_t) override { return begin(JsonKind::array); }
    bool end_array() override { return end(JsonKind::array); }
    bool key(std::string &name) override { return goOn(m_handler.key(name)); }

    bool parse_error(std::size_t, const std::string &lastToken, const Json::exception &exception) override
    {
        constexpr int numberOverflow = 406;
        if (exception.id == numberOverflow)
            return goOn(fail(u"a number is too large"_s));
        std::string message = exception.what();
        message.erase(0, message.find(' ') + 1);
        // What was read last can be as long as the text.
        constexpr std::string_view lastRead = "; last read: '";
        if (const std::size_t at = message.find(lastRead); at != std::string::npos)
            message.erase(at, lastRead.size() + lastToken.size() + 1);
        return goOn(fail(QString::fromStdString(message)));
    }

private:
    bool goOn(const Result<> &result)
    {
        if (!result)
            m_error = result.error();
        return result.has_value();
    }

    bool scalar(JsonKind kind, const std::string &text) { return goOn(m_handler.scalar(kind, text)); }

    bool begin(JsonKind kind)
    {
        if (++m_depth > maxJsonDepth)
            return goOn(fail(u"nested more than %1 levels deep"_s.arg(maxJsonDepth)));
        return goOn(m_handler.begin(kind));
    }

    bool end(JsonKind kind)
    {
        --m_depth;
        return goOn(m_handler.end(kind));
    }

    JsonHandler &m_handler;
    Error m_error;
    int m_depth = 0;
};

} // namespace

QLatin1StringView describe(JsonKind kind)
{
    switch (kind) {
    case JsonKind::object:
        return "an object"_L1;
    case JsonKind::array:
        return "an array"_L1;
    case JsonKind::string:
        return "a string"_L1;
    case JsonKind::number:
        return "a number"_L1;
    case JsonKind::boolean:
        return "a boolean"_L1;
    case JsonKind::null:
        return "null"_L1;
    }
    Q_UNREACHABLE();
}

Result<> readJson(QByteArrayView utf8, JsonHandler &handler)
{
    // The library skips the mark, and takes a NUL for the end of the text.
    if (utf8.startsWith("\xEF\xBB\xBF"))
        return fail(u"the text begins with a byte order mark"_s);
    if (utf8.contains('\0'))
        return fail(u"the text holds a NUL character"_s);
    // It also gives numbers the decimal point of the locale.
    const locale_t plain = ::newlocale(LC_NUMERIC_MASK, "C", nullptr);
    const locale_t usual = ::uselocale(plain);
    const auto restore = qScopeGuard([=] {
        ::uselocale(usual);
        ::freelocale(plain);
    });
    Events events(handler);
    if (!Json::sax_parse(utf8.begin(), utf8.end(), &events))
        return std::unexpected(events.error());
    return {};
}

} // namespace mosslantern

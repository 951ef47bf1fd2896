#include "content/json.h"
#include "content/slide_content.h"
#include "content/utf8.h"

#include <nlohmann/json.hpp>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

using Kind = JsonValue::Kind;

const auto loneSurrogate = u"the text holds half of a surrogate pair"_s;

std::unexpected<Error> wrongType(const QString &where, QLatin1StringView wanted, const JsonValue &found)
{
    return fail(u"%1: expected %2, found %3"_s.arg(where, wanted, describe(found.kind())));
}

Result<SlideData> decodeSlide(const JsonValue &value, qsizetype index)
{
    const auto where = [index](QLatin1StringView member) { return u"slides[%1]%2"_s.arg(index).arg(member); };
    if (value.kind() != Kind::object)
        return wrongType(where({}), "an object"_L1, value);
    const std::optional<JsonValue> main = value.member("main"_L1);
    if (!main)
        return fail(u"%1: \"main\" is missing"_s.arg(where({})));
    if (main->kind() != Kind::string)
        return wrongType(where(".main"_L1), "a string"_L1, *main);
    const std::optional<JsonValue> subtitle = value.member("subtitle"_L1);
    if (!subtitle || subtitle->kind() == Kind::null)
        return SlideData{main->text(), std::nullopt};
    if (subtitle->kind() != Kind::string)
        return wrongType(where(".subtitle"_L1), "a string or null"_L1, *subtitle);
    return SlideData{main->text(), subtitle->text()};
}

} // namespace

Result<SlideContentJSON> SlideContentJSON::decode(QStringView text)
{
    const std::optional<QByteArray> utf8 = encodeUtf8(text);
    if (!utf8)
        return fail(loneSurrogate);
    const Result<JsonValue> root = JsonValue::parse(*utf8);
    if (!root)
        return std::unexpected(root.error());
    if (root->kind() != Kind::object)
        return wrongType(u"the document"_s, "an object"_L1, *root);
    const std::optional<JsonValue> slides = root->member("slides"_L1);
    if (!slides)
        return fail(u"\"slides\" is missing"_s);
    if (slides->kind() != Kind::array)
        return wrongType(u"slides"_s, "an array"_L1, *slides);

    SlideContentJSON content;
    for (const JsonChild &child : slides->children()) {
        Result<SlideData> slide = decodeSlide(child.value, content.slides.size());
        if (!slide)
            return std::unexpected(slide.error());
        content.slides += *std::move(slide);
    }
    return content;
}

Result<QString> SlideContentJSON::encode() const
{
    auto entries = nlohmann::ordered_json::array();
    for (const SlideData &slide : slides) {
        if (!slide.main.isValidUtf16() || (slide.subtitle && !slide.subtitle->isValidUtf16()))
            return fail(loneSurrogate);
        nlohmann::ordered_json entry{{"main", slide.main.toStdString()}};
        if (slide.subtitle)
            entry["subtitle"] = slide.subtitle->toStdString();
        entries.push_back(std::move(entry));
    }
    return QString::fromStdString(nlohmann::ordered_json{{"slides", std::move(entries)}}.dump(2));
}

} // namespace mosslantern

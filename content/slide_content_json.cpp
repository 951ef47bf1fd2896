#include "content/json_decoder.h"
#include "content/slide_content.h"
#include "content/utf8.h"

#include <nlohmann/json.hpp>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

const auto loneSurrogate = u"the text holds half of a surrogate pair"_s;

constexpr JsonShape captionMember[]{{.name = "caption"_L1, .kind = JsonKind::string, .isOptional = true}};
constexpr JsonShape captioned{.name = "document"_L1, .kind = JsonKind::object, .parts = captionMember};
constexpr JsonShape slideMembers[]{
    {.name = "main"_L1, .kind = JsonKind::string},
    {.name = "subtitle"_L1, .kind = JsonKind::string, .isOptional = true},
};
constexpr JsonShape slide[]{{.name = "slide"_L1, .kind = JsonKind::object, .parts = slideMembers}};
constexpr JsonShape documentMembers[]{{.name = "slides"_L1, .kind = JsonKind::array, .parts = slide}};
constexpr JsonShape document{.name = "document"_L1, .kind = JsonKind::object, .parts = documentMembers};

} // namespace

Result<SlideContentJSON> SlideContentJSON::decode(QStringView text)
{
    const std::optional<QByteArray> utf8 = encodeUtf8(text);
    if (!utf8)
        return fail(loneSurrogate);
    SlideContentJSON content;
    qsizetype count = 0;
    const auto found = [&count, &slides = content.slides](const JsonShape &place,
                                                          std::optional<QString> value) {
        if (place.name == "slides"_L1) {
            slides.clear();
            count = 0;
        } else if (place.name == "slide"_L1) {
            if (++count <= mostSlides)
                slides.emplaceBack();
        }
        if (place.name == "main"_L1)
            slides.last().main = *std::move(value);
        else if (place.name == "subtitle"_L1)
            slides.last().subtitle = std::move(value);
    };
    if (const Result<> decoded = decodeJson(*utf8, document, found); !decoded)
        return std::unexpected(decoded.error());
    if (count > mostSlides)
        return fail(tooManySlides());
    return content;
}

QString captionOf(const QString &content)
{
    const std::optional<QByteArray> utf8 = encodeUtf8(content.trimmed());
    QString caption;
    const auto found = [&caption](const JsonShape &place, std::optional<QString> text) {
        if (place.name == "caption"_L1)
            caption = std::move(text).value_or(QString());
    };
    const bool isDocument = utf8 && utf8->startsWith('{') && decodeJson(*utf8, captioned, found);
    return isDocument ? caption : QString();
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

#include "content/json_decoder.h"

#include "content/utf8.h"

#include <algorithm>
#include <vector>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

using Found = std::function<void(const JsonShape &, std::optional<QString>)>;

class Decoder final : public JsonHandler
{
public:
    Decoder(const JsonShape &document, const Found &found)
        : m_document(document)
        , m_found(found)
    {}

    Result<> scalar(JsonKind kind, const std::string &text) override
    {
        const Result<const JsonShape *> shape = next(kind);
        if (!shape)
            return std::unexpected(shape.error());
        if (*shape)
            m_found(**shape, kind == JsonKind::string ? decodeUtf8(text) : std::nullopt);
        return {};
    }

    Result<> begin(JsonKind kind) override
    {
        const Result<const JsonShape *> shape = next(kind);
        if (!shape)
            return std::unexpected(shape.error());
        if (*shape) {
            m_found(**shape, std::nullopt);
            m_open.push_back(
                {.shape = *shape, .next = kind == JsonKind::array ? (*shape)->parts.data() : nullptr});
        } else {
            ++m_skippedDepth;
        }
        return {};
    }

    Result<> end(JsonKind kind) override
    {
        if (m_skippedDepth > 0) {
            --m_skippedDepth;
            return {};
        }
        const Container closed = m_open.back();
        m_open.pop_back();
        if (kind == JsonKind::object) {
            quint32 bit = 1;
            for (const JsonShape &part : closed.shape->parts) {
                if (!part.isOptional && !(closed.seen & bit))
                    return fail(u"%1: \"%2\" is missing"_s.arg(where(), part.name));
                bit <<= 1;
            }
        }
        return {};
    }

    Result<> key(const std::string &name) override
    {
        if (m_skippedDepth > 0)
            return {};
        Container &object = m_open.back();
        const auto parts = object.shape->parts;
        const QLatin1StringView wanted(name.data(), qsizetype(name.size()));
        const auto part = std::ranges::find(parts, wanted, &JsonShape::name);
        object.next = part == parts.end() ? nullptr : &*part;
        if (object.next)
            object.seen |= quint32(1) << (part - parts.begin());
        return {};
    }

private:
    struct Container
    {
        const JsonShape *shape;
        /// Of the value that comes next; null when that is to be skipped.
        const JsonShape *next;
        /// A bit for each part of an object.
        quint32 seen = 0;
        /// Of the element that was met last.
        qsizetype index = -1;
    };

    /// The shape of the value of this kind that comes now, or null when it is to be skipped.
    Result<const JsonShape *> next(JsonKind kind)
    {
        if (m_skippedDepth > 0)
            return nullptr;
        if (!m_open.empty())
            ++m_open.back().index;
        const JsonShape *const shape = m_open.empty() ? &m_document : m_open.back().next;
        if (!shape || kind == shape->kind || (kind == JsonKind::null && shape->isOptional))
            return shape;
        return fail(u"%1: expected %2%3, found %4"_s.arg(
            where(), describe(shape->kind), shape->isOptional ? " or null"_L1 : ""_L1, describe(kind)));
    }

    /// The place of the present value, as in "slides[1].main".
    QString where() const
    {
        QString path;
        for (const Container &container : m_open) {
            if (container.shape->kind == JsonKind::array)
                path += u"[%1]"_s.arg(container.index);
            else
                path += (path.isEmpty() ? u""_s : u"."_s) + container.next->name;
        }
        return path.isEmpty() ? u"the document"_s : path;
    }

    const JsonShape &m_document;
    const Found &m_found;
    std::vector<Container> m_open;
    int m_skippedDepth = 0;
};

} // namespace

Result<> decodeJson(QByteArrayView utf8, const JsonShape &document, const Found &found)
{
    Decoder decoder(document, found);
    return readJson(utf8, decoder);
}

} // namespace mosslantern
